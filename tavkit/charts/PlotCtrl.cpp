#include "tavkit/charts/PlotCtrl.h"

#include "tavkit/charts/ChartPage.h"
#include "tavkit/charts/DiscPainter.h"
#include "tavkit/charts/PlotZoom.h"

#include <cmath>
#include <memory>
#include <vector>

BEGIN_MESSAGE_MAP(CPlotCtrl, CWnd)
    ON_WM_PAINT()       // the drawing, made anew if it must be
    ON_WM_ERASEBKGND()  // nothing: the drawing covers all
    ON_WM_SIZE()        // another size is another drawing
    ON_WM_LBUTTONDOWN() // selects a point and tells the parent
    ON_WM_MOUSEMOVE()   // the tip and the drag, if they are on
    ON_WM_MOUSELEAVE()  // no tip any more
    ON_WM_MOUSEWHEEL()  // zooms, if that is on; as the buttons do
    ON_WM_RBUTTONDOWN()
    ON_WM_RBUTTONUP()
    ON_WM_RBUTTONDBLCLK()
    ON_WM_CAPTURECHANGED()
END_MESSAGE_MAP()

namespace
{

constexpr const char* kLabelFace = "Arial Narrow";
constexpr const char* kCaptionFace = "Arial";
constexpr int kAxisWidth = 2;
constexpr int kLineWidth = 1;
constexpr int kUpright = 900; // tenths of a degree
constexpr double kUprightAngle = 90.0;

const char* TextOf(DString const& text)
{
    const char* const chars = text;
    return chars != nullptr ? chars : "";
}

} // namespace

CPlotCtrl::DataPoint::DataPoint(double dX, double dY, const char* pszLabelX, const char*)
    : x(dX), y(dY), strLabelX(pszLabelX), strLabelY(pszLabelX)
{
}

CPlotCtrl::CPlotCtrl() { RegisterWindowClass(); }

CPlotCtrl::~CPlotCtrl() { Clear(); }

void CPlotCtrl::RegisterWindowClass() { tavkit::RegisterChartClass(ClassName); }

void CPlotCtrl::UpdtPlot()
{
    m_bUpdt = true;
    m_tip.Hide();
    tavkit::InvalidateChart(*this, true);
}

// Data

void CPlotCtrl::AddData(double x, double y, const char* pszLabelX, const char* pszLabelY)
{
    auto point = std::make_unique<DataPoint>(x, y, pszLabelX, pszLabelY);
    m_vecData.Append(point.get());
    const DataPoint* const added = point.release();
    if (added == m_pSlct)
    {
        m_pSlct = nullptr; // it only lies where the selected point once lay
    }
    // The lower limits stay: what is shown grows upward only.
    if (std::isfinite(x) && x > m_dDataMaxX)
    {
        m_dDataMaxX = x;
    }
    if (std::isfinite(y) && y > m_dDataMaxY)
    {
        m_dDataMaxY = y;
    }
    UpdtPlot();
}

void CPlotCtrl::Clear()
{
    for (const DataPoint* const point : m_vecData)
    {
        delete point;
    }
    m_vecData.Clear();
    UpdtPlot();
}

void CPlotCtrl::SetLimit(double& limit, double value)
{
    limit = value;
    m_zoom.reset();
    UpdtPlot();
}

void CPlotCtrl::SetDataMinX(double dMinX) { SetLimit(m_dDataMinX, dMinX); }

void CPlotCtrl::SetDataMinY(double dMinY) { SetLimit(m_dDataMinY, dMinY); }

void CPlotCtrl::SetDataMaxX(double dMaxX) { SetLimit(m_dDataMaxX, dMaxX); }

void CPlotCtrl::SetDataMaxY(double dMaxY) { SetLimit(m_dDataMaxY, dMaxY); }

void CPlotCtrl::SetTickX(double dTickX)
{
    m_dTickX = dTickX;
    UpdtPlot();
}

