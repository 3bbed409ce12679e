#pragma once
// Which section assignment of the model covers a set of elements: one answer for a set expected to
// lie within one assignment, or the set split over every assignment that covers part of it. Where
// assignments overlap, the earlier one in the model's order wins.
#include "ORXBasMap.h"
#include "ORXSimPosition.h"

class ORXSrvSectionServices
{
public:
    // The first assignment whose element set holds every element of the position; null if none.
    static ORXSimPosition GetSectionAssignment(ORXSimPosition position);
    // The position's elements split by assignment: each key is a temporary CSet of elements, each
    // value their assignment; the elements of no assignment stand under one key with a null value.
    static ORXBasMap<ORXSimPosition, ORXSimPosition> GetSectionAssignments(ORXSimPosition position);
};
