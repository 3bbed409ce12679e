#pragma once
// One tabular material behaviour stored on a database record. The caller describes the kind of
// table once: its dependent quantities (the association numbers under which each is linked on the
// record and its number of columns; the list of types ends with -1), and where temperature and
// field variables go. Save writes a first block of rows as one distribution per dependent, one for
// the temperature and one for the field variables, and links them to the record; Append adds rows
// to those drawers; FillPointer hands the whole table back as rows of doubles.
//
// A row is one array of doubles: the columns of each dependent in order, then the temperature if
// there is one, then the field variables. The three description arrays stay the caller's and must
// outlive the object.
#include "ORXSimCSetID.h"
#include "ORXSimCollectionID.h"
#include "ORXSimPosition.h"
#include "ORXSimTransaction.h"

class ORXSrvFsmMaterialTable
{
public:
    // All members zero: Save and Append write nothing, FillPointer gives an empty table.
    ORXSrvFsmMaterialTable();
    ORXSrvFsmMaterialTable(const int* types, const int* members, const int* lengths, bool hasTemperature,
                           int temperatureType, int temperatureMember, int fieldVariableType,
                           int fieldVariableMember);
    // Frees nothing: the arrays are the caller's.
    ~ORXSrvFsmMaterialTable();

    int GetNumberOfDependent() const { return m_numDependent; }
    const int* GetDependentTypes() const { return m_dependentTypes; }
    const int* GetDependentMembers() const { return m_dependentMembers; }
    const int* GetDependentLengths() const { return m_dependentLengths; }
    // Whether this kind of table can carry a temperature column.
    bool HasTempDependancy() const { return m_hasTempDependancy; }
    int GetTemperatureType() const { return m_temperatureType; }
    int GetTemperatureMember() const { return m_temperatureMember; }
    int GetFieldVariableType() const { return m_fieldVariableType; }
    int GetFieldVariableMember() const { return m_fieldVariableMember; }

    // Writes numRows rows as new distributions over members 0 .. numRows - 1 of rows (and of
    // columns and fieldVariables for the widths), in drawers chunked over all rows if chunked, and
    // links them to record. The transaction is the caller's and is not read. Returns the rows'
    // CSet; a null identity (and no writes) for an object without its arrays or numRows of 0.
    ORXSimCSetID Save(ORXSimTransaction&, ORXSimPosition& record, ORXSimCollectionID const& rows,
                      ORXSimCollectionID const& columns, ORXSimCollectionID const& fieldVariables,
                      double const** values, int numRows, bool withTemperature, int numFieldVariables,
                      bool chunked);
    // Adds numRows rows after those stored, extending the existing drawers; columns and
    // fieldVariables are not read. Returns the CSet of the new rows; a null identity for an object
    // without its arrays. A refused Append writes no values.
    ORXSimCSetID Append(ORXSimTransaction&, ORXSimPosition& record, ORXSimCollectionID rows,
                        ORXSimCollectionID columns, ORXSimCollectionID fieldVariables, double const** values,
                        int numRows, bool withTemperature, int numFieldVariables);

    // Whether record holds a temperature column (false, record untouched, if the kind has none).
    bool IsTemperatureDependent(ORXSimPosition const& record) const;
    // The number of field variables record holds (0, record untouched, if the kind has none).
    int NumberFieldVariables(ORXSimPosition const& record) const;
    // Hands out the table stored on record as numRows arrays of numCols doubles, which the caller
    // then owns (mem_Free each row, then the array). Dependents missing on record take no columns;
    // the first one must be there. An object without its arrays gives zero counts and leaves rows.
    void FillPointer(ORXSimPosition const& record, double**& rows, int& numRows, int& numCols,
                     bool& temperature, int& numFieldVariables) const;

private:
    // Members 0 .. count - 1 of collection, after growing its space to count if it is smaller.
    static ORXSimCSetID ExtendCollection(ORXSimCollectionID collection, int count);
    bool IsComplete() const;

    int m_numDependent;
    const int* m_dependentTypes;
    const int* m_dependentMembers;
    const int* m_dependentLengths;
    int m_temperatureType;
    int m_temperatureMember;
    int m_fieldVariableType;
    int m_fieldVariableMember;
    bool m_hasTempDependancy;
};
