// TavListCtrl.h - list filled row by row, with glyphs, a column that fills the width, and remembered widths
#pragma once

#include <afxcmn.h>

#include "tavkit/drawing/TavImageList.h"
#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DVector.h"
#include "tavkit/lists/ColumnWidths.h"
#include "tavkit/lists/ListCtrlFlex.h"

#include <cstdarg>

/// The list of the workbench's dialogs: the host adds columns, adds rows from texts whose cells are separated by "|",
/// and fills the current row cell by cell. Rows and columns count from 0.
///
/// The numbers of rows and columns are kept by this class and never read from the control: all rows and columns come
/// and go through it. Every operation may be called before the list has a window; then there is nothing to do, an added
/// row is refused, and a text is empty. A parent may destroy the list in any notification.
class TAVKIT_API CTavListCtrl : public CListCtrlFlex
{
public:
    static constexpr UINT_PTR FillTimerId = 16061970; ///< re-fits the fill column after a resize
    static constexpr UINT FillTimerPeriod = 100;      ///< milliseconds without a further resize
    static constexpr int NoFillCol = -1;              ///< fill column when there is none
    static constexpr int CaptionLength = 1024;        ///< characters of a caption that are read, its end included
    static constexpr int SavedCaptionLength = 512;    ///< characters of a caption that are saved, its end included
    static constexpr int MediumWeight = 500;          ///< of the medium font
    static constexpr int BoldWeight = 700;            ///< of the bold font

    /// What a row looks like and carries.
    struct RowInfo
    {
        static constexpr int NoImage = -1;

        int m_nImage;       ///< index in the small image list; NoImage for none
        COLORREF m_clrText; ///< of all cells
        COLORREF m_clrBk;   ///< 0xFFFFFF is the system's window colour
        CFont* m_pFont;     ///< borrowed as long as the row lives; null for the list's own
        int m_nReserved;    ///< 0; nothing reads it
        DWORD_PTR m_dwData; ///< the caller's
        int m_nIndent;      ///< pixels by which the texts are moved to the right
    };

    CTavListCtrl();
    ~CTavListCtrl() override;
    CTavListCtrl(CTavListCtrl const&) = delete;
    CTavListCtrl& operator=(CTavListCtrl const&) = delete;

    // Rows

    /// Appends an empty row with default colours, which becomes the current one.
    /// @return its index; -1 if the control refused
    int AddRow();
    /// Inserts an empty row with default colours, which becomes the current one.
    /// @return its index; -1 if the control refused
    int InsertRow(int row);
    /// Appends a row, which becomes the current one. Cells without a column are dropped; a bar at the end adds no cell.
    /// @param info  null for default colours, no font and no data
    /// @return index of the row; -1 if the control refused
    int AddRow(const CString& cells, RowInfo* info);
    /// As AddRow(cells, nullptr), with the text printed as by printf. Texts go in as `char const*`, not as objects.
    TAVHOST_PRINTF(2, 3) int AddRowV(const char* format, ...);
    TAVHOST_PRINTF(3, 4) int AddRowV(RowInfo* info, const char* format, ...);
    /// As AddRow, with the look of a style; see SetStyle.
    int AddRowStyle(const CString& cells, unsigned int style);
    /// Writes text colour, background and font of @p info.
    /// @param style  bits: 1 shaded background, 2 bold font, 4 grey text; 0 for the system's text and window colours
    void SetStyle(RowInfo* info, unsigned int style);
    /// Deletes a row; the current row is row 0 then, whichever it was.
    void RmvRow(int row);
    /// Deletes all rows; the number of the current row stays.
    void RmvAllRow();
    /// Takes away rows, columns and images, and forgets the last sort. The fonts stay.
    virtual void Reset();

    int GetNumRow() const { return m_nNumRow; }
    int GetNumCol() const { return m_nNumCol; }
    int GetCrntRow() const { return m_nCrntRow; }
    void SetCrntRow(int row) { m_nCrntRow = row; }

    // Cells. A row that is named becomes the current row; the others act on the current row.

