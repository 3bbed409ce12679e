#pragma once
// Storage of tree nodes: blocks from mem_OperatorNewThrow, released with mem_Free.
#include <cstddef>

struct ORXBasNodeAllocator
{
    static void* Allocate(std::size_t bytes);
    static void Deallocate(void* node);
};
