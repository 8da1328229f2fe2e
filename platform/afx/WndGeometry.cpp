// WndGeometry.cpp - CWnd: place and size

#include <afxpriv.h>
#include <afxwin.h>

#include <algorithm>

namespace
{
/// A rectangle's span moved into the room from low to high; the low end wins when it is too long.
LONG MoveInto(LONG start, LONG length, LONG low, LONG high) { return std::max(low, std::min(start, high - length)); }

RECT WorkAreaOf(HWND hWnd)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    if (::GetMonitorInfoA(::MonitorFromWindow(hWnd, MONITOR_DEFAULTTONEAREST), &info))
    {
        return info.rcWork;
    }
    RECT area = {};
    ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}
} // namespace

void CWnd::GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
void CWnd::GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }

void CWnd::MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint)
{
    ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
}

void CWnd::MoveWindow(LPCRECT lpRect, BOOL bRepaint)
{
    MoveWindow(lpRect->left, lpRect->top, lpRect->right - lpRect->left, lpRect->bottom - lpRect->top, bRepaint);
}

BOOL CWnd::SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
{
    return ::SetWindowPos(m_hWnd, pWndInsertAfter->GetSafeHwnd(), x, y, cx, cy, nFlags);
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const
{
    lpwndpl->length = sizeof *lpwndpl;
    return ::GetWindowPlacement(m_hWnd, lpwndpl);
}

BOOL CWnd::SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl)
{
    WINDOWPLACEMENT placement = *lpwndpl;
    placement.length = sizeof placement;
    return ::SetWindowPlacement(m_hWnd, &placement);
}

void CWnd::ClientToScreen(LPPOINT lpPoint) const { ::ClientToScreen(m_hWnd, lpPoint); }
void CWnd::ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }

// Both corners at once: a mirrored window swaps left and right.
void CWnd::ClientToScreen(LPRECT lpRect) const
{
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(lpRect), 2);
}

void CWnd::ScreenToClient(LPRECT lpRect) const
{
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(lpRect), 2);
}

void CWnd::MapWindowPoints(CWnd* pWndTo, LPRECT lpRect) const
{
    ::MapWindowPoints(m_hWnd, pWndTo->GetSafeHwnd(), reinterpret_cast<POINT*>(lpRect), 2);
}

void CWnd::MapWindowPoints(CWnd* pWndTo, LPPOINT lpPoint, UINT nCount) const
{
    ::MapWindowPoints(m_hWnd, pWndTo->GetSafeHwnd(), lpPoint, nCount);
}

void CWnd::CenterWindow(CWnd* pAlternateOwner)
{
    const bool isChild = (GetStyle() & WS_CHILD) != 0;
    HWND center = pAlternateOwner->GetSafeHwnd();
    if (center == nullptr)
    {
        center = isChild ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);
    }
    RECT room;   // what the window must not leave
    RECT target; // what it is centred in
    if (isChild)
    {
        const HWND parent = ::GetParent(m_hWnd);
        ::GetClientRect(parent, &room);
        ::GetClientRect(center, &target);
        ::MapWindowPoints(center, parent, reinterpret_cast<POINT*>(&target), 2);
    }
    else
    {
        const bool overOwner = center != nullptr && ::IsWindowVisible(center) && !::IsIconic(center);
        room = WorkAreaOf(overOwner ? center : m_hWnd);
        target = room;
        if (overOwner)
        {
            ::GetWindowRect(center, &target);
        }
    }
    RECT rect;
    ::GetWindowRect(m_hWnd, &rect);
    const LONG width = rect.right - rect.left;
    const LONG height = rect.bottom - rect.top;
    const LONG x = MoveInto((target.left + target.right) / 2 - width / 2, width, room.left, room.right);
    const LONG y = MoveInto((target.top + target.bottom) / 2 - height / 2, height, room.top, room.bottom);
    ::SetWindowPos(m_hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWnd::BringWindowToTop() { ::BringWindowToTop(m_hWnd); }
BOOL CWnd::IsIconic() const { return ::IsIconic(m_hWnd); }
BOOL CWnd::IsZoomed() const { return ::IsZoomed(m_hWnd); }
BOOL CWnd::ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
BOOL CWnd::IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }

void CWnd::RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlags, LPRECT lpRectParam,
                          LPCRECT lpRectClient, BOOL bStretch)
{
    constexpr int kExpectedBars = 8; // only a first guess for the deferred positions
    AFX_SIZEPARENTPARAMS layout = {};
    layout.bStretch = bStretch;
    if (lpRectClient != nullptr)
    {
        layout.rect = *lpRectClient;
    }
    else
    {
        GetClientRect(&layout.rect);
    }
    if (nFlags != reposQuery)
    {
        layout.hDWP = ::BeginDeferWindowPos(kExpectedBars);
    }
    HWND leftOver = nullptr;
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        const UINT id = static_cast<WORD>(::GetDlgCtrlID(child));
        if (id == nIDLeftOver)
        {
            leftOver = child;
        }
        else if (id >= nIDFirst && id <= nIDLast && FromHandlePermanent(child) != nullptr)
        {
            ::SendMessageA(child, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
        }
    }
    if (nFlags == reposQuery)
    {
        if (lpRectParam != nullptr)
        {
            *lpRectParam = layout.rect;
        }
        return;
    }
    if (leftOver != nullptr)
    {
        RECT rest = layout.rect;
        if (nFlags == reposExtra && lpRectParam != nullptr)
        {
            rest.left += lpRectParam->left;
            rest.top += lpRectParam->top;
            rest.right -= lpRectParam->right;
            rest.bottom -= lpRectParam->bottom;
        }
        const int cx = static_cast<int>(std::max<LONG>(0, rest.right - rest.left));
        const int cy = static_cast<int>(std::max<LONG>(0, rest.bottom - rest.top));
        if (layout.hDWP != nullptr)
        {
            layout.hDWP = ::DeferWindowPos(layout.hDWP, leftOver, nullptr, rest.left, rest.top, cx, cy,
                                           SWP_NOACTIVATE | SWP_NOZORDER);
        }
    }
    if (layout.hDWP != nullptr)
    {
        ::EndDeferWindowPos(layout.hDWP);
    }
}
