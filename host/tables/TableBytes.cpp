// TableBytes.cpp
#include "host/tables/TableBytes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <string_view>

namespace table
{
namespace
{

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kNoNumber = "undefined";

[[nodiscard]] std::string_view CellText(std::vector<WrittenCell> const& row, std::size_t col)
{
    return col < row.size() ? std::string_view(row[col].text) : std::string_view();
}

/// Writes lines of separated cells.
class Lines
{
public:
    /// @param separator  between cells
    /// @param alone      each line has one cell only
    Lines(char separator, bool alone) : m_separator(separator), m_alone(alone) {}

    void Cell(std::string_view text)
    {
        if (!m_first)
        {
            m_bytes += m_separator;
        }
        m_first = false;
        if (!NeedsQuotes(text))
        {
            m_bytes += text;
            return;
        }
        m_bytes += '"';
        for (const char c : text)
        {
            m_bytes.append(c == '"' ? 2 : 1, c);
        }
        m_bytes += '"';
    }
    void EndLine()
    {
        m_bytes += kLineEnd;
        m_first = true;
    }
    [[nodiscard]] std::string Take() { return std::move(m_bytes); }

private:
    [[nodiscard]] bool NeedsQuotes(std::string_view text) const
    {
        // A line of nothing would be no row, and without a separator in sight blanks would be taken for some.
        const bool lonely = m_alone && (text.empty() || text.find(' ') != std::string_view::npos);
        return lonely || text.find_first_of("\"\r\n") != std::string_view::npos ||
               text.find(m_separator) != std::string_view::npos;
    }

    char m_separator;
    bool m_alone;
    bool m_first = true;
    std::string m_bytes;
};

[[nodiscard]] std::string RowByRow(WrittenTable const& table, char separator)
{
    Lines lines(separator, table.columns.size() == 1);
    for (Column const& column : table.columns)
    {
        lines.Cell(column.name);
    }
    lines.EndLine();
    for (auto const& row : table.rows)
    {
        for (std::size_t col = 0; col < table.columns.size(); ++col)
        {
            lines.Cell(CellText(row, col));
        }
        lines.EndLine();
    }
    return lines.Take();
}

[[nodiscard]] std::string ColumnByColumn(WrittenTable const& table)
{
    Lines lines(',', table.rows.empty());
    for (std::size_t col = 0; col < table.columns.size(); ++col)
    {
        lines.Cell(table.columns[col].name);
        for (auto const& row : table.rows)
        {
            lines.Cell(CellText(row, col));
        }
        lines.EndLine();
    }
    return lines.Take();
}

// dBase III

constexpr std::size_t kHeadBytes = 32;  ///< of the file, and of each field
constexpr std::size_t kNameBytes = 10;  ///< of a field's name, without its NUL
constexpr std::size_t kMostWidth = 254; ///< of a text field
constexpr std::size_t kNumberWidth = 20;
constexpr char kLevel = 3;
constexpr char kHeadEnd = '\x0D';
constexpr char kFileEnd = '\x1A';
constexpr int kFirstYear = 1900;

void Put(std::string& bytes, std::size_t at, std::size_t number, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
    {
        bytes[at + i] = static_cast<char>(number >> (8 * i) & 0xFF);
    }
}

/// A field of a record.
struct Field
{
    std::string name;
    bool isNumber = false;
    std::size_t width = 1;
    std::size_t decimals = 0;

