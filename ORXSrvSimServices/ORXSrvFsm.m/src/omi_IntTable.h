#pragma once
// A map from signed key to value: two omi_UintTable, one for each sign. A key below 0 goes to the
// negative half under its magnitude (-1 and 1 are different keys; the lowest int is stored under
// 2147483648), 0 and above to the non-negative half as they are. Both halves are allocated,
// zero-filled, through the allocator policy A. Values never move while the table lives.
#include "omi_UintTable.h"

#include <cstddef>
#include <new>

template <class T, class A> class omi_IntTable
{
public:
    typedef omi_UintTable<T, A> Half;

    omi_IntTable();
    omi_IntTable(omi_IntTable const&) = delete;
    omi_IntTable& operator=(omi_IntTable const&) = delete;
    virtual ~omi_IntTable();

    // Adds key with value and gives true; a key already present keeps its value and gives false.
    bool Insert(int key, T const& value) { return HalfOf(key).Insert(Magnitude(key), value); }
    // The value of key, which must be a member (ask IsMember first).
    T const& ConstGet(int key) const { return HalfOf(key).ConstGet(Magnitude(key)); }
    bool IsMember(int key) const { return HalfOf(key).IsMember(Magnitude(key)); }

    // Bytes held by the table: both halves with their slot tables and blocks.
    std::size_t AllocatedBytes() const
    {
        return 2 * sizeof(Half) + m_negative->AllocatedBytes() + m_nonNegative->AllocatedBytes();
    }

private:
    static unsigned int Magnitude(int key)
    {
        return key < 0 ? 0u - static_cast<unsigned int>(key) : static_cast<unsigned int>(key);
    }
    Half& HalfOf(int key) const { return key < 0 ? *m_negative : *m_nonNegative; }
    static Half* NewHalf() { return new (A::allocate(sizeof(Half))) Half(); }
    static void DeleteHalf(Half* half)
    {
        half->~Half();
        A::deallocate(half);
    }

    Half* m_negative;
    Half* m_nonNegative;
};

template <class T, class A> omi_IntTable<T, A>::omi_IntTable() : m_negative(NewHalf()), m_nonNegative(nullptr)
{
    try
    {
        m_nonNegative = NewHalf();
    }
    catch (...)
    {
        DeleteHalf(m_negative);
        throw;
    }
}

template <class T, class A> omi_IntTable<T, A>::~omi_IntTable()
{
    DeleteHalf(m_negative);
    DeleteHalf(m_nonNegative);
}
