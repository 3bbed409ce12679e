// Each operation of the database's public interface once, used as the services use it: identities,
// navigation, records, collections and sets, compartments and DSets, distributions and the five
// transfer sequences, transactions, function tables and arrays.
#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <vector>

namespace
{
int const kRecordType = vds_CoreFragmentTypeIndex(23, 1);
int const kNodeType = vds_CoreFragmentTypeIndex(23, 2);
int const kLink = vds_CoreFragmentTypeIndex(23, 3);
int const kMember = vds_CoreFragmentTypeIndex(23, 4);

typedef ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> CollectionArray;
typedef ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>
    DescriptionArray;

std::vector<int> MembersOf(ORXSimCSet const& set)
{
    std::vector<int> members(set.Size());
    if (set.IsAscending() || set.Size() == 0)
        set.Members(members.data());
    else
        set.OrderedMembers(members.data());
    return members;
}

// Turns a set value into an identity as the services do: a registered twin, or a temporary set.
ORXSimCSetID IdentityOf(ORXSimCollection const& collection, ORXSimCSet const& set)
{
    ORXSimCSetID id = collection.SeekCSet(set, false);
    if (id.IsNull())
    {
        int* buffer = static_cast<int*>(mem_Malloc(sizeof(int) * (set.Size() + 1)));
        set.Members(buffer);
        id = collection.CreateTempCSet(buffer, set.Size(), false);
        mem_Free(buffer);
    }
    return id;
}

class DatabaseApi : public ::testing::Test
{
protected:
    void TearDown() override { doc.Close(); }

