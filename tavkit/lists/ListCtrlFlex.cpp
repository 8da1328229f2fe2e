#include "tavkit/lists/ListCtrlFlex.h"

#include "tavkit/lists/CellPlaces.h"
#include "tavkit/lists/EditCell.h"
#include "tavkit/lists/ScanDouble.h"
#include "tavkit/lists/SortKeys.h"

#include <memory>
#include <new>
#include <optional>
#include <span>

// Any notification may destroy the list, the window alone or the object as well: what follows one asks first.

BEGIN_MESSAGE_MAP(CListCtrlFlex, CListCtrl)
    ON_WM_ERASEBKGND()                                     // the room around the rows is painted
    ON_WM_SETCURSOR()                                      // the mouse is over a cell that may be edited, or not
    ON_NOTIFY_REFLECT_EX(LVN_ENDLABELEDIT, OnEndLabelEdit) // an edit box has a new text
    ON_NOTIFY_REFLECT_EX(LVN_COLUMNCLICK, OnColumnClick)   // a column is to be sorted by
    ON_NOTIFY_REFLECT_EX(NM_DBLCLK, OnDblClick)            // a cell is to be edited, or its row selected
END_MESSAGE_MAP()

// LastSort

bool CListCtrlFlex::LastSort::IsSortedAscnd() const { return m_bAscending; }

int CListCtrlFlex::LastSort::GetCol() const { return m_nCol; }

bool CListCtrlFlex::LastSort::IsSortAscnd(int col) const { return col != m_nCol || !m_bAscending; }

// Life

CListCtrlFlex::CListCtrlFlex()
    : m_clrSlctText(::GetSysColor(COLOR_HIGHLIGHTTEXT)), m_clrSlctBk(::GetSysColor(COLOR_HIGHLIGHT))
{
}

// The window dies while this class still sees its messages and the rows have their records.
CListCtrlFlex::~CListCtrlFlex() { DestroyWindow(); }

// Columns

int CListCtrlFlex::InsertColumn(int col, ADIColType type, char const* caption, bool editable, int format, int width,
                                int subItem)
{
    int const inserted = CListCtrl::InsertColumn(col, caption, format, width, subItem);
    SetColType(col, type, editable);
    return inserted;
}

ADIColType CListCtrlFlex::GetColType(int col) const
{
    return col >= 0 && col < m_vecCols.GetCount() ? m_vecCols[col].type : adiString;
}

void CListCtrlFlex::SetColType(int col, ADIColType type, bool editable)
{
    if (col >= 0)
    {
        m_vecCols[col] = {editable, type};
    }
}

bool CListCtrlFlex::IsEditable(int col) { return col >= 0 && m_vecCols[col].editable; }

void CListCtrlFlex::RmvAllCol()
{
    bool removed = true;
    while (removed)
    {
        removed = DeleteColumn(0);
    }
}

bool CListCtrlFlex::DeleteColumn(int col)
{
    ::RemoveAt(m_vecCols, col);
    return CListCtrl::DeleteColumn(col) != FALSE;
}

int CListCtrlFlex::CountColumns() const
{
    CHeaderCtrl const* const header = GetHeaderCtrl();
    return header != nullptr ? header->GetItemCount() : 0;
}

// Rows

CListCtrlFlex::ItemRec* CListCtrlFlex::RecordOf(LPARAM param)
{
    return param != kNoParam ? reinterpret_cast<ItemRec*>(param) : nullptr;
}

int CListCtrlFlex::InsertItem(int row, char const* text, DWORD_PTR data, CFont* font, COLORREF textColor,
                              COLORREF bkColor, int indent)
{
    if (bkColor == kWindowColor)
    {
        bkColor = ::GetSysColor(COLOR_WINDOW);
    }
    if (bkColor == kNoColor)
    {
        bkColor = ::GetSysColor(COLOR_WINDOWTEXT);
    }
    return InsertItem(LVIF_TEXT, row, text, 0, {data, font, textColor, bkColor, indent, {}});
}

int CListCtrlFlex::InsertItem(int row, char const* text, int image, DWORD_PTR data, CFont* font, COLORREF textColor,
                              COLORREF bkColor, int indent)
{
    if (bkColor == kWindowColor)
    {
        bkColor = ::GetSysColor(COLOR_WINDOW);
    }
    return InsertItem(LVIF_TEXT | LVIF_IMAGE, row, text, image, {data, font, textColor, bkColor, indent, {}});
}

// The row comes with its record in one message: a second one would cost a quarter of the whole, for the control tells
// the parent twice of every change.
int CListCtrlFlex::InsertItem(UINT mask, int row, char const* text, int image, ItemRec const& record)
{
    HWND const list = m_hWnd;
    if (list == nullptr)
    {
        return -1;
    }
    ItemRec* const stored = &m_records.emplace_back(record); // that of a refused row stays, like a deleted row's
    int const inserted =
        CListCtrl::InsertItem(mask | LVIF_PARAM, row, text, 0, 0, image, reinterpret_cast<LPARAM>(stored));
    return ::IsWindow(list) ? inserted : -1;
}

