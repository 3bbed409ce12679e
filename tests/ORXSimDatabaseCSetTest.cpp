// Collections and CSets: kinds, orders, registration, twins, set algebra and member maps.
#include "DocumentFixture.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>
#include <vector>

namespace
{
std::vector<int> Ascending(ORXSimCSet const& set)
{
    std::vector<int> members(set.Size());
    set.Members(members.data());
    return members;
}

class CSets : public DocumentFixture
{
protected:
    ORXSimCollection nodes = Collection(100);
};
} // namespace

TEST_F(CSets, SpaceGrowsByTotalAndBoundsMembers)
{
    nodes.ExtendSpace(150);
    EXPECT_EQ(nodes.Space(), 150);
    nodes.ExtendSpace(120);
    EXPECT_EQ(nodes.Space(), 150);
    EXPECT_THROW(nodes.CreateCSetStrided(140, 20, 1, 1), ORXSimDatabaseException);
    int const outside[] = {3, 150};
    EXPECT_THROW(nodes.CreateVolatileOrderedCSet(outside, 2), ORXSimDatabaseException);
}

TEST_F(CSets, EveryKindHoldsItsMembersInItsOrder)
{
    int const given[] = {9, 2, 9, 4};
    std::vector<int> const sorted{2, 4, 9};
    EXPECT_EQ(Members(ORXSimCSet(nodes.CreateCSet(given, 4, false))), sorted);
    EXPECT_EQ(Members(ORXSimCSet(nodes.CreateTempCSet(given, 4, false))), sorted);
    EXPECT_EQ(Members(nodes.CreateVolatileCSet(given, 4, false)), sorted);
    EXPECT_EQ(Members(ORXSimCSet(nodes.CreateCSetStrided(5, 3, 1, 1))), (std::vector<int>{5, 6, 7}));
    EXPECT_TRUE(ORXSimCSet(nodes.CreateCSetStrided(5, 0, 1, 1)).IsEmpty());
    EXPECT_EQ(Members(ORXSimCSet(nodes.CreateTempCSetStrided(0, 2, 1, 1))), (std::vector<int>{0, 1}));
    EXPECT_EQ(Members(nodes.CreateVolatileCSetStrided(1, 4, 1, 1)), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(ORXSimCSet(nodes.EmptyCSetID()).Size(), 0);
    EXPECT_FALSE(nodes.EmptyCSetID().IsNull());
    ORXSimCSet const run(nodes.CreateCSetStrided(5, 3, 1, 1));
    EXPECT_TRUE(run.IsAscending());
    EXPECT_EQ(run.Bounds().first, 5);
    EXPECT_EQ(run.Bounds().second, 7);

    ORXSimCSet const temp(nodes.CreateTempOrderedCSet(given + 1, 3));
    ORXSimCSet const ordered = nodes.CreateVolatileOrderedCSet(given + 1, 3);
    for (ORXSimCSet const& set : {temp, ordered})
    {
        EXPECT_FALSE(set.IsAscending());
        EXPECT_EQ(set.CollectionID(), nodes.ID());
        EXPECT_EQ(Members(set), (std::vector<int>{2, 9, 4}));
        EXPECT_EQ(Ascending(set), sorted);
        EXPECT_EQ(set[1], 9);
        EXPECT_EQ(set.Bounds().first, 2);
        EXPECT_TRUE(set.SameMembers(ORXSimCSet(nodes.CreateCSet(given, 4, false))));
    }
    EXPECT_TRUE(ordered.ID().IsNull());
    ORXSimCSetID const ascending = ordered.AscendingID();
    EXPECT_TRUE(ORXSimCSet(ascending).IsAscending());
    EXPECT_EQ(Members(ORXSimCSet(ascending)), sorted);

    std::vector<int> walked, locations;
    for (ORXSimCSetIterator it(ordered); !it.IsDone(); it.Next())
    {
        walked.push_back(it.CurrentValue());
        locations.push_back(it.CurrentLocation());
    }
    EXPECT_EQ(walked, (std::vector<int>{2, 9, 4}));
    EXPECT_EQ(locations, (std::vector<int>{0, 1, 2}));
    ORXSimCSetIterator again(ordered);
    again.First();
    EXPECT_EQ(again.CurrentValue(), 2);
}

TEST_F(CSets, RegistrationAndTwins)
{
    int const members[] = {1, 3, 5};
    ORXSimCSet value = nodes.CreateVolatileCSet(members, 3, false);
    // A volatile set's identity still names its collection yet is null.
    EXPECT_NE(value.ID().Category(), 0);
    EXPECT_TRUE(value.ID().IsNull());
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
    EXPECT_EQ(copy.ID(), persistent);
    EXPECT_EQ(Members(ORXSimCSet(persistent)), (std::vector<int>{1, 3, 5}));
    EXPECT_EQ(ORXSimCSet(copy.Pos()).ID(), persistent);
    EXPECT_EQ(copy.Pos().GetCSet(), persistent);
    EXPECT_EQ(copy.Pos().CSet().Size(), 3);
    EXPECT_TRUE(ORXSimCSetID::CanBeConverted(copy.Pos().ID()));
    EXPECT_EQ(ORXSimCSetID(copy.Pos().ID()), persistent);
    EXPECT_FALSE(ORXSimCSetID::CanBeConverted(nodes.ID()));
    ORXSimCSet other = nodes.CreateVolatileCSet(members, 1, false);
    EXPECT_FALSE(other.RegisterWithTempCollection().IsNull());
}

TEST_F(CSets, AlgebraStartsFromTheEmptySetOfACollection)
{
    ORXSimCSet start(nodes.ID());
    ORXSimCSet x(nodes.CreateCSetStrided(10, 5, 1, 1));
    ORXSimCSet u = start.Union(x);
    EXPECT_EQ(start.Size(), 0);
    EXPECT_EQ(Members(u), Members(x));
    EXPECT_EQ(u.CollectionID(), nodes.ID());
    EXPECT_TRUE(u.ID().IsNull());

    EXPECT_TRUE((x - x).IsEmpty());
    EXPECT_TRUE(x.Intersection(ORXSimCSet(nodes.CreateCSetStrided(20, 5, 1, 1))).IsEmpty());
    EXPECT_THROW(x.Union(ORXSimCSet(Collection(10).CreateCSetStrided(0, 2, 1, 1))), ORXSimDatabaseException);

    // Sets apart from each other join end to end, in either order, into a run where they meet.
    int const low[] = {1, 5, 9}, high[] = {20, 22}, next[] = {10, 11};
    ORXSimCSet l = nodes.CreateVolatileCSet(low, 3, false), h = nodes.CreateVolatileCSet(high, 2, false);
    EXPECT_EQ(Members(l.Union(h)), (std::vector<int>{1, 5, 9, 20, 22}));
    EXPECT_EQ(Members(h.Union(l)), (std::vector<int>{1, 5, 9, 20, 22}));
    ORXSimCSet joined =
        nodes.CreateVolatileCSet(next, 2, false).Union(ORXSimCSet(nodes.CreateCSetStrided(6, 4, 1, 1)));
    EXPECT_EQ(Members(joined), (std::vector<int>{6, 7, 8, 9, 10, 11}));
    EXPECT_TRUE(joined.IsAscending());
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
                std::iota(v.begin(), v.end(), static_cast<int>(random() % 500));
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
        EXPECT_EQ(Members(a.Union(b)), expected);
        expected.clear();
        std::set_intersection(va.begin(), va.end(), vb.begin(), vb.end(), std::back_inserter(expected));
        EXPECT_EQ(Members(a.Intersection(b)), expected);
        expected.clear();
        std::set_difference(va.begin(), va.end(), vb.begin(), vb.end(), std::back_inserter(expected));
        EXPECT_EQ(Members(a - b), expected);
        EXPECT_TRUE(a.Union(b).IsAscending());
        EXPECT_EQ(a.SameMembers(b), va == vb);
        EXPECT_TRUE(a.SameMembers(a.Union(a)));
    }
}

