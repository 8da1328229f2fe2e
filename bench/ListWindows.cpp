// ListWindows.cpp - what the measurements of lists share
#include "bench/ListWindows.h"

#include "bench/Bench.h"

namespace bench
{
namespace
{

constexpr const char* kParentClass = "TavKitBenchListParent";

LRESULT Send(HWND list, UINT message, int wParam, LVITEMA& item)
{
    return ::SendMessageA(list, message, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(&item));
}

} // namespace

PlainParent::PlainParent()
{
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = ::DefWindowProcA;
    windowClass.hInstance = ::GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kParentClass;
    ::RegisterClassA(&windowClass); // refused from the second time on
    m_window = ::CreateWindowExA(0, kParentClass, "", WS_POPUP | WS_VISIBLE, 0, 0, kListPlace.right, kListPlace.bottom,
                                 nullptr, nullptr, windowClass.hInstance, nullptr);
    Require(m_window != nullptr, "the window around the list can't be made");
}

PlainParent::~PlainParent() { ::DestroyWindow(m_window); }

ListParent::ListParent()
{
    Require(CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, kListPlace, nullptr, 0) != FALSE,
            "the window around the list can't be made");
}

ListParent::~ListParent() { DestroyWindow(); }

std::vector<ListRow> MakeListRows(int count)
{
    std::vector<ListRow> rows(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
    {
        ListRow& row = rows[static_cast<std::size_t>(i)];
        row.cells = {"slide_" + std::to_string(i * 7919LL % count) + ".tif", i % 3 == 0 ? "Nucleus, large" : "Nucleus",
                     std::to_string(i * 2654435761LL % 4096), std::to_string(i % 977) + ".25", "2024-02-29"};
        std::string text = row.cells[0];
        for (std::size_t col = 1; col < row.cells.size(); ++col)
        {
            text += '|' + row.cells[col];
        }
        row.text = text.c_str();
    }
    return rows;
}

PlainList::PlainList(const PlainParent& parent)
{
    m_list = ::CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, kListPlace.right,
                               kListPlace.bottom, parent.Handle(), nullptr, ::GetModuleHandleA(nullptr), nullptr);
    Require(m_list != nullptr, "the plain list can't be made");
    char caption[] = "caption";
    for (int col = 0; col < kListColumns; ++col)
    {
        LVCOLUMNA column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        column.pszText = caption;
        column.cx = kListColumnWidth;
        column.iSubItem = col;
        ::SendMessageA(m_list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(col), reinterpret_cast<LPARAM>(&column));
    }
}

PlainList::~PlainList() { ::DestroyWindow(m_list); }

void PlainList::Fill(const std::vector<ListRow>& rows) const
{
    int index = 0;
    for (const ListRow& row : rows)
    {
        LVITEMA item{};
        item.mask = LVIF_TEXT;
        item.iItem = index;
        item.pszText = const_cast<char*>(row.cells[0].c_str());
        Send(m_list, LVM_INSERTITEMA, 0, item);
        for (int col = 1; col < kListColumns; ++col)
        {
            LVITEMA cell{};
            cell.iSubItem = col;
            cell.pszText = const_cast<char*>(row.cells[static_cast<std::size_t>(col)].c_str());
            Send(m_list, LVM_SETITEMTEXTA, index, cell);
        }
        ++index;
    }
}

std::string CellText(HWND list, int row, int col)
{
    char text[256] = "";
    LVITEMA item{};
    item.iSubItem = col;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    Send(list, LVM_GETITEMTEXTA, row, item);
    return text;
}

} // namespace bench