DWORD_PTR CListCtrlFlex::GetItemData(int row) const
{
    LPARAM const param = static_cast<LPARAM>(CListCtrl::GetItemData(row));
    ItemRec const* const record = RecordOf(param);
    return record != nullptr ? record->data : static_cast<DWORD_PTR>(param);
}

int CListCtrlFlex::SetItemData(int row, DWORD_PTR data)
{
    ItemRec* const record = RecordOf(static_cast<LPARAM>(CListCtrl::GetItemData(row)));
    if (record == nullptr)
    {
        return -1;
    }
    record->data = data;
    return 0;
}

// Sorting

CListCtrlFlex::LastSort& CListCtrlFlex::GetLastSort() { return m_lastSort; }

CListCtrlFlex::LastSort const& CListCtrlFlex::GetLastSort() const { return m_lastSort; }

void CListCtrlFlex::EnblSort(bool enable) { m_bSort = enable; }

BOOL CListCtrlFlex::OnColumnClick(NMHDR* pNMHDR, LRESULT* pResult)
{
    *pResult = 0;
    Sort(reinterpret_cast<NMLISTVIEW const*>(pNMHDR)->iSubItem);
    return TRUE;
}

void CListCtrlFlex::Sort(int col)
{
    LifeWatch const watch(m_life);
    LastSort sort;
    sort.m_nCol = col;
    sort.m_bAscending = m_lastSort.IsSortAscnd(col);
    Sort(col, sort.m_bAscending);
    if (!watch.IsGone())
    {
        m_lastSort = sort; // also when the sort refused to run, so that the next one goes the other way
    }
}

void CListCtrlFlex::Sort(int col, bool ascending)
{
    if (col < 0 || !m_bSort || m_bSorting || m_hWnd == nullptr || (GetStyle() & LVS_OWNERDATA) != 0)
    {
        return;
    }
    LifeWatch const watch(m_life);
    CloseEditor(); // its text belongs to the row where it stands now
    if (watch.IsGone() || m_hWnd == nullptr)
    {
        return;
    }
    m_bSorting = true;
    ADIColType const type = GetColType(col);
    if (type == adiInt || type == adiDouble)
    {
        SortByNumber(col, ascending);
    }
    else
    {
        SortByText(col, ascending);
    }
    if (!watch.IsGone())
    {
        m_bSorting = false;
    }
}

// Reads the cell of every row once.
// room: () -> std::span<char> that takes the next text; take: (ItemRec&), which finds the text there.
// Returns false if the list is gone.
template <class Room, class Take>
bool CListCtrlFlex::FetchKeys(int col, int rows, Room room, Take take)
{
    LifeWatch const watch(m_life);
    for (ItemRec& record : m_records)
    {
        record.sort = {}; // a row that a callback for texts inserts meanwhile must not show the last sort's key
    }
    for (int row = 0; row < rows; ++row)
    {
        std::span<char> const text = room();
        text[0] = '\0';
        LVITEM item = {};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.iSubItem = col;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        GetItem(&item);
        if (watch.IsGone() || m_hWnd == nullptr)
        {
            return false;
        }
        if (item.pszText != text.data() && item.pszText != LPSTR_TEXTCALLBACK)
        {
            ::lstrcpyn(text.data(), item.pszText, item.cchTextMax); // the control pointed to a text of its own
        }
        text.back() = '\0';
        ItemRec* record = RecordOf(item.lParam);
        if (record == nullptr)
        {
            // A control need not tell the parameter with any cell but the first.
            record = RecordOf(static_cast<LPARAM>(CListCtrl::GetItemData(row)));
        }
        if (record != nullptr)
        {
            take(*record);
        }
    }
    return true;
}

void CListCtrlFlex::SortByNumber(int col, bool ascending)
{
    char text[tavkit::kNumberRoom];
    auto const room = [&] { return std::span(text); };
    auto const take = [&](ItemRec& record) { record.sort.num = tavkit::ScanDouble(text).value_or(tavkit::kNoNumber); };
    if (FetchKeys(col, GetItemCount(), room, take))
    {
        SortItems(&CompareNum, ascending);
    }
}

void CListCtrlFlex::SortByText(int col, bool ascending)
{
    int const rows = GetItemCount();
    tavkit::TextBlock texts(static_cast<std::size_t>(rows),
                            [](std::size_t bytes) { return std::unique_ptr<char[]>(new (std::nothrow) char[bytes]); });
    if (!texts)
    {
        return;
    }
    auto const room = [&] { return texts.Room(); };
    auto const take = [&](ItemRec& record) { record.sort.txt = texts.Keep(); };
    if (FetchKeys(col, rows, room, take))
    {
        SortItems(&CompareStr, ascending);
    }
}

