// Picture.h - a picture in memory that tests draw into and read pixel by pixel
#pragma once

#include <afxwin.h>

#include <vector>

/// A device context on 32-bit pixels, filled with one colour.
class Picture
{
public:
    Picture(int width, int height, COLORREF background);
    ~Picture();
    Picture(Picture const&) = delete;
    Picture& operator=(Picture const&) = delete;

    [[nodiscard]] CDC* DC() { return &m_dc; }
    [[nodiscard]] HDC Handle() { return m_dc.m_hDC; }
    [[nodiscard]] COLORREF At(int x, int y) const;
    /// The smallest rectangle around all pixels that aren't the background's; empty when there are none.
    [[nodiscard]] CRect Painted() const;
    /// The smallest rectangle around all pixels in which two pictures of one size differ.
    [[nodiscard]] CRect DifferenceTo(Picture const& other) const;

private:
    template <class Differs>
    CRect Bounds(Differs differs) const;

    int m_width;
    int m_height;
    COLORREF m_background;
    CDC m_dc;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_oldBitmap = nullptr;
    RGBQUAD* m_pixels = nullptr;
};