    ORXObjDocument doc = ORXObjDocument::New();
    ORXSimPosition focus = doc.Focus();
};

TEST(DatabaseIdentities, NullFormsAndTypedFields)
{
    EXPECT_TRUE(ORXSimContextID().IsNull());
    EXPECT_TRUE(ORXSimIDMinor().IsNull());
    EXPECT_EQ(ORXSimIDMinor(7).Value(), 7);
    EXPECT_EQ(ORXSimDynamicDataID().Minor1().Value(), -1);
    EXPECT_EQ(ORXSimDynamicDataID().Minor2().Value(), -1);
    EXPECT_EQ(ORXSimTypeID().Value(), -1);

    ORXSimCSetID const nullSet;
    EXPECT_EQ(nullSet.Category(), 0);
    EXPECT_TRUE(nullSet.ContextID().IsNull());
    EXPECT_EQ(nullSet.Minor1().Value(), -1);
    EXPECT_EQ(nullSet.Minor().Value(), -1);
    EXPECT_EQ(nullSet.TypeID().Value(), -1);
    EXPECT_TRUE(nullSet.IsNull());
    EXPECT_TRUE(ORXSimCollectionID().IsNull());
    EXPECT_EQ(ORXSimDistributionID().Category(), 0);
    EXPECT_EQ(ORXSimDistributionID().Minor2().Value(), -1);

    ORXSimContextID const context(42);
    ORXSimDistributionID const distribution(context, 9, ORXSimTypeID(kNodeType), 3);
    EXPECT_EQ(distribution.Category(), 2);
    EXPECT_EQ(distribution.Minor1().Value(), 0);
    EXPECT_EQ(distribution.Minor2().Value(), 9);
    EXPECT_EQ(distribution.ExtraValue(), 3);
    EXPECT_FALSE(distribution.IsNull());
    // A typed identity with no minor 2 is null even with a category and a context.
    EXPECT_TRUE(ORXSimDistributionID(context, -1, ORXSimTypeID(kNodeType), 0).IsNull());
    EXPECT_FALSE(!ORXSimDynamicID(ORXSimDistributionID(context, -1, ORXSimTypeID(kNodeType), 0)));

    ORXSimCollectionID const collection(context, 5, ORXSimTypeID(kNodeType), 0);
    ORXSimCMemberID const member(collection, 11);
    EXPECT_EQ(member.Category(), 13);
    EXPECT_EQ(member.ContextID(), context);
    EXPECT_EQ(member.Minor1().Value(), 5);
    EXPECT_EQ(member.Minor2().Value(), 11);
    EXPECT_EQ(member.TypeID(), ORXSimTypeID(kNodeType));
    EXPECT_EQ(member.ExtraValue(), 0);

    ORXSimDrawerID const nullDrawer;
    EXPECT_TRUE(nullDrawer.DistributionID().IsNull());
    EXPECT_EQ(nullDrawer.DistributionID().Category(), 0);

    EXPECT_TRUE(ORXSimDynamicID::Equal(collection, collection));
    EXPECT_TRUE(collection.Equal(ORXSimCollectionID(context, 5, ORXSimTypeID(kNodeType), 0)));
    EXPECT_FALSE(collection.Equal(member));
    EXPECT_EQ(collection.Compare(collection), 0);
    EXPECT_EQ(ORXSimPosition(member) < ORXSimPosition(collection), member.Compare(collection) < 0);
}

TEST_F(DatabaseApi, NavigationBetweenRecords)
{
    ORXSimPosition const none;
    EXPECT_TRUE(none.IsNull());
    EXPECT_TRUE(!none);
    EXPECT_TRUE(none.GetCollection().IsNull());
    EXPECT_TRUE(none.GetPosition(kLink).IsNull());

    EXPECT_FALSE(focus.IsNull());
    EXPECT_EQ(focus.Focus(), focus);
    EXPECT_EQ(focus.ContextID(), doc.ContextID());
    EXPECT_EQ(focus.Context().ContextID(), doc.ContextID());
    EXPECT_FALSE(ORXObjDocument(focus.Doc()).IsClosed());

    ORXSimPosition const model = focus.CreateDataRecord(kRecordType).Pos();
    focus.SetPosition(vds_CoreFragmentTypeIndex(25, 1), model);
    EXPECT_EQ(focus.GetPosition(vds_CoreFragmentTypeIndex(25, 1)), model);
    EXPECT_EQ(model.Focus(), focus);
    EXPECT_EQ(model.ID(), model.Focus().GetPosition(vds_CoreFragmentTypeIndex(25, 1)).ID());
    EXPECT_TRUE(model.IsA(kRecordType));
    EXPECT_EQ(model.TypePosition(), kRecordType);
    EXPECT_FALSE(model.Context().Schema().TypeName(model.TypePosition()).IsNull());
    EXPECT_EQ(model.Context().Schema().TypeID(kRecordType), model.TypeID());
    EXPECT_EQ(model.Parent(vds_CoreFragmentTypeIndex(25, 1)), focus);

    ORXSimPosition const a = focus.CreateDataRecord(kRecordType).Pos();
    ORXSimPosition const b = focus.CreateDataRecord(kRecordType).Pos();
    a.SetName("first");
    EXPECT_EQ(a.Name(-1), ORXString("first"));

    ORXSimSet set = model.GetSet(kMember);
    EXPECT_TRUE(set.Empty());
    set.Insert(b);
    set.Insert(a);
    std::vector<ORXSimPosition> walked;
    for (ORXSimSetiterator it = set.Begin(); it.NotDone(); ++it)
        walked.push_back(*it);
    EXPECT_EQ(walked, (std::vector<ORXSimPosition>{b, a}));
    EXPECT_EQ(model.GetSet(kMember).Size(), 2);

    ORXSimVector vector = model.GetVector(kLink);
    vector.PushBack(a);
    vector.PushBack(b);
    vector.PushBack(a);
    walked.clear();
    for (ORXSimVectoriterator it = vector.Begin(); it.NotDone(); ++it)
        walked.push_back(*it);
    EXPECT_EQ(walked, (std::vector<ORXSimPosition>{a, b, a}));

    int const steps = vds_CoreFragmentTypeIndex(57, 25);
    ORXSimMap map = model.GetMap(steps);
    map.Insert("zeta", a);
    map.Insert("alpha", b);
    EXPECT_EQ(map.Size(), 2);
    EXPECT_EQ(map.Find("zeta"), a);
    EXPECT_TRUE(map.Find("missing").IsNull());
    ORXSimMapiterator first = map.Begin();
    ASSERT_TRUE(first.NotDone());
    EXPECT_EQ(first.Value(), b);
    ASSERT_EQ(a.ReferrersSet(steps).Size(), 1);
    EXPECT_EQ(a.GetReferenceKey(steps), ORXString("zeta"));
    EXPECT_EQ(a.Name(steps), ORXString("zeta"));
    EXPECT_EQ(b.Parent(steps), model);

    int const results = vds_CoreFragmentTypeIndex(15, 1);
    EXPECT_TRUE(focus.Follow(results, 1).IsNull());
    focus.Associate(results, 1, b);
    EXPECT_EQ(focus.Follow(results, 1), b);
    EXPECT_TRUE(focus.Follow(results, 2).IsNull());
}

TEST_F(DatabaseApi, HoldingsCountEveryKeyAndLinkOnce)
{
    int const steps = vds_CoreFragmentTypeIndex(57, 25);
    ORXSimPosition const holder = focus.CreateDataRecord(kRecordType).Pos();
    ORXSimPosition const other = focus.CreateDataRecord(kRecordType).Pos();
    ORXSimPosition const step = focus.CreateDataRecord(kRecordType).Pos();
    ORXSimMap map = holder.GetMap(steps);
    map.Insert("b", step);
    map.Insert("a", step);
    EXPECT_EQ(step.ReferrersSet(steps).Size(), 2);
    EXPECT_EQ(step.GetReferenceKey(steps), ORXString("b"));
    other.SetPosition(steps, step);
    EXPECT_EQ(step.ReferrersSet(steps).Size(), 3);
    EXPECT_EQ(step.Parent(steps), holder);

    // Replacing the entry of a key drops that holding.
    map.Insert("b", other);
    EXPECT_EQ(step.ReferrersSet(steps).Size(), 2);
    EXPECT_EQ(map.Find("b"), other);
    EXPECT_EQ(step.GetReferenceKey(steps), ORXString("a"));
}

TEST_F(DatabaseApi, DataRecordFields)
{
    ORXSimDataRecord const record = focus.CreateDataRecord(kRecordType);
    EXPECT_EQ(record.Pos().DataRecord().ID(), record.ID());
    record.SetInt(0, 12);
    record.SetSymb(1, 3);
    record.SetDouble(2, 2.5);
    record.SetString(3, "label");
    record.SetTypeID(4, ORXSimTypeID(kNodeType));

    ORXSimDataRecord const reader = record.Pos().GetDataRecord();
    int value = 0;
    reader.GetInt(0, value);
    EXPECT_EQ(value, 12);
    EXPECT_EQ(reader.ReturnInt(0), 12);
    reader.GetSymb(1, value);
    EXPECT_EQ(value, 3);
    EXPECT_EQ(reader.ReturnSymb(1), 3);
    double number = 0;
    reader.GetDouble(2, number);
    EXPECT_EQ(number, 2.5);
    ORXString text;
    reader.GetString(3, text);
    EXPECT_EQ(text, ORXString("label"));
    EXPECT_EQ(reader.ReturnString(3), ORXString("label"));
}

TEST_F(DatabaseApi, CollectionsMembersAndSymbols)
{
    ORXSimCollectionID const id = focus.CreateTypedCollection(1, kNodeType);
    ORXSimCollection nodes(id);
    EXPECT_FALSE(nodes.IsNull());
    EXPECT_EQ(nodes.ID(), id);
    EXPECT_EQ(nodes.Space(), 1);
    if (6 > nodes.Space())
        nodes.ExtendSpace(6);
    EXPECT_EQ(nodes.Space(), 6);
    EXPECT_EQ(ORXSimPosition(id).GetCollection(), id);

    ORXSimContext const context(id.ContextID());
    ORXSimDynamicID const third = context.GetRecord(id, 3);
    EXPECT_EQ(third, ORXSimCMemberID(id, 3));
    EXPECT_EQ(context.GetCMemberIndex(third), 3);
    EXPECT_TRUE(ORXSimPosition(third).IsA(kNodeType));

    ORXSimArray<ORXSimDynamicID> records(2, 0);
    records.Get(0) = context.GetRecord(id, 4);
    records.Get(1) = context.GetRecord(id, 1);
    ORXSimCollectionID found;
    ORXSimArray<int> indices;
    context.GetCMembership(records, found, indices);
    EXPECT_EQ(found, id);
    ASSERT_EQ(indices.Size(), 2);
    EXPECT_EQ(indices[0], 4);
    EXPECT_EQ(indices[1], 1);

    ORXSimPosition(third).SetSymbol(7, "SEVEN");
    EXPECT_EQ(ORXSimPosition(third).GetSymbolPosition(), 7);
    EXPECT_EQ(ORXSimPosition(third).GetSymbolName(), ORXString("SEVEN"));
    ORXSimSymbols const symbols(id.ContextID());
    EXPECT_EQ(symbols.Get(ORXSimTypeID(kNodeType), 7, id), third);
    EXPECT_TRUE(symbols.IsMember(third));
    EXPECT_EQ(symbols.Get(third), 7);
    EXPECT_FALSE(symbols.IsMember(context.GetRecord(id, 2)));
}

TEST_F(DatabaseApi, CSetKindsAndAlgebra)
{
    ORXSimCollection nodes(focus.CreateTypedCollection(10, kNodeType));
    int const given[] = {7, 2, 5};

    ORXSimCSetID const persistent = nodes.CreateCSet(given, 3, false);
    EXPECT_FALSE(persistent.IsNull());
    EXPECT_EQ(persistent.CollectionID(), nodes.ID());
    EXPECT_EQ(MembersOf(ORXSimCSet(persistent)), (std::vector<int>{2, 5, 7}));
    EXPECT_EQ(MembersOf(ORXSimCSet(nodes.CreateTempCSet(given, 3, false))), (std::vector<int>{2, 5, 7}));
    EXPECT_EQ(MembersOf(nodes.CreateVolatileCSet(given, 3, false)), (std::vector<int>{2, 5, 7}));
    EXPECT_EQ(MembersOf(ORXSimCSet(nodes.CreateCSetStrided(5, 3, 1, 1))), (std::vector<int>{5, 6, 7}));
    EXPECT_EQ(ORXSimCSet(nodes.CreateCSetStrided(5, 0, 1, 1)).Size(), 0);
    EXPECT_EQ(MembersOf(ORXSimCSet(nodes.CreateTempCSetStrided(0, 2, 1, 1))), (std::vector<int>{0, 1}));
    EXPECT_EQ(nodes.CreateVolatileCSetStrided(1, 4, 1, 1).Size(), 4);
    EXPECT_EQ(ORXSimCSet(nodes.EmptyCSetID()).Size(), 0);
    EXPECT_FALSE(nodes.EmptyCSetID().IsNull());

    ORXSimCSet const ordered(nodes.CreateTempOrderedCSet(given, 3));
    EXPECT_FALSE(ordered.IsAscending());
    EXPECT_EQ(MembersOf(ordered), (std::vector<int>{7, 2, 5}));
    EXPECT_EQ(ordered[0], 7);
    EXPECT_EQ(ordered.Bounds().first, 2);
    ORXSimCSet const volatileOrdered = nodes.CreateVolatileOrderedCSet(given, 3);
    EXPECT_TRUE(volatileOrdered.ID().IsNull());
    EXPECT_TRUE(volatileOrdered.SameMembers(ORXSimCSet(persistent)));
    EXPECT_EQ(MembersOf(ORXSimCSet(volatileOrdered.AscendingID())), (std::vector<int>{2, 5, 7}));

    std::vector<int> walked;
    ORXSimCSetIterator it(ordered);
    for (it.First(); !it.IsDone(); it.Next())
    {
        EXPECT_EQ(it.CurrentLocation(), static_cast<int>(walked.size()));
        walked.push_back(it.CurrentValue());
    }
    EXPECT_EQ(walked, (std::vector<int>{7, 2, 5}));

    ORXSimCSet const start(nodes.ID());
    ORXSimCSet const run = nodes.CreateVolatileCSetStrided(4, 4, 1, 1);
    ORXSimCSet const joined = start.Union(run);
    EXPECT_EQ(start.Size(), 0);
    EXPECT_EQ(MembersOf(joined), (std::vector<int>{4, 5, 6, 7}));
    EXPECT_EQ(MembersOf(run.Intersection(ORXSimCSet(persistent))), (std::vector<int>{5, 7}));
    EXPECT_EQ(MembersOf(run - ORXSimCSet(persistent)), (std::vector<int>{4, 6}));

    // The set-identity idiom: no registered twin, so a temporary set stands in for it.
    ORXSimCSet const fresh = nodes.CreateVolatileCSetStrided(8, 2, 1, 1);
    EXPECT_TRUE(nodes.SeekCSet(fresh, false).IsNull());
    ORXSimCSetID const temp = IdentityOf(nodes, fresh);
    EXPECT_FALSE(temp.IsNull());
    EXPECT_EQ(MembersOf(ORXSimCSet(temp)), (std::vector<int>{8, 9}));
    EXPECT_FALSE(nodes.SeekCSet(ORXSimCSet(persistent), false).IsNull());

    ORXSimCSet registered = nodes.CreateVolatileCSet(given, 2, false);
    ORXSimCSetID const registeredID = registered.RegisterWithCollection();
    EXPECT_FALSE(registeredID.IsNull());
    EXPECT_EQ(registered.ID(), registeredID);
    EXPECT_EQ(registered.Pos().GetCSet(), registeredID);
    EXPECT_TRUE(ORXSimCSetID::CanBeConverted(registered.Pos().ID()));
    EXPECT_EQ(ORXSimCSetID(registered.Pos().ID()), registeredID);
    EXPECT_EQ(ORXSimCSet(registered.Pos()).Size(), 2);
    EXPECT_EQ(registered.Pos().CSet().Size(), 2);
    ORXSimCSet temporary = nodes.CreateVolatileCSet(given, 1, false);
    EXPECT_FALSE(temporary.RegisterWithTempCollection().IsNull());

    omi_BlkBitVect bits;
    ORXSimCSet(persistent).AsBitVector(bits);
    EXPECT_TRUE(bits.GetBit(5));
    EXPECT_FALSE(bits.GetBit(6));

    // A volatile set's identity still names its collection yet is null.
    EXPECT_NE(fresh.ID().Category(), 0);
    EXPECT_FALSE(fresh.ID().ContextID().IsNull());
    EXPECT_TRUE(fresh.ID().IsNull());
    EXPECT_TRUE(ORXSimPosition(fresh.ID()).IsNull());
}

TEST_F(DatabaseApi, MemberMapBetweenCollections)
{
    ORXSimCollection primary(focus.CreateTypedCollection(5, kNodeType));
    ORXSimCollection secondary(focus.CreateTypedCollection(5, kNodeType));
    int const firstMembers[] = {0, 1, 2};
    int const secondMembers[] = {4, 2, 3};
    ORXBasSharedPtr<ORXSimCMemberMap> map =
        ORXSimCMemberMap::Create(primary.CreateVolatileCSet(firstMembers, 3, false),
                                 secondary.CreateVolatileOrderedCSet(secondMembers, 3));
    int const query[] = {2, 3};
    ORXSimCSet const mapped = map->MapCSet(secondary.CreateVolatileCSet(query, 2, false));
    EXPECT_EQ(mapped.CollectionID(), primary.ID());
    EXPECT_TRUE(mapped.SameMembers(primary.CreateVolatileCSetStrided(1, 2, 1, 1)));
}

TEST_F(DatabaseApi, CompartmentsCtationsAndDSets)
{
    ORXSimCollection classes(focus.CreateTypedCollection(2, kRecordType));
    ORXSimCollection elements(focus.CreateTypedCollection(10, kNodeType));
    ORXSimCollection other(focus.CreateTypedCollection(1, kNodeType));

    ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> compartments(2, 0);
    for (int c = 0; c < 2; ++c)
    {
        ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> sets(2, 0);
        sets.Get(0) = classes.CreateCSetStrided(c, 1, 1, 1);
        sets.Get(1) = elements.CreateCSetStrided(5 * c, 5, 1, 1);
        compartments.Get(c) = ORXSimCompartment(sets);
    }
    EXPECT_EQ(compartments[1].Size(), 2);
    EXPECT_EQ(compartments[1][1].Bounds().first, 5);
    EXPECT_EQ(compartments[1].Position(elements.ID()), 1);
    EXPECT_LT(compartments[1].Position(other.ID()), 0);
    EXPECT_EQ(ORXSimCompartment().Size(), 0);

    ORXSimCtation const body(compartments);
    ORXSimCtation const copy(body);
    EXPECT_EQ(copy.NumCompartments(), 2);

    ORXSimDSetID const id = focus.CreateTypedDSet(body, kRecordType);
    ORXSimDSet const dset(id);
    EXPECT_FALSE(dset.IsNull());
    EXPECT_FALSE(dset.IsEmpty());
    EXPECT_TRUE(ORXSimDSet().IsNull());
    EXPECT_EQ(ORXSimDSet(ORXSimPosition(id)).GetCtation().NumCompartments(), 2);
    EXPECT_EQ(ORXSimPosition(id).GetDSet(), id);
    EXPECT_EQ(ORXSimPosition(id).DSet().GetCtation().NumCompartments(), 2);
    EXPECT_EQ(dset.Collect(elements.ID()).Size(), 10);

    ORXSimDSet const part = dset.Select(ORXSimCSet(classes.CreateCSetStrided(1, 1, 1, 1)));
    ASSERT_FALSE(part.IsNull());
    EXPECT_EQ(MembersOf(part.Collect(elements.ID())), (std::vector<int>{5, 6, 7, 8, 9}));
    EXPECT_TRUE(dset.Select(ORXSimCSet(other.CreateCSetStrided(0, 1, 1, 1))).IsNull());
}

TEST_F(DatabaseApi, RelationalDSetFollowsItsDistribution)
{
    ORXSimCollection elements(focus.CreateTypedCollection(4, kNodeType));
    ORXSimCollection specs(focus.CreateTypedCollection(2, kRecordType));
    CollectionArray grid(1, 0);
    grid.Get(0) = elements.ID();
    ORXSimContext const context = focus.Context();
    ORXSimDistributionID const relation = context.CreateDistribution(
        ORXSimGrid(grid), ORXSimRangeType(7, specs.ID()), ORXSimTypeID(kRecordType));
    ORXSimDSetID const id = context.CreateDSet(relation, ORXSimTypeID(kRecordType));
    EXPECT_EQ(ORXSimDSet(id).GetRelationalDistributionID(), relation);

    int values[] = {1, 0, 1};
    ORXSimTransfer write{ORXSimDistribution(relation)};
    write.SetWrite().SetBufferPadding(false).SetMakeNewDrawer();
    write.SetDim(0, elements.CreateTempCSetStrided(0, 3, 1, 1)).CheckView();
    write.SetBuffer(0, values, sizeof values);
    write.ExecWrite();
    write.RelinquishBuffers();
    context.UpdateDSet(id, relation);
    EXPECT_EQ(ORXSimDSet(id).Collect(elements.ID()).Size(), 3);

    // The indices, asked for as doubles.
    std::vector<double> asDoubles(3, -1);
    ORXSimTransfer read{ORXSimDistribution(relation)};
    read.SetRead().SetBufferPadding(false).SetBufferType(4);
    read.SetDim(0, elements.CreateTempCSetStrided(0, 3, 1, 1)).CheckView();
    ASSERT_EQ(read.RequiredBufferSize(0), 3 * sizeof(double));
    read.SetBuffer(0, asDoubles.data(), read.RequiredBufferSize(0));
    read.ExecRead();
    read.RelinquishBuffers();
    EXPECT_EQ(asDoubles, (std::vector<double>{1, 0, 1}));
}

class DistributionApi : public DatabaseApi
{
protected:
    void SetUp() override
    {
        nodes.ExtendSpace(4);
        CollectionArray collections(2, 0);
        collections.Get(0) = nodes.ID();
        collections.Get(1) = components.ID();
        coordinates = focus.CreateTypedDistribution(ORXSimGrid(collections), kNodeType, ORXSimRangeType(4));
    }
    std::vector<double> ReadAll(ORXSimCSetID const& rows)
    {
        ORXSimTransfer read{ORXSimDistribution(coordinates)};
        read.SetRead().SetBufferPadding(false).SetDim(0, rows);
        read.SetDim(1, components.CreateTempCSetStrided(0, 2, 1, 1)).CheckView();
        std::vector<double> values(static_cast<int>(read.RequiredBufferSize(0)) / sizeof(double));
        read.SetBuffer(0, values.data(), values.size() * sizeof(double));
        read.ExecRead();
        read.RelinquishBuffers();
        return values;
    }

