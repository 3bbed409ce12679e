#include "ORXSrvFieldServices.h"

#include "ORXBasVector.h"
#include "ORXObjDocument.h"
#include "ORXSimCSet.h"
#include "ORXSimCollection.h"
#include "ORXSimDataRecord.h"
#include "ORXSimDistribution.h"
#include "ORXSimGrid.h"
#include "ORXSimRangeType.h"
#include "ORXSimSet.h"
#include "ORXSimTransaction.h"
#include "ORXSimTransfer.h"
#include "ORXSrvVariableMap.h"
#include "vds_CoreFragmentTypeIndex.h"

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

// A schema number of a record type or link, as its (group, member) pair; called for its value.
struct SchemaNumber
{
    int group;
    int member;
    int operator()() const { return vds_CoreFragmentTypeIndex(group, member); }
};

// The record types and links that the field operations read and write.
constexpr SchemaNumber FieldFTable{13, 42};
constexpr SchemaNumber FieldFTable_table{13, 44};
constexpr SchemaNumber FieldFTable_distribution{13, 43};
constexpr SchemaNumber FTable_field{13, 17};
constexpr SchemaNumber Focus_library{15, 9};
constexpr SchemaNumber Library_fieldColumns{16, 6};
constexpr SchemaNumber UniformField_scalar{13, 45};
constexpr SchemaNumber UniformField_array{13, 46};
constexpr SchemaNumber UniformField_vector{13, 47};
constexpr SchemaNumber FieldAssignment_field{50, 11};
constexpr SchemaNumber FieldAssignment_target{50, 12};

// The value type of a field distribution: one double.
ORXSimTypeKey const doubleValue = ORXSimTypeKey(4);

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

bool ORXSrvFieldServices::GetUniformFieldValue(ORXSimPosition const& field, double* values, int count)
{
    if (field.IsNull())
        return false;
    if (field.IsA(UniformField_scalar()))
    {
        field.DataRecord().GetDouble(0, values[0]);
        return true;
    }
    if (field.IsA(UniformField_vector()) || field.IsA(UniformField_array()))
    {
        field.DataRecord().GetDouble(0, values, count);
        return true;
    }
    return false;
}

ORXSimPosition ORXSrvFieldServices::CreateFieldFTable(
    ORXObjDocument const& document, ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> const& labels,
    double* tableData, int tableCount, ORXSimCSet const& targetSet, double* fieldValues, int)
{
    ORXSimTransaction transaction(document.ContextID());
    ORXSimPosition const field = document.CreateDataRecord(FieldFTable()).Pos();

    int const columns = labels.Size();
    int const rows = tableCount / columns;
    ORXBasVector<ORXString> firstLabels;
    firstLabels.push_back(labels[0]);
    ORXBasVector<ORXString> otherLabels;
    for (int i = 1; i < columns; ++i)
        otherLabels.push_back(labels[i]);
    ORXSimFTableID const table = document.GetModel().CreateFTable(FTable_field(), rows, firstLabels,
                                                                  otherLabels, tableData, tableCount);
    field.SetPosition(FieldFTable_table(), ORXSimPosition(table));

    ORXSimCollection const columnCollection(
        document.Focus().GetPosition(Focus_library()).GetPosition(Library_fieldColumns()).GetCollection());
    ORXSimCSetID const columnSet = columnCollection.CreateCSetStrided(0, columns, 1, 1);

    ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> collections(2, 0);
    collections.Get(0) = targetSet.ID().CollectionID();
    collections.Get(1) = columnSet.CollectionID();
    ORXSimDistributionID const distribution =
        document.CreateDistribution(ORXSimGrid(collections), ORXSimRangeType(doubleValue), ORXSimTypeID());

    ORXSimTransfer transfer{ORXSimDistribution(distribution)};
    transfer.SetWrite()
        .SetMakeNewDrawer()
        .SetBufferPadding(false)
        .SetDim(0, targetSet)
        .SetDim(1, columnSet)
        .CheckView();
    transfer.SetBuffer(0, fieldValues, transfer.RequiredBufferSize(0));
    transfer.ExecWrite();
    transfer.RelinquishBuffers();

    field.SetPosition(FieldFTable_distribution(), ORXSimPosition(distribution));
    transaction.Commit();
    return field;
}

ORXSimPosition ORXSrvFieldServices::GetFieldPosition(ORXSimSet const& assignments,
                                                     ORXSimPosition const& target, int member,
                                                     ORXString const& name)
{
    for (ORXSimSetiterator assignment = assignments.Begin(); assignment.NotDone(); ++assignment)
    {
        ORXSimPosition const record = *assignment;
        if (record.DataRecord().ReturnString(0) == name &&
            record.GetPosition(FieldAssignment_target()) == target)
            return record.GetPosition(FieldAssignment_field());
    }
    return target.GetPosition(member);
}
