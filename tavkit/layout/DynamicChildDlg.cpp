#include "tavkit/layout/DynamicChildDlg.h"

#include "tavkit/layout/ScrollSteps.h"

#include <algorithm>
#include <cstdint>
#include <optional>

IMPLEMENT_DYNAMIC(cdxCDynamicChildDlg, cdxCDynamicDialog)

BEGIN_MESSAGE_MAP(cdxCDynamicChildDlg, cdxCDynamicDialog)
    ON_WM_SIZE()       // the bars show the part that is in view
    ON_WM_HSCROLL()    // the user scrolls
    ON_WM_VSCROLL()    // the user scrolls
    ON_WM_MOUSEWHEEL() // the user scrolls by the wheel
END_MESSAGE_MAP()

namespace
{

using tavkit::ScrollStep;

constexpr UINT kUsualWheelLines = 3; ///< lines that one notch of the wheel goes where the user has no other wish

/// Pixels that one notch of the wheel goes, as the user has set the mouse up; a page at most.
int WheelNotch(int page)
{
    UINT lines = kUsualWheelLines;
    ::SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const std::int64_t pixels = std::int64_t{lines} * cdxCDynamicChildDlg::ScrollLine;
    return static_cast<int>(std::clamp<std::int64_t>(page, 0, pixels));
}

std::optional<ScrollStep> StepOf(UINT code)
{
    switch (code)
    {
    case SB_LINEUP:
        return ScrollStep::lineBack;
    case SB_LINEDOWN:
        return ScrollStep::lineOn;
    case SB_PAGEUP:
        return ScrollStep::pageBack;
    case SB_PAGEDOWN:
        return ScrollStep::pageOn;
    case SB_TOP:
        return ScrollStep::toStart;
    case SB_BOTTOM:
        return ScrollStep::toEnd;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        return ScrollStep::toThumb;
    default:
        return std::nullopt;
    }
}

tavkit::ScrollRange RangeOf(const SCROLLINFO& info)
{
    return {info.nMax - info.nMin + 1, static_cast<int>(info.nPage)};
}

} // namespace

cdxCDynamicChildDlg::cdxCDynamicChildDlg(UINT id, CWnd* pParent, Freedom freedom, UINT nFlags)
    : cdxCDynamicDialog(id, pParent, freedom, nFlags)
{
    m_bUseScrollPos = true;
    m_strAutoPos.Empty();
}

cdxCDynamicChildDlg::cdxCDynamicChildDlg(char const* name, CWnd* pParent, Freedom freedom, UINT nFlags)
    : cdxCDynamicDialog(name, pParent, freedom, nFlags)
{
    m_bUseScrollPos = true;
    m_strAutoPos.Empty();
}

cdxCDynamicChildDlg::~cdxCDynamicChildDlg() = default;

BOOL cdxCDynamicChildDlg::OnInitDialog()
{
    const BOOL result = cdxCDynamicDialog::OnInitDialog();
    UpdateScrollBars();
    return result;
}

bool cdxCDynamicChildDlg::HasBar(int nBar) const
{
    // The style bit goes while a bar is hidden, but its range stays.
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE;
    const DWORD bit = nBar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL;
    return (GetStyle() & bit) != 0 || (::GetScrollInfo(m_hWnd, nBar, &info) && info.nMax > info.nMin);
}

void cdxCDynamicChildDlg::UpdateScrollBars()
{
    if (!IsUp())
    {
        return;
    }
    for (const int bar : {SB_HORZ, SB_VERT})
    {
        if (!HasBar(bar))
        {
            continue;
        }
        const CSize client = GetCurrentClientSize(); // a bar that came or went has changed it
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE;
        info.nMax = (bar == SB_HORZ ? m_szInitial.cx : m_szInitial.cy) - 1;
        info.nPage = static_cast<UINT>(bar == SB_HORZ ? client.cx : client.cy);
        ::SetScrollInfo(m_hWnd, bar, &info, TRUE);
    }
}

void cdxCDynamicChildDlg::OnSize(UINT nType, int cx, int cy)
{
    if (IsValid() && nType != SIZE_MINIMIZED)
    {
        UpdateScrollBars();
    }
    cdxCDynamicDialog::OnSize(nType, cx, cy);
}

void cdxCDynamicChildDlg::Layout()
{
    cdxCDynamicDialog::Layout();
    // A group box erases nothing and may keep its parent from erasing as well, so what has moved through it would stay.
    if (IsUp())
    {
        RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }
}

void cdxCDynamicChildDlg::ScrollTo(int nBar, int nPos)
{
    if (nPos != GetScrollPos(nBar))
    {
        SetScrollPos(nBar, nPos);
        Layout();
    }
}

void cdxCDynamicChildDlg::Scroll(int nBar, UINT nSBCode)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    const auto step = StepOf(nSBCode);
    if (step && ::GetScrollInfo(m_hWnd, nBar, &info))
    {
        // The thumb's place comes from the bar: the message's has 16 bits only.
        ScrollTo(nBar, tavkit::NextScrollPos(RangeOf(info), info.nPos, *step, ScrollLine, info.nTrackPos));
    }
}

void cdxCDynamicChildDlg::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    cdxCDynamicDialog::OnHScroll(nSBCode, nPos, pScrollBar);
    if (pScrollBar == nullptr)
    {
        Scroll(SB_HORZ, nSBCode);
    }
}

void cdxCDynamicChildDlg::OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar)
{
    cdxCDynamicDialog::OnVScroll(nSBCode, nPos, pScrollBar);
    if (pScrollBar == nullptr)
    {
        Scroll(SB_VERT, nSBCode);
    }
}

BOOL cdxCDynamicChildDlg::OnMouseWheel(UINT nFlags, short zDelta, CPoint pt)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    if (!HasBar(SB_VERT) || !::GetScrollInfo(m_hWnd, SB_VERT, &info))
    {
        return cdxCDynamicDialog::OnMouseWheel(nFlags, zDelta, pt); // goes to the parent
    }
    const int target = info.nPos - zDelta * WheelNotch(static_cast<int>(info.nPage)) / WHEEL_DELTA;
    ScrollTo(SB_VERT, tavkit::NextScrollPos(RangeOf(info), info.nPos, ScrollStep::toThumb, ScrollLine, target));
    return TRUE;
}
