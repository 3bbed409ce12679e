#pragma once
// A stored distribution: its grid, range type and drawers.
#include "ORXSimCollectionID.h"
#include "ORXSimDistributionID.h"
#include "ORXSimStoreDrawer.h"

#include <memory>
#include <vector>

class ORXSimStoreDistribution
{
public:
    ORXSimDistributionID id;
    std::vector<ORXSimCollectionID> grid;
    int rangeKey = 0;
    ORXSimCollectionID rangeCollection;
    std::vector<std::unique_ptr<ORXSimStoreDrawer>> drawers;

    int NumDimensions() const { return static_cast<int>(grid.size()); }
};
