#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace
{
using IntTree = ORXSimBtree<int, int>;

// "(left key:depth right)", "." for an absent child: the whole shape with stored depths.
template <class Node> std::string Shape(Node const* node)
{
    if (!node)
        return ".";
    std::string shape("(");
    shape += Shape(node->Left());
    shape += ' ';
    shape += std::to_string(node->GetKey());
    shape += ':';
    shape += std::to_string(node->MaxDepth());
    shape += ' ';
    shape += Shape(node->Right());
    return shape += ")";
}

IntTree Build(std::vector<int> const& keys)
{
    IntTree tree;
    for (int key : keys)
        tree.Insert(key, key * 10, false);
    return tree;
}

// Keys in the order the iterator gives them, ascending or descending.
template <class Tree> std::vector<int> Walk(Tree const& tree, bool ascending)
{
    std::vector<int> keys;
    ORXSimBtreeIterator<int, int> it(tree);
    for (ascending ? it.First() : it.Last(); !it.IsDone(); ascending ? it.Next() : it.Previous())
    {
        EXPECT_EQ(it.CurrentValue(), it.CurrentKey() * 10);
        keys.push_back(it.CurrentKey());
    }
    return keys;
}
} // namespace

TEST(ORXSimBtree, InsertsRotateOnlyWhenTheRootSeesADifferenceOfTwo)
{
    std::pair<std::vector<int>, char const*> const cases[] = {
        // Ascending inserts rotate only at the fourth key.
        {{1, 2, 3}, "(. 1:2 (. 2:1 (. 3:0 .)))"},
        {{1, 2, 3, 4}, "((. 1:0 .) 2:2 (. 3:1 (. 4:0 .)))"},
        // 3, 1, 2 leaves the root with l = 1 and r = 0 after the last insert: no rotation at all.
        {{3, 1, 2}, "((. 1:1 (. 2:0 .)) 3:2 .)"},
        // The root sees r - l = 2 and rotates left although the right subtree is inner-heavy.
        {{50, 25, 75, 60, 90, 55}, "(((. 25:0 .) 50:2 ((. 55:0 .) 60:1 .)) 75:3 (. 90:0 .))"},
    };
    for (auto const& [keys, shape] : cases)
    {
        IntTree tree = Build(keys);
        EXPECT_EQ(Shape(tree.Root()), shape);
        EXPECT_EQ(tree.Size(), static_cast<int>(keys.size()));
    }
}

TEST(ORXSimBtree, EqualKeyKeepsSizeAndReportsFalse)
{
    ORXSimBtree<ORXString, int> tree;
    EXPECT_TRUE(tree.Insert("alpha", 1, false));
    EXPECT_FALSE(tree.Insert("alpha", 2, false));
    EXPECT_EQ(tree.Get("alpha"), 1);
    EXPECT_FALSE(tree.Insert("alpha", 3, true));
    EXPECT_EQ(tree.Get("alpha"), 3);
    EXPECT_EQ(tree.Size(), 1);
    tree.Get("alpha") = 4;
    EXPECT_EQ(*tree.Find("alpha"), 4);
    EXPECT_EQ(tree.Find("beta"), nullptr);
}

TEST(ORXSimBtree, StringKeysCompareAsUnsignedBytes)
{
    ORXSimBtree<ORXString, int> tree;
    for (char const* text : {"b", "\xc3\xa9", "", "a", "ab", "Z"})
        tree.Insert(text, 0, false);
    EXPECT_TRUE(tree.IsMember(ORXString()));
    std::vector<std::string> order;
    ORXSimBtreeIterator<ORXString, int> it(&tree);
    for (it.First(); !it.IsDone(); it.Next())
        order.push_back(it.CurrentKey().CStr());
    EXPECT_EQ(order, (std::vector<std::string>{"", "Z", "a", "ab", "b", "\xc3\xa9"}));
    EXPECT_EQ(ORXSimBtreeCompare(ORXString("b"), ORXString("a")), -1);
    EXPECT_EQ(ORXSimBtreeCompare(ORXString("a"), ORXString("a")), 0);
    EXPECT_EQ(ORXSimBtreeCompare(ORXString("a"), ORXString("\xff")), 1);
}

TEST(ORXSimBtree, RemoveOnlyMissingAndEmpty)
{
    IntTree empty;
    EXPECT_FALSE(empty.Remove(1));

    IntTree single = Build({7});
    EXPECT_TRUE(single.Remove(7));
    EXPECT_EQ(single.Root(), nullptr);
    EXPECT_EQ(single.Size(), 0);

    IntTree tree = Build({50, 25, 75, 60, 90, 55});
    std::string before = Shape(tree.Root());
    EXPECT_FALSE(tree.Remove(57));
    EXPECT_FALSE(tree.Remove(100));
    EXPECT_EQ(Shape(tree.Root()), before);
    EXPECT_EQ(tree.Size(), 6);
}

