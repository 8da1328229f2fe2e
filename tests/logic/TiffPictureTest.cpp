#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>

#include <gmock/gmock.h>

#include "host/raster/TiffPicture.h"
#include "tests/support/TextSource.h"
#include "tests/support/TiffWriter.h"

namespace
{

using namespace raster;
using support::OnePage;
using support::TextSource;
using support::TiffForm;
using support::TiffKind;
using support::TiffPacking;
using support::TiffPageSpec;
using support::TiffWriter;
using testing::ElementsAre;
using testing::ElementsAreArray;

std::unique_ptr<TiffPicture> OpenPicture(const std::string& bytes, unsigned page = 0, TextSource** source = nullptr)
{
    auto file = std::make_unique<TextSource>(bytes);
    if (source != nullptr)
    {
        *source = file.get();
    }
    const TiffDirectory directory(*file);
    auto tags = directory.ReadPage(page);
    return tags ? TiffPicture::Open(std::move(file), std::move(*tags), directory.IsBigEndian()) : nullptr;
}

double ValueAt(const std::byte* at, SampleType type)
{
    const auto read = [at]<class Sample>(Sample sample) {
        std::memcpy(&sample, at, sizeof sample);
        return static_cast<double>(sample);
    };
    switch (type)
    {
    case SampleType::U8:
        return read(std::uint8_t{});
    case SampleType::U16:
        return read(std::uint16_t{});
    case SampleType::S16:
        return read(std::int16_t{});
    case SampleType::U32:
        return read(std::uint32_t{});
    case SampleType::S32:
        return read(std::int32_t{});
    default:
        return read(float{});
    }
}

std::vector<double> PickValues(Picture& picture, const std::vector<int>& columns, const std::vector<int>& rows,
                               ChannelRange channels)
{
    const SampleType type = picture.Info().type;
    std::vector<std::byte> bytes(columns.size() * rows.size() * static_cast<std::size_t>(channels.count) *
                                 BytesOf(type));
    if (!picture.Pick(columns, rows, channels, bytes))
    {
        return {};
    }
    std::vector<double> values;
    for (std::size_t at = 0; at < bytes.size(); at += BytesOf(type))
    {
        values.push_back(ValueAt(bytes.data() + at, type));
    }
    return values;
}

struct Kind
{
    TiffKind kind;
    unsigned bits;
    SampleType type;
    double lowest;
    double highest;
};

const Kind kKinds[] = {
    {TiffKind::Unsigned, 8, SampleType::U8, 0, 255},
    {TiffKind::Signed, 8, SampleType::S16, -128, 127},
    {TiffKind::Unsigned, 16, SampleType::U16, 0, 65535},
    {TiffKind::Signed, 16, SampleType::S16, -32768, 32767},
    {TiffKind::Unsigned, 32, SampleType::U32, 0, 4294967295.0},
    {TiffKind::Signed, 32, SampleType::S32, -2147483648.0, 2147483647.0},
    {TiffKind::Float, 32, SampleType::F32, -1024.5, 4096.25},
};

/// Values that reach both ends of the range and use every byte of a sample.
double Sample(const Kind& kind, unsigned x, unsigned y, unsigned channel)
{
    const double part = ((x * 7 + y * 13 + channel * 29) % 101) / 100.0;
    const double value = kind.lowest + part * (kind.highest - kind.lowest);
    return kind.kind == TiffKind::Float ? static_cast<float>(value) : std::trunc(value);
}

/// Every layout of one sample kind, with the same values.
class EveryTiffLayout : public testing::TestWithParam<Kind>
{
};

TEST_P(EveryTiffLayout, DeliversItsValues)
{
    const Kind kind = GetParam();
    for (const auto packing : {TiffPacking::None, TiffPacking::Lzw, TiffPacking::Deflate, TiffPacking::PackBits})
    {
        for (const bool bigEndian : {false, true})
        {
            for (const bool large : {false, true})
            {
                for (const unsigned samples : {1U, 3U})
                {
                    for (const bool planar : {false, true})
                    {
                        for (const unsigned tile : {0U, 16U})
                        {
                            for (const unsigned predictor : {1U, kind.kind == TiffKind::Float ? 3U : 2U})
                            {
                                TiffPageSpec page;
                                page.width = 37;
                                page.height = 21;
                                page.samples = samples;
                                page.bits = kind.bits;
                                page.kind = kind.kind;
                                page.packing = packing;
                                page.tileWidth = page.tileHeight = tile;
                                page.rowsPerStrip = 4;
                                page.planar = planar;
                                page.predictor = packing == TiffPacking::None ? 1 : predictor;
                                page.value = [&](unsigned x, unsigned y, unsigned c) { return Sample(kind, x, y, c); };
                                SCOPED_TRACE(testing::Message()
                                             << "packing " << static_cast<unsigned>(packing) << " big-endian "
                                             << bigEndian << " large " << large << " samples " << samples << " planar "
                                             << planar << " tile " << tile << " predictor " << page.predictor);
                                const auto picture = OpenPicture(OnePage(page, TiffForm{bigEndian, large}).Bytes());
                                ASSERT_NE(picture, nullptr);
                                EXPECT_EQ(picture->Info().width, 37);
                                EXPECT_EQ(picture->Info().height, 21);
                                EXPECT_EQ(picture->Info().channels, static_cast<int>(samples));
                                EXPECT_EQ(picture->Info().type, kind.type);
                                const std::vector<int> columns = {0, 1, 15, 16, 16, 30, 36};
                                const std::vector<int> rows = {0, 3, 4, 4, 15, 16, 20};
                                std::vector<double> expected;
                                for (const int y : rows)
                                {
                                    for (const int x : columns)
                                    {
                                        for (unsigned c = 0; c < samples; ++c)
                                        {
                                            expected.push_back(
                                                Sample(kind, static_cast<unsigned>(x), static_cast<unsigned>(y), c));
                                        }
                                    }
                                }
                                ASSERT_THAT(PickValues(*picture, columns, rows, {0, static_cast<int>(samples)}),
                                            ElementsAreArray(expected));
                            }
                        }
                    }
                }
            }
        }
    }
}

TEST_P(EveryTiffLayout, CanBeAskedForOneOfItsChannels)
{
    const Kind kind = GetParam();
    for (const bool planar : {false, true})
    {
        TiffPageSpec page;
        page.width = 5;
        page.height = 4;
        page.samples = 4;
        page.bits = kind.bits;
        page.kind = kind.kind;
        page.planar = planar;
        page.value = [&](unsigned x, unsigned y, unsigned c) { return Sample(kind, x, y, c); };
        const auto picture = OpenPicture(OnePage(page).Bytes());
        ASSERT_NE(picture, nullptr);
        EXPECT_THAT(PickValues(*picture, {1, 3}, {2}, {2, 1}),
                    ElementsAre(Sample(kind, 1, 2, 2), Sample(kind, 3, 2, 2)));
    }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, EveryTiffLayout, testing::ValuesIn(kKinds));

TEST(TiffPicture, LevelsThatCountFromWhiteAreTurnedOver)
{
    TiffPageSpec page;
    page.width = 3;
    page.whiteIsZero = true;
    page.value = [](unsigned x, unsigned, unsigned) { return x * 100.0; };
    const auto picture = OpenPicture(OnePage(page).Bytes());
    ASSERT_NE(picture, nullptr);
    EXPECT_THAT(PickValues(*picture, {0, 1, 2}, {0}, {}), ElementsAre(255, 155, 55));
}

TEST(TiffPicture, FloatingPointLevelsThatCountFromWhiteStayAsTheyAre)
{
    TiffPageSpec page;
    page.bits = 32;
    page.kind = TiffKind::Float;
    page.whiteIsZero = true;
    page.value = [](unsigned, unsigned, unsigned) { return 2.5; };
    const auto picture = OpenPicture(OnePage(page).Bytes());
    ASSERT_NE(picture, nullptr);
    EXPECT_THAT(PickValues(*picture, {0}, {0}, {}), ElementsAre(2.5));
}

TEST(TiffPicture, OpacityIsNoChannel)
{
    TiffPageSpec page;
    page.samples = 4;
    page.alpha = true;
    const auto picture = OpenPicture(OnePage(page).Bytes());
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Info().channels, 3);
}

