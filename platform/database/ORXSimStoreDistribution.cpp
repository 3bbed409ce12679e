#include "ORXSimStoreDistribution.h"

#include "ORXSimStore.h"

ORXSimStoreDrawer& ORXSimStoreDistribution::Drawer(ORXSimDrawerID const& drawer)
{
    int const index = drawer.Minor2().Value();
    if (drawer.IsNull() || drawer.ContextID() != id.ContextID() || drawer.Minor1() != id.Minor2() ||
        index < 0 || index >= static_cast<int>(drawers.size()))
        ORXSimRaise(ORXSimDescribe(drawer) + " is no drawer of " + ORXSimDescribe(id));
    return *drawers[index];
}

ORXSimPersistentDrawerDesc const& ORXSimStoreDistribution::Describe(ORXSimStoreContext& store,
                                                                    ORXSimStoreDrawer& drawer)
{
    ORXSimPersistentDrawerDesc& described = KeptOf(drawer).description;
    if (!described.DrawerID().IsNull())
        return described;
    int const n = drawer.NumDimensions();
    ORXSimArray<ORXSimCSet, ORXSimArrayClassPolicy<ORXSimCSet>> sets(n, 0);
    for (int d = 0; d < n; ++d)
    {
        ORXSimCSet& set = drawer.DomainSet(d);
        if (set.ID().IsNull())
            set = ORXSimCSet(store.Register(set.CollectionID(), set.SortedData(), true));
        sets.Get(d) = set;
    }
    ORXSimArray<int> chunks(static_cast<int>(drawer.Chunks().size()), 0);
    for (int d = 0; d < chunks.Size(); ++d)
        chunks.Get(d) = drawer.Chunks()[d];
    described = ORXSimPersistentDrawerDesc(
        ORXSimDrawerDescription(ORXSimOCompartment(sets), chunks, drawer.ExtendableDim(), drawer.ItemCount()),
        drawer.ID());
    return described;
}

void ORXSimStoreDistribution::Forget(ORXSimStoreDrawer const& drawer)
{
    std::size_t const index = static_cast<std::size_t>(drawer.ID().Minor2().Value());
    if (index < m_kept.size())
        m_kept[index] = Kept();
}