TEST_F(CSets, OrderedSetsKeepTheirOrderWhereverTheyAreSorted)
{
    // The sorted form is made once, by whichever copy asks first; copies made before and after it
    // agree, and the own order never changes. A descending run sorts into a run.
    int const given[] = {9, 2, 7, 2, 5};
    ORXSimCSet const ordered = nodes.CreateVolatileOrderedCSet(given, 5);
    ORXSimCSet const before = ordered;
    EXPECT_FALSE(before.IsAscending());
    EXPECT_EQ(Ascending(before), (std::vector<int>{2, 2, 5, 7, 9}));
    ORXSimCSet const after = ordered;
    EXPECT_EQ(Ascending(after), Ascending(ordered));
    EXPECT_EQ(Members(after), (std::vector<int>(given, given + 5)));
    EXPECT_EQ(after.Bounds().first, 2);
    EXPECT_EQ(after.Bounds().second, 9);
    EXPECT_TRUE(ordered.Contains(7));
    EXPECT_FALSE(ordered.Contains(3));

    int const descending[] = {8, 6, 4, 2};
    ORXSimCSet const run = nodes.CreateVolatileOrderedCSet(descending, 4);
    EXPECT_FALSE(run.IsAscending());
    EXPECT_EQ(Ascending(run), (std::vector<int>{2, 4, 6, 8}));
    EXPECT_TRUE(run.SameMembers(nodes.CreateVolatileCSetStrided(2, 4, 2)));
    EXPECT_EQ(ORXSimCSet(run.AscendingID()).Size(), 4);
}

