// Bars.cpp - slider, tabs, status bar
#include "afxbars.h"

#include "impl/CommonControls.h"
#include "impl/ControlMessages.h"

IMPLEMENT_DYNAMIC(CSliderCtrl, CWnd)
IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)
IMPLEMENT_DYNAMIC(CStatusBarCtrl, CWnd)

// Slider

BOOL CSliderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControls();
    return CreateControl(*this, TRACKBAR_CLASS, nullptr, dwStyle, rect, pParentWnd, nID);
}

void CSliderCtrl::SetRange(int nMin, int nMax, BOOL bRedraw)
{
    // One message for both ends takes halves of 16 bits only.
    Ask(*this, TBM_SETRANGEMIN, FALSE, nMin);
    Ask(*this, TBM_SETRANGEMAX, bRedraw, nMax);
}

int CSliderCtrl::GetRangeMin() const { return AskInt(*this, TBM_GETRANGEMIN); }

int CSliderCtrl::GetRangeMax() const { return AskInt(*this, TBM_GETRANGEMAX); }

int CSliderCtrl::GetPos() const { return AskInt(*this, TBM_GETPOS); }

void CSliderCtrl::SetPos(int nPos) { Ask(*this, TBM_SETPOS, TRUE, nPos); }

void CSliderCtrl::SetTicFreq(int nFreq) { Ask(*this, TBM_SETTICFREQ, nFreq); }

int CSliderCtrl::SetLineSize(int nSize) { return AskInt(*this, TBM_SETLINESIZE, 0, nSize); }

int CSliderCtrl::SetPageSize(int nSize) { return AskInt(*this, TBM_SETPAGESIZE, 0, nSize); }

CToolTipCtrl* CSliderCtrl::GetToolTips() const
{
    return static_cast<CToolTipCtrl*>(CWnd::FromHandle(reinterpret_cast<HWND>(Ask(*this, TBM_GETTOOLTIPS))));
}

// Tabs

BOOL CTabCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControls();
    return CreateControl(*this, WC_TABCONTROL, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CTabCtrl::GetItemCount() const { return AskInt(*this, TCM_GETITEMCOUNT); }

int CTabCtrl::GetCurSel() const { return AskInt(*this, TCM_GETCURSEL); }

int CTabCtrl::SetCurSel(int nItem) { return AskInt(*this, TCM_SETCURSEL, nItem); }

int CTabCtrl::InsertItem(int nItem, TCITEM* pTabCtrlItem) { return AskInt(*this, TCM_INSERTITEM, nItem, pTabCtrlItem); }

int CTabCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    TCITEM item = {};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    return InsertItem(nItem, &item);
}

BOOL CTabCtrl::DeleteItem(int nItem) { return AskInt(*this, TCM_DELETEITEM, nItem); }

void CTabCtrl::AdjustRect(BOOL bLarger, LPRECT lpRect) { Ask(*this, TCM_ADJUSTRECT, bLarger, lpRect); }

// Status bar

BOOL CStatusBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    AfxInitCommonControls();
    return CreateControl(*this, STATUSCLASSNAME, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CStatusBarCtrl::SetParts(int nParts, const int* pWidths) { return AskInt(*this, SB_SETPARTS, nParts, pWidths); }

int CStatusBarCtrl::GetPartCount() const { return AskInt(*this, SB_GETPARTS, 0, 0); }

BOOL CStatusBarCtrl::SetText(LPCTSTR lpszText, int nPane, int nType)
{
    return AskInt(*this, SB_SETTEXT, nPane | nType, lpszText);
}

CString CStatusBarCtrl::GetText(int nPane, int* pType) const
{
    const auto lengthAndType = static_cast<DWORD>(Ask(*this, SB_GETTEXTLENGTH, nPane));
    if (pType != nullptr)
    {
        *pType = HIWORD(lengthAndType);
    }
    CString text;
    const int length = LOWORD(lengthAndType);
    const LPTSTR buffer = text.GetBuffer(length);
    buffer[0] = '\0';
    Ask(*this, SB_GETTEXT, nPane, buffer);
    text.ReleaseBuffer();
    return text;
}

BOOL CStatusBarCtrl::GetRect(int nPane, LPRECT lpRect) const { return AskInt(*this, SB_GETRECT, nPane, lpRect); }

void CStatusBarCtrl::SetSimple(BOOL bSimple) { Ask(*this, SB_SIMPLE, bSimple); }

BOOL CStatusBarCtrl::IsSimple() const { return AskInt(*this, SB_ISSIMPLE); }
