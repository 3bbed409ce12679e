#include "ORXSrvBulkShellLayers.h"

#include "ORXObjMesh.h"
#include "ORXObjModel.h"
#include "ORXSimCSetIterator.h"
#include "ORXSimCollection.h"
#include "ORXSimDataRecord.h"
#include "ORXSimDistribution.h"
#include "ORXSimFTable.h"
#include "ORXSimMap.h"
#include "ORXSimSet.h"
#include "ORXSimTransaction.h"
#include "ORXSimTransfer.h"
#include "ORXSimVector.h"
#include "ORXSrvChecks.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <cstdlib>
#include <vector>

template class omi_SingletonBase<ORXSrvBulkShellLayers>;
template class omi_Singleton<ORXSrvBulkShellLayers>;

namespace
{
int const Model_bulkShellLayers = vds_CoreFragmentTypeIndex(25, 28);
int const Model_sectionAssignments = vds_CoreFragmentTypeIndex(25, 26);
int const Model_orientations = vds_CoreFragmentTypeIndex(26, 7);
int const BulkShellLayers = vds_CoreFragmentTypeIndex(50, 87);
int const BulkShellLayers_sections = vds_CoreFragmentTypeIndex(50, 40);
int const BulkShellLayers_sectionType = vds_CoreFragmentTypeIndex(50, 51);
int const BulkShellLayers_plies = vds_CoreFragmentTypeIndex(50, 39);
int const BulkShellLayers_plyType = vds_CoreFragmentTypeIndex(50, 42);
int const BulkShellLayers_layers = vds_CoreFragmentTypeIndex(50, 38);
int const BulkShellLayers_layerType = vds_CoreFragmentTypeIndex(50, 18);
int const BulkShellLayers_sectionDistribution = vds_CoreFragmentTypeIndex(50, 22);
int const BulkShellLayers_elementDistribution = vds_CoreFragmentTypeIndex(50, 19);
int const BulkShellLayers_materials = vds_CoreFragmentTypeIndex(50, 92);
int const BulkShellLayers_orientations = vds_CoreFragmentTypeIndex(50, 94);
int const BulkShellLayers_plyIndices = vds_CoreFragmentTypeIndex(50, 95);
int const BulkShellLayers_sectionPoints = vds_CoreFragmentTypeIndex(50, 93);
int const BulkShellLayers_constThicknesses = vds_CoreFragmentTypeIndex(50, 89);
int const BulkShellLayers_constAngles = vds_CoreFragmentTypeIndex(50, 88);
int const BulkShellLayers_distThicknesses = vds_CoreFragmentTypeIndex(50, 91);
int const BulkShellLayers_distAngles = vds_CoreFragmentTypeIndex(50, 90);
int const ShellSection = vds_CoreFragmentTypeIndex(50, 79);
int const SectionAssignment_section = vds_CoreFragmentTypeIndex(50, 50);
int const MeshedField = vds_CoreFragmentTypeIndex(13, 68);
int const Focus_fieldTypes = vds_CoreFragmentTypeIndex(13, 51);
int const FieldTypeLib_fieldTypes = vds_CoreFragmentTypeIndex(13, 31);
int const Field_fieldType = vds_CoreFragmentTypeIndex(13, 48);
int const FieldContent = vds_CoreFragmentTypeIndex(13, 77);
int const MeshedField_contents = vds_CoreFragmentTypeIndex(13, 71);
int const FieldContent_distributions = vds_CoreFragmentTypeIndex(13, 79);
int const Field_FTable_table = vds_CoreFragmentTypeIndex(13, 44);
int const Field_FTable_distribution = vds_CoreFragmentTypeIndex(13, 43);

// Stores value under (layer, section) unless the pair has one already.
template <class T> void AppendValue(ORXBasMap<int, ORXBasMap<int, T>>& map, int layer, int section, T value)
{
    auto const found = map.find(layer);
    if (found != map.end())
    {
        found->second.Insert(section, value);
        return;
    }
    ORXBasMap<int, T> inner;
    inner.Insert(section, value);
    map.Insert(layer, inner);
}

void AppendField(ORXBasMap<int, ORXSrvBulkShellLayers::FieldList>& map, int layer,
                 ORXSimPosition const& elements, ORXSimPosition const& field)
{
    ORXSrvBulkShellLayers::FieldList& list =
        map.insert({layer, ORXSrvBulkShellLayers::FieldList()}).first->second;
    list.push_back(ORXBasPair<ORXSimPosition, ORXSimPosition>(elements, field));
}

ORXSimGrid Grid(ORXSimPosition const& layers, ORXSimPosition const& columns)
{
    ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> grid(2, 0);
    grid.Get(0) = layers.GetCollection();
    grid.Get(1) = columns.GetCollection();
    return ORXSimGrid(grid);
}

// One layer's values over (layer, columns): a new drawer, chunked as one layer by all its columns
// and extendable in dimension 1, then one write into it. `check` is shown the size of the write's
// view, in bytes, before anything is written.
template <class T, class Check>
ORXSimDrawerID WriteLayer(ORXSimDistribution const& distribution, int layer, std::vector<int> const& columns,
                          std::vector<T>& values, Check const& check)
{
    ORXSimCollection const layerCollection(distribution.Grid()[0]);
    ORXSimCollection const columnCollection(distribution.Grid()[1]);
    ORXSimCSetID const layerCSet = layerCollection.CreateCSet(&layer, 1, false);
    ORXSimCSetID const columnCSet =
        columnCollection.CreateCSet(columns.data(), static_cast<int>(columns.size()), false);
    ORXSimArray<int> chunks(2, 0);
    chunks.Get(0) = 1;
    chunks.Get(1) = ORXSimCSet(columnCSet).Size();

    ORXSimTransfer make(distribution);
    make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(1);
    make.SetDim(0, layerCSet).SetDim(1, columnCSet).CheckView();
    make.ExecMake();
    ORXSimDrawerID const drawer = make.DrawerID();

    ORXSimTransfer write(distribution);
    write.SetWrite().SetAutoExtend().SetBufferPadding(false).SetDrawer(drawer);
    write.SetDim(0, layerCSet).SetDim(1, columnCSet).CheckView();
    unsigned long long const len = write.RequiredBufferSize(0);
    check(len, values);
    write.SetBuffer(0, values.data(), len);
    write.ExecWrite();
    write.RelinquishBuffers();
    return drawer;
}

// Every layer of the map, in key order, into a drawer of its own; the drawers are filed in `filed`
// when it is given. The layer and section collections grow to hold the indices written.
template <class T, class Check>
void WriteSectionMap(ORXSimDistribution const& distribution, ORXBasMap<int, ORXBasMap<int, T>> const& map,
                     ORXSimSet* filed, Check const& check)
{
    ORXSimCollection const layers(distribution.Grid()[0]);
    ORXSimCollection const sections(distribution.Grid()[1]);
    for (auto const& [layer, bySection] : map)
    {
        std::vector<int> columns;
        std::vector<T> values;
        for (auto const& [section, value] : bySection)
        {
            columns.push_back(section);
            values.push_back(value);
        }
        layers.ExtendSpace(layer + 1);
        if (!columns.empty())
            sections.ExtendSpace(columns.back() + 1);
        ORXSimDrawerID const drawer = WriteLayer(distribution, layer, columns, values, check);
        if (filed)
            filed->Insert(ORXSimPosition(drawer));
    }
}

// The size checks of the writers, each with the names its message shows.
void CheckInts(unsigned long long len, std::vector<int> const& buffer)
{
    // clang-format off
    ORXSrvThrowCheck(len == buffer.size()*sizeof(int));
    // clang-format on
}
void CheckDoubles(unsigned long long len, std::vector<double> const& buffer)
{
    // clang-format off
    ORXSrvThrowCheck(len == buffer.size()*sizeof(double));
    // clang-format on
}
void CheckThicknesses(unsigned long long len, std::vector<double> const& thicknesses)
{
    // clang-format off
    ORXSrvThrowCheck(len == thicknesses.size()*sizeof(double));
    // clang-format on
}
void CheckAngles(unsigned long long len, std::vector<double> const& angles)
{
    // clang-format off
    ORXSrvThrowCheck(len == angles.size()*sizeof(double));
    // clang-format on
}
} // namespace

