#pragma once
// An element classification of a mesh: the list of its element classes and the membership DSet,
// one compartment per class pairing the class (index 0) with the CSet of its elements (index 1).
#include "ORXSimPosition.h"

class ORXObjElementClassification : public ORXSimPosition
{
public:
    ORXObjElementClassification() = default;
    ORXObjElementClassification(ORXSimPosition const& classification) : ORXSimPosition(classification) {}

    // Files the class in ElementClassification_elementClasses (23, 12), in filing order.
    void AppendElementClass(ORXSimPosition const& elementClass);
    // Stores the membership DSet under (23, 127) and hands each class its element CSet: for each
    // compartment, the CSet at index 1 goes to the class that index 0 names.
    void SetMembership(ORXSimPosition const& membership);
    ORXSimPosition GetMembership() const;
};
