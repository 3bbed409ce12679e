#include "ORXSimVector.h"

#include "ORXSimSelectionList.h"

std::vector<ORXSimDynamicID> const& ORXSimSelectionList::Items() const
{
    static std::vector<ORXSimDynamicID> const none;
    if (!m_list)
        return none;
    ORXSimStore::Get(m_owner); // raises once the document is closed
    return m_list->items;
}

void ORXSimSelectionList::PushBack(ORXSimDynamicID const& record)
{
    if (!m_list)
        ORXSimRaise("this vector belongs to no record; it cannot be added to");
    ORXSimStoreContext& store = ORXSimStore::Get(m_owner);
    ORXSimRequireTarget(store, record);
    m_list->items.push_back(record);
    store.AddHolding(record, m_owner, m_member, nullptr);
}

ORXSimVector::ORXSimVector() : m_repr(ORXSimShare(new ORXSimSelectionList())) {}
ORXSimVector::ORXSimVector(ORXSimSelectionList* repr) : m_repr(ORXSimShare(repr)) {}
ORXSimVector::ORXSimVector(ORXSimVector const& other) : m_repr(ORXSimShare(other.m_repr)) {}
ORXSimVector& ORXSimVector::operator=(ORXSimVector const& other)
{
    ORXSimSelectionList* repr = ORXSimShare(other.m_repr);
    ORXSimDrop(m_repr);
    m_repr = repr;
    return *this;
}
ORXSimVector::~ORXSimVector()
{
    ORXSimDrop(m_repr);
}

ORXSimVectoriterator ORXSimVector::Begin() const
{
    return ORXSimVectoriterator(*this);
}
int ORXSimVector::Size() const
{
    return static_cast<int>(m_repr->Items().size());
}
ORXSimPosition ORXSimVector::At(int index) const
{
    return ORXSimPosition(m_repr->Items().at(index));
}
void ORXSimVector::PushBack(ORXSimPosition const& record)
{
    m_repr->PushBack(record);
}
