#pragma once
// Shape operations shared by the nodes of the two search trees, ORXSimBtreeNode and omi_BtreeNode.
//
// A node holds one key and its value and has two children; it stores the height of its subtree and is
// repaired by single rotations only. Node derives from this class, has public constructors from key
// and value, and a static Compare(a, b) giving the position of b relative to a: negative if b sorts
// before a, 0 if equal, positive if after. Copying a node copies its whole subtree, keeping its shape.
template <class Node, class K, class V> class ORXSimBtreeNodeCore
{
public:
    K const& GetKey() const { return m_key; }
    V& GetValue() { return m_value; }
    V const& ConstGetValue() const { return m_value; }
    int MaxDepth() const { return Self().m_maxDepth; }
    Node* Left() const { return Self().m_left; }
    Node* Right() const { return Self().m_right; }

    // Height of the subtree from the two children only: 0 for a leaf.
    void SetMaxDepth()
    {
        Node& self = Self();
        int left = self.m_left ? self.m_left->m_maxDepth + 1 : 0;
        int right = self.m_right ? self.m_right->m_maxDepth + 1 : 0;
        self.m_maxDepth = left > right ? left : right;
    }

    // One single rotation when the children's stored depths differ by more than one, an absent child
    // counting as a leaf. Gives the new root of the subtree, or null when nothing changed.
    Node* Balance()
    {
        Node& self = Self();
        int left = self.m_left ? self.m_left->m_maxDepth : 0;
        int right = self.m_right ? self.m_right->m_maxDepth : 0;
        if (right - left > 1)
        {
            Node* child = self.m_right;
            self.m_right = child->m_left;
            child->m_left = &self;
            SetMaxDepth();
            child->SetMaxDepth();
            return child;
        }
        if (right - left < -1)
        {
            Node* child = self.m_left;
            self.m_left = child->m_right;
            child->m_right = &self;
            SetMaxDepth();
            child->SetMaxDepth();
            return child;
        }
        return nullptr;
    }

    // The node holding key in this subtree, found by a loop; null if absent.
    template <class Key> Node* Find(Key const& key)
    {
        Node* node = &Self();
        while (node)
        {
            int order = Node::Compare(node->m_key, key);
            if (order == 0)
                return node;
            node = order < 0 ? node->m_left : node->m_right;
        }
        return nullptr;
    }

protected:
    ORXSimBtreeNodeCore(K const& key, V const& value)
        : m_value(value), m_key(key), m_left(nullptr), m_right(nullptr), m_maxDepth(0)
    {
    }
    ORXSimBtreeNodeCore(ORXSimBtreeNodeCore const& other)
        : m_value(other.m_value), m_key(other.m_key), m_left(nullptr), m_right(nullptr),
          m_maxDepth(other.m_maxDepth)
    {
        CloneChildren(other.Self());
    }
    ORXSimBtreeNodeCore& operator=(ORXSimBtreeNodeCore const&) = delete;
    ~ORXSimBtreeNodeCore() { DestroyChildren(); }

    // Inserts below this node; an equal key stores value only if replace is set and gives false.
    // A child whose subtree grew is balanced on the way back, and this node's depth recomputed.
    template <class Key, class Value> bool InsertBelow(Key const& key, Value const& value, bool replace)
    {
        Node& self = Self();
        int order = Node::Compare(self.m_key, key);
        if (order == 0)
        {
            if (replace)
                self.m_value = value;
            return false;
        }
        Node*& slot = order < 0 ? self.m_left : self.m_right;
        if (!slot)
        {
            slot = new Node(key, value);
            SetMaxDepth();
            return true;
        }
        if (!slot->InsertBelow(key, value, replace))
            return false;
        if (Node* root = slot->Balance())
            slot = root;
        SetMaxDepth();
        return true;
    }

    // Unlinks this node, which is about to be removed, and gives the node that takes its place
    // (possibly null): the only child, or with two children the leftmost node of the right subtree.
    // That node takes over both subtrees; of the nodes it passed, only its former parent has its
    // depth recomputed.
    Node* DetachForRemoval()
    {
        Node& self = Self();
        Node* replacement;
        if (!self.m_right)
            replacement = self.m_left;
        else if (!self.m_left)
            replacement = self.m_right;
        else
        {
            Node* formerParent = nullptr;
            replacement = self.m_right;
            while (replacement->m_left)
            {
                formerParent = replacement;
                replacement = replacement->m_left;
            }
            if (formerParent)
            {
                formerParent->m_left = replacement->m_right;
                replacement->m_right = self.m_right;
                formerParent->SetMaxDepth();
            }
            replacement->m_left = self.m_left;
            replacement->SetMaxDepth();
        }
        self.m_left = nullptr;
        self.m_right = nullptr;
        return replacement;
    }

    // Clones the subtrees of other under this node, left then right, keeping their shape.
    void CloneChildren(Node const& other)
    {
        Node& self = Self();
        self.m_left = other.m_left ? new Node(*other.m_left) : nullptr;
        try
        {
            self.m_right = other.m_right ? new Node(*other.m_right) : nullptr;
        }
        catch (...)
        {
            delete self.m_left;
            throw;
        }
    }

    // Frees the left subtree, then the right one.
    void DestroyChildren()
    {
        Node& self = Self();
        delete self.m_left;
        delete self.m_right;
    }

    V m_value;
    K m_key;
    Node* m_left;
    Node* m_right;
    int m_maxDepth;

private:
    Node& Self() { return static_cast<Node&>(*this); }
    Node const& Self() const { return static_cast<Node const&>(*this); }
};
