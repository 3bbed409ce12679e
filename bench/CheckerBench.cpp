// The model checker on a clean document of 10^6 nodes and 10^6 elements, hexahedra and point masses
// alternating (coordinates, connectivity, classification, a section, 10 steps with a history field each),
// against one whole read of its coordinates and connectivity:
//   checker_vs_read    Check_HPViz against the read
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <vector>

namespace
{
int const kCount = 1000000;
int const kSteps = 10;

int Schema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

ORXSimGrid Grid(ORXSimCollectionID const& first, ORXSimCollectionID const& second)
{
    ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> grid(2, 0);
    grid.Get(0) = first;
    grid.Get(1) = second;
    return ORXSimGrid(grid);
}

struct Document
{
    Document()
    {
        ORXSimPosition const focus = doc.Focus();
        model = doc.CreateDataRecord(Schema(25, 1)).Pos();
        doc.SetModel(model);
        mesh = doc.CreateDataRecord(Schema(20, 0)).Pos();
        ORXObjModel(model).SetMesh(mesh);
        nodes = focus.CreateTypedCollection(kCount, Schema(23, 79));
        elements = focus.CreateTypedCollection(kCount, Schema(23, 65));
        components = focus.CreateTypedCollection(3, Schema(13, 5));
        locals = focus.CreateTypedCollection(8, Schema(23, 66));
        mesh.SetNodeCollection(ORXSimPosition(nodes));
        mesh.SetElementCollection(ORXSimPosition(elements));
        for (int c = 0; c < 3; ++c)
            doc.GetRecord(components, c).SetSymbol(c == 0 ? 0 : c == 1 ? 12 : 20, "C");
        doc.SetComponentCollection(ORXSimPosition(components));

        ORXSimDistributionID const coordinates =
            focus.CreateTypedDistribution(Grid(nodes, components), Schema(23, 121), ORXSimRangeType(4));
        mesh.SetCoordinates(ORXSimPosition(coordinates));
        ORXSimDistributionID const connectivity =
            focus.CreateTypedDistribution(Grid(elements, locals), Schema(23, 59), ORXSimRangeType(7, nodes));
        mesh.SetConnectivity(
            ORXSimPosition(focus.Context().CreateDSet(connectivity, ORXSimTypeID(Schema(23, 58)))));
        allNodes = ORXSimCollection(nodes).CreateCSetStrided(0, kCount);
        allElements = ORXSimCollection(elements).CreateCSetStrided(0, kCount);
        allComponents = ORXSimCollection(components).CreateCSetStrided(0, 3);
        allLocals = ORXSimCollection(locals).CreateCSetStrided(0, 8);
        ORXSimTransaction transaction(doc.ContextID());
        std::vector<double> xyz(static_cast<std::size_t>(kCount) * 3, 1.0);
        ORXSrvNodalCoordinates(mesh.GetCoordinates(), 100000)
            .Append(transaction, allNodes, allComponents, xyz.data());
        std::vector<int> hexahedra(static_cast<std::size_t>(kCount) * 8);
        for (std::size_t i = 0; i < hexahedra.size(); ++i)
            hexahedra[i] = static_cast<int>(i % kCount);
        ORXSrvElementConnectivity(mesh.GetConnectivity(), 100000)
            .Append(transaction, doc.CreateDataRecord(Schema(23, 20)).ID(), allElements, allLocals,
                    hexahedra.data());
        transaction.Commit();
        mesh.SetUserNodes(ORXSimPosition(allNodes));

        // Even elements are hexahedra with a section; odd ones point masses, which need none: their
        // class goes through the whole class loop up to the exemption of its element type.
        ORXSimCollectionID const shapes = focus.CreateTypedCollection(2, Schema(23, 30));
        doc.GetRecord(shapes, 0).SetSymbol(14, "HEX8");
        doc.GetRecord(shapes, 1).SetSymbol(1, "POINT");
        ORXSimCollectionID const specs = focus.CreateTypedCollection(2, Schema(23, 40));
        doc.SetElementSpecCollection(ORXSimPosition(specs));
        ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> compartments(2, 0);
        std::vector<int> half(kCount / 2);
        for (int k = 0; k < 2; ++k)
        {
            ORXSimPosition const spec = doc.GetRecord(specs, k);
            spec.SetPosition(Schema(23, 31), doc.GetRecord(shapes, k));
            focus.GetMap(Schema(23, 33)).Insert(k == 0 ? "C3D8" : "MASS", spec);
            for (int i = 0; i < kCount / 2; ++i)
                half[i] = 2 * i + k;
            ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> pair(2, 0);
            pair.Get(0) = ORXSimCollection(specs).CreateCSetStrided(k, 1);
            pair.Get(1) = ORXSimCollection(elements).CreateCSet(half.data(), kCount / 2);
            compartments.Get(k) = ORXSimCompartment(pair);
        }
        mesh.SetElementSpecAssignment(
            ORXSimPosition(focus.CreateTypedDSet(ORXSimCtation(compartments), Schema(23, 50))));
        ORXSimPosition const classification =
            ORXSrvEltClassificationBuilder(focus).BuildEltClassification(ORXSrvEltClassificationShape);
        mesh.SetShapeFormulationLogicalSectionClassification(classification);

        ORXSimPosition const section = doc.CreateDataRecord(Schema(50, 70)).Pos();
        focus.GetSet(Schema(15, 6)).Insert(section);
        (*classification.GetSet(Schema(23, 12)).Begin()).GetSet(Schema(23, 10)).Insert(section);
        ORXSimPosition const assignment = doc.CreateDataRecord(Schema(50, 48)).Pos();
        ORXSimPosition const region = doc.CreateDataRecord(Schema(47, 28)).Pos();
        ORXSimPosition const discrete = doc.CreateDataRecord(Schema(47, 30)).Pos();
        discrete.SetPosition(Schema(47, 1), ORXSimPosition(allElements));
        region.GetSet(Schema(47, 29)).Insert(discrete);
        assignment.SetPosition(Schema(50, 49), region);
        assignment.SetPosition(Schema(50, 50), section);
        model.GetVector(Schema(25, 26)).PushBack(assignment);

        ORXSimPosition const fieldType = doc.CreateDataRecord(Schema(13, 33)).Pos();
        fieldType.DataRecord().SetSymb(0, 8);
        doc.CreateDataRecord(Schema(13, 30)).Pos().GetMap(Schema(13, 31)).Insert("U", fieldType);
        ORXSimDistributionID const history =
            focus.CreateTypedDistribution(Grid(nodes, components), Schema(13, 87), ORXSimRangeType(4));
        ORXSimTransfer write{ORXSimDistribution(history)};
        write.SetWrite()
            .SetMakeNewDrawer()
            .SetBufferPadding(false)
            .SetDim(0, allNodes)
            .SetDim(1, allComponents);
        write.CheckView().SetBuffer(0, xyz.data(), xyz.size() * sizeof(double)).ExecWrite();
        ORXSimDrawerID const drawer = write.DrawerID();
        write.RelinquishBuffers();
        ORXSimPosition const user = doc.CreateDataRecord(Schema(27, 30)).Pos();
        user.GetSet(Schema(27, 34)).Insert(region);
        for (int s = 0; s < kSteps; ++s)
        {
            ORXSimPosition const step = doc.CreateDataRecord(Schema(57, 1)).Pos();
            model.GetMap(Schema(57, 25)).Insert(("Step-" + std::to_string(s)).c_str(), step);
            model.GetVector(Schema(57, 24)).PushBack(step);
            focus.GetSet(Schema(15, 8)).Insert(step);
            ORXSimPosition const field = doc.CreateDataRecord(Schema(13, 68)).Pos();
            field.SetPosition(Schema(13, 48), fieldType);
            ORXSimPosition const serField = doc.CreateDataRecord(Schema(13, 77)).Pos();
            field.GetSet(Schema(13, 71)).Insert(serField);
            serField.GetSet(Schema(13, 79)).Insert(ORXSimPosition(drawer));
            step.GetSet(Schema(48, 32)).Insert(field);
            ORXSimPosition const request = doc.CreateDataRecord(Schema(48, 22)).Pos();
            request.GetSet(Schema(48, 23)).Insert(field);
            user.GetSet(Schema(27, 31)).Insert(request);
        }
    }
    ~Document() { doc.Close(); }

