// TablePane.h - a table under the picture, with a choice of the class of objects that it shows
#pragma once

#include "workbench/FrameLayout.h"
#include "workbench/ObjectList.h"

#include <afxwin.h>

#include <memory>
#include <optional>
#include <string>

namespace workbench
{
/// What the pane tells its parent: codes of WM_COMMAND under the pane's own id.
enum TablePaneNotice
{
    tablePlaceChanged = 1, ///< another object is selected, or none any more
    tableFocus = 2         ///< one of its parts has got the focus
};

/// Shows one table, or a word on how to open one. Its own focus goes on to the part that had it last.
class TablePane : public CWnd
{
public:
    /// Creates the window as a child. @param font  of its parts; must outlive the window.
    BOOL Create(const RECT& rect, CWnd* parent, UINT id, CFont* font, const DialogUnits& units);

    /// Shows all rows of a table in place of the one before.
    /// @return why that can't be done, as a sentence; the table before stays then. Empty on success.
    [[nodiscard]] std::string OpenTable(const std::string& path);
    /// The table that is shown; empty for none.
    [[nodiscard]] const std::string& Path() const { return m_shown.path; }
    /// Asks for a file and writes all rows that are shown into it, read or not.
    void SaveToFile();
    /// Where the selected object lies; none without one.
    [[nodiscard]] const std::optional<ObjectPlace>& Place() const { return m_place; }
    /// Selects a row by its number in the table, from 0, and scrolls it into view. If it is of another class than those
    /// shown, all are shown again.
    /// @return false if there is no such row
    bool SelectTableRow(int tableRow);
    [[nodiscard]] CWnd& List() { return *m_list; }
    [[nodiscard]] CWnd& ClassBox() { return m_classBox; }

protected:
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnSetFocus(CWnd* old);
    afx_msg void OnItemChanged(NMHDR* header, LRESULT* result);
    afx_msg void OnListFocus(NMHDR* header, LRESULT* result);
    afx_msg void OnClassFocus();
    afx_msg void OnClassDropDown();
    afx_msg void OnClassChosen();
    DECLARE_MESSAGE_MAP()

private:
    /// What is shown at present.
    struct Shown
    {
        std::string path; ///< empty for no table
        ObjectColumns columns;
        std::optional<std::string> category; ///< none for all
    };

    [[nodiscard]] std::string Show(const Shown& shown, std::unique_ptr<IAttrData> reader);
    [[nodiscard]] CRect ListRect() const;
    void PlaceParts();
    void FillClasses();
    void UpdatePlace();
    void Tell(TablePaneNotice notice);

    CFont* m_font = nullptr;
    DialogUnits m_units;
    CStatic m_label;
    CStatic m_name;
    std::unique_ptr<ObjectList> m_list;
    CStatic m_classLabel;
    CComboBox m_classBox;
    ClassNames m_classes; ///< of the table shown, as far as it was read
    Shown m_shown;
    std::optional<ObjectPlace> m_place;
    CWnd* m_focus = nullptr; ///< the part that had the focus last
};
} // namespace workbench
