#pragma once
// One block of an omi_UintTable: the values of a run of places in a blocked array, and a bit vector
// telling which places hold a value. A is the table's allocator policy.
#include "omi_BlkBitVect.h"
#include "omi_BlockedArray.h"

#include <cstddef>

template <class T, class A> class omi_UintTableBlock
{
public:
    // Values in blocks of 2^valueShift cells.
    explicit omi_UintTableBlock(unsigned int valueShift) : m_values(valueShift) {}

    bool IsMember(unsigned int place) const { return m_membership.GetBit(place); }

    // The value at place, which must be a member: read without any test.
    T const& ConstGet(unsigned int place) const
    {
        return m_values.Block(place >> m_values.BlockShift())[place & m_values.IndexMask()];
    }

    // Stores value at a place that holds none yet and gives true; an occupied place keeps its value
    // and gives false.
    bool Insert(unsigned int place, T const& value)
    {
        if (IsMember(place))
            return false;
        m_values.MakeCell(place) = value;
        m_membership.SetBit(place);
        return true;
    }

    // Bytes of this block with its values and bits.
    std::size_t AllocatedBytes() const
    {
        return sizeof(*this) + m_values.AllocatedBytes() + m_membership.AllocatedBytes();
    }

private:
    omi_BlockedArray<T> m_values;
    omi_BlkBitVect m_membership;
};
