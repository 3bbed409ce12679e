#include "ORXSrvShellSection.h"

#include "ORXObjMeshedField.h"
#include "ORXSimCollection.h"
#include "ORXSimDataRecord.h"
#include "ORXSimDistribution.h"
#include "ORXSimSet.h"
#include "ORXSimTransfer.h"
#include "ORXSrvChecks.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <cfloat>
#include <vector>

namespace
{
int const SectionAssignment_section = vds_CoreFragmentTypeIndex(50, 50);
int const SectionAssignment_region = vds_CoreFragmentTypeIndex(50, 49);
int const Region_discreteRegion = vds_CoreFragmentTypeIndex(47, 29);
int const DiscreteRegion_elset = vds_CoreFragmentTypeIndex(47, 1);
int const Model_bulkShellLayers = vds_CoreFragmentTypeIndex(25, 28);
int const BulkShellLayers_sections = vds_CoreFragmentTypeIndex(50, 40);
int const BulkShellLayers_plies = vds_CoreFragmentTypeIndex(50, 39);
int const BulkShellLayers_layers = vds_CoreFragmentTypeIndex(50, 38);
int const Model_orientations = vds_CoreFragmentTypeIndex(26, 7);
int const BulkShellLayers_materials = vds_CoreFragmentTypeIndex(50, 92);
int const BulkShellLayers_orientations = vds_CoreFragmentTypeIndex(50, 94);
int const BulkShellLayers_plyIndices = vds_CoreFragmentTypeIndex(50, 95);
int const BulkShellLayers_sectionPoints = vds_CoreFragmentTypeIndex(50, 93);
int const BulkShellLayers_constThicknesses = vds_CoreFragmentTypeIndex(50, 89);
int const BulkShellLayers_constAngles = vds_CoreFragmentTypeIndex(50, 88);
int const BulkShellLayers_distThicknesses = vds_CoreFragmentTypeIndex(50, 91);
int const BulkShellLayers_distAngles = vds_CoreFragmentTypeIndex(50, 90);

using DrawerDescArray =
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>;

// Reads the (layers, section) view of the distribution into values, bytes long.
void ReadSectionView(ORXSimDistributionID const& distribution, ORXSimCSet const& layers,
                     ORXSimCSet const& section, void* values, unsigned long long bytes)
{
    ORXSimTransfer transfer{ORXSimDistribution(distribution)};
    transfer.SetRead().SetBufferPadding(false).SetDim(0, layers).SetDim(1, section).CheckView();
    transfer.SetBuffer(0, values, bytes);
    transfer.ExecRead();
    transfer.RelinquishBuffers();
}

// The drawers of a distribution; none for a field that has no distribution yet.
DrawerDescArray Drawers(ORXSimDistributionID const& distribution)
{
    DrawerDescArray drawers(1, 0);
    if (!distribution.IsNull())
        ORXSimDistribution(distribution).QueryDrawers(drawers);
    return drawers;
}
} // namespace

ORXSrvShellSection::ORXSrvShellSection(ORXSimPosition const& assignment)
    : m_assignment(assignment), m_document(assignment), m_numLayers(0), m_materialsRead(false),
      m_orientationsRead(false), m_pliesRead(false), m_sectionPointsRead(false)
{
    ORXSimPosition const section = m_assignment.GetPosition(SectionAssignment_section);
    ORXSimPosition const region = m_assignment.GetPosition(SectionAssignment_region);
    ORXSimPosition const discreteRegion = *region.GetSet(Region_discreteRegion).Begin();
    m_elementCSet = ORXSimCSet(discreteRegion.GetPosition(DiscreteRegion_elset).GetCSet());
    section.DataRecord().GetInt(0, m_numLayers);
    if (m_numLayers == 0)
    {
        m_materialsRead = m_orientationsRead = m_pliesRead = m_sectionPointsRead = true;
        return;
    }
    ORXSimPosition const bulk = BulkRecord();
    ORXSimCollectionID const sections = bulk.GetPosition(BulkShellLayers_sections).GetCollection();
    ORXSimCollectionID const layers = bulk.GetPosition(BulkShellLayers_layers).GetCollection();
    int const index = m_document.GetCMemberIndex(section);
    // A section or layers beyond what the bulk collections hold have nothing stored: the views stay
    // empty and nothing is read for them.
    if (!sections.IsNull() && !layers.IsNull() && index >= 0 && index < ORXSimCollection(sections).Space() &&
        m_numLayers <= ORXSimCollection(layers).Space())
    {
        m_layerCSet = ORXSimCSet(ORXSimCollection(layers).CreateTempCSetStrided(0, m_numLayers, 1, 1));
        m_sectionCSet = ORXSimCSet(ORXSimCollection(sections).CreateTempCSet(&index, 1, false));
    }
    UpdateThicknesses();
    UpdateRotationAngles();
}

ORXSrvShellSection::~ORXSrvShellSection() = default;

ORXSimPosition ORXSrvShellSection::BulkRecord() const
{
    return m_document.GetModel().GetPosition(Model_bulkShellLayers);
}