    ORXSimCollection nodes{focus.CreateTypedCollection(1, kNodeType)};
    ORXSimCollection components{focus.CreateTypedCollection(2, kRecordType)};
    ORXSimDistributionID coordinates;
};

TEST_F(DistributionApi, HandleAndDrawerQueries)
{
    ORXSimDistribution const distribution(coordinates);
    ORXSimDistribution const copy(distribution);
    EXPECT_EQ(copy.ID(), coordinates);
    EXPECT_EQ(copy.NumDimensions(), 2);
    EXPECT_EQ(copy.Grid().NumDimensions(), 2);
    EXPECT_EQ(ORXSimPosition(coordinates).GetDistribution(), coordinates);

    DescriptionArray descriptions(1, 0);
    distribution.QueryDrawers(descriptions);
    EXPECT_EQ(descriptions.Size(), 0);
    EXPECT_EQ(descriptions[0].NumDimensions(), 0);
    EXPECT_EQ(descriptions[0].Domain().Size(), 0);
    DescriptionArray fromDefault;
    distribution.QueryDrawers(fromDefault);
    EXPECT_EQ(fromDefault.Size(), 0);
    EXPECT_EQ(fromDefault[0].Domain().Size(), 0);

    // Sequence 4 with an unchunked drawer.
    std::vector<double> values{1, 2, 3, 4};
    ORXSimTransfer emptyView{ORXSimDistribution(coordinates)};
    emptyView.SetWrite().SetBufferPadding(false).SetMakeNewDrawer();
    emptyView.SetDim(0, nodes.CreateTempCSetStrided(0, 2, 1, 1)).SetDim(1, components.EmptyCSetID());
    emptyView.CheckView();
    EXPECT_EQ(emptyView.RequiredBufferSize(0), 0u);
    ORXSimTransfer write{ORXSimDistribution(coordinates)};
    write.SetWrite().SetBufferPadding(false).SetMakeNewDrawer();
    write.SetDim(0, nodes.CreateTempCSetStrided(0, 2, 1, 1))
        .SetDim(1, components.CreateTempCSetStrided(0, 2, 1, 1));
    write.CheckView();
    ASSERT_EQ(static_cast<int>(write.RequiredBufferSize(0)), 4 * static_cast<int>(sizeof(double)));
    write.SetBuffer(values.data(), values.size() * sizeof(double));
    write.ExecWrite();
    write.RelinquishBuffers();

    distribution.QueryDrawers(descriptions);
    ASSERT_EQ(descriptions.Size(), 1);
    ORXSimPersistentDrawerDesc const& made = descriptions[0];
    EXPECT_EQ(made.ExtendableDim(), -1);
    EXPECT_FALSE(made.IsChunked());
    EXPECT_EQ(made.DataSizeItems(0), 4u);
    EXPECT_EQ(made.NumDimensions(), 2);
    EXPECT_EQ(made.Domain().CSet(0).Size(), 2);
    EXPECT_EQ(made.Domain().Position(components.ID()), 1);
    EXPECT_LT(made.Domain().Position(focus.CreateTypedCollection(1, kNodeType)), 0);
    ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> domainIDs;
    made.Domain().CSetIDs(domainIDs);
    ASSERT_EQ(domainIDs.Size(), 2);
    EXPECT_FALSE(domainIDs[0].IsNull());

    ORXSimArray<ORXSimDrawerID, ORXSimArrayCopyClassPolicy<ORXSimDrawerID>> ids;
    distribution.DrawerIDArray(ids);
    ASSERT_EQ(ids.Size(), 1);
    EXPECT_EQ(ids[0], made.DrawerID());
    EXPECT_EQ(ids[0].DistributionID(), coordinates);
    EXPECT_EQ(distribution.DrawerDescription(ids[0]).DataSizeItems(0), 4u);
    EXPECT_EQ(ORXSimDrawer(ids[0]).Description().DrawerID(), ids[0]);
    EXPECT_EQ(ORXSimDrawer(ORXSimPosition(ids[0])).ID(), ids[0]);
    EXPECT_EQ(ORXSimPosition(ids[0]).GetDrawer(), ids[0]);
    EXPECT_EQ(ORXSimDrawerID(ORXSimDynamicID(ids[0])), ids[0]);
}

TEST_F(DistributionApi, TheFiveCallingSequences)
{
    // 2: make a chunked drawer, extendable over the nodes.
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> chunks(2, 0);
    chunks.Get(0) = 100000;
    chunks.Get(1) = 2;
    ORXSimTransfer make{ORXSimDistribution(coordinates)};
    make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(0);
    make.SetDim(0, nodes.CreateTempCSetStrided(0, 0, 1, 1))
        .SetDim(1, components.CreateTempCSetStrided(0, 2, 1, 1));
    make.CheckView();
    make.ExecMake();
    ORXSimDrawerID const drawer = make.DrawerID();
    DescriptionArray descriptions(1, 0);
    ORXSimDistribution(coordinates).QueryDrawers(descriptions);
    ASSERT_EQ(descriptions.Size(), 1);
    EXPECT_EQ(descriptions[0].DrawerID(), drawer);
    EXPECT_EQ(descriptions[0].DataSizeItems(0), 0u);
    EXPECT_EQ(descriptions[0].ExtendableDim(), 0);
    ORXSimArray<int> readChunks;
    descriptions[0].ChunkSizes(readChunks);
    ASSERT_EQ(readChunks.Size(), 2);
    EXPECT_EQ(readChunks[0], 100000);

    // 3: write to it with auto-extension; the domain widens.
    nodes.ExtendSpace(4);
    std::vector<double> first{1, 2, 3, 4};
    ORXSimTransfer write{ORXSimDistribution(coordinates)};
    write.SetWrite().SetAutoExtend().SetBufferPadding(false).SetDrawer(drawer);
    write.SetDim(0, nodes.CreateTempCSetStrided(0, 2, 1, 1))
        .SetDim(1, components.CreateTempCSetStrided(0, 2, 1, 1));
    write.CheckView();
    ASSERT_EQ(static_cast<int>(write.RequiredBufferSize(0)), 4 * static_cast<int>(sizeof(double)));
    write.SetBuffer(0, first.data(), write.RequiredBufferSize(0));
    write.ExecWrite();
    write.RelinquishBuffers();
    ORXSimDistribution(coordinates).QueryDrawers(descriptions);
    EXPECT_EQ(descriptions[0].Domain().CSet(0).Size(), 2);

    // 5: extend the drawer by two more nodes.
    std::vector<double> more{5, 6, 7, 8};
    ORXSimTransfer extend{ORXSimDistribution(coordinates)};
    extend.SetWrite().SetBufferPadding(false).SetDrawer(drawer);
    extend.SetDimExtension(nodes.CreateTempCSetStrided(2, 2, 1, 1)).CheckView();
    extend.SetBuffer(0, more.data(), more.size() * sizeof(double));
    extend.ExecWrite();
    extend.RelinquishBuffers();

    // 1: read, with rows in the order of an ordered set.
    EXPECT_EQ(ReadAll(nodes.CreateTempCSetStrided(0, 4, 1, 1)),
              (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8}));
    int const backwards[] = {3, 0};
    EXPECT_EQ(ReadAll(nodes.CreateTempOrderedCSet(backwards, 2)), (std::vector<double>{7, 8, 1, 2}));

