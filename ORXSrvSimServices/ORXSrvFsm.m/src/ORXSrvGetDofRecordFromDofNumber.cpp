#include "ORXSrvGetDofRecordFromDofNumber.h"

#include "ORXSimCollection.h"
#include "omi_Btree.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <cstring>

namespace
{
int const DofType_symbol = vds_CoreFragmentTypeIndex(24, 2);
int const ComponentRecord = vds_CoreFragmentTypeIndex(13, 5);

struct Symbol
{
    char const* name;
    int position;
};
Symbol const kDofs[] = {{"DISPLACEMENT_1", 2},   {"DISPLACEMENT_2", 3},    {"DISPLACEMENT_3", 4},
                        {"ROTATION_ANGLE_1", 9}, {"ROTATION_ANGLE_2", 10}, {"ROTATION_ANGLE_3", 11}};
Symbol const kComponents[] = {{"C_1", 0}, {"C_2", 12}, {"C_3", 20}};

// The number (1-based) of a symbol position in a table; -1 if it is not listed.
template <std::size_t N> int NumberOfPosition(Symbol const (&table)[N], int position)
{
    for (std::size_t i = 0; i < N; ++i)
        if (table[i].position == position)
            return static_cast<int>(i) + 1;
    return -1;
}
} // namespace

ORXSimPosition ORXSrvGetDofRecordFromDofNumber(ORXObjDocument const& document, int dofNumber)
{
    char const* name = dofNumber >= 1 && dofNumber <= 6 ? kDofs[dofNumber - 1].name : "";
    ORXSimCollectionID const collection = document.GetDofTypeCollection().GetCollection();
    return ORXSimPosition(document.GetSymbol(DofType_symbol, name, collection));
}

ORXSimPosition ORXSrvGetComponentRecordFromDofNumber(ORXObjDocument const& document, int dofNumber)
{
    if (dofNumber < 1 || dofNumber > 3)
        return ORXSimPosition(omi_BtreeValue<ORXSimDynamicID>::NullValue());
    ORXSimCollectionID const collection = document.GetComponentCollection().GetCollection();
    return ORXSimPosition(document.GetSymbol(ComponentRecord, kComponents[dofNumber - 1].name, collection));
}

int ORXSrvGetDofNumberFromDofRecord(ORXSimPosition const& record)
{
    return NumberOfPosition(kDofs, record.GetSymbolPosition());
}

int ORXSrvGetComponentNumberFromComponentRecord(ORXSimPosition const& record)
{
    ORXString const name = record.GetSymbolName();
    for (int i = 0; i < 3; ++i)
        if (std::strncmp(name.CStr(), kComponents[i].name, 4) == 0)
            return i + 1;
    return 1;
}

ORXSimPosition ORXSrvGetComponentCSetFromComponentRecord(ORXObjDocument const& document,
                                                         ORXSimPosition const& record)
{
    int const member = NumberOfPosition(kComponents, record.GetSymbolPosition());
    ORXSimCollection const components(document.GetComponentCollection().GetCollection());
    return ORXSimPosition(components.CreateTempOrderedCSet(&member, 1));
}
