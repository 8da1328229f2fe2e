#include "host/raster/FileSource.h"

namespace raster
{

std::unique_ptr<FileSource> FileSource::Open(const std::string& path)
{
    const HANDLE opened = ::CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE)
    {
        return nullptr;
    }
    FileHandle file(opened);
    LARGE_INTEGER size;
    if (::GetFileType(opened) != FILE_TYPE_DISK || !::GetFileSizeEx(opened, &size))
    {
        return nullptr;
    }
    return std::unique_ptr<FileSource>(new FileSource(std::move(file), static_cast<std::uint64_t>(size.QuadPart)));
}

bool FileSource::Read(std::uint64_t offset, std::span<std::byte> into) noexcept
{
    constexpr std::size_t kMostAtOnce = std::size_t{1} << 30; // ReadFile counts with 32 bits
    if (!Holds(offset, into.size()))
    {
        return false;
    }
    // Not with the place in an OVERLAPPED: that makes a small reading cost ten times as much where files are emulated.
    LARGE_INTEGER place;
    place.QuadPart = static_cast<LONGLONG>(offset);
    if (!::SetFilePointerEx(m_file.get(), place, nullptr, FILE_BEGIN))
    {
        return false;
    }
    while (!into.empty())
    {
        DWORD count = 0;
        if (!::ReadFile(m_file.get(), into.data(), static_cast<DWORD>(std::min(into.size(), kMostAtOnce)), &count,
                        nullptr) ||
            count == 0)
        {
            return false;
        }
        into = into.subspan(count);
    }
    return true;
}

} // namespace raster
