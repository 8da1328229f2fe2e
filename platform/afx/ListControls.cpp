// ListControls.cpp - list box and combo box
#include "afxctl.h"

#include "impl/ControlMessages.h"
#include <algorithm>

IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)

namespace
{
// Reads an item by the pair of messages that tell its length and its text.
void ReadItem(const CWnd& control, UINT lengthMessage, UINT textMessage, int index, CString& text)
{
    const int length = AskInt(control, lengthMessage, index);
    if (length < 0)
    {
        text.Empty();
        return;
    }
    // An owner-drawn list without strings writes the item's value, whatever length it told.
    const LPTSTR buffer = text.GetBuffer(std::max<int>(length, sizeof(DWORD_PTR)));
    buffer[0] = buffer[length] = '\0';
    Ask(control, textMessage, index, buffer);
    buffer[length] = '\0';
    text.ReleaseBuffer();
}

// What an owner-drawn list or combo box is asked, handed to its virtual members.
template <class TControl>
bool CallItemMember(TControl& control, UINT message, LPARAM lParam, LRESULT* result)
{
    switch (message)
    {
    case WM_DRAWITEM:
        control.DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return true;
    case WM_MEASUREITEM:
        control.MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        return true;
    case WM_COMPAREITEM: {
        const int order = control.CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
        if (result != nullptr)
        {
            *result = order;
        }
        return true;
    }
    case WM_DELETEITEM:
        control.DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam));
        return true;
    default:
        return false;
    }
}
} // namespace

// List box

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, WC_LISTBOX, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CListBox::GetCount() const { return AskInt(*this, LB_GETCOUNT); }

int CListBox::GetCurSel() const { return AskInt(*this, LB_GETCURSEL); }

int CListBox::SetCurSel(int nSelect) { return AskInt(*this, LB_SETCURSEL, nSelect); }

int CListBox::GetSel(int nIndex) const { return AskInt(*this, LB_GETSEL, nIndex); }

int CListBox::SetSel(int nIndex, BOOL bSelect) { return AskInt(*this, LB_SETSEL, bSelect, nIndex); }

int CListBox::GetSelCount() const { return AskInt(*this, LB_GETSELCOUNT); }

int CListBox::AddString(LPCTSTR lpszItem) { return AskInt(*this, LB_ADDSTRING, 0, lpszItem); }

int CListBox::InsertString(int nIndex, LPCTSTR lpszItem) { return AskInt(*this, LB_INSERTSTRING, nIndex, lpszItem); }

int CListBox::DeleteString(UINT nIndex) { return AskInt(*this, LB_DELETESTRING, nIndex); }

void CListBox::ResetContent() { Ask(*this, LB_RESETCONTENT); }

DWORD_PTR CListBox::GetItemData(int nIndex) const { return static_cast<DWORD_PTR>(Ask(*this, LB_GETITEMDATA, nIndex)); }

int CListBox::SetItemData(int nIndex, DWORD_PTR dwItemData)
{
    return AskInt(*this, LB_SETITEMDATA, nIndex, dwItemData);
}

int CListBox::GetTextLen(int nIndex) const { return AskInt(*this, LB_GETTEXTLEN, nIndex); }

int CListBox::GetText(int nIndex, LPTSTR lpszBuffer) const { return AskInt(*this, LB_GETTEXT, nIndex, lpszBuffer); }

void CListBox::GetText(int nIndex, CString& rString) const
{
    ReadItem(*this, LB_GETTEXTLEN, LB_GETTEXT, nIndex, rString);
}

void CListBox::DrawItem(LPDRAWITEMSTRUCT) {}

void CListBox::MeasureItem(LPMEASUREITEMSTRUCT) {}

int CListBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }

void CListBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult)
{
    return CallItemMember(*this, message, lParam, pLResult) || CWnd::OnChildNotify(message, wParam, lParam, pLResult);
}

