#include "ORXSimMap.h"

#include "ORXSimSelectionMap.h"

std::map<ORXString, ORXSimDynamicID> const& ORXSimSelectionMap::Items() const
{
    static std::map<ORXString, ORXSimDynamicID> const none;
    if (!m_map)
        return none;
    ORXSimStore::Get(m_owner); // raises once the document is closed
    return m_map->items;
}

void ORXSimSelectionMap::Insert(ORXString const& key, ORXSimDynamicID const& record)
{
    if (!m_map)
        ORXSimRaise("this map belongs to no record; it cannot be added to");
    ORXSimStoreContext& store = ORXSimStore::Get(m_owner);
    ORXSimRequireTarget(store, record);
    auto found = m_map->items.find(key);
    if (found != m_map->items.end())
    {
        store.RemoveHolding(found->second, m_owner, m_member, &key);
        found->second = record;
    }
    else
        m_map->items.emplace(key, record);
    store.AddHolding(record, m_owner, m_member, &key);
}

ORXSimMap::ORXSimMap() : m_repr(ORXSimShare(new ORXSimSelectionMap())) {}
ORXSimMap::ORXSimMap(ORXSimSelectionMap* repr) : m_repr(ORXSimShare(repr)) {}
ORXSimMap::ORXSimMap(ORXSimMap const& other) : m_repr(ORXSimShare(other.m_repr)) {}
ORXSimMap& ORXSimMap::operator=(ORXSimMap const& other)
{
    ORXSimSelectionMap* repr = ORXSimShare(other.m_repr);
    ORXSimDrop(m_repr);
    m_repr = repr;
    return *this;
}
ORXSimMap::~ORXSimMap()
{
    ORXSimDrop(m_repr);
}

ORXSimMapiterator ORXSimMap::Begin() const
{
    return ORXSimMapiterator(*this);
}
int ORXSimMap::Size() const
{
    return static_cast<int>(m_repr->Items().size());
}

ORXSimPosition ORXSimMap::Find(ORXString const& key) const
{
    auto const& items = m_repr->Items();
    auto found = items.find(key);
    return found == items.end() ? ORXSimPosition() : ORXSimPosition(found->second);
}

void ORXSimMap::Insert(ORXString const& key, ORXSimPosition const& value)
{
    m_repr->Insert(key, value);
}

ORXSimMapiterator::ORXSimMapiterator(ORXSimMap const& map) : m_map(map)
{
    auto const& items = m_map.m_repr->Items();
    if (!items.empty())
    {
        m_key = items.begin()->first;
        m_value = items.begin()->second;
        m_valid = true;
    }
}

ORXSimMapiterator& ORXSimMapiterator::operator++()
{
    auto const& items = m_map.m_repr->Items();
    auto next = items.upper_bound(m_key);
    m_valid = next != items.end();
    if (m_valid)
    {
        m_key = next->first;
        m_value = next->second;
    }
    return *this;
}
