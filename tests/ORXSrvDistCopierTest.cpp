// Distribution copies: every drawer shape carried to the write side through the member
// correspondence, what the transform is shown, and the refusals in their order.
#include "DocumentFixture.h"

#include <functional>
#include <string>

namespace
{
int const kType = Schema(13, 5);

enum class Shape
{
    Plain,
    Chunked,
    ChunkedExtendable,
    PlainExtendable
};

// Records every call and doubles the values on the way.
class WatchingTransform : public ORXSrvDistributionTransform
{
public:
    struct Call
    {
        std::vector<double> values;
        std::vector<std::vector<int>> sets;
    };
    explicit WatchingTransform(int valueCount) : m_valueCount(valueCount) {}
    void Update(void* buffer, CSetIDArray& csets) const override
    {
        double* values = static_cast<double*>(buffer);
        Call call;
        for (int d = 0; d < csets.Size(); ++d)
            call.sets.push_back(Members(ORXSimCSet(csets[d])));
        int const count = static_cast<int>(call.sets[0].size() * call.sets[1].size());
        call.values.assign(values, values + count);
        for (int i = 0; i < count; ++i)
            values[i] *= m_valueCount;
        calls.push_back(call);
    }
    mutable std::vector<Call> calls;

private:
    int m_valueCount;
};

// Empties the set of dimension 0, so that the write view no longer fits the read buffer.
class ShrinkingTransform : public ORXSrvDistributionTransform
{
public:
    explicit ShrinkingTransform(ORXSimCSetID empty) : m_empty(empty) {}
    void Update(void*, CSetIDArray& csets) const override { csets.Get(0) = m_empty; }

private:
    ORXSimCSetID m_empty;
};

std::string AssertionText(std::function<void()> const& call)
{
    try
    {
        call();
    }
    catch (ORXBasAssertException const& e)
    {
        return e.what();
    }
    return "";
}
} // namespace

class ORXSrvDistCopierTest : public DocumentFixture
{
protected:
    void SetUp() override
    {
        m_previous = ORXSimUttAssert::SetAssertionFailureHandler([](char const*, char const*, int) {});
        m_source = Distribution(m_readNodes, m_readComps);
        m_target = Distribution(m_writeNodes, m_writeComps);
        // Read node k stands for write node 19 - k; the components correspond one to one.
        std::vector<int> reversed;
        for (int k = 0; k < 10; ++k)
            reversed.push_back(19 - k);
        m_writeCSets.PushBack(
            m_writeNodes.CreateVolatileOrderedCSet(reversed.data(), 10).RegisterWithCollection());
        m_writeCSets.PushBack(m_writeComps.CreateTempCSetStrided(0, 2));
        m_readCSets.PushBack(m_readNodes.CreateTempCSetStrided(0, 10));
        m_readCSets.PushBack(m_readComps.CreateTempCSetStrided(0, 2));
    }
    void TearDown() override
    {
        ORXSimUttAssert::SetAssertionFailureHandler(m_previous);
        DocumentFixture::TearDown();
    }

