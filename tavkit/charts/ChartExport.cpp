#include "tavkit/charts/ChartExport.h"

#include <objidl.h>
#include <gdiplus.h>

#include <memory>
#include <new>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavkit
{
namespace
{

// The PNG encoder of GDI+ has this fixed class id.
constexpr CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
constexpr WORD kBitsPerPixel = 32;
constexpr int kBytesPerPixel = kBitsPerPixel / 8;
constexpr int kHundredths = 100; // of a millimetre, in which a metafile's frame is told
constexpr int kAttempts = 100;   // names of temporary files that an earlier, broken run has left behind

using Bytes = std::vector<BYTE>;

template <class Handle, auto Delete>
struct Deleter
{
    using pointer = Handle;
    void operator()(Handle handle) const { Delete(handle); }
};
using Bitmap = std::unique_ptr<void, Deleter<HBITMAP, [](HBITMAP bitmap) { ::DeleteObject(bitmap); }>>;
using Metafile = std::unique_ptr<void, Deleter<HENHMETAFILE, [](HENHMETAFILE file) { ::DeleteEnhMetaFile(file); }>>;
using FileHandle = std::unique_ptr<void, Deleter<HANDLE, [](HANDLE file) { ::CloseHandle(file); }>>;

/// GDI+ for as long as the block lives. Starts are counted by the system, so the host may have its own.
class Graphics
{
public:
    Graphics()
    {
        const Gdiplus::GdiplusStartupInput input;
        Gdiplus::GdiplusStartup(&m_token, &input, nullptr);
    }
    ~Graphics() { Gdiplus::GdiplusShutdown(m_token); }
    Graphics(Graphics const&) = delete;
    Graphics& operator=(Graphics const&) = delete;

private:
    ULONG_PTR m_token = 0;
};

struct Drawn
{
    Bitmap bitmap;
    void* pixels; ///< the bitmap's, rows from the top
};

/// The page as a bitmap of 32 bits; null if the system has no room for it.
Drawn DrawBitmap(CSize page, PageDrawing const& draw)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = page.cx;
    info.bmiHeader.biHeight = -page.cy; // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = kBitsPerPixel;
    Drawn drawn{};
    CDC dc;
    if (!dc.CreateCompatibleDC(nullptr))
    {
        return drawn;
    }
    drawn.bitmap.reset(::CreateDIBSection(dc.m_hDC, &info, DIB_RGB_COLORS, &drawn.pixels, nullptr, 0));
    if (drawn.bitmap)
    {
        const HGDIOBJ old = ::SelectObject(dc.m_hDC, drawn.bitmap.get());
        draw(dc);
        ::GdiFlush();
        ::SelectObject(dc.m_hDC, old);
    }
    return drawn;
}

Metafile DrawMetafile(CSize page, PageDrawing const& draw)
{
    const CClientDC screen(nullptr);
    const RECT frame{0, 0,
                     ::MulDiv(page.cx, screen.GetDeviceCaps(HORZSIZE) * kHundredths, screen.GetDeviceCaps(HORZRES)),
                     ::MulDiv(page.cy, screen.GetDeviceCaps(VERTSIZE) * kHundredths, screen.GetDeviceCaps(VERTRES))};
    CDC dc;
    if (!dc.Attach(::CreateEnhMetaFileA(screen.m_hDC, nullptr, &frame, nullptr)))
    {
        return nullptr;
    }
    draw(dc);
    return Metafile(::CloseEnhMetaFile(dc.Detach()));
}

std::optional<Bytes> EncodePng(CSize page, void* pixels)
{
    const Graphics graphics;
    Gdiplus::Bitmap image(page.cx, page.cy, page.cx * kBytesPerPixel, PixelFormat32bppRGB, static_cast<BYTE*>(pixels));
    IStream* stream = nullptr;
    if (FAILED(::CreateStreamOnHGlobal(nullptr, TRUE, &stream)))
    {
        return std::nullopt;
    }
    std::optional<Bytes> bytes;
    HGLOBAL memory = nullptr;
    STATSTG stat{};
    if (image.Save(stream, &kPngEncoder, nullptr) == Gdiplus::Ok && SUCCEEDED(stream->Stat(&stat, STATFLAG_NONAME)) &&
        SUCCEEDED(::GetHGlobalFromStream(stream, &memory)))
    {
        const auto* const first = static_cast<BYTE const*>(::GlobalLock(memory));
        bytes.emplace(first, first + stat.cbSize.QuadPart);
        ::GlobalUnlock(memory);
    }
    stream->Release();
    return bytes;
}

std::optional<Bytes> BytesOf(HENHMETAFILE metafile)
{
    Bytes bytes(::GetEnhMetaFileBits(metafile, 0, nullptr));
    if (bytes.empty() || ::GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()), bytes.data()) != bytes.size())
    {
        return std::nullopt;
    }
    return bytes;
}

