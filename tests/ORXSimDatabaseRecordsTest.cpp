// Documents, records, their relations and plain fields.
#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <map>

namespace
{
int const kType = vds_CoreFragmentTypeIndex(50, 1);
int const kLink = vds_CoreFragmentTypeIndex(50, 2);
int const kMap = vds_CoreFragmentTypeIndex(50, 3);

class Records : public ::testing::Test
{
protected:
    void TearDown() override { doc.Close(); }
    ORXSimPosition NewRecord() { return doc.Focus().CreateDataRecord(kType).Pos(); }
    ORXSimDatabase doc = ORXSimDatabase::CreateNew();
};
} // namespace

TEST_F(Records, NewDocumentHasItsFocusAndClosesOnEveryCopy)
{
    ORXSimPosition focus = doc.Focus();
    ASSERT_FALSE(focus.IsNull());
    EXPECT_EQ(focus.Focus(), focus);
    EXPECT_EQ(focus.TypePosition(), vds_CoreFragmentTypeIndex(15, 0));
    ORXSimDatabase copy(focus);
    EXPECT_EQ(copy.ContextID(), doc.ContextID());
    ORXSimDatabase other = ORXSimDatabase::CreateNew();
    EXPECT_NE(other.ContextID(), doc.ContextID());
    other.Close();

    ORXSimPosition record = NewRecord();
    copy.Close();
    EXPECT_TRUE(doc.IsClosed());
    EXPECT_TRUE(copy.IsClosed());
    EXPECT_THROW(record.GetPosition(kLink), ORXSimDatabaseException);
    EXPECT_THROW(record.SetName("x"), ORXBasException);
    EXPECT_THROW(ORXSimCollection(ORXSimCollectionID(doc.ContextID(), 0, ORXSimTypeID(kType), 0)).Space(),
                 ORXSimDatabaseException);
    EXPECT_TRUE(doc.Focus().IsNull());
}

TEST_F(Records, NullPositionsAndIdentities)
{
    ORXSimPosition null;
    EXPECT_TRUE(null.IsNull());
    EXPECT_TRUE(!null);
    EXPECT_TRUE(null.GetCollection().IsNull());
    EXPECT_TRUE(null.GetPosition(kLink).IsNull());
    EXPECT_TRUE(null.Focus().IsNull());
    EXPECT_EQ(null.GetSet(kLink).Size(), 0);

    ORXSimCSetID cset = ORXSimCollection(doc.Focus().CreateTypedCollection(3, kType)).EmptyCSetID();
    EXPECT_FALSE(cset.IsNull());
    ORXSimCSetID unnumbered = ORXSimCSet(cset.CollectionID()).ID();
    EXPECT_EQ(unnumbered.Category(), ORXSimDynamicID::CSetCategory);
    EXPECT_FALSE(unnumbered.ContextID().IsNull());
    EXPECT_TRUE(unnumbered.IsNull());
    EXPECT_TRUE(ORXSimPosition(unnumbered).IsNull());

    ORXSimDrawerID drawer;
    EXPECT_TRUE(drawer.DistributionID().IsNull());
    EXPECT_EQ(ORXSimCSetID().Minor().Value(), -1);
    EXPECT_EQ(ORXSimCSetID().TypeID().Value(), -1);
}

TEST_F(Records, LinksAndTheirHolders)
{
    ORXSimPosition a = NewRecord(), b = NewRecord(), x = NewRecord(), y = NewRecord();
    a.SetPosition(kLink, x);
    EXPECT_EQ(a.GetPosition(kLink), x);
    EXPECT_EQ(x.Parent(kLink), a);
    b.SetPosition(kLink, x);
    EXPECT_EQ(x.ReferrersSet(kLink).Size(), 2);
    EXPECT_EQ(x.Parent(kLink), a);

    a.SetPosition(kLink, y); // relinking drops the old holding
    EXPECT_EQ(x.ReferrersSet(kLink).Size(), 1);
    EXPECT_EQ(x.Parent(kLink), b);
    EXPECT_EQ(y.Parent(kLink), a);
    b.SetPosition(kLink, ORXSimPosition());
    EXPECT_TRUE(b.GetPosition(kLink).IsNull());
    EXPECT_TRUE(x.Parent(kLink).IsNull());
    EXPECT_TRUE(x.Parent(kMap).IsNull());
}

