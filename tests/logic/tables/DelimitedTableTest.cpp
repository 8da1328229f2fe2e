// DelimitedTableTest.cpp - comma, tab and blank separated text
#include <gmock/gmock.h>

#include "TableText.h"

using namespace tabletest;
using table::TableFormat;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;
using testing::SizeIs;

namespace
{

/// A text, its format and what must be read from it.
struct Example
{
    const char* name;
    TableFormat format;
    std::string text;
    Row names;
    std::vector<Row> rows;
};

const std::string kMark = "\xEF\xBB\xBF";

const Example kExamples[] = {
    {"LinesEndWithCrAndLf", TableFormat::Csv, "A,B\r\n1,2\r\n3,4\r\n", {"A", "B"}, {{"1", "2"}, {"3", "4"}}},
    {"LinesEndWithLf", TableFormat::Csv, "A,B\n1,2\n3,4\n", {"A", "B"}, {{"1", "2"}, {"3", "4"}}},
    {"LinesEndWithCr", TableFormat::Csv, "A,B\r1,2\r3,4\r", {"A", "B"}, {{"1", "2"}, {"3", "4"}}},
    {"LineEndsMayBeMixed", TableFormat::Csv, "A,B\r1,2\n3,4\r\n5,6", {"A", "B"}, {{"1", "2"}, {"3", "4"}, {"5", "6"}}},
    {"LastLineNeedsNoEnd", TableFormat::Csv, "A,B\r\n1,2", {"A", "B"}, {{"1", "2"}}},
    {"LastCellMayBeEmptyWithoutALineEnd", TableFormat::Csv, "A,B\r\n1,", {"A", "B"}, {{"1", ""}}},
    {"NamesAloneAreATableWithoutRows", TableFormat::Csv, "A,B", {"A", "B"}, {}},
    {"QuotesHoldSeparators", TableFormat::Csv, "A,B\r\n\"1,5\",2\r\n", {"A", "B"}, {{"1,5", "2"}}},
    {"TwoQuotesStandForOne",
     TableFormat::Csv,
     "A,B\n\"say \"\"yes\"\"\",\"\"\"\"\n",
     {"A", "B"},
     {{"say \"yes\"", "\""}}},
    {"QuotesHoldLineBreaks",
     TableFormat::Csv,
     "A,B\r\n\"one\r\ntwo\nthree\",2\r\n",
     {"A", "B"},
     {{"one\r\ntwo\nthree", "2"}}},
    {"NamesMayBeQuoted", TableFormat::Csv, "\"A,1\",\"B\nC\"\n1,2\n", {"A,1", "B\nC"}, {{"1", "2"}}},
    {"QuotedCellMayBeEmpty", TableFormat::Csv, "A,B\n\"\",\"\"\n", {"A", "B"}, {{"", ""}}},
    {"QuotedCellMayEndTheText", TableFormat::Csv, "A,B\n1,\"2\"", {"A", "B"}, {{"1", "2"}}},
    {"WhatFollowsTheClosingQuoteBelongsToTheCell",
     TableFormat::Csv,
     "A,B\n\"1\"x\"y\",2\n",
     {"A", "B"},
     {{"1x\"y\"", "2"}}},
    {"QuoteWithinACellIsText", TableFormat::Csv, "A,B\n5\" pipe, \"x\"\n", {"A", "B"}, {{"5\" pipe", " \"x\""}}},
    {"BlanksBelongToTheCell", TableFormat::Csv, "A, B\n 1 ,2 \n", {"A", " B"}, {{" 1 ", "2 "}}},
    {"ByteOrderMarkIsNoPartOfTheFirstName", TableFormat::Csv, kMark + "A,B\n1,2\n", {"A", "B"}, {{"1", "2"}}},
    {"ByteOrderMarkMayStandInFrontOfAQuote", TableFormat::Csv, kMark + "\"A,1\",B\n1,2\n", {"A,1", "B"}, {{"1", "2"}}},
    {"MissingCellsAreEmpty",
     TableFormat::Csv,
     "A,B,C\n1\n1,2\n1,2,3\n",
     {"A", "B", "C"},
     {{"1", "", ""}, {"1", "2", ""}, {"1", "2", "3"}}},
    {"CellsBehindTheLastColumnAreLeftOut",
     TableFormat::Csv,
     "A,B\n1,2,3,4\n5,6\n",
     {"A", "B"},
     {{"1", "2"}, {"5", "6"}}},
    {"BlankLinesArePassedOver",
     TableFormat::Csv,
     "\r\n\nA,B\n\n1,2\r\n\r\n\r\n3,4\n\n",
     {"A", "B"},
     {{"1", "2"}, {"3", "4"}}},
    {"LineOfOneEmptyQuotedCellIsARow", TableFormat::Csv, "A,B\n\"\"\n1,2\n", {"A", "B"}, {{"", ""}, {"1", "2"}}},
    {"BlankLineInATableOfOneColumnIsAnEmptyCell", TableFormat::Csv, "A\n1\n\n2\n", {"A"}, {{"1"}, {""}, {"2"}}},
    {"BlankLineBehindCrAndLfIsOneRowOnly", TableFormat::Csv, "A\r\n1\r\n\r\n2\r\n", {"A"}, {{"1"}, {""}, {"2"}}},
    {"NamesMayBeEmpty", TableFormat::Csv, ",B,\n1,2,3\n", {"", "B", ""}, {{"1", "2", "3"}}},
    {"MarkOfTheEndIsNoRow", TableFormat::Csv, "A,B\r\n1,2\r\n\x1A", {"A", "B"}, {{"1", "2"}}},
    {"BytesAbove127AreText", TableFormat::Csv, "\xC4,B\n\xB5m,\xFF\n", {"\xC4", "B"}, {{"\xB5m", "\xFF"}}},
    {"TabsSeparate", TableFormat::Text, "A\tB C\n1, 5\t2\n", {"A", "B C"}, {{"1, 5", "2"}}},
    {"TabsNextToEachOtherEnclosAnEmptyCell", TableFormat::Text, "A\tB\tC\n\t\t3\n", {"A", "B", "C"}, {{"", "", "3"}}},
    {"TabsWithinQuotesAreText", TableFormat::Text, "A\tB\n\"1\t2\"\t3\n", {"A", "B"}, {{"1\t2", "3"}}},
    {"TabWithinQuotesDoesNotMakeATabSeparatedTable",
     TableFormat::Text,
     "\"A\tX\" B\n1 2\n",
     {"A\tX", "B"},
     {{"1", "2"}}},
    {"BlanksSeparateWhateverTheirNumber",
     TableFormat::Text,
     "A  B   C\n1 2\t3\n4    5 6\n",
     {"A", "B", "C"},
     {{"1", "2", "3"}, {"4", "5", "6"}}},
    {"BlanksAtTheEndsOfALineSeparateNothing",
     TableFormat::Text,
     "  A B  \r\n   1 2 \r\n 3 4  ",
     {"A", "B"},
     {{"1", "2"}, {"3", "4"}}},
    {"LineOfBlanksIsPassedOver", TableFormat::Text, "A B\n   \n1 2\n  ", {"A", "B"}, {{"1", "2"}}},
    {"BlanksWithinQuotesAreText", TableFormat::Text, "A B\n\"x y\" 2\n\"\" 4\n", {"A", "B"}, {{"x y", "2"}, {"", "4"}}},
    {"LineOfBlanksInATableOfOneColumnIsPassedOver", TableFormat::Text, "A\n1\n\n2\n", {"A"}, {{"1"}, {"2"}}},
};

class DelimitedTableExample : public testing::TestWithParam<Example>
{
};

TEST_P(DelimitedTableExample, ReadsAsTold)
{
    for (const table::WindowSizes sizes : {table::kTableWindow, kTinyWindow})
    {
        const auto table = Open(GetParam().text, GetParam().format, sizes);
        ASSERT_THAT(table, NotNull());
        EXPECT_EQ(Names(*table), GetParam().names);
        EXPECT_EQ(Rows(*table), GetParam().rows);
    }
}

INSTANTIATE_TEST_SUITE_P(, DelimitedTableExample, testing::ValuesIn(kExamples),
                         [](const auto& info) { return info.param.name; });

/// What must not open.
struct Refused
{
    const char* name;
    TableFormat format;
    std::string text;
};

const Refused kRefused[] = {
    {"EmptyFile", TableFormat::Csv, ""},
    {"OnlyLineBreaks", TableFormat::Csv, "\r\n\n\r"},
    {"OnlyAByteOrderMark", TableFormat::Csv, kMark},
    {"OnlyBlanks", TableFormat::Text, "     \n   "},
    {"NamesThatEndWithinQuotes", TableFormat::Csv, "A,\"B\nC,D\n1,2\n"},
    {"NulInTheNames", TableFormat::Csv, std::string("A,B\0C\n1,2\n", 10)},
    {"NulInTheFirstRows", TableFormat::Csv, std::string("A,B\n1,2\n3,\0\n", 12)},
    {"Utf16", TableFormat::Csv,
     std::string("\xFF\xFE"
                 "A\0,\0B\0\n\0",
                 10)},
    {"Picture", TableFormat::Csv, "\x89PNG\r\n\x1A\n"},
    {"ControlCharacters", TableFormat::Text, "A B\n1 \x02\n"},
};

class DelimitedTableRefused : public testing::TestWithParam<Refused>
{
};

TEST_P(DelimitedTableRefused, DoesNotOpen)
{
    for (const table::WindowSizes sizes : {table::kTableWindow, kTinyWindow})
    {
        DError error;
        auto source = std::make_unique<support::TextSource>(GetParam().text);
        EXPECT_THAT(table::OpenTable(std::move(source), GetParam().format, &error, sizes), IsNull());
        EXPECT_TRUE(error.HasError());
    }
}

INSTANTIATE_TEST_SUITE_P(, DelimitedTableRefused, testing::ValuesIn(kRefused),
                         [](const auto& info) { return info.param.name; });

} // namespace

