#pragma once
// The untyped core of ORXBasMap: a red-black tree of unique values. Values are ordered by a
// comparitor on their leading key; a replicator copies and destroys them. The header node is the
// end position; its left link is the root. Iterators stay valid until Clear. Nodes come from blocks
// that the tree takes from Allocator and gives back whole in Clear (elements are never removed one
// by one): blocks double from one node up to a bound, so that a small map stays small and the
// nodes of a large one lie side by side in the order they were inserted.
#include "ORXBasComparitor.h"
#include "ORXBasNodeAllocator.h"
#include "ORXBasReplicatorGeneric.h"
#include "ORXBasTreeIteratorGeneric.h"

#include <cstdint>

struct ORXBasTreeBlock;

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
    // Inserts a copy of the value unless its key is present; gives the element with that key. A key
    // above all present ones (values inserted in ascending order) is placed without a descent.
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
    // Room for one more node, from the newest block or a new one.
    ORXBasTreeNodeGeneric* AllocateNode();
    // Destroys every element and gives all blocks back.
    void ReleaseNodes();
    // Attaches copies of source's subtree below parent, shape and colours included.
    void CopySubtree(ORXBasTreeNodeGeneric const* source, ORXBasTreeNodeGeneric* parent,
                     ORXBasTreeNodeGeneric*& link);
    void CopyFrom(ORXBasTreeGeneric const& other);
    void ResetEmpty();
    // Links the new node below parent, as its left or right child, and rebalances.
    void Attach(ORXBasTreeNodeGeneric* node, ORXBasTreeNodeGeneric* parent, bool asLeft);
    // After a swap: points the root and an empty tree's extreme links at this tree's own header.
    void RelinkHeader(ORXBasTreeGeneric const& previousOwner);

    ORXBasTreeNodeGeneric m_header;
    std::uint64_t m_count;
    ORXBasTreeNodeGeneric* m_leftmost;
    ORXBasTreeNodeGeneric* m_rightmost; // the greatest element's node; the header when empty
    ORXBasNodeOffsets m_offsets;
    ORXBasReplicatorGeneric m_replicator;
    ORXBasComparitorFunc m_comparitor;
    void const* m_context;
    ORXBasTreeBlock* m_blocks; // the newest block first; null when the tree has no nodes
};

extern template class ORXBasTreeGeneric<ORXBasNodeAllocator>;
