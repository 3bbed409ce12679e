#pragma once
// ORXSimBtree: a sorted map from key to value on a binary search tree whose nodes store the height
// of their subtree and are repaired by single rotations (despite the name, not a B-tree).
//
// Keys are ordered by ORXSimBtreeCompare(a, b), the position of b relative to a (-1 before, 0 equal,
// 1 after). It is given for ORXString (unsigned bytes) and, through operator<, for other keys; a key
// type may declare its own overload beside its class. When a removed node's child goes away, the
// parent's stored depth is left as it was until a later operation refreshes it.
#include "ORXSimBtreeNodeCore.h"
#include "ORXSimBtreeWalk.h"
#include "ORXString.h"
#include "mem_Entries.h"

#include <cstring>

template <class K> int ORXSimBtreeCompare(K const& a, K const& b)
{
    return b < a ? -1 : (a < b ? 1 : 0);
}

inline int ORXSimBtreeCompare(ORXString const& a, ORXString const& b)
{
    int order = std::strcmp(b.CStr(), a.CStr());
    return (order > 0) - (order < 0);
}

template <class K, class V> class ORXSimBtree;

// One key and its value with two subtrees; owns its children.
template <class K, class V>
class ORXSimBtreeNode : public ORXSimBtreeNodeCore<ORXSimBtreeNode<K, V>, K, V>,
                        public mem_AllocationOperators
{
    using Core = ORXSimBtreeNodeCore<ORXSimBtreeNode, K, V>;

public:
    ORXSimBtreeNode(K const& key, V const& value) : Core(key, value) {}

    static int Compare(K const& a, K const& b) { return ORXSimBtreeCompare(a, b); }

    bool Insert(K const& key, V const& value, bool replace) { return Core::InsertBelow(key, value, replace); }

    // Removes key from this subtree; slot is the pointer that holds this node and is rewritten when
    // this node itself goes.
    bool Remove(K const& key, ORXSimBtreeNode*& slot)
    {
        int order = Compare(this->m_key, key);
        if (order != 0)
        {
            ORXSimBtreeNode*& child = order < 0 ? this->m_left : this->m_right;
            if (!child)
                return false;
            bool removed = child->Remove(key, child);
            if (child && removed)
            {
                if (ORXSimBtreeNode* root = child->Balance())
                    child = root;
                Core::SetMaxDepth();
            }
            return removed;
        }
        slot = Core::DetachForRemoval();
        delete this;
        return true;
    }
};

// One cell of an iterator's stack.
template <class K, class V> class ORXSimBtreeNodeLink : public mem_AllocationOperators
{
public:
    ORXSimBtreeNodeLink(ORXSimBtreeNode<K, V>* node, ORXSimBtreeNodeLink* next) : m_node(node), m_next(next)
    {
    }
    ORXSimBtreeNode<K, V>* Node() const { return m_node; }
    ORXSimBtreeNodeLink* Next() const { return m_next; }

private:
    ORXSimBtreeNode<K, V>* m_node;
    ORXSimBtreeNodeLink* m_next;
};

// Walks an ORXSimBtree in key order; see ORXSimBtreeWalk.
template <class K, class V>
class ORXSimBtreeIterator
    : public ORXSimBtreeWalk<ORXSimBtree<K, V>, ORXSimBtreeNode<K, V>, ORXSimBtreeNodeLink<K, V>>
{
    using Walk = ORXSimBtreeWalk<ORXSimBtree<K, V>, ORXSimBtreeNode<K, V>, ORXSimBtreeNodeLink<K, V>>;

public:
    explicit ORXSimBtreeIterator(ORXSimBtree<K, V> const& tree) : Walk(&tree) {}
    explicit ORXSimBtreeIterator(ORXSimBtree<K, V> const* tree) : Walk(tree) {}
};

template <class K, class V> class ORXSimBtree
{
public:
    typedef ORXSimBtreeNode<K, V> Node;

    ORXSimBtree() : m_root(nullptr), m_size(0) {}
    // Copies keep the shape of the source exactly.
    ORXSimBtree(ORXSimBtree const& other)
        : m_root(other.m_root ? new Node(*other.m_root) : nullptr), m_size(other.m_size)
    {
    }
    ORXSimBtree& operator=(ORXSimBtree const& other)
    {
        ORXSimBtree copy(other);
        Swap(copy);
        return *this;
    }
    ~ORXSimBtree() { delete m_root; }

    // True if a new key went in. An equal key gives false; with replace its value is overwritten.
    bool Insert(K const& key, V const& value, bool replace)
    {
        if (!m_root)
        {
            m_root = new Node(key, value);
            m_size = 1;
            return true;
        }
        bool inserted = m_root->Insert(key, value, replace);
        if (inserted)
        {
            ++m_size;
            if (Node* root = m_root->Balance())
                m_root = root;
        }
        return inserted;
    }

    bool Remove(K const& key)
    {
        if (!m_root || !m_root->Remove(key, m_root))
            return false;
        --m_size;
        if (m_root)
            if (Node* root = m_root->Balance())
                m_root = root;
        return true;
    }

    bool IsMember(K const& key) const { return FindNode(key) != nullptr; }

    // The value stored under key, or null.
    V* Find(K const& key)
    {
        Node* node = FindNode(key);
        return node ? &node->GetValue() : nullptr;
    }
    V const* Find(K const& key) const
    {
        Node const* node = FindNode(key);
        return node ? &node->ConstGetValue() : nullptr;
    }

    // The value stored under key; the key must be a member (ask IsMember first).
    V& Get(K const& key) { return *Find(key); }
    V const& Get(K const& key) const { return *Find(key); }

    int Size() const { return m_size; }

    void Swap(ORXSimBtree& other)
    {
        Node* root = m_root;
        m_root = other.m_root;
        other.m_root = root;
        int size = m_size;
        m_size = other.m_size;
        other.m_size = size;
    }

    void Clear()
    {
        delete m_root;
        m_root = nullptr;
        m_size = 0;
    }

    // The root node, null when empty; for inspecting the shape.
    Node* Root() const { return m_root; }

private:
    Node* FindNode(K const& key) const { return m_root ? m_root->Find(key) : nullptr; }

    Node* m_root;
    int m_size;
};
