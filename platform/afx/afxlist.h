// afxlist.h - the list view and its header
// Classes in this file: CHeaderCtrl, CListCtrl
#pragma once

#include "afximgl.h"
#include "afxwin.h"

/// The header over the columns of a list.
class TAVAFX_API CHeaderCtrl : public CWnd
{
    DECLARE_DYNAMIC(CHeaderCtrl)
public:
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    /// @return number of columns; -1 on failure
    int GetItemCount() const;
};

/// The list view. Rows, columns and cells (sub-items, column 0 being the item itself) count from 0.
class TAVAFX_API CListCtrl : public CWnd
{
    DECLARE_DYNCREATE(CListCtrl)
public:
    CListCtrl() = default;
    ~CListCtrl() override;

    /// @return FALSE if the parent has no window
    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    // Look

    COLORREF GetBkColor() const;
    BOOL SetBkColor(COLORREF cr);
    COLORREF GetTextColor() const;
    BOOL SetTextColor(COLORREF cr);
    COLORREF GetTextBkColor() const;
    /// @param cr  CLR_NONE lets the background shine through
    BOOL SetTextBkColor(COLORREF cr);
    /// @param nImageListType  LVSIL_NORMAL, LVSIL_SMALL or LVSIL_STATE
    /// @return a temporary object, unless one owns the list; null if there is none
    CImageList* GetImageList(int nImageListType) const;
    /// Lends a list to the control. A list that no object owns any more is destroyed with the control, unless its style
    /// is LVS_SHAREIMAGELISTS.
    /// @return the list before
    CImageList* SetImageList(CImageList* pImageList, int nImageListType);
    DWORD GetExtendedStyle() const;
    /// @param dwNewStyle  LVS_EX_ bits. @return the bits before
    DWORD SetExtendedStyle(DWORD dwNewStyle);

    // Rows

    int GetItemCount() const;
    /// Makes room for rows, or sets the number of rows of an LVS_OWNERDATA list.
    void SetItemCount(int nItems);
    /// @param dwFlags  LVSICF_NOINVALIDATEALL, LVSICF_NOSCROLL
    BOOL SetItemCountEx(int iCount, DWORD dwFlags = LVSICF_NOINVALIDATEALL);
    BOOL GetItem(LVITEM* pItem) const;
    BOOL SetItem(const LVITEM* pItem);
    /// @param nMask  LVIF_ bits of the arguments that count
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                 LPARAM lParam);
    /// @return the caller's value; 0 for a wrong row
    DWORD_PTR GetItemData(int nItem) const;
    BOOL SetItemData(int nItem, DWORD_PTR dwData);
    /// @return those of the bits asked for that are set
    UINT GetItemState(int nItem, UINT nMask) const;
    /// @param nItem  -1 for all rows
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    /// The text of a cell, of any length; empty for a wrong cell.
    CString GetItemText(int nItem, int nSubItem) const;
    /// @param nLen  size of the buffer in characters
    /// @return characters copied, without the zero that always ends them; 0 without a buffer
    int GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const;
    /// @param lpszText  LPSTR_TEXTCALLBACK lets the parent be asked
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
    /// @return index of the new row; -1 on failure
    int InsertItem(const LVITEM* pItem);
    int InsertItem(int nItem, LPCTSTR lpszItem);
    int InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
    int InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage, LPARAM lParam);
    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();
    /// @param nFlags  LVNI_ALL, LVNI_SELECTED, LVNI_FOCUSED ...
    /// @param nItem   row behind which the search begins; -1 for the first
    /// @return -1 if there is none
    int GetNextItem(int nItem, int nFlags) const;
    /// Walks the selected rows: while the position isn't null, GetNextSelectedItem() gives a row and moves on.
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& pos) const;
    UINT GetSelectedCount() const;
    /// Sorts by a function that compares the callers' values of two rows.
    /// @param dwData  third argument of the function
    BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData);

    // Columns

    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const;
    BOOL SetColumn(int nCol, const LVCOLUMN* pColumn);
    /// @return index of the new column; -1 on failure
    int InsertColumn(int nCol, const LVCOLUMN* pColumn);
    /// @param nWidth    in pixels; -1 for the control's own
    /// @param nSubItem  -1 for none given
    int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL DeleteColumn(int nCol);
    int GetColumnWidth(int nCol) const;
    /// @param cx  in pixels, LVSCW_AUTOSIZE or LVSCW_AUTOSIZE_USEHEADER
    BOOL SetColumnWidth(int nCol, int cx);
    /// @return a temporary object, unless one is attached; null if the list has no header
    CHeaderCtrl* GetHeaderCtrl() const;

    // Places

    /// @param nCode  LVIR_BOUNDS, LVIR_ICON, LVIR_LABEL or LVIR_SELECTBOUNDS
    BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
    /// @param nArea  LVIR_BOUNDS, LVIR_ICON or LVIR_LABEL; the bounds of cell 0 are those of the row
    BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const;
    /// @return row under the point, -1 for none; the cell stands in the structure
    int SubItemHitTest(LPLVHITTESTINFO pInfo);
    int HitTest(LVHITTESTINFO* pHitTestInfo) const;
    /// @param pFlags  receives LVHT_ bits; may be null
    int HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    int GetCountPerPage() const;
    int GetTopIndex() const;
    /// @param bPartialOK  TRUE if a row that is partly seen need not be scrolled to
    BOOL EnsureVisible(int nItem, BOOL bPartialOK);
    /// @return width of the text alone in pixels; 0 on failure
    int GetStringWidth(LPCTSTR lpsz) const;
    /// Repaints rows at the next WM_PAINT.
    BOOL RedrawItems(int nFirst, int nLast);
    BOOL Update(int nItem);

    // Label editing

    /// Opens the editor over a row. @return a temporary object; null if the editor did not open
    CEdit* EditLabel(int nItem);
    /// @return the editor that is open; null if none is
    CEdit* GetEditControl() const;

    /// Draws a row of an LVS_OWNERDRAWFIXED list; this one draws nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult) override;
    void OnNcDestroy();
    DECLARE_MESSAGE_MAP()
};
