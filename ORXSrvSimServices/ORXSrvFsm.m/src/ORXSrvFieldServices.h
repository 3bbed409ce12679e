#pragma once
// Questions about output variables asked by label or by field type, answered by linear walks over
// the variable table (ORXSrvVariableMap): which component a label selects, on which grid types it
// stands, which labels belong to a field type. Besides, reads uniform field values, creates a field
// defined by a function table, and finds the field that an assignment gives a target. Stateless
// except for the search cursor of GetGridTypeFromVariableLabel, one process-wide integer that is
// not safe for concurrent use.
#include "ORXSimArray.h"
#include "ORXSimPosition.h"
#include "ORXString.h"
#include "vds_ComponentSymbolsEnm.h"

class ORXObjDocument;
class ORXSimCSet;
class ORXSimSet;

class ORXSrvFieldServices
{
public:
    // The component of the first row of label; with second, the component of the row right behind
    // it if that row has the same label. 38 for an unknown label.
    static vds_ComponentSymbolsEnm GetComponent(ORXString const& label, bool second);

    // The grid type of the next row of label, starting at row 0 (next false) or at the cursor left
    // by the previous call (next true); -1 when the table ends. Enumerates a label's rows in order.
    static int GetGridTypeFromVariableLabel(ORXString const& label, bool next);

    // The first whole-variable label (component 38) of fieldType on gridType (-1: any grid type);
    // "UNDEFINED" for an empty or "NULL" field type, "" when none is found.
    static ORXString GetVariableLabel(ORXString const& fieldType, int gridType);

    // The first label of fieldType with that component on gridType (-1: any); "" when none.
    static ORXString GetComponentLabel(ORXString const& fieldType, vds_ComponentSymbolsEnm component,
                                       int gridType);
    static ORXString GetComponentLabel(ORXString const& fieldType, int component, int gridType)
    {
        return GetComponentLabel(fieldType, static_cast<vds_ComponentSymbolsEnm>(component), gridType);
    }

    // The field type of the first row of label; "UNDEFINED" for an empty, "NULL" or unknown label.
    static ORXString GetFieldType(ORXString const& label);

    // The component labels of label's field type on label's first grid type, in table order, one
    // entry per row (a two-symbol label stands twice). Empty for an unknown label.
    static ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> GetComponents(ORXString const& label);

    // The value(s) of a uniform field: one double for a scalar field, count doubles for a vector or
    // array field. False, with values untouched, for a null position or any other record type.
    static bool GetUniformFieldValue(ORXSimPosition const& field, double* values, int count);

    // Makes a field record whose function table has the columns labels (tableData row-major,
    // tableCount values) and whose distribution holds fieldValues over targetSet times the table's
    // columns. The buffer length comes from the transfer; the last argument is not read.
    static ORXSimPosition
    CreateFieldFTable(ORXObjDocument const& document,
                      ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> const& labels,
                      double* tableData, int tableCount, ORXSimCSet const& targetSet, double* fieldValues,
                      int);

    // The field of the first assignment named name whose target is target; without one, the
    // record that target links to under member.
    static ORXSimPosition GetFieldPosition(ORXSimSet const& assignments, ORXSimPosition const& target,
                                           int member, ORXString const& name);

private:
    // Where GetGridTypeFromVariableLabel goes on when called with next true.
    static int s_gridTypeCursor;
};
