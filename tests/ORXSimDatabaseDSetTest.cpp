// Compartments, DSets over distributions and over given bodies, and function tables.
#include "DocumentFixture.h"

#include <vector>

namespace
{
int const kType = Schema(23, 59);

class DSets : public DocumentFixture
{
protected:
    // Connectivity of elements x 2 local nodes: sequence 2 then 3 on a chunked drawer, or sequence 4
    // (make and write at once) when asked for a plain drawer; then the DSet is brought up to date.
    ORXSimDrawerID Append(ORXSimDrawerID drawer, int first, int count, bool plain = false)
    {
        ORXSimCSetID elementSet = elements.CreateTempCSetStrided(first, count, 1, 1);
        ORXSimCSetID localSet = locals.CreateTempCSetStrided(0, 2, 1, 1);
        if (drawer.IsNull() && !plain)
        {
            ORXSimArray<int> chunks(2, 0);
            chunks.Get(0) = 10;
            chunks.Get(1) = 2;
            ORXSimTransfer make{ORXSimDistribution(connectivity)};
            make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(0);
            make.SetDim(0, elementSet).SetDim(1, localSet).CheckView().ExecMake();
            drawer = make.DrawerID();
        }
        std::vector<int> values(2 * count, 1);
        ORXSimTransfer write{ORXSimDistribution(connectivity)};
        if (plain)
            write.SetWrite().SetBufferPadding(false).SetMakeNewDrawer();
        else
            write.SetWrite().SetAutoExtend().SetBufferPadding(false).SetDrawer(drawer);
        write.SetDim(0, elementSet).SetDim(1, localSet).CheckView();
        write.SetBuffer(0, values.data(), write.RequiredBufferSize(0)).ExecWrite();
        write.RelinquishBuffers();
        m_document.Focus().Context().UpdateDSet(dset, connectivity);
        return plain ? write.DrawerID() : drawer;
    }

    ORXSimCollection elements = Collection(50);
    ORXSimCollection locals = Collection(8);
    ORXSimCollection nodes = Collection(20);
    ORXSimDistributionID connectivity = [this]
    {
        CollectionIDArray grid(2, 0);
        grid.Get(0) = elements.ID();
        grid.Get(1) = locals.ID();
        return m_document.Focus().Context().CreateDistribution(
            ORXSimGrid(grid), ORXSimRangeType(7, nodes.ID()), ORXSimTypeID(kType));
    }();
    ORXSimDSetID dset = m_document.Focus().Context().CreateDSet(connectivity, ORXSimTypeID(kType));
};
} // namespace

TEST_F(DSets, FollowTheirDistributionAfterAppends)
{
    ORXSimDSet fresh(dset);
    EXPECT_FALSE(fresh.IsNull());
    EXPECT_TRUE(fresh.IsEmpty());
    EXPECT_EQ(fresh.GetRelationalDistributionID(), connectivity);
    EXPECT_TRUE(fresh.Collect(elements.ID()).IsEmpty());
    EXPECT_TRUE(ORXSimDSet().IsNull());

    ORXSimDrawerID first = Append(ORXSimDrawerID(), 0, 5);
    Append(first, 5, 5);
    Append(ORXSimDrawerID(), 20, 3);       // a second kind, a second drawer
    Append(ORXSimDrawerID(), 30, 2, true); // a plain drawer, made and written at once
    ORXSimDSet updated{ORXSimPosition(dset)};
    EXPECT_FALSE(updated.IsEmpty());
    EXPECT_EQ(updated.GetCtation().NumCompartments(), 3);
    EXPECT_EQ(Members(updated.Collect(elements.ID())),
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 20, 21, 22, 30, 31}));
    EXPECT_EQ(Members(updated.Collect(locals.ID())), (std::vector<int>{0, 1}));

    int const some[] = {3, 21, 40};
    ORXSimDSet part = updated.Select(elements.CreateVolatileCSet(some, 3, false));
    ASSERT_FALSE(part.IsNull());
    EXPECT_EQ(Members(part.Collect(elements.ID())), (std::vector<int>{3, 21}));
    EXPECT_EQ(part.GetRelationalDistributionID(), connectivity);
    int const absent[] = {40};
    EXPECT_TRUE(updated.Select(elements.CreateVolatileCSet(absent, 1, false)).IsNull());
}

