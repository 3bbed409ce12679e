#include "ORXSimStore.h"

#include "ORXSimDatabaseException.h"
#include "ORXSimDatabaseReprBase.h"
#include "ORXSimStoreDSet.h"
#include "ORXSimStoreDistribution.h"
#include "ORXSimStoreFTable.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <algorithm>
#include <cstdio>

void ORXSimDatabaseException::Throw(char const* file, int line)
{
    SetWhere(file, line);
    throw *this;
}

void ORXSimRaise(ORXString const& text)
{
    throw ORXSimDatabaseException(text);
}

ORXString ORXSimNumberText(long long value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%lld", value);
    return ORXString(text);
}

ORXString ORXSimDescribe(ORXSimDynamicID const& id)
{
    char const* kind = "object";
    switch (id.Category())
    {
    case ORXSimDynamicID::RecordCategory:
        kind = "record";
        break;
    case ORXSimDynamicID::DistributionCategory:
        kind = "distribution";
        break;
    case ORXSimDynamicID::CollectionCategory:
        kind = "collection";
        break;
    case ORXSimDynamicID::CSetCategory:
        return ORXString("CSet ") + ORXSimNumberText(id.Minor2().Value()) + " of collection " +
               ORXSimNumberText(id.Minor1().Value());
    case ORXSimDynamicID::DSetCategory:
        kind = "DSet";
        break;
    case ORXSimDynamicID::DrawerCategory:
        return ORXString("drawer ") + ORXSimNumberText(id.Minor2().Value()) + " of distribution " +
               ORXSimNumberText(id.Minor1().Value());
    case ORXSimDynamicID::FTableCategory:
        kind = "function table";
        break;
    case ORXSimDynamicID::CMemberCategory:
        return ORXString("member ") + ORXSimNumberText(id.Minor2().Value()) + " of collection " +
               ORXSimNumberText(id.Minor1().Value());
    default:
        break;
    }
    return ORXString(kind) + " " + ORXSimNumberText(id.Minor2().Value());
}

namespace
{
struct Registry
{
    unsigned long long next = 1;
    std::unordered_map<unsigned long long, std::unique_ptr<ORXSimStoreContext>> open;
    ORXSimStoreContext* last = nullptr; // the most recently looked-up document
};
Registry& TheRegistry()
{
    static Registry registry;
    return registry;
}
} // namespace

ORXSimStoreContext& ORXSimStore::Open(ORXSimDatabaseReprBase* repr)
{
    Registry& r = TheRegistry();
    ORXSimContextID const id(r.next++);
    repr->context = id;
    auto context = std::make_unique<ORXSimStoreContext>(id, repr);
    ORXSimStoreContext& result = *context;
    r.open.emplace(id.Value(), std::move(context));
    return result;
}

void ORXSimStore::Close(ORXSimContextID id)
{
    Registry& r = TheRegistry();
    auto found = r.open.find(id.Value());
    if (found == r.open.end())
        return;
    if (r.last == found->second.get())
        r.last = nullptr;
    std::unique_ptr<ORXSimStoreContext> context = std::move(found->second);
    r.open.erase(found);
}

ORXSimStoreContext* ORXSimStore::Find(ORXSimContextID id)
{
    Registry& r = TheRegistry();
    if (r.last && r.last->ID() == id)
        return r.last;
    auto found = r.open.find(id.Value());
    if (found == r.open.end())
        return nullptr;
    r.last = found->second.get();
    return r.last;
}

ORXSimStoreContext& ORXSimStore::Get(ORXSimContextID id)
{
    if (ORXSimStoreContext* context = Find(id))
        return *context;
    if (id.IsNull())
        ORXSimRaise("the null document has no content");
    ORXSimRaise(ORXString("document ") + ORXSimNumberText(static_cast<long long>(id.Value())) +
                " is closed; its content can no longer be used");
}

ORXSimStoreContext::ORXSimStoreContext(ORXSimContextID id, ORXSimDatabaseReprBase* repr)
    : m_id(id), m_repr(repr)
{
    m_repr->AddRef();
    m_focus = NewRecord(vds_CoreFragmentTypeIndex(15, 0));
}

ORXSimStoreContext::~ORXSimStoreContext()
{
    m_repr->closed = true;
    m_repr->Release();
}

ORXSimDynamicID ORXSimStoreContext::NewRecord(int type)
{
    int const minor = static_cast<int>(m_recordTypes.size());
    m_recordTypes.push_back(type);
    return ORXSimIdentityFactory::Make(ORXSimDynamicID::RecordCategory, m_id, 0, minor, ORXSimTypeID(type));
}

