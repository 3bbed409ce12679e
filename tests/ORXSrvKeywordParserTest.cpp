#include "KeywordDeck.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{
char const* const kParserPath = "ORXSrvSimServices/ORXSrvKwd.m/src/ORXSrvKeywordParser";
char const* const kCallbackNames[] = {"node", "other", "unknown", "ambiguous", "silent"};

// What the recording callbacks saw, in call order.
struct CallLog
{
    std::vector<std::string> callbacks;
    std::vector<std::string> keywords;
    std::vector<std::vector<std::string>> parameters;
};

// Records the call under its name; all but "silent" then skip to the next keyword as callbacks must.
template <int Name>
void Recording(ORXString const& keyword, KeywordParameters const& parameters, ORXSrvKeywordParser& parser,
               void* userData)
{
    auto& log = *static_cast<CallLog*>(userData);
    log.callbacks.push_back(kCallbackNames[Name]);
    log.keywords.push_back(keyword.CStr());
    log.parameters.push_back(ToStrings(parameters));
    if (Name != 4)
        parser.SkipToNextKeyword();
}
KeywordCallback const NodeCallback = Recording<0>;
KeywordCallback const OtherCallback = Recording<1>;
KeywordCallback const UnknownCallback = Recording<2>;
KeywordCallback const AmbiguousCallback = Recording<3>;
KeywordCallback const SilentCallback = Recording<4>;

// The keyword and parameters of the first keyword line of a deck.
std::pair<std::string, std::vector<std::string>> ParseFirstKeyword(std::string text)
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

TEST(KeywordParserReadline, LinesAreTrimmedSplitAndEndOnlyAfterTheLastRead)
{
    struct Case
    {
        std::string text;
        std::vector<std::string> lines; // each read before the end is noticed
    };
    Case const cases[] = {
        // Leading blanks go; blanks before a newline stay; a last line without newline loses them.
        {" \t\r ab  \n   \n\n  last \t", {"ab  \n", "\n", "\n", "last"}},
        {"abc\r\n", {"abc\r\n"}},
        // Overlong lines arrive in pieces of 255 bytes; a piece loses its trailing blanks.
        {std::string(300, 'x') + "\nnext\n", {std::string(255, 'x'), std::string(45, 'x') + "\n", "next\n"}},
        {std::string(255, 'y') + "\n" + std::string(256, 'z') + "\n",
         {std::string(255, 'y'), "\n", std::string(255, 'z'), "z\n"}},
        {std::string(250, 'a') + std::string(10, ' ') + "b\n", {std::string(250, 'a'), "b\n"}},
        // A line starting with a NUL byte is empty but not the end.
        {std::string("\0abc\nx\n", 7), {"", "x\n"}},
    };
    for (Case const& c : cases)
    {
        SCOPED_TRACE(c.text.substr(0, 20));
        KeywordDeck deck(c.text);
        ORXSrvKeywordParser parser(deck.Stream(), nullptr);
        for (std::string const& line : c.lines)
        {
            EXPECT_EQ(parser.Readline(), line);
            EXPECT_FALSE(parser.IsEndOfFile());
        }
        EXPECT_STREQ(parser.Readline(), "");
        EXPECT_TRUE(parser.IsEndOfFile());
        EXPECT_STREQ(parser.Readline(), "");
        EXPECT_EQ(parser.LineNumber(), static_cast<int>(c.lines.size()) + 2);
    }

    char text[16] = "";
    FILE* writeOnly = fmemopen(text, sizeof text, "w");
    ORXSrvKeywordParser failing(writeOnly, nullptr);
    EXPECT_STREQ(failing.Readline(), ""); // a stream error ends the input like the end
    EXPECT_TRUE(failing.IsEndOfFile());
    std::fclose(writeOnly);
}

TEST(KeywordParserReadline, ClassifiesKeywordAndCommentLines)
{
    KeywordDeck deck("");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    for (char const* line : {"*NODE\n", " \t* heading"})
        EXPECT_TRUE(parser.IsKeyword(line)) << line;
    for (char const* line : {"*1abc", "**abc", "*", "*\n", "1, 2"})
        EXPECT_FALSE(parser.IsKeyword(line)) << line;
    EXPECT_TRUE(parser.IsComment("**"));
    EXPECT_TRUE(parser.IsComment("** note"));
    EXPECT_FALSE(parser.IsComment("*"));
    EXPECT_FALSE(parser.IsComment(" **"));
}

// ---- Push-back ----------------------------------------------------------------------------------

