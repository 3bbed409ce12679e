// Bulk shell layers: 10^4 sections of 8 layers with every value kind appended, written and read back
// through ORXSrvShellSection, against copying the same values between plain arrays.
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace
{
int const kSections = 10000;
int const kLayers = 8;
int const kElementsPerSection = 4;

int Schema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

// A model with one shell section assignment per section over its own elements.
struct Model
{
    Model()
    {
        ORXSimPosition const model = doc.CreateDataRecord(Schema(25, 1)).Pos();
        doc.SetModel(model);
        ORXSimPosition const mesh = doc.CreateDataRecord(Schema(20, 0)).Pos();
        ORXObjModel(model).SetMesh(mesh);
        ORXSimCollectionID const elements =
            doc.Focus().CreateTypedCollection(kSections * kElementsPerSection, Schema(23, 65));
        ORXObjMesh(mesh).SetElementCollection(ORXSimPosition(elements));
        ORXSimCollectionID const sections = doc.Focus().CreateTypedCollection(kSections, Schema(50, 79));
        doc.SetMaterialCollection(ORXSimPosition(doc.Focus().CreateTypedCollection(kLayers, Schema(42, 1))));
        model.SetPosition(Schema(26, 7),
                          ORXSimPosition(doc.Focus().CreateTypedCollection(kLayers, Schema(26, 8))));
        ORXSimVector assignmentsVector = model.GetVector(Schema(25, 26));
        for (int s = 0; s < kSections; ++s)
        {
            ORXSimPosition const section = doc.GetRecord(sections, s);
            section.DataRecord().SetInt(0, kLayers);
            ORXSimPosition const assignment = doc.CreateDataRecord(Schema(50, 48)).Pos();
            ORXSimPosition const region = doc.CreateDataRecord(Schema(47, 28)).Pos();
            ORXSimPosition const discrete = doc.CreateDataRecord(Schema(47, 30)).Pos();
            discrete.SetPosition(Schema(47, 1), ORXSimPosition(ORXSimCollection(elements).CreateCSetStrided(
                                                    s * kElementsPerSection, kElementsPerSection)));
            region.GetSet(Schema(47, 29)).Insert(discrete);
            assignment.SetPosition(Schema(50, 49), region);
            assignment.SetPosition(Schema(50, 50), section);
            assignmentsVector.PushBack(assignment);
            assignments.push_back(assignment);
        }
    }
    ~Model() { doc.Close(); }

    ORXObjDocument doc = ORXObjDocument::New();
    std::vector<ORXSimPosition> assignments;
};

double Seconds(std::chrono::steady_clock::time_point since)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

void BM_BulkShellWriteRead(benchmark::State& state)
{
    double append = 0, write = 0, read = 0;
    for (auto _ : state)
    {
        state.PauseTiming();
        auto* model = new Model();
        ORXSrvBulkShellLayers& layers = omi_Singleton<ORXSrvBulkShellLayers>::Instance();
        state.ResumeTiming();
        auto start = std::chrono::steady_clock::now();
        for (int s = 0; s < kSections; ++s)
            for (int l = 0; l < kLayers; ++l)
            {
                layers.AppendMaterial(l, s, l);
                layers.AppendOrientation(l, s, l);
                layers.AppendNumSectionPoints(l, s, 3);
                layers.AppendConstThickness(l, s, 0.1 * (l + 1));
                layers.AppendConstAngle(l, s, 15.0 * l);
            }
        append += Seconds(start);
        start = std::chrono::steady_clock::now();
        layers.WriteBulkDistributions(model->doc.Focus());
        write += Seconds(start);
        start = std::chrono::steady_clock::now();
        double sum = 0;
        for (ORXSimPosition const& assignment : model->assignments)
        {
            ORXSrvShellSection const section(assignment);
            sum += section.GetConstThicknesses()[kLayers - 1] + section.GetSectionPoints()[0];
            benchmark::DoNotOptimize(section.GetMaterials()[0]);
            benchmark::DoNotOptimize(section.GetOrientations()[0]);
        }
        benchmark::DoNotOptimize(sum);
        read += Seconds(start);
        state.PauseTiming();
        delete model;
        state.ResumeTiming();
    }
    double const n = static_cast<double>(state.iterations());
    std::printf("bulk shell layers per run: append %.4f s, write %.4f s, read %.4f s\n", append / n,
                write / n, read / n);
}

// The same values copied into per-layer plain arrays and back out per section.
void BM_BulkShellCopy(benchmark::State& state)
{
    std::size_t const n = static_cast<std::size_t>(kSections) * kLayers;
    for (auto _ : state)
    {
        std::vector<int> materials(n), orientations(n), points(n);
        std::vector<double> thicknesses(n), angles(n);
        for (int s = 0; s < kSections; ++s)
            for (int l = 0; l < kLayers; ++l)
            {
                std::size_t const at = static_cast<std::size_t>(l) * kSections + s;
                materials[at] = l;
                orientations[at] = l;
                points[at] = 3;
                thicknesses[at] = 0.1 * (l + 1);
                angles[at] = 15.0 * l;
            }
        double sum = 0;
        std::vector<double> perSection(kLayers);
        std::vector<int> perSectionInts(kLayers);
        for (int s = 0; s < kSections; ++s)
        {
            for (int l = 0; l < kLayers; ++l)
            {
                std::size_t const at = static_cast<std::size_t>(l) * kSections + s;
                perSection[l] = thicknesses[at] + angles[at];
                perSectionInts[l] = materials[at] + orientations[at] + points[at];
            }
            sum += perSection[kLayers - 1] + perSectionInts[0];
        }
        benchmark::DoNotOptimize(sum);
    }
}
} // namespace

BENCHMARK(BM_BulkShellWriteRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BulkShellCopy)->Unit(benchmark::kMillisecond);
ORXSRV_RATIO(bulk_shell_write_read_vs_copy, "BM_BulkShellWriteRead", "BM_BulkShellCopy");

// The accumulator writes only when switched on, which it reads once when it is made.
static bool const orxsrv_bulk_switch = [] { return setenv("VEL_BULK_SHELL_SECTIONS", "1", 1) == 0; }();
