#pragma once
// The ordered list of collections of a distribution, one per dimension. A grid never changes once
// made, so copies share one body by reference count.
#include "ORXSimArray.h"
#include "ORXSimCollectionID.h"

class ORXSimGrid
{
public:
    ORXSimGrid() = default;
    explicit ORXSimGrid(
        ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> const& collections);
    ORXSimGrid(ORXSimGrid const& other);
    ORXSimGrid& operator=(ORXSimGrid const& other);
    ~ORXSimGrid();

    int NumDimensions() const { return Collections().Size(); }
    ORXSimCollectionID const& operator[](int dim) const { return Collections()[dim]; }
    ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> const&
    Collections() const;

private:
    struct Body;
    Body* m_body = nullptr; // null for a grid of no dimension
};
