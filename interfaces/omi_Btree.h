#pragma once
// omi_Btree: the sorted map of the base library, on the same single-rotation search tree as
// ORXSimBtree. The differences: an equal key never changes anything on Insert; a failed ConstGet
// gives the tree's null value; and when a removed node leaves its parent, the parent's depth is
// recomputed at once. Keys are ordered by their member Compare: key.Compare(other) negative means
// key sorts before other.
#include "ORXSimBtreeNodeCore.h"
#include "ORXSimBtreeWalk.h"
#include "mem_Entries.h"

// The null value of a value type, what a failed lookup gives: the value-initialised one, which for
// ORXSimDynamicID is the null identity (category 0, context 0, minors -1, type -1). Value types with
// another null specialise this beside their class.
template <class V> struct omi_BtreeValue
{
    static V NullValue() { return V(); }
};

template <class K, class V> class omi_Btree;

// One key and its value with two subtrees; owns its children.
template <class K, class V>
class omi_BtreeNode : public ORXSimBtreeNodeCore<omi_BtreeNode<K, V>, K, V>, public mem_AllocationOperators
{
    using Core = ORXSimBtreeNodeCore<omi_BtreeNode, K, V>;

public:
    omi_BtreeNode(K const& key, V const& value) : Core(key, value) {}

    // Position of b relative to a: negative if b sorts before a, 0 if equal, positive if after.
    static int Compare(K const& a, K const& b) { return b.Compare(a); }

    bool Insert(K const& key, V const& value) { return Core::InsertBelow(key, value, false); }

    // Removes key from this subtree; parent is the node holding this one, told to drop it when this
    // node itself goes.
    bool Remove(K const& key, omi_BtreeNode& parent)
    {
        int order = key.Compare(this->m_key);
        if (order != 0)
        {
            omi_BtreeNode*& child = order < 0 ? this->m_left : this->m_right;
            if (!child)
                return false;
            bool removed = child->Remove(key, *this);
            if (child && removed)
            {
                if (omi_BtreeNode* root = child->Balance())
                    child = root;
                Core::SetMaxDepth();
            }
            return removed;
        }
        parent.RemoveNode(this, Core::DetachForRemoval());
        return true;
    }

    // Puts replacement where the child node was, frees node and recomputes this node's depth.
    void RemoveNode(omi_BtreeNode* node, omi_BtreeNode* replacement)
    {
        if (node == this->m_right)
            this->m_right = replacement;
        else
            this->m_left = replacement;
        delete node;
        Core::SetMaxDepth();
    }

private:
    friend class omi_Btree<K, V>;
};

// One cell of an iterator's stack.
template <class K, class V> class omi_BtreeNodeLink : public mem_AllocationOperators
{
public:
    omi_BtreeNodeLink(omi_BtreeNode<K, V>* node, omi_BtreeNodeLink* next) : m_node(node), m_next(next) {}
    omi_BtreeNode<K, V>* Node() const { return m_node; }
    omi_BtreeNodeLink* Next() const { return m_next; }

private:
    omi_BtreeNode<K, V>* m_node;
    omi_BtreeNodeLink* m_next;
};

// Walks an omi_Btree in key order; see ORXSimBtreeWalk.
template <class K, class V>
class omi_BtreeIterator
    : public ORXSimBtreeWalk<omi_Btree<K, V>, omi_BtreeNode<K, V>, omi_BtreeNodeLink<K, V>>
{
    using Walk = ORXSimBtreeWalk<omi_Btree<K, V>, omi_BtreeNode<K, V>, omi_BtreeNodeLink<K, V>>;

public:
    explicit omi_BtreeIterator(omi_Btree<K, V> const& tree) : Walk(&tree) {}
    explicit omi_BtreeIterator(omi_Btree<K, V> const* tree) : Walk(tree) {}
};

template <class K, class V> class omi_Btree : public mem_AllocationOperators
{
public:
    typedef omi_BtreeNode<K, V> Node;

    omi_Btree() : m_root(nullptr), m_size(0), m_nullValue(omi_BtreeValue<V>::NullValue()) {}
    // Copies keep the shape of the source exactly.
    omi_Btree(omi_Btree const& other)
        : m_root(other.m_root ? new Node(*other.m_root) : nullptr), m_size(other.m_size),
          m_nullValue(other.m_nullValue)
    {
    }
    omi_Btree& operator=(omi_Btree const& other)
    {
        if (this == &other)
            return *this;
        Node* root = other.m_root ? new Node(*other.m_root) : nullptr;
        delete m_root;
        m_root = root;
        m_size = other.m_size;
        m_nullValue = other.m_nullValue;
        return *this;
    }
    ~omi_Btree() { delete m_root; }

    // A new tree of the same shape, owned by the caller (free it with delete).
    omi_Btree* Copy() const { return new omi_Btree(*this); }

    static int Compare(K const& a, K const& b) { return Node::Compare(a, b); }

    // True if a new key went in; an equal key changes nothing and gives false.
    bool Insert(K const& key, V const& value)
    {
        if (!m_root)
        {
            m_root = new Node(key, value);
            m_size = 1;
            return true;
        }
        bool inserted = m_root->Insert(key, value);
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
        if (!m_root)
            return false;
        // A stand-in parent on the stack holds the root as its left child.
        Node head(K(), m_nullValue);
        head.m_left = m_root;
        bool removed = m_root->Remove(key, head);
        m_root = head.m_left;
        head.m_left = nullptr;
        if (!removed)
            return false;
        --m_size;
        if (m_root)
            if (Node* root = m_root->Balance())
                m_root = root;
        return true;
    }

    bool IsMember(K const& key) const { return m_root && m_root->Find(key); }

    // The value stored under key, or the null value when it is missing.
    V const& ConstGet(K const& key) const
    {
        Node* node = m_root ? m_root->Find(key) : nullptr;
        return node ? node->ConstGetValue() : m_nullValue;
    }

    V const& GetNullValue() const { return m_nullValue; }
    int Size() const { return m_size; }

    // The root node, null when empty; for inspecting the shape.
    Node* Root() const { return m_root; }

private:
    Node* m_root;
    int m_size;
    V m_nullValue;
};