    ORXSimDistributionID Distribution(ORXSimCollection const& nodes, ORXSimCollection const& comps) const
    {
        CollectionIDArray grid(2, 0);
        grid.Get(0) = nodes.ID();
        grid.Get(1) = comps.ID();
        return m_document.Focus().CreateTypedDistribution(ORXSimGrid(grid), kType, ORXSimRangeType(4));
    }
    // Writes node*10 + component over the nodes into a new drawer of that shape.
    static void Fill(ORXSimDistributionID const& distribution, ORXSimCollection const& nodes,
                     std::vector<int> const& members, Shape shape)
    {
        ORXSimTransfer write{ORXSimDistribution(distribution)};
        write.SetWrite().SetBufferPadding(false);
        ORXSimArray<int> chunks(2, 0);
        chunks.Get(0) = 4;
        chunks.Get(1) = 2;
        if (shape == Shape::Plain || shape == Shape::PlainExtendable)
            write.SetMakeNewDrawer();
        else
            write.SetMakeNewDrawerChunked(chunks);
        if (shape == Shape::ChunkedExtendable || shape == Shape::PlainExtendable)
            write.SetExtendableDim(0);
        ORXSimCSet const set = nodes.CreateVolatileCSet(members.data(), static_cast<int>(members.size()));
        std::vector<double> values;
        for (int n : Members(set))
            for (int c = 0; c < 2; ++c)
                values.push_back(n * 10 + c);
        ORXSimCollection const comps(ORXSimDistribution(distribution).Grid()[1]);
        write.SetDim(0, set).SetDim(1, comps.CreateTempCSetStrided(0, 2)).CheckView();
        write.SetBuffer(0, values.data(), values.size() * sizeof(double));
        write.ExecWrite();
        write.RelinquishBuffers();
    }
    // Value of every node of the write side (both components), -1 where nothing is stored.
    std::vector<double> Target() const
    {
        ORXSimTransfer read{ORXSimDistribution(m_target)};
        read.SetRead().SetBufferPadding(false);
        read.SetDim(0, m_writeNodes.CreateTempCSetStrided(0, 20))
            .SetDim(1, m_writeComps.CreateTempCSetStrided(0, 2));
        read.CheckView();
        std::vector<double> values(40, -1);
        read.SetBuffer(0, values.data(), values.size() * sizeof(double));
        read.ExecRead();
        read.RelinquishBuffers();
        return values;
    }
    // (chunked, extendable dimension) of every drawer of the distribution.
    static std::vector<std::pair<bool, int>> Shapes(ORXSimDistributionID const& distribution)
    {
        DrawerDescArray drawers;
        ORXSimDistribution(distribution).QueryDrawers(drawers);
        std::vector<std::pair<bool, int>> shapes;
        for (int d = 0; d < drawers.Size(); ++d)
            shapes.emplace_back(drawers[d].IsChunked(), drawers[d].ExtendableDim());
        return shapes;
    }
    void Copy(ORXSrvDistributionTransform const& transform) const
    {
        ORXSrvCopyDistribution(m_target, m_source, m_writeCSets, m_readCSets, transform);
    }

    ORXSimCollection m_readNodes = Collection(10);
    ORXSimCollection m_readComps = Collection(2);
    ORXSimCollection m_writeNodes = Collection(20);
    ORXSimCollection m_writeComps = Collection(2);
    ORXSimDistributionID m_source, m_target;
    CSetIDArray m_writeCSets, m_readCSets;
    ORXSimAssertionFailureHandler m_previous = nullptr;
};

TEST_F(ORXSrvDistCopierTest, EveryDrawerShapeIsCarriedOver)
{
    Fill(m_source, m_readNodes, {0, 1, 2}, Shape::Plain);
    Fill(m_source, m_readNodes, {7, 5}, Shape::Chunked);
    Fill(m_target, m_writeNodes, {0}, Shape::Plain); // an existing drawer stays as it is
    WatchingTransform watcher(2);
    Copy(watcher);

    ASSERT_EQ(watcher.calls.size(), 2u);
    EXPECT_EQ(watcher.calls[0].values, (std::vector<double>{0, 1, 10, 11, 20, 21}));
    EXPECT_EQ(watcher.calls[0].sets, (std::vector<std::vector<int>>{{19, 18, 17}, {0, 1}}));
    EXPECT_EQ(watcher.calls[1].values, (std::vector<double>{50, 51, 70, 71}));
    EXPECT_EQ(watcher.calls[1].sets, (std::vector<std::vector<int>>{{14, 12}, {0, 1}}));

    // A chunked drawer that cannot grow makes one that grows in dimension 0.
    EXPECT_EQ(Shapes(m_target), (std::vector<std::pair<bool, int>>{{false, -1}, {false, -1}, {true, 0}}));
    std::vector<double> const target = Target();
    EXPECT_EQ(target[0], 0);
    for (int k : {0, 1, 2, 5, 7})
        for (int c = 0; c < 2; ++c)
            EXPECT_EQ(target[(19 - k) * 2 + c], 2 * (k * 10 + c)) << "node " << k;
    EXPECT_EQ(target[2 * 10], -1);
}

