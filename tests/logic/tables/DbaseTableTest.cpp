// DbaseTableTest.cpp - dBase files
#include <gmock/gmock.h>

#include "TableText.h"
#include "tests/support/DbaseWriter.h"

using namespace tabletest;
using support::DbaseField;
using support::DbaseWriter;
using table::TableFormat;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;
using testing::SizeIs;

namespace
{

/// One column of width 2.
DbaseWriter Simple() { return DbaseWriter({{"N", 'N', 2}}); }

std::vector<Row> RowsOf(const std::string& bytes)
{
    const auto table = Open(bytes, TableFormat::Dbase);
    const auto tiny = Open(bytes, TableFormat::Dbase, kTinyWindow);
    if (!table || !tiny)
    {
        ADD_FAILURE() << "the table doesn't open";
        return {};
    }
    const std::vector<Row> rows = Rows(*table);
    EXPECT_EQ(rows, Rows(*tiny));
    return rows;
}

/// The text of one cell in a field.
std::string CellOf(const DbaseField& field, std::string_view cell)
{
    const std::vector<Row> rows = RowsOf(DbaseWriter({field}).Add(cell).Bytes());
    return rows.size() == 1 ? rows[0][0] : "no row";
}

} // namespace

TEST(DbaseTable, ReadsNamesTypesAndRows)
{
    const std::string bytes =
        DbaseWriter({{"NR", 'N', 5}, {"MEAN", 'N', 8, 3}, {"CLASS", 'C', 10}, {"ELEVENCHARS", 'C', 2}})
            .Add("    1   0.250Galaxy    ab")
            .Add("   -2 -17.500  Star      ")
            .Bytes();
    const auto table = Open(bytes, TableFormat::Dbase);
    ASSERT_THAT(table, NotNull());
    EXPECT_THAT(Names(*table), ElementsAre("NR", "MEAN", "CLASS", "ELEVENCHARS"));
    EXPECT_THAT(Types(*table), ElementsAre(adiInt, adiDouble, adiString, adiString));
    EXPECT_THAT(RowsOf(bytes), ElementsAre(Row{"1", "0.250", "Galaxy", "ab"}, Row{"-2", "-17.500", "  Star", ""}));
}

TEST(DbaseTable, TextLosesTheBlanksBehindItOnly)
{
    EXPECT_EQ(CellOf({"C", 'C', 8}, " a b    "), " a b");
    EXPECT_EQ(CellOf({"C", 'C', 8}, "        "), "");
    EXPECT_EQ(CellOf({"C", 'C', 4}, std::string_view("ab\0\0", 4)), "ab") << "some programs fill with NULs";
}

TEST(DbaseTable, NumbersStandAsTheyAreWithoutBlanks)
{
    EXPECT_EQ(CellOf({"N", 'N', 8, 2}, "   -1.50"), "-1.50");
    EXPECT_EQ(CellOf({"N", 'N', 8, 2}, "        "), "") << "a number that isn't there";
    EXPECT_EQ(CellOf({"N", 'N', 8, 2}, "********"), "********") << "a number that didn't fit";
    EXPECT_EQ(CellOf({"F", 'F', 10, 3}, "  1.25e+03"), "1.25e+03");
}

TEST(DbaseTable, WholeNumbersOfUpToNineDigitsAreIntegers)
{
    const auto table =
        Open(DbaseWriter({{"A", 'N', 9}, {"B", 'N', 10}, {"C", 'N', 5, 1}, {"D", 'F', 4}, {"E", 'F', 4, 1}}).Bytes(),
             TableFormat::Dbase);
    ASSERT_THAT(table, NotNull());
    EXPECT_THAT(Types(*table), ElementsAre(adiInt, adiDouble, adiDouble, adiInt, adiDouble));
}

TEST(DbaseTable, DatesReadWithDashes)
{
    EXPECT_EQ(CellOf({"D", 'D', 8}, "20240229"), "2024-02-29");
    EXPECT_EQ(CellOf({"D", 'D', 8}, "        "), "");
    EXPECT_EQ(CellOf({"D", 'D', 8}, "2024    "), "2024") << "no date, so as it stands";
    EXPECT_EQ(CellOf({"D", 'D', 8}, "2024O229"), "2024O229");
}

