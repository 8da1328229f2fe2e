// ColumnWidthsTest.cpp - the fill column's width, widths remembered by caption

#include "tavkit/lists/ColumnWidths.h"

#include <gtest/gtest.h>

namespace
{

using tavkit::ColumnWidths;
using tavkit::FillWidth;

TEST(FillWidth, IsWhatTheOtherColumnsLeave) { EXPECT_EQ(FillWidth(400, 80, 150), 250); }

TEST(FillWidth, NothingToFillWhenTheContentsNeedAllOfIt)
{
    EXPECT_EQ(FillWidth(400, 250, 150), std::nullopt) << "just as wide";
    EXPECT_EQ(FillWidth(400, 251, 150), std::nullopt);
    EXPECT_EQ(FillWidth(400, 249, 150), 250) << "one pixel to spare";
}

TEST(FillWidth, OthersWiderThanTheListLeaveNothing)
{
    EXPECT_EQ(FillWidth(400, 0, 500), std::nullopt);
    EXPECT_EQ(FillWidth(400, 0, 10'000LL * 2'000'000), std::nullopt);
}

TEST(FillWidth, HasSixteenBits) { EXPECT_EQ(FillWidth(0x10000 + 300, 10, 0), 300); }

TEST(ColumnWidths, NothingIsFoundAtFirst)
{
    const ColumnWidths widths;
    EXPECT_TRUE(widths.IsEmpty());
    EXPECT_EQ(widths.Find(0, "name"), std::nullopt);
}

TEST(ColumnWidths, AreFoundByCaptionWhereverTheColumnStands)
{
    ColumnWidths widths;
    widths.Save(0, "name", 120);
    widths.Save(1, "size", 60);
    EXPECT_FALSE(widths.IsEmpty());
    EXPECT_EQ(widths.Find(1, "name"), 120);
    EXPECT_EQ(widths.Find(0, "size"), 60);
}

TEST(ColumnWidths, CaptionsAreComparedByteByByte)
{
    ColumnWidths widths;
    widths.Save(0, "name", 120);
    EXPECT_EQ(widths.Find(0, "Name"), std::nullopt);
    EXPECT_EQ(widths.Find(0, "name "), std::nullopt);
}

TEST(ColumnWidths, TheLaterOfTwoColumnsWithOneCaptionWins)
{
    ColumnWidths widths;
    widths.Save(0, "x", 50);
    widths.Save(1, "x", 70);
    EXPECT_EQ(widths.Find(0, "x"), 70);
}

TEST(ColumnWidths, AColumnWithoutACaptionGoesByItsIndex)
{
    ColumnWidths widths;
    widths.Save(12, "", 90);
    EXPECT_EQ(widths.Find(12, ""), 90);
    EXPECT_EQ(widths.Find(13, ""), std::nullopt);
    EXPECT_EQ(widths.Find(0, "12"), 90) << "a caption of the same digits is the same key";
}

TEST(ColumnWidths, AWidthOfNothingIsRememberedButNotFound)
{
    ColumnWidths widths;
    widths.Save(0, "hidden", 0);
    EXPECT_FALSE(widths.IsEmpty());
    EXPECT_EQ(widths.Find(0, "hidden"), std::nullopt);
}

TEST(ColumnWidths, AreForgottenAtOnce)
{
    ColumnWidths widths;
    widths.Save(0, "name", 120);
    widths.Clear();
    EXPECT_TRUE(widths.IsEmpty());
    EXPECT_EQ(widths.Find(0, "name"), std::nullopt);
}

} // namespace
