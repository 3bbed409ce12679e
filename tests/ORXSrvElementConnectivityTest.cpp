#include "ORXSrvMeshTestDocument.h"

namespace
{
class ElementConnectivity : public ::testing::Test
{
protected:
    ORXSimCSetID Elements(int first, int count)
    {
        return ORXSrvMeshTestDocument::Run(mesh.elements, first, count);
    }
    ORXSimCSetID Locals(int count) { return ORXSrvMeshTestDocument::Run(mesh.locals, 0, count); }
    // The chunk sizes of every drawer of the connectivity, in drawer order.
    std::vector<std::vector<int>> DrawerChunks()
    {
        ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>> drawers(
            1, 0);
        ORXSimDistribution(mesh.connectivityDistribution).QueryDrawers(drawers);
        std::vector<std::vector<int>> result;
        for (int i = 0; i < drawers.Size(); ++i)
        {
            ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> chunks(0, 0);
            drawers[i].ChunkSizes(chunks);
            result.emplace_back(ORXSimArrayPointer(chunks), ORXSimArrayPointer(chunks) + chunks.Size());
        }
        return result;
    }

    ORXSrvMeshTestDocument mesh{20, 10, 4};
    ORXSimPosition connectivityPosition = ORXObjMesh(mesh.mesh).GetConnectivity();
    ORXSimDynamicID quad = mesh.focus.CreateDataRecord(MeshTestType(20)).ID();
    ORXSimDynamicID triangle = mesh.focus.CreateDataRecord(MeshTestType(21)).ID();
    ORXSimTransaction transaction{mesh.doc.ContextID()};
};
} // namespace

TEST_F(ElementConnectivity, OneDrawerPerKindReadThroughOneTransfer)
{
    ORXSrvElementConnectivity connectivity(connectivityPosition, 16);
    std::vector<int> quads{0, 1, 5, 4, 1, 2, 6, 5};
    std::vector<int> triangles{2, 3, 7};
    EXPECT_EQ(connectivity.Append(transaction, quad, Elements(0, 2), Locals(4), quads.data()), 8 * 4);
    EXPECT_EQ(connectivity.Append(transaction, triangle, Elements(2, 1), Locals(3), triangles.data()), 3 * 4);
    // A second append of a known kind extends its drawer, in the caller's element order.
    std::vector<int> more{9, 8, 12, 13, 5, 6, 10, 9};
    connectivity.Append(transaction, quad, ORXSrvMeshTestDocument::Ordered(mesh.elements, {4, 3}), Locals(4),
                        more.data());
    transaction.Commit();

    EXPECT_EQ(DrawerChunks(), (std::vector<std::vector<int>>{{16, 4}, {16, 3}}));
    // The DSet's membership followed every append.
    EXPECT_EQ(ORXSrvMeshTestDocument::Members(ORXSimDSet(mesh.connectivity).Collect(mesh.elements)),
              (std::vector<int>{0, 1, 2, 3, 4}));

    std::vector<int> rows(3 * 3, -1);
    EXPECT_EQ(connectivity.Read(ORXSimCSet(ORXSrvMeshTestDocument::Ascending(mesh.elements, {1, 2, 3})),
                                ORXSimCSet(Locals(3)), rows.data()),
              9 * 4);
    EXPECT_EQ(rows, (std::vector<int>{1, 2, 6, 2, 3, 7, 5, 6, 10}));

    int untouched = -1;
    EXPECT_EQ(connectivity.Read(ORXSimCSet(Elements(0, 0)), ORXSimCSet(Locals(3)), &untouched), 0);
    EXPECT_EQ(untouched, -1);
}

TEST_F(ElementConnectivity, PerKindChunkSizesWinAndTheDefaultIsCheckedOnlyWhenNeeded)
{
    ORXSimBtree<ORXSimDynamicID, int> chunkSizes;
    chunkSizes.Insert(triangle, 3, false);
    ORXSrvElementConnectivity byKind(connectivityPosition, chunkSizes);
    std::vector<int> triangles{0, 1, 2, 1, 2, 3};
    byKind.Append(transaction, triangle, Elements(0, 2), Locals(3), triangles.data());
    std::vector<int> quads{0, 1, 2, 3};
    EXPECT_EQ(FatalText([&] { byKind.Append(transaction, quad, Elements(2, 1), Locals(4), quads.data()); }),
              "AssertionFailed:m_chunkSize != 0");

    // An object with a default chunk size serves every kind.
    ORXSrvElementConnectivity byDefault(connectivityPosition, 5);
    byDefault.Append(transaction, quad, Elements(2, 1), Locals(4), quads.data());
    EXPECT_EQ(DrawerChunks(), (std::vector<std::vector<int>>{{3, 3}, {5, 4}}));
}

TEST_F(ElementConnectivity, ASecondObjectMakesItsOwnDrawerAndNoDistributionIsFatal)
{
    std::vector<int> quads{0, 1, 5, 4};
    ORXSrvElementConnectivity first(connectivityPosition, 8);
    first.Append(transaction, quad, Elements(0, 1), Locals(4), quads.data());
    ORXSrvElementConnectivity second(connectivityPosition, 8);
    second.Append(transaction, quad, Elements(1, 1), Locals(4), quads.data());
    EXPECT_EQ(DrawerChunks().size(), 2u);

    ORXSrvElementConnectivity empty(ORXSimPosition(), 8);
    EXPECT_EQ(FatalText([&] { empty.Append(transaction, quad, Elements(0, 1), Locals(4), quads.data()); }),
              "AssertionFailed:rdistribution.IsNull() == false");
}
