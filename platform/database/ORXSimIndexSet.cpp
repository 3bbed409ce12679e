#include "ORXSimIndexSet.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace
{
// Read access to the members of an ascending operand, specialised for runs and arrays so that
// the merge loops see plain arithmetic or plain loads.
struct RunView
{
    int first;
    int stride;
    int count;
    int operator[](int i) const { return first + i * stride; }
};
struct ArrayView
{
    int const* data;
    int count;
    int operator[](int i) const { return data[i]; }
};

int* AllocateMembers(std::size_t count)
{
    int* data = static_cast<int*>(std::malloc(std::max<std::size_t>(count, 1) * sizeof(int)));
    if (!data)
        throw std::bad_alloc();
    return data;
}

template <class A, class B> int MergeUnion(A const& a, B const& b, int* out)
{
    int i = 0, j = 0, n = 0;
    while (i < a.count && j < b.count)
    {
        int const x = a[i], y = b[j];
        int const v = x < y ? x : y;
        i += x <= y;
        j += y <= x;
        if (n == 0 || out[n - 1] != v)
            out[n++] = v;
    }
    for (; i < a.count; ++i)
        if (n == 0 || out[n - 1] != a[i])
            out[n++] = a[i];
    for (; j < b.count; ++j)
        if (n == 0 || out[n - 1] != b[j])
            out[n++] = b[j];
    return n;
}

// The same for two strictly rising operands: a member can only repeat as one of each, so no
// written member needs to be looked at again.
template <class A, class B> int MergeStrictUnion(A const& a, B const& b, int* out)
{
    int i = 0, j = 0, n = 0;
    while (i < a.count && j < b.count)
    {
        // Branches, not selects: operands of very different density take long runs from one side,
        // which the branches predict.
        int const x = a[i], y = b[j];
        if (x < y)
        {
            out[n++] = x;
            ++i;
        }
        else if (y < x)
        {
            out[n++] = y;
            ++j;
        }
        else
        {
            out[n++] = x;
            ++i;
            ++j;
        }
    }
    for (; i < a.count; ++i)
        out[n++] = a[i];
    for (; j < b.count; ++j)
        out[n++] = b[j];
    return n;
}

template <class A, class B> int MergeIntersection(A const& a, B const& b, int* out)
{
    int i = 0, j = 0, n = 0;
    while (i < a.count && j < b.count)
    {
        int const x = a[i], y = b[j];
        if (x == y && (n == 0 || out[n - 1] != x))
            out[n++] = x;
        i += x <= y;
        j += y <= x;
    }
    return n;
}

template <class A, class B> int MergeDifference(A const& a, B const& b, int* out)
{
    int i = 0, j = 0, n = 0;
    while (i < a.count)
    {
        int const x = a[i];
        if (j < b.count && b[j] < x)
        {
            ++j;
            continue;
        }
        if ((j == b.count || b[j] != x) && (n == 0 || out[n - 1] != x))
            out[n++] = x;
        ++i;
    }
    return n;
}

template <class A, class B> bool MergeSame(A const& a, B const& b)
{
    int i = 0, j = 0;
    while (i < a.count && j < b.count)
    {
        int const x = a[i];
        if (x != b[j])
            return false;
        while (i < a.count && a[i] == x)
            ++i;
        while (j < b.count && b[j] == x)
            ++j;
    }
    return i == a.count && j == b.count;
}

// Calls f with the typed views of both operands.
template <class F> auto Dispatch(ORXSimIndexSet const* a, ORXSimIndexSet const* b, F&& f)
{
    if (a->IsRun())
    {
        RunView const va{a->First(), a->Stride(), a->Count()};
        if (b->IsRun())
            return f(va, RunView{b->First(), b->Stride(), b->Count()});
        return f(va, ArrayView{b->Data(), b->Count()});
    }
    ArrayView const va{a->Data(), a->Count()};
    if (b->IsRun())
        return f(va, RunView{b->First(), b->Stride(), b->Count()});
    return f(va, ArrayView{b->Data(), b->Count()});
}

bool IsUnitRun(ORXSimIndexSet const* s)
{
    return s->IsRun() && (s->Stride() == 1 || s->Count() == 1);
}

// An ascending operand as a result: shared when it is strictly ascending (member data never
// changes), otherwise made unique.
ORXSimIndexSetPtr Share(ORXSimIndexSet const* s)
{
    if (s->IsAscending())
        return ORXSimIndexSetPtr(const_cast<ORXSimIndexSet*>(s));
    return ORXSimIndexSet::MakeAscending(s->Data(), s->Count());
}
} // namespace

ORXSimIndexSet* ORXSimIndexSet::New()
{
    return new ORXSimIndexSet();
}

ORXSimIndexSet::~ORXSimIndexSet()
{
    std::free(m_data);
}

void ORXSimIndexSet::Release()
{
    if (--m_refCount == 0)
        delete this;
}

ORXSimIndexSetPtr ORXSimIndexSet::MakeRun(int first, int count, int stride)
{
    if (count <= 0)
        return ORXSimIndexSetPtr();
    ORXSimIndexSet* set = New();
    set->m_first = first;
    set->m_count = count;
    set->m_stride = count == 1 ? 1 : stride;
    set->m_ascending = set->m_stride > 0;
    return ORXSimIndexSetPtr(set);
}

