#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>

// Every test leaves the library as the load left it: started once, by DllMain.
namespace
{
// Layers of a complete start: the library, its specific step, three modules and nine siblings.
constexpr int kFullChain = 5 + 9;

// Stops the library from the load state; returns what the stop did to a fresh tally.
int StopFromLoadState()
{
    int tally = 0;
    ORXSrvBasic_finalize(tally);
    return tally;
}

// Starts the library again after a complete stop; returns what the start did to a fresh tally.
int RestartFromStopped()
{
    int tally = 0;
    ORXSrvBasic_initialize(tally);
    return tally;
}

// Proves the library use counter stands at 1 (the load state) by a complete stop and restart.
void ExpectLoadState()
{
    EXPECT_EQ(StopFromLoadState(), -kFullChain);
    EXPECT_EQ(RestartFromStopped(), kFullChain);
}
} // namespace

TEST(ORXSrvLifecycle, OnlyTheOutermostStartAndStopDoTheWork)
{
    EXPECT_NE(_get_invalid_parameter_handler(), nullptr);
    EXPECT_EQ(ORX_FRAMEWORK_INTERNAL_ORXSrvBasic(), 1);
    ExpectLoadState();

    // A second start only moves the counter.
    int tally = 0;
    ORXSrvBasic_initialize(tally);
    EXPECT_EQ(tally, 0);
    ORXSrvBasic_finalize(tally);
    EXPECT_EQ(tally, 0);
    ExpectLoadState();

    // An unmatched stop leaves the counter at -1, and the next start does nothing.
    EXPECT_EQ(StopFromLoadState(), -kFullChain);
    ORXSrvBasic_finalize(tally);
    EXPECT_EQ(tally, 0);
    ORXSrvBasic_initialize(tally);
    EXPECT_EQ(tally, 0);
    EXPECT_EQ(RestartFromStopped(), kFullChain);
    ExpectLoadState();
}

TEST(ORXSrvLifecycle, DetachStopsEverythingOnlyAtTheLoadCount)
{
    int tally = 0;
    ORXSrvBasic_initialize(tally);
    EXPECT_EQ(DllMain(nullptr, 0, nullptr), 1);
    EXPECT_EQ(tally, 0); // a raised counter is only lowered
    ExpectLoadState();

    EXPECT_EQ(DllMain(nullptr, 0, nullptr), 1);
    EXPECT_EQ(RestartFromStopped(), kFullChain);

    // Thread reasons return 1 and touch nothing.
    EXPECT_EQ(DllMain(nullptr, 2, nullptr), 1);
    EXPECT_EQ(DllMain(nullptr, 3, nullptr), 1);
    ExpectLoadState();
}

TEST(ORXSrvLifecycle, EveryLayerCountsOnItsOwn)
{
    struct EntryPair
    {
        char const* name;
        void (*initialize)(int&);
        void (*finalize)(int&);
    };
    EntryPair const pairs[] = {
        {"ORXSrvBasic_specific", ORXSrvBasic_specific_initialize, ORXSrvBasic_specific_finalize},
        {"ORXSrvFsm", ORXSrvFsm_initialize, ORXSrvFsm_finalize},
        {"ORXSrvKwd", ORXSrvKwd_initialize, ORXSrvKwd_finalize},
        {"ORXSrvSsm", ORXSrvSsm_initialize, ORXSrvSsm_finalize},
        {"ORXObjSimObjectsMod", ORXObjSimObjectsMod_initialize, ORXObjSimObjectsMod_finalize},
        {"ORXSglSimXmlFndLib", ORXSglSimXmlFndLib_initialize, ORXSglSimXmlFndLib_finalize},
        {"ORXSimInterface", ORXSimInterface_initialize, ORXSimInterface_finalize},
        {"ORXSimContainers", ORXSimContainers_initialize, ORXSimContainers_finalize},
        {"ORXBasShared", ORXBasShared_initialize, ORXBasShared_finalize},
        {"ORXBasNexia", ORXBasNexia_initialize, ORXBasNexia_finalize},
        {"ORXBasCoreUtils", ORXBasCoreUtils_initialize, ORXBasCoreUtils_finalize},
        {"ORXBasGenericsLib", ORXBasGenericsLib_initialize, ORXBasGenericsLib_finalize},
        {"ORXBasAlloc", ORXBasAlloc_initialize, ORXBasAlloc_finalize},
    };
    for (EntryPair const& pair : pairs)
    {
        SCOPED_TRACE(pair.name);
        int tally = 0;
        pair.initialize(tally); // already started by the load
        pair.finalize(tally);
        EXPECT_EQ(tally, 0);
    }
    EXPECT_EQ(StopFromLoadState(), -kFullChain);
    for (EntryPair const& pair : pairs)
    {
        SCOPED_TRACE(pair.name);
        int tally = 0;
        pair.initialize(tally);
        EXPECT_EQ(tally, 1);
        pair.initialize(tally);
        EXPECT_EQ(tally, 1);
        pair.finalize(tally);
        EXPECT_EQ(tally, 1);
        pair.finalize(tally);
        EXPECT_EQ(tally, 0);
    }
    EXPECT_EQ(RestartFromStopped(), kFullChain);
}

