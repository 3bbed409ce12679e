#include "ORXSrvLabelMapper.h"

#include "ORXBasVector.h"
#include "ORXObjModel.h"
#include "ORXSimCollection.h"
#include "ORXSrvChecks.h"
#include "mem_Entries.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace
{
int const Document_model = vds_CoreFragmentTypeIndex(25, 1);
int const Mesh_nodes = vds_CoreFragmentTypeIndex(23, 79);
int const Mesh_elements = vds_CoreFragmentTypeIndex(23, 65);

ORXSrvLabelMapperQuad* NewRows(int count)
{
    return static_cast<ORXSrvLabelMapperQuad*>(mem_OperatorNewTinyThrow(
        static_cast<std::size_t>(count > 0 ? count : 0) * sizeof(ORXSrvLabelMapperQuad)));
}

void SortRows(ORXSrvLabelMapperQuad* rows, int count)
{
    std::sort(rows, rows + count,
              [](ORXSrvLabelMapperQuad const& a, ORXSrvLabelMapperQuad const& b)
              { return a.m_first < b.m_first; });
}

// The results of a set walked against the table: the row's index, or its secondary ordinal, for
// each member with a counterpart, in the set's own order, written over the members read.
template <class Result>
int ResolveMembers(ORXSrvLabelMapperQuad* rows, int count, ORXSimCSet const& set, int* buffer, Result result)
{
    int results = 0;
    int const m = set.Size();
    if (set.IsAscending())
    {
        set.Members(buffer);
        int j = 0;
        for (int i = 0; i < m && j < count; ++i)
        {
            int const member = buffer[i];
            while (j < count)
            {
                if (member == rows[j].m_first)
                {
                    buffer[results++] = result(rows, j);
                    ++j;
                    break;
                }
                if (member < rows[j].m_first)
                    break;
                ++j;
            }
        }
        return results;
    }
    set.OrderedMembers(buffer);
    for (int i = 0; i < m; ++i)
    {
        void const* found = std::bsearch(&buffer[i], rows, static_cast<std::size_t>(count),
                                         sizeof(ORXSrvLabelMapperQuad), &ORXSrvLabelMapper::IntQuadCompare);
        if (found)
            buffer[results++] =
                result(rows, static_cast<int>(static_cast<ORXSrvLabelMapperQuad const*>(found) - rows));
    }
    return results;
}
} // namespace

ORXSrvLabelMapper::ORXSrvLabelMapper(ORXSimPosition const& primary, ORXSimPosition const& secondary)
    : m_primary(primary), m_secondary(secondary), m_nnodes(0), m_nelements(0), m_nodes(nullptr),
      m_elements(nullptr)
{
}

ORXSrvLabelMapper::~ORXSrvLabelMapper()
{
    mem_Free(m_nodes);
    mem_Free(m_elements);
}

void ORXSrvLabelMapper::BuildNodes()
{
    if (!m_nodes)
        m_nodes = RemapBasedOnUserLabels(0, m_nnodes);
}

void ORXSrvLabelMapper::BuildElements()
{
    if (!m_elements)
        m_elements = RemapBasedOnUserLabels(1, m_nelements);
}

int ORXSrvLabelMapper::IntQuadCompare(void const* itemA, void const* itemB)
{
    if (itemA == nullptr)
    {
        ORXSimUttAssert::ReportAssertionFailure("itemA != NULL", ORXSRV_MODULE_PATH, __LINE__);
        ORXSrvRaiseAssertion("itemA != 0", ORXSRV_MODULE_PATH, __LINE__);
        ORXSrvExitAfterAssertion();
    }
    if (itemB == nullptr)
    {
        ORXSimUttAssert::ReportAssertionFailure("itemB != NULL", ORXSRV_MODULE_PATH, __LINE__);
        ORXSrvRaiseAssertion("itemB != 0", ORXSRV_MODULE_PATH, __LINE__);
        ORXSrvExitAfterAssertion();
    }
    int const a = *static_cast<int const*>(itemA);
    int const b = *static_cast<int const*>(itemB);
    return a < b ? -1 : a > b ? 1 : 0;
}

ORXSimCollectionID ORXSrvLabelMapper::GetCollection(ORXSimPosition const& document, int member)
{
    ORXObjModel const model(document.GetPosition(Document_model));
    return model.GetMesh().GetPosition(member).GetCollection();
}

ORXSrvLabelMapperQuad* ORXSrvLabelMapper::ReadLabels(ORXObjLabeler const& labeler, ORXString const& instance,
                                                     int& count)
{
    ORXBasVector<int> labels, ordinals;
    if (labeler.IsInstanceValid(instance))
        labeler.GetInstanceLabelsAndOrdinals(instance, labels, ordinals);
    count = static_cast<int>(labels.size());
    ORXSrvLabelMapperQuad* rows = NewRows(count);
    for (int i = 0; i < count; ++i)
    {
        rows[i].m_first = labels[i];
        rows[i].m_second = ordinals[i];
        rows[i].m_userLabel = labels[i];
    }
    return rows;
}

