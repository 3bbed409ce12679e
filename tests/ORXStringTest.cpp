#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

TEST(ORXString, EmptyStringIsNullAndAscii)
{
    ORXString empty;
    EXPECT_TRUE(empty.IsNull());
    EXPECT_TRUE(empty.IsAscii());
    EXPECT_STREQ(empty.CStr(), "");
    EXPECT_EQ(empty.GetLengthInChar(), 0);
}

TEST(ORXSimArray, GrowsShrinksAndCopiesDeeply)
{
    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> names(2, 0);
    names.Get(0) = "alpha";
    names.Get(1) = "beta";
    auto copy = names;
    copy.Get(0) = "gamma";
    EXPECT_EQ(names[0], "alpha");
    EXPECT_EQ(names[1].UseCount(), 2);
    names.SetSize(1);
    EXPECT_EQ(copy[1].UseCount(), 1);
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> numbers(3, 0);
    EXPECT_EQ(numbers[2], 0);
    EXPECT_EQ(ORXSimArrayPointer(numbers), &numbers.Get(0));
}
