// Allocation counting for the memory figures: the process's malloc family is wrapped so that the
// bytes in use and their peak are known at any time. Linked only into the benchmarks that measure
// memory.
#include "BenchMemory.h"

#include <malloc.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

extern "C"
{
    void* __libc_malloc(size_t size);
    void* __libc_calloc(size_t count, size_t size);
    void* __libc_realloc(void* pointer, size_t size);
    void* __libc_memalign(size_t alignment, size_t size);
    void __libc_free(void* pointer);
}

namespace
{
long long g_bytesInUse = 0;
long long g_peakBytes = 0;

void* Counted(void* pointer)
{
    if (pointer)
    {
        g_bytesInUse += static_cast<long long>(malloc_usable_size(pointer));
        g_peakBytes = std::max(g_peakBytes, g_bytesInUse);
    }
    return pointer;
}

void Uncount(void* pointer)
{
    if (pointer)
        g_bytesInUse -= static_cast<long long>(malloc_usable_size(pointer));
}
} // namespace

// The wrappers keep the C library's declarations, noexcept clauses included.
extern "C"
{
    void* malloc(size_t size) noexcept
    {
        return Counted(__libc_malloc(size));
    }
    void* calloc(size_t count, size_t size) noexcept
    {
        return Counted(__libc_calloc(count, size));
    }
    void* realloc(void* pointer, size_t size) noexcept
    {
        Uncount(pointer);
        return Counted(__libc_realloc(pointer, size));
    }
    void* memalign(size_t alignment, size_t size) noexcept
    {
        return Counted(__libc_memalign(alignment, size));
    }
    void* aligned_alloc(size_t alignment, size_t size) noexcept
    {
        return Counted(__libc_memalign(alignment, size));
    }
    int posix_memalign(void** result, size_t alignment, size_t size) noexcept
    {
        *result = Counted(__libc_memalign(alignment, size));
        return *result ? 0 : ENOMEM;
    }
    void free(void* pointer) noexcept
    {
        Uncount(pointer);
        __libc_free(pointer);
    }
}

long long OrxBenchBytesInUse()
{
    return g_bytesInUse;
}

long long OrxBenchPeakBytes()
{
    return g_peakBytes;
}

void OrxBenchResetPeak()
{
    g_peakBytes = g_bytesInUse;
}
