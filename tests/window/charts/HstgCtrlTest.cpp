// HstgCtrlTest.cpp - the histogram: its page at several sizes, its clicks, and what it makes of bad input

#include "ChartFixture.h"

#include <limits>
#include <vector>

namespace
{

using namespace chart_test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 200);
constexpr int kFontSize = 70;
constexpr const char* kFace = "Arial";
// The chart's limits, from the sides of the window.
constexpr int kLeft = 35;
constexpr int kRight = 15;
constexpr int kTop = 20;
constexpr int kBottom = 20;
constexpr ChartParent::Note kNothing{0, 0};

class HstgCtrl : public ChartTest<CHstgCtrl>
{
protected:
    void SetUp() override
    {
        ChartTest::SetUp();
        m_chart->DrawFreq(false);
    }

    void Show(std::vector<int> const& counts, double lowest = 0.0, double highest = 100.0)
    {
        m_hstg = std::make_unique<DHstg>(lowest, highest, counts);
        m_chart->SetHstg(m_hstg.get());
    }
    /// Left side of a slot, for slots of whole pixels.
    static int SlotLeft(int slot, int slotWidth) { return kLeft + slot * slotWidth; }

    std::unique_ptr<DHstg> m_hstg;
};

// The page

TEST_F(HstgCtrl, WithoutAHistogramIsAFramedPageWithAxesAndPercentages)
{
    Open(300, 200);
    const Shot shot = Look();
    for (const POINT corner : {POINT{0, 0}, POINT{299, 0}, POINT{0, 199}, POINT{299, 199}, POINT{150, 0}, POINT{0, 100},
                               POINT{299, 100}, POINT{150, 199}})
    {
        EXPECT_EQ(shot.At(corner.x, corner.y), kBlack) << corner.x << ", " << corner.y;
    }
    EXPECT_EQ(shot.At(1, 1), kWhite);
    EXPECT_EQ(shot.At(298, 198), kWhite);
    for (int i = 0; i <= 5; ++i)
    {
        const int y = 180 - 32 * i;
        EXPECT_TRUE(shot.HasText((std::to_string(20 * i) + "%").c_str(), CRect(10, y - 5, 29, y + 5), DT_CENTER,
                                 kFontSize, kFace))
            << i;
    }
    EXPECT_EQ(shot.Count(kRed), 0);
    EXPECT_EQ(shot.Count(CRect(37, 1, 299, 179), kWhite), 262 * 178) << "no bars and no sum";
    EXPECT_EQ(shot.Count(CRect(36, 182, 299, 199), kWhite), 263 * 17) << "no ticks and no classes";
}

TEST_F(HstgCtrl, HasAxesOfTwoPixelsWithAnOvershootAndTicksOfFive)
{
    Open(300, 200);
    const Shot shot = Look();
    EXPECT_EQ(shot.At(35, 100), kBlack);
    EXPECT_EQ(shot.At(37, 100), kWhite);
    EXPECT_EQ(shot.At(33, 101), kWhite);
    EXPECT_EQ(shot.At(35, 15), kBlack);
    EXPECT_EQ(shot.At(35, 12), kWhite);
    EXPECT_EQ(shot.At(150, 180), kBlack);
    EXPECT_EQ(shot.At(150, 178), kWhite);
    EXPECT_EQ(shot.At(150, 182), kWhite);
    EXPECT_EQ(shot.At(284, 180), kBlack);
    EXPECT_EQ(shot.At(288, 180), kWhite);
    for (int i = 0; i <= 5; ++i)
    {
        const int y = 180 - 32 * i;
        EXPECT_EQ(shot.At(31, y), kBlack) << i;
        EXPECT_EQ(shot.At(30, y), kWhite) << i;
    }
}

struct Size
{
    int width;
    int height;
};

class HstgCtrlSizes : public HstgCtrl, public testing::WithParamInterface<Size>
{
};

