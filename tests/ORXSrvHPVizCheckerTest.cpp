// The model checker: a clean document shows no finding; each defect broken into it shows exactly
// its findings, in order.
#include "ORXSrvCleanDocument.h"

#include <gtest/gtest.h>

namespace
{
typedef std::vector<std::string> Texts;
} // namespace

TEST(ORXSrvHPVizCheckerTest, CleanDocumentHasNoFinding)
{
    ORXSrvCleanDocument d;
    EXPECT_EQ(d.Findings(), Texts{});
}

TEST(ORXSrvHPVizCheckerTest, MeshDefects)
{
    {
        ORXSrvCleanDocument d;
        ORXObjMesh(d.mesh).SetCoordinates(ORXSimPosition());
        EXPECT_EQ(d.Findings(), Texts{"Coodinates distribution is not present in mesh."});
    }
    {
        ORXSrvCleanDocument d;
        int const outside[] = {0, ORXSrvCleanDocument::kNodes};
        ORXSimCollection(d.nodes).ExtendSpace(ORXSrvCleanDocument::kNodes + 1);
        ORXObjMesh(d.mesh).SetUserNodes(ORXSimPosition(ORXSimCollection(d.nodes).CreateCSet(outside, 2)));
        EXPECT_EQ(d.Findings(),
                  Texts{"Some nodes from user node set are not present in coordinates distribution"});
    }
    {
        ORXSrvCleanDocument d;
        ORXObjMesh(d.mesh).SetElementSpecAssignment(d.field);
        EXPECT_EQ(
            d.Findings(),
            Texts{"Mesh->elementSpecAssignment link points to an object of category 1 instead of a DSet."});
    }
    {
        // A class without a section; then the same class of an element type that needs none.
        ORXSrvCleanDocument d;
        ORXObjMesh(d.mesh).SetShapeFormulationLogicalSectionClassification(
            ORXSrvEltClassificationBuilder(d.focus).BuildEltClassification(ORXSrvEltClassificationShape));
        EXPECT_EQ(d.Findings(),
                  Texts{" Element Class :#0; has no reference to Section; #elements:3; elClass->elSpec: "
                        "\"C3D8\"; elSpecAssign->elSpec: \"C3D8\"; elements in elementSpecAssign: YES; "
                        "elements in connectivity: YES"});
        // Renamed to an element type that needs no section; the old name goes to another record.
        d.NameSpec("MASS2");
        d.focus.GetMap(CleanSchema(23, 33)).Insert("C3D8", d.field);
        EXPECT_EQ(d.Findings(), Texts{});
    }
    {
        ORXSrvCleanDocument d;
        d.doc.Focus().SetPosition(CleanSchema(25, 1), ORXSimPosition());
        ORXSimPosition const model = d.Record(25, 1);
        d.doc.SetModel(model);
        Texts const expected = {"Mesh is not present in this Model.", "Model has no Steps."};
        EXPECT_EQ(d.Findings(), expected);
    }
}

TEST(ORXSrvHPVizCheckerTest, RegionPlyAndSectionDefects)
{
    {
        ORXSrvCleanDocument d;
        ORXSimPosition const surface = d.Record(56, 4);
        surface.SetName("SURF-1");
        d.model.GetMap(CleanSchema(47, 9)).Insert("SURF-1", surface);
        EXPECT_EQ(d.Findings(),
                  (Texts{"Analytical Surface \"SURF-1\" is not referred to by any rigid body constraint "
                         "(Constraint_RigidBody_analyticSurface).",
                         "Analytical surface \"SURF-1\" has no a mesh."}));
    }
    {
        ORXSrvCleanDocument d;
        ORXSimPosition const other = d.Record(50, 23);
        other.SetName("PLY-2");
        d.model.GetMap(CleanSchema(25, 24)).Insert("PLY-2", other);
        EXPECT_EQ(d.Findings(), Texts{"Ply \"PLY-2\" is not referred to by Focus (Focus_externalPlyIds)."});
    }
    {
        ORXSrvCleanDocument d;
        ORXSimPosition const broken = d.Record(50, 48);
        broken.SetPosition(CleanSchema(50, 49), d.Region(ORXSimPosition()));
        d.model.GetVector(CleanSchema(25, 26)).PushBack(broken);
        ORXSimPosition const layer = d.Record(21, 104);
        d.shell.GetVector(CleanSchema(50, 85)).PushBack(layer);
        ORXSimPosition const loose = d.Record(50, 23);
        ORXSimPosition const plyLayer = d.Record(21, 103);
        plyLayer.SetPosition(CleanSchema(50, 24), loose);
        d.shell.GetVector(CleanSchema(50, 85)).PushBack(plyLayer);
        EXPECT_EQ(d.Findings(), (Texts{"Shell Layer has no thickness, \"SHELL-1\" , 2.",
                                       "Ply is not linked to Model, \"SHELL-1\", 3.",
                                       "SectionAssignment  #1 has no Section link.",
                                       "Region referred by SectionAssignemt #SectionAssignment  #1 has no "
                                       "elementsCluster CSet."}));
    }
}

