// Distributions, drawers and the five calling sequences of transfers, with their failures.
#include "DocumentFixture.h"

#include <functional>
#include <string>
#include <vector>

namespace
{
int const kType = Schema(13, 5);

class Transfers : public DocumentFixture
{
protected:
    void SetUp() override
    {
        CollectionIDArray grid(2, 0);
        grid.Get(0) = nodes.ID();
        grid.Get(1) = components.ID();
        coordinates = m_document.Focus().CreateTypedDistribution(ORXSimGrid(grid), kType, ORXSimRangeType(4));
    }

    ORXSimCSetID Run(ORXSimCollection const& c, int first, int count) const
    {
        return c.CreateTempCSetStrided(first, count, 1, 1);
    }
    // Sequence 2: a chunked drawer, extendable in dimension 0, over nodes x all components.
    ORXSimDrawerID MakeDrawer(ORXSimCSetID const& nodeSet)
    {
        ORXSimArray<int> chunks(2, 0);
        chunks.Get(0) = 4;
        chunks.Get(1) = 3;
        ORXSimTransfer make{ORXSimDistribution(coordinates)};
        make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(0);
        make.SetDim(0, nodeSet).SetDim(1, Run(components, 0, 3)).CheckView();
        make.ExecMake();
        return make.DrawerID();
    }
    // Sequence 3: write with auto-extension.
    void Append(ORXSimDrawerID drawer, ORXSimCSet const& nodeSet, std::vector<double> values)
    {
        ORXSimTransfer write{ORXSimDistribution(coordinates)};
        write.SetWrite().SetAutoExtend().SetBufferPadding(false).SetDrawer(drawer);
        write.SetDim(0, nodeSet).SetDim(1, ORXSimCSet(Run(components, 0, 3))).CheckView();
        ASSERT_EQ(write.RequiredBufferSize(0), values.size() * sizeof(double));
        write.SetBuffer(0, values.data(), values.size() * sizeof(double));
        write.ExecWrite();
        write.RelinquishBuffers();
    }
    // Sequence 1, without naming a drawer.
    std::vector<double> Read(ORXSimCSet const& nodeSet, ORXSimCSet const& componentSet, double fill = -1)
    {
        ORXSimTransfer read{ORXSimDistribution(coordinates)};
        read.SetRead().SetBufferPadding(false).SetDim(0, nodeSet).SetDim(1, componentSet).CheckView();
        std::vector<double> values(read.RequiredBufferSize(0) / sizeof(double), fill);
        read.SetBuffer(0, values.data(), values.size() * sizeof(double));
        read.ExecRead();
        read.RelinquishBuffers();
        return values;
    }
    std::vector<double> ReadAll(ORXSimCSet const& nodeSet)
    {
        return Read(nodeSet, ORXSimCSet(Run(components, 0, 3)));
    }
    static std::vector<double> Rows(int first, int count)
    {
        std::vector<double> v;
        for (int n = first; n < first + count; ++n)
            for (int c = 0; c < 3; ++c)
                v.push_back(n * 10 + c);
        return v;
    }

    ORXSimCollection nodes = Collection(100);
    ORXSimCollection components = Collection(3);
    ORXSimDistributionID coordinates;
};
} // namespace

