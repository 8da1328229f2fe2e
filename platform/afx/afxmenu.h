// afxmenu.h - CMenu: a menu handle and its items
#pragma once

#include <afxcmdtgt.h>

/// Wraps a menu. The object that created or attached the handle owns it and destroys it.
class TAVAFX_API CMenu : public CObject
{
    DECLARE_DYNAMIC(CMenu)

public:
    HMENU m_hMenu = nullptr;

    CMenu() = default;
    ~CMenu() override;

    HMENU GetSafeHmenu() const { return this == nullptr ? nullptr : m_hMenu; }
    operator HMENU() const { return GetSafeHmenu(); }
    /// The object of the handle, a temporary one if there is none of its own; null for a null handle.
    static CMenu* PASCAL FromHandle(HMENU hMenu);
    /// The object that owns the handle, or null.
    static CMenu* PASCAL FromHandlePermanent(HMENU hMenu);
    /// Takes over the handle. FALSE for a null handle.
    BOOL Attach(HMENU hMenu);
    /// Gives the handle back to the caller; null if there was none.
    HMENU Detach();

    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    /// Loads a menu resource through the resource chain. FALSE if there is none.
    BOOL LoadMenu(UINT nID);
    BOOL LoadMenu(LPCTSTR lpszName);
    /// Destroys the menu with its pop-ups; FALSE without a handle.
    BOOL DestroyMenu();

    BOOL AppendMenu(UINT nFlags, UINT_PTR nItem = 0, LPCTSTR lpszText = nullptr);
    BOOL InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nItem = 0, LPCTSTR lpszText = nullptr);
    BOOL ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nItem = 0, LPCTSTR lpszText = nullptr);
    BOOL DeleteMenu(UINT nPosition, UINT nFlags);
    BOOL RemoveMenu(UINT nPosition, UINT nFlags);
    /// @return the former state, (UINT)-1 if there is no such item.
    UINT CheckMenuItem(UINT nItem, UINT nCheck);
    BOOL CheckMenuRadioItem(UINT nFirst, UINT nLast, UINT nItem, UINT nFlags);
    /// @return the former state, (UINT)-1 if there is no such item.
    UINT EnableMenuItem(UINT nItem, UINT nEnable);
    int GetMenuItemCount() const;
    UINT GetMenuItemID(int nPos) const;
    UINT GetMenuState(UINT nItem, UINT nFlags) const;
    /// Copies at most nMax - 1 characters; returns their number.
    int GetMenuString(UINT nItem, LPTSTR lpszText, int nMax, UINT nFlags) const;
    int GetMenuString(UINT nItem, CString& strText, UINT nFlags) const;
    /// The pop-up at a position as a temporary object; null if the item has none.
    CMenu* GetSubMenu(int nPos) const;
    BOOL SetDefaultItem(UINT nItem, BOOL bByPos = FALSE);
    /// Shows the pop-up at a screen position and runs it; its commands go to pWnd.
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = nullptr);
};
