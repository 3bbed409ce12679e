#include "ORXSrvDistributionTransform.h"

ORXSrvDistributionTransform::~ORXSrvDistributionTransform() = default;

void ORXSrvDistributionTransform::Update(
    void*, ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>>&) const
{
}