ORXSimIndexSetPtr ORXSimIndexSet::AdoptAscending(int* members, int count)
{
    if (count <= 0)
    {
        std::free(members);
        return ORXSimIndexSetPtr();
    }
    if (members[count - 1] - members[0] == count - 1)
    {
        int const first = members[0];
        std::free(members);
        return MakeRun(first, count, 1);
    }
    ORXSimIndexSet* set = New();
    set->m_count = count;
    set->m_data = members;
    set->m_first = members[0];
    set->m_ascending = true;
    return ORXSimIndexSetPtr(set);
}

ORXSimIndexSetPtr ORXSimIndexSet::MakeOrdered(int const* members, int count)
{
    if (count <= 0)
        return ORXSimIndexSetPtr();
    if (count == 1)
        return MakeRun(members[0], 1, 1);
    int const stride = members[1] - members[0];
    bool run = true, ascending = true;
    for (int i = 1; i < count; ++i)
    {
        run = run && members[i] - members[i - 1] == stride;
        ascending = ascending && members[i] > members[i - 1];
    }
    if (run && stride != 0)
        return MakeRun(members[0], count, stride);
    ORXSimIndexSet* set = New();
    set->m_data = AllocateMembers(count);
    std::memcpy(set->m_data, members, sizeof(int) * count);
    set->m_count = count;
    set->m_first = members[0];
    set->m_ascending = ascending;
    return ORXSimIndexSetPtr(set);
}

ORXSimIndexSetPtr ORXSimIndexSet::MakeAscending(int const* members, int count)
{
    if (count <= 0)
        return ORXSimIndexSetPtr();
    int* data = AllocateMembers(count);
    std::memcpy(data, members, sizeof(int) * count);
    bool sorted = true;
    for (int i = 1; i < count && sorted; ++i)
        sorted = data[i] > data[i - 1];
    if (!sorted)
    {
        std::sort(data, data + count);
        count = static_cast<int>(std::unique(data, data + count) - data);
    }
    return AdoptAscending(data, count);
}

void ORXSimIndexSet::CopyTo(int* out) const
{
    if (m_data)
        std::memcpy(out, m_data, sizeof(int) * m_count);
    else
        for (int i = 0; i < m_count; ++i)
            out[i] = m_first + i * m_stride;
}

int ORXSimIndexSet::RankOf(int member) const
{
    if (!m_data)
    {
        long long const offset = static_cast<long long>(member) - m_first;
        if (offset < 0 || offset % m_stride != 0 || offset / m_stride >= m_count)
            return -1;
        return static_cast<int>(offset / m_stride);
    }
    int const* found = std::lower_bound(m_data, m_data + m_count, member);
    return found != m_data + m_count && *found == member ? static_cast<int>(found - m_data) : -1;
}

bool ORXSimIndexSet::SameSequence(ORXSimIndexSet const& other) const
{
    if (this == &other)
        return true;
    if (m_count != other.m_count)
        return false;
    if (!m_data && !other.m_data)
        return m_first == other.m_first && m_stride == other.m_stride;
    if (m_data && other.m_data)
        return std::memcmp(m_data, other.m_data, sizeof(int) * m_count) == 0;
    for (int i = 0; i < m_count; ++i)
        if (At(i) != other.At(i))
            return false;
    return true;
}

std::size_t ORXSimIndexSet::SequenceHash() const
{
    std::size_t h = static_cast<std::size_t>(m_count) * 0x9e3779b97f4a7c15ull;
    int const samples[] = {0, m_count / 4, m_count / 2, 3 * (m_count / 4), m_count - 1};
    for (int i : samples)
        h = (h ^ static_cast<std::size_t>(static_cast<unsigned>(At(i)))) * 0x100000001b3ull;
    return h;
}

std::size_t ORXSimIndexSet::MemoryBytes() const
{
    return sizeof(ORXSimIndexSet) + (m_data ? sizeof(int) * static_cast<std::size_t>(m_count) : 0);
}

ORXSimIndexSetPtr const& ORXSimIndexSet::SortedForm() const
{
    if (m_sortedForm)
        return m_sortedForm;
    if (!m_data) // a descending run
    {
        m_sortedForm = MakeRun(m_first + (m_count - 1) * m_stride, m_count, -m_stride);
        return m_sortedForm;
    }
    int* data = AllocateMembers(m_count);
    std::memcpy(data, m_data, sizeof(int) * m_count);
    std::sort(data, data + m_count);
    ORXSimIndexSet* set = New();
    set->m_data = data;
    set->m_count = m_count;
    set->m_first = data[0];
    set->m_ascending = std::adjacent_find(data, data + m_count) == data + m_count;
    m_sortedForm = ORXSimIndexSetPtr(set);
    return m_sortedForm;
}

