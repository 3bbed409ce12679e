#include "ORXSimCompartment.h"

ORXSimCompartment::ORXSimCompartment(
    ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> const& sets)
    : m_sets(sets.Size())
{
    for (int i = 0; i < sets.Size(); ++i)
        m_sets.Get(i) = ORXSimCSet(sets[i]);
}

int ORXSimCompartment::Position(ORXSimCollectionID const& collection) const
{
    for (int i = 0; i < m_sets.Size(); ++i)
        if (m_sets[i].CollectionID() == collection)
            return i;
    return -1;
}
