#pragma once
// What one value of a distribution is: an int (key 2), a double (key 4), or the index of a member
// of a collection (key 7, an int in buffers).
#include "ORXSimCollectionID.h"
#include "ORXSimTypeKey.h"

class ORXSimRangeType
{
public:
    ORXSimRangeType() = default;
    explicit ORXSimRangeType(ORXSimTypeKey key) : m_key(key) {}
    ORXSimRangeType(ORXSimTypeKey key, ORXSimCollectionID const& collection)
        : m_key(key), m_collection(collection)
    {
    }
    ORXSimTypeKey Key() const { return m_key; }
    ORXSimCollectionID Collection() const { return m_collection; }

private:
    ORXSimTypeKey m_key = 4;
    ORXSimCollectionID m_collection;
};
