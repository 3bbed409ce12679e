#pragma once
// A set of member indices of one collection, ascending or in a creator's order. A value: copies
// share the member data by reference count. Union, Intersection and operator- give volatile
// ascending sets in the same collection; on ascending operands they run as linear merges, and on
// runs of consecutive indices in constant time.
#include "ORXSimCSetID.h"
#include "ORXSimIndexSetPtr.h"
#include "ORXSimIntRange.h"
#include "ORXSimPosition.h"

class omi_BlkBitVect;

class ORXSimCSet
{
public:
    // A set of no collection, with nothing in it.
    ORXSimCSet() = default;
    // The registered set with that identity (empty for a null identity).
    ORXSimCSet(ORXSimCSetID const& id);
    // The empty set of that collection.
    ORXSimCSet(ORXSimCollectionID const& collection);
    // The set at that position.
    ORXSimCSet(ORXSimPosition const& position);

    // Its identity; a null identity (that still names the collection) for a volatile set.
    ORXSimCSetID ID() const { return m_id; }
    ORXSimCollectionID CollectionID() const { return m_id.CollectionID(); }

    int Size() const { return m_size; }
    bool IsEmpty() const { return m_size == 0; }
    bool IsAscending() const;
    // Writes the Size() members in ascending order.
    void Members(int* out) const;
    // Writes them in the set's own order.
    void OrderedMembers(int* out) const;
    // The i-th member in the set's own order.
    int operator[](int index) const;
    // Lowest and highest member; {0, -1} for an empty set.
    ORXSimIntRange Bounds() const;
    bool Contains(int member) const;

    ORXSimCSet Union(ORXSimCSet other) const;
    ORXSimCSet Intersection(ORXSimCSet other) const;
    ORXSimCSet operator-(ORXSimCSet other) const;
    // Equal as sets, order ignored.
    bool SameMembers(ORXSimCSet const& other) const;

    // A registered ascending set with these members (this one's own identity when it qualifies).
    ORXSimCSetID AscendingID() const;
    // Makes the set persistent, or temporary, and gives its identity.
    ORXSimCSetID RegisterWithCollection();
    ORXSimCSetID RegisterWithTempCollection();
    ORXSimPosition Pos() const { return ORXSimPosition(m_id); }

    void AsBitVector(omi_BlkBitVect& bits) const;

    // The member data in its own order and, for a set that does not ascend, its sorted form.
    ORXSimIndexSetPtr const& OwnOrderData() const { return m_members; }
    ORXSimIndexSetPtr const& SortedData() const;
    // A volatile set of that collection over member data made by the database.
    ORXSimCSet(ORXSimCSetID const& id, ORXSimIndexSetPtr const& members);

private:
    ORXSimCSetID RegisterAs(bool temporary);

    int m_lead = 0; // 1 once the set is registered
    ORXSimCSetID m_id;
    int m_size = 0;
    ORXSimIndexSetPtr m_members; // own order, with its sorted form; null for an empty set
};