TEST(ORXSrvHPVizCheckerTest, StepDefects)
{
    {
        ORXSrvCleanDocument d;
        ORXSimPosition const second = d.Record(57, 31);
        second.SetName("Buckle");
        d.model.GetVector(CleanSchema(57, 24)).PushBack(second);
        EXPECT_EQ(d.Findings(), (Texts{"Step \"Buckle\" is not referred to by Focus (Focus_externalTaskIds).",
                                       "Step_Lin_Buckle \"Buckle\" has no modes link (Task_modes)."}));
    }
    {
        ORXSrvCleanDocument d;
        ORXSimCollection(d.times).ExtendSpace(3);
        d.step.SetPosition(CleanSchema(57, 57),
                           ORXSimPosition(ORXSimCollection(d.times).CreateCSetStrided(0, 3)));
        EXPECT_EQ(d.Findings(), Texts{"TimeDescription data distribution must have all members from times "
                                      "CSet for Step \"Step-1\"."});
    }
    {
        // A model with a step in its map and an empty sequence.
        ORXSrvCleanDocument e;
        ORXSimPosition const model = e.Record(25, 1);
        model.GetMap(CleanSchema(57, 25)).Insert("S", e.step);
        ORXObjModel(model).SetMesh(e.mesh);
        e.doc.SetModel(model);
        EXPECT_EQ(e.Findings(), Texts{"Model_stepSequence is empty."});
    }
}

TEST(ORXSrvHPVizCheckerTest, HistoryAndFieldDefects)
{
    {
        ORXSrvCleanDocument d;
        d.fieldType.DataRecord().SetSymb(0, 3);
        Texts const expected = {" components are not consistent with algebraicType TENSOR2_ORTHOGONAL.Step "
                                "\"Step-1\"; Field: #0; "
                                "FieldType: \"U\"; SerFld: #0; id: " +
                                    std::to_string(d.fieldType.DataRecord().ID().Minor1().Value()) + "/" +
                                    std::to_string(d.fieldType.DataRecord().ID().Minor2().Value()) + ".",
                                " components are not consistent with algebraicType "
                                "TENSOR2_ORTHOGONAL.OutputRequest #0; Field: #0; "
                                "FieldType: \"U\"; SerFld: #0; id: " +
                                    std::to_string(d.fieldType.DataRecord().ID().Minor1().Value()) + "/" +
                                    std::to_string(d.fieldType.DataRecord().ID().Minor2().Value()) + "."};
        EXPECT_EQ(d.Findings(), expected);
    }
    {
        // A field no request refers to, with no node or element dimension.
        ORXSrvCleanDocument d;
        ORXSimPosition const bare = d.Record(13, 68);
        bare.SetPosition(CleanSchema(13, 48), d.fieldType);
        d.step.GetSet(CleanSchema(48, 32)).Insert(bare);
        EXPECT_EQ(d.Findings(), Texts{"Step \"Step-1\", History field #1 is not referred to by an "
                                      "OutputRequest (OutputRequest_field)."});
        ORXSimPosition const plain = d.Record(13, 60);
        d.step.GetSet(CleanSchema(48, 32)).Insert(plain);
        EXPECT_EQ(d.Findings().back(), "Step \"Step-1\", History field #2 is not a MeshedField.");
    }
    {
        // The user request's region loses its discrete region; the field type leaves the library.
        ORXSrvCleanDocument d;
        ORXSimPosition const region = d.Record(47, 28);
        d.user.GetSet(CleanSchema(27, 34)).Insert(region);
        EXPECT_EQ(d.Findings(),
                  Texts{"Step \"Step-1\", History field #0, UserOutputRequest \"H-OUTPUT-1\" has no "
                        "DiscreteRegion link."});
    }
    {
        ORXSrvCleanDocument d;
        d.field.SetPosition(CleanSchema(13, 48), ORXSimPosition());
        EXPECT_EQ(d.Findings(), (Texts{"Step \"Step-1\"; Field: #0 has no Field_fieldType link.",
                                       "OutputRequest #0; Field: #0 has no Field_fieldType link."}));
    }
}

