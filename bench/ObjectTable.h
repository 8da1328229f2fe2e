// ObjectTable.h - the tables that are measured: ten columns of what a segmentation writes, as text with commas
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bench
{

constexpr int kTableColumns = 10;
constexpr int kLargeTableRows = 1'000'000;
constexpr int kSmallTableRows = 1'000;

/// A table's text and where its cells lie in it.
struct ObjectTable
{
    explicit ObjectTable(int rows);

    /// A cell without the quotes around it.
    struct Cell
    {
        std::uint8_t gap;    ///< bytes between the end of the cell before and this one
        std::uint8_t length; ///< bytes
    };
    std::string text;
    std::vector<Cell> cells; ///< row by row, without the names

private:
    void Add(const char* format, double value);
    void Add(const std::string& cell);

    std::size_t m_cellEnd = 0; ///< behind the cell added last
};

} // namespace bench
