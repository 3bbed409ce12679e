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

    // With no entries there is no second pass; the blocks read, all without content, are released
    // all the same.
    if (m_count != 0)
    {
        m_entries = static_cast<int*>(mem_OperatorNewTinyThrow(mem_SaturatingProduct(m_count, sizeof(int))));
        if (elset)
            std::memset(m_entries, 0xFF, m_count * sizeof(int));
    }
    // Second pass, last block first: each block's entries go to their nodes' places, and the
    // block is released.
    for (int i = nd - 1; i >= 0; --i)
    {
        if (blocks[i] == nullptr)
            continue;
        if (m_count != 0)
            ProcessConnectivityBlock(blocks[i], rows[i], drawers[i].Domain().CSet(1).ID());
        mem_Free(blocks[i]);
    }
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
        total += m_offsets[i];
        m_offsets[i] = total;
    }
    m_offsets[n] = total;
}

void ORXSrvInverseConnectivity::ProcessConnectivityBlock(int const* block, ORXSimCSetID const& elements,
                                                         ORXSimCSetID const& locals)
{
    ORXSimCSet elementSet(elements);
    int const ne = elementSet.Size();
    int const nl = ORXSimCSet(locals).Size();
    // Rows of a dense ascending run of elements need no list of their indices.
    ORXSimIntRange const bounds = elementSet.Bounds();
    bool const dense = elementSet.IsAscending() && bounds.second - bounds.first + 1 == ne;
    int* members = nullptr;
    if (!dense)
    {
        members = static_cast<int*>(mem_Malloc(ne * sizeof(int)));
        elementSet.Members(members);
    }

    // The arrays do not overlap; saying so lets the compiler keep row values and places in
    // registers across the stores.
    int* __restrict entries = m_entries;
    int* __restrict places = m_offsets;
    int const* __restrict rows = block;
    for (int e = ne - 1; e >= 0; --e)
    {
        unsigned int const element =
            static_cast<unsigned int>(dense ? bounds.first + e : members[e]) & elementMask;
        int const* row = rows + static_cast<std::size_t>(e) * nl;
        for (int k = nl - 1; k >= 0; --k)
        {
            int const place = --places[row[k]];
            // Bits 25 to 31 keep the low 7 bits of the local position.
            entries[place] = static_cast<int>(element | static_cast<unsigned int>(k) << localShift);
        }
    }
    mem_Free(members);
}
