#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

TEST(ORXString, EmptyStringIsNullAndAscii)
{
    ORXString empty;
    EXPECT_TRUE(empty.IsNull());
    EXPECT_TRUE(empty.IsAscii());
    EXPECT_STREQ(empty.CStr(), "");
    EXPECT_EQ(empty.GetLengthInChar(), 0);
    EXPECT_EQ(empty.UseCount(), 0);
    ORXString fromNull(static_cast<char const*>(nullptr));
    EXPECT_TRUE(fromNull.IsNull());
    EXPECT_EQ(empty, fromNull);
    ORXString ascii("Abc");
    EXPECT_FALSE(ascii.IsNull());
    EXPECT_TRUE(ascii.IsAscii());
    EXPECT_EQ(ascii.Length(), 3);
    EXPECT_EQ(ascii.Compare("Abc"), 0);
    EXPECT_LT(ascii.Compare("Abd"), 0);
    EXPECT_TRUE("Abc" == ascii);
    EXPECT_TRUE(ascii != "abc");
}

TEST(ORXString, CopiesShareUntilChanged)
{
    ORXString original("Mixed Case");
    ORXString copy(original);
    EXPECT_EQ(original.UseCount(), 2);
    EXPECT_EQ(copy.CStr(), original.CStr());
    copy.ASCIIToLower();
    EXPECT_STREQ(copy.CStr(), "mixed case");
    EXPECT_STREQ(original.CStr(), "Mixed Case");
    EXPECT_EQ(original.UseCount(), 1);
    ORXString assigned;
    assigned = original;
    assigned.Append(ORXString("!"));
    EXPECT_EQ(original, "Mixed Case");
    EXPECT_EQ(assigned, "Mixed Case!");
    original = original.CStr() + 6; // assignment from its own bytes
    EXPECT_EQ(original, "Case");
}

TEST(ORXString, SearchCutAndReplace)
{
    ORXString name("\"Part-1\".Set-1");
    EXPECT_EQ(name.FindPosition("\"", 1), 7);
    EXPECT_EQ(name.FindPosition("Set", 0), 9);
    EXPECT_EQ(name.FindPosition("Set", 10), -1);
    EXPECT_EQ(name.FindPosition("missing", 0), -1);
    EXPECT_EQ(name.FindPosition("1", 99), -1);
    EXPECT_EQ(name.SubString(1, 6), "Part-1");
    EXPECT_EQ(name.SubString(8, 100), ".Set-1");
    EXPECT_TRUE(name.SubString(1, -2).IsNull());
    EXPECT_TRUE(name.SubString(40, 2).IsNull());
    EXPECT_EQ(name.SubString(0, 2147483647), name);

    ORXString keyword("*Heading");
    keyword.ASCIIToLower().Remove(0, 1);
    EXPECT_EQ(keyword, "heading");
    keyword.Remove(4, 1000);
    EXPECT_EQ(keyword, "head");
    keyword.Remove(-1, 2).Remove(1, 0);
    EXPECT_EQ(keyword, "head");

    ORXString scoped("Model.Part.Set");
    scoped.ReplaceAll(".", "_");
    EXPECT_EQ(scoped, "Model_Part_Set");
    scoped.ReplaceAll("_", "__");
    EXPECT_EQ(scoped, "Model__Part__Set");
    scoped.ReplaceAll("absent", "x").ReplaceAll("", "x");
    EXPECT_EQ(scoped, "Model__Part__Set");

    ORXString label = ORXString("Field_") + "1";
    EXPECT_EQ(label.SubString(0, 6), "Field_");
    EXPECT_EQ("x" + label + ORXString("y"), "xField_1y");
    label += 23;
    label += "!";
    EXPECT_EQ(label, "Field_123!");
}

TEST(ORXString, NumbersThroughFormats)
{
    ORXString text;
    EXPECT_EQ(text.BuildFromNum(-42, "%d"), ORXString::Success);
    EXPECT_EQ(text, "-42");
    int value = 0;
    EXPECT_NE(ORXString("7").ConvertToNum(&value, "%d"), ORXString::Failure);
    EXPECT_EQ(value, 7);
    EXPECT_EQ(ORXString("x").ConvertToNum(&value, "%d"), ORXString::Failure);
    EXPECT_EQ(ORXString().ConvertToNum(&value, "%d"), ORXString::Failure);
    EXPECT_EQ(value, 7);
}

TEST(ORXString, PositionsCountCharactersInUtf8)
{
    // "Ä" and "€" are two and three bytes long.
    ORXString text("A\xC3\x84"
                   "B\xE2\x82\xAC\"C");
    EXPECT_FALSE(text.IsAscii());
    EXPECT_EQ(text.GetLengthInByte(), 9);
    EXPECT_EQ(text.GetLengthInChar(), 6);
    EXPECT_EQ(text.FindPosition("B", 0), 2);
    EXPECT_EQ(text.FindPosition("\"", 3), 4);
    EXPECT_EQ(text.FindPosition("\xE2\x82\xAC", 0), 3);
    EXPECT_EQ(text[1].CodePoint(), 0xC4u);
    EXPECT_EQ(text[3].CodePoint(), 0x20ACu);
    EXPECT_EQ(text[4], '"');
    EXPECT_EQ(text.SubString(1, 3), "\xC3\x84"
                                    "B\xE2\x82\xAC");
    ORXString removed(text);
    removed.Remove(1, 2);
    EXPECT_EQ(removed, "A\xE2\x82\xAC\"C");
    EXPECT_EQ(text.GetLengthInChar(), 6);
    // A character whose code point ends in the byte of '"' (U+0122) is no quote.
    EXPECT_NE(ORXString("\xC4\xA2")[0], '"');
    EXPECT_EQ(ORXString("\xC4\x81\xC3\x84").ASCIIToLower(), "\xC4\x81\xC3\x84");
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
