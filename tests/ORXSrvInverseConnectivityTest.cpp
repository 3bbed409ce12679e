#include "ORXSrvMeshTestDocument.h"

#include <random>
#include <utility>

namespace
{
using Entry = std::pair<unsigned int, unsigned int>; // element index, local position
using Inverse = std::vector<std::vector<Entry>>;     // by node index

// The result of an inversion, unpacked node by node; the words are read as unsigned.
Inverse Unpack(ORXSrvInverseConnectivity const& inverse, int nodeCount)
{
    Inverse result(nodeCount);
    int const* offsets = inverse.GetOffsets();
    for (int node = 0; node < nodeCount; ++node)
        for (int i = offsets[node]; i < offsets[node + 1]; ++i)
        {
            unsigned int word = static_cast<unsigned int>(inverse.GetEntries()[i]);
            result[node].emplace_back(word & 0x1ffffffu, word >> 25);
        }
    EXPECT_EQ(offsets[nodeCount], inverse.GetCount());
    return result;
}

// An inversion with no entries still gives offsets, all zero, for every node.
void ExpectNoEntries(ORXSrvInverseConnectivity const& inverse, int nodeCount)
{
    EXPECT_EQ(inverse.GetCount(), 0);
    EXPECT_EQ(inverse.GetEntries(), nullptr);
    EXPECT_EQ(std::vector<int>(inverse.GetOffsets(), inverse.GetOffsets() + nodeCount + 1),
              std::vector<int>(nodeCount + 1, 0));
}

// Writes rows of node indices for elements x locals into a new drawer of the connectivity.
void AddDrawer(ORXSrvMeshTestDocument& mesh, ORXSimDynamicID const& kind, std::vector<int> const& elements,
               int localCount, std::vector<int> const& rows)
{
    ORXSrvElementConnectivity connectivity(ORXObjMesh(mesh.mesh).GetConnectivity(), 4);
    ORXSimTransaction transaction(mesh.doc.ContextID());
    connectivity.Append(transaction, kind, ORXSrvMeshTestDocument::Ascending(mesh.elements, elements),
                        ORXSrvMeshTestDocument::Run(mesh.locals, 0, localCount), rows.data());
    transaction.Commit();
}

// Two quadrilaterals (elements 0 and 2) in one drawer and two triangles (1 and 3) in another;
// triangle 3 uses node 4 twice.
class InverseConnectivity : public ::testing::Test
{
protected:
    void SetUp() override
    {
        AddDrawer(mesh, mesh.focus.CreateDataRecord(MeshTestType(20)).ID(), {0, 2}, 4,
                  {0, 1, 4, 3, 1, 2, 5, 4});
        AddDrawer(mesh, mesh.focus.CreateDataRecord(MeshTestType(21)).ID(), {1, 3}, 3, {3, 4, 6, 4, 4, 7});
    }

    ORXSrvMeshTestDocument mesh{10, 5, 4};
    ORXSrvInverseConnectivity inverse{mesh.mesh};
};
} // namespace

TEST_F(InverseConnectivity, EntriesFollowDrawersThenElementsThenLocals)
{
    // The class copies as a value and converts from a mesh position; a copy works on its own.
    ORXSrvInverseConnectivity copy = inverse;
    ORXSrvInverseConnectivity converted = mesh.mesh;
    converted.Invert(ORXSrvMeshTestDocument::Ascending(mesh.elements, {1}));
    EXPECT_EQ(converted.GetCount(), 3);
    copy.Invert();
    EXPECT_EQ(inverse.GetOffsets(), nullptr);
    EXPECT_EQ(inverse.GetCount(), 0);

    inverse.Invert();
    Inverse expected{{{0, 0}},
                     {{0, 1}, {2, 0}},
                     {{2, 1}},
                     {{0, 3}, {1, 0}},
                     {{0, 2}, {2, 3}, {1, 1}, {3, 0}, {3, 1}},
                     {{2, 2}},
                     {{1, 2}},
                     {{3, 2}},
                     {},
                     {}};
    EXPECT_EQ(Unpack(inverse, 10), expected);
    EXPECT_EQ(inverse.GetCount(), 14);
    EXPECT_EQ(Unpack(copy, 10), expected);

    // A second inversion builds the same result afresh.
    inverse.Invert();
    EXPECT_EQ(Unpack(inverse, 10), expected);
}

