// ListExtrasLogicTest.cpp - what the additions to the lists decide without a window

#include "tavkit/lists/ColumnRecord.h"
#include "tavkit/lists/DelimitedText.h"
#include "tavkit/lists/TypedFind.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using tavkit::ColumnPlace;
using tavkit::ColumnsFromText;
using tavkit::ColumnsToText;
using tavkit::FindPlace;
using testing::ElementsAre;

std::string Join(char separator, std::vector<std::vector<std::string>> const& rows)
{
    tavkit::DelimitedText text(separator);
    for (auto const& row : rows)
    {
        for (std::string const& cell : row)
        {
            text.AddCell(cell);
        }
        text.EndRow();
    }
    return text.Text();
}

TEST(DelimitedText, SeparatesCellsAndEndsRows)
{
    EXPECT_EQ(Join('\t', {{"a", "b"}, {"c", "d"}}), "a\tb\r\nc\td\r\n");
    EXPECT_EQ(Join(',', {{"a", "b"}, {"c", "d"}}), "a,b\r\nc,d\r\n");
    EXPECT_EQ(Join(',', {}), "");
}

TEST(DelimitedText, KeepsEmptyCells) { EXPECT_EQ(Join(',', {{"", "", ""}, {""}}), ",,\r\n\r\n"); }

TEST(DelimitedText, QuotesWhatWouldBeTakenForSomethingElse)
{
    EXPECT_EQ(Join(',', {{"1,5", "a\tb"}}), "\"1,5\",a\tb\r\n");
    EXPECT_EQ(Join('\t', {{"1,5", "a\tb"}}), "1,5\t\"a\tb\"\r\n");
    EXPECT_EQ(Join(',', {{"say \"no\"", "two\r\nlines", "\n"}}), "\"say \"\"no\"\"\",\"two\r\nlines\",\"\n\"\r\n");
}

TEST(TypedText, GrowsUntilAPause)
{
    tavkit::TypedText typed;
    EXPECT_TRUE(typed.IsOver(5));
    typed.Add('a', 100);
    typed.Add('b', 100 + tavkit::kTypingPause);
    EXPECT_EQ(typed.Get(), "ab");
    EXPECT_FALSE(typed.IsOver(100 + 2 * tavkit::kTypingPause));
    EXPECT_TRUE(typed.IsOver(101 + 2 * tavkit::kTypingPause));
    typed.Add('c', 101 + 2 * tavkit::kTypingPause);
    EXPECT_EQ(typed.Get(), "c");
}

TEST(TypedText, LivesThroughTheWrapOfTheClock)
{
    tavkit::TypedText typed;
    typed.Add('a', 0xFFFFFFF0U);
    typed.Add('b', 0x10U);
    EXPECT_EQ(typed.Get(), "ab");
}

TEST(TypedText, KnowsOneCharacterTypedSeveralTimes)
{
    tavkit::TypedText typed;
    EXPECT_FALSE(typed.IsOneCharacter());
    typed.Add('a', 0);
    EXPECT_FALSE(typed.IsOneCharacter());
    typed.Add('a', 0);
    EXPECT_TRUE(typed.IsOneCharacter());
    typed.Add('b', 0);
    EXPECT_FALSE(typed.IsOneCharacter());
}

TEST(FoundText, StandsAtTheBeginOrAnywhere)
{
    EXPECT_TRUE(tavkit::IsFoundIn("nucleus", "nuc", FindPlace::Begin));
    EXPECT_FALSE(tavkit::IsFoundIn("nucleus", "cle", FindPlace::Begin));
    EXPECT_TRUE(tavkit::IsFoundIn("nucleus", "cle", FindPlace::Anywhere));
    EXPECT_FALSE(tavkit::IsFoundIn("nucleus", "x", FindPlace::Anywhere));
    EXPECT_FALSE(tavkit::IsFoundIn("nu", "nuc", FindPlace::Begin));
}

// The rows that a search looks at when none matches.
std::vector<int> Looked(int from, bool backwards, int count)
{
    std::vector<int> rows;
    EXPECT_EQ(tavkit::FindRow(
                  from, backwards, [=] { return count; },
                  [&](int row) {
                      rows.push_back(row);
                      return false;
                  }),
              std::nullopt);
    return rows;
}

