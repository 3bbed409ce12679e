#pragma once
// Identity of a drawer: minor 1 is the minor of its distribution, minor 2 the drawer's own minor.
#include "ORXSimDistributionID.h"

class ORXSimDrawerID : public ORXSimDynamicID
{
public:
    ORXSimDrawerID() = default;
    // The identity viewed as a drawer; a null identity if it names no drawer.
    explicit ORXSimDrawerID(ORXSimDynamicID const& id)
        : ORXSimDynamicID(id.Category() == DrawerCategory ? id : ORXSimDynamicID())
    {
    }
    // The distribution the drawer belongs to; the default distribution identity for a null drawer.
    ORXSimDistributionID DistributionID() const
    {
        if (ORXSimDynamicID::IsNull())
            return ORXSimDistributionID();
        return ORXSimDistributionID(ContextID(), Minor1(), TypeID(), 0);
    }
    // Null: null context, category 0 or minor 2 of -1.
    bool IsNull() const { return IsNullOrUnnumbered(); }

private:
    friend class ORXSimIdentityFactory;
    ORXSimDrawerID(ORXSimDistributionID const& distribution, ORXSimIDMinor minor)
        : ORXSimDynamicID(DrawerCategory, distribution.ContextID(),
                          ORXSimDynamicDataID(distribution.Minor2(), minor), distribution.TypeID(), 0)
    {
    }
};
