#pragma once
// A stored distribution: its grid, range type and drawers.
#include "ORXSimCollectionID.h"
#include "ORXSimDistributionID.h"
#include "ORXSimPersistentDrawerDesc.h"
#include "ORXSimStoreDrawer.h"

#include <memory>
#include <vector>

class ORXSimStoreContext;

class ORXSimStoreDistribution
{
public:
    ORXSimDistributionID id;
    std::vector<ORXSimCollectionID> grid;
    int rangeKey = 0;
    ORXSimCollectionID rangeCollection;
    std::vector<std::unique_ptr<ORXSimStoreDrawer>> drawers;

    int NumDimensions() const { return static_cast<int>(grid.size()); }
    // Bytes of one stored value: 8 for doubles, 4 for ints and member indices.
    int ValueSize() const { return rangeKey == 4 ? 8 : 4; }
    // The drawer with that identity; raises if it is not one of this distribution's.
    ORXSimStoreDrawer& Drawer(ORXSimDrawerID const& id);
    // The description of a drawer; its domain sets get identities (temporary) when they have none.
    // It is made on first request and handed out again until Forget.
    ORXSimPersistentDrawerDesc Describe(ORXSimStoreContext& store, ORXSimStoreDrawer& drawer);
    // Drops the kept description of a drawer; every change of a drawer's domain or values calls it.
    void Forget(ORXSimStoreDrawer const& drawer);

private:
    std::vector<ORXSimPersistentDrawerDesc> m_described; // by drawer minor; default-made until described
};
