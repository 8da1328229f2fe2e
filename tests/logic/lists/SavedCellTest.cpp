// SavedCellTest.cpp - what a cell of a list becomes in a table file
#include "tavkit/lists/SavedCell.h"
#include "tavkit/lists/ScanDouble.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace
{

using tavkit::CellToSave;
using tavkit::SavedCell;
using tavkit::ToInt;

std::string TextOf(SavedCell const& cell)
{
    auto const* const text = std::get_if<char const*>(&cell);
    return text ? *text : "(no text)";
}

TEST(SavedCell, ATextColumnSavesItsTexts)
{
    for (ADIColType const type : {adiNone, adiString})
    {
        for (char const* const text : {"", "12", "1.5", "undefined", "a \"b\", c"})
        {
            EXPECT_EQ(TextOf(CellToSave(text, type)), text);
        }
    }
}

TEST(SavedCell, AColumnOfIntegersSavesWholeNumbers)
{
    EXPECT_EQ(CellToSave("12", adiInt), SavedCell(12));
    EXPECT_EQ(CellToSave(" -7 apples", adiInt), SavedCell(-7));
    EXPECT_EQ(CellToSave("12.9", adiInt), SavedCell(12));
    EXPECT_EQ(CellToSave("1e3", adiInt), SavedCell(1));
}

TEST(SavedCell, AColumnOfFloatingPointNumbersSavesThem)
{
    EXPECT_EQ(CellToSave("2.5", adiDouble), SavedCell(2.5));
    EXPECT_EQ(CellToSave("1e3 um", adiDouble), SavedCell(1000.0));
    EXPECT_EQ(CellToSave("12", adiDouble), SavedCell(12.0));
}

TEST(SavedCell, TheWordsForNoValueStayWordsInEveryColumn)
{
    for (ADIColType const type : {adiInt, adiDouble, adiString})
    {
        for (char const* const text : {"---", "undefined", "Undefined", "UNDEFINED"})
        {
            EXPECT_EQ(TextOf(CellToSave(text, type)), text);
        }
    }
}

TEST(SavedCell, TextsLikeTheWordsForNoValueAreUnreadableNumbers)
{
    for (char const* const text : {"--", "----", " ---", "undefined ", "undefine", "---1"})
    {
        EXPECT_EQ(CellToSave(text, adiInt), SavedCell(0)) << text;
        EXPECT_EQ(CellToSave(text, adiDouble), SavedCell(0.0)) << text;
    }
}

TEST(SavedCell, AnUnreadableNumberIsSavedAsZero)
{
    for (char const* const text : {"", "abc", "nano", "inf", "+", "-", ".", "e5"})
    {
        EXPECT_EQ(CellToSave(text, adiInt), SavedCell(0)) << text;
        EXPECT_EQ(CellToSave(text, adiDouble), SavedCell(0.0)) << text;
    }
    EXPECT_EQ(CellToSave("0x10", adiInt), SavedCell(0));
    EXPECT_EQ(CellToSave("0x10", adiDouble), SavedCell(0.0));
    EXPECT_EQ(CellToSave(nullptr, adiInt), SavedCell(0));
    EXPECT_EQ(TextOf(CellToSave(nullptr, adiString)), "");
}

TEST(ScannedInt, BlanksASignAndDigitsMakeANumber)
{
    EXPECT_EQ(ToInt("0"), 0);
    EXPECT_EQ(ToInt("\t\n\v\f\r 42"), 42);
    EXPECT_EQ(ToInt("+42"), 42);
    EXPECT_EQ(ToInt("-0042"), -42);
    EXPECT_EQ(ToInt("1,234"), 1);
}

TEST(ScannedInt, WithoutADigitItIsZero)
{
    for (char const* const text : {"", " ", "+", "-", "+-1", "- 1", "x1", ".5"})
    {
        EXPECT_EQ(ToInt(text), 0) << text;
    }
    EXPECT_EQ(ToInt(nullptr), 0);
}

TEST(ScannedInt, ANumberTooLargeIsTheNearestThatThereIs)
{
    EXPECT_EQ(ToInt("2147483647"), INT_MAX);
    EXPECT_EQ(ToInt("2147483648"), INT_MAX);
    EXPECT_EQ(ToInt("-2147483648"), INT_MIN);
    EXPECT_EQ(ToInt("-99999999999999999999"), INT_MIN);
    EXPECT_EQ(ToInt(std::string(1000, '9').c_str()), INT_MAX);
}

} // namespace
