// ColumnTypeGuessTest.cpp - which texts make which column
#include <initializer_list>

#include <gmock/gmock.h>

#include "host/tables/ColumnTypeGuess.h"

namespace
{
ADIColType TypeOf(std::initializer_list<std::string_view> cells)
{
    table::ColumnTypeGuess guess;
    for (const std::string_view cell : cells)
    {
        guess.Add(cell);
    }
    return guess.Type();
}
} // namespace

TEST(ColumnTypeGuess, WholeNumbersOf32BitsAreIntegers)
{
    for (const std::string_view cell : {"0", "-1", "+7", " 42 ", "2147483647", "-2147483648", "007"})
    {
        EXPECT_EQ(TypeOf({cell}), adiInt) << cell;
    }
}

TEST(ColumnTypeGuess, OtherNumbersAreFloatingPoint)
{
    for (const std::string_view cell :
         {"1.5", "-.5", "1.", "1e3", "1E-3", "+1.5e+10", "2147483648", "-2147483649", "3.0"})
    {
        EXPECT_EQ(TypeOf({cell}), adiDouble) << cell;
    }
}

TEST(ColumnTypeGuess, AnythingElseIsText)
{
    for (const std::string_view cell : {"Galaxy", "nan", "inf", "0x10", "1,5", "1.5 mm", "1e", "1e+", ".", "-", "+",
                                        "+-1", "--1", "1-", "e5", "2024-02-29"})
    {
        EXPECT_EQ(TypeOf({cell}), adiString) << cell;
    }
}

TEST(ColumnTypeGuess, TheWidestTypeOfTheCellsWins)
{
    EXPECT_EQ(TypeOf({"1", "2.5", "3"}), adiDouble);
    EXPECT_EQ(TypeOf({"word", "2.5", "3"}), adiString);
    EXPECT_EQ(TypeOf({"1", "2", "word"}), adiString);
}

TEST(ColumnTypeGuess, MissingNumbersSayNothing)
{
    EXPECT_EQ(TypeOf({"", "  ", "---", "undefined", "Undefined", "UNDEFINED", "3"}), adiInt);
    EXPECT_EQ(TypeOf({"undefined", "Galaxy"}), adiString);
}

TEST(ColumnTypeGuess, ColumnOfWhichNothingIsKnownIsText)
{
    EXPECT_EQ(TypeOf({}), adiString);
    EXPECT_EQ(TypeOf({"", "---"}), adiString);
}
