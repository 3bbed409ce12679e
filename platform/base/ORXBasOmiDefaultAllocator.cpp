#include "ORXBasOmiDefaultAllocator.h"

#include "mem_Entries.h"

#include <cstring>
#include <new>

void* ORXBasOmiDefaultAllocator::allocate(std::size_t size)
{
    void* block = mem_Malloc(size);
    if (!block)
        throw std::bad_alloc();
    std::memset(block, 0, size);
    return block;
}

void ORXBasOmiDefaultAllocator::deallocate(void* pointer)
{
    mem_Free(pointer);
}
