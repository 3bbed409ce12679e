#pragma once
// A table of doubles with labelled columns, row-major: the value of row r, column c stands at
// r * ColumnCount() + c.
#include "ORXSimFTableID.h"
#include "ORXString.h"

class ORXSimFTable
{
public:
    explicit ORXSimFTable(ORXSimFTableID const& id);
    int ColumnCount() const;
    int RowCount() const;
    ORXString ColumnLabel(int column) const;
    // Copies the first `count` values (at most all of them).
    void GetData(double* values, int count) const;

private:
    ORXSimFTableID m_id;
};
