// The label queries of ORXSrvFieldServices for every distinct label of the variable table, against
// plain walks over the table's labels that do nothing but compare strings, one walk per query.
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace
{

std::vector<char const*> const& TableLabels()
{
    static std::vector<char const*> const labels = []
    {
        std::vector<char const*> all;
        for (int i = 0; ORXSrvVariableMap::GetEntry(i).label; ++i)
            all.push_back(ORXSrvVariableMap::GetEntry(i).label);
        return all;
    }();
    return labels;
}

std::vector<ORXString> const& DistinctLabels()
{
    static std::vector<ORXString> const labels = []
    {
        std::set<std::string> seen;
        std::vector<ORXString> distinct;
        for (char const* label : TableLabels())
            if (seen.insert(label).second)
                distinct.emplace_back(label);
        return distinct;
    }();
    return labels;
}

void BM_VariableQueries(benchmark::State& state)
{
    std::vector<ORXString> const& labels = DistinctLabels();
    for (auto _ : state)
        for (ORXString const& label : labels)
        {
            benchmark::DoNotOptimize(ORXSrvFieldServices::GetComponent(label, false));
            benchmark::DoNotOptimize(ORXSrvFieldServices::GetFieldType(label));
            benchmark::DoNotOptimize(ORXSrvFieldServices::GetComponents(label));
        }
    state.counters["labels"] = double(labels.size());
}

// One whole walk of string compares per query, three queries per label, with the same early
// test of the first byte that the queries make.
void BM_PlainWalk(benchmark::State& state)
{
    std::vector<ORXString> const& labels = DistinctLabels();
    std::vector<char const*> const& table = TableLabels();
    for (auto _ : state)
        for (ORXString const& label : labels)
            for (int query = 0; query < 3; ++query)
            {
                char const* text = label.CStr();
                int matches = 0;
                for (char const* row : table)
                    matches += row[0] == text[0] && std::strcmp(row, text) == 0;
                benchmark::DoNotOptimize(matches);
            }
}

} // namespace

BENCHMARK(BM_VariableQueries)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainWalk)->Unit(benchmark::kMillisecond);
ORXSRV_RATIO(variable_queries_vs_plain_walk, "BM_VariableQueries", "BM_PlainWalk");
