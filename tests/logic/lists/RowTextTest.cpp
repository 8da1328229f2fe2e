// RowTextTest.cpp - cells of a row, sizes, looks

#include "tavkit/lists/RowStyle.h"
#include "tavkit/lists/RowText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace
{

using tavkit::KByteText;
using tavkit::RowCells;
using tavkit::RowLook;
using tavkit::RowLookOf;
using testing::ElementsAre;

std::vector<std::string> Cells(std::string_view text)
{
    std::vector<std::string> cells;
    for (RowCells walk(text); walk.Next();)
    {
        cells.emplace_back(text.substr(walk.GetStart(), walk.GetLength()));
    }
    return cells;
}

TEST(RowCells, AreSeparatedByBars) { EXPECT_THAT(Cells("a|bc|d"), ElementsAre("a", "bc", "d")); }

TEST(RowCells, ATextWithoutABarIsOneCell) { EXPECT_THAT(Cells("alone"), ElementsAre("alone")); }

TEST(RowCells, AnEmptyTextIsOneEmptyCell) { EXPECT_THAT(Cells(""), ElementsAre("")); }

TEST(RowCells, ABarAtTheEndOpensNoFurtherCell)
{
    EXPECT_THAT(Cells("a|"), ElementsAre("a"));
    EXPECT_THAT(Cells("|"), ElementsAre(""));
    EXPECT_THAT(Cells("a||"), ElementsAre("a", ""));
}

TEST(RowCells, NeighbouringBarsHoldAnEmptyCell) { EXPECT_THAT(Cells("a||b"), ElementsAre("a", "", "b")); }

TEST(RowCells, ABarInFrontMakesAnEmptyFirstCell) { EXPECT_THAT(Cells("|b"), ElementsAre("", "b")); }

TEST(KByteText, BelowAMegabyteCountsKilobytes)
{
    EXPECT_EQ(KByteText(0), "0 KB");
    EXPECT_EQ(KByteText(1), "1 KB");
    EXPECT_EQ(KByteText(1023), "1023 KB");
    EXPECT_EQ(KByteText(-5), "-5 KB");
    EXPECT_EQ(KByteText(std::numeric_limits<int>::min()), "-2147483648 KB");
}

TEST(KByteText, FromAMegabyteOnHasTwoDecimals)
{
    EXPECT_EQ(KByteText(1024), "1.00 MB");
    EXPECT_EQ(KByteText(1536), "1.50 MB");
    EXPECT_EQ(KByteText(1659), "1.62 MB");
    EXPECT_EQ(KByteText(std::numeric_limits<int>::max()), "2097152.00 MB");
}

// The window colours of a system that has others than black on white.
constexpr COLORREF kText = 0x00112233;
constexpr COLORREF kWindow = 0x00FFEEDD;

struct LookCase
{
    unsigned int style;
    RowLook look;
};

class RowLookTest : public testing::TestWithParam<LookCase>
{
};

TEST_P(RowLookTest, FollowsTheBits) { EXPECT_EQ(RowLookOf(GetParam().style, kText, kWindow), GetParam().look); }

constexpr COLORREF kShade = 0x00D7E6E6;
constexpr COLORREF kLightShade = 0x00E1EBEB;
constexpr COLORREF kGray = 0x00808080;

INSTANTIATE_TEST_SUITE_P(All, RowLookTest,
                         testing::Values(LookCase{0, {kText, kWindow, false}}, LookCase{1, {kText, kShade, false}},
                                         LookCase{2, {kText, kWindow, true}}, LookCase{3, {kText, kShade, true}},
                                         LookCase{4, {kGray, kWindow, false}}, LookCase{5, {kGray, kLightShade, false}},
                                         LookCase{6, {kGray, kWindow, true}}, LookCase{7, {kGray, kLightShade, true}},
                                         LookCase{8, {kText, kWindow, false}}));

} // namespace
