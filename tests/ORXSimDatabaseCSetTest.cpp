// Collections and CSets: kinds, orders, registration, twins and set algebra.
#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

namespace
{
int const kType = vds_CoreFragmentTypeIndex(23, 79);

std::vector<int> Ordered(ORXSimCSet const& set)
{
    std::vector<int> members(set.Size());
    set.OrderedMembers(members.data());
    return members;
}
std::vector<int> Ascending(ORXSimCSet const& set)
{
    std::vector<int> members(set.Size());
    set.Members(members.data());
    return members;
}

class CSets : public ::testing::Test
{
protected:
    void TearDown() override { doc.Close(); }
    ORXSimDatabase doc = ORXSimDatabase::CreateNew();
    ORXSimCollection nodes{doc.Focus().CreateTypedCollection(100, kType)};
};
} // namespace

TEST_F(CSets, SpaceGrowsByTotal)
{
    EXPECT_EQ(nodes.Space(), 100);
    nodes.ExtendSpace(150);
    EXPECT_EQ(nodes.Space(), 150);
    nodes.ExtendSpace(120);
    EXPECT_EQ(nodes.Space(), 150);
    EXPECT_THROW(nodes.CreateCSetStrided(140, 20, 1, 1), ORXSimDatabaseException);
    int const outside[] = {3, 150};
    EXPECT_THROW(nodes.CreateVolatileOrderedCSet(outside, 2), ORXSimDatabaseException);
}

TEST_F(CSets, StridedAndGivenMembers)
{
    ORXSimCSet run(nodes.CreateCSetStrided(5, 3, 1, 1));
    EXPECT_EQ(Ordered(run), (std::vector<int>{5, 6, 7}));
    EXPECT_TRUE(run.IsAscending());
    EXPECT_EQ(run.Bounds().first, 5);
    EXPECT_EQ(run.Bounds().second, 7);
    EXPECT_TRUE(ORXSimCSet(nodes.CreateCSetStrided(5, 0, 1, 1)).IsEmpty());

    int const given[] = {9, 2, 9, 4};
    ORXSimCSet ascending(nodes.CreateCSet(given, 4, false));
    EXPECT_EQ(Ordered(ascending), (std::vector<int>{2, 4, 9}));

    ORXSimCSet ordered = nodes.CreateVolatileOrderedCSet(given + 1, 3);
    EXPECT_FALSE(ordered.IsAscending());
    EXPECT_TRUE(ordered.ID().IsNull());
    EXPECT_EQ(ordered.CollectionID(), nodes.ID());
    EXPECT_EQ(Ordered(ordered), (std::vector<int>{2, 9, 4}));
    EXPECT_EQ(Ascending(ordered), (std::vector<int>{2, 4, 9}));
    EXPECT_EQ(ordered[1], 9);
    EXPECT_TRUE(ordered.SameMembers(ascending));

    std::vector<int> walked, locations;
    for (ORXSimCSetIterator it(ordered); !it.IsDone(); it.Next())
    {
        walked.push_back(it.CurrentValue());
        locations.push_back(it.CurrentLocation());
    }
    EXPECT_EQ(walked, (std::vector<int>{2, 9, 4}));
    EXPECT_EQ(locations, (std::vector<int>{0, 1, 2}));
}

TEST_F(CSets, LifetimesAndRegisteredTwins)
{
    int const members[] = {1, 3, 5};
    ORXSimCSet value = nodes.CreateVolatileCSet(members, 3, false);
    EXPECT_TRUE(nodes.SeekCSet(value, false).IsNull());
    ORXSimCSetID temp = nodes.CreateTempCSet(members, 3, false);
    EXPECT_FALSE(temp.IsNull());
    EXPECT_EQ(nodes.SeekCSet(value, false), temp);
    EXPECT_EQ(temp.CollectionID(), nodes.ID());

    int const reversed[] = {5, 3, 1};
    EXPECT_TRUE(nodes.SeekCSet(nodes.CreateVolatileOrderedCSet(reversed, 3), false).IsNull());
    EXPECT_EQ(nodes.SeekCSet(ORXSimCSet(nodes.ID()), false), nodes.EmptyCSetID());

    ORXSimCSet copy = value;
    ORXSimCSetID persistent = copy.RegisterWithCollection();
    EXPECT_FALSE(persistent.IsNull());
    EXPECT_NE(persistent, temp);
    EXPECT_EQ(Ordered(ORXSimCSet(persistent)), (std::vector<int>{1, 3, 5}));
    EXPECT_EQ(ORXSimCSet(copy.Pos()).ID(), persistent);
    EXPECT_EQ(copy.Pos().GetCSet(), persistent);
    EXPECT_TRUE(ORXSimCSetID::CanBeConverted(persistent));
    EXPECT_FALSE(ORXSimCSetID::CanBeConverted(nodes.ID()));

    ORXSimCSet ordered = nodes.CreateVolatileOrderedCSet(reversed, 3);
    ORXSimCSetID ascending = ordered.AscendingID();
    EXPECT_TRUE(ORXSimCSet(ascending).IsAscending());
    EXPECT_TRUE(ORXSimCSet(ascending).SameMembers(ordered));
}

