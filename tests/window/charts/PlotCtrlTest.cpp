// PlotCtrlTest.cpp - the plot: its page at several sizes, its points, and what it makes of bad input

#include "PlotFixture.h"

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace
{

using namespace chart_test;
using testing::IsEmpty;
using testing::SizeIs;

constexpr COLORREF kRed = RGB(230, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr const char* kFace = "Arial Narrow";
constexpr int kFont = 75;
constexpr int kSmallFont = 65;
constexpr UINT kXFormat = DT_CENTER | DT_NOCLIP;
constexpr UINT kYFormat = DT_RIGHT | DT_NOCLIP;
// The plot's limits, from the sides of the window.
constexpr int kLeft = 60;
constexpr int kRight = 20;
constexpr int kTop = 20;
constexpr int kBottom = 32;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The page

struct Size
{
    int width;
    int height;
};

class PlotCtrlSizes : public PlotCtrl, public testing::WithParamInterface<Size>
{
};

TEST_P(PlotCtrlSizes, HasAFrameAndAxes)
{
    const auto [width, height] = GetParam();
    Open(width, height);
    SetLimits(0.0, 0.0, 1.0, 1.0);
    const Shot shot = Look();
    for (const POINT corner : {POINT{0, 0}, POINT{width - 1, 0}, POINT{0, height - 1}, POINT{width - 1, height - 1}})
    {
        EXPECT_EQ(shot.At(corner.x, corner.y), kBlack);
    }
    EXPECT_EQ(shot.At(1, 1), kWhite);
    const int bottom = height - kBottom;
    const int right = width - kRight;
    const int middle = (kTop + bottom) / 2;
    EXPECT_EQ(shot.At(kLeft, kTop), kBlack);
    EXPECT_EQ(shot.At(kLeft, kTop - 3), kWhite);
    EXPECT_EQ(shot.At(kLeft, middle), kBlack);
    EXPECT_EQ(shot.At(kLeft + 2, middle), kWhite);
    EXPECT_EQ(shot.At(right - 2, bottom), kBlack);
    EXPECT_EQ(shot.At(right + 3, bottom), kWhite);
    EXPECT_EQ(shot.At((kLeft + right) / 2, bottom), kBlack);
}

TEST_P(PlotCtrlSizes, HasItsPointsInPlace)
{
    const auto [width, height] = GetParam();
    Open(width, height);
    SetLimits(-2.0, -1.0, 2.0, 1.0);
    m_chart->DrawGrid(false);
    Add(-1.0, 0.5);
    Add(1.5, -0.25);
    const Shot shot = Look();
    for (const auto& [x, y] : {std::pair{-1.0, 0.5}, std::pair{1.5, -0.25}})
    {
        const int px = kLeft + static_cast<int>((width - kRight - kLeft) * ((x + 2.0) / 4.0));
        const int py = height - kBottom - static_cast<int>((height - kBottom - kTop) * ((y + 1.0) / 2.0));
        EXPECT_EQ(shot.At(px, py), kRed);
        EXPECT_EQ(shot.At(px - 3, py), kRed);
        EXPECT_EQ(shot.At(px, py - 3), kRed);
        EXPECT_EQ(shot.At(px - 4, py), kWhite);
        EXPECT_EQ(shot.At(px + 3, py), kWhite);
        EXPECT_EQ(shot.At(px, py + 3), kWhite);
        EXPECT_EQ(shot.At(px - 3, py - 3), kWhite) << "the corner of the disc";
    }
}

INSTANTIATE_TEST_SUITE_P(Table, PlotCtrlSizes,
                         testing::Values(Size{480, 252}, Size{333, 201}, Size{160, 120}, Size{601, 399}),
                         [](const auto& info) {
                             return std::to_string(info.param.width) + "x" + std::to_string(info.param.height);
                         });

TEST_F(PlotCtrl, HasTicksAndLabelsAtItsSpacing)
{
    OpenUsual();
    m_chart->SetTickX(2.5);
    m_chart->SetTickY(5.0);
    const Shot shot = Look();
    const char* const xLabels[] = {"0", "2.5", "5", "7.5", "10"};
    for (int i = 0; i < 5; ++i)
    {
        const int x = 60 + 100 * i;
        EXPECT_EQ(shot.At(x, 224), kBlack) << i;
        EXPECT_TRUE(shot.HasText(xLabels[i], CRect(x - 50, 226, x + 50, 236), kXFormat, kFont, kFace)) << i;
    }
    EXPECT_EQ(shot.At(110, 224), kWhite) << "no tick between them";
    const char* const yLabels[] = {"0.00", "5.00", "10.00"};
    for (int i = 0; i < 3; ++i)
    {
        const int y = 220 - 100 * i;
        EXPECT_EQ(shot.At(56, y), kBlack) << i;
        EXPECT_TRUE(shot.HasText(yLabels[i], CRect(14, y - 6, 54, y + 6), kYFormat, kFont, kFace)) << i;
    }
    EXPECT_EQ(shot.At(56, 170), kWhite);
}

TEST_F(PlotCtrl, PrintsXLabelsInTwoDigits)
{
    Open(480, 252);
    SetLimits(0.0, 0.0, 0.375, 1.0);
    m_chart->SetTickX(0.125);
    EXPECT_TRUE(Look().HasText("0.12", CRect(126, 226, 260, 236), kXFormat, kFont, kFace));
}

TEST_F(PlotCtrl, HasADottedGridButAtTheLowerLimits)
{
    OpenUsual();
    m_chart->SetTickX(5.0);
    m_chart->SetTickY(5.0);
    ASSERT_EQ(Dark(Look(), CRect(260, 25, 261, 95)), 0) << "no grid yet";
    m_chart->DrawGrid(true);
    const Shot shot = Look();
    for (const CRect line :
         {CRect(260, 25, 261, 95), CRect(460, 25, 461, 95), CRect(70, 120, 140, 121), CRect(70, 20, 140, 21)})
    {
        EXPECT_GT(Dark(shot, line), 20) << line.left << ", " << line.top;
        EXPECT_LT(Dark(shot, line), 50) << line.left << ", " << line.top;
    }
    EXPECT_EQ(Dark(shot, CRect(62, 25, 259, 95)), 0) << "none beside the y axis";
}

TEST_F(PlotCtrl, ShrinksTheXLabelsFromFortyFiveTicksOn)
{
    Open(680, 252);
    m_chart->DrawGrid(false);
    m_chart->SetTickX(1.0);
    m_chart->SetTickY(5.0);
    const auto has = [&](int ticks, int size) {
        SetLimits(0.0, 0.0, ticks, 10.0);
        const int x = 60 + static_cast<int>(600 * (20.0 / ticks));
        const double half = 600 / ticks * 0.5;
        const CRect place(static_cast<int>(x - half), 226, static_cast<int>(x + half), 236);
        return Look().HasText("20", place, kXFormat, size, kFace);
    };
    EXPECT_TRUE(has(44, kFont));
    EXPECT_FALSE(has(44, kSmallFont));
    EXPECT_TRUE(has(45, kSmallFont));
    EXPECT_FALSE(has(45, kFont));
    EXPECT_TRUE(Look().HasText("5.00", CRect(14, 114, 54, 126), kYFormat, kFont, kFace)) << "the y labels never shrink";
}

TEST_F(PlotCtrl, HasATickForEachPointIfAsked)
{
    OpenUsual();
    m_chart->SetTickY(5.0);
    m_chart->DrawEveryXTick(true);
    Add(1.0, 2.0, "one");
    Add(6.543, 2.0, nullptr);
    Add(3.0, 2.0, "three");
    const Shot shot = Look();
    EXPECT_TRUE(shot.HasText("one", CRect(80, 226, 120, 236), kXFormat, kFont, kFace));
    EXPECT_TRUE(shot.HasText("three", CRect(160, 226, 200, 236), kXFormat, kFont, kFace));
    EXPECT_TRUE(shot.HasText("6.5", CRect(301, 226, 341, 236), kXFormat, kFont, kFace));
    EXPECT_EQ(shot.At(60, 224), kWhite) << "no tick but those";
    EXPECT_EQ(shot.At(100, 224), kBlack);
}

TEST_F(PlotCtrl, CountsThePointsForTheFontIfEachHasATick)
{
    OpenUsual();
    m_chart->DrawEveryXTick(true);
    for (int i = 0; i < 44; ++i)
    {
        Add(9.0, 5.0, i == 0 ? "abc" : " ");
    }
    EXPECT_TRUE(Look().HasText("abc", CRect(400, 226, 440, 236), kXFormat, kFont, kFace));
    Add(9.0, 5.0, " ");
    EXPECT_TRUE(Look().HasText("abc", CRect(400, 226, 440, 236), kXFormat, kSmallFont, kFace));
}

TEST_F(PlotCtrl, TakesTheFirstTextForBothLabels)
{
    const CPlotCtrl::DataPoint point(5.0, 7.0, "a", "b");
    EXPECT_EQ(point.x, 5.0);
    EXPECT_EQ(point.y, 7.0);
    EXPECT_STREQ(point.strLabelX, "a");
    EXPECT_STREQ(point.strLabelY, "a");
    const CPlotCtrl::DataPoint unnamed(5.0, 7.0, nullptr, "b");
    EXPECT_TRUE(unnamed.strLabelX.IsEmpty());
    EXPECT_TRUE(unnamed.strLabelY.IsEmpty());
}

TEST_F(PlotCtrl, RaisesTheUpperLimitsToItsPointsAndLeavesTheLower)
{
    Open(480, 252);
    m_chart->DrawGrid(false);
    Add(5.0, 7.0, "a");
    EXPECT_EQ(Look().At(459, 21), kRed) << "in the corner: the limits are 0 and the point";
    Add(10.0, -3.0, "b");
    const Shot shot = Look();
    EXPECT_EQ(shot.At(260, 21), kRed) << "half the way now";
    EXPECT_EQ(shot.Count(CRect(440, 22, 479, 251), kRed), 0) << "below the lower limit, which stays";
    Add(2.0, 3.5, "c");
    EXPECT_EQ(Look().At(140, 120), kRed) << "smaller values change no limit";
}

TEST_F(PlotCtrl, ShowsItsTitleOnceThereIsRoom)
{
    OpenUsual();
    m_chart->SetTitle("Heading");
    EXPECT_EQ(Dark(Look(), CRect(62, 1, 459, 20)), 0);
    m_chart->DrawTitle(true);
    const Shot shot = Look();
    EXPECT_TRUE(shot.HasText("Heading", CRect(60, 10, 460, 20), DT_CENTER, kFont, kFace));
    EXPECT_EQ(shot.At(60, 30), kBlack);
    EXPECT_EQ(shot.At(60, 27), kWhite) << "the axis begins lower";
}

TEST_F(PlotCtrl, AddsRoomForTheTitleEachTimeItIsAsked)
{
    OpenUsual();
    m_chart->DrawTitle(true);
    m_chart->DrawTitle(true);
    Shot shot = Look();
    EXPECT_EQ(shot.At(60, 40), kBlack);
    EXPECT_EQ(shot.At(60, 37), kWhite);
    m_chart->DrawTitle(false);
    m_chart->DrawTitle(false);
    m_chart->DrawTitle(false);
    shot = Look();
    EXPECT_EQ(shot.At(60, 10), kBlack);
    EXPECT_EQ(shot.At(60, 7), kWhite);
}

TEST_F(PlotCtrl, HasCaptionsOnBothAxes)
{
    OpenUsual();
    Shot shot = Look();
    EXPECT_TRUE(shot.HasText("x-axis", CRect(60, 238, 460, 250), DT_CENTER, kFont, kFace));
    EXPECT_GT(Dark(shot, CRect(1, 100, 13, 140)), 10) << "the y caption, in the middle of its side";
    EXPECT_EQ(Dark(shot, CRect(1, 25, 13, 90)), 0);
    m_chart->SetCaptionX("area");
    m_chart->SetCaptionY("");
    shot = Look();
    EXPECT_TRUE(shot.HasText("area", CRect(60, 238, 460, 250), DT_CENTER, kFont, kFace));
    EXPECT_EQ(Dark(shot, CRect(1, 25, 13, 215)), 0);
    m_chart->SetCaptionX("");
    EXPECT_EQ(Dark(Look(), CRect(62, 238, 459, 250)), 0);
}

TEST_F(PlotCtrl, TurnsATextAboutTheMiddleOfItsPlace)
{
    Picture picture(100, 200, kWhite);
    CFont font;
    font.CreateFont(10, 0, 900, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, "Arial");
    const SelectScope selected(*picture.DC(), font);
    picture.DC()->SetTextAlign(TA_RIGHT);
    CRect rect(40, 20, 60, 180);
    CPlotCtrl::DrawRotatedText(picture.DC(), "some text", rect, 90.0, 0);
    EXPECT_EQ(picture.DC()->GetTextAlign(), static_cast<UINT>(TA_RIGHT)) << "the alignment is back";
    const CRect painted = picture.Painted();
    EXPECT_GT(painted.Height(), 3 * painted.Width());
    EXPECT_NEAR(painted.CenterPoint().y, 100, 4);
    EXPECT_NEAR(painted.CenterPoint().x, 50, 6);
}

TEST_F(PlotCtrl, KeepsATurnedTextInItsPlaceIfAsked)
{
    Picture picture(100, 200, kWhite);
    CRect rect(40, 95, 60, 105);
    CPlotCtrl::DrawRotatedText(picture.DC(), "a rather long text", rect, 0.0, ETO_CLIPPED);
    EXPECT_GE(picture.Painted().left, 40);
    EXPECT_LE(picture.Painted().right, 60);
}

// Points and lines

TEST_F(PlotCtrl, DrawsPointsOnItsLimitsButNoneOutside)
{
    OpenUsual();
    for (const auto& [x, y] : {std::pair{0.0, 0.0}, std::pair{10.0, 10.0}, std::pair{0.0, 5.0}, std::pair{10.0, 5.0}})
    {
        Add(x, y);
    }
    Add(-0.5, 2.0);
    Add(3.0, -0.5);
    const Shot shot = Look();
    EXPECT_EQ(shot.At(62, 120), kRed);
    EXPECT_EQ(shot.At(460, 120), kRed);
    EXPECT_EQ(shot.At(460, 20), kRed);
    EXPECT_EQ(shot.Count(CRect(62, 130, 459, 214), kRed), 0);
    EXPECT_EQ(shot.Count(CRect(20, 150, 50, 214), kRed), 0) << "left of the axis";
    EXPECT_EQ(shot.Count(CRect(150, 215, 210, 250), kRed), 0) << "below the axis";
}

TEST_F(PlotCtrl, JoinsItsPointsInTheirOrder)
{
    OpenUsual();
    Add(1.0, 5.0);
    Add(9.0, 5.0);
    Add(5.0, 9.0);
    ASSERT_EQ(Look().At(260, 120), kWhite);
    m_chart->DrawLine(true);
    Shot shot = Look();
    EXPECT_EQ(shot.At(260, 120), kRed);
    EXPECT_EQ(shot.At(340, 80), kRed) << "from the second to the third";
    EXPECT_EQ(shot.Count(CRect(170, 50, 180, 110), kRed), 0) << "none back to the first";
    m_chart->DrawLine(false);
    EXPECT_EQ(Look().At(260, 120), kWhite);
}

TEST_F(PlotCtrl, JoinsPointsOutsideItsLimitsToo)
{
    OpenUsual();
    m_chart->DrawLine(true);
    m_chart->AddData(-5.0, 5.0, "", "");
    m_chart->AddData(5.0, 5.0, "", "");
    EXPECT_EQ(Look().At(100, 120), kRed);
    m_chart->AddData(5.0, -1e15, "", "");
    EXPECT_EQ(Look().At(260, 200), kRed) << "straight down, to a point too far away to be drawn to";
}

class PlotCtrlManyPoints : public PlotCtrl, public testing::WithParamInterface<bool>
{
};

TEST_P(PlotCtrlManyPoints, StandAsTheSystemDrawsThemOneByOne)
{
    constexpr int kPoints = 3000;
    constexpr int kSlct = kPoints / 2;
    OpenUsual();
    m_chart->DrawLine(GetParam());
    std::mt19937 random(11);
    std::vector<POINT> places;
    for (unsigned i = 0; i < kPoints; ++i)
    {
        // Some all over the plot, others crowded in a corner. The selected one lies alone at its x.
        const unsigned width = i % 3 == 0 ? 400 : 40;
        const unsigned height = i % 3 == 0 ? 200 : 20;
        POINT at{60 + static_cast<LONG>(random() % width), 220 - static_cast<LONG>(random() % height)};
        at.x += at.x == 300 ? 1 : 0;
        at = i == kSlct ? POINT{300, 120} : at;
        Add((at.x - 60 + 0.5) / 40.0, (220 - at.y + 0.5) / 20.0);
        places.push_back(at);
    }
    m_chart->SlctData((300 - 60 + 0.5) / 40.0, 0.0);
    const Shot shot = Look();

    Picture expected(480, 252, kWhite);
    CDC& dc = *expected.DC();
    const CPen pen(PS_SOLID, 1, kRed);
    const CBrush brush(kRed);
    const CBrush slctBrush(kBlue);
    const SelectScope selectedPen(dc, pen);
    const SelectScope selectedBrush(dc, brush);
    dc.MoveTo(places[0]);
    for (int i = 0; i < kPoints; ++i)
    {
        const POINT at = places[static_cast<std::size_t>(i)];
        if (GetParam())
        {
            dc.LineTo(at);
        }
        dc.Ellipse(at.x - 3, at.y - 3, at.x + 3, at.y + 3);
        if (i == kSlct)
        {
            const SelectScope selected(dc, slctBrush);
            dc.Ellipse(at.x - 4, at.y - 4, at.x + 4, at.y + 4);
        }
    }
    int different = 0;
    for (int y = 1; y < 218; ++y)
    {
        for (int x = 62; x < 479; ++x)
        {
            different += shot.At(x, y) != expected.At(x, y) ? 1 : 0;
        }
    }
    EXPECT_EQ(different, 0);
    EXPECT_TRUE(GetParam() || shot.Count(kBlue) > 0) << "the lines behind it cover the selected point";
}

INSTANTIATE_TEST_SUITE_P(Lines, PlotCtrlManyPoints, testing::Bool(),
                         [](const auto& info) { return info.param ? "Joined" : "Apart"; });

// When it draws

TEST_F(PlotCtrl, ErasesNothing)
{
    OpenUsual();
    const CClientDC dc(m_chart.get());
    EXPECT_EQ(m_chart->SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.m_hDC)), 0);
}

