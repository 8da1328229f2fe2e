// FileBytes.h - reads a whole file, and replaces one in a single step
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include <windows.h>

#include "tavkit/frame/services/DFile.h"

namespace host
{
/// Owner of a file handle.
class TAVHOST_API FileHandle
{
public:
    explicit FileHandle(HANDLE handle = INVALID_HANDLE_VALUE) noexcept : m_handle(handle) {}
    FileHandle(FileHandle&& other) noexcept : m_handle(other.m_handle) { other.m_handle = INVALID_HANDLE_VALUE; }
    FileHandle& operator=(FileHandle&&) = delete;
    ~FileHandle() { Close(); }

    [[nodiscard]] bool IsValid() const noexcept { return m_handle != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE Get() const noexcept { return m_handle; }
    void Close() noexcept;

private:
    HANDLE m_handle;
};

/// The path of a file without its options.
[[nodiscard]] std::string PhysicalPath(DFile const& file);

/// Text of the ANSI code page as wide characters.
[[nodiscard]] TAVHOST_API std::wstring Widen(std::string_view text);

/// The form of a path that the system's wide functions take: only theirs can be of any length.
/// @param path  without options, in the ANSI code page
[[nodiscard]] TAVHOST_API std::wstring WidePath(std::string_view path);

/// Opens a file that others may read and write meanwhile; not valid on failure, and for a folder.
[[nodiscard]] TAVHOST_API FileHandle OpenForReading(char const* path) noexcept;

/// The content of a file; nothing if it can't be read whole or has more than @p limit bytes.
[[nodiscard]] TAVHOST_API std::optional<std::string> ReadWholeFile(DFile const& file, std::size_t limit);

/// Gives a file new content: written to a file beside it, which then takes its name. Until that step, and after any
/// failure, the file is as it was.
[[nodiscard]] TAVHOST_API bool ReplaceFileContent(DFile const& file, std::string_view content);
} // namespace host
