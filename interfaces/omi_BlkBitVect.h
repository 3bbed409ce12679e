#pragma once
// A sparse bit vector: a blocked array of 32-bit words. Bit b lies in word b >> 5 at bit position
// b & 31; a block holds 8 words (256 bits). Vectors are ordered by Compare as binary numbers, bit b
// being worth 2^b, so two vectors with the same bits set are equal whatever blocks they made.
#include "omi_BlockedArray.h"

class omi_BlkBitVect : public omi_BlockedArray<unsigned int>
{
public:
    omi_BlkBitVect();
    omi_BlkBitVect(omi_BlkBitVect const& other);
    omi_BlkBitVect& operator=(omi_BlkBitVect const&) = delete;
    virtual ~omi_BlkBitVect();

    bool GetBit(unsigned int bit) const
    {
        unsigned int const* word = GetCell(bit >> 5);
        return word && ((*word >> (bit & 31)) & 1u);
    }
    void SetBit(unsigned int bit);

    // Negative if this vector sorts before other, 0 if they hold the same bits, positive if after.
    int Compare(omi_BlkBitVect const& other) const;
};
