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

// Distribution types of the three kinds of block: one dependent (rows x its columns), the
// temperature (one value per row) and the field variables (rows x field variables).
int const materialGroup = 42;
int const dependentValuesMember = 12;
int const temperatureValuesMember = 13;
int const fieldVariableValuesMember = 14;

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
    RowArrays(int numRows, int numCols)
        : m_rows(static_cast<double**>(mem_OperatorNewThrowBuiltin(
              mem_SaturatingProduct(static_cast<std::size_t>(numRows), sizeof(double*)))))
    {
        std::size_t const rowBytes = mem_SaturatingProduct(static_cast<std::size_t>(numCols), sizeof(double));
        for (; m_count < numRows; ++m_count)
            m_rows[m_count] = static_cast<double*>(mem_OperatorNewThrowBuiltin(rowBytes));
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

// Entry i * width + c of block takes values[i][offset + c], for the numRows rows.
void Gather(double const* const* values, int numRows, int offset, int width, double* block)
{
    for (int i = 0; i < numRows; ++i)
        for (int c = 0; c < width; ++c)
            block[static_cast<std::size_t>(i) * width + c] = values[i][offset + c];
}

// rows[i][cursor + c] takes entry i * width + c of block, for the numRows rows.
void Scatter(double const* block, int numRows, int cursor, int width, double** rows)
{
    for (int i = 0; i < numRows; ++i)
        for (int c = 0; c < width; ++c)
            rows[i][cursor + c] = block[static_cast<std::size_t>(i) * width + c];
}

ORXSimTypeID BlockType(ORXSimContext const& context, int member)
{
    return context.Schema().TypeID(vds_CoreFragmentTypeIndex(materialGroup, member));
}

// The drawers of the distribution at position; none for a null position, with element 0 left
// readable as QueryDrawers leaves it.
void QueryDrawersAt(ORXSimPosition const& position, DrawerDescArray& drawers)
{
    if (position.IsNull())
        drawers.SetSize(0);
    else
        ORXSimDistribution(position.GetDistribution()).QueryDrawers(drawers);
}

// The caller's rows, and the row set they go to or come from.
struct TableRows
{
    double const* const* values;
    int numRows;
    ORXSimCSetID rowSet;
};

// Makes a distribution of the given type over the rows' collection (and the columns' collection
// unless columns is null, for the one-dimensional temperature), writes width values of each row
// from offset on into one new drawer, chunked over all rows if asked, and gives its identity.
ORXSimDistributionID SaveBlock(ORXSimContext const& context, int member, TableRows const& rows,
                               ORXSimCSetID const* columns, int offset, int width, bool chunked,
                               double* buffer)
{
    bool const twoDimensional = columns != nullptr;
    CollectionIDArray collections(twoDimensional ? 2 : 1, 0);
    collections.Get(0) = rows.rowSet.CollectionID();
    if (twoDimensional)
        collections.Get(1) = columns->CollectionID();
    ORXSimDistributionID const id =
        context.CreateDistribution(ORXSimGrid(collections), ORXSimRangeType(4), BlockType(context, member));
    Gather(rows.values, rows.numRows, offset, width, buffer);

    ORXSimTransfer transfer{ORXSimDistribution(id)};
    transfer.SetWrite().SetBufferPadding(false);
    if (chunked)
    {
        ORXSimArray<int> chunks(twoDimensional ? 2 : 1, 0);
        chunks.Get(0) = rows.numRows;
        if (twoDimensional)
            chunks.Get(1) = width;
        transfer.SetMakeNewDrawerChunked(chunks).SetExtendableDim(0);
    }
    else
        transfer.SetMakeNewDrawer();
    transfer.SetDim(0, rows.rowSet);
    if (twoDimensional)
        transfer.SetDim(1, *columns);
    transfer.CheckView();
    transfer.SetBuffer(0, buffer, static_cast<unsigned long long>(rows.numRows) * width * sizeof(double));
    transfer.ExecWrite();
    transfer.RelinquishBuffers();
    return id;
}

// The writes of one Append, each checked against its drawer before any of them runs, so that a
// refused Append writes nothing.
class AppendWrites
{
public:
    AppendWrites(TableRows const& rows, int numCols)
        : m_rows(rows), m_buffer(static_cast<std::size_t>(rows.numRows) * numCols)
    {
    }

    // Sets up the write of width values of each row from offset on, as new rows of element 0 of
    // the drawers of the distribution at position.
    void Add(ORXSimPosition const& position, int offset, int width)
    {
        DrawerDescArray drawers(1, 0);
        ORXSimDistribution const distribution(position.GetDistribution());
        distribution.QueryDrawers(drawers);
        double* block = m_buffer.Get() + static_cast<std::size_t>(m_rows.numRows) * offset;
        Gather(m_rows.values, m_rows.numRows, offset, width, block);
        m_writes.push_back(std::make_unique<ORXSimTransfer>(distribution));
        ORXSimTransfer& transfer = *m_writes.back();
        transfer.SetWrite().SetBufferPadding(false).SetDrawer(drawers[0].DrawerID());
        transfer.SetDimExtension(m_rows.rowSet);
        transfer.CheckView();
        unsigned long long const bytes =
            static_cast<unsigned long long>(m_rows.numRows) * width * sizeof(double);
        transfer.SetBuffer(0, block, bytes);
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
    TableRows m_rows;
    WorkValues m_buffer;
    std::vector<std::unique_ptr<ORXSimTransfer>> m_writes;
    std::vector<bool> m_fits;
};

// Reads the numRows x width values of the distribution at position over the domain of its first
// drawer (one or two dimensions) and puts them into rows[i][cursor + c].
void ReadBlock(ORXSimPosition const& position, ORXSimOCompartment const& domain, int numRows, int width,
               double** rows, int cursor)
{
    ORXSimTransfer transfer{ORXSimDistribution(position.GetDistribution())};
    transfer.SetRead().SetBufferPadding(false).SetDim(0, domain.CSet(0));
    if (domain.Size() == 2)
        transfer.SetDim(1, domain.CSet(1));
    transfer.CheckView();
    std::size_t const count = static_cast<std::size_t>(numRows) * width;
    WorkValues buffer(count);
    // Places no drawer holds read as 0.0.
    if (count > 0)
        std::memset(buffer.Get(), 0, count * sizeof(double));
    transfer.SetBuffer(0, buffer.Get(), count * sizeof(double));
    transfer.ExecRead();
    transfer.RelinquishBuffers();
    Scatter(buffer.Get(), numRows, cursor, width, rows);
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

int ORXSrvFsmMaterialTable::GetNumberOfDependent() const
{
    return m_numDependent;
}

const int* ORXSrvFsmMaterialTable::GetDependentTypes() const
{
    return m_dependentTypes;
}

const int* ORXSrvFsmMaterialTable::GetDependentMembers() const
{
    return m_dependentMembers;
}

const int* ORXSrvFsmMaterialTable::GetDependentLengths() const
{
    return m_dependentLengths;
}

bool ORXSrvFsmMaterialTable::HasTempDependancy() const
{
    return m_hasTempDependancy;
}

int ORXSrvFsmMaterialTable::GetTemperatureType() const
{
    return m_temperatureType;
}

int ORXSrvFsmMaterialTable::GetTemperatureMember() const
{
    return m_temperatureMember;
}

int ORXSrvFsmMaterialTable::GetFieldVariableType() const
{
    return m_fieldVariableType;
}

int ORXSrvFsmMaterialTable::GetFieldVariableMember() const
{
    return m_fieldVariableMember;
}

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
    TableRows const table{values, numRows, ExtendCollection(rows, numRows)};
    ORXSimContext const context(record.ContextID());
    bool const temperature = m_hasTempDependancy && withTemperature;

    int widest = temperature ? 1 : 0;
    if (numFieldVariables > widest)
        widest = numFieldVariables;
    for (int d = 0; d < m_numDependent; ++d)
        if (m_dependentLengths[d] > widest)
            widest = m_dependentLengths[d];
    WorkValues buffer(static_cast<std::size_t>(numRows) * widest);

    ORXSimArray<ORXSimDistributionID> distributions(m_numDependent, 0);
    int offset = 0;
    for (int d = 0; d < m_numDependent; ++d)
    {
        int const width = m_dependentLengths[d];
        ORXSimCSetID const columnSet = ExtendCollection(columns, width);
        distributions.Get(d) = SaveBlock(context, dependentValuesMember, table, &columnSet, offset, width,
                                         chunked, buffer.Get());
        offset += width;
    }
    ORXSimDistributionID temperatureValues;
    if (temperature)
    {
        temperatureValues =
            SaveBlock(context, temperatureValuesMember, table, nullptr, offset, 1, chunked, buffer.Get());
        offset += 1;
    }
    ORXSimDistributionID fieldVariableValues;
    if (numFieldVariables > 0)
    {
        ORXSimCSetID const fieldVariableSet = ExtendCollection(fieldVariables, numFieldVariables);
        fieldVariableValues = SaveBlock(context, fieldVariableValuesMember, table, &fieldVariableSet, offset,
                                        numFieldVariables, chunked, buffer.Get());
    }

    // The record is linked only once every block is written, so a refused write leaves it as it was.
    for (int d = 0; d < m_numDependent; ++d)
        record.Associate(m_dependentTypes[d], m_dependentMembers[d], ORXSimPosition(distributions[d]));
    if (temperature)
        record.Associate(m_temperatureType, m_temperatureMember, ORXSimPosition(temperatureValues));
    if (numFieldVariables > 0)
        record.Associate(m_fieldVariableType, m_fieldVariableMember, ORXSimPosition(fieldVariableValues));
    return table.rowSet;
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
    bool const temperature = m_hasTempDependancy && withTemperature;

    int numCols = (temperature ? 1 : 0) + (numFieldVariables > 0 ? numFieldVariables : 0);
    for (int d = 0; d < m_numDependent; ++d)
        numCols += m_dependentLengths[d];
    AppendWrites writes(TableRows{values, numRows, added}, numCols);
    int offset = 0;
    for (int d = 0; d < m_numDependent; ++d)
    {
        writes.Add(record.Follow(m_dependentTypes[d], m_dependentMembers[d]), offset, m_dependentLengths[d]);
        offset += m_dependentLengths[d];
    }
    if (temperature)
    {
        writes.Add(record.Follow(m_temperatureType, m_temperatureMember), offset, 1);
        offset += 1;
    }
    if (numFieldVariables > 0)
        writes.Add(record.Follow(m_fieldVariableType, m_fieldVariableMember), offset, numFieldVariables);
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

    std::vector<ORXSimPosition> dependents(m_numDependent);
    numCols = numFieldVariables + (temperature ? 1 : 0);
    for (int d = 0; d < m_numDependent; ++d)
    {
        dependents[d] = record.Follow(m_dependentTypes[d], m_dependentMembers[d]);
        if (!dependents[d].IsNull())
            numCols += m_dependentLengths[d];
    }
    RowArrays result(numRows, numCols);

    int cursor = 0;
    for (int d = 0; d < m_numDependent; ++d)
    {
        if (dependents[d].IsNull())
            continue;
        QueryDrawersAt(dependents[d], drawers);
        ORXSimOCompartment const& dependentDomain = drawers[0].Domain();
        int const ndomain = dependentDomain.Size();
        ORXSrvAssert(ndomain == 2 || ndomain == 1);
        ReadBlock(dependents[d], dependentDomain, numRows, m_dependentLengths[d], result.Get(), cursor);
        cursor += m_dependentLengths[d];
    }
    if (temperature)
    {
        ORXSimPosition const values = record.Follow(m_temperatureType, m_temperatureMember);
        QueryDrawersAt(values, drawers);
        ORXSimOCompartment const& domain = drawers[0].Domain();
        ORXSrvAssert(domain.Size() == 1);
        ReadBlock(values, domain, numRows, 1, result.Get(), cursor);
        cursor += 1;
    }
    if (numFieldVariables > 0)
    {
        ORXSimPosition const values = record.Follow(m_fieldVariableType, m_fieldVariableMember);
        QueryDrawersAt(values, drawers);
        ORXSimOCompartment const& domain = drawers[0].Domain();
        ORXSrvAssert(domain.Size() == 2);
        ReadBlock(values, domain, numRows, numFieldVariables, result.Get(), cursor);
    }
    rows = result.Release();
}
