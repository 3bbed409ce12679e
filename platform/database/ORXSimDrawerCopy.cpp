#include "ORXSimDrawerCopy.h"

#include "ORXSimIndexSet.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace
{
// The ascending member data of a set (SortedData), without a call for sets that ascend already.
ORXSimIndexSet const* Sorted(ORXSimCSet const& set)
{
    ORXSimIndexSet const* own = set.OwnOrderData().Get();
    return !own || own->IsAscending() ? own : own->SortedForm().Get();
}

// True if count members in their own order are the held ascending members, all of them in order.
bool TakesWhole(ORXSimIndexSet const* members, int count, ORXSimIndexSet const* held)
{
    return count == (held ? held->Count() : 0) && (count == 0 || members->SameSequence(*held));
}
} // namespace

std::vector<ORXSimDrawerCopy::Held> ORXSimDrawerCopy::Layout(ORXSimStoreDrawer const& drawer)
{
    std::vector<std::int64_t> const strides = drawer.Strides();
    std::vector<Held> layout;
    layout.reserve(strides.size());
    for (int d = 0; d < drawer.NumDimensions(); ++d)
        layout.push_back({drawer.Domain()[d].SortedData(), strides[d]});
    return layout;
}

ORXSimDrawerCopy::ORXSimDrawerCopy(std::span<Held const> layout, int storeValueSize,
                                   std::span<ORXSimCSet const> view, int bufferValueSize)
    : m_farPlans(layout.size() > m_nearPlans.size() ? layout.size() : 0),
      m_plans(m_farPlans.empty() ? m_nearPlans.data() : m_farPlans.data()),
      m_dims(static_cast<int>(layout.size())), m_linearSpan{0, 0, 0}, m_bufferValueSize(bufferValueSize),
      m_storeValueSize(storeValueSize)
{
    int const n = m_dims;
    std::int64_t bufferStride = 1;
    for (int d = n - 1; d >= 0; --d)
    {
        m_plans[d] = DimPlan{};
        m_plans[d].stride = layout[d].stride;
        m_plans[d].viewSize = view[d].Size();
        m_plans[d].bufferStride = bufferStride;
        bufferStride *= m_plans[d].viewSize;
    }
    for (int d = 0; d < n; ++d)
    {
        ORXSimCSet const& set = view[d];
        ORXSimIndexSet const* members = set.OwnOrderData().Get();
        ORXSimIndexSet const* held = layout[d].members.Get();
        DimPlan& plan = m_plans[d];
        int const count = plan.viewSize;
        std::int64_t const stride = plan.stride;
        if (TakesWhole(members, count, held))
        {
            plan.identity = plan.linear = true;
            plan.last = count;
            continue;
        }
        if (count > 0 && held && members->IsRun() && held->IsRun() && members->Stride() == held->Stride())
        {
            // A run over a held run with the same stride: member i has rank shift + i.
            std::int64_t const distance = static_cast<std::int64_t>(members->First()) - held->First();
            std::int64_t const heldStride = held->Stride();
            plan.linear = true;
            // Runs of consecutive members, the common case, need no division.
            if (heldStride == 1 || distance % heldStride == 0)
            {
                std::int64_t const shift = heldStride == 1 ? distance : distance / heldStride;
                plan.base = shift * stride;
                plan.first = std::max<std::int64_t>(0, -shift);
                plan.last = std::max(plan.first, std::min<std::int64_t>(count, held->Count() - shift));
            }
            plan.missing = static_cast<int>(count - (plan.last - plan.first));
            continue;
        }
        plan.offsetsAt = m_offsets.size();
        m_offsets.resize(plan.offsetsAt + count, -1);
        std::int64_t* const offsets = m_offsets.data() + plan.offsetsAt;
        if (!held || count == 0)
        {
            // Nothing held, or nothing asked for (an empty view set has no member data).
            plan.missing = count;
            continue;
        }
        if (members->IsAscending() && !held->IsRun())
        {
            // Both ascend: one merge instead of a search per member, from the first member on, so
            // that a view of a small part of a large domain costs little.
            int const heldCount = held->Count();
            int j = static_cast<int>(
                std::lower_bound(held->Data(), held->Data() + heldCount, members->At(0)) - held->Data());
            for (int i = 0; i < count; ++i)
            {
                int const m = members->At(i);
                while (j < heldCount && held->At(j) < m)
                    ++j;
                bool const found = j < heldCount && held->At(j) == m;
                offsets[i] = found ? j * stride : -1;
                plan.missing += !found;
            }
            continue;
        }
        for (int i = 0; i < count; ++i)
        {
            int const rank = held->RankOf(members->At(i));
            offsets[i] = rank >= 0 ? rank * stride : -1;
            plan.missing += rank < 0;
        }
    }

    // Merge trailing dimensions that map whole and contiguous into blocks.
    int d = n - 1;
    for (; d >= 0; --d)
    {
        if (!m_plans[d].identity || m_plans[d].stride != m_block)
            break;
        m_block *= m_plans[d].viewSize;
    }
    m_spanDim = d;
    if (d < 0)
        return;
    // Spans of consecutive rows of the span dimension.
    DimPlan const& plan = m_plans[d];
    bool const contiguousRows = plan.stride == m_block;
    if (plan.linear && contiguousRows)
    {
        if (plan.first < plan.last)
        {
            m_linearSpan = {plan.first, Offset(d, plan.first), plan.last - plan.first};
            m_spans = std::span<Span const>(&m_linearSpan, 1);
        }
        return;
    }
    for (std::int64_t i = 0; i < plan.viewSize; ++i)
    {
        std::int64_t const offset = Offset(d, i);
        if (offset < 0)
            continue;
        if (contiguousRows && !m_spanList.empty())
        {
            Span& last = m_spanList.back();
            if (last.viewIndex + last.length == i && last.storageOffset + last.length * m_block == offset)
            {
                ++last.length;
                continue;
            }
        }
        m_spanList.push_back({i, offset, 1});
    }
    m_spans = m_spanList;
}

