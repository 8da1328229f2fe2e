// ListCtrlFlex.h - report list with a record behind every row, typed columns, sorting and editing in place
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include "tavkit/frame/Export.h"
#include "tavkit/frame/LifeWatch.h"
#include "tavkit/frame/services/DVector.h"
#include "tavkit/frame/services/IAttrData.h"
#include "tavkit/lists/EditMoves.h"

#include <deque>

/// The base of every list of the library that sorts: rows with colours, font, indent and data of their own, a table of
/// column types, sorting by a click on a column, as numbers or as text, and an edit box over a single cell. To be
/// created in report view with LVS_OWNERDRAWFIXED, or DrawItem() is never asked.
///
/// Rows and columns count from 0. The control's own item parameter belongs to this class: rows are inserted, and their
/// data is read and written, by the operations here alone.
///
/// The parent may destroy the list, or the object, in any notification.
class TAVKIT_API CListCtrlFlex : public CListCtrl
{
public:
    class CEditCell;

    /// The column that the list was sorted by last, and the direction.
    class TAVKIT_API LastSort
    {
    public:
        static constexpr int kNoColumn = -2; ///< the column before the first sort

        /// True if the last sort was an ascending one; true before the first.
        [[nodiscard]] bool IsSortedAscnd() const;
        /// The column; -2 before the first sort.
        [[nodiscard]] int GetCol() const;
        /// The direction that the next sort of `col` takes: ascending, but the opposite of the last for its column.
        [[nodiscard]] bool IsSortAscnd(int col) const;

    private:
        friend class CListCtrlFlex;

        bool m_bAscending = true;
        int m_nCol = kNoColumn;
    };

    CListCtrlFlex();
    ~CListCtrlFlex() override;

    // Columns

    /// Inserts a column and stores its type at index `col` of the column table, in place of what stands there: the
    /// types of later columns don't move with them, by design.
    /// @param format   LVCFMT_LEFT, LVCFMT_RIGHT or LVCFMT_CENTER
    /// @param width    in pixels; -1 for the control's own
    /// @param subItem  -1 for none given
    /// @return index of the new column; -1 if the control refused
    int InsertColumn(int col, ADIColType type, char const* caption, bool editable, int format, int width, int subItem);
    /// @return adiString for a column that the table doesn't hold.
    [[nodiscard]] ADIColType GetColType(int col) const;
    /// Stores type and flag, growing the table with columns that have no type and aren't editable. A negative index is
    /// none.
    void SetColType(int col, ADIColType type, bool editable);
    /// Removes all columns with their types.
    virtual void RmvAllCol();

    // Rows

    /// Inserts a row.
    /// @param data     the caller's
    /// @param font     borrowed for the life of the list; null for the list's
    /// @param bkColor  0xFFFFFF stands for the system's window colour, and 0 for its window text colour
    /// @param indent   pixels by which texts move to the right
    /// @return index of the row; -1 if the control refused
    int InsertItem(int row, char const* text, DWORD_PTR data, CFont* font, COLORREF textColor, COLORREF bkColor,
                   int indent);
    /// Inserts a row with an image. Here a background of 0 stays black: the two differ on purpose.
    int InsertItem(int row, char const* text, int image, DWORD_PTR data, CFont* font, COLORREF textColor,
                   COLORREF bkColor, int indent);
    /// @return the data given to InsertItem() or SetItemData(); 0 if the row has none; -1 if the control's parameter is
    /// -1
    [[nodiscard]] DWORD_PTR GetItemData(int row) const;
    /// @return 0; -1, with nothing written, if the row has no record
    int SetItemData(int row, DWORD_PTR data);

    // Sorting