    ORXObjDocument doc = ORXObjDocument::New();
    ORXSimPosition model;
    ORXObjMesh mesh;
    ORXSimCollectionID nodes, elements, components, locals;
    ORXSimCSetID allNodes, allElements, allComponents, allLocals;
};

Document& TheDocument()
{
    static Document document;
    return document;
}

void BM_Checker(benchmark::State& state)
{
    Document& d = TheDocument();
    std::size_t findings = 0;
    for (auto _ : state)
    {
        ORXSrvHPVizChecker checker(d.doc);
        checker.Check_HPViz();
        findings = checker.GetMessages().size();
    }
    state.counters["findings"] = static_cast<double>(findings);
}

void BM_ReadCoordinatesAndConnectivity(benchmark::State& state)
{
    Document& d = TheDocument();
    std::vector<double> xyz(static_cast<std::size_t>(kCount) * 3);
    std::vector<int> hexahedra(static_cast<std::size_t>(kCount) * 8);
    for (auto _ : state)
    {
        ORXSrvNodalCoordinates(d.mesh.GetCoordinates(), 100000)
            .Read(ORXSimCSet(d.allNodes), ORXSimCSet(d.allComponents), xyz.data());
        ORXSrvElementConnectivity(d.mesh.GetConnectivity(), 100000)
            .Read(ORXSimCSet(d.allElements), ORXSimCSet(d.allLocals), hexahedra.data());
        benchmark::DoNotOptimize(hexahedra.data());
    }
}
} // namespace

BENCHMARK(BM_Checker)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadCoordinatesAndConnectivity)->Unit(benchmark::kMillisecond);
ORXSRV_RATIO(checker_vs_read, "BM_Checker", "BM_ReadCoordinatesAndConnectivity");
