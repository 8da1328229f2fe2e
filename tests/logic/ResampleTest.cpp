// ResampleTest.cpp - which source pixels a window shows, at which size

#include <cmath>
#include <cstring>
#include <limits>

#include <gmock/gmock.h>

#include "host/raster/PictureFile.h"
#include "host/raster/Resample.h"

namespace
{

using namespace raster;
using testing::Each;
using testing::ElementsAre;

/// A picture whose pixel at (x, y) of channel c is 16 * y + x + 100 * c.
class RampPicture final : public Picture
{
public:
    RampPicture(int width, int height, int channels) : m_info{width, height, channels, SampleType::U8, 2} {}
    const PictureInfo& Info() const noexcept override { return m_info; }
    bool Pick(std::span<const int> columns, std::span<const int> rows, ChannelRange channels,
              std::span<std::byte> pixels) override
    {
        ++m_picks;
        std::size_t at = 0;
        for (const int y : rows)
        {
            for (const int x : columns)
            {
                EXPECT_TRUE(x >= 0 && x < m_info.width && y >= 0 && y < m_info.height);
                for (int c = channels.first; c < channels.first + channels.count; ++c)
                {
                    pixels[at++] = static_cast<std::byte>(16 * y + x + 100 * c);
                }
            }
        }
        EXPECT_EQ(at, pixels.size());
        return m_isWhole;
    }
    int m_picks = 0;
    bool m_isWhole = true;

private:
    PictureInfo m_info;
};

std::vector<int> ReadWindow(WindowReader& reader, int channel, SourceWindow window, int width, int height,
                            ResampleMethod method)
{
    std::vector<std::byte> bytes(static_cast<std::size_t>(width * height), std::byte{0xCC});
    const bool done = reader.Read(channel, window, width, height, method, bytes);
    std::vector<int> values;
    for (const std::byte byte : bytes)
    {
        values.push_back(std::to_integer<int>(byte));
    }
    EXPECT_TRUE(done || std::ranges::count(values, 0) == width * height);
    return values;
}

TEST(Nearest, TakesThePixelUnderTheCentre)
{
    EXPECT_THAT(FindNearest(0, 4, 4, 4).sources, ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(FindNearest(0, 9, 3, 9).sources, ElementsAre(1, 4, 7));
    EXPECT_THAT(FindNearest(0, 2, 6, 2).sources, ElementsAre(0, 0, 0, 1, 1, 1));
    EXPECT_THAT(FindNearest(1.5, 3.5, 2, 4).sources, ElementsAre(2, 3));
}

TEST(Nearest, LeavesOutWhatLiesBesideThePicture)
{
    const auto left = FindNearest(-2, 2, 4, 4);
    EXPECT_EQ(left.firstTarget, 2);
    EXPECT_THAT(left.sources, ElementsAre(0, 1));
    EXPECT_THAT(FindNearest(2, 6, 4, 4).sources, ElementsAre(2, 3));
    EXPECT_TRUE(FindNearest(10, 20, 4, 4).sources.empty());
    EXPECT_TRUE(FindNearest(-1e300, 1e300, 2, 4).sources.empty());
}

TEST(Nearest, TheLargestSizesDontOverflow)
{
    constexpr int kMost = std::numeric_limits<int>::max();
    EXPECT_THAT(FindNearest(0, kMost, 2, kMost).sources, ElementsAre(kMost / 4, kMost / 4 * 3 + 2));
}

TEST(Windows, AreProperWhenFiniteAndNotEmpty)
{
    const double nan = std::nan("");
    const double inf = std::numeric_limits<double>::infinity();
    const double most = std::numeric_limits<double>::max();
    EXPECT_TRUE(IsProper({0, 0, 1, 1}));
    EXPECT_TRUE(IsProper({-5.5, -1, 0.25, 0}));
    EXPECT_FALSE(IsProper({0, 0, 0, 1}));
    EXPECT_FALSE(IsProper({0, 1, 1, 0}));
    EXPECT_FALSE(IsProper({nan, 0, 1, 1}));
    EXPECT_FALSE(IsProper({0, 0, inf, 1}));
    EXPECT_FALSE(IsProper({-most, 0, most, 1})) << "its width is no number";
}

TEST(WindowReader, ReadsAChannelWithNearestPixels)
{
    RampPicture picture(4, 4, 2);
    WindowReader reader(picture);
    EXPECT_THAT(ReadWindow(reader, 0, {0, 0, 4, 4}, 2, 2, ResampleMethod::Nearest), ElementsAre(17, 19, 49, 51));
    EXPECT_THAT(ReadWindow(reader, 1, {0, 0, 4, 4}, 2, 2, ResampleMethod::Nearest), ElementsAre(117, 119, 149, 151));
    EXPECT_EQ(picture.m_picks, 1) << "the second channel is remembered";
    EXPECT_THAT(ReadWindow(reader, 0, {0, 0, 2, 2}, 2, 2, ResampleMethod::Nearest), ElementsAre(0, 1, 16, 17));
    EXPECT_EQ(picture.m_picks, 2) << "another window is read";
}

TEST(WindowReader, WhatLiesBesideThePictureIsZero)
{
    for (const int channels : {1, 2})
    {
        RampPicture picture(2, 2, channels);
        WindowReader reader(picture);
        EXPECT_THAT(ReadWindow(reader, 0, {1, 1, 3, 3}, 2, 2, ResampleMethod::Nearest), ElementsAre(17, 0, 0, 0));
        EXPECT_THAT(ReadWindow(reader, 0, {-1, 0, 1, 1}, 2, 1, ResampleMethod::Nearest), ElementsAre(0, 0));
        EXPECT_THAT(ReadWindow(reader, 0, {-1, 1, 1, 2}, 2, 1, ResampleMethod::Average), ElementsAre(0, 16));
        EXPECT_THAT(ReadWindow(reader, 0, {5, 5, 7, 7}, 2, 2, ResampleMethod::Average), Each(0));
    }
}

TEST(WindowReader, AveragesWhatATargetPixelCovers)
{
    RampPicture picture(4, 4, 1);
    WindowReader reader(picture);
    // 0, 1, 16, 17 have the mean 8.5, rounded up
    EXPECT_THAT(ReadWindow(reader, 0, {0, 0, 4, 4}, 2, 2, ResampleMethod::Average), ElementsAre(9, 11, 41, 43));
    EXPECT_THAT(ReadWindow(reader, 0, {0, 0, 4, 4}, 1, 1, ResampleMethod::Average), ElementsAre(26));
    EXPECT_THAT(ReadWindow(reader, 0, {0, 1, 4, 2}, 4, 1, ResampleMethod::Average), ElementsAre(16, 17, 18, 19));
    EXPECT_THAT(ReadWindow(reader, 0, {0, 0.25, 1, 1.25}, 1, 1, ResampleMethod::Average), ElementsAre(4));
    EXPECT_THAT(ReadWindow(reader, 0, {0, 0, 2, 1}, 4, 1, ResampleMethod::Average), ElementsAre(0, 0, 1, 1));
}

TEST(WindowReader, AFailureLeavesZeros)
{
    for (const int channels : {1, 3})
    {
        RampPicture picture(4, 4, channels);
        picture.m_isWhole = false;
        WindowReader reader(picture);
        EXPECT_THAT(ReadWindow(reader, 0, {0, 0, 4, 4}, 4, 4, ResampleMethod::Nearest), Each(0));
        EXPECT_THAT(ReadWindow(reader, 0, {0, 0, 4, 4}, 2, 2, ResampleMethod::Average), Each(0));
        EXPECT_THAT(ReadWindow(reader, 0, {1, 0, 9, 4}, 2, 2, ResampleMethod::Nearest), Each(0));
        picture.m_isWhole = true;
        EXPECT_THAT(ReadWindow(reader, 0, {0, 0, 4, 4}, 1, 1, ResampleMethod::Nearest), ElementsAre(34))
            << "and nothing of it is remembered";
    }
}

TEST(PictureNames, APageIsAnOptionBehindTheName)
{
    const auto page = [](const char* text) { return ParsePictureName(text).value().page; };
    EXPECT_EQ(page("a.tif"), 0U);
    EXPECT_EQ(page("a.tif?"), 0U);
    EXPECT_EQ(page("a.tif?page=12"), 12U);
    EXPECT_EQ(ParsePictureName("c:\\b\\a.tif?page=1").value().path, "c:\\b\\a.tif");
    EXPECT_EQ(ParsePictureName("\\\\?\\c:\\a.tif?page=3").value().path, "\\\\?\\c:\\a.tif");
    EXPECT_EQ(page("\\\\?\\c:\\a.tif?page=3"), 3U);
    for (const char* bad : {"", "?page=1", "a?page", "a?page=", "a?page=x", "a?page=1x", "a?page=-1", "a?page=+1",
                            "a?page= 1", "a?page=4294967296", "a?page=1&page=1", "a?other=1", "a?PAGE=1"})
    {
        EXPECT_FALSE(ParsePictureName(bad)) << bad;
    }
}

TEST(PictureFiles, ClaimsThatTheFileCantHoldAreRefused)
{
    using namespace std::string_literals;
    const auto recognise = [](std::string bytes, std::size_t size) {
        bytes.resize(size);
        host::SpanSource source(std::as_bytes(std::span(bytes)));
        return RecognisePicture(source);
    };
    const auto png = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\x40\0\0\0\x40\0\x08\0\0\0\0"s; // 2^28 bytes
    EXPECT_FALSE(recognise(png, 200000));
    EXPECT_EQ(recognise(png, 300000), PictureFormat::Png);
    EXPECT_FALSE(recognise(png, 32)) << "cut off in its header";
    const auto bmp = "BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x10\0\0\0\x10\0\0\0\x01\0\x18\0\0\0\0\0"s; // 768 bytes
    EXPECT_FALSE(recognise(bmp, 0x36 + 767));
    EXPECT_EQ(recognise(bmp, 0x36 + 768), PictureFormat::Bmp);
    const auto jpg = "\xFF\xD8\xFF\xE0\0\x04xx\xFF\xC0\0\x0B\x08\xFF\xFF\xFF\xFF\x01\x01\x11\0"s;
    EXPECT_FALSE(recognise(jpg, 2000000));
    EXPECT_EQ(recognise(jpg, 3000000), PictureFormat::Jpeg);
    EXPECT_EQ(recognise("GIF89a\x10\0\x10\0\0\0\0"s, 20), PictureFormat::Gif);
    EXPECT_EQ(recognise("II*\0"s, 8), PictureFormat::Tiff);
    EXPECT_FALSE(recognise(""s, 0));
    EXPECT_FALSE(recognise("text"s, 100));
}

} // namespace
