// DCanvas.h - a canvas of pixels in memory
#pragma once

#include <cstddef>
#include <vector>

#include "tavkit/frame/services/HostApi.h"

/// Pixels of 3 bytes, in the order blue, green, red; a line is padded to a multiple of 4 bytes, as a device independent
/// bitmap of 24 bits has it. Line 0 is the top.
class TAVHOST_API DCanvas
{
public:
    static constexpr std::size_t kMaxBytes = std::size_t{1} << 30; ///< a larger canvas is refused

    DCanvas();
    DCanvas(DCanvas const&) = delete;
    DCanvas& operator=(DCanvas const&) = delete;
    ~DCanvas();

    /// Makes the canvas @p width by @p height pixels, all black. A side of 0 gives a canvas without pixels.
    /// @return false, and the canvas as it was, for a negative side or one that needs more memory than there is.
    bool SetSize(int width, int height);
    /// Sets a pixel to a colour 0x00BBGGRR; a place outside the canvas is ignored.
    void SetPixel(int x, int y, unsigned long color);
    /// The bytes of a line, padding included; null for a line outside. Valid until the next SetSize.
    [[nodiscard]] unsigned char* GetDataLine(int y);
    [[nodiscard]] unsigned char const* GetDataLine(int y) const;
    /// Bytes of a line, padding included.
    [[nodiscard]] std::size_t GetLineSize() const;

    // The fields are part of the interface, in this order, for reading.
    int m_nWidth = 0;  ///< pixels in a line
    int m_nHeight = 0; ///< lines

private:
    std::vector<unsigned char> m_vecData;
};