TEST(DelimitedTable, RowThatEndsWithinQuotesEndsTheTableInFrontOfIt)
{
    for (const table::WindowSizes sizes : {table::kTableWindow, kTinyWindow})
    {
        const auto table = Open("A,B\n1,2\n3,\"4\n5,6\n", TableFormat::Csv, sizes);
        ASSERT_THAT(table, NotNull());
        EXPECT_TRUE(table->ReadRow(0, 0));
        EXPECT_FALSE(table->ReadRow(1, 0));
        EXPECT_FALSE(table->ReadRow(2, 0)) << "nothing behind the damage is shown as if it were a row";
        EXPECT_THAT(Cells(*table, 1), ElementsAre("", ""));
    }
}

TEST(DelimitedTable, NulFarBehindTheStartEndsTheTableInFrontOfItsRow)
{
    std::string text = "A,B\n";
    for (int row = 0; row < 2000; ++row)
    {
        text += "1,2\n";
    }
    text += std::string("3,4\0\n5,6\n", 9);
    const auto table = Open(text, TableFormat::Csv);
    ASSERT_THAT(table, NotNull());
    EXPECT_THAT(Rows(*table), SizeIs(2000));
}

TEST(DelimitedTable, RowsArePassedOverButNeverGoneBackTo)
{
    const auto table = Open("A\n10\n11\n12\n13\n", TableFormat::Csv);
    ASSERT_THAT(table, NotNull());
    EXPECT_FALSE(table->ReadRow(-1, 0));
    ASSERT_TRUE(table->ReadRow(2, 0));
    EXPECT_THAT(Cells(*table, 2), ElementsAre("12"));
    EXPECT_TRUE(table->ReadRow(2, 0)) << "the row that the table stands on";
    EXPECT_FALSE(table->ReadRow(1, 0));
    EXPECT_THAT(Cells(*table, 1), ElementsAre(""));
    EXPECT_THAT(Cells(*table, 2), ElementsAre("12")) << "asking for a row that is gone changes nothing";
    EXPECT_TRUE(table->ReadRow(3, 0));
    EXPECT_FALSE(table->ReadRow(4, 0));
    EXPECT_FALSE(table->ReadRow(3, 0)) << "the table is over";
}

