#pragma once
// The untyped core of ORXBasMap: a red-black tree of unique values in nodes from Allocator. Values
// are ordered by a comparitor on their leading key; a replicator copies and destroys them. The
// header node is the end position; its left link is the root. Iterators stay valid until Clear.
#include "ORXBasComparitor.h"
#include "ORXBasNodeAllocator.h"
#include "ORXBasReplicatorGeneric.h"
#include "ORXBasTreeIteratorGeneric.h"

#include <cstdint>

// Where a node holds its value and how large the node is, in bytes.
struct ORXBasNodeOffsets
{
    constexpr ORXBasNodeOffsets(int valueOffset, int nodeSize)
        : m_valueOffset(valueOffset), m_nodeSize(nodeSize)
    {
    }

    int m_valueOffset;
    int m_nodeSize;
};

template <class Allocator> class ORXBasTreeGeneric
{
public:
    ORXBasTreeGeneric(ORXBasNodeOffsets const& offsets, ORXBasReplicatorGeneric const& replicator,
                      ORXBasComparitorFunc comparitor, void const* context);
    ORXBasTreeGeneric(ORXBasTreeGeneric const& other);
    ORXBasTreeGeneric& operator=(ORXBasTreeGeneric const& other);
    ~ORXBasTreeGeneric();

    void Clear();
    // The element whose key equals the key at key, or End().
    ORXBasTreeIteratorGeneric Find(void const* key) const;
    // Inserts a copy of the value unless its key is present; gives the element with that key.
    ORXBasPairIterBoolGeneric InsertUnique(void const* value);
    ORXBasTreeIteratorGeneric Begin() const { return ORXBasTreeIteratorGeneric(Leftmost()); }
    ORXBasTreeIteratorGeneric End() const { return ORXBasTreeIteratorGeneric(Header()); }
    // The least element's node; the header when the tree is empty.
    ORXBasTreeNodeGeneric* Leftmost() const { return m_leftmost; }
    std::uint64_t Size() const { return m_count; }
    // Exchanges the contents of two trees of the same element type.
    void swap(ORXBasTreeGeneric& other);

private:
    ORXBasTreeNodeGeneric* Header() const { return const_cast<ORXBasTreeNodeGeneric*>(&m_header); }
    ORXBasTreeNodeGeneric* Root() const { return m_header.m_left; }
    void* ValueOf(ORXBasTreeNodeGeneric* node) const
    {
        return reinterpret_cast<char*>(node) + m_offsets.m_valueOffset;
    }
    bool Less(void const* first, void const* second) const { return m_comparitor(first, second, m_context); }
    // The first node whose key is not less than key, or null.
    ORXBasTreeNodeGeneric* LowerBound(void const* key) const;
    ORXBasTreeNodeGeneric* CreateNode(void const* value);
    void DestroyNode(ORXBasTreeNodeGeneric* node);
    void DestroySubtree(ORXBasTreeNodeGeneric* node);
    // Attaches copies of source's subtree below parent, shape and colours included.
    void CopySubtree(ORXBasTreeNodeGeneric const* source, ORXBasTreeNodeGeneric* parent,
                     ORXBasTreeNodeGeneric*& link);
    void CopyFrom(ORXBasTreeGeneric const& other);
    void ResetEmpty();
    // After a swap: points the root and an empty tree's leftmost link at this tree's own header.
    void RelinkHeader(ORXBasTreeGeneric const& previousOwner);

    ORXBasTreeNodeGeneric m_header;
    std::uint64_t m_count;
    ORXBasTreeNodeGeneric* m_leftmost;
    ORXBasNodeOffsets m_offsets;
    ORXBasReplicatorGeneric m_replicator;
    ORXBasComparitorFunc m_comparitor;
    void const* m_context;
};

extern template class ORXBasTreeGeneric<ORXBasNodeAllocator>;
