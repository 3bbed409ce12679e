#pragma once
// A small in-memory document for the mesh service tests: a model with a mesh, its node, element,
// component and local-position collections, an empty coordinates distribution and an empty
// connectivity DSet, plus the helpers the tests share for sets and failure reports.
#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

inline int MeshTestType(int member)
{
    return vds_CoreFragmentTypeIndex(99, member);
}

struct ORXSrvMeshTestDocument
{
    ORXSrvMeshTestDocument(int nodeCount, int elementCount, int localCount, int componentCount = 3)
        : doc(ORXObjDocument::New()), focus(doc.Focus())
    {
        model = focus.CreateDataRecord(MeshTestType(1)).Pos();
        doc.SetModel(model);
        mesh = focus.CreateDataRecord(MeshTestType(2)).Pos();
        ORXObjModel(model).SetMesh(mesh);
        ORXObjMesh meshObject(mesh);
        nodes = focus.CreateTypedCollection(nodeCount, MeshTestType(3));
        elements = focus.CreateTypedCollection(elementCount, MeshTestType(4));
        components = focus.CreateTypedCollection(componentCount, MeshTestType(5));
        locals = focus.CreateTypedCollection(localCount, MeshTestType(6));
        meshObject.SetNodeCollection(ORXSimPosition(nodes));
        meshObject.SetElementCollection(ORXSimPosition(elements));

        coordinates = focus.CreateTypedDistribution(Grid(nodes, components), MeshTestType(7),
                                                    ORXSimRangeType(ORXSimTypeKey(4)));
        meshObject.SetCoordinates(ORXSimPosition(coordinates));

        connectivityDistribution = focus.CreateTypedDistribution(Grid(elements, locals), MeshTestType(8),
                                                                 ORXSimRangeType(ORXSimTypeKey(7), nodes));
        connectivity = focus.Context().CreateDSet(connectivityDistribution,
                                                  focus.Context().Schema().TypeID(MeshTestType(9)));
        meshObject.SetConnectivity(ORXSimPosition(connectivity));
    }

    static ORXSimGrid Grid(ORXSimCollectionID const& first, ORXSimCollectionID const& second)
    {
        ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> collections(2, 0);
        collections.Get(0) = first;
        collections.Get(1) = second;
        return ORXSimGrid(collections);
    }

    // Ascending identities and ordered temporary sets of a collection.
    static ORXSimCSetID Run(ORXSimCollectionID const& collection, int first, int count)
    {
        return ORXSimCollection(collection).CreateTempCSetStrided(first, count, 1, 1);
    }
    static ORXSimCSetID Ascending(ORXSimCollectionID const& collection, std::vector<int> const& members)
    {
        return ORXSimCollection(collection)
            .CreateTempCSet(members.data(), static_cast<int>(members.size()), false);
    }
    static ORXSimCSetID Ordered(ORXSimCollectionID const& collection, std::vector<int> const& members)
    {
        return ORXSimCollection(collection)
            .CreateTempOrderedCSet(members.data(), static_cast<int>(members.size()));
    }
    static std::vector<int> Members(ORXSimCSet const& set)
    {
        std::vector<int> members(set.Size());
        set.Members(members.data());
        return members;
    }
    static int DrawerCount(ORXSimDistributionID const& distribution)
    {
        ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>> drawers(
            1, 0);
        ORXSimDistribution(distribution).QueryDrawers(drawers);
        return drawers.Size();
    }

    ORXObjDocument doc;
    ORXSimPosition focus;
    ORXSimPosition model;
    ORXSimPosition mesh;
    ORXSimCollectionID nodes;
    ORXSimCollectionID elements;
    ORXSimCollectionID components;
    ORXSimCollectionID locals;
    ORXSimDistributionID coordinates;
    ORXSimDistributionID connectivityDistribution;
    ORXSimDSetID connectivity;
};

// Runs body and gives the condition text of the ORXBasAssertException it raises, or "" if none.
template <class Body> std::string AssertionText(Body body)
{
    try
    {
        body();
    }
    catch (ORXBasAssertException const& failure)
    {
        return failure.what();
    }
    return "";
}

// While alive, assertion reports are recorded instead of printed; the report returns, so a failed
// check goes on to raise its exception.
class RecordedAssertions
{
public:
    RecordedAssertions() : m_previous(ORXSimUttAssert::SetAssertionFailureHandler(&Record))
    {
        Reports().clear();
    }
    ~RecordedAssertions() { ORXSimUttAssert::SetAssertionFailureHandler(m_previous); }
    RecordedAssertions(RecordedAssertions const&) = delete;
    RecordedAssertions& operator=(RecordedAssertions const&) = delete;

    // "text at file" of each report, in order.
    static std::vector<std::string>& Reports()
    {
        static std::vector<std::string> reports;
        return reports;
    }

private:
    static void Record(char const* text, char const* file, int)
    {
        Reports().push_back(std::string(text) + " at " + file);
    }
    ORXSimAssertionFailureHandler m_previous;
};

// Runs body with fatal error reports raised as exceptions instead of aborting; gives the message of the
// report, or "" if none.
template <class Body> std::string FatalText(Body body)
{
    struct Raise
    {
        static void Throw(char const* message, char const*, int) { throw std::runtime_error(message); }
    };
    ORXSimFatalErrorHandler const previous = ORXSimUttAssert::SetFatalErrorHandler(&Raise::Throw);
    std::string text;
    try
    {
        body();
    }
    catch (std::runtime_error const& report)
    {
        text = report.what();
    }
    ORXSimUttAssert::SetFatalErrorHandler(previous);
    return text;
}
