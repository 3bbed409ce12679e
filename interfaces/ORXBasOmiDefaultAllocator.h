#pragma once
// Allocator policy of the omi_ tables and blocked arrays: zero-filled blocks from mem_Malloc, given
// back through mem_Free. Zero bytes are an empty slot table, an untouched block and a clear bit.
#include <cstddef>

struct ORXBasOmiDefaultAllocator
{
    // size bytes, all zero; throws std::bad_alloc when memory is exhausted.
    static void* allocate(std::size_t size);
    static void deallocate(void* pointer);
};
