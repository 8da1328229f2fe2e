// TreeDragTest.cpp - the decisions of a drag in a tree

#include "tavkit/trees/TreeDrag.h"

#include <gtest/gtest.h>

namespace
{

using namespace tavkit;

TEST(TreeDrag, BeginsOnlyWhileAButtonIsHeld)
{
    EXPECT_TRUE(MayBeginDrag(DragKind::none, true, false));
    EXPECT_TRUE(MayBeginDrag(DragKind::none, false, true));
    EXPECT_TRUE(MayBeginDrag(DragKind::none, true, true));
    EXPECT_FALSE(MayBeginDrag(DragKind::none, false, false));
}

TEST(TreeDrag, DoesNotBeginWhileOneRuns)
{
    EXPECT_FALSE(MayBeginDrag(DragKind::left, true, false));
    EXPECT_FALSE(MayBeginDrag(DragKind::right, false, true));
}

TEST(TreeDrag, IsEndedOnlyByTheButtonThatBeganIt)
{
    EXPECT_TRUE(EndsDrag(DragKind::left, DragButton::left));
    EXPECT_FALSE(EndsDrag(DragKind::left, DragButton::right));
    EXPECT_TRUE(EndsDrag(DragKind::right, DragButton::right));
    EXPECT_FALSE(EndsDrag(DragKind::right, DragButton::left));
    EXPECT_FALSE(EndsDrag(DragKind::none, DragButton::left));
    EXPECT_FALSE(EndsDrag(DragKind::none, DragButton::right));
}

TEST(TreeDrag, KeepsFromTheControlOnlyTheReleaseThatEndsARightDrag)
{
    EXPECT_FALSE(ReleaseGoesOn(DragKind::right, DragButton::right));
    EXPECT_TRUE(ReleaseGoesOn(DragKind::right, DragButton::left));
    EXPECT_TRUE(ReleaseGoesOn(DragKind::left, DragButton::left));
    EXPECT_TRUE(ReleaseGoesOn(DragKind::left, DragButton::right));
    EXPECT_TRUE(ReleaseGoesOn(DragKind::none, DragButton::left));
    EXPECT_TRUE(ReleaseGoesOn(DragKind::none, DragButton::right));
}

struct ScrollCase
{
    const char* name;
    LONG y;
    ScrollState bar;
    DragScroll expected;
};

class TreeDragScroll : public testing::TestWithParam<ScrollCase>
{
};

TEST_P(TreeDragScroll, FollowsThePointerOutsideTheClientArea)
{
    constexpr LONG kBottom = 200;
    EXPECT_EQ(ScrollOfDrag(GetParam().y, kBottom, GetParam().bar), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(All, TreeDragScroll,
                         testing::Values(ScrollCase{"Inside", 100, {5, 0, 10}, DragScroll::none},
                                         ScrollCase{"OnTheFirstRow", 0, {5, 0, 10}, DragScroll::none},
                                         ScrollCase{"Above", -1, {5, 0, 10}, DragScroll::up},
                                         ScrollCase{"FarAbove", -5000, {1, 0, 10}, DragScroll::up},
                                         ScrollCase{"AboveAtTheStart", -1, {0, 0, 10}, DragScroll::none},
                                         ScrollCase{"AboveAtAStartThatIsNotZero", -1, {3, 3, 10}, DragScroll::none},
                                         ScrollCase{"OnTheEdge", 200, {5, 0, 10}, DragScroll::none},
                                         ScrollCase{"Below", 201, {5, 0, 10}, DragScroll::down},
                                         ScrollCase{"FarBelow", 9000, {9, 0, 10}, DragScroll::down},
                                         ScrollCase{"BelowAtTheEnd", 201, {10, 0, 10}, DragScroll::none},
                                         ScrollCase{"BelowWithoutABar", 201, {0, 0, 0}, DragScroll::none}),
                         [](auto const& info) { return std::string(info.param.name); });

} // namespace
