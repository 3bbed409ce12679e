// The label mapper's node table over two documents of 10^6 labelled nodes in 10 occurrences, with
// the labels shuffled between the documents, then the mapping of an ascending set of all nodes and
// of an ordered set of 10^5, against std::sort of the same rows plus a plain merge:
//   label_mapper_vs_sort                 time of the build and the two mappings against the sort
//   label_mapper_peak_memory_vs_rows     peak memory of the build against the bytes of its rows
#include "BenchMemory.h"
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

namespace
{
int const kNodes = 1000000;
int const kOccurrences = 10;
int const kOrdered = 100000;

int Schema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

// A document whose nodes are spread over the occurrences with labels 1..n/10 in each, the ordinals
// of each occurrence shuffled by the seed.
struct Document
{
    explicit Document(unsigned seed)
    {
        ORXSimPosition const model = doc.CreateDataRecord(Schema(25, 1)).Pos();
        doc.SetModel(model);
        ORXSimPosition const mesh = doc.CreateDataRecord(Schema(20, 0)).Pos();
        ORXObjModel(model).SetMesh(mesh);
        nodes = doc.Focus().CreateTypedCollection(kNodes, Schema(23, 91));
        ORXObjMesh(mesh).SetNodeCollection(ORXSimPosition(nodes));
        std::vector<int> ordinals(kNodes);
        std::iota(ordinals.begin(), ordinals.end(), 0);
        std::mt19937 random(seed);
        std::shuffle(ordinals.begin(), ordinals.end(), random);
        int const per = kNodes / kOccurrences;
        std::vector<int> labels(per);
        std::iota(labels.begin(), labels.end(), 1);
        for (int k = 0; k < kOccurrences; ++k)
            ORXObjLabeler::DefineInstance(doc, 0, ("PART-" + std::to_string(k)).c_str(),
                                          ordinals.data() + k * per, labels.data(), per);
    }
    ~Document() { doc.Close(); }
    ORXObjDocument doc = ORXObjDocument::New();
    ORXSimCollectionID nodes;
};

struct Pair
{
    Document primary{1};
    Document secondary{2};
};

Pair& Documents()
{
    static Pair pair;
    return pair;
}

std::vector<int> const& OrderedMembers()
{
    static std::vector<int> const members = []
    {
        std::vector<int> v(kOrdered);
        std::mt19937 random(5);
        for (int& m : v)
            m = static_cast<int>(random() % kNodes);
        return v;
    }();
    return members;
}

void BM_LabelMapper(benchmark::State& state)
{
    Pair& d = Documents();
    ORXSimCSetID const all = ORXSimCollection(d.primary.nodes).CreateTempCSetStrided(0, kNodes);
    ORXSimCSetID const ordered =
        ORXSimCollection(d.primary.nodes).CreateTempOrderedCSet(OrderedMembers().data(), kOrdered);
    for (auto _ : state)
    {
        ORXSrvLabelMapper mapper(d.primary.doc.Focus(), d.secondary.doc.Focus());
        benchmark::DoNotOptimize(mapper.GetSecondaryNodeSet(all));
        benchmark::DoNotOptimize(mapper.GetMappingFromPrimaryNodeSet(ordered));
    }
}

// The same rows sorted by primary ordinal, then merged with the ascending set of all nodes.
void BM_SortAndMerge(benchmark::State& state)
{
    std::vector<ORXSrvLabelMapperQuad> source(kNodes);
    std::mt19937 random(3);
    for (int i = 0; i < kNodes; ++i)
        source[i] = {static_cast<int>(random() % kNodes), i, i % kOccurrences, i};
    std::vector<int> mapped(kNodes);
    for (auto _ : state)
    {
        std::vector<ORXSrvLabelMapperQuad> rows = source;
        std::sort(rows.begin(), rows.end(),
                  [](ORXSrvLabelMapperQuad const& a, ORXSrvLabelMapperQuad const& b)
                  { return a.m_first < b.m_first; });
        int n = 0;
        for (int member = 0, j = 0; member < kNodes && j < kNodes; ++member)
        {
            while (j < kNodes && rows[j].m_first < member)
                ++j;
            if (j < kNodes && rows[j].m_first == member)
                mapped[n++] = rows[j++].m_second;
        }
        benchmark::DoNotOptimize(mapped.data());
    }
}

void BM_LabelMapperMemory(benchmark::State& state)
{
    Pair& d = Documents();
    double ratio = 0;
    for (auto _ : state)
    {
        mem_ReleaseCachedBlocks();
        long long const before = OrxBenchBytesInUse();
        OrxBenchResetPeak();
        ORXSrvLabelMapper mapper(d.primary.doc.Focus(), d.secondary.doc.Focus());
        benchmark::DoNotOptimize(mapper.GetCommonPrimaryNodeSet());
        ratio = static_cast<double>(OrxBenchPeakBytes() - before) /
                (static_cast<double>(kNodes) * sizeof(ORXSrvLabelMapperQuad));
    }
    OrxBenchPrintRatio("label_mapper_peak_memory_vs_rows", ratio);
}
} // namespace

BENCHMARK(BM_LabelMapper)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortAndMerge)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LabelMapperMemory)->Iterations(1)->Unit(benchmark::kMillisecond);
ORXSRV_RATIO(label_mapper_vs_sort, "BM_LabelMapper", "BM_SortAndMerge");
