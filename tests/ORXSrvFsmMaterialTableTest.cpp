#include "DocumentFixture.h"
#include "ORXSrvMeshTestDocument.h"

#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace
{

// Association numbers of the kind of table under test: three dependents, temperature, field variables.
int const types[] = {Schema(42, 30), Schema(42, 31), Schema(42, 32), -1};
int const members[] = {1, 2, 3};
int const temperatureType = Schema(42, 33);
int const fieldVariableType = Schema(42, 34);

typedef std::vector<std::vector<double>> Table;

// The caller's rows: random bit patterns, with signed zeros, subnormals and extremes among them.
struct Rows
{
    Rows(int count, int width, int seed) : values(count, std::vector<double>(width))
    {
        double const specials[] = {-0.0, std::numeric_limits<double>::denorm_min(),
                                   std::numeric_limits<double>::max(),
                                   -std::numeric_limits<double>::infinity()};
        std::uint64_t state = 0x9e3779b97f4a7c15ull * (seed + 1);
        for (int i = 0; i < count; ++i)
            for (int c = 0; c < width; ++c)
            {
                state = state * 6364136223846793005ull + 1442695040888963407ull;
                std::memcpy(&values[i][c], &state, sizeof state);
                if ((i + c) % 7 == 3)
                    values[i][c] = specials[(i * width + c) % 4];
            }
        for (std::vector<double> const& row : values)
            pointers.push_back(row.data());
    }
    double const** Get() { return pointers.empty() ? nullptr : pointers.data(); }
    int Count() const { return static_cast<int>(values.size()); }

    Table values;
    std::vector<double const*> pointers;
};

// The rows FillPointer hands out, freed as the caller must.
struct Filled
{
    ~Filled()
    {
        for (int i = 0; rows && i < numRows; ++i)
            mem_Free(rows[i]);
        mem_Free(rows);
    }
    // The rows as a table (bit patterns kept).
    Table Values() const
    {
        Table table;
        for (int i = 0; i < numRows; ++i)
            table.emplace_back(rows[i], rows[i] + numCols);
        return table;
    }

    double** rows = nullptr;
    int numRows = -1, numCols = -1, numFieldVariables = -1;
    bool temperature = false;
};

// Equal bit for bit, NaN payloads and signed zeros included.
bool Identical(Table const& a, Table const& b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i].size() != b[i].size() || std::memcmp(a[i].data(), b[i].data(), a[i].size() * sizeof(double)))
            return false;
    return true;
}

std::vector<int> Consecutive(int first, int count)
{
    std::vector<int> members(count);
    for (int i = 0; i < count; ++i)
        members[i] = first + i;
    return members;
}

class ORXSrvFsmMaterialTableTest : public DocumentFixture
{
protected:
    static ORXSrvFsmMaterialTable Kind(int const* lengths, bool hasTemperature = true,
                                       int const* dependentTypes = types,
                                       int fieldVariables = fieldVariableType)
    {
        return ORXSrvFsmMaterialTable(dependentTypes, members, lengths, hasTemperature, temperatureType, 7,
                                      fieldVariables, 8);
    }
    ORXSimCSetID Save(ORXSrvFsmMaterialTable& table, Rows& rows, bool temperature, int fieldVariables,
                      bool chunked = true)
    {
        return table.Save(m_transaction, m_record, m_rows, m_columns, m_fieldVariables, rows.Get(),
                          rows.Count(), temperature, fieldVariables, chunked);
    }
    ORXSimCSetID Append(ORXSrvFsmMaterialTable& table, Rows& rows, bool temperature, int fieldVariables)
    {
        return table.Append(m_transaction, m_record, m_rows, m_columns, m_fieldVariables, rows.Get(),
                            rows.Count(), temperature, fieldVariables);
    }
    void Fill(ORXSrvFsmMaterialTable const& table, Filled& filled) const
    {
        table.FillPointer(m_record, filled.rows, filled.numRows, filled.numCols, filled.temperature,
                          filled.numFieldVariables);
    }
    Table Read(ORXSrvFsmMaterialTable const& table) const
    {
        Filled filled;
        Fill(table, filled);
        return filled.Values();
    }
    // Links to the record under (type, member) a distribution of doubles over the given collections
    // with one drawer over their first two members, all ones.
    void StoreByHand(int type, int member, std::vector<ORXSimCollectionID> const& grid)
    {
        CollectionIDArray collections(static_cast<int>(grid.size()), 0);
        for (std::size_t d = 0; d < grid.size(); ++d)
            collections.Get(static_cast<int>(d)) = grid[d];
        ORXSimDistributionID const id = m_document.Focus().CreateTypedDistribution(
            ORXSimGrid(collections), Schema(42, 12), ORXSimRangeType(4));
        ORXSimTransfer write{ORXSimDistribution(id)};
        write.SetWrite().SetBufferPadding(false).SetMakeNewDrawer();
        std::vector<double> ones(1u << grid.size(), 1.0);
        for (std::size_t d = 0; d < grid.size(); ++d)
            write.SetDim(static_cast<int>(d), ORXSimCollection(grid[d]).CreateTempCSetStrided(0, 2, 1, 1));
        write.CheckView().SetBuffer(0, ones.data(), ones.size() * sizeof(double)).ExecWrite();
        m_record.Associate(type, member, ORXSimPosition(id));
    }

