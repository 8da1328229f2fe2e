// MsgBoxLayoutTest.cpp - what stands on a message box and where

#include "tavkit/drawing/DetailsFold.h"
#include "tavkit/drawing/MsgBoxLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using tavkit::LayOutMsgBox;
using tavkit::MsgBoxControl;
using tavkit::MsgBoxControlKind;
using tavkit::MsgBoxLayout;
using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr SIZE kText{200, 13};
constexpr SIZE kIcon{32, 32};

MsgBoxLayout LayOut(unsigned style, SIZE text = kText) { return LayOutMsgBox({style, text, kIcon}); }

std::vector<MsgBoxControl> Buttons(const MsgBoxLayout& layout)
{
    std::vector<MsgBoxControl> buttons;
    for (const MsgBoxControl& control : layout.controls)
    {
        if (control.kind == MsgBoxControlKind::button)
        {
            buttons.push_back(control);
        }
    }
    return buttons;
}

const MsgBoxControl* Find(const MsgBoxLayout& layout, int id)
{
    for (const MsgBoxControl& control : layout.controls)
    {
        if (control.id == id)
        {
            return &control;
        }
    }
    return nullptr;
}

std::vector<int> Ids(const MsgBoxLayout& layout)
{
    std::vector<int> ids;
    for (const MsgBoxControl& button : Buttons(layout))
    {
        ids.push_back(button.id);
    }
    return ids;
}

std::vector<std::string> Labels(const MsgBoxLayout& layout)
{
    std::vector<std::string> labels;
    for (const MsgBoxControl& button : Buttons(layout))
    {
        labels.emplace_back(button.label);
    }
    return labels;
}

