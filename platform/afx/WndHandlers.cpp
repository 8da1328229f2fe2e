// WndHandlers.cpp - the default handlers of CWnd

#include <afxwin.h>

#include "impl/WndMap.h"

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
    ON_WM_NCDESTROY() // the object and its window part
    ON_WM_CTLCOLOR()  // the rest are for controls that handle their own notifications
    ON_WM_DRAWITEM()
    ON_WM_MEASUREITEM()
    ON_WM_COMPAREITEM()
    ON_WM_DELETEITEM()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_WM_PARENTNOTIFY()
END_MESSAGE_MAP()

BOOL CWnd::OnNcCreate(LPCREATESTRUCT) { return Default() != 0; }
int CWnd::OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
void CWnd::OnDestroy() { Default(); }
void CWnd::OnClose() { Default(); }
BOOL CWnd::OnQueryEndSession() { return Default() != 0; }
void CWnd::OnEndSession(BOOL) { Default(); }
void CWnd::OnSize(UINT, int, int) { Default(); }
void CWnd::OnMove(int, int) { Default(); }
void CWnd::OnSizing(UINT, LPRECT) { Default(); }
void CWnd::OnMoving(UINT, LPRECT) { Default(); }
void CWnd::OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
void CWnd::OnWindowPosChanging(WINDOWPOS*) { Default(); }
void CWnd::OnWindowPosChanged(WINDOWPOS*) { Default(); }
void CWnd::OnEnterSizeMove() { Default(); }
void CWnd::OnExitSizeMove() { Default(); }
void CWnd::OnEnable(BOOL) { Default(); }
void CWnd::OnShowWindow(BOOL, UINT) { Default(); }
void CWnd::OnActivate(UINT, CWnd*, BOOL) { Default(); }
void CWnd::OnActivateApp(BOOL, DWORD) { Default(); }
int CWnd::OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); }
void CWnd::OnCancelMode() { Default(); }
void CWnd::OnCaptureChanged(CWnd*) { Default(); }
void CWnd::OnSettingChange(UINT, LPCTSTR) { Default(); }
void CWnd::OnSysColorChange() { Default(); }
void CWnd::OnTimer(UINT_PTR) { Default(); }
void CWnd::OnDropFiles(HDROP) { Default(); }
void CWnd::OnPaint() { Default(); }
BOOL CWnd::OnEraseBkgnd(CDC*) { return Default() != 0; }
LRESULT CWnd::OnNcHitTest(CPoint) { return Default(); }
void CWnd::OnNcPaint() { Default(); }
void CWnd::OnNcCalcSize(BOOL, NCCALCSIZE_PARAMS*) { Default(); }
BOOL CWnd::OnNcActivate(BOOL) { return Default() != 0; }
void CWnd::OnNcMouseMove(UINT, CPoint) { Default(); }
void CWnd::OnNcLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnNcLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnNcLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnNcRButtonDown(UINT, CPoint) { Default(); }
BOOL CWnd::OnSetCursor(CWnd*, UINT, UINT) { return Default() != 0; }
void CWnd::OnMouseMove(UINT, CPoint) { Default(); }
void CWnd::OnMouseLeave() { Default(); }
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) { return Default() != 0; }
void CWnd::OnLButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnLButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnLButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnRButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnRButtonDblClk(UINT, CPoint) { Default(); }
void CWnd::OnMButtonDown(UINT, CPoint) { Default(); }
void CWnd::OnMButtonUp(UINT, CPoint) { Default(); }
void CWnd::OnSetFocus(CWnd*) { Default(); }
void CWnd::OnKillFocus(CWnd*) { Default(); }
void CWnd::OnChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnKeyUp(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysChar(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyDown(UINT, UINT, UINT) { Default(); }
void CWnd::OnSysKeyUp(UINT, UINT, UINT) { Default(); }
UINT CWnd::OnGetDlgCode() { return static_cast<UINT>(Default()); }
void CWnd::OnContextMenu(CWnd*, CPoint) { Default(); }
void CWnd::OnInitMenu(CMenu*) { Default(); }
void CWnd::OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }
void CWnd::OnMenuSelect(UINT, UINT, HMENU) { Default(); }
void CWnd::OnSysCommand(UINT, LPARAM) { Default(); }

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT)
{
    LRESULT result = 0;
    if (ReflectLastMsg(pWnd->GetSafeHwnd(), &result))
    {
        return reinterpret_cast<HBRUSH>(result);
    }
    return reinterpret_cast<HBRUSH>(Default());
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct)
{
    if (lpDrawItemStruct->CtlType == ODT_MENU || !ReflectLastMsg(lpDrawItemStruct->hwndItem))
    {
        Default();
    }
}

void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT lpMeasureItemStruct)
{
    // The message names the control by its id only, and a control under creation isn't found by the system yet.
    if (lpMeasureItemStruct->CtlType != ODT_MENU)
    {
        for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
        {
            CWnd* const object = FromHandlePermanent(child);
            if (object != nullptr &&
                static_cast<WORD>(::GetDlgCtrlID(child)) == static_cast<WORD>(lpMeasureItemStruct->CtlID) &&
                object->SendChildNotifyLastMsg())
            {
                return;
            }
        }
    }
    Default();
}

int CWnd::OnCompareItem(int, LPCOMPAREITEMSTRUCT lpCompareItemStruct)
{
    LRESULT result = 0;
    if (ReflectLastMsg(lpCompareItemStruct->hwndItem, &result))
    {
        return static_cast<int>(result);
    }
    return static_cast<int>(Default());
}

void CWnd::OnDeleteItem(int, LPDELETEITEMSTRUCT lpDeleteItemStruct)
{
    if (!ReflectLastMsg(lpDeleteItemStruct->hwndItem))
    {
        Default();
    }
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar* pScrollBar)
{
    if (pScrollBar == nullptr || !pScrollBar->SendChildNotifyLastMsg())
    {
        Default();
    }
}

void CWnd::OnVScroll(UINT, UINT, CScrollBar* pScrollBar)
{
    if (pScrollBar == nullptr || !pScrollBar->SendChildNotifyLastMsg())
    {
        Default();
    }
}

void CWnd::OnParentNotify(UINT message, LPARAM lParam)
{
    const UINT event = LOWORD(message);
    if ((event == WM_CREATE || event == WM_DESTROY) && ReflectLastMsg(reinterpret_cast<HWND>(lParam)))
    {
        return;
    }
    Default();
}

void CWnd::OnNcDestroy()
{
    if (CWinThread* const thread = AfxGetThread())
    {
        if (thread->m_pMainWnd == this)
        {
            thread->m_pMainWnd = nullptr;
            AfxPostQuitMessage(0);
        }
        if (thread->m_pActiveWnd == this)
        {
            thread->m_pActiveWnd = nullptr;
        }
    }
    // A modal loop must not wait for messages of a window that is gone.
    if (m_bContinueModal)
    {
        m_bContinueModal = false;
        ::PostThreadMessageA(::GetCurrentThreadId(), WM_NULL, 0, 0);
    }

    const LONG_PTR before = ::GetWindowLongPtrA(m_hWnd, GWLP_WNDPROC);
    Default();
    // Whoever subclassed the window after us may have put back a procedure of his own.
    const WNDPROC super = *GetSuperWndProcAddr();
    if (super != nullptr && ::GetWindowLongPtrA(m_hWnd, GWLP_WNDPROC) == before)
    {
        ::SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(super));
    }
    m_pfnSuper = nullptr;
    m_pfnDirect = nullptr;
    Detach();
    PostNcDestroy(); // may delete this
}
