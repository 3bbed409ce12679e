// Documents, identities, records, their relations and plain fields, transactions and arrays.
#include "DocumentFixture.h"

#include <map>
#include <string>
#include <vector>

namespace
{
int const kType = Schema(50, 1);
int const kLink = Schema(50, 2);
int const kMap = Schema(50, 3);
int const kAssociation = Schema(50, 4);

class Records : public DocumentFixture
{
protected:
    ORXSimPosition Record() const { return m_document.Focus().CreateDataRecord(kType).Pos(); }
};
} // namespace

TEST_F(Records, ClosingReachesEveryCopyAndRefusesFurtherUse)
{
    ORXSimPosition focus = m_document.Focus();
    EXPECT_EQ(focus.TypePosition(), Schema(15, 0));
    EXPECT_EQ(focus.ContextID(), m_document.ContextID());
    EXPECT_EQ(focus.Context().ContextID(), m_document.ContextID());
    ORXSimDatabase other = ORXSimDatabase::CreateNew();
    EXPECT_NE(other.ContextID(), m_document.ContextID());
    other.Close();

    ORXSimPosition record = Record();
    ORXSimDatabase copy(focus);
    copy.Close();
    EXPECT_TRUE(m_document.IsClosed());
    EXPECT_THROW(record.GetPosition(kLink), ORXSimDatabaseException);
    EXPECT_THROW(record.SetName("x"), ORXBasException);
    EXPECT_THROW(
        ORXSimCollection(ORXSimCollectionID(m_document.ContextID(), 0, ORXSimTypeID(kType), 0)).Space(),
        ORXSimDatabaseException);
    EXPECT_TRUE(m_document.Focus().IsNull());
}

TEST_F(Records, NullFormsOfIdentitiesAndPositions)
{
    EXPECT_TRUE(ORXSimContextID().IsNull());
    EXPECT_TRUE(ORXSimIDMinor().IsNull());
    EXPECT_EQ(ORXSimIDMinor(7).Value(), 7);
    EXPECT_EQ(ORXSimDynamicDataID().Minor1().Value(), -1);
    EXPECT_EQ(ORXSimDynamicDataID().Minor2().Value(), -1);
    EXPECT_EQ(ORXSimTypeID().Value(), -1);
    ORXSimCSetID const nullSet;
    EXPECT_TRUE(nullSet.IsNull());
    EXPECT_EQ(nullSet.Category(), 0);
    EXPECT_TRUE(nullSet.ContextID().IsNull());
    EXPECT_EQ(nullSet.Minor1().Value(), -1);
    EXPECT_EQ(nullSet.Minor().Value(), -1);
    EXPECT_EQ(nullSet.TypeID().Value(), -1);
    EXPECT_TRUE(ORXSimCollectionID().IsNull());
    EXPECT_EQ(ORXSimDistributionID().Category(), 0);
    EXPECT_EQ(ORXSimDistributionID().Minor2().Value(), -1);
    EXPECT_TRUE(ORXSimDrawerID().DistributionID().IsNull());
    EXPECT_EQ(ORXSimDrawerID().DistributionID().Category(), 0);

    ORXSimPosition const none;
    EXPECT_TRUE(none.IsNull());
    EXPECT_TRUE(!none);
    EXPECT_TRUE(none.GetCollection().IsNull());
    EXPECT_TRUE(none.GetPosition(kLink).IsNull());
    EXPECT_TRUE(none.Focus().IsNull());
    EXPECT_EQ(none.GetSet(kLink).Size(), 0);

    // Typed identities: their fields, and null without a minor 2 even with a category and a context.
    ORXSimContextID const context(42);
    ORXSimDistributionID const distribution(context, 9, ORXSimTypeID(kType), 3);
    EXPECT_EQ(distribution.Category(), 2);
    EXPECT_EQ(distribution.Minor1().Value(), 0);
    EXPECT_EQ(distribution.Minor2().Value(), 9);
    EXPECT_EQ(distribution.ExtraValue(), 3);
    EXPECT_FALSE(distribution.IsNull());
    EXPECT_TRUE(ORXSimDistributionID(context, -1, ORXSimTypeID(kType), 0).IsNull());
    EXPECT_FALSE(!ORXSimDynamicID(ORXSimDistributionID(context, -1, ORXSimTypeID(kType), 0)));
    ORXSimCSetID const unnumbered = ORXSimCSet(Collection(3).ID()).ID();
    EXPECT_EQ(unnumbered.Category(), ORXSimDynamicID::CSetCategory);
    EXPECT_FALSE(unnumbered.ContextID().IsNull());
    EXPECT_TRUE(unnumbered.IsNull());
    EXPECT_TRUE(ORXSimPosition(unnumbered).IsNull());

    ORXSimCollectionID const collection(context, 5, ORXSimTypeID(kType), 0);
    ORXSimCMemberID const member(collection, 11);
    EXPECT_EQ(member.Category(), 13);
    EXPECT_EQ(member.ContextID(), context);
    EXPECT_EQ(member.Minor1().Value(), 5);
    EXPECT_EQ(member.Minor2().Value(), 11);
    EXPECT_EQ(member.TypeID(), ORXSimTypeID(kType));
    EXPECT_EQ(member.ExtraValue(), 0);
    EXPECT_TRUE(ORXSimDynamicID::Equal(collection, collection));
    EXPECT_TRUE(collection.Equal(ORXSimCollectionID(context, 5, ORXSimTypeID(kType), 0)));
    EXPECT_FALSE(collection.Equal(member));
    EXPECT_EQ(collection.Compare(collection), 0);
    EXPECT_EQ(ORXSimPosition(member) < ORXSimPosition(collection), member.Compare(collection) < 0);
}

