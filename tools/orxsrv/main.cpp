// orxsrv: the host tool of the library.
//   orxsrv check DECK [--json] [--vtu OUT.vtu] [--quiet]   reads a keyword deck into a document,
//       elaborates and checks it; exit 0 for a clean model, 1 with findings, 2 for an input error.
//   orxsrv gen OUT.inp --hex N [--shells]                  writes a structured block deck.
#include "DeckGenerator.h"
#include "DeckReader.h"
#include "ModelDocument.h"
#include "Report.h"
#include "VtuWriter.h"

#include <ORXSrvBasic.h>

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <stdexcept>
#include <string>

namespace
{
using Clock = std::chrono::steady_clock;

double Since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

long long PeakMemoryBytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<long long>(usage.ru_maxrss) * 1024;
}

// The library's failure reports become exceptions that end the command with a one-line message.
struct LibraryFailure : std::runtime_error
{
    using std::runtime_error::runtime_error;
};
void ThrowAssertion(char const* text, char const* file, int line)
{
    throw LibraryFailure(std::string("the library refused the model: ") + text + " (" + file + ":" +
                         std::to_string(line) + ")");
}
void ThrowFatal(char const* message, char const* file, int line)
{
    throw LibraryFailure(std::string("the library refused the model: ") + message + " (" + file + ":" +
                         std::to_string(line) + ")");
}

int Usage()
{
    std::cerr << "usage: orxsrv check DECK [--json] [--vtu OUT.vtu] [--quiet]\n"
                 "       orxsrv gen OUT.inp --hex N [--shells]\n";
    return 2;
}

int Check(int argc, char** argv)
{
    std::string deckPath, vtuPath;
    bool json = false, quiet = false;
    for (int i = 2; i < argc; ++i)
    {
        std::string const arg = argv[i];
        if (arg == "--json")
            json = true;
        else if (arg == "--quiet")
            quiet = true;
        else if (arg == "--vtu" && i + 1 < argc)
            vtuPath = argv[++i];
        else if (deckPath.empty() && arg.rfind("--", 0) != 0)
            deckPath = arg;
        else
            return Usage();
    }
    if (deckPath.empty())
        return Usage();

    bool const showProgress = !quiet && isatty(STDERR_FILENO);
    auto progress = [showProgress](long long read, long long size)
    {
        if (showProgress && size > 10 * 1024 * 1024)
            std::fprintf(stderr, "\rreading: %lld of %lld MB (%d%%)", read >> 20, size >> 20,
                         static_cast<int>(100.0 * read / size));
    };
    Clock::time_point const start = Clock::now();
    orxsrv::DeckModel const deck = orxsrv::ReadDeck(deckPath, progress);
    if (showProgress && deck.bytes > 10 * 1024 * 1024)
        std::fprintf(stderr, "\rreading: done%40s\n", "");
    orxsrv::Timings timings;
    timings.parse = Since(start);
    Clock::time_point const built = Clock::now();
    orxsrv::ModelDocument const model = orxsrv::BuildDocument(deck);
    timings.build = Since(built);
    Clock::time_point const checked = Clock::now();
    std::vector<std::string> const findings = orxsrv::CheckDocument(model);
    timings.check = Since(checked);

    orxsrv::CheckResult result{deck, model, findings, timings, 0, -1, 0};
    if (!vtuPath.empty())
    {
        orxsrv::VtuCounts const counts = orxsrv::WriteVtu(vtuPath, model, findings);
        result.cellsWritten = counts.written;
        result.cellsLeftOut = counts.leftOut;
    }
    timings.total = Since(start);
    result.timings = timings;
    result.peakMemoryBytes = PeakMemoryBytes();
    if (json)
        orxsrv::WriteJson(std::cout, result);
    else
        orxsrv::WriteText(std::cout, result);
    return findings.empty() ? 0 : 1;
}

int Generate(int argc, char** argv)
{
    std::string path;
    int n = 0;
    bool shells = false;
    for (int i = 2; i < argc; ++i)
    {
        std::string const arg = argv[i];
        if (arg == "--hex" && i + 1 < argc)
            n = std::atoi(argv[++i]);
        else if (arg == "--shells")
            shells = true;
        else if (path.empty() && arg.rfind("--", 0) != 0)
            path = arg;
        else
            return Usage();
    }
    if (path.empty() || n < 1)
        return Usage();
    orxsrv::GenerateHexDeck(path, n, shells);
    return 0;
}
} // namespace

int main(int argc, char** argv)
{
    // Shell layers are written as bulk distributions; the switch is read when they are first used.
    setenv("VEL_BULK_SHELL_SECTIONS", "1", 0);
    ORXSimUttAssert::SetAssertionFailureHandler(ThrowAssertion);
    ORXSimUttAssert::SetFatalErrorHandler(ThrowFatal);
    if (argc < 2)
        return Usage();
    std::string const command = argv[1];
    try
    {
        if (command == "check")
            return Check(argc, argv);
        if (command == "gen")
            return Generate(argc, argv);
        return Usage();
    }
    catch (orxsrv::InputError const& error)
    {
        std::cerr << "orxsrv: " << error.message << "\n";
    }
    catch (std::exception const& error)
    {
        std::cerr << "orxsrv: " << error.what() << "\n";
    }
    return 2;
}