    ORXSimTransaction m_transaction{m_document.Focus().ContextID()};
    ORXSimPosition m_record = NewRecord(42, 1);
    ORXSimCollectionID m_rows = Collection(2, 42, 40).ID();
    ORXSimCollectionID m_columns = Collection(2, 42, 41).ID();
    ORXSimCollectionID m_fieldVariables = Collection(2, 42, 42).ID();
};

// What Save and a series of Appends write comes back row for row, bit for bit.
TEST_F(ORXSrvFsmMaterialTableTest, SaveAndAppendsRoundTripExactly)
{
    struct Case
    {
        std::vector<int> lengths;
        bool hasTemperature, withTemperature;
        int fieldVariables;
        bool chunked;
        std::vector<int> counts; // rows saved, then rows of each Append
    };
    Case const cases[] = {
        {{6, 3, 1}, true, true, 2, true, {5, 4, 0, 7}},
        {{6, 3, 1}, true, true, 2, false, {3, 5, 1}},
        {{2}, false, false, 0, false, {4}},
        {{1, 4}, true, false, 3, true, {2, 3, 3}},
        // The kind has no temperature: none is written and the field variables take its column.
        {{3}, false, true, 1, false, {2, 2}},
        {{2, 2, 2}, true, true, 0, true, {1, 1, 1, 1}},
    };
    for (std::size_t n = 0; n < std::size(cases); ++n)
    {
        Case const& c = cases[n];
        SCOPED_TRACE(n);
        m_record = NewRecord(42, 1);
        int terminated[4];
        std::copy(types, types + 4, terminated);
        terminated[c.lengths.size()] = -1;
        ORXSrvFsmMaterialTable table = Kind(c.lengths.data(), c.hasTemperature, terminated);
        bool const temperature = c.hasTemperature && c.withTemperature;
        int width = temperature + c.fieldVariables;
        for (int length : c.lengths)
            width += length;

        Table expected;
        for (int count : c.counts)
        {
            Rows rows(count, width, static_cast<int>(10 * n + expected.size()));
            ORXSimCSet const added(expected.empty()
                                       ? Save(table, rows, c.withTemperature, c.fieldVariables, c.chunked)
                                       : Append(table, rows, c.withTemperature, c.fieldVariables));
            EXPECT_EQ(Members(added), Consecutive(static_cast<int>(expected.size()), count));
            expected.insert(expected.end(), rows.values.begin(), rows.values.end());
        }
        EXPECT_EQ(table.IsTemperatureDependent(m_record), temperature);
        EXPECT_EQ(table.NumberFieldVariables(m_record), c.fieldVariables);
        Filled filled;
        Fill(table, filled);
        EXPECT_EQ(filled.numCols, width);
        EXPECT_EQ(filled.temperature, temperature);
        EXPECT_EQ(filled.numFieldVariables, c.fieldVariables);
        EXPECT_TRUE(Identical(filled.Values(), expected));
        EXPECT_EQ(m_record.Follow(fieldVariableType, 8).IsNull(), c.fieldVariables == 0);
    }
}

