#pragma once

#include <QtGlobal>

/// Finds the nodes of one of a document's trees, QFragmentMap, at positions that ascend: that takes fewer
/// steps than to come down from the root for each.
template<class Tree>
class TreeWalk
{
public:
    explicit TreeWalk(Tree &tree)
        : m_tree(tree)
    {}

    /// The node that holds \a position, which is not before that of the last call.
    uint nodeAt(int position)
    {
        if (m_node == 0) {
            m_node = m_tree.findNode(position);
            m_start = int(m_tree.position(m_node));
        }
        while (m_start + size() <= position) {
            m_start += size();
            m_node = m_tree.next(m_node);
        }
        return m_node;
    }

    /// Where the node begins that was found last, and how much it holds. Nodes before it are not to change
    /// their size, itself it may.
    int start() const { return m_start; }
    int size() const { return int(m_tree.size(m_node)); }

    /// To be called when nodes have come or gone.
    void forget() { m_node = 0; }

private:
    Tree &m_tree;
    uint m_node = 0;
    int m_start = 0;
};
