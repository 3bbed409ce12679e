// Drawer transfers against memcpy of the same bytes, and CSet algebra against the standard
// algorithms on sorted vectors.
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

namespace
{
int const kRows = 1000000;
int const kColumns = 10;
int const kAppends = 100;
int const kAppendRows = 10000;
int const kType = vds_CoreFragmentTypeIndex(13, 5);

// A document with a rows x columns double distribution and no drawer yet.
struct Fixture
{
    Fixture()
    {
        ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> grid(2, 0);
        grid.Get(0) = rows.ID();
        grid.Get(1) = columns.ID();
        distribution = doc.Focus().CreateTypedDistribution(ORXSimGrid(grid), kType, ORXSimRangeType(4));
    }
    ~Fixture() { doc.Close(); }
    ORXSimCSetID Rows(int first, int count) const { return rows.CreateTempCSetStrided(first, count, 1, 1); }
    ORXSimCSetID AllColumns() const { return columns.CreateTempCSetStrided(0, kColumns, 1, 1); }
    ORXSimDrawerID MakeDrawer(ORXSimCSetID const& rowSet)
    {
        ORXSimArray<int> chunks(2, 0);
        chunks.Get(0) = 100000;
        chunks.Get(1) = kColumns;
        ORXSimTransfer make{ORXSimDistribution(distribution)};
        make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(0);
        make.SetDim(0, rowSet).SetDim(1, AllColumns()).CheckView().ExecMake();
        return make.DrawerID();
    }
    void Write(ORXSimDrawerID drawer, ORXSimCSetID const& rowSet, double const* values)
    {
        ORXSimTransfer write{ORXSimDistribution(distribution)};
        write.SetWrite().SetAutoExtend().SetBufferPadding(false).SetDrawer(drawer);
        write.SetDim(0, rowSet).SetDim(1, AllColumns()).CheckView();
        write.SetBuffer(0, const_cast<double*>(values), write.RequiredBufferSize(0)).ExecWrite();
        write.RelinquishBuffers();
    }
    void Read(ORXSimCSetID const& rowSet, double* values)
    {
        ORXSimTransfer read{ORXSimDistribution(distribution)};
        read.SetRead().SetBufferPadding(false).SetDim(0, rowSet).SetDim(1, AllColumns()).CheckView();
        read.SetBuffer(0, values, read.RequiredBufferSize(0)).ExecRead();
        read.RelinquishBuffers();
    }