TEST(TiffPicture, PagesCountFromZeroAlongTheChain)
{
    TiffWriter writer;
    for (unsigned n = 1; n <= 3; ++n)
    {
        TiffPageSpec page;
        page.width = 10 * n;
        page.value = [n](unsigned, unsigned, unsigned) { return n; };
        writer.AddPage(page);
    }
    const auto picture = OpenPicture(writer.Bytes(), 2);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Info().width, 30);
    EXPECT_THAT(PickValues(*picture, {29}, {0}, {}), ElementsAre(3));
    EXPECT_EQ(OpenPicture(writer.Bytes(), 3), nullptr);
    EXPECT_EQ(OpenPicture(writer.Bytes(), std::numeric_limits<unsigned>::max()), nullptr);
}

TEST(TiffPicture, OnlyTheRowsThatAreAskedForAreReadFromOneHugeStrip)
{
    TiffPageSpec page;
    page.width = 1000;
    page.height = 1000;
    page.value = [](unsigned, unsigned y, unsigned) { return y % 256; };
    TextSource* source = nullptr;
    const auto picture = OpenPicture(OnePage(page).Bytes(), 0, &source);
    ASSERT_NE(picture, nullptr);
    source->m_bytesRead = 0;
    EXPECT_THAT(PickValues(*picture, {0, 999}, {100, 900}, {}), ElementsAre(100, 100, 900 % 256, 900 % 256));
    EXPECT_LE(source->m_bytesRead, 2000U);
}

