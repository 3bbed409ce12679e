#pragma once
// The two minor numbers of an identity; both -1 in the null form.
#include "ORXSimIDMinor.h"

class ORXSimDynamicDataID
{
public:
    ORXSimDynamicDataID() = default;
    ORXSimDynamicDataID(ORXSimIDMinor minor1, ORXSimIDMinor minor2) : m_minor1(minor1), m_minor2(minor2) {}
    ORXSimIDMinor Minor1() const { return m_minor1; }
    ORXSimIDMinor Minor2() const { return m_minor2; }

private:
    ORXSimIDMinor m_minor1;
    ORXSimIDMinor m_minor2;
};
