// CmdUI.cpp - CCmdUI: how menu items and controls of commands look

#include <afxwin.h>

namespace
{
/// Low word of the id of a separator or of a static text: no command.
constexpr WORD kNoCommand = 0xFFFF;
} // namespace

void CCmdUI::Enable(BOOL bOn)
{
    if (m_pMenu != nullptr)
    {
        if (m_pSubMenu != nullptr)
        {
            return; // the item of a pop-up stands for no command of its own
        }
        m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : MF_DISABLED | MF_GRAYED));
    }
    else if (m_pOther != nullptr)
    {
        // A disabled window keeps the focus and swallows the keys: pass it on first.
        if (!bOn && ::GetFocus() == m_pOther->m_hWnd)
        {
            ::SendMessageA(::GetParent(m_pOther->m_hWnd), WM_NEXTDLGCTL, 0, FALSE);
        }
        m_pOther->EnableWindow(bOn);
    }
    m_bEnableChanged = TRUE;
}

void CCmdUI::SetCheck(int nCheck)
{
    if (m_pMenu != nullptr)
    {
        if (m_pSubMenu == nullptr)
        {
            m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (nCheck != 0 ? MF_CHECKED : MF_UNCHECKED));
        }
    }
    else if (m_pOther != nullptr && (m_pOther->SendMessage(WM_GETDLGCODE) & DLGC_BUTTON) != 0)
    {
        m_pOther->SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck));
    }
}

void CCmdUI::SetRadio(BOOL bOn)
{
    if (m_pMenu == nullptr)
    {
        SetCheck(bOn ? 1 : 0);
        return;
    }
    if (m_pSubMenu != nullptr)
    {
        return;
    }
    MENUITEMINFOA info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STATE;
    if (!::GetMenuItemInfoA(m_pMenu->m_hMenu, m_nIndex, TRUE, &info))
    {
        return;
    }
    info.fType |= MFT_RADIOCHECK;
    info.fState = bOn ? info.fState | MFS_CHECKED : info.fState & ~static_cast<UINT>(MFS_CHECKED);
    ::SetMenuItemInfoA(m_pMenu->m_hMenu, m_nIndex, TRUE, &info);
}

void CCmdUI::SetText(LPCTSTR lpszText)
{
    if (lpszText == nullptr)
    {
        return;
    }
    if (m_pMenu != nullptr)
    {
        if (m_pSubMenu == nullptr)
        {
            const UINT kept = m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION) &
                              ~static_cast<UINT>(MF_BITMAP | MF_OWNERDRAW | MF_SEPARATOR);
            m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | MF_STRING | kept, m_nID, lpszText);
        }
    }
    else if (m_pOther != nullptr)
    {
        CString shown;
        m_pOther->GetWindowText(shown);
        if (shown != lpszText)
        {
            m_pOther->SetWindowText(lpszText); // updates come at every idle time: an equal text must not flicker
        }
    }
}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL bDisableIfNoHndler)
{
    if (m_nID == 0 || LOWORD(m_nID) == kNoCommand)
    {
        return TRUE;
    }
    if (pTarget == nullptr)
    {
        return FALSE;
    }
    m_bEnableChanged = FALSE;
    const BOOL taken = pTarget->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
    if (bDisableIfNoHndler && !m_bEnableChanged)
    {
        AFX_CMDHANDLERINFO info;
        Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
    }
    return taken;
}
