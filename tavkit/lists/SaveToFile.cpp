// SaveToFile.cpp - the row list's contents as a table file
#include "tavkit/filedlg/FileDlg.h"
#include "tavkit/frame/services/ADIFile.h"
#include "tavkit/lists/SavedCell.h"
#include "tavkit/lists/TavListCtrl.h"

namespace
{

constexpr char kCaption[] = "Save contents";
constexpr char kDefaultFormat[] = "CSV";

/// Writes a cell as what it is; the writer's answers aren't read.
struct Writer
{
    ADIFile& file;

    void operator()(char const* text) const { file.WriteString(text); }
    void operator()(int number) const { file.WriteInt(number); }
    void operator()(double number) const { file.WriteDouble(number); }
};

} // namespace

void CTavListCtrl::SaveToFile()
{
    FileDlg dialog;
    const LifeWatch watch(m_life);
    const auto isGone = [&] { return watch.IsGone() || m_hWnd == nullptr; };
    if (!dialog.OpenSaveCSV(kCaption) || isGone())
    {
        return;
    }
    // A format without an identifier, the text files' for instance, is written as CSV: so it has always been.
    DFileFrmt const* const format = dialog.GetFormat();
    DString const id = format && !format->m_strId.IsEmpty() ? format->m_strId : DString(kDefaultFormat);
    ADIFile file(DFile(dialog.GetPhysFile()), id.c_str(), fmtWrite, nullptr, "");
    file.InitTable(m_nNumRow + 1, m_nNumCol);
    for (int col = 0; col < m_nNumCol; ++col)
    {
        file.AddCol(GetColCaption(col).Left(SavedCaptionLength - 1), GetColType(col));
    }
    for (int row = 0; row < m_nNumRow; ++row)
    {
        file.AddRow();
        for (int col = 0; col < m_nNumCol; ++col)
        {
            const CString text = GetItemText(row, col);
            if (isGone()) // a list that asks for its texts calls out
            {
                return;
            }
            std::visit(Writer{file}, tavkit::CellToSave(text, GetColType(col)));
        }
    }
    file.Finish();
}