TEST(ORXSrvHPVizCheckerTest, FocusResultsAndRepeatedRuns)
{
    ORXSrvCleanDocument d;
    ORXSimCollectionID const regions = d.focus.CreateTypedCollection(2, CleanSchema(47, 28));
    d.model.SetPosition(CleanSchema(47, 10), ORXSimPosition(regions));
    d.doc.GetRecord(regions, 0).SetName("R-0");
    d.doc.GetRecord(regions, 1).SetName("R-1");
    d.doc.GetRecord(regions, 1).GetSet(CleanSchema(47, 29)).Insert(d.Record(47, 30));
    ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> compartments(1, 0);
    ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> one(1, 0);
    one.Get(0) = ORXSimCollection(regions).CreateCSetStrided(0, 2);
    compartments.Get(0) = ORXSimCompartment(one);
    ORXSimPosition const results = d.Record(15, 12);
    d.doc.SetResults(results);
    results.Associate(
        CleanSchema(48, 30), 0,
        ORXSimPosition(d.focus.CreateTypedDSet(ORXSimCtation(compartments), CleanSchema(48, 29))));
    Texts const once = {
        "Region \"R-0\" for output surface contribution has no DiscreteRegion link (Region_discreteRegion).",
        "Region \"R-1\" for output surface contribution has no elementsFacesCluster DSet or nodesCluster "
        "CSet."};
    EXPECT_EQ(d.Findings(), once);

    ORXSrvHPVizChecker checker(d.doc);
    checker.Check_HPViz();
    checker.Check_HPViz();
    EXPECT_EQ(checker.GetMessages().size(), 4u) << "a second run repeats every finding";
}

namespace
{
// A step of that type appended to the sequence, the map and the focus's known tasks.
ORXSimPosition AddStep(ORXSrvCleanDocument& d, int group, int member, char const* name)
{
    ORXSimPosition const step = d.Record(group, member);
    step.SetName(name);
    d.model.GetMap(CleanSchema(57, 25)).Insert(name, step);
    d.model.GetVector(CleanSchema(57, 24)).PushBack(step);
    d.focus.GetSet(CleanSchema(15, 8)).Insert(step);
    return step;
}
// A CSet of `count` members of a new collection, whose description (if any) holds it under `link`.
ORXSimPosition DescribedSet(ORXSrvCleanDocument& d, int count, ORXSimPosition const& description, int link)
{
    ORXSimCollectionID const collection = d.focus.CreateTypedCollection(count, CleanSchema(13, 90));
    if (!description.IsNull())
        description.SetPosition(link, ORXSimPosition(collection));
    return ORXSimPosition(ORXSimCollection(collection).CreateCSetStrided(0, count));
}

struct Defect
{
    char const* what;
    void (*breakIt)(ORXSrvCleanDocument&);
    Texts expected;
};

void ExpectFindings(std::vector<Defect> const& defects)
{
    for (Defect const& defect : defects)
    {
        SCOPED_TRACE(defect.what);
        ORXSrvCleanDocument d;
        defect.breakIt(d);
        EXPECT_EQ(d.Findings(), defect.expected);
    }
}
} // namespace

