// ContrastStretchTest.cpp - the stretch to 8 bits, against the plain algorithm and at its edges

#include "tavkit/drawing/ContrastStretch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace
{

using tavkit::BytesPerPixel;
using tavkit::PixelType;
using tavkit::StretchContrast;

template <class Pixel>
constexpr PixelType kType = PixelType::Float32;
template <>
constexpr PixelType kType<std::uint8_t> = PixelType::Unsigned8;
template <>
constexpr PixelType kType<std::uint16_t> = PixelType::Unsigned16;
template <>
constexpr PixelType kType<std::int16_t> = PixelType::Signed16;
template <>
constexpr PixelType kType<std::uint32_t> = PixelType::Unsigned32;
template <>
constexpr PixelType kType<std::int32_t> = PixelType::Signed32;

// The algorithm step by step, one pixel after the other, for finite pixels.
template <class Pixel>
std::vector<unsigned char> Plain(const std::vector<Pixel>& pixels)
{
    std::vector<unsigned char> bytes(pixels.size() * sizeof(Pixel));
    std::memcpy(bytes.data(), pixels.data(), bytes.size());
    double minimum = 1e32;
    double maximum = -1e32;
    double sum = 0;
    double squares = 0;
    double m = 0;
    for (const double v : pixels)
    {
        minimum = std::min(minimum, v);
        maximum = std::max(maximum, v);
        if (v != 0)
        {
            sum += v;
            squares += v * v;
            ++m;
        }
    }
    if (m == 0)
    {
        return bytes;
    }
    const double mean = sum / m;
    const double band = 3 * std::sqrt((squares - sum * sum / m) / m);
    const double lo = mean - band > minimum ? mean - band : minimum;
    const double hi = mean + band < maximum ? mean + band : maximum;
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        const double v = pixels[i];
        if (!(hi - lo > 1e-6))
        {
            bytes[i] = v != 0 ? 255 : bytes[i];
            continue;
        }
        const double s = 255 / (hi - lo);
        bytes[i] = v < lo ? 0 : v > hi ? 255 : static_cast<unsigned char>((v - lo) * s);
    }
    return bytes;
}

template <class Pixel>
std::vector<unsigned char> Stretched(std::vector<Pixel> pixels)
{
    StretchContrast(pixels.data(), pixels.size(), kType<Pixel>);
    std::vector<unsigned char> bytes(pixels.size() * sizeof(Pixel));
    std::memcpy(bytes.data(), pixels.data(), bytes.size());
    return bytes;
}

// The pixels that became visible: one byte each.
template <class Pixel>
std::vector<int> Shown(std::vector<Pixel> pixels)
{
    const std::size_t count = pixels.size();
    const std::vector<unsigned char> bytes = Stretched(std::move(pixels));
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count)};
}

template <class Pixel>
class EveryPixelType : public testing::Test
{
};

using PixelTypes = testing::Types<std::uint8_t, std::uint16_t, std::int16_t, std::uint32_t, std::int32_t, float>;
TYPED_TEST_SUITE(EveryPixelType, PixelTypes);

TYPED_TEST(EveryPixelType, TakesItsBytes)
{
    EXPECT_EQ(BytesPerPixel(kType<TypeParam>), static_cast<int>(sizeof(TypeParam)));
}

// Small whole numbers: all sums are exact in doubles, in whatever order they are added up.
TYPED_TEST(EveryPixelType, FollowsTheAlgorithmOverRandomPixels)
{
    std::mt19937 random(7);
    const int low = std::is_signed_v<TypeParam> ? -100 : 0;
    for (const std::size_t count : {1U, 2U, 7U, 8U, 9U, 100U, 4095U, 4096U, 4097U, 20000U})
    {
        std::uniform_int_distribution<int> values(low, 155);
        std::vector<TypeParam> pixels(count);
        std::generate(pixels.begin(), pixels.end(), [&] { return static_cast<TypeParam>(values(random)); });
        EXPECT_EQ(Stretched(pixels), Plain(pixels)) << count << " pixels";
    }
}

