// Menu.cpp - CMenu

#include <afxcount.h>
#include <afxwin.h>

#include "impl/HandleMap.h"

template <>
struct AfxHandleTraits<CMenu, HMENU>
{
    static std::unique_ptr<CMenu> MakeTemporary() { return std::make_unique<CMenu>(); }
    static void SetHandle(CMenu& menu, HMENU handle) { menu.m_hMenu = handle; }
};

namespace
{
CHandleMap<CMenu, HMENU>& MenuMap() { return AfxGetHandleMap<CMenu, HMENU>(AfxMapKind::Menu); }
} // namespace

IMPLEMENT_DYNAMIC(CMenu, CObject)

CMenu::~CMenu() { DestroyMenu(); }

CMenu* PASCAL CMenu::FromHandle(HMENU hMenu) { return MenuMap().FromHandle(hMenu); }

CMenu* PASCAL CMenu::FromHandlePermanent(HMENU hMenu)
{
    return hMenu == nullptr ? nullptr : MenuMap().LookupPermanent(hMenu);
}

BOOL CMenu::Attach(HMENU hMenu)
{
    if (hMenu == nullptr)
    {
        return FALSE;
    }
    ASSERT(m_hMenu == nullptr);
    m_hMenu = hMenu;
    MenuMap().SetPermanent(hMenu, this);
    AfxCountCreated(AfxResource::Menu);
    return TRUE;
}

HMENU CMenu::Detach()
{
    const HMENU menu = m_hMenu;
    if (menu != nullptr && MenuMap().LookupPermanent(menu) == this)
    {
        MenuMap().RemoveHandle(menu);
        AfxCountReleased(AfxResource::Menu);
    }
    m_hMenu = nullptr;
    return menu;
}

BOOL CMenu::CreateMenu() { return Attach(::CreateMenu()); }

BOOL CMenu::CreatePopupMenu() { return Attach(::CreatePopupMenu()); }

BOOL CMenu::LoadMenu(UINT nID) { return LoadMenu(MAKEINTRESOURCEA(nID)); }

BOOL CMenu::LoadMenu(LPCTSTR lpszName)
{
    return Attach(::LoadMenuA(AfxFindResourceHandle(lpszName, RT_MENU), lpszName));
}

BOOL CMenu::DestroyMenu()
{
    const HMENU menu = Detach();
    return menu != nullptr && ::DestroyMenu(menu);
}

BOOL CMenu::AppendMenu(UINT nFlags, UINT_PTR nItem, LPCTSTR lpszText)
{
    return ::AppendMenuA(m_hMenu, nFlags, nItem, lpszText);
}

BOOL CMenu::InsertMenu(UINT nPosition, UINT nFlags, UINT_PTR nItem, LPCTSTR lpszText)
{
    return ::InsertMenuA(m_hMenu, nPosition, nFlags, nItem, lpszText);
}

BOOL CMenu::ModifyMenu(UINT nPosition, UINT nFlags, UINT_PTR nItem, LPCTSTR lpszText)
{
    return ::ModifyMenuA(m_hMenu, nPosition, nFlags, nItem, lpszText);
}

BOOL CMenu::DeleteMenu(UINT nPosition, UINT nFlags) { return ::DeleteMenu(m_hMenu, nPosition, nFlags); }

BOOL CMenu::RemoveMenu(UINT nPosition, UINT nFlags) { return ::RemoveMenu(m_hMenu, nPosition, nFlags); }

UINT CMenu::CheckMenuItem(UINT nItem, UINT nCheck) { return ::CheckMenuItem(m_hMenu, nItem, nCheck); }

BOOL CMenu::CheckMenuRadioItem(UINT nFirst, UINT nLast, UINT nItem, UINT nFlags)
{
    return ::CheckMenuRadioItem(m_hMenu, nFirst, nLast, nItem, nFlags);
}

UINT CMenu::EnableMenuItem(UINT nItem, UINT nEnable)
{
    return static_cast<UINT>(::EnableMenuItem(m_hMenu, nItem, nEnable));
}

int CMenu::GetMenuItemCount() const { return ::GetMenuItemCount(m_hMenu); }

UINT CMenu::GetMenuItemID(int nPos) const { return ::GetMenuItemID(m_hMenu, nPos); }

UINT CMenu::GetMenuState(UINT nItem, UINT nFlags) const { return ::GetMenuState(m_hMenu, nItem, nFlags); }

int CMenu::GetMenuString(UINT nItem, LPTSTR lpszText, int nMax, UINT nFlags) const
{
    return ::GetMenuStringA(m_hMenu, nItem, lpszText, nMax, nFlags);
}

int CMenu::GetMenuString(UINT nItem, CString& strText, UINT nFlags) const
{
    strText.Empty();
    const int length = ::GetMenuStringA(m_hMenu, nItem, nullptr, 0, nFlags);
    if (length > 0)
    {
        ::GetMenuStringA(m_hMenu, nItem, strText.GetBuffer(length), length + 1, nFlags);
        strText.ReleaseBuffer();
    }
    return strText.GetLength();
}

CMenu* CMenu::GetSubMenu(int nPos) const { return FromHandle(::GetSubMenu(m_hMenu, nPos)); }

BOOL CMenu::SetDefaultItem(UINT nItem, BOOL bByPos) { return ::SetMenuDefaultItem(m_hMenu, nItem, bByPos ? 1 : 0); }

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect)
{
    return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, pWnd->GetSafeHwnd(), lpRect);
}
