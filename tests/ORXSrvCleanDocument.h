#pragma once
// A complete document with nothing for the model checker to find, built the way a host builds one:
// a mesh of hexahedra with coordinates, connectivity, user nodes, an element specification
// assignment and its classification; a shell section assignment with two layers; a ply; one step in
// the sequence with its times and a vector history field requested by a user output request. Each
// piece is a member, so that a test can break exactly one thing.
#include "ORXSrvMeshTestDocument.h"

inline int CleanSchema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

struct ORXSrvCleanDocument : ORXSrvMeshTestDocument
{
    static int const kNodes = 16;
    static int const kElements = 3;

    ORXSrvCleanDocument() : ORXSrvMeshTestDocument(kNodes, kElements, 8, 3)
    {
        BuildMesh();
        BuildSection();
        BuildStep();
        BuildHistory();
    }
    ~ORXSrvCleanDocument() { doc.Close(); }

    ORXSimPosition Record(int group, int member) const
    {
        return doc.CreateDataRecord(CleanSchema(group, member)).Pos();
    }
    // A region whose first discrete region names the element set.
    ORXSimPosition Region(ORXSimPosition const& elementSet) const
    {
        ORXSimPosition const region = Record(47, 28);
        ORXSimPosition const discrete = Record(47, 30);
        discrete.SetPosition(CleanSchema(47, 1), elementSet);
        region.GetSet(CleanSchema(47, 29)).Insert(discrete);
        return region;
    }

    void BuildMesh()
    {
        ORXSimTransaction transaction(doc.ContextID());
        std::vector<double> xyz(kNodes * 3);
        for (int i = 0; i < kNodes * 3; ++i)
            xyz[i] = 0.5 * i;
        ORXSrvNodalCoordinates(ORXObjMesh(mesh).GetCoordinates(), 100)
            .Append(transaction, Run(nodes, 0, kNodes), Run(components, 0, 3), xyz.data());
        std::vector<int> hexahedra;
        for (int e = 0; e < kElements; ++e)
            for (int n = 0; n < 8; ++n)
                hexahedra.push_back((e * 4 + n) % kNodes);
        ORXSrvElementConnectivity(ORXObjMesh(mesh).GetConnectivity(), 10)
            .Append(transaction, Record(23, 20).ID(), Run(elements, 0, kElements), Run(locals, 0, 8),
                    hexahedra.data());
        transaction.Commit();
        ORXObjMesh meshObject(mesh);
        meshObject.SetUserNodes(ORXSimPosition(ORXSimCollection(nodes).CreateCSetStrided(0, kNodes)));

        // One specification of one shape over all elements, classified by shape.
        ORXSimCollectionID const shapes = focus.CreateTypedCollection(1, CleanSchema(23, 30));
        doc.GetRecord(shapes, 0).SetSymbol(14, "HEX8");
        specs = focus.CreateTypedCollection(1, CleanSchema(23, 40));
        doc.SetElementSpecCollection(ORXSimPosition(specs));
        spec = doc.GetRecord(specs, 0);
        spec.SetPosition(CleanSchema(23, 31), doc.GetRecord(shapes, 0));
        NameSpec("C3D8");
        ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> compartments(1, 0);
        ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> pair(2, 0);
        pair.Get(0) = ORXSimCollection(specs).CreateCSetStrided(0, 1);
        pair.Get(1) = ORXSimCollection(elements).CreateCSetStrided(0, kElements);
        compartments.Get(0) = ORXSimCompartment(pair);
        meshObject.SetElementSpecAssignment(
            ORXSimPosition(focus.CreateTypedDSet(ORXSimCtation(compartments), CleanSchema(23, 50))));
        classification =
            ORXSrvEltClassificationBuilder(focus).BuildEltClassification(ORXSrvEltClassificationShape);
        meshObject.SetShapeFormulationLogicalSectionClassification(classification);
        elementClass = *classification.GetSet(CleanSchema(23, 12)).Begin();
    }
    // The element type name of the specification, as it stands in the specification name space.
    void NameSpec(char const* name) const { focus.GetMap(CleanSchema(23, 33)).Insert(name, spec); }

