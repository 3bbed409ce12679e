#pragma once
// Handle on a collection: many like records addressed by index 0 .. Space() - 1, and the CSets
// over those indices. Persistent sets stay in the collection, temporary ones last while the
// document is open, volatile ones are values in the caller's hands.
#include "ORXSimCSetID.h"
#include "ORXSimCollectionID.h"

class ORXSimCSet;

class ORXSimCollection
{
public:
    ORXSimCollection() = default;
    explicit ORXSimCollection(ORXSimCollectionID const& id) : m_id(id) {}
    ORXSimCollectionID ID() const { return m_id; }
    bool IsNull() const { return m_id.IsNull(); }

    int Space() const;
    // Raises the space to `total`; a smaller total leaves it as it is.
    void ExtendSpace(int total) const;

    // Ascending sets of the given indices (sorted and made unique).
    ORXSimCSetID CreateCSet(int const* members, int count, bool = false) const;
    ORXSimCSetID CreateTempCSet(int const* members, int count, bool = false) const;
    ORXSimCSet CreateVolatileCSet(int const* members, int count, bool = false) const;
    // The run first, first + stride, ... of count members; O(1) in memory however long.
    ORXSimCSetID CreateCSetStrided(int first, int count, int stride = 1, int = 1) const;
    ORXSimCSetID CreateTempCSetStrided(int first, int count, int stride = 1, int = 1) const;
    ORXSimCSet CreateVolatileCSetStrided(int first, int count, int stride = 1, int = 1) const;
    // Sets that keep the members in the given order.
    ORXSimCSetID CreateTempOrderedCSet(int const* members, int count) const;
    ORXSimCSet CreateVolatileOrderedCSet(int const* members, int count) const;

    // The empty set of this collection.
    ORXSimCSetID EmptyCSetID() const;
    // A registered set with the same members in the same order; a null identity if none.
    ORXSimCSetID SeekCSet(ORXSimCSet const& set, bool = false) const;

private:
    ORXSimCollectionID m_id;
};