TEST_P(HstgCtrlSizes, HasABarForEachSlotWithABlackOutline)
{
    const std::vector<int> counts{10, 0, 40, 20, 30};
    m_chart->SetMaxPerc(0.5);
    Open(GetParam().width, GetParam().height);
    Show(counts);
    const Shot shot = Look();
    const int right = GetParam().width - kRight;
    const int bottom = GetParam().height - kBottom;
    const double width = static_cast<double>(right - kLeft) / 5;
    for (int i = 0; i < 5; ++i)
    {
        const int barLeft = static_cast<int>(kLeft + i * width);
        const int barRight = static_cast<int>(kLeft + (i + 1) * width);
        const int top = bottom - static_cast<int>((bottom - kTop) * counts[static_cast<std::size_t>(i)] / (100 * 0.5));
        const int middle = (barLeft + barRight) / 2;
        if (counts[static_cast<std::size_t>(i)] == 0)
        {
            EXPECT_EQ(shot.At(middle, bottom - 3), kWhite) << i;
            continue;
        }
        EXPECT_EQ(shot.At(middle, top - 1), kWhite) << i;
        EXPECT_EQ(shot.At(middle, top), kBlack) << i;
        EXPECT_EQ(shot.At(middle, top + 1), kRed) << i;
        EXPECT_EQ(shot.At(middle, bottom - 3), kRed) << i;
        EXPECT_EQ(shot.At(barLeft, bottom - 3), kBlack) << i;
        EXPECT_EQ(shot.At(barRight - 1, bottom - 3), kBlack) << i;
        EXPECT_EQ(shot.At(barRight - 2, bottom - 3), kRed) << i;
    }
}

TEST_P(HstgCtrlSizes, HasATickAtEachBorderOfTheSlots)
{
    Open(GetParam().width, GetParam().height);
    m_chart->DrawTextA(false);
    Show({10, 0, 40, 20, 30});
    const Shot shot = Look();
    const int bottom = GetParam().height - kBottom;
    const double width = static_cast<double>(GetParam().width - kRight - kLeft) / 5;
    for (int j = 0; j <= 5; ++j)
    {
        const int x = static_cast<int>(kLeft + j * width);
        EXPECT_EQ(shot.At(x, bottom + 4), kBlack) << j;
        EXPECT_EQ(shot.At(x, bottom + 5), kWhite) << j;
        EXPECT_EQ(shot.At(x + 1, bottom + 4), kWhite) << j;
    }
}

INSTANTIATE_TEST_SUITE_P(Table, HstgCtrlSizes,
                         testing::Values(Size{300, 200}, Size{421, 283}, Size{150, 90}, Size{553, 127}),
                         [](const auto& info) {
                             return std::to_string(info.param.width) + "x" + std::to_string(info.param.height);
                         });

TEST_F(HstgCtrl, LabelsEverySlotUnderItsMiddleAndOneMoreBehindTheLast)
{
    Open(450, 200); // slots of 80 pixels
    Show({1, 2, 3, 4, 5}, 0.0, 2.5);
    const Shot shot = Look();
    const char* const labels[] = {"0.0", "0.5", "1.0", "1.5", "2.0"};
    for (int j = 0; j < 5; ++j)
    {
        const int left = SlotLeft(j, 80);
        EXPECT_TRUE(shot.HasText(labels[j], CRect(left - 40, 186, left + 120, 205), DT_CENTER, kFontSize, kFace)) << j;
    }
}

TEST_F(HstgCtrl, LabelsOnlyTheEndsWhenTextIsOff)
{
    Open(450, 200);
    m_chart->DrawTextA(false);
    Show({1, 2, 3, 4, 5}, 0.0, 2.5);
    const Shot shot = Look();
    EXPECT_TRUE(shot.HasText("0.0", CRect(23, 186, 47, 205), DT_CENTER, kFontSize, kFace));
    EXPECT_TRUE(shot.HasText("2.5", CRect(423, 186, 447, 205), DT_CENTER, kFontSize, kFace));
    EXPECT_EQ(shot.Count(CRect(60, 186, 410, 198), kWhite), 350 * 12);
}

