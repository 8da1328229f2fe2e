// MemDC.h - off-screen buffer for drawing without flicker; for the library's own controls
#pragma once

#include <memory>
#include <afxwin.h>
#include "tavkit/frame/services/DCanvas.h"

/// A memory device context with a compatible bitmap, made on demand. It holds its handles from the first Resize to
/// Release.
class CMemDC
{
public:
    CMemDC();
    ~CMemDC();
    CMemDC(CMemDC const&) = delete;
    CMemDC& operator=(CMemDC const&) = delete;

    /// Frees bitmap, context and line; the size is 0 afterwards.
    void Release();
    /// Makes the buffer `w` by `h` pixels, compatible with `pDC`. Nothing happens if that is its size; otherwise what
    /// was drawn is lost. A size that can't be made leaves the buffer released.
    void Resize(CDC* pDC, int w, int h);
    /// Takes size and pixels of a canvas.
    void SetCanvas(CDC* pDC, const DCanvas& canvas);
    /// Takes the pixels of a canvas at the size `w` by `h`, by nearest neighbour.
    void SetCanvasScaled(CDC* pDC, const DCanvas& canvas, int w, int h);

    int m_nWidth = 0;                         ///< pixels; 0 until first use
    int m_nHeight = 0;                        ///< pixels; 0 until first use
    CDC m_dc;                                 ///< what the controls draw on; its handle is null until first use
    CBitmap m_bitmap;                         ///< selected into m_dc
    BITMAPINFOHEADER m_bmi{};                 ///< 24 bits, top-down, of the buffer's size
    std::unique_ptr<unsigned char[]> m_pLine; ///< room for one scan line

private:
    void SetLine(int y, void const* line);

    HGDIOBJ m_hOldBitmap = nullptr; // the context's own bitmap, put back before ours is deleted
};
