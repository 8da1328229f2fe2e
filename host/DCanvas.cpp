// DCanvas.cpp
#include "tavkit/frame/services/DCanvas.h"

#include <new>
#include <utility>

namespace
{
constexpr std::size_t kPixelBytes = 3;
constexpr std::size_t kLineAlignment = 4;
constexpr unsigned kByteBits = 8;

constexpr std::size_t PaddedLine(std::size_t width)
{
    return (width * kPixelBytes + kLineAlignment - 1) / kLineAlignment * kLineAlignment;
}
} // namespace

DCanvas::DCanvas() = default;
DCanvas::~DCanvas() = default;

bool DCanvas::SetSize(int width, int height)
{
    if (width < 0 || height < 0)
    {
        return false;
    }
    const std::size_t line = PaddedLine(static_cast<std::size_t>(width));
    const auto lines = static_cast<std::size_t>(height);
    if (line != 0 && lines > kMaxBytes / line)
    {
        return false;
    }
    try
    {
        std::vector<unsigned char> data(line * lines);
        m_vecData.swap(data);
    }
    catch (std::bad_alloc const&)
    {
        return false;
    }
    m_nWidth = width;
    m_nHeight = height;
    return true;
}

void DCanvas::SetPixel(int x, int y, unsigned long color)
{
    if (x < 0 || x >= m_nWidth || y < 0 || y >= m_nHeight)
    {
        return;
    }
    unsigned char* const pixel = GetDataLine(y) + static_cast<std::size_t>(x) * kPixelBytes;
    pixel[0] = static_cast<unsigned char>(color >> 2 * kByteBits);
    pixel[1] = static_cast<unsigned char>(color >> kByteBits);
    pixel[2] = static_cast<unsigned char>(color);
}

unsigned char* DCanvas::GetDataLine(int y) { return const_cast<unsigned char*>(std::as_const(*this).GetDataLine(y)); }

unsigned char const* DCanvas::GetDataLine(int y) const
{
    return y >= 0 && y < m_nHeight ? m_vecData.data() + static_cast<std::size_t>(y) * GetLineSize() : nullptr;
}

std::size_t DCanvas::GetLineSize() const { return PaddedLine(static_cast<std::size_t>(m_nWidth)); }
