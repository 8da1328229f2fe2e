// Stretch.cpp - [stretch] the contrast stretch of each pixel type against one copy of the buffer
#include "bench/Bench.h"
#include "tavkit/drawing/ContrastStretch.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

namespace bench
{
namespace
{

constexpr std::size_t kPixels = std::size_t{16} << 20;
constexpr unsigned kSeed = 20;
/// The order in which doubles are added up moves the window by less than one step of grey.
constexpr int kMostApart = 1;
/// Share of the pixels that may lie on the other side of such a step.
constexpr double kMostMoved = 0.001;

/// Data as a camera gives it: a bell around a level, some pixels without a value.
template <typename Pixel>
std::vector<Pixel> MakePixels()
{
    constexpr int kEmptyEach = 37;
    constexpr bool kIsFloat = std::is_floating_point_v<Pixel>;
    constexpr double kLow = kIsFloat ? -1000.0 : static_cast<double>(std::numeric_limits<Pixel>::min());
    constexpr double kHigh = kIsFloat ? 1000.0 : static_cast<double>(std::numeric_limits<Pixel>::max());
    std::minstd_rand random(kSeed);
    std::normal_distribution<double> bell(kLow + (kHigh - kLow) / 2, (kHigh - kLow) / 8);
    std::vector<Pixel> pixels(kPixels);
    // A stretch of data, repeated: drawing 16 million numbers from a bell would take longer than all measurements.
    constexpr std::size_t kPeriod = 65521;
    for (std::size_t i = 0; i < std::min(kPeriod, kPixels); ++i)
    {
        pixels[i] = i % kEmptyEach == 0 ? Pixel{} : static_cast<Pixel>(std::clamp(bell(random), kLow, kHigh));
    }
    for (std::size_t i = kPeriod; i < kPixels; ++i)
    {
        pixels[i] = pixels[i - kPeriod];
    }
    return pixels;
}

/// The stretch as one would write it down, with a result beside the data.
template <typename Pixel>
std::vector<unsigned char> PlainStretch(const std::vector<Pixel>& pixels)
{
    double minimum = 1e32;
    double maximum = -1e32;
    double sum = 0;
    double squares = 0;
    double count = 0;
    for (const Pixel pixel : pixels)
    {
        const auto v = static_cast<double>(pixel);
        minimum = std::min(minimum, v);
        maximum = std::max(maximum, v);
        if (v != 0)
        {
            sum += v;
            squares += v * v;
            ++count;
        }
    }
    const double band = 3 * std::sqrt((squares - sum * sum / count) / count);
    const double lo = std::max(sum / count - band, minimum);
    const double hi = std::min(sum / count + band, maximum);
    const double scale = 255 / (hi - lo);
    std::vector<unsigned char> out(pixels.size());
    for (std::size_t i = 0; i < pixels.size(); ++i)
    {
        const auto v = static_cast<double>(pixels[i]);
        out[i] = static_cast<unsigned char>(v < lo ? 0 : v <= hi ? static_cast<int>((v - lo) * scale) : 255);
    }
    return out;
}

void RequireStretched(const unsigned char* got, const std::vector<unsigned char>& expected)
{
    std::size_t moved = 0;
    for (std::size_t i = 0; i < expected.size(); ++i)
    {
        const int apart = std::abs(int{got[i]} - int{expected[i]});
        if (apart > kMostApart)
        {
            throw WorkError("pixel " + std::to_string(i) + " came out as " + std::to_string(got[i]) + " in place of " +
                            std::to_string(expected[i]));
        }
        moved += apart != 0;
    }
    Require(static_cast<double>(moved) <= kMostMoved * static_cast<double>(expected.size()),
            std::to_string(moved) + " pixels came out one step off");
}

template <typename Pixel>
Row Measure(const char* name, tavkit::PixelType type)
{
    const std::vector<Pixel> pixels = MakePixels<Pixel>();
    const std::vector<unsigned char> expected = PlainStretch(pixels);
    const std::size_t bytes = pixels.size() * sizeof(Pixel);
    std::vector<Pixel> stretched(pixels.size());
    std::vector<Pixel> copy(pixels.size());
    const Medians medians = Interleave(
        {.run = [&] { tavkit::StretchContrast(stretched.data(), stretched.size(), type); },
         .prepare = [&] { stretched = pixels; },
         .check = [&] { RequireStretched(reinterpret_cast<const unsigned char*>(stretched.data()), expected); }},
        {.run = [&] { std::memcpy(copy.data(), pixels.data(), bytes); },
         .prepare = [&] { std::fill(copy.begin(), copy.end(), Pixel{}); },
         .check = [&] { Require(std::memcmp(copy.data(), pixels.data(), bytes) == 0, "the copy isn't whole"); }});
    return {name, static_cast<long long>(pixels.size()), medians.ours, medians.reference, std::nullopt};
}

std::vector<Row> Run()
{
    using tavkit::PixelType;
    return {
        Measure<std::uint8_t>("stretch.u8", PixelType::Unsigned8),
        Measure<std::uint16_t>("stretch.u16", PixelType::Unsigned16),
        Measure<std::int16_t>("stretch.s16", PixelType::Signed16),
        Measure<std::uint32_t>("stretch.u32", PixelType::Unsigned32),
        Measure<std::int32_t>("stretch.s32", PixelType::Signed32),
        Measure<float>("stretch.f32", PixelType::Float32),
    };
}

const Registration registration("stretch", Run);

} // namespace
} // namespace bench
