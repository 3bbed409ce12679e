#pragma once
// Copy of one distribution's values into another, drawer by drawer. The two have the same number
// of dimensions and may lie on different collections: for each dimension the k-th member of the
// read CSet stands for the k-th member of the write CSet. Each drawer is read into one buffer,
// shown to the transform, and written to the drawer the read drawer's shape calls for.
#include "ORXSimArray.h"
#include "ORXSimCSetID.h"
#include "ORXSimDistributionID.h"
#include "ORXSrvDistributionTransform.h"

void ORXSrvCopyDistribution(
    ORXSimDistributionID const& writeDistribution, ORXSimDistributionID const& readDistribution,
    ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> const& writeCSets,
    ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> const& readCSets,
    ORXSrvDistributionTransform const& transform);