TEST_F(Records, MapsKeysAndNames)
{
    ORXSimPosition holder = NewRecord(), x = NewRecord(), y = NewRecord();
    ORXSimMap map = holder.GetMap(kMap);
    map.Insert("b", x);
    map.Insert("a", y);
    EXPECT_TRUE(map.Find("zzz").IsNull());
    EXPECT_EQ(map.Find("b"), x);
    EXPECT_EQ(x.GetReferenceKey(kMap), ORXString("b"));
    EXPECT_EQ(x.Name(kMap), ORXString("b"));

    std::vector<std::string> keys;
    for (ORXSimMapiterator it = holder.GetMap(kMap).Begin(); it.NotDone(); ++it)
        keys.push_back(it.Key().CStr());
    EXPECT_EQ(keys, (std::vector<std::string>{"a", "b"}));

    map.Insert("c", x); // x under two keys has no unique key
    EXPECT_EQ(x.ReferrersSet(kMap).Size(), 2);
    EXPECT_EQ(x.GetReferenceKey(kMap), ORXString("b"));
    map.Insert("b", y); // replacing an entry drops the old holding
    EXPECT_EQ(x.ReferrersSet(kMap).Size(), 1);
    EXPECT_EQ(x.GetReferenceKey(kMap), ORXString("c"));
    EXPECT_EQ(holder.GetMap(kMap).Size(), 3);

    x.SetName("node set 1");
    EXPECT_EQ(x.Name(-1), ORXString("node set 1"));
    EXPECT_TRUE(y.Name(-1).IsNull());
}

TEST_F(Records, SetsVectorsAndAssociations)
{
    ORXSimPosition holder = NewRecord(), x = NewRecord(), y = NewRecord();
    ORXSimSet set = holder.GetSet(kLink);
    EXPECT_TRUE(set.Empty());
    EXPECT_TRUE(set.Insert(y));
    EXPECT_TRUE(set.Insert(x));
    EXPECT_FALSE(set.Insert(y));
    std::vector<ORXSimPosition> order;
    for (ORXSimSetiterator it = holder.GetSet(kLink).Begin(); it.NotDone(); ++it)
        order.push_back(*it);
    EXPECT_EQ(order, (std::vector<ORXSimPosition>{y, x}));
    EXPECT_EQ(x.Parent(kLink), holder);

    ORXSimVector vector = holder.GetVector(kMap);
    vector.PushBack(x);
    vector.PushBack(x);
    EXPECT_EQ(holder.GetVector(kMap).Size(), 2);
    EXPECT_EQ(x.ReferrersSet(kMap).Size(), 2);

    EXPECT_TRUE(holder.Follow(kType, 1).IsNull());
    holder.Associate(kType, 1, x);
    EXPECT_EQ(holder.Follow(kType, 1), x);
    holder.Associate(kType, 1, y);
    EXPECT_EQ(holder.Follow(kType, 1), y);
    EXPECT_EQ(x.ReferrersSet(kType).Size(), 0);
    EXPECT_EQ(y.Parent(kType), holder);

    ORXSimDatabase other = ORXSimDatabase::CreateNew();
    EXPECT_THROW(set.Insert(other.Focus()), ORXSimDatabaseException);
    other.Close();
}