ORXSrvBulkShellLayers::ORXSrvBulkShellLayers() : m_active(std::getenv("VEL_BULK_SHELL_SECTIONS") != nullptr)
{
}

void ORXSrvBulkShellLayers::AppendMaterial(int layer, int section, int value)
{
    AppendValue(m_materials, layer, section, value);
}

void ORXSrvBulkShellLayers::AppendOrientation(int layer, int section, int value)
{
    AppendValue(m_orientations, layer, section, value);
}

void ORXSrvBulkShellLayers::AppendPly(int layer, int section, int value)
{
    AppendValue(m_plies, layer, section, value);
}

void ORXSrvBulkShellLayers::AppendNumSectionPoints(int layer, int section, int value)
{
    AppendValue(m_sectionPoints, layer, section, value);
}

void ORXSrvBulkShellLayers::AppendConstThickness(int layer, int section, double value)
{
    AppendValue(m_constThicknesses, layer, section, value);
}

void ORXSrvBulkShellLayers::AppendConstAngle(int layer, int section, double value)
{
    AppendValue(m_constAngles, layer, section, value);
}

void ORXSrvBulkShellLayers::AppendDistThickness(int layer, ORXSimPosition elements, ORXSimPosition field)
{
    AppendField(m_distThicknesses, layer, elements, field);
}

