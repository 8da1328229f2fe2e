// TableBytesTest.cpp - tables as the bytes of a file, and read back
#include "host/tables/TableBytes.h"

#include <gmock/gmock.h>

#include <limits>
#include <string>
#include <vector>

#include "TableText.h"

using namespace tabletest;
using table::NumberCell;
using table::TableBytes;
using table::TableFormat;
using table::WrittenCell;
using table::WrittenTable;
using testing::ElementsAre;
using testing::NotNull;

namespace
{

constexpr table::Day kDay{2024, 2, 29};

WrittenTable Sample()
{
    return {{{"Id", adiInt}, {"Area", adiDouble}, {"Name", adiString}},
            {{NumberCell(7), NumberCell(0.5), {"a", false}},
             {{"---", false}, {"undefined", false}, {"b,c \"d\"", false}},
             {NumberCell(-1), NumberCell(1e300), {"two\r\nlines\tand a tab", false}},
             {NumberCell(12)}}};
}

std::string Bytes(WrittenTable const& table, TableFormat format)
{
    return TableBytes(table, format, kDay).value_or("(no)");
}

/// One column of texts.
WrittenTable Texts(std::vector<std::string> const& texts)
{
    WrittenTable table{{{"T", adiString}}, {}};
    for (std::string const& text : texts)
    {
        table.rows.push_back({{text, false}});
    }
    return table;
}

} // namespace

TEST(TableBytes, CommaSeparatedTablesQuoteWhatNeedsIt)
{
    EXPECT_EQ(Bytes(Sample(), TableFormat::Csv), "Id,Area,Name\r\n7,0.5,a\r\n---,undefined,\"b,c \"\"d\"\"\"\r\n"
                                                 "-1,1e+300,\"two\r\nlines\tand a tab\"\r\n12,,\r\n");
}

TEST(TableBytes, TransposedTablesHaveALineForEachColumn)
{
    EXPECT_EQ(Bytes(Sample(), TableFormat::Transposed), "Id,7,---,-1,12\r\nArea,0.5,undefined,1e+300,\r\n"
                                                        "Name,a,\"b,c \"\"d\"\"\",\"two\r\nlines\tand a tab\",\r\n");
}

TEST(TableBytes, TextIsSeparatedByTabs)
{
    EXPECT_EQ(Bytes(Sample(), TableFormat::Text), "Id\tArea\tName\r\n7\t0.5\ta\r\n---\tundefined\t\"b,c \"\"d\"\"\"\r\n"
                                                  "-1\t1e+300\t\"two\r\nlines\tand a tab\"\r\n12\t\t\r\n");
}

TEST(TableBytes, WhatIsWrittenIsReadBack)
{
    const std::vector<Row> rows = {{"7", "0.5", "a"},
                                   {"---", "undefined", "b,c \"d\""},
                                   {"-1", "1e+300", "two\r\nlines\tand a tab"},
                                   {"12", "", ""}};
    for (const TableFormat format : {TableFormat::Csv, TableFormat::Transposed, TableFormat::Text})
    {
        const auto read = Open(Bytes(Sample(), format), format);
        ASSERT_THAT(read, NotNull());
        EXPECT_THAT(Names(*read), ElementsAre("Id", "Area", "Name"));
        EXPECT_THAT(Types(*read), ElementsAre(adiInt, adiDouble, adiString));
        EXPECT_EQ(Rows(*read), rows);
    }
    const auto dbase = Open(Bytes(Sample(), TableFormat::Dbase), TableFormat::Dbase);
    ASSERT_THAT(dbase, NotNull());
    EXPECT_THAT(Names(*dbase), ElementsAre("Id", "Area", "Name"));
    EXPECT_EQ(
        Rows(*dbase),
        (std::vector<Row>{
            {"7", "0.5", "a"}, {"", "", "b,c \"d\""}, {"-1", "1e+300", "two\r\nlines\tand a tab"}, {"12", "", ""}}))
        << "a word in a number field leaves it blank";
}

TEST(TableBytes, ASingleColumnKeepsItsEmptyRowsAndItsBlanks)
{
    const WrittenTable table = Texts({"", "a b", "c", ""});
    EXPECT_EQ(Bytes(table, TableFormat::Csv), "T\r\n\"\"\r\n\"a b\"\r\nc\r\n\"\"\r\n");
    for (const TableFormat format : {TableFormat::Csv, TableFormat::Text})
    {
        const auto read = Open(Bytes(table, format), format);
        ASSERT_THAT(read, NotNull());
        EXPECT_EQ(Rows(*read), (std::vector<Row>{{""}, {"a b"}, {"c"}, {""}}));
    }
}

