#include "ORXSrvElementLayerProperty.h"

#include "ORXObjMesh.h"
#include "ORXObjModel.h"
#include "ORXSimArray.h"
#include "ORXSimAssociation.h"
#include "ORXSimContext.h"
#include "ORXSimDSet.h"
#include "ORXSimDistribution.h"
#include "ORXSimGrid.h"
#include "ORXSimTransfer.h"
#include "ORXSrvChecks.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <cstdint>

namespace
{
using DrawerDescArray =
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>;
using IntArray = ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>>;
} // namespace

ORXSrvElementLayerProperty::ORXSrvElementLayerProperty(ORXSimPosition const& position,
                                                       ORXSimCollectionID const& propertyCollection,
                                                       int dsetType, int relationMember, int relationKey,
                                                       int chunkSize)
    : m_position(position), m_propertyCollection(propertyCollection), m_dsetType(dsetType),
      m_relationMember(relationMember), m_relationKey(relationKey), m_chunkSize(chunkSize)
{
    ORXSimPosition related = Mesh().Follow(m_relationMember, m_relationKey);
    if (related.IsNull())
        return; // the property is new on this mesh

    ORXSimCollectionID elements = GetElementCollection();
    ORXSimDSet dset(related.GetDSet());
    m_distributionID = dset.GetRelationalDistributionID();
    DrawerDescArray drawers;
    ORXSimDistribution(m_distributionID).QueryDrawers(drawers);
    // Each drawer is filed under the bit pattern of its layer dimension.
    for (int i = 0; i < drawers.Size(); ++i)
    {
        ORXSimOCompartment const& domain = drawers[i].Domain();
        int layerDim = domain.CSet(0).CollectionID() == elements ? 1 : 0;
        omi_BlkBitVect pattern;
        domain.CSet(layerDim).AsBitVector(pattern);
        m_drawers.Insert(pattern, drawers[i].DrawerID());
    }
}

ORXSrvElementLayerProperty::~ORXSrvElementLayerProperty() = default;

ORXSimPosition ORXSrvElementLayerProperty::Mesh() const
{
    ORXObjModel model(m_position.GetPosition(vds_CoreFragmentTypeIndex(25, 1)));
    return model.GetMesh();
}

ORXSimCollectionID ORXSrvElementLayerProperty::GetElementCollection() const
{
    return ORXObjMesh(Mesh()).GetElementCollection().GetCollection();
}

ORXSimCollectionID ORXSrvElementLayerProperty::GetSectionLayerCollection() const
{
    return m_position.GetPosition(vds_CoreFragmentTypeIndex(15, 9))
        .GetPosition(vds_CoreFragmentTypeIndex(50, 15))
        .GetCollection();
}

ORXSimDistributionID ORXSrvElementLayerProperty::CreateDistribution(ORXSimCollectionID const& elements,
                                                                    ORXSimCollectionID const& layers)
{
    ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> collections(2, 0);
    collections.Get(0) = elements;
    collections.Get(1) = layers;
    ORXSimGrid grid(collections);
    return m_position.CreateTypedDistribution(grid, vds_CoreFragmentTypeIndex(13, 12),
                                              ORXSimRangeType(ORXSimTypeKey(7), m_propertyCollection));
}

ORXSimDrawerID ORXSrvElementLayerProperty::CreateDrawer(ORXSimCSetID const& elset, ORXSimCSetID const& layers)
{
    ORXSimTransfer make{ORXSimDistribution(m_distributionID)};
    IntArray chunks(2, 0);
    chunks[0] = m_chunkSize;
    chunks[1] = ORXSimCSet(layers).Size();
    make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(0);
    make.SetDim(0, elset).SetDim(1, layers);
    make.CheckView();
    make.ExecMake();
    return make.DrawerID();
}