TYPED_TEST(EveryPixelType, CutsOffWhatLiesBeyondThreeDeviations)
{
    std::vector<TypeParam> pixels(2000, TypeParam{100});
    for (std::size_t i = 0; i < pixels.size(); i += 2)
    {
        pixels[i] = TypeParam{110};
    }
    pixels[3] = TypeParam{1};   // dark outlier
    pixels[4] = TypeParam{127}; // bright outlier
    const std::vector<int> shown = Shown(pixels);
    EXPECT_EQ(shown[3], 0);
    EXPECT_EQ(shown[4], 255);
    EXPECT_GT(shown[1], 0);
    EXPECT_LT(shown[0], 255);
    EXPECT_LT(shown[1], shown[0]);
    EXPECT_EQ(Stretched(pixels), Plain(pixels));
}

TYPED_TEST(EveryPixelType, SpreadsTwoValuesOverTheWholeRange)
{
    EXPECT_EQ(Shown<TypeParam>({10, 20, 10, 20}), (std::vector<int>{0, 255, 0, 255}));
}

TYPED_TEST(EveryPixelType, TruncatesTowardsZero)
{
    EXPECT_EQ(Shown<TypeParam>({10, 11, 20}), (std::vector<int>{0, 25, 255})); // 25.5
}

TYPED_TEST(EveryPixelType, MayLeaveItsHighestValueJustBelowWhite)
{
    // The scale is rounded before it is used: 100 * (255 / 100) is a little less than 255.
    EXPECT_EQ(Shown<TypeParam>({10, 110}), (std::vector<int>{0, 254}));
}

TYPED_TEST(EveryPixelType, KeepsZeroesOutOfTheMeanButInTheMinimum)
{
    // mean 105, deviation 5: the window is 90 to 110, and zero lies below it
    EXPECT_EQ(Shown<TypeParam>({0, 100, 110, 100, 110}), (std::vector<int>{0, 127, 255, 127, 255}));
    // mean 60, deviation 50: the window would start at -90, but the minimum is zero
    EXPECT_EQ(Shown<TypeParam>({0, 10, 110}), (std::vector<int>{0, 23, 255}));
}

TYPED_TEST(EveryPixelType, TurnsEqualPixelsWhite)
{
    EXPECT_EQ(Shown(std::vector<TypeParam>(5000, TypeParam{42})), std::vector<int>(5000, 255));
}

TYPED_TEST(EveryPixelType, LeavesAnAllZeroChannelAllZero)
{
    EXPECT_EQ(Stretched(std::vector<TypeParam>(5000)), std::vector<unsigned char>(5000 * sizeof(TypeParam)));
}

// One value and zeroes: the deviation is 0, so the window is that value alone.
TYPED_TEST(EveryPixelType, DoesNotWriteTheZeroesBesideEqualPixels)
{
    std::vector<TypeParam> pixels(9000, TypeParam{7});
    for (std::size_t i = 0; i < pixels.size(); i += 3)
    {
        pixels[i] = TypeParam{0};
    }
    const std::vector<unsigned char> result = Stretched(pixels);
    EXPECT_EQ(result, Plain(pixels));
    std::vector<unsigned char> raw(pixels.size() * sizeof(TypeParam));
    std::memcpy(raw.data(), pixels.data(), raw.size());
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        ASSERT_EQ(result[i], i % 3 == 0 ? raw[i] : 255) << "pixel " << i;
    }
}

TYPED_TEST(EveryPixelType, LeavesTheBytesBehindThePictureAlone)
{
    std::vector<TypeParam> pixels{10, 20, 30, 99};
    StretchContrast(pixels.data(), 3, kType<TypeParam>);
    EXPECT_EQ(pixels[3], TypeParam{99});
}

template <class Pixel>
class EveryWholePixelType : public testing::Test
{
};