TEST(TableBytes, ATableWithoutRowsHasItsNames)
{
    const WrittenTable table{{{"A", adiInt}, {"B", adiString}}, {}};
    EXPECT_EQ(Bytes(table, TableFormat::Csv), "A,B\r\n");
    EXPECT_EQ(Bytes(table, TableFormat::Transposed), "A\r\nB\r\n");
    const auto dbase = Open(Bytes(table, TableFormat::Dbase), TableFormat::Dbase);
    ASSERT_THAT(dbase, NotNull());
    EXPECT_THAT(Names(*dbase), ElementsAre("A", "B"));
    EXPECT_TRUE(Rows(*dbase).empty());
}

TEST(TableBytes, NumbersReadBackAsTheyWere)
{
    EXPECT_EQ(NumberCell(std::numeric_limits<int>::min()).text, "-2147483648");
    EXPECT_EQ(NumberCell(0.1).text, "0.1");
    EXPECT_EQ(NumberCell(1.0 / 3).text, "0.3333333333333333");
    EXPECT_EQ(NumberCell(5e-324).text, "5e-324");
    EXPECT_EQ(NumberCell(std::numeric_limits<double>::infinity()).text, "undefined");
    EXPECT_EQ(NumberCell(std::numeric_limits<double>::quiet_NaN()).text, "undefined");
}

TEST(TableBytes, TheHeadOfADbaseFileTellsItsForm)
{
    const std::string bytes = Bytes(Sample(), TableFormat::Dbase);
    EXPECT_EQ(bytes.substr(0, 4), "\x03\x7C\x02\x1D");
    EXPECT_EQ(bytes.substr(4, 4), std::string("\4\0\0\0", 4));
    EXPECT_EQ(bytes[8], static_cast<char>(32 + 3 * 32 + 1));
    EXPECT_EQ(bytes[32 + 11], 'N');
    EXPECT_EQ(bytes[64 + 11], 'N');
    EXPECT_EQ(bytes[64 + 17], 1) << "decimals";
    EXPECT_EQ(bytes[96 + 11], 'C');
    EXPECT_EQ(bytes[128], '\x0D');
    EXPECT_EQ(bytes[129], ' ');
    EXPECT_EQ(bytes.substr(130, 3), "  7") << "numbers stand to the right";
    EXPECT_EQ(bytes.back(), '\x1A');
}

TEST(TableBytes, LongNamesAndTextsOfADbaseFileAreCut)
{
    WrittenTable table;
    for (int i = 0; i < 12; ++i)
    {
        table.columns.push_back({"A very long name", adiString});
    }
    table.rows.push_back({{std::string(1000, 'x'), false}});
    const auto read = Open(Bytes(table, TableFormat::Dbase), TableFormat::Dbase);
    ASSERT_THAT(read, NotNull());
    const Row names = Names(*read);
    EXPECT_EQ(names[0], "A very lon");
    EXPECT_EQ(names[1], "A very lo2");
    EXPECT_EQ(names[11], "A very l12");
    EXPECT_EQ(Rows(*read)[0][0], std::string(254, 'x'));
}

TEST(TableBytes, ANumberTooWideForADbaseFieldLosesDigitsNotItsSize)
{
    const WrittenTable table{{{"N", adiDouble}}, {{NumberCell(-1.2345678901234567e-300)}, {NumberCell(1.5)}}};
    const auto read = Open(Bytes(table, TableFormat::Dbase), TableFormat::Dbase);
    ASSERT_THAT(read, NotNull());
    EXPECT_EQ(Rows(*read), (std::vector<Row>{{"-1.234567890123e-300"}, {"1.5"}}));
}

TEST(TableBytes, WhatADbaseFileCannotHoldIsRefused)
{
    WrittenTable table;
    table.columns.resize(3000);
    EXPECT_FALSE(TableBytes(table, TableFormat::Dbase, kDay).has_value());
    EXPECT_TRUE(TableBytes(table, TableFormat::Csv, kDay).has_value());
    table.columns.resize(300);
    table.rows.emplace_back(300, WrittenCell{std::string(254, 'x'), false});
    EXPECT_FALSE(TableBytes(table, TableFormat::Dbase, kDay).has_value()) << "records of 76 kB";
}
