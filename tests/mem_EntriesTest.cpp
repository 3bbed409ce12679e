// The memory entries, with their reuse of large freed blocks.
#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <vector>

namespace
{
std::size_t const kMiB = std::size_t(1) << 20;

#if defined(__SANITIZE_ADDRESS__)
bool const kReuses = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
bool const kReuses = false;
#else
bool const kReuses = true;
#endif
#else
bool const kReuses = true;
#endif
} // namespace

TEST(MemEntries, NullEmptyAndSmallRequestsPair)
{
    mem_Free(nullptr);
    for (void* block : {mem_Malloc(0), mem_OperatorNewTinyThrow(0), mem_OperatorNewThrow(8)})
    {
        ASSERT_NE(block, nullptr);
        mem_Free(block);
    }
    mem_Free(new (mem_BuiltInAlloc{}) int[4]);
    EXPECT_EQ(mem_SaturatingProduct(static_cast<std::size_t>(-1) / 2, 4), static_cast<std::size_t>(-1));
}

TEST(MemEntries, LargeFreedBlocksServeFittingRequests)
{
    mem_ReleaseCachedBlocks();
    char* big = static_cast<char*>(mem_Malloc(8 * kMiB));
    std::memset(big, 1, 8 * kMiB);
    mem_Free(big);
    // A request that would waste more than half of the freed block gets a block of its own size.
    char* small = static_cast<char*>(mem_Malloc(2 * kMiB));
    EXPECT_NE(small, big);
    EXPECT_LT(malloc_usable_size(small), 4 * kMiB);
    // A fitting request gets the freed block back, whole and writable.
    char* again = static_cast<char*>(mem_OperatorNewThrow(6 * kMiB));
    if (kReuses)
    {
        EXPECT_EQ(again, big);
    }
    EXPECT_GE(malloc_usable_size(again), 6 * kMiB);
    std::memset(again, 2, 6 * kMiB);
    mem_Free(again);
    mem_Free(small);
    mem_ReleaseCachedBlocks();
}

TEST(MemEntries, GrowableRequestsTakeAnyKeptBlockTheyFit)
{
    mem_ReleaseCachedBlocks();
    char* big = static_cast<char*>(mem_Malloc(16 * kMiB));
    std::memset(big, 1, 16 * kMiB);
    mem_Free(big);
    // A block that will grow takes the kept block even though it wastes most of it, and may grow
    // within it and beyond it.
    char* growing = static_cast<char*>(mem_MallocGrowable(2 * kMiB));
    if (kReuses)
    {
        EXPECT_EQ(growing, big);
    }
    std::size_t const room = malloc_usable_size(growing);
    ASSERT_GE(room, 2 * kMiB);
    std::memset(growing, 5, room);
    growing = static_cast<char*>(std::realloc(growing, room + 4 * kMiB));
    ASSERT_NE(growing, nullptr);
    EXPECT_EQ(growing[room - 1], 5);
    mem_Free(growing);
    mem_ReleaseCachedBlocks();
}

TEST(MemEntries, ManyLargeFreesStayUsable)
{
    // More blocks than are kept, of sizes round the bounds; every block handed out must hold its
    // request whatever was kept before.
    std::vector<void*> blocks;
    for (std::size_t size : {kMiB - 1, kMiB, 3 * kMiB, 5 * kMiB, 17 * kMiB, 2 * kMiB, 9 * kMiB, kMiB,
                             4 * kMiB, 33 * kMiB, 257 * kMiB})
    {
        void* block = mem_Malloc(size);
        ASSERT_NE(block, nullptr);
        std::memset(block, 3, size);
        blocks.push_back(block);
    }
    for (void* block : blocks)
        mem_Free(block);
    for (int round = 0; round < 3; ++round)
        for (std::size_t size : {5 * kMiB, 4 * kMiB, kMiB + 1, 20 * kMiB})
        {
            void* block = mem_Malloc(size);
            ASSERT_GE(malloc_usable_size(block), size);
            EXPECT_LE(malloc_usable_size(block), 2 * size + 64 * 1024);
            std::memset(block, 4, size);
            mem_Free(block);
        }
    mem_ReleaseCachedBlocks();
}