ORXSrvLabelMapperQuad* ORXSrvLabelMapper::RemapInstanceBasedOnUserLabels(ORXObjLabeler const& primary,
                                                                         ORXObjLabeler const& secondary,
                                                                         ORXString const& instance,
                                                                         int instanceIndex, int& count)
{
    int np = 0, ns = 0;
    ORXSrvLabelMapperQuad* p = ReadLabels(primary, instance, np);
    ORXSrvLabelMapperQuad* s = ReadLabels(secondary, instance, ns);
    count = 0;
    int i = 0, j = 0;
    while (i < np && j < ns)
    {
        if (p[i].m_first == s[j].m_first)
        {
            ORXSrvLabelMapperQuad const row = {p[i].m_second, s[j].m_second, instanceIndex, p[i].m_userLabel};
            p[count++] = row;
            ++i;
            ++j;
        }
        else if (p[i].m_first > s[j].m_first)
            ++j;
        else
            ++i;
    }
    mem_Free(s);
    return p;
}

ORXSrvLabelMapperQuad* ORXSrvLabelMapper::RemapBasedOnUserLabels(ORXObjLabelerType type, int& total)
{
    ORXObjLabeler primary(m_primary.Doc(), type);
    ORXObjLabeler secondary(m_secondary.Doc(), type);
    primary.Read();
    secondary.Read();
    m_instanceNames = primary.Occurrences();

    // The table is sorted by primary ordinal, and each ordinal stands in one occurrence: so every
    // match goes straight to the place of its ordinal in a table as long as the primary collection,
    // and the table is then closed up in order. Rows that find their place taken, or that lie
    // outside the collection, go aside and make the table sorted afresh.
    ORXSimCollectionID const collection = GetCollection(m_primary, type == 0 ? Mesh_nodes : Mesh_elements);
    int const space = collection.IsNull() ? 0 : ORXSimCollection(collection).Space();
    ORXSrvLabelMapperQuad* table = NewRows(space);
    for (int i = 0; i < space; ++i)
        table[i].m_first = -1;
    std::vector<ORXSrvLabelMapperQuad> aside;
    total = 0;
    int n = 0;
    for (int k = 0; k < m_instanceNames.Size(); ++k)
    {
        int matches = 0;
        ORXSrvLabelMapperQuad* rows =
            RemapInstanceBasedOnUserLabels(primary, secondary, m_instanceNames[k], k, matches);
        total += matches;
        for (int r = 0; r < matches; ++r)
        {
            int const ordinal = rows[r].m_first;
            if (ordinal >= 0 && ordinal < space && table[ordinal].m_first < 0)
                table[ordinal] = rows[r];
            else
                aside.push_back(rows[r]);
            ++n;
        }
        mem_Free(rows);
    }
    int const ntotal = total;
    ORXSrvAssert(n == ntotal);
    int placed = 0;
    for (int i = 0; i < space; ++i)
        if (table[i].m_first >= 0)
            table[placed++] = table[i];
    // The kept table holds the matches only: when fewer than the collection's members matched, or
    // some rows went aside, the rows move to a table of exactly that many.
    if (!aside.empty() || placed != space)
    {
        ORXSrvLabelMapperQuad* all = NewRows(ntotal);
        std::memcpy(all, table, sizeof(ORXSrvLabelMapperQuad) * placed);
        mem_Free(table);
        table = all;
        if (!aside.empty())
        {
            std::memcpy(all + placed, aside.data(), sizeof(ORXSrvLabelMapperQuad) * aside.size());
            SortRows(table, ntotal);
        }
    }
    return table;
}

