// PictureListCtrl.h - the list of a folder's pictures: glyph, name, size
#pragma once

#include "tavkit/lists/TavListCtrl.h"
#include "workbench/PictureList.h"

#include <string>
#include <vector>

namespace workbench
{
/// Shows the pictures of a PictureList, by their indices there: the rows may stand in another order. Names are edited
/// in place; what becomes of a new name is for the parent to say, which gets LVN_ENDLABELEDIT.
class PictureListCtrl : public CTavListCtrl
{
public:
    /// @param font  must outlive the window.
    BOOL Create(const RECT& rect, CWnd* parent, UINT id, CFont* font);

    /// Shows pictures in place of those before. Widths and order stay as the user has chosen them; nothing is selected.
    void Fill(const PictureList& pictures);
    /// Index of the selected picture; -1 without one.
    [[nodiscard]] int Selected();
    /// Selects a picture and brings it into view; an index that isn't there selects nothing.
    void Select(int picture);
    /// The picture so many rows below another; -1 when there is none.
    [[nodiscard]] int Beside(int picture, int rows);
    /// Index of the picture in a row; -1 when there is none.
    [[nodiscard]] int PictureOf(int row) const;
    /// Opens the edit box over a picture's name.
    void EditName(int picture);
    /// Writes a name, with the glyph of its kind.
    void ShowName(int picture, const std::string& name);
    /// Gives a picture the glyph of those that can't be read.
    void ShowUnreadable(int picture);

    // The width that the user has given to a column, in a section of the profile. The column of the names has what the
    // others leave.
    void ReadWidths(const char* section);
    void WriteWidths(const char* section) const;

    void Sort(int col, bool ascending) override;

private:
    void AddColumns();
    [[nodiscard]] int Glyph(const std::string& name);
    [[nodiscard]] int RowOf(int picture);

    std::vector<int> m_kiloBytes; ///< of each picture
    int m_sizeWidth = 0;          ///< as it was read
};
} // namespace workbench