TEST(DelimitedTable, PlacesOutsideTheTableReadAsEmpty)
{
    const auto table = Open("A,B\n1,2\n", TableFormat::Csv);
    ASSERT_THAT(table, NotNull());
    EXPECT_STREQ(table->GetCellText(0, 0, 0), "") << "no row was moved to yet";
    ASSERT_TRUE(table->ReadRow(0, 0));
    EXPECT_STREQ(table->GetCellText(0, -1, 0), "");
    EXPECT_STREQ(table->GetCellText(0, 2, 0), "");
    EXPECT_STREQ(table->GetCellText(-1, 0, 0), "");
    EXPECT_STREQ(table->GetColName(-1, 0), "");
    EXPECT_STREQ(table->GetColName(2, 0), "");
    EXPECT_EQ(table->GetColType(2, 0), adiNone);
}

TEST(DelimitedTable, TypesComeFromTheFirstRows)
{
    const auto table = Open("I,D,T,M,E\n1,1.5,x,undefined,\n-2,3,4,7,\n", TableFormat::Csv);
    ASSERT_THAT(table, NotNull());
    EXPECT_THAT(Types(*table), ElementsAre(adiInt, adiDouble, adiString, adiInt, adiString));
    EXPECT_THAT(Rows(*table), SizeIs(2)) << "the rows that were looked at are still to come";
}

