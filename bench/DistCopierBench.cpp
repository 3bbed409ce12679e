// Distribution copies against memcpy of the same bytes out and in, and scoped-name lookups of node
// sets against std::map finds.
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <cstring>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace
{
int const kRows = 1000000;
int const kColumns = 6;
int const kType = vds_CoreFragmentTypeIndex(13, 5);
using CSetIDArray = ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>>;

// One side of a copy: rows x columns collections and a double distribution over them.
struct Side
{
    explicit Side(ORXSimDatabase const& document) : doc(document)
    {
        ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> grid(2, 0);
        grid.Get(0) = rows.ID();
        grid.Get(1) = columns.ID();
        distribution = doc.Focus().CreateTypedDistribution(ORXSimGrid(grid), kType, ORXSimRangeType(4));
        sets.PushBack(rows.CreateTempCSetStrided(0, kRows));
        sets.PushBack(columns.CreateTempCSetStrided(0, kColumns));
    }
    // A chunked drawer over rows [first, first + count) and every column.
    void Fill(int first, int count, double const* values)
    {
        ORXSimArray<int> chunks(2, 0);
        chunks.Get(0) = 100000;
        chunks.Get(1) = kColumns;
        ORXSimTransfer write{ORXSimDistribution(distribution)};
        write.SetWrite().SetMakeNewDrawerChunked(chunks).SetBufferPadding(false);
        write.SetDim(0, rows.CreateTempCSetStrided(first, count)).SetDim(1, sets[1]).CheckView();
        write.SetBuffer(0, const_cast<double*>(values), write.RequiredBufferSize(0)).ExecWrite();
        write.RelinquishBuffers();
    }

    ORXSimDatabase doc;
    ORXSimCollection rows{doc.Focus().CreateTypedCollection(kRows, kType)};
    ORXSimCollection columns{doc.Focus().CreateTypedCollection(kColumns, kType)};
    ORXSimDistributionID distribution;
    CSetIDArray sets;
};

std::vector<double> const& Values()
{
    static std::vector<double> const values = []
    {
        std::vector<double> v(static_cast<std::size_t>(kRows) * kColumns);
        for (std::size_t i = 0; i < v.size(); ++i)
            v[i] = static_cast<double>(i);
        return v;
    }();
    return values;
}

void BM_CopyDistribution(benchmark::State& state)
{
    ORXSimDatabase source = ORXSimDatabase::CreateNew();
    Side read(source);
    read.Fill(0, kRows / 2, Values().data());
    read.Fill(kRows / 2, kRows / 2, Values().data() + Values().size() / 2);
    ORXSrvDistributionTransform const identity;
    for (auto _ : state)
    {
        state.PauseTiming();
        ORXSimDatabase target = ORXSimDatabase::CreateNew();
        {
            Side write(target);
            state.ResumeTiming();
            ORXSrvCopyDistribution(write.distribution, read.distribution, write.sets, read.sets, identity);
            state.PauseTiming();
        }
        target.Close();
        state.ResumeTiming();
    }
    source.Close();
}

// The reference reads the bytes out into a buffer and writes them into storage that is new, as a
// copy into a distribution without drawers must.
void BM_MemcpyOutAndIn(benchmark::State& state)
{
    std::size_t const bytes = Values().size() * sizeof(double);
    std::vector<double> buffer(Values().size());
    for (auto _ : state)
    {
        double* target = new double[Values().size()];
        std::memcpy(buffer.data(), Values().data(), bytes);
        std::memcpy(target, buffer.data(), bytes);
        benchmark::DoNotOptimize(target);
        state.PauseTiming();
        delete[] target;
        state.ResumeTiming();
    }
}

int const kSets = 10000;
int const kLookups = 100000;

std::string SetName(int i)
{
    return "Part-1_Set-" + std::to_string(i);
}

std::vector<int> const& LookupOrder()
{
    static std::vector<int> const order = []
    {
        std::mt19937 random(7);
        std::vector<int> v(kLookups);
        for (int& i : v)
            i = static_cast<int>(random() % kSets);
        return v;
    }();
    return order;
}

void BM_ScopedNameLookup(benchmark::State& state)
{
    ORXObjDocument doc = ORXObjDocument::New();
    ORXSimPosition model = doc.CreateDataRecord(vds_CoreFragmentTypeIndex(25, 1)).Pos();
    model.DataRecord().SetString(0, "Model-1");
    doc.Focus().SetPosition(vds_CoreFragmentTypeIndex(25, 1), model);
    ORXSimCollection nodes{doc.Focus().CreateTypedCollection(kSets, kType)};
    ORXSimMap map = model.GetMap(vds_CoreFragmentTypeIndex(47, 7));
    for (int i = 0; i < kSets; ++i)
        map.Insert(SetName(i).c_str(), ORXSimPosition(nodes.CreateTempCSetStrided(i, 1)));
    std::vector<ORXString> names;
    for (int i : LookupOrder())
        names.emplace_back(SetName(i).c_str());
    ORXSimPosition const focus = doc.Focus();
    for (auto _ : state)
        for (ORXString const& name : names)
            benchmark::DoNotOptimize(ORXSrvGetNodeSetIDFromScopedName(focus, name, ".", nullptr));
    doc.Close();
}

void BM_StdMapLookup(benchmark::State& state)
{
    std::map<std::string, int> map;
    for (int i = 0; i < kSets; ++i)
        map.emplace(SetName(i), i);
    std::vector<std::string> names;
    for (int i : LookupOrder())
        names.push_back(SetName(i));
    for (auto _ : state)
        for (std::string const& name : names)
            benchmark::DoNotOptimize(map.find(name));
}
} // namespace

BENCHMARK(BM_CopyDistribution)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MemcpyOutAndIn)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScopedNameLookup)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StdMapLookup)->Unit(benchmark::kMillisecond);
ORXSRV_RATIO(copy_distribution_vs_memcpy, "BM_CopyDistribution", "BM_MemcpyOutAndIn");
ORXSRV_RATIO(scoped_name_lookup_vs_map, "BM_ScopedNameLookup", "BM_StdMapLookup");
