#pragma once
// The counts that ORXBasSharedPtr and ORXBasWeakPtr share: holders that keep the object alive and
// holders that only watch it. Plain integers: not for use across threads without outside exclusion.
#include "mem_Entries.h"

class ORXBasRefCounter : public mem_AllocationOperators
{
public:
    ORXBasRefCounter(int strongCount, int weakCount) : m_strongCount(strongCount), m_weakCount(weakCount) {}

    int m_strongCount;
    int m_weakCount;
};
