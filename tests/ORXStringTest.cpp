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
