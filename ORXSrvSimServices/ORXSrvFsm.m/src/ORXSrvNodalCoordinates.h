#pragma once
// The nodal coordinates of a mesh: a stateless view over the coordinates distribution, whose
// dimension 0 is the nodes and dimension 1 the coordinate components. Every call goes to the
// database; the object holds identities only.
#include "ORXSimCSet.h"
#include "ORXSimCollectionID.h"
#include "ORXSimDistributionID.h"
#include "ORXSimPosition.h"
#include "ORXSimTransaction.h"

class ORXSrvNodalCoordinates
{
public:
    // An empty view: chunk size 0 and null identities; every operation on it fails.
    ORXSrvNodalCoordinates();
    // A view on the coordinates distribution at position; chunkSize is the number of nodes per
    // chunk of the drawer that a first Append makes.
    ORXSrvNodalCoordinates(ORXSimPosition const& position, int chunkSize);

    // Reads nodes x components into buffer, rows in the order of nodes; places the database does
    // not fill stay 0.0. Returns 0.
    int Read(ORXSimCSet const& nodes, ORXSimCSet const& components, double* buffer) const;
    // Writes nodes x components from data, making the drawer on the first call and extending it
    // over new nodes later. Returns the number of bytes written.
    int Append(ORXSimTransaction& transaction, ORXSimCSetID const& nodes, ORXSimCSetID const& components,
               double const* data);

    // The nodes that have coordinates, and the components stored.
    ORXSimCSet Nodes() const;
    ORXSimCSet Components() const;
    int NumberNodes() const;
    int NumberComponents() const;

private:
    // The union over all drawers of the node dimension, or of the other dimension.
    ORXSimCSet DrawerDimensionUnion(bool nodeDimension) const;

    int m_chunkSize;
    ORXSimCollectionID m_nodeCollectionID;
    ORXSimDistributionID m_distributionID;
};
