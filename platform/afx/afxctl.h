// afxctl.h - the controls of the window manager itself
// Classes in this file: CStatic, CButton, CEdit, CListBox, CComboBox, CScrollBar
#pragma once

#include "afxwnd.h"

// Create() of every class makes a child of a parent that must have a window: FALSE without one. The id is that of the
// control's notifications. Members that ask or tell send the control's own message: they need a window, and answer
// with what the control answers.

/// A static text, frame or picture.
class TAVAFX_API CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)
public:
    /// @param nID  0xffff for a control that no one asks for
    virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xffff);
};

/// A push button, check box, radio button or group box.
class TAVAFX_API CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)
public:
    virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    /// @return BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE
    int GetCheck() const;
    void SetCheck(int nCheck);
    /// @return BST_ bits: check, pushed, focus
    UINT GetState() const;
    /// Draws the button pressed or not; sends nothing.
    void SetState(BOOL bHighlight);
    /// @return the type, BS_PUSHBUTTON ... BS_OWNERDRAW
    UINT GetButtonStyle() const;
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE);

    /// Draws a button of type BS_OWNERDRAW; this one draws nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult) override;
};

/// An edit field.
class TAVAFX_API CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)
public:
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    /// @return start in the low word, end in the high word
    DWORD GetSel() const;
    void GetSel(int& nStartChar, int& nEndChar) const;
    /// Selects by positions; (0, -1) selects all, (-1, n) nothing.
    /// @param bNoScroll  TRUE keeps the view where it is, otherwise the caret is scrolled into view
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    /// @param dwSelection  start in the low word, end in the high word
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE);
    /// Replaces the selection, or inserts at the caret.
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE);
    /// Limits what the user may type; a longer text set by program stays. 0 is the control's greatest limit.
    void LimitText(int nChars = 0);
    BOOL Undo();
    void Cut();
    void Copy();
    void Paste();
};

/// A list box.
class TAVAFX_API CListBox : public CWnd
{
    DECLARE_DYNAMIC(CListBox)
public:
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    /// Indices begin at 0. LB_ERR (-1) answers a wrong index, LB_ERRSPACE (-2) a lack of memory.
    int GetCount() const;
    /// @return the selected item of a list with single selection; LB_ERR if there is none
    int GetCurSel() const;
    /// @param nSelect  -1 takes the selection away
    int SetCurSel(int nSelect);
    /// @return above 0 if the item is selected, 0 if it isn't
    int GetSel(int nIndex) const;
    /// For lists with multiple selection. @param nIndex  -1 for all items
    int SetSel(int nIndex, BOOL bSelect = TRUE);
    /// @return number of selected items; LB_ERR in a list with single selection
    int GetSelCount() const;
    /// @return index at which the item stands; lists with LBS_SORT sort it in
    int AddString(LPCTSTR lpszItem);
    /// @param nIndex  -1 appends; nothing is sorted
    int InsertString(int nIndex, LPCTSTR lpszItem);
    /// @return number of items left
    int DeleteString(UINT nIndex);
    void ResetContent();
    /// @return the caller's value; (DWORD_PTR)LB_ERR for a wrong index
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    /// @return length in characters, without the zero
    int GetTextLen(int nIndex) const;
    /// @param lpszBuffer  room for GetTextLen() + 1 characters
    int GetText(int nIndex, LPTSTR lpszBuffer) const;
    /// The text is empty for a wrong index.
    void GetText(int nIndex, CString& rString) const;

    /// What an owner-drawn list is asked; these do nothing and let every item be equal.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    /// @return -1, 0 or 1 as item 1 stands before, beside or behind item 2
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult) override;
};

/// A combo box.
class TAVAFX_API CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)
public:
    /// @param rect  its height holds the dropped list too
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    /// Indices begin at 0. CB_ERR (-1) answers a wrong index, CB_ERRSPACE (-2) a lack of memory.
    int GetCount() const;
    int GetCurSel() const;
    /// @param nSelect  -1 takes the selection away and empties the edit field
    int SetCurSel(int nSelect);
    /// @return start in the low word, end in the high word; CB_ERR without an edit field
    DWORD GetEditSel() const;
    /// @return FALSE without an edit field
    BOOL SetEditSel(int nStartChar, int nEndChar);

    /// @return the caller's value; (DWORD_PTR)CB_ERR for a wrong index
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    void* GetItemDataPtr(int nIndex) const;
    int SetItemDataPtr(int nIndex, void* pData);

    /// @return length in characters, without the zero
    int GetLBTextLen(int nIndex) const;
    /// @param lpszText  room for GetLBTextLen() + 1 characters
    int GetLBText(int nIndex, LPTSTR lpszText) const;
    /// The text is empty for a wrong index.
    void GetLBText(int nIndex, CString& rString) const;

    /// @return index at which the item stands; lists with CBS_SORT sort it in
    int AddString(LPCTSTR lpszString);
    /// @param nIndex  -1 appends; nothing is sorted
    int InsertString(int nIndex, LPCTSTR lpszString);
    /// @return number of items left
    int DeleteString(UINT nIndex);
    void ResetContent();

    /// Each search begins behind nStartAfter and goes round; -1 begins at the first item.
    /// @return index of an item that begins with the text; CB_ERR if none does
    int FindString(int nStartAfter, LPCTSTR lpszString) const;
    /// @return index of an item with exactly this text, upper and lower case being equal
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const;
    /// As FindString, and makes the item the current one.
    int SelectString(int nStartAfter, LPCTSTR lpszString);

    void ShowDropDown(BOOL bShowIt = TRUE);
    BOOL GetDroppedState() const;
    /// The dropped list in screen coordinates, whether it is shown or not.
    void GetDroppedControlRect(LPRECT lprect) const;
    int GetDroppedWidth() const;
    /// @param nWidth  least width of the dropped list in pixels
    int SetDroppedWidth(UINT nWidth);
    /// @param nIndex  -1 for the selection field, otherwise an item
    int GetItemHeight(int nIndex) const;
    int SetItemHeight(int nIndex, UINT cyItemHeight);

    /// What an owner-drawn combo box is asked; these do nothing and let every item be equal.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);
    virtual void MeasureItem(LPMEASUREITEMSTRUCT lpMeasureItemStruct);
    /// @return -1, 0 or 1 as item 1 stands before, beside or behind item 2
    virtual int CompareItem(LPCOMPAREITEMSTRUCT lpCompareItemStruct);
    virtual void DeleteItem(LPDELETEITEMSTRUCT lpDeleteItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult) override;
};

/// A scroll bar that is a window of its own, or a size grip.
class TAVAFX_API CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)
public:
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetScrollPos() const;
    /// @return the position before
    int SetScrollPos(int nPos, BOOL bRedraw = TRUE);
};
