#pragma once
// Identity of a function table, a token handed between the database and its callers.
#include "ORXSimDynamicID.h"

class ORXSimFTableID : public ORXSimDynamicID
{
public:
    ORXSimFTableID() = default;
    // The identity viewed as a function table; a null identity if it names none.
    explicit ORXSimFTableID(ORXSimDynamicID const& id)
        : ORXSimDynamicID(id.Category() == FTableCategory ? id : ORXSimDynamicID())
    {
    }
    bool IsNull() const { return IsNullOrUnnumbered(); }
};
