#include "workbench/ScaleBar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{
using workbench::kNarrowestBarRoom;
using workbench::MakeScaleBar;
using workbench::ParsePixelSize;
using workbench::ScaleBar;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

struct BarCase
{
    double pixelSize;
    double zoom;
    int room;
    ScaleBar expected;
};

class RoundBar : public testing::TestWithParam<BarCase>
{
};

TEST_P(RoundBar, IsTheLongestOfTheSeriesThatFits)
{
    const auto& [pixelSize, zoom, room, expected] = GetParam();
    const auto bar = MakeScaleBar(pixelSize, zoom, room);
    ASSERT_TRUE(bar.has_value());
    EXPECT_EQ(bar->label, expected.label);
    EXPECT_EQ(bar->pixels, expected.pixels);
}

INSTANTIATE_TEST_SUITE_P(ScaleBar, RoundBar,
                         testing::Values(BarCase{1, 1, 100, {100, "100 \xB5m"}},      // exactly a power of ten
                                         BarCase{1, 1, 99, {50, "50 \xB5m"}},         // one pixel short of it
                                         BarCase{1, 1, 200, {200, "200 \xB5m"}},      // exactly the second step
                                         BarCase{1, 1, 499, {200, "200 \xB5m"}},      // just below the third
                                         BarCase{1, 1, 500, {500, "500 \xB5m"}},      // exactly the third
                                         BarCase{1, 1, 999, {500, "500 \xB5m"}},      // the last before the next unit
                                         BarCase{1, 1, 1000, {1000, "1 mm"}},         // the next unit
                                         BarCase{0.5, 1, 100, {100, "50 \xB5m"}},     // half a micrometre a pixel
                                         BarCase{0.5, 2, 100, {80, "20 \xB5m"}},      // magnified
                                         BarCase{0.5, 0.25, 100, {100, "200 \xB5m"}}, // made smaller
                                         BarCase{0.1, 1, 30, {20, "2 \xB5m"}},        // 3 micrometres of room
                                         BarCase{0.3, 1, 100, {67, "20 \xB5m"}},      // rounded to whole pixels
                                         BarCase{0.001, 1, 100, {100, "100 nm"}},     // below a micrometre
                                         BarCase{0.000001, 1, 100, {100, "100 pm"}},  // below a nanometre
                                         BarCase{25000, 1, 100, {80, "2 m"}},         // a map's pixel
                                         BarCase{25000000, 1, 100, {80, "2 km"}}));   // a satellite's

TEST(ScaleBar, IsNeverLongerThanItsRoomNorShorterThanTwoFifthsOfIt)
{
    for (const double zoom : {0.013, 0.5, 1.0, 3.7})
    {
        for (double pixelSize = 0.0001; pixelSize < 10000; pixelSize *= 1.07)
        {
            for (const int room : {kNarrowestBarRoom, 77, 240})
            {
                const auto bar = MakeScaleBar(pixelSize, zoom, room);
                ASSERT_TRUE(bar.has_value()) << pixelSize << " at " << zoom;
                ASSERT_LE(bar->pixels, room) << pixelSize << " at " << zoom;
                ASSERT_GE(bar->pixels, static_cast<int>(room * 0.4)) << pixelSize << " at " << zoom;
            }
        }
    }
}

TEST(ScaleBar, IsMissingWhereARoundLengthHasNoUnit)
{
    EXPECT_FALSE(MakeScaleBar(1e-9, 1, 100)); // below a picometre
    EXPECT_FALSE(MakeScaleBar(1e11, 1, 100)); // ten thousand kilometres
    EXPECT_EQ(MakeScaleBar(5e9, 1, 100)->label, "500 km");
}

TEST(ScaleBar, IsMissingInARoomTooNarrowToSayAnything)
{
    EXPECT_FALSE(MakeScaleBar(1, 1, kNarrowestBarRoom - 1));
    EXPECT_TRUE(MakeScaleBar(1, 1, kNarrowestBarRoom));
    EXPECT_FALSE(MakeScaleBar(1, 1, 0));
    EXPECT_FALSE(MakeScaleBar(1, 1, -100));
}

TEST(ScaleBar, IsMissingForSizesAndZoomsThatAreNoPositiveNumber)
{
    for (const double bad : {0.0, -1.0, kInfinity, -kInfinity, kNotANumber})
    {
        EXPECT_FALSE(MakeScaleBar(bad, 1, 100)) << bad;
        EXPECT_FALSE(MakeScaleBar(1, bad, 100)) << bad;
    }
    constexpr double kHuge = std::numeric_limits<double>::max();
    constexpr double kTiny = std::numeric_limits<double>::denorm_min();
    EXPECT_FALSE(MakeScaleBar(kHuge, 0.1, 100)); // the quotient leaves the range
    EXPECT_FALSE(MakeScaleBar(kTiny, 10, 100));
    EXPECT_FALSE(MakeScaleBar(kHuge, 1, 100));
}

TEST(PixelSize, IsReadFromDigitsWithAPoint)
{
    EXPECT_EQ(ParsePixelSize("0.65"), 0.65);
    EXPECT_EQ(ParsePixelSize("12"), 12.0);
    EXPECT_EQ(ParsePixelSize(".5"), 0.5);
    EXPECT_EQ(ParsePixelSize("5."), 5.0);
    EXPECT_EQ(ParsePixelSize("007.250"), 7.25);
}

TEST(PixelSize, IsMissingWithoutANumberAboveZero)
{
    for (const char* text : {"", ".", "0", "0.0", "000", ".0"})
    {
        EXPECT_FALSE(ParsePixelSize(text)) << text;
    }
}

TEST(PixelSize, IsMissingForEverythingElse)
{
    for (const char* text : {"1.2.3", "-1", "+1", "1e3", "inf", "nan", "0x10", " 1", "1 ", "1,5", "a"})
    {
        EXPECT_FALSE(ParsePixelSize(text)) << text;
    }
    EXPECT_FALSE(ParsePixelSize(std::string(400, '9'))); // beyond the range of the number
}
} // namespace
