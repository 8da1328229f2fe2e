// WindowTree.h - the items of a tree control, as a walk asks for them
#pragma once

#include <afxcmn.h>
#include "tavkit/trees/TreeWalk.h"

namespace tavkit
{

/// Borrows the window of a tree control for NextInWalk().
class WindowTree
{
public:
    /// @param control  the control's own procedure, which spares every question the way through the message system and
    ///                 the maps; null sends messages
    explicit WindowTree(HWND window, WNDPROC control = nullptr) : m_hWnd(window), m_control(control) {}

    /// Where a walk begins. @param root  null for the whole tree
    [[nodiscard]] HTREEITEM First(HTREEITEM root) const { return root != nullptr ? root : Related(TVGN_ROOT, nullptr); }
    [[nodiscard]] HTREEITEM Child(HTREEITEM item) const { return Related(TVGN_CHILD, item); }
    [[nodiscard]] HTREEITEM Next(HTREEITEM item) const { return Related(TVGN_NEXT, item); }
    [[nodiscard]] HTREEITEM Parent(HTREEITEM item) const { return Related(TVGN_PARENT, item); }

    [[nodiscard]] DWORD_PTR Data(HTREEITEM item) const
    {
        TVITEM query{};
        query.mask = TVIF_PARAM;
        query.hItem = item;
        return Ask(TVM_GETITEM, 0, reinterpret_cast<LPARAM>(&query)) != 0 ? static_cast<DWORD_PTR>(query.lParam) : 0;
    }
    [[nodiscard]] std::size_t Count() const { return static_cast<UINT>(Ask(TVM_GETCOUNT, 0, 0)); }

private:
    [[nodiscard]] HTREEITEM Related(WPARAM code, HTREEITEM item) const
    {
        return reinterpret_cast<HTREEITEM>(Ask(TVM_GETNEXTITEM, code, reinterpret_cast<LPARAM>(item)));
    }
    [[nodiscard]] LRESULT Ask(UINT message, WPARAM wParam, LPARAM lParam) const
    {
        return m_control != nullptr ? ::CallWindowProcA(m_control, m_hWnd, message, wParam, lParam)
                                    : ::SendMessageA(m_hWnd, message, wParam, lParam);
    }

    HWND m_hWnd;
    WNDPROC m_control;
};

} // namespace tavkit
