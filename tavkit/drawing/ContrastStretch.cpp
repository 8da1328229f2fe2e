#include "tavkit/drawing/ContrastStretch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

namespace tavkit
{
namespace
{

constexpr double kStartOfMinimum = 1e32;
constexpr double kStartOfMaximum = -1e32;
constexpr double kDeviations = 3;         // half the window, in standard deviations
constexpr double kNarrowestWindow = 1e-6; // what is narrower can't be stretched
constexpr double kWhite = 255;

// Independent sums let the compiler keep several of them in vector registers; the order of summation is fixed by this
// number, so that the result is the same in every build.
constexpr std::size_t kLanes = 8;
// Pixels per step of the passes: what a step needs stays in the processor's nearest cache, and with 8-bit pixels the
// squares of a step fit into 32 bits.
constexpr std::size_t kStep = 4096;
static_assert(kStep % kLanes == 0);
static_assert(std::uint64_t{kStep} * 255 * 255 <= std::numeric_limits<std::uint32_t>::max());

struct Statistics
{
    double minimum = kStartOfMinimum;
    double maximum = kStartOfMaximum;
    double sum = 0;
    double sumOfSquares = 0;
    std::size_t count = 0; // pixels that aren't zero; only they are in the sums, to which zeroes would add nothing
};

struct Window
{
    double lo;
    double hi;
};

// 8 and 16 bits: all sums are exact in integers, and are turned into doubles at the end.
template <std::integral Pixel>
requires(sizeof(Pixel) <= 2) Statistics Measure(Pixel const* pixels, std::size_t count)
noexcept
{
    using Sum = std::conditional_t<std::is_signed_v<Pixel>, std::int32_t, std::uint32_t>;
    using Squares = std::conditional_t<sizeof(Pixel) == 1, std::uint32_t, std::uint64_t>;
    Pixel minimum = std::numeric_limits<Pixel>::max();
    Pixel maximum = std::numeric_limits<Pixel>::min();
    std::int64_t sum = 0;
    std::uint64_t squares = 0;
    std::size_t zeroes = 0;
    for (std::size_t start = 0; start < count; start += kStep)
    {
        Pixel const* const step = pixels + start;
        std::size_t const size = std::min(kStep, count - start);
        Sum stepSum = 0;
        Squares stepSquares = 0;
        std::uint32_t stepZeroes = 0;
        for (std::size_t i = 0; i < size; ++i)
        {
            Pixel const v = step[i];
            minimum = std::min(minimum, v);
            maximum = std::max(maximum, v);
            auto const wide = static_cast<Sum>(v);
            stepSum += wide;
            stepSquares += static_cast<std::uint32_t>(wide * wide);
            stepZeroes += v == 0;
        }
        sum += stepSum;
        squares += stepSquares;
        zeroes += stepZeroes;
    }
    return {static_cast<double>(minimum), static_cast<double>(maximum), static_cast<double>(sum),
            static_cast<double>(squares), count - zeroes};
}

// 32 bits: squares don't fit into integers.
template <class Pixel>
requires(sizeof(Pixel) == 4) Statistics Measure(Pixel const* pixels, std::size_t count)
noexcept
{
    std::array<double, kLanes> minimum;
    std::array<double, kLanes> maximum;
    std::array<double, kLanes> sum{};
    std::array<double, kLanes> squares{};
    std::array<std::uint64_t, kLanes> zeroes{};
    minimum.fill(kStartOfMinimum);
    maximum.fill(kStartOfMaximum);
    auto const add = [&](std::size_t lane, Pixel pixel) {
        auto const v = static_cast<double>(pixel);
        minimum[lane] = v < minimum[lane] ? v : minimum[lane]; // what is no number is neither
        maximum[lane] = v > maximum[lane] ? v : maximum[lane];
        sum[lane] += v;
        squares[lane] += v * v;
        zeroes[lane] += v == 0;
    };
    std::size_t const whole = count - count % kLanes;
    for (std::size_t i = 0; i < whole; i += kLanes)
    {
        for (std::size_t lane = 0; lane < kLanes; ++lane)
        {
            add(lane, pixels[i + lane]);
        }
    }
    for (std::size_t i = whole; i < count; ++i)
    {
        add(i - whole, pixels[i]);
    }
    Statistics result;
    result.count = count;
    for (std::size_t lane = 0; lane < kLanes; ++lane)
    {
        result.minimum = std::min(result.minimum, minimum[lane]);
        result.maximum = std::max(result.maximum, maximum[lane]);
        result.sum += sum[lane];
        result.sumOfSquares += squares[lane];
        result.count -= zeroes[lane];
    }
    return result;
}

Window WindowOf(Statistics const& s) noexcept
{
    auto const m = static_cast<double>(s.count);
    double const mean = s.sum / m;
    // Rounding can make the variance of equal values negative; the band is then no number, and no comparison below
    // holds.
    double const band = kDeviations * std::sqrt((s.sumOfSquares - s.sum * s.sum / m) / m);
    return {mean - band > s.minimum ? mean - band : s.minimum, mean + band < s.maximum ? mean + band : s.maximum};
}

// The 8-bit value of one pixel; what is no number is black.
template <class Pixel>
unsigned char Stretch(Pixel pixel, Window window, double scale) noexcept
{
    auto const v = static_cast<double>(pixel);
    double t = (v - window.lo) * scale;
    t = t > 0 ? t : 0;
    t = v > window.hi ? kWhite : t;
    return static_cast<unsigned char>(static_cast<int>(t));
}

// A step's results are gathered beside the buffer, so that the compiler sees no overlap, and then put in place. Pixel i
// goes to byte i, so what is written lies at or before what was read.
template <class Pixel>
void WriteStretched(Pixel const* pixels, std::size_t count, unsigned char* out, Window window) noexcept
{
    double const scale = kWhite / (window.hi - window.lo);
    std::array<unsigned char, kStep> bytes;
    for (std::size_t start = 0; start < count; start += kStep)
    {
        Pixel const* const step = pixels + start;
        std::size_t const size = std::min(kStep, count - start);
        for (std::size_t i = 0; i < size; ++i)
        {
            bytes[i] = Stretch(step[i], window, scale);
        }
        std::memcpy(out + start, bytes.data(), size);
    }
}

// With 8 bits there are few enough values to look them up.
template <>
void WriteStretched(std::uint8_t const* pixels, std::size_t count, unsigned char* out, Window window) noexcept
{
    double const scale = kWhite / (window.hi - window.lo);
    std::array<unsigned char, std::numeric_limits<std::uint8_t>::max() + 1> table;
    for (std::size_t v = 0; v < table.size(); ++v)
    {
        table[v] = Stretch(static_cast<std::uint8_t>(v), window, scale);
    }
    std::transform(pixels, pixels + count, out, [&table](std::uint8_t v) { return table[v]; });
}

// The bytes of zero pixels aren't written: with wider pixels they keep raw data of an earlier pixel, and that stays so.
template <class Pixel>
void WriteFlat(Pixel const* pixels, std::size_t count, unsigned char* out) noexcept
{
    std::array<unsigned char, kStep> mask;
    for (std::size_t start = 0; start < count; start += kStep)
    {
        Pixel const* const step = pixels + start;
        std::size_t const size = std::min(kStep, count - start);
        for (std::size_t i = 0; i < size; ++i)
        {
            mask[i] = step[i] != 0 ? static_cast<unsigned char>(kWhite) : 0;
        }
        for (std::size_t i = 0; i < size; ++i)
        {
            out[start + i] |= mask[i];
        }
    }
}

template <class Pixel>
void StretchPixels(void* buffer, std::size_t count) noexcept
{
    auto const* const pixels = static_cast<Pixel const*>(buffer);
    auto* const out = static_cast<unsigned char*>(buffer);
    Statistics const statistics = Measure(pixels, count);
    if (statistics.count == 0)
    {
        return;
    }
    Window const window = WindowOf(statistics);
    if (window.hi - window.lo > kNarrowestWindow)
    {
        WriteStretched(pixels, count, out, window);
    }
    else
    {
        WriteFlat(pixels, count, out);
    }
}

} // namespace

int BytesPerPixel(PixelType type) noexcept
{
    switch (type)
    {
    case PixelType::Unsigned8:
        return 1;
    case PixelType::Unsigned16:
    case PixelType::Signed16:
        return 2;
    case PixelType::Unsigned32:
    case PixelType::Signed32:
    case PixelType::Float32:
        return 4;
    }
    return 0;
}

void StretchContrast(void* pixels, std::size_t count, PixelType type) noexcept
{
    if (pixels == nullptr || count == 0)
    {
        return;
    }
    switch (type)
    {
    case PixelType::Unsigned8:
        return StretchPixels<std::uint8_t>(pixels, count);
    case PixelType::Unsigned16:
        return StretchPixels<std::uint16_t>(pixels, count);
    case PixelType::Signed16:
        return StretchPixels<std::int16_t>(pixels, count);
    case PixelType::Unsigned32:
        return StretchPixels<std::uint32_t>(pixels, count);
    case PixelType::Signed32:
        return StretchPixels<std::int32_t>(pixels, count);
    case PixelType::Float32:
        return StretchPixels<float>(pixels, count);
    }
}

} // namespace tavkit
