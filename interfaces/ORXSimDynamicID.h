#pragma once
// The identity of anything in the database: a category (what it names), the context that holds
// it, two minor numbers, its type and an extra value. Category 2 is a distribution and 13 a
// collection member; the database's own categories are listed in ORXSimDynamicID::Category.
// Identities are made only through the typed forms (ORXSimCollectionID, ORXSimCSetID, ...) and by
// the database itself.
#include "ORXSimContextID.h"
#include "ORXSimDynamicDataID.h"
#include "ORXSimTypeID.h"

class ORXSimDynamicID
{
public:
    // Categories of identity used by this database.
    enum Category
    {
        NullCategory = 0,
        RecordCategory = 1,
        DistributionCategory = 2,
        DSetCategory = 3,
        CSetCategory = 4,
        CollectionCategory = 5,
        DrawerCategory = 6,
        FTableCategory = 7,
        CMemberCategory = 13
    };

    ORXSimDynamicID() = default;

    int Category() const { return m_category; }
    ORXSimContextID ContextID() const { return m_context; }
    ORXSimDynamicDataID DataID() const { return m_data; }
    ORXSimIDMinor Minor1() const { return m_data.Minor1(); }
    ORXSimIDMinor Minor2() const { return m_data.Minor2(); }
    ORXSimTypeID TypeID() const { return m_type; }
    int ExtraValue() const { return m_extra; }

    // Null: category 0 or a null context.
    bool IsNull() const { return m_category == NullCategory || m_context.IsNull(); }
    bool operator!() const { return IsNull(); }

    // Total order over all fields: category, context, minor 1, minor 2, type, extra value.
    // Negative, 0 or positive as this identity sorts before, equal to or after the other.
    int Compare(ORXSimDynamicID const& other) const;
    bool operator==(ORXSimDynamicID const& other) const { return Compare(other) == 0; }
    bool operator!=(ORXSimDynamicID const& other) const { return Compare(other) != 0; }
    bool operator<(ORXSimDynamicID const& other) const { return Compare(other) < 0; }
    // Equality of all fields, as a member and as a function of two identities.
    bool Equal(ORXSimDynamicID const& other) const { return Compare(other) == 0; }
    static bool Equal(ORXSimDynamicID const& a, ORXSimDynamicID const& b) { return a.Compare(b) == 0; }

protected:
    ORXSimDynamicID(int category, ORXSimContextID context, ORXSimDynamicDataID data, ORXSimTypeID type,
                    int extra)
        : m_category(category), m_context(context), m_data(data), m_type(type), m_extra(extra)
    {
    }
    // Null test of the typed identities: null context, category 0 or no minor 2.
    bool IsNullOrUnnumbered() const { return IsNull() || m_data.Minor2().IsNull(); }

private:
    friend class ORXSimIdentityFactory; // the database's own maker of identities

    int m_category = NullCategory;
    ORXSimContextID m_context;
    ORXSimDynamicDataID m_data;
    ORXSimTypeID m_type;
    int m_extra = 0;
};