TEST(TiffPicture, APackedStripIsUnpackedOnceByRowsAskedForInOrder)
{
    TiffPageSpec page;
    page.width = 1000;
    page.height = 1000;
    page.packing = TiffPacking::Deflate;
    page.value = [](unsigned, unsigned y, unsigned) { return y % 256; };
    const std::string bytes = OnePage(page).Bytes();
    TextSource* source = nullptr;
    const auto picture = OpenPicture(bytes, 0, &source);
    ASSERT_NE(picture, nullptr);
    source->m_bytesRead = 0;
    for (int y = 0; y < 1000; ++y)
    {
        ASSERT_THAT(PickValues(*picture, {5}, {y}, {}), ElementsAre(y % 256));
    }
    EXPECT_LE(source->m_bytesRead, bytes.size());
    EXPECT_THAT(PickValues(*picture, {5}, {3}, {}), ElementsAre(3)) << "and again from the start";
}

/// One small file of each packing.
class DamagedTiff : public testing::TestWithParam<TiffPacking>
{
protected:
    static std::string MakeFile()
    {
        TiffPageSpec page;
        page.width = 40;
        page.height = 30;
        page.bits = 16;
        page.rowsPerStrip = 8;
        page.packing = GetParam();
        page.value = [](unsigned x, unsigned y, unsigned) { return x * y; };
        return OnePage(page).Bytes();
    }
    static std::vector<double> ReadAll(const std::string& bytes)
    {
        const auto picture = OpenPicture(bytes);
        if (!picture)
        {
            return {};
        }
        std::vector<int> columns(40);
        std::vector<int> rows(30);
        std::iota(columns.begin(), columns.end(), 0);
        std::iota(rows.begin(), rows.end(), 0);
        if (picture->Info().width != 40 || picture->Info().height != 30)
        {
            return {};
        }
        return PickValues(*picture, columns, rows, {});
    }
};

TEST_P(DamagedTiff, CutOffAnywhereCantBeRead)
{
    const std::string whole = MakeFile();
    ASSERT_EQ(ReadAll(whole).size(), 1200U);
    for (std::size_t size = 0; size + 4 < whole.size(); ++size) // the last word, the place of the next page, may go
    {
        ASSERT_TRUE(ReadAll(whole.substr(0, size)).empty()) << size;
    }
}

TEST_P(DamagedTiff, WithAnyByteChangedIsReadOrRefusedWithoutHarm)
{
    const std::string whole = MakeFile();
    std::size_t refused = 0;
    for (std::size_t at = 0; at < whole.size(); ++at)
    {
        constexpr char kChanges[] = {'\x01', '\x80', '\xFF'};
        std::string damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ kChanges[at % 3]);
        refused += ReadAll(damaged).empty() ? 1 : 0;
    }
    EXPECT_GT(refused, 20U); // the tags at least
}

INSTANTIATE_TEST_SUITE_P(AllPackings, DamagedTiff,
                         testing::Values(TiffPacking::None, TiffPacking::Lzw, TiffPacking::Deflate,
                                         TiffPacking::PackBits));

TEST(TiffPicture, APageThatClaimsMoreThanItsPackedBytesCanSayIsRefused)
{
    TiffPageSpec page;
    page.width = 60000;
    page.height = 60000;
    page.packing = TiffPacking::Deflate;
    page.tileWidth = page.tileHeight = 16384;
    page.sharedTile = true;
    TiffPageSpec small = page;
    small.width = small.height = 16;
    small.tileWidth = small.tileHeight = 16;
    std::string bytes = OnePage(small).Bytes();
    ASSERT_NE(OpenPicture(bytes), nullptr);
    for (std::size_t at = 0; at + 12 <= bytes.size(); ++at)
    {
        // width, height and both sides of the tile
        for (const int tag : {256, 257, 322, 323})
        {
            const std::string entry = {
                static_cast<char>(tag & 0xFF), static_cast<char>(tag >> 8), 4, 0, 1, 0, 0, 0, 16, 0, 0, 0};
            if (bytes.compare(at, entry.size(), entry) == 0)
            {
                bytes.replace(at + 8, 4, std::string("\x60\xEA\0\0", 4));
            }
        }
    }
    TextSource source(bytes);
    ASSERT_EQ(TiffDirectory(source).ReadPage(0).value().width, 60000U);
    EXPECT_EQ(OpenPicture(bytes), nullptr);
}

} // namespace
