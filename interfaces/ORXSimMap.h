#pragma once
// A name-keyed map of records held in a record's member. Handles share one state; iteration is
// in key order (byte order of the UTF-8 keys).
#include "ORXSimPosition.h"

class ORXSimSelectionMap;
class ORXSimMapiterator;

class ORXSimMap
{
public:
    ORXSimMap();
    explicit ORXSimMap(ORXSimSelectionMap* repr);
    ORXSimMap(ORXSimMap const& other);
    ORXSimMap& operator=(ORXSimMap const& other);
    ~ORXSimMap();

    ORXSimMapiterator Begin() const;
    int Size() const;
    // The record under that key; a null position if there is none.
    ORXSimPosition Find(ORXString const& key) const;
    // Adds the entry, replacing an entry of the same key.
    void Insert(ORXString const& key, ORXSimPosition const& value);

private:
    friend class ORXSimMapiterator;
    ORXSimSelectionMap* m_repr;
};

// Walks an ORXSimMap in key order: Begin(), then NotDone(), Key()/Value(), operator++.
class ORXSimMapiterator
{
public:
    explicit ORXSimMapiterator(ORXSimMap const& map);
    bool NotDone() const { return m_valid; }
    bool Done() const { return !m_valid; }
    ORXString Key() const { return m_key; }
    ORXSimPosition Value() const { return m_value; }
    ORXSimPosition operator*() const { return m_value; }
    ORXSimMapiterator& operator++();

private:
    ORXSimMap m_map;
    ORXString m_key;
    ORXSimPosition m_value;
    bool m_valid = false;
};