TEST_F(HstgCtrl, ShowsCountsAboveTheBarsAndTheSumInTheCorner)
{
    Open(450, 200);
    m_chart->DrawFreq(true);
    Show({25, 50, 0, 25, 0});
    const Shot shot = Look();
    EXPECT_TRUE(shot.HasText("25", CRect(35, 128, 115, 137), DT_CENTER, kFontSize, kFace));
    EXPECT_TRUE(shot.HasText("50", CRect(115, 88, 195, 97), DT_CENTER, kFontSize, kFace));
    EXPECT_TRUE(shot.HasText("0", CRect(195, 168, 275, 177), DT_CENTER, kFontSize, kFace));
    EXPECT_TRUE(shot.HasText("Sum: 100", CRect(375, 20, 435, 32), DT_RIGHT, kFontSize, kFace));
}

TEST_F(HstgCtrl, ShowsNoCountsWhenTheyAreOff)
{
    Open(450, 200);
    Show({25, 50, 0, 25, 0});
    const Shot shot = Look();
    EXPECT_EQ(shot.Count(CRect(40, 120, 110, 139), kWhite), 70 * 19);
    EXPECT_TRUE(shot.HasText("Sum: 100", CRect(375, 20, 435, 32), DT_RIGHT, kFontSize, kFace));
}

TEST_F(HstgCtrl, LetsABarRunOutOfTheTopOfASmallScale)
{
    Open(300, 200);
    m_chart->SetMaxPerc(0.05);
    Show({10, 90});
    const Shot shot = Look();
    EXPECT_EQ(shot.At(100, 19), kRed);
    EXPECT_EQ(shot.At(100, 1), kRed);
    EXPECT_TRUE(shot.HasText("5%", CRect(10, 15, 29, 25), DT_CENTER, kFontSize, kFace));
}

TEST_F(HstgCtrl, ScalesItselfToThePeak)
{
    Open(300, 200);
    m_chart->SetAutoScale(true);
    Show({12, 8, 10, 10, 10, 10, 10, 10, 10, 10}); // a peak of 12 %
    const Shot shot = Look();
    for (int i = 0; i <= 5; ++i)
    {
        const int y = 180 - 32 * i;
        EXPECT_TRUE(shot.HasText((std::to_string(3 * i) + "%").c_str(), CRect(10, y - 5, 29, y + 5), DT_CENTER,
                                 kFontSize, kFace))
            << i;
    }
    EXPECT_EQ(shot.At(47, 52), kBlack) << "12 of 15 per cent of 160 pixels";
    EXPECT_EQ(shot.At(47, 51), kWhite);
}

// When it draws

TEST_F(HstgCtrl, CopiesItsDrawingUntilItMustDrawAnew)
{
    Open(450, 200);
    m_chart->DrawTextA(false);
    Show({25, 50, 0, 25, 0}, 0.0, 2.5);
    const Shot before = Look();
    ASSERT_TRUE(before.HasText("2.5", CRect(423, 186, 447, 205), DT_CENTER, kFontSize, kFace));
    m_hstg->m_dMax = 3.5;
    m_chart->Invalidate();
    EXPECT_TRUE(Look().HasText("2.5", CRect(423, 186, 447, 205), DT_CENTER, kFontSize, kFace));
    m_chart->Refresh();
    EXPECT_TRUE(Look().HasText("3.5", CRect(423, 186, 447, 205), DT_CENTER, kFontSize, kFace));
}

