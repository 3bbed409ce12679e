#pragma once
// An ordered list of records held in a record's member. Handles share one state; the order of
// insertion is kept and a record may stand more than once.
#include "ORXSimPosition.h"

class ORXSimSelectionList;
class ORXSimVectoriterator;

class ORXSimVector
{
public:
    ORXSimVector();
    explicit ORXSimVector(ORXSimSelectionList* repr);
    ORXSimVector(ORXSimVector const& other);
    ORXSimVector& operator=(ORXSimVector const& other);
    ~ORXSimVector();

    ORXSimVectoriterator Begin() const;
    int Size() const;
    ORXSimPosition At(int index) const;
    void PushBack(ORXSimPosition const& record);

private:
    ORXSimSelectionList* m_repr;
};

// Walks an ORXSimVector: Begin(), then NotDone(), operator*, operator++.
class ORXSimVectoriterator
{
public:
    explicit ORXSimVectoriterator(ORXSimVector const& vector) : m_vector(vector) {}
    bool NotDone() const { return m_index < m_vector.Size(); }
    bool Done() const { return !NotDone(); }
    ORXSimPosition operator*() const { return m_vector.At(m_index); }
    ORXSimVectoriterator& operator++()
    {
        ++m_index;
        return *this;
    }

private:
    ORXSimVector m_vector;
    int m_index = 0;
};
