#pragma once
// The read-only compartment of a drawer description: one CSet per dimension, in grid order.
#include "ORXSimArray.h"
#include "ORXSimCSet.h"

class ORXSimOCompartment
{
public:
    ORXSimOCompartment() = default;
    explicit ORXSimOCompartment(ORXSimArray<ORXSimCSet, ORXSimArrayClassPolicy<ORXSimCSet>> const& sets)
        : m_sets(sets)
    {
    }
    int Size() const { return m_sets.Size(); }
    ORXSimCSet const& CSet(int dim) const { return m_sets[dim]; }
    void CSetIDs(ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>>& ids) const;
    // The dimension that lies in that collection; -1 if none does.
    int Position(ORXSimCollectionID const& collection) const;

private:
    ORXSimArray<ORXSimCSet, ORXSimArrayClassPolicy<ORXSimCSet>> m_sets;
};