TEST_F(Transfers, DrawersAreDescribedAndFoundByEveryHandle)
{
    ORXSimDistribution const distribution(coordinates);
    ORXSimDistribution const copy(distribution);
    EXPECT_EQ(copy.ID(), coordinates);
    EXPECT_EQ(copy.NumDimensions(), 2);
    EXPECT_EQ(copy.Grid().NumDimensions(), 2);
    EXPECT_EQ(copy.Grid()[1], components.ID());
    EXPECT_EQ(ORXSimPosition(coordinates).GetDistribution(), coordinates);
    // With no drawers, element zero of a sized or a default array still reads as an empty description.
    DrawerDescArray made(1, 0), fresh;
    distribution.QueryDrawers(made);
    distribution.QueryDrawers(fresh);
    for (DrawerDescArray* d : {&made, &fresh})
    {
        EXPECT_EQ(d->Size(), 0);
        EXPECT_EQ(d->ConstGet(0).NumDimensions(), 0);
        EXPECT_EQ(d->ConstGet(0).Domain().Size(), 0);
        EXPECT_LT(d->ConstGet(0).Domain().Position(nodes.ID()), 0);
    }

    // Sequence 4, after a view with an empty dimension that asks for no buffer at all.
    ORXSimTransfer emptyView{distribution};
    emptyView.SetWrite().SetBufferPadding(false).SetMakeNewDrawer();
    emptyView.SetDim(0, Run(nodes, 0, 2)).SetDim(1, components.EmptyCSetID()).CheckView();
    EXPECT_EQ(emptyView.RequiredBufferSize(0), 0u);
    ORXSimTransfer read{distribution};
    read.SetRead().SetBufferPadding(false).SetDim(0, nodes.EmptyCSetID()).SetDim(1, Run(components, 0, 3));
    read.CheckView();
    EXPECT_EQ(read.RequiredBufferSize(0), 0u);
    read.SetBuffer(0, nullptr, 0);
    read.ExecRead();
    std::vector<double> values = Rows(0, 2);
    ORXSimTransfer write{distribution};
    write.SetWrite().SetBufferPadding(false).SetMakeNewDrawer();
    write.SetDim(0, Run(nodes, 0, 2)).SetDim(1, Run(components, 0, 3)).CheckView();
    ASSERT_EQ(write.RequiredBufferSize(0), values.size() * sizeof(double));
    write.SetBuffer(values.data(), values.size() * sizeof(double));
    write.ExecWrite();
    write.RelinquishBuffers();
    EXPECT_EQ(ReadAll(ORXSimCSet(Run(nodes, 0, 2))), values);

    distribution.QueryDrawers(made);
    ASSERT_EQ(made.Size(), 1);
    ORXSimPersistentDrawerDesc const& plain = made[0];
    EXPECT_EQ(plain.ExtendableDim(), -1);
    EXPECT_FALSE(plain.IsChunked());
    EXPECT_EQ(plain.DataSizeItems(0), 6u);
    EXPECT_EQ(plain.NumDimensions(), 2);
    EXPECT_EQ(plain.Domain().CSet(0).Size(), 2);
    EXPECT_EQ(plain.Domain().Position(components.ID()), 1);
    EXPECT_LT(plain.Domain().Position(Collection(1).ID()), 0);
    CSetIDArray domainIDs;
    plain.Domain().CSetIDs(domainIDs);
    ASSERT_EQ(domainIDs.Size(), 2);
    EXPECT_FALSE(domainIDs[0].IsNull());

    ORXSimArray<ORXSimDrawerID, ORXSimArrayCopyClassPolicy<ORXSimDrawerID>> ids;
    distribution.DrawerIDArray(ids);
    ASSERT_EQ(ids.Size(), 1);
    EXPECT_EQ(ids[0], write.DrawerID());
    EXPECT_EQ(ids[0], plain.DrawerID());
    EXPECT_EQ(ids[0].DistributionID(), coordinates);
    EXPECT_EQ(distribution.DrawerDescription(ids[0]).DataSizeItems(0), 6u);
    EXPECT_EQ(ORXSimDrawer(ids[0]).Description().DrawerID(), ids[0]);
    EXPECT_EQ(ORXSimDrawer(ORXSimPosition(ids[0])).ID(), ids[0]);
    EXPECT_EQ(ORXSimPosition(ids[0]).GetDrawer(), ids[0]);
    EXPECT_EQ(ORXSimDrawerID(ORXSimDynamicID(ids[0])), ids[0]);
}

