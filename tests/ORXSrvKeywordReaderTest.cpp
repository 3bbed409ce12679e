#include "KeywordDeck.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{
// A deck whose keyword line the parser has just delivered, as a callback sees it.
struct ParsedKeywordLine
{
    explicit ParsedKeywordLine(std::string text) : deck(std::move(text)), parser(deck.Stream(), nullptr)
    {
        ORXString keyword;
        parser.ParseKeyword(keyword, parameters);
    }
    KeywordDeck deck;
    ORXSrvKeywordParser parser;
    KeywordParameters parameters;
};

// The reader of the data lines that follow such a keyword line.
class DataBlock : public ParsedKeywordLine, public ORXSrvKeywordDataReader
{
public:
    explicit DataBlock(std::string text) : ParsedKeywordLine(std::move(text)), ORXSrvKeywordDataReader(parser)
    {
    }
};

KeywordParameters Parameters(std::vector<char const*> const& texts)
{
    KeywordParameters parameters;
    for (char const* text : texts)
        parameters.PushBack(ORXString(text));
    return parameters;
}

std::vector<std::pair<int, int>> SuspectEntries(ORXSrvKeywordDataReader const& reader, int fromLine,
                                                int toLine)
{
    std::vector<std::pair<int, int>> entries;
    for (int line = fromLine; line <= toLine; ++line)
        if (reader.GetSuspectFields().IsMember(line))
            entries.emplace_back(line, reader.GetSuspectFields().ConstGet(line));
    return entries;
}

// The first field of every data line, read as an int.
std::vector<int> FirstInts(ORXSrvKeywordDataReader& reader, int fallback)
{
    std::vector<int> values;
    for (reader.First(); !reader.IsDone(); reader.Next())
        values.push_back(reader.ReadInt(fallback));
    return values;
}

// The keyword the parser delivers next.
std::string NextKeyword(ORXSrvKeywordParser& parser)
{
    ORXString keyword;
    KeywordParameters parameters;
    parser.ParseKeyword(keyword, parameters);
    return keyword.CStr();
}
} // namespace

// ---- Data lines and fields ----------------------------------------------------------------------

TEST(KeywordDataReader, EmptyFieldsAndMissingFieldsGiveTheDefault)
{
    DataBlock block("*Data\n1,,3\n1,2\n,\n\n");
    auto three = [&] { return std::vector<int>{block.ReadInt(7), block.ReadInt(7), block.ReadInt(7)}; };
    block.First();
    ASSERT_FALSE(block.IsDone());
    EXPECT_EQ(three(), (std::vector<int>{1, 7, 3}));
    block.Next();
    EXPECT_EQ(three(), (std::vector<int>{1, 2, 7}));
    block.Next();
    EXPECT_EQ(block.ReadDouble(2.5), 2.5);
    EXPECT_EQ(block.ReadDouble(2.5), 2.5);
    block.Next();
    ASSERT_FALSE(block.IsDone()); // a blank line is a data line
    EXPECT_EQ(block.ReadInt(4), 4);
    block.Next();
    EXPECT_TRUE(block.IsDone());
    EXPECT_TRUE(block.parser.IsEndOfFile());
}

TEST(KeywordDataReader, OverlongLinesAndCommentLines)
{
    // The first piece loses its trailing blanks, so its number is not suspect; the newline that
    // spills over is a blank data line of its own.
    DataBlock block("*Data\n7" + std::string(254, ' ') + "\n8 \n");
    EXPECT_EQ(FirstInts(block, 4), (std::vector<int>{7, 4, 8}));
    EXPECT_EQ(SuspectEntries(block, 0, 5), (std::vector<std::pair<int, int>>{{4, 0}}));

    DataBlock comments("*Data\n** first\n1\n**\n** more\n2\n");
    EXPECT_EQ(FirstInts(comments, 0), (std::vector<int>{1, 2}));
}

TEST(KeywordDataReader, UnparsableNumbersGiveZeroAndTrailingTextIsIgnored)
{
    DataBlock block("*Data\nabc,5, 12abc ,-2.5e1x, 4294967297\n");
    block.First();
    EXPECT_EQ(block.ReadInt(7), 0);
    EXPECT_EQ(block.ReadInt(7), 5);
    EXPECT_EQ(block.ReadInt(7), 12);
    EXPECT_EQ(block.ReadDouble(7.0), -25.0);
    EXPECT_EQ(block.ReadInt(7), 1); // low 32 bits
}