TEST_F(DSets, GivenBodiesRelateMembersOfSeveralCollections)
{
    // Elements 0..9 have element spec record 1, elements 10..14 record 3.
    ORXSimCollection specs = Collection(4);
    CompartmentArray compartments(2, 0);
    for (int i = 0; i < 2; ++i)
        compartments.Get(i) = Compartment(elements.CreateCSetStrided(i * 10, i ? 5 : 10, 1, 1),
                                          specs.CreateCSetStrided(i ? 3 : 1, 1, 1, 1));
    EXPECT_EQ(compartments[1].Size(), 2);
    EXPECT_EQ(compartments[1][0].Bounds().first, 10);
    EXPECT_EQ(compartments[1].Position(specs.ID()), 1);
    EXPECT_LT(compartments[1].Position(nodes.ID()), 0);
    EXPECT_EQ(ORXSimCompartment().Size(), 0);
    ORXSimCtation const body(compartments);
    ORXSimCtation const copy(body);
    EXPECT_EQ(copy.NumCompartments(), 2);
    EXPECT_EQ(copy[1].Size(), 2);

    ORXSimDSetID assignment = m_document.Focus().CreateTypedDSet(copy, kType);
    EXPECT_EQ(ORXSimPosition(assignment).GetDSet(), assignment);
    ORXSimDSet given = ORXSimPosition(assignment).DSet();
    EXPECT_FALSE(given.IsEmpty());
    EXPECT_TRUE(given.GetRelationalDistributionID().IsNull());
    EXPECT_EQ(ORXSimDSet(ORXSimPosition(assignment)).GetCtation().NumCompartments(), 2);
    EXPECT_EQ(given.Collect(elements.ID()).Size(), 15);
    ORXSimCSet spec =
        given.Select(ORXSimCSet(elements.CreateTempCSetStrided(11, 2, 1, 1))).Collect(specs.ID());
    EXPECT_EQ(Members(spec), (std::vector<int>{3}));
    ORXSimDSet const byClass = given.Select(ORXSimCSet(specs.CreateCSetStrided(1, 1, 1, 1)));
    ASSERT_FALSE(byClass.IsNull());
    EXPECT_EQ(byClass.Collect(elements.ID()).Size(), 10);
    EXPECT_TRUE(given.Select(ORXSimCSet(nodes.CreateCSetStrided(0, 1, 1, 1))).IsNull());
}

TEST_F(DSets, FunctionTablesLabelTheirColumns)
{
    ORXBasVector<ORXString> dependent, independent;
    dependent.push_back("E");
    independent.push_back("Temperature");
    independent.push_back("Field_0");
    double const values[] = {1, 2, 3, 4, 5, 6, 7, 8};
    ORXSimFTableID id = m_document.Focus().CreateFTable(kType, 2, dependent, independent, values, 8);
    ORXSimFTable table(ORXSimPosition(id).GetFTable());
    EXPECT_EQ(table.RowCount(), 2);
    EXPECT_EQ(table.ColumnCount(), 4);
    EXPECT_EQ(table.ColumnLabel(0), ORXString("E"));
    EXPECT_TRUE(table.ColumnLabel(1).IsNull());
    EXPECT_EQ(table.ColumnLabel(3), ORXString("Field_0"));
    double read[8] = {};
    table.GetData(read, 8);
    EXPECT_EQ(read[5], 6.0);
    EXPECT_THROW(m_document.Focus().CreateFTable(kType, 3, dependent, independent, values, 8),
                 ORXSimDatabaseException);
}