    ORXSimDatabase doc = ORXSimDatabase::CreateNew();
    ORXSimCollection rows{doc.Focus().CreateTypedCollection(kRows, kType)};
    ORXSimCollection columns{doc.Focus().CreateTypedCollection(kColumns, kType)};
    ORXSimDistributionID distribution;
};

std::vector<double> const& Source()
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

void BM_DrawerRead(benchmark::State& state)
{
    Fixture f;
    ORXSimCSetID all = f.Rows(0, kRows);
    ORXSimDrawerID drawer = f.MakeDrawer(all);
    f.Write(drawer, all, Source().data());
    std::vector<double> buffer(Source().size());
    for (auto _ : state)
    {
        f.Read(all, buffer.data());
        benchmark::DoNotOptimize(buffer.data());
    }
    if (buffer != Source())
        state.SkipWithError("read gave other values");
    static bool printed = false;
    if (!printed)
        OrxBenchPrintRatio("drawer_memory_vs_values",
                           static_cast<double>(ORXSimDrawer(drawer).AllocatedBytes()) /
                               (8.0 * Source().size()));
    printed = true;
}

void BM_DrawerWrite(benchmark::State& state)
{
    Fixture f;
    ORXSimCSetID all = f.Rows(0, kRows);
    ORXSimDrawerID drawer = f.MakeDrawer(all);
    f.Write(drawer, all, Source().data());
    for (auto _ : state)
        f.Write(drawer, all, Source().data());
}

void BM_MemcpyWhole(benchmark::State& state)
{
    std::vector<double> buffer(Source().size());
    for (auto _ : state)
    {
        std::memcpy(buffer.data(), Source().data(), Source().size() * sizeof(double));
        benchmark::DoNotOptimize(buffer.data());
    }
}

void BM_DrawerAppendRead(benchmark::State& state)
{
    std::vector<double> buffer(static_cast<std::size_t>(kAppends) * kAppendRows * kColumns);
    for (auto _ : state)
    {
        Fixture f;
        ORXSimDrawerID drawer = f.MakeDrawer(f.Rows(0, kAppendRows));
        for (int a = 0; a < kAppends; ++a)
            f.Write(drawer, f.Rows(a * kAppendRows, kAppendRows),
                    Source().data() + static_cast<std::size_t>(a) * kAppendRows * kColumns);
        f.Read(f.Rows(0, kAppends * kAppendRows), buffer.data());
        benchmark::DoNotOptimize(buffer.data());
    }
}

void BM_MemcpyAppendRead(benchmark::State& state)
{
    std::size_t const bytes = static_cast<std::size_t>(kAppendRows) * kColumns * sizeof(double);
    std::vector<double> buffer(static_cast<std::size_t>(kAppends) * kAppendRows * kColumns);
    for (auto _ : state)
    {
        std::vector<double> stored(buffer.size());
        for (int a = 0; a < kAppends; ++a)
            std::memcpy(reinterpret_cast<char*>(stored.data()) + a * bytes,
                        reinterpret_cast<char const*>(Source().data()) + a * bytes, bytes);
        std::memcpy(buffer.data(), stored.data(), stored.size() * sizeof(double));
        benchmark::DoNotOptimize(buffer.data());
    }
}

// Two ascending sets of 10^6 members drawn from twice that range.
struct Operands
{
    Operands()
    {
        f.rows.ExtendSpace(2 * kRows);
        std::mt19937 random(11);
        for (std::vector<int>* v : {&a, &b})
        {
            for (int m = 0; m < 2 * kRows; ++m)
                if (random() % 2)
                    v->push_back(m);
            v->resize(std::min<std::size_t>(v->size(), kRows));
        }
        sets.push_back(f.rows.CreateVolatileCSet(a.data(), static_cast<int>(a.size()), false));
        sets.push_back(f.rows.CreateVolatileCSet(b.data(), static_cast<int>(b.size()), false));
    }
    Fixture f;
    std::vector<int> a, b;
    std::vector<ORXSimCSet> sets;
};

Operands& TheOperands()
{
    static Operands operands;
    return operands;
}

void BM_CSetAlgebra(benchmark::State& state)
{
    Operands& o = TheOperands();
    ORXSimCSet const& x = o.sets[0];
    ORXSimCSet const& y = o.sets[1];
    for (auto _ : state)
    {
        ORXSimCSet u = x.Union(y), i = x.Intersection(y), d = x - y;
        bool same = x.SameMembers(y);
        benchmark::DoNotOptimize(same);
        benchmark::DoNotOptimize(u.Size() + i.Size() + d.Size());
    }
}

void BM_StdAlgebra(benchmark::State& state)
{
    Operands& o = TheOperands();
    for (auto _ : state)
    {
        std::vector<int> u(o.a.size() + o.b.size()), i(std::min(o.a.size(), o.b.size())), d(o.a.size());
        u.resize(std::set_union(o.a.begin(), o.a.end(), o.b.begin(), o.b.end(), u.begin()) - u.begin());
        i.resize(std::set_intersection(o.a.begin(), o.a.end(), o.b.begin(), o.b.end(), i.begin()) -
                 i.begin());
        d.resize(std::set_difference(o.a.begin(), o.a.end(), o.b.begin(), o.b.end(), d.begin()) - d.begin());
        bool same = o.a.size() == o.b.size() && std::equal(o.a.begin(), o.a.end(), o.b.begin());
        benchmark::DoNotOptimize(same);
        benchmark::DoNotOptimize(u.size() + i.size() + d.size());
    }
}
} // namespace

BENCHMARK(BM_DrawerRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DrawerWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MemcpyWhole)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DrawerAppendRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MemcpyAppendRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CSetAlgebra)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StdAlgebra)->Unit(benchmark::kMillisecond);

ORXSRV_RATIO(drawer_read_vs_memcpy, "BM_DrawerRead", "BM_MemcpyWhole");
ORXSRV_RATIO(drawer_write_vs_memcpy, "BM_DrawerWrite", "BM_MemcpyWhole");
ORXSRV_RATIO(drawer_append_read_vs_memcpy, "BM_DrawerAppendRead", "BM_MemcpyAppendRead");
ORXSRV_RATIO(cset_algebra_vs_std, "BM_CSetAlgebra", "BM_StdAlgebra");
