#pragma once
// Memory entries of the platform. Every block from these entries goes back through mem_Free; the
// throwing entries raise std::bad_alloc on exhaustion, mem_Malloc returns null. mem_Free keeps a
// few large freed blocks (1 MiB and up, 256 MiB at most) and the entries hand them out again to
// requests of a fitting size; mem_ReleaseCachedBlocks gives them back to the C library.
#include <cstddef>
#include <new>

void* mem_Malloc(std::size_t size);
// For a block that the caller grows with realloc: a kept block it fits is handed out however large,
// so that the growth that follows neither copies nor faults in fresh pages. malloc_usable_size
// tells the room the block has.
void* mem_MallocGrowable(std::size_t size);
void mem_Free(void* pointer);
void mem_ReleaseCachedBlocks();
void* mem_OperatorNewThrow(std::size_t size);
void* mem_OperatorNewThrowBuiltin(std::size_t size);
void* mem_OperatorNewTinyThrow(std::size_t size);

// count * elementSize, saturated at the largest size so that an overflowing array request fails in
// the allocator instead of wrapping round to a small block.
std::size_t mem_SaturatingProduct(std::size_t count, std::size_t elementSize);

// Tag for arrays of built-in types: new (mem_BuiltInAlloc{}) int[n] (braces: clang reads "()" as a type).
struct mem_BuiltInAlloc
{
};
// Tag for placement construction into memory the caller already holds.
struct ORXBasPlacement
{
};

void* operator new[](std::size_t size, mem_BuiltInAlloc);
void operator delete[](void* pointer, mem_BuiltInAlloc) noexcept;
inline void* operator new(std::size_t, void* pointer, ORXBasPlacement) noexcept
{
    return pointer;
}
inline void operator delete(void*, void*, ORXBasPlacement) noexcept {}

// Base of classes whose objects live in mem_OperatorNewThrow memory.
class mem_AllocationOperators
{
public:
    static void* operator new(std::size_t size) { return mem_OperatorNewThrow(size); }
    static void operator delete(void* pointer) noexcept { mem_Free(pointer); }
    static void* operator new(std::size_t, void* pointer) noexcept { return pointer; }
    static void operator delete(void*, void*) noexcept {}
};

// Base of classes allocated in arrays of small rows from mem_OperatorNewTinyThrow.
class mem_AllocationOperatorsTiny
{
public:
    static void* operator new[](std::size_t size) { return mem_OperatorNewTinyThrow(size); }
    static void operator delete[](void* pointer) noexcept { mem_Free(pointer); }
    static void* operator new(std::size_t size) { return mem_OperatorNewTinyThrow(size); }
    static void operator delete(void* pointer) noexcept { mem_Free(pointer); }
};
