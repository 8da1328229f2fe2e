#include "workbench/PictureView.h"

#include "tavkit/drawing/DrawImg.h"
#include "tavkit/drawing/ImageFit.h"
#include "workbench/resource.h"

#include <algorithm>

namespace workbench
{
namespace
{
constexpr char kDetailsText[] = "&Details...";
/// The bar covers at most this part of the picture's width, and never more than so many heights of its label.
constexpr int kWidestBarDivisor = 3;
constexpr int kWidestBarLabels = 16;

// The ring around a marked place, in pixels.
constexpr int kMarkWidth = 3;
constexpr int kMarkEdge = 5;
constexpr COLORREF kMarkColor = RGB(255, 255, 0);
constexpr COLORREF kMarkEdgeColor = RGB(0, 0, 0);
// The pixels of a marked class.
constexpr COLORREF kClassColor = RGB(0, 220, 90);

// Measures in parts of the label's height.
int BarThickness(int labelHeight) { return std::max(2, labelHeight / 4); }
int PlatePadding(int labelHeight) { return std::max(3, labelHeight / 3); }
int PlateMargin(int labelHeight) { return std::max(4, labelHeight / 2); }
int MarkRadius(int labelHeight) { return std::max(6, labelHeight * 3 / 4); }
int ButtonHeight(int labelHeight) { return labelHeight * 7 / 4; }

int LabelHeight(CFont& font)
{
    CClientDC dc(nullptr);
    const SelectScope scope(dc, font);
    TEXTMETRIC metrics{};
    dc.GetTextMetrics(&metrics);
    return metrics.tmHeight;
}
} // namespace

BEGIN_MESSAGE_MAP(PictureView, CWnd)
    ON_WM_PAINT()          // copies what is ready
    ON_WM_ERASEBKGND()     // never: painting covers every pixel
    ON_WM_SIZE()           // reads the picture at its new size
    ON_WM_SYSCOLORCHANGE() // the frame hands it on
END_MESSAGE_MAP()

BOOL PictureView::Create(const RECT& rect, CWnd* parent, UINT id, CFont* font)
{
    m_font = font;
    const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW));
    // The Tab key looks into it for the button.
    if (!CWnd::CreateEx(WS_EX_CLIENTEDGE | WS_EX_CONTROLPARENT, windowClass, "",
                        WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, rect, parent, id) ||
        !m_details.Create(kDetailsText, WS_CHILD | WS_TABSTOP | BS_PUSHBUTTON | BS_NOTIFY, CRect(0, 0, 0, 0), this,
                          IDC_PICTURE_DETAILS))
    {
        return FALSE;
    }
    m_details.SetFont(m_font, FALSE);
    return TRUE;
}

void PictureView::ShowPicture(const std::string& path, SIZE size)
{
    m_path = path;
    m_message.clear();
    m_offerDetails = false;
    m_pictureSize = size;
    m_classMark.reset();
    Render();
}

void PictureView::ShowMessage(const std::string& text, bool details)
{
    m_path.clear();
    m_message = text;
    m_offerDetails = details;
    m_pictureSize = {};
    Render();
}

double PictureView::Zoom() const
{
    const CRect shown = PictureRect();
    if (!HasPicture() || shown.IsRectEmpty())
    {
        return 0;
    }
    // The longer side is the one that rounding disturbs least.
    return m_pictureSize.cx >= m_pictureSize.cy ? static_cast<double>(shown.Width()) / m_pictureSize.cx
                                                : static_cast<double>(shown.Height()) / m_pictureSize.cy;
}

void PictureView::SetPixelSize(std::optional<double> pixelSize)
{
    m_pixelSize = pixelSize;
    UpdateScaleBar();
}

void PictureView::ShowScaleBar(bool show)
{
    m_showScaleBar = show;
    UpdateScaleBar();
}

void PictureView::SetMark(const std::optional<ObjectPlace>& mark)
{
    if (m_mark != mark)
    {
        m_mark = mark;
        DescribeContent();
        Invalidate(FALSE);
    }
}

void PictureView::SetClassMark(const std::optional<ClassMark>& mark)
{
    if (m_classMark != mark)
    {
        m_classMark = mark;
        Render();
    }
}

