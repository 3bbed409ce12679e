#include "ORXSrvFsmMaterialTable.h"

#include "ORXSimArray.h"
#include "ORXSimAssociation.h"
#include "ORXSimCollection.h"
#include "ORXSimContext.h"
#include "ORXSimDistribution.h"
#include "ORXSimTransfer.h"
#include "ORXSrvChecks.h"
#include "mem_Entries.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <cstring>
#include <memory>
#include <vector>

namespace
{
using DrawerDescArray =
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>;
using CollectionIDArray = ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>>;

// Distribution types (42, kind) of the three kinds of block: one dependent (rows x its columns),
// the temperature (one value per row) and the field variables (rows x field variables).
int const materialGroup = 42;
int const dependentValues = 12;
int const temperatureValues = 13;
int const fieldVariableValues = 14;

// One block of a table: the distribution of one dependent, of the temperature or of the field
// variables, linked to the record under (type, member) and of type (42, kind). It holds width
// columns of each row from cursor on; values is its place, rows by columns, in a packed work
// array of the table.
struct Block
{
    int type;
    int member;
    int kind;
    int cursor;
    int width;
    double* values;
};

// The blocks of a table in row order: each dependent (those on record only, if given), the
// temperature if the kind has one and it is asked for, the field variables if there are any.
std::vector<Block> TableBlocks(ORXSrvFsmMaterialTable const& table, bool withTemperature,
                               int numFieldVariables, ORXSimPosition const* record = nullptr)
{
    std::vector<Block> blocks;
    int cursor = 0;
    auto add = [&](int type, int member, int kind, int width)
    {
        blocks.push_back(Block{type, member, kind, cursor, width, nullptr});
        cursor += width;
    };
    for (int d = 0; d < table.GetNumberOfDependent(); ++d)
    {
        int const type = table.GetDependentTypes()[d], member = table.GetDependentMembers()[d];
        if (!record || !record->Follow(type, member).IsNull())
            add(type, member, dependentValues, table.GetDependentLengths()[d]);
    }
    if (table.HasTempDependancy() && withTemperature)
        add(table.GetTemperatureType(), table.GetTemperatureMember(), temperatureValues, 1);
    if (numFieldVariables > 0)
        add(table.GetFieldVariableType(), table.GetFieldVariableMember(), fieldVariableValues,
            numFieldVariables);
    return blocks;
}

// Number of columns of a row of those blocks.
int RowWidth(std::vector<Block> const& blocks)
{
    return blocks.empty() ? 0 : blocks.back().cursor + blocks.back().width;
}

// Doubles of work memory that go back to mem_Free when they leave scope, also when a database
// call raises on the way.
class WorkValues
{
public:
    explicit WorkValues(std::size_t count)
        : m_values(static_cast<double*>(mem_OperatorNewThrow(mem_SaturatingProduct(count, sizeof(double)))))
    {
    }
    ~WorkValues() { mem_Free(m_values); }
    WorkValues(WorkValues const&) = delete;
    WorkValues& operator=(WorkValues const&) = delete;
    double* Get() const { return m_values; }

private:
    double* m_values;
};

// The row arrays FillPointer builds, freed unless handed to the caller.
class RowArrays
{
public:
    // The array of numRows row pointers; the rows themselves come with AddRows.
    explicit RowArrays(int numRows)
        : m_rows(static_cast<double**>(mem_OperatorNewThrowBuiltin(
              mem_SaturatingProduct(static_cast<std::size_t>(numRows), sizeof(double*)))))
    {
    }
    ~RowArrays()
    {
        if (!m_rows)
            return;
        for (int i = 0; i < m_count; ++i)
            mem_Free(m_rows[i]);
        mem_Free(m_rows);
    }
    RowArrays(RowArrays const&) = delete;
    RowArrays& operator=(RowArrays const&) = delete;

