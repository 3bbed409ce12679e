#pragma once
// A function table in the database seen as material data with dependencies: rows of doubles under
// labelled columns, the value columns first, then a "Temperature" column if the data depends on
// temperature, then one column per field variable, "Field_0", "Field_1" and so on. Creates such a
// table with those labels and recognises them again when reading.
#include "ORXBasVector.h"
#include "ORXSimPosition.h"
#include "ORXString.h"

class ORXSrvFsmFTable
{
public:
    // A null table.
    ORXSrvFsmFTable();
    ORXSrvFsmFTable(ORXSimPosition const& table);
    ~ORXSrvFsmFTable();

    // Appends "Temperature" (if temperature) and "Field_0" .. to independent, both vectors being the
    // caller's. Unless numRows * numCols is 0, makes the table on owner from data (row-major) and
    // links it to owner under member; this object then stands on the new table.
    void CreateTable(ORXSimPosition& owner, int typeIndex, int numRows, int numCols,
                     ORXBasVector<ORXString>& dependent, ORXBasVector<ORXString>& independent, int member,
                     double* data, int numFieldVariables, bool temperature);
    // The same without labels of the caller's: value columns get the database's own labels.
    void CreateTable(ORXSimPosition& owner, int typeIndex, int numRows, int numCols, int member, double* data,
                     int numFieldVariables, bool temperature);

    // Columns whose label begins with "Field_".
    int NumberFieldVariables() const;
    int NumOfRows() const;
    int NumOfCols() const;
    bool HasColumn(ORXString const& label) const;
    // The value of column label in row; false for a row not below the row count, a table without
    // columns or an unknown label.
    bool GetColumnData(int row, ORXString const& label, double& value) const;
    // Hands out the whole table as numRows arrays of numCols doubles, which the caller then owns
    // (mem_Free each row, then the array), with the temperature flag and the field variable count.
    void FillPointer(double**& rows, int& numRows, int& numCols, bool& temperature,
                     int& numFieldVariables) const;

private:
    ORXSimPosition m_table;
};
