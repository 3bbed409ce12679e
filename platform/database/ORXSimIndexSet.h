#pragma once
// Member data of a CSet: either a run first, first + stride, ... (constant memory) or an array of
// indices. Reference counted through ORXSimIndexSetPtr. `ascending` says the members rise strictly.
#include "ORXSimIndexSetPtr.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class ORXSimIndexSet
{
public:
    // A run of count members; an empty set for count 0.
    static ORXSimIndexSetPtr MakeRun(int first, int count, int stride);
    // The members as given; stored as a run when they form one.
    static ORXSimIndexSetPtr MakeOrdered(int const* members, int count);
    // The members sorted and made unique.
    static ORXSimIndexSetPtr MakeAscending(int const* members, int count);
    // Takes over a filled array of ascending members (allocated with std::malloc).
    static ORXSimIndexSetPtr AdoptAscending(int* members, int count);

    int Count() const { return m_count; }
    bool IsRun() const { return m_data == nullptr; }
    bool IsAscending() const { return m_ascending; }
    int First() const { return m_first; }
    int Stride() const { return m_stride; }
    int const* Data() const { return m_data; }
    int At(int i) const { return m_data ? m_data[i] : m_first + i * m_stride; }
    void CopyTo(int* out) const;
    // Lowest and highest member of an ascending set.
    int Low() const { return At(0); }
    int High() const { return At(m_count - 1); }
    // Position of member in an ascending set, -1 if it is not there.
    int RankOf(int member) const;
    // Same members in the same order.
    bool SameSequence(ORXSimIndexSet const& other) const;
    // Hash of the member sequence, O(1): count, ends and a few samples.
    std::size_t SequenceHash() const;
    // Bytes held by this set.
    std::size_t MemoryBytes() const;

    // Sorted form (with repeats) of a set that does not ascend, made when it is first asked for and
    // kept with the set, so that sets made in a given order pay for sorting only when they are used
    // as sets.
    ORXSimIndexSetPtr const& SortedForm() const;

    // Set algebra over ascending operands (repeats allowed and skipped); results ascending.
    static ORXSimIndexSetPtr Union(ORXSimIndexSet const* a, ORXSimIndexSet const* b);
    static ORXSimIndexSetPtr Intersection(ORXSimIndexSet const* a, ORXSimIndexSet const* b);
    static ORXSimIndexSetPtr Difference(ORXSimIndexSet const* a, ORXSimIndexSet const* b);
    static bool SameMembers(ORXSimIndexSet const* a, ORXSimIndexSet const* b);

    void AddRef() { ++m_refCount; }
    void Release();

private:
    ORXSimIndexSet() = default;
    ~ORXSimIndexSet();
    static ORXSimIndexSet* New();

    int m_refCount = 0;
    int m_count = 0;
    int m_first = 0;
    int m_stride = 1;
    bool m_ascending = true;
    int* m_data = nullptr;
    mutable ORXSimIndexSetPtr m_sortedForm; // of a set that does not ascend, once asked for
};
