#pragma once
// A sparse array of T: a table of block pointers, each block a run of 2^shift cells. Index i lies in
// block i >> shift at place i & mask, so an untouched range costs one null slot. Cells never move
// once their block is made: references to them stay valid for the array's lifetime.
#include "ORXBasOmiDefaultAllocator.h"
#include "omi_SlotTable.h"

#include <cstddef>
#include <new>
#include <type_traits>

template <class T> class omi_BlockedArray
{
public:
    // Blocks of 2^blockShift cells; blockShift lies in 1..31.
    explicit omi_BlockedArray(unsigned int blockShift)
        : m_numSlots(0), m_blockShift(blockShift), m_indexMask((1u << blockShift) - 1), m_blocks(nullptr)
    {
    }
    omi_BlockedArray(omi_BlockedArray const& other);
    omi_BlockedArray& operator=(omi_BlockedArray const&) = delete;
    ~omi_BlockedArray();

    // The cell at index, or null if its block was never made.
    T* GetCell(unsigned int index) const
    {
        unsigned int block = index >> m_blockShift;
        if (block >= m_numSlots || !m_blocks[block])
            return nullptr;
        return m_blocks[block] + (index & m_indexMask);
    }

    // The cell at index; its block is made (cells value-initialised) and the slot table grown as needed.
    T& MakeCell(unsigned int index);

    unsigned int NumSlots() const { return m_numSlots; }
    unsigned int BlockShift() const { return m_blockShift; }
    unsigned int IndexMask() const { return m_indexMask; }
    // The block in a slot below NumSlots(), null if untouched.
    T* Block(unsigned int slot) const { return m_blocks[slot]; }

    // Bytes held in the slot table and the blocks.
    std::size_t AllocatedBytes() const;

private:
    std::size_t CellsPerBlock() const { return std::size_t(m_indexMask) + 1; }
    T* NewBlock(T const* source) const;
    void Release();
    void DeleteBlock(T* block) const;

    unsigned int m_numSlots;
    unsigned int m_blockShift;
    unsigned int m_indexMask;
    T** m_blocks;
};

template <class T>
omi_BlockedArray<T>::omi_BlockedArray(omi_BlockedArray const& other)
    : m_numSlots(0), m_blockShift(other.m_blockShift), m_indexMask(other.m_indexMask), m_blocks(nullptr)
{
    if (!other.m_numSlots)
        return;
    m_blocks = static_cast<T**>(ORXBasOmiDefaultAllocator::allocate(other.m_numSlots * sizeof(T*)));
    m_numSlots = other.m_numSlots;
    try
    {
        for (unsigned int slot = 0; slot < m_numSlots; ++slot)
            if (other.m_blocks[slot])
                m_blocks[slot] = NewBlock(other.m_blocks[slot]);
    }
    catch (...)
    {
        Release();
        throw;
    }
}

template <class T> omi_BlockedArray<T>::~omi_BlockedArray()
{
    Release();
}

template <class T> void omi_BlockedArray<T>::Release()
{
    for (unsigned int slot = 0; slot < m_numSlots; ++slot)
        if (m_blocks[slot])
            DeleteBlock(m_blocks[slot]);
    ORXBasOmiDefaultAllocator::deallocate(m_blocks);
}

template <class T> T& omi_BlockedArray<T>::MakeCell(unsigned int index)
{
    unsigned int slot = index >> m_blockShift;
    if (slot >= m_numSlots)
        omi_GrowSlotTable<ORXBasOmiDefaultAllocator>(m_blocks, m_numSlots, slot,
                                                     (std::size_t(0xFFFFFFFFu) >> m_blockShift) + 1);
    if (!m_blocks[slot])
        m_blocks[slot] = NewBlock(nullptr);
    return m_blocks[slot][index & m_indexMask];
}

template <class T> std::size_t omi_BlockedArray<T>::AllocatedBytes() const
{
    std::size_t bytes = m_numSlots * sizeof(T*);
    for (unsigned int slot = 0; slot < m_numSlots; ++slot)
        if (m_blocks[slot])
            bytes += CellsPerBlock() * sizeof(T);
    return bytes;
}

// A block of value-initialised cells, or copies of the cells of source.
template <class T> T* omi_BlockedArray<T>::NewBlock(T const* source) const
{
    std::size_t cells = CellsPerBlock();
    T* block = static_cast<T*>(ORXBasOmiDefaultAllocator::allocate(cells * sizeof(T)));
    if (!source && std::is_trivially_default_constructible_v<T>)
        return block; // zero bytes are the value-initialised cells
    std::size_t made = 0;
    try
    {
        for (; made < cells; ++made)
            source ? new (block + made) T(source[made]) : new (block + made) T();
    }
    catch (...)
    {
        for (std::size_t cell = 0; cell < made; ++cell)
            block[cell].~T();
        ORXBasOmiDefaultAllocator::deallocate(block);
        throw;
    }
    return block;
}

template <class T> void omi_BlockedArray<T>::DeleteBlock(T* block) const
{
    if constexpr (!std::is_trivially_destructible_v<T>)
        for (std::size_t cell = 0, cells = CellsPerBlock(); cell < cells; ++cell)
            block[cell].~T();
    ORXBasOmiDefaultAllocator::deallocate(block);
}
