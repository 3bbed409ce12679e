#include "ORXSimSet.h"

#include "ORXSimSelectionSet.h"

std::vector<ORXSimDynamicID> const& ORXSimSelectionSet::Items() const
{
    if (!m_live)
        return m_items;
    ORXSimStore::Get(m_owner); // raises once the document is closed
    return m_live->items;
}

bool ORXSimSelectionSet::Insert(ORXSimDynamicID const& record)
{
    if (!m_live)
    {
        for (ORXSimDynamicID const& item : m_items)
            if (item == record)
                return false;
        m_items.push_back(record);
        return true;
    }
    ORXSimStoreContext& store = ORXSimStore::Get(m_owner);
    ORXSimRequireTarget(store, record);
    if (!m_live->Add(record))
        return false;
    store.AddHolding(record, m_owner, m_member, nullptr);
    return true;
}

ORXSimSet::ORXSimSet() : m_repr(ORXSimShare(new ORXSimSelectionSet(std::vector<ORXSimDynamicID>()))) {}
ORXSimSet::ORXSimSet(ORXSimSelectionSet* repr) : m_repr(ORXSimShare(repr)) {}
ORXSimSet::ORXSimSet(ORXSimSet const& other) : m_repr(ORXSimShare(other.m_repr)) {}
ORXSimSet& ORXSimSet::operator=(ORXSimSet const& other)
{
    ORXSimSelectionSet* repr = ORXSimShare(other.m_repr);
    ORXSimDrop(m_repr);
    m_repr = repr;
    return *this;
}
ORXSimSet::~ORXSimSet()
{
    ORXSimDrop(m_repr);
}

ORXSimSetiterator ORXSimSet::Begin() const
{
    return ORXSimSetiterator(*this);
}
int ORXSimSet::Size() const
{
    return static_cast<int>(m_repr->Items().size());
}
bool ORXSimSet::Insert(ORXSimPosition const& record)
{
    return m_repr->Insert(record);
}

bool ORXSimSet::Contains(ORXSimPosition const& record) const
{
    for (ORXSimDynamicID const& item : m_repr->Items())
        if (item == record)
            return true;
    return false;
}

bool ORXSimSetiterator::NotDone() const
{
    return m_index < static_cast<int>(m_set.m_repr->Items().size());
}

// A walk that is done, as on an empty set, stands on a null position.
ORXSimPosition ORXSimSetiterator::operator*() const
{
    return NotDone() ? ORXSimPosition(m_set.m_repr->Items()[m_index]) : ORXSimPosition();
}