TEST_F(ORXSrvDistCopierTest, ExtendableDrawersMakeOneDrawerThenGrowIt)
{
    Fill(m_source, m_readNodes, {0, 1}, Shape::ChunkedExtendable);
    ORXSrvDistributionTransform const identity;
    Copy(identity);
    EXPECT_EQ(Shapes(m_target), (std::vector<std::pair<bool, int>>{{true, 0}}));

    // A second source whose extendable drawer is added to the one drawer of the target.
    m_source = Distribution(m_readNodes, m_readComps);
    Fill(m_source, m_readNodes, {3, 4}, Shape::ChunkedExtendable);
    Copy(identity);
    EXPECT_EQ(Shapes(m_target), (std::vector<std::pair<bool, int>>{{true, 0}}));
    std::vector<double> const target = Target();
    for (int k : {0, 1, 3, 4})
        EXPECT_EQ(target[(19 - k) * 2 + 1], k * 10 + 1) << "node " << k;

    // Two extendable drawers into an empty target: the target's list is taken once, so each makes
    // a drawer of its own.
    m_target = Distribution(m_writeNodes, m_writeComps);
    m_source = Distribution(m_readNodes, m_readComps);
    Fill(m_source, m_readNodes, {0}, Shape::ChunkedExtendable);
    Fill(m_source, m_readNodes, {1}, Shape::ChunkedExtendable);
    Copy(identity);
    EXPECT_EQ(Shapes(m_target).size(), 2u);
}

TEST_F(ORXSrvDistCopierTest, RefusalsInOrderLeaveTheTargetAlone)
{
    ORXSrvDistributionTransform const identity;
    Fill(m_source, m_readNodes, {0, 1}, Shape::ChunkedExtendable);
    Fill(m_target, m_writeNodes, {19}, Shape::Plain);
    Fill(m_target, m_writeNodes, {18}, Shape::Plain);
    std::vector<double> const before = Target();

    CSetIDArray oneSet;
    oneSet.PushBack(m_readCSets[0]);
    CollectionIDArray lineGrid(1, 0);
    lineGrid.Get(0) = m_writeNodes.ID();
    ORXSimDistributionID const line =
        m_document.Focus().CreateTypedDistribution(ORXSimGrid(lineGrid), kType, ORXSimRangeType(4));

    struct Case
    {
        char const* text;
        std::function<void()> call;
    };
    Case const cases[] = {
        {"\"The dimensions of the two distributions must match\" == 0",
         [&] { ORXSrvCopyDistribution(line, m_source, oneSet, oneSet, identity); }},
        {"\"CSets missing for all domains of distribution being read\" == 0",
         [&] { ORXSrvCopyDistribution(m_target, m_source, oneSet, oneSet, identity); }},
        {"\"CSets missing for all domains of distribution being written\" == 0",
         [&] { ORXSrvCopyDistribution(m_target, m_source, oneSet, m_readCSets, identity); }},
        {"writeDrwDescArray.Size() == 0 || writeDrwDescArray.Size() == 1", [&] { Copy(identity); }},
    };
    for (Case const& c : cases)
    {
        EXPECT_EQ(AssertionText(c.call), c.text);
        EXPECT_EQ(Target(), before);
    }

    // An extendable drawer that is not chunked cannot start a drawer on the write side.
    m_target = Distribution(m_writeNodes, m_writeComps);
    m_source = Distribution(m_readNodes, m_readComps);
    Fill(m_source, m_readNodes, {0}, Shape::PlainExtendable);
    EXPECT_EQ(AssertionText([&] { Copy(identity); }), "\"only chunked drawers are extendable\" == 0");
    EXPECT_TRUE(Shapes(m_target).empty());

    // A transform that changes the size of the view is caught before anything is written.
    m_source = Distribution(m_readNodes, m_readComps);
    Fill(m_source, m_readNodes, {0, 1}, Shape::Plain);
    ShrinkingTransform const shrinking(m_writeNodes.EmptyCSetID());
    EXPECT_EQ(AssertionText([&] { Copy(shrinking); }), "bufferSize == writeTrans.RequiredBufferSize()");
    EXPECT_TRUE(Shapes(m_target).empty());
}

TEST_F(ORXSrvDistCopierTest, NoDrawersNothingWritten)
{
    WatchingTransform watcher(1);
    Copy(watcher);
    EXPECT_TRUE(watcher.calls.empty());
    EXPECT_TRUE(Shapes(m_target).empty());
}
