#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
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
    zeros.swap(filled);
    EXPECT_EQ(zeros.size(), 1000u);
    EXPECT_EQ(zeros[999], 2.5);
    EXPECT_EQ(filled.size(), 5u);
    EXPECT_EQ(filled[4], 0.0);
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
    std::set<int> reference{5};
    for (int i = 0; i < 20000; ++i)
    {
        int key = std::rand() % 5000;
        EXPECT_EQ(map.insert(ORXBasPair<int const, int>(key, key * 10)).second, reference.insert(key).second);
    }
    EXPECT_EQ(map.size(), reference.size());
    auto expectedKey = reference.begin();
    for (auto const& element : map)
    {
        ASSERT_NE(expectedKey, reference.end());
        EXPECT_EQ(element.first, *expectedKey++);
        EXPECT_EQ(element.second, element.first * 10);
    }
    EXPECT_EQ(expectedKey, reference.end());
    for (int key = -3; key <= 5000; ++key)
    {
        auto found = map.find(key);
        if (reference.count(key))
            EXPECT_EQ(found->first, key);
        else
            EXPECT_EQ(found, map.end());
    }
}

TEST(ORXBasMap, CopiesAreDeepAndMovedFromOrClearedMapsStayUsable)
{
    using Inner = ORXBasMap<int, double>;
    ORXBasMap<int, Inner> nested;
    nested.Insert(2, Inner())->second.Insert(1, 1.5);
    nested.Insert(1, Inner())->second.Insert(9, 9.5);
    nested.Insert(2, Inner())->second.Insert(0, 0.5);

    ORXBasMap<int, Inner> copy(nested);
    copy.find(2)->second.Insert(7, 7.5);
    EXPECT_EQ(nested.find(2)->second.size(), 2u);
    EXPECT_EQ(copy.find(2)->second.size(), 3u);
    EXPECT_EQ(copy.find(2)->second.begin()->second, 0.5);

    ORXBasMap<int, Inner> assigned;
    assigned.Insert(4, Inner());
    assigned = copy;
    EXPECT_EQ(assigned.size(), 2u);
    EXPECT_EQ(assigned.find(4), assigned.end());

    ORXBasMap<int, Inner> moved(static_cast<ORXBasMap<int, Inner>&&>(assigned));
    EXPECT_EQ(moved.size(), 2u);
    EXPECT_EQ(moved.begin()->first, 1);
    nested.clear();
    for (ORXBasMap<int, Inner>* emptied : {&assigned, &nested})
    {
        EXPECT_EQ(emptied->size(), 0u);
        EXPECT_EQ(emptied->begin(), emptied->end());
        emptied->Insert(3, Inner());
        EXPECT_EQ(emptied->begin()->first, 3);
    }
}

// Ascending keys take the short way past the greatest element; the map must still refuse a repeat
// of that element, place smaller keys by descent, and copy, swap and clear maps whose nodes fill
// many blocks.
TEST(ORXBasMap, AscendingInsertsRepeatsAndMapsOfManyBlocks)
{
    ORXBasMap<int, int> map;
    int const n = 5000;
    for (int key = 0; key < n; key += 2)
        EXPECT_TRUE(map.insert(ORXBasPair<int const, int>(key, key * 10)).second);
    EXPECT_FALSE(map.insert(ORXBasPair<int const, int>(n - 2, -1)).second);
    EXPECT_EQ(map.find(n - 2)->second, (n - 2) * 10);
    for (int key = 1; key < n; key += 2)
        map.Insert(key, key * 10);
    EXPECT_EQ(map.Insert(n, n * 10)->first, n);
    ASSERT_EQ(map.size(), static_cast<std::uint64_t>(n + 1));
    int expected = 0;
    for (auto const& [key, value] : map)
    {
        EXPECT_EQ(key, expected);
        EXPECT_EQ(value, expected * 10);
        ++expected;
    }
    EXPECT_EQ(expected, n + 1);

    ORXBasMap<int, int> copy(map);
    copy.Insert(n + 1, 0);
    copy.find(7)->second = -7;
    EXPECT_EQ(map.size(), static_cast<std::uint64_t>(n + 1));
    EXPECT_EQ(map.find(7)->second, 70);
    EXPECT_EQ(map.find(n + 1), map.end());

    ORXBasMap<int, int> other;
    other.Insert(-1, -1);
    other.swap(copy);
    EXPECT_EQ(copy.size(), 1u);
    EXPECT_EQ(copy.begin()->first, -1);
    EXPECT_EQ(other.find(7)->second, -7);
    // After the swap each map still finds its own greatest element.
    EXPECT_FALSE(other.insert(ORXBasPair<int const, int>(n + 1, 1)).second);
    EXPECT_TRUE(copy.insert(ORXBasPair<int const, int>(0, 0)).second);
    EXPECT_EQ(copy.begin()->first, -1);

    other.clear();
    EXPECT_EQ(other.begin(), other.end());
    other.Insert(3, 3);
    other.Insert(4, 4);
    other.Insert(1, 1);
    EXPECT_EQ(other.begin()->first, 1);
    EXPECT_EQ(other.size(), 3u);
}