void CPlotCtrl::SetTickY(double dTickY)
{
    m_dTickY = dTickY;
    UpdtPlot();
}

void CPlotCtrl::DrawGrid(bool bDraw)
{
    m_bDrawGrid = bDraw;
    UpdtPlot();
}

void CPlotCtrl::DrawLine(bool bDraw)
{
    m_bDrawLine = bDraw;
    UpdtPlot();
}

void CPlotCtrl::DrawEveryXTick(bool bDraw)
{
    m_bDrawEveryXTick = bDraw;
    UpdtPlot();
}

void CPlotCtrl::DrawTitle(bool bDraw)
{
    // Whatever the flag was before: callers count on two calls adding twice.
    m_bDrawTitle = bDraw;
    m_nMarginTop += bDraw ? TitleRoom : -TitleRoom;
    UpdtPlot();
}

void CPlotCtrl::SetCaptionX(CString strCaption)
{
    m_strCaptionX = strCaption;
    UpdtPlot();
}

void CPlotCtrl::SetCaptionY(CString strCaption)
{
    m_strCaptionY = strCaption;
    UpdtPlot();
}

void CPlotCtrl::SetTitle(CString strTitle)
{
    m_strTitle = strTitle;
    UpdtPlot();
}

// Places

int CPlotCtrl::PlotMinX() const { return m_nMarginLeft; }

int CPlotCtrl::PlotMinY() const { return m_nMarginTop; }

int CPlotCtrl::PlotMaxX() const { return tavkit::ClientSize(*this).cx - m_nMarginRight; }

int CPlotCtrl::PlotMaxY() const { return tavkit::ClientSize(*this).cy - m_nMarginBottom; }

int CPlotCtrl::PlotWidth() const { return PlotMaxX() - PlotMinX(); }

int CPlotCtrl::PlotHeight() const { return PlotMaxY() - PlotMinY(); }

tavkit::DataWindow CPlotCtrl::Limits() const { return {m_dDataMinX, m_dDataMinY, m_dDataMaxX, m_dDataMaxY}; }

double CPlotCtrl::DataRangeX() const { return Map().data.maxX - Map().data.minX; }

double CPlotCtrl::DataRangeY() const { return Map().data.maxY - Map().data.minY; }

tavkit::PlotMap CPlotCtrl::Map() const
{
    return {{PlotMinX(), PlotMinY(), PlotMaxX(), PlotMaxY()}, m_zoom.value_or(Limits())};
}

int CPlotCtrl::DataToWndX(double v) const { return Map().ToWndX(v); }

int CPlotCtrl::DataToWndY(double v) const { return Map().ToWndY(v); }

double CPlotCtrl::WndToDataX(int p) const { return Map().ToDataX(p); }

double CPlotCtrl::WndToDataY(int p) const { return Map().ToDataY(p); }

int CPlotCtrl::DataToWndSX(double d) const { return Map().ToWndSX(d); }

int CPlotCtrl::DataToWndSY(double d) const { return Map().ToWndSY(d); }

