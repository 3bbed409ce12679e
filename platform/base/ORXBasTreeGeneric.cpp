#include "ORXBasTreeGeneric.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <utility>

// A block of tree nodes: this header, then capacity nodes at the alignment of any value.
struct ORXBasTreeBlock
{
    ORXBasTreeBlock* next;
    std::size_t capacity;
    std::size_t used;
};

namespace
{
typedef ORXBasTreeNodeGeneric Node;

constexpr int g_red = 0;
constexpr int g_black = 1;

constexpr std::size_t g_blockHeader = (sizeof(ORXBasTreeBlock) + alignof(std::max_align_t) - 1) /
                                      alignof(std::max_align_t) * alignof(std::max_align_t);
// Blocks stop doubling at this many bytes of nodes (or one node, if a node is larger).
constexpr std::size_t g_blockBytes = 16384;

char* NodesOf(ORXBasTreeBlock* block)
{
    return reinterpret_cast<char*>(block) + g_blockHeader;
}

// Replaces child by replacement in child's parent, which may be the header (left link = root).
void ReplaceChild(Node* child, Node* replacement)
{
    Node* parent = child->m_parent;
    if (parent->m_left == child)
        parent->m_left = replacement;
    else
        parent->m_right = replacement;
    replacement->m_parent = parent;
}

void RotateLeft(Node* node)
{
    Node* pivot = node->m_right;
    node->m_right = pivot->m_left;
    if (pivot->m_left)
        pivot->m_left->m_parent = node;
    ReplaceChild(node, pivot);
    pivot->m_left = node;
    node->m_parent = pivot;
}

void RotateRight(Node* node)
{
    Node* pivot = node->m_left;
    node->m_left = pivot->m_right;
    if (pivot->m_right)
        pivot->m_right->m_parent = node;
    ReplaceChild(node, pivot);
    pivot->m_right = node;
    node->m_parent = pivot;
}

bool IsRed(Node const* node)
{
    return node && node->m_color == g_red;
}

// Restores the red-black rules after node was linked in red. The header is black, so the loop stops
// below it; the root ends black.
void RebalanceAfterInsert(Node* node, Node* header)
{
    while (IsRed(node->m_parent))
    {
        Node* parent = node->m_parent;
        Node* grandparent = parent->m_parent;
        bool parentIsLeft = parent == grandparent->m_left;
        Node* uncle = parentIsLeft ? grandparent->m_right : grandparent->m_left;
        if (IsRed(uncle))
        {
            parent->m_color = g_black;
            uncle->m_color = g_black;
            grandparent->m_color = g_red;
            node = grandparent;
            continue;
        }
        if (parentIsLeft)
        {
            if (node == parent->m_right)
            {
                RotateLeft(parent);
                parent = node;
            }
            RotateRight(grandparent);
        }
        else
        {
            if (node == parent->m_left)
            {
                RotateRight(parent);
                parent = node;
            }
            RotateLeft(grandparent);
        }
        parent->m_color = g_black;
        grandparent->m_color = g_red;
        break;
    }
    header->m_left->m_color = g_black;
}
} // namespace

template <class Allocator>
ORXBasTreeGeneric<Allocator>::ORXBasTreeGeneric(ORXBasNodeOffsets const& offsets,
                                                ORXBasReplicatorGeneric const& replicator,
                                                ORXBasComparitorFunc comparitor, void const* context)
    : m_header(), m_count(0), m_leftmost(nullptr), m_rightmost(nullptr), m_offsets(offsets),
      m_replicator(replicator), m_comparitor(comparitor), m_context(context), m_blocks(nullptr)
{
    ResetEmpty();
}

template <class Allocator>
ORXBasTreeGeneric<Allocator>::ORXBasTreeGeneric(ORXBasTreeGeneric const& other)
    : m_header(), m_count(0), m_leftmost(nullptr), m_rightmost(nullptr), m_offsets(other.m_offsets),
      m_replicator(other.m_replicator), m_comparitor(other.m_comparitor), m_context(other.m_context),
      m_blocks(nullptr)
{
    ResetEmpty();
    CopyFrom(other);
}