// Reads the registered object of a singleton, which the scheme keeps to itself.
template <class T> struct RegisteredObject : omi_SingletonBase<T>
{
    static T* Get() { return omi_SingletonBase<T>::Instance(); }
};

TEST(ORXSrvLifecycle, LastModelServicesStopEndsTheBulkShellLayers)
{
    using Registered = RegisteredObject<ORXSrvBulkShellLayers>;
    ORXSrvBulkShellLayers& layers = omi_Singleton<ORXSrvBulkShellLayers>::Instance();
    EXPECT_EQ(Registered::Get(), &layers);

    int tally = 0;
    ORXSrvFsm_initialize(tally);
    ORXSrvFsm_finalize(tally);
    EXPECT_EQ(Registered::Get(), &layers) << "a nested stop must keep the object";

    EXPECT_EQ(StopFromLoadState(), -kFullChain);
    EXPECT_EQ(Registered::Get(), nullptr);
    ORXSrvFsm_initialize(tally);
    ORXSrvFsm_finalize(tally); // ends a null pointer: harmless
    EXPECT_EQ(Registered::Get(), nullptr);
    EXPECT_EQ(RestartFromStopped(), kFullChain);
}

namespace
{
// A singleton that counts its lives and checks that it was registered before its members were built.
class Counted : public omi_Singleton<Counted>
{
    friend class omi_Singleton<Counted>;

public:
    ~Counted() { ++destroyed; }
    static inline int made = 0;
    static inline int destroyed = 0;
    struct Member
    {
        Counted const* registeredWhenBuilt = RegisteredObject<Counted>::Get();
    } member;

private:
    Counted() { ++made; }
};

// A singleton whose constructor throws while the flag is set.
class Fragile : public omi_Singleton<Fragile>
{
    friend class omi_Singleton<Fragile>;

public:
    static inline bool fail = true;

private:
    Fragile()
    {
        if (fail)
            throw std::runtime_error("not now");
    }
};

// A singleton whose constructor makes a second object, so that the registered object is not the one
// Instance() built.
class Stray : public omi_Singleton<Stray>
{
    friend class omi_Singleton<Stray>;

    Stray()
    {
        static bool nested = false;
        if (!nested)
        {
            nested = true;
            ::new (mem_OperatorNewThrow(sizeof(Stray))) Stray();
        }
    }
};
} // namespace

TEST(omi_Singleton, InstanceMakesOneObjectRegisteredBeforeItsMembers)
{
    Counted& first = omi_Singleton<Counted>::Instance();
    EXPECT_EQ(&omi_Singleton<Counted>::Instance(), &first);
    EXPECT_EQ(Counted::made, 1);
    EXPECT_EQ(first.member.registeredWhenBuilt, &first);

    omi_SingletonBase<Counted>::Finalize();
    EXPECT_EQ(Counted::destroyed, 1);
    EXPECT_EQ(RegisteredObject<Counted>::Get(), nullptr);
    omi_SingletonBase<Counted>::Finalize();
    EXPECT_EQ(Counted::destroyed, 1);

    omi_Singleton<Counted>::Instance();
    EXPECT_EQ(Counted::made, 2);
    omi_SingletonBase<Counted>::Finalize();
    EXPECT_EQ(Counted::destroyed, 2);
}

TEST(omi_Singleton, FailedConstructionLeavesNothingRegistered)
{
    EXPECT_THROW(omi_Singleton<Fragile>::Instance(), std::runtime_error);
    EXPECT_EQ(RegisteredObject<Fragile>::Get(), nullptr);
    Fragile::fail = false;
    Fragile& made = omi_Singleton<Fragile>::Instance();
    EXPECT_EQ(RegisteredObject<Fragile>::Get(), &made);
    omi_SingletonBase<Fragile>::Finalize();
}

