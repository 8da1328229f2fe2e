// ListFill.cpp - [list_fill] rows of five columns from one text each, against the plain control filled cell by cell
#include "bench/Bench.h"
#include "bench/ListWindows.h"
#include "tavkit/lists/TavListCtrl.h"

#include <memory>

namespace bench
{
namespace
{

constexpr double kTarget = 1.20;

std::unique_ptr<CTavListCtrl> MakeList(ListParent& parent)
{
    auto list = std::make_unique<CTavListCtrl>();
    Require(list->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED, kListPlace, &parent, 1) != FALSE,
            "the list can't be made");
    for (int col = 0; col < kListColumns; ++col)
    {
        list->AddCol("caption", adiString, false, kListColumnWidth, LVCFMT_LEFT);
    }
    return list;
}

/// Some rows hold what they were given, and there are as many as there must be.
void RequireRows(HWND list, const std::vector<ListRow>& rows)
{
    Require(::SendMessageA(list, LVM_GETITEMCOUNT, 0, 0) == static_cast<LRESULT>(rows.size()), "rows are missing");
    for (std::size_t row = 0; row < rows.size(); row += rows.size() / 7 + 1)
    {
        for (int col = 0; col < kListColumns; ++col)
        {
            Require(CellText(list, static_cast<int>(row), col) == rows[row].cells[static_cast<std::size_t>(col)],
                    "a cell holds another text");
        }
    }
}

Row FillRows(int count)
{
    const std::vector<ListRow> rows = MakeListRows(count);
    ListParent parent;
    const PlainParent plainParent;
    std::unique_ptr<CTavListCtrl> ours;
    std::unique_ptr<PlainList> plain;
    const Medians medians = Interleave({.run =
                                            [&] {
                                                const NoRedraw quiet(ours->m_hWnd);
                                                for (const ListRow& row : rows)
                                                {
                                                    ours->AddRow(row.text, nullptr);
                                                }
                                            },
                                        .prepare = [&] { ours = MakeList(parent); },
                                        .check =
                                            [&] {
                                                RequireRows(ours->m_hWnd, rows);
                                                ours.reset();
                                            }},
                                       {.run =
                                            [&] {
                                                const NoRedraw quiet(plain->Handle());
                                                plain->Fill(rows);
                                            },
                                        .prepare = [&] { plain = std::make_unique<PlainList>(plainParent); },
                                        .check =
                                            [&] {
                                                RequireRows(plain->Handle(), rows);
                                                plain.reset();
                                            }});
    return {"list_fill", count, medians.ours, medians.reference, kTarget};
}

std::vector<Row> Run() { return {FillRows(10'000), FillRows(100'000)}; }

const Registration registration("list_fill", Run);

} // namespace
} // namespace bench