TEST(KeywordDataReader, StringsKeepBlanksQuotesAndTheNewline)
{
    DataBlock block("*Data\n\"a,b\",c\n x , \"open\n");
    block.First();
    EXPECT_STREQ(block.ReadString().CStr(), "\"a,b\"");
    EXPECT_STREQ(block.ReadString().CStr(), "c\n");
    EXPECT_STREQ(block.ReadString().CStr(), "");
    block.Next();
    EXPECT_STREQ(block.ReadString().CStr(), "x ");
    EXPECT_STREQ(block.ReadString().CStr(), " \"open\n");

    // "é" is two bytes; the field's byte count, taken as characters, keeps the comma after it.
    DataBlock wide("*Data\n\xc3\xa9,x\n");
    wide.First();
    EXPECT_STREQ(wide.ReadString().CStr(), "\xc3\xa9,");
    EXPECT_STREQ(wide.ReadString().CStr(), "x\n");
}

TEST(KeywordDataReader, KeywordLineEndsTheBlock)
{
    DataBlock block("*Data\n*Next, p\n");
    block.First();
    EXPECT_TRUE(block.IsDone());
    EXPECT_EQ(NextKeyword(block.parser), "*Next");

    // An indented keyword line is first seen as one more data line: the cursor stays two bytes into
    // the pushed-back text, which has moved to the buffer start.
    DataBlock indented("*Data\n1\n  *Next\n");
    std::vector<std::string> lines;
    for (indented.First(); !indented.IsDone(); indented.Next())
        lines.push_back(indented.ReadString().CStr());
    EXPECT_EQ(lines, (std::vector<std::string>{"1\n", "ext\n"}));
    EXPECT_FALSE(indented.parser.IsEndOfFile());
    EXPECT_EQ(NextKeyword(indented.parser), "*Next");
}

TEST(KeywordDataReader, ReadBeforeFirstIsReported)
{
    RecordedFatalErrors errors;
    DataBlock block("*Data\n1\n");
    EXPECT_EQ(block.ReadInt(3), 3);
    EXPECT_EQ(block.ReadDouble(1.5), 1.5);
    EXPECT_STREQ(block.ReadString().CStr(), "");
    ASSERT_EQ(errors.Reports().size(), 3u);
    for (auto const& report : errors.Reports())
    {
        EXPECT_EQ(report.message, "AssertionFailed:m_buffer != 0");
        EXPECT_EQ(report.file, "ORXSrvSimServices/ORXSrvKwd.m/src/ORXSrvKeywordDataReader");
    }
}

// ---- Suspect fields -----------------------------------------------------------------------------

TEST(KeywordDataReader, BlanksAfterNumbersAndUnclosedQuotesAreSuspect)
{
    // Reads every line as int, double, then a string or an int, and gives the suspect fields.
    auto suspects = [](std::string text, bool lastAsString)
    {
        DataBlock block("*Data\n" + text);
        for (block.First(); !block.IsDone(); block.Next())
        {
            block.ReadInt(0);
            block.ReadDouble(0.0);
            lastAsString ? (void)block.ReadString() : (void)block.ReadInt(0);
        }
        return SuspectEntries(block, -2, 10);
    };
    // Only blanks after a number and open quotes count; a closed quote and text after a number do not.
    EXPECT_EQ(suspects("1,2 ,3,\n"       // line 2: a blank after field 1
                       "4,5x,6\n"        // line 3: a string keeps the newline
                       "1,2,\"c\n"       // line 4: field 2 leaves its quote open
                       "** note\n"       // line 5
                       "7,8.5,\"q,r\"\n" // line 6
                       "10",             // line 7: last line, no newline
                       true),
              (std::vector<std::pair<int, int>>{{2, 1}, {4, 2}}));
    // The newline after the last number of a line counts as a blank.
    EXPECT_EQ(suspects("1,2 ,3,\n4,5x,6\n\"ab\",\"c\n** note\n7,8.5,9\n10", false),
              (std::vector<std::pair<int, int>>{{2, 1}, {3, 2}, {4, 1}, {6, 2}}));
}

