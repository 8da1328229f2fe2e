#include "workbench/ObjectList.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace workbench
{
namespace
{
/// So many rows are read at once: more than any screen shows, and enough to know the usual classes.
constexpr int kFirstRows = 1000;
// Room around a cell's text, in pixels.
constexpr int kCellMargin = 8;
constexpr int kCaptionMargin = 24;
constexpr int kRowMargin = 4;
// What columns are fitted to: no more cells and characters than are measured in a moment.
constexpr int kMeasuredCells = 20'000;
constexpr std::size_t kMeasuredChars = 255;
constexpr int kWidestFit = 400; // pixels
constexpr int kGuess = 2;       ///< the table is taken for so many times as long as what was read of it
} // namespace

ObjectList::ObjectList(std::unique_ptr<IAttrData> reader, const ObjectColumns& columns,
                       std::optional<std::string> category, ClassNames& seen)
    : CADIListCtrl(reader.get()), m_pTable(reader.release()), m_columns(columns), m_category(std::move(category)),
      m_seen(seen)
{
}

BOOL ObjectList::Create(const RECT& rect, CWnd* parent, UINT id, CFont* font)
{
    constexpr DWORD kStyle =
        WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDRAWFIXED | LVS_SINGLESEL | LVS_SHOWSELALWAYS;
    if (!CreateEx(WS_EX_CLIENTEDGE, WC_LISTVIEWA, "", kStyle, rect, parent, id))
    {
        return FALSE;
    }
    SetFont(font, FALSE);
    // A row is as high as its font or its images: the font alone leaves no room around the text.
    CClientDC dc(this);
    const SelectScope scope(dc, *font);
    TEXTMETRIC metrics{};
    dc.GetTextMetrics(&metrics);
    m_rowHeight.Create(1, metrics.tmHeight + kRowMargin, ILC_COLOR, 0, 1);
    SetImageList(&m_rowHeight, LVSIL_SMALL);
    return TRUE;
}

void ObjectList::ShowTable()
{
    AddAllColumns();
    if (ReadRows(kFirstRows))
    {
        SetNumRow(kGuess * GetCacheRows());
    }
}

void ObjectList::FitColumns()
{
    // The control's own way asks for every row that there may be, and so would read the whole table.
    for (int col = 0; col < GetNumCol(); ++col)
    {
        const int caption = GetStringWidth(GetColCaption(col)) + kCaptionMargin;
        const int cells = GetStringWidth(LongestText(col).c_str()) + kCellMargin;
        m_lastWidth = std::min(std::max(caption, cells), kWidestFit);
        SetColWidth(col, m_lastWidth);
    }
    FillWidth();
}

std::string ObjectList::LongestText(int col)
{
    const int rows = std::min(GetCacheRows(), std::max(1, kMeasuredCells / GetNumCol()));
    std::string_view longest;
    for (int row = 0; row < rows && col > 0; ++row)
    {
        const char* const text = GetCacheItem(row, col - 1);
        const std::size_t length = text == nullptr ? 0 : ::strnlen(text, kMeasuredChars);
        longest = length > longest.size() ? std::string_view(text, length) : longest;
    }
    return col > 0 ? std::string(longest) : std::to_string(std::max(0, GetCacheRows() - 1));
}

void ObjectList::TakeWidths(const ObjectList& other)
{
    for (int col = 0; col < std::min(GetNumCol(), other.GetNumCol()); ++col)
    {
        SetColWidth(col, other.GetColumnWidth(col));
    }
    m_lastWidth = other.m_lastWidth;
    FillWidth();
}

void ObjectList::FillWidth()
{
    const int last = GetNumCol() - 1;
    CRect client;
    GetClientRect(client);
    int others = 0;
    for (int col = 0; col < last; ++col)
    {
        others += GetColumnWidth(col);
    }
    if (last >= 0)
    {
        SetColWidth(last, std::max(client.Width() - others, m_lastWidth));
    }
}

std::optional<ObjectPlace> ObjectList::SelectedPlace()
{
    const int row = GetCrntSlct();
    if (row < 0 || !m_columns.HavePlace())
    {
        return std::nullopt;
    }
    // All columns of the table are shown, behind that of the numbers. Asking for the text reads the row if need be.
    const DString x = OnGetItemText(row, m_columns.x + 1);
    const DString y = OnGetItemText(row, m_columns.y + 1);
    return ParsePlace(x.c_str(), y.c_str());
}

bool ObjectList::SelectTableRow(int tableRow)
{
    ReadAllRows();
    const auto found = std::lower_bound(m_tableRows.begin(), m_tableRows.end(), tableRow);
    if (found == m_tableRows.end() || *found != tableRow)
    {
        return false;
    }
    const int id = static_cast<int>(found - m_tableRows.begin());
    int row = 0; // sorting has moved it
    while (row < GetCacheRows() && GetID(row) != id)
    {
        ++row;
    }
    SetItemState(GetCrntSlct(), 0, LVIS_SELECTED);
    SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    return EnsureVisible(row, FALSE) != FALSE;
}

bool ObjectList::OnFilterRow(int tableRow)
{
    bool isShown = true;
    if (m_columns.category >= 0)
    {
        const char* const name = m_pTable->GetCellText(tableRow, m_columns.category, 0);
        m_seen.Note(name);
        isShown = !m_category || *m_category == name;
    }
    if (isShown)
    {
        m_tableRows.push_back(tableRow);
    }
    return isShown;
}
} // namespace workbench
