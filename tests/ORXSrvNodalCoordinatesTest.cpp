#include "ORXSrvMeshTestDocument.h"

namespace
{
// Coordinate c of node n in the test data.
double Coordinate(int node, int component)
{
    return node * 10.0 + component + 0.5;
}

std::vector<double> Rows(std::vector<int> const& nodes, int componentCount)
{
    std::vector<double> data;
    for (int node : nodes)
        for (int c = 0; c < componentCount; ++c)
            data.push_back(Coordinate(node, c));
    return data;
}

class NodalCoordinates : public ::testing::Test
{
protected:
    ORXSrvMeshTestDocument mesh{10, 4, 8};
    ORXSrvNodalCoordinates coordinates{ORXObjMesh(mesh.mesh).GetCoordinates(), 4};
    ORXSimCSetID allComponents = ORXSrvMeshTestDocument::Run(mesh.components, 0, 3);
    RecordedAssertions reports;
};
} // namespace

TEST_F(NodalCoordinates, AppendsAndReadsInTheCallersOrder)
{
    std::vector<int> order{3, 1, 0, 2};
    std::vector<double> data = Rows(order, 3);
    ORXSimTransaction transaction(mesh.doc.ContextID());
    EXPECT_EQ(coordinates.Append(transaction, ORXSrvMeshTestDocument::Ordered(mesh.nodes, order),
                                 allComponents, data.data()),
              4 * 3 * 8);
    transaction.Commit();

    EXPECT_EQ(ORXSrvMeshTestDocument::Members(coordinates.Nodes()), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(coordinates.NumberComponents(), 3);

    std::vector<double> all(12, -1.0);
    EXPECT_EQ(coordinates.Read(ORXSimCSet(ORXSrvMeshTestDocument::Run(mesh.nodes, 0, 4)),
                               ORXSimCSet(allComponents), all.data()),
              0);
    EXPECT_EQ(all, Rows({0, 1, 2, 3}, 3));

    // A subset of nodes and components, rows in the order of the given set.
    std::vector<double> part(4, -1.0);
    ORXSimCSet someNodes(ORXSrvMeshTestDocument::Ordered(mesh.nodes, {2, 0}));
    ORXSimCSet lastComponents(ORXSrvMeshTestDocument::Run(mesh.components, 1, 2));
    EXPECT_EQ(coordinates.Read(someNodes, lastComponents, part.data()), 0);
    EXPECT_EQ(part,
              (std::vector<double>{Coordinate(2, 1), Coordinate(2, 2), Coordinate(0, 1), Coordinate(0, 2)}));

    // An empty read returns 0 and leaves the buffer.
    double untouched = 7.0;
    EXPECT_EQ(coordinates.Read(ORXSimCSet(ORXSrvMeshTestDocument::Run(mesh.nodes, 0, 0)),
                               ORXSimCSet(allComponents), &untouched),
              0);
    EXPECT_EQ(untouched, 7.0);
}

TEST_F(NodalCoordinates, DisjointAppendsExtendOneDrawer)
{
    ORXSimTransaction transaction(mesh.doc.ContextID());
    std::vector<double> first = Rows({0, 1, 2, 3, 4}, 3);
    std::vector<double> second = Rows({9, 7, 8}, 3);
    coordinates.Append(transaction, ORXSrvMeshTestDocument::Run(mesh.nodes, 0, 5), allComponents,
                       first.data());
    EXPECT_EQ(coordinates.Append(transaction, ORXSrvMeshTestDocument::Ordered(mesh.nodes, {9, 7, 8}),
                                 allComponents, second.data()),
              3 * 3 * 8);
    transaction.Commit();

    EXPECT_EQ(ORXSrvMeshTestDocument::DrawerCount(mesh.coordinates), 1);
    EXPECT_EQ(coordinates.NumberNodes(), 8);
    EXPECT_EQ(ORXSrvMeshTestDocument::Members(coordinates.Nodes()),
              (std::vector<int>{0, 1, 2, 3, 4, 7, 8, 9}));

    std::vector<double> rows(2 * 3);
    coordinates.Read(ORXSimCSet(ORXSrvMeshTestDocument::Ascending(mesh.nodes, {4, 9})),
                     ORXSimCSet(allComponents), rows.data());
    EXPECT_EQ(rows, Rows({4, 9}, 3));
}

TEST_F(NodalCoordinates, RefusesASingleComponentAndASecondDrawer)
{
    ORXSimTransaction transaction(mesh.doc.ContextID());
    double one[2] = {1.0, 2.0};
    EXPECT_EQ(AssertionText(
                  [&]
                  {
                      coordinates.Append(transaction, ORXSrvMeshTestDocument::Run(mesh.nodes, 0, 2),
                                         ORXSrvMeshTestDocument::Run(mesh.components, 0, 1), one);
                  }),
              "chunks[1] > 1");
    EXPECT_EQ(ORXSrvMeshTestDocument::DrawerCount(mesh.coordinates), 0);
    // The report comes first, with the module path of the class.
    ASSERT_EQ(RecordedAssertions::Reports().size(), 1u);
    EXPECT_EQ(RecordedAssertions::Reports()[0],
              "chunks[1] > 1 at ORXSrvSimServices/ORXSrvFsm.m/src/ORXSrvNodalCoordinates");

    // Two drawers made directly: the nodes are their union, and Append refuses to choose.
    for (int first : {0, 5})
    {
        ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> chunks(2, 0);
        chunks[0] = 2;
        chunks[1] = 3;
        ORXSimTransfer make{ORXSimDistribution(mesh.coordinates)};
        make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(0);
        make.SetDim(0, ORXSrvMeshTestDocument::Run(mesh.nodes, first, 2)).SetDim(1, allComponents);
        make.CheckView();
        make.ExecMake();
    }
    EXPECT_EQ(ORXSrvMeshTestDocument::Members(coordinates.Nodes()), (std::vector<int>{0, 1, 5, 6}));
    EXPECT_EQ(coordinates.NumberComponents(), 3);
    std::vector<double> data = Rows({2}, 3);
    EXPECT_EQ(AssertionText(
                  [&]
                  {
                      coordinates.Append(transaction, ORXSrvMeshTestDocument::Run(mesh.nodes, 2, 1),
                                         allComponents, data.data());
                  }),
              "numDrawers < 2");
}

TEST_F(NodalCoordinates, DefaultObjectFailsEveryOperationAndNoDrawerFailsTheDimensionCheck)
{
    EXPECT_EQ(AssertionText([&] { coordinates.Nodes(); }), "pos >= 0");
    EXPECT_EQ(AssertionText([&] { coordinates.NumberComponents(); }), "pos >= 0");

    ORXSrvNodalCoordinates empty;
    ORXSimTransaction transaction(mesh.doc.ContextID());
    ORXSimCSet nodes(ORXSrvMeshTestDocument::Run(mesh.nodes, 0, 1));
    std::vector<double> buffer(3);
    char const* text = "m_distributionID.IsNull() == false";
    EXPECT_EQ(AssertionText([&] { empty.Read(nodes, ORXSimCSet(allComponents), buffer.data()); }), text);
    EXPECT_EQ(AssertionText([&] { empty.Append(transaction, nodes.ID(), allComponents, buffer.data()); }),
              text);
    EXPECT_EQ(AssertionText([&] { empty.Nodes(); }), text);
    EXPECT_EQ(AssertionText([&] { empty.Components(); }), text);
    EXPECT_EQ(AssertionText([&] { empty.NumberNodes(); }), text);
    EXPECT_EQ(AssertionText([&] { empty.NumberComponents(); }), text);
}