TEST_F(ORXSrvFsmMaterialTableTest, SaveMakesOneTypedDrawerPerBlockOverTheLowMembers)
{
    int const lengths[] = {6, 3, 1};
    ORXSrvFsmMaterialTable table = Kind(lengths);
    for (bool chunked : {true, false})
    {
        Rows rows(4, 13, 1);
        Save(table, rows, true, 2, chunked);
        struct Block
        {
            int type, member, kind;
            std::vector<int> chunks;
        } const blocks[] = {{types[0], 1, 12, {4, 6}},
                            {types[2], 3, 12, {4, 1}},
                            {temperatureType, 7, 13, {4}},
                            {fieldVariableType, 8, 14, {4, 2}}};
        for (Block const& block : blocks)
        {
            ORXSimDistributionID const values = m_record.Follow(block.type, block.member).GetDistribution();
            EXPECT_EQ(values.TypeID(), ORXSimTypeID(Schema(42, block.kind)));
            DrawerDescArray drawers(1, 0);
            ORXSimDistribution(values).QueryDrawers(drawers);
            ASSERT_EQ(drawers.Size(), 1);
            EXPECT_EQ(drawers[0].NumDimensions(), static_cast<int>(block.chunks.size()));
            EXPECT_EQ(drawers[0].ExtendableDim(), chunked ? 0 : -1);
            ORXSimArray<int> chunks;
            drawers[0].ChunkSizes(chunks);
            EXPECT_EQ(
                std::vector<int>(ORXSimArrayPointer(chunks), ORXSimArrayPointer(chunks) + chunks.Size()),
                chunked ? block.chunks : std::vector<int>());
        }
    }
    // A second Save reuses the low rows; the collections grew to what the table uses, no further.
    Rows few(3, 13, 2), none(0, 13, 3);
    EXPECT_EQ(Members(ORXSimCSet(Save(table, few, true, 2))), Consecutive(0, 3));
    EXPECT_EQ(ORXSimCollection(m_rows).Space(), 4);
    EXPECT_EQ(ORXSimCollection(m_columns).Space(), 6);
    EXPECT_EQ(ORXSimCollection(m_fieldVariables).Space(), 2);
    EXPECT_TRUE(ORXSimCSet(Append(table, none, true, 2)).IsEmpty());
    EXPECT_TRUE(Identical(Read(table), few.values));
}

TEST_F(ORXSrvFsmMaterialTableTest, NothingIsWrittenWithoutArraysOrRows)
{
    int const none[] = {-1, 5};
    int const lengths[] = {2, 1, 1};
    EXPECT_EQ(Kind(lengths, true, none).GetNumberOfDependent(), 0);
    EXPECT_EQ(Kind(lengths).GetNumberOfDependent(), 3);
    ORXSrvFsmMaterialTable empty;
    EXPECT_EQ(empty.GetNumberOfDependent(), 0);
    EXPECT_EQ(empty.GetDependentLengths(), nullptr);
    EXPECT_FALSE(empty.HasTempDependancy());

    Rows rows(3, 4, 2), noRows(0, 4, 3);
    EXPECT_TRUE(Save(empty, rows, true, 1).IsNull());
    EXPECT_TRUE(Append(empty, rows, true, 1).IsNull());
    ORXSrvFsmMaterialTable table = Kind(lengths);
    EXPECT_TRUE(Save(table, noRows, true, 0).IsNull());
    EXPECT_TRUE(m_record.Follow(types[0], 1).IsNull());
    EXPECT_EQ(ORXSimCollection(m_rows).Space(), 2);

    Filled filled;
    double* untouched[1] = {nullptr};
    filled.rows = untouched;
    filled.temperature = true;
    empty.FillPointer(m_record, filled.rows, filled.numRows, filled.numCols, filled.temperature,
                      filled.numFieldVariables);
    EXPECT_EQ(filled.rows, untouched);
    EXPECT_EQ(filled.numRows + filled.numCols + filled.numFieldVariables, 0);
    EXPECT_FALSE(filled.temperature);
    filled.rows = nullptr;

    // A kind without temperature or field variables does not look at the record at all.
    ORXObjDocument other = ORXObjDocument::New();
    ORXSimPosition const closed = other.CreateDataRecord(Schema(42, 1)).Pos();
    other.Close();
    EXPECT_FALSE(Kind(lengths, false, types, 0).IsTemperatureDependent(closed));
    EXPECT_EQ(Kind(lengths, false, types, 0).NumberFieldVariables(closed), 0);
    EXPECT_THROW(table.IsTemperatureDependent(closed), ORXSimDatabaseException);
}

// Records written otherwise: a later dependent missing narrows the table, the following columns
// moved left; a dependent of one dimension is read over its rows alone.
TEST_F(ORXSrvFsmMaterialTableTest, RecordsOfOtherShapesAreRead)
{
    int const writtenTypes[] = {types[0], types[2], -1};
    int const writtenMembers[] = {members[0], members[2]};
    int const writtenLengths[] = {6, 1};
    ORXSrvFsmMaterialTable writer(writtenTypes, writtenMembers, writtenLengths, true, temperatureType, 7,
                                  fieldVariableType, 8);
    Rows rows(4, 6 + 1 + 1 + 2, 7);
    writer.Save(m_transaction, m_record, m_rows, m_columns, m_fieldVariables, rows.Get(), 4, true, 2, false);
    int const lengths[] = {6, 3, 1};
    EXPECT_TRUE(Identical(Read(Kind(lengths)), rows.values));

    m_record = NewRecord(42, 1);
    StoreByHand(types[0], members[0], {m_rows});
    int const single[] = {types[0], -1}, one[] = {1};
    EXPECT_TRUE(Identical(Read(Kind(one, false, single)), Table{{1.0}, {1.0}}));
}

