#pragma once
// Identity of a distribution: category 2, minor 1 is 0, minor 2 the distribution's own minor.
#include "ORXSimDynamicID.h"

class ORXSimDistributionID : public ORXSimDynamicID
{
public:
    ORXSimDistributionID() = default;
    ORXSimDistributionID(ORXSimContextID context, ORXSimIDMinor minor, ORXSimTypeID type, int extra)
        : ORXSimDynamicID(DistributionCategory, context, ORXSimDynamicDataID(0, minor), type, extra)
    {
    }
    // Null: null context, category 0 or minor 2 of -1.
    bool IsNull() const { return IsNullOrUnnumbered(); }
};
