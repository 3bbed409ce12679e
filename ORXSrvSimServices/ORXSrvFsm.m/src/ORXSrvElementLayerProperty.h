#pragma once
// One property per element and section layer, such as the record that applies to layer 3 of
// element 17: the index of a record of a property collection, stored in a distribution over
// elements x section layers that a DSet hangs off the mesh. Elements with the same set of layers
// share a drawer, found by the bit pattern of that layer set.
#include "ORXSimCSet.h"
#include "ORXSimCollectionID.h"
#include "ORXSimDistributionID.h"
#include "ORXSimDrawerID.h"
#include "ORXSimDynamicID.h"
#include "ORXSimPosition.h"
#include "ORXSimTransaction.h"
#include "mem_Entries.h"
#include "omi_BlkBitVect.h"
#include "omi_Btree.h"

class ORXSrvElementLayerProperty : public mem_AllocationOperators
{
public:
    // A property whose values index propertyCollection. It hangs off the mesh of the document of
    // position through the relation (relationMember, relationKey); Save makes its DSet of type
    // dsetType, and new drawers are chunked over chunkSize elements. Drawers that the mesh
    // already has are found again here.
    ORXSrvElementLayerProperty(ORXSimPosition const& position, ORXSimCollectionID const& propertyCollection,
                               int dsetType, int relationMember, int relationKey, int chunkSize);
    virtual ~ORXSrvElementLayerProperty();

    // Records that record applies to every element of elset in every layer of layers; both sets
    // ascending.
    virtual void Add(ORXSimCSetID const& elset, ORXSimCSetID const& layers, ORXSimDynamicID const& record);
    // The layers that the elements of elset use.
    virtual ORXSimCSet GetElementLayers(ORXSimCSetID const& elset);
    virtual ORXSimCollectionID GetElementCollection() const;
    virtual ORXSimCollectionID GetSectionLayerCollection() const;
    // Links the data to the mesh, making the DSet on the first call.
    virtual void Save(ORXSimTransaction& transaction);
    // Reads the values of elset x layers into buffer and returns their number.
    virtual int Lookup(ORXSimCSet const& elset, ORXSimCSet const& layers, int* buffer) const;

private:
    ORXSimDistributionID CreateDistribution(ORXSimCollectionID const& elements,
                                            ORXSimCollectionID const& layers);
    ORXSimDrawerID CreateDrawer(ORXSimCSetID const& elset, ORXSimCSetID const& layers);
    // The mesh of the model of m_position.
    ORXSimPosition Mesh() const;

    ORXSimPosition m_position;
    ORXSimCollectionID m_propertyCollection;
    int m_dsetType;
    int m_relationMember;
    int m_relationKey;
    int m_chunkSize;
    omi_Btree<omi_BlkBitVect, ORXSimDynamicID> m_drawers;
    ORXSimDistributionID m_distributionID;
};