    /// Sorts the rows. Columns of type adiInt or adiDouble sort as numbers, by the first 24 characters of a cell, with
    /// cells that hold no number behind all that do; others by the bytes of the first 255 characters. What becomes of
    /// equal cells is left to the control's own sort. An open edit box is committed first. Does nothing for a negative
    /// column, in an LVS_OWNERDATA list and while sorting is disabled.
    virtual void Sort(int col, bool ascending);
    [[nodiscard]] LastSort& GetLastSort();
    [[nodiscard]] LastSort const& GetLastSort() const;
    /// Sorting is enabled at first.
    void EnblSort(bool enable);

    // Colours

    /// False also for a black background, which counts as none set.
    [[nodiscard]] bool IsBkColorSet() const;
    /// @return the control's result
    int SetBkColor(COLORREF color);

    // Editing

    /// Opens an edit box over a cell, after the parent was asked by LVN_BEGINLABELEDIT: any answer but 0 forbids it.
    /// The box that is open meanwhile commits and closes. Nothing happens for a cell that doesn't exist.
    /// @param findNext  goes on to the next cell of an editable column, row by row, if `col` isn't editable; else the
    ///                  cell named is edited even so
    void OnEdit(int row, int col, bool findNext);

    void DrawItem(LPDRAWITEMSTRUCT item) override;

protected:
    BOOL OnEraseBkgnd(CDC* pDC);
    BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    BOOL OnEndLabelEdit(NMHDR* pNMHDR, LRESULT* pResult);
    BOOL OnColumnClick(NMHDR* pNMHDR, LRESULT* pResult);
    BOOL OnDblClick(NMHDR* pNMHDR, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()

    LifeToken m_life; ///< for operations that call out and go on

private:
    friend class ListExtras; // additions, which a host switches on

    static constexpr COLORREF kWindowColor = 0xFFFFFF; ///< as a row's background: the system's window colour
    static constexpr COLORREF kNoColor = 0;            ///< no background
    static constexpr LPARAM kNoParam = -1;             ///< an item parameter that is no record, as 0 is none
    static constexpr int kDrawnText = 1024;            ///< characters of a cell that are drawn at most

    struct ColInfo
    {
        bool editable;
        ADIColType type;
    };

    /// What a row is sorted by while Sort() runs.
    union SortValue
    {
        double num;
        char const* txt;
    };

    /// The record behind a row; the control's item parameter points to it.
    struct ItemRec
    {
        DWORD_PTR data;
        CFont* font;
        COLORREF textColor;
        COLORREF bkColor;
        int indent;
        SortValue sort;
    };

    static ItemRec* RecordOf(LPARAM param);
    int InsertItem(UINT mask, int row, char const* text, int image, ItemRec const& record);

    bool DeleteColumn(int col);
    bool IsEditable(int col);
    [[nodiscard]] int CountColumns() const;
    [[nodiscard]] int ColumnAt(int place) const;
    tavkit::Cell HitCell(CPoint point);

    void Sort(int col);
    void SortByNumber(int col, bool ascending);
    void SortByText(int col, bool ascending);
    template <class Room, class Take>
    bool FetchKeys(int col, int rows, Room room, Take take);
    static int CALLBACK CompareStr(LPARAM first, LPARAM second, LPARAM ascending);
    static int CALLBACK CompareNum(LPARAM first, LPARAM second, LPARAM ascending);

    int DrawImage(CDC& dc, int row, CPoint place, bool selected);
    void DrawCells(CDC& dc, int row, int left, CRect const& text);
    void CloseEditor();

    LastSort m_lastSort;
    COLORREF m_clrSlctText;
    COLORREF m_clrSlctBk;
    std::deque<ItemRec> m_records; ///< of all rows that ever were: a deleted row's stays until the list goes
    DVector<ColInfo> m_vecCols;
    bool m_bSort = true;
    bool m_bSorting = false; ///< a callback for texts that sorts while the keys are fetched is refused
    COLORREF m_clrBk = kNoColor;
    bool m_bDrawOrder = false; ///< draw columns where the user dragged them; set by ListExtras alone
};
