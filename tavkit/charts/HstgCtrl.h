// HstgCtrl.h - histogram as a bar chart whose bars can be selected
#pragma once

#include <afxwin.h>

#include "tavkit/charts/ChartMessages.h"
#include "tavkit/charts/ChartTip.h"
#include "tavkit/charts/HstgGeometry.h"
#include "tavkit/drawing/MemDC.h"
#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DHstg.h"

/// A window of the class "HstgCtrl" that shows a histogram on a white page: a bar for each slot, as high as its share
/// of all counts, a scale in per cent, the limits of the slots and the sum of the counts. A click on a slot selects it,
/// or takes the selection away from it, and posts WM_CHART_SLCT to the parent.
///
/// The window comes from a dialog template or from CWnd::Create(ClassName, ...). It draws once for each change and
/// copies the drawing from then on. Every operation may be called before there is a window.
class TAVKIT_API CHstgCtrl : public CWnd
{
public:
    static constexpr char const* ClassName = "HstgCtrl";
    static constexpr int NoSlot = -1;                     ///< the selected slot when there is none
    static constexpr int FontSize = 70;                   ///< of all texts, in tenths of a point
    static constexpr COLORREF BarColor = RGB(255, 0, 0);  ///< of the bars
    static constexpr COLORREF SlctColor = RGB(0, 0, 200); ///< of the selected bar, outline included

    /// @throws CResourceException if the window class can't be registered
    CHstgCtrl();
    ~CHstgCtrl() override;
    CHstgCtrl(CHstgCtrl const&) = delete;
    CHstgCtrl& operator=(CHstgCtrl const&) = delete;

    /// Shows a histogram, which is borrowed and must live as long as it is shown; null for none. The selection stays.
    void SetHstg(const DHstg* pHstg);
    /// The share of all counts that the top of the scale stands for; 1.0 is 100 %. Bars of more run out of the page.
    void SetMaxPerc(double dMaxPerc);
    /// Lets the control choose that share at each drawing, from the largest count. To be seen after Refresh().
    void SetAutoScale(bool bAutoScale);
    /// Shows the counts above the bars. To be seen after Refresh().
    void DrawFreq(bool bDraw);
    /// Shows a label for every slot, and otherwise only at both ends of the axis. To be seen after Refresh().
    void DrawTextA(bool bDraw);
    /// Index of the selected slot, NoSlot if there is none.
    int GetSlctSlot() const;
    /// Draws anew.
    void Refresh();

    // Additions, over and above what the control itself does: off, or doing nothing, until the host asks.

    /// Writes the chart as it is drawn next, in place of the file that may be there.
    /// @return false without a window, for a chart without size, and if the file can't be written: GetLastError() says
    /// why then, and the old file is whole
    bool SavePng(char const* pszFile);
    /// The same as an enhanced metafile.
    bool SaveEmf(char const* pszFile);
    /// Puts the chart on the clipboard, as a bitmap and as an enhanced metafile.
    /// @return false if there is nothing to copy, or the clipboard can't be had; it stays as it was then
    bool CopyToClpbrd();
    /// Shows limits, count and share of the slot under the mouse in a tip.
    void EnblToolTip(bool bEnable);

protected:
    void OnPaint();
    void OnSize(UINT nType, int cx, int cy);
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnMouseMove(UINT nFlags, CPoint point);
    void OnMouseLeave();

    DECLARE_MESSAGE_MAP()

private:
    static void RegisterWindowClass();
    int GetHstgMinX() const;
    int GetHstgMinY() const;
    int GetHstgMaxX() const;
    int GetHstgMaxY() const;
    int GetHstgWidth() const;
    int GetHstgHeight() const;
    double WndToDataX(int x) const;
    /// True if the buffer must be drawn anew; it no longer must from then on.
    bool Updt();
    void CalcScale();
    void DrawFrame(CDC* pDC);
    void DrawAxes(CDC* pDC);
    void DrawData(CDC* pDC);

    [[nodiscard]] tavkit::HstgArea Area() const;
    void Mark(bool erase);
    void DrawPage(CDC* pDC);
    [[nodiscard]] int SlotAt(CPoint point) const;
    [[nodiscard]] CString TipText(CPoint point) const;
    void DrawClassTicks(CDC* pDC, tavkit::HstgArea const& area);

    const DHstg* m_pHstg = nullptr; ///< borrowed
    int m_nMarginLeft = 35;         ///< pixels, as the other three
    int m_nMarginRight = 15;
    int m_nMarginTop = 20;
    int m_nMarginBottom = 20;
    CMemDC m_buffer;     ///< holds the last drawing
    bool m_bUpdt = true; ///< the buffer must be drawn anew
    double m_dMaxPerc = 1.0;
    bool m_bDrawText = true;
    bool m_bDrawFreq = true;
    bool m_bAutoScale = false;
    int m_nSlctSlot = NoSlot;
    tavkit::ChartTip m_tip;
};