TEST(ORXSrvHPVizCheckerTest, MeshLinkDefects)
{
    ExpectFindings({
        {"no user nodes",
         [](ORXSrvCleanDocument& d) { ORXObjMesh(d.mesh).SetUserNodes(ORXSimPosition()); },
         {"userNodes is not present"}},
        {"empty user nodes",
         [](ORXSrvCleanDocument& d) {
             ORXObjMesh(d.mesh).SetUserNodes(
                 ORXSimPosition(ORXSimCollection(d.nodes).CreateCSetStrided(0, 0)));
         },
         {"userNodes CSet is not present"}},
        {"no node collection",
         [](ORXSrvCleanDocument& d) { ORXObjMesh(d.mesh).SetNodeCollection(ORXSimPosition()); },
         {"nodeCollection is not present"}},
        {"no element specification assignment",
         [](ORXSrvCleanDocument& d) { ORXObjMesh(d.mesh).SetElementSpecAssignment(ORXSimPosition()); },
         {"Mesh has no elementSpecAssignment."}},
        {"no element classification",
         [](ORXSrvCleanDocument& d) { ORXObjMesh(d.mesh).SetElementClassification(ORXSimPosition()); },
         {"elementClassCollection is not present"}},
        {"no shape classification",
         [](ORXSrvCleanDocument& d)
         { ORXObjMesh(d.mesh).SetShapeFormulationLogicalSectionClassification(ORXSimPosition()); },
         {"shapeFormulationLogicalSectionClassification is not present"}},
        {"classification without classes",
         [](ORXSrvCleanDocument& d)
         { ORXObjMesh(d.mesh).SetShapeFormulationLogicalSectionClassification(d.Record(23, 11)); },
         {"ElementClassification has no ElementClasses."}},
    });
}

TEST(ORXSrvHPVizCheckerTest, CoordinatesWithoutDrawersEndTheRunInTheNodeQuery)
{
    // The user-node comparison asks the coordinates for their nodes, which a distribution without a
    // drawer cannot give: the run ends there, keeping what it found.
    ORXSrvCleanDocument d;
    ORXObjMesh(d.mesh).SetCoordinates(ORXSimPosition(d.focus.CreateTypedDistribution(
        ORXSrvMeshTestDocument::Grid(d.nodes, d.components), MeshTestType(7), ORXSimRangeType(4))));
    ORXSrvHPVizChecker checker(d.doc);
    RecordedAssertions const recorded;
    EXPECT_EQ(AssertionText([&] { checker.Check_HPViz(); }), "pos >= 0");
    ASSERT_EQ(checker.GetMessages().size(), 1u);
    EXPECT_STREQ(checker.GetMessages()[0].CStr(), "There is no data in coordinates distribution.");
}

TEST(ORXSrvHPVizCheckerTest, ElementTypesThatNeedNoSection)
{
    // Prefixes, then equality, then the later prefixes; anything else is reported.
    struct Case
    {
        char const* name;
        bool exempt;
    } const cases[] = {{"MASS2", true},   {"R3D4", true},     {"R3D4X", false}, {"ZED", true},
                       {"ROTARYI", true}, {"IDCOUP3D", true}, {"RB3D2", true},  {"C3D8R", false}};
    for (Case const& c : cases)
    {
        SCOPED_TRACE(c.name);
        ORXSrvCleanDocument d;
        ORXObjMesh(d.mesh).SetShapeFormulationLogicalSectionClassification(
            ORXSrvEltClassificationBuilder(d.focus).BuildEltClassification(ORXSrvEltClassificationShape));
        d.NameSpec(c.name);
        d.focus.GetMap(CleanSchema(23, 33)).Insert("C3D8", d.field);
        Texts const reported = {std::string(" Element Class :#0; has no reference to Section; #elements:3; "
                                            "elClass->elSpec: \"") +
                                c.name + "\"; elSpecAssign->elSpec: \"" + c.name +
                                "\"; elements in elementSpecAssign: YES; elements in connectivity: YES"};
        EXPECT_EQ(d.Findings(), c.exempt ? Texts{} : reported);
    }
}

