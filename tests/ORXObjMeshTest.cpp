#include "DocumentFixture.h"

#include <gtest/gtest.h>

namespace
{
class ORXObjMeshTest : public DocumentFixture
{
protected:
    void SetUp() override
    {
        m_model = NewRecord(25, 2);
        m_document.SetModel(m_model);
        m_mesh = NewRecord(20, 1);
        ORXObjModel(m_model).SetMesh(m_mesh);
    }
    ORXSimPosition m_model;
    ORXObjMesh m_mesh;
};
} // namespace

TEST_F(ORXObjMeshTest, ModelLeadsToItsMeshAndSteps)
{
    ORXObjModel model(m_document.GetModel());
    EXPECT_TRUE(Same(model.GetMesh(), m_mesh));
    EXPECT_TRUE(Same(m_document.GetMesh(), m_mesh));
    EXPECT_TRUE(Same(m_model.GetPosition(Schema(20, 0)), m_mesh));
    ORXSimPosition step = NewRecord(57, 1);
    m_model.GetMap(Schema(57, 25)).Insert("Step-1", step);
    EXPECT_TRUE(Same(model.GetStep("Step-1"), step));
    EXPECT_TRUE(model.GetStep("Step-2").IsNull());

    // Missing members and missing records give null handles.
    EXPECT_TRUE(ORXObjModel(ORXSimPosition()).GetMesh().IsNull());
    EXPECT_TRUE(ORXObjMesh().GetElementCollection().IsNull());
    EXPECT_TRUE(m_mesh.GetNodeCollection().GetCollection().IsNull());
    EXPECT_TRUE(m_mesh.GetCoordinates().GetDistribution().IsNull());
}

TEST_F(ORXObjMeshTest, EachGetterReadsTheMemberItsSetterWrites)
{
    struct Entry
    {
        void (ORXObjMesh::*set)(ORXSimPosition const&);
        ORXSimPosition (ORXObjMesh::*get)() const;
        int member;
    };
    Entry const entries[] = {
        {&ORXObjMesh::SetNodeCollection, &ORXObjMesh::GetNodeCollection, 79},
        {&ORXObjMesh::SetElementCollection, &ORXObjMesh::GetElementCollection, 65},
        {&ORXObjMesh::SetConnectivity, &ORXObjMesh::GetConnectivity, 59},
        {&ORXObjMesh::SetCoordinates, &ORXObjMesh::GetCoordinates, 121},
        {&ORXObjMesh::SetElementClassification, &ORXObjMesh::GetElementClassification, 122},
        {&ORXObjMesh::SetElementSpecAssignment, &ORXObjMesh::GetElementSpecAssignment, 123},
        {&ORXObjMesh::SetShapeFormulationLogicalSectionClassification,
         &ORXObjMesh::GetShapeFormulationLogicalSectionClassification, 124},
        {&ORXObjMesh::SetUserNodes, &ORXObjMesh::GetUserNodes, 125},
        {&ORXObjMesh::SetElementClassCollection, &ORXObjMesh::GetElementClassCollection, 126},
    };
    for (Entry const& entry : entries)
    {
        SCOPED_TRACE(entry.member);
        EXPECT_TRUE((m_mesh.*entry.get)().IsNull());
        ORXSimPosition target = NewRecord(23, 200 + entry.member);
        (m_mesh.*entry.set)(target);
        EXPECT_TRUE(Same((m_mesh.*entry.get)(), target));
        EXPECT_TRUE(Same(m_mesh.GetPosition(Schema(23, entry.member)), target));

        ORXSimPosition byHost = NewRecord(23, 200 + entry.member);
        m_mesh.SetPosition(Schema(23, entry.member), byHost);
        EXPECT_TRUE(Same((m_mesh.*entry.get)(), byHost));
    }
}

TEST_F(ORXObjMeshTest, RegisteredClassesTakeFreshMembersOfTheClassCollection)
{
    ORXSimPosition specs = NewCollection(23, 2, 2);
    ORXSimPosition beam = m_document.GetRecord(specs.GetCollection(), 0);
    ORXSimPosition shell = m_document.GetRecord(specs.GetCollection(), 1);
    m_mesh.SetElementClassCollection(NewCollection(23, 7, 1));

    ORXObjElementClass first;
    first.Register(m_mesh, beam);
    ORXObjElementClass second;
    second.Register(m_mesh, shell);
    EXPECT_EQ(m_document.GetCMemberIndex(first), 0);
    EXPECT_EQ(m_document.GetCMemberIndex(second), 1);
    EXPECT_TRUE(first.IsA(Schema(23, 7)));
    EXPECT_TRUE(Same(first.GetPosition(Schema(23, 9)), beam));
    EXPECT_TRUE(Same(second.GetElementSpec(), shell));
    EXPECT_GE(ORXSimCollection(m_mesh.GetElementClassCollection().GetCollection()).Space(), 2);

    ORXObjMesh bare(NewRecord(20, 1));
    ORXObjElementClass made;
    made.Register(bare, beam);
    EXPECT_FALSE(bare.GetElementClassCollection().IsNull());
    EXPECT_TRUE(Same(made.GetElementSpec(), beam));
}

