// PlotCtrlSlctTest.cpp - the plot: selecting points by mouse and by the host

#include "PlotFixture.h"

namespace
{

using namespace chart_test;
using testing::IsEmpty;
using testing::SizeIs;

constexpr COLORREF kRed = RGB(230, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

TEST_F(PlotCtrl, SelectsThePointNearestInXAndTellsTheParent)
{
    OpenUsual();
    Add(2.0, 2.0, "two");
    Add(4.0, 9.0, "four");
    Click(222, 215); // 2 pixels beside the second point, far below it
    ASSERT_THAT(m_frame->m_notes, SizeIs(1));
    EXPECT_EQ(m_frame->m_notes[0].lParam, 0);
    EXPECT_EQ(Told()->x, 4.0);
    EXPECT_EQ(Told()->y, 9.0);
    EXPECT_STREQ(Told()->strLabelX, "four");
    const Shot shot = Look();
    EXPECT_EQ(shot.At(220, 40), kBlue);
    EXPECT_EQ(shot.At(220 - 4, 40), kRed) << "a larger disc, with a red outline";
    EXPECT_EQ(shot.At(220 - 5, 40), kWhite);
    EXPECT_EQ(shot.At(140, 180), kRed) << "the other one";
}

TEST_F(PlotCtrl, TakesTheSelectionAwayAtASecondClickAndTellsNobody)
{
    OpenUsual();
    Add(2.0, 2.0);
    Click(140, 150);
    ASSERT_THAT(m_frame->m_notes, SizeIs(1));
    Click(140, 100);
    EXPECT_THAT(m_frame->m_notes, SizeIs(1));
    EXPECT_EQ(Look().Count(kBlue), 0);
}

TEST_F(PlotCtrl, ReachesFivePixelsToEitherSide)
{
    OpenUsual();
    Add(2.0, 2.0);
    Click(147, 100);
    EXPECT_THAT(m_frame->m_notes, IsEmpty());
    Click(133, 60);
    EXPECT_THAT(m_frame->m_notes, IsEmpty());
    Click(145, 140);
    EXPECT_THAT(m_frame->m_notes, SizeIs(1));
    Click(160, 100);
    EXPECT_EQ(Look().Count(kBlue), 0) << "a click on nothing takes the selection away";
    EXPECT_THAT(m_frame->m_notes, SizeIs(1));
}

TEST_F(PlotCtrl, SelectsTheFirstOfPointsWithOneX)
{
    OpenUsual();
    Add(2.0, 2.0, "first");
    Add(2.0, 8.0, "second");
    Click(140, 60); // on the second
    ASSERT_THAT(m_frame->m_notes, SizeIs(1));
    EXPECT_STREQ(Told()->strLabelX, "first");
}

TEST_F(PlotCtrl, CountsClicksInsideThePlotOnly)
{
    OpenUsual();
    Add(0.0, 5.0);
    Add(10.0, 5.0);
    for (const POINT at : {POINT{59, 100}, POINT{461, 100}, POINT{60, 19}, POINT{60, 221}})
    {
        Click(at.x, at.y);
    }
    EXPECT_THAT(m_frame->m_notes, IsEmpty());
    Click(60, 20);
    EXPECT_THAT(m_frame->m_notes, SizeIs(1));
    Click(460, 220);
    EXPECT_THAT(m_frame->m_notes, SizeIs(2));
    Click(30, 100);
    EXPECT_GT(Look().Count(kBlue), 0) << "a click outside leaves the selection alone";
}

TEST_F(PlotCtrl, SelectsNothingWithoutPoints)
{
    OpenUsual();
    Click(200, 100);
    EXPECT_THAT(m_frame->m_notes, IsEmpty());
    EXPECT_EQ(Look().Count(kBlue), 0);
}

TEST_F(PlotCtrl, SelectsForTheHostWithoutTellingIt)
{
    OpenUsual();
    Add(2.0, 2.0);
    Add(4.0, 4.0);
    m_chart->SlctData(3.9, -77.0);
    support::Settle();
    EXPECT_THAT(m_frame->m_notes, IsEmpty());
    EXPECT_EQ(Look().At(220, 140), kBlue);
    m_chart->SlctData(4.0, 4.0);
    EXPECT_EQ(Look().At(220, 140), kRed) << "the same one again";
}

TEST_F(PlotCtrl, ForgetsItsPointsWhenCleared)
{
    OpenUsual();
    Add(2.0, 2.0);
    m_chart->SlctData(2.0, 2.0);
    ASSERT_EQ(Look().At(140, 180), kBlue);
    m_chart->Clear();
    Shot shot = Look();
    EXPECT_EQ(shot.Count(kBlue) + shot.Count(kRed), 0);
    Click(140, 100);
    EXPECT_THAT(m_frame->m_notes, IsEmpty());
    Add(6.0, 2.0); // often where the old one lay
    shot = Look();
    EXPECT_EQ(shot.Count(kBlue), 0) << "a new point is not selected";
    EXPECT_EQ(shot.At(300, 180), kRed);
}

TEST_F(PlotCtrl, MayBeDestroyedByItsParentWhenAClickIsTold)
{
    OpenUsual();
    Add(2.0, 2.0);
    m_frame->m_onNote = [&](ChartParent::Note const&) { m_chart.reset(); };
    support::Click(support::ScreenPoint(m_chart->m_hWnd, 140, 100));
    EXPECT_TRUE(support::PumpUntil([&] { return !m_chart; }));
}

} // namespace