template <class Allocator>
ORXBasTreeGeneric<Allocator>& ORXBasTreeGeneric<Allocator>::operator=(ORXBasTreeGeneric const& other)
{
    if (this != &other)
    {
        ORXBasTreeGeneric copy(other);
        swap(copy);
    }
    return *this;
}

template <class Allocator> ORXBasTreeGeneric<Allocator>::~ORXBasTreeGeneric()
{
    ReleaseNodes();
}

template <class Allocator> void ORXBasTreeGeneric<Allocator>::ResetEmpty()
{
    m_header.m_color = g_black;
    m_header.m_valueOffset = m_offsets.m_valueOffset;
    m_header.m_parent = nullptr;
    m_header.m_left = nullptr;
    m_header.m_right = nullptr;
    m_leftmost = Header();
    m_rightmost = Header();
    m_count = 0;
}

template <class Allocator> void ORXBasTreeGeneric<Allocator>::Clear()
{
    ReleaseNodes();
    ResetEmpty();
}

template <class Allocator>
ORXBasTreeNodeGeneric* ORXBasTreeGeneric<Allocator>::LowerBound(void const* key) const
{
    Node* bound = nullptr;
    for (Node* node = Root(); node;)
    {
        if (Less(ValueOf(node), key))
            node = node->m_right;
        else
        {
            bound = node;
            node = node->m_left;
        }
    }
    return bound;
}

template <class Allocator> ORXBasTreeIteratorGeneric ORXBasTreeGeneric<Allocator>::Find(void const* key) const
{
    Node* bound = LowerBound(key);
    return bound && !Less(key, ValueOf(bound)) ? ORXBasTreeIteratorGeneric(bound) : End();
}

template <class Allocator>
ORXBasPairIterBoolGeneric ORXBasTreeGeneric<Allocator>::InsertUnique(void const* value)
{
    if (m_count > 0 && Less(ValueOf(m_rightmost), value))
    {
        Node* node = CreateNode(value);
        Attach(node, m_rightmost, false);
        return {ORXBasTreeIteratorGeneric(node), true};
    }
    // One descent finds both the lower bound (an equal key, if any) and the free link to attach to.
    Node* parent = Header();
    Node* bound = nullptr;
    bool asLeft = true;
    for (Node* node = Root(); node;)
    {
        parent = node;
        asLeft = !Less(ValueOf(node), value);
        if (asLeft)
        {
            bound = node;
            node = node->m_left;
        }
        else
            node = node->m_right;
    }
    if (bound && !Less(value, ValueOf(bound)))
        return {ORXBasTreeIteratorGeneric(bound), false};

    Node* node = CreateNode(value);
    Attach(node, parent, asLeft);
    return {ORXBasTreeIteratorGeneric(node), true};
}

template <class Allocator>
void ORXBasTreeGeneric<Allocator>::Attach(ORXBasTreeNodeGeneric* node, ORXBasTreeNodeGeneric* parent,
                                          bool asLeft)
{
    node->m_parent = parent;
    if (asLeft)
    {
        parent->m_left = node;
        if (parent == m_leftmost)
            m_leftmost = node;
    }
    else
        parent->m_right = node;
    // The first node hangs left of the header and is both extremes.
    if (parent == Header() || (!asLeft && parent == m_rightmost))
        m_rightmost = node;
    ++m_count;
    RebalanceAfterInsert(node, Header());
}

