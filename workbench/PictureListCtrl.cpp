#include "workbench/PictureListCtrl.h"

#include "tavkit/frame/services/BaseFuncs.h"

#include <algorithm>
#include <array>

namespace workbench
{
namespace
{
enum Column
{
    columnName,
    columnSize
};
constexpr char kSizeCaption[] = "Size";
constexpr char kSizeSample[] = "1000.00 MB "; // as wide as any
constexpr char kWidthEntry[] = "SizeColumnWidth";
constexpr int kWidestColumn = 4096;

/// Glyphs of the kinds of pictures, by the extension's first letter.
struct Kind
{
    char letter;
    COLORREF color;
};
constexpr std::array<Kind, 5> kKinds{{{'t', RGB(64, 120, 216)},
                                      {'p', RGB(72, 168, 88)},
                                      {'j', RGB(232, 152, 48)},
                                      {'b', RGB(136, 136, 136)},
                                      {'g', RGB(152, 88, 184)}}};
constexpr COLORREF kOtherKind = RGB(255, 255, 255);
constexpr COLORREF kBorder = RGB(72, 72, 72);
constexpr COLORREF kUnreadable = RGB(208, 208, 208);
constexpr CRect kUnreadableRect{1, 1, 16, 15};
} // namespace

BOOL PictureListCtrl::Create(const RECT& rect, CWnd* parent, UINT id, CFont* font)
{
    constexpr DWORD kStyle =
        WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDRAWFIXED | LVS_SINGLESEL | LVS_SHOWSELALWAYS;
    if (!CreateEx(WS_EX_CLIENTEDGE, WC_LISTVIEWA, "", kStyle, rect, parent, id))
    {
        return FALSE;
    }
    SetFont(font, FALSE);
    CreateImages();
    AddColumns();
    return TRUE;
}

void PictureListCtrl::AddColumns()
{
    AddCol("Name", adiString, true, 0, LVCFMT_LEFT);
    AddCol(kSizeCaption, kSizeSample, adiInt, LVCFMT_RIGHT, false);
}

void PictureListCtrl::Fill(const PictureList& pictures)
{
    const LastSort order = GetLastSort();
    SetRedraw(FALSE);
    SaveColWidth();
    Reset();
    AddColumns();
    RestoreColWidth();
    m_kiloBytes.clear();
    for (std::size_t i = 0; i < pictures.Names().size(); ++i)
    {
        m_kiloBytes.push_back(pictures.KiloBytesOf(i));
        AddRow();
        SetText(pictures.Names()[i].c_str());
        SetColKByte(columnSize, m_kiloBytes.back());
        SetImage(Glyph(pictures.Names()[i]));
        SetData(i);
    }
    if (order.GetCol() >= 0)
    {
        Sort(order.GetCol(), order.IsSortedAscnd());
        GetLastSort() = order;
    }
    SetRedraw(TRUE);
    EnlargeCol(columnName, false);
    Invalidate();
}

int PictureListCtrl::Selected() { return PictureOf(GetCrntSlct()); }

int PictureListCtrl::PictureOf(int row) const
{
    return row >= 0 && row < GetNumRow() ? static_cast<int>(GetItemData(row)) : -1;
}

int PictureListCtrl::RowOf(int picture) { return picture < 0 ? -1 : GetRowIndex(static_cast<DWORD_PTR>(picture)); }

void PictureListCtrl::Select(int picture)
{
    const int row = RowOf(picture);
    if (row < 0)
    {
        ClearSlct();
        return;
    }
    constexpr UINT kChosen = LVIS_SELECTED | LVIS_FOCUSED;
    SetItemState(row, kChosen, kChosen);
    EnsureVisible(row, FALSE);
}

int PictureListCtrl::Beside(int picture, int rows)
{
    const int row = RowOf(picture);
    return row < 0 ? -1 : PictureOf(row + rows);
}

void PictureListCtrl::EditName(int picture)
{
    if (const int row = RowOf(picture); row >= 0)
    {
        EnsureVisible(row, FALSE);
        OnEdit(row, columnName, false);
    }
}

void PictureListCtrl::ShowName(int picture, const std::string& name)
{
    if (const int row = RowOf(picture); row >= 0)
    {
        SetText(row, columnName, name.c_str());
        SetImage(row, Glyph(name));
    }
}

void PictureListCtrl::ShowUnreadable(int picture)
{
    if (const int row = RowOf(picture); row >= 0)
    {
        SetImage(row, GetTavImageList().GetCircle(kUnreadable, kBorder, kUnreadableRect, true));
    }
}

int PictureListCtrl::Glyph(const std::string& name)
{
    const DString extension = StripExtn(name.c_str());
    const char letter = static_cast<char>(*extension.c_str() | ('a' ^ 'A')); // lower case
    const auto* const kind = std::ranges::find(kKinds, letter, &Kind::letter);
    return GetTavImageList().GetCircleSmall(kind == kKinds.end() ? kOtherKind : kind->color, kBorder);
}

void PictureListCtrl::ReadWidths(const char* section)
{
    const int width = static_cast<int>(AfxGetApp()->GetProfileInt(section, kWidthEntry, 0));
    if (width > 0 && width <= kWidestColumn)
    {
        SetColWidth(columnSize, width);
    }
    m_sizeWidth = GetColumnWidth(columnSize);
}

void PictureListCtrl::WriteWidths(const char* section) const
{
    if (const int width = GetColumnWidth(columnSize); width != m_sizeWidth) // another program's choice isn't undone
    {
        AfxGetApp()->WriteProfileInt(section, kWidthEntry, width);
    }
}

void PictureListCtrl::Sort(int col, bool ascending)
{
    if (col != columnSize)
    {
        CTavListCtrl::Sort(col, ascending);
        return;
    }
    // Sizes are shown in two units; they are compared in one.
    SetRedraw(FALSE);
    for (int row = 0; row < GetNumRow(); ++row)
    {
        SetText(row, columnSize, std::to_string(m_kiloBytes[static_cast<std::size_t>(PictureOf(row))]).c_str());
    }
    CTavListCtrl::Sort(col, ascending);
    for (int row = 0; row < GetNumRow(); ++row)
    {
        SetCrntRow(row);
        SetColKByte(columnSize, m_kiloBytes[static_cast<std::size_t>(PictureOf(row))]);
    }
    SetRedraw(TRUE);
    Invalidate();
}
} // namespace workbench
