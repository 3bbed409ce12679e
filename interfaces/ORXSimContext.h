#pragma once
// Handle on an open database: collection records by index, the reverse, DSets and distributions.
#include "ORXSimArray.h"
#include "ORXSimCollectionID.h"
#include "ORXSimContextID.h"
#include "ORXSimDSetID.h"
#include "ORXSimDistributionID.h"
#include "ORXSimTypeSchemaSnapshot.h"

class ORXSimGrid;
class ORXSimRangeType;

class ORXSimContext
{
public:
    ORXSimContext() = default;
    explicit ORXSimContext(ORXSimContextID const& context) : m_context(context) {}
    ORXSimContextID ContextID() const { return m_context; }

    ORXSimTypeSchemaSnapshot Schema() const { return ORXSimTypeSchemaSnapshot(); }
    // The record at that index of the collection.
    ORXSimDynamicID GetRecord(ORXSimCollectionID const& collection, int index) const;
    // The index of a collection member in its collection; -1 for anything else.
    int GetCMemberIndex(ORXSimDynamicID const& record) const;
    // The one collection of the records and their indices in the list's order. A record that is
    // no member of that collection (or a list over several collections) raises.
    void GetCMembership(ORXSimArray<ORXSimDynamicID> const& records, ORXSimCollectionID& collection,
                        ORXSimArray<int>& indices) const;

    // A DSet of that type backed by the distribution; its body follows the drawers.
    ORXSimDSetID CreateDSet(ORXSimDistributionID const& distribution, ORXSimTypeID const& type) const;
    // Rebuilds the DSet's body from the drawers of the distribution.
    void UpdateDSet(ORXSimDSetID const& dset, ORXSimDistributionID const& distribution) const;
    ORXSimDistributionID CreateDistribution(ORXSimGrid const& grid, ORXSimRangeType const& range,
                                            ORXSimTypeID const& type) const;

private:
    ORXSimContextID m_context;
};
