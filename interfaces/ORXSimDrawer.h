#pragma once
// Handle on one drawer of a distribution.
#include "ORXSimDrawerID.h"
#include "ORXSimPersistentDrawerDesc.h"
#include "ORXSimPosition.h"

class ORXSimDrawer
{
public:
    explicit ORXSimDrawer(ORXSimDrawerID const& id);
    explicit ORXSimDrawer(ORXSimPosition const& position);
    ORXSimDrawerID ID() const { return m_id; }
    ORXSimPersistentDrawerDesc const& Description() const { return m_description; }
    // Bytes the drawer's value block holds in memory (its storage cost).
    unsigned long long AllocatedBytes() const;

private:
    ORXSimDrawerID m_id;
    ORXSimPersistentDrawerDesc m_description;
};