TEST(omi_SingletonDeathTest, ObjectThatIsNotTheRegisteredOneAborts)
{
    EXPECT_DEATH(omi_Singleton<Stray>::Instance(), "");
}

// The check helpers, used here as a module uses them (the module path falls back to __FILE__).
namespace
{
struct Report
{
    int count = 0;
    std::string text;
    std::string file;
    int line = 0;
};
Report g_report;
int g_value = 2;

void RecordReport(char const* text, char const* file, int line)
{
    ++g_report.count;
    g_report.text = text;
    g_report.file = file;
    g_report.line = line;
}

void RepairValue(char const* text, char const* file, int line)
{
    RecordReport(text, file, line);
    g_value = 3;
}

int CountedValue(int& evaluations)
{
    ++evaluations;
    return g_value;
}

// Installs a report handler for one test and puts the previous one back afterwards.
class ChecksTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        g_report = Report{};
        g_value = 2;
        m_assertion = ORXSimUttAssert::SetAssertionFailureHandler(RecordReport);
        m_fatal = ORXSimUttAssert::SetFatalErrorHandler(RecordReport);
    }
    void TearDown() override
    {
        ORXSimUttAssert::SetAssertionFailureHandler(m_assertion);
        ORXSimUttAssert::SetFatalErrorHandler(m_fatal);
    }

private:
    ORXSimAssertionFailureHandler m_assertion = nullptr;
    ORXSimFatalErrorHandler m_fatal = nullptr;
};
} // namespace

TEST_F(ChecksTest, AssertReportsThenTestsAgainThenThrows)
{
    int evaluations = 0;
    int const line = __LINE__ + 3;
    try
    {
        ORXSrvAssert(CountedValue(evaluations) == 3);
        FAIL() << "no exception";
    }
    catch (ORXBasAssertException const& failure)
    {
        EXPECT_STREQ(failure.what(), "CountedValue(evaluations) == 3");
        EXPECT_STREQ(failure.File(), __FILE__);
        EXPECT_EQ(failure.Line(), line);
    }
    EXPECT_EQ(evaluations, 2);
    EXPECT_EQ(g_report.count, 1);
    EXPECT_EQ(g_report.text, "CountedValue(evaluations) == 3");
    EXPECT_EQ(g_report.file, __FILE__);
    EXPECT_EQ(g_report.line, line);
}

TEST_F(ChecksTest, AssertRepairedByTheReportEndsWithExitOne)
{
    ORXSimUttAssert::SetAssertionFailureHandler(RepairValue);
    EXPECT_EXIT(
        {
            ORXSrvAssert(g_value == 3);
            std::exit(5);
        },
        ::testing::ExitedWithCode(1), "");
}

TEST_F(ChecksTest, ThrowCheckRaisesWithoutReportAndPassingChecksDoNothing)
{
    ORXSrvAssert(g_value == 2);
    ORXSrvThrowCheck(g_value == 2);
    ORXSrvFatalCheck(g_value == 2);
    int const line = __LINE__ + 3;
    try
    {
        ORXSrvThrowCheck("only chunked drawers are extendable" == 0);
        FAIL() << "no exception";
    }
    catch (ORXBasAssertException const& failure)
    {
        EXPECT_STREQ(failure.what(), "\"only chunked drawers are extendable\" == 0");
        EXPECT_STREQ(failure.File(), __FILE__);
        EXPECT_EQ(failure.Line(), line);
    }
    try
    {
        ORXSrvThrowCheck(std::is_same_v<int, long>);
        FAIL() << "no exception";
    }
    catch (ORXBasAssertException const& failure)
    {
        EXPECT_STREQ(failure.what(), "std::is_same_v<int, long>"); // commas keep the text whole
    }
    EXPECT_EQ(g_report.count, 0);
}

TEST_F(ChecksTest, FatalCheckReportsAndGoesOnWhenTheReportReturns)
{
    bool wentOn = false;
    int const line = __LINE__ + 1;
    ORXSrvFatalCheck(g_value == 3);
    wentOn = true;
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(g_report.count, 1);
    EXPECT_EQ(g_report.text, "AssertionFailed:g_value == 3");
    EXPECT_EQ(g_report.file, __FILE__);
    EXPECT_EQ(g_report.line, line);
}