    /// The cell's text as it stands in the record; a number that is too wide loses digits, not its size.
    [[nodiscard]] std::string Content(WrittenCell const& cell) const
    {
        if (!isNumber)
        {
            std::string text = cell.text.substr(0, width);
            text.resize(width, ' ');
            return text;
        }
        const std::string text = cell.isNumber && cell.text != kNoNumber ? Fitting(cell.text) : std::string();
        return std::string(width - text.size(), ' ') + text;
    }
    [[nodiscard]] static std::string Fitting(std::string const& number)
    {
        constexpr int kDigits = 12; // with sign, point and exponent of a double 20 characters
        if (number.size() <= kNumberWidth)
        {
            return number;
        }
        double value = 0;
        std::from_chars(number.data(), number.data() + number.size(), value);
        std::array<char, 64> text;
        char* const end =
            std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, kDigits).ptr;
        return {text.data(), end};
    }
};

/// Cuts a name to what a field's may have and makes it another than those before.
[[nodiscard]] std::string FieldName(std::string const& name, std::set<std::string>& taken)
{
    std::string cut = name.substr(0, kNameBytes);
    for (int number = 2; !taken.insert(cut).second; ++number)
    {
        const std::string tail = std::to_string(number);
        cut = name.substr(0, kNameBytes - tail.size()) + tail;
    }
    return cut;
}

[[nodiscard]] std::vector<Field> Fields(WrittenTable const& table)
{
    std::vector<Field> fields;
    std::set<std::string> taken;
    for (std::size_t col = 0; col < table.columns.size(); ++col)
    {
        Field field;
        field.name = FieldName(table.columns[col].name, taken);
        field.isNumber = table.columns[col].type == adiInt || table.columns[col].type == adiDouble;
        for (auto const& row : table.rows)
        {
            const std::string_view text = CellText(row, col);
            const std::size_t point = text.find('.');
            field.width = std::max(field.width, text.size());
            if (field.isNumber && point != std::string_view::npos && text.find('e') == std::string_view::npos)
            {
                field.decimals = std::max(field.decimals, text.size() - point - 1);
            }
        }
        field.width = std::min(field.width, field.isNumber ? kNumberWidth : kMostWidth);
        field.decimals = std::min(field.decimals, field.width > 2 ? field.width - 2 : 0);
        fields.push_back(std::move(field));
    }
    return fields;
}

[[nodiscard]] std::optional<std::string> Dbase(WrittenTable const& table, Day today)
{
    constexpr std::size_t kMost = std::numeric_limits<std::uint16_t>::max();
    const std::size_t headBytes = kHeadBytes * (table.columns.size() + 1) + 1;
    if (headBytes > kMost || table.rows.size() > std::numeric_limits<std::uint32_t>::max())
    {
        return std::nullopt;
    }
    const std::vector<Field> fields = Fields(table);
    std::size_t recordBytes = 1; // the mark of a deleted record
    for (Field const& field : fields)
    {
        recordBytes += field.width;
    }
    if (recordBytes > kMost)
    {
        return std::nullopt;
    }
    std::string bytes(headBytes, '\0');
    bytes[0] = kLevel;
    bytes[1] = static_cast<char>(today.year - kFirstYear);
    bytes[2] = static_cast<char>(today.month);
    bytes[3] = static_cast<char>(today.day);
    Put(bytes, 4, table.rows.size(), 4);
    Put(bytes, 8, headBytes, 2);
    Put(bytes, 10, recordBytes, 2);
    std::size_t at = kHeadBytes;
    for (Field const& field : fields)
    {
        bytes.replace(at, field.name.size(), field.name);
        bytes[at + 11] = field.isNumber ? 'N' : 'C';
        Put(bytes, at + 16, field.width, 1);
        Put(bytes, at + 17, field.decimals, 1);
        at += kHeadBytes;
    }
    bytes[at] = kHeadEnd;
    for (auto const& row : table.rows)
    {
        bytes += ' ';
        for (std::size_t col = 0; col < fields.size(); ++col)
        {
            bytes += fields[col].Content(col < row.size() ? row[col] : WrittenCell());
        }
    }
    bytes += kFileEnd;
    return bytes;
}

} // namespace

WrittenCell NumberCell(int value) { return {std::to_string(value), true}; }

WrittenCell NumberCell(double value)
{
    if (!std::isfinite(value))
    {
        return {std::string(kNoNumber), true};
    }
    std::array<char, 64> text;
    return {std::string(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr), true};
}

std::optional<std::string> TableBytes(WrittenTable const& table, TableFormat format, Day today)
{
    switch (format)
    {
    case TableFormat::Csv:
        return RowByRow(table, ',');
    case TableFormat::Text:
        return RowByRow(table, '\t');
    case TableFormat::Transposed:
        return ColumnByColumn(table);
    case TableFormat::Dbase:
        return Dbase(table, today);
    }
    return std::nullopt;
}

} // namespace table
