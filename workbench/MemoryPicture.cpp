#include "workbench/MemoryPicture.h"

namespace workbench
{
MemoryPicture::~MemoryPicture() { Release(); }

bool MemoryPicture::Resize(CSize size)
{
    if (size == m_size)
    {
        return m_size.cx > 0;
    }
    Release();
    if (size.cx <= 0 || size.cy <= 0)
    {
        return false;
    }
    CClientDC screen(nullptr);
    if (!m_dc.CreateCompatibleDC(&screen) || !m_bitmap.CreateCompatibleBitmap(&screen, size.cx, size.cy))
    {
        Release();
        return false;
    }
    m_oldBitmap = ::SelectObject(m_dc, m_bitmap);
    m_size = size;
    return true;
}

void MemoryPicture::Release()
{
    if (m_oldBitmap != nullptr)
    {
        ::SelectObject(m_dc, m_oldBitmap);
        m_oldBitmap = nullptr;
    }
    m_bitmap.DeleteObject();
    m_dc.DeleteDC();
    m_size = CSize(0, 0);
}
} // namespace workbench
