#include "ORXBasNodeAllocator.h"

#include "mem_Entries.h"

void* ORXBasNodeAllocator::Allocate(std::size_t bytes)
{
    return mem_OperatorNewThrow(bytes);
}

void ORXBasNodeAllocator::Deallocate(void* node)
{
    mem_Free(node);
}