TEST(DbaseTable, TruthValuesReadAsWords)
{
    for (const char* letter : {"T", "t", "Y", "y"})
    {
        EXPECT_EQ(CellOf({"L", 'L', 1}, letter), "True") << letter;
    }
    for (const char* letter : {"F", "f", "N", "n"})
    {
        EXPECT_EQ(CellOf({"L", 'L', 1}, letter), "False") << letter;
    }
    for (const char* letter : {"?", " ", "x"})
    {
        EXPECT_EQ(CellOf({"L", 'L', 1}, letter), "") << letter;
    }
}

TEST(DbaseTable, MemosReadAsTheNumberOfTheirBlock)
{
    EXPECT_EQ(CellOf({"M", 'M', 10}, "        12"), "12");
    EXPECT_EQ(CellOf({"M", 'M', 10}, "0000000012"), "0000000012");
    EXPECT_EQ(CellOf({"M", 'M', 10}, "          "), "");
    EXPECT_EQ(CellOf({"M", 'M', 10}, "0000000000"), "");
    EXPECT_EQ(CellOf({"M", 'M', 4}, "\x01\x02\x03\x04"), "") << "a later level's binary number";
}

TEST(DbaseTable, MemoMarksInTheFirstByteAreAccepted)
{
    EXPECT_THAT(RowsOf(Simple().Add(" 1").Set(0, 0x83, 1).Bytes()), SizeIs(1));
    EXPECT_THAT(Open(Simple().Add(" 1").Set(0, 0x02, 1).Bytes(), TableFormat::Dbase), IsNull());
}

TEST(DbaseTable, FieldOfAnUnknownKindIsEmptyText)
{
    const auto table = Open(DbaseWriter({{"I", 'I', 4}, {"N", 'N', 1}})
                                .Add("\x01\x02\x03\x04"
                                     "5")
                                .Bytes(),
                            TableFormat::Dbase);
    ASSERT_THAT(table, NotNull());
    EXPECT_THAT(Types(*table), ElementsAre(adiString, adiInt));
    EXPECT_THAT(Rows(*table), ElementsAre(Row{"", "5"}));
}

TEST(DbaseTable, DeletedRecordsArePassedOver)
{
    EXPECT_THAT(RowsOf(Simple().Add(" 1", '*').Add(" 2").Add(" 3", '*').Add(" 4").Add(" 5", '*').Bytes()),
                ElementsAre(Row{"2"}, Row{"4"}));
    EXPECT_THAT(RowsOf(Simple().Add(" 1", '*').Bytes()), IsEmpty());
}

TEST(DbaseTable, CountThatClaimsTooMuchEndsWithTheLastWholeRecord)
{
    const std::string bytes = Simple().Add(" 1").Add(" 2").Set(DbaseWriter::kRecordsAt, 0xFFFFFFFF, 4).Bytes();
    EXPECT_THAT(RowsOf(bytes), ElementsAre(Row{"1"}, Row{"2"}));
    EXPECT_THAT(RowsOf(bytes.substr(0, bytes.size() - 2)), ElementsAre(Row{"1"})) << "cut within a record";
}

TEST(DbaseTable, CountThatClaimsLessHolds)
{
    EXPECT_THAT(RowsOf(Simple().Add(" 1").Add(" 2").Set(DbaseWriter::kRecordsAt, 1, 4).Bytes()), ElementsAre(Row{"1"}));
    EXPECT_THAT(RowsOf(Simple().Add(" 1").Set(DbaseWriter::kRecordsAt, 0, 4).Bytes()), IsEmpty());
}

TEST(DbaseTable, MarkOfTheEndEndsTheTable)
{
    EXPECT_THAT(RowsOf(Simple().Add(" 1").Add(" 2", '\x1A').Add(" 3").Bytes()), ElementsAre(Row{"1"}));
}

