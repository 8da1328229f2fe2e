// ProjectPane.h - the project tree with a field above it that finds items by their labels
#pragma once

#include "workbench/FrameLayout.h"
#include "workbench/ProjectTree.h"

#include <afxwin.h>

#include <string>

namespace workbench
{
/// What only the pane tells its parent, by WM_COMMAND under its own id; it hands on the notices of its tree the same
/// way.
enum ProjectPaneNotice
{
    projectSearched = 16,   ///< a search ended without a find: SearchProblem() says how
    projectFieldFocus = 17, ///< the field has got the focus
    projectMenu = 18        ///< the project's menu is asked for: MenuPlace() says where
};

/// A label, a field to search with, and the tree. In the field Enter looks for the next item, Esc goes to the tree. The
/// pane's own focus goes on to the tree.
class ProjectPane : public CWnd
{
public:
    /// Creates the window as a child. @param font  of its parts; must outlive the window.
    BOOL Create(const RECT& rect, CWnd* parent, UINT id, CFont* font, const DialogUnits& units);

    [[nodiscard]] ProjectTree& Tree() { return m_tree; }
    [[nodiscard]] CWnd& Field() { return m_field; }

    /// Goes to the field, with all of its text selected.
    void GoToField();
    /// Chooses the next item that the field's text is in; goes to the field if it is empty.
    void FindNext();
    /// Where the menu that was asked for last is to come up, in screen pixels.
    [[nodiscard]] CPoint MenuPlace() const { return m_menuPlace; }
    /// How the last search ended, as a sentence; empty when it found something.
    [[nodiscard]] const std::string& SearchProblem() const { return m_problem; }

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnSetFocus(CWnd* old);
    afx_msg void OnContextMenu(CWnd* window, CPoint point);
    DECLARE_MESSAGE_MAP()

private:
    void PlaceParts();
    void Tell(int notice);

    DialogUnits m_units;
    CStatic m_label;
    CEdit m_field;
    ProjectTree m_tree;
    CPoint m_menuPlace;
    std::string m_problem;
};
} // namespace workbench
