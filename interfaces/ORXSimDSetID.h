#pragma once
// Identity of a DSet, a token handed between the database and its callers.
#include "ORXSimDynamicID.h"

class ORXSimDSetID : public ORXSimDynamicID
{
public:
    ORXSimDSetID() = default;
    // The identity viewed as a DSet; a null identity if it names no DSet.
    explicit ORXSimDSetID(ORXSimDynamicID const& id)
        : ORXSimDynamicID(id.Category() == DSetCategory ? id : ORXSimDynamicID())
    {
    }
    bool IsNull() const { return IsNullOrUnnumbered(); }
};