    // Allocates the next count rows of numCols doubles each.
    void AddRows(int count, int numCols)
    {
        std::size_t const rowBytes = mem_SaturatingProduct(static_cast<std::size_t>(numCols), sizeof(double));
        for (int const end = m_count + count; m_count < end; ++m_count)
            m_rows[m_count] = static_cast<double*>(mem_OperatorNewThrowBuiltin(rowBytes));
    }
    double** Get() const { return m_rows; }
    double** Release()
    {
        double** rows = m_rows;
        m_rows = nullptr;
        return rows;
    }

private:
    double** m_rows;
    int m_count = 0;
};

// Copies width values per row i from source(i) to target(i), for the numRows rows. W is the width
// when it is a constant, 0 when it is not.
template <int W, class Source, class Target>
void CopyRows(int numRows, int width, Source source, Target target)
{
    int const n = W > 0 ? W : width;
    for (int i = 0; i < numRows; ++i)
    {
        double const* from = source(i);
        double* to = target(i);
        for (int c = 0; c < n; ++c)
            to[c] = from[c];
    }
}

// The same, with the narrow widths of material blocks as constants, so that each row is a few
// plain moves instead of a counted loop.
template <class Source, class Target> void CopyRows(int numRows, int width, Source source, Target target)
{
    switch (width)
    {
    case 1:
        return CopyRows<1>(numRows, width, source, target);
    case 2:
        return CopyRows<2>(numRows, width, source, target);
    case 3:
        return CopyRows<3>(numRows, width, source, target);
    case 4:
        return CopyRows<4>(numRows, width, source, target);
    case 6:
        return CopyRows<6>(numRows, width, source, target);
    default:
        return CopyRows<0>(numRows, width, source, target);
    }
}

// The blocks of a table over numRows rows, packed into one work array block after block. Rows go
// between the caller's row arrays and the blocks in runs of rowBatch, so that each run stays in
// the cache while every block copies its columns.
class PackedBlocks
{
public:
    PackedBlocks(std::vector<Block>& blocks, int numRows)
        : m_blocks(blocks), m_numRows(numRows), m_values(static_cast<std::size_t>(numRows) * RowWidth(blocks))
    {
        for (Block& block : blocks)
            block.values = m_values.Get() + static_cast<std::size_t>(numRows) * block.cursor;
    }

    // Each block takes its columns of the caller's rows.
    void Gather(double const* const* rows) const
    {
        for (int first = 0; first < m_numRows; first += rowBatch)
            for (Block const& block : m_blocks)
                CopyRows(
                    Batch(first), block.width, [&](int i) { return rows[first + i] + block.cursor; },
                    [&](int i) { return block.values + static_cast<std::size_t>(first + i) * block.width; });
    }

    // New row arrays of the whole table, which the caller owns.
    double** BuildRows() const
    {
        RowArrays rows(m_numRows);
        for (int first = 0; first < m_numRows; first += rowBatch)
        {
            rows.AddRows(Batch(first), RowWidth(m_blocks));
            for (Block const& block : m_blocks)
                CopyRows(
                    Batch(first), block.width,
                    [&](int i) { return block.values + static_cast<std::size_t>(first + i) * block.width; },
                    [&](int i) { return rows.Get()[first + i] + block.cursor; });
        }
        return rows.Release();
    }

private:
    static int const rowBatch = 256;
    int Batch(int first) const { return m_numRows - first < rowBatch ? m_numRows - first : rowBatch; }