std::vector<LONG> Sides(const RECT& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

struct SetCase
{
    const char* name;
    unsigned set;
    std::vector<std::string> labels;
    std::vector<int> ids;
    int rowWidth;
    bool cancellable;
};

class MsgBoxSetTest : public testing::TestWithParam<SetCase>
{
};

TEST_P(MsgBoxSetTest, HasItsButtonsInOrder)
{
    const MsgBoxLayout layout = LayOut(GetParam().set);
    EXPECT_THAT(Labels(layout), ElementsAreArray(GetParam().labels));
    EXPECT_THAT(Ids(layout), ElementsAreArray(GetParam().ids));
    EXPECT_EQ(layout.cancellable, GetParam().cancellable);
}

TEST_P(MsgBoxSetTest, CentresItsRow)
{
    const MsgBoxLayout layout = LayOut(GetParam().set);
    EXPECT_EQ(Buttons(layout).front().rect.left, (layout.size.cx - GetParam().rowWidth) / 2);
}

TEST_P(MsgBoxSetTest, IsAtLeastThirtyTwoWiderThanItsRow)
{
    const MsgBoxLayout layout = LayOut(GetParam().set, {0, 0});
    EXPECT_EQ(layout.size.cx, std::max(GetParam().rowWidth + 32, 28));
}

INSTANTIATE_TEST_SUITE_P(
    Sets, MsgBoxSetTest,
    testing::Values(
        SetCase{"Ok", 0, {"OK"}, {1}, 70, false}, SetCase{"OkCancel", 1, {"OK", "Cancel"}, {1, 2}, 146, true},
        SetCase{"AbortRetryIgnore", 2, {"&Abort", "&Retry", "&Ignore"}, {3, 4, 5}, 222, false},
        SetCase{"YesNoCancel", 3, {"&Yes", "&No", "Cancel"}, {6, 7, 2}, 222, true},
        SetCase{"YesNo", 4, {"&Yes", "&No"}, {6, 7}, 146, false},
        SetCase{"RetryCancel", 5, {"&Retry", "Cancel"}, {4, 2}, 146, true},
        SetCase{
            "Files", 6, {"Keep existing", "Override existing", "Keep both", "Keep recent"}, {2, 3, 1, 4}, 358, true},
        SetCase{"ContinueAbort", 8, {"&Continue", "&Abort"}, {10, 3}, 146, false},
        SetCase{"Unknown7", 7, {"OK"}, {1}, -6, false}, SetCase{"Unknown15", 15, {"OK"}, {1}, -6, false}),
    [](const auto& info) { return info.param.name; });

TEST(MsgBoxLayout, PlainButtonsAreSeventyWideAndSeventySixApart)
{
    const auto buttons = Buttons(LayOut(3));
    for (size_t i = 0; i < buttons.size(); ++i)
    {
        EXPECT_EQ(buttons[i].rect.right - buttons[i].rect.left, 70);
        EXPECT_EQ(buttons[i].rect.bottom - buttons[i].rect.top, 23);
        EXPECT_EQ(buttons[i].rect.left - buttons[0].rect.left, static_cast<LONG>(76 * i));
    }
}

TEST(MsgBoxLayout, TheFileSetHasTwoWideButtonsFirst)
{
    const auto buttons = Buttons(LayOut(6));
    const LONG x = buttons[0].rect.left;
    std::vector<LONG> lefts;
    std::vector<LONG> widths;
    for (const auto& button : buttons)
    {
        lefts.push_back(button.rect.left - x);
        widths.push_back(button.rect.right - button.rect.left);
    }
    EXPECT_THAT(lefts, ElementsAre(0, 106, 212, 288));
    EXPECT_THAT(widths, ElementsAre(100, 100, 70, 70));
}

TEST(MsgBoxLayout, HelpStandsSeventySixBehindTheLastButton)
{
    const auto plain = Buttons(LayOut(1 | tavkit::kMsgBoxHelp));
    ASSERT_EQ(plain.size(), 3u);
    EXPECT_EQ(plain[2].id, 300);
    EXPECT_EQ(plain[2].rect.left, plain[1].rect.left + 76);
    const auto files = Buttons(LayOut(6 | tavkit::kMsgBoxHelp));
    ASSERT_EQ(files.size(), 5u);
    EXPECT_EQ(files[4].rect.left, files[3].rect.left + 76);
}

TEST(MsgBoxLayout, HelpCountsInTheRowsWidth)
{
    EXPECT_EQ(LayOut(1 | tavkit::kMsgBoxHelp, {0, 0}).size.cx, 76 * 3 - 6 + 32);
    EXPECT_EQ(LayOut(6 | tavkit::kMsgBoxHelp, {0, 0}).size.cx, 76 * 5 + 54 + 32);
}

TEST(MsgBoxLayout, TheTextIsPaddedAndStandsAtSixteen)
{
    const MsgBoxLayout layout = LayOut(0);
    EXPECT_THAT(Sides(Find(layout, 1001)->rect), ElementsAre(16, 16, 16 + 212, 16 + 18));
    EXPECT_EQ(layout.size.cx, 228);
}

TEST(MsgBoxLayout, TheRowStandsEightBelowTheTextAndTenAboveTheBottom)
{
    const MsgBoxLayout layout = LayOut(0);
    EXPECT_EQ(Buttons(layout)[0].rect.top, 34 + 8);
    EXPECT_EQ(layout.size.cy, 34 + 8 + 23 + 10);
    EXPECT_GE(layout.size.cy, 70);
}

TEST(MsgBoxLayout, AnEmptyTextMakesABoxOfSixtyTwo)
{
    EXPECT_EQ(LayOut(0, {0, 0}).size.cy, 62); // the least height of 70 is overruled by the row's bottom
}

TEST(MsgBoxLayout, AnIconMovesTheTextAndStandsBeforeItInTheTabOrder)
{
    const MsgBoxLayout layout = LayOut(0x40);
    ASSERT_EQ(layout.controls.front().id, 1000);
    EXPECT_THAT(Sides(layout.controls.front().rect), ElementsAre(8, 8, 42, 42));
    EXPECT_THAT(Sides(Find(layout, 1001)->rect), ElementsAre(56, 16, 268, 34));
    EXPECT_EQ(layout.size.cx, 268 + 8);
    EXPECT_EQ(Buttons(layout)[0].rect.top, 42 + 8); // the icon reaches lower than the text
}

TEST(MsgBoxLayout, ATextLowerThanTheIconSetsTheRow)
{
    EXPECT_EQ(Buttons(LayOut(0x40, {200, 100}))[0].rect.top, 16 + 105 + 8);
}

TEST(MsgBoxLayout, OnlyTheFourIconsCount)
{
    for (const unsigned icon : {0x10u, 0x20u, 0x30u, 0x40u})
    {
        EXPECT_NE(Find(LayOut(icon), 1000), nullptr) << icon;
    }
    for (const unsigned icon : {0x00u, 0x50u, 0x80u, 0xF0u})
    {
        EXPECT_EQ(Find(LayOut(icon), 1000), nullptr) << icon;
    }
}

TEST(MsgBoxLayout, TheCheckBoxStandsBelowTheRow)
{
    const MsgBoxLayout layout = LayOut(tavkit::kMsgBoxCheck);
    const LONG top = Buttons(layout)[0].rect.top;
    ASSERT_NE(Find(layout, 5555), nullptr);
    EXPECT_THAT(Sides(Find(layout, 5555)->rect), ElementsAre(17, top + 35, 137, top + 51));
    EXPECT_EQ(layout.size.cy, top + 59);
    EXPECT_EQ(layout.controls.back().id, 5555);
}

TEST(MsgBoxLayout, TheCheckBoxMakesANarrowBoxWideEnough)
{
    EXPECT_EQ(LayOut(tavkit::kMsgBoxCheck, {0, 0}).size.cx, 137);
}

struct DefaultCase
{
    const char* name;
    unsigned style;
    int focusId;
};

class MsgBoxDefaultTest : public testing::TestWithParam<DefaultCase>
{
};

TEST_P(MsgBoxDefaultTest, MarksExactlyOneButton)
{
    const MsgBoxLayout layout = LayOut(GetParam().style);
    EXPECT_EQ(layout.focusId, GetParam().focusId);
    int marked = 0;
    for (const MsgBoxControl& button : Buttons(layout))
    {
        marked += button.isDefault ? 1 : 0;
        EXPECT_EQ(button.isDefault, button.id == GetParam().focusId);
    }
    EXPECT_EQ(marked, 1);
}

INSTANTIATE_TEST_SUITE_P(Styles, MsgBoxDefaultTest,
                         testing::Values(DefaultCase{"FirstByItself", 2, 3}, DefaultCase{"Second", 2 | 0x100, 4},
                                         DefaultCase{"Third", 2 | 0x200, 5}, DefaultCase{"Fourth", 6 | 0x300, 4},
                                         DefaultCase{"ThirdOfTwoIsTheFirst", 4 | 0x200, 6},
                                         DefaultCase{"AnUnknownNumberIsTheFirst", 2 | 0x400, 3},
                                         DefaultCase{"HelpCounts", 1 | 0x200 | 0x4000, 300},
                                         DefaultCase{"SecondOfAnUnknownSetIsTheFirst", 7 | 0x100, 1}),
                         [](const auto& info) { return info.param.name; });

TEST(ToDialogUnits, TruncatesPositionsAndSizesApart)
{
    const tavkit::DialogRect rect = tavkit::ToDialogUnits({17, 35, 137, 51}, {8, 16});
    EXPECT_EQ(rect.x, 8);
    EXPECT_EQ(rect.y, 17);
    EXPECT_EQ(rect.cx, 60);
    EXPECT_EQ(rect.cy, 8);
}

TEST(ToDialogUnits, CutsWhatAShortCannotHold)
{
    EXPECT_EQ(tavkit::ToDialogUnits({0, 0, 0, 100'000'000}, {8, 16}).cy, 32767);
}

TEST(FoldedHeight, TakesTheDetailsAndOneOfThreeGapsAway)
{
    EXPECT_EQ(tavkit::FoldedHeight(302, 89, 156), 302 - 156 - 19);
    EXPECT_EQ(tavkit::FoldedHeight(100, 60, 41), 100 - 41); // a gap of -1 / 3 is none
}

} // namespace
