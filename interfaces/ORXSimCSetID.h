#pragma once
// Identity of a registered CSet: minor 1 is the minor of its collection, minor 2 the set's own.
#include "ORXSimCollectionID.h"

class ORXSimCSetID : public ORXSimDynamicID
{
public:
    ORXSimCSetID() = default;
    // The identity viewed as a CSet; a null identity if it names no CSet.
    explicit ORXSimCSetID(ORXSimDynamicID const& id)
        : ORXSimDynamicID(CanBeConverted(id) ? id : ORXSimDynamicID())
    {
    }
    // True for the identity of a CSet, and for the null identity, which converts to the null CSet
    // identity: "no set" is a set result too.
    static bool CanBeConverted(ORXSimDynamicID const& id)
    {
        return id.Category() == CSetCategory || id.Category() == NullCategory;
    }

    ORXSimIDMinor Minor() const { return Minor2(); }
    ORXSimCollectionID CollectionID() const { return ORXSimCollectionID(ContextID(), Minor1(), TypeID(), 0); }
    // Null: null context, category 0 or minor 2 of -1.
    bool IsNull() const { return IsNullOrUnnumbered(); }

private:
    friend class ORXSimIdentityFactory;
    ORXSimCSetID(ORXSimCollectionID const& collection, ORXSimIDMinor minor)
        : ORXSimDynamicID(CSetCategory, collection.ContextID(),
                          ORXSimDynamicDataID(collection.Minor2(), minor), collection.TypeID(), 0)
    {
    }
};
