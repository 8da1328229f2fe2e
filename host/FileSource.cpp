#include "host/FileSource.h"

namespace host
{

std::unique_ptr<FileSource> FileSource::Open(const std::string& path)
{
    FileHandle file = OpenForReading(path.c_str());
    if (!file.IsValid())
    {
        return nullptr;
    }
    LARGE_INTEGER size;
    if (::GetFileType(file.Get()) != FILE_TYPE_DISK || !::GetFileSizeEx(file.Get(), &size))
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
    if (!::SetFilePointerEx(m_file.Get(), place, nullptr, FILE_BEGIN))
    {
        return false;
    }
    while (!into.empty())
    {
        DWORD count = 0;
        if (!::ReadFile(m_file.Get(), into.data(), static_cast<DWORD>(std::min(into.size(), kMostAtOnce)), &count,
                        nullptr) ||
            count == 0)
        {
            return false;
        }
        into = into.subspan(count);
    }
    return true;
}

} // namespace host
