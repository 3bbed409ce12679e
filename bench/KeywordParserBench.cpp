// Parse of a 100 MB keyword deck, reading every data field as a double, against a plain loop of fgets
// and strtod over the same file.
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{
constexpr long kDeckBytes = 100L * 1024 * 1024;
constexpr int kLinesPerKeyword = 1000;
constexpr int kFieldsPerLine = 8;

// The deck, written once into a temporary file: a keyword line with parameters every 1000 data lines
// of 8 comma-separated numbers. Removed at exit.
class Deck
{
public:
    Deck()
    {
        char path[] = "/tmp/orxsrv_keyword_deckXXXXXX";
        int fd = mkstemp(path);
        if (fd < 0)
            std::abort();
        m_path = path;
        FILE* out = fdopen(fd, "w");
        long written = 0;
        for (int block = 0; written < kDeckBytes; ++block)
        {
            written += std::fprintf(out, "*Node, nset=N%d, system=R, generate\n", block);
            for (int line = 0; line < kLinesPerKeyword; ++line)
            {
                const int id = block * kLinesPerKeyword + line;
                written += std::fprintf(out, "%d, %.6f, %.6e, %.4f, %d, %.8f, %.3e, %.5f\n", id + 1, id * 0.001,
                                        id * 1.25e-3, -id * 0.5, id % 977, 1.0 / (id + 1), id * 3.5, 0.125 * line);
            }
        }
        std::fclose(out);
    }
    ~Deck() { std::remove(m_path.c_str()); }
    char const* Path() const { return m_path.c_str(); }

private:
    std::string m_path;
};

Deck const& TheDeck()
{
    static Deck deck;
    return deck;
}

struct Totals
{
    double sum = 0.0;
    long fields = 0;
};

void ReadNodes(ORXString const&, ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> const&,
               ORXSrvKeywordParser& parser, void* userData)
{
    auto& totals = *static_cast<Totals*>(userData);
    ORXSrvKeywordDataReader reader(parser);
    for (reader.First(); !reader.IsDone(); reader.Next())
        for (int field = 0; field < kFieldsPerLine; ++field)
        {
            totals.sum += reader.ReadDouble(0.0);
            ++totals.fields;
        }
}

void BM_KeywordParse(benchmark::State& state)
{
    char const* path = TheDeck().Path();
    for (auto _ : state)
    {
        FILE* in = std::fopen(path, "r");
        Totals totals;
        ORXSrvKeywordParser parser(in, &totals);
        parser.Register("node", ReadNodes);
        parser.Parse();
        std::fclose(in);
        benchmark::DoNotOptimize(totals.sum);
        state.counters["fields"] = static_cast<double>(totals.fields);
    }
    state.SetBytesProcessed(state.iterations() * kDeckBytes);
}

void BM_FgetsStrtod(benchmark::State& state)
{
    char const* path = TheDeck().Path();
    for (auto _ : state)
    {
        FILE* in = std::fopen(path, "r");
        Totals totals;
        char line[256];
        while (std::fgets(line, sizeof line, in))
        {
            if (line[0] == '*')
                continue;
            char* cursor = line;
            for (int field = 0; field < kFieldsPerLine; ++field)
            {
                char* end = nullptr;
                totals.sum += std::strtod(cursor, &end);
                ++totals.fields;
                cursor = *end == ',' ? end + 1 : end;
            }
        }
        std::fclose(in);
        benchmark::DoNotOptimize(totals.sum);
        state.counters["fields"] = static_cast<double>(totals.fields);
    }
    state.SetBytesProcessed(state.iterations() * kDeckBytes);
}
} // namespace

BENCHMARK(BM_KeywordParse)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FgetsStrtod)->Iterations(1)->Unit(benchmark::kMillisecond);
ORXSRV_RATIO(keyword_parse_vs_fgets_strtod, "BM_KeywordParse", "BM_FgetsStrtod");
