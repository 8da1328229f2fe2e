// TableFormatTest.cpp - how the format of a table is found
#include <gmock/gmock.h>

#include "host/tables/TextStart.h"
#include "TableText.h"
#include "tests/support/DbaseWriter.h"

using namespace tabletest;
using table::FormatOfContent;
using table::FormatOfExtension;
using table::FormatOfId;
using table::TableFormat;
using testing::Optional;

namespace
{
std::optional<TableFormat> ContentOf(const std::string& text)
{
    support::TextSource source(text);
    return FormatOfContent(source);
}
} // namespace

TEST(TableFormat, IdentifiersAreFoundWithoutRegardToCase)
{
    EXPECT_THAT(FormatOfId("CSV"), Optional(TableFormat::Csv));
    EXPECT_THAT(FormatOfId("TCSV"), Optional(TableFormat::Transposed));
    EXPECT_THAT(FormatOfId("txt"), Optional(TableFormat::Text));
    EXPECT_THAT(FormatOfId("dBase"), Optional(TableFormat::Dbase));
    EXPECT_EQ(FormatOfId("XLS"), std::nullopt);
    EXPECT_EQ(FormatOfId(""), std::nullopt);
    EXPECT_EQ(FormatOfId("CS"), std::nullopt);
}

TEST(TableFormat, ExtensionsTellTheFormatOrNothing)
{
    EXPECT_THAT(FormatOfExtension("csv"), Optional(TableFormat::Csv));
    EXPECT_THAT(FormatOfExtension("CSV"), Optional(TableFormat::Csv));
    EXPECT_THAT(FormatOfExtension("tcsv"), Optional(TableFormat::Transposed));
    EXPECT_THAT(FormatOfExtension("txt"), Optional(TableFormat::Text));
    EXPECT_THAT(FormatOfExtension("tsv"), Optional(TableFormat::Text));
    EXPECT_THAT(FormatOfExtension("tab"), Optional(TableFormat::Text));
    EXPECT_THAT(FormatOfExtension("dbf"), Optional(TableFormat::Dbase));
    EXPECT_EQ(FormatOfExtension("dat"), std::nullopt);
    EXPECT_EQ(FormatOfExtension(""), std::nullopt);
}

TEST(TableExtensions, AllTellAFormat)
{
    ASSERT_FALSE(table::TableExtensions().empty());
    for (const auto extension : table::TableExtensions())
    {
        EXPECT_NE(FormatOfExtension(extension), std::nullopt) << extension;
    }
}

TEST(TableFormat, ContentTellsTheFormatWhereNothingElseDoes)
{
    EXPECT_THAT(ContentOf("A,B\n1,2\n"), Optional(TableFormat::Csv));
    EXPECT_THAT(ContentOf("A,B\tC\n1,2\t3\n"), Optional(TableFormat::Text));
    EXPECT_THAT(ContentOf("\"A,B\" C\n1 2\n"), Optional(TableFormat::Text))
        << "a comma within quotes separates nothing";
    EXPECT_THAT(ContentOf("A B\n1,2 3\n"), Optional(TableFormat::Text)) << "only the first line counts";
    EXPECT_THAT(ContentOf(support::DbaseWriter({{"A", 'N', 2}}).Bytes()), Optional(TableFormat::Dbase));
    EXPECT_EQ(ContentOf(""), std::nullopt);
    EXPECT_EQ(ContentOf("GIF89a\x01\x02"), std::nullopt);
}

TEST(TableFormat, TextOfAnotherFormatIsRefusedWithACause)
{
    DError error;
    EXPECT_THAT(table::OpenTable(std::make_unique<support::TextSource>("A,B\n1,2\n"), TableFormat::Dbase, &error),
                testing::IsNull());
    EXPECT_STREQ(error.GetErrorText().c_str(), "The file is no dBase table, or its header is damaged.");
}

TEST(TextStart, ByteOrderMarkTellsTheCodePage)
{
    support::TextSource plain("A,B\n");
    EXPECT_EQ(table::FindTextStart(plain).codePage, table::kSystemCodePage);
    EXPECT_EQ(table::FindTextStart(plain).at, 0u);
    support::TextSource marked("\xEF\xBB\xBF"
                               "A,B\n");
    EXPECT_EQ(table::FindTextStart(marked).codePage, table::kUtf8CodePage);
    EXPECT_EQ(table::FindTextStart(marked).at, 3u);
}

TEST(TextStart, MarkThatOldProgramsEndATextWithIsNoSignOfBinaryData)
{
    support::TextSource source("A,B\r\n1,2\r\n\x1A");
    EXPECT_TRUE(table::FindTextStart(source).isText);
}

TEST(TextStart, FailedReadingIsNoText)
{
    support::TextSource source("A,B\n1,2\n");
    source.CutTo(2);
    EXPECT_FALSE(table::FindTextStart(source).isText);
}