TEST_F(PlotCtrl, CopiesItsDrawingUntilItMustDrawAnew)
{
    OpenUsual();
    Add(2.0, 2.0);
    m_chart->SlctData(2.0, 2.0);
    support::Settle();
    ASSERT_EQ(Look().At(140, 180), kBlue);
    const_cast<CPlotCtrl::DataPoint*>([&] {
        Click(140, 100); // deselects
        Click(140, 60);  // selects, and tells which point it is
        return Told();
    }())
        ->x = 8.0;
    ASSERT_EQ(Look().At(140, 180), kBlue);
    m_chart->Invalidate();
    EXPECT_EQ(Look().At(140, 180), kBlue);
    m_chart->SetTickX(2.0);
    EXPECT_EQ(Look().At(140, 180), kWhite);
    EXPECT_EQ(Look().At(380, 180), kBlue);
}

TEST_F(PlotCtrl, DrawsAnewWhenItsSizeChanges)
{
    OpenUsual();
    Add(5.0, 5.0);
    ASSERT_EQ(Look().At(260, 120), kRed);
    m_chart->SetWindowPos(nullptr, 0, 0, 280, 152, SWP_NOMOVE | SWP_NOZORDER);
    const Shot shot = Look();
    EXPECT_EQ(shot.At(160, 70), kRed);
    EXPECT_EQ(shot.At(279, 75), kBlack) << "frame";
}

