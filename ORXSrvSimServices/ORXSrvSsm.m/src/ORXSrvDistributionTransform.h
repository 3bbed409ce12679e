#pragma once
// The hook of a distribution copy: shown each drawer's values just read, in the copy's one buffer,
// and the write-side CSets, one per dimension, before they are written. A host derives from it to
// change values or target sets on the way; the base class leaves both as they are.
#include "ORXSimArray.h"
#include "ORXSimCSetID.h"

class ORXSrvDistributionTransform
{
public:
    virtual ~ORXSrvDistributionTransform();
    virtual void Update(void* buffer,
                        ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>>& csets) const;
};
