#include "tavkit/charts/HstgCtrl.h"

#include "tavkit/charts/ChartExport.h"
#include "tavkit/charts/ChartPage.h"

BEGIN_MESSAGE_MAP(CHstgCtrl, CWnd)
    ON_WM_PAINT()       // the drawing, made anew if it must be
    ON_WM_SIZE()        // another size is another drawing
    ON_WM_LBUTTONDOWN() // selects a slot and tells the parent
    ON_WM_MOUSEMOVE()   // the tip, if it is on
    ON_WM_MOUSELEAVE()  // no tip any more
END_MESSAGE_MAP()

namespace
{

constexpr const char* kFontFace = "Arial";
constexpr int kAxisWidth = 2;
constexpr int kLineWidth = 1;

} // namespace

CHstgCtrl::CHstgCtrl() { RegisterWindowClass(); }

CHstgCtrl::~CHstgCtrl() = default;

void CHstgCtrl::RegisterWindowClass() { tavkit::RegisterChartClass(ClassName); }

void CHstgCtrl::SetHstg(const DHstg* pHstg)
{
    m_pHstg = pHstg;
    Mark(true);
}

void CHstgCtrl::SetMaxPerc(double dMaxPerc)
{
    m_dMaxPerc = dMaxPerc;
    Mark(true);
}

void CHstgCtrl::SetAutoScale(bool bAutoScale) { m_bAutoScale = bAutoScale; }

void CHstgCtrl::DrawFreq(bool bDraw) { m_bDrawFreq = bDraw; }

void CHstgCtrl::DrawTextA(bool bDraw) { m_bDrawText = bDraw; }

int CHstgCtrl::GetSlctSlot() const { return m_nSlctSlot; }

void CHstgCtrl::Refresh() { Mark(true); }

void CHstgCtrl::Mark(bool erase)
{
    m_bUpdt = true;
    m_tip.Hide();
    tavkit::InvalidateChart(*this, erase);
}

// Places

int CHstgCtrl::GetHstgMinX() const { return m_nMarginLeft; }

int CHstgCtrl::GetHstgMinY() const { return m_nMarginTop; }

int CHstgCtrl::GetHstgMaxX() const { return tavkit::ClientSize(*this).cx - m_nMarginRight; }

int CHstgCtrl::GetHstgMaxY() const { return tavkit::ClientSize(*this).cy - m_nMarginBottom; }

int CHstgCtrl::GetHstgWidth() const { return GetHstgMaxX() - GetHstgMinX(); }

int CHstgCtrl::GetHstgHeight() const { return GetHstgMaxY() - GetHstgMinY(); }

tavkit::HstgArea CHstgCtrl::Area() const { return {GetHstgMinX(), GetHstgMinY(), GetHstgMaxX(), GetHstgMaxY()}; }

double CHstgCtrl::WndToDataX(int x) const { return tavkit::HstgToDataX(Area(), x, m_pHstg->m_dMin, m_pHstg->m_dMax); }

// Drawing

bool CHstgCtrl::Updt()
{
    const bool updt = m_bUpdt;
    m_bUpdt = false;
    return updt;
}

void CHstgCtrl::OnPaint()
{
    CPaintDC dc(this);
    const CSize client = tavkit::ClientSize(*this);
    if (Updt())
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
}

void CHstgCtrl::DrawPage(CDC* pDC)
{
    pDC->FillSolidRect(CRect(CPoint(0, 0), tavkit::ClientSize(*this)), tavkit::kPageColor);
    if (m_bAutoScale)
    {
        CalcScale();
    }
    DrawFrame(pDC);
    DrawAxes(pDC);
    DrawData(pDC);
}

void CHstgCtrl::CalcScale()
{
    if (m_pHstg != nullptr)
    {
        m_dMaxPerc = tavkit::AutoScale(m_pHstg->GetMaxVal(), m_pHstg->GetHstgSum());
    }
}

void CHstgCtrl::DrawFrame(CDC* pDC) { tavkit::DrawChartFrame(pDC, tavkit::ClientSize(*this)); }

void CHstgCtrl::DrawAxes(CDC* pDC)
{
    const tavkit::HstgArea area = Area();
    CFont font;
    font.CreatePointFont(FontSize, kFontFace, pDC);
    const SelectScope selectedFont(*pDC, font);
    {
        const CPen axisPen(PS_SOLID, kAxisWidth, tavkit::kInkColor);
        const SelectScope selectedPen(*pDC, axisPen);
        pDC->MoveTo(area.left, area.top - tavkit::kHstgTickLength);
        pDC->LineTo(area.left, area.bottom);
        pDC->LineTo(area.right, area.bottom);
    }
    const CPen tickPen(PS_SOLID, kLineWidth, tavkit::kInkColor);
    const SelectScope selectedPen(*pDC, tickPen);
    CString text;
    for (int i = 0; i < tavkit::kPercTicks; ++i)
    {
        tavkit::PercTick tick = tavkit::PercTickAt(area, i, m_dMaxPerc);
        pDC->MoveTo(area.left, tick.y);
        pDC->LineTo(area.left - tavkit::kHstgTickLength, tick.y);
        text.Format("%d%%", tick.percent);
        pDC->DrawText(text, &tick.label, DT_CENTER);
    }
    if (m_pHstg != nullptr && m_pHstg->m_nSlots > 0)
    {
        DrawClassTicks(pDC, area);
    }
}

