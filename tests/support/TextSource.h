// TextSource.h - a file in memory, of which a test knows how much was read
#pragma once

#include <string>
#include <utility>

#include "host/ByteSource.h"

namespace support
{
/// Bytes that it owns.
class TextSource final : public host::ByteSource
{
public:
    explicit TextSource(std::string text) : m_text(std::move(text)), m_size(m_text.size()) {}

    std::uint64_t Size() const noexcept override { return m_size; }
    bool Read(std::uint64_t offset, std::span<std::byte> into) noexcept override
    {
        if (offset > m_text.size() || into.size() > m_text.size() - offset)
        {
            return false;
        }
        m_text.copy(reinterpret_cast<char*>(into.data()), into.size(), static_cast<std::size_t>(offset));
        m_bytesRead += into.size();
        return true;
    }

    /// Becomes shorter, as a file does that another program cuts off; the size stays as it was at first.
    void CutTo(std::size_t size) { m_text.resize(size); }

    std::uint64_t m_bytesRead = 0; ///< in all

private:
    std::string m_text;
    std::uint64_t m_size;
};
} // namespace support
