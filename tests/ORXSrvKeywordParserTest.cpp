#include "KeywordDeck.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
char const* const kParserPath = "ORXSrvSimServices/ORXSrvKwd.m/src/ORXSrvKeywordParser";

// What the recording callbacks saw, in call order.
struct CallLog
{
    std::vector<std::string> callbacks;
    std::vector<std::string> keywords;
    std::vector<std::vector<std::string>> parameters;
};

void Record(char const* name, ORXString const& keyword, KeywordParameters const& parameters, void* userData)
{
    auto& log = *static_cast<CallLog*>(userData);
    log.callbacks.push_back(name);
    log.keywords.push_back(keyword.CStr());
    log.parameters.push_back(ToStrings(parameters));
}

void NodeCallback(ORXString const& keyword, KeywordParameters const& parameters, ORXSrvKeywordParser& parser,
                  void* userData)
{
    Record("node", keyword, parameters, userData);
    parser.SkipToNextKeyword();
}

void OtherCallback(ORXString const& keyword, KeywordParameters const& parameters, ORXSrvKeywordParser& parser,
                   void* userData)
{
    Record("other", keyword, parameters, userData);
    parser.SkipToNextKeyword();
}

void SilentCallback(ORXString const& keyword, KeywordParameters const& parameters, ORXSrvKeywordParser&,
                    void* userData)
{
    Record("silent", keyword, parameters, userData);
}

void UnknownCallback(ORXString const& keyword, KeywordParameters const& parameters,
                     ORXSrvKeywordParser& parser, void* userData)
{
    Record("unknown", keyword, parameters, userData);
    parser.SkipToNextKeyword();
}

void AmbiguousCallback(ORXString const& keyword, KeywordParameters const& parameters,
                       ORXSrvKeywordParser& parser, void* userData)
{
    Record("ambiguous", keyword, parameters, userData);
    parser.SkipToNextKeyword();
}

// The keyword and parameters of the first keyword line of a deck.
struct ParsedLine
{
    std::string keyword;
    std::vector<std::string> parameters;
};

ParsedLine ParseFirstKeyword(std::string text)
{
    KeywordDeck deck(std::move(text));
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    ORXString keyword;
    KeywordParameters parameters;
    parser.ParseKeyword(keyword, parameters);
    return {keyword.CStr(), ToStrings(parameters)};
}
} // namespace

// ---- Line reading -------------------------------------------------------------------------------

TEST(KeywordParserReadline, TrimsLeadingBlanksAndKeepsTheNewlineWithBlanksBeforeIt)
{
    KeywordDeck deck(" \t\r ab  \n   \n\n  last \t");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    EXPECT_STREQ(parser.Readline(), "ab  \n");
    EXPECT_STREQ(parser.Readline(), "\n");
    EXPECT_STREQ(parser.Readline(), "\n");
    // A last line without newline loses its trailing blanks, and the end is noticed only afterwards.
    EXPECT_STREQ(parser.Readline(), "last");
    EXPECT_FALSE(parser.IsEndOfFile());
    EXPECT_STREQ(parser.Readline(), "");
    EXPECT_TRUE(parser.IsEndOfFile());
    EXPECT_STREQ(parser.Readline(), "");
    EXPECT_EQ(parser.LineNumber(), 6);
}