double CPlotCtrl::DistSqr(const DataPoint& a, const DataPoint& b) const
{
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

// Drawing

void CPlotCtrl::OnPaint()
{
    CPaintDC dc(this);
    const CSize client = tavkit::ClientSize(*this);
    if (m_bUpdt)
    {
        m_buffer.Resize(&dc, client.cx, client.cy);
        if (m_buffer.m_dc.GetSafeHdc() != nullptr)
        {
            DrawPage(&m_buffer.m_dc);
        }
    }
    if (m_buffer.m_dc.GetSafeHdc() != nullptr)
    {
        dc.BitBlt(0, 0, client.cx, client.cy, &m_buffer.m_dc, 0, 0, SRCCOPY);
    }
    else
    {
        dc.FillSolidRect(CRect(CPoint(0, 0), client), tavkit::kPageColor);
    }
    m_bUpdt = false;
}

void CPlotCtrl::DrawPage(CDC* pDC)
{
    pDC->SetBkMode(TRANSPARENT);
    pDC->FillSolidRect(CRect(CPoint(0, 0), tavkit::ClientSize(*this)), tavkit::kPageColor);
    DrawFrame(pDC);
    DrawAxes(pDC);
    DrawTickMarks(pDC);
    DrawData(pDC);
}

void CPlotCtrl::DrawFrame(CDC* pDC) { tavkit::DrawChartFrame(pDC, tavkit::ClientSize(*this)); }

void CPlotCtrl::DrawAxes(CDC* pDC)
{
    const CPen pen(PS_SOLID, kAxisWidth, tavkit::kInkColor);
    const SelectScope selected(*pDC, pen);
    pDC->MoveTo(PlotMinX(), PlotMinY());
    pDC->LineTo(PlotMinX(), PlotMaxY());
    pDC->LineTo(PlotMaxX(), PlotMaxY());
}

void CPlotCtrl::DrawTickMarks(CDC* pDC)
{
    const tavkit::PlotMap map = Map();
    if (map.data.minX > map.data.maxX || map.data.minY > map.data.maxY)
    {
        return;
    }
    const CPen pen(PS_SOLID, kAxisWidth, tavkit::kInkColor);
    const SelectScope selected(*pDC, pen);
    DrawTicksX(pDC, map);
    DrawTicksY(pDC, map);
    DrawTexts(pDC, map.area);
}

void CPlotCtrl::DrawTicksX(CDC* pDC, tavkit::PlotMap const& map)
{
    const tavkit::TickAxis axis =
        m_zoom ? tavkit::ZoomTicks(m_dDataMinX, m_dDataMaxX, m_dTickX, map.data.minX, map.data.maxX)
               : tavkit::TickAxis{m_dDataMinX, m_dTickX};
    const double ticks = m_bDrawEveryXTick ? m_vecData.GetCount() : DataRangeX() / axis.step;
    CFont font;
    font.CreatePointFont(tavkit::IsCrowded(ticks) ? CrowdedFontSize : LabelFontSize, kLabelFace, pDC);
    const SelectScope selectedFont(*pDC, font);
    const CPen gridPen(PS_DOT, kLineWidth, tavkit::kInkColor);
    const int width = map.ToWndSX(axis.step);
    const auto draw = [&](double value, const char* label) {
        const int x = map.ToWndX(value);
        pDC->MoveTo(x, map.area.bottom);
        pDC->LineTo(x, map.area.bottom + tavkit::kPlotTickLength);
        CString text = label;
        if (text.IsEmpty())
        {
            text.Format("%.2g", value);
        }
        RECT place = tavkit::XLabelPlace(map.area, x, width);
        pDC->DrawText(text, &place, DT_CENTER | DT_NOCLIP);
        if (m_bDrawGrid && value != map.data.minX)
        {
            const SelectScope selectedPen(*pDC, gridPen);
            pDC->MoveTo(x, map.area.bottom);
            pDC->LineTo(x, map.area.top);
        }
    };
    if (m_bDrawEveryXTick)
    {
        for (const DataPoint* const point : m_vecData)
        {
            if (std::isfinite(point->x))
            {
                draw(point->x, TextOf(point->strLabelX));
            }
        }
        return;
    }
    for (const double value : tavkit::TickValues(axis.first, map.data.maxX, axis.step))
    {
        draw(value, "");
    }
}

void CPlotCtrl::DrawTicksY(CDC* pDC, tavkit::PlotMap const& map)
{
    CFont font;
    font.CreatePointFont(LabelFontSize, kLabelFace, pDC);
    const SelectScope selectedFont(*pDC, font);
    const CPen gridPen(PS_DOT, kLineWidth, tavkit::kInkColor);
    CString text;
    const tavkit::TickAxis axis =
        m_zoom ? tavkit::ZoomTicks(m_dDataMinY, m_dDataMaxY, m_dTickY, map.data.minY, map.data.maxY)
               : tavkit::TickAxis{m_dDataMinY, m_dTickY};
    for (const double value : tavkit::TickValues(axis.first, map.data.maxY, axis.step))
    {
        const int y = map.ToWndY(value);
        pDC->MoveTo(map.area.left, y);
        pDC->LineTo(map.area.left - tavkit::kPlotTickLength, y);
        text.Format("%.2f", value);
        RECT place = tavkit::YLabelPlace(map.area, y);
        pDC->DrawText(text, &place, DT_RIGHT | DT_NOCLIP);
        if (m_bDrawGrid && value != map.data.minY)
        {
            const SelectScope selectedPen(*pDC, gridPen);
            pDC->MoveTo(map.area.left, y);
            pDC->LineTo(map.area.right, y);
        }
    }
}

void CPlotCtrl::DrawTexts(CDC* pDC, RECT const& area)
{
    // Title and x caption stand in the font of the y labels.
    CFont labelFont;
    labelFont.CreatePointFont(LabelFontSize, kLabelFace, pDC);
    const SelectScope selectedLabelFont(*pDC, labelFont);
    if (!m_strTitle.IsEmpty())
    {
        RECT place = tavkit::TitlePlace(area);
        pDC->DrawText(m_strTitle, &place, DT_CENTER);
    }
    if (!m_strCaptionX.IsEmpty())
    {
        RECT place = tavkit::XCaptionPlace(area);
        pDC->DrawText(m_strCaptionX, &place, DT_CENTER);
    }
    if (!m_strCaptionY.IsEmpty())
    {
        CFont font;
        font.CreateFont(CaptionFontHeight, 0, kUpright, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, kCaptionFace);
        const SelectScope selectedFont(*pDC, font);
        CRect place = tavkit::YCaptionPlace(area);
        DrawRotatedText(pDC, m_strCaptionY, place, kUprightAngle, 0);
    }
}

void CPlotCtrl::DrawRotatedText(CDC* pDC, CString str, CRect& rect, double dAngle, unsigned int nOptions)
{
    SIZE extent{};
    ::GetTextExtentPoint32A(pDC->m_hAttribDC, str, str.GetLength(), &extent);
    const POINT start = tavkit::RotatedTextStart(rect, extent, dAngle);
    const UINT align = pDC->SetTextAlign(TA_BASELINE);
    ::ExtTextOutA(pDC->m_hDC, start.x, start.y, nOptions, rect, str, static_cast<UINT>(str.GetLength()), nullptr);
    pDC->SetTextAlign(align);
}

void CPlotCtrl::DrawData(CDC* pDC)
{
    const CPen pen(PS_SOLID, kLineWidth, PointColor);
    const CBrush brush(PointColor);
    const SelectScope selectedPen(*pDC, pen);
    const SelectScope selectedBrush(*pDC, brush);
    const tavkit::PlotMap map = Map();
    // All points and lines have one colour, so their order shows nowhere but at the selected point, which covers those
    // before it and is covered by those behind it.
    const int count = m_vecData.GetCount();
    int done = 0;
    for (int i = 0; m_pSlct != nullptr && i < count; ++i)
    {
        const DataPoint& point = *m_vecData.m_pData[i];
        if (&point == m_pSlct && map.data.Contains(point.x, point.y))
        {
            DrawLines(pDC, map, done, i + 1);
            DrawPoints(pDC, map, done, i + 1);
            done = i + 1;
            const CBrush slctBrush(SlctColor);
            const SelectScope selectedSlctBrush(*pDC, slctBrush);
            const int x = map.ToWndX(point.x);
            const int y = map.ToWndY(point.y);
            pDC->Ellipse(x - tavkit::kSlctRadius, y - tavkit::kSlctRadius, x + tavkit::kSlctRadius,
                         y + tavkit::kSlctRadius);
        }
    }
    DrawLines(pDC, map, done, count);
    DrawPoints(pDC, map, done, count);
}

void CPlotCtrl::DrawPoints(CDC* pDC, tavkit::PlotMap const& map, int first, int last)
{
    tavkit::DiscPainter painter(*pDC, tavkit::ClientSize(*this), map.area, tavkit::kPointRadius, last - first);
    for (int i = first; i < last; ++i)
    {
        const DataPoint& point = *m_vecData.m_pData[i];
        if (map.data.Contains(point.x, point.y))
        {
            painter.Add(map.ToWndX(point.x), map.ToWndY(point.y));
        }
    }
    painter.Finish();
}

/// The lines that end in the points from `first` to before `last`.
void CPlotCtrl::DrawLines(CDC* pDC, tavkit::PlotMap const& map, int first, int last)
{
    if (!m_bDrawLine)
    {
        return;
    }
    const CSize client = tavkit::ClientSize(*this);
    const RECT page{0, 0, client.cx, client.cy};
    std::vector<POINT> run; // lines that hang together
    const auto flush = [&] {
        if (run.size() > 1)
        {
            ::Polyline(pDC->m_hDC, run.data(), static_cast<int>(run.size()));
        }
        run.clear();
    };
    const auto placeOf = [&](int i) {
        const DataPoint& point = *m_vecData.m_pData[i];
        return tavkit::FarPoint{map.area.left + map.OffsetX(point.x), map.area.bottom - map.OffsetY(point.y)};
    };
    const auto isNear = [](tavkit::FarPoint const& place) {
        return std::fabs(place.x) < tavkit::kFarthestPixel && std::fabs(place.y) < tavkit::kFarthestPixel;
    };
    for (int i = first > 1 ? first : 1; i < last; ++i)
    {
        const tavkit::FarPoint from = placeOf(i - 1);
        const tavkit::FarPoint to = placeOf(i);
        if (isNear(from) && isNear(to))
        {
            const auto append = [&](int at) {
                const DataPoint& point = *m_vecData.m_pData[at];
                run.push_back({map.ToWndX(point.x), map.ToWndY(point.y)});
            };
            if (run.empty())
            {
                append(i - 1);
            }
            append(i);
            continue;
        }
        flush();
        POINT ends[2];
        if (tavkit::ClipLine(page, from, to, ends[0], ends[1]))
        {
            ::Polyline(pDC->m_hDC, ends, 2);
        }
    }
    flush();
}

// Selection

void CPlotCtrl::SlctData(double x, double y) { SlctData(DataPoint(x, y, nullptr, nullptr)); }

CPlotCtrl::DataPoint* CPlotCtrl::SlctData(const DataPoint& point)
{
    double distance = 0.0;
    DataPoint* const nearest = tavkit::NearestInX(m_vecData, point.x, distance);
    m_pSlct = nearest == m_pSlct ? nullptr : nearest;
    if (Map().IsOutOfReach(distance))
    {
        m_pSlct = nullptr;
    }
    UpdtPlot();
    return m_pSlct;
}

void CPlotCtrl::NotifyParent(const DataPoint* pPoint)
{
    const HWND parent = ::GetParent(m_hWnd);
    if (parent != nullptr && pPoint != nullptr)
    {
        ::PostMessageA(parent, WM_CHART_SLCT, reinterpret_cast<WPARAM>(pPoint), 0);
    }
}

// Messages

BOOL CPlotCtrl::OnEraseBkgnd(CDC*) { return FALSE; }

void CPlotCtrl::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    UpdtPlot();
}

void CPlotCtrl::OnLButtonDown(UINT, CPoint point)
{
    if (m_bZoom)
    {
        SetFocus();
    }
    const tavkit::PlotMap map = Map();
    if (map.IsInside(point))
    {
        NotifyParent(SlctData(DataPoint(map.ToDataX(point.x), map.ToDataY(point.y), nullptr, nullptr)));
    }
}
