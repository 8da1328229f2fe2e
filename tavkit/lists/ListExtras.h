// ListExtras.h - additions to the lists of the library that a host switches on: copying, finding, kept columns, sort
// mark
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include "tavkit/frame/Export.h"
#include "tavkit/frame/LifeWatch.h"
#include "tavkit/lists/ListCtrlFlex.h"
#include "tavkit/lists/TypedFind.h"

#include <string>

/// Additions, over and above what the lists themselves do: each is off until the host switches it on, and a list
/// without them behaves as if they did not exist. One object serves one list of any class derived from CListCtrlFlex,
/// virtual ones too, from Attach() until the list's window goes; it may end before the list or after it.
///
/// @code
/// m_extras.Attach(m_list);            // once the list has its window and its columns
/// m_extras.EnblCopy(true);
/// m_extras.EnblFind(true);
/// m_extras.EnblSortMark(true);
/// m_extras.KeepColumns("Objects");
/// @endcode
class TAVKIT_API ListExtras
{
public:
    static constexpr int kSortedCol = -1;                         ///< as the column to find in: the one sorted by last
    static constexpr char const* kCsvFormat = "Csv";              ///< clipboard format, as spreadsheets name it
    static constexpr char const* kProfileSection = "ListColumns"; ///< where columns are kept

    ListExtras() = default;
    ~ListExtras();
    ListExtras(ListExtras const&) = delete;
    ListExtras& operator=(ListExtras const&) = delete;

    /// Serves a list from now on, and no other.
    /// @return false if the list has no window
    bool Attach(CListCtrlFlex& list);
    /// Serves none any more. What was switched on stays so for the next list.
    void Detach();

    // Copying

    /// Ctrl+C and Ctrl+Insert copy the selected rows.
    void EnblCopy(bool enable);
    /// Puts the selected rows on the clipboard, with their columns from left to right: tab-separated as text, and
    /// comma-separated under kCsvFormat.
    /// @param captions  begin with a row of the columns' captions
    /// @return false if no row is selected or the clipboard can't be had; it stays as it was then
    bool CopySelection(bool captions = false);

    // Finding

    /// What is typed goes to the next row whose cell begins with it, upper and lower case being the same; F3 and
    /// Shift+F3 go on to the next and the previous one. A list's own search, in its first column, is off meanwhile.
    void EnblFind(bool enable);
    /// The column in which FindNext() and what is typed look: an index, or kSortedCol (as at first), which is the first
    /// column while the list has not been sorted.
    void SetFindCol(int col);
    /// Goes to the first row behind the current one whose cell has the text, beginning again at the top after the last
    /// row. The row becomes the only selected one, and the current one, and is scrolled into view.
    /// @return false, and nothing done, if there is none, or the text is empty
    bool Find(char const* text, tavkit::FindPlace place = tavkit::FindPlace::Anywhere);
    /// The same again, with the text that was typed or given last.
    bool FindNext(bool backwards = false);

    // Columns

    /// Lets the user drag columns to other places, and shows the cells under their captions then.
    void EnblColOrder(bool enable);
    /// Writes the columns' widths and order into the application's profile.
    /// @param name  of the entry
    /// @return false if the name is empty, the list has no column, or the profile can't be written
    bool SaveColumns(char const* name) const;
    /// Gives the columns the widths that were written under the name, and the order if EnblColOrder() is on.
    /// @return false, and nothing done, if there is no such entry or it is one of other columns
    bool RestoreColumns(char const* name);
    /// RestoreColumns() now, and SaveColumns() when the list's window goes. An empty name ends it.
    void KeepColumns(char const* name);

    // Sort mark

    /// Marks the column that was sorted by last, and the direction, in the header, and keeps the mark up to date as
    /// headers are clicked.
    void EnblSortMark(bool enable);
    /// Marks a column; for a host that sorts by itself.
    /// @param col  -1 for none
    void ShowSortMark(int col, bool ascending);

private:
    static LRESULT CALLBACK SubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR extras);
    bool OnKeyDown(UINT key);
    bool OnChar(UINT character);
    bool IsHeaderClick(LPARAM lParam) const;

    [[nodiscard]] HWND Header() const;
    [[nodiscard]] int CountColumns() const;
    [[nodiscard]] std::vector<int> ColumnOrder() const;
    [[nodiscard]] int FindCol() const;
    bool GoTo(std::string const& text, tavkit::FindPlace place, int from, bool backwards);
    void ShowLastSort();

    CListCtrlFlex* m_pList = nullptr;
    bool m_bCopy = false;
    bool m_bFind = false;
    bool m_bColOrder = false;
    bool m_bSortMark = false;
    int m_nFindCol = kSortedCol;
    tavkit::TypedText m_typed;
    std::string m_strFind; ///< what FindNext() looks for
    tavkit::FindPlace m_findPlace = tavkit::FindPlace::Begin;
    std::string m_strKeepName;
    LifeToken m_life;
};