TEST(DelimitedTable, TypesComeFromAHundredRowsAtTheMost)
{
    std::string text = "A\n";
    for (std::size_t row = 0; row < table::kSampleRows; ++row)
    {
        text += "1\n";
    }
    const auto sampled = Open(text + "word\n", TableFormat::Csv);
    ASSERT_THAT(sampled, NotNull());
    EXPECT_THAT(Types(*sampled), ElementsAre(adiInt));
    text.replace(text.size() - 2, 1, "word");
    const auto last = Open(text, TableFormat::Csv);
    ASSERT_THAT(last, NotNull());
    EXPECT_THAT(Types(*last), ElementsAre(adiString));
}

TEST(DelimitedTable, TypesDoNotNeedTheRowsToBeWhole)
{
    const auto broken = Open("A,B\n1,2\n3,\"4\n", TableFormat::Csv);
    ASSERT_THAT(broken, NotNull());
    EXPECT_THAT(Types(*broken), ElementsAre(adiInt, adiInt));
    const auto large = Open("A,B\n1,2\nx," + std::string(1 << 20, 'x') + "\n", TableFormat::Csv);
    ASSERT_THAT(large, NotNull());
    EXPECT_EQ(large->GetColType(1, 0), adiInt) << "a row of a megabyte isn't read for its types";
}

TEST(DelimitedTable, OpeningAndTheFirstPageReadLittleOfALargeFile)
{
    std::string text = "A,B,C\n";
    while (text.size() < (std::size_t{4} << 20))
    {
        text += "12345,67.5,some text that makes the line longer\n";
    }
    support::TextSource* source = nullptr;
    const auto table = Open(text, TableFormat::Csv, table::kTableWindow, &source);
    ASSERT_THAT(table, NotNull());
    ASSERT_TRUE(table->ReadRow(49, 0));
    EXPECT_LE(source->m_bytesRead, 64u << 10);
    const std::uint64_t before = source->m_bytesRead;
    EXPECT_THAT(Rows(*table), IsEmpty()) << "row 0 is gone";
    int rows = 50;
    while (table->ReadRow(rows, 0))
    {
        ++rows;
    }
    EXPECT_EQ(static_cast<std::size_t>(rows), (text.size() - 6) / 48);
    EXPECT_LE(source->m_bytesRead - before, text.size()) << "every byte is read once";
}

