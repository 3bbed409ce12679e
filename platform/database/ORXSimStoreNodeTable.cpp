#include "ORXSimStoreNodeTable.h"

#include "ORXSimStore.h"

namespace
{
std::size_t const initialSlots = 64;
int const initialShift = 58; // 64 - log2(initialSlots)
} // namespace

ORXSimStoreNodeTable::ORXSimStoreNodeTable()
    : m_slots(initialSlots, Slot{ORXSimStoreKey(0, 0, 0), nullptr}), m_shift(initialShift)
{
}

ORXSimStoreNodeTable::~ORXSimStoreNodeTable() = default;

std::size_t ORXSimStoreNodeTable::Home(ORXSimStoreKey const& key) const
{
    // Multiplicative hashing of the three fields, taking the high bits: identities that differ in
    // their minors only (the common case) spread evenly.
    std::uint64_t const minors = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.minor1)) << 32 |
                                 static_cast<std::uint32_t>(key.minor2);
    std::uint64_t const mixed =
        (minors ^ static_cast<std::uint64_t>(key.category) << 59) * 0x9e3779b97f4a7c15ull;
    return static_cast<std::size_t>(mixed >> m_shift);
}

bool ORXSimStoreNodeTable::IsDense(ORXSimStoreKey const& key)
{
    return (key.category == ORXSimDynamicID::RecordCategory && key.minor1 == 0) ||
           (key.category == ORXSimDynamicID::CMemberCategory && key.minor1 >= 0);
}

std::vector<ORXSimStoreNode*> const* ORXSimStoreNodeTable::DenseList(ORXSimStoreKey const& key) const
{
    if (key.category == ORXSimDynamicID::RecordCategory)
        return &m_records;
    std::size_t const collection = static_cast<std::size_t>(key.minor1);
    return collection < m_members.size() ? &m_members[collection] : nullptr;
}

ORXSimStoreNode* ORXSimStoreNodeTable::Find(ORXSimStoreKey const& key) const
{
    if (IsDense(key))
    {
        std::vector<ORXSimStoreNode*> const* list = DenseList(key);
        std::size_t const index = static_cast<std::size_t>(key.minor2);
        return list && key.minor2 >= 0 && index < list->size() ? (*list)[index] : nullptr;
    }
    std::size_t const mask = m_slots.size() - 1;
    for (std::size_t i = Home(key);; i = (i + 1) & mask)
    {
        Slot const& slot = m_slots[i];
        if (!slot.node)
            return nullptr;
        if (slot.key == key)
            return slot.node;
    }
}

ORXSimStoreNode& ORXSimStoreNodeTable::Get(ORXSimStoreKey const& key)
{
    if (ORXSimStoreNode* node = Find(key))
        return *node;
    bool const dense = IsDense(key);
    if (!dense && 2 * (m_hashed + 1) > m_slots.size())
        Grow();
    m_nodes.push_back(std::make_unique<ORXSimStoreNode>());
    ORXSimStoreNode* const node = m_nodes.back().get();
    if (dense)
    {
        std::vector<ORXSimStoreNode*>* list = &m_records;
        if (key.category == ORXSimDynamicID::CMemberCategory)
        {
            std::size_t const collection = static_cast<std::size_t>(key.minor1);
            if (collection >= m_members.size())
                m_members.resize(collection + 1);
            list = &m_members[collection];
        }
        std::size_t const index = static_cast<std::size_t>(key.minor2);
        if (index >= list->size())
            list->resize(index + 1, nullptr);
        (*list)[index] = node;
        return *node;
    }
    std::size_t const mask = m_slots.size() - 1;
    std::size_t i = Home(key);
    while (m_slots[i].node)
        i = (i + 1) & mask;
    m_slots[i] = Slot{key, node};
    ++m_hashed;
    return *node;
}

void ORXSimStoreNodeTable::Grow()
{
    std::vector<Slot> old(m_slots.size() * 2, Slot{ORXSimStoreKey(0, 0, 0), nullptr});
    old.swap(m_slots);
    --m_shift;
    std::size_t const mask = m_slots.size() - 1;
    for (Slot const& slot : old)
        if (slot.node)
        {
            std::size_t i = Home(slot.key);
            while (m_slots[i].node)
                i = (i + 1) & mask;
            m_slots[i] = slot;
        }
}
