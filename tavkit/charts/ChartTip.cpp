#include "tavkit/charts/ChartTip.h"

namespace tavkit
{
namespace
{

constexpr UINT_PTR kTool = 1;

} // namespace

void ChartTip::Enable(bool enable)
{
    m_on = enable;
    if (!enable)
    {
        Hide();
    }
}

bool ChartTip::CreateTip(CWnd& chart)
{
    if (m_tip.m_hWnd != nullptr)
    {
        return true;
    }
    if (!m_tip.Create(&chart, TTS_ALWAYSTIP | TTS_NOPREFIX))
    {
        return false;
    }
    m_pChart = &chart;
    CToolInfo tool;
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
    tool.hwnd = chart.m_hWnd;
    tool.uId = kTool;
    tool.lpszText = tool.szText;
    tool.szText[0] = 0;
    return m_tip.SendMessage(TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(static_cast<TOOLINFO*>(&tool))) != 0;
}

void ChartTip::Track(bool show)
{
    CToolInfo tool;
    tool.hwnd = m_pChart->m_hWnd;
    tool.uId = kTool;
    m_tip.SendMessage(TTM_TRACKACTIVATE, show ? TRUE : FALSE, reinterpret_cast<LPARAM>(static_cast<TOOLINFO*>(&tool)));
}

void ChartTip::Show(CWnd& chart, CString const& text, CPoint point)
{
    if (!m_on || text.IsEmpty() || !CreateTip(chart))
    {
        Hide();
        return;
    }
    if (m_text != text)
    {
        m_tip.UpdateTipText(text, &chart, kTool);
    }
    chart.ClientToScreen(&point);
    m_tip.SendMessage(TTM_TRACKPOSITION, 0, MAKELPARAM(point.x + Offset.cx, point.y + Offset.cy));
    if (m_text.IsEmpty())
    {
        Track(true);
    }
    m_text = text;
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = chart.m_hWnd;
    ::TrackMouseEvent(&track);
}

void ChartTip::Hide()
{
    if (!m_text.IsEmpty() && m_tip.m_hWnd != nullptr)
    {
        Track(false);
    }
    m_text.Empty();
}

} // namespace tavkit