TEST_F(InverseConnectivity, SelectedElementsOnlyAndAscendingOnly)
{
    inverse.Invert(ORXSrvMeshTestDocument::Ascending(mesh.elements, {2, 3, 4}));
    Inverse expected{{}, {{2, 0}}, {{2, 1}}, {}, {{2, 3}, {3, 0}, {3, 1}}, {{2, 2}}, {}, {{3, 2}}, {}, {}};
    EXPECT_EQ(Unpack(inverse, 10), expected);

    // Selecting every element gives the whole inversion; the drawers' own element sets are found
    // registered then, where a partial selection needs temporary sets.
    inverse.Invert(ORXSrvMeshTestDocument::Run(mesh.elements, 0, 5));
    Inverse selectedAll = Unpack(inverse, 10);
    inverse.Invert();
    EXPECT_EQ(selectedAll, Unpack(inverse, 10));

    inverse.Invert(ORXSrvMeshTestDocument::Run(mesh.elements, 0, 0));
    ExpectNoEntries(inverse, 10);

    // A non-ascending selection is refused and leaves no entries; the object stays usable.
    RecordedAssertions reports;
    inverse.Invert();
    EXPECT_EQ(AssertionText(
                  [&] {
                      inverse.Invert(ORXSrvMeshTestDocument::Ordered(mesh.elements, {3, 1}));
                  }),
              "elset.IsAscending() || elset.Size() == 0");
    EXPECT_EQ(inverse.GetCount(), 0);
    inverse.Invert();
    EXPECT_EQ(inverse.GetCount(), 14);
}

TEST(InverseConnectivityGrown, ADrawerExtendedByLaterAppendsIsReadWhole)
{
    ORXSrvMeshTestDocument mesh{6, 4, 3};
    ORXSrvElementConnectivity connectivity(ORXObjMesh(mesh.mesh).GetConnectivity(), 2);
    ORXSimDynamicID triangle = mesh.focus.CreateDataRecord(MeshTestType(20)).ID();
    ORXSimCSetID locals = ORXSrvMeshTestDocument::Run(mesh.locals, 0, 3);
    ORXSimTransaction transaction(mesh.doc.ContextID());
    std::vector<int> first{0, 1, 2};
    std::vector<int> later{3, 4, 5, 2, 1, 5};
    connectivity.Append(transaction, triangle, ORXSrvMeshTestDocument::Run(mesh.elements, 0, 1), locals,
                        first.data());
    connectivity.Append(transaction, triangle, ORXSrvMeshTestDocument::Ascending(mesh.elements, {1, 3}),
                        locals, later.data());
    transaction.Commit();
    ASSERT_EQ(ORXSrvMeshTestDocument::DrawerCount(mesh.connectivityDistribution), 1);

    ORXSrvInverseConnectivity inverse(mesh.mesh);
    inverse.Invert();
    Inverse expected{{{0, 0}}, {{0, 1}, {3, 1}}, {{0, 2}, {3, 0}}, {{1, 0}}, {{1, 1}}, {{1, 2}, {3, 2}}};
    EXPECT_EQ(Unpack(inverse, 6), expected);
    inverse.Invert(ORXSrvMeshTestDocument::Ascending(mesh.elements, {3}));
    EXPECT_EQ(Unpack(inverse, 6), (Inverse{{}, {{3, 1}}, {{3, 0}}, {}, {}, {{3, 2}}}));
}

