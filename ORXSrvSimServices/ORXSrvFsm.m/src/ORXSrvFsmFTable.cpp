#include "ORXSrvFsmFTable.h"

#include "ORXSimFTable.h"
#include "mem_Entries.h"

#include <cstring>

namespace
{

char const* const temperatureLabel = "Temperature";
char const* const fieldVariablePrefix = "Field_";
int const fieldVariablePrefixLength = 6;

// All values of the table, row-major.
ORXBasVector<double> ReadAll(ORXSimFTable const& table)
{
    int const count = table.ColumnCount() * table.RowCount();
    ORXBasVector<double> values(count);
    table.GetData(values.begin(), count);
    return values;
}

} // namespace

ORXSrvFsmFTable::ORXSrvFsmFTable() = default;

ORXSrvFsmFTable::ORXSrvFsmFTable(ORXSimPosition const& table) : m_table(table) {}

ORXSrvFsmFTable::~ORXSrvFsmFTable() = default;

void ORXSrvFsmFTable::CreateTable(ORXSimPosition& owner, int typeIndex, int numRows, int numCols,
                                  ORXBasVector<ORXString>& dependent, ORXBasVector<ORXString>& independent,
                                  int member, double* data, int numFieldVariables, bool temperature)
{
    if (temperature)
        independent.push_back(ORXString(temperatureLabel));
    for (int i = 0; i < numFieldVariables; ++i)
    {
        ORXString label(fieldVariablePrefix);
        label += i;
        independent.push_back(label);
    }
    int const count = numRows * numCols;
    if (count == 0)
        return;
    m_table = ORXSimPosition(owner.CreateFTable(typeIndex, numRows, dependent, independent, data, count));
    owner.SetPosition(member, m_table);
}

void ORXSrvFsmFTable::CreateTable(ORXSimPosition& owner, int typeIndex, int numRows, int numCols, int member,
                                  double* data, int numFieldVariables, bool temperature)
{
    ORXBasVector<ORXString> dependent;
    ORXBasVector<ORXString> independent;
    CreateTable(owner, typeIndex, numRows, numCols, dependent, independent, member, data, numFieldVariables,
                temperature);
}

int ORXSrvFsmFTable::NumberFieldVariables() const
{
    ORXSimFTable table(m_table.GetFTable());
    int count = 0;
    for (int column = 0; column < table.ColumnCount(); ++column)
        if (table.ColumnLabel(column).SubString(0, fieldVariablePrefixLength) == fieldVariablePrefix)
            ++count;
    return count;
}

int ORXSrvFsmFTable::NumOfRows() const
{
    return ORXSimFTable(m_table.GetFTable()).RowCount();
}

int ORXSrvFsmFTable::NumOfCols() const
{
    return ORXSimFTable(m_table.GetFTable()).ColumnCount();
}

bool ORXSrvFsmFTable::HasColumn(ORXString const& label) const
{
    ORXSimFTable table(m_table.GetFTable());
    for (int column = 0; column < table.ColumnCount(); ++column)
        if (table.ColumnLabel(column) == label)
            return true;
    return false;
}

bool ORXSrvFsmFTable::GetColumnData(int row, ORXString const& label, double& value) const
{
    ORXSimFTable table(m_table.GetFTable());
    int const columns = table.ColumnCount();
    if (row >= table.RowCount() || columns <= 0)
        return false;
    int column = 0;
    while (column < columns && table.ColumnLabel(column) != label)
        ++column;
    if (column == columns)
        return false;
    value = ReadAll(table)[column + columns * row];
    return true;
}

void ORXSrvFsmFTable::FillPointer(double**& rows, int& numRows, int& numCols, bool& temperature,
                                  int& numFieldVariables) const
{
    ORXSimFTable table(m_table.GetFTable());
    numRows = table.RowCount();
    numCols = table.ColumnCount();
    temperature = HasColumn(ORXString(temperatureLabel));
    numFieldVariables = NumberFieldVariables();

    rows = static_cast<double**>(mem_OperatorNewThrowBuiltin(
        mem_SaturatingProduct(static_cast<std::size_t>(numRows), sizeof(double*))));
    for (int row = 0; row < numRows; ++row)
        rows[row] = static_cast<double*>(mem_OperatorNewThrowBuiltin(
            mem_SaturatingProduct(static_cast<std::size_t>(numCols), sizeof(double))));
    ORXBasVector<double> const values = ReadAll(table);
    for (int row = 0; row < numRows && numCols > 0; ++row)
        std::memcpy(rows[row], values.begin() + std::size_t(row) * numCols, sizeof(double) * numCols);
}
