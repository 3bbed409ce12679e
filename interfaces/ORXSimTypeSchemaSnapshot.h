#pragma once
// The type schema of a database: fragment type numbers to type identities and names.
#include "ORXSimTypeID.h"
#include "ORXString.h"

class ORXSimTypeSchemaSnapshot
{
public:
    ORXSimTypeSchemaSnapshot() = default;
    ORXSimTypeID TypeID(int type) const { return ORXSimTypeID(type); }
    // A non-empty name for every type number, "group.member" of its schema number.
    ORXString TypeName(int type) const;
};