TEST(InverseConnectivityEmpty, AnEmptyConnectivityGivesZeroOffsets)
{
    ORXSrvMeshTestDocument mesh{6, 3, 4};
    ORXSrvInverseConnectivity inverse(mesh.mesh);
    for (int repeat = 0; repeat < 2; ++repeat)
    {
        inverse.Invert();
        ExpectNoEntries(inverse, 6);
    }
}

TEST(InverseConnectivityPacking, HighLocalPositionsAndElementIndicesWrap)
{
    // 70 local positions; element 33554432 does not fit in 25 bits and is stored as 0.
    int const big = 33554432;
    ORXSrvMeshTestDocument mesh{70, big + 1, 70};
    std::vector<int> rows;
    for (int k = 0; k < 70; ++k)
        rows.push_back(k);
    for (int k = 0; k < 70; ++k)
        rows.push_back(69 - k);
    AddDrawer(mesh, mesh.focus.CreateDataRecord(MeshTestType(22)).ID(), {5, big}, 70, rows);

    ORXSrvInverseConnectivity inverse(mesh.mesh);
    inverse.Invert();
    Inverse result = Unpack(inverse, 70);
    for (unsigned int node = 0; node < 70; ++node)
        EXPECT_EQ(result[node], (std::vector<Entry>{{5, node}, {0, 69 - node}})) << "node " << node;
    // A local position of 64 or more makes the word negative as an int.
    int const* entries = inverse.GetEntries() + inverse.GetOffsets()[65];
    EXPECT_LT(entries[0], 0);
    EXPECT_EQ(entries[0], static_cast<int>(5u | 65u << 25));
}

TEST(InverseConnectivityLarge, ManyRowsInSparseAndDenseDrawersMatchAPlainInversion)
{
    // Enough rows that each drawer is read in many parts: a dense run of elements, and the odd
    // elements beyond it in a drawer of their own, with random nodes; then a random selection.
    int const nodeCount = 3000, dense = 30000, elementCount = 90000, localCount = 5;
    ORXSrvMeshTestDocument mesh{nodeCount, elementCount, localCount};
    std::mt19937 random(7);
    std::vector<std::vector<int>> drawerElements(2);
    std::vector<std::vector<int>> drawerRows(2);
    for (int e = 0; e < elementCount; ++e)
    {
        int const drawer = e < dense ? 0 : e % 2 == 1 ? 1 : -1;
        if (drawer < 0)
            continue;
        drawerElements[drawer].push_back(e);
        for (int k = 0; k < localCount; ++k)
            drawerRows[drawer].push_back(static_cast<int>(random() % nodeCount));
    }
    for (int drawer = 0; drawer < 2; ++drawer)
        AddDrawer(mesh, mesh.focus.CreateDataRecord(MeshTestType(20 + drawer)).ID(), drawerElements[drawer],
                  localCount, drawerRows[drawer]);

    // Drawer by drawer, element by element, local by local, as the entries of each node must run.
    auto plainInversion = [&](auto selected)
    {
        Inverse expected(nodeCount);
        for (int drawer = 0; drawer < 2; ++drawer)
            for (std::size_t row = 0; row < drawerElements[drawer].size(); ++row)
                if (selected(drawerElements[drawer][row]))
                    for (int k = 0; k < localCount; ++k)
                        expected[drawerRows[drawer][row * localCount + k]].emplace_back(
                            drawerElements[drawer][row], k);
        return expected;
    };
    ORXSrvInverseConnectivity inverse(mesh.mesh);
    inverse.Invert();
    EXPECT_EQ(Unpack(inverse, nodeCount), plainInversion([](int) { return true; }));

    std::vector<bool> chosen(elementCount);
    std::vector<int> selection;
    for (int e = 0; e < elementCount; ++e)
        if ((chosen[e] = random() % 3 == 0))
            selection.push_back(e);
    inverse.Invert(ORXSrvMeshTestDocument::Ascending(mesh.elements, selection));
    EXPECT_EQ(Unpack(inverse, nodeCount), plainInversion([&](int e) { return chosen[e]; }));
}
