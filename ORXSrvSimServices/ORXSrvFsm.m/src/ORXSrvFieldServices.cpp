#include "ORXSrvFieldServices.h"

#include "ORXSrvVariableMap.h"

#include <cstring>

namespace
{

int const anyGridType = -1;

// Byte-wise equality of a row's text with text; a null row text (the terminator) differs from all.
inline bool SameText(char const* rowText, char const* text)
{
    return rowText && rowText[0] == text[0] && std::strcmp(rowText, text) == 0;
}

inline bool MatchesGrid(ORXSrvVariableStruct const& row, int gridType)
{
    return gridType == anyGridType || row.gridType == gridType;
}

inline bool IsNothing(ORXString const& text)
{
    return text.IsNull() || text == "NULL";
}

ORXSrvVariableStruct const* FirstRow()
{
    return &ORXSrvVariableMap::GetEntry(0);
}

// The first row of label, or the terminator.
ORXSrvVariableStruct const* FindLabel(ORXString const& label)
{
    char const* text = label.CStr();
    ORXSrvVariableStruct const* row = FirstRow();
    while (row->label && !SameText(row->label, text))
        ++row;
    return row;
}

// The label of the first row of fieldType with component on gridType (-1: any), or "".
ORXString FindComponentLabel(ORXString const& fieldType, vds_ComponentSymbolsEnm component, int gridType)
{
    char const* text = fieldType.CStr();
    for (ORXSrvVariableStruct const* row = FirstRow(); row->label; ++row)
        if (row->component == component && MatchesGrid(*row, gridType) && SameText(row->fieldType, text))
            return ORXString(row->label);
    return ORXString();
}

} // namespace

int ORXSrvFieldServices::s_gridTypeCursor = 0;

vds_ComponentSymbolsEnm ORXSrvFieldServices::GetComponent(ORXString const& label, bool second)
{
    ORXSrvVariableStruct const* row = FindLabel(label);
    if (!row->label)
        return vds_ComponentNone;
    if (second && SameText(row[1].label, label.CStr()))
        return row[1].component;
    return row->component;
}

int ORXSrvFieldServices::GetGridTypeFromVariableLabel(ORXString const& label, bool next)
{
    char const* text = label.CStr();
    int const start = next ? s_gridTypeCursor : 0;
    s_gridTypeCursor = start + 1;
    for (ORXSrvVariableStruct const* row = &ORXSrvVariableMap::GetEntry(start); row->label;
         row = &ORXSrvVariableMap::GetEntry(s_gridTypeCursor++))
        if (SameText(row->label, text))
            return row->gridType;
    return anyGridType;
}

ORXString ORXSrvFieldServices::GetVariableLabel(ORXString const& fieldType, int gridType)
{
    if (IsNothing(fieldType))
        return ORXString("UNDEFINED");
    return FindComponentLabel(fieldType, vds_ComponentNone, gridType);
}

ORXString ORXSrvFieldServices::GetComponentLabel(ORXString const& fieldType,
                                                 vds_ComponentSymbolsEnm component, int gridType)
{
    return FindComponentLabel(fieldType, component, gridType);
}

ORXString ORXSrvFieldServices::GetFieldType(ORXString const& label)
{
    if (IsNothing(label))
        return ORXString("UNDEFINED");
    ORXSrvVariableStruct const* row = FindLabel(label);
    return ORXString(row->label ? row->fieldType : "UNDEFINED");
}

ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>>
ORXSrvFieldServices::GetComponents(ORXString const& label)
{
    ORXSrvVariableStruct const* first = FindLabel(label);
    char const* fieldType = first->label ? first->fieldType : "";
    int const gridType = first->label ? first->gridType : anyGridType;

    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> components;
    for (ORXSrvVariableStruct const* row = FirstRow(); row->label; ++row)
        if (row->gridType == gridType && row->component != vds_ComponentNone &&
            SameText(row->fieldType, fieldType))
            components.PushBack(ORXString(row->label));
    return components;
}
