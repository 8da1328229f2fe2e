// EditCell.h - the edit box over a cell of a list
#pragma once

#include "tavkit/lists/EditMoves.h"
#include "tavkit/lists/ListCtrlFlex.h"

/// Edits one cell and moves on to others by keys as in a spreadsheet: Tab, Shift+Tab, Up, Down, Page Up, Page Down,
/// Ctrl+Home, Ctrl+End. Enter commits, Escape cancels, the loss of focus commits and closes.
/// The box is made by CListCtrlFlex::OnEdit() and deletes itself with its window.
class TAVKIT_API CListCtrlFlex::CEditCell : public CEdit
{
public:
    static constexpr UINT kControlId = 1001;
    static constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | ES_AUTOHSCROLL;

    /// @param list  the list that the box becomes a child of; outlives it
    CEditCell(CListCtrlFlex& list, tavkit::Cell cell, CString const& text);

    /// Keys that a dialog around the list must not see go straight to the box.
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    void PostNcDestroy() override;
    int OnCreate(LPCREATESTRUCT lpCreateStruct);
    void OnKillFocus(CWnd* pNewWnd);
    void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    void OnKeyUp(UINT nChar, UINT nRepCnt, UINT nFlags);
    UINT OnGetDlgCode();
    DECLARE_MESSAGE_MAP()

private:
    ~CEditCell() override;

    bool Commit();
    void Move(tavkit::EditMove move);
    void GrowToText();

    CListCtrlFlex& m_list;
    tavkit::Cell m_cell;
    CString m_strInitial;
    bool m_bCancelled = false;
    bool m_bCommitting = false; ///< while the parent is told of the end; who set it deletes the object then
};
