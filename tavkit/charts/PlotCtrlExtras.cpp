// The plot's additions: files and the clipboard, the tip, and a closer look.
#include "tavkit/charts/PlotCtrl.h"

#include "tavkit/charts/ChartExport.h"
#include "tavkit/charts/ChartPage.h"
#include "tavkit/charts/PlotZoom.h"

#include <cmath>

bool CPlotCtrl::SavePng(char const* pszFile)
{
    return tavkit::SavePagePng(pszFile, tavkit::ClientSize(*this), [this](CDC& dc) { DrawPage(&dc); });
}

bool CPlotCtrl::SaveEmf(char const* pszFile)
{
    return tavkit::SavePageEmf(pszFile, tavkit::ClientSize(*this), [this](CDC& dc) { DrawPage(&dc); });
}

bool CPlotCtrl::CopyToClpbrd()
{
    return tavkit::CopyPage(*this, tavkit::ClientSize(*this), [this](CDC& dc) { DrawPage(&dc); });
}

void CPlotCtrl::EnblToolTip(bool bEnable) { m_tip.Enable(bEnable); }

CString CPlotCtrl::TipText(CPoint point) const
{
    CString text;
    if (const DataPoint* const under = tavkit::PointUnder(m_vecData, Map(), point))
    {
        text.Format("%g, %g", under->x, under->y);
        if (!under->strLabelX.IsEmpty())
        {
            text = CString(static_cast<char const*>(under->strLabelX)) + ": " + text;
        }
    }
    return text;
}

void CPlotCtrl::OnMouseMove(UINT nFlags, CPoint point)
{
    CWnd::OnMouseMove(nFlags, point);
    if (m_panFrom)
    {
        Pan(point);
    }
    else if (m_tip.IsOn())
    {
        m_tip.Show(*this, TipText(point), point);
    }
}

void CPlotCtrl::OnMouseLeave()
{
    CWnd::OnMouseLeave();
    m_tip.Hide();
}

// A closer look

void CPlotCtrl::EnblZoom(bool bEnable)
{
    m_bZoom = bEnable;
    if (!bEnable)
    {
        ResetZoom();
    }
}

void CPlotCtrl::ResetZoom()
{
    if (m_zoom)
    {
        m_zoom.reset();
        UpdtPlot();
    }
}

void CPlotCtrl::Look(tavkit::DataWindow const& view)
{
    m_zoom = view == Limits() ? std::nullopt : std::optional(view);
    UpdtPlot();
}

BOOL CPlotCtrl::OnMouseWheel(UINT nFlags, short zDelta, CPoint pt)
{
    const tavkit::PlotMap map = Map();
    CPoint point = pt;
    ScreenToClient(&point);
    const bool hasRange = DataRangeX() > 0 && DataRangeY() > 0 && map.Width() > 0 && map.Height() > 0;
    if (!m_bZoom || !hasRange || !map.IsInside(point))
    {
        return CWnd::OnMouseWheel(nFlags, zDelta, pt); // goes to the parent
    }
    const double factor = std::pow(tavkit::kZoomPerNotch, static_cast<double>(zDelta) / WHEEL_DELTA);
    Look(tavkit::ZoomAt(map.data, Limits(), map.ToDataX(point.x), map.ToDataY(point.y), factor));
    return TRUE;
}

void CPlotCtrl::OnRButtonDown(UINT nFlags, CPoint point)
{
    if (!m_bZoom)
    {
        CWnd::OnRButtonDown(nFlags, point);
        return;
    }
    SetFocus();
    if (m_zoom && Map().IsInside(point))
    {
        SetCapture();
        m_panFrom = point;
        m_tip.Hide();
    }
}

void CPlotCtrl::OnRButtonUp(UINT nFlags, CPoint point)
{
    if (m_panFrom)
    {
        ::ReleaseCapture();
        return;
    }
    CWnd::OnRButtonUp(nFlags, point);
}

void CPlotCtrl::OnRButtonDblClk(UINT nFlags, CPoint point)
{
    if (m_bZoom)
    {
        ResetZoom();
        return;
    }
    CWnd::OnRButtonDblClk(nFlags, point);
}

void CPlotCtrl::OnCaptureChanged(CWnd* pWnd)
{
    m_panFrom.reset();
    CWnd::OnCaptureChanged(pWnd);
}

void CPlotCtrl::Pan(CPoint point)
{
    const tavkit::PlotMap map = Map();
    const double dx = map.ToDataX(m_panFrom->x) - map.ToDataX(point.x);
    const double dy = map.ToDataY(m_panFrom->y) - map.ToDataY(point.y);
    m_panFrom = point;
    Look(tavkit::PanBy(map.data, Limits(), dx, dy));
}