TEST(DbaseTable, DoesNotOpenWhereverItsHeaderIsCutOff)
{
    const std::string bytes = DbaseWriter({{"A", 'N', 2}, {"B", 'C', 3}}).Bytes();
    const std::size_t header = 32 + 2 * 32 + 1;
    for (std::size_t size = 0; size < header; ++size)
    {
        EXPECT_THAT(Open(bytes.substr(0, size), TableFormat::Dbase), IsNull()) << size;
    }
    EXPECT_THAT(Open(bytes.substr(0, header), TableFormat::Dbase), NotNull());
}

TEST(DbaseTable, RefusesHeadersThatContradictThemselves)
{
    const auto refused = [](std::size_t at, std::uint32_t value, std::size_t count) {
        return !Open(Simple().Add(" 1").Set(at, value, count).Bytes(), TableFormat::Dbase);
    };
    EXPECT_TRUE(refused(DbaseWriter::kHeaderBytesAt, 0, 2));
    EXPECT_TRUE(refused(DbaseWriter::kHeaderBytesAt, 64, 2)) << "no room for the mark behind the fields";
    EXPECT_TRUE(refused(DbaseWriter::kHeaderBytesAt, 0xFFFF, 2)) << "more than the file has";
    EXPECT_TRUE(refused(DbaseWriter::kRecordBytesAt, 0, 2));
    EXPECT_TRUE(refused(DbaseWriter::kRecordBytesAt, 2, 2)) << "less than the fields take";
    EXPECT_TRUE(refused(DbaseWriter::kFieldsAt + 16, 0, 1)) << "a field without width";
    EXPECT_TRUE(refused(DbaseWriter::kFieldsAt + 16, 255, 1)) << "a field wider than the record";
    EXPECT_TRUE(refused(DbaseWriter::kFieldsAt, 0x0D, 1)) << "no field at all";
    EXPECT_TRUE(refused(DbaseWriter::kFieldsAt + 32, ' ', 1)) << "no mark behind the fields";
    EXPECT_TRUE(refused(2, 13, 1)) << "no such month";
    EXPECT_FALSE(refused(DbaseWriter::kRecordBytesAt, 4, 2)) << "records may be wider than their fields";
}

TEST(DbaseTable, LanguageByteTellsTheCodePage)
{
    const auto codePage = [](std::uint32_t language) {
        const auto table = Open(Simple().Set(DbaseWriter::kLanguageAt, language, 1).Bytes(), TableFormat::Dbase);
        return table ? table->CodePage() : 1;
    };
    EXPECT_EQ(codePage(0), table::kSystemCodePage);
    EXPECT_EQ(codePage(0x01), 437u);
    EXPECT_EQ(codePage(0x02), 850u);
    EXPECT_EQ(codePage(0x03), 1252u);
    EXPECT_EQ(codePage(0x57), 1252u);
    EXPECT_EQ(codePage(0xFF), table::kSystemCodePage);
}

TEST(DbaseTable, FileThatBecomesShorterEndsTheTable)
{
    DbaseWriter writer = Simple();
    for (int i = 0; i < 10'000; ++i)
    {
        writer.Add(" 1");
    }
    support::TextSource* source = nullptr;
    const auto table = Open(writer.Bytes(), TableFormat::Dbase, {256, 256, 4096}, &source);
    ASSERT_THAT(table, NotNull());
    ASSERT_TRUE(table->ReadRow(5, 0));
    source->CutTo(10'000);
    int row = 6;
    while (table->ReadRow(row, 0))
    {
        ++row;
    }
    EXPECT_GT(row, 6);
    EXPECT_LT(row, 10'000 / 3);
    EXPECT_FALSE(table->ReadRow(row + 1, 0));
}

TEST(DbaseTable, OpeningAndTheFirstPageReadLittleOfALargeFile)
{
    DbaseWriter writer = Simple();
    for (int i = 0; i < 1'000'000; ++i)
    {
        writer.Add("42");
    }
    support::TextSource* source = nullptr;
    const auto table = Open(writer.Bytes(), TableFormat::Dbase, table::kTableWindow, &source);
    ASSERT_THAT(table, NotNull());
    ASSERT_TRUE(table->ReadRow(49, 0));
    EXPECT_LE(source->m_bytesRead, 32u << 10);
    ASSERT_TRUE(table->ReadRow(999'999, 0));
    EXPECT_FALSE(table->ReadRow(1'000'000, 0));
}