bool ORXSimDrawerCopy::WholeDimension(ORXSimCSet const& view, ORXSimCSet const& domain)
{
    int const count = view.Size();
    return TakesWhole(view.OwnOrderData().Get(), count, Sorted(domain));
}

bool ORXSimDrawerCopy::CoversDrawer() const
{
    for (int d = 0; d < m_dims; ++d)
        if (!m_plans[d].identity)
            return false;
    return true;
}

void ORXSimDrawerCopy::CopyValues(char* buffer, std::int64_t bufferIndex, char* values,
                                  std::int64_t valueIndex, std::int64_t count, Direction direction) const
{
    char* b = buffer + bufferIndex * m_bufferValueSize;
    char* v = values + valueIndex * m_storeValueSize;
    if (m_bufferValueSize == m_storeValueSize)
    {
        // Single values are common in views across many drawers: copied without a call.
        if (count == 1 && m_bufferValueSize == 4)
            std::memcpy(direction == ToBuffer ? b : v, direction == ToBuffer ? v : b, 4);
        else if (count == 1 && m_bufferValueSize == 8)
            std::memcpy(direction == ToBuffer ? b : v, direction == ToBuffer ? v : b, 8);
        else if (direction == ToBuffer)
            std::memcpy(b, v, count * m_bufferValueSize);
        else
            std::memcpy(v, b, count * m_bufferValueSize);
        return;
    }
    // Buffer type differs from the stored type: convert value by value.
    auto convert = [count](auto* to, auto const* from)
    {
        for (std::int64_t i = 0; i < count; ++i)
            to[i] = static_cast<std::remove_reference_t<decltype(to[i])>>(from[i]);
    };
    if (direction == ToBuffer)
    {
        if (m_bufferValueSize == 8)
            convert(reinterpret_cast<double*>(b), reinterpret_cast<int const*>(v));
        else
            convert(reinterpret_cast<int*>(b), reinterpret_cast<double const*>(v));
    }
    else if (m_storeValueSize == 8)
        convert(reinterpret_cast<double*>(v), reinterpret_cast<int const*>(b));
    else
        convert(reinterpret_cast<int*>(v), reinterpret_cast<double const*>(b));
}

std::uint64_t ORXSimDrawerCopy::Run(char* buffer, char* values, Direction direction) const
{
    if (m_spanDim < 0)
    {
        if (m_block > 0)
            CopyValues(buffer, 0, values, 0, m_block, direction);
        return static_cast<std::uint64_t>(m_block);
    }
    int const outer = m_spanDim; // dimensions 0 .. outer - 1 are walked one by one
    // A linear dimension is walked over the members the drawer holds only.
    auto const walkFirst = [this](int d) { return m_plans[d].linear ? m_plans[d].first : 0; };
    auto const walkLast = [this](int d) { return m_plans[d].linear ? m_plans[d].last : m_plans[d].viewSize; };
    for (int d = 0; d < outer; ++d)
        if (walkFirst(d) >= walkLast(d))
            return 0;
    // The walk's position; views of more dimensions than fit on the stack take it from the heap.
    std::array<std::int64_t, 8> near;
    std::vector<std::int64_t> far(outer > static_cast<int>(near.size()) ? outer : 0);
    std::int64_t* const index = far.empty() ? near.data() : far.data();
    for (int d = 0; d < outer; ++d)
        index[d] = walkFirst(d);
    std::int64_t const spanStride = m_plans[outer].bufferStride;
    std::uint64_t copied = 0;
    while (true)
    {
        std::int64_t bufferBase = 0, valueBase = 0;
        bool held = true;
        for (int d = 0; d < outer && held; ++d)
        {
            std::int64_t const offset = Offset(d, index[d]);
            held = offset >= 0;
            valueBase += offset;
            bufferBase += index[d] * m_plans[d].bufferStride;
        }
        if (held)
            for (Span const& span : m_spans)
            {
                std::int64_t const count = span.length * m_block;
                CopyValues(buffer, bufferBase + span.viewIndex * spanStride, values,
                           valueBase + span.storageOffset, count, direction);
                copied += count;
            }
        int d = outer - 1;
        for (; d >= 0; --d)
        {
            if (++index[d] < walkLast(d))
                break;
            index[d] = walkFirst(d);
        }
        if (d < 0)
            break;
    }
    return copied;
}