TEST(KeywordDataReader, SuspectLinesCountOnFromTheParsersLineNumber)
{
    KeywordDeck deck("junk\n** comment\n*Data\n1 \n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    parser.SkipToNextKeyword();
    NextKeyword(parser);
    ASSERT_EQ(parser.LineNumber(), 3);
    ORXSrvKeywordDataReader reader(parser);
    FirstInts(reader, 0);
    EXPECT_EQ(SuspectEntries(reader, -2, 10), (std::vector<std::pair<int, int>>{{4, 0}}));

    // Pushed back four times, the count turns negative; such lines are kept apart from positive ones.
    KeywordDeck stashed("*Data\n5 \n");
    ORXSrvKeywordParser back(stashed.Stream(), nullptr);
    char const* line = back.Readline();
    for (int i = 0; i < 4; ++i)
        back.Buffer(line);
    NextKeyword(back);
    ASSERT_EQ(back.LineNumber(), -2);
    ORXSrvKeywordDataReader backReader(back);
    EXPECT_EQ(FirstInts(backReader, 0), (std::vector<int>{5}));
    EXPECT_EQ(SuspectEntries(backReader, -2, 2), (std::vector<std::pair<int, int>>{{-1, 0}}));
}

// ---- Parameter names and values -----------------------------------------------------------------

TEST(KeywordParameterReader, WalksEveryParameterAndStaysAtTheEnd)
{
    KeywordParameters parameters = Parameters({"a=1", "b"});
    char const* legal[] = {"a", "b", nullptr};
    ORXSrvKeywordParameterReader reader(parameters, legal);
    std::vector<std::string> keys;
    for (reader.First(); !reader.IsDone(); reader.Next())
        keys.push_back(reader.CurrentKey().CStr());
    EXPECT_EQ(keys, (std::vector<std::string>{"a", "b"}));
    reader.Next();
    EXPECT_TRUE(reader.IsDone());
    reader.First();
    EXPECT_FALSE(reader.IsDone());

    KeywordParameters none;
    ORXSrvKeywordParameterReader empty(none, legal);
    EXPECT_TRUE(empty.IsDone());
}

TEST(KeywordParameterReader, NamesResolveByExactMatchOrUniquePrefix)
{
    auto key = [](char const* parameter, std::vector<char const*> legal)
    {
        legal.push_back(nullptr);
        KeywordParameters parameters = Parameters({parameter});
        return std::string(ORXSrvKeywordParameterReader(parameters, legal.data()).CurrentKey().CStr());
    };
    EXPECT_EQ(key("OUT=5", {"output", "outline"}), "");
    EXPECT_EQ(key("OUT=5", {"output"}), "output");
    EXPECT_EQ(key("OUT=5", {"output", "out"}), "out");
    EXPECT_EQ(key("Name=\"X=1\"", {"name"}), "name");
    EXPECT_EQ(key("put", {"output"}), ""); // a prefix, not any substring
    EXPECT_EQ(key("outputs", {"output"}), "");
    EXPECT_EQ(key("x", {}), "");
    KeywordParameters parameters = Parameters({"x"});
    EXPECT_STREQ(ORXSrvKeywordParameterReader(parameters, nullptr).CurrentKey().CStr(), "");
}

TEST(KeywordParameterReader, ValuesFollowTheFirstEqualsSign)
{
    KeywordParameters parameters = Parameters({"n=42x", "d=-1.5e2", "name=\"A b=c\"", "flag", "e="});
    char const* legal[] = {"n", nullptr};
    struct Value
    {
        int asInt;
        double asDouble;
        char const* asString;
        char const* key; // only "n" is a legal name
    };
    Value const expected[] = {{42, 42.0, "42x", "n"},
                              {-1, -150.0, "-1.5e2", ""},
                              {0, 0.0, "\"A b=c\"", ""},
                              {0, 0.0, "", ""},
                              {0, 0.0, "", ""}};
    ORXSrvKeywordParameterReader reader(parameters, legal);
    reader.First();
    for (Value const& value : expected)
    {
        EXPECT_EQ(reader.CurrentValueAsInt(), value.asInt) << value.asString;
        EXPECT_EQ(reader.CurrentValueAsDouble(), value.asDouble) << value.asString;
        EXPECT_STREQ(reader.CurrentValueAsString().CStr(), value.asString);
        EXPECT_STREQ(reader.CurrentKey().CStr(), value.key);
        reader.Next();
    }
}
