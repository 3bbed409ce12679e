// Failure reports, assertion exceptions and the accessors hosts read results through, each used as
// hosts write them, through the installed umbrella header only.
#include "DocumentFixture.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>

namespace
{
std::string g_lastReport;
int g_lastLine = 0;

void RecordAssertion(char const* text, char const*, int line)
{
    g_lastReport = text;
    g_lastLine = line;
}
void RecordFatal(char const* message, char const*, int line)
{
    g_lastReport = message;
    g_lastLine = line;
}
void ThrowOnAssertion(char const* text, char const*, int)
{
    throw std::runtime_error(text);
}

class ORXSrvPublicApiTest : public DocumentFixture
{
};
} // namespace

TEST_F(ORXSrvPublicApiTest, FailureReportsGoToTheInstalledHandlers)
{
    ORXSimAssertionFailureHandler previousAssertion =
        ORXSimUttAssert::SetAssertionFailureHandler(RecordAssertion);
    ORXSimFatalErrorHandler previousFatal = ORXSimUttAssert::SetFatalErrorHandler(RecordFatal);

    ORXSimUttAssert::ReportAssertionFailure("a == b", "file", 7);
    EXPECT_EQ(g_lastReport, "a == b");
    EXPECT_EQ(g_lastLine, 7);
    ReportFatalError("AssertionFailed:x", nullptr, nullptr, nullptr, "file", 9);
    EXPECT_EQ(g_lastReport, "AssertionFailed:x");
    EXPECT_EQ(g_lastLine, 9);

    EXPECT_EQ(ORXSimUttAssert::SetAssertionFailureHandler(ThrowOnAssertion), RecordAssertion);
    EXPECT_THROW(ORXSimUttAssert::ReportAssertionFailure("c", "file", 1), std::runtime_error);

    // Null puts the defaults back: the assertion report returns, the fatal error aborts.
    ORXSimUttAssert::SetAssertionFailureHandler(nullptr);
    EXPECT_EQ(ORXSimUttAssert::SetFatalErrorHandler(nullptr), RecordFatal);
    ORXSimUttAssert::ReportAssertionFailure("reported only", "file", 2);
    EXPECT_DEATH(ReportFatalError("fatal", nullptr, nullptr, nullptr, "file", 3), "fatal");

    ORXSimUttAssert::SetAssertionFailureHandler(previousAssertion);
    ORXSimUttAssert::SetFatalErrorHandler(previousFatal);
}

TEST_F(ORXSrvPublicApiTest, AssertExceptionsCarryTheConditionAndWhereItFailed)
{
    ORXBasAssertException exception(ORXString("m_count > 0"));
    try
    {
        exception.Throw("ORXSrvSimServices/ORXSrvFsm.m/src/Here", 42);
        FAIL() << "Throw returned";
    }
    catch (std::exception const& caught)
    {
        EXPECT_STREQ(caught.what(), "m_count > 0");
        ORXBasAssertException const* raised = dynamic_cast<ORXBasAssertException const*>(&caught);
        ASSERT_NE(raised, nullptr);
        EXPECT_STREQ(raised->File(), "ORXSrvSimServices/ORXSrvFsm.m/src/Here");
        EXPECT_EQ(raised->Line(), 42);
    }
}

TEST_F(ORXSrvPublicApiTest, AccessorsHostsReadResultsThrough)
{
    EXPECT_STREQ(ORXString().CStr(), "");
    EXPECT_STREQ(ORXString("Node").CStr(), "Node");

    ORXSrvInverseConnectivity inverse(NewRecord(20, 1));
    int const* offsets = inverse.GetOffsets();
    int const* entries = inverse.GetEntries();
    EXPECT_EQ(offsets, nullptr);
    EXPECT_EQ(entries, nullptr);
    EXPECT_EQ(inverse.GetCount(), 0);

    ORXSimBtree<ORXString, int> tree;
    EXPECT_EQ(tree.Root(), nullptr);
    for (char const* key : {"a", "b", "c", "d"})
        tree.Insert(key, 1, false);
    ASSERT_NE(tree.Root(), nullptr);
    EXPECT_EQ(tree.Root()->GetKey(), "b");
    EXPECT_EQ(tree.Root()->MaxDepth(), 2);
    EXPECT_EQ(tree.Root()->Left()->GetKey(), "a");
    EXPECT_EQ(tree.Root()->Right()->Right()->ConstGetValue(), 1);

    omi_Btree<omi_BlkBitVect, ORXSimDynamicID> bitTree;
    EXPECT_EQ(bitTree.Root(), nullptr);
    omi_BlkBitVect key;
    bitTree.Insert(key, ORXSimDynamicID());
    ASSERT_NE(bitTree.Root(), nullptr);
    EXPECT_EQ(bitTree.Root()->Left(), nullptr);
    EXPECT_EQ(bitTree.Root()->Right(), nullptr);

    FILE* deck = std::tmpfile();
    ASSERT_NE(deck, nullptr);
    std::fputs("*NODE\n1, \"open\n", deck);
    std::rewind(deck);
    ORXSrvKeywordParser parser(deck, nullptr);
    parser.SkipToNextKeyword();
    ORXString keyword;
    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> parameters;
    parser.ParseKeyword(keyword, parameters);
    ORXSrvKeywordDataReader reader(parser);
    reader.First();
    ASSERT_FALSE(reader.IsDone());
    reader.ReadInt(0);
    reader.ReadString();
    omi_IntTable<int, ORXBasOmiDefaultAllocator> const& suspect = reader.GetSuspectFields();
    int suspectLines = 0;
    for (int line = 0; line < 4; ++line)
        suspectLines += suspect.IsMember(line) ? 1 : 0;
    EXPECT_EQ(suspectLines, 1) << "the unclosed quote";
    std::fclose(deck);
}