template <class Allocator> ORXBasTreeNodeGeneric* ORXBasTreeGeneric<Allocator>::AllocateNode()
{
    ORXBasTreeBlock* block = m_blocks;
    if (!block || block->used == block->capacity)
    {
        std::size_t const nodeSize = static_cast<std::size_t>(m_offsets.m_nodeSize);
        std::size_t const most = std::max<std::size_t>(1, g_blockBytes / nodeSize);
        std::size_t const capacity = block ? std::min(most, 2 * block->capacity) : 1;
        block = new (Allocator::Allocate(g_blockHeader + capacity * nodeSize))
            ORXBasTreeBlock{m_blocks, capacity, 0};
        m_blocks = block;
    }
    return reinterpret_cast<Node*>(NodesOf(block) + block->used++ * m_offsets.m_nodeSize);
}

template <class Allocator> ORXBasTreeNodeGeneric* ORXBasTreeGeneric<Allocator>::CreateNode(void const* value)
{
    Node* node = AllocateNode();
    try
    {
        m_replicator.m_copy(value, ValueOf(node), 1);
    }
    catch (...)
    {
        --m_blocks->used; // the node was the last one taken
        throw;
    }
    node->m_color = g_red;
    node->m_valueOffset = m_offsets.m_valueOffset;
    node->m_parent = nullptr;
    node->m_left = nullptr;
    node->m_right = nullptr;
    return node;
}

template <class Allocator> void ORXBasTreeGeneric<Allocator>::ReleaseNodes()
{
    while (ORXBasTreeBlock* block = m_blocks)
    {
        if (m_replicator.m_destroy)
            for (std::size_t i = 0; i < block->used; ++i)
                m_replicator.m_destroy(
                    ValueOf(reinterpret_cast<Node*>(NodesOf(block) + i * m_offsets.m_nodeSize)), 1);
        m_blocks = block->next;
        Allocator::Deallocate(block);
    }
}

template <class Allocator>
void ORXBasTreeGeneric<Allocator>::CopySubtree(ORXBasTreeNodeGeneric const* source,
                                               ORXBasTreeNodeGeneric* parent, ORXBasTreeNodeGeneric*& link)
{
    // Recursion follows right links only; left spines are walked in the loop.
    ORXBasTreeNodeGeneric** slot = &link;
    while (source)
    {
        Node* node = CreateNode(ValueOf(const_cast<Node*>(source)));
        node->m_color = source->m_color;
        node->m_parent = parent;
        *slot = node;
        CopySubtree(source->m_right, node, node->m_right);
        parent = node;
        slot = &node->m_left;
        source = source->m_left;
    }
}

template <class Allocator> void ORXBasTreeGeneric<Allocator>::CopyFrom(ORXBasTreeGeneric const& other)
{
    try
    {
        CopySubtree(other.Root(), Header(), m_header.m_left);
    }
    catch (...)
    {
        Clear();
        throw;
    }
    m_count = other.m_count;
    Node* leftmost = Header();
    for (Node* node = Root(); node; node = node->m_left)
        leftmost = node;
    m_leftmost = leftmost;
    Node* rightmost = Header();
    for (Node* node = Root(); node; node = node->m_right)
        rightmost = node;
    m_rightmost = rightmost;
}

template <class Allocator> void ORXBasTreeGeneric<Allocator>::swap(ORXBasTreeGeneric& other)
{
    std::swap(m_header, other.m_header);
    std::swap(m_count, other.m_count);
    std::swap(m_leftmost, other.m_leftmost);
    std::swap(m_rightmost, other.m_rightmost);
    std::swap(m_offsets, other.m_offsets);
    std::swap(m_replicator, other.m_replicator);
    std::swap(m_comparitor, other.m_comparitor);
    std::swap(m_context, other.m_context);
    std::swap(m_blocks, other.m_blocks);
    RelinkHeader(other);
    other.RelinkHeader(*this);
}

template <class Allocator>
void ORXBasTreeGeneric<Allocator>::RelinkHeader(ORXBasTreeGeneric const& previousOwner)
{
    if (Root())
        Root()->m_parent = Header();
    if (m_leftmost == previousOwner.Header())
        m_leftmost = Header();
    if (m_rightmost == previousOwner.Header())
        m_rightmost = Header();
}

template class ORXBasTreeGeneric<ORXBasNodeAllocator>;
