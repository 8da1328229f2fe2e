// StdControls.cpp - static, button, edit field, scroll bar
#include "afxctl.h"

#include "impl/ControlMessages.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, WC_STATIC, lpszText, dwStyle, rect, pParentWnd, nID);
}

// Button

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, WC_BUTTON, lpszCaption, dwStyle, rect, pParentWnd, nID);
}

int CButton::GetCheck() const { return AskInt(*this, BM_GETCHECK); }

void CButton::SetCheck(int nCheck) { Ask(*this, BM_SETCHECK, nCheck); }

UINT CButton::GetState() const { return static_cast<UINT>(Ask(*this, BM_GETSTATE)); }

void CButton::SetState(BOOL bHighlight) { Ask(*this, BM_SETSTATE, bHighlight); }

UINT CButton::GetButtonStyle() const { return GetStyle() & BS_TYPEMASK; }

void CButton::SetButtonStyle(UINT nStyle, BOOL bRedraw) { Ask(*this, BM_SETSTYLE, nStyle, bRedraw); }

void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult)
{
    if (message != WM_DRAWITEM)
    {
        return CWnd::OnChildNotify(message, wParam, lParam, pLResult);
    }
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

// Edit field

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, WC_EDIT, nullptr, dwStyle, rect, pParentWnd, nID);
}

DWORD CEdit::GetSel() const { return static_cast<DWORD>(Ask(*this, EM_GETSEL)); }

void CEdit::GetSel(int& nStartChar, int& nEndChar) const
{
    DWORD start = 0;
    DWORD end = 0;
    Ask(*this, EM_GETSEL, &start, &end);
    nStartChar = static_cast<int>(start);
    nEndChar = static_cast<int>(end);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll)
{
    Ask(*this, EM_SETSEL, nStartChar, nEndChar);
    if (!bNoScroll)
    {
        Ask(*this, EM_SCROLLCARET);
    }
}

void CEdit::SetSel(DWORD dwSelection, BOOL bNoScroll) { SetSel(LOWORD(dwSelection), HIWORD(dwSelection), bNoScroll); }

void CEdit::ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo)
{
    Ask(*this, EM_REPLACESEL, bCanUndo, lpszNewText != nullptr ? lpszNewText : "");
}

void CEdit::LimitText(int nChars) { Ask(*this, EM_LIMITTEXT, nChars); }

BOOL CEdit::Undo() { return AskInt(*this, EM_UNDO); }

void CEdit::Cut() { Ask(*this, WM_CUT); }

void CEdit::Copy() { Ask(*this, WM_COPY); }

void CEdit::Paste() { Ask(*this, WM_PASTE); }

// Scroll bar

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, WC_SCROLLBAR, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CScrollBar::GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }

int CScrollBar::SetScrollPos(int nPos, BOOL bRedraw) { return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw); }
