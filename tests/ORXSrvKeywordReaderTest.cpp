#include "KeywordDeck.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{
// A parser that has just delivered the keyword line at the top of the deck, as a callback sees it.
class ParserAfterKeyword
{
public:
    explicit ParserAfterKeyword(std::string text)
        : m_deck(std::move(text)), m_parser(m_deck.Stream(), nullptr)
    {
        ORXString keyword;
        m_parser.ParseKeyword(keyword, m_parameters);
    }
    ORXSrvKeywordParser& Parser() { return m_parser; }

private:
    KeywordDeck m_deck;
    ORXSrvKeywordParser m_parser;
    KeywordParameters m_parameters;
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
} // namespace

// ---- Data lines and fields ----------------------------------------------------------------------

TEST(KeywordDataReader, EmptyFieldsAndMissingFieldsGiveTheDefault)
{
    ParserAfterKeyword deck("*Data\n1,,3\n1,2\n,\n\n");
    ORXSrvKeywordDataReader reader(deck.Parser());
    reader.First();
    ASSERT_FALSE(reader.IsDone());
    EXPECT_EQ(reader.ReadInt(7), 1);
    EXPECT_EQ(reader.ReadInt(7), 7);
    EXPECT_EQ(reader.ReadInt(7), 3);
    reader.Next();
    EXPECT_EQ(reader.ReadInt(7), 1);
    EXPECT_EQ(reader.ReadInt(7), 2);
    EXPECT_EQ(reader.ReadInt(7), 7);
    reader.Next();
    EXPECT_EQ(reader.ReadDouble(2.5), 2.5);
    EXPECT_EQ(reader.ReadDouble(2.5), 2.5);
    reader.Next();
    ASSERT_FALSE(reader.IsDone()); // a blank line is a data line
    EXPECT_EQ(reader.ReadInt(4), 4);
    reader.Next();
    EXPECT_TRUE(reader.IsDone());
    EXPECT_TRUE(deck.Parser().IsEndOfFile());
}

TEST(KeywordDataReader, OverlongLineGivesFurtherDataLines)
{
    // The first piece loses its trailing blanks, so its number is not suspect; the newline that
    // spills over is a blank data line of its own.
    ParserAfterKeyword deck("*Data\n7" + std::string(254, ' ') + "\n8 \n");
    ORXSrvKeywordDataReader reader(deck.Parser());
    std::vector<int> values;
    for (reader.First(); !reader.IsDone(); reader.Next())
        values.push_back(reader.ReadInt(4));
    EXPECT_EQ(values, (std::vector<int>{7, 4, 8}));
    EXPECT_EQ(SuspectEntries(reader, 0, 5), (std::vector<std::pair<int, int>>{{4, 0}}));
}

TEST(KeywordDataReader, UnparsableNumbersGiveZeroAndTrailingTextIsIgnored)
{
    ParserAfterKeyword deck("*Data\nabc,5, 12abc ,-2.5e1x, 4294967297\n");
    ORXSrvKeywordDataReader reader(deck.Parser());
    reader.First();
    EXPECT_EQ(reader.ReadInt(7), 0);
    EXPECT_EQ(reader.ReadInt(7), 5);
    EXPECT_EQ(reader.ReadInt(7), 12);
    EXPECT_EQ(reader.ReadDouble(7.0), -25.0);
    EXPECT_EQ(reader.ReadInt(7), 1); // low 32 bits
}

TEST(KeywordDataReader, StringsKeepBlanksQuotesAndTheNewline)
{
    ParserAfterKeyword deck("*Data\n\"a,b\",c\n x , \"open\n");
    ORXSrvKeywordDataReader reader(deck.Parser());
    reader.First();
    EXPECT_STREQ(reader.ReadString().CStr(), "\"a,b\"");
    EXPECT_STREQ(reader.ReadString().CStr(), "c\n");
    EXPECT_STREQ(reader.ReadString().CStr(), "");
    reader.Next();
    EXPECT_STREQ(reader.ReadString().CStr(), "x ");
    EXPECT_STREQ(reader.ReadString().CStr(), " \"open\n");
}

TEST(KeywordDataReader, StringCutCountsBytesAsCharacters)
{
    // "é" is two bytes; the field's byte count, taken as characters, keeps the comma after it.
    ParserAfterKeyword deck("*Data\n\xc3\xa9,x\n");
    ORXSrvKeywordDataReader reader(deck.Parser());
    reader.First();
    EXPECT_STREQ(reader.ReadString().CStr(), "\xc3\xa9,");
    EXPECT_STREQ(reader.ReadString().CStr(), "x\n");
}

TEST(KeywordDataReader, CommentLinesArePassedOver)
{
    ParserAfterKeyword deck("*Data\n** first\n1\n**\n** more\n2\n");
    ORXSrvKeywordDataReader reader(deck.Parser());
    std::vector<int> values;
    for (reader.First(); !reader.IsDone(); reader.Next())
        values.push_back(reader.ReadInt(0));
    EXPECT_EQ(values, (std::vector<int>{1, 2}));
}

TEST(KeywordDataReader, KeywordRightAfterTheKeywordLineEndsTheBlockAtOnce)
{
    ParserAfterKeyword deck("*Data\n*Next, p\n");
    ORXSrvKeywordDataReader reader(deck.Parser());
    reader.First();
    EXPECT_TRUE(reader.IsDone());
    ORXString keyword;
    KeywordParameters parameters;
    deck.Parser().ParseKeyword(keyword, parameters);
    EXPECT_STREQ(keyword.CStr(), "*Next");
}

