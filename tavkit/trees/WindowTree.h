// WindowTree.h - the items of a tree control, as a walk asks for them
#pragma once

#include <afxcmn.h>
#include "tavkit/trees/TreeWalk.h"

namespace tavkit
{

/// Borrows a tree control for NextInWalk().
class WindowTree
{
public:
    explicit WindowTree(CTreeCtrl const& tree) : m_tree(tree) {}

    /// Where a walk begins. @param root  null for the whole tree
    [[nodiscard]] HTREEITEM First(HTREEITEM root) const { return root != nullptr ? root : m_tree.GetRootItem(); }
    [[nodiscard]] HTREEITEM Child(HTREEITEM item) const { return m_tree.GetChildItem(item); }
    [[nodiscard]] HTREEITEM Next(HTREEITEM item) const { return m_tree.GetNextSiblingItem(item); }
    [[nodiscard]] HTREEITEM Parent(HTREEITEM item) const { return m_tree.GetParentItem(item); }

private:
    CTreeCtrl const& m_tree;
};

} // namespace tavkit