// Combo box

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CreateControl(*this, WC_COMBOBOX, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CComboBox::GetCount() const { return AskInt(*this, CB_GETCOUNT); }

int CComboBox::GetCurSel() const { return AskInt(*this, CB_GETCURSEL); }

int CComboBox::SetCurSel(int nSelect) { return AskInt(*this, CB_SETCURSEL, nSelect); }

DWORD CComboBox::GetEditSel() const { return static_cast<DWORD>(Ask(*this, CB_GETEDITSEL)); }

BOOL CComboBox::SetEditSel(int nStartChar, int nEndChar)
{
    return AskInt(*this, CB_SETEDITSEL, 0, MAKELPARAM(nStartChar, nEndChar)) == TRUE;
}

DWORD_PTR CComboBox::GetItemData(int nIndex) const
{
    return static_cast<DWORD_PTR>(Ask(*this, CB_GETITEMDATA, nIndex));
}

int CComboBox::SetItemData(int nIndex, DWORD_PTR dwItemData)
{
    return AskInt(*this, CB_SETITEMDATA, nIndex, dwItemData);
}

void* CComboBox::GetItemDataPtr(int nIndex) const { return reinterpret_cast<void*>(GetItemData(nIndex)); }

int CComboBox::SetItemDataPtr(int nIndex, void* pData)
{
    return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData));
}

int CComboBox::GetLBTextLen(int nIndex) const { return AskInt(*this, CB_GETLBTEXTLEN, nIndex); }

int CComboBox::GetLBText(int nIndex, LPTSTR lpszText) const { return AskInt(*this, CB_GETLBTEXT, nIndex, lpszText); }

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    ReadItem(*this, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex, rString);
}

int CComboBox::AddString(LPCTSTR lpszString) { return AskInt(*this, CB_ADDSTRING, 0, lpszString); }

int CComboBox::InsertString(int nIndex, LPCTSTR lpszString)
{
    return AskInt(*this, CB_INSERTSTRING, nIndex, lpszString);
}

int CComboBox::DeleteString(UINT nIndex) { return AskInt(*this, CB_DELETESTRING, nIndex); }

void CComboBox::ResetContent() { Ask(*this, CB_RESETCONTENT); }

int CComboBox::FindString(int nStartAfter, LPCTSTR lpszString) const
{
    return AskInt(*this, CB_FINDSTRING, nStartAfter, lpszString);
}

int CComboBox::FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
{
    return AskInt(*this, CB_FINDSTRINGEXACT, nIndexStart, lpszFind);
}

int CComboBox::SelectString(int nStartAfter, LPCTSTR lpszString)
{
    return AskInt(*this, CB_SELECTSTRING, nStartAfter, lpszString);
}

void CComboBox::ShowDropDown(BOOL bShowIt) { Ask(*this, CB_SHOWDROPDOWN, bShowIt); }

BOOL CComboBox::GetDroppedState() const { return AskInt(*this, CB_GETDROPPEDSTATE); }

void CComboBox::GetDroppedControlRect(LPRECT lprect) const { Ask(*this, CB_GETDROPPEDCONTROLRECT, 0, lprect); }

int CComboBox::GetDroppedWidth() const { return AskInt(*this, CB_GETDROPPEDWIDTH); }

int CComboBox::SetDroppedWidth(UINT nWidth) { return AskInt(*this, CB_SETDROPPEDWIDTH, nWidth); }

int CComboBox::GetItemHeight(int nIndex) const { return AskInt(*this, CB_GETITEMHEIGHT, nIndex); }

int CComboBox::SetItemHeight(int nIndex, UINT cyItemHeight)
{
    return AskInt(*this, CB_SETITEMHEIGHT, nIndex, cyItemHeight);
}

void CComboBox::DrawItem(LPDRAWITEMSTRUCT) {}

void CComboBox::MeasureItem(LPMEASUREITEMSTRUCT) {}

int CComboBox::CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }

void CComboBox::DeleteItem(LPDELETEITEMSTRUCT) {}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult)
{
    return CallItemMember(*this, message, lParam, pLResult) || CWnd::OnChildNotify(message, wParam, lParam, pLResult);
}
