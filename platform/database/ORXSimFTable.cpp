#include "ORXSimFTable.h"

#include "ORXBasVector.h"
#include "ORXSimPosition.h"
#include "ORXSimStore.h"
#include "ORXSimStoreFTable.h"

#include <algorithm>

ORXSimFTableID ORXSimPosition::CreateFTable(int type, int rows, ORXBasVector<ORXString> const& dependent,
                                            ORXBasVector<ORXString> const& independent, double const* data,
                                            int count) const
{
    ORXSimStoreContext& store = ORXSimStore::Get(*this);
    int const labelled = static_cast<int>(dependent.size() + independent.size());
    if (rows < 0 || count < 0 || (rows > 0 && count % rows != 0) || (rows == 0 && count != 0))
        ORXSimRaise(ORXString("a function table of ") + ORXSimNumberText(rows) + " rows cannot hold " +
                    ORXSimNumberText(count) + " values");
    int const columns = rows > 0 ? count / rows : labelled;
    int const valueColumns = columns - static_cast<int>(independent.size());
    if (valueColumns < 0)
        ORXSimRaise(ORXString("a function table of ") + ORXSimNumberText(columns) + " columns cannot have " +
                    ORXSimNumberText(static_cast<long long>(independent.size())) + " independent columns");
    auto table = std::make_unique<ORXSimStoreFTable>();
    table->rows = rows;
    table->columns = columns;
    for (int c = 0; c < valueColumns; ++c)
        table->labels.push_back(c < static_cast<int>(dependent.size()) ? dependent[c] : ORXString());
    for (std::size_t c = 0; c < independent.size(); ++c)
        table->labels.push_back(independent[c]);
    if (count > 0)
        table->values.assign(data, data + count);
    return store.AddFTable(std::move(table), ORXSimTypeID(type));
}

ORXSimFTable::ORXSimFTable(ORXSimFTableID const& id) : m_id(id)
{
    ORXSimStore::Get(id).FTable(id);
}

int ORXSimFTable::ColumnCount() const
{
    return ORXSimStore::Get(m_id).FTable(m_id).columns;
}

int ORXSimFTable::RowCount() const
{
    return ORXSimStore::Get(m_id).FTable(m_id).rows;
}

ORXString ORXSimFTable::ColumnLabel(int column) const
{
    ORXSimStoreFTable const& table = ORXSimStore::Get(m_id).FTable(m_id);
    if (column < 0 || column >= table.columns)
        ORXSimRaise(ORXString("column ") + ORXSimNumberText(column) + " lies outside the " +
                    ORXSimNumberText(table.columns) + " columns of " + ORXSimDescribe(m_id));
    return table.labels[column];
}

void ORXSimFTable::GetData(double* values, int count) const
{
    ORXSimStoreFTable const& table = ORXSimStore::Get(m_id).FTable(m_id);
    int const n = std::min(std::max(count, 0), static_cast<int>(table.values.size()));
    std::copy(table.values.begin(), table.values.begin() + n, values);
}
