// WndState.cpp - CWnd: style, text, painting, focus, timers, scroll bars, menus

#include <afxwin.h>

namespace
{
/// What SetWindowPos leaves alone when only the frame is drawn anew.
constexpr UINT kFrameOnly = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;

BOOL ChangeStyle(HWND hWnd, int index, DWORD remove, DWORD add, UINT flags)
{
    const auto before = static_cast<DWORD>(::GetWindowLongPtrA(hWnd, index));
    const DWORD after = (before & ~remove) | add;
    if (before == after)
    {
        return FALSE;
    }
    ::SetWindowLongPtrA(hWnd, index, static_cast<LONG_PTR>(after));
    if (flags != 0)
    {
        ::SetWindowPos(hWnd, nullptr, 0, 0, 0, 0, kFrameOnly | flags);
    }
    return TRUE;
}
} // namespace

DWORD CWnd::GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrA(m_hWnd, GWL_STYLE)); }
DWORD CWnd::GetExStyle() const { return static_cast<DWORD>(::GetWindowLongPtrA(m_hWnd, GWL_EXSTYLE)); }

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ChangeStyle(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return ChangeStyle(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

void CWnd::SetWindowText(LPCTSTR lpszString) { ::SetWindowTextA(m_hWnd, lpszString == nullptr ? "" : lpszString); }

int CWnd::GetWindowText(LPTSTR lpszString, int nMaxCount) const
{
    return ::GetWindowTextA(m_hWnd, lpszString, nMaxCount);
}

void CWnd::GetWindowText(CString& rString) const
{
    const int length = GetWindowTextLength();
    const int copied = ::GetWindowTextA(m_hWnd, rString.GetBuffer(length), length + 1);
    rString.ReleaseBuffer(copied);
}

int CWnd::GetWindowTextLength() const { return ::GetWindowTextLengthA(m_hWnd); }

void CWnd::SetFont(CFont* pFont, BOOL bRedraw)
{
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(pFont == nullptr ? nullptr : pFont->GetSafeHandle()),
                MAKELPARAM(bRedraw != FALSE, 0));
}

CFont* CWnd::GetFont() const
{
    return CFont::FromHandle(reinterpret_cast<HFONT>(::SendMessageA(m_hWnd, WM_GETFONT, 0, 0)));
}

HICON CWnd::SetIcon(HICON hIcon, BOOL bBigIcon)
{
    return reinterpret_cast<HICON>(
        SendMessage(WM_SETICON, bBigIcon ? ICON_BIG : ICON_SMALL, reinterpret_cast<LPARAM>(hIcon)));
}

CDC* CWnd::GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
CDC* CWnd::GetWindowDC() { return CDC::FromHandle(::GetWindowDC(m_hWnd)); }
int CWnd::ReleaseDC(CDC* pDC) { return pDC == nullptr ? 0 : ::ReleaseDC(m_hWnd, pDC->GetSafeHdc()); }
CDC* CWnd::BeginPaint(LPPAINTSTRUCT lpPaint) { return CDC::FromHandle(::BeginPaint(m_hWnd, lpPaint)); }
void CWnd::EndPaint(LPPAINTSTRUCT lpPaint) { ::EndPaint(m_hWnd, lpPaint); }
void CWnd::UpdateWindow() { ::UpdateWindow(m_hWnd); }
// A null window would mean the whole desktop here.
void CWnd::Invalidate(BOOL bErase) { InvalidateRect(nullptr, bErase); }

void CWnd::InvalidateRect(LPCRECT lpRect, BOOL bErase)
{
    if (m_hWnd != nullptr)
    {
        ::InvalidateRect(m_hWnd, lpRect, bErase);
    }
}

void CWnd::ValidateRect(LPCRECT lpRect)
{
    if (m_hWnd != nullptr)
    {
        ::ValidateRect(m_hWnd, lpRect);
    }
}

BOOL CWnd::RedrawWindow(LPCRECT lpRectUpdate, CRgn* prgnUpdate, UINT flags)
{
    return m_hWnd != nullptr &&
           ::RedrawWindow(m_hWnd, lpRectUpdate,
                          prgnUpdate == nullptr ? nullptr : static_cast<HRGN>(prgnUpdate->GetSafeHandle()), flags);
}

void CWnd::SetRedraw(BOOL bRedraw) { SendMessage(WM_SETREDRAW, bRedraw != FALSE); }
BOOL CWnd::LockWindowUpdate() { return ::LockWindowUpdate(m_hWnd); }
void CWnd::UnlockWindowUpdate() { ::LockWindowUpdate(nullptr); }

BOOL CWnd::EnableWindow(BOOL bEnable) { return ::EnableWindow(m_hWnd, bEnable); }
BOOL CWnd::IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
// The handler of the focus change may delete this object.
CWnd* CWnd::SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
CWnd* PASCAL CWnd::GetFocus() { return FromHandle(::GetFocus()); }
CWnd* CWnd::SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
CWnd* PASCAL CWnd::GetCapture() { return FromHandle(::GetCapture()); }
CWnd* CWnd::SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
CWnd* PASCAL CWnd::GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
BOOL CWnd::SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
CWnd* PASCAL CWnd::GetForegroundWindow() { return FromHandle(::GetForegroundWindow()); }

UINT_PTR CWnd::SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer)
{
    return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
}

BOOL CWnd::KillTimer(UINT_PTR nIDEvent) { return ::KillTimer(m_hWnd, nIDEvent); }
int CWnd::GetScrollPos(int nBar) const { return ::GetScrollPos(m_hWnd, nBar); }

int CWnd::SetScrollPos(int nBar, int nPos, BOOL bRedraw) { return ::SetScrollPos(m_hWnd, nBar, nPos, bRedraw); }

void CWnd::GetScrollRange(int nBar, LPINT lpMinPos, LPINT lpMaxPos) const
{
    ::GetScrollRange(m_hWnd, nBar, lpMinPos, lpMaxPos);
}

void CWnd::SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw)
{
    ::SetScrollRange(m_hWnd, nBar, nMinPos, nMaxPos, bRedraw);
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, UINT nMask)
{
    lpScrollInfo->cbSize = sizeof *lpScrollInfo;
    lpScrollInfo->fMask = nMask;
    return ::GetScrollInfo(m_hWnd, nBar, lpScrollInfo);
}

BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO lpScrollInfo, BOOL bRedraw)
{
    lpScrollInfo->cbSize = sizeof *lpScrollInfo;
    ::SetScrollInfo(m_hWnd, nBar, lpScrollInfo, bRedraw);
    return TRUE;
}

CMenu* CWnd::GetMenu() const { return CMenu::FromHandle(::GetMenu(m_hWnd)); }
BOOL CWnd::SetMenu(CMenu* pMenu) { return ::SetMenu(m_hWnd, pMenu->GetSafeHmenu()); }
void CWnd::DrawMenuBar() { ::DrawMenuBar(m_hWnd); }
CMenu* CWnd::GetSystemMenu(BOOL bRevert) const { return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert)); }
void CWnd::DragAcceptFiles(BOOL bAccept) { ::DragAcceptFiles(m_hWnd, bAccept); }

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType)
{
    if (lpszCaption == nullptr)
    {
        const CWinApp* const app = AfxGetApp();
        lpszCaption = app == nullptr ? "" : app->m_pszAppName;
    }
    return ::MessageBoxA(GetSafeHwnd(), lpszText == nullptr ? "" : lpszText, lpszCaption, nType);
}