TEST_F(ORXSrvFsmMaterialTableTest, ChecksReportTheirConditionFromTheModule)
{
    int const lengths[] = {2, 1, 1};
    ORXSrvFsmMaterialTable table = Kind(lengths);
    RecordedAssertions recorded;
    Rows rows(2, 4, 8);
    Filled filled;
    EXPECT_EQ(AssertionText([&] { Append(table, rows, false, 0); }), "ddesc.Size() == 1");
    EXPECT_EQ(AssertionText([&] { Fill(table, filled); }), "d1.IsNull() == false");
    EXPECT_EQ(RecordedAssertions::Reports()[0],
              "ddesc.Size() == 1 at ORXSrvSimServices/ORXSrvFsm.m/src/ORXSrvFsmMaterialTable");

    // A first dependent with no drawer, then with two.
    CollectionIDArray grid(2, 0);
    grid.Get(0) = m_rows;
    grid.Get(1) = m_columns;
    ORXSimDistributionID const bare =
        m_document.Focus().CreateTypedDistribution(ORXSimGrid(grid), Schema(42, 12), ORXSimRangeType(4));
    m_record.Associate(types[0], members[0], ORXSimPosition(bare));
    EXPECT_EQ(AssertionText([&] { Append(table, rows, false, 0); }), "ddesc.Size() == 1");
    EXPECT_EQ(AssertionText([&] { Fill(table, filled); }), "ndomain == 2 || ndomain == 1");
    for (int first = 0; first < 2; ++first)
    {
        ORXSimTransfer make{ORXSimDistribution(bare)};
        make.SetMakeNewDrawerChunked(ORXSimArray<int>(2, 0)).SetBufferPadding(false).SetExtendableDim(0);
        make.SetDim(0, ORXSimCollection(m_rows).CreateTempCSetStrided(first, 1, 1, 1));
        make.SetDim(1, ORXSimCollection(m_columns).CreateTempCSetStrided(0, 1, 1, 1)).CheckView().ExecMake();
    }
    EXPECT_EQ(AssertionText([&] { Append(table, rows, false, 0); }), "ddesc.Size() == 1");

    // Blocks of the wrong number of dimensions.
    struct Shape
    {
        int type, member;
        std::vector<ORXSimCollectionID> grid;
        char const* condition;
    } const shapes[] = {
        {types[1], members[1], {m_rows, m_columns, m_fieldVariables}, "ndomain == 2 || ndomain == 1"},
        {temperatureType, 7, {m_rows, m_columns}, "domain.Size() == 1"},
        {fieldVariableType, 8, {m_rows}, "domain.Size() == 2"},
    };
    for (Shape const& shape : shapes)
    {
        m_record = NewRecord(42, 1);
        StoreByHand(types[0], members[0], {m_rows, m_columns});
        StoreByHand(shape.type, shape.member, shape.grid);
        EXPECT_EQ(AssertionText([&] { Fill(table, filled); }), shape.condition);
        EXPECT_EQ(filled.rows, nullptr);
    }
    EXPECT_EQ(AssertionText([&] { table.NumberFieldVariables(m_record); }), "domain.Size() == 2");
}

// Appends that do not fit the stored table raise before any block is written: a dependent of
// another width, another number of field variables, a temperature the record does not hold.
TEST_F(ORXSrvFsmMaterialTableTest, RefusedAppendWritesNothing)
{
    int const lengths[] = {2, 1, 1}, wider[] = {2, 2, 1};
    ORXSrvFsmMaterialTable table = Kind(lengths), other = Kind(wider);
    struct Refusal
    {
        ORXSrvFsmMaterialTable* table;
        bool savedTemperature;
        int fieldVariables;
    } const refusals[] = {{&other, true, 2}, {&table, true, 3}, {&table, true, 1}, {&table, false, 2}};
    for (Refusal const& refusal : refusals)
    {
        m_record = NewRecord(42, 1);
        Rows saved(3, 4 + refusal.savedTemperature + 2, 9), more(2, 9, 10);
        Save(table, saved, refusal.savedTemperature, 2);
        EXPECT_THROW(Append(*refusal.table, more, true, refusal.fieldVariables), ORXSimDatabaseException);
        EXPECT_TRUE(Identical(Read(table), saved.values));
    }
}

} // namespace
