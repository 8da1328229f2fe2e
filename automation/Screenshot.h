// Screenshot.h - a picture of a part of the screen
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace automation
{
/// The pixels of a rectangle of the screen at one moment.
class Screenshot
{
public:
    /// Takes the part of the rectangle that lies on the screen; empty when none does or the system refuses.
    explicit Screenshot(const RECT& rect);
    /// The whole screen.
    [[nodiscard]] static RECT ScreenRect();

    [[nodiscard]] bool IsEmpty() const { return m_pixels.empty(); }
    [[nodiscard]] int Width() const { return m_width; }
    [[nodiscard]] int Height() const { return m_height; }
    /// Colour of a pixel, counted from the upper left one; the place must lie in the picture.
    [[nodiscard]] COLORREF ColourAt(int x, int y) const;
    /// Number of different colours, counted up to a limit.
    [[nodiscard]] int Colours(int limit) const;
    /// Saves the picture as a PNG file.
    /// @return false when it is empty or the file can't be written.
    [[nodiscard]] bool SavePng(const std::string& path) const;

    bool operator==(const Screenshot&) const = default;

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<std::uint32_t> m_pixels; // 0x00RRGGBB, rows from the top
};
} // namespace automation