TEST_F(CSets, AlgebraStartsFromTheEmptySetOfACollection)
{
    ORXSimCSet start(nodes.ID());
    ORXSimCSet x(nodes.CreateCSetStrided(10, 5, 1, 1));
    ORXSimCSet u = start.Union(x);
    EXPECT_EQ(start.Size(), 0);
    EXPECT_EQ(Ordered(u), Ordered(x));
    EXPECT_EQ(u.CollectionID(), nodes.ID());
    EXPECT_TRUE(u.ID().IsNull());

    ORXSimCSet y(nodes.CreateCSetStrided(12, 10, 1, 1));
    EXPECT_EQ(Ordered(x.Union(y)), Ordered(ORXSimCSet(nodes.CreateCSetStrided(10, 12, 1, 1))));
    EXPECT_EQ(Ordered(x.Intersection(y)), (std::vector<int>{12, 13, 14}));
    EXPECT_EQ(Ordered(x - y), (std::vector<int>{10, 11}));
    EXPECT_EQ(Ordered(y - x).size(), 7u);
    EXPECT_TRUE((x - x).IsEmpty());

    ORXSimCollection other(doc.Focus().CreateTypedCollection(10, kType));
    EXPECT_THROW(x.Union(ORXSimCSet(other.CreateCSetStrided(0, 2, 1, 1))), ORXSimDatabaseException);
}

TEST_F(CSets, AlgebraAgreesWithSortedVectors)
{
    std::mt19937 random(7);
    nodes.ExtendSpace(2000);
    for (int round = 0; round < 20; ++round)
    {
        auto draw = [&](int n, bool ordered)
        {
            std::vector<int> v(n);
            for (int& m : v)
                m = static_cast<int>(random() % 2000);
            if (round % 3 == 0 && n > 3)
            {
                std::iota(v.begin(), v.end(), static_cast<int>(random() % 500));
            }
            return ordered ? nodes.CreateVolatileOrderedCSet(v.data(), n)
                           : nodes.CreateVolatileCSet(v.data(), n, false);
        };
        ORXSimCSet a = draw(static_cast<int>(random() % 600), round % 2 == 0);
        ORXSimCSet b = draw(static_cast<int>(random() % 600), round % 4 == 1);
        std::vector<int> va = Ascending(a), vb = Ascending(b);
        va.erase(std::unique(va.begin(), va.end()), va.end());
        vb.erase(std::unique(vb.begin(), vb.end()), vb.end());
        std::vector<int> expected;
        std::set_union(va.begin(), va.end(), vb.begin(), vb.end(), std::back_inserter(expected));
        EXPECT_EQ(Ordered(a.Union(b)), expected);
        expected.clear();
        std::set_intersection(va.begin(), va.end(), vb.begin(), vb.end(), std::back_inserter(expected));
        EXPECT_EQ(Ordered(a.Intersection(b)), expected);
        expected.clear();
        std::set_difference(va.begin(), va.end(), vb.begin(), vb.end(), std::back_inserter(expected));
        EXPECT_EQ(Ordered(a - b), expected);
        EXPECT_TRUE(a.Union(b).IsAscending());
        EXPECT_EQ(a.SameMembers(b), va == vb);
        EXPECT_TRUE(a.SameMembers(a.Union(a)));
    }
    // Sets apart from each other join end to end, in either order, into a run where they meet.
    int const low[] = {1, 5, 9}, high[] = {20, 22}, next[] = {10, 11};
    ORXSimCSet l = nodes.CreateVolatileCSet(low, 3, false), h = nodes.CreateVolatileCSet(high, 2, false);
    EXPECT_EQ(Ordered(l.Union(h)), (std::vector<int>{1, 5, 9, 20, 22}));
    EXPECT_EQ(Ordered(h.Union(l)), (std::vector<int>{1, 5, 9, 20, 22}));
    ORXSimCSet joined =
        nodes.CreateVolatileCSet(next, 2, false).Union(ORXSimCSet(nodes.CreateCSetStrided(6, 4, 1, 1)));
    EXPECT_EQ(Ordered(joined), (std::vector<int>{6, 7, 8, 9, 10, 11}));
    EXPECT_TRUE(joined.IsAscending());
}

TEST_F(CSets, CompartmentPositions)
{
    ORXSimCollection locals(doc.Focus().CreateTypedCollection(8, kType));
    ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> ids(2, 0);
    ids.Get(0) = nodes.CreateCSetStrided(0, 4, 1, 1);
    ids.Get(1) = locals.CreateCSetStrided(0, 8, 1, 1);
    ORXSimCompartment compartment(ids);
    EXPECT_EQ(compartment.Size(), 2);
    EXPECT_EQ(compartment.Position(locals.ID()), 1);
    ORXSimCollection outside(doc.Focus().CreateTypedCollection(1, kType));
    EXPECT_LT(compartment.Position(outside.ID()), 0);
    EXPECT_EQ(compartment[1].Size(), 8);
}
