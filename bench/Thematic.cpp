// Thematic.cpp - [thematic] repaints of the thematic list against the same calls written out, and mouse moves over it
#include "bench/Bench.h"
#include "tavkit/TavKit.h"

#include <algorithm>
#include <string>
#include <vector>

#include <objidl.h>
#include <gdiplus.h>

namespace bench
{
namespace
{

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

constexpr double kWrittenOutTarget = 1.10;
constexpr double kInViewTarget = 1.5;
constexpr int kCards = 200;
constexpr int kManyCards = 10'000;
constexpr int kCardsInView = 20;
constexpr int kMoves = 1'000;
constexpr int kRowHeight = 34;
constexpr int kCardHeight = 32;
constexpr int kWidth = 300;
constexpr const char* kText = "Layer of an image";

constexpr COLORREF kTop = RGB(255, 255, 255);
constexpr COLORREF kBottom = RGB(192, 192, 192);
constexpr COLORREF kOutline = RGB(160, 160, 160);

/// What stands in a window of its own for the lists.
class Frame : public CWnd
{
public:
    Frame()
    {
        Require(CreateEx(WS_EX_TOPMOST, AfxRegisterWndClass(0), "bench", WS_POPUP | WS_VISIBLE,
                         CRect(0, 0, kWidth, kCardsInView * kRowHeight), nullptr, 0) != FALSE,
                "the frame can't be made");
    }
    ~Frame() override { DestroyWindow(); }
};

class PaintedList : public TmtcListCtrl
{
public:
    int m_paints = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_paints += message == WM_PAINT;
        return TmtcListCtrl::WindowProc(message, wParam, lParam);
    }
};

/// Cards without a selection, at the top level or in one group.
void Fill(PaintedList& list, Frame& frame, int cards, bool grouped, int height)
{
    Require(list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, kWidth, height), &frame, 1) != FALSE,
            "the list can't be made");
    TmtcListCtrl::Group* const group = grouped ? TmtcListCtrl::Group::Create("Layers", "", kTop, kBottom, 0) : nullptr;
    for (int i = 0; i < cards; ++i)
    {
        TmtcListCtrl::Item* const item = TmtcListCtrl::Item::Create(kText, -1, 0, true);
        if (group != nullptr)
        {
            group->AddTail(item);
        }
        else
        {
            list.AddTail(item);
        }
    }
    if (group != nullptr)
    {
        list.AddTail(group);
    }
    list.OnSlctChng(list.GetSlctElmt(), nullptr);
}

void Repaint(HWND window)
{
    ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    ::GdiFlush();
}

ARGB Opaque(COLORREF color)
{
    return 0xFF000000U | static_cast<ARGB>(GetRValue(color)) << 16 | static_cast<ARGB>(GetGValue(color)) << 8 |
           GetBValue(color);
}