TEST(KeywordParserPushBack, StashedLineComesBackUntrimmedAndUncounted)
{
    KeywordDeck deck("  *Node, a\nnext\n");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    char const* line = parser.Readline();
    ASSERT_STREQ(line, "*Node, a\n");
    parser.Buffer(line);
    EXPECT_EQ(parser.LineNumber(), 0);
    EXPECT_STREQ(parser.Readline(), "*Node, a\n");
    EXPECT_EQ(parser.LineNumber(), 1);
    EXPECT_STREQ(parser.Readline(), "next\n");

    // A stashed line is delivered even after the end.
    KeywordDeck last("*last");
    ORXSrvKeywordParser atEnd(last.Stream(), nullptr);
    std::string text = atEnd.Readline();
    EXPECT_STREQ(atEnd.Readline(), "");
    ASSERT_TRUE(atEnd.IsEndOfFile());
    atEnd.Buffer(text.c_str());
    EXPECT_STREQ(atEnd.Readline(), "*last");
    EXPECT_TRUE(atEnd.IsEndOfFile());
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

TEST(KeywordParserParameters, SplitsQuotesBlanksAndContinuations)
{
    struct Case
    {
        char const* text;
        char const* keyword;
        std::vector<std::string> parameters;
    };
    Case const cases[] = {
        // Quotes protect commas and blanks and stay in the token; other blanks go everywhere.
        {"*Step, name=\"a, b\"\n", "*Step", {"name=\"a, b\""}},
        {"  * NODE OUTPUT , a b = c ,\tflag\r\n", "*NODEOUTPUT", {"ab=c", "flag"}},
        // A trailing comma continues on the next line, which is never classified.
        {"*KEY, a,\nx=1, y\n*NEXT\n", "*KEY", {"a", "x=1", "y"}},
        {"*KEY,\n** note\n", "*KEY", {"**note"}},
        {"*KEY,\n*Other, p\n", "*KEY", {"*Other", "p"}},
        // An empty parameter in the middle drops the rest of the line.
        {"*KEY, a,,b\nc\n", "*KEY", {"a", "c"}},
        // An empty continuation ends with an empty parameter; a quoted empty string is not empty.
        {"*KEY,", "*KEY", {""}},
        {"*KEY, a,\n\nb\n", "*KEY", {"a", ""}},
        {"*KEY, \"\"\nb\n", "*KEY", {"\"\""}},
        // An unterminated quote swallows the rest of the line.
        {"*KEY, a=\"x, y\n", "*KEY", {"a=\"x, y\n"}},
    };
    for (Case const& c : cases)
        EXPECT_EQ(ParseFirstKeyword(c.text), std::make_pair(std::string(c.keyword), c.parameters)) << c.text;
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

TEST(KeywordParserParameters, ParseParameterEndsAndTokenLimit)
{
    RecordedFatalErrors errors;
    KeywordDeck deck("");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    // At or past the end: an empty final token.
    ORXString token("old");
    int position = 10;
    EXPECT_TRUE(parser.ParseParameter("a,b", position, token));
    EXPECT_STREQ(token.CStr(), "");
    position = 0;
    EXPECT_FALSE(parser.ParseParameter("a,b", position, token));
    EXPECT_EQ(position, 2);
    EXPECT_TRUE(parser.ParseParameter("a,b", position, token));
    EXPECT_STREQ(token.CStr(), "b");

    // A token of 256 bytes passes; one of the buffer's size is reported.
    position = 0;
    parser.ParseParameter(std::string(256, 'p').c_str(), position, token);
    EXPECT_TRUE(errors.Reports().empty());
    EXPECT_EQ(token.GetLengthInByte(), 256);
    position = 0;
    EXPECT_TRUE(parser.ParseParameter(std::string(300, 'p').c_str(), position, token));
    EXPECT_EQ(RecordedFatalErrors::Messages(),
              (std::vector<std::string>{"AssertionFailed:nchar < PARSER_BUFFER"}));
}

TEST(KeywordParserParameters, DataLineWhereAKeywordIsExpectedIsReported)
{
    RecordedFatalErrors errors;
    ParseFirstKeyword("1, 2\n");
    ASSERT_EQ(errors.Reports().size(), 1u);
    EXPECT_EQ(errors.Reports()[0].message, "AssertionFailed:IsKeyword(data)");
    EXPECT_EQ(errors.Reports()[0].file, kParserPath);
}

// ---- Keyword resolution -------------------------------------------------------------------------

TEST(KeywordParserLookup, ExactKeyThenSubstringOfOneKeyElseUnknownOrAmbiguous)
{
    using Keys = std::vector<std::pair<char const*, KeywordCallback>>;
    Keys const elsets = {{"elset", NodeCallback}, {"elsetx", OtherCallback}};
    Keys const crowded = {{"elset", NodeCallback},
                          {"elsetx", OtherCallback},
                          {"output", NodeCallback},
                          {"input", OtherCallback}};
    // The first registration stays; upper-case keys never match.
    Keys const repeated = {{"node", NodeCallback}, {"node", OtherCallback}, {"Nset", OtherCallback}};
    struct Case
    {
        Keys keys;
        char const* written;
        KeywordCallback callback;
        char const* resolved;
    };
    Case const cases[] = {
        {{}, "*Node", UnknownCallback, "node"},
        {elsets, "*Elset", NodeCallback, "elset"}, // exact wins over longer keys containing it
        {{{"output", NodeCallback}}, "*PUT", NodeCallback, "output"},
        {{{"output", NodeCallback}}, "*tpu", NodeCallback, "output"},
        {{{"output", NodeCallback}}, "*outputs", UnknownCallback, "outputs"},
        {crowded, "*els", AmbiguousCallback, "els"},
        {crowded, "*lset", AmbiguousCallback, "lset"},
        {crowded, "*put", AmbiguousCallback, "put"},
        {repeated, "*NODE", NodeCallback, "node"},
        {repeated, "*Nset", UnknownCallback, "nset"},
    };
    for (Case const& c : cases)
    {
        KeywordDeck deck("");
        ORXSrvKeywordParser parser(deck.Stream(), nullptr);
        parser.RegisterUnknownKeywordCallback(UnknownCallback);
        parser.RegisterAmbiguousKeywordCallback(AmbiguousCallback);
        for (auto const& [key, callback] : c.keys)
            parser.Register(key, callback);
        ORXString keyword(c.written);
        EXPECT_EQ(parser.Lookup(keyword), c.callback) << c.written;
        EXPECT_STREQ(keyword.CStr(), c.resolved);
    }
}

TEST(KeywordParserLookup, UnknownAndAmbiguousKeywordsAreFatalByDefault)
{
    RecordedFatalErrors errors;
    KeywordDeck deck("");
    ORXSrvKeywordParser parser(deck.Stream(), nullptr);
    parser.Register("elset", NodeCallback);
    parser.Register("elsetx", NodeCallback);
    KeywordParameters none;
    for (char const* written : {"*Nope", "*els"})
    {
        ORXString keyword(written);
        parser.Lookup(keyword)(keyword, none, parser, nullptr);
    }
    ASSERT_EQ(errors.Reports().size(), 2u);
    EXPECT_EQ(errors.Reports()[0].message,
              "AssertionFailed:\"ORXSrvKeywordParser ERROR: Unknown keyword\" == 0");
    EXPECT_EQ(errors.Reports()[1].message,
              "AssertionFailed:\"ORXSrvKeywordParser ERROR: Ambiguous keyword\" == 0");
    EXPECT_EQ(errors.Reports()[0].file, kParserPath);
    EXPECT_EQ(errors.Reports()[1].file, kParserPath);
}

// ---- Parse --------------------------------------------------------------------------------------

namespace
{
// Parses text with the given keys and the recording unknown and ambiguous callbacks.
CallLog ParseDeck(std::string text, std::vector<std::pair<char const*, KeywordCallback>> const& keys)
{
    KeywordDeck deck(std::move(text));
    CallLog log;
    ORXSrvKeywordParser parser(deck.Stream(), &log);
    for (auto const& [key, callback] : keys)
        parser.Register(key, callback);
    parser.RegisterUnknownKeywordCallback(UnknownCallback);
    parser.RegisterAmbiguousKeywordCallback(AmbiguousCallback);
    parser.Parse();
    EXPECT_TRUE(parser.IsEndOfFile());
    return log;
}
} // namespace

TEST(KeywordParserParse, DispatchesEachKeywordWithItsResolvedNameAndParameters)
{
    for (char const* text : {"", "1, 2\n** just a comment\n*1\n"})
        EXPECT_TRUE(ParseDeck(text, {{"node", NodeCallback}}).callbacks.empty());

    CallLog log = ParseDeck("skipped, 1\n"
                            "*Node, NSET=All\n"
                            "1, 0., 0.\n"
                            "** comment\n"
                            "*els, a\n"
                            "*Mystery\n"
                            "data\n"
                            "*ELEMENT OUT, type=\"S4 R\",\n"
                            " elset=e1\n",
                            {{"node", NodeCallback},
                             {"elset", OtherCallback},
                             {"elsetx", OtherCallback},
                             {"elementoutput", OtherCallback}});
    EXPECT_EQ(log.callbacks, (std::vector<std::string>{"node", "ambiguous", "unknown", "other"}));
    EXPECT_EQ(log.keywords, (std::vector<std::string>{"node", "els", "mystery", "elementoutput"}));
    EXPECT_EQ(log.parameters, (std::vector<std::vector<std::string>>{
                                  {"NSET=All"}, {"a"}, {}, {"type=\"S4 R\"", "elset=e1"}}));
}

TEST(KeywordParserParse, KeywordOnTheLastLineEndsCleanlyOnlyIfTheCallbackSkips)
{
    RecordedFatalErrors errors;
    EXPECT_EQ(ParseDeck("*Node\n", {{"node", NodeCallback}}).callbacks, (std::vector<std::string>{"node"}));
    EXPECT_TRUE(errors.Reports().empty());
    ParseDeck("*Node\n", {{"node", SilentCallback}});
    ASSERT_FALSE(errors.Reports().empty());
    EXPECT_EQ(errors.Reports()[0].message, "AssertionFailed:IsKeyword(data)");
}
