// ListSort.cpp - [list_sort] the flexible list's sort against the plain control sorted by keys that were fetched once
#include "bench/Bench.h"
#include "bench/ListWindows.h"
#include "tavkit/lists/ListCtrlFlex.h"

#include <afxcmn.h>
#include <afxwin.h>

#include <algorithm>
#include <cstdlib>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <memory>
#include <random>

namespace bench
{
namespace
{

constexpr double kTarget = 1.15;
constexpr int kRows = 100'000;
constexpr int kKeyRoom = 256; // as much of a text as the list compares
constexpr DWORD kStyle = WS_CHILD | LVS_REPORT | LVS_OWNERDRAWFIXED;
constexpr unsigned kSeed = 4711;

constexpr int kSortRounds = 5; // a sort of so many rows takes seconds, most of them in the control's own part

// Two columns of each kind, sorted by in turns: rows in the order of the one are in no order for the other.
enum Column
{
    TextColumn,
    OtherTextColumn,
    NumberColumn,
    OtherNumberColumn,
    ColumnCount
};

bool IsText(int column) { return column == TextColumn || column == OtherTextColumn; }

/// The texts of all cells, row by row.
class Cells
{
public:
    Cells()
    {
        std::mt19937 random(kSeed);
        std::uniform_int_distribution<int> letter('a', 'z');
        std::uniform_int_distribution<int> length(6, 14);
        std::uniform_real_distribution<double> number(-1e5, 1e5);
        for (int row = 0; row < kRows; ++row)
        {
            for (int column = 0; column < ColumnCount; ++column)
            {
                char digits[32];
                std::snprintf(digits, sizeof digits, "%.4f", number(random));
                std::string text = IsText(column) ? "cell " : digits;
                std::generate_n(std::back_inserter(text), IsText(column) ? length(random) : 0,
                                [&] { return static_cast<char>(letter(random)); });
                m_texts.push_back(text);
            }
        }
    }

