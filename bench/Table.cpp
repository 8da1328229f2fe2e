// Table.cpp - [table] a table of a million rows: how soon its first page is there, and how fast all of it is read
#include "bench/Bench.h"
#include "bench/ObjectTable.h"
#include "bench/TemporaryFile.h"
#include "tavkit/frame/services/OpenAttrData.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <span>

namespace bench
{
namespace
{

constexpr double kReadTarget = 3;

/// Names of the tables don't end with an extension, so the format is told.
constexpr const char* kFormat = "CSV";

void Save(const std::string& path, const std::string& text)
{
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    const bool written = file != nullptr && std::fwrite(text.data(), 1, text.size(), file) == text.size();
    Require(file != nullptr && std::fclose(file) == 0 && written, "the table can't be written");
}

/// Where cells are copied to, one behind the other, each with a NUL; from the start again when it is full. A checksum
/// over what is written would cost more than the copying; one over the last pieces shows whether all of them came.
class CellSink
{
public:
    /// A cell whose length is known.
    void Take(const char* text, std::size_t length) noexcept
    {
        char* const to = Begin();
        std::memcpy(to, text, length);
        End(to + length);
    }
    /// A cell that ends with a NUL.
    void Take(const char* text) noexcept
    {
        char* to = Begin();
        while (*text != '\0')
        {
            *to++ = *text++;
        }
        End(to);
    }

    bool operator==(const CellSink& other) const noexcept
    {
        return m_cells == other.m_cells && m_at == other.m_at &&
               std::memcmp(m_bytes.get(), other.m_bytes.get(), kSize) == 0;
    }
    void Clear() noexcept
    {
        m_at = m_cells = 0;
        std::memset(m_bytes.get(), 0, kSize);
    }

private:
    static constexpr std::size_t kSize = std::size_t{1} << 20;
    static constexpr std::size_t kMostCell = 256;

    [[nodiscard]] char* Begin() noexcept
    {
        if (kSize - m_at <= kMostCell)
        {
            m_at = 0;
        }
        return m_bytes.get() + m_at;
    }
    void End(char* end) noexcept
    {
        *end = '\0';
        ++m_cells;
        m_at = static_cast<std::size_t>(end - m_bytes.get()) + 1;
    }

    std::unique_ptr<char[]> m_bytes = std::make_unique<char[]>(kSize);
    std::size_t m_at = 0;
    std::size_t m_cells = 0;
};

std::unique_ptr<IAttrData> Open(const std::string& path)
{
    auto table = OpenAttrData(BDIMoniker(path.c_str(), nullptr), kFormat, nullptr);
    Require(table != nullptr, "the table can't be opened");
    return table;
}

/// Our side: the reader finds rows and cells, and hands out each cell's text where it stands.
/// @param take  gets the text of each cell
template <class Take>
void ReadTable(const std::string& path, Take take)
{
    const auto table = Open(path);
    const int columns = table->GetNumCol(0);
    for (int row = 0; table->ReadRow(row, 0); ++row)
    {
        for (int col = 0; col < columns; ++col)
        {
            take(table->GetCellText(row, col, 0));
        }
    }
}

/// The other side knows beforehand where every cell stands, and reads the bytes in pieces of the same size.
void CopyCells(const std::string& path, const ObjectTable& table, CellSink& sink)
{
    constexpr std::size_t kPiece = std::size_t{256} << 10;
    constexpr std::size_t kMostCell = 512; // with the gap in front
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    Require(file != nullptr, "the table can't be opened");
    std::setvbuf(file, nullptr, _IONBF, 0);
    const auto bytes = std::make_unique_for_overwrite<char[]>(kMostCell + kPiece);
    char* at = bytes.get();
    char* end = at;
    const auto readOn = [&] {
        const auto kept = static_cast<std::size_t>(end - at);
        std::memmove(bytes.get(), at, kept);
        at = bytes.get();
        end = at + kept;
        end += std::fread(end, 1, kPiece, file);
    };
    readOn();
    at += table.text.find("\r\n"); // behind the names
    for (const ObjectTable::Cell cell : table.cells)
    {
        if (static_cast<std::size_t>(end - at) < kMostCell)
        {
            readOn();
        }
        at += cell.gap;
        sink.Take(at, cell.length);
        at += cell.length;
    }
    std::fclose(file);
}

/// Sum of the first bytes of all cells, 0 for an empty one.
std::size_t FirstBytes(const ObjectTable& table)
{
    std::size_t sum = 0;
    std::size_t at = table.text.find("\r\n");
    for (const ObjectTable::Cell cell : table.cells)
    {
        at += cell.gap;
        sum += cell.length > 0 ? static_cast<unsigned char>(table.text[at]) : 0;
        at += cell.length;
    }
    return sum;
}

std::vector<Row> RunTable()
{
    std::vector<Row> rows;
    const ObjectTable large(kLargeTableRows);
    const TemporaryFile largeFile;
    Save(largeFile.Path(), large.text);

    CellSink ours;
    CellSink reference;
    CopyCells(largeFile.Path(), large, reference);
    const Side copyCells{[&] { CopyCells(largeFile.Path(), large, reference); }, [&] { reference.Clear(); }, nullptr};

    std::size_t firstBytes = 0;
    const std::size_t expected = FirstBytes(large);
    const Medians asked = Interleave(
        {[&] {
             ReadTable(largeFile.Path(), [&](const char* text) { firstBytes += static_cast<unsigned char>(*text); });
         },
         [&] { firstBytes = 0; }, [&] { Require(firstBytes == expected, "the reader gives other cells"); }},
        copyCells);
    rows.push_back({"table.read", kLargeTableRows, asked.ours, asked.reference, kReadTarget});

    const Medians copied =
        Interleave({[&] { ReadTable(largeFile.Path(), [&](const char* text) { ours.Take(text); }); },
                    [&] { ours.Clear(); }, [&] { Require(ours == reference, "the reader gives other cells"); }},
                   copyCells);
    rows.push_back({"table.read_copied", kLargeTableRows, copied.ours, copied.reference, std::nullopt});
    return rows;
}

const Registration kTable("table", RunTable);

} // namespace
} // namespace bench