void PictureView::SetColors(const ViewColors& colors)
{
    if (m_colors != colors)
    {
        m_colors = colors;
        Render();
    }
}

COLORREF PictureView::Background() const { return m_colors.background.value_or(::GetSysColor(COLOR_APPWORKSPACE)); }

CRect PictureView::PictureRect() const
{
    CRect client;
    GetClientRect(client);
    const SIZE fitted = tavkit::FitInto(m_pictureSize, client.Size());
    return {tavkit::CentreIn(client, fitted), fitted};
}

void PictureView::Render()
{
    CRect client;
    GetClientRect(client);
    if (m_picture.Resize(client.Size()))
    {
        CDC& dc = m_picture.Dc();
        dc.FillSolidRect(client, Background());
        if (HasPicture() && !DrawImgToDC(m_path.c_str(), &dc, client))
        {
            m_message = "\"" + m_path + "\" can no longer be read.";
            m_offerDetails = true;
            m_path.clear();
            m_pictureSize = {};
        }
        if (HasPicture() && m_classMark)
        {
            DrawClassMark(dc);
        }
        if (!HasPicture())
        {
            DrawMessage(dc, client);
        }
    }
    PlaceDetails();
    UpdateScaleBar();
}

void PictureView::DrawClassMark(CDC& dc)
{
    const CRect shown = PictureRect();
    if (const auto values = ReadChannel(m_path, m_classMark->channel, m_pictureSize, shown.Size()))
    {
        CBrush brush(kClassColor);
        for (CRect run : PixelsOf(*m_classMark, *values))
        {
            run.OffsetRect(shown.TopLeft());
            dc.FillRect(run, &brush);
        }
    }
}

void PictureView::DrawMessage(CDC& dc, CRect room)
{
    dc.FillSolidRect(room, ::GetSysColor(COLOR_WINDOW));
    const SelectScope font(dc, *m_font);
    dc.SetTextColor(::GetSysColor(COLOR_WINDOWTEXT));
    // As in an edit field, so that a long path without blanks is broken too.
    constexpr UINT kFormat = DT_CENTER | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX;
    const int margin = LabelHeight(*m_font);
    room.DeflateRect(margin, 0);
    CRect text = room;
    dc.DrawText(m_message.c_str(), -1, text, kFormat | DT_CALCRECT);
    const CSize button = DetailsSize();
    const int height = text.Height() + (m_offerDetails ? margin + button.cy : 0);
    const int top = room.top + std::max(0, (room.Height() - height) / 2);
    CRect place(room.left, top, room.right, top + text.Height());
    dc.DrawText(m_message.c_str(), -1, place, kFormat);
    m_detailsPlace = CPoint(room.left + (room.Width() - button.cx) / 2, place.bottom + margin);
}

CSize PictureView::DetailsSize() const
{
    CClientDC dc(nullptr);
    const SelectScope font(dc, *m_font);
    const CSize text = dc.GetTextExtent(kDetailsText, sizeof kDetailsText - 1);
    return {text.cx + 2 * text.cy, ButtonHeight(text.cy)};
}

void PictureView::PlaceDetails()
{
    constexpr UINT kFlags = SWP_NOZORDER | SWP_NOACTIVATE;
    if (m_offerDetails)
    {
        const CSize size = DetailsSize();
        m_details.SetWindowPos(nullptr, m_detailsPlace.x, m_detailsPlace.y, size.cx, size.cy, kFlags | SWP_SHOWWINDOW);
        m_details.Invalidate(FALSE);
        return;
    }
    if (m_details.GetSafeHwnd() == nullptr)
    {
        return; // still being made, and no window has the focus
    }
    const bool hadFocus = ::GetFocus() == m_details.m_hWnd;
    m_details.ShowWindow(SW_HIDE);
    if (hadFocus)
    {
        GetParent()->SetFocus(); // which knows a better place for it
    }
}

void PictureView::UpdateScaleBar()
{
    m_bar.reset();
    if (m_showScaleBar && m_pixelSize && HasPicture())
    {
        const int labelHeight = LabelHeight(*m_font);
        const CRect shown = PictureRect();
        const int room = std::min(shown.Width() / kWidestBarDivisor, kWidestBarLabels * labelHeight);
        m_bar = MakeScaleBar(*m_pixelSize, Zoom(), room);
    }
    DescribeContent();
    Invalidate(FALSE);
}