ORXSimCollectionID ORXSimStoreContext::NewCollection(int space, ORXSimTypeID type)
{
    if (space < 0)
        ORXSimRaise(ORXString("a collection cannot have a negative space (") + ORXSimNumberText(space) + ")");
    int const minor = static_cast<int>(m_collections.size());
    m_collections.emplace_back();
    ORXSimStoreCollection& collection = m_collections.back();
    collection.type = type;
    collection.space = space;
    collection.csets.push_back({ORXSimIndexSetPtr(), false}); // the empty set
    return ORXSimCollectionID(m_id, minor, type, 0);
}

namespace
{
bool InRange(int index, std::size_t size)
{
    return index >= 0 && static_cast<std::size_t>(index) < size;
}
} // namespace

bool ORXSimStoreContext::Exists(ORXSimDynamicID const& id) const
{
    if (id.IsNull() || id.ContextID() != m_id)
        return false;
    int const m1 = id.Minor1().Value(), m2 = id.Minor2().Value();
    switch (id.Category())
    {
    case ORXSimDynamicID::RecordCategory:
        return InRange(m2, m_recordTypes.size());
    case ORXSimDynamicID::CollectionCategory:
        return InRange(m2, m_collections.size());
    case ORXSimDynamicID::CMemberCategory:
        return InRange(m1, m_collections.size()) && m2 >= 0 && m2 < m_collections[m1].space;
    case ORXSimDynamicID::CSetCategory:
        return InRange(m1, m_collections.size()) && InRange(m2, m_collections[m1].csets.size());
    case ORXSimDynamicID::DistributionCategory:
        return InRange(m2, m_distributions.size());
    case ORXSimDynamicID::DrawerCategory:
        return InRange(m1, m_distributions.size()) && InRange(m2, m_distributions[m1]->drawers.size());
    case ORXSimDynamicID::DSetCategory:
        return InRange(m2, m_dsets.size());
    case ORXSimDynamicID::FTableCategory:
        return InRange(m2, m_ftables.size());
    default:
        return false;
    }
}

void ORXSimStoreContext::RequireExists(ORXSimDynamicID const& id) const
{
    if (!Exists(id))
        ORXSimRaise(ORXSimDescribe(id) + " does not exist in document " +
                    ORXSimNumberText(static_cast<long long>(m_id.Value())));
}

ORXSimStoreNode* ORXSimStoreContext::FindNode(ORXSimDynamicID const& id)
{
    return m_nodes.Find(ORXSimStoreKey(id));
}

ORXSimStoreNode& ORXSimStoreContext::Node(ORXSimDynamicID const& id)
{
    if (ORXSimStoreNode* node = FindNode(id))
        return *node;
    RequireExists(id);
    return m_nodes.Get(ORXSimStoreKey(id));
}

void ORXSimStoreContext::AddHolding(ORXSimDynamicID const& target, ORXSimDynamicID const& holder, int member,
                                    ORXString const* key)
{
    Node(target).holdings.push_back({holder, member, key != nullptr, key ? *key : ORXString()});
}

void ORXSimStoreContext::RemoveHolding(ORXSimDynamicID const& target, ORXSimDynamicID const& holder,
                                       int member, ORXString const* key)
{
    ORXSimStoreNode* node = FindNode(target);
    if (!node)
        return;
    auto& holdings = node->holdings;
    for (auto h = holdings.begin(); h != holdings.end(); ++h)
        if (h->member == member && h->holder == holder && h->keyed == (key != nullptr) &&
            (!key || h->key == *key))
        {
            holdings.erase(h);
            return;
        }
}

ORXSimStoreCollection& ORXSimStoreContext::Collection(ORXSimCollectionID const& id)
{
    if (id.IsNull() || id.ContextID() != m_id || !InRange(id.Minor2().Value(), m_collections.size()))
        ORXSimRaise(ORXSimDescribe(id) + " is no collection of document " +
                    ORXSimNumberText(static_cast<long long>(m_id.Value())));
    return m_collections[id.Minor2().Value()];
}

ORXSimCSetID ORXSimStoreContext::Seek(ORXSimCollectionID const& collection, ORXSimIndexSet const* members)
{
    ORXSimStoreCollection& c = Collection(collection);
    if (!members || members->Count() == 0)
        return ORXSimIdentityFactory::CSet(collection, 0);
    auto range = c.bySequence.equal_range(members->SequenceHash());
    for (auto it = range.first; it != range.second; ++it)
        if (c.csets[it->second].members->SameSequence(*members))
            return ORXSimIdentityFactory::CSet(collection, it->second);
    return ORXSimCSetID();
}