    // 1 with a named drawer, a volatile set and the values asked for as doubles.
    std::vector<double> one(2, 0);
    ORXSimTransfer read{ORXSimDistribution(coordinates)};
    read.SetRead().SetDrawer(drawer).SetBufferPadding(false).SetBufferType(4);
    read.SetDim(0, nodes.CreateVolatileCSetStrided(1, 1, 1, 1))
        .SetDim(1, ORXSimCSet(components.CreateTempCSetStrided(0, 2, 1, 1)));
    read.CheckView();
    read.SetBuffer(0, one.data(), one.size() * sizeof(double));
    read.ExecRead();
    read.RelinquishBuffers();
    EXPECT_EQ(one, (std::vector<double>{3, 4}));

    // An empty view reads nothing into a zero-length buffer.
    ORXSimTransfer none{ORXSimDistribution(coordinates)};
    none.SetRead().SetBufferPadding(false).SetDim(0, nodes.EmptyCSetID()).SetDim(1, components.EmptyCSetID());
    none.CheckView();
    EXPECT_EQ(none.RequiredBufferSize(0), 0u);
    none.SetBuffer(0, nullptr, 0);
    none.ExecRead();
    none.RelinquishBuffers();
}

TEST_F(DistributionApi, ViewsThatDoNotFitAreRefused)
{
    ORXSimCollection outside(focus.CreateTypedCollection(2, kNodeType));
    ORXSimTransfer wrongCollection{ORXSimDistribution(coordinates)};
    wrongCollection.SetRead().SetBufferPadding(false).SetDim(0, outside.CreateTempCSetStrided(0, 1, 1, 1));
    wrongCollection.SetDim(1, components.CreateTempCSetStrided(0, 2, 1, 1));
    EXPECT_ANY_THROW(wrongCollection.CheckView());

    ORXSimTransfer missingDim{ORXSimDistribution(coordinates)};
    missingDim.SetRead().SetBufferPadding(false).SetDim(0, nodes.CreateTempCSetStrided(0, 1, 1, 1));
    EXPECT_ANY_THROW(missingDim.CheckView());

    // A read through a drawer of members it does not hold, and a write past it without auto-extension.
    ORXSimTransfer make{ORXSimDistribution(coordinates)};
    make.SetMakeNewDrawer().SetBufferPadding(false).SetDim(0, nodes.CreateTempCSetStrided(0, 1, 1, 1));
    make.SetDim(1, components.CreateTempCSetStrided(0, 2, 1, 1)).CheckView();
    make.ExecMake();
    ORXSimTransfer unheld{ORXSimDistribution(coordinates)};
    unheld.SetRead().SetDrawer(make.DrawerID()).SetBufferPadding(false);
    unheld.SetDim(0, nodes.CreateTempCSetStrided(0, 2, 1, 1))
        .SetDim(1, components.CreateTempCSetStrided(0, 2, 1, 1));
    double buffer[4];
    EXPECT_ANY_THROW({
        unheld.CheckView();
        unheld.SetBuffer(0, buffer, sizeof buffer);
        unheld.ExecRead();
    });
    ORXSimTransfer past{ORXSimDistribution(coordinates)};
    past.SetWrite().SetDrawer(make.DrawerID()).SetBufferPadding(false);
    past.SetDim(0, nodes.CreateTempCSetStrided(0, 2, 1, 1))
        .SetDim(1, components.CreateTempCSetStrided(0, 2, 1, 1));
    EXPECT_ANY_THROW({
        past.CheckView();
        past.SetBuffer(0, buffer, sizeof buffer);
        past.ExecWrite();
    });
}

TEST_F(DatabaseApi, TransactionsTablesAndArrays)
{
    ORXSimTransaction transaction(focus.ContextID());
    EXPECT_EQ(transaction.ContextID(), focus.ContextID());
    focus.CreateDataRecord(kRecordType);
    transaction.Commit();

    ORXBasVector<ORXString> dependent;
    dependent.push_back("value");
    ORXBasVector<ORXString> independent;
    independent.push_back("temperature");
    double const data[] = {1, 10, 2, 20, 3, 30};
    ORXSimFTable const table(focus.CreateFTable(kRecordType, 3, dependent, independent, data, 6));
    EXPECT_EQ(table.RowCount(), 3);
    EXPECT_EQ(table.ColumnCount(), 2);
    EXPECT_EQ(table.ColumnLabel(0), ORXString("value"));
    EXPECT_EQ(table.ColumnLabel(1), ORXString("temperature"));
    double read[6] = {};
    table.GetData(read, 6);
    EXPECT_EQ(read[3], 20);

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
    ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>>& same = sets;
    EXPECT_EQ(same.Size(), 1);
}
} // namespace