void ORXSrvElementLayerProperty::Add(ORXSimCSetID const& elsetID, ORXSimCSetID const& layersID,
                                     ORXSimDynamicID const& record)
{
    ORXSrvAssert(ORXSimCSet(elsetID).IsAscending());
    ORXSrvAssert(ORXSimCSet(layersID).IsAscending());
    omi_BlkBitVect pattern;
    ORXSimCSet(layersID).AsBitVector(pattern);

    ORXSimDrawerID drawer;
    if (m_distributionID.IsNull())
    {
        m_distributionID = CreateDistribution(elsetID.CollectionID(), layersID.CollectionID());
        drawer = CreateDrawer(elsetID, layersID);
        m_drawers.Insert(pattern, drawer);
    }
    else if (m_drawers.IsMember(pattern))
        drawer = ORXSimDrawerID(m_drawers.ConstGet(pattern));
    else
    {
        drawer = CreateDrawer(elsetID, layersID);
        m_drawers.Insert(pattern, drawer);
    }

    ORXSimTransfer write{ORXSimDistribution(m_distributionID)};
    write.SetWrite().SetAutoExtend().SetBufferPadding(false).SetDrawer(drawer);
    write.SetDim(0, elsetID).SetDim(1, layersID);
    write.CheckView();

    // Every place of elset x layers gets the record's index in the property collection.
    int value = m_position.Context().GetCMemberIndex(record);
    int n = ORXSimCSet(elsetID).Size() * ORXSimCSet(layersID).Size();
    IntArray values(n, 0);
    for (int i = 0; i < n; ++i)
        values[i] = value;

    std::uint64_t len = static_cast<std::int64_t>(static_cast<int>(write.RequiredBufferSize(0)));
    // clang-format off
    ORXSrvAssert(n*sizeof(int) == len);
    // clang-format on
    write.SetBuffer(0, ORXSimArrayPointer(values), len);
    write.ExecWrite();
    write.RelinquishBuffers();
}

int ORXSrvElementLayerProperty::Lookup(ORXSimCSet const& elset, ORXSimCSet const& layers, int* buffer) const
{
    ORXSimTransfer read{ORXSimDistribution(m_distributionID)};
    read.SetRead().SetBufferPadding(false).SetDim(0, elset).SetDim(1, layers);
    read.CheckView();
    int n = elset.Size() * layers.Size();
    std::uint64_t len = static_cast<std::int64_t>(static_cast<int>(read.RequiredBufferSize(0)));
    // clang-format off
    ORXSrvAssert(n*sizeof(int) == len);
    // clang-format on
    read.SetBuffer(0, buffer, len);
    read.ExecRead();
    read.RelinquishBuffers();
    return n;
}

ORXSimCSet ORXSrvElementLayerProperty::GetElementLayers(ORXSimCSetID const& elsetID)
{
    ORXSimCSet elset(elsetID);
    DrawerDescArray drawers;
    ORXSimDistribution(m_distributionID).QueryDrawers(drawers);
    ORXSimCSet result(GetSectionLayerCollection());
    for (int i = 0; i < drawers.Size(); ++i)
    {
        ORXSimOCompartment const& domain = drawers[i].Domain();
        int elementDim = domain.CSet(0).CollectionID() == elset.CollectionID() ? 0 : 1;
        ORXSimCSet common = elset.Intersection(domain.CSet(elementDim));
        if (common.Size() > 0)
            result = result.Union(domain.CSet(1 - elementDim));
    }
    return result;
}

void ORXSrvElementLayerProperty::Save(ORXSimTransaction&)
{
    if (m_distributionID.IsNull())
        return;
    ORXSimPosition mesh = Mesh();
    ORXSimPosition related = mesh.Follow(m_relationMember, m_relationKey);
    ORXSimDSetID dsetID;
    if (related.IsNull())
    {
        ORXSimContext context = m_position.Context();
        dsetID = context.CreateDSet(m_distributionID, context.Schema().TypeID(m_dsetType));
        mesh.Associate(m_relationMember, m_relationKey, ORXSimPosition(dsetID));
        related = ORXSimPosition(dsetID);
    }
    else
        dsetID = related.GetDSet();
    related.Context().UpdateDSet(dsetID, m_distributionID);
}
