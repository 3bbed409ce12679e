#include "ORXSrvVariableMap.h"

#include "vds_CoreFragmentTypeIndex.h"

// An ordinary static initialiser: it runs before the library's start chain, whose load hook runs
// after the other initialisers of the library, so the table is complete before any service is called.
// The generated rows and the table storage need no initialiser of their own (constant and zero).
bool const ORXSrvVariableMap::s_loaded = ORXSrvVariableMap::Load();

ORXSrvVariableStruct const& ORXSrvVariableMap::GetEntry(int index)
{
    return s_table[index];
}

bool ORXSrvVariableMap::Load()
{
    for (int i = 0; i < s_schemaRowCount; ++i)
    {
        SchemaRow const& row = s_schemaRows[i];
        s_table[i] = {row.label, static_cast<vds_ComponentSymbolsEnm>(row.component), row.fieldType,
                      vds_CoreFragmentTypeIndex(row.group, row.member)};
    }
    s_table[s_schemaRowCount] = {nullptr, vds_ComponentNone, "UNDEFINED", 0};
    return true;
}