    void SetText(int row, int col, const CString& text);
    void SetText(const CString& text);
    void SetColText(int col, const CString& text);
    /// @param precision  digits behind the point
    void SetColText(int col, double value, int precision);
    /// The number, a blank and the unit.
    void SetColText(int col, double value, int precision, const CString& unit);
    /// A size as "1023 KB", from 1024 kilobytes on as "1.00 MB".
    void SetColKByte(int col, int kiloBytes);
    void SetImage(int row, int image);
    void SetImage(int image);
    /// Shows an icon of the library's own resources.
    void SetIcon(int row, unsigned int iconId);
    void SetIcon(unsigned int iconId);
    /// @return 0; -1 if the row has no record
    int SetData(DWORD_PTR data);
    DWORD_PTR GetData();

    // Columns. Widths in pixels.

    /// Appends a column. The first one makes the derived fonts from the list's font.
    /// @param format  LVCFMT_ bits
    void AddCol(const CString& caption, ADIColType type, bool editable, int width, int format);
    /// As above, as wide as a sample text. Mind the order: format and editable stand the other way round.
    void AddCol(const CString& caption, const CString& sample, ADIColType type, int format, bool editable);
    void RmvAllCol() override;
    void SetColCaption(int col, const CString& caption);
    /// @return empty if there is no such column
    CString GetColCaption(int col) const;
    void SetColWidth(int col, int width);
    /// The width of a sample text.
    void SetColWidth(int col, const CString& sample);
    /// Makes every column as wide as its contents. No column fills the width any more.
    void ResizeColToFit();
    /// Makes every column as wide as its contents and its caption. No column fills the width any more.
    void ResizeColToFitUseHeader();
    /// Makes one column as wide as its contents; if it filled the width, it doesn't any more.
    void ResizeColToFit(int col);
    /// Gives a column the width that the others leave, if that is more than its contents need. It stays the fill
    /// column: its width follows the list's, shortly after the last of a row of resizes.
    void EnlargeCol(int col, bool bReserved);
    /// Remembers the columns' widths by their captions, for as long as this object lives, in place of those remembered.
    void SaveColWidth();
    /// Gives the columns the widths remembered under their captions; the others keep theirs.
    void RestoreColWidth();
    bool HasSavedColWidth() const;

    // Selection

    /// Selects a row, or takes selection and focus from it. Other rows are left alone.
    void SetSlct(int row, bool select);
    void SetSlct(bool select);
    bool GetSlct(int row);
    /// Writes the selected rows in ascending order from index 0 on; a longer array keeps what stands behind them.
    void GetSlct(DVector<int>& rows);
    /// The first selected row; -1 if none is. Both names are one operation.
    int GetCrntSlct();
    int GetFrstSlct();
    int GetNumSlct();
    void ClearSlct();
    /// The first row with that data; -1 if there is none.
    int GetRowIndex(DWORD_PTR data);
    /// SetSlct on the first row with that data. @return the row; -1 if there is none
    int SetSlctByItemData(DWORD_PTR data, bool select);
    void SetMultiSlct(bool multi);
    bool IsMultiSlct() const;

    // File

    /// Asks for a file and writes the whole list into it as a table: the captions, then the rows as they are shown,
    /// numbers in the columns of numbers. A cancelled dialog writes nothing; nothing is told of a file that can't be
    /// written, and what it held before stays whole.
    void SaveToFile();

    // Images

    CTavImageList& GetTavImageList() { return m_lstImage; }
    /// Makes the image list for this window, unless there is one already, and shows its images in the rows.
    void CreateImages();
    /// Empties the image list, which stays; the first image added next has index 0.
    void DestroyImages();

protected:
    void OnSize(UINT nType, int cx, int cy);
    void OnTimer(UINT_PTR nIDEvent);
    BOOL OnClick(NMHDR* pNMHDR, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()

    /// The number of rows as this class counts them; the control isn't told.
    void CountRows(int rows) { m_nNumRow = rows; }

private:
    int AddCells(const char* cells, const RowInfo* info);
    int InsertCell(int row, const char* text, const RowInfo* info);
    void MakeFonts();
    int MeasureText(const CString& text);
    void FitAll(int fit);

    int m_nNumRow = 0;
    int m_nNumCol = 0;
    int m_nCrntRow = 0;
    int m_nFillCol = NoFillCol;
    CTavImageList m_lstImage;

protected:
    CFont m_fontMedium; ///< the list's font at a weight of 500, for rows of derived lists; empty until the first column
    CFont m_fontBold;   ///< the same at 700, for rows of the bold style

private:
    tavkit::ColumnWidths m_widths;
};
