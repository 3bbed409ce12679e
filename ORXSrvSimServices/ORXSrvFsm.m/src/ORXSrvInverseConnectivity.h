#pragma once
// The inverse of a mesh's connectivity: for each node, the elements that use it and the node's
// local position in each. The result is a compressed-row structure indexed by node index:
// GetEntries()[GetOffsets()[n]] up to GetEntries()[GetOffsets()[n + 1]] are the entries of node n.
// An entry packs the element index in bits 0 to 24 and the local position in bits 25 to 31; read it
// as unsigned, since a local position of 64 or more makes the word negative as an int.
#include "ORXSimCSet.h"
#include "ORXSimCSetID.h"
#include "ORXSimDistribution.h"
#include "ORXSimPosition.h"

class ORXSrvInverseConnectivity
{
public:
    ORXSrvInverseConnectivity(ORXSimPosition const& mesh);
    // Releases the result. A copy shares the result's arrays, so only one of two copies that hold
    // a result may be destroyed.
    ~ORXSrvInverseConnectivity();

    // Builds the result for all elements of the mesh, replacing the previous one.
    void Invert();
    // Builds the result for the elements of elset, an ascending or empty set.
    void Invert(ORXSimCSetID const& elset);

    // The result as it stands: NumberNodes() + 1 offsets, GetCount() packed entries (null when
    // there are none).
    int const* GetOffsets() const { return m_offsets; }
    int const* GetEntries() const { return m_entries; }
    int GetCount() const { return m_count; }

private:
    // The space of the node collection, by which the offsets are indexed.
    int NumberNodes() const;
    // Adds one to the count of each of the n nodes, in m_offsets, and n to m_count.
    void CountNodes(int const* nodes, int n);
    // Turns the counts of the n nodes into the offsets where their ranges end, with the total at
    // index n.
    void ConvertCountToOffsetArray(int n);
    // Files the entries of rows x nl node indices at their nodes' places, last row first: each
    // node's offset steps back by one per entry, so that once every row is filed, last row first,
    // the offsets are where the ranges begin and each range holds its entries in reading order.
    // elements holds the element index of each row, or is null for rows of the elements
    // firstElement, firstElement + 1, and so on.
    void FileEntries(int const* block, int rows, int nl, int const* elements, int firstElement);
    // Releases the result and leaves the object with no entries.
    void ReleaseResult();
    // Both passes over the drawers; with elset, only over its elements.
    void InvertDrawers(ORXSimCSet const* elset);

    ORXSimPosition m_mesh;
    int* m_offsets;
    int* m_entries;
    int m_count;
};