TEST_F(Transfers, MakeThenAppendWidensTheDrawer)
{
    ORXSimDrawerID drawer = MakeDrawer(ORXSimCSet(Run(nodes, 0, 4)).AscendingID());
    DrawerDescArray drawers;
    ORXSimDistribution(coordinates).QueryDrawers(drawers);
    ASSERT_EQ(drawers.Size(), 1);
    ORXSimPersistentDrawerDesc const& made = drawers[0];
    EXPECT_EQ(made.DrawerID(), drawer);
    EXPECT_EQ(made.DataSizeItems(0), 0u);
    EXPECT_TRUE(made.IsChunked());
    EXPECT_EQ(made.ExtendableDim(), 0);
    ORXSimArray<int> chunks;
    made.ChunkSizes(chunks);
    ASSERT_EQ(chunks.Size(), 2);
    EXPECT_EQ(chunks[0], 4);
    EXPECT_EQ(drawer.DistributionID(), coordinates);

    Append(drawer, ORXSimCSet(Run(nodes, 0, 4)), Rows(0, 4));
    Append(drawer, ORXSimCSet(Run(nodes, 4, 6)), Rows(4, 6));
    ORXSimDistribution(coordinates).QueryDrawers(drawers);
    ASSERT_EQ(drawers.Size(), 1);
    EXPECT_EQ(drawers[0].Domain().CSet(0).Size(), 10);
    EXPECT_EQ(drawers[0].DataSizeItems(0), 30u);
    CSetIDArray ids;
    drawers[0].Domain().CSetIDs(ids);
    EXPECT_TRUE(ORXSimCSet(ids[0]).SameMembers(ORXSimCSet(Run(nodes, 0, 10))));
    EXPECT_EQ(ReadAll(ORXSimCSet(Run(nodes, 0, 10))), Rows(0, 10));

    // Members that fall between held ones keep every stored value in place.
    int const between[] = {20, 15};
    Append(drawer, nodes.CreateVolatileOrderedCSet(between, 2), {200, 201, 202, 150, 151, 152});
    Append(drawer, ORXSimCSet(Run(nodes, 12, 2)), Rows(12, 2));
    int const some[] = {20, 3, 12, 15};
    EXPECT_EQ(ReadAll(nodes.CreateVolatileOrderedCSet(some, 4)),
              (std::vector<double>{200, 201, 202, 30, 31, 32, 120, 121, 122, 150, 151, 152}));

    // Sequence 5: extend the drawer by new members.
    std::vector<double> more = Rows(30, 3);
    ORXSimTransfer extend{ORXSimDistribution(coordinates)};
    extend.SetWrite().SetBufferPadding(false).SetDrawer(drawer);
    extend.SetDimExtension(Run(nodes, 30, 3)).CheckView();
    EXPECT_EQ(extend.RequiredBufferSize(0), more.size() * sizeof(double));
    extend.SetBuffer(0, more.data(), more.size() * sizeof(double)).ExecWrite();
    EXPECT_EQ(ReadAll(ORXSimCSet(Run(nodes, 30, 3))), more);
    EXPECT_EQ(ORXSimDrawer(drawer).Description().Domain().CSet(0).Size(), 17);
}

// Descriptions handed out are values of their moment: a later write changes what a new query
// shows, not what was handed out before.
TEST_F(Transfers, DescriptionsAreValuesOfTheirMoment)
{
    ORXSimDrawerID drawer = MakeDrawer(Run(nodes, 0, 4));
    DrawerDescArray before;
    ORXSimDistribution(coordinates).QueryDrawers(before);
    ORXSimPersistentDrawerDesc kept = before[0];
    before = DrawerDescArray();
    Append(drawer, ORXSimCSet(Run(nodes, 0, 6)), Rows(0, 6));
    EXPECT_EQ(kept.DataSizeItems(0), 0u);
    EXPECT_EQ(kept.Domain().CSet(0).Size(), 4);
    EXPECT_EQ(kept.DrawerID(), drawer);

    DrawerDescArray after;
    ORXSimDistribution(coordinates).QueryDrawers(after);
    EXPECT_EQ(after[0].DataSizeItems(0), 18u);
    EXPECT_EQ(after[0].Domain().CSet(0).Size(), 6);
    // Asking again without a change in between gives the same sets.
    DrawerDescArray again;
    ORXSimDistribution(coordinates).QueryDrawers(again);
    EXPECT_EQ(again[0].Domain().CSet(0).ID(), after[0].Domain().CSet(0).ID());
    EXPECT_EQ(ORXSimDistribution(coordinates).DrawerDescription(drawer).DataSizeItems(0), 18u);

    ORXSimPersistentDrawerDesc& self = kept;
    kept = self;
    EXPECT_EQ(kept.Domain().CSet(0).Size(), 4);
    kept = after[0];
    after = DrawerDescArray();
    EXPECT_EQ(kept.DataSizeItems(0), 18u);
    ORXSimArray<int> chunks;
    kept.ChunkSizes(chunks);
    EXPECT_EQ(chunks.Size(), 2);
    ORXSimPersistentDrawerDesc const none;
    none.ChunkSizes(chunks);
    EXPECT_EQ(chunks.Size(), 0);
    EXPECT_EQ(none.ExtendableDim(), -1);
    EXPECT_EQ(none.DataSizeItems(0), 0u);

    ORXSimGrid const grid = ORXSimDistribution(coordinates).Grid();
    ORXSimGrid copy;
    EXPECT_EQ(copy.NumDimensions(), 0);
    copy = grid;
    ORXSimGrid const& same = copy;
    copy = same;
    EXPECT_EQ(copy.NumDimensions(), 2);
    EXPECT_EQ(copy[0], nodes.ID());
    EXPECT_EQ(copy.Collections()[1], components.ID());
}

