#include "ORXSrvShellSectionPoints.h"

#include "ORXSimCSet.h"
#include "ORXSimDataRecord.h"
#include "ORXSimDistribution.h"
#include "ORXSimTransfer.h"
#include "ORXSimVector.h"
#include "ORXSrvChecks.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <vector>

namespace
{
int const Model_bulkShellLayers = vds_CoreFragmentTypeIndex(25, 28);
int const Model_sectionAssignments = vds_CoreFragmentTypeIndex(25, 26);
int const SectionAssignment_section = vds_CoreFragmentTypeIndex(50, 50);
int const ShellSection = vds_CoreFragmentTypeIndex(50, 79);
int const ShellSection_layers = vds_CoreFragmentTypeIndex(50, 85);
int const SectionLayerPoints = vds_CoreFragmentTypeIndex(21, 104);
int const BulkShellLayers_sectionPoints = vds_CoreFragmentTypeIndex(50, 93);

using DrawerDescArray =
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>;
} // namespace

ORXSrvShellSectionPoints::ORXSrvShellSectionPoints(ORXObjDocument document)
    : m_document(document), m_mapBuilt(false)
{
}

int ORXSrvShellSectionPoints::GetNumSectionPoints(ORXSimPosition section, int layer) const
{
    if (!m_mapBuilt)
    {
        UpdateMap();
        m_mapBuilt = true;
    }
    auto const layers = m_points.find(section);
    if (layers == m_points.end())
        return 0;
    auto const found = layers->second.find(layer);
    return found == layers->second.end() ? 0 : found->second;
}

void ORXSrvShellSectionPoints::AddPoints(ORXSimPosition section, int layer, int points) const
{
    auto const layers = m_points.find(section);
    if (layers != m_points.end())
    {
        layers->second.Insert(layer, points);
        return;
    }
    ORXBasMap<int, int> counts;
    counts.Insert(layer, points);
    m_points.Insert(section, counts);
}

void ORXSrvShellSectionPoints::UpdateMap() const
{
    if (m_mapBuilt)
        return;
    ORXSimPosition const model = m_document.GetModel();
    ORXSimPosition const bulk = model.GetPosition(Model_bulkShellLayers);
    if (bulk.IsNull())
    {
        ORXSimVector const assignments = model.GetVector(Model_sectionAssignments);
        for (int i = 0; i < assignments.Size(); ++i)
        {
            ORXSimPosition const section = assignments.At(i).GetPosition(SectionAssignment_section);
            if (!section.IsA(ShellSection))
                continue;
            ORXSimVector const layers = section.GetVector(ShellSection_layers);
            for (int counter = 0; counter < layers.Size(); ++counter)
            {
                ORXSimPosition const layer = layers.At(counter);
                if (!layer.IsA(SectionLayerPoints))
                    continue;
                int value = 0;
                layer.DataRecord().GetInt(0, value);
                AddPoints(section, counter, value);
            }
        }
        return;
    }

    ORXSimPosition const record = bulk.GetPosition(BulkShellLayers_sectionPoints);
    if (record.IsNull())
        return;
    ORXSimDistribution const distribution(record.GetDistribution());
    DrawerDescArray drawers(1, 0);
    distribution.QueryDrawers(drawers);
    for (int d = 0; d < drawers.Size(); ++d)
    {
        ORXSimCSet const& layer = drawers[d].Domain().CSet(0);
        ORXSimCSet const& sectionCSet = drawers[d].Domain().CSet(1);
        ORXSrvThrowCheck(layer.Size() == 1);
        int const n = sectionCSet.Size();
        std::vector<int> buffer(n, 0);
        ORXSimTransfer transfer(distribution);
        transfer.SetRead().SetDrawer(drawers[d].DrawerID()).SetBufferPadding(false);
        transfer.SetDim(0, layer).SetDim(1, sectionCSet).CheckView();
        transfer.SetBuffer(0, buffer.data(), n * sizeof(int));
        transfer.ExecRead();
        transfer.RelinquishBuffers();
        for (int j = 0; j < n; ++j)
            AddPoints(m_document.GetRecord(sectionCSet.CollectionID(), sectionCSet[j]), layer[0], buffer[j]);
    }
}