    [[nodiscard]] const char* At(int row, int column) const
    {
        return m_texts[static_cast<std::size_t>(row) * ColumnCount + static_cast<std::size_t>(column)].c_str();
    }

private:
    std::vector<std::string> m_texts;
};

void FillCells(HWND list, const Cells& cells)
{
    for (int row = 0; row < kRows; ++row)
    {
        for (int column = 1; column < ColumnCount; ++column)
        {
            LVITEMA item{};
            item.iSubItem = column;
            item.pszText = const_cast<char*>(cells.At(row, column));
            ::SendMessageA(list, LVM_SETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        }
    }
}

// --- ours -----------------------------------------------------------------------------------------------------------

class FlexList : public CListCtrlFlex
{
public:
    FlexList(CWnd& parent, const Cells& cells)
    {
        Require(Create(kStyle, kListPlace, &parent, 1) != FALSE, "the flexible list can't be made");
        for (int column = 0; column < ColumnCount; ++column)
        {
            InsertColumn(column, IsText(column) ? adiString : adiDouble, "", false, LVCFMT_LEFT, kListColumnWidth,
                         column);
        }
        for (int row = 0; row < kRows; ++row)
        {
            InsertItem(row, cells.At(row, TextColumn), 0, nullptr, 0, 0xFFFFFF, 0);
        }
        FillCells(m_hWnd, cells);
    }
};

// --- the reference: the plain control -------------------------------------------------------------------------------

struct Key
{
    double number = 0;
    const char* text = nullptr;
};

int CALLBACK CompareTexts(LPARAM first, LPARAM second, LPARAM)
{
    return std::strcmp(reinterpret_cast<const Key*>(first)->text, reinterpret_cast<const Key*>(second)->text);
}

int CALLBACK CompareNumbers(LPARAM first, LPARAM second, LPARAM)
{
    const double a = reinterpret_cast<const Key*>(first)->number;
    const double b = reinterpret_cast<const Key*>(second)->number;
    return a < b ? -1 : a > b ? 1 : 0;
}

/// A list view without any framework, whose rows carry their keys.
class KeyedList
{
public:
    KeyedList(CWnd& parent, const Cells& cells) : m_keys(kRows), m_texts(new char[std::size_t{kRows} * kKeyRoom])
    {
        m_list = ::CreateWindowExA(0, WC_LISTVIEWA, "", kStyle, 0, 0, kListPlace.right, kListPlace.bottom,
                                   parent.m_hWnd, nullptr, ::GetModuleHandleA(nullptr), nullptr);
        Require(m_list != nullptr, "the plain list can't be made");
        for (int column = 0; column < ColumnCount; ++column)
        {
            LVCOLUMNA info{};
            info.mask = LVCF_WIDTH | LVCF_SUBITEM;
            info.cx = kListColumnWidth;
            info.iSubItem = column;
            ::SendMessageA(m_list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&info));
        }
        for (int row = 0; row < kRows; ++row)
        {
            LVITEMA item{};
            item.mask = LVIF_TEXT | LVIF_PARAM;
            item.iItem = row;
            item.pszText = const_cast<char*>(cells.At(row, TextColumn));
            item.lParam = reinterpret_cast<LPARAM>(&m_keys[static_cast<std::size_t>(row)]);
            ::SendMessageA(m_list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
        }
        FillCells(m_list, cells);
    }
    ~KeyedList() { ::DestroyWindow(m_list); }
    KeyedList(const KeyedList&) = delete;
    KeyedList& operator=(const KeyedList&) = delete;

    [[nodiscard]] HWND Handle() const noexcept { return m_list; }
    /// The keys of the last sort, in the order of the records.
    [[nodiscard]] const std::vector<Key>& Keys() const noexcept { return m_keys; }

    void Fetch(int column)
    {
        for (int row = 0; row < kRows; ++row)
        {
            char* const text = m_texts.get() + static_cast<std::size_t>(row) * kKeyRoom;
            LVITEMA item{};
            item.mask = LVIF_TEXT | LVIF_PARAM;
            item.iItem = row;
            item.iSubItem = column;
            item.pszText = text;
            item.cchTextMax = kKeyRoom;
            ::SendMessageA(m_list, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
            Key& key = *reinterpret_cast<Key*>(item.lParam);
            key.text = text;
            if (!IsText(column))
            {
                key.number = std::strtod(text, nullptr);
            }
        }
    }

    void Sort(int column)
    {
        Fetch(column);
        const auto compare = IsText(column) ? &CompareTexts : &CompareNumbers;
        ::SendMessageA(m_list, LVM_SORTITEMS, 0, reinterpret_cast<LPARAM>(compare));
    }

private:
    std::vector<Key> m_keys;
    std::unique_ptr<char[]> m_texts;
    HWND m_list = nullptr;
};

// --- the task -------------------------------------------------------------------------------------------------------

void CheckOrder(HWND list, int column)
{
    for (int row = 1; row < kRows; ++row)
    {
        const std::string above = CellText(list, row - 1, column);
        const std::string below = CellText(list, row, column);
        Require(IsText(column) ? above <= below : std::stod(above) <= std::stod(below),
                "row " + std::to_string(row) + " is out of order");
    }
}

/// Sorts by one of two columns and by the other at the next run.
template <class Sort>
Side InTurns(Column first, Column second, HWND list, Sort sort)
{
    const auto column = std::make_shared<Column>(second);
    Side side;
    side.run = [=] {
        *column = *column == first ? second : first;
        sort(*column);
    };
    side.check = [=] { CheckOrder(list, *column); };
    return side;
}

std::vector<Row> Measure(const std::string& name, Column first, Column second, FlexList& flex, KeyedList& plain)
{
    const Side ours = InTurns(first, second, flex.m_hWnd, [&](Column column) { flex.Sort(column, true); });
    const Side reference = InTurns(first, second, plain.Handle(), [&](Column column) { plain.Sort(column); });
    const Medians sorted = Interleave(ours, reference, kSortRounds);

    // What the sort alone costs at best: keys that were fetched, and no control.
    plain.Sort(second);
    plain.Fetch(first);
    std::vector<const Key*> order;
    Side best;
    best.prepare = [&] {
        order.clear();
        std::ranges::transform(plain.Keys(), std::back_inserter(order), [](const Key& key) { return &key; });
    };
    best.run = [&] {
        if (IsText(first))
        {
            std::ranges::sort(order, [](const Key* a, const Key* b) { return std::strcmp(a->text, b->text) < 0; });
        }
        else
        {
            std::ranges::sort(order, {}, &Key::number);
        }
    };
    const Medians alone = Interleave(best, best, kSortRounds);
    return {{name, kRows, sorted.ours, sorted.reference, kTarget},
            {name + " std", kRows, sorted.ours, alone.reference, std::nullopt}};
}

std::vector<Row> Run()
{
    const Cells cells;
    ListParent frame; // neither list is ever shown
    FlexList flex(frame, cells);
    KeyedList plain(frame, cells);
    std::vector<Row> rows = Measure("list_sort text", TextColumn, OtherTextColumn, flex, plain);
    std::ranges::copy(Measure("list_sort number", NumberColumn, OtherNumberColumn, flex, plain),
                      std::back_inserter(rows));
    return rows;
}

const Registration registration("list_sort", Run);

} // namespace
} // namespace bench