// A read over the whole distribution takes each place of the view from the drawer that holds it,
// one drawer per component here, and leaves the places no drawer holds as the caller filled them.
TEST_F(Transfers, ReadsGatherTheViewFromEveryDrawer)
{
    std::vector<ORXSimDrawerID> perComponent;
    for (int c = 0; c < 3; ++c)
    {
        std::vector<double> values;
        for (int n = 2; n < 12; ++n)
            values.push_back(n * 10 + c);
        ORXSimTransfer write{ORXSimDistribution(coordinates)};
        write.SetWrite().SetBufferPadding(false).SetMakeNewDrawer();
        write.SetDim(0, Run(nodes, 2, 10)).SetDim(1, Run(components, c, 1)).CheckView();
        write.SetBuffer(0, values.data(), values.size() * sizeof(double)).ExecWrite();
        perComponent.push_back(write.DrawerID());
    }
    // Nodes 0 and 1 lie before the held run, 12 and 13 after it.
    EXPECT_EQ(ReadAll(ORXSimCSet(Run(nodes, 0, 4))),
              (std::vector<double>{-1, -1, -1, -1, -1, -1, 20, 21, 22, 30, 31, 32}));
    EXPECT_EQ(ReadAll(ORXSimCSet(Run(nodes, 10, 4))),
              (std::vector<double>{100, 101, 102, 110, 111, 112, -1, -1, -1, -1, -1, -1}));
    int const order[] = {7, 2, 13};
    int const backwards[] = {2, 0};
    EXPECT_EQ(
        Read(nodes.CreateVolatileOrderedCSet(order, 3), components.CreateVolatileOrderedCSet(backwards, 2)),
        (std::vector<double>{72, 70, 22, 20, -1, -1}));

    // A named drawer fills only its own component.
    ORXSimTransfer named{ORXSimDistribution(coordinates)};
    named.SetRead().SetDrawer(perComponent[1]).SetBufferPadding(false);
    named.SetDim(0, Run(nodes, 3, 2)).SetDim(1, Run(components, 0, 3)).CheckView();
    std::vector<double> values(6, -1);
    named.SetBuffer(0, values.data(), values.size() * sizeof(double)).ExecRead();
    EXPECT_EQ(values, (std::vector<double>{-1, 31, -1, -1, 41, -1}));
}

// Sequence 5 on a drawer made without an extendable dimension grows its first dimension.
TEST_F(Transfers, ExtensionOfADrawerWithoutExtendableDimensionGrowsDimensionZero)
{
    std::vector<double> first = Rows(0, 2), more = Rows(2, 3);
    ORXSimTransfer make{ORXSimDistribution(coordinates)};
    make.SetWrite().SetBufferPadding(false).SetMakeNewDrawer();
    make.SetDim(0, Run(nodes, 0, 2)).SetDim(1, Run(components, 0, 3)).CheckView();
    make.SetBuffer(0, first.data(), first.size() * sizeof(double)).ExecWrite();
    ORXSimTransfer extend{ORXSimDistribution(coordinates)};
    extend.SetWrite().SetBufferPadding(false).SetDrawer(make.DrawerID()).SetDimExtension(Run(nodes, 2, 3));
    extend.CheckView().SetBuffer(0, more.data(), more.size() * sizeof(double)).ExecWrite();
    EXPECT_EQ(ReadAll(ORXSimCSet(Run(nodes, 0, 5))), Rows(0, 5));
    EXPECT_EQ(ORXSimDrawer(make.DrawerID()).Description().ExtendableDim(), -1);
}

TEST_F(Transfers, RowsFollowTheOrderOfTheSets)
{
    ORXSimDrawerID drawer = MakeDrawer(Run(nodes, 0, 5));
    int const reversed[] = {4, 3, 2, 1, 0};
    Append(drawer, nodes.CreateVolatileOrderedCSet(reversed, 5), Rows(0, 5)); // row i holds node 4 - i
    int const pick[] = {2, 0};
    int const comps[] = {2, 0};
    EXPECT_EQ(Read(nodes.CreateVolatileOrderedCSet(pick, 2), components.CreateVolatileOrderedCSet(comps, 2)),
              (std::vector<double>{22, 20, 42, 40}));
    int const backwards[] = {3, 0};
    EXPECT_EQ(ReadAll(ORXSimCSet(nodes.CreateTempOrderedCSet(backwards, 2))),
              (std::vector<double>{10, 11, 12, 40, 41, 42}));
    // Places the distribution does not hold stay as the caller left them.
    int const partly[] = {1, 50};
    EXPECT_EQ(Read(nodes.CreateVolatileOrderedCSet(partly, 2), ORXSimCSet(Run(components, 1, 1)), 0.0),
              (std::vector<double>{31, 0}));
    // So do those a named drawer does not hold.
    std::vector<double> named(2, -1.0);
    ORXSimTransfer read{ORXSimDistribution(coordinates)};
    read.SetRead().SetDrawer(drawer).SetBufferPadding(false);
    read.SetDim(0, nodes.CreateVolatileOrderedCSet(partly, 2)).SetDim(1, Run(components, 1, 1)).CheckView();
    read.SetBuffer(0, named.data(), 2 * sizeof(double)).ExecRead();
    EXPECT_EQ(named, (std::vector<double>{31, -1}));
}