void CHstgCtrl::DrawClassTicks(CDC* pDC, tavkit::HstgArea const& area)
{
    const int slots = m_pHstg->m_nSlots;
    CString text;
    for (int j = 0; j <= slots; ++j)
    {
        tavkit::ClassTick tick = m_bDrawText ? tavkit::ClassTickAt(area, slots, j) : tavkit::EndTickAt(area, slots, j);
        pDC->MoveTo(tick.x, area.bottom);
        pDC->LineTo(tick.x, area.bottom + tavkit::kHstgTickLength);
        if (m_bDrawText || j == 0)
        {
            text.Format("%.1f", m_pHstg->GetSlotClss(j));
        }
        else if (j == slots)
        {
            const double slotSize = (m_pHstg->m_dMax - m_pHstg->m_dMin) / slots;
            text.Format("%.1f", m_pHstg->GetSlotClss(slots - 1) + slotSize);
        }
        else
        {
            continue;
        }
        pDC->DrawText(text, &tick.label, DT_CENTER);
    }
}

void CHstgCtrl::DrawData(CDC* pDC)
{
    if (m_pHstg == nullptr)
    {
        return;
    }
    const CPen pen(PS_SOLID, kLineWidth, tavkit::kInkColor);
    const CBrush barBrush(BarColor);
    CBrush slctBrush(SlctColor);
    CFont font;
    font.CreatePointFont(FontSize, kFontFace, pDC);
    const SelectScope selectedPen(*pDC, pen);
    const SelectScope selectedBrush(*pDC, barBrush);
    const SelectScope selectedFont(*pDC, font);
    const tavkit::HstgArea area = Area();
    const int sum = m_pHstg->GetHstgSum();
    CString text;
    for (int i = 0; i < m_pHstg->m_nSlots; ++i)
    {
        const int count = m_pHstg->GetSlotVal(i);
        const RECT bar = tavkit::BarAt(area, m_pHstg->m_nSlots, i, count, sum, m_dMaxPerc);
        pDC->Rectangle(&bar);
        if (i == m_nSlctSlot)
        {
            pDC->FillRect(&bar, &slctBrush);
        }
        if (m_bDrawFreq)
        {
            RECT place = tavkit::FreqPlace(bar);
            text.Format("%d", count);
            pDC->DrawText(text, &place, DT_CENTER);
        }
    }
    RECT place = tavkit::SumPlace(area);
    text.Format("Sum: %d", sum);
    pDC->DrawText(text, &place, DT_RIGHT);
}

// Messages

void CHstgCtrl::OnSize(UINT nType, int cx, int cy)
{
    CWnd::OnSize(nType, cx, cy);
    Mark(false);
}

/// The slot that a click at the point selects, at any height of it.
int CHstgCtrl::SlotAt(CPoint point) const
{
    return m_pHstg != nullptr && point.x >= GetHstgMinX() && point.x <= GetHstgMaxX()
               ? m_pHstg->GetSlotIndx(WndToDataX(point.x))
               : NoSlot;
}

void CHstgCtrl::OnLButtonDown(UINT, CPoint point)
{
    const int slot = SlotAt(point);
    m_nSlctSlot = slot != m_nSlctSlot ? slot : NoSlot;
    if (const HWND parent = ::GetParent(m_hWnd))
    {
        ::PostMessageA(parent, WM_CHART_SLCT, 0, 0);
    }
    Mark(false);
}

// Additions

bool CHstgCtrl::SavePng(char const* pszFile)
{
    return tavkit::SavePagePng(pszFile, tavkit::ClientSize(*this), [this](CDC& dc) { DrawPage(&dc); });
}

bool CHstgCtrl::SaveEmf(char const* pszFile)
{
    return tavkit::SavePageEmf(pszFile, tavkit::ClientSize(*this), [this](CDC& dc) { DrawPage(&dc); });
}

bool CHstgCtrl::CopyToClpbrd()
{
    return tavkit::CopyPage(*this, tavkit::ClientSize(*this), [this](CDC& dc) { DrawPage(&dc); });
}

void CHstgCtrl::EnblToolTip(bool bEnable) { m_tip.Enable(bEnable); }

CString CHstgCtrl::TipText(CPoint point) const
{
    CString text;
    const int slot = SlotAt(point);
    if (slot >= 0)
    {
        constexpr double kPercent = 100.0;
        const int count = m_pHstg->GetSlotVal(slot);
        const int sum = m_pHstg->GetHstgSum();
        text.Format("%g to %g: %d (%.1f%%)", m_pHstg->GetSlotClss(slot), m_pHstg->GetSlotClss(slot + 1), count,
                    sum > 0 ? kPercent * count / sum : 0.0);
    }
    return text;
}

void CHstgCtrl::OnMouseMove(UINT nFlags, CPoint point)
{
    CWnd::OnMouseMove(nFlags, point);
    if (m_tip.IsOn())
    {
        m_tip.Show(*this, TipText(point), point);
    }
}

void CHstgCtrl::OnMouseLeave()
{
    CWnd::OnMouseLeave();
    m_tip.Hide();
}