TEST(ORXBasMap, ElementsOfEveryBlockAreDestroyed)
{
    ORXString value("shared");
    {
        ORXBasMap<int, ORXString> map;
        for (int key = 1000; key > 0; --key)
            map.Insert(key, value);
        EXPECT_EQ(value.UseCount(), 1001);
        map.clear();
        EXPECT_EQ(value.UseCount(), 1);
        for (int key = 0; key < 1000; ++key)
            map.Insert(key, value);
        ORXBasMap<int, ORXString> const copy(map);
        EXPECT_EQ(value.UseCount(), 2001);
    }
    EXPECT_EQ(value.UseCount(), 1);
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

namespace
{
// Counts live objects; a base with a virtual destructor, as shared holders of a base class need.
struct Tracked
{
    explicit Tracked(int* live) : m_live(live) { ++*m_live; }
    virtual ~Tracked() { --*m_live; }
    int* m_live;
};
struct Padding
{
    double m_extra[3] = {};
    virtual ~Padding() = default;
};
// Its Tracked part does not begin its block: releasing through a Tracked holder must still free
// the whole block.
struct TrackedDerived : Padding, Tracked
{
    explicit TrackedDerived(int* live) : Tracked(live) {}
};
} // namespace

TEST(ORXBasSharedPtr, LastStrongReleaseDestroysAndWeakHoldersKeepTheCounter)
{
    int live = 0;
    ORXBasWeakPtr<Tracked> watcher;
    {
        ORXBasSharedPtr<Tracked> first = ORXBasMakeShared<Tracked>(&live);
        ORXBasSharedPtr<Tracked> second(first);
        watcher = ORXBasWeakPtr<Tracked>(second);
        EXPECT_EQ(first.use_count(), 2);
        EXPECT_EQ(live, 1);
        first.Disconnect();
        EXPECT_FALSE(first);
        EXPECT_EQ(live, 1);
        EXPECT_FALSE(watcher.expired());
        ORXBasSharedPtr<Tracked> locked = watcher.lock();
        EXPECT_EQ(locked.get(), second.get());
        EXPECT_EQ(second.use_count(), 2);
    }
    // The object went with the last strong holder; the counter lives on for the watcher (the
    // sanitizer build checks that it is neither used after release nor leaked).
    EXPECT_EQ(live, 0);
    EXPECT_TRUE(watcher.expired());
    EXPECT_FALSE(watcher.lock());
    ORXBasWeakPtr<Tracked> copy(watcher);
    EXPECT_TRUE(copy.expired());
}

TEST(ORXBasSharedPtr, HoldersOfABaseReleaseTheWholeObject)
{
    int live = 0;
    {
        ORXBasSharedPtr<Tracked> base;
        {
            ORXBasSharedPtr<TrackedDerived> derived = ORXBasMakeShared<TrackedDerived>(&live);
            base = derived;
            EXPECT_EQ(base.use_count(), 2);
        }
        EXPECT_EQ(live, 1);
        ORXBasSharedPtr<Tracked> moved(static_cast<ORXBasSharedPtr<Tracked>&&>(base));
        EXPECT_EQ(moved.use_count(), 1);
        EXPECT_FALSE(base);
    }
    EXPECT_EQ(live, 0);

    void* block = mem_OperatorNewThrow(sizeof(Tracked));
    ORXBasSharedPtr<Tracked> placed(new (block, ORXBasPlacement()) Tracked(&live));
    EXPECT_EQ(live, 1);
    placed.reset();
    EXPECT_EQ(live, 0);
    ORXBasSharedPtr<Tracked> empty(nullptr);
    EXPECT_EQ(empty.use_count(), 0);

    int first = 1, second = 2;
    int* a = &first;
    int* b = &second;
    ORXBasSwap(a, b);
    EXPECT_EQ(*a, 2);
    EXPECT_EQ(*b, 1);
}

TEST(cow_String, SharesTextAndAssignsFromFixedStrings)
{
    cow_String empty;
    EXPECT_STREQ(empty.CStr(), "");
    EXPECT_EQ(empty.Length(), 0);
    cow_String text;
    text = omn_FixedString("fixed");
    cow_String copy(text);
    EXPECT_EQ(copy.CStr(), text.CStr());
    EXPECT_EQ(copy.Length(), 5);
    copy = omn_FixedString(nullptr);
    EXPECT_STREQ(copy.CStr(), "");
    EXPECT_STREQ(text.CStr(), "fixed");
    EXPECT_TRUE(text == cow_String("fixed"));
    EXPECT_FALSE(text == copy);
    copy = text;
    EXPECT_TRUE(copy == text);
}

namespace
{
struct CaptureSink : aio_ostreamSink
{
    void Write(char const* bytes, int count) override { text.append(bytes, static_cast<std::size_t>(count)); }
    void Flush() override { text += "|"; }
    std::string text;
};
} // namespace

TEST(aio_ostream, WritesTextNumbersAndLinesToTheSink)
{
    CaptureSink sink;
    aio_ostreamSink* previous = aio_cout.SetSink(&sink);
    aio_cout << "BeginAttempt " << 3 << endl;
    aio_cout.print("x").print_int(-7).put('y').print(nullptr).flush();
    EXPECT_EQ(aio_cout.SetSink(previous), &sink);
    EXPECT_EQ(sink.text, "BeginAttempt 3\n|x-7y|");
}
