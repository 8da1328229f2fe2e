#include <gmock/gmock.h>

#include "host/raster/TiffDirectory.h"
#include "tests/support/TiffWriter.h"

namespace
{

using namespace raster;
using support::OnePage;
using support::TiffForm;
using support::TiffKind;
using support::TiffPageSpec;
using support::TiffWriter;

host::SpanSource SourceOf(const std::string& bytes) { return host::SpanSource(std::as_bytes(std::span(bytes))); }

TEST(TiffDirectory, TellsATiffFileByItsFirstBytes)
{
    const auto isTiff = [](std::string bytes) {
        host::SpanSource source = SourceOf(bytes);
        return TiffDirectory(source).IsTiff();
    };
    EXPECT_TRUE(isTiff({'I', 'I', 42, 0, 8, 0, 0, 0}));
    EXPECT_TRUE(isTiff({'M', 'M', 0, 42, 0, 0, 0, 8}));
    EXPECT_TRUE(isTiff({'I', 'I', 43, 0, 8, 0, 0, 0}));
    EXPECT_FALSE(isTiff({'I', 'I', 43, 0, 4, 0, 0, 0}));
    EXPECT_FALSE(isTiff({'I', 'I', 0, 42, 8, 0, 0, 0}));
    EXPECT_FALSE(isTiff({'I', 'M', 42, 0, 8, 0, 0, 0}));
    EXPECT_FALSE(isTiff({'I', 'I', 42, 0}));
    EXPECT_FALSE(isTiff({}));
}

TEST(TiffDirectory, TellsWhatAPageHoldsInEveryForm)
{
    for (const bool bigEndian : {false, true})
    {
        for (const bool large : {false, true})
        {
            TiffPageSpec spec;
            spec.width = 100;
            spec.height = 70;
            spec.samples = 4;
            spec.alpha = true;
            spec.bits = 16;
            spec.kind = TiffKind::Signed;
            spec.rowsPerStrip = 30;
            const std::string bytes = OnePage(spec, TiffForm{bigEndian, large}).Bytes();
            host::SpanSource source = SourceOf(bytes);
            const TiffDirectory directory(source);
            const auto page = directory.ReadPage(0);
            ASSERT_TRUE(page);
            EXPECT_EQ(directory.IsBigEndian(), bigEndian);
            EXPECT_EQ(page->width, 100U);
            EXPECT_EQ(page->height, 70U);
            EXPECT_EQ(page->samples, 4U);
            EXPECT_EQ(page->alphas, 1U);
            EXPECT_EQ(page->bits, 16U);
            EXPECT_EQ(page->format, TiffSampleFormat::Signed);
            EXPECT_EQ(page->photometric, TiffPhotometric::Rgb);
            EXPECT_EQ(page->blockWidth, 100U);
            EXPECT_EQ(page->blockHeight, 30U);
            EXPECT_EQ(page->blocksDown, 3U);
            EXPECT_EQ(page->offsets.size(), 3U);
            EXPECT_EQ(page->byteCounts, (std::vector<std::uint64_t>{24000, 24000, 8000}));
        }
    }
}

TEST(TiffDirectory, CountsThePagesOfAChain)
{
    TiffWriter writer;
    for (int n = 0; n < 5; ++n)
    {
        writer.AddPage({});
    }
    host::SpanSource source = SourceOf(writer.Bytes());
    EXPECT_EQ(TiffDirectory(source).CountPages(), 5U);
}

TEST(TiffDirectory, AChainThatClosesToARingEndsAfterOneTurn)
{
    TiffWriter writer;
    writer.AddPage({});
    std::string bytes = writer.Bytes();
    // The last word is the place of the next page; the place of the first one stands in the header.
    bytes.replace(bytes.size() - 4, 4, bytes.substr(4, 4));
    host::SpanSource source = SourceOf(bytes);
    const TiffDirectory directory(source);
    EXPECT_EQ(directory.CountPages(), 1U);
    EXPECT_TRUE(directory.ReadPage(0));
    EXPECT_FALSE(directory.ReadPage(1));
    EXPECT_FALSE(directory.ReadPage(0xFFFFFFFF));
}

TEST(TiffDirectory, AListLongerThanTheFileIsRefusedBeforeRoomIsMadeForIt)
{
    TiffPageSpec spec;
    spec.width = 16;
    spec.height = 16;
    std::string bytes = OnePage(spec).Bytes();
    const std::string height = {1, 1, 4, 0, 1, 0, 0, 0, 16, 0, 0, 0};
    const std::string rows = {22, 1, 4, 0, 1, 0, 0, 0, 16, 0, 0, 0};
    const std::string offsets = {17, 1, 4, 0, 1, 0, 0, 0};
    ASSERT_NE(bytes.find(height), std::string::npos);
    ASSERT_NE(bytes.find(rows), std::string::npos);
    ASSERT_NE(bytes.find(offsets), std::string::npos);
    bytes.replace(bytes.find(height) + 8, 4, "\xFF\xFF\xFF\x7F");         // two thousand million rows ...
    bytes.replace(bytes.find(rows) + 8, 4, std::string("\x01\0\0\0", 4)); // ... each a strip
    bytes.replace(bytes.find(offsets) + 4, 4, "\xFF\xFF\xFF\x7F");
    host::SpanSource source = SourceOf(bytes);
    EXPECT_FALSE(TiffDirectory(source).ReadPage(0));
}

TEST(TiffDirectory, AFileWithoutPagesHasNone)
{
    const std::string bytes = TiffWriter().Bytes();
    host::SpanSource source = SourceOf(bytes);
    EXPECT_EQ(TiffDirectory(source).CountPages(), 0U);
    EXPECT_FALSE(TiffDirectory(source).ReadPage(0));
}

} // namespace