bool WriteAll(HANDLE file, Bytes const& bytes)
{
    DWORD written = 0;
    if (!::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
    {
        return false;
    }
    if (written != bytes.size())
    {
        ::SetLastError(ERROR_DISK_FULL);
        return false;
    }
    return ::FlushFileBuffers(file);
}

/// A new file beside `path`, under a name that nobody else uses; null on failure.
FileHandle CreateBeside(std::string const& path, std::string& temporary)
{
    for (int attempt = 0; attempt < kAttempts; ++attempt)
    {
        temporary = path + "." + std::to_string(::GetCurrentProcessId()) + "-" + std::to_string(attempt) + ".tmp";
        const HANDLE file =
            ::CreateFileA(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file != INVALID_HANDLE_VALUE)
        {
            return FileHandle(file);
        }
        if (::GetLastError() != ERROR_FILE_EXISTS)
        {
            break;
        }
    }
    return nullptr;
}

/// Puts the bytes in place of a file's content only once all of them are written.
bool ReplaceFileBytes(char const* file, Bytes const& bytes)
{
    const std::string path = file != nullptr ? file : "";
    std::string temporary;
    FileHandle handle = path.empty() ? nullptr : CreateBeside(path, temporary);
    if (!handle)
    {
        if (path.empty())
        {
            ::SetLastError(ERROR_INVALID_NAME);
        }
        return false;
    }
    const bool written = WriteAll(handle.get(), bytes);
    DWORD error = written ? ERROR_SUCCESS : ::GetLastError();
    handle.reset();
    if (written)
    {
        if (::MoveFileExA(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING))
        {
            return true;
        }
        error = ::GetLastError();
    }
    ::DeleteFileA(temporary.c_str());
    ::SetLastError(error);
    return false;
}

bool Fail(DWORD error)
{
    ::SetLastError(error);
    return false;
}

bool IsEmpty(CSize page) { return page.cx <= 0 || page.cy <= 0; }

} // namespace

bool SavePagePng(char const* file, CSize page, PageDrawing const& draw)
{
    try
    {
        if (IsEmpty(page))
        {
            return Fail(ERROR_INVALID_DATA);
        }
        const Drawn drawn = DrawBitmap(page, draw);
        const std::optional<Bytes> bytes = drawn.bitmap ? EncodePng(page, drawn.pixels) : std::nullopt;
        return bytes ? ReplaceFileBytes(file, *bytes) : Fail(ERROR_NOT_ENOUGH_MEMORY);
    }
    catch (std::bad_alloc const&)
    {
        return Fail(ERROR_NOT_ENOUGH_MEMORY);
    }
}

bool SavePageEmf(char const* file, CSize page, PageDrawing const& draw)
{
    try
    {
        if (IsEmpty(page))
        {
            return Fail(ERROR_INVALID_DATA);
        }
        const Metafile metafile = DrawMetafile(page, draw);
        const std::optional<Bytes> bytes = metafile ? BytesOf(metafile.get()) : std::nullopt;
        return bytes ? ReplaceFileBytes(file, *bytes) : Fail(ERROR_NOT_ENOUGH_MEMORY);
    }
    catch (std::bad_alloc const&)
    {
        return Fail(ERROR_NOT_ENOUGH_MEMORY);
    }
}

bool CopyPage(CWnd& owner, CSize page, PageDrawing const& draw)
{
    if (IsEmpty(page))
    {
        return false;
    }
    Drawn drawn = DrawBitmap(page, draw);
    Metafile metafile = DrawMetafile(page, draw);
    if (!drawn.bitmap || !metafile || !::OpenClipboard(owner.m_hWnd))
    {
        return false;
    }
    // What the clipboard has taken is its own.
    bool copied = ::EmptyClipboard() && ::SetClipboardData(CF_BITMAP, drawn.bitmap.get()) != nullptr;
    if (copied)
    {
        static_cast<void>(drawn.bitmap.release());
        if (::SetClipboardData(CF_ENHMETAFILE, metafile.get()) != nullptr)
        {
            static_cast<void>(metafile.release());
        }
    }
    ::CloseClipboard();
    return copied;
}

} // namespace tavkit