TEST(FoundRow, IsLookedForOnceInEveryRowFromTheOneGiven)
{
    EXPECT_THAT(Looked(2, false, 5), ElementsAre(2, 3, 4, 0, 1));
    EXPECT_THAT(Looked(2, true, 5), ElementsAre(2, 1, 0, 4, 3));
    EXPECT_THAT(Looked(0, false, 3), ElementsAre(0, 1, 2));
    EXPECT_THAT(Looked(0, true, 3), ElementsAre(0, 2, 1));
    EXPECT_THAT(Looked(2, false, 3), ElementsAre(2, 0, 1));
}

TEST(FoundRow, IsLookedForFromTheEndWhenTheRowGivenIsOutside)
{
    EXPECT_THAT(Looked(-1, false, 3), ElementsAre(0, 1, 2));
    EXPECT_THAT(Looked(3, false, 3), ElementsAre(0, 1, 2));
    EXPECT_THAT(Looked(-2, true, 3), ElementsAre(2, 1, 0));
    EXPECT_THAT(Looked(9, true, 3), ElementsAre(2, 1, 0));
    EXPECT_THAT(Looked(0, false, 0), ElementsAre());
    EXPECT_THAT(Looked(0, true, 0), ElementsAre());
}

TEST(FoundRow, IsTheFirstThatMatches)
{
    auto const find = [](int from, bool backwards) {
        return tavkit::FindRow(
            from, backwards, [] { return 10; }, [](int row) { return row == 3 || row == 7; });
    };
    EXPECT_EQ(find(0, false), 3);
    EXPECT_EQ(find(4, false), 7);
    EXPECT_EQ(find(8, false), 3);
    EXPECT_EQ(find(3, false), 3);
    EXPECT_EQ(find(6, true), 3);
    EXPECT_EQ(find(2, true), 7);
}

TEST(FoundRow, MayBeOneThatCameDuringTheSearch)
{
    int rows = 4;
    auto const count = [&] { return rows; };
    auto const grow = [&](int row) {
        rows = row == 3 ? 20 : rows;
        return row == 15;
    };
    EXPECT_EQ(tavkit::FindRow(0, false, count, grow), 15);
    auto const vanish = [&](int) {
        rows = 0;
        return false;
    };
    EXPECT_EQ(tavkit::FindRow(5, false, count, vanish), std::nullopt);
    rows = 10;
    EXPECT_EQ(tavkit::FindRow(5, true, count, vanish), std::nullopt);
}

TEST(ColumnRecord, TellsColumnsFromLeftToRight)
{
    EXPECT_EQ(ColumnsToText({{2, 80}, {0, 120}, {1, 0}}), "2:80,0:120,1:0");
    EXPECT_EQ(ColumnsToText({}), "");
}

TEST(ColumnRecord, ReadsWhatItWrote)
{
    std::vector<ColumnPlace> const columns{{2, 80}, {0, tavkit::kMaxColumnWidth}, {1, 0}};
    EXPECT_EQ(ColumnsFromText(ColumnsToText(columns), 3), columns);
    EXPECT_EQ(ColumnsFromText("", 0), std::vector<ColumnPlace>());
}

TEST(ColumnRecord, RefusesEverythingElse)
{
    for (char const* const text : {"", "0:80", "0:80,1:90,2:100", "0:80,0:90", "0:80,2:90", "-1:80,0:90", "0:-5,1:90",
                                   "0:80,1:32768", "0:80,1:99999999999", "0:80;1:90", "0:80,1:90,", " 0:80,1:90",
                                   "0:80,1:90 ", "0,1", "0:,1:", "a:b,c:d", "+0:80,1:90", "0:80 ,1:90"})
    {
        EXPECT_EQ(ColumnsFromText(text, 2), std::nullopt) << text;
    }
    EXPECT_EQ(ColumnsFromText("0:1", 0), std::nullopt);
    EXPECT_EQ(ColumnsFromText("0:1", -3), std::nullopt);
    EXPECT_EQ(ColumnsFromText(std::string_view("0:80\0,1:90", 10), 2), std::nullopt);
}

} // namespace
