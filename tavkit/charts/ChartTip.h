// ChartTip.h - the tip that shows the values under the mouse; an addition, over and above what the charts themselves do
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

namespace tavkit
{

/// A tip beside the mouse, for as long as the mouse is on something that has a text.
class ChartTip
{
public:
    static constexpr CSize Offset{14, 18}; ///< pixels from the mouse to the tip

    void Enable(bool enable);
    [[nodiscard]] bool IsOn() const { return m_on; }
    /// Shows a text, or nothing for an empty one, until the mouse moves on.
    /// @param chart  the window under the mouse, which gets WM_MOUSELEAVE when the mouse goes
    /// @param point  of the mouse in its client area
    void Show(CWnd& chart, CString const& text, CPoint point);
    void Hide();

private:
    bool CreateTip(CWnd& chart);
    void Track(bool show);

    CToolTipCtrl m_tip;
    CWnd* m_pChart = nullptr; ///< while there is a tip
    CString m_text;           ///< what is shown; empty for nothing
    bool m_on = false;
};

} // namespace tavkit
