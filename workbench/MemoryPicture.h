// MemoryPicture.h - a bitmap in memory to draw on
#pragma once

#include <afxwin.h>

namespace workbench
{
/// A device context with a bitmap of its own, in the format of the screen.
class MemoryPicture
{
public:
    MemoryPicture() = default;
    ~MemoryPicture();
    MemoryPicture(const MemoryPicture&) = delete;
    MemoryPicture& operator=(const MemoryPicture&) = delete;

    /// Makes the bitmap that large; what it held is lost unless it has that size already.
    /// @return false, with nothing held, for an empty size and when the system has no room for it.
    bool Resize(CSize size);
    void Release();

    /// (0, 0) while nothing is held.
    [[nodiscard]] CSize Size() const { return m_size; }
    /// To draw on, and to copy from; only while a bitmap is held.
    [[nodiscard]] CDC& Dc() { return m_dc; }

private:
    CDC m_dc;
    CBitmap m_bitmap;
    HGDIOBJ m_oldBitmap = nullptr; // the context's own, put back before ours is deleted
    CSize m_size{0, 0};
};
} // namespace workbench
