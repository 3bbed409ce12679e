#pragma once
// A map from unsigned key to value: a table of omi_UintTableBlock pointers. Key k selects block
// k >> shift and, in it, the place k & mask. A block covers 256 keys, its values lie in blocks of
// 32; a range of keys never inserted costs one null slot at most. Values never move, so a reference
// from ConstGet stays valid for the table's lifetime. A allocates the slot table and the blocks.
#include "omi_SlotTable.h"
#include "omi_UintTableBlock.h"

#include <cstddef>
#include <new>

template <class T, class A> class omi_UintTable
{
public:
    typedef omi_UintTableBlock<T, A> Block;

    omi_UintTable()
        : m_blocks(nullptr), m_numSlots(0), m_keyMask((1u << kKeyShift) - 1), m_keyShift(kKeyShift)
    {
    }
    omi_UintTable(omi_UintTable const&) = delete;
    omi_UintTable& operator=(omi_UintTable const&) = delete;
    ~omi_UintTable();

    // The block that key falls in, or null when out of range or untouched.
    Block* FindTableBlock(unsigned int key) const
    {
        unsigned int slot = key >> m_keyShift;
        return slot < m_numSlots ? m_blocks[slot] : nullptr;
    }

    bool IsMember(unsigned int key) const
    {
        Block const* block = FindTableBlock(key);
        return block && block->IsMember(key & m_keyMask);
    }

    // The value of key, which must be a member: read without any test.
    T const& ConstGet(unsigned int key) const { return FindTableBlock(key)->ConstGet(key & m_keyMask); }

    // Adds key with value and gives true; a key already present keeps its value and gives false.
    bool Insert(unsigned int key, T const& value);

    // Bytes of the slot table and every block.
    std::size_t AllocatedBytes() const;

private:
    static unsigned int const kKeyShift = 8;
    static unsigned int const kValueShift = 5;

    Block** m_blocks;
    unsigned int m_numSlots;
    unsigned int m_keyMask;
    unsigned int m_keyShift;
};

template <class T, class A> omi_UintTable<T, A>::~omi_UintTable()
{
    for (unsigned int slot = 0; slot < m_numSlots; ++slot)
        if (Block* block = m_blocks[slot])
        {
            block->~Block();
            A::deallocate(block);
        }
    A::deallocate(m_blocks);
}

template <class T, class A> bool omi_UintTable<T, A>::Insert(unsigned int key, T const& value)
{
    unsigned int slot = key >> m_keyShift;
    if (slot >= m_numSlots)
        omi_GrowSlotTable<A>(m_blocks, m_numSlots, slot, (std::size_t(0xFFFFFFFFu) >> m_keyShift) + 1);
    if (!m_blocks[slot])
    {
        void* memory = A::allocate(sizeof(Block));
        m_blocks[slot] = new (memory) Block(kValueShift);
    }
    return m_blocks[slot]->Insert(key & m_keyMask, value);
}

template <class T, class A> std::size_t omi_UintTable<T, A>::AllocatedBytes() const
{
    std::size_t bytes = m_numSlots * sizeof(Block*);
    for (unsigned int slot = 0; slot < m_numSlots; ++slot)
        if (Block const* block = m_blocks[slot])
            bytes += block->AllocatedBytes();
    return bytes;
}