TEST_F(Records, HoldersCountEveryHolding)
{
    ORXSimPosition linker = Record(), mapper = Record(), lister = Record(), held = Record(), y = Record();
    EXPECT_TRUE(held.Parent(kLink).IsNull());
    linker.SetPosition(kLink, held);
    EXPECT_EQ(linker.GetPosition(kLink), held);
    mapper.GetMap(kLink).Insert("b", held);
    mapper.GetMap(kLink).Insert("a", held);
    lister.GetVector(kLink).PushBack(held);
    lister.GetSet(kLink).Insert(held);
    mapper.Associate(kLink, 1, held);
    ORXSimSet referrers = held.ReferrersSet(kLink);
    ASSERT_EQ(referrers.Size(), 6);
    ORXSimSetiterator entry = referrers.Begin();
    EXPECT_EQ(*entry, linker);
    ++entry;
    EXPECT_EQ(*entry, mapper);
    EXPECT_EQ(held.Parent(kLink), linker);
    EXPECT_EQ(held.Name(kLink), ORXString("b")); // the first key, not the first in key order
    EXPECT_EQ(held.GetReferenceKey(kLink), ORXString("b"));

    // Relinking, replacing a key's entry, re-associating and unlinking each drop one holding.
    linker.SetPosition(kLink, y);
    EXPECT_EQ(held.Parent(kLink), mapper);
    EXPECT_EQ(y.Parent(kLink), linker);
    mapper.GetMap(kLink).Insert("b", y);
    EXPECT_EQ(mapper.GetMap(kLink).Find("b"), y);
    EXPECT_EQ(held.GetReferenceKey(kLink), ORXString("a"));
    mapper.Associate(kLink, 1, y);
    EXPECT_EQ(mapper.Follow(kLink, 1), y);
    EXPECT_EQ(held.ReferrersSet(kLink).Size(), 3);
    EXPECT_TRUE(lister.GetSet(kLink).Contains(held));
    EXPECT_TRUE(held.Parent(kMap).IsNull());
    linker.SetPosition(kLink, ORXSimPosition());
    EXPECT_TRUE(linker.GetPosition(kLink).IsNull());
}

TEST_F(Records, SetsVectorsMapsAndAssociationsKeepTheirOrder)
{
    ORXSimPosition holder = Record(), x = Record(), y = Record();
    ORXSimSet set = holder.GetSet(kLink);
    EXPECT_TRUE(set.Empty());
    EXPECT_TRUE(set.Insert(y));
    EXPECT_TRUE(set.Insert(x));
    EXPECT_FALSE(set.Insert(y));
    std::vector<ORXSimPosition> walked;
    for (ORXSimSetiterator it = holder.GetSet(kLink).Begin(); it.NotDone(); ++it)
        walked.push_back(*it);
    EXPECT_EQ(walked, (std::vector<ORXSimPosition>{y, x}));

    ORXSimVector vector = holder.GetVector(kMap);
    vector.PushBack(x);
    vector.PushBack(y);
    vector.PushBack(x);
    walked.clear();
    for (ORXSimVectoriterator it = holder.GetVector(kMap).Begin(); it.NotDone(); ++it)
        walked.push_back(*it);
    EXPECT_EQ(walked, (std::vector<ORXSimPosition>{x, y, x}));

    ORXSimMap map = holder.GetMap(kType);
    map.Insert("zeta", x);
    map.Insert("alpha", y);
    EXPECT_EQ(map.Size(), 2);
    EXPECT_EQ(map.Find("zeta"), x);
    EXPECT_TRUE(map.Find("missing").IsNull());
    std::vector<std::string> keys;
    for (ORXSimMapiterator it = holder.GetMap(kType).Begin(); it.NotDone(); ++it)
        keys.push_back(it.Key().CStr());
    EXPECT_EQ(keys, (std::vector<std::string>{"alpha", "zeta"}));
    EXPECT_EQ(holder.GetMap(kType).Begin().Value(), y);

    EXPECT_TRUE(holder.Follow(kAssociation, 1).IsNull());
    holder.Associate(kAssociation, 1, x);
    EXPECT_EQ(holder.Follow(kAssociation, 1), x);
    EXPECT_TRUE(holder.Follow(kAssociation, 2).IsNull());

    x.SetName("node set 1");
    EXPECT_EQ(x.Name(-1), ORXString("node set 1"));
    EXPECT_TRUE(y.Name(-1).IsNull());

    ORXObjDocument other = ORXObjDocument::New();
    EXPECT_THROW(set.Insert(other.Focus()), ORXSimDatabaseException);
    other.Close();
}

