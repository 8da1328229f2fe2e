#include "tavkit/lists/ListExtras.h"

#include "tavkit/lists/ColumnRecord.h"
#include "tavkit/lists/DelimitedText.h"

#include <commctrl.h>

#include <cstring>
#include <new>
#include <optional>
#include <vector>

namespace
{

constexpr UINT kFirstPrintable = 0x20;
constexpr int kMostCaption = 1024; // characters of a caption that are copied

bool IsDown(int key) { return ::GetKeyState(key) < 0; }

/// In one case, after the user's language.
std::string Folded(std::string text)
{
    ::CharLowerBuff(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

/// Memory for the clipboard with a text and its closing zero; null if there is none to be had.
HGLOBAL ClipboardMemory(std::string const& text)
{
    HGLOBAL const memory = ::GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    if (memory != nullptr)
    {
        std::memcpy(::GlobalLock(memory), text.c_str(), text.size() + 1);
        ::GlobalUnlock(memory);
    }
    return memory;
}

/// Gives the open clipboard a text.
bool PutOnClipboard(UINT format, std::string const& text)
{
    HGLOBAL const memory = ClipboardMemory(text);
    if (memory == nullptr || ::SetClipboardData(format, memory) == nullptr)
    {
        ::GlobalFree(memory);
        return false;
    }
    return true;
}

} // namespace

// Life

ListExtras::~ListExtras() { Detach(); }

bool ListExtras::Attach(CListCtrlFlex& list)
{
    Detach();
    if (list.m_hWnd == nullptr || !::SetWindowSubclass(list.m_hWnd, &SubclassProc, reinterpret_cast<UINT_PTR>(this),
                                                       reinterpret_cast<DWORD_PTR>(this)))
    {
        return false;
    }
    m_pList = &list;
    EnblColOrder(m_bColOrder);
    EnblSortMark(m_bSortMark);
    if (!m_strKeepName.empty())
    {
        RestoreColumns(m_strKeepName.c_str());
    }
    return true;
}

void ListExtras::Detach()
{
    if (m_pList != nullptr)
    {
        ::RemoveWindowSubclass(m_pList->m_hWnd, &SubclassProc, reinterpret_cast<UINT_PTR>(this));
        m_pList = nullptr;
    }
}

LRESULT CALLBACK ListExtras::SubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                          DWORD_PTR data)
{
    auto& extras = *reinterpret_cast<ListExtras*>(data);
    switch (message)
    {
    case WM_KEYDOWN:
        if (extras.OnKeyDown(static_cast<UINT>(wParam)))
        {
            return 0;
        }
        break;
    case WM_CHAR:
        if (extras.OnChar(static_cast<UINT>(wParam)))
        {
            return 0;
        }
        break;
    case WM_NOTIFY:
        if (extras.m_bSortMark && extras.IsHeaderClick(lParam))
        {
            LifeWatch const watch(extras.m_life);
            LRESULT const result = ::DefSubclassProc(window, message, wParam, lParam); // the list sorts
            if (!watch.IsGone())
            {
                extras.ShowLastSort();
            }
            return result;
        }
        break;
    case WM_DESTROY:
        extras.SaveColumns(extras.m_strKeepName.c_str());
        break;
    case WM_NCDESTROY:
        extras.Detach();
        break;
    default:
        break;
    }
    return ::DefSubclassProc(window, message, wParam, lParam);
}

// Header

HWND ListExtras::Header() const
{
    return m_pList != nullptr ? reinterpret_cast<HWND>(m_pList->SendMessage(LVM_GETHEADER)) : nullptr;
}

int ListExtras::CountColumns() const
{
    HWND const header = Header();
    return header != nullptr ? Header_GetItemCount(header) : 0;
}

std::vector<int> ListExtras::ColumnOrder() const
{
    std::vector<int> order(static_cast<std::size_t>(CountColumns()));
    if (!order.empty())
    {
        m_pList->SendMessage(LVM_GETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.data()));
    }
    return order;
}

// Copying

void ListExtras::EnblCopy(bool enable) { m_bCopy = enable; }

