#include "workbench/PlotPane.h"

#include "tavkit/frame/services/BDIMoniker.h"
#include "tavkit/frame/services/DError.h"
#include "tavkit/frame/services/OpenAttrData.h"
#include "workbench/TickChoice.h"
#include "workbench/resource.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace workbench
{
namespace
{
constexpr char kPaneTitle[] = "Plot";
constexpr SIZE kPaneSize{290, 190}; // dialog units
constexpr int kMostRows = 100'000;  // a plot of more shows nothing more
constexpr int kTicksX = 10;
constexpr int kTicksY = 8;

/// The axis of the values that are finite in both columns.
Axis AxisOf(const std::vector<double>& values, const std::vector<double>& others, int ticks)
{
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -lowest;
    for (size_t i = 0; i < values.size(); ++i)
    {
        if (std::isfinite(values[i]) && std::isfinite(others[i]))
        {
            lowest = std::min(lowest, values[i]);
            highest = std::max(highest, values[i]);
        }
    }
    return lowest <= highest ? ChooseAxis(lowest, highest, ticks) : Axis{};
}
} // namespace

BEGIN_MESSAGE_MAP(PlotPane, ChartPane)
    ON_CBN_SELCHANGE(IDC_PLOT_X, OnColumnChosen)
    ON_CBN_SELCHANGE(IDC_PLOT_Y, OnColumnChosen)
    ON_MESSAGE(WM_CHART_SLCT, OnPointChosen)
END_MESSAGE_MAP()

BOOL PlotPane::Create(CWnd* owner, UINT id, CFont* font, const DialogUnits& units)
{
    if (!CreatePane(kPaneTitle, owner, id, font, units, kPaneSize, Side::upper) ||
        !CreateChoice(m_xLabel, "&X:", m_xBox, IDC_PLOT_X) || !CreateChoice(m_yLabel, "&Y:", m_yBox, IDC_PLOT_Y) ||
        !m_chart.Create(CPlotCtrl::ClassName, "", WS_CHILD | WS_VISIBLE, CRect(), this, IDC_PLOT_CHART))
    {
        return FALSE;
    }
    m_chart.EnblToolTip(true);
    m_chart.EnblZoom(true);
    PlaceParts();
    FillPlot();
    return TRUE;
}

void PlotPane::PlaceParts()
{
    if (m_chart.GetSafeHwnd() != nullptr)
    {
        PlaceChoice(m_xLabel, m_xBox, 0);
        PlaceChoice(m_yLabel, m_yBox, 1);
        m_chart.MoveWindow(ChartRect());
    }
}

void PlotPane::ShowTable(const std::string& path)
{
    m_path = path;
    m_read.clear();
    ReadTable();
}

void PlotPane::OnShown() { ReadTable(); }

void PlotPane::ReadTable()
{
    if (!IsShown() || m_path.empty() || m_read == m_path)
    {
        return;
    }
    const CWaitCursor wait;
    DError error;
    const auto reader = OpenAttrData(BDIMoniker(m_path.c_str(), nullptr), nullptr, &error);
    m_columns = reader ? ReadNumbers(*reader, kMostRows) : std::vector<NumberColumn>();
    m_read = m_path;
    const ColumnPair pair = FirstPair(m_columns);
    for (CComboBox* const box : {&m_xBox, &m_yBox})
    {
        box->ResetContent();
        for (const NumberColumn& column : m_columns)
        {
            box->AddString(column.name.c_str());
        }
        box->SetCurSel(box == &m_xBox ? pair.x : pair.y);
    }
    FillPlot();
}

/// Clears the plot. Word of a point that is on its way must not arrive: the point is gone.
void PlotPane::ForgetPoints()
{
    m_chart.Clear();
    MSG message;
    while (::PeekMessageA(&message, m_hWnd, WM_CHART_SLCT, WM_CHART_SLCT, PM_REMOVE))
    {
    }
    m_chosen = -1;
}

void PlotPane::FillPlot()
{
    ForgetPoints();
    const int x = m_xBox.GetCurSel();
    const int y = m_yBox.GetCurSel();
    const bool hasColumns = x >= 0 && y >= 0;
    m_chart.SetCaptionX(hasColumns ? m_columns[static_cast<size_t>(x)].name.c_str() : "");
    m_chart.SetCaptionY(hasColumns ? m_columns[static_cast<size_t>(y)].name.c_str() : "");
    Axis axisX;
    Axis axisY;
    if (hasColumns)
    {
        const std::vector<double>& valuesX = m_columns[static_cast<size_t>(x)].values;
        const std::vector<double>& valuesY = m_columns[static_cast<size_t>(y)].values;
        axisX = AxisOf(valuesX, valuesY, kTicksX);
        axisY = AxisOf(valuesY, valuesX, kTicksY);
        for (size_t row = 0; row < valuesX.size(); ++row)
        {
            if (std::isfinite(valuesX[row]) && std::isfinite(valuesY[row]))
            {
                // The label is the row's number, by which a point is known again.
                m_chart.AddData(valuesX[row], valuesY[row], std::to_string(row + 1).c_str(), nullptr);
            }
        }
    }
    m_chart.SetDataMinX(axisX.min);
    m_chart.SetDataMaxX(axisX.max);
    m_chart.SetTickX(axisX.tick);
    m_chart.SetDataMinY(axisY.min);
    m_chart.SetDataMaxY(axisY.max);
    m_chart.SetTickY(axisY.tick);
}

void PlotPane::OnColumnChosen() { FillPlot(); }

LRESULT PlotPane::OnPointChosen(WPARAM wParam, LPARAM)
{
    const auto* const point = reinterpret_cast<const CPlotCtrl::DataPoint*>(wParam);
    m_chosen = std::atoi(point->strLabelX.c_str()) - 1;
    Tell(plotChosen);
    return 0;
}
} // namespace workbench