TEST(KeywordParserReadline, CarriageReturnBeforeNewlineIsKept)
{
    KeywordDeck deck("abc\r\n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    EXPECT_STREQ(parser.Readline(), "abc\r\n");
}

TEST(KeywordParserReadline, OverlongLineArrivesInPiecesOf255Bytes)
{
    KeywordDeck deck(std::string(300, 'x') + "\nnext\n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    EXPECT_EQ(std::string(parser.Readline()), std::string(255, 'x'));
    EXPECT_EQ(std::string(parser.Readline()), std::string(45, 'x') + "\n");
    EXPECT_EQ(parser.LineNumber(), 2);
    EXPECT_STREQ(parser.Readline(), "next\n");
}

TEST(KeywordParserReadline, LinesOf255And256BytesSpillTheirEndIntoAnotherLine)
{
    KeywordDeck deck(std::string(255, 'y') + "\n" + std::string(256, 'z') + "\n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    EXPECT_EQ(std::string(parser.Readline()), std::string(255, 'y'));
    EXPECT_STREQ(parser.Readline(), "\n");
    EXPECT_EQ(std::string(parser.Readline()), std::string(255, 'z'));
    EXPECT_STREQ(parser.Readline(), "z\n");
    EXPECT_FALSE(parser.IsEndOfFile());
    EXPECT_STREQ(parser.Readline(), "");
    EXPECT_TRUE(parser.IsEndOfFile());
    EXPECT_EQ(parser.LineNumber(), 5);
}

TEST(KeywordParserReadline, PieceOfOverlongLineLosesItsTrailingBlanks)
{
    KeywordDeck deck(std::string(250, 'a') + std::string(10, ' ') + "b\n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    EXPECT_EQ(std::string(parser.Readline()), std::string(250, 'a'));
    EXPECT_STREQ(parser.Readline(), "b\n");
}

TEST(KeywordParserReadline, LineStartingWithNulByteIsEmptyButNotTheEnd)
{
    KeywordDeck deck(std::string("\0abc\nx\n", 7));
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    EXPECT_STREQ(parser.Readline(), "");
    EXPECT_FALSE(parser.IsEndOfFile());
    EXPECT_STREQ(parser.Readline(), "x\n");
}

TEST(KeywordParserReadline, StreamErrorEndsTheInputLikeTheEnd)
{
    char text[16] = "";
    FILE* writeOnly = fmemopen(text, sizeof text, "w");
    ORXSrvKeywordParser parser(writeOnly, nullptr);
    EXPECT_STREQ(parser.Readline(), "");
    EXPECT_TRUE(parser.IsEndOfFile());
    std::fclose(writeOnly);
}

TEST(KeywordParserReadline, ClassifiesKeywordAndCommentLines)
{
    KeywordDeck deck("");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    EXPECT_TRUE(parser.IsKeyword("*NODE\n"));
    EXPECT_TRUE(parser.IsKeyword(" \t* heading"));
    EXPECT_FALSE(parser.IsKeyword("*1abc"));
    EXPECT_FALSE(parser.IsKeyword("**abc"));
    EXPECT_FALSE(parser.IsKeyword("*"));
    EXPECT_FALSE(parser.IsKeyword("*\n"));
    EXPECT_FALSE(parser.IsKeyword("1, 2"));
    EXPECT_TRUE(parser.IsComment("**"));
    EXPECT_TRUE(parser.IsComment("** note"));
    EXPECT_FALSE(parser.IsComment("*"));
    EXPECT_FALSE(parser.IsComment(" **"));
}

// ---- Push-back ----------------------------------------------------------------------------------

TEST(KeywordParserPushBack, StashedLineComesBackUntrimmedAtTheBufferStart)
{
    KeywordDeck deck("  *Node, a\nnext\n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    char const* line = parser.Readline();
    ASSERT_STREQ(line, "*Node, a\n");
    parser.Buffer(line);
    EXPECT_EQ(parser.LineNumber(), 0);
    char const* again = parser.Readline();
    EXPECT_STREQ(again, "*Node, a\n");
    EXPECT_EQ(parser.LineNumber(), 1);
    EXPECT_STREQ(parser.Readline(), "next\n");
}

TEST(KeywordParserPushBack, SameTextTwiceCountsTwiceAndDifferentTextIsReported)
{
    RecordedFatalErrors errors;
    KeywordDeck deck("one\ntwo\n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    char const* line = parser.Readline();
    parser.Buffer(line);
    parser.Buffer(line);
    EXPECT_EQ(parser.LineNumber(), -1);
    EXPECT_TRUE(errors.Reports().empty());

    parser.Buffer("other\n");
    ASSERT_EQ(errors.Reports().size(), 1u);
    EXPECT_EQ(errors.Reports()[0].message, "AssertionFailed:!strcmp(stash, m_buffer)");
    EXPECT_EQ(errors.Reports()[0].file, kParserPath);
}

TEST(KeywordParserPushBack, StashedLineIsDeliveredAfterTheEnd)
{
    KeywordDeck deck("*last");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    std::string last = parser.Readline();
    EXPECT_STREQ(parser.Readline(), "");
    ASSERT_TRUE(parser.IsEndOfFile());
    parser.Buffer(last.c_str());
    EXPECT_STREQ(parser.Readline(), "*last");
    EXPECT_TRUE(parser.IsEndOfFile());
}

TEST(KeywordParserPushBack, SkipToNextKeywordPassesCommentsAndDataAndStashesTheKeyword)
{
    KeywordDeck deck("1, 2\n** note\n*1abc\n   *Elset, elset=e\n3\n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    parser.SkipToNextKeyword();
    EXPECT_FALSE(parser.IsEndOfFile());
    EXPECT_EQ(parser.LineNumber(), 3);
    EXPECT_STREQ(parser.Readline(), "*Elset, elset=e\n");
    parser.SkipToNextKeyword();
    EXPECT_TRUE(parser.IsEndOfFile());
}

// ---- Parameter splitting and continuation -------------------------------------------------------

TEST(KeywordParserParameters, QuotesProtectCommasAndBlanksAndStayInTheToken)
{
    ParsedLine line = ParseFirstKeyword("*Step, name=\"a, b\"\n");
    EXPECT_EQ(line.keyword, "*Step");
    EXPECT_EQ(line.parameters, (std::vector<std::string>{"name=\"a, b\""}));
}

TEST(KeywordParserParameters, BlanksOutsideQuotesAreRemovedEverywhere)
{
    ParsedLine line = ParseFirstKeyword("  * NODE OUTPUT , a b = c ,\tflag\r\n");
    EXPECT_EQ(line.keyword, "*NODEOUTPUT");
    EXPECT_EQ(line.parameters, (std::vector<std::string>{"ab=c", "flag"}));
}

TEST(KeywordParserParameters, LineWithoutCommasLeavesTheParametersAsTheyWere)
{
    KeywordDeck deck("*Heading\n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    ORXString keyword;
    KeywordParameters parameters;
    parameters.SetSize(1);
    parameters.Get(0) = "kept";
    parser.ParseKeyword(keyword, parameters);
    EXPECT_STREQ(keyword.CStr(), "*Heading");
    EXPECT_EQ(ToStrings(parameters), (std::vector<std::string>{"kept"}));
}

TEST(KeywordParserParameters, TrailingCommaContinuesOnTheNextLine)
{
    ParsedLine line = ParseFirstKeyword("*KEY, a,\nx=1, y\n*NEXT\n");
    EXPECT_EQ(line.parameters, (std::vector<std::string>{"a", "x=1", "y"}));
}

TEST(KeywordParserParameters, EmptyParameterInTheMiddleDropsTheRestOfTheLine)
{
    ParsedLine line = ParseFirstKeyword("*KEY, a,,b\nc\n");
    EXPECT_EQ(line.parameters, (std::vector<std::string>{"a", "c"}));
}

TEST(KeywordParserParameters, ContinuationLineIsNeverClassified)
{
    EXPECT_EQ(ParseFirstKeyword("*KEY,\n** note\n").parameters, (std::vector<std::string>{"**note"}));
    EXPECT_EQ(ParseFirstKeyword("*KEY,\n*Other, p\n").parameters, (std::vector<std::string>{"*Other", "p"}));
}

TEST(KeywordParserParameters, EmptyContinuationEndsWithAnEmptyParameter)
{
    EXPECT_EQ(ParseFirstKeyword("*KEY,").parameters, (std::vector<std::string>{""}));
    EXPECT_EQ(ParseFirstKeyword("*KEY, a,\n\nb\n").parameters, (std::vector<std::string>{"a", ""}));
    // A quoted empty string is not empty: no continuation.
    EXPECT_EQ(ParseFirstKeyword("*KEY, \"\"\nb\n").parameters, (std::vector<std::string>{"\"\""}));
}

TEST(KeywordParserParameters, UnterminatedQuoteSwallowsTheRestOfTheLine)
{
    ParsedLine line = ParseFirstKeyword("*KEY, a=\"x, y\n");
    EXPECT_EQ(line.parameters, (std::vector<std::string>{"a=\"x, y\n"}));
}

TEST(KeywordParserParameters, ParseParameterAtOrPastTheEndGivesAnEmptyFinalToken)
{
    KeywordDeck deck("");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    ORXString token("old");
    int position = 10;
    EXPECT_TRUE(parser.ParseParameter("a,b", position, token));
    EXPECT_STREQ(token.CStr(), "");
    position = 0;
    EXPECT_FALSE(parser.ParseParameter("a,b", position, token));
    EXPECT_EQ(position, 2);
    EXPECT_TRUE(parser.ParseParameter("a,b", position, token));
    EXPECT_STREQ(token.CStr(), "b");
}

TEST(KeywordParserParameters, TokenOfBufferSizeIsReported)
{
    RecordedFatalErrors errors;
    KeywordDeck deck("");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    std::string line(300, 'p');
    ORXString token;
    int position = 0;
    EXPECT_TRUE(parser.ParseParameter(line.c_str(), position, token));
    EXPECT_EQ(RecordedFatalErrors::Messages(),
              (std::vector<std::string>{"AssertionFailed:nchar < PARSER_BUFFER"}));

    errors.Reports().clear();
    position = 0;
    parser.ParseParameter(std::string(256, 'p').c_str(), position, token);
    EXPECT_TRUE(errors.Reports().empty());
    EXPECT_EQ(token.GetLengthInByte(), 256);
}

TEST(KeywordParserParameters, DataLineWhereAKeywordIsExpectedIsReported)
{
    RecordedFatalErrors errors;
    KeywordDeck deck("1, 2\n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    ORXString keyword;
    KeywordParameters parameters;
    parser.ParseKeyword(keyword, parameters);
    ASSERT_EQ(errors.Reports().size(), 1u);
    EXPECT_EQ(errors.Reports()[0].message, "AssertionFailed:IsKeyword(data)");
    EXPECT_EQ(errors.Reports()[0].file, kParserPath);
}

// ---- Keyword resolution -------------------------------------------------------------------------

class KeywordParserLookup : public ::testing::Test
{
protected:
    KeywordParserLookup() : deck(""), parser(deck.Stream(), nullptr)
    {
        parser.RegisterUnknownKeywordCallback(UnknownCallback);
        parser.RegisterAmbiguousKeywordCallback(AmbiguousCallback);
    }

    // Resolves the written keyword; gives the callback and leaves the rewritten text in resolved.
    KeywordCallback Resolve(char const* written)
    {
        ORXString keyword(written);
        KeywordCallback callback = parser.Lookup(keyword);
        resolved = keyword.CStr();
        return callback;
    }

    KeywordDeck deck;
    ORXSrvKeywordParser parser;
    std::string resolved;
};

TEST_F(KeywordParserLookup, EmptyTableGivesUnknown)
{
    EXPECT_EQ(Resolve("*Node"), &UnknownCallback);
    EXPECT_EQ(resolved, "node");
}

TEST_F(KeywordParserLookup, ExactKeyWinsOverLongerKeysContainingIt)
{
    parser.Register("elset", NodeCallback);
    parser.Register("elsetx", OtherCallback);
    EXPECT_EQ(Resolve("*Elset"), &NodeCallback);
    EXPECT_EQ(resolved, "elset");
}

TEST_F(KeywordParserLookup, WrittenTextMatchesAnywhereInsideAKey)
{
    parser.Register("output", NodeCallback);
    EXPECT_EQ(Resolve("*PUT"), &NodeCallback);
    EXPECT_EQ(resolved, "output");
    EXPECT_EQ(Resolve("*tpu"), &NodeCallback);
    EXPECT_EQ(Resolve("*outputs"), &UnknownCallback);
    EXPECT_EQ(resolved, "outputs");
}

TEST_F(KeywordParserLookup, SeveralContainingKeysAreAmbiguousWithoutTieBreak)
{
    parser.Register("elset", NodeCallback);
    parser.Register("elsetx", OtherCallback);
    parser.Register("output", NodeCallback);
    parser.Register("input", OtherCallback);
    EXPECT_EQ(Resolve("*els"), &AmbiguousCallback);
    EXPECT_EQ(resolved, "els");
    EXPECT_EQ(Resolve("*lset"), &AmbiguousCallback);
    EXPECT_EQ(Resolve("*put"), &AmbiguousCallback);
    EXPECT_EQ(resolved, "put");
}

TEST_F(KeywordParserLookup, FirstRegistrationStaysAndUpperCaseKeysNeverMatch)
{
    parser.Register("node", NodeCallback);
    parser.Register("node", OtherCallback);
    parser.Register("Nset", OtherCallback);
    EXPECT_EQ(Resolve("*NODE"), &NodeCallback);
    EXPECT_EQ(Resolve("*Nset"), &UnknownCallback);
}

TEST(KeywordParserDefaults, UnknownAndAmbiguousKeywordsAreFatalByDefault)
{
    RecordedFatalErrors errors;
    KeywordDeck deck("");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    parser.Register("elset", NodeCallback);
    parser.Register("elsetx", NodeCallback);
    ORXString unknown("*Nope");
    ORXString ambiguous("*els");
    KeywordParameters none;
    parser.Lookup(unknown)(unknown, none, parser, nullptr);
    parser.Lookup(ambiguous)(ambiguous, none, parser, nullptr);
    ASSERT_EQ(errors.Reports().size(), 2u);
    EXPECT_EQ(errors.Reports()[0].message,
              "AssertionFailed:\"ORXSrvKeywordParser ERROR: Unknown keyword\" == 0");
    EXPECT_EQ(errors.Reports()[1].message,
              "AssertionFailed:\"ORXSrvKeywordParser ERROR: Ambiguous keyword\" == 0");
    EXPECT_EQ(errors.Reports()[0].file, kParserPath);
    EXPECT_EQ(errors.Reports()[1].file, kParserPath);
}

// ---- Parse --------------------------------------------------------------------------------------

TEST(KeywordParserParse, DecksWithoutKeywordCallNothing)
{
    for (char const* text : {"", "1, 2\n** just a comment\n*1\n"})
    {
        KeywordDeck deck(text);
        CallLog log;
        ORXSrvKeywordParser parser(deck.Stream(), &log);
        parser.Register("node", NodeCallback);
        parser.Parse();
        EXPECT_TRUE(log.callbacks.empty());
        EXPECT_TRUE(parser.IsEndOfFile());
    }
}

TEST(KeywordParserParse, DispatchesEachKeywordWithItsResolvedNameAndParameters)
{
    KeywordDeck deck("skipped, 1\n"
                     "*Node, NSET=All\n"
                     "1, 0., 0.\n"
                     "** comment\n"
                     "*els, a\n"
                     "*Mystery\n"
                     "data\n"
                     "*ELEMENT OUT, type=\"S4 R\",\n"
                     " elset=e1\n");
    CallLog log;
    ORXSrvKeywordParser parser(deck.Stream(), &log);
    parser.Register("node", NodeCallback);
    parser.Register("elset", OtherCallback);
    parser.Register("elsetx", OtherCallback);
    parser.Register("elementoutput", OtherCallback);
    parser.RegisterUnknownKeywordCallback(UnknownCallback);
    parser.RegisterAmbiguousKeywordCallback(AmbiguousCallback);
    parser.Parse();

    EXPECT_EQ(log.callbacks, (std::vector<std::string>{"node", "ambiguous", "unknown", "other"}));
    EXPECT_EQ(log.keywords, (std::vector<std::string>{"node", "els", "mystery", "elementoutput"}));
    EXPECT_EQ(log.parameters, (std::vector<std::vector<std::string>>{
                                  {"NSET=All"}, {"a"}, {}, {"type=\"S4 R\"", "elset=e1"}}));
}

TEST(KeywordParserParse, KeywordOnTheLastLineEndsCleanlyOnlyIfTheCallbackSkips)
{
    {
        KeywordDeck deck("*Node\n");
        CallLog log;
        ORXSrvKeywordParser parser(deck.Stream(), &log);
        parser.Register("node", NodeCallback);
        parser.Parse();
        EXPECT_EQ(log.callbacks, (std::vector<std::string>{"node"}));
    }
    {
        RecordedFatalErrors errors;
        KeywordDeck deck("*Node\n");
        CallLog log;
        ORXSrvKeywordParser parser(deck.Stream(), &log);
        parser.Register("node", SilentCallback);
        parser.RegisterUnknownKeywordCallback(UnknownCallback);
        parser.Parse();
        ASSERT_FALSE(errors.Reports().empty());
        EXPECT_EQ(errors.Reports()[0].message, "AssertionFailed:IsKeyword(data)");
    }
}
