#include "workbench/ScaleBar.h"

#include <array>
#include <charconv>
#include <cmath>

namespace workbench
{
namespace
{
/// A unit holds three powers of ten.
constexpr int kPowersPerUnit = 3;
/// The power of ten, in micrometres, of the first unit.
constexpr int kFirstUnitPower = -6;
/// From picometres to kilometres; 0xB5 is the micro sign of the ANSI code page.
constexpr std::array<const char*, 6> kUnits{"pm", "nm", "\xB5m", "mm", "m", "km"};
/// The steps of the series within one power of ten, the longest first.
constexpr std::array<int, 3> kSteps{5, 2, 1};
/// A length that misses the room by rounding alone counts as fitting.
constexpr double kTolerance = 1e-9;

bool IsAboveZero(double value) { return std::isfinite(value) && value > 0; }

std::optional<std::string> LabelOf(int step, int power)
{
    const int places = power - kFirstUnitPower;
    if (places < 0 || places >= kPowersPerUnit * static_cast<int>(kUnits.size()))
    {
        return std::nullopt;
    }
    std::string label = std::to_string(step);
    label.append(static_cast<size_t>(places % kPowersPerUnit), '0');
    return label + " " + kUnits[static_cast<size_t>(places / kPowersPerUnit)];
}
} // namespace

std::optional<double> ParsePixelSize(std::string_view text)
{
    if (text.find_first_not_of("0123456789.") != std::string_view::npos)
    {
        return std::nullopt; // the number reader would take "inf" and a sign
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (error != std::errc{} || end != text.data() + text.size() || !IsAboveZero(value))
    {
        return std::nullopt;
    }
    return value;
}

std::optional<ScaleBar> MakeScaleBar(double pixelSize, double zoom, int room)
{
    if (room < kNarrowestBarRoom || !IsAboveZero(pixelSize) || !IsAboveZero(zoom))
    {
        return std::nullopt;
    }
    const double perScreenPixel = pixelSize / zoom;
    const double longest = perScreenPixel * room * (1 + kTolerance);
    if (!IsAboveZero(perScreenPixel) || !std::isfinite(longest))
    {
        return std::nullopt;
    }
    const int power = static_cast<int>(std::floor(std::log10(longest)));
    // The logarithm may be off by one at a power of ten itself; the next power above is tried first.
    for (int tried = power + 1; tried >= power - 1; --tried)
    {
        for (const int step : kSteps)
        {
            const double length = step * std::pow(10.0, tried);
            if (length > longest)
            {
                continue;
            }
            const auto label = LabelOf(step, tried);
            if (!label)
            {
                return std::nullopt;
            }
            return ScaleBar{static_cast<int>(std::lround(length / perScreenPixel)), *label};
        }
    }
    return std::nullopt;
}
} // namespace workbench