void ORXSrvBulkShellLayers::AppendDistAngle(int layer, ORXSimPosition elements, ORXSimPosition field)
{
    AppendField(m_distAngles, layer, elements, field);
}

void ORXSrvBulkShellLayers::WriteBulkDistributions(ORXSimPosition position)
{
    if (!m_active)
        return;
    m_document = ORXObjDocument(position);
    ORXSimVector const assignments = m_document.GetModel().GetVector(Model_sectionAssignments);
    bool hasShellSection = false;
    for (int i = 0; i < assignments.Size() && !hasShellSection; ++i)
        hasShellSection = assignments.At(i).GetPosition(SectionAssignment_section).IsA(ShellSection);
    if (!hasShellSection)
        return;

    ORXSimTransaction transaction(m_document.ContextID());
    Initialize();
    WriteMaterialDistribution();
    WriteOrientationDistribution();
    WritePlyDistribution();
    WriteSectionPointDistribution();
    WriteConstThicknessDistribution();
    WriteConstAngleDistribution();
    WriteDistThicknessDistribution();
    WriteDistAngleDistribution();
    transaction.Commit();
}

void ORXSrvBulkShellLayers::Initialize()
{
    if (!m_active)
        return;
    ORXSimPosition const model = m_document.GetModel();
    m_bulkRecord = model.GetPosition(Model_bulkShellLayers);
    if (m_bulkRecord.IsNull())
    {
        m_bulkRecord = model.CreateDataRecord(BulkShellLayers).Pos();
        model.SetPosition(Model_bulkShellLayers, m_bulkRecord);
    }
    auto collectionOf = [this](int link, int type)
    {
        ORXSimPosition collection = m_bulkRecord.GetPosition(link);
        if (collection.IsNull())
        {
            collection = ORXSimPosition(m_bulkRecord.CreateTypedCollection(1, type));
            m_bulkRecord.SetPosition(link, collection);
        }
        return collection;
    };
    m_sectionCollection = collectionOf(BulkShellLayers_sections, BulkShellLayers_sectionType);
    m_plyCollection = collectionOf(BulkShellLayers_plies, BulkShellLayers_plyType);
    m_layerCollection = collectionOf(BulkShellLayers_layers, BulkShellLayers_layerType);
    m_materialCollection = m_document.GetMaterialCollection();
    m_orientationCollection = model.GetPosition(Model_orientations);
}