TEST_F(CSets, OrderedSetsAnswerEveryQuestionAsTheirMembersDo)
{
    // Sets made in a given order of every shape, each question asked first in turn, so that each
    // one in turn is the one that finds the set unsorted; every answer is checked against the given
    // members, not against the set's own sorted form.
    std::mt19937 random(3);
    std::vector<int> shuffled(60);
    for (int& m : shuffled)
        m = static_cast<int>(random() % 80);
    std::vector<int> descending(40);
    for (int i = 0; i < 40; ++i)
        descending[i] = 90 - 2 * i - i % 3;
    std::vector<int> const shapes[] = {shuffled,
                                       descending,
                                       {97, 94, 91, 88, 85},      // a descending run
                                       {3, 4, 5, 6, 7},           // a run, given in order
                                       {2, 8, 9, 30},             // ascending, not a run
                                       {5, 5, 5},                 // one member, repeated
                                       {42},                      // a single member
                                       {},                        // empty
                                       {10, 11, 12, 10, 11, 12}}; // runs repeated
    std::vector<int> const otherMembers = {0, 5, 6, 7, 8, 40, 41, 42, 43, 88, 99};
    ORXSimCSet const other = nodes.CreateVolatileCSet(otherMembers.data(), 11, false);
    ORXSimCSet const run = nodes.CreateVolatileCSetStrided(4, 50);
    for (std::vector<int> const& given : shapes)
    {
        std::vector<int> sorted = given;
        std::sort(sorted.begin(), sorted.end());
        std::vector<int> unique = sorted;
        unique.erase(std::unique(unique.begin(), unique.end()), unique.end());
        auto algebra = [&](ORXSimCSet const& with, auto operation)
        {
            std::vector<int> members = Members(with), out;
            operation(unique.begin(), unique.end(), members.begin(), members.end(), std::back_inserter(out));
            return out;
        };
        auto merged = [](auto... args) { return std::set_union(args...); };
        auto common = [](auto... args) { return std::set_intersection(args...); };
        auto without = [](auto... args) { return std::set_difference(args...); };
        auto withoutThis = [](auto a, auto ae, auto b, auto be, auto out)
        { return std::set_difference(b, be, a, ae, out); };
        std::vector<int> contained;
        for (int m = -1; m <= 100; ++m)
            if (std::binary_search(unique.begin(), unique.end(), m))
                contained.push_back(m);

        typedef std::function<std::vector<int>(ORXSimCSet const&)> Question;
        std::vector<std::pair<Question, std::vector<int>>> const questions = {
            {[](ORXSimCSet const& s) { return Ascending(s); }, sorted},
            {[](ORXSimCSet const& s) { return Members(s); }, given},
            {[](ORXSimCSet const& s) {
                 return std::vector<int>{s.Bounds().first, s.Bounds().second};
             },
             given.empty() ? std::vector<int>{0, -1} : std::vector<int>{sorted.front(), sorted.back()}},
            {[](ORXSimCSet const& s)
             {
                 std::vector<int> found;
                 for (int m = -1; m <= 100; ++m)
                     if (s.Contains(m))
                         found.push_back(m);
                 return found;
             },
             contained},
            {[&](ORXSimCSet const& s) { return Members(s.Union(other)); }, algebra(other, merged)},
            {[&](ORXSimCSet const& s) { return Members(other.Union(s)); }, algebra(other, merged)},
            {[&](ORXSimCSet const& s) { return Members(s.Intersection(run)); }, algebra(run, common)},
            {[&](ORXSimCSet const& s) { return Members(s - other); }, algebra(other, without)},
            {[&](ORXSimCSet const& s) { return Members(run - s); }, algebra(run, withoutThis)},
            {[&](ORXSimCSet const& s) { return Members(s.Union(s)); }, unique},
            {[&](ORXSimCSet const& s)
             {
                 return std::vector<int>{s.SameMembers(nodes.CreateVolatileCSet(
                                             unique.data(), static_cast<int>(unique.size()), false)),
                                         s.SameMembers(other)};
             },
             std::vector<int>{1, unique == otherMembers}},
            {[&](ORXSimCSet const& s)
             { return given.empty() ? std::vector<int>{} : Members(ORXSimCSet(s.AscendingID())); },
             unique},
            {[](ORXSimCSet const& s)
             {
                 omi_BlkBitVect bits;
                 s.AsBitVector(bits);
                 std::vector<int> set;
                 for (int m = 0; m <= 100; ++m)
                     if (bits.GetBit(static_cast<unsigned>(m)))
                         set.push_back(m);
                 return set;
             },
             unique},
        };
        for (std::size_t first = 0; first < questions.size(); ++first)
        {
            SCOPED_TRACE(testing::Message() << given.size() << " members, question " << first << " first");
            ORXSimCSet const set =
                nodes.CreateVolatileOrderedCSet(given.data(), static_cast<int>(given.size()));
            ORXSimCSet const copyBefore = set;
            EXPECT_EQ(set.Size(), static_cast<int>(given.size()));
            EXPECT_EQ(set.IsAscending(), std::adjacent_find(given.begin(), given.end(),
                                                            std::greater_equal<int>()) == given.end());
            for (std::size_t k = 0; k < questions.size(); ++k)
            {
                auto const& [question, expected] = questions[(first + k) % questions.size()];
                EXPECT_EQ(question(set), expected) << "question " << (first + k) % questions.size();
            }
            ORXSimCSet const copyAfter = set;
            EXPECT_EQ(Ascending(copyBefore), sorted);
            EXPECT_EQ(Members(copyAfter), given);
        }
    }
}

