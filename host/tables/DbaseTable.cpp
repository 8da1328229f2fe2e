// DbaseTable.cpp
#include "host/tables/DbaseTable.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace table
{
namespace
{

constexpr std::size_t kHeaderBytes = 32; ///< in front of the fields
constexpr std::size_t kFieldBytes = 32;  ///< for each field
constexpr std::size_t kFlagBytes = 1;    ///< in front of a record's cells
constexpr char kFieldsEnd = 0x0D;
constexpr char kFileEnd = 0x1A;
constexpr char kDeleted = '*';

constexpr std::size_t kNameBytes = 11;
constexpr std::size_t kKindAt = 11;
constexpr std::size_t kWidthAt = 16;
constexpr std::size_t kDecimalsAt = 17;

constexpr std::size_t kDateDigits = 8; // year, month and day without anything between
constexpr std::size_t kYearDigits = 4;
constexpr std::size_t kMonthDigits = 2;
constexpr std::size_t kMostIntWidth = 9; ///< so many digits always fit 32 bits

constexpr std::string_view kBlanks{" \0", 2}; // some programs fill with NULs

[[nodiscard]] unsigned Byte(char c) noexcept { return static_cast<unsigned char>(c); }

[[nodiscard]] std::string_view TrimRight(std::string_view text) noexcept
{
    const std::size_t last = text.find_last_not_of(kBlanks);
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

[[nodiscard]] std::string_view Trim(std::string_view text) noexcept
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view() : TrimRight(text.substr(first));
}

[[nodiscard]] bool IsAllDigits(std::string_view text) noexcept
{
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

[[nodiscard]] std::string DateText(std::string_view digits)
{
    if (digits.size() != kDateDigits || !IsAllDigits(digits))
    {
        return std::string(digits);
    }
    return std::string(digits.substr(0, kYearDigits))
        .append("-")
        .append(digits.substr(kYearDigits, kMonthDigits))
        .append("-")
        .append(digits.substr(kYearDigits + kMonthDigits));
}

[[nodiscard]] const char* TruthText(std::string_view letter) noexcept
{
    constexpr std::string_view kTrue = "TtYy";
    constexpr std::string_view kFalse = "FfNn";
    return letter.size() != 1                       ? ""
           : kTrue.find(letter[0]) < kTrue.size()   ? "True"
           : kFalse.find(letter[0]) < kFalse.size() ? "False"
                                                    : "";
}

[[nodiscard]] std::string_view MemoText(std::string_view block) noexcept
{
    const bool isNone = block.find_first_not_of('0') == std::string_view::npos;
    return isNone || !IsAllDigits(block) ? std::string_view() : block;
}

/// The code page that the header's language byte stands for; the others leave it to the system.
[[nodiscard]] unsigned CodePageOf(unsigned language) noexcept
{
    struct Pair
    {
        unsigned language;
        unsigned codePage;
    };
    constexpr std::array<Pair, 4> kPairs{{{0x01, 437}, {0x02, 850}, {0x03, 1252}, {0x57, 1252}}};
    const auto* const found = std::ranges::find(kPairs, language, &Pair::language);
    return found == kPairs.end() ? kSystemCodePage : found->codePage;
}

} // namespace

/// The file's header without the fields.
struct DbaseTable::Header
{
    std::uint32_t records;   ///< as claimed
    std::size_t headerBytes; ///< with the fields
    std::size_t recordBytes; ///< of each record, with its flag
    unsigned codePage;

    /// Nothing if the bytes are no such header, or a header that its file can't have.
    [[nodiscard]] static std::optional<Header> Read(host::ByteSource& source)
    {
        constexpr std::size_t kMonthAt = 2;
        constexpr std::size_t kDayAt = 3;
        constexpr std::size_t kRecordsAt = 4;
        constexpr std::size_t kHeaderBytesAt = 8;
        constexpr std::size_t kRecordBytesAt = 10;
        constexpr std::size_t kLanguageAt = 29;
        constexpr unsigned kLevelMask = 7; // the other bits tell of memo files
        constexpr unsigned kLevel = 3;
        constexpr unsigned kMonths = 12;
        constexpr unsigned kDays = 31;

        std::array<char, kHeaderBytes> bytes;
        if (!source.Read(0, std::as_writable_bytes(std::span(bytes))))
        {
            return std::nullopt;
        }
        const auto number = [&](std::size_t at, std::size_t count) {
            std::uint32_t value = 0;
            for (std::size_t i = count; i-- > 0;)
            {
                value = value << 8 | Byte(bytes[at + i]);
            }
            return value;
        };
        const Header header{number(kRecordsAt, 4), number(kHeaderBytesAt, 2), number(kRecordBytesAt, 2),
                            CodePageOf(Byte(bytes[kLanguageAt]))};
        const bool isOne =
            (Byte(bytes[0]) & kLevelMask) == kLevel && Byte(bytes[kMonthAt]) <= kMonths && Byte(bytes[kDayAt]) <= kDays;
        const bool canBe = header.headerBytes > kHeaderBytes + kFieldBytes && header.recordBytes > kFlagBytes &&
                           header.headerBytes <= source.Size();
        return isOne && canBe ? std::optional(header) : std::nullopt;
    }
};

bool DbaseTable::IsDbase(host::ByteSource& source) { return Header::Read(source).has_value(); }

DbaseTable::DbaseTable(std::unique_ptr<host::ByteSource> source, const Header& header, WindowSizes sizes)
    : m_source(std::move(source)), m_window(*m_source, header.headerBytes, sizes),
      m_recordsLeft(
          std::min<std::uint64_t>(header.records, (m_source->Size() - header.headerBytes) / header.recordBytes)),
      m_recordBytes(header.recordBytes)
{
    m_codePage = header.codePage;
}

std::unique_ptr<DbaseTable> DbaseTable::Open(std::unique_ptr<host::ByteSource> source, WindowSizes sizes)
{
    const std::optional<Header> header = Header::Read(*source);
    if (!header)
    {
        return nullptr;
    }
    std::unique_ptr<DbaseTable> table(new DbaseTable(std::move(source), *header, sizes));
    return table->ReadFields(*header) ? std::move(table) : nullptr;
}

bool DbaseTable::ReadFields(const Header& header)
{
    std::string bytes(header.headerBytes - kHeaderBytes, '\0');
    if (!m_source->Read(kHeaderBytes, std::as_writable_bytes(std::span(bytes))))
    {
        return false;
    }
    std::string_view rest = bytes;
    std::size_t at = kFlagBytes;
    while (!rest.empty() && rest.front() != kFieldsEnd)
    {
        if (rest.size() < kFieldBytes)
        {
            return false;
        }
        const std::string_view name = rest.substr(0, std::min(rest.find('\0'), kNameBytes));
        const char kind = rest[kKindAt];
        const std::size_t width = Byte(rest[kWidthAt]);
        const bool isWhole = Byte(rest[kDecimalsAt]) == 0 && width <= kMostIntWidth;
        const bool isNumber = kind == 'N' || kind == 'F';
        if (width == 0 || width > m_recordBytes - at)
        {
            return false;
        }
        m_columns.push_back({std::string(TrimRight(name)), !isNumber ? adiString : isWhole ? adiInt : adiDouble});
        m_fields.push_back({kind, at, width});
        at += width;
        rest.remove_prefix(kFieldBytes);
    }
    m_texts.resize(m_fields.size());
    m_cells.assign(m_fields.size(), "");
    return !rest.empty() && !m_fields.empty();
}

bool DbaseTable::ReadNextRow()
{
    for (; m_recordsLeft > 0; --m_recordsLeft)
    {
        while (static_cast<std::size_t>(m_window.End() - m_window.Begin()) < m_recordBytes)
        {
            if (!m_window.More())
            {
                return false;
            }
        }
        const char* const record = m_window.Begin();
        m_window.Drop(m_recordBytes);
        if (*record == kFileEnd)
        {
            return false;
        }
        if (*record != kDeleted)
        {
            --m_recordsLeft;
            TakeRecord(record);
            return true;
        }
    }
    return false;
}

void DbaseTable::TakeRecord(const char* record)
{
    for (std::size_t i = 0; i < m_fields.size(); ++i)
    {
        const Field& field = m_fields[i];
        const std::string_view cell(record + field.at, field.width);
        std::string& text = m_texts[i];
        switch (field.kind)
        {
        case 'C':
            text = TrimRight(cell);
            break;
        case 'N':
        case 'F':
            text = Trim(cell);
            break;
        case 'D':
            text = DateText(Trim(cell));
            break;
        case 'L':
            text = TruthText(Trim(cell));
            break;
        case 'M':
            text = MemoText(Trim(cell));
            break;
        default:
            text.clear();
            break;
        }
        m_cells[i] = text.c_str();
    }
}

} // namespace table