// Bad input

TEST_F(PlotCtrl, TakesAllCallsBeforeItHasAWindow)
{
    Add(2.0, 2.0);
    SetLimits(0.0, 0.0, 10.0, 10.0);
    m_chart->DrawTitle(true);
    m_chart->DrawTitle(false);
    m_chart->SlctData(2.0, 2.0);
    m_chart->SlctData(2.0, 2.0);
    m_chart->SetTitle(nullptr);
    m_chart->SetCaptionX(nullptr);
    m_chart->SetCaptionY(nullptr);
    m_chart->DrawGrid(false);
    Open(480, 252);
    const Shot shot = Look();
    EXPECT_EQ(shot.Count(CRect(130, 170, 150, 190), kRed) + shot.Count(CRect(130, 170, 150, 190), kBlue) > 0, true);
    EXPECT_EQ(Dark(shot, CRect(62, 238, 459, 250)), 0) << "no caption";
}

TEST_F(PlotCtrl, ShowsAPageWithoutLimits)
{
    Open(480, 252);
    const Shot shot = Look();
    EXPECT_EQ(shot.At(60, 100), kBlack);
    EXPECT_TRUE(shot.HasText("0.00", CRect(14, 214, 54, 226), kYFormat, kFont, kFace)) << "one tick at the minimum";
    EXPECT_EQ(shot.At(56, 120), kWhite);
}

