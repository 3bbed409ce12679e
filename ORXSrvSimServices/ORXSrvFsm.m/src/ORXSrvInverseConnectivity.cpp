#include "ORXSrvInverseConnectivity.h"

#include "ORXSimArray.h"
#include "ORXSimCollection.h"
#include "ORXSimDSet.h"
#include "ORXSimTransfer.h"
#include "ORXSrvChecks.h"
#include "mem_Entries.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <cstdint>
#include <cstring>

namespace
{
using DrawerDescArray =
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>;
using CSetIDArray = ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>>;

constexpr unsigned int elementMask = 0x1ffffff;
constexpr int localShift = 25;

// An identity for the members that elset shares with a drawer's elements, a registered one if the
// collection has it, a temporary one otherwise; a null identity if they share nothing.
ORXSimCSetID SelectedElements(ORXSimCSet const& elset, ORXSimCSet const& drawerElements)
{
    ORXSimCSet common = elset.Intersection(drawerElements);
    int count = common.Size();
    if (count == 0)
        return ORXSimCSetID();
    ORXSimCollection collection(elset.CollectionID());
    ORXSimCSetID id = collection.SeekCSet(common, false);
    if (id.IsNull())
    {
        int* members = static_cast<int*>(mem_Malloc(count * sizeof(int)));
        common.Members(members);
        id = collection.CreateTempCSet(members, count, false);
        mem_Free(members);
    }
    return id;
}
} // namespace

ORXSrvInverseConnectivity::ORXSrvInverseConnectivity(ORXSimPosition const& mesh)
    : m_mesh(mesh), m_offsets(nullptr), m_entries(nullptr), m_count(0)
{
}

ORXSrvInverseConnectivity::~ORXSrvInverseConnectivity()
{
    ReleaseResult();
}

void ORXSrvInverseConnectivity::Invert()
{
    ReleaseResult();
    InvertDrawers(nullptr);
}

void ORXSrvInverseConnectivity::Invert(ORXSimCSetID const& elsetID)
{
    ReleaseResult();
    ORXSimCSet elset(elsetID);
    ORXSrvAssert(elset.IsAscending() || elset.Size() == 0);
    InvertDrawers(&elset);
}

void ORXSrvInverseConnectivity::ReleaseResult()
{
    // The pointers are cleared as well, so that a result that is not rebuilt, over an empty
    // connectivity or after a failed check, is never released twice.
    m_count = 0;
    mem_Free(m_offsets);
    mem_Free(m_entries);
    m_offsets = nullptr;
    m_entries = nullptr;
}

void ORXSrvInverseConnectivity::InvertDrawers(ORXSimCSet const* elset)
{
    int nn = NumberNodes();
    m_offsets = static_cast<int*>(mem_Malloc((nn + 1) * sizeof(int)));
    std::memset(m_offsets, 0, (nn + 1) * sizeof(int));

    ORXSimDSet connectivity(m_mesh.GetPosition(vds_CoreFragmentTypeIndex(23, 59)).GetDSet());
    if (connectivity.IsEmpty())
        return;

    ORXSimDistribution distribution(connectivity.GetRelationalDistributionID());
    DrawerDescArray drawers;
    distribution.QueryDrawers(drawers);
    int nd = drawers.Size();
    int** blocks = static_cast<int**>(mem_Malloc(nd * sizeof(int*)));
    // The element rows read from each drawer: its whole element dimension, or the selected part.
    CSetIDArray rows(nd, 0);

    // First pass: every drawer is read once and held until the second pass, and its nodes counted.
    for (int i = 0; i < nd; ++i)
    {
        ORXSimOCompartment const& domain = drawers[i].Domain();
        rows.Get(i) = elset ? SelectedElements(*elset, domain.CSet(0)) : domain.CSet(0).ID();
        blocks[i] = rows[i].IsNull()
                        ? nullptr
                        : ReadConnectivityBlockAndCount(distribution, rows[i], domain.CSet(1).ID());
    }

    ConvertCountToOffsetArray(nn);
    // The next free place of each node's entries, starting at its offset.
    int* next = static_cast<int*>(mem_Malloc(nn * sizeof(int)));
    if (nn > 0)
        std::memcpy(next, m_offsets, nn * sizeof(int));

    // With no entries there is no second pass; the blocks read, all without content, are released
    // all the same.
    if (m_count != 0)
    {
        m_entries = static_cast<int*>(mem_OperatorNewTinyThrow(mem_SaturatingProduct(m_count, sizeof(int))));
        if (elset)
            std::memset(m_entries, 0xFF, m_count * sizeof(int));
    }
    // Second pass: each block's entries go to their nodes' places, and the block is released.
    for (int i = 0; i < nd; ++i)
    {
        if (blocks[i] == nullptr)
            continue;
        if (m_count != 0)
            ProcessConnectivityBlock(blocks[i], rows[i], drawers[i].Domain().CSet(1).ID(), next);
        mem_Free(blocks[i]);
    }
    mem_Free(next);
    mem_Free(blocks);
}

