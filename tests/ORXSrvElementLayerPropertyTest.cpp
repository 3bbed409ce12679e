#include "ORXSrvMeshTestDocument.h"

#include <memory>

namespace
{
int const relationMember = vds_CoreFragmentTypeIndex(23, 140);
int const relationKey = 3;

class ElementLayerProperty : public ::testing::Test
{
protected:
    ElementLayerProperty()
    {
        ORXSimPosition library = mesh.focus.CreateDataRecord(MeshTestType(40)).Pos();
        mesh.focus.SetPosition(vds_CoreFragmentTypeIndex(15, 9), library);
        layers = mesh.focus.CreateTypedCollection(4, MeshTestType(41));
        library.SetPosition(vds_CoreFragmentTypeIndex(50, 15), ORXSimPosition(layers));
        properties = mesh.focus.CreateTypedCollection(3, MeshTestType(42));
    }

    // Made on the heap, as hosts hold it, through the class's own allocation operators.
    std::unique_ptr<ORXSrvElementLayerProperty> Make()
    {
        return std::make_unique<ORXSrvElementLayerProperty>(mesh.focus, properties, MeshTestType(43),
                                                            relationMember, relationKey, 16);
    }
    ORXSimCSetID Elements(std::vector<int> const& members)
    {
        return ORXSrvMeshTestDocument::Ascending(mesh.elements, members);
    }
    ORXSimCSetID Layers(std::vector<int> const& members)
    {
        return ORXSrvMeshTestDocument::Ascending(layers, members);
    }
    ORXSimDynamicID Property(int index) { return mesh.focus.Context().GetRecord(properties, index); }
    ORXSimPosition Related() { return mesh.mesh.Follow(relationMember, relationKey); }
    int DrawerCount()
    {
        return ORXSrvMeshTestDocument::DrawerCount(
            ORXSimDSet(Related().GetDSet()).GetRelationalDistributionID());
    }
    std::vector<int> Lookup(ORXSrvElementLayerProperty const& property, std::vector<int> const& elements,
                            std::vector<int> const& layerMembers)
    {
        std::vector<int> values(elements.size() * layerMembers.size(), -1);
        EXPECT_EQ(
            property.Lookup(ORXSimCSet(Elements(elements)), ORXSimCSet(Layers(layerMembers)), values.data()),
            static_cast<int>(values.size()));
        return values;
    }

    ORXSrvMeshTestDocument mesh{4, 8, 4};
    ORXSimCollectionID layers;
    ORXSimCollectionID properties;
    ORXSimTransaction transaction{mesh.doc.ContextID()};
};
} // namespace

TEST_F(ElementLayerProperty, DrawersAreSharedByLayerPattern)
{
    auto property = Make();
    EXPECT_EQ(property->GetElementCollection(), mesh.elements);
    EXPECT_EQ(property->GetSectionLayerCollection(), layers);

    property->Add(Elements({0, 1}), Layers({0, 2}), Property(1));
    property->Add(Elements({3}), Layers({0, 2}), Property(2));
    property->Add(Elements({2}), Layers({1}), Property(0));
    property->Save(transaction);
    EXPECT_EQ(DrawerCount(), 2);

    EXPECT_EQ(Lookup(*property, {0, 1, 3}, {0, 2}), (std::vector<int>{1, 1, 1, 1, 2, 2}));
    EXPECT_EQ(Lookup(*property, {2}, {1}), (std::vector<int>{0}));
    EXPECT_EQ(ORXSrvMeshTestDocument::Members(property->GetElementLayers(Elements({2, 3}))),
              (std::vector<int>{0, 1, 2}));
    ORXSimCSet none = property->GetElementLayers(Elements({5, 6}));
    EXPECT_EQ(none.Size(), 0);
    EXPECT_EQ(none.Union(ORXSimCSet(Layers({3}))).ID().CollectionID(), layers);
}

TEST_F(ElementLayerProperty, SaveLinksOnceAndANewObjectFindsTheDrawers)
{
    auto property = Make();
    {
        // Non-ascending sets are refused before anything is written.
        RecordedAssertions reports;
        ORXSimCSetID unordered = ORXSrvMeshTestDocument::Ordered(mesh.elements, {3, 1});
        EXPECT_EQ(AssertionText([&] { property->Add(unordered, Layers({0}), Property(0)); }),
                  "ORXSimCSet(elsetID).IsAscending()");
        ORXSimCSetID unorderedLayers = ORXSrvMeshTestDocument::Ordered(layers, {2, 0});
        EXPECT_EQ(AssertionText([&] { property->Add(Elements({1}), unorderedLayers, Property(0)); }),
                  "ORXSimCSet(layersID).IsAscending()");
    }
    property->Save(transaction);
    EXPECT_TRUE(Related().IsNull()); // nothing added, nothing linked

    property->Add(Elements({0, 1}), Layers({1, 2, 3}), Property(2));
    EXPECT_TRUE(Related().IsNull()); // nothing reaches the mesh before Save
    property->Save(transaction);
    ORXSimDSetID dset = Related().GetDSet();
    EXPECT_FALSE(dset.IsNull());
    property->Add(Elements({4}), Layers({0}), Property(1));
    property->Save(transaction);
    EXPECT_EQ(Related().GetDSet(), dset);
    EXPECT_EQ(ORXSrvMeshTestDocument::Members(ORXSimDSet(dset).Collect(mesh.elements)),
              (std::vector<int>{0, 1, 4}));

    // A new object on the mesh knows both patterns: these adds extend the existing drawers.
    auto again = Make();
    again->Add(Elements({6}), Layers({1, 2, 3}), Property(0));
    again->Add(Elements({7}), Layers({0}), Property(0));
    again->Save(transaction);
    EXPECT_EQ(DrawerCount(), 2);
    EXPECT_EQ(Lookup(*again, {1, 6}, {1, 2, 3}), (std::vector<int>{2, 2, 2, 0, 0, 0}));
    EXPECT_EQ(Lookup(*again, {4, 7}, {0}), (std::vector<int>{1, 0}));
}
