// TableFormat.cpp
#include "host/tables/TableFormat.h"

#include <algorithm>
#include <array>
#include <utility>

#include "host/tables/DbaseTable.h"
#include "host/tables/DelimitedTable.h"
#include "host/tables/TransposedTable.h"

namespace table
{
namespace
{

using Named = std::pair<std::string_view, TableFormat>;

constexpr std::array<Named, 6> kExtensions{{{"csv", TableFormat::Csv},
                                            {"tcsv", TableFormat::Transposed},
                                            {"txt", TableFormat::Text},
                                            {"tsv", TableFormat::Text},
                                            {"tab", TableFormat::Text},
                                            {"dbf", TableFormat::Dbase}}};
constexpr auto kExtensionNames = [] {
    std::array<std::string_view, kExtensions.size()> names;
    std::ranges::transform(kExtensions, names.begin(), &Named::first);
    return names;
}();

[[nodiscard]] bool EqualsIgnoringCase(std::string_view a, std::string_view b) noexcept
{
    constexpr auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return std::ranges::equal(a, b, {}, upper, upper);
}

template <std::size_t N>
[[nodiscard]] std::optional<TableFormat> Find(const std::array<Named, N>& formats, std::string_view name)
{
    const auto found =
        std::ranges::find_if(formats, [&](const Named& format) { return EqualsIgnoringCase(format.first, name); });
    return found == formats.end() ? std::nullopt : std::optional(found->second);
}

[[nodiscard]] std::unique_ptr<ForwardTable> Open(std::unique_ptr<host::ByteSource> source, TableFormat format,
                                                 WindowSizes sizes)
{
    if (format == TableFormat::Dbase)
    {
        return DbaseTable::Open(std::move(source), sizes);
    }
    const TextStart start = FindTextStart(*source);
    if (!start.isText)
    {
        return nullptr;
    }
    if (format == TableFormat::Transposed)
    {
        return TransposedTable::Open(std::move(source), start, sizes);
    }
    const CellStyle style = format == TableFormat::Csv ? CellStyle::Comma
                            : start.hasTab             ? CellStyle::Tab
                                                       : CellStyle::Blanks;
    return DelimitedTable::Open(std::move(source), start, style, sizes);
}

} // namespace

std::optional<TableFormat> FormatOfId(std::string_view id)
{
    static constexpr std::array<Named, 4> kIds{{{"CSV", TableFormat::Csv},
                                                {"TCSV", TableFormat::Transposed},
                                                {"TXT", TableFormat::Text},
                                                {"DBASE", TableFormat::Dbase}}};
    return Find(kIds, id);
}

std::optional<TableFormat> FormatOfExtension(std::string_view extension) { return Find(kExtensions, extension); }

std::span<const std::string_view> TableExtensions() noexcept { return kExtensionNames; }

std::optional<TableFormat> FormatOfContent(host::ByteSource& source)
{
    if (DbaseTable::IsDbase(source))
    {
        return TableFormat::Dbase;
    }
    const TextStart start = FindTextStart(source);
    if (!start.isText)
    {
        return std::nullopt;
    }
    return start.hasComma && !start.hasTab ? TableFormat::Csv : TableFormat::Text;
}

std::unique_ptr<ForwardTable> OpenTable(std::unique_ptr<host::ByteSource> source, TableFormat format, DError* error,
                                        WindowSizes sizes)
{
    std::unique_ptr<ForwardTable> table = Open(std::move(source), format, sizes);
    if (!table && error != nullptr)
    {
        error->SetError(format == TableFormat::Dbase ? "The file is no dBase table, or its header is damaged."
                                                     : "The file is no text, or its line of names is damaged.");
    }
    return table;
}

} // namespace table
