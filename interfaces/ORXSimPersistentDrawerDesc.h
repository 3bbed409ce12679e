#pragma once
// The description of a stored drawer, with its identity. Copies are independent values.
#include "ORXSimArray.h"
#include "ORXSimDrawerDescription.h"
#include "ORXSimDrawerID.h"

class ORXSimPersistentDrawerDesc : public ORXSimDrawerDescription
{
public:
    ORXSimPersistentDrawerDesc() = default;
    ORXSimPersistentDrawerDesc(ORXSimDrawerDescription const& description, ORXSimDrawerID const& id)
        : ORXSimDrawerDescription(description), m_id(id)
    {
    }
    ORXSimPersistentDrawerDesc(ORXSimPersistentDrawerDesc const&) = default;
    ORXSimPersistentDrawerDesc& operator=(ORXSimPersistentDrawerDesc const&) = default;
    virtual ~ORXSimPersistentDrawerDesc() = default;
    ORXSimDrawerID DrawerID() const { return m_id; }

private:
    ORXSimDrawerID m_id;
};

// Arrays of descriptions keep element 0 readable after QueryDrawers finds no drawer.
template <> struct ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>
{
    static constexpr bool bitwise = false;
    static constexpr bool keepsFirstWhenEmptied = true;
};
