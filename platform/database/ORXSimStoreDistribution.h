#pragma once
// A stored distribution: its grid, range type and drawers.
#include "ORXSimCollectionID.h"
#include "ORXSimDistributionID.h"
#include "ORXSimDrawerCopy.h"
#include "ORXSimGrid.h"
#include "ORXSimPersistentDrawerDesc.h"
#include "ORXSimStoreDrawer.h"

#include <memory>
#include <span>
#include <vector>

class ORXSimStoreContext;

class ORXSimStoreDistribution
{
public:
    ORXSimDistributionID id;
    ORXSimGrid grid;
    int rangeKey = 0;
    ORXSimCollectionID rangeCollection;
    std::vector<std::unique_ptr<ORXSimStoreDrawer>> drawers;

    int NumDimensions() const { return grid.NumDimensions(); }
    // Bytes of one stored value: 8 for doubles, 4 for ints and member indices.
    int ValueSize() const { return rangeKey == 4 ? 8 : 4; }
    // The drawer with that identity; raises if it is not one of this distribution's.
    ORXSimStoreDrawer& Drawer(ORXSimDrawerID const& id);
    // The description of a drawer; its domain sets get identities (temporary) when they have none.
    // It is made on first request and handed out again until Forget; the reference lasts until a
    // drawer is added or forgotten.
    ORXSimPersistentDrawerDesc const& Describe(ORXSimStoreContext& store, ORXSimStoreDrawer& drawer);
    // The layout of a drawer for copy plans (ORXSimDrawerCopy::Layout), kept until Forget. Reads
    // over many drawers ask for it once per drawer, so the kept case costs no call.
    std::span<ORXSimDrawerCopy::Held const> Layout(ORXSimStoreDrawer const& drawer)
    {
        std::vector<ORXSimDrawerCopy::Held>& layout = KeptOf(drawer).layout;
        if (layout.empty())
            layout = ORXSimDrawerCopy::Layout(drawer);
        return layout;
    }
    // Drops what is kept of a drawer; every change of a drawer's domain or values calls it.
    void Forget(ORXSimStoreDrawer const& drawer);

private:
    // What is kept of one drawer between transfers; empty until first asked for.
    struct Kept
    {
        ORXSimPersistentDrawerDesc description;
        std::vector<ORXSimDrawerCopy::Held> layout;
    };
    Kept& KeptOf(ORXSimStoreDrawer const& drawer)
    {
        std::size_t const index = static_cast<std::size_t>(drawer.ID().Minor2().Value());
        if (m_kept.size() <= index)
            m_kept.resize(drawers.size());
        return m_kept[index];
    }

    std::vector<Kept> m_kept; // by drawer minor
};
