// ListPaint.cpp - [list_paint] a full page of rows that the list draws itself, against the plain control's painting
#include "bench/Bench.h"
#include "bench/ListWindows.h"
#include "bench/Painted.h"
#include "tavkit/lists/TavListCtrl.h"

namespace bench
{
namespace
{

constexpr int kRows = 200;    // more than a page
constexpr int kRepaints = 20; // of one run

void Repaint(HWND list)
{
    for (int i = 0; i < kRepaints; ++i)
    {
        ::RedrawWindow(list, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    }
    ::GdiFlush();
}

std::vector<Row> Run()
{
    const std::vector<ListRow> rows = MakeListRows(kRows);
    ListParent oursParent;
    const PlainParent plainParent;
    CTavListCtrl ours;
    Require(ours.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED, kListPlace, &oursParent, 1) != FALSE,
            "the list can't be made");
    for (int col = 0; col < kListColumns; ++col)
    {
        ours.AddCol("caption", adiString, false, kListColumnWidth, LVCFMT_LEFT);
    }
    for (const ListRow& row : rows)
    {
        ours.AddRow(row.text, nullptr);
    }
    const PlainList plain(plainParent);
    plain.Fill(rows);
    const auto onTop = [](HWND parent) { ::SetWindowPos(parent, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE); };
    const Medians medians = Interleave({.run = [&] { Repaint(ours.m_hWnd); },
                                        .prepare = [&] { onTop(oursParent.m_hWnd); },
                                        .check = [&] { RequirePainted(ours.m_hWnd, kListColumnWidth); }},
                                       {.run = [&] { Repaint(plain.Handle()); },
                                        .prepare = [&] { onTop(plainParent.Handle()); },
                                        .check = [&] { RequirePainted(plain.Handle(), kListColumnWidth); }});
    const int page = ours.GetCountPerPage();
    ours.DestroyWindow();
    return {{"list_paint", static_cast<long long>(page) * kRepaints, medians.ours, medians.reference, std::nullopt}};
}

const Registration registration("list_paint", Run);

} // namespace
} // namespace bench
