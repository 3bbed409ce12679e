#include "ORXSrvLabelMapper.h"

#include "ORXBasVector.h"
#include "ORXObjModel.h"
#include "ORXSimCollection.h"
#include "ORXSrvChecks.h"
#include "mem_Entries.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <algorithm>
#include <bit>
#include <cstdint>
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

// The index of the row whose first field is key, -1 if there is none: the row that bsearch of the
// table finds. Where the rows around key hold distinct first fields, row j's field lies at least j
// above the first row's and at least count - 1 - j below the last row's, so key can only stand in a
// window of places that the table's ends give; in a table matched almost whole the window is a row
// or two wide, and the lookup touches one place instead of halving over all of the table. Whether
// the window brackets key is checked against its neighbours, and a key held by several rows is left
// to bsearch itself, whose choice among them stays the one made.
int FindRow(ORXSrvLabelMapperQuad const* rows, int count, int key)
{
    if (count == 0 || key < rows[0].m_first || key > rows[count - 1].m_first)
        return -1;
    long long lo =
        std::max<long long>(0, count - 1 - (static_cast<long long>(rows[count - 1].m_first) - key));
    long long end = std::min<long long>(count, static_cast<long long>(key) - rows[0].m_first + 1);
    if (lo > end || (lo > 0 && rows[lo - 1].m_first >= key) || (end < count && rows[end].m_first < key))
    {
        lo = 0;
        end = count;
    }
    ORXSrvLabelMapperQuad const* const found = std::lower_bound(
        rows + lo, rows + end, key, [](ORXSrvLabelMapperQuad const& row, int k) { return row.m_first < k; });
    int const at = static_cast<int>(found - rows);
    if (at == count || found->m_first != key)
        return -1;
    if (at + 1 < count && found[1].m_first == key)
    {
        void const* const chosen =
            std::bsearch(&key, rows, static_cast<std::size_t>(count), sizeof(ORXSrvLabelMapperQuad),
                         &ORXSrvLabelMapper::IntQuadCompare);
        return static_cast<int>(static_cast<ORXSrvLabelMapperQuad const*>(chosen) - rows);
    }
    return at;
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
        int const row = FindRow(rows, count, buffer[i]);
        if (row >= 0)
            buffer[results++] = result(rows, row);
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
    // and the table is then closed up in order. A bit per place, small enough to stay in cache, says
    // which places are taken. Rows that find their place taken, or that lie outside the collection,
    // go aside and make the table sorted afresh.
    ORXSimCollectionID const collection = GetCollection(m_primary, type == 0 ? Mesh_nodes : Mesh_elements);
    int const space = collection.IsNull() ? 0 : ORXSimCollection(collection).Space();
    ORXSrvLabelMapperQuad* table = NewRows(space);
    std::vector<std::uint64_t> taken((static_cast<std::size_t>(space) + 63) / 64);
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
            std::uint64_t const bit = std::uint64_t(1) << (ordinal & 63);
            if (ordinal >= 0 && ordinal < space && !(taken[ordinal >> 6] & bit))
            {
                taken[ordinal >> 6] |= bit;
                table[ordinal] = rows[r];
            }
            else
                aside.push_back(rows[r]);
            ++n;
        }
        mem_Free(rows);
    }
    int const ntotal = total;
    ORXSrvAssert(n == ntotal);
    // Closing up moves nothing as long as no place was left empty, so whole words of taken places
    // are passed over until the first gap.
    int placed = 0;
    for (std::size_t w = 0; w < taken.size(); ++w)
    {
        int const base = static_cast<int>(w * 64);
        if (taken[w] == ~std::uint64_t(0) && placed == base)
        {
            placed += 64;
            continue;
        }
        for (std::uint64_t bits = taken[w]; bits; bits &= bits - 1)
            table[placed++] = table[base + std::countr_zero(bits)];
    }
    std::vector<std::uint64_t>().swap(taken); // released before a table of the matches is made
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
