#pragma once
// The member identities a distribution carries beside its grid; copied, never interpreted.
#include "ORXSimArray.h"
#include "ORXSimCMemberID.h"

typedef ORXSimArray<ORXSimCMemberID, ORXSimArrayCopyClassPolicy<ORXSimCMemberID>> ORXSimDMember;