void PictureView::DescribeContent()
{
    std::string text = HasPicture() ? m_path : m_message;
    if (m_bar)
    {
        text += ", scale bar " + m_bar->label;
    }
    if (HasPicture() && m_classMark)
    {
        text += ", values from " + MarkText(*m_classMark) + " marked";
    }
    if (MarkPoint())
    {
        text += ", object at " + PlaceText(*m_mark);
    }
    CString old;
    GetWindowText(old);
    if (old != text.c_str())
    {
        SetWindowText(text.c_str());
    }
}

void PictureView::DrawScaleBar(CDC& dc)
{
    const SelectScope font(dc, *m_font);
    const CSize label = dc.GetTextExtent(m_bar->label.c_str(), static_cast<int>(m_bar->label.size()));
    const int padding = PlatePadding(label.cy);
    const int thickness = BarThickness(label.cy);
    const int inside = std::max<int>(m_bar->pixels, label.cx);
    const CSize plateSize(inside + 2 * padding, label.cy + thickness + 2 * padding);
    const int margin = PlateMargin(label.cy);

    // In the picture's lower right corner; over a picture too small for it, in the window's.
    CRect corner = PictureRect();
    if (corner.Width() < plateSize.cx + 2 * margin || corner.Height() < plateSize.cy + 2 * margin)
    {
        GetClientRect(corner);
    }
    const CPoint origin(corner.right - margin - plateSize.cx, corner.bottom - margin - plateSize.cy);
    const CRect plate(origin, plateSize);
    dc.FillSolidRect(plate, m_colors.plate);

    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(m_colors.bar);
    CRect text(plate.left, plate.top + padding, plate.right, plate.top + padding + label.cy);
    dc.DrawText(m_bar->label.c_str(), -1, text, DT_CENTER | DT_SINGLELINE | DT_NOPREFIX);
    const int left = plate.left + (plate.Width() - m_bar->pixels) / 2;
    dc.FillSolidRect(left, plate.bottom - padding - thickness, m_bar->pixels, thickness, m_colors.bar);
}

std::optional<POINT> PictureView::MarkPoint() const
{
    return m_mark && HasPicture() ? PointOfPlace(*m_mark, m_pictureSize, PictureRect()) : std::nullopt;
}

/// A bright ring within a dark one, so that it is seen on any picture.
void PictureView::DrawMark(CDC& dc, CPoint middle)
{
    const int radius = MarkRadius(LabelHeight(*m_font));
    const SelectScope hollow(dc, NULL_BRUSH);
    for (const auto& [width, color] : {std::pair(kMarkEdge, kMarkEdgeColor), std::pair(kMarkWidth, kMarkColor)})
    {
        CPen pen(PS_SOLID, width, color);
        const SelectScope scope(dc, pen);
        dc.Ellipse(middle.x - radius, middle.y - radius, middle.x + radius + 1, middle.y + radius + 1);
    }
}

BOOL PictureView::OnCommand(WPARAM wParam, LPARAM lParam)
{
    GetParent()->SendMessage(WM_COMMAND, wParam, lParam);
    return TRUE;
}

void PictureView::OnPaint()
{
    CPaintDC dc(this);
    CRect client;
    GetClientRect(client);
    if (m_picture.Size() != client.Size() || !m_buffer.Resize(client.Size()))
    {
        dc.FillSolidRect(client, Background()); // no memory for a picture of that size
        return;
    }
    CDC& buffer = m_buffer.Dc();
    buffer.BitBlt(0, 0, client.Width(), client.Height(), &m_picture.Dc(), 0, 0, SRCCOPY);
    if (m_bar)
    {
        DrawScaleBar(buffer);
    }
    if (const auto mark = MarkPoint())
    {
        DrawMark(buffer, *mark);
    }
    dc.BitBlt(0, 0, client.Width(), client.Height(), &buffer, 0, 0, SRCCOPY);
}

BOOL PictureView::OnEraseBkgnd(CDC*) { return TRUE; }

void PictureView::OnSize(UINT, int width, int height)
{
    if (m_picture.Size() != CSize(width, height))
    {
        Render();
    }
}

void PictureView::OnSysColorChange() { Render(); }
} // namespace workbench
