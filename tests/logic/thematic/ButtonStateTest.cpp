// ButtonStateTest.cpp - how the buttons of the thematic list answer to the mouse, and their shapes

#include "tavkit/thematic/RoundButton.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using namespace tavkit::thematic;

constexpr int kBoth = stateHot | statePressed;

struct StateCase
{
    const char* name;
    int state;
    EMouseEvnt evnt;
    bool inside;
    bool available;
    int expected;
};

class ButtonState : public testing::TestWithParam<StateCase>
{
};

TEST_P(ButtonState, FollowsTheMouse)
{
    const StateCase& c = GetParam();
    EXPECT_EQ(NextButtonState(c.state, c.evnt, c.inside, c.available), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, ButtonState,
    testing::Values(StateCase{"LightsUpUnderTheMouse", 0, mouseMove, true, true, stateHot},
                    StateCase{"StaysLitUnderTheMouse", stateHot, mouseMove, true, true, stateHot},
                    StateCase{"GoesOutWhenTheMouseMovesAway", stateHot, mouseMove, false, true, 0},
                    StateCase{"GoesOutThoughItCantBeClicked", stateHot, mouseMove, false, false, 0},
                    StateCase{"StaysPressedWhenTheMouseMovesAway", kBoth, mouseMove, false, true, statePressed},
                    StateCase{"LightsUpAgainWhenTheMouseComesBack", statePressed, mouseMove, true, true, kBoth},
                    StateCase{"DoesNotLightUpUnlessItCanBeClicked", 0, mouseMove, true, false, 0},
                    StateCase{"KeepsItsLightOverAButtonThatCantBeClicked", stateHot, mouseMove, true, false, stateHot},
                    StateCase{"IsPressedByTheLeftButton", stateHot, mouseLDown, true, true, kBoth},
                    StateCase{"IsPressedWithoutAHoverBefore", 0, mouseLDown, true, true, statePressed},
                    StateCase{"IsNotPressedUnlessItCanBeClicked", stateHot, mouseLDown, true, false, stateHot},
                    StateCase{"IsNotPressedFromBeside", stateHot, mouseLDown, false, true, stateHot},
                    StateCase{"IsReleasedOverIt", kBoth, mouseLUp, true, true, 0},
                    StateCase{"IsReleasedBeside", statePressed, mouseLUp, false, true, 0},
                    StateCase{"IsReleasedThoughItCantBeClicked", kBoth, mouseLUp, true, false, 0},
                    StateCase{"ForgetsAllWhenTheMouseLeaves", kBoth, mouseLeave, true, true, 0},
                    StateCase{"ForgetsAllWhenTheMouseLeavesFromBeside", kBoth, mouseLeave, false, true, 0},
                    StateCase{"IgnoresAnUnknownEvent", kBoth, static_cast<EMouseEvnt>(4), true, true, kBoth},
                    StateCase{"IgnoresEventNumberZero", 0, static_cast<EMouseEvnt>(0), true, true, 0}),
    [](auto const& info) { return std::string(info.param.name); });

TEST(ButtonStateNumbers, AreFixed)
{
    EXPECT_EQ(mouseMove, 1);
    EXPECT_EQ(mouseLDown, 2);
    EXPECT_EQ(mouseLUp, 3);
    EXPECT_EQ(mouseLeave, 5);
    EXPECT_EQ(stateHot, 1);
    EXPECT_EQ(statePressed, 2);
    EXPECT_EQ(idAdd, 101U);
    EXPECT_EQ(idRmv, 102U);
    EXPECT_EQ(idUp, 103U);
    EXPECT_EQ(idDown, 104U);
}

TEST(ButtonImage, IsThePressedOneAboveTheHotOne)
{
    EXPECT_EQ(ButtonImage(3, 0), 3);
    EXPECT_EQ(ButtonImage(3, stateHot), 4);
    EXPECT_EQ(ButtonImage(3, statePressed), 5);
    EXPECT_EQ(ButtonImage(3, kBoth), 5);
}

TEST(ThematicContains, LeavesOutTheRightAndTheBottomSide)
{
    constexpr RECT kRect{10, 20, 30, 40};
    EXPECT_TRUE(Contains(kRect, {10, 20}));
    EXPECT_TRUE(Contains(kRect, {29, 39}));
    EXPECT_FALSE(Contains(kRect, {30, 39}));
    EXPECT_FALSE(Contains(kRect, {29, 40}));
    EXPECT_FALSE(Contains(kRect, {9, 20}));
    EXPECT_FALSE(Contains(kRect, {10, 19}));
    EXPECT_FALSE(Contains({10, 20, 10, 40}, {10, 20})) << "empty";
    EXPECT_FALSE(Contains({30, 40, 10, 20}, {20, 30})) << "turned inside out";
}

void ExpectRect(RECT const& rect, RECT const& expected)
{
    EXPECT_EQ(rect.left, expected.left);
    EXPECT_EQ(rect.top, expected.top);
    EXPECT_EQ(rect.right, expected.right);
    EXPECT_EQ(rect.bottom, expected.bottom);
}

void ExpectStroke(Stroke const& stroke, POINT from, POINT to)
{
    EXPECT_EQ(stroke.from.x, from.x);
    EXPECT_EQ(stroke.from.y, from.y);
    EXPECT_EQ(stroke.to.x, to.x);
    EXPECT_EQ(stroke.to.y, to.y);
}

constexpr RECT kPlace{11, 6, 29, 24};

TEST(RoundButtonShape, IsACircleWithACrossInItsMiddle)
{
    const RoundButton shape = ShapeRoundButton(kPlace, 0);
    EXPECT_FALSE(shape.shadowed);
    EXPECT_FALSE(shape.lit);
    ExpectRect(shape.face, kPlace);
    EXPECT_EQ(shape.corner, 17);
    ExpectStroke(shape.minus[0], {16, 15}, {24, 15});
    ExpectStroke(shape.minus[1], {16, 14}, {24, 14});
    ExpectStroke(shape.upright[0], {19, 11}, {19, 19});
    ExpectStroke(shape.upright[1], {20, 11}, {20, 19});
}

TEST(RoundButtonShape, HasAShadowToTheLowerRightWhileTheMouseIsOverIt)
{
    const RoundButton shape = ShapeRoundButton(kPlace, stateHot);
    EXPECT_TRUE(shape.shadowed);
    EXPECT_TRUE(shape.lit);
    ExpectRect(shape.disc, {12, 7, 30, 25});
    ExpectRect(shape.face, kPlace);
    ExpectStroke(shape.minus[0], {16, 15}, {24, 15});
}

TEST(RoundButtonShape, MovesOffItsShadowWhenPressed)
{
    const RoundButton shape = ShapeRoundButton(kPlace, kBoth);
    EXPECT_TRUE(shape.shadowed);
    EXPECT_TRUE(shape.lit);
    ExpectRect(shape.disc, kPlace);
    ExpectRect(shape.face, {12, 7, 30, 25});
    ExpectStroke(shape.minus[0], {17, 16}, {25, 16});
    ExpectStroke(shape.upright[1], {21, 12}, {21, 20});
}

TEST(RoundButtonShape, PressedWithoutHoverIsLitInItsPlaceWithoutAShadow)
{
    const RoundButton shape = ShapeRoundButton(kPlace, statePressed);
    EXPECT_FALSE(shape.shadowed);
    EXPECT_TRUE(shape.lit);
    ExpectRect(shape.face, kPlace);
}

TEST(RoundButtonShape, DividesTowardsZeroLeftOfTheOrigin)
{
    const RoundButton shape = ShapeRoundButton({-10, -10, 5, 5}, 0);
    ExpectStroke(shape.minus[0], {-5, -2}, {1, -2}); // (-10 + 5) / 2 = -2, 15 / 4 = 3
}

TEST(RoundButtonShape, OfAnEmptyRectangleHasNoStrokes)
{
    const RoundButton shape = ShapeRoundButton({}, kBoth);
    ExpectStroke(shape.minus[0], {1, 1}, {1, 1});
    EXPECT_EQ(shape.corner, -1);
}

} // namespace