using WholeTypes = testing::Types<std::uint8_t, std::uint16_t, std::int16_t, std::uint32_t, std::int32_t>;
TYPED_TEST_SUITE(EveryWholePixelType, WholeTypes);

TYPED_TEST(EveryWholePixelType, HoldsItsWholeRange)
{
    constexpr TypeParam kLow = std::numeric_limits<TypeParam>::min() + 1; // zero isn't counted
    constexpr TypeParam kHigh = std::numeric_limits<TypeParam>::max();
    std::vector<TypeParam> pixels(10000, kLow);
    std::fill_n(pixels.begin(), 5000, kHigh);
    const std::vector<int> shown = Shown(pixels);
    EXPECT_EQ(shown.front(), 255);
    EXPECT_EQ(shown.back(), 0);
    std::vector<TypeParam> spread(10000);
    std::mt19937_64 random(11);
    std::generate(spread.begin(), spread.end(), [&] { return static_cast<TypeParam>(random()); });
    const std::vector<unsigned char> ours = Stretched(spread);
    const std::vector<unsigned char> plain = Plain(spread);
    for (std::size_t i = 0; i < spread.size(); ++i)
    {
        ASSERT_NEAR(ours[i], plain[i], sizeof(TypeParam) == 4 ? 1 : 0) << "pixel " << i; // sums of squares are rounded
    }
}

TEST(ContrastStretch, OfFloatsFollowsTheAlgorithmWithinTheRoundingOfItsSums)
{
    std::mt19937 random(3);
    std::normal_distribution<float> values(0.25F, 0.1F);
    std::vector<float> pixels(30000);
    std::generate(pixels.begin(), pixels.end(), [&] { return values(random); });
    const std::vector<unsigned char> ours = Stretched(pixels);
    const std::vector<unsigned char> plain = Plain(pixels);
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        ASSERT_NEAR(ours[i], plain[i], 1) << "pixel " << i;
    }
}

TEST(ContrastStretch, OfFloatsCloserThanAMillionthIsFlat)
{
    EXPECT_EQ(Shown<float>({0.5F, 0.5000005F}), (std::vector<int>{255, 255}));
    EXPECT_EQ(Shown<float>({0.5F, 0.500002F}), (std::vector<int>{0, 255}));
}

TEST(ContrastStretch, OfFloatsThatAreNoNumberIsBlackAndHarmless)
{
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(Shown<float>({1, kNan, 3}), (std::vector<int>{0, 0, 255}));
    EXPECT_EQ(Shown<float>({kNan, kNan}), (std::vector<int>{255, 255})); // no window, and they aren't zero
    EXPECT_EQ(Shown<float>({1, kInfinity, 3}), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(Shown<float>({-kInfinity, kInfinity, 3}), (std::vector<int>{0, 0, 0}));
}

TEST(ContrastStretch, OfFloatsAtTheEndsOfTheirRangeStaysInRange)
{
    constexpr float kHuge = std::numeric_limits<float>::max();
    EXPECT_EQ(Shown<float>({-kHuge, kHuge}), (std::vector<int>{0, 255}));
    EXPECT_EQ(Shown<float>({kHuge, kHuge}).size(), 2U); // the minimum starts at 1e32, below both
}

TEST(ContrastStretch, OfAnUnknownTypeTakesNoBytesAndChangesNothing)
{
    for (const int code : {0, 3, 5, 64, -1})
    {
        std::vector<unsigned char> bytes{1, 2, 3, 4};
        EXPECT_EQ(BytesPerPixel(static_cast<PixelType>(code)), 0);
        StretchContrast(bytes.data(), bytes.size(), static_cast<PixelType>(code));
        EXPECT_EQ(bytes, (std::vector<unsigned char>{1, 2, 3, 4}));
    }
}

TEST(ContrastStretch, OfNothingDoesNothing)
{
    StretchContrast(nullptr, 10, PixelType::Unsigned8);
    unsigned char pixel = 5;
    StretchContrast(&pixel, 0, PixelType::Unsigned8);
    EXPECT_EQ(pixel, 5);
}

} // namespace
