// Mesh data services against plain memory work on the same data:
//   coordinates_append_read_vs_memcpy  10 Appends of 10^5 nodes x 3, then one Read of all 10^6,
//                                      against memcpy of the same bytes in and out
//   invert_vs_counting_inversion       Invert() over a 100^3 block of hexahedra in two drawers,
//                                      against a two-pass counting inversion of the raw array
//   invert_peak_memory_vs_data         peak memory that Invert() takes beyond what it had, against
//                                      the connectivity bytes plus the result bytes
// Memory is measured by counting every block of the process's allocator in use.
#include "BenchMemory.h"
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <malloc.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace
{
int MeshType(int member)
{
    return vds_CoreFragmentTypeIndex(98, member);
}

ORXSimGrid Grid(ORXSimCollectionID const& first, ORXSimCollectionID const& second)
{
    ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> collections(2, 0);
    collections.Get(0) = first;
    collections.Get(1) = second;
    return ORXSimGrid(collections);
}

// A document with a model, a mesh, its node and element collections, an empty coordinates
// distribution over nodes x 3 components and an empty connectivity DSet over elements x 8 locals.
struct MeshDocument
{
    MeshDocument(int nodeCount, int elementCount) : doc(ORXObjDocument::New())
    {
        ORXSimPosition focus = doc.Focus();
        ORXSimPosition model = focus.CreateDataRecord(MeshType(1)).Pos();
        doc.SetModel(model);
        mesh = focus.CreateDataRecord(MeshType(2)).Pos();
        ORXObjModel(model).SetMesh(mesh);
        ORXObjMesh meshObject(mesh);
        nodes = focus.CreateTypedCollection(nodeCount, MeshType(3));
        elements = focus.CreateTypedCollection(elementCount, MeshType(4));
        components = focus.CreateTypedCollection(3, MeshType(5));
        locals = focus.CreateTypedCollection(8, MeshType(6));
        meshObject.SetNodeCollection(ORXSimPosition(nodes));
        meshObject.SetElementCollection(ORXSimPosition(elements));
        meshObject.SetCoordinates(ORXSimPosition(focus.CreateTypedDistribution(
            Grid(nodes, components), MeshType(7), ORXSimRangeType(ORXSimTypeKey(4)))));
        ORXSimDistributionID connectivity = focus.CreateTypedDistribution(
            Grid(elements, locals), MeshType(8), ORXSimRangeType(ORXSimTypeKey(7), nodes));
        meshObject.SetConnectivity(ORXSimPosition(
            focus.Context().CreateDSet(connectivity, focus.Context().Schema().TypeID(MeshType(9)))));
    }
    ~MeshDocument() { doc.Close(); }

    ORXObjDocument doc;
    ORXSimPosition mesh;
    ORXSimCollectionID nodes;
    ORXSimCollectionID elements;
    ORXSimCollectionID components;
    ORXSimCollectionID locals;
};

// ---- coordinates ----

constexpr int coordinateNodes = 1000000;
constexpr int coordinateAppends = 10;
constexpr int nodesPerAppend = coordinateNodes / coordinateAppends;

std::vector<double> const& CoordinateInput()
{
    static std::vector<double> const input = []
    {
        std::vector<double> values(static_cast<std::size_t>(coordinateNodes) * 3);
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = 0.25 * static_cast<double>(i);
        return values;
    }();
    return input;
}

void BM_CoordinatesAppendRead(benchmark::State& state)
{
    std::vector<double> const& input = CoordinateInput();
    std::vector<double> output(input.size());
    for (auto _ : state)
    {
        state.PauseTiming();
        auto document = std::make_unique<MeshDocument>(coordinateNodes, 1);
        ORXSimCollection nodes(document->nodes);
        ORXSimCSetID components = ORXSimCollection(document->components).CreateTempCSetStrided(0, 3, 1, 1);
        ORXSrvNodalCoordinates coordinates(ORXObjMesh(document->mesh).GetCoordinates(), 100000);
        ORXSimTransaction transaction(document->doc.ContextID());
        state.ResumeTiming();

        for (int i = 0; i < coordinateAppends; ++i)
            coordinates.Append(transaction,
                               nodes.CreateTempCSetStrided(i * nodesPerAppend, nodesPerAppend, 1, 1),
                               components, input.data() + static_cast<std::size_t>(i) * nodesPerAppend * 3);
        coordinates.Read(ORXSimCSet(nodes.CreateTempCSetStrided(0, coordinateNodes, 1, 1)),
                         ORXSimCSet(components), output.data());
        benchmark::DoNotOptimize(output.data());

        state.PauseTiming();
        transaction.Commit();
        document.reset();
        state.ResumeTiming();
    }
    if (output != input)
        state.SkipWithError("coordinates read back differ");
}

void BM_CoordinatesMemcpy(benchmark::State& state)
{
    std::vector<double> const& input = CoordinateInput();
    std::vector<double> stored(input.size());
    std::vector<double> output(input.size());
    std::size_t const chunkBytes = static_cast<std::size_t>(nodesPerAppend) * 3 * sizeof(double);
    for (auto _ : state)
    {
        for (int i = 0; i < coordinateAppends; ++i)
            std::memcpy(reinterpret_cast<char*>(stored.data()) + i * chunkBytes,
                        reinterpret_cast<char const*>(input.data()) + i * chunkBytes, chunkBytes);
        std::memcpy(output.data(), stored.data(), input.size() * sizeof(double));
        benchmark::DoNotOptimize(output.data());
        benchmark::ClobberMemory();
    }
}

// ---- inverse connectivity ----

constexpr int blockEdge = 100;
constexpr int hexElements = blockEdge * blockEdge * blockEdge;
constexpr int hexNodes = (blockEdge + 1) * (blockEdge + 1) * (blockEdge + 1);

// Node indices of the 8 corners of every hexahedron of the block, element by element.
std::vector<int> const& HexConnectivity()
{
    static std::vector<int> const rows = []
    {
        std::vector<int> result;
        result.reserve(static_cast<std::size_t>(hexElements) * 8);
        auto node = [](int i, int j, int k) { return i + (blockEdge + 1) * (j + (blockEdge + 1) * k); };
        for (int k = 0; k < blockEdge; ++k)
            for (int j = 0; j < blockEdge; ++j)
                for (int i = 0; i < blockEdge; ++i)
                    for (int corner : {node(i, j, k), node(i + 1, j, k), node(i + 1, j + 1, k),
                                       node(i, j + 1, k), node(i, j, k + 1), node(i + 1, j, k + 1),
                                       node(i + 1, j + 1, k + 1), node(i, j + 1, k + 1)})
                        result.push_back(corner);
        return result;
    }();
    return rows;
}

// The block stored as connectivity: the lower half of the elements as one kind, the upper half as
// another, so in two drawers.
MeshDocument& HexMesh()
{
    static MeshDocument* const document = []
    {
        auto* made = new MeshDocument(hexNodes, hexElements);
        ORXSrvElementConnectivity connectivity(ORXObjMesh(made->mesh).GetConnectivity(), 100000);
        ORXSimTransaction transaction(made->doc.ContextID());
        ORXSimCollection elements(made->elements);
        ORXSimCSetID locals = ORXSimCollection(made->locals).CreateTempCSetStrided(0, 8, 1, 1);
        int const half = hexElements / 2;
        for (int part = 0; part < 2; ++part)
        {
            ORXSimDynamicID kind = made->doc.Focus().CreateDataRecord(MeshType(20 + part)).ID();
            connectivity.Append(transaction, kind, elements.CreateTempCSetStrided(part * half, half, 1, 1),
                                locals, HexConnectivity().data() + static_cast<std::size_t>(part) * half * 8);
        }
        transaction.Commit();
        return made;
    }();
    return *document;
}

// The raw rows inverted in the two passes of a counting sort, with the same packed entries.
struct CountingInverse
{
    std::vector<int> offsets;
    std::unique_ptr<int[]> entries;
    std::size_t count = 0;
};

void CountingInversion(std::vector<int> const& rows, CountingInverse& inverse)
{
    inverse.offsets.assign(hexNodes + 1, 0);
    int* offsets = inverse.offsets.data();
    for (int node : rows)
        ++offsets[node + 1];
    for (int n = 0; n < hexNodes; ++n)
        offsets[n + 1] += offsets[n];
    std::vector<int> next(offsets, offsets + hexNodes);
    inverse.count = rows.size();
    inverse.entries = std::make_unique_for_overwrite<int[]>(inverse.count);
    int* entries = inverse.entries.get();
    for (int e = 0; e < hexElements; ++e)
        for (int k = 0; k < 8; ++k)
            entries[next[rows[e * 8 + k]]++] =
                static_cast<int>(static_cast<unsigned int>(e) | unsigned(k) << 25);
}

void BM_Invert(benchmark::State& state)
{
    MeshDocument& document = HexMesh();
    ORXSrvInverseConnectivity inverse(document.mesh);
    for (auto _ : state)
    {
        inverse.Invert();
        benchmark::DoNotOptimize(inverse.GetEntries());
    }
    // The result must be the counting inversion's.
    CountingInverse expected;
    CountingInversion(HexConnectivity(), expected);
    if (inverse.GetCount() != static_cast<int>(expected.count) ||
        !std::equal(expected.offsets.begin(), expected.offsets.end(), inverse.GetOffsets()) ||
        !std::equal(expected.entries.get(), expected.entries.get() + expected.count, inverse.GetEntries()))
        state.SkipWithError("inversion differs from the counting inversion");
}

void BM_CountingInversion(benchmark::State& state)
{
    std::vector<int> const& rows = HexConnectivity();
    for (auto _ : state)
    {
        CountingInverse inverse;
        CountingInversion(rows, inverse);
        benchmark::DoNotOptimize(inverse.entries.get());
    }
}

void BM_InvertPeakMemory(benchmark::State& state)
{
    MeshDocument& document = HexMesh();
    double ratio = 0.0;
    for (auto _ : state)
    {
        ORXSrvInverseConnectivity inverse(document.mesh);
        // Freed blocks kept by the memory entries would count as in use already and hide what
        // Invert takes, so they go back first.
        mem_ReleaseCachedBlocks();
        long long before = OrxBenchBytesInUse();
        OrxBenchResetPeak();
        inverse.Invert();
        double peak = static_cast<double>(OrxBenchPeakBytes() - before);
        double connectivityBytes = static_cast<double>(HexConnectivity().size() * sizeof(int));
        double resultBytes = static_cast<double>((hexNodes + 1) + inverse.GetCount()) * sizeof(int);
        ratio = peak / (connectivityBytes + resultBytes);
        state.counters["peak_MB"] = peak / 1e6;
        state.counters["data_MB"] = (connectivityBytes + resultBytes) / 1e6;
    }
    OrxBenchPrintRatio("invert_peak_memory_vs_data", ratio);
}
} // namespace

BENCHMARK(BM_CoordinatesAppendRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CoordinatesMemcpy)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Invert)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CountingInversion)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_InvertPeakMemory)->Iterations(1)->Unit(benchmark::kMillisecond);

ORXSRV_RATIO(coordinates_append_read_vs_memcpy, "BM_CoordinatesAppendRead", "BM_CoordinatesMemcpy");
ORXSRV_RATIO(invert_vs_counting_inversion, "BM_Invert", "BM_CountingInversion");
