// ObjectList.h - the rows of a table of objects, all of them or those of one class
#pragma once

#include "tavkit/frame/services/IAttrData.h"
#include "tavkit/lists/ADIListCtrl.h"
#include "workbench/ObjectPlace.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace workbench
{
/// Shows a table as far as it is looked at. Which rows are shown is decided as they are read, so a list is made for one
/// table and one class.
class ObjectList : public CADIListCtrl
{
public:
    /// @param reader    none for an empty list without columns
    /// @param columns   of the table
    /// @param category  the only class to be shown; none for all
    /// @param seen      takes note of the classes of all rows that are read; outlives the list
    ObjectList(std::unique_ptr<IAttrData> reader, const ObjectColumns& columns, std::optional<std::string> category,
               ClassNames& seen);

    BOOL Create(const RECT& rect, CWnd* parent, UINT id, CFont* font);
    /// Makes the columns and reads the first rows; the others follow as they are looked at.
    void ShowTable();
    /// Makes every column as wide as its caption and the longest text in the first rows, within reason.
    void FitColumns();
    /// Makes the columns as wide as those of another list.
    void TakeWidths(const ObjectList& other);
    /// Gives the last column the width that the others leave, if its texts don't need more.
    void FillWidth();
    /// Where the selected object lies; none without a selected row or a place in it.
    [[nodiscard]] std::optional<ObjectPlace> SelectedPlace();

    /// Selects a row by its number in the table, from 0, and scrolls it into view; reads the whole table for that.
    /// @return false, and nothing done, if the row isn't among those shown
    bool SelectTableRow(int tableRow);

    bool OnFilterRow(int tableRow) override;

private:
    /// The longest text of a column in the first rows, as far as it is of use.
    [[nodiscard]] std::string LongestText(int col);

    IAttrData* m_pTable; ///< the list's reader, which filters no rows once it is gone
    ObjectColumns m_columns;
    std::optional<std::string> m_category;
    ClassNames& m_seen;
    CImageList m_rowHeight;       ///< holds no image
    std::vector<int> m_tableRows; ///< of the rows that were read and are shown, in the order of the table
    int m_lastWidth = 0;          ///< what the last column's texts need
};
} // namespace workbench