TEST(DelimitedTable, HoldsTenThousandColumns)
{
    std::string names = "c0";
    std::string cells = "0";
    for (int col = 1; col < 10'000; ++col)
    {
        names += ",c" + std::to_string(col);
        cells += "," + std::to_string(col);
    }
    const auto table = Open(names + "\n" + cells + "\n" + cells, TableFormat::Csv);
    ASSERT_THAT(table, NotNull());
    ASSERT_EQ(table->GetNumCol(0), 10'000);
    EXPECT_STREQ(table->GetColName(9'999, 0), "c9999");
    EXPECT_EQ(table->GetColType(5'000, 0), adiInt);
    const std::vector<Row> rows = Rows(*table);
    ASSERT_THAT(rows, SizeIs(2));
    EXPECT_EQ(rows[1][9'999], "9999");
}

TEST(DelimitedTable, RefusesMoreColumnsThanAnyTableHas)
{
    EXPECT_THAT(Open(std::string(table::kMostColumns - 1, ','), TableFormat::Csv), NotNull());
    EXPECT_THAT(Open(std::string(table::kMostColumns, ','), TableFormat::Csv), IsNull());
}

TEST(DelimitedTable, ReadsACellOfAHundredMegabytesAndGoesOn)
{
    constexpr std::size_t kLarge = 100'000'000;
    std::string text = "A,B\n1,\"";
    text.append(kLarge / 2, 'x').append("\"\"").append(kLarge / 2, 'y').append("\"\n2,3\n");
    const auto table = Open(std::move(text), TableFormat::Csv);
    ASSERT_THAT(table, NotNull());
    ASSERT_TRUE(table->ReadRow(0, 0));
    const std::string_view cell = table->GetCellText(0, 1, 0);
    EXPECT_EQ(cell.size(), kLarge + 1);
    EXPECT_EQ(cell[kLarge / 2], '"');
    EXPECT_EQ(cell.back(), 'y');
    ASSERT_TRUE(table->ReadRow(1, 0));
    EXPECT_THAT(Cells(*table, 1), ElementsAre("2", "3"));
}

TEST(DelimitedTable, RowLargerThanTheWindowMayGrowEndsTheTable)
{
    constexpr table::WindowSizes kSmall{16, 64, 1000};
    const auto table = Open("A\n1\n" + std::string(2000, 'x') + "\n2\n", TableFormat::Csv, kSmall);
    ASSERT_THAT(table, NotNull());
    EXPECT_TRUE(table->ReadRow(0, 0));
    EXPECT_FALSE(table->ReadRow(1, 0));
    EXPECT_FALSE(table->ReadRow(2, 0));
}

TEST(DelimitedTable, FileThatBecomesShorterEndsTheTable)
{
    std::string text = "A,B\n";
    while (text.size() < 100'000)
    {
        text += "1,2\n";
    }
    constexpr table::WindowSizes kSmall{1024, 1024, 1 << 20};
    support::TextSource* source = nullptr;
    const auto table = Open(text, TableFormat::Csv, kSmall, &source);
    ASSERT_THAT(table, NotNull());
    ASSERT_TRUE(table->ReadRow(10, 0));
    source->CutTo(50'000);
    int row = 11;
    while (table->ReadRow(row, 0))
    {
        EXPECT_THAT(Cells(*table, row), ElementsAre("1", "2")) << row;
        ++row;
    }
    EXPECT_GT(row, 11);
    EXPECT_LE(row, 50'000 / 4);
    EXPECT_FALSE(table->ReadRow(row + 1, 0));
}
