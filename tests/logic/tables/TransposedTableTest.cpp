// TransposedTableTest.cpp - comma separated text that lies on its side
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
/// Opened with both windows; whatever is read must not depend on them.
std::vector<Row> RowsOf(const std::string& text)
{
    const auto table = Open(text, TableFormat::Transposed);
    const auto tiny = Open(text, TableFormat::Transposed, kTinyWindow);
    if (!table || !tiny)
    {
        ADD_FAILURE() << "the table doesn't open";
        return {};
    }
    EXPECT_EQ(Names(*table), Names(*tiny));
    const std::vector<Row> rows = Rows(*table);
    EXPECT_EQ(rows, Rows(*tiny));
    return rows;
}
} // namespace

TEST(TransposedTable, EachLineIsAColumn)
{
    const auto table = Open("A,1,2,3\r\nB,x,y,z\r\n", TableFormat::Transposed);
    ASSERT_THAT(table, NotNull());
    EXPECT_THAT(Names(*table), ElementsAre("A", "B"));
    EXPECT_THAT(Types(*table), ElementsAre(adiInt, adiString));
    EXPECT_THAT(Rows(*table), ElementsAre(Row{"1", "x"}, Row{"2", "y"}, Row{"3", "z"}));
}

TEST(TransposedTable, ColumnWithFewerCellsGoesOnWithEmptyOnes)
{
    EXPECT_THAT(RowsOf("A,1\nB,x,y,z\nC\n"), ElementsAre(Row{"1", "x", ""}, Row{"", "y", ""}, Row{"", "z", ""}));
}

TEST(TransposedTable, QuotesAndLineEndsAreThoseOfCommaSeparatedText)
{
    EXPECT_THAT(RowsOf("\"A,\n1\",\"1\r\n2\",\"\"\"\"\r\n\r\nB,x,y\rC,\"\",c"),
                ElementsAre(Row{"1\r\n2", "x", ""}, Row{"\"", "y", "c"}));
}

TEST(TransposedTable, CellBehindALastCommaIsEmpty)
{
    EXPECT_THAT(RowsOf("A,1,\nB,"), ElementsAre(Row{"1", ""}, Row{"", ""}));
}

TEST(TransposedTable, ByteOrderMarkIsNoPartOfTheFirstName)
{
    const auto table = Open("\xEF\xBB\xBF"
                            "A,1\n",
                            TableFormat::Transposed);
    ASSERT_THAT(table, NotNull());
    EXPECT_THAT(Names(*table), ElementsAre("A"));
    EXPECT_EQ(table->CodePage(), table::kUtf8CodePage);
}

TEST(TransposedTable, NamesAloneAreATableWithoutRows) { EXPECT_THAT(RowsOf("A\nB\n"), IsEmpty()); }

TEST(TransposedTable, RefusesWhatIsEmptyOrDamaged)
{
    for (const std::string& text :
         {std::string(), std::string("\r\n\r\n"), std::string("A,1\nB,\"2\n"), std::string("A,1\nB,\0\n", 8)})
    {
        EXPECT_THAT(Open(text, TableFormat::Transposed), IsNull()) << text;
        EXPECT_THAT(Open(text, TableFormat::Transposed, kTinyWindow), IsNull()) << text;
    }
}

TEST(TransposedTable, RefusesMoreColumnsThanAnyTableHas)
{
    std::string text;
    for (std::size_t i = 0; i < table::kMostColumns; ++i)
    {
        text += "c,1\n";
    }
    EXPECT_THAT(Open(text, TableFormat::Transposed), NotNull());
    EXPECT_THAT(Open(text + "c,1\n", TableFormat::Transposed), IsNull());
}

TEST(TransposedTable, LongColumnsAreReadAsFarAsTheRowsAskedFor)
{
    std::string text;
    for (const char* name : {"A", "B", "C"})
    {
        text += name;
        for (int row = 0; row < 100'000; ++row)
        {
            text += "," + std::to_string(row);
        }
        text += "\n";
    }
    support::TextSource* source = nullptr;
    const auto table = Open(text, TableFormat::Transposed, table::kTableWindow, &source);
    ASSERT_THAT(table, NotNull());
    const std::uint64_t opened = source->m_bytesRead;
    ASSERT_TRUE(table->ReadRow(99, 0));
    EXPECT_THAT(Cells(*table, 99), ElementsAre("99", "99", "99"));
    EXPECT_LE(source->m_bytesRead - opened, 64u << 10);
    ASSERT_TRUE(table->ReadRow(99'999, 0));
    EXPECT_THAT(Cells(*table, 99'999), ElementsAre("99999", "99999", "99999"));
    EXPECT_FALSE(table->ReadRow(100'000, 0));
}

TEST(TransposedTable, FileThatBecomesShorterEndsTheTable)
{
    std::string text;
    for (int line = 0; line < 3; ++line)
    {
        text += "name";
        for (int row = 0; row < 10'000; ++row)
        {
            text += ",1";
        }
        text += "\n";
    }
    constexpr table::WindowSizes kSmall{256, 256, 1 << 20};
    support::TextSource* source = nullptr;
    const auto table = Open(text, TableFormat::Transposed, kSmall, &source);
    ASSERT_THAT(table, NotNull());
    ASSERT_TRUE(table->ReadRow(1, 0));
    source->CutTo(text.size() / 2);
    int row = 2;
    while (table->ReadRow(row, 0))
    {
        ++row;
    }
    EXPECT_LT(row, 10'000);
    EXPECT_FALSE(table->ReadRow(row + 1, 0));
    EXPECT_STREQ(table->GetCellText(row, 0, 0), "");
}