bool ListExtras::CopySelection(bool captions)
{
    if (m_pList == nullptr)
    {
        return false;
    }
    LifeWatch const watch(m_life);
    std::vector<int> const order = ColumnOrder();
    tavkit::DelimitedText tabbed('\t');
    tavkit::DelimitedText commas(',');
    auto const addCell = [&](char const* cell) {
        tabbed.AddCell(cell);
        commas.AddCell(cell);
    };
    auto const endRow = [&] {
        tabbed.EndRow();
        commas.EndRow();
    };
    if (captions)
    {
        for (int const col : order)
        {
            char caption[kMostCaption] = "";
            LVCOLUMN column = {};
            column.mask = LVCF_TEXT;
            column.pszText = caption;
            column.cchTextMax = kMostCaption;
            m_pList->GetColumn(col, &column);
            addCell(caption);
        }
        endRow();
    }
    bool any = false;
    for (int row = m_pList->GetNextItem(-1, LVNI_SELECTED); row >= 0; row = m_pList->GetNextItem(row, LVNI_SELECTED))
    {
        any = true;
        for (int const col : order)
        {
            CString const cell = m_pList->GetItemText(row, col);
            if (watch.IsGone() || m_pList == nullptr)
            {
                return false;
            }
            addCell(cell);
        }
        endRow();
    }
    if (!any || !::OpenClipboard(m_pList->m_hWnd))
    {
        return false;
    }
    ::EmptyClipboard();
    bool const put =
        PutOnClipboard(CF_TEXT, tabbed.Text()) && PutOnClipboard(::RegisterClipboardFormat(kCsvFormat), commas.Text());
    ::CloseClipboard();
    return put;
}

// Finding

void ListExtras::EnblFind(bool enable) { m_bFind = enable; }

void ListExtras::SetFindCol(int col) { m_nFindCol = col; }

int ListExtras::FindCol() const
{
    int const col = m_nFindCol == kSortedCol ? m_pList->GetLastSort().GetCol() : m_nFindCol;
    return col >= 0 ? col : 0;
}

bool ListExtras::Find(char const* text, tavkit::FindPlace place)
{
    m_strFind = text != nullptr ? text : "";
    m_findPlace = place;
    return FindNext();
}

bool ListExtras::FindNext(bool backwards)
{
    if (m_pList == nullptr || m_strFind.empty())
    {
        return false;
    }
    int const current = m_pList->GetNextItem(-1, LVNI_FOCUSED);
    // Upwards from the first row, and from none at all, the search begins at the end.
    int const from = backwards ? current - 1 : current + 1;
    return GoTo(m_strFind, m_findPlace, from, backwards);
}

bool ListExtras::GoTo(std::string const& text, tavkit::FindPlace place, int from, bool backwards)
{
    LifeWatch const watch(m_life);
    std::string const wanted = Folded(text);
    int const col = FindCol();
    // A list without rows of its own may be destroyed by the text that it is asked for.
    auto const isServing = [&] { return !watch.IsGone() && m_pList != nullptr; };
    auto const count = [&] { return isServing() ? m_pList->GetItemCount() : 0; };
    auto const matches = [&](int row) {
        CString const cell = m_pList->GetItemText(row, col);
        return isServing() && tavkit::IsFoundIn(Folded(static_cast<LPCTSTR>(cell)), wanted, place);
    };
    std::optional<int> const row = tavkit::FindRow(from, backwards, count, matches);
    if (!row)
    {
        return false;
    }
    CListCtrlFlex& list = *m_pList;
    HWND const window = list.m_hWnd;
    constexpr UINT kState = LVIS_SELECTED | LVIS_FOCUSED;
    list.SetItemState(-1, 0, LVIS_SELECTED);
    if (::IsWindow(window) && list.SetItemState(*row, kState, kState) && ::IsWindow(window))
    {
        list.EnsureVisible(*row, FALSE);
    }
    return true;
}

bool ListExtras::OnKeyDown(UINT key)
{
    bool const ctrl = IsDown(VK_CONTROL);
    if (m_bCopy && ctrl && (key == 'C' || key == VK_INSERT))
    {
        CopySelection();
        return true;
    }
    if (m_bFind && !ctrl && key == VK_F3)
    {
        FindNext(IsDown(VK_SHIFT));
        return true;
    }
    return false;
}

