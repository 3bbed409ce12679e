// Element classification by shape, checked against a plain model of the same assignment, and the
// point sets of element specifications.
#include "DocumentFixture.h"

#include <map>
#include <set>
#include <string>

namespace
{
// Compartments as (specification, elements).
struct Assigned
{
    int spec;
    std::vector<int> elements;
};
} // namespace

class ORXSrvEltClassificationTest : public DocumentFixture
{
protected:
    // A mesh of 20 elements; specifications 0..5 whose shapes sit at places 5, 2, 5, 7, 2, 9.
    void SetUp() override
    {
        ORXSimPosition const model = NewRecord(25, 1);
        m_document.SetModel(model);
        m_mesh = NewRecord(20, 0);
        ORXObjModel(model).SetMesh(m_mesh);
        m_elements = NewCollection(23, 65, 20).GetCollection();
        m_mesh.SetElementCollection(ORXSimPosition(m_elements));
        m_shapes = NewCollection(23, 30, 10).GetCollection();
        for (int place = 0; place < 10; ++place)
            m_document.GetRecord(m_shapes, place)
                .SetSymbol(place, std::string(1, 'S').append(std::to_string(place)).c_str());
        m_specs = NewCollection(23, 40, 6).GetCollection();
        m_document.SetElementSpecCollection(ORXSimPosition(m_specs));
        for (int spec = 0; spec < 6; ++spec)
            m_document.GetRecord(m_specs, spec)
                .SetPosition(Schema(23, 31), m_document.GetRecord(m_shapes, m_shapeOfSpec[spec]));
    }

    void Assign(std::vector<Assigned> const& assigned)
    {
        CompartmentArray compartments(static_cast<int>(assigned.size()), 0);
        for (std::size_t i = 0; i < assigned.size(); ++i)
        {
            ORXSimCSetID const spec = ORXSimCollection(m_specs).CreateCSet(&assigned[i].spec, 1);
            ORXSimCSetID const elements =
                ORXSimCollection(m_elements)
                    .CreateCSet(assigned[i].elements.data(), static_cast<int>(assigned[i].elements.size()));
            compartments.Get(static_cast<int>(i)) = Compartment(spec, elements);
        }
        m_mesh.SetElementSpecAssignment(
            ORXSimPosition(m_document.Focus().CreateTypedDSet(ORXSimCtation(compartments), Schema(23, 50))));
    }

    // Shape place of each class in listing order, with its elements, as the classification holds them.
    std::vector<std::pair<int, std::vector<int>>> Listed(ORXSimPosition const& classification) const
    {
        std::vector<std::pair<int, std::vector<int>>> listed;
        for (ORXSimSetiterator it = classification.GetSet(Schema(23, 12)).Begin(); it.NotDone(); ++it)
        {
            ORXObjElementClass const elementClass(*it);
            int const shape = elementClass.GetElementSpec().GetPosition(Schema(23, 31)).GetSymbolPosition();
            listed.emplace_back(shape, Members(ORXSimCSet(ORXSimCSetID(elementClass.GetElementCSet()))));
        }
        return listed;
    }
    // Shape place of each compartment of the membership DSet, in order, with its elements.
    std::vector<std::pair<int, std::vector<int>>> Membership(ORXSimPosition const& classification) const
    {
        std::vector<std::pair<int, std::vector<int>>> members;
        ORXSimCtation const& ctation =
            ORXSimDSet(ORXObjElementClassification(classification).GetMembership()).GetCtation();
        for (int c = 0; c < ctation.NumCompartments(); ++c)
        {
            ORXSimCSet const& classSet = ctation[c][0];
            ORXObjElementClass const elementClass(m_document.GetRecord(classSet.CollectionID(), classSet[0]));
            int const shape = elementClass.GetElementSpec().GetPosition(Schema(23, 31)).GetSymbolPosition();
            members.emplace_back(shape, Members(ctation[c][1]));
        }
        return members;
    }

    ORXObjMesh m_mesh;
    ORXSimCollectionID m_elements, m_shapes, m_specs;
    int const m_shapeOfSpec[6] = {5, 2, 5, 7, 2, 9};
};

TEST_F(ORXSrvEltClassificationTest, OneClassPerShapeInBothOrders)
{
    std::vector<Assigned> const assigned = {{0, {0, 1, 2}}, {1, {3, 4}},   {2, {10, 11}},
                                            {4, {5}},       {3, {12, 13}}, {0, {14}}};
    Assign(assigned);
    // The plain model: elements per shape, shapes in order of first appearance.
    std::map<int, std::set<int>> byShape;
    std::vector<int> firstSeen;
    for (Assigned const& a : assigned)
    {
        int const shape = m_shapeOfSpec[a.spec];
        if (!byShape.count(shape))
            firstSeen.push_back(shape);
        byShape[shape].insert(a.elements.begin(), a.elements.end());
    }

    ORXSimPosition const classification = ORXSrvEltClassificationBuilder(m_document.Focus())
                                              .BuildEltClassification(ORXSrvEltClassificationShape);
    ASSERT_FALSE(classification.IsNull());
    EXPECT_TRUE(Same(m_mesh.GetElementClassification(), classification));

    std::vector<std::pair<int, std::vector<int>>> expectedListed, expectedMembership;
    for (int shape : firstSeen)
        expectedListed.emplace_back(shape, std::vector<int>(byShape[shape].begin(), byShape[shape].end()));
    for (auto const& [shape, elements] : byShape)
        expectedMembership.emplace_back(shape, std::vector<int>(elements.begin(), elements.end()));
    EXPECT_EQ(Listed(classification), expectedListed);
    EXPECT_EQ(Membership(classification), expectedMembership);

    // The class of a single compartment keeps that compartment's element set.
    ORXSimCtation const& ctation =
        ORXSimDSet(ORXObjElementClassification(classification).GetMembership()).GetCtation();
    ORXSimCtation const& assignment = ORXSimDSet(m_mesh.GetElementSpecAssignment()).GetCtation();
    EXPECT_EQ(ctation[2][1].ID(), assignment[4][1].ID()) << "shape 7 comes from one compartment";
}