TEST(ORXSrvHPVizCheckerTest, StepDescriptionDefects)
{
    ExpectFindings({
        {"buckling step with an empty mode set and no system",
         [](ORXSrvCleanDocument& d)
         { AddStep(d, 57, 31, "B").SetPosition(CleanSchema(57, 56), DescribedSet(d, 0, {}, 0)); },
         {"Step_Lin_Buckle \"B\" has a mode set that is empty (Task_modes).", "Step \"B\" has no FESystem."}},
        {"system that is not modal",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const step = AddStep(d, 57, 1, "S");
             step.SetPosition(CleanSchema(57, 56), DescribedSet(d, 1, {}, 0));
             step.Associate(CleanSchema(12, 17), 0, d.Record(12, 61));
         },
         {"System is not ModalSystem for Step \"S\"."}},
        {"modal system without eigenvalues",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const step = AddStep(d, 57, 31, "B");
             step.SetPosition(CleanSchema(57, 56), DescribedSet(d, 1, {}, 0));
             step.Associate(CleanSchema(12, 17), 0, d.Record(12, 60));
         },
         {"ModalSystem has no eigenvalues link (ModalSystem_eigenvalues)for Step \"B\"."}},
        {"arc-length step without incrementation or arc-length description",
         [](ORXSrvCleanDocument& d)
         { AddStep(d, 55, 45, "R").SetPosition(CleanSchema(55, 46), DescribedSet(d, 2, {}, 0)); },
         {"TimeIncrementation record does not exist for Step_Gen_StaticRiks \"R\" "
          "(Step_Gen_timeIncrementation).",
          "ArcLengthDescription record does not exist."}},
        {"arc-length description without data",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const step = AddStep(d, 55, 45, "R");
             step.SetPosition(CleanSchema(54, 0), d.Record(54, 1));
             step.SetPosition(CleanSchema(55, 46), DescribedSet(d, 2, d.Record(13, 3), CleanSchema(13, 1)));
         },
         {"ArcLengthDescription record does not exist for Step \"R\"."}},
        {"time collection without description",
         [](ORXSrvCleanDocument& d) { d.step.SetPosition(CleanSchema(57, 57), DescribedSet(d, 2, {}, 0)); },
         {"Task_times CSet's TimeCollection has no parent link to TimeDescription "
          "(TimeDescription_timeCollection)for Step \"Step-1\"."}},
        {"time description without data",
         [](ORXSrvCleanDocument& d) {
             d.step.SetPosition(CleanSchema(57, 57),
                                DescribedSet(d, 2, d.Record(13, 82), CleanSchema(13, 84)));
         },
         {"TimeDescription has no data distribution for Step \"Step-1\"."}},
        {"frequency collection without description is silent",
         [](ORXSrvCleanDocument& d) { d.step.SetPosition(CleanSchema(10, 14), DescribedSet(d, 2, {}, 0)); },
         {}},
        {"frequency description without data goes on to the coverage test",
         [](ORXSrvCleanDocument& d) {
             d.step.SetPosition(CleanSchema(10, 14),
                                DescribedSet(d, 2, d.Record(13, 53), CleanSchema(13, 55)));
         },
         {"FrequencyDescription record does not exist for Step \"Step-1\".",
          "This FrequencyDescription data distribution has no all members from frequency CSet for Step "
          "\"Step-1\"."}},
    });
}

namespace
{
// The head of a serial-field finding of the clean field under that prefix.
std::string SerialHead(ORXSrvCleanDocument const& d, std::string const& prefix)
{
    ORXSimDynamicID const id = d.fieldType.DataRecord().ID();
    return prefix + "; Field: #0; FieldType: \"U\"; SerFld: #0; id: " + std::to_string(id.Minor1().Value()) +
           "/" + std::to_string(id.Minor2().Value());
}
// An analytical surface named S in the model's regions, used by one rigid body constraint RB.
ORXSimPosition Surface(ORXSrvCleanDocument& d, int type)
{
    ORXSimPosition const surface = d.Record(56, type);
    surface.SetName("S");
    d.model.GetMap(CleanSchema(47, 9)).Insert("S", surface);
    return surface;
}
} // namespace

