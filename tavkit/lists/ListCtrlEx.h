// ListCtrlEx.h - list control with short forms of inserting columns and cells
#pragma once

#include <afxcmn.h>

#include "tavkit/frame/Export.h"

/// A thin list control: no data and no behaviour of its own.
class TAVKIT_API CListCtrlEx : public CListCtrl
{
public:
    static constexpr int CaptionMargin = 15; ///< pixels that AddColumn adds to the width of the caption
    static constexpr int SameAsColumn = -1;  ///< subitem of AddColumn that stands for the column's own index
    static constexpr int NoImage = -1;       ///< image of AddItem that sets none

    CListCtrlEx();
    ~CListCtrlEx() override;

    /// Lends an image list to the control.
    /// @param list  null takes the present one away
    /// @param kind  LVSIL_NORMAL, LVSIL_SMALL or LVSIL_STATE
    /// @return the former list, null if there was none
    CImageList* SetImageList(CImageList* list, int kind);

    /// Inserts a column that is as wide as its caption and a margin.
    /// @param subItem  read if @p mask has LVCF_SUBITEM; SameAsColumn for @p col
    /// @param mask     LVCF_ bits of what counts
    /// @param format   LVCFMT_ bits
    /// @return index of the new column; -1 on failure
    int AddColumn(const char* caption, int col, int subItem, int mask, int format);

    /// Inserts a row, if @p subItem is 0, or sets the text of a cell.
    /// @param image  NoImage, or the image that the row or the cell shows
    /// @return index of the new row, or -1 on failure; for a cell 1, or 0 on failure
    int AddItem(int row, int subItem, const char* text, int image);
};
