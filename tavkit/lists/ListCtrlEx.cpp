// ListCtrlEx.cpp - list control with short forms of inserting columns and cells
#include "tavkit/lists/ListCtrlEx.h"

namespace
{
// The control takes its texts as writable and writes to none of those it is given.
char* TextOf(const char* text) { return const_cast<char*>(text ? text : ""); }
} // namespace

CListCtrlEx::CListCtrlEx() = default;

CListCtrlEx::~CListCtrlEx() = default;

CImageList* CListCtrlEx::SetImageList(CImageList* list, int kind) { return CListCtrl::SetImageList(list, kind); }

int CListCtrlEx::AddColumn(const char* caption, int col, int subItem, int mask, int format)
{
    LVCOLUMN column = {};
    column.mask = static_cast<UINT>(mask);
    column.fmt = format;
    column.pszText = TextOf(caption);
    column.cx = GetStringWidth(column.pszText) + CaptionMargin;
    if ((mask & LVCF_SUBITEM) != 0)
    {
        column.iSubItem = subItem == SameAsColumn ? col : subItem;
    }
    return InsertColumn(col, &column);
}

int CListCtrlEx::AddItem(int row, int subItem, const char* text, int image)
{
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = subItem;
    item.pszText = TextOf(text);
    if (image != NoImage)
    {
        item.mask |= LVIF_IMAGE;
        item.iImage = image;
    }
    return subItem == 0 ? InsertItem(&item) : SetItem(&item);
}
