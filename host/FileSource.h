// FileSource.h - the bytes of a file on disk
#pragma once

#include <memory>
#include <string>

#include "host/ByteSource.h"
#include "host/FileBytes.h"

namespace host
{

/// A file that is open for reading; others may read and write it meanwhile.
class FileSource final : public ByteSource
{
public:
    /// @param path  in the ANSI code page.
    /// @return null if there is no such file, it may not be read, or it is a folder or a device.
    [[nodiscard]] static std::unique_ptr<FileSource> Open(const std::string& path);

    [[nodiscard]] std::uint64_t Size() const noexcept override { return m_size; }
    [[nodiscard]] bool Read(std::uint64_t offset, std::span<std::byte> into) noexcept override;

private:
    FileSource(FileHandle file, std::uint64_t size) noexcept : m_file(std::move(file)), m_size(size) {}

    FileHandle m_file;
    std::uint64_t m_size;
};

} // namespace host
