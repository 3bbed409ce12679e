#include "ORXSimGrid.h"

using ORXSimGridCollections = ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>>;

struct ORXSimGrid::Body
{
    int refCount;
    ORXSimGridCollections collections;
};

ORXSimGrid::ORXSimGrid(ORXSimGridCollections const& collections) : m_body(new Body{1, collections}) {}

ORXSimGrid::ORXSimGrid(ORXSimGrid const& other) : m_body(other.m_body)
{
    if (m_body)
        ++m_body->refCount;
}

ORXSimGrid& ORXSimGrid::operator=(ORXSimGrid const& other)
{
    // Taking the new body first makes assigning a grid to itself harmless.
    Body* const old = m_body;
    m_body = other.m_body;
    if (m_body)
        ++m_body->refCount;
    if (old && --old->refCount == 0)
        delete old;
    return *this;
}

ORXSimGrid::~ORXSimGrid()
{
    if (m_body && --m_body->refCount == 0)
        delete m_body;
}

ORXSimGridCollections const& ORXSimGrid::Collections() const
{
    static ORXSimGridCollections const none;
    return m_body ? m_body->collections : none;
}
