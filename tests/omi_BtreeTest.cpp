#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
// A key ordered through its member Compare, as the tree expects.
struct Key
{
    int number = 0;
    Key() = default;
    Key(int n) : number(n) {}
    int Compare(Key const& other) const
    {
        return number < other.number ? -1 : (number > other.number ? 1 : 0);
    }
};

using Tree = omi_Btree<Key, int>;

std::string Shape(omi_BtreeNode<Key, int> const* node)
{
    if (!node)
        return ".";
    std::string shape = "(";
    shape.append(Shape(node->Left())).append(" ").append(std::to_string(node->GetKey().number));
    shape.append(":").append(std::to_string(node->MaxDepth())).append(" ").append(Shape(node->Right()));
    return shape.append(")");
}

Tree Build(std::vector<int> const& keys)
{
    Tree tree;
    for (int key : keys)
        tree.Insert(key, key * 10);
    return tree;
}

omi_BlkBitVect Bits(std::vector<unsigned int> const& bits)
{
    omi_BlkBitVect vector;
    for (unsigned int bit : bits)
        vector.SetBit(bit);
    return vector;
}
} // namespace

TEST(omi_Btree, SameRotationsAsTheSimulationTreeAndEqualKeysChangeNothing)
{
    Tree tree = Build({1, 2, 3});
    EXPECT_EQ(Shape(tree.Root()), "(. 1:2 (. 2:1 (. 3:0 .)))");
    tree.Insert(4, 40);
    EXPECT_EQ(Shape(tree.Root()), "((. 1:0 .) 2:2 (. 3:1 (. 4:0 .)))");
    EXPECT_FALSE(tree.Insert(3, 99));
    EXPECT_EQ(tree.ConstGet(3), 30);
    EXPECT_EQ(tree.Size(), 4);
    EXPECT_EQ(&tree.ConstGet(5), &tree.GetNullValue());
    EXPECT_EQ(tree.GetNullValue(), 0);
}

TEST(omi_Btree, ParentDepthIsRecomputedWhenItsChildGoes)
{
    Tree tree = Build({2, 1, 3, 4});
    EXPECT_TRUE(tree.Remove(4));
    EXPECT_EQ(Shape(tree.Root()), "((. 1:0 .) 2:1 (. 3:0 .))");
    EXPECT_FALSE(tree.Remove(4));
    EXPECT_TRUE(tree.Remove(2));
    EXPECT_EQ(Shape(tree.Root()), "((. 1:0 .) 3:1 .)");
    EXPECT_TRUE(tree.Remove(3));
    EXPECT_TRUE(tree.Remove(1));
    EXPECT_EQ(tree.Root(), nullptr);
    EXPECT_EQ(tree.Size(), 0);
    EXPECT_FALSE(tree.Remove(1));
    EXPECT_FALSE(tree.IsMember(1));
}

TEST(omi_Btree, DeepReplacementRefreshesOnlyItsFormerParent)
{
    Tree tree = Build({9, 32, 48, 49, 16, 43, 13, 40});
    EXPECT_TRUE(tree.Remove(32));
    EXPECT_EQ(Shape(tree.Root()), "((. 9:2 ((. 13:0 .) 16:1 .)) 40:3 ((. 43:0 .) 48:2 (. 49:0 .)))");
}

TEST(omi_Btree, CopiesAreIndependentAndKeepTheShape)
{
    Tree tree = Build({8, 3, 10, 1, 6, 14, 4, 7, 13});
    Tree* copy = tree.Copy();
    EXPECT_EQ(Shape(copy->Root()), Shape(tree.Root()));
    EXPECT_EQ(copy->Size(), 9);
    copy->Remove(8);
    copy->Insert(100, 1);
    EXPECT_TRUE(tree.IsMember(8));
    EXPECT_FALSE(tree.IsMember(100));
    delete copy;

    Tree assigned = Build({1});
    assigned = tree;
    Tree const& same = assigned;
    assigned = same;
    EXPECT_EQ(Shape(assigned.Root()), Shape(tree.Root()));
    EXPECT_EQ(assigned.Size(), tree.Size());
}

TEST(omi_Btree, BitVectorKeysFindEqualPatterns)
{
    omi_Btree<omi_BlkBitVect, int> drawers;
    EXPECT_TRUE(drawers.Insert(Bits({0, 1}), 1));
    EXPECT_TRUE(drawers.Insert(Bits({2}), 2));
    EXPECT_TRUE(drawers.Insert(Bits({}), 3));
    EXPECT_TRUE(drawers.Insert(Bits({5000}), 4));
    EXPECT_FALSE(drawers.Insert(Bits({1, 0}), 5));
    EXPECT_EQ(drawers.ConstGet(Bits({1, 0})), 1);
    EXPECT_EQ(drawers.ConstGet(Bits({5000})), 4);
    EXPECT_EQ(drawers.ConstGet(Bits({3})), 0);
    EXPECT_TRUE(drawers.Remove(Bits({2})));
    EXPECT_FALSE(drawers.IsMember(Bits({2})));
    EXPECT_EQ(drawers.Size(), 3);
    EXPECT_EQ(&drawers.ConstGet(Bits({7})), &drawers.GetNullValue());

    // The layer drawer table gives the null identity.
    omi_Btree<omi_BlkBitVect, ORXSimDynamicID> ids;
    ORXSimDynamicID const& missing = ids.ConstGet(Bits({1}));
    EXPECT_EQ(&missing, &ids.GetNullValue());
    EXPECT_EQ(missing.Category(), 0);
    EXPECT_TRUE(missing.ContextID().IsNull());
    EXPECT_EQ(missing.Minor1().Value(), -1);
    EXPECT_EQ(missing.Minor2().Value(), -1);
    EXPECT_EQ(missing.TypeID().Value(), -1);
    EXPECT_EQ(omi_BtreeValue<ORXSimDynamicID>::NullValue(), missing);
}
