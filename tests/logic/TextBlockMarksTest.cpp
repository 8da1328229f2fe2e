// TextBlockMarksTest.cpp - where a text block gets its signs

#include "tavkit/drawing/TextBlockMarks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace
{

using tavkit::FindTextMarks;
using tavkit::SignFont;
using tavkit::SignFontOf;
using tavkit::TextMark;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kWord = 12; // length of the marker word

TEST(FindTextMarksTest, ATextWithoutTheWordHasNone)
{
    EXPECT_THAT(FindTextMarks("Corvaline 222\nCorvaline22"), IsEmpty());
    EXPECT_THAT(FindTextMarks("corvaline222"), IsEmpty()) << "case counts";
    EXPECT_THAT(FindTextMarks(""), IsEmpty());
    EXPECT_THAT(FindTextMarks(nullptr), IsEmpty());
}

TEST(FindTextMarksTest, AWordOnTheFirstLineIsMeasuredFromTheStart)
{
    EXPECT_THAT(FindTextMarks("Corvaline222"), ElementsAre(TextMark{0, 0, kWord}));
    EXPECT_THAT(FindTextMarks("by Corvaline222."), ElementsAre(TextMark{0, 0, 3 + kWord}));
}

TEST(FindTextMarksTest, AWordOnTheThirdLineIsMeasuredFromThatLinesStart)
{
    EXPECT_THAT(FindTextMarks("a\nbc\nby Corvaline222"), ElementsAre(TextMark{2, 5, 8 + kWord}));
}

TEST(FindTextMarksTest, EveryWordIsFoundOnceAndInOrder)
{
    EXPECT_THAT(FindTextMarks("Corvaline222 and Corvaline222\nCorvaline222Corvaline222"),
                ElementsAre(TextMark{0, 0, kWord}, TextMark{0, 0, 17 + kWord}, TextMark{1, 30, 30 + kWord},
                            TextMark{1, 30, 30 + 2 * kWord}));
}

TEST(FindTextMarksTest, AWordFarBehindTheStartIsFoundOnce)
{
    const std::string text = std::string(100, 'x') + "Corvaline222";
    EXPECT_THAT(FindTextMarks(text.c_str()), ElementsAre(TextMark{0, 0, 100 + kWord}));
}

TEST(FindTextMarksTest, ABrokenBeginningDoesNotHideTheWord)
{
    EXPECT_THAT(FindTextMarks("CorvalineCorvaline222"), ElementsAre(TextMark{0, 0, 9 + kWord}));
}

TEST(SignFontTest, IsHalfAsHighButAtLeastThirteen)
{
    EXPECT_EQ(SignFontOf(40, 700), (SignFont{20, 700}));
    EXPECT_EQ(SignFontOf(31, 700), (SignFont{15, 700}));
    EXPECT_EQ(SignFontOf(20, 700).height, 13);
    EXPECT_EQ(SignFontOf(0, 700).height, 13);
    EXPECT_EQ(SignFontOf(-40, 700).height, 13) << "heights of characters are negative";
}

TEST(SignFontTest, IsThinBelowFifteen)
{
    EXPECT_EQ(SignFontOf(29, 700), (SignFont{14, 100}));
    EXPECT_EQ(SignFontOf(30, 700), (SignFont{15, 700}));
    EXPECT_EQ(SignFontOf(13, 400), (SignFont{13, 100}));
}

} // namespace