    void BuildSection()
    {
        section = focus.CreateTypedCollection(1, CleanSchema(50, 79));
        shell = doc.GetRecord(section, 0);
        shell.SetName("SHELL-1");
        shell.DataRecord().SetInt(0, 2);
        focus.GetSet(CleanSchema(15, 6)).Insert(shell);
        ply = Record(50, 23);
        ply.SetName("PLY-1");
        model.GetMap(CleanSchema(25, 24)).Insert("PLY-1", ply);
        focus.GetSet(CleanSchema(15, 4)).Insert(ply);
        for (int k = 0; k < 2; ++k)
        {
            ORXSimPosition const layer = Record(21, 104);
            layer.SetPosition(CleanSchema(21, 105), Record(21, 106));
            layer.SetPosition(CleanSchema(50, 24), ply);
            shell.GetVector(CleanSchema(50, 85)).PushBack(layer);
        }
        assignment = Record(50, 48);
        assignment.SetPosition(CleanSchema(50, 50), shell);
        assignment.SetPosition(
            CleanSchema(50, 49),
            Region(ORXSimPosition(ORXSimCollection(elements).CreateCSetStrided(0, kElements))));
        model.GetVector(CleanSchema(25, 26)).PushBack(assignment);
        elementClass.GetSet(CleanSchema(23, 10)).Insert(shell);
    }

    void BuildStep()
    {
        step = Record(57, 1);
        step.SetName("Step-1");
        model.GetMap(CleanSchema(57, 25)).Insert("Step-1", step);
        model.GetVector(CleanSchema(57, 24)).PushBack(step);
        focus.GetSet(CleanSchema(15, 8)).Insert(step);
        // Two times, both held by the time description's data.
        times = focus.CreateTypedCollection(2, CleanSchema(13, 85));
        ORXSimPosition const description = Record(13, 82);
        description.SetPosition(CleanSchema(13, 84), ORXSimPosition(times));
        step.SetPosition(CleanSchema(57, 57),
                         ORXSimPosition(ORXSimCollection(times).CreateCSetStrided(0, 2)));
        timeData =
            focus.CreateTypedDistribution(Grid(times, components), CleanSchema(13, 86), ORXSimRangeType(4));
        description.SetPosition(CleanSchema(13, 83), ORXSimPosition(timeData));
        WriteDrawer(timeData, Run(times, 0, 2), Run(components, 0, 1));
    }

    void BuildHistory()
    {
        for (int c = 0; c < 3; ++c)
            doc.GetRecord(components, c)
                .SetSymbol(c == 0   ? 0
                           : c == 1 ? 12
                                    : 20,
                           c == 0   ? "1"
                           : c == 1 ? "2"
                                    : "3");
        doc.SetComponentCollection(ORXSimPosition(components));
        library = Record(13, 30);
        fieldType = Record(13, 33);
        fieldType.DataRecord().SetSymb(0, 8);
        library.GetMap(CleanSchema(13, 31)).Insert("U", fieldType);

        field = Record(13, 68);
        field.SetPosition(CleanSchema(13, 48), fieldType);
        ORXSimPosition const serField = Record(13, 77);
        field.GetSet(CleanSchema(13, 71)).Insert(serField);
        ORXSimDistributionID const values =
            focus.CreateTypedDistribution(Grid(nodes, components), CleanSchema(13, 87), ORXSimRangeType(4));
        serField.GetSet(CleanSchema(13, 79))
            .Insert(ORXSimPosition(WriteDrawer(values, Run(nodes, 0, kNodes), Run(components, 0, 3))));
        step.GetSet(CleanSchema(48, 32)).Insert(field);
        step.GetSet(CleanSchema(48, 31)).Insert(field);

        request = Record(48, 22);
        request.DataRecord().SetSymb(3, 1);
        request.GetSet(CleanSchema(48, 23)).Insert(field);
        model.GetSet(CleanSchema(27, 1)).Insert(request);
        user = Record(27, 30);
        user.SetName("H-OUTPUT-1");
        user.GetSet(CleanSchema(27, 31)).Insert(request);
        user.GetSet(CleanSchema(27, 34)).Insert(Region(ORXSimPosition(Run(nodes, 0, kNodes))));
    }

    // One drawer over the two sets, filled with ones; gives its identity.
    ORXSimDrawerID WriteDrawer(ORXSimDistributionID const& distribution, ORXSimCSetID const& first,
                               ORXSimCSetID const& second) const
    {
        ORXSimTransfer write{ORXSimDistribution(distribution)};
        write.SetWrite()
            .SetMakeNewDrawer()
            .SetBufferPadding(false)
            .SetDim(0, first)
            .SetDim(1, second)
            .CheckView();
        std::vector<double> ones(write.RequiredBufferSize(0) / sizeof(double), 1.0);
        write.SetBuffer(0, ones.data(), ones.size() * sizeof(double)).ExecWrite();
        write.RelinquishBuffers();
        return write.DrawerID();
    }

    std::vector<std::string> Findings() const
    {
        ORXSrvHPVizChecker checker(doc);
        checker.Check_HPViz();
        std::vector<std::string> findings;
        for (ORXString const& message : checker.GetMessages())
            findings.push_back(message.CStr());
        return findings;
    }

    ORXSimCollectionID specs, section, times;
    ORXSimPosition spec, classification, elementClass, shell, ply, assignment, step, library, fieldType,
        field, request, user;
    ORXSimDistributionID timeData;
};
