#include "ORXSimDSet.h"

#include "ORXSimContext.h"
#include "ORXSimDSetReprBase.h"
#include "ORXSimStore.h"
#include "ORXSimStoreDSet.h"
#include "ORXSimStoreDistribution.h"

namespace
{
ORXSimCtation BodyOf(ORXSimStoreContext& store, ORXSimDistributionID const& distribution)
{
    ORXSimStoreDistribution& d = store.Distribution(distribution);
    ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> compartments(
        static_cast<int>(d.drawers.size()), 0);
    for (int i = 0; i < compartments.Size(); ++i)
    {
        ORXSimPersistentDrawerDesc const description = d.Describe(store, *d.drawers[i]);
        ORXSimArray<ORXSimCSet, ORXSimArrayClassPolicy<ORXSimCSet>> sets(description.NumDimensions(), 0);
        for (int dim = 0; dim < sets.Size(); ++dim)
            sets.Get(dim) = description.Domain().CSet(dim);
        compartments.Get(i) = ORXSimCompartment(sets);
    }
    return ORXSimCtation(compartments);
}
} // namespace

ORXSimDSetID ORXSimPosition::CreateTypedDSet(ORXSimCtation const& body, int type) const
{
    ORXSimStoreContext& store = ORXSimStore::Get(*this);
    auto dset = std::make_unique<ORXSimStoreDSet>();
    dset->body = body;
    return store.AddDSet(std::move(dset), ORXSimTypeID(type));
}

ORXSimDSet ORXSimPosition::DSet() const
{
    return ORXSimDSet(GetDSet());
}

ORXSimDSetID ORXSimContext::CreateDSet(ORXSimDistributionID const& distribution,
                                       ORXSimTypeID const& type) const
{
    ORXSimStoreContext& store = ORXSimStore::Get(m_context);
    auto dset = std::make_unique<ORXSimStoreDSet>();
    dset->body = BodyOf(store, distribution);
    dset->distribution = distribution;
    return store.AddDSet(std::move(dset), type);
}

void ORXSimContext::UpdateDSet(ORXSimDSetID const& dset, ORXSimDistributionID const& distribution) const
{
    ORXSimStoreContext& store = ORXSimStore::Get(m_context);
    ORXSimStoreDSet& stored = store.DSet(dset);
    stored.body = BodyOf(store, distribution);
    stored.distribution = distribution;
}

ORXSimDSet::ORXSimDSet() : m_repr(nullptr) {}

ORXSimDSet::ORXSimDSet(ORXSimDSetID const& id) : m_repr(nullptr)
{
    if (id.IsNull())
        return;
    ORXSimStore::Get(id).DSet(id); // raises if it names no DSet
    m_repr = ORXSimShare(new ORXSimDSetReprBase());
    m_repr->id = id;
}

ORXSimDSet::ORXSimDSet(ORXSimPosition const& position) : ORXSimDSet(position.GetDSet()) {}
ORXSimDSet::ORXSimDSet(ORXSimDSet const& other) : m_repr(ORXSimShare(other.m_repr)) {}
ORXSimDSet& ORXSimDSet::operator=(ORXSimDSet const& other)
{
    ORXSimDSetReprBase* repr = ORXSimShare(other.m_repr);
    ORXSimDrop(m_repr);
    m_repr = repr;
    return *this;
}
ORXSimDSet::~ORXSimDSet()
{
    ORXSimDrop(m_repr);
}

ORXSimDSetID ORXSimDSet::ID() const
{
    return m_repr ? m_repr->id : ORXSimDSetID();
}

bool ORXSimDSet::IsNull() const
{
    return m_repr == nullptr;
}

bool ORXSimDSet::IsEmpty() const
{
    if (!m_repr)
        return true;
    ORXSimCtation const& body = m_repr->Body().body;
    for (int i = 0; i < body.NumCompartments(); ++i)
    {
        ORXSimCompartment const& compartment = body[i];
        bool holds = compartment.Size() > 0;
        for (int d = 0; d < compartment.Size() && holds; ++d)
            holds = !compartment[d].IsEmpty();
        if (holds)
            return false;
    }
    return true;
}

ORXSimCSet ORXSimDSet::Collect(ORXSimCollectionID const& collection) const
{
    ORXSimCSet result(collection);
    if (!m_repr)
        return result;
    ORXSimCtation const& body = m_repr->Body().body;
    for (int i = 0; i < body.NumCompartments(); ++i)
    {
        int const dim = body[i].Position(collection);
        if (dim >= 0)
            result = result.Union(body[i][dim]);
    }
    return result;
}

ORXSimDSet ORXSimDSet::Select(ORXSimCSet const& set) const
{
    if (!m_repr)
        return ORXSimDSet();
    ORXSimStoreDSet const& stored = m_repr->Body();
    ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> parts;
    for (int i = 0; i < stored.body.NumCompartments(); ++i)
    {
        ORXSimCompartment const& compartment = stored.body[i];
        int const dim = compartment.Position(set.CollectionID());
        if (dim < 0)
            continue;
        ORXSimCSet const cut = compartment[dim].Intersection(set);
        if (cut.IsEmpty())
            continue;
        ORXSimArray<ORXSimCSet, ORXSimArrayClassPolicy<ORXSimCSet>> sets(compartment.Size(), 0);
        for (int d = 0; d < compartment.Size(); ++d)
            sets.Get(d) = d == dim ? cut : compartment[d];
        parts.PushBack(ORXSimCompartment(sets));
    }
    if (parts.Size() == 0)
        return ORXSimDSet();
    ORXSimDSet result;
    result.m_repr = ORXSimShare(new ORXSimDSetReprBase());
    result.m_repr->own.body = ORXSimCtation(parts);
    result.m_repr->own.distribution = stored.distribution;
    return result;
}

ORXSimDistributionID ORXSimDSet::GetRelationalDistributionID() const
{
    return m_repr ? m_repr->Body().distribution : ORXSimDistributionID();
}

ORXSimCtation const& ORXSimDSet::GetCtation() const
{
    static ORXSimCtation const none;
    return m_repr ? m_repr->Body().body : none;
}
