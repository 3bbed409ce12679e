#pragma once
// Identity of the record at one index of a collection: category 13, minor 1 the collection's
// minor, minor 2 the index; context and type are the collection's.
#include "ORXSimCollectionID.h"

class ORXSimCMemberID : public ORXSimDynamicID
{
public:
    ORXSimCMemberID() = default;
    ORXSimCMemberID(ORXSimCollectionID const& collection, ORXSimIDMinor index)
        : ORXSimDynamicID(CMemberCategory, collection.ContextID(),
                          ORXSimDynamicDataID(collection.Minor2(), index), collection.TypeID(), 0)
    {
    }
    // The collection of the member.
    ORXSimCollectionID CollectionID() const { return ORXSimCollectionID(ContextID(), Minor1(), TypeID(), 0); }
    bool IsNull() const { return IsNullOrUnnumbered(); }
};
