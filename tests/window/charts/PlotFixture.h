// PlotFixture.h - a plot with round limits
#pragma once

#include "ChartFixture.h"

namespace chart_test
{

class PlotCtrl : public ChartTest<CPlotCtrl>
{
protected:
    // 400 by 200 pixels of plot: 40 to a unit of x, 20 to one of y.
    void OpenUsual()
    {
        Open(480, 252);
        SetLimits(0.0, 0.0, 10.0, 10.0);
        m_chart->DrawGrid(false);
    }
    void SetLimits(double minX, double minY, double maxX, double maxY)
    {
        m_chart->SetDataMinX(minX);
        m_chart->SetDataMinY(minY);
        m_chart->SetDataMaxX(maxX);
        m_chart->SetDataMaxY(maxY);
    }
    void Add(double x, double y, const char* label = "") { m_chart->AddData(x, y, label, ""); }

    /// The point that the last message told.
    [[nodiscard]] const CPlotCtrl::DataPoint* Told() const
    {
        return reinterpret_cast<const CPlotCtrl::DataPoint*>(m_frame->m_notes.back().wParam);
    }
    /// Colours of an upright line in the plot.
    [[nodiscard]] static int Dark(Shot const& shot, CRect rect) { return shot.Count(rect, kBlack); }
};

} // namespace chart_test