TEST_F(PlotCtrl, ShowsNoTicksForLimitsInReverse)
{
    OpenUsual();
    SetLimits(10.0, 0.0, 5.0, 10.0);
    EXPECT_EQ(Look().At(60, 224), kWhite);
    SetLimits(0.0, 10.0, 5.0, 5.0);
    const Shot shot = Look();
    EXPECT_EQ(shot.At(60, 224), kWhite);
    EXPECT_EQ(Dark(shot, CRect(62, 238, 459, 250)), 0) << "and no captions";
    EXPECT_EQ(shot.At(60, 100), kBlack) << "but axes";
}

TEST_F(PlotCtrl, WorksInNegativeRanges)
{
    Open(480, 252);
    m_chart->DrawGrid(false);
    SetLimits(-30.0, -7.0, -10.0, -5.0);
    m_chart->SetTickX(5.0);
    Add(-20.0, -6.0);
    const Shot shot = Look();
    EXPECT_EQ(shot.At(260, 120), kRed);
    EXPECT_TRUE(shot.HasText("-25", CRect(110, 226, 210, 236), kXFormat, kFont, kFace));
}

TEST_F(PlotCtrl, LeavesOutPointsThatAreNoNumbers)
{
    OpenUsual();
    m_chart->DrawLine(true);
    m_chart->DrawEveryXTick(true);
    Add(1.0, 5.0);
    for (const double none : {std::nan(""), kInfinity, -kInfinity})
    {
        Add(none, 5.0);
        Add(5.0, none);
        Add(none, none);
    }
    Add(9.0, 5.0);
    const Shot shot = Look();
    EXPECT_EQ(shot.At(100, 120), kRed);
    EXPECT_EQ(shot.At(420, 120), kRed) << "the limits stay as they were";
    EXPECT_EQ(shot.At(260, 120), kWhite) << "the line has a gap";
    Click(420, 60);
    EXPECT_THAT(m_frame->m_notes, SizeIs(1));
}

