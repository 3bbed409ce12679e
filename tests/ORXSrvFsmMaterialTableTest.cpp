#include "DocumentFixture.h"
#include "ORXSrvMeshTestDocument.h"

#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace
{

char const* const modulePath = "ORXSrvSimServices/ORXSrvFsm.m/src/ORXSrvFsmMaterialTable";

// Association numbers of the kind of table under test: three dependents, temperature, field variables.
int const types[] = {Schema(42, 30), Schema(42, 31), Schema(42, 32), -1};
int const members[] = {1, 2, 3};
int const temperatureType = Schema(42, 33);
int const fieldVariableType = Schema(42, 34);

// A table of the caller's: rows of doubles, each with its own bit patterns (signed zeros, a NaN
// with a payload, subnormals and the extremes among them).
struct Rows
{
    Rows(int count, int width, int seed) : values(count, std::vector<double>(width))
    {
        std::uint64_t state = 0x9e3779b97f4a7c15ull * (seed + 1);
        double const specials[] = {-0.0, std::numeric_limits<double>::denorm_min(),
                                   std::numeric_limits<double>::max(),
                                   -std::numeric_limits<double>::infinity()};
        for (int i = 0; i < count; ++i)
            for (int c = 0; c < width; ++c)
            {
                state = state * 6364136223846793005ull + 1442695040888963407ull;
                std::uint64_t bits = state;
                double value = 0.0;
                std::memcpy(&value, &bits, sizeof value);
                if ((i + c) % 7 == 3)
                    value = specials[(i * width + c) % 4];
                values[i][c] = value;
            }
        for (std::vector<double> const& row : values)
            pointers.push_back(row.data());
    }
    double const** Get() { return pointers.empty() ? nullptr : pointers.data(); }

    std::vector<std::vector<double>> values;
    std::vector<double const*> pointers;
};

std::vector<int> Consecutive(int first, int count)
{
    std::vector<int> members(count);
    for (int i = 0; i < count; ++i)
        members[i] = first + i;
    return members;
}

// The rows FillPointer hands out, freed as the caller must.
struct Filled
{
    ~Filled()
    {
        for (int i = 0; rows && i < numRows; ++i)
            mem_Free(rows[i]);
        mem_Free(rows);
    }
    // Each row equal to the expected one, bit for bit.
    bool Equals(std::vector<std::vector<double>> const& expected) const
    {
        if (numRows != static_cast<int>(expected.size()))
            return false;
        for (int i = 0; i < numRows; ++i)
            if (static_cast<int>(expected[i].size()) != numCols ||
                std::memcmp(rows[i], expected[i].data(), numCols * sizeof(double)) != 0)
                return false;
        return true;
    }

    double** rows = nullptr;
    int numRows = -1, numCols = -1, numFieldVariables = -1;
    bool temperature = false;
};

class ORXSrvFsmMaterialTableTest : public DocumentFixture
{
protected:
    ORXSrvFsmMaterialTable Table(int const* lengths, bool hasTemperature = true,
                                 int const* dependentTypes = types) const
    {
        return ORXSrvFsmMaterialTable(dependentTypes, members, lengths, hasTemperature, temperatureType, 7,
                                      fieldVariableType, 8);
    }
    ORXSimCSetID Save(ORXSrvFsmMaterialTable& table, Rows& rows, bool temperature, int fieldVariables,
                      bool chunked)
    {
        return table.Save(m_transaction, m_record, m_rows, m_columns, m_fieldVariables, rows.Get(),
                          static_cast<int>(rows.values.size()), temperature, fieldVariables, chunked);
    }
    ORXSimCSetID Append(ORXSrvFsmMaterialTable& table, Rows& rows, bool temperature, int fieldVariables)
    {
        return table.Append(m_transaction, m_record, m_rows, m_columns, m_fieldVariables, rows.Get(),
                            static_cast<int>(rows.values.size()), temperature, fieldVariables);
    }
    void Fill(ORXSrvFsmMaterialTable const& table, Filled& filled) const
    {
        table.FillPointer(m_record, filled.rows, filled.numRows, filled.numCols, filled.temperature,
                          filled.numFieldVariables);
    }
    ORXSimPosition Stored(int type, int member) const { return m_record.Follow(type, member); }
    // The description of the one drawer of the distribution at position.
    static ORXSimPersistentDrawerDesc Drawer(ORXSimPosition const& position)
    {
        DrawerDescArray drawers(1, 0);
        ORXSimDistribution(position.GetDistribution()).QueryDrawers(drawers);
        EXPECT_EQ(drawers.Size(), 1);
        return drawers[0];
    }
    // A distribution of doubles over the given collections, with one drawer over their first
    // `count` members written with ones, associated to the record under (type, member).
    void StoreByHand(int type, int member, std::vector<ORXSimCollectionID> const& grid, int count)
    {
        CollectionIDArray collections(static_cast<int>(grid.size()), 0);
        for (std::size_t d = 0; d < grid.size(); ++d)
            collections.Get(static_cast<int>(d)) = grid[d];
        ORXSimDistributionID const id = m_document.Focus().CreateTypedDistribution(
            ORXSimGrid(collections), Schema(42, 12), ORXSimRangeType(4));
        ORXSimTransfer write{ORXSimDistribution(id)};
        write.SetWrite().SetBufferPadding(false).SetMakeNewDrawer();
        std::size_t values = 1;
        for (std::size_t d = 0; d < grid.size(); ++d)
        {
            write.SetDim(static_cast<int>(d),
                         ORXSimCollection(grid[d]).CreateTempCSetStrided(0, count, 1, 1));
            values *= count;
        }
        std::vector<double> ones(values, 1.0);
        write.CheckView().SetBuffer(0, ones.data(), values * sizeof(double)).ExecWrite();
        m_record.Associate(type, member, ORXSimPosition(id));
    }

    ORXSimTransaction m_transaction{m_document.Focus().ContextID()};
    ORXSimPosition m_record = NewRecord(42, 1);
    ORXSimCollectionID m_rows = Collection(2, 42, 40).ID();
    ORXSimCollectionID m_columns = Collection(2, 42, 41).ID();
    ORXSimCollectionID m_fieldVariables = Collection(2, 42, 42).ID();
};

TEST_F(ORXSrvFsmMaterialTableTest, DescriptionCountsDependentsUpToTheTerminator)
{
    int const lengths[] = {6, 3, 1};
    ORXSrvFsmMaterialTable const table = Table(lengths, true);
    EXPECT_EQ(table.GetNumberOfDependent(), 3);
    EXPECT_EQ(table.GetDependentTypes(), types);
    EXPECT_EQ(table.GetDependentMembers(), members);
    EXPECT_EQ(table.GetDependentLengths(), lengths);
    EXPECT_TRUE(table.HasTempDependancy());
    EXPECT_EQ(table.GetTemperatureType(), temperatureType);
    EXPECT_EQ(table.GetTemperatureMember(), 7);
    EXPECT_EQ(table.GetFieldVariableType(), fieldVariableType);
    EXPECT_EQ(table.GetFieldVariableMember(), 8);
    int const none[] = {-1, 5};
    EXPECT_EQ(Table(lengths, false, none).GetNumberOfDependent(), 0);

    ORXSrvFsmMaterialTable const empty;
    EXPECT_EQ(empty.GetNumberOfDependent(), 0);
    EXPECT_EQ(empty.GetDependentTypes(), nullptr);
    EXPECT_EQ(empty.GetDependentLengths(), nullptr);
    EXPECT_FALSE(empty.HasTempDependancy());
    EXPECT_EQ(empty.GetTemperatureType() | empty.GetTemperatureMember() | empty.GetFieldVariableType() |
                  empty.GetFieldVariableMember(),
              0);
}

// What Save and a series of Appends write comes back row for row, bit for bit.
TEST_F(ORXSrvFsmMaterialTableTest, SaveAndAppendsRoundTripExactly)
{
    struct Case
    {
        std::vector<int> lengths; // the dependents' widths, terminated below
        bool hasTemperature, withTemperature;
        int fieldVariables;
        bool chunked;
        int saved;
        std::vector<int> appended;
    };
    Case const cases[] = {
        {{6, 3, 1}, true, true, 2, true, 5, {4, 0, 7}},
        {{6, 3, 1}, true, true, 2, false, 3, {5, 1}},
        {{2}, false, false, 0, false, 4, {}},
        {{1, 4}, true, false, 3, true, 2, {3, 3}},
        // The kind has no temperature: none is written and the field variables take its column.
        {{3}, false, true, 1, false, 2, {2}},
        {{2, 2, 2}, true, true, 0, true, 1, {1, 1, 1}},
        {{5, 1}, true, true, 4, false, 6, {}},
    };
    int caseNumber = 0;
    for (Case const& c : cases)
    {
        SCOPED_TRACE(caseNumber++);
        m_record = NewRecord(42, 1);
        std::vector<int> lengths = c.lengths;
        int const storedTemperature = c.hasTemperature && c.withTemperature;
        int width = storedTemperature + c.fieldVariables;
        for (int length : lengths)
            width += length;
        int terminated[4];
        std::copy(types, types + 4, terminated);
        terminated[lengths.size()] = -1;
        ORXSrvFsmMaterialTable table = Table(lengths.data(), c.hasTemperature, terminated);

        std::vector<std::vector<double>> expected;
        Rows first(c.saved, width, caseNumber);
        ORXSimCSet const saved(Save(table, first, c.withTemperature, c.fieldVariables, c.chunked));
        EXPECT_EQ(Members(saved), Consecutive(0, c.saved));
        expected = first.values;
        for (int count : c.appended)
        {
            Rows more(count, width, 100 * caseNumber + static_cast<int>(expected.size()));
            ORXSimCSet const added(Append(table, more, c.withTemperature, c.fieldVariables));
            EXPECT_EQ(Members(added), Consecutive(static_cast<int>(expected.size()), count));
            expected.insert(expected.end(), more.values.begin(), more.values.end());
        }

        EXPECT_EQ(table.IsTemperatureDependent(m_record), storedTemperature == 1);
        EXPECT_EQ(table.NumberFieldVariables(m_record), c.fieldVariables);
        Filled filled;
        Fill(table, filled);
        EXPECT_EQ(filled.numCols, width);
        EXPECT_EQ(filled.temperature, storedTemperature == 1);
        EXPECT_EQ(filled.numFieldVariables, c.fieldVariables);
        EXPECT_TRUE(filled.Equals(expected));
        EXPECT_EQ(Stored(temperatureType, 7).IsNull(), !storedTemperature);
        EXPECT_EQ(Stored(fieldVariableType, 8).IsNull(), c.fieldVariables == 0);
    }
}

TEST_F(ORXSrvFsmMaterialTableTest, SaveMakesOneTypedDrawerPerBlockChunkedOverAllRows)
{
    int const lengths[] = {6, 3, 1};
    ORXSrvFsmMaterialTable table = Table(lengths);
    for (bool chunked : {true, false})
    {
        SCOPED_TRACE(chunked);
        Rows rows(4, 13, 1);
        Save(table, rows, true, 2, chunked);
        struct Block
        {
            ORXSimPosition values;
            int type;
            std::vector<int> chunks;
        };
        Block const blocks[] = {{Stored(types[0], 1), Schema(42, 12), {4, 6}},
                                {Stored(types[2], 3), Schema(42, 12), {4, 1}},
                                {Stored(temperatureType, 7), Schema(42, 13), {4}},
                                {Stored(fieldVariableType, 8), Schema(42, 14), {4, 2}}};
        for (Block const& block : blocks)
        {
            EXPECT_EQ(block.values.GetDistribution().TypeID(), ORXSimTypeID(block.type));
            ORXSimPersistentDrawerDesc const drawer = Drawer(block.values);
            EXPECT_EQ(drawer.NumDimensions(), static_cast<int>(block.chunks.size()));
            EXPECT_EQ(drawer.IsChunked(), chunked);
            EXPECT_EQ(drawer.ExtendableDim(), chunked ? 0 : -1);
            ORXSimArray<int> chunks;
            drawer.ChunkSizes(chunks);
            EXPECT_EQ(
                std::vector<int>(ORXSimArrayPointer(chunks), ORXSimArrayPointer(chunks) + chunks.Size()),
                chunked ? block.chunks : std::vector<int>());
        }
    }
    // The collections grew to what the table uses and no further.
    EXPECT_EQ(ORXSimCollection(m_rows).Space(), 4);
    EXPECT_EQ(ORXSimCollection(m_columns).Space(), 6);
    EXPECT_EQ(ORXSimCollection(m_fieldVariables).Space(), 2);
}

TEST_F(ORXSrvFsmMaterialTableTest, NothingIsWrittenWithoutArraysOrRows)
{
    ORXSrvFsmMaterialTable empty;
    Rows rows(3, 4, 2);
    EXPECT_TRUE(Save(empty, rows, true, 1, true).IsNull());
    EXPECT_TRUE(Append(empty, rows, true, 1).IsNull());
    int const lengths[] = {2, 1, 1};
    ORXSrvFsmMaterialTable table = Table(lengths);
    Rows none(0, 4, 3);
    EXPECT_TRUE(Save(table, none, true, 0, true).IsNull());
    EXPECT_TRUE(Stored(types[0], 1).IsNull());
    EXPECT_EQ(ORXSimCollection(m_rows).Space(), 2);

    Filled filled;
    double* untouched[1] = {nullptr};
    filled.rows = untouched;
    filled.temperature = true;
    empty.FillPointer(m_record, filled.rows, filled.numRows, filled.numCols, filled.temperature,
                      filled.numFieldVariables);
    EXPECT_EQ(filled.rows, untouched);
    EXPECT_EQ(filled.numRows, 0);
    EXPECT_EQ(filled.numCols, 0);
    EXPECT_EQ(filled.numFieldVariables, 0);
    EXPECT_FALSE(filled.temperature);
    filled.rows = nullptr;
}

TEST_F(ORXSrvFsmMaterialTableTest, SecondSaveReusesTheLowRowsAndEmptyAppendAddsNone)
{
    int const lengths[] = {2, 1, 1};
    ORXSrvFsmMaterialTable table = Table(lengths);
    Rows many(5, 4, 4), few(3, 4, 5), none(0, 4, 6);
    Save(table, many, false, 0, true);
    ORXSimCSet const again(Save(table, few, false, 0, true));
    EXPECT_EQ(Members(again), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(ORXSimCollection(m_rows).Space(), 5);
    ORXSimCSet const added(Append(table, none, false, 0));
    EXPECT_TRUE(added.IsEmpty());
    Filled filled;
    Fill(table, filled);
    EXPECT_TRUE(filled.Equals(few.values));
}

// A record that lacks a later dependent reads as a narrower table, the following columns moved left.
TEST_F(ORXSrvFsmMaterialTableTest, MissingLaterDependentNarrowsTheTable)
{
    int const writtenTypes[] = {types[0], types[2], -1};
    int const writtenMembers[] = {members[0], members[2]};
    int const writtenLengths[] = {6, 1};
    ORXSrvFsmMaterialTable writer(writtenTypes, writtenMembers, writtenLengths, true, temperatureType, 7,
                                  fieldVariableType, 8);
    Rows rows(4, 6 + 1 + 1 + 2, 7);
    writer.Save(m_transaction, m_record, m_rows, m_columns, m_fieldVariables, rows.Get(), 4, true, 2, false);

    int const lengths[] = {6, 3, 1};
    Filled filled;
    Fill(Table(lengths), filled);
    EXPECT_EQ(filled.numCols, 10);
    EXPECT_TRUE(filled.temperature);
    EXPECT_EQ(filled.numFieldVariables, 2);
    EXPECT_TRUE(filled.Equals(rows.values));
}

TEST_F(ORXSrvFsmMaterialTableTest, KindWithoutTemperatureOrFieldVariablesLeavesTheRecordAlone)
{
    ORXObjDocument other = ORXObjDocument::New();
    ORXSimPosition const closed = other.CreateDataRecord(Schema(42, 1)).Pos();
    other.Close();
    int const lengths[] = {1, 1, 1};
    ORXSrvFsmMaterialTable const table(types, members, lengths, false, temperatureType, 7, 0, 8);
    EXPECT_FALSE(table.IsTemperatureDependent(closed));
    EXPECT_EQ(table.NumberFieldVariables(closed), 0);
    EXPECT_THROW(Table(lengths).IsTemperatureDependent(closed), ORXSimDatabaseException);
}

// A dependent stored with one dimension is read over its rows alone.
TEST_F(ORXSrvFsmMaterialTableTest, OneDimensionalDependentIsRead)
{
    StoreByHand(types[0], members[0], {m_rows}, 2);
    int const single[] = {types[0], -1};
    int const lengths[] = {1};
    Filled filled;
    Fill(Table(lengths, false, single), filled);
    EXPECT_TRUE(filled.Equals({{1.0}, {1.0}}));
}

TEST_F(ORXSrvFsmMaterialTableTest, ChecksReportWithTheirConditionAndRefusedAppendWritesNothing)
{
    int const lengths[] = {2, 1, 1};
    ORXSrvFsmMaterialTable table = Table(lengths);
    RecordedAssertions recorded;
    Rows rows(2, 4, 8);
    Filled filled;
    EXPECT_EQ(AssertionText([&] { Append(table, rows, false, 0); }), "ddesc.Size() == 1");
    EXPECT_EQ(AssertionText([&] { Fill(table, filled); }), "d1.IsNull() == false");
    EXPECT_EQ(filled.rows, nullptr);
    EXPECT_EQ(RecordedAssertions::Reports(),
              (std::vector<std::string>{std::string("ddesc.Size() == 1 at ") + modulePath,
                                        std::string("d1.IsNull() == false at ") + modulePath}));

    // A first dependent with no drawer, or with two.
    CollectionIDArray grid(2, 0);
    grid.Get(0) = m_rows;
    grid.Get(1) = m_columns;
    ORXSimDistributionID const bare =
        m_document.Focus().CreateTypedDistribution(ORXSimGrid(grid), Schema(42, 12), ORXSimRangeType(4));
    m_record.Associate(types[0], members[0], ORXSimPosition(bare));
    EXPECT_EQ(AssertionText([&] { Append(table, rows, false, 0); }), "ddesc.Size() == 1");
    EXPECT_EQ(AssertionText([&] { Fill(table, filled); }), "ndomain == 2 || ndomain == 1");
    for (int drawer = 0; drawer < 2; ++drawer)
    {
        ORXSimArray<int> chunks(2, 0);
        ORXSimTransfer make{ORXSimDistribution(bare)};
        make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(0);
        make.SetDim(0, ORXSimCollection(m_rows).CreateTempCSetStrided(drawer, 1, 1, 1));
        make.SetDim(1, ORXSimCollection(m_columns).CreateTempCSetStrided(0, 1, 1, 1)).CheckView().ExecMake();
    }
    EXPECT_EQ(AssertionText([&] { Append(table, rows, false, 0); }), "ddesc.Size() == 1");

    // Blocks of the wrong shape.
    struct Shape
    {
        int type, member;
        std::vector<ORXSimCollectionID> grid;
        char const* condition;
    };
    Shape const shapes[] = {
        {types[1], members[1], {m_rows, m_columns, m_fieldVariables}, "ndomain == 2 || ndomain == 1"},
        {temperatureType, 7, {m_rows, m_columns}, "domain.Size() == 1"},
        {fieldVariableType, 8, {m_rows}, "domain.Size() == 2"},
    };
    for (Shape const& shape : shapes)
    {
        m_record = NewRecord(42, 1);
        StoreByHand(types[0], members[0], {m_rows, m_columns}, 2);
        StoreByHand(shape.type, shape.member, shape.grid, 2);
        EXPECT_EQ(AssertionText([&] { Fill(table, filled); }), shape.condition);
        EXPECT_EQ(filled.rows, nullptr);
    }
    EXPECT_EQ(AssertionText([&] { table.NumberFieldVariables(m_record); }), "domain.Size() == 2");

    // Appends that do not fit the stored table raise before any block is written: a dependent of
    // another width, another number of field variables, a temperature the record does not hold.
    int const wider[] = {2, 2, 1};
    ORXSrvFsmMaterialTable other = Table(wider);
    struct Refusal
    {
        ORXSrvFsmMaterialTable* table;
        bool savedTemperature;
        int fieldVariables;
    };
    Refusal const refusals[] = {{&other, true, 2}, {&table, true, 3}, {&table, true, 1}, {&table, false, 2}};
    for (Refusal const& refusal : refusals)
    {
        m_record = NewRecord(42, 1);
        Rows saved(3, 4 + refusal.savedTemperature + 2, 9);
        Save(table, saved, refusal.savedTemperature, 2, true);
        Rows more(2, 9, 10);
        EXPECT_THROW(Append(*refusal.table, more, true, refusal.fieldVariables), ORXSimDatabaseException);
        Filled unchanged;
        Fill(table, unchanged);
        EXPECT_TRUE(unchanged.Equals(saved.values));
    }
}

} // namespace
