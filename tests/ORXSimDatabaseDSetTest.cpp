// DSets over distributions and over given bodies, function tables, member maps and bit vectors.
#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{
int const kType = vds_CoreFragmentTypeIndex(23, 59);

std::vector<int> Members(ORXSimCSet const& set)
{
    std::vector<int> members(set.Size());
    set.OrderedMembers(members.data());
    return members;
}

class DSets : public ::testing::Test
{
protected:
    void TearDown() override { doc.Close(); }
    // Sequence 3 after sequence 2 on a fresh drawer: connectivity of elements x 2 local nodes.
    ORXSimDrawerID Append(ORXSimDrawerID drawer, int first, int count)
    {
        ORXSimCSetID elementSet = elements.CreateTempCSetStrided(first, count, 1, 1);
        ORXSimCSetID localSet = locals.CreateTempCSetStrided(0, 2, 1, 1);
        if (drawer.IsNull())
        {
            ORXSimArray<int> chunks(2, 0);
            chunks.Get(0) = 10;
            chunks.Get(1) = 2;
            ORXSimTransfer make{ORXSimDistribution(connectivity)};
            make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(0);
            make.SetDim(0, elementSet).SetDim(1, localSet).CheckView().ExecMake();
            drawer = make.DrawerID();
        }
        std::vector<int> nodes(2 * count, 1);
        ORXSimTransfer write{ORXSimDistribution(connectivity)};
        write.SetWrite().SetAutoExtend().SetBufferPadding(false).SetDrawer(drawer);
        write.SetDim(0, elementSet).SetDim(1, localSet).CheckView();
        write.SetBuffer(0, nodes.data(), write.RequiredBufferSize(0)).ExecWrite();
        doc.Focus().Context().UpdateDSet(dset, connectivity);
        return drawer;
    }

    ORXSimDatabase doc = ORXSimDatabase::CreateNew();
    ORXSimCollection elements{doc.Focus().CreateTypedCollection(50, kType)};
    ORXSimCollection locals{doc.Focus().CreateTypedCollection(8, kType)};
    ORXSimCollection nodes{doc.Focus().CreateTypedCollection(20, kType)};
    ORXSimDistributionID connectivity = [this]
    {
        ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> grid(2, 0);
        grid.Get(0) = elements.ID();
        grid.Get(1) = locals.ID();
        return doc.Focus().CreateTypedDistribution(ORXSimGrid(grid), kType, ORXSimRangeType(7, nodes.ID()));
    }();
    ORXSimDSetID dset = doc.Focus().Context().CreateDSet(connectivity, ORXSimTypeID(kType));
};
} // namespace

TEST_F(DSets, FollowTheirDistributionAfterUpdates)
{
    ORXSimDSet fresh(dset);
    EXPECT_FALSE(fresh.IsNull());
    EXPECT_TRUE(fresh.IsEmpty());
    EXPECT_EQ(fresh.GetRelationalDistributionID(), connectivity);
    EXPECT_TRUE(fresh.Collect(elements.ID()).IsEmpty());
    EXPECT_TRUE(ORXSimDSet().IsNull());

    ORXSimDrawerID first = Append(ORXSimDrawerID(), 0, 5);
    Append(first, 5, 5);
    Append(ORXSimDrawerID(), 20, 3); // a second kind, a second drawer
    ORXSimDSet updated{ORXSimPosition(dset)};
    EXPECT_FALSE(updated.IsEmpty());
    EXPECT_EQ(updated.GetCtation().NumCompartments(), 2);
    EXPECT_EQ(Members(updated.Collect(elements.ID())),
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 20, 21, 22}));
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
    ORXSimCollection specs(doc.Focus().CreateTypedCollection(4, kType));
    ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> body(2, 0);
    for (int i = 0; i < 2; ++i)
    {
        ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> ids(2, 0);
        ids.Get(0) = elements.CreateCSetStrided(i * 10, i ? 5 : 10, 1, 1);
        ids.Get(1) = specs.CreateCSetStrided(i ? 3 : 1, 1, 1, 1);
        body.Get(i) = ORXSimCompartment(ids);
    }
    ORXSimDSetID assignment = doc.Focus().CreateTypedDSet(ORXSimCtation(body), kType);
    ORXSimDSet dsetValue = ORXSimPosition(assignment).DSet();
    EXPECT_TRUE(dsetValue.GetRelationalDistributionID().IsNull());
    ORXSimCSet spec =
        dsetValue.Select(ORXSimCSet(elements.CreateTempCSetStrided(11, 2, 1, 1))).Collect(specs.ID());
    EXPECT_EQ(Members(spec), (std::vector<int>{3}));
    EXPECT_EQ(spec.Bounds().first, 3);
}

TEST_F(DSets, FunctionTablesLabelTheirColumns)
{
    ORXBasVector<ORXString> dependent, independent;
    dependent.push_back("E");
    independent.push_back("Temperature");
    independent.push_back("Field_0");
    double const values[] = {1, 2, 3, 4, 5, 6, 7, 8};
    ORXSimFTableID id = doc.Focus().CreateFTable(kType, 2, dependent, independent, values, 8);
    ORXSimFTable table(ORXSimPosition(id).GetFTable());
    EXPECT_EQ(table.RowCount(), 2);
    EXPECT_EQ(table.ColumnCount(), 4);
    EXPECT_EQ(table.ColumnLabel(0), ORXString("E"));
    EXPECT_TRUE(table.ColumnLabel(1).IsNull());
    EXPECT_EQ(table.ColumnLabel(3), ORXString("Field_0"));
    double read[8] = {};
    table.GetData(read, 8);
    EXPECT_EQ(read[5], 6.0);
    EXPECT_THROW(doc.Focus().CreateFTable(kType, 3, dependent, independent, values, 8),
                 ORXSimDatabaseException);
}

TEST_F(DSets, MemberMapsAndBitVectors)
{
    int const firstMembers[] = {7, 3, 9};
    int const secondMembers[] = {0, 1, 2};
    ORXSimCSet first = nodes.CreateVolatileOrderedCSet(firstMembers, 3);
    ORXSimCSet second = elements.CreateVolatileOrderedCSet(secondMembers, 3);
    ORXBasSharedPtr<ORXSimCMemberMap> map = ORXSimCMemberMap::Create(first, second);
    int const asked[] = {2, 0, 30};
    ORXSimCSet mapped = map->MapCSet(elements.CreateVolatileOrderedCSet(asked, 3));
    EXPECT_EQ(mapped.CollectionID(), nodes.ID());
    EXPECT_EQ(Members(mapped), (std::vector<int>{9, 7}));

    omi_BlkBitVect bits;
    first.AsBitVector(bits);
    EXPECT_TRUE(bits.GetBit(3));
    EXPECT_TRUE(bits.GetBit(9));
    EXPECT_FALSE(bits.GetBit(4));

    ORXSimBtree<ORXSimDynamicID, int> chunkSizes;
    chunkSizes.Insert(doc.Focus(), 100, false);
    EXPECT_TRUE(chunkSizes.IsMember(doc.Focus()));
    EXPECT_FALSE(chunkSizes.IsMember(ORXSimDynamicID()));
}