TEST_F(Records, DataRecordFields)
{
    ORXSimDataRecord record = doc.Focus().CreateDataRecord(kType);
    EXPECT_TRUE(record.Pos().IsA(kType));
    int value = 7;
    EXPECT_FALSE(record.GetInt(0, value));
    EXPECT_EQ(value, 7);
    record.SetInt(0, 42);
    record.SetSymb(1, 3);
    record.SetDouble(2, 2.5);
    double const values[] = {1.0, 2.0, 3.0};
    record.SetDouble(3, values, 3);
    record.SetString(4, "Temperature");
    record.SetTypeID(5, ORXSimTypeID(kType));

    ORXSimDataRecord again = record.Pos().GetDataRecord();
    EXPECT_EQ(again.ReturnInt(0), 42);
    EXPECT_EQ(again.ReturnSymb(1), 3);
    double d = 0;
    EXPECT_TRUE(again.GetDouble(2, d));
    EXPECT_EQ(d, 2.5);
    double out[3] = {};
    EXPECT_TRUE(again.GetDouble(3, out, 3));
    EXPECT_EQ(out[2], 3.0);
    EXPECT_EQ(again.ReturnString(4), ORXString("Temperature"));
    ORXSimTypeID type;
    EXPECT_TRUE(again.GetTypeID(5, type));
    EXPECT_EQ(type.Value(), kType);
    EXPECT_EQ(again.ReturnInt(9), 0);
}

TEST_F(Records, CollectionMembersSymbolsAndMembership)
{
    ORXSimCollectionID nodes = doc.Focus().CreateTypedCollection(4, kType);
    ORXSimContext context = doc.Focus().Context();
    ORXSimPosition third = context.GetRecord(nodes, 2);
    EXPECT_TRUE(third.IsA(kType));
    EXPECT_EQ(context.GetCMemberIndex(third), 2);
    EXPECT_THROW(context.GetRecord(nodes, 4), ORXSimDatabaseException);

    third.SetSymbol(17, "C3D8");
    EXPECT_EQ(third.GetSymbolPosition(), 17);
    EXPECT_EQ(third.GetSymbolName(), ORXString("C3D8"));
    ORXSimSymbols symbols(doc.ContextID());
    EXPECT_EQ(symbols.Get(third), 17);
    EXPECT_TRUE(symbols.IsMember(third));
    EXPECT_FALSE(symbols.IsMember(context.GetRecord(nodes, 0)));
    EXPECT_EQ(symbols.Get(context.GetRecord(nodes, 0)), -1);
    EXPECT_EQ(symbols.Get(ORXSimTypeID(kType), 17, nodes), third.ID());
    EXPECT_TRUE(symbols.Get(ORXSimTypeID(kType), 18, nodes).IsNull());
    EXPECT_EQ(symbols.GetByName(ORXSimTypeID(kType), "C3D8", nodes), third.ID());

    ORXSimArray<ORXSimDynamicID> records(2, 0);
    records.Get(0) = context.GetRecord(nodes, 3);
    records.Get(1) = context.GetRecord(nodes, 1);
    ORXSimCollectionID collection;
    ORXSimArray<int> indices;
    context.GetCMembership(records, collection, indices);
    EXPECT_EQ(collection, nodes);
    ASSERT_EQ(indices.Size(), 2);
    EXPECT_EQ(indices[0], 3);
    EXPECT_EQ(indices[1], 1);
}

TEST_F(Records, PositionsOrderAsMapKeys)
{
    std::map<ORXSimPosition, int> byPosition;
    ORXSimPosition a = NewRecord(), b = NewRecord();
    byPosition[b] = 2;
    byPosition[a] = 1;
    byPosition[ORXSimPosition(a.ID())] = 3;
    EXPECT_EQ(byPosition.size(), 2u);
    EXPECT_EQ(byPosition[a], 3);
    EXPECT_LT(a.Compare(b), 0);
    EXPECT_EQ(doc.Context().Schema().TypeName(kType).IsNull(), false);
    EXPECT_FALSE(ORXSimTypeSchemaSnapshot().TypeName(0).IsNull());
}