TEST_F(HstgCtrl, ShowsSwitchesAtTheNextDrawing)
{
    Open(450, 200);
    Show({12, 8, 10, 10, 10, 10, 10, 10, 10, 10});
    const auto scale = [&](const char* label) {
        return Look().HasText(label, CRect(10, 15, 29, 25), DT_CENTER, kFontSize, kFace);
    };
    ASSERT_TRUE(scale("100%"));
    m_chart->SetAutoScale(true);
    m_chart->DrawFreq(true);
    m_chart->DrawTextA(false);
    EXPECT_FALSE(::GetUpdateRect(m_chart->m_hWnd, nullptr, FALSE)) << "none of them repaints";
    EXPECT_TRUE(scale("100%"));
    m_chart->Refresh();
    EXPECT_TRUE(scale("15%"));
}

TEST_F(HstgCtrl, ShowsAnotherScaleAtOnce)
{
    Open(300, 200);
    Show({50, 50});
    ASSERT_EQ(Look().At(100, 101), kRed);
    m_chart->SetMaxPerc(0.5);
    EXPECT_EQ(Look().At(100, 21), kRed);
}

TEST_F(HstgCtrl, DrawsAnewWhenItsSizeChanges)
{
    Open(300, 200);
    Show({100});
    ASSERT_EQ(Look().At(284, 100), kBlack);
    m_chart->SetWindowPos(nullptr, 0, 0, 200, 120, SWP_NOMOVE | SWP_NOZORDER);
    const Shot shot = Look();
    EXPECT_EQ(shot.At(199, 60), kBlack) << "frame";
    EXPECT_EQ(shot.At(184, 60), kBlack) << "outline";
    EXPECT_EQ(shot.At(183, 60), kRed);
    EXPECT_EQ(shot.At(100, 20), kBlack);
    EXPECT_EQ(shot.At(100, 19), kWhite);
}

TEST_F(HstgCtrl, ForgetsAHistogramThatIsTakenAway)
{
    Open(300, 200);
    Show({100});
    ASSERT_GT(Look().Count(kRed), 0);
    m_chart->SetHstg(nullptr);
    EXPECT_EQ(Look().Count(kRed), 0);
}

// Clicks

TEST_F(HstgCtrl, SelectsTheSlotUnderAClickAndTellsTheParent)
{
    Open(450, 200);
    Show({25, 50, 0, 25, 0});
    EXPECT_EQ(m_chart->GetSlctSlot(), -1);
    Click(150, 150);
    EXPECT_EQ(m_chart->GetSlctSlot(), 1);
    EXPECT_THAT(m_frame->m_notes, ElementsAre(kNothing));
    const Shot shot = Look();
    EXPECT_EQ(shot.At(150, 150), kBlue);
    EXPECT_EQ(shot.At(115, 150), kBlue) << "over the outline at the left";
    EXPECT_EQ(shot.At(150, 100), kBlue) << "and at the top";
    EXPECT_EQ(shot.At(150, 99), kWhite);
    EXPECT_EQ(shot.At(100, 150), kRed);
}

TEST_F(HstgCtrl, TakesTheSelectionAwayAtASecondClick)
{
    Open(450, 200);
    Show({25, 50, 0, 25, 0});
    Click(150, 150);
    Click(170, 150);
    EXPECT_EQ(m_chart->GetSlctSlot(), -1);
    EXPECT_THAT(m_frame->m_notes, ElementsAre(kNothing, kNothing));
    EXPECT_EQ(Look().At(150, 150), kRed);
}

TEST_F(HstgCtrl, TakesADoubleClickForOneClick)
{
    Open(450, 200);
    Show({25, 50, 0, 25, 0});
    support::DoubleClick(support::ScreenPoint(m_chart->m_hWnd, 150, 150));
    support::Settle();
    EXPECT_EQ(m_chart->GetSlctSlot(), 1);
    EXPECT_THAT(m_frame->m_notes, SizeIs(1));
}

