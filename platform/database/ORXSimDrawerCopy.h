#pragma once
// Copies values between a packed buffer and a drawer's value block for a view (one set per grid
// dimension, each in its own order). Dimensions whose view is the drawer's whole domain in order
// and contiguous in the block are merged into blocks, and consecutive rows into runs, so that a
// whole-drawer transfer is a single memcpy. Places of the view the drawer does not hold are
// skipped.
#include "ORXSimCSet.h"
#include "ORXSimStoreDrawer.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

class ORXSimDrawerCopy
{
public:
    enum Direction
    {
        ToBuffer,
        FromBuffer
    };
    // What a drawer holds in one dimension and where: the ascending members of its domain set and
    // the distance in values between neighbours in its block. A distribution keeps these per drawer
    // (ORXSimStoreDistribution::Layout), so that a read over many drawers finds them side by side.
    struct Held
    {
        ORXSimIndexSetPtr members; // null for an empty domain set
        std::int64_t stride;
    };
    // The layout of a drawer, one Held per dimension.
    static std::vector<Held> Layout(ORXSimStoreDrawer const& drawer);

    // A copy plan for a drawer of that layout whose values are storeValueSize bytes each;
    // bufferValueSize 4 means int values in the buffer, 8 doubles.
    ORXSimDrawerCopy(std::span<Held const> layout, int storeValueSize, std::span<ORXSimCSet const> view,
                     int bufferValueSize);
    ORXSimDrawerCopy(ORXSimDrawerCopy const&) = delete;
    ORXSimDrawerCopy& operator=(ORXSimDrawerCopy const&) = delete;
    // Number of members of dimension d of the view that the drawer does not hold.
    int Missing(int d) const { return m_plans[d].missing; }
    // True if the view covers every place of the drawer.
    bool CoversDrawer() const;
    // True if a view set takes a drawer's whole domain set in its order.
    static bool WholeDimension(ORXSimCSet const& view, ORXSimCSet const& domain);
    // Copies and gives the number of values copied.
    std::uint64_t Run(char* buffer, char* values, Direction direction) const;

private:
    // Where the members of one view dimension lie in storage. A view that is a run over a held
    // run maps linearly: member i lies at base + i * stride for i in [first, last), and is not
    // held elsewhere; any other view has an offset per member, from offsetsAt on in m_offsets.
    // Plain data, so that the plans a grid leaves unused cost nothing; each used one starts as {}.
    struct DimPlan
    {
        int viewSize;
        int missing;         // view members the drawer does not hold
        std::int64_t stride; // storage distance between neighbours in this dimension
        std::int64_t bufferStride;
        bool identity;
        bool linear;
        std::int64_t base;
        std::int64_t first;
        std::int64_t last;
        std::size_t offsetsAt; // storage offset per view member, -1 where not held
    };
    struct Span
    {
        std::int64_t viewIndex;
        std::int64_t storageOffset;
        std::int64_t length;
    };

    // Storage offset of member i of the view in dimension d, -1 where the drawer does not hold it.
    std::int64_t Offset(int d, std::int64_t i) const
    {
        DimPlan const& plan = m_plans[d];
        if (!plan.linear)
            return m_offsets[plan.offsetsAt + i];
        return i >= plan.first && i < plan.last ? plan.base + i * plan.stride : -1;
    }
    void CopyValues(char* buffer, std::int64_t bufferIndex, char* values, std::int64_t valueIndex,
                    std::int64_t count, Direction direction) const;

    // A plan lives for one transfer of one drawer, and a read over many drawers makes one for each:
    // a grid of up to four dimensions whose views map linearly makes no use of the heap.
    std::array<DimPlan, 4> m_nearPlans;
    std::vector<DimPlan> m_farPlans; // for larger grids
    DimPlan* m_plans;                // the one of the two in use
    int m_dims;
    std::vector<std::int64_t> m_offsets;
    // Spans of the innermost dimension that is not merged into blocks: one, when that dimension maps
    // linearly, else a list.
    Span m_linearSpan;
    std::vector<Span> m_spanList;
    std::span<Span const> m_spans;
    int m_spanDim = -1;       // -1: the whole view is one block
    std::int64_t m_block = 1; // values per innermost block
    int m_bufferValueSize;
    int m_storeValueSize;
};
