// TreeCtrlItr.h - walks through the items of a tree
#pragma once

#include <afxcmn.h>
#include "tavkit/frame/Export.h"

/// Walks a whole tree or one item with all below it: every item before its children, and those before its next
/// brother. The current item must not be deleted during the walk. Values; a copy walks on by itself.
class TAVKIT_API CTreeCtrlItr
{
public:
    /// Frst() has to be called before anything else.
    /// @param tree  borrowed; null walks nothing
    /// @param root  the item to stay at and below; null walks the whole tree
    CTreeCtrlItr(CTreeCtrl* tree, HTREEITEM root);

    /// To the first item: the root, or the tree's first one.
    void Frst();
    /// To the next item; behind the last one there is none, and stays none.
    void Next();
    /// Is there a current item.
    [[nodiscard]] bool Cont() const { return m_hCrnt != nullptr; }
    [[nodiscard]] HTREEITEM Crnt() const { return m_hCrnt; }
    [[nodiscard]] HTREEITEM operator*() const { return m_hCrnt; }

private:
    CTreeCtrl* m_pTree;
    HTREEITEM m_hCrnt = nullptr;
    HTREEITEM m_hRoot;
};