TEST_F(HstgCtrl, SelectsAnotherSlotInsteadAtAClickOnIt)
{
    Open(450, 200);
    Show({25, 50, 0, 25, 0});
    Click(150, 150);
    Click(300, 150);
    EXPECT_EQ(m_chart->GetSlctSlot(), 3);
    EXPECT_EQ(Look().At(150, 150), kRed);
}

TEST_F(HstgCtrl, SelectsWhateverTheHeightOfTheClick)
{
    Open(450, 200);
    Show({25, 50, 0, 25, 0});
    Click(230, 3);
    EXPECT_EQ(m_chart->GetSlctSlot(), 2) << "above a slot without a count";
    Click(330, 196);
    EXPECT_EQ(m_chart->GetSlctSlot(), 3) << "on the labels";
}

TEST_F(HstgCtrl, CountsBothSidesOfTheChartAsInside)
{
    Open(450, 200);
    Show({25, 50, 0, 25, 0});
    Click(35, 100);
    EXPECT_EQ(m_chart->GetSlctSlot(), 0);
    Click(435, 100);
    EXPECT_EQ(m_chart->GetSlctSlot(), 4);
}

TEST_F(HstgCtrl, TakesTheSelectionAwayAtAClickBesideTheChart)
{
    Open(450, 200);
    Show({25, 50, 0, 25, 0});
    Click(34, 100);
    EXPECT_EQ(m_chart->GetSlctSlot(), -1);
    EXPECT_THAT(m_frame->m_notes, SizeIs(1)) << "told, though nothing changed";
    Click(150, 100);
    ASSERT_EQ(m_chart->GetSlctSlot(), 1);
    Click(20, 100);
    EXPECT_EQ(m_chart->GetSlctSlot(), -1);
    Click(160, 100);
    ASSERT_EQ(m_chart->GetSlctSlot(), 1);
    Click(436, 100);
    EXPECT_EQ(m_chart->GetSlctSlot(), -1);
    EXPECT_THAT(m_frame->m_notes, SizeIs(5));
}

TEST_F(HstgCtrl, KeepsTheSelectionWhenTheHistogramChanges)
{
    Open(450, 200);
    Show({25, 50, 0, 25, 0});
    Click(150, 150);
    const std::unique_ptr<DHstg> old = std::move(m_hstg);
    Show({100});
    EXPECT_EQ(m_chart->GetSlctSlot(), 1);
    EXPECT_EQ(Look().Count(kBlue), 0);
}

// Bad input

TEST_F(HstgCtrl, TakesAClickWithoutAHistogram)
{
    Open(300, 200);
    Click(150, 100);
    EXPECT_EQ(m_chart->GetSlctSlot(), -1);
    EXPECT_THAT(m_frame->m_notes, ElementsAre(kNothing));
}

TEST_F(HstgCtrl, TakesAllCallsBeforeItHasAWindow)
{
    Show({50, 50});
    m_chart->SetMaxPerc(0.5);
    m_chart->SetAutoScale(false);
    m_chart->Refresh();
    EXPECT_EQ(m_chart->GetSlctSlot(), -1);
    Open(300, 200);
    EXPECT_EQ(Look().At(100, 21), kRed);
}

TEST_F(HstgCtrl, ShowsAHistogramOfOneSlot)
{
    Open(300, 200);
    Show({7}, 5.0, 5.0);
    const Shot shot = Look();
    EXPECT_EQ(shot.At(160, 100), kRed);
    EXPECT_TRUE(shot.HasText("5.0", CRect(-90, 186, 410, 205), DT_CENTER, kFontSize, kFace));
    Click(160, 100);
    EXPECT_EQ(m_chart->GetSlctSlot(), 0);
}

