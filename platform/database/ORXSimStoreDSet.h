#pragma once
// A stored DSet: its body and, for a relation, the distribution that backs it.
#include "ORXSimCtation.h"
#include "ORXSimDistributionID.h"

class ORXSimStoreDSet
{
public:
    ORXSimCtation body;
    ORXSimDistributionID distribution;
};