TEST_F(PlotCtrl, ComesToAnEndWithAnyLimitsAndTicks)
{
    Open(480, 252);
    Add(5.0, 5.0);
    const double values[] = {0.0, -1.0, 1e300, -1e300, 1e-300, kInfinity, -kInfinity, std::nan("")};
    for (const double limit : values)
    {
        for (const double tick : {0.0, -1.0, std::nan(""), kInfinity})
        {
            SetLimits(0.0, 0.0, limit, limit);
            m_chart->SetTickX(tick);
            m_chart->SetTickY(tick);
            EXPECT_EQ(Look().At(0, 100), kBlack) << limit << ", " << tick;
            SetLimits(limit, limit, 10.0, 10.0);
            m_chart->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(200, 100));
            m_chart->UpdateWindow();
        }
    }
    SetLimits(0.0, 0.0, 1e9, 10.0);
    m_chart->SetTickX(1e-3);
    m_chart->SetTickY(1.0);
    EXPECT_EQ(Look().At(0, 100), kBlack) << "a million million ticks";
}

TEST_F(PlotCtrl, HasNoPageWithoutASize)
{
    OpenUsual();
    m_chart->DrawLine(true);
    Add(5.0, 5.0);
    Add(7.0, 7.0);
    for (const Size size : {Size{0, 0}, Size{480, 0}, Size{0, 252}, Size{1, 1}, Size{80, 52}, Size{70, 40}})
    {
        m_chart->SetWindowPos(nullptr, 0, 0, size.width, size.height, SWP_NOMOVE | SWP_NOZORDER);
        m_chart->SetTickX(1.0);
        m_chart->UpdateWindow();
        m_chart->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(60, 20));
        m_chart->SendMessage(WM_PAINT);
    }
    m_chart->SetWindowPos(nullptr, 0, 0, 480, 252, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(Look().At(300, 100), kRed) << "the line";
}

TEST_F(PlotCtrl, RegistersItsClassInTheApplication)
{
    WNDCLASSA windowClass{};
    ASSERT_TRUE(::GetClassInfoA(AfxGetInstanceHandle(), "PlotCtrl", &windowClass));
    EXPECT_EQ(windowClass.style, static_cast<UINT>(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW));
    EXPECT_EQ(windowClass.hbrBackground, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
}

} // namespace
