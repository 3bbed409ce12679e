#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

TEST(ORXBasVector, GrowsResizesAndCopiesPlainValues)
{
    ORXBasVector<int> numbers;
    EXPECT_TRUE(numbers.empty());
    for (int i = 0; i < 1000; ++i)
        numbers.push_back(i);
    ASSERT_EQ(numbers.size(), 1000u);
    EXPECT_GE(numbers.capacity(), 1000u);
    numbers.push_back(numbers[10]); // an element of the vector itself, also across a reallocation
    EXPECT_EQ(numbers.back(), 10);

    numbers.resize(3);
    numbers.resize(7, 42);
    std::vector<int> seen(numbers.begin(), numbers.end());
    EXPECT_EQ(seen, (std::vector<int>{0, 1, 2, 42, 42, 42, 42}));

    ORXBasVector<int> copy(numbers);
    copy[0] = -1;
    EXPECT_EQ(numbers[0], 0);
    EXPECT_EQ(copy.size(), numbers.size());
    EXPECT_EQ(copy.capacity(), copy.size());

    ORXBasVector<double> zeros(5);
    ORXBasVector<double> filled(1000, 2.5);
    double sum = 0;
    for (double value : filled)
        sum += value;
    EXPECT_EQ(sum, 2500.0);
    zeros.swap(filled);
    EXPECT_EQ(zeros.size(), 1000u);
    EXPECT_EQ(filled.size(), 5u);
    EXPECT_EQ(filled[4], 0.0);
    filled = zeros;
    EXPECT_EQ(filled[999], 2.5);
    filled.clear();
    EXPECT_TRUE(filled.empty());
}

TEST(ORXBasVector, StringElementsShareAndReleaseReferences)
{
    ORXString text("shared");
    {
        ORXBasVector<ORXString> strings(3, text);
        EXPECT_EQ(text.UseCount(), 4);
        strings.push_back(text);
        strings.push_back(strings[0]);
        EXPECT_EQ(text.UseCount(), 6);
        {
            ORXBasVector<ORXString> copy(strings);
            EXPECT_EQ(text.UseCount(), 11);
            ORXBasVector<ORXString> assigned;
            assigned = copy;
            EXPECT_EQ(text.UseCount(), 16);
        }
        EXPECT_EQ(text.UseCount(), 6);
        strings.resize(2);
        EXPECT_EQ(text.UseCount(), 3);
        strings.resize(4);
        EXPECT_TRUE(strings[3].IsNull());
        EXPECT_EQ(strings[1], "shared");
        ORXBasVector<ORXString> moved(static_cast<ORXBasVector<ORXString>&&>(strings));
        EXPECT_TRUE(strings.empty());
        EXPECT_EQ(text.UseCount(), 3);
    }
    EXPECT_EQ(text.UseCount(), 1);
}

TEST(ORXBasMap, NodesOfIntMapsHoldTheValueAt32In40Bytes)
{
    ORXBasNodeOffsets offsets = ORXBasMap<int, int>::NodeOffsets();
    EXPECT_EQ(offsets.m_valueOffset, 32);
    EXPECT_EQ(offsets.m_nodeSize, 40);
    ORXBasMap<int, int> map;
    auto it = map.Insert(3, 4);
    auto node = reinterpret_cast<char const*>(it.Node());
    EXPECT_EQ(reinterpret_cast<int const*>(node)[1], 32);
    EXPECT_EQ(reinterpret_cast<char const*>(&*it) - node, 32);
}