namespace
{
// Shrinks an over-allocated result and wraps it.
ORXSimIndexSetPtr Finish(int* out, int n, std::size_t capacity)
{
    if (n > 0 && static_cast<std::size_t>(n) + (capacity >> 3) < capacity)
        if (void* smaller = std::realloc(out, sizeof(int) * n))
            out = static_cast<int*>(smaller);
    return ORXSimIndexSet::AdoptAscending(out, n);
}
} // namespace

ORXSimIndexSetPtr ORXSimIndexSet::Union(ORXSimIndexSet const* a, ORXSimIndexSet const* b)
{
    if (!a || a->m_count == 0)
        return b ? Share(b) : ORXSimIndexSetPtr();
    if (!b || b->m_count == 0)
        return Share(a);
    if (IsUnitRun(a) && IsUnitRun(b))
    {
        long long const lo = std::min(a->Low(), b->Low()), hi = std::max(a->High(), b->High());
        if (static_cast<long long>(a->m_count) + b->m_count >= hi - lo + 1)
            return MakeRun(static_cast<int>(lo), static_cast<int>(hi - lo + 1), 1);
    }
    std::size_t const capacity = static_cast<std::size_t>(a->m_count) + b->m_count;
    int* out = AllocateMembers(capacity);
    if (a->m_ascending && b->m_ascending && (a->High() < b->Low() || b->High() < a->Low()))
    {
        // Apart from each other, as when members are appended: the lower set, then the higher.
        ORXSimIndexSet const* lower = a->High() < b->Low() ? a : b;
        ORXSimIndexSet const* higher = lower == a ? b : a;
        lower->CopyTo(out);
        higher->CopyTo(out + lower->m_count);
        return AdoptAscending(out, static_cast<int>(capacity));
    }
    int const n =
        a->m_ascending && b->m_ascending
            ? Dispatch(a, b, [out](auto const& x, auto const& y) { return MergeStrictUnion(x, y, out); })
            : Dispatch(a, b, [out](auto const& x, auto const& y) { return MergeUnion(x, y, out); });
    return Finish(out, n, capacity);
}

ORXSimIndexSetPtr ORXSimIndexSet::Intersection(ORXSimIndexSet const* a, ORXSimIndexSet const* b)
{
    if (!a || !b || a->m_count == 0 || b->m_count == 0)
        return ORXSimIndexSetPtr();
    if (IsUnitRun(a) && IsUnitRun(b))
    {
        int const lo = std::max(a->Low(), b->Low()), hi = std::min(a->High(), b->High());
        return hi < lo ? ORXSimIndexSetPtr() : MakeRun(lo, hi - lo + 1, 1);
    }
    std::size_t const capacity = std::min(a->m_count, b->m_count);
    int* out = AllocateMembers(capacity);
    int const n =
        Dispatch(a, b, [out](auto const& x, auto const& y) { return MergeIntersection(x, y, out); });
    return Finish(out, n, capacity);
}

ORXSimIndexSetPtr ORXSimIndexSet::Difference(ORXSimIndexSet const* a, ORXSimIndexSet const* b)
{
    if (!a || a->m_count == 0)
        return ORXSimIndexSetPtr();
    if (!b || b->m_count == 0 || b->High() < a->Low() || b->Low() > a->High())
        return Share(a);
    if (IsUnitRun(a) && IsUnitRun(b) && b->Low() <= a->Low() && b->High() >= a->High())
        return ORXSimIndexSetPtr();
    std::size_t const capacity = a->m_count;
    int* out = AllocateMembers(capacity);
    int const n = Dispatch(a, b, [out](auto const& x, auto const& y) { return MergeDifference(x, y, out); });
    return Finish(out, n, capacity);
}

bool ORXSimIndexSet::SameMembers(ORXSimIndexSet const* a, ORXSimIndexSet const* b)
{
    bool const aEmpty = !a || a->m_count == 0, bEmpty = !b || b->m_count == 0;
    if (aEmpty || bEmpty)
        return aEmpty == bEmpty;
    if (a->m_ascending && b->m_ascending)
    {
        if (a->m_count != b->m_count || a->Low() != b->Low() || a->High() != b->High())
            return false;
        if (IsUnitRun(a) || IsUnitRun(b)) // strictly ascending, same ends and count: the same run
            return true;
        if (a->m_data && b->m_data)
            return std::memcmp(a->m_data, b->m_data, sizeof(int) * a->m_count) == 0;
    }
    return Dispatch(a, b, [](auto const& x, auto const& y) { return MergeSame(x, y); });
}

ORXSimIndexSetPtr::ORXSimIndexSetPtr(ORXSimIndexSet* set) : m_set(set)
{
    if (m_set)
        m_set->AddRef();
}

ORXSimIndexSetPtr::ORXSimIndexSetPtr(ORXSimIndexSetPtr const& other) : m_set(other.m_set)
{
    if (m_set)
        m_set->AddRef();
}

ORXSimIndexSetPtr& ORXSimIndexSetPtr::operator=(ORXSimIndexSetPtr const& other)
{
    if (other.m_set)
        other.m_set->AddRef();
    if (m_set)
        m_set->Release();
    m_set = other.m_set;
    return *this;
}

ORXSimIndexSetPtr::~ORXSimIndexSetPtr()
{
    if (m_set)
        m_set->Release();
}
