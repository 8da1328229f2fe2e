// ItemWatch.h - notices when a hook takes away what its caller still needs
#pragma once

#include "tavkit/trees/TavTreeCtrl.h"

/// Lives on the stack around a call to a hook, and knows afterwards whether the tree and one of its items still are
/// there. Watches of a tree end in the opposite order of their beginning.
class CTavTreeCtrl::ItemWatch
{
public:
    explicit ItemWatch(CTavTreeCtrl& tree, HTREEITEM item = nullptr);
    ~ItemWatch();
    ItemWatch(ItemWatch const&) = delete;
    ItemWatch& operator=(ItemWatch const&) = delete;

    /// The item; null if there was none, or it was deleted.
    [[nodiscard]] HTREEITEM Item() const { return m_hItem; }
    /// True unless the item was deleted; beside all items (a null item) there is nothing to delete.
    [[nodiscard]] bool ItemIsThere() const { return !m_bDeleted && TreeIsThere(); }
    /// The object and the window that it had.
    [[nodiscard]] bool TreeIsThere() const { return m_pTree != nullptr && m_pTree->m_hWnd == m_hWnd; }
    [[nodiscard]] bool ObjectIsThere() const { return m_pTree != nullptr; }

private:
    friend class CTavTreeCtrl;

    CTavTreeCtrl* m_pTree; // null once the object is gone
    HWND m_hWnd;
    HTREEITEM m_hItem;
    bool m_bDeleted = false;
    ItemWatch* m_pBelow; // the one around it
};
