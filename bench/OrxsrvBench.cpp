// The whole orxsrv check of a generated deck of 10^6 bricks (read, build, elaborate, check) against
// the bare keyword parse of the same deck, every field read:
//   orxsrv_check_vs_parse    time of the check against the parse
// and, without a goal, the time and peak memory of the check of a deck of about 10^7 bricks.
#include "BenchRatio.h"
#include "DeckGenerator.h"
#include "DeckReader.h"
#include "ModelDocument.h"

#include <ORXSrvBasic.h>

#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{
std::string const& Deck(int n)
{
    static std::string const path = [n]
    {
        std::string const file = "/tmp/orxsrv_bench_hex" + std::to_string(n) + ".inp";
        orxsrv::GenerateHexDeck(file, n, false);
        return file;
    }();
    return path;
}

void BM_OrxsrvCheck(benchmark::State& state)
{
    std::string const& deck = Deck(100);
    for (auto _ : state)
    {
        orxsrv::ModelDocument model = orxsrv::BuildDocument(orxsrv::ReadDeck(deck, nullptr));
        benchmark::DoNotOptimize(orxsrv::CheckDocument(model).size());
        model.doc.Close();
    }
}

// Every field of every data line read with the library's data reader.
void ReadAll(ORXString const&, ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> const&,
             ORXSrvKeywordParser& parser, void* user)
{
    double& sum = *static_cast<double*>(user);
    ORXSrvKeywordDataReader reader(parser);
    for (reader.First(); !reader.IsDone(); reader.Next())
        for (int field = 0; field < 9; ++field)
            sum += reader.ReadDouble(0.0);
}

void BM_BareParse(benchmark::State& state)
{
    std::string const& deck = Deck(100);
    for (auto _ : state)
    {
        FILE* stream = std::fopen(deck.c_str(), "rb");
        double sum = 0;
        ORXSrvKeywordParser parser(stream, &sum);
        parser.RegisterUnknownKeywordCallback(ReadAll);
        parser.Parse();
        std::fclose(stream);
        benchmark::DoNotOptimize(sum);
    }
}

// The large deck once, after the comparison; its peak memory is the process's, which includes what
// the smaller runs took. ORXSRV_BENCH_SKIP_LARGE leaves it out.
void BM_OrxsrvCheckLarge(benchmark::State& state)
{
    if (std::getenv("ORXSRV_BENCH_SKIP_LARGE"))
    {
        state.SkipWithError("skipped by ORXSRV_BENCH_SKIP_LARGE");
        return;
    }
    std::string const deck = "/tmp/orxsrv_bench_hex215.inp";
    orxsrv::GenerateHexDeck(deck, 215, false);
    for (auto _ : state)
    {
        auto const start = std::chrono::steady_clock::now();
        orxsrv::ModelDocument model = orxsrv::BuildDocument(orxsrv::ReadDeck(deck, nullptr));
        std::size_t const findings = orxsrv::CheckDocument(model).size();
        double const seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        std::printf("orxsrv check of %zu elements: %.2f s, peak memory %.2f GB, %zu findings\n",
                    model.elementLabels.size(), seconds, usage.ru_maxrss / 1048576.0, findings);
        model.doc.Close();
    }
    std::remove(deck.c_str());
}
} // namespace

BENCHMARK(BM_OrxsrvCheck)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_BareParse)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_OrxsrvCheckLarge)->Unit(benchmark::kMillisecond)->Iterations(1);
ORXSRV_RATIO(orxsrv_check_vs_parse, "BM_OrxsrvCheck", "BM_BareParse");
