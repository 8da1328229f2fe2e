// DbaseWriter.h - the bytes of dBase files, right ones and damaged ones
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace support
{
/// A field of a dBase file.
struct DbaseField
{
    std::string name;
    char kind;
    unsigned width;
    unsigned decimals = 0;
};

/// A dBase file as bytes. What the header claims may be set to something else than the truth.
class DbaseWriter
{
public:
    static constexpr std::size_t kRecordsAt = 4;
    static constexpr std::size_t kHeaderBytesAt = 8;
    static constexpr std::size_t kRecordBytesAt = 10;
    static constexpr std::size_t kLanguageAt = 29;
    static constexpr std::size_t kFieldsAt = 32;
    static constexpr std::size_t kFieldBytes = 32;

    explicit DbaseWriter(const std::vector<DbaseField>& fields)
    {
        m_bytes.assign(kFieldsAt, '\0');
        m_bytes.replace(0, 4, "\x03\x7C\x02\x1D"); // level III, 29 February 2024
        for (const DbaseField& field : fields)
        {
            std::string entry = field.name;
            entry.resize(kFieldBytes, '\0');
            entry[11] = field.kind;
            entry[16] = static_cast<char>(field.width);
            entry[17] = static_cast<char>(field.decimals);
            m_bytes += entry;
            m_recordBytes += field.width;
        }
        m_bytes += '\x0D';
        Set(kHeaderBytesAt, static_cast<std::uint32_t>(m_bytes.size()), 2);
        Set(kRecordBytesAt, m_recordBytes, 2);
    }

    /// Adds a record.
    /// @param cells  of all fields, each as wide as its field.
    /// @param flag   ' ', or '*' for a deleted one.
    DbaseWriter& Add(std::string_view cells, char flag = ' ')
    {
        if (cells.size() + 1 != m_recordBytes)
        {
            throw std::invalid_argument("a record of another width than its fields");
        }
        m_bytes += flag;
        m_bytes += cells;
        Set(kRecordsAt, ++m_records, 4);
        return *this;
    }

    /// Writes a number of `count` bytes at a place of the file.
    DbaseWriter& Set(std::size_t at, std::uint32_t value, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i, value >>= 8)
        {
            m_bytes[at + i] = static_cast<char>(value);
        }
        return *this;
    }

    /// The file, with the mark at its end.
    [[nodiscard]] std::string Bytes() const { return m_bytes + '\x1A'; }

private:
    std::string m_bytes;
    std::uint32_t m_records = 0;
    std::uint32_t m_recordBytes = 1;
};
} // namespace support
