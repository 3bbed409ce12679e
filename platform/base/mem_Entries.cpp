#include "mem_Entries.h"

#include <cstdint>
#include <cstdlib>

void* mem_Malloc(std::size_t size) { return std::malloc(size == 0 ? 1 : size); }

void mem_Free(void* pointer) { std::free(pointer); }

void* mem_OperatorNewThrow(std::size_t size)
{
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

void* mem_OperatorNewThrowBuiltin(std::size_t size) { return mem_OperatorNewThrow(size); }

void* mem_OperatorNewTinyThrow(std::size_t size) { return mem_OperatorNewThrow(size); }

std::size_t mem_SaturatingProduct(std::size_t count, std::size_t elementSize)
{
    if (elementSize != 0 && count > SIZE_MAX / elementSize)
        return SIZE_MAX;
    return count * elementSize;
}

void* operator new[](std::size_t size, mem_BuiltInAlloc) { return mem_OperatorNewThrowBuiltin(size); }

void operator delete[](void* pointer, mem_BuiltInAlloc) noexcept { mem_Free(pointer); }
