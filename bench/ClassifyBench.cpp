// Element classification of 10^6 elements assigned through 1,000 specification compartments over
// 20 shapes, against one plain pass over the same element lists that builds per-shape unions:
//   classify_vs_scan                    time of BuildEltClassification against the plain pass
//   classify_peak_memory_vs_lists       peak memory the classification takes, against the bytes
//                                       of the element lists
#include "BenchMemory.h"
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <algorithm>
#include <random>
#include <vector>

namespace
{
int const kElements = 1000000;
int const kCompartments = 1000;
int const kShapes = 20;

int Schema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

// Element lists of the compartments: a shuffled split of all elements, each list ascending; and the
// shape of each compartment's specification.
struct Lists
{
    Lists()
    {
        std::vector<int> order(kElements);
        for (int e = 0; e < kElements; ++e)
            order[e] = e;
        std::mt19937 random(3);
        std::shuffle(order.begin(), order.end(), random);
        int const per = kElements / kCompartments;
        for (int c = 0; c < kCompartments; ++c)
        {
            elements.emplace_back(order.begin() + c * per, order.begin() + (c + 1) * per);
            std::sort(elements.back().begin(), elements.back().end());
            shapes.push_back(static_cast<int>(random() % kShapes));
        }
    }
    std::vector<std::vector<int>> elements;
    std::vector<int> shapes;
};

Lists const& TheLists()
{
    static Lists const lists;
    return lists;
}

// A document whose mesh assigns each compartment's elements to its own specification.
struct Model
{
    Model()
    {
        ORXSimPosition const focus = doc.Focus();
        ORXSimPosition const model = doc.CreateDataRecord(Schema(25, 1)).Pos();
        doc.SetModel(model);
        mesh = doc.CreateDataRecord(Schema(20, 0)).Pos();
        ORXObjModel(model).SetMesh(mesh);
        ORXSimCollectionID const elements = focus.CreateTypedCollection(kElements, Schema(23, 65));
        mesh.SetElementCollection(ORXSimPosition(elements));
        ORXSimCollectionID const shapes = focus.CreateTypedCollection(kShapes, Schema(23, 30));
        ORXSimCollectionID const specs = focus.CreateTypedCollection(kCompartments, Schema(23, 40));
        doc.SetElementSpecCollection(ORXSimPosition(specs));
        ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> compartments(kCompartments,
                                                                                               0);
        for (int c = 0; c < kCompartments; ++c)
        {
            doc.GetRecord(specs, c).SetPosition(Schema(23, 31), doc.GetRecord(shapes, TheLists().shapes[c]));
            std::vector<int> const& list = TheLists().elements[c];
            ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> pair(2, 0);
            pair.Get(0) = ORXSimCollection(specs).CreateCSet(&c, 1);
            pair.Get(1) = ORXSimCollection(elements).CreateCSet(list.data(), static_cast<int>(list.size()));
            compartments.Get(c) = ORXSimCompartment(pair);
        }
        mesh.SetElementSpecAssignment(
            ORXSimPosition(focus.CreateTypedDSet(ORXSimCtation(compartments), Schema(23, 50))));
    }
    ~Model() { doc.Close(); }

    ORXObjDocument doc = ORXObjDocument::New();
    ORXObjMesh mesh;
};

void BM_Classify(benchmark::State& state)
{
    Model model;
    for (auto _ : state)
        benchmark::DoNotOptimize(ORXSrvEltClassificationBuilder(model.doc.Focus())
                                     .BuildEltClassification(ORXSrvEltClassificationShape));
}

// One pass over the lists, merging each into its shape's ascending union.
void BM_ScanUnions(benchmark::State& state)
{
    Lists const& lists = TheLists();
    for (auto _ : state)
    {
        std::vector<std::vector<int>> unions(kShapes);
        std::vector<int> merged;
        for (int c = 0; c < kCompartments; ++c)
        {
            std::vector<int>& target = unions[lists.shapes[c]];
            merged.resize(target.size() + lists.elements[c].size());
            std::merge(target.begin(), target.end(), lists.elements[c].begin(), lists.elements[c].end(),
                       merged.begin());
            target.swap(merged);
        }
        benchmark::DoNotOptimize(unions.data());
    }
}

void BM_ClassifyMemory(benchmark::State& state)
{
    Model model;
    double ratio = 0;
    for (auto _ : state)
    {
        mem_ReleaseCachedBlocks();
        long long const before = OrxBenchBytesInUse();
        OrxBenchResetPeak();
        ORXSrvEltClassificationBuilder(model.doc.Focus())
            .BuildEltClassification(ORXSrvEltClassificationShape);
        ratio = static_cast<double>(OrxBenchPeakBytes() - before) /
                (static_cast<double>(kElements) * sizeof(int));
    }
    OrxBenchPrintRatio("classify_peak_memory_vs_lists", ratio);
}
} // namespace

BENCHMARK(BM_Classify)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScanUnions)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ClassifyMemory)->Iterations(1)->Unit(benchmark::kMillisecond);
ORXSRV_RATIO(classify_vs_scan, "BM_Classify", "BM_ScanUnions");