    std::vector<Block> const& m_blocks;
    int m_numRows;
    WorkValues m_values;
};

// The drawers of the distribution at position; none for a null position, with element 0 left
// readable as QueryDrawers leaves it.
void QueryDrawersAt(ORXSimPosition const& position, DrawerDescArray& drawers)
{
    if (position.IsNull())
        drawers.SetSize(0);
    else
        ORXSimDistribution(position.GetDistribution()).QueryDrawers(drawers);
}

// Makes the distribution of block over rows and across (over rows alone for the one-dimensional
// temperature), writes its values into one new drawer over rowSet and acrossSet, chunked over all
// rows if asked, and gives its identity.
ORXSimDistributionID SaveBlock(ORXSimContext const& context, Block const& block,
                               ORXSimCollectionID const& rows, ORXSimCSetID const& rowSet, int numRows,
                               ORXSimCollectionID const& across, ORXSimCSetID const& acrossSet, bool chunked)
{
    bool const twoDimensional = block.kind != temperatureValues;
    CollectionIDArray collections(twoDimensional ? 2 : 1, 0);
    collections.Get(0) = rows;
    if (twoDimensional)
        collections.Get(1) = across;
    ORXSimDistributionID const id = context.CreateDistribution(
        ORXSimGrid(collections), ORXSimRangeType(4),
        context.Schema().TypeID(vds_CoreFragmentTypeIndex(materialGroup, block.kind)));

    ORXSimTransfer transfer{ORXSimDistribution(id)};
    transfer.SetWrite().SetBufferPadding(false);
    if (chunked)
    {
        ORXSimArray<int> chunks(twoDimensional ? 2 : 1, 0);
        chunks.Get(0) = numRows;
        if (twoDimensional)
            chunks.Get(1) = block.width;
        transfer.SetMakeNewDrawerChunked(chunks).SetExtendableDim(0);
    }
    else
        transfer.SetMakeNewDrawer();
    transfer.SetDim(0, rowSet);
    if (twoDimensional)
        transfer.SetDim(1, acrossSet);
    transfer.CheckView();
    transfer.SetBuffer(0, block.values,
                       static_cast<unsigned long long>(numRows) * block.width * sizeof(double));
    transfer.ExecWrite();
    transfer.RelinquishBuffers();
    return id;
}

// The writes of one Append, each checked against its drawer before any of them runs, so that a
// refused Append writes nothing.
class AppendWrites
{
public:
    // Sets up the write of block's values for the rows of added, new to element 0 of the drawers of
    // the distribution at position.
    void Add(ORXSimPosition const& position, Block const& block, ORXSimCSetID const& added, int numRows)
    {
        DrawerDescArray drawers(1, 0);
        ORXSimDistribution const distribution(position.GetDistribution());
        distribution.QueryDrawers(drawers);
        m_writes.push_back(std::make_unique<ORXSimTransfer>(distribution));
        ORXSimTransfer& transfer = *m_writes.back();
        transfer.SetWrite().SetBufferPadding(false).SetDrawer(drawers[0].DrawerID());
        transfer.SetDimExtension(added);
        transfer.CheckView();
        unsigned long long const bytes =
            static_cast<unsigned long long>(numRows) * block.width * sizeof(double);
        transfer.SetBuffer(0, block.values, bytes);
        m_fits.push_back(transfer.RequiredBufferSize(0) == bytes);
    }

    // A write whose buffer does not fit its drawer raises in ExecWrite before it writes: those run
    // first, and the others only once none is left.
    void Run()
    {
        for (std::size_t i = 0; i < m_writes.size(); ++i)
            if (!m_fits[i])
                m_writes[i]->ExecWrite();
        for (std::unique_ptr<ORXSimTransfer> const& write : m_writes)
        {
            write->ExecWrite();
            write->RelinquishBuffers();
        }
    }

private:
    std::vector<std::unique_ptr<ORXSimTransfer>> m_writes;
    std::vector<bool> m_fits;
};

// Reads the numRows x width values of the distribution at position over the domain of drawer, its
// first (one or two dimensions), into block's values.
void ReadBlock(ORXSimPosition const& position, ORXSimPersistentDrawerDesc const& drawer, int numRows,
               Block const& block)
{
    ORXSimOCompartment const& domain = drawer.Domain();
    ORXSimTransfer transfer{ORXSimDistribution(position.GetDistribution())};
    transfer.SetRead().SetBufferPadding(false).SetDim(0, domain.CSet(0));
    if (domain.Size() == 2)
        transfer.SetDim(1, domain.CSet(1));
    transfer.CheckView();
    std::size_t const count = static_cast<std::size_t>(numRows) * block.width;
    // Places no drawer holds read as 0.0. A drawer that stores every value of its domain fills them
    // all, as the view is that domain.
    if (count > 0 && drawer.DataSizeItems(0) != count)
        std::memset(block.values, 0, count * sizeof(double));
    transfer.SetBuffer(0, block.values, count * sizeof(double));
    transfer.ExecRead();
    transfer.RelinquishBuffers();
}
} // namespace

