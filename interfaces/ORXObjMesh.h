#pragma once
// The mesh record of a model: a position with one getter and one setter per well-known member
// (nodes, elements, connectivity, coordinates, classifications, user nodes, element classes).
// A getter gives a null position where the member is not set.
#include "ORXSimPosition.h"

class ORXObjMesh : public ORXSimPosition
{
public:
    ORXObjMesh() = default;
    ORXObjMesh(ORXSimPosition const& mesh) : ORXSimPosition(mesh) {}

    // A position on which GetCollection() names the node collection (23, 79).
    ORXSimPosition GetNodeCollection() const;
    // A position on which GetCollection() names the element collection (23, 65).
    ORXSimPosition GetElementCollection() const;
    // A position on which GetDSet() names the connectivity DSet (23, 59).
    ORXSimPosition GetConnectivity() const;
    // A position on which GetDistribution() names the coordinates distribution (23, 121).
    ORXSimPosition GetCoordinates() const;
    ORXSimPosition GetElementClassification() const;                        // (23, 122)
    ORXSimPosition GetElementSpecAssignment() const;                        // (23, 123)
    ORXSimPosition GetShapeFormulationLogicalSectionClassification() const; // (23, 124)
    ORXSimPosition GetUserNodes() const;                                    // (23, 125)
    ORXSimPosition GetElementClassCollection() const;                       // (23, 126)

    void SetNodeCollection(ORXSimPosition const& position);
    void SetElementCollection(ORXSimPosition const& position);
    void SetConnectivity(ORXSimPosition const& position);
    void SetCoordinates(ORXSimPosition const& position);
    void SetElementClassification(ORXSimPosition const& position);
    void SetElementSpecAssignment(ORXSimPosition const& position);
    void SetShapeFormulationLogicalSectionClassification(ORXSimPosition const& position);
    void SetUserNodes(ORXSimPosition const& position);
    void SetElementClassCollection(ORXSimPosition const& position);
};
