// Cards.cpp - [cards] shaded cards against the same flat GDI+ calls written out
#include "bench/Bench.h"
#include "bench/Surface.h"
#include "tavkit/drawing/RoundRectGradient.h"

#include <algorithm>

#include <objidl.h>
#include <gdiplus.h>

namespace bench
{
namespace
{

using namespace Gdiplus;
using namespace Gdiplus::DllExports;

constexpr double kTarget = 1.05;
constexpr int kColumns = 10;
constexpr int kRows = 20;
constexpr int kCards = kColumns * kRows;
constexpr int kCardWidth = 120;
constexpr int kCardHeight = 40;
constexpr int kGap = 4;
constexpr int kRadius = 8;
constexpr int kPenWidth = 1;
constexpr COLORREF kTop = RGB(250, 252, 255);
constexpr COLORREF kBottom = RGB(170, 190, 220);
constexpr COLORREF kOutline = RGB(60, 80, 120);
constexpr COLORREF kGround = RGB(255, 255, 255);

RECT CardPlace(int card)
{
    const int left = kGap + card % kColumns * (kCardWidth + kGap);
    const int top = kGap + card / kColumns * (kCardHeight + kGap);
    return {left, top, left + kCardWidth, top + kCardHeight};
}

ARGB Opaque(COLORREF color)
{
    return 0xFF000000U | static_cast<ARGB>(GetRValue(color)) << 16 | static_cast<ARGB>(GetGValue(color)) << 8 |
           GetBValue(color);
}

void DrawOurs(HDC dc)
{
    for (int card = 0; card < kCards; ++card)
    {
        RoundRectGradient(dc, CardPlace(card), kRadius, kTop, kBottom, true, kPenWidth, kOutline);
    }
}

/// What a program without the helper would write: one card by hand.
void DrawCard(HDC dc, const RECT& r)
{
    GpGraphics* graphics = nullptr;
    GpPath* path = nullptr;
    GpLineGradient* brush = nullptr;
    GpPen* pen = nullptr;
    const int right = r.right - 1;
    const int d = 2 * kRadius;
    GdipCreateFromHDC(dc, &graphics);
    GdipCreatePath(FillModeAlternate, &path);
    GdipAddPathLineI(path, r.left, r.bottom - kRadius, r.left, r.top + kRadius);
    GdipAddPathArcI(path, r.left, r.top, d, d, 180, 90);
    GdipAddPathLineI(path, r.left + kRadius, r.top, right - kRadius - 50, r.top);
    GdipAddPathArcI(path, right - d, r.top, d, d, 270, 90);
    GdipAddPathLineI(path, right, r.top + kRadius, right, r.bottom - kRadius);
    GdipAddPathArcI(path, right - d, r.bottom - d, d, d, 0, 90);
    GdipAddPathLineI(path, right - kRadius, r.bottom, r.left + kRadius, r.bottom);
    GdipAddPathArcI(path, r.left, r.bottom - d, d, d, 90, 90);
    const GpRect box(r.left, r.top, right - r.left, r.bottom - r.top);
    GdipCreateLineBrushFromRectI(&box, Opaque(kTop), Opaque(kBottom), LinearGradientModeVertical, WrapModeTile, &brush);
    GdipFillPath(graphics, brush, path);
    GdipCreatePen1(Opaque(kOutline), kPenWidth, UnitWorld, &pen);
    GdipDrawPath(graphics, pen, path);
    GdipDeletePen(pen);
    GdipDeleteBrush(brush);
    GdipDeletePath(path);
    GdipDeleteGraphics(graphics);
}

void DrawReference(HDC dc)
{
    for (int card = 0; card < kCards; ++card)
    {
        DrawCard(dc, CardPlace(card));
    }
}

/// Every card has something of its own in its middle.
void RequireAllCards(const Surface& surface, const char* side)
{
    for (int card = 0; card < kCards; ++card)
    {
        const RECT place = CardPlace(card);
        const COLORREF middle =
            ::GetPixel(surface.Dc(), (place.left + place.right) / 2, (place.top + place.bottom) / 2);
        Require(middle != kGround && middle != CLR_INVALID,
                std::string(side) + " left out card " + std::to_string(card));
    }
}

std::vector<Row> Run()
{
    constexpr int kWidth = kGap + kColumns * (kCardWidth + kGap);
    constexpr int kHeight = kGap + kRows * (kCardHeight + kGap);
    Surface ours(kWidth, kHeight);
    Surface reference(kWidth, kHeight);
    const Medians medians = Interleave({.run = [&] { DrawOurs(ours.Dc()); },
                                        .prepare = [&] { ours.Fill(kGround); },
                                        .check = [&] { RequireAllCards(ours, "RoundRectGradient"); }},
                                       {.run = [&] { DrawReference(reference.Dc()); },
                                        .prepare = [&] { reference.Fill(kGround); },
                                        .check = [&] { RequireAllCards(reference, "the written-out calls"); }});
    Require(std::ranges::equal(ours.Pixels(), reference.Pixels()), "the two sides drew different pixels");
    return {{"cards", kCards, medians.ours, medians.reference, kTarget}};
}

const Registration registration("cards", Run);

} // namespace
} // namespace bench