/// One card by hand: its ground, its caption, two arrows and a round button.
void DrawCard(HDC dc, const RECT& r)
{
    constexpr int kRadius = 3;
    constexpr int kDiameter = 2 * kRadius;
    GpGraphics* graphics = nullptr;
    GpPath* path = nullptr;
    GpLineGradient* brush = nullptr;
    GpPen* pen = nullptr;
    const int right = r.right - 1;
    GdipCreateFromHDC(dc, &graphics);
    GdipCreatePath(FillModeAlternate, &path);
    GdipAddPathLineI(path, r.left, r.bottom - kRadius, r.left, r.top + kRadius);
    GdipAddPathArcI(path, r.left, r.top, kDiameter, kDiameter, 180, 90);
    GdipAddPathLineI(path, r.left + kRadius, r.top, right - kRadius - 50, r.top);
    GdipAddPathArcI(path, right - kDiameter, r.top, kDiameter, kDiameter, 270, 90);
    GdipAddPathLineI(path, right, r.top + kRadius, right, r.bottom - kRadius);
    GdipAddPathArcI(path, right - kDiameter, r.bottom - kDiameter, kDiameter, kDiameter, 0, 90);
    GdipAddPathLineI(path, right - kRadius, r.bottom, r.left + kRadius, r.bottom);
    GdipAddPathArcI(path, r.left, r.bottom - kDiameter, kDiameter, kDiameter, 90, 90);
    const GpRect box(r.left, r.top, right - r.left, r.bottom - r.top);
    GdipCreateLineBrushFromRectI(&box, Opaque(kTop), Opaque(kBottom), LinearGradientModeVertical, WrapModeTile, &brush);
    GdipFillPath(graphics, brush, path);
    GdipCreatePen1(Opaque(kOutline), 1, UnitWorld, &pen);
    GdipDrawPath(graphics, pen, path);
    GdipDeletePen(pen);
    GdipDeleteBrush(brush);
    GdipDeletePath(path);
    GdipDeleteGraphics(graphics);

    const int x = r.right - 10;
    const RECT button{x - 20, r.top + 7, x - 2, r.top + 25};
    const HBRUSH face = ::CreateSolidBrush(::GetSysColor(COLOR_BTNFACE));
    const HGDIOBJ oldBrush = ::SelectObject(dc, face);
    ::RoundRect(dc, button.left, button.top, button.right, button.bottom, 17, 17);
    ::SelectObject(dc, oldBrush);
    ::DeleteObject(face);
    const HGDIOBJ oldPen = ::SelectObject(dc, ::GetStockObject(BLACK_PEN));
    const int cx = (button.left + button.right) / 2;
    const int cy = (button.top + button.bottom) / 2;
    for (const int y : {cy, cy - 1})
    {
        ::MoveToEx(dc, cx - 4, y, nullptr);
        ::LineTo(dc, cx + 4, y);
    }
    ::SelectObject(dc, oldPen);
    RECT text{r.left + 33, r.top, x - 53, r.bottom};
    ::DrawTextA(dc, kText, -1, &text, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
    const HIMAGELIST arrows = TmtcListCtrl::Elmt::BitmapButton::m_lstImg.GetSafeHandle();
    ::ImageList_Draw(arrows, 3, dc, x, r.top + 2, ILD_NORMAL);
    ::ImageList_Draw(arrows, 0, dc, x, r.bottom - 10, ILD_NORMAL);
}

/// A window that paints cards as a program without the list would, off-screen first.
class WrittenOut : public CWnd
{
public:
    WrittenOut(Frame& frame, int cards, int height) : m_cards(cards)
    {
        Require(Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, kWidth, height), &frame, 2) != FALSE,
                "the window can't be made");
    }
    ~WrittenOut() override { DestroyWindow(); }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_ERASEBKGND)
        {
            return 0;
        }
        if (message != WM_PAINT)
        {
            return CWnd::WindowProc(message, wParam, lParam);
        }
        PAINTSTRUCT paint;
        const HDC screen = ::BeginPaint(m_hWnd, &paint);
        RECT client;
        ::GetClientRect(m_hWnd, &client);
        const HDC dc = ::CreateCompatibleDC(screen);
        const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, client.right, client.bottom);
        const HGDIOBJ oldBitmap = ::SelectObject(dc, bitmap);
        ::SetBkColor(dc, ::GetSysColor(COLOR_BTNFACE));
        ::ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &client, nullptr, 0, nullptr);
        ::SetBkMode(dc, TRANSPARENT);
        const HGDIOBJ oldFont = ::SelectObject(dc, ::GetStockObject(DEFAULT_GUI_FONT));
        const HPEN pen = ::CreatePen(PS_SOLID, 1, ::GetSysColor(COLOR_BTNSHADOW));
        const HGDIOBJ oldPen = ::SelectObject(dc, pen);
        for (int i = 0; i < m_cards; ++i)
        {
            const LONG top = 2 + i * kRowHeight;
            DrawCard(dc, {1, top, client.right, top + kCardHeight});
        }
        ::BitBlt(screen, 0, 0, client.right, client.bottom, dc, 0, 0, SRCCOPY);
        ::SelectObject(dc, oldPen);
        ::DeleteObject(pen);
        ::SelectObject(dc, oldFont);
        ::SelectObject(dc, oldBitmap);
        ::DeleteObject(bitmap);
        ::DeleteDC(dc);
        ::EndPaint(m_hWnd, &paint);
        return 0;
    }

private:
    int m_cards;
};

