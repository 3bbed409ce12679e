#include "mem_Entries.h"

#include <malloc.h>

#include <cstdint>
#include <cstdlib>

// Large freed blocks are kept in a small cache and handed out again to requests they fit, so that
// a caller that frees and reallocates big work arrays on every call gets memory that is already
// mapped instead of fresh pages that fault in one by one. The C library returns blocks this large
// to the system on free, which is what makes the cache pay.
//
// The cache is process-wide and unguarded: the library is single-threaded by contract. Under
// AddressSanitizer it is off, so that every freed block is poisoned at once and use after free is
// still caught.
namespace
{
#if defined(__SANITIZE_ADDRESS__)
constexpr bool cacheEnabled = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool cacheEnabled = false;
#else
constexpr bool cacheEnabled = true;
#endif
#else
constexpr bool cacheEnabled = true;
#endif

constexpr std::size_t cacheSmallestBlock = std::size_t(1) << 20;
constexpr std::size_t cacheMostBytes = std::size_t(256) << 20;
constexpr int cacheSlots = 8;

struct CachedBlock
{
    void* pointer;
    std::size_t size; // usable bytes
};

// Oldest first; the oldest block leaves when room is needed.
constinit CachedBlock g_cached[cacheSlots] = {};
constinit int g_cachedCount = 0;
constinit std::size_t g_cachedBytes = 0;

void RemoveCached(int slot)
{
    g_cachedBytes -= g_cached[slot].size;
    for (int i = slot + 1; i < g_cachedCount; ++i)
        g_cached[i - 1] = g_cached[i];
    --g_cachedCount;
}

// The smallest cached block that holds size bytes, and unless the block is to grow, that does so
// without wasting more than half of itself.
void* TakeCached(std::size_t size, bool growable)
{
    if (!cacheEnabled || size < cacheSmallestBlock)
        return nullptr;
    int best = -1;
    for (int i = 0; i < g_cachedCount; ++i)
        if (g_cached[i].size >= size && (growable || g_cached[i].size / 2 <= size) &&
            (best < 0 || g_cached[i].size < g_cached[best].size))
            best = i;
    if (best < 0)
        return nullptr;
    void* block = g_cached[best].pointer;
    RemoveCached(best);
    return block;
}

// Keeps a freed block if it is large enough to be worth it; false leaves it to the caller.
bool KeepCached(void* pointer)
{
    if (!cacheEnabled)
        return false;
    std::size_t const size = malloc_usable_size(pointer);
    if (size < cacheSmallestBlock || size > cacheMostBytes)
        return false;
    while (g_cachedCount == cacheSlots || g_cachedBytes + size > cacheMostBytes)
    {
        std::free(g_cached[0].pointer);
        RemoveCached(0);
    }
    g_cached[g_cachedCount++] = {pointer, size};
    g_cachedBytes += size;
    return true;
}

void* Allocate(std::size_t size, bool growable = false)
{
    if (void* block = TakeCached(size, growable))
        return block;
    return std::malloc(size == 0 ? 1 : size);
}
} // namespace

void* mem_Malloc(std::size_t size)
{
    return Allocate(size);
}

void* mem_MallocGrowable(std::size_t size)
{
    return Allocate(size, true);
}

void mem_Free(void* pointer)
{
    if (pointer && KeepCached(pointer))
        return;
    std::free(pointer);
}

void mem_ReleaseCachedBlocks()
{
    while (g_cachedCount > 0)
    {
        std::free(g_cached[0].pointer);
        RemoveCached(0);
    }
}

void* mem_OperatorNewThrow(std::size_t size)
{
    void* block = Allocate(size);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

void* mem_OperatorNewThrowBuiltin(std::size_t size)
{
    return mem_OperatorNewThrow(size);
}

void* mem_OperatorNewTinyThrow(std::size_t size)
{
    return mem_OperatorNewThrow(size);
}

std::size_t mem_SaturatingProduct(std::size_t count, std::size_t elementSize)
{
    if (elementSize != 0 && count > SIZE_MAX / elementSize)
        return SIZE_MAX;
    return count * elementSize;
}

void* operator new[](std::size_t size, mem_BuiltInAlloc)
{
    return mem_OperatorNewThrowBuiltin(size);
}

void operator delete[](void* pointer, mem_BuiltInAlloc) noexcept
{
    mem_Free(pointer);
}
