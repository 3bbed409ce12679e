#pragma once
// Process-wide accumulator of shell-layer data that is written as bulk distributions of the model.
// While a model is built, callers hand it one value at a time per (layer, section); one call of
// WriteBulkDistributions then turns everything into eight distributions over (layer, section) or
// (layer, element) on one bulk shell record of the model. Off unless the environment variable
// "VEL_BULK_SHELL_SECTIONS" is set when the object is made. One object, made by
// omi_Singleton<ORXSrvBulkShellLayers>::Instance() and ended by
// omi_SingletonBase<ORXSrvBulkShellLayers>::Finalize(), which the last ORXSrvFsm_finalize calls.
#include "ORXBasMap.h"
#include "ORXBasPair.h"
#include "ORXBasVector.h"
#include "ORXObjDocument.h"
#include "ORXSimPosition.h"
#include "omi_Singleton.h"

#include <vector>

class ORXSimSet;

class ORXSrvBulkShellLayers : public omi_Singleton<ORXSrvBulkShellLayers>
{
    friend class omi_Singleton<ORXSrvBulkShellLayers>;

public:
    typedef ORXBasVector<ORXBasPair<ORXSimPosition, ORXSimPosition>> FieldList;

    // Each stores the value for (layer, section); the first value given for a pair wins.
    void AppendMaterial(int layer, int section, int value);
    void AppendOrientation(int layer, int section, int value);
    void AppendPly(int layer, int section, int value);
    void AppendNumSectionPoints(int layer, int section, int value);
    void AppendConstThickness(int layer, int section, double value);
    void AppendConstAngle(int layer, int section, double value);
    // Each adds an (element set, table-driven field) pair to the layer's list, in call order.
    void AppendDistThickness(int layer, ORXSimPosition elements, ORXSimPosition field);
    void AppendDistAngle(int layer, ORXSimPosition elements, ORXSimPosition field);

    // Writes everything gathered into the model of the position's document, in one transaction,
    // and empties the maps written. Does nothing when off or when the model has no shell section.
    void WriteBulkDistributions(ORXSimPosition position);
    // Finds or makes the bulk shell record and its collections.
    void Initialize();
    void WriteMaterialDistribution();
    void WriteOrientationDistribution();
    void WritePlyDistribution();
    void WriteSectionPointDistribution();
    void WriteConstThicknessDistribution();
    void WriteConstAngleDistribution();
    void WriteDistThicknessDistribution();
    void WriteDistAngleDistribution();

private:
    ORXSrvBulkShellLayers();

    // The values of the field for the members of the element set, by element; the table's first
    // value stands where the field's drawer has none, and an element already in values keeps its own.
    void ReadFieldData(ORXSimPosition elements, ORXSimPosition field, ORXBasMap<int, double>& values);
    // A meshed-field record over a new distribution of that type, with the named field type, linked
    // from the bulk record; gives the set in which the written drawers are filed.
    ORXSimSet MakeMeshedField(int distributionType, char const* fieldTypeName, int link) const;
    // The constant values of a map over (layer, section), as a meshed field linked from the bulk
    // record; the map is emptied.
    void WriteConstantField(ORXBasMap<int, ORXBasMap<int, double>>& map, char const* fieldTypeName, int link);
    // The values that the fields of a map give each element, over (layer, element), as a meshed
    // field linked from the bulk record; check is shown each drawer's size first. The map is emptied.
    void WriteDistributedField(ORXBasMap<int, FieldList>& map, char const* fieldTypeName, int link,
                               void (*check)(unsigned long long, std::vector<double> const&));

    ORXObjDocument m_document;
    ORXBasMap<int, ORXBasMap<int, int>> m_materials;
    ORXBasMap<int, ORXBasMap<int, int>> m_orientations;
    ORXBasMap<int, ORXBasMap<int, int>> m_plies;
    ORXBasMap<int, ORXBasMap<int, int>> m_sectionPoints;
    ORXBasMap<int, ORXBasMap<int, double>> m_constThicknesses;
    ORXBasMap<int, ORXBasMap<int, double>> m_constAngles;
    ORXBasMap<int, FieldList> m_distThicknesses;
    ORXBasMap<int, FieldList> m_distAngles;
    bool m_active;
    ORXSimPosition m_bulkRecord;
    ORXSimPosition m_layerCollection;
    ORXSimPosition m_sectionCollection;
    ORXSimPosition m_materialCollection;
    ORXSimPosition m_orientationCollection;
    ORXSimPosition m_plyCollection;
};

extern template class omi_SingletonBase<ORXSrvBulkShellLayers>;
extern template class omi_Singleton<ORXSrvBulkShellLayers>;