void ORXSimStoreContext::CheckInSpace(ORXSimCollectionID const& collection, ORXSimIndexSet const* members)
{
    if (!members || members->Count() == 0)
        return;
    int const space = Collection(collection).space;
    int const n = members->Count();
    if (members->IsAscending() || members->IsRun())
    {
        int const lo = std::min(members->At(0), members->At(n - 1)),
                  hi = std::max(members->At(0), members->At(n - 1));
        if (lo >= 0 && hi < space)
            return;
    }
    for (int i = 0; i < n; ++i)
        if (members->At(i) < 0 || members->At(i) >= space)
            ORXSimRaise(ORXString("member ") + ORXSimNumberText(members->At(i)) + " lies outside " +
                        ORXSimDescribe(collection) + ", whose space is " + ORXSimNumberText(space));
}

ORXSimCSetID ORXSimStoreContext::Register(ORXSimCollectionID const& collection,
                                          ORXSimIndexSetPtr const& members, bool temporary)
{
    ORXSimStoreCollection& c = Collection(collection);
    CheckInSpace(collection, members.Get());
    if (temporary)
    {
        ORXSimCSetID twin = Seek(collection, members.Get());
        if (!twin.IsNull())
            return twin;
    }
    int const minor = static_cast<int>(c.csets.size());
    c.csets.push_back({members, temporary});
    if (members && members->Count() > 0)
        c.bySequence.emplace(members->SequenceHash(), minor);
    return ORXSimIdentityFactory::CSet(collection, minor);
}

ORXSimIndexSetPtr ORXSimStoreContext::Members(ORXSimCSetID const& id)
{
    ORXSimStoreCollection& c = Collection(id.CollectionID());
    if (!InRange(id.Minor().Value(), c.csets.size()))
        ORXSimRaise(ORXSimDescribe(id) + " does not exist");
    return c.csets[id.Minor().Value()].members;
}

ORXSimStoreDistribution& ORXSimStoreContext::Distribution(ORXSimDistributionID const& id)
{
    if (id.IsNull() || id.ContextID() != m_id || !InRange(id.Minor2().Value(), m_distributions.size()))
        ORXSimRaise(ORXSimDescribe(id) + " is no distribution of document " +
                    ORXSimNumberText(static_cast<long long>(m_id.Value())));
    return *m_distributions[id.Minor2().Value()];
}

ORXSimDistributionID
ORXSimStoreContext::AddDistribution(std::unique_ptr<ORXSimStoreDistribution> distribution, ORXSimTypeID type)
{
    ORXSimDistributionID const id(m_id, static_cast<int>(m_distributions.size()), type, 0);
    distribution->id = id;
    m_distributions.push_back(std::move(distribution));
    return id;
}

ORXSimStoreDSet& ORXSimStoreContext::DSet(ORXSimDSetID const& id)
{
    if (id.IsNull() || id.ContextID() != m_id || !InRange(id.Minor2().Value(), m_dsets.size()))
        ORXSimRaise(ORXSimDescribe(id) + " is no DSet of document " +
                    ORXSimNumberText(static_cast<long long>(m_id.Value())));
    return *m_dsets[id.Minor2().Value()];
}

ORXSimDSetID ORXSimStoreContext::AddDSet(std::unique_ptr<ORXSimStoreDSet> dset, ORXSimTypeID type)
{
    ORXSimDSetID const id(ORXSimIdentityFactory::Make(ORXSimDynamicID::DSetCategory, m_id, 0,
                                                      static_cast<int>(m_dsets.size()), type));
    m_dsets.push_back(std::move(dset));
    return id;
}

ORXSimStoreFTable& ORXSimStoreContext::FTable(ORXSimFTableID const& id)
{
    if (id.IsNull() || id.ContextID() != m_id || !InRange(id.Minor2().Value(), m_ftables.size()))
        ORXSimRaise(ORXSimDescribe(id) + " is no function table of document " +
                    ORXSimNumberText(static_cast<long long>(m_id.Value())));
    return *m_ftables[id.Minor2().Value()];
}

ORXSimFTableID ORXSimStoreContext::AddFTable(std::unique_ptr<ORXSimStoreFTable> table, ORXSimTypeID type)
{
    ORXSimFTableID const id(ORXSimIdentityFactory::Make(ORXSimDynamicID::FTableCategory, m_id, 0,
                                                        static_cast<int>(m_ftables.size()), type));
    m_ftables.push_back(std::move(table));
    return id;
}

void ORXSimRequireTarget(ORXSimStoreContext& store, ORXSimDynamicID const& target)
{
    if (target.ContextID() != store.ID())
        ORXSimRaise(ORXSimDescribe(target) +
                    " belongs to another document than the record that should hold it");
    store.RequireExists(target);
}
