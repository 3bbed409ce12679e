#pragma once
// Correspondence between the members of two CSets by position: the k-th member of the second set
// stands for the k-th member of the first.
#include "ORXBasSharedPtr.h"
#include "ORXSimCSet.h"
#include "mem_Entries.h"

class ORXSimCMemberMap : public mem_AllocationOperators
{
public:
    static ORXBasSharedPtr<ORXSimCMemberMap> Create(ORXSimCSet const& first, ORXSimCSet const& second);
    virtual ~ORXSimCMemberMap() = default;
    // The members of `set` (of the second set's collection) mapped to the first set's side, in the
    // order of `set`; members without a counterpart are left out.
    virtual ORXSimCSet MapCSet(ORXSimCSet const& set) const = 0;
};