TEST(KeywordDataReader, IndentedKeywordLineIsFirstSeenAsOneMoreDataLine)
{
    ParserAfterKeyword deck("*Data\n1\n  *Next\n");
    ORXSrvKeywordDataReader reader(deck.Parser());
    std::vector<std::string> lines;
    for (reader.First(); !reader.IsDone(); reader.Next())
        lines.push_back(reader.ReadString().CStr());
    // The cursor stays two bytes into the pushed-back text, which has moved to the buffer start.
    EXPECT_EQ(lines, (std::vector<std::string>{"1\n", "ext\n"}));
    EXPECT_FALSE(deck.Parser().IsEndOfFile());
    ORXString keyword;
    KeywordParameters parameters;
    deck.Parser().ParseKeyword(keyword, parameters);
    EXPECT_STREQ(keyword.CStr(), "*Next");
}

TEST(KeywordDataReader, ReadBeforeFirstIsReported)
{
    RecordedFatalErrors errors;
    ParserAfterKeyword deck("*Data\n1\n");
    ORXSrvKeywordDataReader reader(deck.Parser());
    EXPECT_EQ(reader.ReadInt(3), 3);
    EXPECT_EQ(reader.ReadDouble(1.5), 1.5);
    EXPECT_STREQ(reader.ReadString().CStr(), "");
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
    // Read as int, double, string: only blanks after a number and open quotes count.
    ParserAfterKeyword deck("*Data\n"         // line 1
                            "1,2 ,3,\n"       // line 2: a blank after field 1
                            "4,5x,6\n"        // line 3: text after a number; a string keeps the newline
                            "1,2,\"c\n"       // line 4: field 2 leaves its quote open
                            "** note\n"       // line 5
                            "7,8.5,\"q,r\"\n" // line 6: a closed quote
                            "10");            // line 7: last line, no newline
    ORXSrvKeywordDataReader reader(deck.Parser());
    for (reader.First(); !reader.IsDone(); reader.Next())
    {
        reader.ReadInt(0);
        reader.ReadDouble(0.0);
        reader.ReadString();
    }
    EXPECT_EQ(SuspectEntries(reader, -2, 10), (std::vector<std::pair<int, int>>{{2, 1}, {4, 2}}));

    // Read as int, double, int: the newline after the last number of a line counts as a blank.
    ParserAfterKeyword numbers("*Data\n1,2 ,3,\n4,5x,6\n\"ab\",\"c\n** note\n7,8.5,9\n10");
    ORXSrvKeywordDataReader numberReader(numbers.Parser());
    for (numberReader.First(); !numberReader.IsDone(); numberReader.Next())
    {
        numberReader.ReadInt(0);
        numberReader.ReadDouble(0.0);
        numberReader.ReadInt(0);
    }
    EXPECT_EQ(SuspectEntries(numberReader, -2, 10),
              (std::vector<std::pair<int, int>>{{2, 1}, {3, 2}, {4, 1}, {6, 2}}));
}

TEST(KeywordDataReader, LineNumbersContinueFromTheParsersCount)
{
    KeywordDeck deck("junk\n** comment\n*Data\n1 \n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    parser.SkipToNextKeyword();
    ORXString keyword;
    KeywordParameters parameters;
    parser.ParseKeyword(keyword, parameters);
    ASSERT_EQ(parser.LineNumber(), 3);
    ORXSrvKeywordDataReader reader(parser);
    reader.First();
    reader.ReadInt(0);
    EXPECT_EQ(SuspectEntries(reader, -2, 10), (std::vector<std::pair<int, int>>{{4, 0}}));
}

TEST(KeywordDataReader, NegativeLineNumbersAreKeptApartFromPositiveOnes)
{
    KeywordDeck deck("*Data\n5 \n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    char const* line = parser.Readline();
    for (int i = 0; i < 4; ++i)
        parser.Buffer(line);
    ORXString keyword;
    KeywordParameters parameters;
    parser.ParseKeyword(keyword, parameters);
    ASSERT_EQ(parser.LineNumber(), -2);
    ORXSrvKeywordDataReader reader(parser);
    reader.First();
    EXPECT_EQ(reader.ReadInt(0), 5);
    EXPECT_EQ(SuspectEntries(reader, -2, 2), (std::vector<std::pair<int, int>>{{-1, 0}}));
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
    ORXSrvKeywordParameterReader reader(parameters, legal);
    reader.First();
    EXPECT_EQ(reader.CurrentValueAsInt(), 42);
    EXPECT_EQ(reader.CurrentValueAsDouble(), 42.0);
    EXPECT_STREQ(reader.CurrentValueAsString().CStr(), "42x");
    reader.Next();
    EXPECT_EQ(reader.CurrentValueAsDouble(), -150.0);
    EXPECT_EQ(reader.CurrentValueAsInt(), -1);
    reader.Next();
    EXPECT_STREQ(reader.CurrentValueAsString().CStr(), "\"A b=c\"");
    EXPECT_EQ(reader.CurrentValueAsInt(), 0);
    reader.Next();
    EXPECT_EQ(reader.CurrentValueAsInt(), 0);
    EXPECT_EQ(reader.CurrentValueAsDouble(), 0.0);
    EXPECT_STREQ(reader.CurrentValueAsString().CStr(), "");
    EXPECT_STREQ(reader.CurrentKey().CStr(), "");
    reader.Next();
    EXPECT_STREQ(reader.CurrentValueAsString().CStr(), "");
    EXPECT_EQ(reader.CurrentValueAsInt(), 0);
}
