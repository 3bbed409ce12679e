#pragma once
// A cross product of CSets, one per dimension.
#include "ORXSimArray.h"
#include "ORXSimCSet.h"

class ORXSimCompartment
{
public:
    ORXSimCompartment() = default;
    explicit ORXSimCompartment(
        ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> const& sets);
    explicit ORXSimCompartment(ORXSimArray<ORXSimCSet, ORXSimArrayClassPolicy<ORXSimCSet>> const& sets)
        : m_sets(sets)
    {
    }
    // Number of dimensions.
    int Size() const { return m_sets.Size(); }
    ORXSimCSet const& operator[](int dim) const { return m_sets[dim]; }
    // The dimension that lies in that collection; -1 if none does.
    int Position(ORXSimCollectionID const& collection) const;

private:
    ORXSimArray<ORXSimCSet, ORXSimArrayClassPolicy<ORXSimCSet>> m_sets;
};