bool ORXSrvShellSection::ReadLayerInts(int link, int* values) const
{
    ORXSimPosition const bulk = BulkRecord();
    if (bulk.IsNull() || m_sectionCSet.IsEmpty())
        return false;
    ORXSimPosition const record = bulk.GetPosition(link);
    if (record.IsNull())
        return false;
    ORXSimDistributionID const distribution = record.GetDistribution();
    if (Drawers(distribution).Size() == 0)
        return false;
    ReadSectionView(distribution, m_layerCSet, m_sectionCSet, values, m_numLayers * sizeof(int));
    return true;
}

void ORXSrvShellSection::ReadRecords(ORXSimPosition const& collection, int link,
                                     ORXBasVector<ORXSimPosition>& records) const
{
    records = ORXBasVector<ORXSimPosition>(m_numLayers);
    if (collection.IsNull())
        return;
    std::vector<int> indices(m_numLayers, -1);
    if (!ReadLayerInts(link, indices.data()))
        return;
    for (int layer = 0; layer < m_numLayers; ++layer)
        if (indices[layer] != -1)
            records[layer] = m_document.GetRecord(collection.GetCollection(), indices[layer]);
}

ORXBasVector<ORXSimPosition> const& ORXSrvShellSection::GetMaterials() const
{
    if (!m_materialsRead)
    {
        m_materialsRead = true;
        ReadRecords(m_document.GetMaterialCollection(), BulkShellLayers_materials, m_materials);
    }
    return m_materials;
}

ORXBasVector<ORXSimPosition> const& ORXSrvShellSection::GetOrientations() const
{
    if (!m_orientationsRead)
    {
        m_orientationsRead = true;
        ReadRecords(m_document.GetModel().GetPosition(Model_orientations), BulkShellLayers_orientations,
                    m_orientations);
    }
    return m_orientations;
}

ORXBasVector<ORXSimPosition> const& ORXSrvShellSection::GetPlies() const
{
    if (!m_pliesRead)
    {
        m_pliesRead = true;
        ReadRecords(BulkRecord().GetPosition(BulkShellLayers_plies), BulkShellLayers_plyIndices, m_plies);
    }
    return m_plies;
}

ORXBasVector<int> const& ORXSrvShellSection::GetSectionPoints() const
{
    if (!m_sectionPointsRead)
    {
        m_sectionPointsRead = true;
        m_sectionPoints = ORXBasVector<int>(m_numLayers);
        std::vector<int> points(m_numLayers, -1);
        if (ReadLayerInts(BulkShellLayers_sectionPoints, points.data()))
            for (int layer = 0; layer < m_numLayers; ++layer)
                m_sectionPoints[layer] = points[layer];
    }
    return m_sectionPoints;
}

ORXBasVector<double> const& ORXSrvShellSection::GetConstThicknesses() const
{
    return m_constThicknesses;
}

ORXBasVector<double> const& ORXSrvShellSection::GetConstRotationAngles() const
{
    return m_constRotationAngles;
}

ORXBasVector<ORXSrvShellSection::VariationEnm> const& ORXSrvShellSection::GetThicknessVariation() const
{
    return m_thicknessVariation;
}

ORXBasVector<ORXSrvShellSection::VariationEnm> const& ORXSrvShellSection::GetRotationAngleVariation() const
{
    return m_rotationAngleVariation;
}

void ORXSrvShellSection::UpdateThicknesses()
{
    UpdateVariation(BulkShellLayers_distThicknesses, BulkShellLayers_constThicknesses, m_thicknessVariation,
                    m_constThicknesses);
}

void ORXSrvShellSection::UpdateRotationAngles()
{
    UpdateVariation(BulkShellLayers_distAngles, BulkShellLayers_constAngles, m_rotationAngleVariation,
                    m_constRotationAngles);
}

void ORXSrvShellSection::UpdateVariation(int distributedLink, int constantLink,
                                         ORXBasVector<VariationEnm>& variation,
                                         ORXBasVector<double>& constants) const
{
    variation = ORXBasVector<VariationEnm>(m_numLayers, VariationNone);
    constants = ORXBasVector<double>(m_numLayers, -DBL_MAX);
    ORXSimPosition const bulk = BulkRecord();
    if (bulk.IsNull())
        return;

    ORXSimPosition const distributed = bulk.GetPosition(distributedLink);
    if (!distributed.IsNull())
    {
        DrawerDescArray const drawers = Drawers(ORXObjMeshedField(distributed).GetDistribution());
        // A distributed record without drawers hides the constants too.
        if (drawers.Size() == 0)
            return;
        for (int d = 0; d < drawers.Size(); ++d)
        {
            ORXSimCSet const& layer = drawers[d].Domain().CSet(0);
            ORXSrvThrowCheck(layer.Size() == 1);
            if (layer[0] < m_numLayers &&
                drawers[d].Domain().CSet(1).Intersection(m_elementCSet).Size() == m_elementCSet.Size())
                variation[layer[0]] = VariationDistributed;
        }
    }

    ORXSimPosition const constant = bulk.GetPosition(constantLink);
    if (constant.IsNull() || m_sectionCSet.IsEmpty())
        return;
    ORXSimDistributionID const distribution = ORXObjMeshedField(constant).GetDistribution();
    if (Drawers(distribution).Size() == 0)
        return;
    ReadSectionView(distribution, m_layerCSet, m_sectionCSet, constants.begin(),
                    m_numLayers * sizeof(double));
    for (int layer = 0; layer < m_numLayers; ++layer)
        if (constants[layer] != -DBL_MAX)
            variation[layer] = VariationConstant;
}