// Enough records to make the store regrow its tables several times: every link and field stays
// with its record, and links set, replaced and removed in any member order are found as set.
TEST_F(Records, LinksAndFieldsOfManyRecordsStayWithTheirRecords)
{
    std::vector<ORXSimPosition> records;
    ORXSimCollection members = Collection(3000);
    for (int i = 0; i < 3000; ++i)
    {
        records.push_back(Record());
        records.back().DataRecord().SetInt(0, i);
        if (i > 0)
            records.back().SetPosition(kLink, records[i - 1]);
        ORXSimPosition const member = m_document.GetRecord(members.ID(), i);
        member.DataRecord().SetInt(1, -i);
        member.SetPosition(kLink, records.back());
    }
    for (int i = 0; i < 3000; ++i)
    {
        EXPECT_EQ(records[i].DataRecord().ReturnInt(0), i);
        ORXSimPosition const member = m_document.GetRecord(members.ID(), i);
        EXPECT_EQ(member.DataRecord().ReturnInt(1), -i);
        EXPECT_TRUE(Same(member.GetPosition(kLink), records[i]));
        if (i > 0)
        {
            EXPECT_TRUE(Same(records[i].GetPosition(kLink), records[i - 1]));
        }
    }
    EXPECT_TRUE(records[0].GetPosition(kLink).IsNull());
    // Sets held by records keep their holders, as other objects than records and members do.
    int const setLink = Schema(50, 10);
    std::vector<ORXSimPosition> sets;
    for (int i = 0; i < 300; ++i)
    {
        sets.push_back(ORXSimPosition(members.CreateCSetStrided(i, 2, 1, 1)));
        records[i].SetPosition(setLink, sets.back());
    }
    for (int i = 0; i < 300; ++i)
    {
        ORXSimSet const holders = sets[i].ReferrersSet(setLink);
        ASSERT_EQ(holders.Size(), 1);
        EXPECT_TRUE(Same(*holders.Begin(), records[i]));
        EXPECT_TRUE(Same(records[i].GetPosition(setLink), sets[i]));
    }

    ORXSimPosition const holder = Record();
    int const membersInOrder[] = {Schema(50, 9), Schema(50, 5), Schema(50, 7), Schema(50, 6), Schema(50, 8)};
    for (int k = 0; k < 5; ++k)
        holder.SetPosition(membersInOrder[k], records[k]);
    for (int k = 4; k >= 0; --k)
        EXPECT_TRUE(Same(holder.GetPosition(membersInOrder[k]), records[k]));
    holder.SetPosition(membersInOrder[2], records[10]);
    holder.SetPosition(membersInOrder[0], ORXSimPosition());
    EXPECT_TRUE(holder.GetPosition(membersInOrder[0]).IsNull());
    EXPECT_TRUE(Same(holder.GetPosition(membersInOrder[2]), records[10]));
    EXPECT_TRUE(Same(holder.GetPosition(membersInOrder[1]), records[1]));
    EXPECT_TRUE(Same(holder.GetPosition(membersInOrder[4]), records[4]));
    EXPECT_EQ(records[2].ReferrersSet(membersInOrder[2]).Size(), 0);
    EXPECT_EQ(records[10].ReferrersSet(membersInOrder[2]).Size(), 1);
    EXPECT_EQ(records[0].ReferrersSet(membersInOrder[0]).Size(), 0);
}

