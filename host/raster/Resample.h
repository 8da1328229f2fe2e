// Resample.h - which source pixels a picture of another size shows
#pragma once

#include <vector>

#include "host/raster/Picture.h"

namespace raster
{

/// A window of a picture, in pixels and parts of pixels; it may reach past the picture.
struct SourceWindow
{
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    friend bool operator==(const SourceWindow&, const SourceWindow&) = default;
};

/// How source pixels become a target pixel.
enum class ResampleMethod
{
    Nearest, ///< the pixel under the target pixel's centre: values stay as they are, and only what is shown is read
    Average  ///< the mean of what the target pixel covers, parts of pixels weighed by their area
};

/// Targets of a row or column whose centres lie on the picture; the others are outside of it.
struct NearestIndices
{
    int firstTarget = 0;
    std::vector<int> sources; ///< for firstTarget and those that follow it, ascending
};

/// Finds the source pixel under the centre of each target pixel, along one axis.
/// @param from, to  the window, `from` below `to`, both finite.
/// @param count     target pixels, at least 1.
/// @param limit     source pixels, at least 1.
[[nodiscard]] NearestIndices FindNearest(double from, double to, int count, int limit);

/// True for a window that can be read: finite, its right and bottom beyond its left and top.
[[nodiscard]] bool IsProper(const SourceWindow& window) noexcept;

/// Reads windows of one picture at any size. Colour channels are asked for one after another, so the last window is
/// remembered for all of them, if that costs little.
class WindowReader
{
public:
    /// @param picture  borrowed; lives longer than this object.
    explicit WindowReader(Picture& picture) noexcept : m_picture(picture) {}

    /// Reads one channel of a window.
    /// @param channel  a channel of the picture.
    /// @param window   proper, see IsProper(). What lies outside the picture reads as 0.
    /// @param width, height  size of the target, at least 1.
    /// @param target   `width * height` samples of the picture's type, row by row, without gaps.
    /// @return false if the file couldn't be read; `target` is all zero then.
    [[nodiscard]] bool Read(int channel, const SourceWindow& window, int width, int height, ResampleMethod method,
                            std::span<std::byte> target);

private:
    struct Target;

    [[nodiscard]] bool ReadNearest(int channel, const SourceWindow& window, const Target& target);
    [[nodiscard]] bool ReadAverage(int channel, const SourceWindow& window, const Target& target);
    template <class Sample>
    [[nodiscard]] bool Average(int channel, const SourceWindow& window, const Target& target);

    Picture& m_picture; // not owned
    struct
    {
        SourceWindow window;
        int width = 0;
        int height = 0;
        std::vector<std::byte> pixels; ///< of all channels; empty if nothing is remembered
    } m_last;
};

} // namespace raster
