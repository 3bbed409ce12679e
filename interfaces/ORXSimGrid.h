#pragma once
// The ordered list of collections of a distribution, one per dimension.
#include "ORXSimArray.h"
#include "ORXSimCollectionID.h"

class ORXSimGrid
{
public:
    ORXSimGrid() = default;
    explicit ORXSimGrid(
        ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> const& collections)
        : m_collections(collections)
    {
    }
    int NumDimensions() const { return m_collections.Size(); }
    ORXSimCollectionID const& operator[](int dim) const { return m_collections[dim]; }
    ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> const& Collections() const
    {
        return m_collections;
    }

private:
    ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> m_collections;
};
