// TableSort.cpp - [table_sort] the list over a table of a million rows: its first page, the jump to its last row, and
// sorting by a column of numbers
#include "bench/Bench.h"
#include "bench/ListWindows.h"
#include "bench/ObjectTable.h"
#include "bench/TemporaryFile.h"
#include "tavkit/frame/services/OpenAttrData.h"
#include "tavkit/lists/ADIListCtrl.h"
#include "tavkit/lists/ScanDouble.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace bench
{
namespace
{

constexpr double kPageTarget = 1.5;
constexpr double kSortTarget = 1.5;
constexpr int kRounds = 5; // a round of a million rows takes seconds
constexpr int kFirstLength = 100;
constexpr const char* kFormat = "CSV"; // names of temporary files don't tell it

/// A table in a file of its own.
class TableFile
{
public:
    explicit TableFile(int rows)
    {
        const ObjectTable table(rows);
        std::FILE* const file = std::fopen(m_file.Path().c_str(), "wb");
        const bool written =
            file != nullptr && std::fwrite(table.text.data(), 1, table.text.size(), file) == table.text.size();
        Require(file != nullptr && std::fclose(file) == 0 && written, "the table can't be written");
    }

    [[nodiscard]] std::unique_ptr<IAttrData> Open() const
    {
        auto reader = OpenAttrData(BDIMoniker(m_file.Path().c_str(), nullptr), kFormat, nullptr);
        Require(reader != nullptr, "the table can't be opened");
        return reader;
    }

private:
    TemporaryFile m_file;
};

std::unique_ptr<CADIListCtrl> MakeList(ListParent& parent, const TableFile& file)
{
    auto list = std::make_unique<CADIListCtrl>(file.Open().release());
    Require(list->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED, kListPlace, &parent, 1) != FALSE,
            "the list can't be made");
    list->AddAllColumns();
    return list;
}

/// From the file's name to the painted first page.
void ShowFirstPage(ListParent& parent, const TableFile& file, std::unique_ptr<CADIListCtrl>& list)
{
    list = MakeList(parent, file);
    list->SetNumRow(kFirstLength);
    list->UpdateWindow();
    ::GdiFlush();
}

Row MeasureFirstPage(ListParent& parent, const TableFile& large)
{
    const TableFile small(kSmallTableRows);
    std::unique_ptr<CADIListCtrl> list;
    const auto check = [&] {
        Require(list->GetCacheRows() >= kFirstLength && list->GetCacheRows() <= kSmallTableRows,
                "the first page reads another part of the table");
        list.reset();
    };
    const Medians medians =
        Interleave({.run = [&] { ShowFirstPage(parent, large, list); }, .prepare = nullptr, .check = check},
                   {.run = [&] { ShowFirstPage(parent, small, list); }, .prepare = nullptr, .check = check});
    return {"table_sort.first_page", kLargeTableRows, medians.ours, medians.reference, kPageTarget};
}

/// The cells of a table, each copied once.
class CellCopies
{
public:
    CellCopies() { m_cells.reserve(std::size_t{kLargeTableRows} * kTableColumns); }
    ~CellCopies() { Clear(); }
    CellCopies(const CellCopies&) = delete;
    CellCopies& operator=(const CellCopies&) = delete;

    void Read(const TableFile& file)
    {
        const auto reader = file.Open();
        for (int row = 0; reader->ReadRow(row, 0); ++row)
        {
            for (int col = 0; col < kTableColumns; ++col)
            {
                m_cells.push_back(_strdup(reader->GetCellText(row, col, 0)));
            }
        }
    }
    void Clear()
    {
        for (char* const cell : m_cells)
        {
            std::free(cell);
        }
        m_cells.clear();
    }
    [[nodiscard]] std::size_t Count() const noexcept { return m_cells.size(); }

private:
    std::vector<char*> m_cells;
};

Row MeasureJump(ListParent& parent, const TableFile& file)
{
    std::unique_ptr<CADIListCtrl> list;
    CellCopies copies;
    const Medians medians = Interleave({.run =
                                            [&] {
                                                list->ReadAllRows();
                                                list->EnsureVisible(list->GetNumRow() - 1, FALSE);
                                                list->UpdateWindow();
                                                ::GdiFlush();
                                            },
                                        .prepare = [&] { list = MakeList(parent, file); },
                                        .check =
                                            [&] {
                                                Require(list->GetCacheRows() == kLargeTableRows, "rows are missing");
                                                list.reset();
                                            }},
                                       {.run = [&] { copies.Read(file); },
                                        .prepare = nullptr,
                                        .check =
                                            [&] {
                                                Require(copies.Count() == std::size_t{kLargeTableRows} * kTableColumns,
                                                        "cells are missing");
                                                copies.Clear();
                                            }},
                                       kRounds);
    return {"table_sort.jump", kLargeTableRows, medians.ours, medians.reference, std::nullopt};
}

struct Key
{
    double number;
    int row;
};

Row MeasureSort(CADIListCtrl& list, int col, const char* name)
{
    std::vector<Key> keys;
    for (int row = 0; row < list.GetCacheRows(); ++row)
    {
        keys.push_back({tavkit::ToDouble(list.GetCacheItem(row, col - 1)), row});
    }
    std::vector<Key> sorted;
    const auto higher = [](const Key& left, const Key& right) { return left.number > right.number; };
    const Medians medians = Interleave(
        {.run = [&] { list.Sort(col, true); },
         .prepare = [&] { list.Sort(0, false); },
         .check =
             [&] {
                 for (int row = 0; row < kLargeTableRows; row += 1009)
                 {
                     Require(sorted.empty() || keys[static_cast<std::size_t>(list.GetID(row))].number ==
                                                   sorted[static_cast<std::size_t>(row)].number,
                             "the list has another order");
                 }
             }},
        {.run = [&] { std::ranges::stable_sort(sorted, higher); }, .prepare = [&] { sorted = keys; }, .check = nullptr},
        kRounds);
    return {name, kLargeTableRows, medians.ours, medians.reference, kSortTarget};
}

std::vector<Row> Run()
{
    constexpr int kXColumn = 2;    // of the list: numbers with one decimal, in no order
    constexpr int kMeanColumn = 5; // four decimals
    const TableFile file(kLargeTableRows);
    ListParent parent;
    std::vector<Row> rows = {MeasureFirstPage(parent, file), MeasureJump(parent, file)};
    const std::unique_ptr<CADIListCtrl> list = MakeList(parent, file);
    list->ReadAllRows();
    rows.push_back(MeasureSort(*list, kXColumn, "table_sort.x"));
    rows.push_back(MeasureSort(*list, kMeanColumn, "table_sort.mean"));
    return rows;
}

const Registration registration("table_sort", Run);

} // namespace
} // namespace bench
