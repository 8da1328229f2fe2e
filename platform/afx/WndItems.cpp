// WndItems.cpp - CWnd: dialog items, relatives, messages to them

#include <afxwin.h>

#include <vector>

namespace
{
/// The owner of an overlapped window too, which GetParent keeps to itself.
HWND ParentOrOwner(HWND hWnd)
{
    const bool isChild = (::GetWindowLongPtrA(hWnd, GWL_STYLE) & WS_CHILD) != 0;
    return isChild ? ::GetParent(hWnd) : ::GetWindow(hWnd, GW_OWNER);
}
} // namespace

CWnd* CWnd::GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }

void CWnd::GetDlgItem(int nID, HWND* phWnd) const { *phWnd = ::GetDlgItem(m_hWnd, nID); }
int CWnd::GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }

int CWnd::SetDlgCtrlID(int nID) { return static_cast<int>(::SetWindowLongPtrA(m_hWnd, GWLP_ID, nID)); }

UINT CWnd::IsDlgButtonChecked(int nIDButton) const { return ::IsDlgButtonChecked(m_hWnd, nIDButton); }
void CWnd::CheckDlgButton(int nIDButton, UINT nCheck) { ::CheckDlgButton(m_hWnd, nIDButton, nCheck); }

void CWnd::CheckRadioButton(int nIDFirstButton, int nIDLastButton, int nIDCheckButton)
{
    ::CheckRadioButton(m_hWnd, nIDFirstButton, nIDLastButton, nIDCheckButton);
}

void CWnd::SetDlgItemText(int nID, LPCTSTR lpszString)
{
    ::SetDlgItemTextA(m_hWnd, nID, lpszString == nullptr ? "" : lpszString);
}

int CWnd::GetDlgItemText(int nID, LPTSTR lpszString, int nMaxCount) const
{
    return static_cast<int>(::GetDlgItemTextA(m_hWnd, nID, lpszString, nMaxCount));
}

int CWnd::GetDlgItemText(int nID, CString& rString) const
{
    const CWnd* const item = GetDlgItem(nID);
    rString.Empty();
    if (item != nullptr)
    {
        item->GetWindowText(rString);
    }
    return rString.GetLength();
}

void CWnd::SetDlgItemInt(int nID, UINT nValue, BOOL bSigned) { ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned); }

UINT CWnd::GetDlgItemInt(int nID, BOOL* lpTrans, BOOL bSigned) const
{
    return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned);
}

LRESULT CWnd::SendDlgItemMessage(int nID, UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::SendDlgItemMessageA(m_hWnd, nID, message, wParam, lParam);
}

CWnd* CWnd::GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
CWnd* CWnd::SetParent(CWnd* pWndNewParent) { return FromHandle(::SetParent(m_hWnd, pWndNewParent->GetSafeHwnd())); }
CWnd* CWnd::GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }

CWnd* CWnd::GetOwner() const { return m_hWndOwner != nullptr ? FromHandle(m_hWndOwner) : GetParent(); }
void CWnd::SetOwner(CWnd* pOwnerWnd) { m_hWndOwner = pOwnerWnd->GetSafeHwnd(); }

CWnd* CWnd::GetTopLevelParent() const
{
    HWND top = GetSafeHwnd();
    for (HWND up = top; up != nullptr; up = ParentOrOwner(up))
    {
        top = up;
    }
    return FromHandle(top);
}

CFrameWnd* CWnd::GetParentFrame() const
{
    for (HWND up = m_hWnd == nullptr ? nullptr : ::GetParent(m_hWnd); up != nullptr; up = ::GetParent(up))
    {
        CWnd* const wnd = FromHandlePermanent(up);
        if (wnd != nullptr && wnd->IsFrameWnd())
        {
            return static_cast<CFrameWnd*>(wnd);
        }
    }
    return nullptr;
}

CFrameWnd* CWnd::GetTopLevelFrame() const
{
    CFrameWnd* top = IsFrameWnd() ? const_cast<CFrameWnd*>(static_cast<const CFrameWnd*>(this)) : GetParentFrame();
    while (top != nullptr)
    {
        CFrameWnd* const up = top->GetParentFrame();
        if (up == nullptr)
        {
            break;
        }
        top = up;
    }
    return top;
}

BOOL CWnd::IsFrameWnd() const { return FALSE; }
BOOL CWnd::IsChild(const CWnd* pWnd) const { return ::IsChild(m_hWnd, pWnd->GetSafeHwnd()); }
CWnd* PASCAL CWnd::GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }
CWnd* CWnd::GetLastActivePopup() const { return FromHandle(::GetLastActivePopup(m_hWnd)); }
CWnd* PASCAL CWnd::WindowFromPoint(POINT point) { return FromHandle(::WindowFromPoint(point)); }

namespace
{
CWnd* FindDescendant(HWND hWnd, int id, BOOL onlyPermanent)
{
    if (const HWND found = ::GetDlgItem(hWnd, id))
    {
        // A window below that carries its parent's id comes first: the innermost of them is meant.
        if (::GetWindow(found, GW_CHILD) != nullptr)
        {
            if (CWnd* const inner = FindDescendant(found, id, onlyPermanent))
            {
                return inner;
            }
        }
        if (CWnd* const wnd = onlyPermanent ? CWnd::FromHandlePermanent(found) : CWnd::FromHandle(found))
        {
            return wnd;
        }
    }
    for (HWND child = ::GetWindow(hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        if (CWnd* const wnd = FindDescendant(child, id, onlyPermanent))
        {
            return wnd;
        }
    }
    return nullptr;
}
} // namespace

CWnd* CWnd::GetDescendantWindow(int nID, BOOL bOnlyPerm) const { return FindDescendant(m_hWnd, nID, bOnlyPerm); }

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::SendMessageA(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::PostMessageA(m_hWnd, message, wParam, lParam);
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm)
{
    SendMessageToDescendants(m_hWnd, message, wParam, lParam, bDeep, bOnlyPerm);
}

void PASCAL CWnd::SendMessageToDescendants(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep,
                                           BOOL bOnlyPerm)
{
    // The children are noted first: a handler may destroy its window or its neighbours.
    std::vector<HWND> children;
    for (HWND child = ::GetWindow(hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        children.push_back(child);
    }
    for (const HWND child : children)
    {
        if (!::IsWindow(child))
        {
            continue;
        }
        if (!bOnlyPerm)
        {
            ::SendMessageA(child, message, wParam, lParam);
        }
        else if (CWnd* const wnd = FromHandlePermanent(child))
        {
            AfxCallWndProc(wnd, child, message, wParam, lParam);
        }
        if (bDeep)
        {
            SendMessageToDescendants(child, message, wParam, lParam, bDeep, bOnlyPerm);
        }
    }
}