TEST_F(ORXSrvEltClassificationTest, EmptyAssignmentAndNoAssignment)
{
    EXPECT_TRUE(ORXSrvEltClassificationBuilder(m_document.Focus())
                    .BuildEltClassification(ORXSrvEltClassificationShape)
                    .IsNull());
    EXPECT_TRUE(m_mesh.GetElementClassification().IsNull()) << "nothing written";

    Assign({});
    ORXSimPosition const classification = ORXSrvEltClassificationBuilder(m_document.Focus())
                                              .BuildEltClassification(ORXSrvEltClassificationShape);
    EXPECT_TRUE(Same(m_mesh.GetElementClassification(), classification));
    EXPECT_TRUE(Listed(classification).empty());
    EXPECT_TRUE(Membership(classification).empty());
}

TEST_F(ORXSrvEltClassificationTest, RefusedCompartments)
{
    ORXSimAssertionFailureHandler const previous =
        ORXSimUttAssert::SetAssertionFailureHandler([](char const*, char const*, int) {});
    auto text = [this]
    {
        try
        {
            ORXSrvEltClassificationBuilder(m_document.Focus())
                .BuildEltClassification(ORXSrvEltClassificationShape);
        }
        catch (ORXBasAssertException const& e)
        {
            return std::string(e.what());
        }
        return std::string();
    };
    // Two specifications in one compartment.
    int const two[] = {0, 1};
    CompartmentArray compartments(1, 0);
    compartments.Get(0) = Compartment(ORXSimCollection(m_specs).CreateCSet(two, 2),
                                      ORXSimCollection(m_elements).CreateCSetStrided(0, 2));
    m_mesh.SetElementSpecAssignment(
        ORXSimPosition(m_document.Focus().CreateTypedDSet(ORXSimCtation(compartments), Schema(23, 50))));
    EXPECT_EQ(text(), "specCSet.Size() == 1");
    // The specification at index 1.
    compartments.Get(0) = Compartment(ORXSimCollection(m_elements).CreateCSetStrided(0, 2),
                                      ORXSimCollection(m_specs).CreateCSetStrided(0, 1));
    m_mesh.SetElementSpecAssignment(
        ORXSimPosition(m_document.Focus().CreateTypedDSet(ORXSimCtation(compartments), Schema(23, 50))));
    EXPECT_EQ(text(), "eltColIndex != -1 && eltSpecColIndex != 1");

    // Another classification type is not implemented.
    try
    {
        ORXSrvEltClassificationBuilder(m_document.Focus())
            .BuildEltClassification(static_cast<ORXSrvEltClassificationType>(1));
        ADD_FAILURE() << "another type must be refused";
    }
    catch (ORXBasAssertException const& e)
    {
        EXPECT_STREQ(e.what(), "!\"Element Classification elaboration not yet implemented.\"");
    }
    ORXSimUttAssert::SetAssertionFailureHandler(previous);
}

TEST_F(ORXSrvEltClassificationTest, PointSets)
{
    ORXSimCollectionID const points = NewCollection(23, 120, 100).GetCollection();
    m_document.SetPointCollection(ORXSimPosition(points));
    ORXSimCollectionID const shapes = NewCollection(23, 31, 50).GetCollection();
    for (int place = 0; place < 50; ++place)
        m_document.GetRecord(shapes, place).SetSymbol(place, "shape");
    int const expected[50] = {1,  0,  2, 0,  0, 0,  2, 3,  3,  6, 9,  4,  5,  4,  8, 9,  3,
                              6,  0,  0, 0,  0, 0,  0, 0,  0,  0, 0,  12, 18, 24, 9, 12, 18,
                              12, 20, 0, 27, 8, 13, 5, 10, 10, 4, 12, 15, 0,  6,  9, 0};
    ORXSimPosition const spec = NewRecord(23, 40);
    for (int place = 0; place < 50; ++place)
    {
        spec.SetPosition(Schema(23, 31), m_document.GetRecord(shapes, place));
        EXPECT_EQ(Members(ORXSrvGetPointSetFromElementSpec(spec)).size(),
                  static_cast<std::size_t>(expected[place]))
            << "shape place " << place;
    }

    struct Case
    {
        char const* name;
        int place;
        std::size_t count;
    };
    Case const cases[] = {
        {"CAXA2", 12, 15}, {"CAXA", 12, 5}, {"AXA2", 12, 5}, {"CAXA0", 11, 4}, {"CAXAx", 11, 4}};
    for (Case const& c : cases)
    {
        spec.SetName(c.name);
        spec.SetPosition(Schema(23, 31), m_document.GetRecord(shapes, c.place));
        EXPECT_EQ(Members(ORXSrvGetPointSetFromElementSpec(spec)).size(), c.count) << c.name;
    }

    spec.SetPosition(Schema(23, 31), ORXSimPosition());
    EXPECT_TRUE(ORXSrvGetPointSetFromElementSpec(spec).IsEmpty()) << "no shape";
    int const stored[] = {7, 3};
    spec.SetPosition(Schema(23, 32), ORXSimPosition(ORXSimCollection(points).CreateCSet(stored, 2)));
    EXPECT_EQ(Members(ORXSrvGetPointSetFromElementSpec(spec)), (std::vector<int>{3, 7})) << "stored set wins";
}
