#pragma once
// Degree-of-freedom numbers (1 to 6) and component numbers (1 to 3) turned into the symbol records
// of a document that stand for them, and back, by a fixed table.
#include "ORXObjDocument.h"
#include "ORXSimPosition.h"

// The degree-of-freedom type record of number 1 to 6; another number asks for an empty name.
ORXSimPosition ORXSrvGetDofRecordFromDofNumber(ORXObjDocument const& document, int dofNumber);
// The component record of component number 1 to 3; the null position for any other number.
ORXSimPosition ORXSrvGetComponentRecordFromDofNumber(ORXObjDocument const& document, int dofNumber);
// The number of a degree-of-freedom record; -1 for a symbol outside the table.
int ORXSrvGetDofNumberFromDofRecord(ORXSimPosition const& record);
// The number of a component record; 1 for a name outside the table.
int ORXSrvGetComponentNumberFromComponentRecord(ORXSimPosition const& record);
// A temporary set of the component collection holding the record's component number.
ORXSimPosition ORXSrvGetComponentCSetFromComponentRecord(ORXObjDocument const& document,
                                                         ORXSimPosition const& record);