TEST(ORXSrvHPVizCheckerTest, SurfaceAndAssignmentDefects)
{
    ExpectFindings({
        {"a region that is no analytical surface is not looked at",
         [](ORXSrvCleanDocument& d) { d.model.GetMap(CleanSchema(47, 9)).Insert("R", d.Record(47, 28)); },
         {}},
        {"rigid body constraint but no rigid bodies on the mesh",
         [](ORXSrvCleanDocument& d) { d.Record(5, 1).SetPosition(CleanSchema(5, 6), Surface(d, 10)); },
         {"Mesh has no Mesh_rigidBodies Collection.", "Analytical surface \"S\" has no a mesh."}},
        {"rigid bodies without reference nodes",
         [](ORXSrvCleanDocument& d)
         {
             d.Record(5, 1).SetPosition(CleanSchema(5, 6), Surface(d, 5));
             d.mesh.SetPosition(CleanSchema(5, 36),
                                ORXSimPosition(d.focus.CreateTypedCollection(1, CleanSchema(5, 1))));
         },
         {" Mesh has no rigidBodyReferenceNode DSet.", "Analytical surface \"S\" has no a mesh."}},
        {"rigid body missing from the reference nodes; surface mesh without its parts",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const surface = Surface(d, 4);
             ORXSimCollectionID const bodies = d.focus.CreateTypedCollection(2, CleanSchema(5, 1));
             ORXSimPosition const body = d.doc.GetRecord(bodies, 0);
             body.SetName("RB");
             body.SetPosition(CleanSchema(5, 6), surface);
             d.mesh.SetPosition(CleanSchema(5, 36), ORXSimPosition(bodies));
             ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> one(1, 0);
             one.Get(0) = ORXSimCollection(bodies).CreateCSetStrided(1, 1);
             ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> compartments(1, 0);
             compartments.Get(0) = ORXSimCompartment(one);
             d.mesh.SetPosition(CleanSchema(5, 37), ORXSimPosition(d.focus.CreateTypedDSet(
                                                        ORXSimCtation(compartments), CleanSchema(5, 38))));
             surface.SetPosition(CleanSchema(56, 13), d.Record(20, 0));
         },
         {"Rigid body \"RB\" is not present in rigidBodyReferenceNode DSet.",
          "Mesh for analytical surface \"S\" has no nodeCollection.",
          "Mesh for analytical surface \"S\" has no elementCollection.",
          "Mesh for analytical surface \"S\" has no Connectivity."}},
        {"surface of revolution without rigid body, whose orientation has no axis points",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const surface = Surface(d, 8);
             surface.SetPosition(CleanSchema(56, 13), d.mesh);
             surface.SetPosition(CleanSchema(56, 9), d.Record(26, 1));
         },
         {"Analytical Surface \"S\" is not referred to by any rigid body constraint "
          "(Constraint_RigidBody_analyticSurface).",
          "Orientation for analytical surface of revolution \"S\" has no axisPointA.",
          "Orientation for analytical surface of revolution \"S\" has no axisPointB."}},
        {"assignment without region",
         [](ORXSrvCleanDocument& d) { d.assignment.SetPosition(CleanSchema(50, 49), ORXSimPosition()); },
         {"SectionAssignment  #0 has no Region link."}},
        {"region without discrete region",
         [](ORXSrvCleanDocument& d) { d.assignment.SetPosition(CleanSchema(50, 49), d.Record(47, 28)); },
         {"Region referred by SectionAssignment  #0 has no DiscreteRegion link."}},
        {"shell section without layers, not excused",
         [](ORXSrvCleanDocument& d) { d.shell.DataRecord().SetInt(0, 0); },
         {"Shell section \"SHELL-1\" has no Layers (Section_layers)."}},
        {"shell section without layers, excused by its kind",
         [](ORXSrvCleanDocument& d)
         {
             d.shell.DataRecord().SetInt(0, 0);
             d.shell.DataRecord().SetSymb(9, 2);
         },
         {}},
        {"arbitrary beam layers with bad segments",
         [](ORXSrvCleanDocument& d)
         {
             for (int type : {40, 42})
             {
                 ORXSimPosition const layer = d.Record(21, 1);
                 layer.SetPosition(CleanSchema(21, 2), d.Record(13, type));
                 d.shell.GetVector(CleanSchema(50, 85)).PushBack(layer);
             }
         },
         {"Layer_Beam_Arbitrary_segments is not of type Field_FTable, \"SHELL-1\", 2.",
          "Layer_Beam_Arbitrary_segments has no an FTable, \"SHELL-1\", 3."}},
    });
}

