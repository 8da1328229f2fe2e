#include "CountedTest.h"

#include <afxcmn.h>

using support::TestFrame;

namespace
{
using SliderTest = CountedTest;

constexpr UINT kId = 46;
constexpr DWORD kSlider = WS_CHILD | WS_VISIBLE | TBS_HORZ | TBS_AUTOTICKS;
const CRect kPlace(10, 10, 210, 50);

TEST_F(SliderTest, NoSliderIsMadeWithoutAParent)
{
    CSliderCtrl slider;
    EXPECT_FALSE(slider.Create(kSlider, kPlace, nullptr, kId));
}

TEST_F(SliderTest, TheRangeHoldsNumbersOfThirtyTwoBits)
{
    TestFrame frame;
    CSliderCtrl slider;
    ASSERT_TRUE(slider.Create(kSlider & ~TBS_AUTOTICKS, kPlace, &frame, kId));
    slider.SetRange(-100000, 200000, TRUE);
    EXPECT_EQ(slider.GetRangeMin(), -100000);
    EXPECT_EQ(slider.GetRangeMax(), 200000);
}

TEST_F(SliderTest, ThePositionStaysInsideTheRange)
{
    TestFrame frame;
    CSliderCtrl slider;
    ASSERT_TRUE(slider.Create(kSlider, kPlace, &frame, kId));
    slider.SetRange(10, 20);
    slider.SetPos(15);
    EXPECT_EQ(slider.GetPos(), 15);
    slider.SetPos(99);
    EXPECT_EQ(slider.GetPos(), 20);
    slider.SetPos(-5);
    EXPECT_EQ(slider.GetPos(), 10);
}

TEST_F(SliderTest, StepsAnswerWithThoseBefore)
{
    TestFrame frame;
    CSliderCtrl slider;
    ASSERT_TRUE(slider.Create(kSlider, kPlace, &frame, kId));
    slider.SetRange(0, 100);
    slider.SetLineSize(3);
    EXPECT_EQ(slider.SetLineSize(4), 3);
    slider.SetPageSize(30);
    EXPECT_EQ(slider.SetPageSize(25), 30);
    slider.SetPos(50);
    slider.SendMessage(WM_KEYDOWN, VK_RIGHT);
    EXPECT_EQ(slider.GetPos(), 54);
    slider.SendMessage(WM_KEYDOWN, VK_NEXT);
    EXPECT_EQ(slider.GetPos(), 79);
}

TEST_F(SliderTest, TheTickFrequencySetsTheNumberOfTicks)
{
    TestFrame frame;
    CSliderCtrl slider;
    ASSERT_TRUE(slider.Create(kSlider, kPlace, &frame, kId));
    slider.SetRange(0, 100);
    slider.SetTicFreq(10);
    EXPECT_EQ(slider.SendMessage(TBM_GETNUMTICS), 11);
}

TEST_F(SliderTest, TheToolTipsAreFoundWithTheirStyleOnly)
{
    TestFrame frame;
    CSliderCtrl bare;
    CSliderCtrl tipped;
    ASSERT_TRUE(bare.Create(kSlider, kPlace, &frame, kId));
    ASSERT_TRUE(tipped.Create(kSlider | TBS_TOOLTIPS, CRect(10, 60, 210, 100), &frame, kId + 1));
    EXPECT_EQ(bare.GetToolTips(), nullptr);
    ASSERT_NE(tipped.GetToolTips(), nullptr);
    EXPECT_TRUE(::IsWindow(tipped.GetToolTips()->m_hWnd));
}
} // namespace
