#include "ORXSrvInverseConnectivity.h"

#include "ORXSimArray.h"
#include "ORXSimCollection.h"
#include "ORXSimDSet.h"
#include "ORXSimTransfer.h"
#include "ORXSrvChecks.h"
#include "mem_Entries.h"
#include "vds_CoreFragmentTypeIndex.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace
{
using DrawerDescArray =
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>;
using CSetIDArray = ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>>;

constexpr unsigned int elementMask = 0x1ffffff;
constexpr int localShift = 25;
// Node indices read per transfer: a piece stays in the core's cache from its read to its use, so
// reading each drawer twice costs less than holding every drawer read whole between the passes.
constexpr int pieceEntries = 1 << 16;

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

// The rows of one drawer that an inversion takes, elements (ascending) by locals, read in pieces
// of consecutive rows.
class DrawerRows
{
public:
    DrawerRows(ORXSimDistribution const& distribution, ORXSimPersistentDrawerDesc const& drawer,
               ORXSimCSetID const& elements)
        : m_distribution(distribution), m_drawer(drawer.DrawerID()), m_elements(elements),
          m_locals(drawer.Domain().CSet(1)), m_members(nullptr), m_first(0)
    {
        int const ne = m_elements.Size();
        if (ne == 0)
            return;
        // Rows of a dense run of elements need no list of their indices.
        ORXSimIntRange const bounds = m_elements.Bounds();
        m_first = bounds.first;
        if (bounds.second - bounds.first + 1 != ne)
        {
            m_members = static_cast<int*>(mem_Malloc(ne * sizeof(int)));
            m_elements.Members(m_members);
        }
    }
    ~DrawerRows() { mem_Free(m_members); }
    DrawerRows(DrawerRows const&) = delete;
    DrawerRows& operator=(DrawerRows const&) = delete;

    int Rows() const { return m_elements.Size(); }
    int Locals() const { return m_locals.Size(); }
    int PieceRows() const { return std::max(1, pieceEntries / std::max(1, Locals())); }
    // The element index of each row from row begin on, or null when the rows are a dense run.
    int const* Elements(int begin) const { return m_members ? m_members + begin : nullptr; }
    // The element index of row r of a dense run.
    int ElementOfRow(int r) const { return m_first + r; }

    // Reads rows [begin, end) into buffer and gives the number of node indices read.
    int Read(int begin, int end, int* buffer) const
    {
        ORXSimCollection collection(m_elements.CollectionID());
        ORXSimCSet piece = m_members ? collection.CreateVolatileCSet(m_members + begin, end - begin)
                                     : collection.CreateVolatileCSetStrided(m_first + begin, end - begin);
        int ndata = (end - begin) * Locals();
        ORXSimTransfer transfer(m_distribution);
        transfer.SetRead().SetDrawer(m_drawer).SetBufferPadding(false).SetDim(0, piece).SetDim(1, m_locals);
        transfer.CheckView();
        std::uint64_t size = static_cast<std::int64_t>(static_cast<int>(transfer.RequiredBufferSize(0)));
        // clang-format off
        ORXSrvAssert(size == ndata*sizeof(int));
        // clang-format on
        transfer.SetBuffer(0, buffer, size);
        transfer.ExecRead();
        transfer.RelinquishBuffers();
        return ndata;
    }

private:
    ORXSimDistribution m_distribution;
    ORXSimDrawerID m_drawer;
    ORXSimCSet m_elements;
    ORXSimCSet m_locals;
    int* m_members;
    int m_first;
};
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
    // The element rows read from each drawer: its whole element dimension, or the selected part.
    CSetIDArray rows(nd, 0);
    for (int i = 0; i < nd; ++i)
        rows.Get(i) =
            elset ? SelectedElements(*elset, drawers[i].Domain().CSet(0)) : drawers[i].Domain().CSet(0).ID();
    int* piece = static_cast<int*>(mem_Malloc(pieceEntries * sizeof(int)));

    // First pass: the nodes of every row are counted, in m_offsets and m_count.
    for (int i = 0; i < nd; ++i)
    {
        if (rows[i].IsNull())
            continue;
        DrawerRows const drawer(distribution, drawers[i], rows[i]);
        for (int begin = 0; begin < drawer.Rows(); begin += drawer.PieceRows())
        {
            int const n = drawer.Read(begin, std::min(drawer.Rows(), begin + drawer.PieceRows()), piece);
            CountNodes(piece, n);
        }
    }
    ConvertCountToOffsetArray(nn);

    // Second pass, last row first: the entries go to their nodes' places.
    if (m_count != 0)
    {
        m_entries = static_cast<int*>(mem_OperatorNewTinyThrow(mem_SaturatingProduct(m_count, sizeof(int))));
        if (elset)
            std::memset(m_entries, 0xFF, m_count * sizeof(int));
        for (int i = nd - 1; i >= 0; --i)
        {
            if (rows[i].IsNull())
                continue;
            DrawerRows const drawer(distribution, drawers[i], rows[i]);
            for (int end = drawer.Rows(); end > 0; end -= drawer.PieceRows())
            {
                int const begin = std::max(0, end - drawer.PieceRows());
                drawer.Read(begin, end, piece);
                FileEntries(piece, end - begin, drawer.Locals(), drawer.Elements(begin),
                            drawer.ElementOfRow(begin));
            }
        }
    }
    mem_Free(piece);
}

int ORXSrvInverseConnectivity::NumberNodes() const
{
    ORXSimCollection nodes(m_mesh.GetPosition(vds_CoreFragmentTypeIndex(23, 79)).GetCollection());
    return nodes.Space();
}

void ORXSrvInverseConnectivity::CountNodes(int const* nodes, int n)
{
    int* counts = m_offsets;
    for (int i = 0; i < n; ++i)
        ++counts[nodes[i]];
    m_count += n;
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

void ORXSrvInverseConnectivity::FileEntries(int const* block, int rows, int nl, int const* elements,
                                            int firstElement)
{
    // The arrays do not overlap; saying so lets the compiler keep row values and places in
    // registers across the stores.
    int* __restrict entries = m_entries;
    int* __restrict places = m_offsets;
    int const* __restrict nodes = block;
    for (int r = rows - 1; r >= 0; --r)
    {
        unsigned int const element =
            static_cast<unsigned int>(elements ? elements[r] : firstElement + r) & elementMask;
        int const* row = nodes + static_cast<std::size_t>(r) * nl;
        for (int k = nl - 1; k >= 0; --k)
        {
            int const place = --places[row[k]];
            // Bits 25 to 31 keep the low 7 bits of the local position.
            entries[place] = static_cast<int>(element | static_cast<unsigned int>(k) << localShift);
        }
    }
}
