#pragma once
// A list of compartments: the body of a DSet.
#include "ORXSimArray.h"
#include "ORXSimCompartment.h"

class ORXSimCtation
{
public:
    ORXSimCtation() = default;
    explicit ORXSimCtation(
        ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> const& compartments)
        : m_compartments(compartments)
    {
    }
    int NumCompartments() const { return m_compartments.Size(); }
    ORXSimCompartment const& operator[](int index) const { return m_compartments[index]; }
    ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> const& Compartments() const
    {
        return m_compartments;
    }

private:
    ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> m_compartments;
};