TEST_F(Transfers, RunsOverRunsFindTheirRows)
{
    auto rowsOf = [](std::vector<int> const& held)
    {
        std::vector<double> v;
        for (int n : held)
            for (int c = 0; c < 3; ++c)
                v.push_back(n < 0 ? -1 : n * 10 + c);
        return v;
    };
    auto every2 = [this](int first, int count)
    { return ORXSimCSet(nodes.CreateTempCSetStrided(first, count, 2)); };
    ORXSimCSet const all = ORXSimCSet(Run(components, 0, 3));
    ORXSimDrawerID drawer = MakeDrawer(every2(10, 10).ID());
    Append(drawer, every2(10, 10), rowsOf({10, 12, 14, 16, 18, 20, 22, 24, 26, 28}));
    EXPECT_EQ(Read(every2(14, 3), all), rowsOf({14, 16, 18}));
    // Runs that start before or end after the drawer's run, or fall between its members.
    EXPECT_EQ(Read(every2(6, 4), all), rowsOf({-1, -1, 10, 12}));
    EXPECT_EQ(Read(every2(26, 3), all), rowsOf({26, 28, -1}));
    EXPECT_EQ(Read(every2(11, 2), all), rowsOf({-1, -1}));
    EXPECT_EQ(Read(ORXSimCSet(Run(nodes, 10, 3)), all), rowsOf({10, -1, 12}));

    // Appended runs go past the end; a write that leaves places of its new rows out has them zero.
    Append(drawer, every2(30, 2), rowsOf({30, 32}));
    double middle[] = {341, 361};
    ORXSimTransfer write{ORXSimDistribution(coordinates)};
    write.SetWrite().SetAutoExtend().SetBufferPadding(false).SetDrawer(drawer);
    write.SetDim(0, every2(34, 2)).SetDim(1, Run(components, 1, 1)).CheckView();
    write.SetBuffer(0, middle, sizeof middle).ExecWrite();
    EXPECT_EQ(Read(every2(28, 5), all),
              (std::vector<double>{280, 281, 282, 300, 301, 302, 320, 321, 322, 0, 341, 0, 0, 361, 0}));
}

TEST_F(Transfers, IntegersReadAsDoubles)
{
    CollectionIDArray grid(1, 0);
    grid.Get(0) = nodes.ID();
    ORXSimDistributionID labels = m_document.Focus().Context().CreateDistribution(
        ORXSimGrid(grid), ORXSimRangeType(2), ORXSimTypeID(kType));
    int ints[] = {7, 8, 9};
    ORXSimTransfer write{ORXSimDistribution(labels)};
    write.SetWrite().SetMakeNewDrawer().SetBufferPadding(false).SetDim(0, Run(nodes, 0, 3)).CheckView();
    EXPECT_EQ(write.RequiredBufferSize(0), sizeof ints);
    write.SetBuffer(0, ints, sizeof ints).ExecWrite();
    double doubles[3] = {};
    ORXSimTransfer asDoubles{ORXSimDistribution(labels)};
    asDoubles.SetRead().SetDrawer(write.DrawerID()).SetBufferPadding(false).SetBufferType(4);
    asDoubles.SetDim(0, Run(nodes, 0, 3)).CheckView();
    EXPECT_EQ(asDoubles.RequiredBufferSize(0), sizeof doubles);
    asDoubles.SetBuffer(0, doubles, sizeof doubles).ExecRead();
    EXPECT_EQ(doubles[2], 9.0);
}

