// ListLogicTest.cpp - what the flexible list decides without a window: keys, their order, moves and places of cells

#include "tavkit/lists/CellPlaces.h"
#include "tavkit/lists/EditMoves.h"
#include "tavkit/lists/ScanDouble.h"
#include "tavkit/lists/SortKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace
{

using tavkit::Cell;
using tavkit::CellAfter;
using tavkit::EditMove;
using tavkit::ScanDouble;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct NumberRow
{
    char const* text;
    std::optional<double> value;
};

void PrintTo(NumberRow const& row, std::ostream* out) { *out << (row.text ? row.text : "(null)"); }

class ScannedNumber : public testing::TestWithParam<NumberRow>
{
};

TEST_P(ScannedNumber, IsBlanksSignDigitsPointExponentAndNothingElse)
{
    EXPECT_EQ(ScanDouble(GetParam().text), GetParam().value);
    EXPECT_EQ(tavkit::ToDouble(GetParam().text), GetParam().value.value_or(0.0));
}

INSTANTIATE_TEST_SUITE_P(Texts, ScannedNumber,
                         testing::Values(NumberRow{"0", 0.0}, NumberRow{"12", 12.0}, NumberRow{"-7", -7.0},
                                         NumberRow{"+7", 7.0}, NumberRow{" \t\r\n\v\f3", 3.0}, NumberRow{"1.5", 1.5},
                                         NumberRow{".5", 0.5}, NumberRow{"5.", 5.0}, NumberRow{"-.25", -0.25},
                                         NumberRow{"1e3", 1000.0}, NumberRow{"1E+3", 1000.0}, NumberRow{"25e-1", 2.5},
                                         NumberRow{"0.1", 0.1},
                                         NumberRow{"1.7976931348623157e308", 1.7976931348623157e308}));

INSTANTIATE_TEST_SUITE_P(EndsWhereTheNumberEnds, ScannedNumber,
                         testing::Values(NumberRow{"12 cm", 12.0}, NumberRow{"12,5", 12.0}, NumberRow{"1.2.3", 1.2},
                                         NumberRow{"1e", 1.0}, NumberRow{"1e+", 1.0}, NumberRow{"1ex", 1.0},
                                         NumberRow{"1e 3", 1.0}, NumberRow{"1d5", 1.0}, NumberRow{"3%", 3.0},
                                         NumberRow{"0x10", 0.0}, NumberRow{"1-2", 1.0}));

INSTANTIATE_TEST_SUITE_P(NoNumber, ScannedNumber,
                         testing::Values(NumberRow{nullptr, {}}, NumberRow{"", {}}, NumberRow{" ", {}},
                                         NumberRow{"abc", {}}, NumberRow{"nano", {}}, NumberRow{"nan", {}},
                                         NumberRow{"inf", {}}, NumberRow{"-infinity", {}}, NumberRow{".", {}},
                                         NumberRow{"-", {}}, NumberRow{"+-1", {}}, NumberRow{"- 1", {}},
                                         NumberRow{"e5", {}}, NumberRow{".e5", {}},
                                         NumberRow{"\xA0"
                                                   "5",
                                                   {}}));

INSTANTIATE_TEST_SUITE_P(BeyondTheRange, ScannedNumber,
                         testing::Values(NumberRow{"1e999", kInfinity}, NumberRow{"-1e999", -kInfinity},
                                         NumberRow{"1e99999999999999999999", kInfinity}, NumberRow{"1e-999", 0.0},
                                         NumberRow{"1e-99999999999999999999", 0.0}, NumberRow{"0e999", 0.0},
                                         NumberRow{"0.0001e312", 1e308}, NumberRow{"0.001e400", kInfinity}));

TEST(ScannedNumber, MayHaveAnyNumberOfDigits)
{
    std::string const many(10'000, '9');
    EXPECT_EQ(ScanDouble(many.c_str()), kInfinity);
    EXPECT_EQ(ScanDouble(("0." + std::string(10'000, '0') + "1").c_str()), 0.0);
    EXPECT_EQ(ScanDouble((std::string(10'000, '0') + "5").c_str()), 5.0);
    EXPECT_EQ(ScanDouble(("1" + std::string(500, '0') + "e-500").c_str()), 1.0);
}

TEST(ScannedNumber, KeepsTheSignOfZero)
{
    EXPECT_TRUE(std::signbit(*ScanDouble("-0")));
    EXPECT_TRUE(std::signbit(*ScanDouble("-1e-999")));
}

TEST(SortedNumbers, AnswerOneOrZeroAndNeverLess)
{
    EXPECT_EQ(tavkit::CompareNumbers(2, 1, true), 1);
    EXPECT_EQ(tavkit::CompareNumbers(1, 1, true), 1);
    EXPECT_EQ(tavkit::CompareNumbers(1, 2, true), 0);
    EXPECT_EQ(tavkit::CompareNumbers(2, 1, false), 0);
    EXPECT_EQ(tavkit::CompareNumbers(1, 1, false), 0);
    EXPECT_EQ(tavkit::CompareNumbers(1, 2, false), 1);
}

TEST(SortedNumbers, AnswerZeroForWhatIsNoNumber)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (bool const ascending : {true, false})
    {
        EXPECT_EQ(tavkit::CompareNumbers(nan, 1, ascending), 0);
        EXPECT_EQ(tavkit::CompareNumbers(1, nan, ascending), 0);
        EXPECT_EQ(tavkit::CompareNumbers(nan, nan, ascending), 0);
    }
}

TEST(SortedNumbers, PutCellsWithoutANumberBehindAll)
{
    EXPECT_EQ(tavkit::kNoNumber, 1.7976931348623157e308);
    EXPECT_EQ(tavkit::CompareNumbers(tavkit::kNoNumber, 1e300, true), 1);
}

TEST(SortedTexts, AnswerOneOrZeroAndNeverLess)
{
    EXPECT_EQ(tavkit::CompareTexts("b", "a", true), 1);
    EXPECT_EQ(tavkit::CompareTexts("a", "a", true), 1);
    EXPECT_EQ(tavkit::CompareTexts("a", "b", true), 0);
    EXPECT_EQ(tavkit::CompareTexts("b", "a", false), 0);
    EXPECT_EQ(tavkit::CompareTexts("a", "a", false), 0);
    EXPECT_EQ(tavkit::CompareTexts("a", "b", false), 1);
}

TEST(SortedTexts, AreComparedAsUnsignedBytesWithCase)
{
    EXPECT_EQ(tavkit::CompareTexts("a", "B", true), 1);
    EXPECT_EQ(tavkit::CompareTexts("\xE4", "z", true), 1);
    EXPECT_EQ(tavkit::CompareTexts("ab", "a", true), 1) << "the end comes before any character";
    EXPECT_EQ(tavkit::CompareTexts("", "a", true), 0);
}

TEST(TextBlock, HasRoomFor256BytesEachWhenThereIsMemory)
{
    std::size_t asked = 0;
    tavkit::TextBlock const texts(3, [&](std::size_t bytes) {
        asked = bytes;
        return std::make_unique<char[]>(bytes);
    });
    ASSERT_TRUE(texts);
    EXPECT_EQ(asked, 3U * 256U);
    EXPECT_EQ(texts.Room().size(), 256U);
}

TEST(TextBlock, HalvesTheRoomUntilTheMemorySuffices)
{
    std::vector<std::size_t> asked;
    tavkit::TextBlock const texts(10, [&](std::size_t bytes) {
        asked.push_back(bytes);
        return bytes > 400 ? nullptr : std::make_unique<char[]>(bytes);
    });
    ASSERT_TRUE(texts);
    EXPECT_THAT(asked, testing::ElementsAre(2560, 1280, 640, 320));
    EXPECT_EQ(texts.Room().size(), 32U);
}

TEST(TextBlock, IsNoneWhenNothingCanBeHad)
{
    int asked = 0;
    tavkit::TextBlock const texts(10, [&](std::size_t) {
        ++asked;
        return std::unique_ptr<char[]>();
    });
    EXPECT_FALSE(texts);
    EXPECT_EQ(asked, 9) << "256 down to 1";
}

TEST(TextBlock, NeverAsksForMoreThanASizeCanSay)
{
    std::set<std::size_t> asked;
    std::size_t const count = std::numeric_limits<std::size_t>::max() / 100;
    tavkit::TextBlock const texts(count, [&](std::size_t bytes) {
        asked.insert(bytes / count);
        return std::unique_ptr<char[]>();
    });
    EXPECT_FALSE(texts);
    EXPECT_EQ(*asked.rbegin(), 64U);
}

TEST(TextBlock, KeepsTextsBehindOneAnotherAndHasRoomForTheLongest)
{
    tavkit::TextBlock texts(3, [](std::size_t bytes) { return std::make_unique<char[]>(bytes); });
    std::vector<char const*> kept;
    for (std::string const& text : {std::string(255, 'a'), std::string(), std::string(255, 'c')})
    {
        ASSERT_LE(text.size() + 1, texts.Room().size());
        std::ranges::copy(text, texts.Room().begin());
        texts.Room()[text.size()] = '\0';
        kept.push_back(texts.Keep());
    }
    EXPECT_EQ(kept[0], std::string(255, 'a'));
    EXPECT_STREQ(kept[1], "");
    EXPECT_EQ(kept[2], std::string(255, 'c'));
    EXPECT_EQ(kept[2] - kept[0], 257);
}

TEST(EditMoves, GoToTheRowAboveAndBelow)
{
    EXPECT_EQ(CellAfter(EditMove::RowAbove, {3, 1}, 9, 4), (Cell{2, 1}));
    EXPECT_EQ(CellAfter(EditMove::RowAbove, {0, 1}, 9, 4), std::nullopt);
    EXPECT_EQ(CellAfter(EditMove::RowBelow, {3, 1}, 9, 4), (Cell{4, 1}));
    EXPECT_EQ(CellAfter(EditMove::RowBelow, {8, 1}, 9, 4), (Cell{9, 1})) << "a row that the list hasn't";
}

TEST(EditMoves, GoToTheFirstAndTheLastRow)
{
    EXPECT_EQ(CellAfter(EditMove::FirstRow, {5, 2}, 9, 4), (Cell{0, 2}));
    EXPECT_EQ(CellAfter(EditMove::LastRow, {5, 2}, 9, 4), (Cell{8, 2}));
    EXPECT_EQ(CellAfter(EditMove::LastRow, {0, 0}, 0, 4), (Cell{-1, 0}));
}

TEST(EditMoves, GoByPagesAndStopAtTheEnds)
{
    EXPECT_EQ(CellAfter(EditMove::PageUp, {6, 1}, 9, 4), (Cell{2, 1}));
    EXPECT_EQ(CellAfter(EditMove::PageUp, {3, 1}, 9, 4), (Cell{0, 1}));
    EXPECT_EQ(CellAfter(EditMove::PageDown, {2, 1}, 9, 4), (Cell{6, 1}));
    EXPECT_EQ(CellAfter(EditMove::PageDown, {5, 1}, 9, 4), (Cell{8, 1}));
}

TEST(EditMoves, GoRightUpToColumnTwoWhateverTheWidth)
{
    EXPECT_EQ(CellAfter(EditMove::NextCell, {3, 0}, 9, 4), (Cell{3, 1}));
    EXPECT_EQ(CellAfter(EditMove::NextCell, {3, 1}, 9, 4), (Cell{3, 2}));
    EXPECT_EQ(CellAfter(EditMove::NextCell, {3, 2}, 9, 4), (Cell{4, 0}));
    EXPECT_EQ(CellAfter(EditMove::NextCell, {3, 4}, 9, 4), (Cell{4, 0}));
}

TEST(EditMoves, GoLeftAndBackToColumnTwoOfTheRowAbove)
{
    EXPECT_EQ(CellAfter(EditMove::PreviousCell, {3, 4}, 9, 4), (Cell{3, 3}));
    EXPECT_EQ(CellAfter(EditMove::PreviousCell, {3, 1}, 9, 4), (Cell{3, 0}));
    EXPECT_EQ(CellAfter(EditMove::PreviousCell, {3, 0}, 9, 4), (Cell{2, 2}));
    EXPECT_EQ(CellAfter(EditMove::PreviousCell, {0, 0}, 9, 4), std::nullopt);
}

// The next editable cell of five columns.
std::optional<Cell> Find(Cell from, int rows, std::set<int> const& editable)
{
    return tavkit::FindEditable(from, rows, 5, [&](int col) { return editable.contains(col); });
}

TEST(EditableCell, IsFoundInTheRowFromTheColumnOn)
{
    EXPECT_EQ(Find({2, 1}, 9, {1, 3}), (Cell{2, 1}));
    EXPECT_EQ(Find({2, 2}, 9, {1, 3}), (Cell{2, 3}));
    EXPECT_EQ(Find({2, 0}, 9, {4}), (Cell{2, 4}));
    EXPECT_EQ(Find({2, -1}, 9, {0}), (Cell{2, 0}));
}

TEST(EditableCell, IsFoundInTheNextRowFromColumnZeroOn)
{
    EXPECT_EQ(Find({2, 4}, 9, {1, 3}), (Cell{3, 1}));
    EXPECT_EQ(Find({2, 77}, 9, {4}), (Cell{3, 4}));
}

TEST(EditableCell, IsNoneWhenTheRowsRunOut)
{
    EXPECT_EQ(Find({8, 4}, 9, {1, 3}), std::nullopt);
    EXPECT_EQ(Find({9, 0}, 9, {1, 3}), std::nullopt);
    EXPECT_EQ(Find({0, 0}, 0, {0}), std::nullopt);
    EXPECT_EQ(Find({0, 0}, std::numeric_limits<int>::max(), {}), std::nullopt) << "and at once";
}

struct Place
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;

    bool operator==(Place const&) const = default;
};

std::optional<Place> PlaceOf(RECT const& text, int left, int width)
{
    auto const rect = tavkit::TextPlace(text, left, width);
    return rect ? std::optional(Place{rect->left, rect->top, rect->right, rect->bottom}) : std::nullopt;
}

TEST(TextPlace, IsTheColumnLessOnePixelOnEachSide)
{
    EXPECT_EQ(PlaceOf({0, 20, 300, 36}, 100, 50), (Place{101, 21, 149, 35}));
}

TEST(TextPlace, IsClippedToTheRoomForTexts)
{
    EXPECT_EQ(PlaceOf({30, 20, 300, 36}, 0, 50), (Place{31, 21, 49, 35}));
    EXPECT_EQ(PlaceOf({30, 20, 120, 36}, 100, 50), (Place{101, 21, 119, 35}));
}

TEST(TextPlace, IsNoneWhereNothingCanBeSeen)
{
    EXPECT_EQ(PlaceOf({60, 20, 300, 36}, 0, 50), std::nullopt) << "indent and image cover the column";
    EXPECT_EQ(PlaceOf({0, 20, 300, 36}, 100, 2), std::nullopt);
    EXPECT_EQ(PlaceOf({0, 20, 300, 22}, 100, 50), std::nullopt);
    EXPECT_EQ(PlaceOf({0, 20, 300, 36}, 100, 0), std::nullopt);
}

TEST(EditBox, GrowsToItsTextAndFivePixels)
{
    EXPECT_EQ(tavkit::GrownRight(10, 60, 45, 300), 60) << "fits exactly";
    EXPECT_EQ(tavkit::GrownRight(10, 60, 46, 300), 61);
    EXPECT_EQ(tavkit::GrownRight(10, 60, 200, 300), 215);
}

TEST(EditBox, GrowsUpToTheListsRightEdgeAndNeverShrinks)
{
    EXPECT_EQ(tavkit::GrownRight(10, 60, 500, 300), 300);
    EXPECT_EQ(tavkit::GrownRight(10, 60, 1, 300), 60);
    EXPECT_EQ(tavkit::GrownRight(10, 400, 500, 300), 400) << "a column that reaches past the edge";
}

} // namespace