int CALLBACK CListCtrlFlex::CompareStr(LPARAM first, LPARAM second, LPARAM ascending)
{
    auto const key = [](LPARAM param) {
        ItemRec const* const record = RecordOf(param);
        return record != nullptr && record->sort.txt != nullptr ? record->sort.txt : "";
    };
    return tavkit::CompareTexts(key(first), key(second), ascending != 0);
}

int CALLBACK CListCtrlFlex::CompareNum(LPARAM first, LPARAM second, LPARAM ascending)
{
    auto const key = [](LPARAM param) {
        ItemRec const* const record = RecordOf(param);
        return record != nullptr ? record->sort.num : tavkit::kNoNumber;
    };
    return tavkit::CompareNumbers(key(first), key(second), ascending != 0);
}

// Colours

bool CListCtrlFlex::IsBkColorSet() const { return m_clrBk != kNoColor; }

int CListCtrlFlex::SetBkColor(COLORREF color)
{
    int const result = CListCtrl::SetBkColor(color);
    m_clrBk = color;
    return result;
}

// Drawing

void CListCtrlFlex::DrawItem(LPDRAWITEMSTRUCT item)
{
    CDC& dc = *CDC::FromHandle(item->hDC);
    ItemRec const* const record = RecordOf(static_cast<LPARAM>(item->itemData));
    COLORREF const oldTextColor = dc.GetTextColor();
    COLORREF const oldBkColor = dc.GetBkColor();
    COLORREF textColor = oldTextColor;
    COLORREF bkColor = oldBkColor;
    bool const selected = (item->itemState & ODS_SELECTED) != 0;
    if (selected)
    {
        textColor = m_clrSlctText;
        bkColor = m_clrSlctBk;
    }
    else if (record != nullptr)
    {
        textColor = record->textColor;
        bkColor = record->bkColor;
    }
    else if (IsBkColorSet())
    {
        bkColor = m_clrBk;
    }

    CRect const bounds = item->rcItem;
    CBrush brush(bkColor);
    dc.FillRect(bounds, &brush);
    CRect text = bounds;
    text.left += record != nullptr ? record->indent : 0;
    int const row = static_cast<int>(item->itemID);
    LifeWatch const watch(m_life);
    text.left += DrawImage(dc, row, bounds.TopLeft(), selected);
    if (watch.IsGone())
    {
        return;
    }

    dc.SetTextColor(textColor);
    dc.SetBkColor(bkColor);
    {
        std::optional<SelectScope> font;
        if (record != nullptr && record->font != nullptr)
        {
            font.emplace(dc, *record->font);
        }
        DrawCells(dc, row, bounds.left, text);
    }
    dc.SetTextColor(oldTextColor);
    dc.SetBkColor(oldBkColor);
    if ((item->itemState & ODS_FOCUS) != 0)
    {
        dc.DrawFocusRect(bounds);
    }
}

// Returns the width that the image takes up; 0 without an image list.
int CListCtrlFlex::DrawImage(CDC& dc, int row, CPoint place, bool selected)
{
    LifeWatch const watch(m_life);
    LVITEM item = {};
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    GetItem(&item);
    auto const images = watch.IsGone() || m_hWnd == nullptr
                            ? nullptr
                            : reinterpret_cast<HIMAGELIST>(SendMessage(LVM_GETIMAGELIST, LVSIL_SMALL));
    int width = 0;
    int height = 0;
    if (images == nullptr || !::ImageList_GetIconSize(images, &width, &height))
    {
        return 0;
    }
    ::ImageList_Draw(images, item.iImage, dc, place.x, place.y, ILD_TRANSPARENT | (selected ? ILD_SELECTED : 0));
    return width;
}

// The index of the column that stands at a place, counted from the left.
int CListCtrlFlex::ColumnAt(int place) const
{
    HWND const header = reinterpret_cast<HWND>(::SendMessage(m_hWnd, LVM_GETHEADER, 0, 0));
    return place < CountColumns() ? Header_OrderToIndex(header, place) : -1;
}

void CListCtrlFlex::DrawCells(CDC& dc, int row, int left, CRect const& text)
{
    LifeWatch const watch(m_life);
    LVCOLUMN column = {};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
    for (int place = 0; GetColumn(m_bDrawOrder ? ColumnAt(place) : place, &column); ++place)
    {
        if (auto rect = tavkit::TextPlace(text, left, column.cx))
        {
            char cell[kDrawnText];
            int const length = GetItemText(row, column.iSubItem, cell, kDrawnText);
            if (watch.IsGone() || m_hWnd == nullptr)
            {
                return;
            }
            UINT const align = (column.fmt & LVCFMT_CENTER) != 0  ? DT_CENTER
                               : (column.fmt & LVCFMT_RIGHT) != 0 ? DT_RIGHT
                                                                  : DT_LEFT;
            // No further flag, on purpose: an ampersand marks the next character, and the text stands at the top.
            dc.DrawText(cell, length, &*rect, align | DT_END_ELLIPSIS);
        }
        left += column.cx;
    }
}