TEST_F(HstgCtrl, ShowsFlatBarsForCountsOfZero)
{
    Open(300, 200);
    m_chart->SetAutoScale(true);
    Show({0, 0, 0});
    const Shot shot = Look();
    EXPECT_EQ(shot.Count(kRed), 0);
    EXPECT_TRUE(shot.HasText("100%", CRect(10, 15, 29, 25), DT_CENTER, kFontSize, kFace));
    EXPECT_TRUE(shot.HasText("Sum: 0", CRect(225, 20, 285, 32), DT_RIGHT, kFontSize, kFace));
    Click(160, 100);
    EXPECT_EQ(m_chart->GetSlctSlot(), 1);
    EXPECT_EQ(Look().Count(kBlue), 0);
}

TEST_F(HstgCtrl, ShowsAHistogramWithoutSlots)
{
    Open(300, 200);
    m_chart->SetAutoScale(true);
    Show({});
    EXPECT_EQ(Look().Count(kRed), 0);
    Click(160, 100);
    EXPECT_EQ(m_chart->GetSlctSlot(), -1);
}

TEST_F(HstgCtrl, TakesAnyScale)
{
    Open(300, 200);
    m_chart->DrawFreq(true);
    Show({50, 50});
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double scale : {0.0, -1.0, 1e-300, 1e300, kInfinity, -kInfinity, std::nan("")})
    {
        m_chart->SetMaxPerc(scale);
        EXPECT_EQ(Look().At(0, 100), kBlack) << scale;
    }
}

TEST_F(HstgCtrl, HasNoPageWithoutASize)
{
    Open(300, 200);
    Show({50, 50});
    for (const Size size : {Size{0, 0}, Size{300, 0}, Size{0, 200}, Size{1, 1}, Size{40, 30}})
    {
        m_chart->SetWindowPos(nullptr, 0, 0, size.width, size.height, SWP_NOMOVE | SWP_NOZORDER);
        m_chart->Refresh();
        m_chart->UpdateWindow();
        m_chart->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(35, 10));
        m_chart->SendMessage(WM_PAINT);
    }
    m_chart->SetWindowPos(nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(Look().At(100, 150), kRed);
}

TEST_F(HstgCtrl, MayBeDestroyedByItsParentWhenAClickIsTold)
{
    Open(300, 200);
    Show({50, 50});
    m_frame->m_onNote = [&](ChartParent::Note const&) { m_chart.reset(); };
    support::Click(support::ScreenPoint(m_chart->m_hWnd, 100, 100));
    EXPECT_TRUE(support::PumpUntil([&] { return !m_chart; }));
    EXPECT_THAT(m_frame->m_notes, SizeIs(1));
}

TEST_F(HstgCtrl, TellsNobodyWithoutAParent)
{
    ASSERT_TRUE(
        m_chart->CreateEx(0, CHstgCtrl::ClassName, "", WS_POPUP | WS_VISIBLE, 50, 50, 300, 200, nullptr, nullptr));
    Show({50, 50});
    Click(100, 100);
    EXPECT_EQ(m_chart->GetSlctSlot(), 0);
    EXPECT_THAT(m_frame->m_notes, IsEmpty());
}

// The window class

TEST_F(HstgCtrl, RegistersItsClassInTheApplication)
{
    WNDCLASSA windowClass{};
    ASSERT_TRUE(::GetClassInfoA(AfxGetInstanceHandle(), "HstgCtrl", &windowClass));
    EXPECT_EQ(windowClass.style, static_cast<UINT>(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW));
    EXPECT_EQ(windowClass.hbrBackground, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    EXPECT_EQ(windowClass.cbClsExtra, 0);
    EXPECT_EQ(windowClass.cbWndExtra, 0);
    EXPECT_EQ(windowClass.hIcon, nullptr);
    EXPECT_EQ(windowClass.hCursor, nullptr) << "there is no file arrow_r.cur";
    const CHstgCtrl second; // finds the class
}

TEST_F(HstgCtrl, PostsAMessageOfTheApplication) { EXPECT_EQ(WM_CHART_SLCT, static_cast<UINT>(WM_APP + 101)); }

} // namespace
