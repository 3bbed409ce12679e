#pragma once
// Growth of the slot tables of the omi_ family: a table of pointers, null for an untouched slot,
// indexed from 0. The table doubles (at least) until it holds the wanted slot, never beyond
// maxSlots, and is reallocated zero-filled through the allocator policy A.
#include <cstddef>
#include <cstring>

template <class A, class P>
void omi_GrowSlotTable(P**& slots, unsigned int& numSlots, unsigned int wantedSlot, std::size_t maxSlots)
{
    std::size_t grown = numSlots ? numSlots : 1;
    while (grown <= wantedSlot)
        grown *= 2;
    if (grown > maxSlots)
        grown = maxSlots;
    P** table = static_cast<P**>(A::allocate(grown * sizeof(P*)));
    if (slots)
    {
        std::memcpy(table, slots, numSlots * sizeof(P*));
        A::deallocate(slots);
    }
    slots = table;
    numSlots = static_cast<unsigned int>(grown);
}
