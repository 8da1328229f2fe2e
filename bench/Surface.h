// Surface.h - a picture in memory that can be drawn on and whose pixels can be read
#pragma once

#include <windows.h>

#include <span>

namespace bench
{

/// A memory device context over 32-bit pixels, top row first.
class Surface
{
public:
    /// @throws WorkError if the system has no memory for it.
    Surface(int width, int height);
    ~Surface();
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    [[nodiscard]] HDC Dc() const noexcept { return m_dc; } ///< borrowed
    [[nodiscard]] int Width() const noexcept { return m_width; }
    [[nodiscard]] int Height() const noexcept { return m_height; }
    /// The pixels as 0x00RRGGBB, row by row; what was drawn so far is in them.
    [[nodiscard]] std::span<const DWORD> Pixels() const noexcept;
    /// Makes all pixels @p color.
    void Fill(COLORREF color) noexcept;

private:
    int m_width;
    int m_height;
    HDC m_dc;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_oldBitmap = nullptr;
    DWORD* m_pixels = nullptr;
};

} // namespace bench