BOOL CListCtrlFlex::OnEraseBkgnd(CDC* pDC)
{
    CRect client;
    GetClientRect(client);
    client.right += 1;
    client.bottom += 1;
    CBrush brush(IsBkColorSet() ? m_clrBk : pDC->GetBkColor());
    pDC->FillRect(client, &brush);
    return TRUE;
}

// Editing

BOOL CListCtrlFlex::OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message)
{
    static HCURSOR const s_hBeam = ::LoadCursor(nullptr, IDC_IBEAM);
    static HCURSOR const s_hArrow = ::LoadCursor(nullptr, IDC_ARROW);

    CPoint point;
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    int const col = HitCell(point).col;
    if (col == -1 || col >= CountColumns())
    {
        CListCtrl::OnSetCursor(pWnd, nHitTest, message);
        return FALSE;
    }
    ::SetCursor(IsEditable(col) && nHitTest == HTCLIENT ? s_hBeam : s_hArrow);
    return TRUE;
}

tavkit::Cell CListCtrlFlex::HitCell(CPoint point)
{
    LVHITTESTINFO hit = {};
    hit.pt = point;
    SubItemHitTest(&hit);
    return {hit.iItem, hit.iSubItem};
}

BOOL CListCtrlFlex::OnDblClick(NMHDR* pNMHDR, LRESULT* pResult)
{
    tavkit::Cell const cell = HitCell(reinterpret_cast<NMITEMACTIVATE const*>(pNMHDR)->ptAction);
    // Row -1, outside of all, stands for every row in both calls, on purpose.
    if (IsEditable(cell.col))
    {
        *pResult = 1;
        LifeWatch const watch(m_life);
        SetItemState(cell.row, 0, LVIS_FOCUSED | LVIS_SELECTED);
        if (!watch.IsGone())
        {
            OnEdit(cell.row, cell.col, false);
        }
    }
    else
    {
        *pResult = 0;
        SetItemState(cell.row, LVIS_SELECTED, LVIS_SELECTED);
    }
    return FALSE;
}

void CListCtrlFlex::OnEdit(int row, int col, bool findNext)
{
    LifeWatch const watch(m_life);
    if (!IsEditable(col) && findNext)
    {
        auto const next = tavkit::FindEditable({row, col}, GetItemCount(), CountColumns(),
                                               [this](int candidate) { return IsEditable(candidate); });
        if (!next)
        {
            return;
        }
        row = next->row;
        col = next->col;
    }
    // A cell that doesn't exist, such as the one below the last row, leaves everything as it is.
    if (row < 0 || row >= GetItemCount() || col < 0 || col >= CountColumns())
    {
        return;
    }
    CString const text = GetItemText(row, col);
    CRect place;
    if (watch.IsGone() || !GetSubItemRect(row, col, LVIR_LABEL, place))
    {
        return;
    }

    HWND const parent = ::GetParent(m_hWnd);
    NMLVDISPINFO info = {};
    info.hdr.hwndFrom = m_hWnd;
    info.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    info.hdr.code = LVN_BEGINLABELEDIT;
    info.item.iItem = row;
    info.item.iSubItem = col;
    // The parent's own number and not the list's, on purpose.
    bool const refused = ::SendMessage(parent, WM_NOTIFY, static_cast<WPARAM>(::GetDlgCtrlID(parent)),
                                       reinterpret_cast<LPARAM>(&info)) != 0;
    if (!refused && !watch.IsGone() && m_hWnd != nullptr)
    {
        auto* const editor = new CEditCell(*this, {row, col}, text); // deletes itself, even if it can't be created
        editor->Create(CEditCell::kStyle, place, this, CEditCell::kControlId);
    }
}

// The box commits and goes when it loses the focus.
void CListCtrlFlex::CloseEditor()
{
    HWND const focus = ::GetFocus();
    if (focus != nullptr && ::GetParent(focus) == m_hWnd && ::GetDlgCtrlID(focus) == CEditCell::kControlId)
    {
        SetFocus();
    }
}

BOOL CListCtrlFlex::OnEndLabelEdit(NMHDR* pNMHDR, LRESULT* pResult)
{
    LVITEM const& item = reinterpret_cast<NMLVDISPINFO const*>(pNMHDR)->item;
    *pResult = 1;
    if (item.iItem != -1 && item.pszText != nullptr)
    {
        SetItemText(item.iItem, item.iSubItem, item.pszText);
    }
    return FALSE;
}