TEST(ORXSimBtree, ParentOfRemovedLeafKeepsItsStaleDepth)
{
    IntTree tree = Build({2, 1, 3, 4});
    EXPECT_EQ(Shape(tree.Root()), "((. 1:0 .) 2:2 (. 3:1 (. 4:0 .)))");
    EXPECT_TRUE(tree.Remove(4));
    EXPECT_EQ(Shape(tree.Root()), "((. 1:0 .) 2:2 (. 3:1 .))");
    // The stale depth counts at the next insert below 3: 3 sees l = 0, r = 0 and 2 recomputes.
    tree.Insert(5, 50, false);
    EXPECT_EQ(Shape(tree.Root()), "((. 1:0 .) 2:2 (. 3:1 (. 5:0 .)))");
}

TEST(ORXSimBtree, RemoveTakesLeftmostOfRightSubtree)
{
    IntTree tree = Build({50, 25, 75, 60, 90, 55});
    // 55 replaces 50: 60 gives up its left child, 55 takes 25 and 60.
    EXPECT_TRUE(tree.Remove(50));
    EXPECT_EQ(Shape(tree.Root()), "(((. 25:0 .) 55:1 (. 60:0 .)) 75:2 (. 90:0 .))");
    // Right child without a left child: it replaces the node and keeps its right subtree.
    EXPECT_TRUE(tree.Remove(55));
    EXPECT_EQ(Shape(tree.Root()), "(((. 25:0 .) 60:1 .) 75:2 (. 90:0 .))");
    // Removing the root with two children.
    EXPECT_TRUE(tree.Remove(75));
    EXPECT_EQ(Shape(tree.Root()), "(((. 25:0 .) 60:1 .) 90:2 .)");
    EXPECT_EQ(tree.Size(), 3);
}

TEST(ORXSimBtree, DeepReplacementRefreshesOnlyItsFormerParent)
{
    // Removing the root 32 pulls up 40, the leftmost node under 48 -> 43. 43 is recomputed; 48, in
    // between, keeps its stored depth of 2 although its subtree is now one level lower.
    IntTree tree = Build({9, 32, 48, 49, 16, 43, 13, 40});
    ASSERT_EQ(Shape(tree.Root()), "((. 9:2 ((. 13:0 .) 16:1 .)) 32:3 (((. 40:0 .) 43:1 .) 48:2 (. 49:0 .)))");
    EXPECT_TRUE(tree.Remove(32));
    EXPECT_EQ(Shape(tree.Root()), "((. 9:2 ((. 13:0 .) 16:1 .)) 40:3 ((. 43:0 .) 48:2 (. 49:0 .)))");
}

TEST(ORXSimBtree, CopyKeepsShapeAndIsIndependent)
{
    IntTree tree = Build({8, 3, 10, 1, 6, 14, 4, 7, 13});
    IntTree copy(tree);
    EXPECT_EQ(Shape(copy.Root()), Shape(tree.Root()));
    EXPECT_EQ(copy.Size(), tree.Size());
    copy.Remove(8);
    copy.Get(3) = 0;
    EXPECT_TRUE(tree.IsMember(8));
    EXPECT_EQ(tree.Get(3), 30);

    IntTree assigned;
    assigned = tree;
    EXPECT_EQ(Shape(assigned.Root()), Shape(tree.Root()));
    assigned.Swap(copy);
    EXPECT_EQ(copy.Size(), 9);
    EXPECT_EQ(assigned.Size(), 8);
    assigned.Clear();
    EXPECT_EQ(assigned.Root(), nullptr);
    EXPECT_EQ(assigned.Size(), 0);
}

TEST(ORXSimBtree, IteratorWalksBothWaysAndStopsOnEmptyTree)
{
    IntTree empty;
    ORXSimBtreeIterator<int, int> it(empty);
    EXPECT_TRUE(it.IsDone());
    it.First();
    EXPECT_TRUE(it.IsDone());
    it.Last();
    EXPECT_TRUE(it.IsDone());
    it.Pop();
    EXPECT_TRUE(it.IsDone());

    IntTree tree = Build({5, 2, 8, 1, 3, 9, 7, 4});
    EXPECT_EQ(Walk(tree, true), (std::vector<int>{1, 2, 3, 4, 5, 7, 8, 9}));
    EXPECT_EQ(Walk(tree, false), (std::vector<int>{9, 8, 7, 5, 4, 3, 2, 1}));
}

TEST(ORXSimBtree, RandomScriptAgreesWithOrderedMap)
{
    std::mt19937 random(42);
    std::uniform_int_distribution<int> key(0, 300);
    IntTree tree;
    std::map<int, int> reference;
    for (int step = 0; step < 5000; ++step)
    {
        int k = key(random);
        if (random() % 3 == 0)
            EXPECT_EQ(tree.Remove(k), reference.erase(k) == 1);
        else
            EXPECT_EQ(tree.Insert(k, k * 10, false), reference.emplace(k, k * 10).second);
        ASSERT_EQ(tree.Size(), static_cast<int>(reference.size()));
    }
    std::vector<int> keys;
    for (auto const& [k, v] : reference)
        keys.push_back(k);
    EXPECT_EQ(Walk(tree, true), keys);
    for (int k = 0; k <= 300; ++k)
        EXPECT_EQ(tree.IsMember(k), reference.count(k) == 1);
}
