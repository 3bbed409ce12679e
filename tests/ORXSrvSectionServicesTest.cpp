// Section services: which assignment covers a set of elements, one answer or the set split over all.
#include "ORXSrvShellDocument.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>

namespace
{
void ThrowOnFatal(char const* message, char const*, int)
{
    throw std::runtime_error(message);
}

// The split as (sorted members, index of the assignment or -1).
std::map<std::vector<int>, int> Split(ORXBasMap<ORXSimPosition, ORXSimPosition> const& split,
                                      std::vector<ORXSimPosition> const& assignments)
{
    std::map<std::vector<int>, int> result;
    for (auto const& [key, assignment] : split)
    {
        ORXSimCSet const set = key.CSet();
        std::vector<int> members(set.Size());
        set.Members(members.data());
        int index = -1;
        for (std::size_t i = 0; i < assignments.size(); ++i)
            if (ORXSimDynamicID::Equal(assignments[i], assignment))
                index = static_cast<int>(i);
        result[members] = index;
    }
    return result;
}
} // namespace

TEST(ORXSrvSectionServicesTest, FirstCoveringAssignmentWins)
{
    ORXSrvShellDocument d(10);
    ORXSimPosition const lower = d.ElementSet({0, 1, 2, 3});
    std::vector<ORXSimPosition> const assignments = {
        d.Assign(d.Section(0, 1), lower), d.Assign(d.Section(1, 1), d.ElementSet({2, 3, 4, 5})),
        d.Assign(d.Section(2, 1), d.ElementSet({2, 3})), // covered already by the first
    };

    EXPECT_TRUE(ORXSimDynamicID::Equal(ORXSrvSectionServices::GetSectionAssignment(lower), assignments[0]));
    EXPECT_TRUE(ORXSimDynamicID::Equal(ORXSrvSectionServices::GetSectionAssignment(d.ElementSet({4, 5})),
                                       assignments[1]));
    EXPECT_TRUE(ORXSimDynamicID::Equal(ORXSrvSectionServices::GetSectionAssignment(d.ElementSet({3})),
                                       assignments[0]));
    EXPECT_TRUE(ORXSrvSectionServices::GetSectionAssignment(d.ElementSet({1, 4})).IsNull())
        << "partial overlaps";
    EXPECT_TRUE(ORXSrvSectionServices::GetSectionAssignment(ORXSimPosition()).IsNull());
    // An empty set lies within the first assignment.
    EXPECT_TRUE(ORXSimDynamicID::Equal(ORXSrvSectionServices::GetSectionAssignment(d.ElementSet({})),
                                       assignments[0]));

    EXPECT_EQ(Split(ORXSrvSectionServices::GetSectionAssignments(d.ElementSet({1, 3, 4, 8, 9})), assignments),
              (std::map<std::vector<int>, int>{{{1, 3}, 0}, {{4}, 1}, {{8, 9}, -1}}));
    EXPECT_EQ(Split(ORXSrvSectionServices::GetSectionAssignments(d.ElementSet({2, 3})), assignments),
              (std::map<std::vector<int>, int>{{{2, 3}, 0}}));
    EXPECT_TRUE(ORXSrvSectionServices::GetSectionAssignments(d.ElementSet({})).empty());
    EXPECT_TRUE(ORXSrvSectionServices::GetSectionAssignments(ORXSimPosition()).empty());
}

TEST(ORXSrvSectionServicesTest, NoAssignmentsAndBrokenLinks)
{
    ORXSrvShellDocument d(4);
    EXPECT_TRUE(ORXSrvSectionServices::GetSectionAssignment(d.ElementSet({0})).IsNull());
    EXPECT_EQ(Split(ORXSrvSectionServices::GetSectionAssignments(d.ElementSet({0, 1})), {}),
              (std::map<std::vector<int>, int>{{{0, 1}, -1}}));

    // An assignment without a region, and one whose discrete region names no element set.
    ORXSimPosition const broken = d.doc.CreateDataRecord(ShellSchema(50, 48)).Pos();
    d.model.GetVector(ShellSchema(25, 26)).PushBack(broken);
    ORXSimFatalErrorHandler const previous = ORXSimUttAssert::SetFatalErrorHandler(ThrowOnFatal);
    try
    {
        ORXSrvSectionServices::GetSectionAssignment(d.ElementSet({0}));
        ADD_FAILURE() << "a null region must be reported";
    }
    catch (std::runtime_error const& e)
    {
        EXPECT_STREQ(e.what(), "AssertionFailed:!region.IsNull()");
    }
    ORXSrvShellDocument e(4);
    e.Assign(e.Section(0, 1), ORXSimPosition());
    try
    {
        ORXSrvSectionServices::GetSectionAssignments(e.ElementSet({0}));
        ADD_FAILURE() << "a null element set must be reported";
    }
    catch (std::runtime_error const& error)
    {
        EXPECT_STREQ(error.what(), "AssertionFailed:!elsetPos.IsNull()");
    }
    ORXSimUttAssert::SetFatalErrorHandler(previous);
}
