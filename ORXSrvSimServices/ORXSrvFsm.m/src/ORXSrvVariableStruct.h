#pragma once
// One row of the variable table: a variable label, the component it selects of its field type, and
// one grid type on which that variable can be stored.
#include "vds_ComponentSymbolsEnm.h"

struct ORXSrvVariableStruct
{
    char const* label;                 // null in the terminator row only
    vds_ComponentSymbolsEnm component; // 38: the whole variable or a scalar
    char const* fieldType;
    int gridType; // vds_CoreFragmentTypeIndex(group, member) of the grid
};
