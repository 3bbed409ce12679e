#pragma once
// The process-wide table of output variables: 4,759 rows and a terminator whose label is null.
// It is filled once when the library is loaded and is read-only afterwards. Callers walk it from
// index 0 up to the first row with a null label.
#include "ORXSrvVariableStruct.h"

class ORXSrvVariableMap
{
public:
    // The row at index: the table's base plus the index, without a bounds check.
    static ORXSrvVariableStruct const& GetEntry(int index);

private:
    // A row as the table's source gives it, with the grid type still as its schema numbers.
    struct SchemaRow
    {
        char const* label;
        int component;
        char const* fieldType;
        int group;
        int member;
    };

    // Rows expanded at build time from the table's compact notation (generated source).
    static SchemaRow const s_schemaRows[];
    static int const s_schemaRowCount;
    // The rows followed by the terminator, sized with the generated rows and filled at load.
    static ORXSrvVariableStruct s_table[];

    // Fills s_table from s_schemaRows, one vds_CoreFragmentTypeIndex call per row, and writes the
    // terminator. Runs once, from the initialiser of s_loaded, when the library is loaded.
    static bool Load();
    static bool const s_loaded;
};
