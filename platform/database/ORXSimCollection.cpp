#include "ORXSimCollection.h"

#include "ORXSimCSet.h"
#include "ORXSimIndexSet.h"
#include "ORXSimStore.h"

namespace
{
ORXSimStoreContext& StoreOf(ORXSimCollectionID const& id)
{
    ORXSimStoreContext& store = ORXSimStore::Get(id);
    store.Collection(id); // raises if it names no collection
    return store;
}

ORXSimIndexSetPtr Run(int first, int count, int stride)
{
    if (count < 0)
        ORXSimRaise(ORXString("a strided set cannot have a negative count (") + ORXSimNumberText(count) +
                    ")");
    if (stride <= 0 && count > 1)
        ORXSimRaise(ORXString("a strided set needs a positive stride, not ") + ORXSimNumberText(stride));
    return ORXSimIndexSet::MakeRun(first, count, stride);
}

ORXSimIndexSetPtr Given(int const* members, int count, bool ordered)
{
    if (count < 0)
        ORXSimRaise(ORXString("a set cannot have a negative count (") + ORXSimNumberText(count) + ")");
    return ordered ? ORXSimIndexSet::MakeOrdered(members, count)
                   : ORXSimIndexSet::MakeAscending(members, count);
}

ORXSimCSetID Registered(ORXSimCollectionID const& id, ORXSimIndexSetPtr const& members, bool temporary)
{
    return StoreOf(id).Register(id, members, temporary);
}

ORXSimCSet Volatile(ORXSimCollectionID const& id, ORXSimIndexSetPtr const& members)
{
    StoreOf(id).CheckInSpace(id, members.Get());
    return ORXSimCSet(ORXSimIdentityFactory::CSet(id, -1), members);
}
} // namespace

int ORXSimCollection::Space() const
{
    return StoreOf(m_id).Collection(m_id).space;
}

void ORXSimCollection::ExtendSpace(int total) const
{
    ORXSimStoreCollection& collection = StoreOf(m_id).Collection(m_id);
    if (total > collection.space)
        collection.space = total;
}

ORXSimCSetID ORXSimCollection::CreateCSet(int const* members, int count, bool) const
{
    return Registered(m_id, Given(members, count, false), false);
}

ORXSimCSetID ORXSimCollection::CreateTempCSet(int const* members, int count, bool) const
{
    return Registered(m_id, Given(members, count, false), true);
}

ORXSimCSet ORXSimCollection::CreateVolatileCSet(int const* members, int count, bool) const
{
    return Volatile(m_id, Given(members, count, false));
}

ORXSimCSetID ORXSimCollection::CreateCSetStrided(int first, int count, int stride, int) const
{
    return Registered(m_id, Run(first, count, stride), false);
}

ORXSimCSetID ORXSimCollection::CreateTempCSetStrided(int first, int count, int stride, int) const
{
    return Registered(m_id, Run(first, count, stride), true);
}

ORXSimCSet ORXSimCollection::CreateVolatileCSetStrided(int first, int count, int stride, int) const
{
    return Volatile(m_id, Run(first, count, stride));
}

ORXSimCSetID ORXSimCollection::CreateTempOrderedCSet(int const* members, int count) const
{
    return Registered(m_id, Given(members, count, true), true);
}

ORXSimCSet ORXSimCollection::CreateVolatileOrderedCSet(int const* members, int count) const
{
    return Volatile(m_id, Given(members, count, true));
}

ORXSimCSetID ORXSimCollection::EmptyCSetID() const
{
    StoreOf(m_id);
    return ORXSimIdentityFactory::CSet(m_id, 0);
}

ORXSimCSetID ORXSimCollection::SeekCSet(ORXSimCSet const& set, bool) const
{
    ORXSimStoreContext& store = StoreOf(m_id);
    if (set.CollectionID() != m_id)
        return ORXSimCSetID();
    return store.Seek(m_id, set.OwnOrderData().Get());
}
