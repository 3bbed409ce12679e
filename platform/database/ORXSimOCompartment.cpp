#include "ORXSimOCompartment.h"

void ORXSimOCompartment::CSetIDs(
    ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>>& ids) const
{
    ids.SetSize(m_sets.Size());
    for (int i = 0; i < m_sets.Size(); ++i)
        ids.Get(i) = m_sets[i].ID();
}

int ORXSimOCompartment::Position(ORXSimCollectionID const& collection) const
{
    for (int i = 0; i < m_sets.Size(); ++i)
        if (m_sets[i].CollectionID() == collection)
            return i;
    return -1;
}