TEST(ORXSrvHPVizCheckerTest, OutputRequestDefects)
{
    ExpectFindings({
        {"user request without regions",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const other = d.Record(27, 30);
             other.SetName("U2");
             other.GetSet(CleanSchema(27, 31)).Insert(d.request);
         },
         {"Step \"Step-1\", History field #0, UserOutputRequest \"U2\" has no Region link "
          "(UserOutputRequest_outputRegions)."}},
        {"unelaborated request: silent for a field over nodes, reported for one without",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const request = d.Record(48, 22);
             request.GetSet(CleanSchema(48, 23)).Insert(d.field);
             ORXSimPosition const bare = d.Record(13, 68);
             bare.SetPosition(CleanSchema(13, 48), d.fieldType);
             d.step.GetSet(CleanSchema(48, 32)).Insert(bare);
             request.GetSet(CleanSchema(48, 23)).Insert(bare);
         },
         {"OutputRequest for Step \"Step-1\", History field #1 is not referred to by UserOutputRequest "
          "(OutputRequest_elaboratedRequest)."}},
        {"a field of an exempt grid type needs no request",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const bare = d.Record(13, 68);
             bare.SetPosition(CleanSchema(13, 48), d.fieldType);
             ORXObjMeshedField(bare).SetGridType(CleanSchema(47, 20));
             d.step.GetSet(CleanSchema(48, 32)).Insert(bare);
         },
         {}},
        {"requests of another kind keep their number; a field with content and no step results",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const other = d.Record(48, 22);
             other.GetSet(CleanSchema(48, 23)).Insert(d.Record(13, 60));
             d.model.GetSet(CleanSchema(27, 1)).Insert(other);
             ORXSimPosition const request = d.Record(48, 22);
             request.DataRecord().SetSymb(3, 1);
             d.model.GetSet(CleanSchema(27, 1)).Insert(request);
             request.GetSet(CleanSchema(48, 23)).Insert(d.Record(13, 60));
             ORXSimPosition const loose = d.Record(13, 68);
             loose.SetPosition(CleanSchema(13, 48), d.fieldType);
             loose.GetSet(CleanSchema(13, 71)).Insert(*d.field.GetSet(CleanSchema(13, 71)).Begin());
             request.GetSet(CleanSchema(48, 23)).Insert(loose);
         },
         {"OutputRequest #2; Field #0 is not a MeshedField.",
          "For OutputRequest #2; Field #1; fieldtype: \"U\"; has content but has no Task_fieldResults parent "
          "link."}},
        {"primary field type missing from the library",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const loose = d.Record(13, 33);
             loose.DataRecord().SetSymb(0, 8);
             d.field.SetPosition(CleanSchema(13, 48), loose);
         },
         {"Step \"Step-1\"; Field: #0; FieldType: -MISSING-; FieldTypePrimary, has no "
          "vds_FieldTypeLib_fieldTypes "
          "parent link.",
          "OutputRequest #0; Field: #0; FieldType: -MISSING-; FieldTypePrimary, has no "
          "vds_FieldTypeLib_fieldTypes parent link."}},
        {"unsupported algebraic type on an unchecked field type",
         [](ORXSrvCleanDocument& d)
         {
             ORXSimPosition const unchecked = d.Record(13, 26);
             unchecked.DataRecord().SetSymb(0, 5);
             d.field.SetPosition(CleanSchema(13, 48), unchecked);
         },
         {}},
    });
}

TEST(ORXSrvHPVizCheckerTest, ComponentsAgainstTheAlgebraicType)
{
    ORXSrvCleanDocument d;
    d.fieldType.DataRecord().SetSymb(0, 1);
    std::string const scalar =
        "; componentSymbol Size: #3; componentSymbol[0]: #0; vds_Component_C_SCALAR: #34; "
        "components are not consistent with algebraicType SCALAR.";
    EXPECT_EQ(d.Findings(),
              (Texts{SerialHead(d, "Step \"Step-1\"") + scalar, SerialHead(d, "OutputRequest #0") + scalar}));

    d.fieldType.DataRecord().SetSymb(0, 5);
    std::string const typeName = d.focus.Context().Schema().TypeName(d.fieldType.TypePosition()).CStr();
    EXPECT_EQ(d.Findings().front(), "algebraicType index# 5 is not supported; field: " +
                                        SerialHead(d, "Step \"Step-1\"") + " subtype: " + typeName + ".");

    d.fieldType.DataRecord().SetSymb(0, 2);
    EXPECT_EQ(d.Findings().front(), SerialHead(d, "Step \"Step-1\"") +
                                        " components are not consistent with algebraicType TENSOR2_GENERAL.");
    d.fieldType.DataRecord().SetSymb(0, 0);
    EXPECT_EQ(d.Findings(), Texts{});
}
