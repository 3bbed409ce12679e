#pragma once
// What a drawer covers: its domain (one CSet per dimension), its chunk sizes and the dimension
// that can grow (-1 for none), and how many values it stores.
#include "ORXSimArray.h"
#include "ORXSimOCompartment.h"

class ORXSimDrawerDescription
{
public:
    ORXSimDrawerDescription() = default;
    ORXSimDrawerDescription(ORXSimOCompartment const& domain, ORXSimArray<int> const& chunks,
                            int extendableDim, unsigned long long items)
        : m_domain(domain), m_chunks(chunks), m_extendableDim(extendableDim), m_items(items)
    {
    }
    ORXSimOCompartment const& Domain() const { return m_domain; }
    int NumDimensions() const { return m_domain.Size(); }
    // One size per dimension; none for a drawer made without chunks.
    void ChunkSizes(ORXSimArray<int>& chunks) const { chunks = m_chunks; }
    bool IsChunked() const { return m_chunks.Size() > 0; }
    int ExtendableDim() const { return m_extendableDim; }
    // Values stored for buffer 0; 0 for a drawer not yet written.
    unsigned long long DataSizeItems(int buffer) const { return buffer == 0 ? m_items : 0; }

private:
    ORXSimOCompartment m_domain;
    ORXSimArray<int> m_chunks;
    int m_extendableDim = -1;
    unsigned long long m_items = 0;
};
