// PlotCtrl.h - points in a cartesian frame, of which one can be selected
#pragma once

#include <afxwin.h>

#include "tavkit/charts/ChartMessages.h"
#include "tavkit/charts/ChartTip.h"
#include "tavkit/charts/PlotGeometry.h"
#include "tavkit/drawing/MemDC.h"
#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/DVector.h"

#include <optional>

/// A window of the class "PlotCtrl" that shows points as dots on a white page, joined by a line if wanted, with axes, a
/// grid, captions and a title. A click selects the point that is nearest in x and posts WM_CHART_SLCT to the parent.
///
/// What part of the data is shown and how far the ticks are apart is the host's to say: the control works neither out.
/// The window comes from a dialog template or from CWnd::Create(ClassName, ...). It draws once for each change and
/// copies the drawing from then on. Every operation may be called before there is a window.
class TAVKIT_API CPlotCtrl : public CWnd
{
public:
    static constexpr char const* ClassName = "PlotCtrl";
    static constexpr int LabelFontSize = 75;               ///< of the labels, in tenths of a point
    static constexpr int CrowdedFontSize = 65;             ///< of the x labels from 45 ticks on
    static constexpr int CaptionFontHeight = 10;           ///< of the y caption, in pixels
    static constexpr int TitleRoom = 10;                   ///< pixels that DrawTitle() adds above the plot
    static constexpr COLORREF PointColor = RGB(230, 0, 0); ///< of the points and their line
    static constexpr COLORREF SlctColor = RGB(0, 0, 255);  ///< of the selected point, inside its outline

    /// A point, owned by the control.
    struct TAVKIT_API DataPoint
    {
        double x;
        double y;
        DString strLabelX; ///< tick label with DrawEveryXTick(); the value is printed if it is empty
        DString strLabelY; ///< always the same as strLabelX

        /// The second text is ignored, and the first one taken in its place: callers know it as it is. Null is "".
        DataPoint(double x, double y, const char* pszLabelX, const char* pszLabelY);
    };

    /// @throws CResourceException if the window class can't be registered
    CPlotCtrl();
    ~CPlotCtrl() override;
    CPlotCtrl(CPlotCtrl const&) = delete;
    CPlotCtrl& operator=(CPlotCtrl const&) = delete;

    /// Adds a point behind the others and raises the upper limits of what is shown to it; the lower limits stay. A
    /// value that isn't finite raises nothing, and its point is not drawn.
    /// @param pszLabelX, pszLabelY  see DataPoint
    void AddData(double x, double y, const char* pszLabelX, const char* pszLabelY);
    /// Deletes all points. What is shown, and the limits, stay as they are.
    void Clear();
    /// Selects the point that is nearest in x, or takes the selection away from it; the parent isn't told.
    void SlctData(double x, double y);

    // What part of the data is shown; a lower limit above its upper one shows neither ticks nor points.
    void SetDataMinX(double dMinX);
    void SetDataMinY(double dMinY);
    void SetDataMaxX(double dMaxX);
    void SetDataMaxY(double dMaxY);

    // The distance of ticks, in data units; one tick alone if it isn't above 0.
    void SetTickX(double dTickX);
    void SetTickY(double dTickY);

    /// Dotted lines at the ticks, but those at the lower limits.
    void DrawGrid(bool bDraw);
    /// Joins the points in the order in which they were added, inside what is shown or not.
    void DrawLine(bool bDraw);
    /// One x tick for each point, with its label.
    void DrawEveryXTick(bool bDraw);
    /// Adds room for the title above the plot, or takes it away, whatever was there before: twice adds twice.
    void DrawTitle(bool bDraw);

    void SetCaptionX(CString strCaption);
    void SetCaptionY(CString strCaption);
    void SetTitle(CString strTitle);

    /// Draws a text turned about the middle of a rectangle.
    /// @param pDC       with a font selected that is turned already
    /// @param dAngle    degrees, anticlockwise
    /// @param nOptions  ETO_CLIPPED, ETO_OPAQUE
    static void DrawRotatedText(CDC* pDC, CString str, CRect& rect, double dAngle, unsigned int nOptions);

    // Additions, over and above what the control itself does: off, or doing nothing, until the host asks.