ORXSrvFsmMaterialTable::ORXSrvFsmMaterialTable()
    : m_numDependent(0), m_dependentTypes(nullptr), m_dependentMembers(nullptr), m_dependentLengths(nullptr),
      m_temperatureType(0), m_temperatureMember(0), m_fieldVariableType(0), m_fieldVariableMember(0),
      m_hasTempDependancy(false)
{
}

ORXSrvFsmMaterialTable::ORXSrvFsmMaterialTable(const int* types, const int* members, const int* lengths,
                                               bool hasTemperature, int temperatureType,
                                               int temperatureMember, int fieldVariableType,
                                               int fieldVariableMember)
    : m_numDependent(0), m_dependentTypes(types), m_dependentMembers(members), m_dependentLengths(lengths),
      m_temperatureType(temperatureType), m_temperatureMember(temperatureMember),
      m_fieldVariableType(fieldVariableType), m_fieldVariableMember(fieldVariableMember),
      m_hasTempDependancy(hasTemperature)
{
    if (types)
        while (types[m_numDependent] != -1)
            ++m_numDependent;
}

ORXSrvFsmMaterialTable::~ORXSrvFsmMaterialTable() = default;

bool ORXSrvFsmMaterialTable::IsComplete() const
{
    return m_dependentTypes && m_dependentMembers && m_dependentLengths;
}

ORXSimCSetID ORXSrvFsmMaterialTable::ExtendCollection(ORXSimCollectionID collection, int count)
{
    ORXSimCollection const members(collection);
    if (count > members.Space())
        members.ExtendSpace(count);
    return members.CreateCSetStrided(0, count, 1, 1);
}

ORXSimCSetID ORXSrvFsmMaterialTable::Save(ORXSimTransaction&, ORXSimPosition& record,
                                          ORXSimCollectionID const& rows, ORXSimCollectionID const& columns,
                                          ORXSimCollectionID const& fieldVariables, double const** values,
                                          int numRows, bool withTemperature, int numFieldVariables,
                                          bool chunked)
{
    if (!IsComplete() || numRows == 0)
        return ORXSimCSetID();
    ORXSimCSetID const rowSet = ExtendCollection(rows, numRows);
    ORXSimContext const context(record.ContextID());
    std::vector<Block> blocks = TableBlocks(*this, withTemperature, numFieldVariables);
    PackedBlocks const packed(blocks, numRows);
    packed.Gather(values);

    ORXSimArray<ORXSimDistributionID> written(static_cast<int>(blocks.size()), 0);
    for (std::size_t b = 0; b < blocks.size(); ++b)
    {
        // Dependents lie over the rows and their columns, field variables over the rows and the
        // field variables, the temperature over the rows alone.
        ORXSimCollectionID const& across = blocks[b].kind == dependentValues ? columns : fieldVariables;
        ORXSimCSetID const acrossSet =
            blocks[b].kind == temperatureValues ? ORXSimCSetID() : ExtendCollection(across, blocks[b].width);
        written.Get(static_cast<int>(b)) =
            SaveBlock(context, blocks[b], rows, rowSet, numRows, across, acrossSet, chunked);
    }
    // The record is linked only once every block is written, so a refused write leaves it as it was.
    for (std::size_t b = 0; b < blocks.size(); ++b)
        record.Associate(blocks[b].type, blocks[b].member, ORXSimPosition(written[static_cast<int>(b)]));
    return rowSet;
}