namespace
{
// The distribution of an integer map over (layer, section), linked from the bulk record.
void WriteIndexMap(ORXSimPosition const& bulk, ORXSimGrid const& grid, ORXSimRangeType const& range, int link,
                   ORXBasMap<int, ORXBasMap<int, int>>& map)
{
    ORXSimDistribution const distribution(
        bulk.CreateTypedDistribution(grid, BulkShellLayers_sectionDistribution, range));
    WriteSectionMap(distribution, map, nullptr, CheckInts);
    bulk.SetPosition(link, ORXSimPosition(distribution.ID()));
    map.clear();
}
} // namespace

void ORXSrvBulkShellLayers::WriteMaterialDistribution()
{
    if (!m_active || m_materials.empty())
        return;
    WriteIndexMap(m_bulkRecord, Grid(m_layerCollection, m_sectionCollection),
                  ORXSimRangeType(7, m_materialCollection.GetCollection()), BulkShellLayers_materials,
                  m_materials);
}

void ORXSrvBulkShellLayers::WriteOrientationDistribution()
{
    if (!m_active || m_orientations.empty())
        return;
    WriteIndexMap(m_bulkRecord, Grid(m_layerCollection, m_sectionCollection),
                  ORXSimRangeType(7, m_orientationCollection.GetCollection()), BulkShellLayers_orientations,
                  m_orientations);
}

void ORXSrvBulkShellLayers::WritePlyDistribution()
{
    if (!m_active || m_plies.empty())
        return;
    WriteIndexMap(m_bulkRecord, Grid(m_layerCollection, m_sectionCollection),
                  ORXSimRangeType(7, m_plyCollection.GetCollection()), BulkShellLayers_plyIndices, m_plies);
}

void ORXSrvBulkShellLayers::WriteSectionPointDistribution()
{
    if (!m_active || m_sectionPoints.empty())
        return;
    WriteIndexMap(m_bulkRecord, Grid(m_layerCollection, m_sectionCollection), ORXSimRangeType(2),
                  BulkShellLayers_sectionPoints, m_sectionPoints);
}

ORXSimSet ORXSrvBulkShellLayers::MakeMeshedField(int distributionType, char const* fieldTypeName,
                                                 int link) const
{
    ORXSimPosition const field = m_document.CreateDataRecord(MeshedField).Pos();
    field.DataRecord().SetTypeID(0, field.Context().Schema().TypeID(distributionType));
    ORXSimPosition const fieldType =
        m_document.Focus().GetPosition(Focus_fieldTypes).GetMap(FieldTypeLib_fieldTypes).Find(fieldTypeName);
    field.SetPosition(Field_fieldType, fieldType);
    ORXSimPosition const content = m_document.CreateDataRecord(FieldContent).Pos();
    field.GetSet(MeshedField_contents).Insert(content);
    m_bulkRecord.SetPosition(link, field);
    return content.GetSet(FieldContent_distributions);
}

void ORXSrvBulkShellLayers::WriteConstantField(ORXBasMap<int, ORXBasMap<int, double>>& map,
                                               char const* fieldTypeName, int link)
{
    if (!m_active || map.empty())
        return;
    ORXSimDistribution const distribution(
        m_bulkRecord.CreateTypedDistribution(Grid(m_layerCollection, m_sectionCollection),
                                             BulkShellLayers_sectionDistribution, ORXSimRangeType(4)));
    ORXSimSet filed = MakeMeshedField(BulkShellLayers_sectionDistribution, fieldTypeName, link);
    WriteSectionMap(distribution, map, &filed, CheckDoubles);
    map.clear();
}