    /// Writes the plot as it is drawn next, in place of the file that may be there.
    /// @return false without a window, for a plot without size, and if the file can't be written: GetLastError() says
    /// why then, and the old file is whole
    bool SavePng(char const* pszFile);
    /// The same as an enhanced metafile.
    bool SaveEmf(char const* pszFile);
    /// Puts the plot on the clipboard, as a bitmap and as an enhanced metafile.
    /// @return false if there is nothing to copy, or the clipboard can't be had; it stays as it was then
    bool CopyToClpbrd();
    /// Shows label and values of the point under the mouse in a tip.
    void EnblToolTip(bool bEnable);
    /// Lets the wheel zoom about the mouse, and the right button drag what is shown then; a double click with the right
    /// button shows all again. A click gives the control the focus meanwhile, for the wheel's sake.
    void EnblZoom(bool bEnable);
    /// Shows all between the limits again. Setting a limit does so, too.
    void ResetZoom();

protected:
    void OnPaint();
    BOOL OnEraseBkgnd(CDC* pDC);
    void OnSize(UINT nType, int cx, int cy);
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnMouseMove(UINT nFlags, CPoint point);
    void OnMouseLeave();
    BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    void OnRButtonDown(UINT nFlags, CPoint point);
    void OnRButtonUp(UINT nFlags, CPoint point);
    void OnRButtonDblClk(UINT nFlags, CPoint point);
    void OnCaptureChanged(CWnd* pWnd);

    DECLARE_MESSAGE_MAP()

private:
    static void RegisterWindowClass();
    int PlotMinX() const;
    int PlotMinY() const;
    int PlotMaxX() const;
    int PlotMaxY() const;
    int PlotWidth() const;
    int PlotHeight() const;
    double DataRangeX() const;
    double DataRangeY() const;
    int DataToWndX(double v) const;
    int DataToWndY(double v) const;
    double WndToDataX(int p) const;
    double WndToDataY(int p) const;
    int DataToWndSX(double d) const;
    int DataToWndSY(double d) const;
    /// The squared distance in data units.
    double DistSqr(const DataPoint& a, const DataPoint& b) const;
    /// Marks for drawing and invalidates.
    void UpdtPlot();
    /// Nothing is posted for null: that a selection went is not reported.
    void NotifyParent(const DataPoint* pPoint);
    /// @return the selected point from now on, null for none
    DataPoint* SlctData(const DataPoint& point);
    void DrawFrame(CDC* pDC);
    void DrawAxes(CDC* pDC);
    void DrawTickMarks(CDC* pDC);
    void DrawData(CDC* pDC);

    [[nodiscard]] tavkit::DataWindow Limits() const;
    [[nodiscard]] tavkit::PlotMap Map() const;
    void SetLimit(double& limit, double value);
    [[nodiscard]] CString TipText(CPoint point) const;
    void Look(tavkit::DataWindow const& view);
    void Pan(CPoint point);
    void DrawPage(CDC* pDC);
    void DrawTicksX(CDC* pDC, tavkit::PlotMap const& map);
    void DrawTicksY(CDC* pDC, tavkit::PlotMap const& map);
    void DrawTexts(CDC* pDC, RECT const& area);
    void DrawPoints(CDC* pDC, tavkit::PlotMap const& map, int first, int last);
    void DrawLines(CDC* pDC, tavkit::PlotMap const& map, int first, int last);

    int m_nMarginLeft = 60; ///< pixels, as the other three
    int m_nMarginRight = 20;
    int m_nMarginTop = 20;
    int m_nMarginBottom = 32;
    CMemDC m_buffer;               ///< holds the last drawing
    bool m_bUpdt = true;           ///< the buffer must be drawn anew
    DVector<DataPoint*> m_vecData; ///< owned
    double m_dDataMinX = 0.0;
    double m_dDataMinY = 0.0;
    double m_dDataMaxX = 0.0;
    double m_dDataMaxY = 0.0;
    double m_dTickX = 1.0;
    double m_dTickY = 1.0;
    DataPoint* m_pSlct = nullptr; ///< compared only, never followed: it outlives its point in Clear()
    CString m_strCaptionX = "x-axis";
    CString m_strCaptionY = "y-axis";
    CString m_strTitle;
    bool m_bDrawGrid = true;
    bool m_bDrawLine = false;
    bool m_bDrawTitle = false; ///< kept for the host's sake; it is the margin that makes room
    bool m_bDrawEveryXTick = false;
    tavkit::ChartTip m_tip;
    bool m_bZoom = false;
    std::optional<tavkit::DataWindow> m_zoom; ///< the part of the data that is shown; none for all
    std::optional<CPoint> m_panFrom;          ///< where the mouse was last, while it drags
};