ORXSimCSet ORXSrvLabelMapper::GetCommonPrimarySet(ORXSrvLabelMapperQuad* rows, int count,
                                                  ORXSimCollectionID collection)
{
    std::vector<int> members(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        members[i] = rows[i].m_first;
    return ORXSimCollection(collection).CreateVolatileCSet(members.data(), count, false);
}

ORXSimCSet ORXSrvLabelMapper::GetCommonSecondarySet(ORXSrvLabelMapperQuad* rows, int count,
                                                    ORXSimCollectionID collection)
{
    std::vector<int> members(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        members[i] = rows[i].m_second;
    return ORXSimCollection(collection).CreateVolatileCSet(members.data(), count, false);
}

ORXSimCSet ORXSrvLabelMapper::MapSet(ORXSrvLabelMapperQuad* rows, int count, ORXSimCSetID set,
                                     ORXSimCollectionID targetCollection)
{
    ORXSimCSet const members(set);
    std::vector<int> buffer(static_cast<std::size_t>(members.Size()));
    int const results = ResolveMembers(rows, count, members, buffer.data(),
                                       [](ORXSrvLabelMapperQuad* r, int j) { return r[j].m_second; });
    return ORXSimCollection(targetCollection).CreateVolatileOrderedCSet(buffer.data(), results);
}

ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>>
ORXSrvLabelMapper::GetMappingFromPrimarySet(ORXSrvLabelMapperQuad* rows, int count, ORXSimCSetID set)
{
    ORXSimCSet const members(set);
    std::vector<int> buffer(static_cast<std::size_t>(members.Size()));
    int const results =
        ResolveMembers(rows, count, members, buffer.data(), [](ORXSrvLabelMapperQuad*, int j) { return j; });
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> mapping(results, 0);
    if (results > 0)
        std::memcpy(ORXSimArrayPointer(mapping), buffer.data(), sizeof(int) * results);
    return mapping;
}

ORXSimCSet ORXSrvLabelMapper::GetCommonPrimaryNodeSet()
{
    BuildNodes();
    return GetCommonPrimarySet(m_nodes, m_nnodes, GetCollection(m_primary, Mesh_nodes));
}

ORXSimCSet ORXSrvLabelMapper::GetCommonPrimaryElementSet()
{
    BuildElements();
    return GetCommonPrimarySet(m_elements, m_nelements, GetCollection(m_primary, Mesh_elements));
}

ORXSimCSet ORXSrvLabelMapper::GetCommonSecondaryNodeSet()
{
    BuildNodes();
    return GetCommonSecondarySet(m_nodes, m_nnodes, GetCollection(m_secondary, Mesh_nodes));
}

ORXSimCSet ORXSrvLabelMapper::GetCommonSecondaryElementSet()
{
    BuildElements();
    return GetCommonSecondarySet(m_elements, m_nelements, GetCollection(m_secondary, Mesh_elements));
}

ORXSimCSet ORXSrvLabelMapper::GetSecondaryNodeSet(ORXSimCSetID const& primaryNodeSet)
{
    BuildNodes();
    ORXSimCollectionID const nodeCol = GetCollection(m_secondary, Mesh_nodes);
    // A set that lives on the secondary side already is refused.
    ORXSrvAssert(primaryNodeSet.CollectionID() != nodeCol);
    return MapSet(m_nodes, m_nnodes, primaryNodeSet, nodeCol);
}

ORXSimCSet ORXSrvLabelMapper::GetSecondaryElementSet(ORXSimCSetID const& primaryElementSet)
{
    BuildElements();
    ORXSimCollectionID const elementCol = GetCollection(m_secondary, Mesh_elements);
    ORXSrvAssert(primaryElementSet.CollectionID() != elementCol);
    return MapSet(m_elements, m_nelements, primaryElementSet, elementCol);
}

ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>>
ORXSrvLabelMapper::GetMappingFromPrimaryNodeSet(ORXSimCSetID primarySet)
{
    BuildNodes();
    return GetMappingFromPrimarySet(m_nodes, m_nnodes, primarySet);
}

ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>>
ORXSrvLabelMapper::GetMappingFromPrimaryElementSet(ORXSimCSetID primarySet)
{
    BuildElements();
    return GetMappingFromPrimarySet(m_elements, m_nelements, primarySet);
}

int ORXSrvLabelMapper::GetNodeMappingOrdinalUserLabel(int mappingOrdinal) const
{
    ORXSrvAssert(m_nodes != 0);
    ORXSrvAssert(mappingOrdinal < m_nnodes);
    return m_nodes[mappingOrdinal].m_userLabel;
}

int ORXSrvLabelMapper::GetElementMappingOrdinalUserLabel(int mappingOrdinal) const
{
    ORXSrvAssert(m_elements != 0);
    ORXSrvAssert(mappingOrdinal < m_nelements);
    return m_elements[mappingOrdinal].m_userLabel;
}

ORXString const& ORXSrvLabelMapper::GetNodeMappingOrdinalInstanceName(int mappingOrdinal) const
{
    ORXSrvAssert(m_nodes != 0);
    ORXSrvAssert(mappingOrdinal < m_nnodes);
    return m_instanceNames.ConstGet(m_nodes[mappingOrdinal].m_instance);
}

ORXString const& ORXSrvLabelMapper::GetElementMappingOrdinalInstanceName(int mappingOrdinal) const
{
    ORXSrvAssert(m_elements != 0);
    ORXSrvAssert(mappingOrdinal < m_nelements);
    return m_instanceNames.ConstGet(m_elements[mappingOrdinal].m_instance);
}