int ORXSrvInverseConnectivity::NumberNodes() const
{
    ORXSimCollection nodes(m_mesh.GetPosition(vds_CoreFragmentTypeIndex(23, 79)).GetCollection());
    return nodes.Space();
}

int* ORXSrvInverseConnectivity::ReadConnectivityBlockAndCount(ORXSimDistribution& distribution,
                                                              ORXSimCSetID const& elements,
                                                              ORXSimCSetID const& locals)
{
    int ne = ORXSimCSet(elements).Size();
    int nl = ORXSimCSet(locals).Size();
    int ndata = ne * nl;
    int* block = static_cast<int*>(mem_Malloc(ndata * sizeof(int)));

    ORXSimTransfer transfer(distribution);
    transfer.SetRead().SetBufferPadding(false).SetDim(0, elements).SetDim(1, locals);
    transfer.CheckView();
    std::uint64_t size = static_cast<std::int64_t>(static_cast<int>(transfer.RequiredBufferSize(0)));
    // clang-format off
    ORXSrvAssert(size == ndata*sizeof(int));
    // clang-format on
    transfer.SetBuffer(0, block, size);
    transfer.ExecRead();
    transfer.RelinquishBuffers();

    // While counting, m_offsets[n] is the number of entries of node n.
    int* counts = m_offsets;
    for (int i = 0; i < ndata; ++i)
        ++counts[block[i]];
    m_count += ndata;
    return block;
}

void ORXSrvInverseConnectivity::ConvertCountToOffsetArray(int n)
{
    int total = 0;
    for (int i = 0; i < n; ++i)
    {
        int count = m_offsets[i];
        m_offsets[i] = total;
        total += count;
    }
    m_offsets[n] = total;
}

void ORXSrvInverseConnectivity::ProcessConnectivityBlock(int const* block, ORXSimCSetID const& elements,
                                                         ORXSimCSetID const& locals, int* next)
{
    ORXSimCSet elementSet(elements);
    ORXSimCSet localSet(locals);
    int ne = elementSet.Size();
    int nl = localSet.Size();
    int* members = static_cast<int*>(mem_Malloc(ne * sizeof(int)));
    elementSet.Members(members);

    int* entries = m_entries;
    for (int e = 0; e < ne; ++e)
    {
        unsigned int element = static_cast<unsigned int>(members[e]) & elementMask;
        int const* row = block + static_cast<std::size_t>(e) * nl;
        for (int k = 0; k < nl; ++k)
        {
            int n = row[k];
            // Bits 25 to 31 keep the low 7 bits of the local position.
            entries[next[n]++] = static_cast<int>(element | static_cast<unsigned int>(k) << localShift);
        }
    }
    mem_Free(members);
}
