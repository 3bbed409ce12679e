#pragma once
// The connectivity of mesh elements: for each element the indices of its nodes in the node
// collection. Elements of different kinds have different numbers of nodes, so the connectivity
// distribution holds one drawer per kind; the object remembers the drawers it made, by kind, for
// the one filling of the mesh that it serves.
#include "ORXSimArray.h"
#include "ORXSimBtree.h"
#include "ORXSimCSet.h"
#include "ORXSimDSetID.h"
#include "ORXSimDrawerID.h"
#include "ORXSimDynamicID.h"
#include "ORXSimPosition.h"
#include "ORXSimTransaction.h"

class ORXSrvElementConnectivity
{
public:
    // An empty object: no drawers, a null connectivity DSet.
    ORXSrvElementConnectivity();
    // Chunk sizes by kind; a kind that is missing has no default and cannot be appended.
    ORXSrvElementConnectivity(ORXSimPosition const& position,
                              ORXSimBtree<ORXSimDynamicID, int> const& chunkSizes);
    // One chunk size, in elements, for every kind.
    ORXSrvElementConnectivity(ORXSimPosition const& position, int chunkSize);

    // Reads elements x locals into buffer, which must hold what the transfer asks for. Returns the
    // number of bytes read.
    int Read(ORXSimCSet const& elements, ORXSimCSet const& locals, int* buffer) const;
    // Writes elements x locals from data into the drawer of kind, making it on the first use of
    // the kind, and brings the DSet's membership up to date. Returns the number of bytes written.
    int Append(ORXSimTransaction& transaction, ORXSimDynamicID const& kind, ORXSimCSetID const& elements,
               ORXSimCSetID const& locals, int const* data);

private:
    int m_chunkSize;
    ORXSimBtree<ORXSimDynamicID, int> m_chunkSizes;
    ORXSimBtree<ORXSimDynamicID, int> m_drawerIndices;
    ORXSimArray<ORXSimDrawerID, ORXSimArrayCopyClassPolicy<ORXSimDrawerID>> m_drawers;
    ORXSimDSetID m_connectivityID;
};
