// PlotPane.h - two columns of the open table against each other
#pragma once

#include "tavkit/charts/PlotCtrl.h"
#include "workbench/ChartPane.h"
#include "workbench/NumberTable.h"

#include <string>
#include <vector>

namespace workbench
{
/// What the pane tells the main window.
enum PlotNotice
{
    plotChosen = 1 ///< a point is chosen: ChosenRow() says which
};

/// A plot of the table's rows, and a choice of the columns. A click on a point chooses its row; the wheel zooms.
/// Nothing is read while it is hidden.
class PlotPane : public ChartPane
{
public:
    /// Creates the window, hidden. @param font  of its parts; must outlive the window.
    BOOL Create(CWnd* owner, UINT id, CFont* font, const DialogUnits& units);

    /// Shows another table, or the same one read anew.
    void ShowTable(const std::string& path);
    /// The row of the table that was chosen last, counted from 0; -1 for none.
    [[nodiscard]] int ChosenRow() const { return m_chosen; }

protected:
    void PlaceParts() override;
    void OnShown() override;
    afx_msg void OnColumnChosen();
    afx_msg LRESULT OnPointChosen(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void ReadTable();
    void FillPlot();
    void ForgetPoints();

    CStatic m_xLabel;
    CComboBox m_xBox;
    CStatic m_yLabel;
    CComboBox m_yBox;
    CPlotCtrl m_chart;
    std::string m_path;
    std::string m_read; ///< the table that the columns are of; empty when they must be read
    std::vector<NumberColumn> m_columns;
    int m_chosen = -1;
};
} // namespace workbench
