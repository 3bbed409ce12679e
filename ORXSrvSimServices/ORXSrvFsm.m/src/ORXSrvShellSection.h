#pragma once
// Read-side view of one shell section assignment: per layer its material, orientation, ply and
// number of section points (read on first request), its constant thickness and rotation angle, and
// whether each of those two varies not at all, by one constant, or over the assignment's elements.
// The values come from the model's bulk shell distributions over (layer, section).
#include "ORXBasVector.h"
#include "ORXObjDocument.h"
#include "ORXSimCSet.h"
#include "ORXSimPosition.h"

class ORXSrvShellSection
{
public:
    enum VariationEnm
    {
        VariationNone = 0,
        VariationConstant = 1,
        VariationDistributed = 2
    };

    // The argument is a section assignment; thicknesses and angles are read at once.
    explicit ORXSrvShellSection(ORXSimPosition const& assignment);
    ~ORXSrvShellSection();

    ORXBasVector<ORXSimPosition> const& GetMaterials() const;
    ORXBasVector<ORXSimPosition> const& GetOrientations() const;
    ORXBasVector<ORXSimPosition> const& GetPlies() const;
    ORXBasVector<int> const& GetSectionPoints() const;
    // Per layer; -DBL_MAX where the layer has no constant.
    ORXBasVector<double> const& GetConstThicknesses() const;
    ORXBasVector<double> const& GetConstRotationAngles() const;
    // Per layer, the verdicts of the constructor.
    ORXBasVector<VariationEnm> const& GetThicknessVariation() const;
    ORXBasVector<VariationEnm> const& GetRotationAngleVariation() const;

private:
    void UpdateThicknesses();
    void UpdateRotationAngles();
    // Fills a variation and its constants from a distributed and a constant meshed-field link.
    void UpdateVariation(int distributedLink, int constantLink, ORXBasVector<VariationEnm>& variation,
                         ORXBasVector<double>& constants) const;
    // Per layer, the record that the index distribution under link names in the collection.
    void ReadRecords(ORXSimPosition const& collection, int link, ORXBasVector<ORXSimPosition>& records) const;
    // Per layer, the integer the distribution under link holds for this section; false if none is read.
    bool ReadLayerInts(int link, int* values) const;
    ORXSimPosition BulkRecord() const;

    ORXSimPosition m_assignment;
    ORXObjDocument m_document;
    ORXSimCSet m_sectionCSet;
    ORXSimCSet m_layerCSet;
    ORXSimCSet m_elementCSet;
    int m_numLayers;
    mutable ORXBasVector<ORXSimPosition> m_materials;
    mutable ORXBasVector<ORXSimPosition> m_orientations;
    mutable ORXBasVector<ORXSimPosition> m_plies;
    mutable ORXBasVector<int> m_sectionPoints;
    ORXBasVector<double> m_constThicknesses;
    ORXBasVector<double> m_constRotationAngles;
    ORXBasVector<VariationEnm> m_thicknessVariation;
    ORXBasVector<VariationEnm> m_rotationAngleVariation;
    mutable bool m_materialsRead;
    mutable bool m_orientationsRead;
    mutable bool m_pliesRead;
    mutable bool m_sectionPointsRead;
};