TEST_F(Records, DataRecordFields)
{
    ORXSimDataRecord record = m_document.Focus().CreateDataRecord(kType);
    EXPECT_EQ(record.Pos().DataRecord().ID(), record.ID());
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
    EXPECT_TRUE(again.GetInt(0, value));
    EXPECT_EQ(value, 42);
    EXPECT_EQ(again.ReturnInt(0), 42);
    again.GetSymb(1, value);
    EXPECT_EQ(value, 3);
    EXPECT_EQ(again.ReturnSymb(1), 3);
    double d = 0;
    EXPECT_TRUE(again.GetDouble(2, d));
    EXPECT_EQ(d, 2.5);
    double out[3] = {};
    EXPECT_TRUE(again.GetDouble(3, out, 3));
    EXPECT_EQ(out[2], 3.0);
    ORXString text;
    again.GetString(4, text);
    EXPECT_EQ(text, ORXString("Temperature"));
    EXPECT_EQ(again.ReturnString(4), ORXString("Temperature"));
    ORXSimTypeID type;
    EXPECT_TRUE(again.GetTypeID(5, type));
    EXPECT_EQ(type.Value(), kType);
    EXPECT_EQ(again.ReturnInt(9), 0);
}

TEST_F(Records, CollectionMembersSymbolsAndMembership)
{
    ORXSimCollectionID nodes = m_document.Focus().CreateTypedCollection(4, kType);
    EXPECT_EQ(ORXSimPosition(nodes).GetCollection(), nodes);
    ORXSimContext context = m_document.Focus().Context();
    ORXSimPosition third = context.GetRecord(nodes, 2);
    EXPECT_EQ(third.ID(), ORXSimCMemberID(nodes, 2));
    EXPECT_TRUE(third.IsA(kType));
    EXPECT_EQ(context.GetCMemberIndex(third), 2);
    EXPECT_THROW(context.GetRecord(nodes, 4), ORXSimDatabaseException);

    third.SetSymbol(17, "C3D8");
    EXPECT_EQ(third.GetSymbolPosition(), 17);
    EXPECT_EQ(third.GetSymbolName(), ORXString("C3D8"));
    ORXSimSymbols symbols(m_document.ContextID());
    EXPECT_EQ(symbols.Get(third), 17);
    EXPECT_TRUE(symbols.IsMember(third));
    EXPECT_FALSE(symbols.IsMember(context.GetRecord(nodes, 0)));
    EXPECT_EQ(symbols.Get(context.GetRecord(nodes, 0)), -1);
    EXPECT_EQ(symbols.Get(ORXSimTypeID(kType), 17, nodes), third.ID());
    EXPECT_EQ(symbols.Get(kType, 17, nodes), third.ID());
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

TEST_F(Records, TypesAndOrderOfPositions)
{
    EXPECT_NE(Schema(25, 1), Schema(1, 25));
    EXPECT_NE(Schema(23, 79), Schema(23, 65));
    ORXSimPosition a = Record(), b = Record();
    EXPECT_TRUE(a.IsA(kType));
    EXPECT_FALSE(a.IsA(kLink));
    EXPECT_EQ(a.TypePosition(), kType);
    EXPECT_EQ(a.Focus(), m_document.Focus());
    EXPECT_EQ(a.Context().Schema().TypeID(kType), a.TypeID());
    EXPECT_FALSE(a.Context().Schema().TypeName(kType).IsNull());
    EXPECT_FALSE(ORXSimTypeSchemaSnapshot().TypeName(0).IsNull());
    EXPECT_FALSE(ORXObjDocument(a.Doc()).IsClosed());

    std::map<ORXSimPosition, int> byPosition;
    byPosition[b] = 2;
    byPosition[a] = 1;
    byPosition[ORXSimPosition(a.ID())] = 3;
    EXPECT_EQ(byPosition.size(), 2u);
    EXPECT_EQ(byPosition[a], 3);
    EXPECT_LT(a.Compare(b), 0);
}

TEST_F(Records, TransactionsAndArrays)
{
    ORXSimTransaction transaction(m_document.ContextID());
    EXPECT_EQ(transaction.ContextID(), m_document.ContextID());
    Record();
    transaction.Commit();

    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> strings(2, 0);
    strings.Get(1) = "b";
    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> copy(strings);
    strings.Get(1) = "c";
    EXPECT_EQ(copy.ConstGet(1), ORXString("b"));
    copy = strings;
    EXPECT_EQ(copy[1], ORXString("c"));
    copy.SetSize(5);
    EXPECT_EQ(copy.Size(), 5);
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> ints(3, 0);
    ints.Get(2) = 9;
    EXPECT_EQ(ORXSimArrayPointer(ints)[2], 9);
    // The identity types take the copy-class policy by default.
    ORXSimArray<ORXSimCSetID> sets(1, 0);
    CSetIDArray& same = sets;
    EXPECT_EQ(same.Size(), 1);
}
