#pragma once
// In-order walk over a search tree whose nodes have no parent pointers, shared by
// ORXSimBtreeIterator and omi_BtreeIterator.
//
// An explicit stack of links holds the path from the root to the current node, less the nodes
// already passed. Each Push allocates one link; the walk is ascending from First and descending
// from Last. Next, Previous, CurrentKey and CurrentValue must not be called once IsDone is true,
// and the tree must not change while it is walked.
template <class Tree, class Node, class Link> class ORXSimBtreeWalk
{
public:
    explicit ORXSimBtreeWalk(Tree const* tree) : m_tree(tree), m_stack(nullptr) {}
    ORXSimBtreeWalk(ORXSimBtreeWalk const&) = delete;
    ORXSimBtreeWalk& operator=(ORXSimBtreeWalk const&) = delete;
    ~ORXSimBtreeWalk() { ClearStack(); }

    void First()
    {
        ClearStack();
        PushLeftChain(m_tree->Root());
    }

    void Last()
    {
        ClearStack();
        PushRightChain(m_tree->Root());
    }

    void Next()
    {
        Node* top = m_stack->Node();
        if (top->Right())
        {
            PushLeftChain(top->Right());
            return;
        }
        Node* popped;
        do
        {
            popped = m_stack->Node();
            Pop();
        } while (m_stack && m_stack->Node()->Right() == popped);
    }

    void Previous()
    {
        Node* top = m_stack->Node();
        if (top->Left())
        {
            PushRightChain(top->Left());
            return;
        }
        Node* popped;
        do
        {
            popped = m_stack->Node();
            Pop();
        } while (m_stack && m_stack->Node()->Left() == popped);
    }

    bool IsDone() const { return m_stack == nullptr; }
    auto const& CurrentKey() const { return m_stack->Node()->GetKey(); }
    auto const& CurrentValue() const { return m_stack->Node()->ConstGetValue(); }

    void Push(Node* node) { m_stack = new Link(node, m_stack); }

    void Pop()
    {
        if (!m_stack)
            return;
        Link* next = m_stack->Next();
        delete m_stack;
        m_stack = next;
    }

    void ClearStack()
    {
        while (m_stack)
            Pop();
    }

private:
    void PushLeftChain(Node* node)
    {
        for (; node; node = node->Left())
            Push(node);
    }

    void PushRightChain(Node* node)
    {
        for (; node; node = node->Right())
            Push(node);
    }

    Tree const* m_tree;
    Link* m_stack;
};
