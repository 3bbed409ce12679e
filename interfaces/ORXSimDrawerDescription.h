#pragma once
// What a drawer covers: its domain (one CSet per dimension), its chunk sizes and the dimension
// that can grow (-1 for none), and how many values it stores. A description never changes once
// made, so copies share one body by reference count and cost no more than a pointer copy.
#include "ORXSimArray.h"
#include "ORXSimOCompartment.h"

class ORXSimDrawerDescription
{
public:
    ORXSimDrawerDescription() = default;
    ORXSimDrawerDescription(ORXSimOCompartment const& domain, ORXSimArray<int> const& chunks,
                            int extendableDim, unsigned long long items);
    ORXSimDrawerDescription(ORXSimDrawerDescription const& other);
    ORXSimDrawerDescription& operator=(ORXSimDrawerDescription const& other);
    ~ORXSimDrawerDescription();

    ORXSimOCompartment const& Domain() const;
    int NumDimensions() const { return Domain().Size(); }
    // One size per dimension; none for a drawer made without chunks.
    void ChunkSizes(ORXSimArray<int>& chunks) const;
    bool IsChunked() const;
    int ExtendableDim() const;
    // Values stored for buffer 0; 0 for a drawer not yet written.
    unsigned long long DataSizeItems(int buffer) const;

private:
    struct Body;
    Body* m_body = nullptr; // null for a default-made description: no domain, no chunks
};
