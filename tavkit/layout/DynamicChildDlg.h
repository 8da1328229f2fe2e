// DynamicChildDlg.h - the dialog form that is embedded in another window and scrolls
#pragma once

#include "tavkit/layout/DynamicDialog.h"

/// A dialog embedded in another window. It never keeps a position. Its children follow its scroll bars: when its
/// template has scroll bars (WS_HSCROLL, WS_VSCROLL), a window that is smaller than it was designed shows them and
/// scrolls by them and by the wheel, instead of squeezing its children.
class TAVKIT_API cdxCDynamicChildDlg : public cdxCDynamicDialog
{
    DECLARE_DYNAMIC(cdxCDynamicChildDlg)

public:
    static constexpr UINT DefaultChildFlags = FlagAntiFlicker;
    static constexpr int ScrollLine = 16; ///< pixels that one click of a scroll arrow goes

    explicit cdxCDynamicChildDlg(UINT id = 0, CWnd* pParent = nullptr, Freedom freedom = FreedomXY,
                                 UINT nFlags = DefaultChildFlags);
    explicit cdxCDynamicChildDlg(char const* name, CWnd* pParent = nullptr, Freedom freedom = FreedomXY,
                                 UINT nFlags = DefaultChildFlags);
    ~cdxCDynamicChildDlg() override;

    BOOL OnInitDialog() override;
    /// Places the children and repaints the page as a whole.
    void Layout() override;

protected:
    void OnSize(UINT nType, int cx, int cy);
    void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);

    DECLARE_MESSAGE_MAP()

private:
    bool HasBar(int nBar) const;
    void UpdateScrollBars();
    void Scroll(int nBar, UINT nSBCode);
    void ScrollTo(int nBar, int nPos);
};
