#include "ORXSrvNodalCoordinates.h"

#include "ORXObjMesh.h"
#include "ORXObjModel.h"
#include "ORXSimArray.h"
#include "ORXSimDistribution.h"
#include "ORXSimTransfer.h"
#include "ORXSrvChecks.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <cstdint>
#include <cstring>

namespace
{
using DrawerDescArray =
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>;
}

ORXSrvNodalCoordinates::ORXSrvNodalCoordinates() : m_chunkSize(0) {}

ORXSrvNodalCoordinates::ORXSrvNodalCoordinates(ORXSimPosition const& position, int chunkSize)
    : m_chunkSize(chunkSize), m_distributionID(position.GetDistribution())
{
    ORXObjModel model(position.Focus().GetPosition(vds_CoreFragmentTypeIndex(25, 1)));
    ORXObjMesh mesh(model.GetMesh());
    m_nodeCollectionID = mesh.GetNodeCollection().GetCollection();
}

int ORXSrvNodalCoordinates::Read(ORXSimCSet const& nodes, ORXSimCSet const& components, double* buffer) const
{
    ORXSrvAssert(m_distributionID.IsNull() == false);
    ORXSimDistribution distribution(m_distributionID);
    ORXSimTransfer transfer(distribution);
    transfer.SetRead().SetBufferPadding(false).SetDim(0, nodes).SetDim(1, components);
    transfer.CheckView();
    int n = nodes.Size() * components.Size();
    // The transfer's size is cut to int and widened again with its sign, as every size here.
    std::uint64_t len = static_cast<std::int64_t>(static_cast<int>(transfer.RequiredBufferSize(0)));
    // clang-format off
    ORXSrvAssert(n*sizeof(double) == len);
    // clang-format on
    // A place of the view that the database does not fill reads as 0.0.
    if (n > 0)
        std::memset(buffer, 0, n * sizeof(double));
    transfer.SetBuffer(0, buffer, len);
    transfer.ExecRead();
    transfer.RelinquishBuffers();
    return 0;
}

int ORXSrvNodalCoordinates::Append(ORXSimTransaction&, ORXSimCSetID const& nodes,
                                   ORXSimCSetID const& componentSet, double const* data)
{
    ORXSrvAssert(m_distributionID.IsNull() == false);
    ORXSimCSet nodeSet(nodes);
    int n = nodeSet.Size();
    DrawerDescArray drawers(1, 0);
    ORXSimDistribution distribution(m_distributionID);
    distribution.QueryDrawers(drawers);
    int numDrawers = drawers.Size();
    // Coordinates live in one drawer at most.
    ORXSrvAssert(numDrawers < 2);

    ORXSimDrawerID drawer;
    if (numDrawers == 0)
    {
        // First call: a drawer chunked over m_chunkSize nodes and all components, growing over nodes.
        ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> chunks(2, 0);
        chunks[0] = m_chunkSize;
        chunks[1] = ORXSimCSet(componentSet).Size();
        ORXSrvAssert(chunks[1] > 1);
        ORXSimTransfer make(distribution);
        ORXSimCSetID ascendingID = nodeSet.AscendingID();
        make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(0);
        make.SetDim(0, ascendingID).SetDim(1, componentSet);
        make.CheckView();
        make.ExecMake();
        drawer = make.DrawerID();
    }
    else
        drawer = drawers[0].DrawerID();

    // The write takes the nodes in the caller's order and extends the drawer over new ones.
    ORXSimTransfer write(distribution);
    write.SetWrite().SetBufferPadding(false).SetAutoExtend().SetDrawer(drawer);
    write.SetDim(0, nodes).SetDim(1, componentSet);
    write.CheckView();
    std::uint64_t len = static_cast<std::int64_t>(static_cast<int>(write.RequiredBufferSize(0)));
    // clang-format off
    ORXSrvAssert(len == n*ORXSimCSet(componentSet).Size()*sizeof(double));
    // clang-format on
    write.SetBuffer(0, const_cast<double*>(data), len);
    write.ExecWrite();
    write.RelinquishBuffers();
    return static_cast<int>(len);
}

ORXSimCSet ORXSrvNodalCoordinates::Nodes() const
{
    return DrawerDimensionUnion(true);
}

ORXSimCSet ORXSrvNodalCoordinates::Components() const
{
    return DrawerDimensionUnion(false);
}

int ORXSrvNodalCoordinates::NumberNodes() const
{
    return Nodes().Size();
}

int ORXSrvNodalCoordinates::NumberComponents() const
{
    return Components().Size();
}

ORXSimCSet ORXSrvNodalCoordinates::DrawerDimensionUnion(bool nodeDimension) const
{
    ORXSrvAssert(m_distributionID.IsNull() == false);
    DrawerDescArray drawers(1, 0);
    ORXSimDistribution distribution(m_distributionID);
    distribution.QueryDrawers(drawers);
    // With no drawer, element 0 is the default description the array was made with; its empty
    // domain has no node dimension and fails the check below.
    int count = drawers.Size() < 2 ? 1 : drawers.Size();
    ORXSimCSet result;
    for (int i = 0; i < count; ++i)
    {
        ORXSimOCompartment const& domain = drawers[i].Domain();
        int pos = domain.Position(m_nodeCollectionID);
        ORXSrvAssert(pos >= 0);
        // The component dimension is whichever is not the node dimension.
        ORXSimCSet dimension = nodeDimension ? domain.CSet(pos) : domain.CSet(!pos);
        result = i == 0 ? dimension : result.Union(dimension);
    }
    return result;
}
