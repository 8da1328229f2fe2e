// FileBytes.cpp
#include "host/FileBytes.h"

#include <algorithm>
#include <atomic>
#include <new>

#include "host/PathText.h"

namespace host
{
namespace
{
constexpr DWORD kLargestTransfer = 1u << 24; ///< bytes handed to the system at once

bool WriteAll(HANDLE file, std::string_view content)
{
    while (!content.empty())
    {
        const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(content.size(), kLargestTransfer));
        DWORD written = 0;
        if (!::WriteFile(file, content.data(), wanted, &written, nullptr) || written == 0)
        {
            return false;
        }
        content.remove_prefix(written);
    }
    return true;
}

/// Makes a new file beside @p path that no other process or call writes to; not valid on failure.
FileHandle CreateBeside(std::string const& path, std::string& temporary)
{
    static std::atomic<unsigned> serial{0};
    constexpr int kAttempts = 100; // names that an earlier, broken run has left behind
    for (int attempt = 0; attempt < kAttempts; ++attempt)
    {
        temporary = path + DString::Format(".%lx-%x.tmp", ::GetCurrentProcessId(), ++serial).c_str();
        FileHandle file(
            ::CreateFileA(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (file.IsValid() || ::GetLastError() != ERROR_FILE_EXISTS)
        {
            return file;
        }
    }
    return FileHandle();
}
} // namespace

void FileHandle::Close() noexcept
{
    if (IsValid())
    {
        ::CloseHandle(m_handle);
        m_handle = INVALID_HANDLE_VALUE;
    }
}

std::string PhysicalPath(DFile const& file)
{
    return std::string(file.GetPhysFilePath().c_str()) + file.GetPhysFileName().c_str();
}

std::wstring Widen(std::string_view text)
{
    const int length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // no character of a code page takes more units than it has bytes
    const int units = ::MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length);
    wide.resize(static_cast<std::size_t>(std::max(0, units)));
    return wide;
}

std::wstring WidePath(std::string_view path) { return Widen(PathForSystem(path)); }

FileHandle OpenForReading(char const* path) noexcept
{
    try
    {
        return FileHandle(::CreateFileW(WidePath(path).c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    catch (std::bad_alloc const&)
    {
        return FileHandle();
    }
}

std::optional<std::string> ReadWholeFile(DFile const& file, std::size_t limit)
{
    const FileHandle handle = OpenForReading(PhysicalPath(file).c_str());
    LARGE_INTEGER size{};
    if (!handle.IsValid() || !::GetFileSizeEx(handle.Get(), &size) || size.QuadPart < 0 ||
        static_cast<unsigned long long>(size.QuadPart) > limit)
    {
        return std::nullopt;
    }
    std::string content;
    try
    {
        content.resize(static_cast<std::size_t>(size.QuadPart));
    }
    catch (std::bad_alloc const&)
    {
        return std::nullopt;
    }
    std::size_t read = 0;
    while (read < content.size())
    {
        const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(content.size() - read, kLargestTransfer));
        DWORD got = 0;
        if (!::ReadFile(handle.Get(), content.data() + read, wanted, &got, nullptr) || got == 0)
        {
            return std::nullopt; // it became shorter meanwhile, or the disk failed
        }
        read += got;
    }
    return content;
}

bool ReplaceFileContent(DFile const& file, std::string_view content)
{
    const std::string path = PhysicalPath(file);
    std::string temporary;
    FileHandle handle = CreateBeside(path, temporary);
    if (!handle.IsValid())
    {
        return false;
    }
    const bool written = WriteAll(handle.Get(), content) && ::FlushFileBuffers(handle.Get());
    handle.Close();
    if (written && ::MoveFileExA(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING))
    {
        return true;
    }
    ::DeleteFileA(temporary.c_str());
    return false;
}
} // namespace host
