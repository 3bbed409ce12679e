#include "ORXBasTreeIteratorGeneric.h"

// The header's left link is the root, so climbing from the greatest element ends at the header.
void ORXBasTreeIteratorGeneric::Next()
{
    if (m_node->m_right)
    {
        m_node = m_node->m_right;
        while (m_node->m_left)
            m_node = m_node->m_left;
        return;
    }
    ORXBasTreeNodeGeneric* parent = m_node->m_parent;
    while (m_node == parent->m_right)
    {
        m_node = parent;
        parent = parent->m_parent;
    }
    m_node = parent;
}
