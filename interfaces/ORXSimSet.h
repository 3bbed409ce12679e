#pragma once
// A set of records held in a record's member (or a computed set such as ReferrersSet). Handles
// share one state; a set iterates in the order its members were inserted.
#include "ORXSimPosition.h"

class ORXSimSelectionSet;
class ORXSimSetiterator;

class ORXSimSet
{
public:
    ORXSimSet();
    explicit ORXSimSet(ORXSimSelectionSet* repr);
    ORXSimSet(ORXSimSet const& other);
    ORXSimSet& operator=(ORXSimSet const& other);
    ~ORXSimSet();

    ORXSimSetiterator Begin() const;
    bool Empty() const { return Size() == 0; }
    int Size() const;
    // Adds the record; false if it was there already.
    bool Insert(ORXSimPosition const& record);
    bool Contains(ORXSimPosition const& record) const;

private:
    friend class ORXSimSetiterator;
    ORXSimSelectionSet* m_repr;
};

// Walks an ORXSimSet: Begin(), then NotDone(), operator*, operator++.
class ORXSimSetiterator
{
public:
    explicit ORXSimSetiterator(ORXSimSet const& set) : m_set(set) {}
    bool NotDone() const;
    bool Done() const { return !NotDone(); }
    ORXSimPosition operator*() const;
    ORXSimSetiterator& operator++()
    {
        ++m_index;
        return *this;
    }

private:
    ORXSimSet m_set;
    int m_index = 0;
};