TEST(ORXBasMap, InsertKeepsExistingElementsAndIteratesInKeyOrder)
{
    ORXBasMap<int, int> map;
    EXPECT_EQ(map.begin(), map.end());
    auto first = map.insert(ORXBasPair<int const, int>(5, 50));
    EXPECT_TRUE(first.second);
    auto again = map.insert(ORXBasPair<int const, int>(5, 99));
    EXPECT_FALSE(again.second);
    EXPECT_EQ(again.first, first.first);
    EXPECT_EQ(again.first->second, 50);
    EXPECT_EQ(map.Insert(5, 77)->second, 50);

    // A pseudo-random order of many keys exercises every rebalancing case.
    std::srand(7);
    std::vector<bool> present(5000, false);
    present[5] = true;
    for (int i = 0; i < 20000; ++i)
    {
        int key = std::rand() % 5000;
        bool isNew = !present[key];
        present[key] = true;
        EXPECT_EQ(map.insert(ORXBasPair<int const, int>(key, key * 10)).second, isNew);
    }
    std::uint64_t expected = 0;
    for (bool p : present)
        expected += p;
    EXPECT_EQ(map.size(), expected);

    int previous = -1;
    std::uint64_t walked = 0;
    for (auto const& element : map)
    {
        EXPECT_LT(previous, element.first);
        EXPECT_EQ(element.second, element.first * 10);
        previous = element.first;
        ++walked;
    }
    EXPECT_EQ(walked, expected);
    for (int key = 0; key < 5000; ++key)
    {
        auto found = map.find(key);
        if (present[key])
            EXPECT_EQ(found->first, key);
        else
            EXPECT_EQ(found, map.end());
    }
    EXPECT_EQ(map.find(-3), map.end());
    EXPECT_EQ(map.find(5000), map.end());
}

TEST(ORXBasMap, CopiesAreDeepAndClearEmpties)
{
    ORXBasMap<int, ORXBasMap<int, double>> nested;
    nested.Insert(2, ORXBasMap<int, double>())->second.Insert(1, 1.5);
    nested.Insert(1, ORXBasMap<int, double>())->second.Insert(9, 9.5);
    nested.Insert(2, ORXBasMap<int, double>())->second.Insert(0, 0.5);

    ORXBasMap<int, ORXBasMap<int, double>> copy(nested);
    copy.find(2)->second.Insert(7, 7.5);
    EXPECT_EQ(nested.find(2)->second.size(), 2u);
    EXPECT_EQ(copy.find(2)->second.size(), 3u);
    EXPECT_EQ(copy.begin()->first, 1);
    EXPECT_EQ(copy.find(2)->second.begin()->second, 0.5);

    ORXBasMap<int, ORXBasMap<int, double>> assigned;
    assigned.Insert(4, ORXBasMap<int, double>());
    assigned = copy;
    EXPECT_EQ(assigned.size(), 2u);
    EXPECT_EQ(assigned.find(4), assigned.end());

    ORXBasMap<int, ORXBasMap<int, double>> moved(
        static_cast<ORXBasMap<int, ORXBasMap<int, double>>&&>(assigned));
    EXPECT_EQ(moved.size(), 2u);
    EXPECT_EQ(assigned.size(), 0u);
    EXPECT_EQ(assigned.begin(), assigned.end());
    assigned.Insert(1, ORXBasMap<int, double>()); // the emptied map is fully usable
    EXPECT_EQ(assigned.begin()->first, 1);
    int keys = 0;
    for (auto const& element : moved)
        keys += element.first;
    EXPECT_EQ(keys, 3);

    nested.clear();
    EXPECT_EQ(nested.size(), 0u);
    EXPECT_EQ(nested.begin(), nested.end());
    nested.Insert(3, ORXBasMap<int, double>());
    EXPECT_EQ(nested.begin()->first, 3);
}

TEST(ORXBasMap, StringKeysAndValuesReleaseTheirReferences)
{
    ORXString key("key");
    ORXString value("value");
    {
        ORXBasMap<ORXString, ORXString> map;
        map.Insert(key, value);
        map.Insert("b", "c");
        ORXBasMap<ORXString, ORXString> copy(map);
        EXPECT_EQ(key.UseCount(), 3);
        EXPECT_EQ(copy.find("key")->second, "value");
        EXPECT_EQ(copy.begin()->first, "b");
    }
    EXPECT_EQ(key.UseCount(), 1);
    EXPECT_EQ(value.UseCount(), 1);
}
