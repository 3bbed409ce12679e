// omi_IntTable against std::unordered_map: 10^6 keys spread over the whole int range, inserted and
// then each looked up in another order; the same lookups over 10^6 dense keys; and the memory of a
// table of 10^6 dense keys against 3 ints per key.
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <algorithm>
#include <cstdio>
#include <malloc.h>
#include <random>
#include <unordered_map>
#include <vector>

namespace
{
using IntTable = omi_IntTable<int, ORXBasOmiDefaultAllocator>;

int const kKeys = 1000000;

std::vector<int> const& SpreadKeys()
{
    static std::vector<int> const keys = []
    {
        std::mt19937 random(4711);
        std::vector<int> result(kKeys);
        for (int& key : result)
            key = static_cast<int>(random());
        return result;
    }();
    return keys;
}

// The same keys in another order, so that lookups do not follow the order of insertion.
std::vector<int> const& LookupKeys()
{
    static std::vector<int> const keys = []
    {
        std::vector<int> result = SpreadKeys();
        std::shuffle(result.begin(), result.end(), std::mt19937(815));
        return result;
    }();
    return keys;
}

void BM_IntTableInsert(benchmark::State& state)
{
    for (auto _ : state)
    {
        IntTable table;
        for (int key : SpreadKeys())
            table.Insert(key, key);
        benchmark::DoNotOptimize(&table);
    }
}
BENCHMARK(BM_IntTableInsert)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_UnorderedMapInsert(benchmark::State& state)
{
    for (auto _ : state)
    {
        std::unordered_map<int, int> map;
        for (int key : SpreadKeys())
            map.emplace(key, key);
        benchmark::DoNotOptimize(&map);
    }
}
BENCHMARK(BM_UnorderedMapInsert)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_IntTableLookup(benchmark::State& state)
{
    IntTable table;
    for (int key : SpreadKeys())
        table.Insert(key, key);
    for (auto _ : state)
    {
        long long sum = 0;
        for (int key : LookupKeys())
            if (table.IsMember(key))
                sum += table.ConstGet(key);
        benchmark::DoNotOptimize(sum);
    }
    std::printf("spread table of %d keys: %zu bytes\n", kKeys, table.AllocatedBytes());
}
BENCHMARK(BM_IntTableLookup)->Unit(benchmark::kMillisecond);

void BM_UnorderedMapLookup(benchmark::State& state)
{
    std::unordered_map<int, int> map;
    for (int key : SpreadKeys())
        map.emplace(key, key);
    for (auto _ : state)
    {
        long long sum = 0;
        for (int key : LookupKeys())
        {
            auto found = map.find(key);
            if (found != map.end())
                sum += found->second;
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_UnorderedMapLookup)->Unit(benchmark::kMillisecond);

// The keys 0 .. 10^6 - 1 in random order: the dense labels the table is laid out for.
std::vector<int> const& DenseKeys()
{
    static std::vector<int> const keys = []
    {
        std::vector<int> result(kKeys);
        for (int key = 0; key < kKeys; ++key)
            result[key] = key;
        std::shuffle(result.begin(), result.end(), std::mt19937(99));
        return result;
    }();
    return keys;
}

void BM_IntTableDenseLookup(benchmark::State& state)
{
    IntTable table;
    for (int key = 0; key < kKeys; ++key)
        table.Insert(key, key);
    for (auto _ : state)
    {
        long long sum = 0;
        for (int key : DenseKeys())
            if (table.IsMember(key))
                sum += table.ConstGet(key);
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_IntTableDenseLookup)->Unit(benchmark::kMillisecond);

void BM_UnorderedMapDenseLookup(benchmark::State& state)
{
    std::unordered_map<int, int> map;
    for (int key = 0; key < kKeys; ++key)
        map.emplace(key, key);
    for (auto _ : state)
    {
        long long sum = 0;
        for (int key : DenseKeys())
        {
            auto found = map.find(key);
            if (found != map.end())
                sum += found->second;
        }
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_UnorderedMapDenseLookup)->Unit(benchmark::kMillisecond);

// Bytes of a table of the keys 0 .. 10^6 - 1: as the table counts them, and as malloc sees them
// (with its own bookkeeping), both against 12 MB.
void BM_IntTableDenseMemory(benchmark::State& state)
{
    double const budget = 3.0 * 4.0 * kKeys;
    for (auto _ : state)
    {
        std::size_t before = mallinfo2().uordblks;
        IntTable table;
        for (int key = 0; key < kKeys; ++key)
            table.Insert(key, key);
        std::size_t heap = mallinfo2().uordblks - before;
        std::size_t counted = table.AllocatedBytes();
        state.counters["bytes"] = static_cast<double>(counted);
        std::printf("dense table of %d keys: %zu bytes counted, %zu bytes from malloc, budget %.0f\n", kKeys,
                    counted, heap, budget);
        OrxBenchPrintRatio("int_table_dense_memory_vs_budget", static_cast<double>(heap) / budget);
    }
}
BENCHMARK(BM_IntTableDenseMemory)->Unit(benchmark::kMillisecond)->Iterations(1);
} // namespace

ORXSRV_RATIO(int_table_lookup_vs_unordered_map, "BM_IntTableLookup", "BM_UnorderedMapLookup");
ORXSRV_RATIO(int_table_dense_lookup_vs_unordered_map, "BM_IntTableDenseLookup", "BM_UnorderedMapDenseLookup");
ORXSRV_RATIO(int_table_insert_vs_unordered_map, "BM_IntTableInsert", "BM_UnorderedMapInsert");
