#include "omi_BlkBitVect.h"

namespace
{
// 2^3 words a block: one block covers the 256 places of a table block exactly.
unsigned int const kWordBlockShift = 3;
} // namespace

omi_BlkBitVect::omi_BlkBitVect() : omi_BlockedArray<unsigned int>(kWordBlockShift) {}

omi_BlkBitVect::omi_BlkBitVect(omi_BlkBitVect const& other) : omi_BlockedArray<unsigned int>(other) {}

omi_BlkBitVect::~omi_BlkBitVect() = default;

void omi_BlkBitVect::SetBit(unsigned int bit)
{
    MakeCell(bit >> 5) |= 1u << (bit & 31);
}

int omi_BlkBitVect::Compare(omi_BlkBitVect const& other) const
{
    // Every vector has the same block size, so blocks of equal slots cover the same words. The
    // highest differing word decides; words beyond a vector's slot table count as zero.
    unsigned int slots = NumSlots() > other.NumSlots() ? NumSlots() : other.NumSlots();
    for (unsigned int slot = slots; slot-- > 0;)
    {
        unsigned int const* mine = slot < NumSlots() ? Block(slot) : nullptr;
        unsigned int const* theirs = slot < other.NumSlots() ? other.Block(slot) : nullptr;
        if (!mine && !theirs)
            continue;
        for (unsigned int cell = IndexMask() + 1; cell-- > 0;)
        {
            unsigned int a = mine ? mine[cell] : 0;
            unsigned int b = theirs ? theirs[cell] : 0;
            if (a != b)
                return a < b ? -1 : 1;
        }
    }
    return 0;
}

template class omi_BlockedArray<unsigned int>;
