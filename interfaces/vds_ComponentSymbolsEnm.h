#pragma once
// Component symbols of the schema library: which component of a field a label selects. The system
// uses only the numeric values; 38 means no component (the whole variable, or a scalar).
enum vds_ComponentSymbolsEnm : int
{
    vds_ComponentNone = 38
};
