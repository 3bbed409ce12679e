#include "ORXSimDistribution.h"

#include "ORXSimDrawer.h"
#include "ORXSimStore.h"
#include "ORXSimStoreDistribution.h"

namespace
{
ORXSimDistributionID MakeDistribution(ORXSimContextID context, ORXSimGrid const& grid,
                                      ORXSimRangeType const& range, ORXSimTypeID type)
{
    ORXSimStoreContext& store = ORXSimStore::Get(context);
    if (grid.NumDimensions() < 1)
        ORXSimRaise("a distribution needs a grid of at least one collection");
    ORXSimTypeKey const key = range.Key();
    if (key != 2 && key != 4 && key != 7)
        ORXSimRaise(ORXString("range type key ") + ORXSimNumberText(key) +
                    " is not supported (2, 4 and 7 are)");
    if (key == 7)
        store.Collection(range.Collection());
    auto distribution = std::make_unique<ORXSimStoreDistribution>();
    for (int d = 0; d < grid.NumDimensions(); ++d)
        store.Collection(grid[d]); // raises for anything but a collection of this document
    distribution->grid = grid;
    distribution->rangeKey = key;
    distribution->rangeCollection = range.Collection();
    return store.AddDistribution(std::move(distribution), type);
}
} // namespace

ORXSimDistributionID ORXSimPosition::CreateTypedDistribution(ORXSimGrid const& grid, int type,
                                                             ORXSimRangeType const& range) const
{
    return MakeDistribution(ContextID(), grid, range, ORXSimTypeID(type));
}

ORXSimDistributionID ORXSimContext::CreateDistribution(ORXSimGrid const& grid, ORXSimRangeType const& range,
                                                       ORXSimTypeID const& type) const
{
    return MakeDistribution(m_context, grid, range, type);
}

ORXSimDistribution::ORXSimDistribution(ORXSimDistributionID const& id)
    : m_context(id.ContextID()), m_grid(ORXSimStore::Get(id).Distribution(id).grid), m_id(id)
{
}

ORXSimRangeType ORXSimDistribution::RangeType() const
{
    ORXSimStoreDistribution& distribution = ORXSimStore::Get(m_id).Distribution(m_id);
    return ORXSimRangeType(distribution.rangeKey, distribution.rangeCollection);
}

void ORXSimDistribution::QueryDrawers(
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>& descriptions)
    const
{
    ORXSimStoreContext& store = ORXSimStore::Get(m_id);
    ORXSimStoreDistribution& distribution = store.Distribution(m_id);
    int const n = static_cast<int>(distribution.drawers.size());
    if (n == 0)
    {
        descriptions.SetSize(1);
        descriptions.Get(0) = ORXSimPersistentDrawerDesc();
        descriptions.SetSize(0); // element 0 stays readable
        return;
    }
    descriptions.SetSize(n);
    for (int i = 0; i < n; ++i)
        descriptions.Get(i) = distribution.Describe(store, *distribution.drawers[i]);
}

void ORXSimDistribution::DrawerIDArray(
    ORXSimArray<ORXSimDrawerID, ORXSimArrayCopyClassPolicy<ORXSimDrawerID>>& ids) const
{
    ORXSimStoreDistribution& distribution = ORXSimStore::Get(m_id).Distribution(m_id);
    ids.SetSize(static_cast<int>(distribution.drawers.size()));
    for (int i = 0; i < ids.Size(); ++i)
        ids.Get(i) = distribution.drawers[i]->ID();
}

ORXSimPersistentDrawerDesc ORXSimDistribution::DrawerDescription(ORXSimDrawerID const& id) const
{
    ORXSimStoreContext& store = ORXSimStore::Get(m_id);
    ORXSimStoreDistribution& distribution = store.Distribution(m_id);
    return distribution.Describe(store, distribution.Drawer(id));
}

ORXSimDrawer::ORXSimDrawer(ORXSimDrawerID const& id) : m_id(id)
{
    m_description = ORXSimDistribution(id.DistributionID()).DrawerDescription(id);
}

ORXSimDrawer::ORXSimDrawer(ORXSimPosition const& position) : ORXSimDrawer(position.GetDrawer()) {}

unsigned long long ORXSimDrawer::AllocatedBytes() const
{
    ORXSimDistributionID const distribution = m_id.DistributionID();
    return ORXSimStore::Get(m_id).Distribution(distribution).Drawer(m_id).AllocatedBytes();
}
