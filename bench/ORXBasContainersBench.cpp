// The containers' hot paths against the standard library's: copying vectors of plain values,
// building an ordered map from random keys and walking it.
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <map>
#include <random>
#include <vector>

namespace
{
constexpr int g_vectorSize = 1 << 20;
constexpr int g_mapSize = 1 << 16;

std::vector<int> RandomKeys()
{
    std::mt19937 random(11);
    std::vector<int> keys(g_mapSize);
    for (int& key : keys)
        key = static_cast<int>(random() % (4 * g_mapSize));
    return keys;
}

void BM_VectorCopy(benchmark::State& state)
{
    ORXBasVector<double> source(g_vectorSize, 1.5);
    for (auto _ : state)
    {
        ORXBasVector<double> copy(source);
        benchmark::DoNotOptimize(copy.begin());
    }
}

void BM_StdVectorCopy(benchmark::State& state)
{
    std::vector<double> source(g_vectorSize, 1.5);
    for (auto _ : state)
    {
        std::vector<double> copy(source);
        benchmark::DoNotOptimize(copy.data());
    }
}

void BM_VectorPushBack(benchmark::State& state)
{
    for (auto _ : state)
    {
        ORXBasVector<int> numbers;
        for (int i = 0; i < g_vectorSize; ++i)
            numbers.push_back(i);
        benchmark::DoNotOptimize(numbers.begin());
    }
}

void BM_StdVectorPushBack(benchmark::State& state)
{
    for (auto _ : state)
    {
        std::vector<int> numbers;
        for (int i = 0; i < g_vectorSize; ++i)
            numbers.push_back(i);
        benchmark::DoNotOptimize(numbers.data());
    }
}

void BM_MapInsertFindWalk(benchmark::State& state)
{
    std::vector<int> keys = RandomKeys();
    for (auto _ : state)
    {
        ORXBasMap<int, int> map;
        for (int key : keys)
            map.Insert(key, key);
        long sum = 0;
        for (int key : keys)
            sum += map.find(key)->second;
        for (auto const& element : map)
            sum += element.second;
        benchmark::DoNotOptimize(sum);
    }
}

void BM_StdMapInsertFindWalk(benchmark::State& state)
{
    std::vector<int> keys = RandomKeys();
    for (auto _ : state)
    {
        std::map<int, int> map;
        for (int key : keys)
            map.emplace(key, key);
        long sum = 0;
        for (int key : keys)
            sum += map.find(key)->second;
        for (auto const& element : map)
            sum += element.second;
        benchmark::DoNotOptimize(sum);
    }
}
} // namespace

BENCHMARK(BM_VectorCopy);
BENCHMARK(BM_StdVectorCopy);
BENCHMARK(BM_VectorPushBack);
BENCHMARK(BM_StdVectorPushBack);
BENCHMARK(BM_MapInsertFindWalk);
BENCHMARK(BM_StdMapInsertFindWalk);
ORXSRV_RATIO(vector_copy_vs_std_vector, "BM_VectorCopy", "BM_StdVectorCopy");
ORXSRV_RATIO(vector_push_back_vs_std_vector, "BM_VectorPushBack", "BM_StdVectorPushBack");
ORXSRV_RATIO(map_insert_find_walk_vs_std_map, "BM_MapInsertFindWalk", "BM_StdMapInsertFindWalk");
