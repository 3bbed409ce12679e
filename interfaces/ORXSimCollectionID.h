#pragma once
// Identity of a collection: minor 2 is the collection's own minor, the type that of its records.
#include "ORXSimDynamicID.h"

class ORXSimCollectionID : public ORXSimDynamicID
{
public:
    ORXSimCollectionID() = default;
    ORXSimCollectionID(ORXSimContextID context, ORXSimIDMinor minor, ORXSimTypeID type, int extra)
        : ORXSimDynamicID(CollectionCategory, context, ORXSimDynamicDataID(0, minor), type, extra)
    {
    }
    // Null: null context, category 0 or minor 2 of -1.
    bool IsNull() const { return IsNullOrUnnumbered(); }
};