/// What stands of a window on the screen.
std::vector<DWORD> Pixels(CWnd& window)
{
    constexpr int kHeight = kCardsInView * kRowHeight;
    window.SetWindowPos(&CWnd::wndTop, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    Repaint(window.m_hWnd);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<DWORD> pixels(static_cast<std::size_t>(kWidth) * kHeight);
    const HDC screen = ::GetDC(window.m_hWnd);
    const HDC dc = ::CreateCompatibleDC(screen);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, kWidth, kHeight);
    const HGDIOBJ old = ::SelectObject(dc, bitmap);
    ::BitBlt(dc, 0, 0, kWidth, kHeight, screen, 0, 0, SRCCOPY);
    ::SelectObject(dc, old);
    ::GetDIBits(dc, bitmap, 0, kHeight, pixels.data(), &info, DIB_RGB_COLORS);
    ::DeleteObject(bitmap);
    ::DeleteDC(dc);
    ::ReleaseDC(window.m_hWnd, screen);
    return pixels;
}

/// The frame is as high as the screen allows; the buffer behind a window is as high as all of its cards.
Row MeasureAllCards(Frame& frame)
{
    constexpr int kHeight = kCards * kRowHeight + 2;
    PaintedList ours;
    Fill(ours, frame, kCards, false, kHeight);
    WrittenOut reference(frame, kCards, kHeight);
    Require(Pixels(ours) == Pixels(reference), "the two sides painted different pixels");
    const auto onTop = [](CWnd& window) {
        window.SetWindowPos(&CWnd::wndTop, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        Repaint(window.m_hWnd);
    };
    const Medians medians =
        Interleave({.run = [&] { Repaint(ours.m_hWnd); }, .prepare = [&] { onTop(ours); }},
                   {.run = [&] { Repaint(reference.m_hWnd); }, .prepare = [&] { onTop(reference); }});
    ours.DestroyWindow();
    return {"thematic", kCards, medians.ours, medians.reference, kWrittenOutTarget};
}

Row MeasureCardsInView(Frame& frame, bool grouped, const char* name)
{
    constexpr int kHeight = kCardsInView * kRowHeight;
    PaintedList many;
    PaintedList few;
    Fill(many, frame, kManyCards, grouped, kHeight);
    Fill(few, frame, kCardsInView, grouped, kHeight);
    const auto onTop = [](CWnd& window) {
        window.SetWindowPos(&CWnd::wndTop, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        Repaint(window.m_hWnd);
    };
    const Medians medians = Interleave({.run = [&] { Repaint(many.m_hWnd); }, .prepare = [&] { onTop(many); }},
                                       {.run = [&] { Repaint(few.m_hWnd); }, .prepare = [&] { onTop(few); }});
    many.DestroyWindow();
    few.DestroyWindow();
    return {name, kManyCards, medians.ours, medians.reference, kInViewTarget};
}

/// Moves between captions, where there is no button: against as many repaints, of which there must be none.
Row MeasureMoves(Frame& frame)
{
    constexpr int kHeight = kCardsInView * kRowHeight;
    PaintedList list;
    Fill(list, frame, kCards, false, kHeight);
    Repaint(list.m_hWnd);
    const auto move = [&] {
        for (int i = 0; i < kMoves; ++i)
        {
            list.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(100 + i % 50, 10 + i % kHeight));
            list.UpdateWindow();
        }
    };
    move();
    const auto noRepaint = [&] { Require(list.m_paints == 0, "a move repainted the list"); };
    const Medians medians =
        Interleave({.run = move, .prepare = [&] { list.m_paints = 0; }, .check = noRepaint}, {.run = [&] {
                       for (int i = 0; i < kMoves / kCards; ++i)
                       {
                           Repaint(list.m_hWnd);
                       }
                   }});
    list.DestroyWindow();
    return {"thematic_moves", kMoves, medians.ours, medians.reference, std::nullopt};
}

std::vector<Row> Run()
{
    Frame frame;
    return {MeasureAllCards(frame), MeasureCardsInView(frame, false, "thematic_view"),
            MeasureCardsInView(frame, true, "thematic_view_group"), MeasureMoves(frame)};
}

const Registration registration("thematic", Run);

} // namespace
} // namespace bench