TEST_F(ORXObjMeshTest, MeshedFieldFindsItsDistributionThroughItsDrawers)
{
    ORXSimPosition layers = NewCollection(50, 18, 2);
    CollectionIDArray grid(1, 0);
    grid.Get(0) = layers.GetCollection();
    ORXSimDistributionID distribution =
        m_document.CreateDistribution(ORXSimGrid(grid), ORXSimRangeType(4), ORXSimTypeID(Schema(50, 22)));
    ASSERT_FALSE(distribution.IsNull());
    EXPECT_TRUE(ORXObjMeshedField(ORXSimPosition(distribution)).GetDistribution() == distribution);

    ORXSimArray<int> chunks(1, 0);
    chunks.Get(0) = 2;
    ORXSimTransfer make{ORXSimDistribution(distribution)};
    make.SetMakeNewDrawerChunked(chunks)
        .SetBufferPadding(false)
        .SetExtendableDim(0)
        .SetDim(0, ORXSimCollection(layers.GetCollection()).CreateCSetStrided(0, 2, 1, 1))
        .CheckView();
    make.ExecMake();

    ORXObjMeshedField field(NewRecord(13, 68));
    ORXSimPosition content = NewRecord(13, 77);
    field.GetSet(Schema(13, 71)).Insert(content);
    EXPECT_TRUE(field.GetDistribution().IsNull());
    content.GetSet(Schema(13, 79)).Insert(ORXSimPosition(ORXSimDynamicID(make.DrawerID())));
    EXPECT_TRUE(field.GetDistribution() == distribution);
    EXPECT_EQ(field.GetGridType(), -1);
    field.SetGridType(Schema(13, 75));
    EXPECT_EQ(ORXObjMeshedField(ORXSimPosition(field.ID())).GetGridType(), Schema(13, 75));
}

TEST_F(ORXObjMeshTest, MembershipHandsEachClassItsElementSet)
{
    ORXSimPosition elements = NewCollection(23, 3, 10);
    ORXSimPosition specs = NewCollection(23, 2, 1);
    ORXSimPosition classes = NewCollection(23, 7, 2);
    m_mesh.SetElementClassCollection(classes);
    ORXObjElementClass beam, shell;
    beam.Register(m_mesh, m_document.GetRecord(specs.GetCollection(), 0));
    shell.Register(m_mesh, m_document.GetRecord(specs.GetCollection(), 0));
    EXPECT_TRUE(ORXSimPosition(beam.GetElementCSet()).IsNull());

    ORXSimCollection classCollection(classes.GetCollection());
    ORXSimCollection elementCollection(elements.GetCollection());
    int const beamMember = 0, shellMember = 1;
    int const beamElements[] = {0, 1, 2};
    int const shellElements[] = {5, 9};
    ORXSimCSetID beamSet = elementCollection.CreateCSet(beamElements, 3, false);
    ORXSimCSetID shellSet = elementCollection.CreateCSet(shellElements, 2, false);
    CompartmentArray compartments(2, 0);
    compartments.Get(0) = Compartment(classCollection.CreateCSet(&shellMember, 1, false), shellSet);
    compartments.Get(1) = Compartment(classCollection.CreateCSet(&beamMember, 1, false), beamSet);
    ORXSimPosition membership(m_document.Focus().CreateTypedDSet(ORXSimCtation(compartments), Schema(23, 8)));

    ORXObjElementClassification classification(NewRecord(23, 11));
    classification.AppendElementClass(shell);
    classification.AppendElementClass(beam);
    classification.SetMembership(membership);

    EXPECT_TRUE(Same(classification.GetMembership(), membership));
    EXPECT_TRUE(Same(classification.GetPosition(Schema(23, 127)), membership));
    EXPECT_TRUE(beam.GetElementCSet() == beamSet);
    EXPECT_TRUE(shell.GetElementCSet() == shellSet);
    EXPECT_TRUE(Same(shell.GetPosition(Schema(23, 128)), ORXSimPosition(shellSet)));

    ORXSimSet filed = classification.GetSet(Schema(23, 12));
    ASSERT_EQ(filed.Size(), 2);
    ORXSimSetiterator entry = filed.Begin();
    EXPECT_TRUE(Same(*entry, shell));
    ++entry;
    EXPECT_TRUE(Same(*entry, beam));

    shell.SetElementCSet(ORXSimDynamicID());
    EXPECT_TRUE(ORXSimPosition(shell.GetElementCSet()).IsNull());
}