TEST_F(CSets, MemberMapsAndBitVectors)
{
    ORXSimCollection elements = Collection(50);
    int const firstMembers[] = {7, 3, 9};
    int const secondMembers[] = {0, 1, 2};
    ORXSimCSet first = nodes.CreateVolatileOrderedCSet(firstMembers, 3);
    ORXBasSharedPtr<ORXSimCMemberMap> map =
        ORXSimCMemberMap::Create(first, elements.CreateVolatileOrderedCSet(secondMembers, 3));
    int const asked[] = {2, 0, 30};
    ORXSimCSet mapped = map->MapCSet(elements.CreateVolatileOrderedCSet(asked, 3));
    EXPECT_EQ(mapped.CollectionID(), nodes.ID());
    EXPECT_EQ(Members(mapped), (std::vector<int>{9, 7}));
    // An ascending first set pairs its members in ascending order.
    int const reordered[] = {4, 2, 3};
    ORXSimCSet const mappedAscending =
        ORXSimCMemberMap::Create(nodes.CreateVolatileCSet(secondMembers, 3, false),
                                 elements.CreateVolatileOrderedCSet(reordered, 3))
            ->MapCSet(elements.CreateVolatileCSet(reordered + 1, 2, false));
    EXPECT_TRUE(mappedAscending.SameMembers(nodes.CreateVolatileCSetStrided(1, 2, 1, 1)));

    omi_BlkBitVect bits;
    first.AsBitVector(bits);
    EXPECT_TRUE(bits.GetBit(3));
    EXPECT_TRUE(bits.GetBit(9));
    EXPECT_FALSE(bits.GetBit(4));

    ORXSimBtree<ORXSimDynamicID, int> chunkSizes;
    chunkSizes.Insert(m_document.Focus(), 100, false);
    EXPECT_TRUE(chunkSizes.IsMember(m_document.Focus()));
    EXPECT_FALSE(chunkSizes.IsMember(ORXSimDynamicID()));
}
