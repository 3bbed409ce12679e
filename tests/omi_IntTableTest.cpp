#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <unordered_map>
#include <vector>

namespace
{
using IntTable = omi_IntTable<int, ORXBasOmiDefaultAllocator>;
using UintTable = omi_UintTable<int, ORXBasOmiDefaultAllocator>;

// The default policy, with a count of the blocks it has out.
struct CountingAllocator
{
    static inline int live = 0;
    static void* allocate(std::size_t size)
    {
        ++live;
        return ORXBasOmiDefaultAllocator::allocate(size);
    }
    static void deallocate(void* pointer)
    {
        if (pointer)
            --live;
        ORXBasOmiDefaultAllocator::deallocate(pointer);
    }
};
} // namespace

TEST(omi_IntTable, SignsAndExtremesAreSeparateKeys)
{
    IntTable table;
    for (int key : {0, 1, -1, 255, 256, INT_MAX, INT_MIN})
        EXPECT_FALSE(table.IsMember(key)) << key;
    int const keys[] = {1, -1, 0, INT_MIN, INT_MAX};
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(table.Insert(keys[i], i + 10));
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(table.ConstGet(keys[i]), i + 10) << keys[i];
    for (int key : {2, -2, INT_MIN + 1})
        EXPECT_FALSE(table.IsMember(key)) << key;

    // The unsigned half: 2^31, the magnitude of the lowest int, and the highest key both have a place;
    // blocks never touched stay unmade.
    UintTable half;
    EXPECT_EQ(half.FindTableBlock(0), nullptr);
    EXPECT_FALSE(half.IsMember(0xFFFFFFFFu));
    ASSERT_TRUE(half.Insert(5, 50));
    ASSERT_TRUE(half.Insert(0x80000000u, 1));
    ASSERT_TRUE(half.Insert(0xFFFFFFFFu, 2));
    EXPECT_NE(half.FindTableBlock(5), nullptr);
    EXPECT_EQ(half.FindTableBlock(1u << 20), nullptr);
    EXPECT_EQ(half.FindTableBlock(0x90000000u), nullptr);
    EXPECT_FALSE(half.IsMember(1u << 20));
    EXPECT_FALSE(half.IsMember(6));
    EXPECT_EQ(half.ConstGet(0x80000000u), 1);
    EXPECT_EQ(half.ConstGet(0xFFFFFFFFu), 2);
    EXPECT_EQ(half.ConstGet(5), 50);
}

TEST(omi_IntTable, ExistingKeyKeepsItsValueAndCellsStayPut)
{
    IntTable table;
    ASSERT_TRUE(table.Insert(42, 1));
    EXPECT_FALSE(table.Insert(42, 2));
    int const* cell = &table.ConstGet(42);
    for (int key = -100000; key < 100000; key += 7)
        table.Insert(key, key);
    EXPECT_EQ(&table.ConstGet(42), cell);
    EXPECT_EQ(*cell, 1);
}

TEST(omi_IntTable, AgreesWithHashMapOnKeysOverTheWholeRange)
{
    std::mt19937 random(7);
    IntTable table;
    std::unordered_map<int, int> reference;
    for (int i = 0; i < 20000; ++i)
    {
        int key = static_cast<int>(random());
        int value = static_cast<int>(random());
        EXPECT_EQ(table.Insert(key, value), reference.emplace(key, value).second);
    }
    for (auto const& [key, value] : reference)
    {
        ASSERT_TRUE(table.IsMember(key));
        EXPECT_EQ(table.ConstGet(key), value);
        EXPECT_EQ(table.IsMember(key ^ 1), reference.count(key ^ 1) == 1);
    }
}

TEST(omi_IntTable, MillionDenseKeysStayUnderThreeIntsEach)
{
    for (int first : {0, -500000})
    {
        IntTable table;
        for (int key = first; key < first + 1000000; ++key)
            table.Insert(key, key);
        EXPECT_LT(table.AllocatedBytes(), 3u * 4u * 1000000u) << first;
        EXPECT_EQ(table.ConstGet(first + 999999), first + 999999);
    }
}

TEST(omi_IntTable, EveryBlockGoesBackThroughThePolicy)
{
    {
        omi_IntTable<int, CountingAllocator> table;
        EXPECT_EQ(CountingAllocator::live, 2);
        for (int key = -3000; key < 3000; key += 3)
            table.Insert(key, key);
        EXPECT_GT(CountingAllocator::live, 2);
    }
    EXPECT_EQ(CountingAllocator::live, 0);
}

TEST(omi_BlockedArray, CellsOnlyInMadeBlocks)
{
    omi_BlockedArray<int> array(2);
    EXPECT_EQ(array.GetCell(0), nullptr);
    array.MakeCell(101) = 5;
    EXPECT_GT(array.NumSlots(), 25u);
    EXPECT_EQ(array.GetCell(0), nullptr); // slot in range, block never made
    ASSERT_NE(array.GetCell(100), nullptr);
    EXPECT_EQ(*array.GetCell(100), 0);
    EXPECT_EQ(*array.GetCell(101), 5);
    EXPECT_EQ(array.GetCell(array.NumSlots() * 4), nullptr);

    omi_BlockedArray<int> copy(array);
    copy.MakeCell(101) = 6;
    EXPECT_EQ(*array.GetCell(101), 5);
    EXPECT_EQ(copy.GetCell(0), nullptr);
}

TEST(omi_BlkBitVect, BitsAndOrder)
{
    omi_BlkBitVect empty;
    for (unsigned int bit : {0u, 31u, 32u, 0xFFFFFFFFu})
        EXPECT_FALSE(empty.GetBit(bit));

    omi_BlkBitVect a;
    a.SetBit(40);
    a.SetBit(1);
    for (unsigned int bit : {0u, 1u, 40u, 41u})
        EXPECT_EQ(a.GetBit(bit), bit == 1 || bit == 40) << bit;

    omi_BlkBitVect b(a);
    EXPECT_EQ(a.Compare(b), 0);
    b.SetBit(100000);
    EXPECT_FALSE(a.GetBit(100000));
    EXPECT_LT(a.Compare(b), 0);
    EXPECT_GT(b.Compare(a), 0);
    EXPECT_LT(empty.Compare(a), 0);
    EXPECT_EQ(empty.Compare(omi_BlkBitVect()), 0);

    // As binary numbers: {0, 1} is 3, {2} is 4.
    omi_BlkBitVect three, four;
    three.SetBit(0);
    three.SetBit(1);
    four.SetBit(2);
    EXPECT_LT(three.Compare(four), 0);
    EXPECT_GT(four.Compare(three), 0);
}