bool ListExtras::OnChar(UINT character)
{
    unsigned const now = static_cast<unsigned>(::GetMessageTime());
    // A blank that begins no text is the list's own: it selects.
    if (!m_bFind || character < kFirstPrintable || (character == ' ' && m_typed.IsOver(now)))
    {
        return false;
    }
    bool const isFirst = m_typed.IsOver(now);
    m_typed.Add(Folded(std::string(1, static_cast<char>(character))).front(), now);
    m_strFind = m_typed.Get();
    m_findPlace = tavkit::FindPlace::Begin;
    int const current = m_pList->GetNextItem(-1, LVNI_FOCUSED);
    LifeWatch const watch(m_life);
    // A text that grows may still fit the current row; one that begins is for the next.
    if (GoTo(m_strFind, m_findPlace, isFirst ? current + 1 : current, false) || watch.IsGone() || m_pList == nullptr)
    {
        return true;
    }
    if (m_typed.IsOneCharacter())
    {
        m_strFind.resize(1);
        GoTo(m_strFind, m_findPlace, current + 1, false);
    }
    return true;
}

// Columns

void ListExtras::EnblColOrder(bool enable)
{
    m_bColOrder = enable;
    if (m_pList != nullptr)
    {
        m_pList->m_bDrawOrder = enable;
        m_pList->SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_HEADERDRAGDROP, enable ? LVS_EX_HEADERDRAGDROP : 0);
        m_pList->Invalidate();
    }
}

bool ListExtras::SaveColumns(char const* name) const
{
    CWinApp* const app = AfxGetApp();
    std::vector<int> const order = ColumnOrder();
    if (name == nullptr || *name == '\0' || app == nullptr || order.empty())
    {
        return false;
    }
    std::vector<tavkit::ColumnPlace> columns;
    for (int const col : order)
    {
        columns.push_back({col, m_pList->GetColumnWidth(col)});
    }
    return app->WriteProfileString(kProfileSection, name, tavkit::ColumnsToText(columns).c_str()) != FALSE;
}

bool ListExtras::RestoreColumns(char const* name)
{
    CWinApp* const app = AfxGetApp();
    int const count = CountColumns();
    if (name == nullptr || *name == '\0' || app == nullptr || count == 0)
    {
        return false;
    }
    CString const text = app->GetProfileString(kProfileSection, name);
    auto const columns = tavkit::ColumnsFromText(static_cast<LPCTSTR>(text), count);
    if (!columns)
    {
        return false;
    }
    std::vector<int> order;
    for (tavkit::ColumnPlace const& column : *columns)
    {
        order.push_back(column.col);
        m_pList->SetColumnWidth(column.col, column.width);
    }
    if (m_bColOrder)
    {
        m_pList->SendMessage(LVM_SETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.data()));
        m_pList->Invalidate();
    }
    return true;
}

void ListExtras::KeepColumns(char const* name)
{
    m_strKeepName = name != nullptr ? name : "";
    RestoreColumns(name);
}

// Sort mark

bool ListExtras::IsHeaderClick(LPARAM lParam) const
{
    auto const& notification = *reinterpret_cast<NMHDR const*>(lParam);
    return notification.hwndFrom == Header() && (notification.code == static_cast<UINT>(HDN_ITEMCLICKA) ||
                                                 notification.code == static_cast<UINT>(HDN_ITEMCLICKW));
}

void ListExtras::EnblSortMark(bool enable)
{
    m_bSortMark = enable;
    if (enable)
    {
        ShowLastSort();
    }
    else
    {
        ShowSortMark(-1, true);
    }
}

void ListExtras::ShowLastSort()
{
    if (m_pList != nullptr)
    {
        CListCtrlFlex::LastSort const& sort = m_pList->GetLastSort();
        ShowSortMark(sort.GetCol(), sort.IsSortedAscnd());
    }
}

void ListExtras::ShowSortMark(int col, bool ascending)
{
    HWND const header = Header();
    int const count = CountColumns();
    for (int i = 0; i < count; ++i)
    {
        HDITEM item = {};
        item.mask = HDI_FORMAT;
        Header_GetItem(header, i, &item);
        int const mark = i != col ? 0 : ascending ? HDF_SORTUP : HDF_SORTDOWN;
        int const format = (item.fmt & ~(HDF_SORTUP | HDF_SORTDOWN)) | mark;
        if (format != item.fmt)
        {
            item.fmt = format;
            Header_SetItem(header, i, &item);
        }
    }
}
