#include "ORXSimDrawerDescription.h"

struct ORXSimDrawerDescription::Body
{
    int refCount;
    ORXSimOCompartment domain;
    ORXSimArray<int> chunks;
    int extendableDim;
    unsigned long long items;
};

namespace
{
ORXSimOCompartment const& NoDomain()
{
    static ORXSimOCompartment const none;
    return none;
}
} // namespace

ORXSimDrawerDescription::ORXSimDrawerDescription(ORXSimOCompartment const& domain,
                                                 ORXSimArray<int> const& chunks, int extendableDim,
                                                 unsigned long long items)
    : m_body(new Body{1, domain, chunks, extendableDim, items})
{
}

ORXSimDrawerDescription::ORXSimDrawerDescription(ORXSimDrawerDescription const& other) : m_body(other.m_body)
{
    if (m_body)
        ++m_body->refCount;
}

ORXSimDrawerDescription& ORXSimDrawerDescription::operator=(ORXSimDrawerDescription const& other)
{
    // Taking the new body first makes assigning a description to itself harmless.
    Body* const old = m_body;
    m_body = other.m_body;
    if (m_body)
        ++m_body->refCount;
    if (old && --old->refCount == 0)
        delete old;
    return *this;
}

ORXSimDrawerDescription::~ORXSimDrawerDescription()
{
    if (m_body && --m_body->refCount == 0)
        delete m_body;
}

ORXSimOCompartment const& ORXSimDrawerDescription::Domain() const
{
    return m_body ? m_body->domain : NoDomain();
}

void ORXSimDrawerDescription::ChunkSizes(ORXSimArray<int>& chunks) const
{
    chunks = m_body ? m_body->chunks : ORXSimArray<int>();
}

bool ORXSimDrawerDescription::IsChunked() const
{
    return m_body && m_body->chunks.Size() > 0;
}

int ORXSimDrawerDescription::ExtendableDim() const
{
    return m_body ? m_body->extendableDim : -1;
}

unsigned long long ORXSimDrawerDescription::DataSizeItems(int buffer) const
{
    return m_body && buffer == 0 ? m_body->items : 0;
}