void ORXSrvBulkShellLayers::WriteDistributedField(ORXBasMap<int, FieldList>& map, char const* fieldTypeName,
                                                  int link,
                                                  void (*check)(unsigned long long,
                                                                std::vector<double> const&))
{
    if (!m_active || map.empty())
        return;
    ORXSimPosition const elements =
        ORXObjMesh(ORXObjModel(m_document.GetModel()).GetMesh()).GetElementCollection();
    ORXSimDistribution const distribution(m_bulkRecord.CreateTypedDistribution(
        Grid(m_layerCollection, elements), BulkShellLayers_elementDistribution, ORXSimRangeType(4)));
    ORXSimSet filed = MakeMeshedField(BulkShellLayers_elementDistribution, fieldTypeName, link);
    ORXBasMap<int, ORXBasMap<int, double>> byElement;
    for (auto const& [layer, fields] : map)
    {
        ORXBasMap<int, double> values;
        for (auto const& pair : fields)
            ReadFieldData(pair.first, pair.second, values);
        byElement.Insert(layer, values);
    }
    WriteSectionMap(distribution, byElement, &filed, check);
    map.clear();
}

void ORXSrvBulkShellLayers::WriteConstThicknessDistribution()
{
    WriteConstantField(m_constThicknesses, "STH", BulkShellLayers_constThicknesses);
}

void ORXSrvBulkShellLayers::WriteConstAngleDistribution()
{
    WriteConstantField(m_constAngles, "ANGLE", BulkShellLayers_constAngles);
}

void ORXSrvBulkShellLayers::WriteDistThicknessDistribution()
{
    WriteDistributedField(m_distThicknesses, "STH", BulkShellLayers_distThicknesses, CheckThicknesses);
}

void ORXSrvBulkShellLayers::WriteDistAngleDistribution()
{
    WriteDistributedField(m_distAngles, "ANGLE", BulkShellLayers_distAngles, CheckAngles);
}

void ORXSrvBulkShellLayers::ReadFieldData(ORXSimPosition elements, ORXSimPosition field,
                                          ORXBasMap<int, double>& values)
{
    ORXSimPosition const table = field.GetPosition(Field_FTable_table);
    if (table.IsNull())
        return;
    double fallback = 0.0;
    ORXSimFTable(table.GetFTable()).GetData(&fallback, 1);
    ORXSimPosition const source = field.GetPosition(Field_FTable_distribution);
    if (source.IsNull())
        return;
    ORXSimDistribution const distribution(source.GetDistribution());
    ORXSimArray<ORXSimDrawerID, ORXSimArrayCopyClassPolicy<ORXSimDrawerID>> drawers;
    distribution.DrawerIDArray(drawers);
    ORXSimCSet const target = elements.CSet();
    std::vector<double> buffer;
    if (drawers.Size() > 0)
    {
        ORXSimCSet const columns = distribution.DrawerDescription(drawers[0]).Domain().CSet(1);
        buffer.assign(static_cast<std::size_t>(target.Size()) * columns.Size(), fallback);
        ORXSimTransfer read(distribution);
        read.SetRead().SetDrawer(drawers[0]).SetBufferPadding(false).SetBufferType(4);
        read.SetDim(0, target).SetDim(1, columns).CheckView();
        read.SetBuffer(0, buffer.data(), buffer.size() * sizeof(double));
        read.ExecRead();
        read.RelinquishBuffers();
    }
    ORXSimCSetIterator member(target);
    for (member.First(); !member.IsDone(); member.Next())
    {
        std::size_t const k = static_cast<std::size_t>(member.CurrentLocation());
        values.Insert(member.CurrentValue(), k < buffer.size() ? buffer[k] : fallback);
    }
}
