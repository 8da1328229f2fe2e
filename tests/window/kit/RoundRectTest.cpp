// RoundRectTest.cpp - rounded rectangles with a gradient, pixel by pixel

#include "Picture.h"

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <cstdlib>

namespace
{

constexpr COLORREF kBack = RGB(255, 255, 255);
constexpr COLORREF kPen = RGB(200, 0, 100);
constexpr COLORREF kStart = RGB(250, 20, 40);
constexpr COLORREF kEnd = RGB(10, 60, 240);
const CRect kRect(20, 10, 180, 110);
constexpr int kRadius = 8;
constexpr int kColorTolerance = 6;

bool Near(COLORREF a, COLORREF b)
{
    return std::abs(GetRValue(a) - GetRValue(b)) <= kColorTolerance &&
           std::abs(GetGValue(a) - GetGValue(b)) <= kColorTolerance &&
           std::abs(GetBValue(a) - GetBValue(b)) <= kColorTolerance;
}

class RoundRect : public support::WindowTest
{
protected:
    static void SetUpTestSuite() { TavKitInit(); }
    static void TearDownTestSuite() { TavKitShutdown(); }

    void Draw(bool vertical, int penWidth, CRect rect = kRect, int radius = kRadius)
    {
        RoundRectGradient(m_picture.Handle(), rect, radius, kStart, kEnd, vertical, penWidth, kPen);
    }

    Picture m_picture{200, 120, kBack};
};

TEST_F(RoundRect, RunsFromTheStartColourAtTheLeftToTheEndColourAtTheRight)
{
    Draw(false, 0);
    EXPECT_TRUE(Near(m_picture.At(21, 60), kStart));
    EXPECT_TRUE(Near(m_picture.At(177, 60), kEnd));
    EXPECT_EQ(m_picture.At(100, 30), m_picture.At(100, 90)) << "a column has one colour";
    for (int x = 25; x < 175; x += 10)
    {
        EXPECT_GT(GetRValue(m_picture.At(x, 60)), GetRValue(m_picture.At(x + 10, 60))) << x;
        EXPECT_LT(GetBValue(m_picture.At(x, 60)), GetBValue(m_picture.At(x + 10, 60))) << x;
    }
}

TEST_F(RoundRect, RunsFromTopToBottomWhenItIsVertical)
{
    Draw(true, 0);
    EXPECT_TRUE(Near(m_picture.At(100, 11), kStart));
    EXPECT_TRUE(Near(m_picture.At(100, 108), kEnd));
    EXPECT_EQ(m_picture.At(40, 60), m_picture.At(160, 60)) << "a row has one colour";
}

TEST_F(RoundRect, IsOpaqueInTheMiddle)
{
    Draw(false, 0);
    COLORREF const middle = m_picture.At(100, 60);
    EXPECT_TRUE(Near(middle, RGB(130, 40, 140)));
}

TEST_F(RoundRect, LeavesItsCornersOpen)
{
    Draw(false, 1);
    for (const CPoint corner : {CPoint(20, 10), CPoint(179, 10), CPoint(20, 109), CPoint(179, 109)})
    {
        EXPECT_EQ(m_picture.At(corner.x, corner.y), kBack) << corner.x << ", " << corner.y;
    }
    EXPECT_NE(m_picture.At(24, 14), kBack) << "inside the arc";
    EXPECT_NE(m_picture.At(175, 105), kBack) << "inside the arc";
}

TEST_F(RoundRect, PaintsNoOutlineWithPenWidthNull)
{
    Draw(false, 0);
    for (int x = 18; x < 184; ++x)
    {
        for (int y = 8; y < 114; ++y)
        {
            ASSERT_FALSE(Near(m_picture.At(x, y), kPen) && !Near(m_picture.At(100, 60), kPen)) << x << ", " << y;
        }
    }
    EXPECT_EQ(m_picture.At(179, 60), kBack) << "the fill ends before the right side";
    Picture negative(200, 120, kBack);
    RoundRectGradient(negative.Handle(), kRect, kRadius, kStart, kEnd, false, -3, kPen);
    EXPECT_TRUE(negative.DifferenceTo(m_picture).IsRectEmpty()) << "a width below 0 paints none either";
}

TEST_F(RoundRect, OutlinesAllFourSidesWithTheRightOneOnePixelLess)
{
    Draw(false, 1);
    EXPECT_EQ(m_picture.At(20, 60), kPen) << "left";
    EXPECT_EQ(m_picture.At(179, 60), kPen) << "right side minus one";
    EXPECT_EQ(m_picture.At(180, 60), kBack);
    EXPECT_EQ(m_picture.At(100, 10), kPen) << "top";
    EXPECT_EQ(m_picture.At(100, 110), kPen) << "the bottom isn't one less";
    EXPECT_EQ(m_picture.At(100, 111), kBack);
    EXPECT_NE(m_picture.At(21, 60), kPen) << "one pixel wide";
    EXPECT_EQ(m_picture.Painted(), CRect(20, 10, 180, 111));
}

TEST_F(RoundRect, HasAWholeTopEdge)
{
    Draw(false, 1);
    for (int x = kRect.left + kRadius; x <= kRect.right - 1 - kRadius; ++x)
    {
        EXPECT_EQ(m_picture.At(x, 10), kPen) << x;
    }
}

TEST_F(RoundRect, HasAnOutlineAsWideAsThePen)
{
    Draw(false, 5);
    for (int x = 18; x <= 22; ++x)
    {
        EXPECT_EQ(m_picture.At(x, 60), kPen) << x;
    }
    EXPECT_NE(m_picture.At(23, 60), kPen);
    EXPECT_EQ(m_picture.At(17, 60), kBack);
}

TEST_F(RoundRect, RunsItsTopEdgeToTheLeftOnANarrowBar)
{
    // The top edge ends 50 pixels before the corner, which on a bar of 32 pixels lies left of its start.
    Draw(false, 1, CRect(100, 20, 132, 110), 3);
    EXPECT_EQ(m_picture.At(80, 20), kPen) << "the spur left of the bar";
    EXPECT_EQ(m_picture.At(100, 60), kPen);
    EXPECT_EQ(m_picture.At(131, 60), kPen);
    EXPECT_EQ(m_picture.At(132, 60), kBack);
}

TEST_F(RoundRect, PaintsNothingOfAnEmptyRectangleAndDoesNotFail)
{
    Draw(false, 0, CRect(50, 50, 51, 50), 0);
    Draw(true, 0, CRect(50, 50, 50, 50), 0);
    EXPECT_TRUE(m_picture.Painted().IsRectEmpty());
}

TEST_F(RoundRect, DoesNothingWithoutADeviceContext)
{
    RoundRectGradient(nullptr, kRect, kRadius, kStart, kEnd, false, 1, kPen);
    EXPECT_TRUE(m_picture.Painted().IsRectEmpty());
}

TEST_F(RoundRect, PaintsOnTheScreenWhatItPaintsInMemory)
{
    Draw(false, 1);
    support::TestFrame frame;
    {
        CClientDC dc(&frame);
        dc.FillSolidRect(0, 0, 200, 120, kBack);
        RoundRectGradient(dc.m_hDC, kRect, kRadius, kStart, kEnd, false, 1, kPen);
    }
    for (const CPoint place : {CPoint(20, 60), CPoint(100, 60), CPoint(179, 60), CPoint(100, 10), CPoint(20, 10)})
    {
        EXPECT_EQ(support::ClientPixel(frame.m_hWnd, place.x, place.y), m_picture.At(place.x, place.y))
            << place.x << ", " << place.y;
    }
}

} // namespace