ORXSimCSetID ORXSrvFsmMaterialTable::Append(ORXSimTransaction&, ORXSimPosition& record,
                                            ORXSimCollectionID rows, ORXSimCollectionID, ORXSimCollectionID,
                                            double const** values, int numRows, bool withTemperature,
                                            int numFieldVariables)
{
    if (!IsComplete())
        return ORXSimCSetID();
    DrawerDescArray ddesc(1, 0);
    QueryDrawersAt(record.Follow(m_dependentTypes[0], m_dependentMembers[0]), ddesc);
    ORXSrvAssert(ddesc.Size() == 1);
    int const oldRows = ddesc[0].Domain().CSet(0).Size();
    ExtendCollection(rows, oldRows + numRows);
    ORXSimCSetID const added = ORXSimCollection(rows).CreateCSetStrided(oldRows, numRows, 1, 1);

    std::vector<Block> blocks = TableBlocks(*this, withTemperature, numFieldVariables);
    PackedBlocks const packed(blocks, numRows);
    packed.Gather(values);
    AppendWrites writes;
    for (Block const& block : blocks)
        writes.Add(record.Follow(block.type, block.member), block, added, numRows);
    writes.Run();
    return added;
}

bool ORXSrvFsmMaterialTable::IsTemperatureDependent(ORXSimPosition const& record) const
{
    if (!m_hasTempDependancy)
        return false;
    return !record.Follow(m_temperatureType, m_temperatureMember).IsNull();
}

int ORXSrvFsmMaterialTable::NumberFieldVariables(ORXSimPosition const& record) const
{
    if (m_fieldVariableType == 0)
        return 0;
    ORXSimPosition const values = record.Follow(m_fieldVariableType, m_fieldVariableMember);
    if (values.IsNull())
        return 0;
    DrawerDescArray drawers(1, 0);
    QueryDrawersAt(values, drawers);
    ORXSimOCompartment const& domain = drawers[0].Domain();
    ORXSrvAssert(domain.Size() == 2);
    return domain.CSet(1).Size();
}

void ORXSrvFsmMaterialTable::FillPointer(ORXSimPosition const& record, double**& rows, int& numRows,
                                         int& numCols, bool& temperature, int& numFieldVariables) const
{
    if (!IsComplete())
    {
        numRows = 0;
        numCols = 0;
        numFieldVariables = 0;
        temperature = false;
        return;
    }
    temperature = IsTemperatureDependent(record);
    ORXSimPosition const d1 = record.Follow(m_dependentTypes[0], m_dependentMembers[0]);
    ORXSrvAssert(d1.IsNull() == false);
    DrawerDescArray drawers(1, 0);
    QueryDrawersAt(d1, drawers);
    // A first dependent without a drawer has an empty domain; it reads as no rows here and is
    // refused by the domain check below.
    ORXSimOCompartment const& firstDomain = drawers[0].Domain();
    numRows = firstDomain.Size() > 0 ? firstDomain.CSet(0).Size() : 0;
    numFieldVariables = NumberFieldVariables(record);
    // Dependents missing on the record take no columns.
    std::vector<Block> blocks = TableBlocks(*this, temperature, numFieldVariables, &record);
    numCols = RowWidth(blocks);

    // Every block is read into the packed work array before the rows are built.
    PackedBlocks const packed(blocks, numRows);
    for (Block const& block : blocks)
    {
        ORXSimPosition const values = record.Follow(block.type, block.member);
        QueryDrawersAt(values, drawers);
        if (block.kind == dependentValues)
        {
            int const ndomain = drawers[0].Domain().Size();
            ORXSrvAssert(ndomain == 2 || ndomain == 1);
        }
        else
        {
            ORXSimOCompartment const& domain = drawers[0].Domain();
            if (block.kind == temperatureValues)
                ORXSrvAssert(domain.Size() == 1);
            else
                ORXSrvAssert(domain.Size() == 2);
        }
        ReadBlock(values, drawers[0], numRows, block);
    }
    rows = packed.BuildRows();
}