TEST_F(Transfers, ViewsThatDoNotFitRaiseAndWriteNothing)
{
    ORXSimDrawerID drawer = MakeDrawer(Run(nodes, 0, 4));
    Append(drawer, ORXSimCSet(Run(nodes, 0, 4)), Rows(0, 4));
    ORXSimCSetID const all = Run(components, 0, 3);
    std::vector<double> values = Rows(3, 3);
    ORXSimCollection const elsewhere = Collection(5);
    struct Case
    {
        char const* words;
        std::function<void(ORXSimTransfer&)> run;
    };
    Case const cases[] = {
        {"dimension 1", [&](ORXSimTransfer& t) { t.SetRead().SetDim(0, Run(nodes, 0, 4)).CheckView(); }},
        {"collection", [&](ORXSimTransfer& t) { t.SetRead().SetDim(0, all).SetDim(1, all).CheckView(); }},
        {"without SetAutoExtend", [&](ORXSimTransfer& t)
         { t.SetWrite().SetDrawer(drawer).SetDim(0, Run(nodes, 3, 3)).SetDim(1, all).CheckView(); }},
        {"72",
         [&](ORXSimTransfer& t)
         {
             t.SetWrite().SetAutoExtend().SetDrawer(drawer).SetDim(0, Run(nodes, 3, 3)).SetDim(1, all);
             t.CheckView().SetBuffer(0, values.data(), 8 * sizeof(double)).ExecWrite();
         }},
        {"lies in collection", [&](ORXSimTransfer& t)
         { t.SetWrite().SetDrawer(drawer).SetDimExtension(Run(elsewhere, 0, 1)).CheckView(); }},
    };
    for (Case const& c : cases)
    {
        ORXSimTransfer transfer{ORXSimDistribution(coordinates)};
        try
        {
            c.run(transfer);
            ADD_FAILURE() << "no exception for " << c.words;
        }
        catch (ORXSimDatabaseException const& e)
        {
            EXPECT_NE(std::string(e.what()).find(c.words), std::string::npos) << e.what();
        }
    }

    // None of the failed transfers changed or widened the drawer.
    EXPECT_EQ(ORXSimDrawer(drawer).Description().Domain().CSet(0).Size(), 4);
    EXPECT_EQ(ReadAll(ORXSimCSet(Run(nodes, 0, 4))), Rows(0, 4));

    ORXSimDistribution distribution(coordinates);
    m_document.Close();
    EXPECT_THROW(ORXSimTransfer(distribution).SetRead().CheckView(), ORXSimDatabaseException);
}

TEST_F(Transfers, SecondDimensionGrowsForLayeredDrawers)
{
    ORXSimArray<int> chunks(2, 0);
    chunks.Get(0) = 1;
    chunks.Get(1) = 2;
    ORXSimTransfer make{ORXSimDistribution(coordinates)};
    make.SetMakeNewDrawerChunked(chunks).SetExtendableDim(1);
    make.SetDim(0, Run(nodes, 0, 2)).SetDim(1, Run(components, 0, 2)).CheckView().ExecMake();
    double first[] = {1, 2, 3, 4}, second[] = {5, 6};
    ORXSimTransfer a{ORXSimDistribution(coordinates)};
    a.SetWrite().SetAutoExtend().SetDrawer(make.DrawerID());
    a.SetDim(0, Run(nodes, 0, 2)).SetDim(1, Run(components, 0, 2)).CheckView();
    a.SetBuffer(0, first, sizeof first).ExecWrite();
    ORXSimTransfer b{ORXSimDistribution(coordinates)};
    b.SetWrite().SetAutoExtend().SetDrawer(make.DrawerID());
    b.SetDim(0, Run(nodes, 0, 2)).SetDim(1, Run(components, 2, 1)).CheckView();
    b.SetBuffer(0, second, sizeof second).ExecWrite();
    EXPECT_EQ(ReadAll(ORXSimCSet(Run(nodes, 0, 2))), (std::vector<double>{1, 2, 5, 3, 4, 6}));
}

TEST_F(Transfers, DrawerMemoryStaysCloseToItsValues)
{
    nodes.ExtendSpace(200000);
    ORXSimDrawerID drawer = MakeDrawer(Run(nodes, 0, 1000));
    for (int first = 0; first < 200000; first += 1000)
        Append(drawer, ORXSimCSet(Run(nodes, first, 1000)), std::vector<double>(3000, 1.0));
    double const valueBytes = 8.0 * 3 * 200000;
    EXPECT_LE(static_cast<double>(ORXSimDrawer(drawer).AllocatedBytes()), 1.1 * valueBytes);
    EXPECT_GE(static_cast<double>(ORXSimDrawer(drawer).AllocatedBytes()), valueBytes);
}
