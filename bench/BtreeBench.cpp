// 10^6 random int keys inserted into ORXSimBtree and each looked up, against std::map. The tree's
// height is printed beside log2(n): its single rotations balance less tightly than a red-black tree.
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <random>
#include <vector>

namespace
{
int const kKeys = 1000000;

std::vector<int> const& RandomKeys()
{
    static std::vector<int> const keys = []
    {
        std::mt19937 random(12345);
        std::vector<int> result(kKeys);
        for (int& key : result)
            key = static_cast<int>(random());
        return result;
    }();
    return keys;
}

template <class Node> int Height(Node const* node)
{
    if (!node)
        return 0;
    int left = Height(node->Left());
    int right = Height(node->Right());
    return 1 + (left > right ? left : right);
}

void BM_BtreeInsertLookup(benchmark::State& state)
{
    std::vector<int> const& keys = RandomKeys();
    int height = 0;
    int size = 0;
    for (auto _ : state)
    {
        ORXSimBtree<int, int> tree;
        for (int key : keys)
            tree.Insert(key, key, false);
        long long sum = 0;
        for (int key : keys)
            sum += *tree.Find(key);
        benchmark::DoNotOptimize(sum);
        height = Height(tree.Root());
        size = tree.Size();
    }
    double log2n = std::log2(static_cast<double>(size));
    state.counters["height"] = height;
    state.counters["log2n"] = log2n;
    std::printf("btree height %d for %d keys, log2(n) %.2f, height / log2(n) %.2f\n", height, size, log2n,
                height / log2n);
}
BENCHMARK(BM_BtreeInsertLookup)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_StdMapInsertLookup(benchmark::State& state)
{
    std::vector<int> const& keys = RandomKeys();
    for (auto _ : state)
    {
        std::map<int, int> map;
        for (int key : keys)
            map.emplace(key, key);
        long long sum = 0;
        for (int key : keys)
            sum += map.find(key)->second;
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_StdMapInsertLookup)->Unit(benchmark::kMillisecond)->Iterations(3);
} // namespace

ORXSRV_RATIO(btree_vs_std_map, "BM_BtreeInsertLookup", "BM_StdMapInsertLookup");
