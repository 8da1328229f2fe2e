// MainFrameCharts.cpp - the main window and its charts: they show what it shows, and what is chosen in them is marked
#include "workbench/MainFrame.h"

#include "workbench/resource.h"

namespace workbench
{
void MainFrame::OnViewHistogram() { m_histogram.Toggle(); }

void MainFrame::OnViewPlot() { m_plot.Toggle(); }

void MainFrame::OnUpdateHistogram(CCmdUI* command) { command->SetCheck(m_histogram.IsShown() ? 1 : 0); }

void MainFrame::OnUpdatePlot(CCmdUI* command) { command->SetCheck(m_plot.IsShown() ? 1 : 0); }

/// The histogram follows the picture; the class that is chosen stays marked.
void MainFrame::UpdateHistogram()
{
    m_histogram.ShowPicture(CurrentPath(), m_view.HasPicture() ? m_info : std::nullopt);
    OnHistogramChosen();
}

void MainFrame::OnHistogramChosen() { m_view.SetClassMark(m_histogram.Chosen()); }

void MainFrame::OnPlotChosen() { m_table.SelectTableRow(m_plot.ChosenRow()); }
} // namespace workbench
