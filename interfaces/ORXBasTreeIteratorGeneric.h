#pragma once
// Node links of the ordered tree core and the untyped iterator over them. A node keeps in its second
// int the offset of its value from the node's start, so dereferencing needs no type.

struct ORXBasTreeNodeGeneric
{
    int m_color;
    int m_valueOffset;
    ORXBasTreeNodeGeneric* m_parent;
    ORXBasTreeNodeGeneric* m_left;
    ORXBasTreeNodeGeneric* m_right;
};

// Position in a tree: a node, or the tree's header as the end.
class ORXBasTreeIteratorGeneric
{
public:
    explicit ORXBasTreeIteratorGeneric(ORXBasTreeNodeGeneric* node = nullptr) : m_node(node) {}

    // Moves to the in-order successor; from the greatest element to the end.
    void Next();
    void* Dereference() const { return reinterpret_cast<char*>(m_node) + m_node->m_valueOffset; }
    bool Equal(ORXBasTreeIteratorGeneric const& other) const { return m_node == other.m_node; }
    bool NotEqual(ORXBasTreeIteratorGeneric const& other) const { return m_node != other.m_node; }
    ORXBasTreeNodeGeneric* Node() const { return m_node; }

protected:
    ORXBasTreeNodeGeneric* m_node;
};

// Result of a unique insertion: the element with the key, and whether it is new.
struct ORXBasPairIterBoolGeneric
{
    ORXBasTreeIteratorGeneric first;
    bool second;
};
