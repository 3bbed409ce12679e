#pragma once
// Walks a CSet in its own order: First(), then IsDone(), CurrentValue() (the member),
// CurrentLocation() (its ordinal), Next().
#include "ORXSimCSet.h"

class ORXSimCSetIterator
{
public:
    explicit ORXSimCSetIterator(ORXSimCSet const& set) : m_set(set) {}
    void First() { m_location = 0; }
    bool IsDone() const { return m_location >= m_set.Size(); }
    int CurrentValue() const { return m_set[m_location]; }
    int CurrentLocation() const { return m_location; }
    void Next() { ++m_location; }

private:
    ORXSimCSet m_set;
    int m_location = 0;
};
