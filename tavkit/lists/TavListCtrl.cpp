// TavListCtrl.cpp - list filled row by row
#include "tavkit/lists/TavListCtrl.h"

#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/lists/RowStyle.h"
#include "tavkit/lists/RowText.h"

#include <array>
#include <string>

// Any notification may destroy the list: what follows one asks first whether the window is still there, by a handle of
// its own, since the object may have gone with it.

namespace
{
constexpr COLORREF kDefaultText = 0;
constexpr COLORREF kDefaultBk = 0xFFFFFF; // stands for the system's window colour

/// Keeps a list hidden, if it was visible, so that it isn't painted anew for every column. The focus, which the system
/// takes from a window that it hides, is given back.
class HiddenScope
{
public:
    explicit HiddenScope(const CWnd& list) : m_hWnd(list.IsWindowVisible() ? list.m_hWnd : nullptr)
    {
        if (m_hWnd)
        {
            m_hadFocus = ::GetFocus() == m_hWnd;
            ::ShowWindow(m_hWnd, SW_HIDE);
        }
    }
    ~HiddenScope()
    {
        if (::IsWindow(m_hWnd))
        {
            ::ShowWindow(m_hWnd, SW_SHOW);
            if (m_hadFocus)
            {
                ::SetFocus(m_hWnd);
            }
        }
    }
    HiddenScope(HiddenScope const&) = delete;
    HiddenScope& operator=(HiddenScope const&) = delete;

private:
    HWND m_hWnd;
    bool m_hadFocus = false;
};

/// Keeps a window from being painted, if the system grants it: there is one such window at a time. To lock none would
/// unlock that one.
class UpdateLock
{
public:
    explicit UpdateLock(CWnd& wnd) : m_locked(wnd.m_hWnd && wnd.LockWindowUpdate()) {}
    ~UpdateLock()
    {
        if (m_locked)
        {
            ::LockWindowUpdate(nullptr);
        }
    }
    UpdateLock(UpdateLock const&) = delete;
    UpdateLock& operator=(UpdateLock const&) = delete;

private:
    bool m_locked;
};

DString CaptionKey(const CString& caption) { return static_cast<LPCTSTR>(caption); }
} // namespace

BEGIN_MESSAGE_MAP(CTavListCtrl, CListCtrlFlex)
    ON_WM_SIZE()                            // the fill column follows, a little later
    ON_WM_TIMER()                           // no further resize came
    ON_NOTIFY_REFLECT_EX(NM_CLICK, OnClick) // a click on any cell selects the row
    ON_NOTIFY_REFLECT_EX(NM_RCLICK, OnClick)
END_MESSAGE_MAP()

CTavListCtrl::CTavListCtrl() = default;

// The window dies while its images and fonts are still there.
CTavListCtrl::~CTavListCtrl() { DestroyWindow(); }

// Rows

int CTavListCtrl::AddRow() { return InsertRow(m_nNumRow); }

int CTavListCtrl::InsertRow(int row)
{
    const int inserted = InsertCell(row, "", nullptr);
    if (inserted < 0)
    {
        return -1;
    }
    ++m_nNumRow;
    return m_nCrntRow = inserted;
}

// @return -1 if the control refused, or if the list is gone
int CTavListCtrl::InsertCell(int row, const char* text, const RowInfo* info)
{
    if (!info)
    {
        return InsertItem(row, text, 0, nullptr, kDefaultText, kDefaultBk, 0);
    }
    if (info->m_nImage == RowInfo::NoImage)
    {
        return InsertItem(row, text, info->m_dwData, info->m_pFont, info->m_clrText, info->m_clrBk, info->m_nIndent);
    }
    return InsertItem(row, text, info->m_nImage, info->m_dwData, info->m_pFont, info->m_clrText, info->m_clrBk,
                      info->m_nIndent);
}

int CTavListCtrl::AddRow(const CString& cells, RowInfo* info) { return AddCells(cells, info); }

int CTavListCtrl::AddCells(const char* cells, const RowInfo* info)
{
    const HWND list = m_hWnd;
    std::string text(cells);
    tavkit::RowCells walk(text);
    walk.Next();
    const auto cell = [&] {
        text[walk.GetStart() + walk.GetLength()] = '\0'; // the bar behind it, or the end
        return text.data() + walk.GetStart();
    };
    const int inserted = InsertCell(m_nNumRow, cell(), info);
    if (inserted < 0)
    {
        return -1;
    }
    const int row = m_nCrntRow = m_nNumRow++;
    const int cols = m_nNumCol;
    // No member from here on: a list that ended meanwhile gets no further message.
    for (int col = 1; col < cols && walk.Next(); ++col)
    {
        LVITEM item = {};
        item.iSubItem = col;
        item.pszText = cell();
        ::SendMessage(list, LVM_SETITEMTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    }
    return inserted;
}

int CTavListCtrl::AddRowV(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    const DString text = DString::FormatV(format, args);
    va_end(args);
    return AddCells(text.c_str(), nullptr);
}

int CTavListCtrl::AddRowV(RowInfo* info, const char* format, ...)
{
    va_list args;
    va_start(args, format);
    const DString text = DString::FormatV(format, args);
    va_end(args);
    return AddCells(text.c_str(), info);
}

int CTavListCtrl::AddRowStyle(const CString& cells, unsigned int style)
{
    RowInfo info = {};
    info.m_nImage = RowInfo::NoImage;
    SetStyle(&info, style);
    return AddRow(cells, &info);
}

void CTavListCtrl::SetStyle(RowInfo* info, unsigned int style)
{
    if (info)
    {
        const tavkit::RowLook look =
            tavkit::RowLookOf(style, ::GetSysColor(COLOR_WINDOWTEXT), ::GetSysColor(COLOR_WINDOW));
        info->m_clrText = look.text;
        info->m_clrBk = look.background;
        info->m_pFont = look.bold ? &m_fontBold : nullptr;
    }
}

void CTavListCtrl::RmvRow(int row)
{
    const HWND list = m_hWnd;
    if (DeleteItem(row) && ::IsWindow(list))
    {
        --m_nNumRow;
        m_nCrntRow = 0; // also when another row was removed
    }
}

void CTavListCtrl::RmvAllRow()
{
    m_nNumRow = 0;
    DeleteAllItems();
}

void CTavListCtrl::Reset()
{
    const HWND list = m_hWnd;
    RmvAllRow();
    if (list && !::IsWindow(list))
    {
        return;
    }
    RmvAllCol();
    if (list && !::IsWindow(list))
    {
        return;
    }
    m_lstImage.Clear();
    GetLastSort() = LastSort();
}

// Cells

void CTavListCtrl::SetText(int row, int col, const CString& text)
{
    m_nCrntRow = row;
    SetItemText(row, col, text);
}

void CTavListCtrl::SetText(const CString& text) { SetItemText(m_nCrntRow, 0, text); }

void CTavListCtrl::SetColText(int col, const CString& text) { SetItemText(m_nCrntRow, col, text); }

void CTavListCtrl::SetColText(int col, double value, int precision)
{
    SetItemText(m_nCrntRow, col, FormatDouble(value, precision).c_str());
}

void CTavListCtrl::SetColText(int col, double value, int precision, const CString& unit)
{
    const DString text = FormatDouble(value, precision) + " " + static_cast<LPCTSTR>(unit);
    SetItemText(m_nCrntRow, col, text.c_str());
}

void CTavListCtrl::SetColKByte(int col, int kiloBytes)
{
    SetItemText(m_nCrntRow, col, tavkit::KByteText(kiloBytes).c_str());
}

void CTavListCtrl::SetImage(int row, int image)
{
    m_nCrntRow = row;
    SetItem(row, 0, LVIF_IMAGE, nullptr, image, 0, 0, 0);
}

void CTavListCtrl::SetImage(int image) { SetImage(m_nCrntRow, image); }

void CTavListCtrl::SetIcon(int row, unsigned int iconId) { SetImage(row, m_lstImage.GetIcon(iconId, nullptr)); }

void CTavListCtrl::SetIcon(unsigned int iconId) { SetIcon(m_nCrntRow, iconId); }

int CTavListCtrl::SetData(DWORD_PTR data) { return SetItemData(m_nCrntRow, data); }

DWORD_PTR CTavListCtrl::GetData() { return GetItemData(m_nCrntRow); }

// Columns

void CTavListCtrl::AddCol(const CString& caption, ADIColType type, bool editable, int width, int format)
{
    const HWND list = m_hWnd;
    MakeFonts();
    if (list && InsertColumn(m_nNumCol, type, caption, editable, format, width, m_nNumCol) >= 0 && ::IsWindow(list))
    {
        ++m_nNumCol;
    }
}

void CTavListCtrl::AddCol(const CString& caption, const CString& sample, ADIColType type, int format, bool editable)
{
    AddCol(caption, type, editable, MeasureText(sample), format);
}

void CTavListCtrl::MakeFonts()
{
    CFont* const font = m_fontBold.GetSafeHandle() ? nullptr : GetFont();
    LOGFONT description = {};
    if (font && font->GetLogFont(&description))
    {
        description.lfWeight = MediumWeight;
        m_fontMedium.CreateFontIndirect(&description);
        description.lfWeight = BoldWeight;
        m_fontBold.CreateFontIndirect(&description);
    }
}

// Measured in the font of a fresh device context, whichever the list has.
int CTavListCtrl::MeasureText(const CString& text)
{
    if (!m_hWnd)
    {
        return 0;
    }
    CClientDC dc(this);
    return dc.GetTextExtent(text).cx;
}

void CTavListCtrl::RmvAllCol()
{
    const HWND list = m_hWnd;
    CListCtrlFlex::RmvAllCol();
    if (!list || ::IsWindow(list))
    {
        m_nNumCol = 0;
    }
}

void CTavListCtrl::SetColCaption(int col, const CString& caption)
{
    LVCOLUMN column = {};
    column.mask = LVCF_TEXT;
    column.pszText = const_cast<LPTSTR>(static_cast<LPCTSTR>(caption));
    SetColumn(col, &column);
}

CString CTavListCtrl::GetColCaption(int col) const
{
    std::array<char, CaptionLength> text = {};
    LVCOLUMN column = {};
    column.mask = LVCF_TEXT;
    column.pszText = text.data();
    column.cchTextMax = CaptionLength;
    return GetColumn(col, &column) ? column.pszText : "";
}

void CTavListCtrl::SetColWidth(int col, int width) { SetColumnWidth(col, width); }

void CTavListCtrl::SetColWidth(int col, const CString& sample) { SetColumnWidth(col, MeasureText(sample)); }

void CTavListCtrl::ResizeColToFit() { FitAll(LVSCW_AUTOSIZE); }

void CTavListCtrl::ResizeColToFitUseHeader() { FitAll(LVSCW_AUTOSIZE_USEHEADER); }

void CTavListCtrl::FitAll(int fit)
{
    const HWND list = m_hWnd;
    m_nFillCol = NoFillCol;
    const HiddenScope hidden(*this);
    for (int col = 0; ::IsWindow(list) && col < m_nNumCol; ++col)
    {
        SetColumnWidth(col, fit);
    }
}

void CTavListCtrl::ResizeColToFit(int col)
{
    if (col == m_nFillCol)
    {
        m_nFillCol = NoFillCol;
    }
    SetColumnWidth(col, LVSCW_AUTOSIZE);
}

void CTavListCtrl::EnlargeCol(int col, bool)
{
    const HWND list = m_hWnd;
    m_nFillCol = col;
    const HiddenScope hidden(*this);
    CRect client;
    ::GetClientRect(list, client);
    if (::IsWindow(list))
    {
        SetColumnWidth(col, LVSCW_AUTOSIZE);
    }
    if (!::IsWindow(list))
    {
        return;
    }
    long long others = 0;
    for (int other = 0; other < m_nNumCol; ++other)
    {
        others += other != col ? GetColumnWidth(other) : 0;
    }
    if (const auto width = tavkit::FillWidth(client.Width(), GetColumnWidth(col), others))
    {
        SetColumnWidth(col, *width);
    }
}

void CTavListCtrl::SaveColWidth()
{
    m_widths.Clear();
    for (int col = 0; col < m_nNumCol; ++col)
    {
        m_widths.Save(col, CaptionKey(GetColCaption(col)), GetColumnWidth(col));
    }
}

void CTavListCtrl::RestoreColWidth()
{
    const HWND list = m_hWnd;
    const UpdateLock lock(*this);
    for (int col = 0; ::IsWindow(list) && col < m_nNumCol; ++col)
    {
        if (const auto width = m_widths.Find(col, CaptionKey(GetColCaption(col))))
        {
            SetColumnWidth(col, *width);
        }
    }
}

bool CTavListCtrl::HasSavedColWidth() const { return !m_widths.IsEmpty(); }

// Selection

void CTavListCtrl::SetSlct(int row, bool select)
{
    if (row >= 0 && row < m_nNumRow)
    {
        SetItemState(row, select ? LVIS_SELECTED : 0, select ? LVIS_SELECTED : LVIS_SELECTED | LVIS_FOCUSED);
    }
}

void CTavListCtrl::SetSlct(bool select) { SetSlct(m_nCrntRow, select); }

bool CTavListCtrl::GetSlct(int row) { return GetItemState(row, LVIS_SELECTED) != 0; }

void CTavListCtrl::GetSlct(DVector<int>& rows)
{
    int count = 0;
    for (POSITION position = m_hWnd ? GetFirstSelectedItemPosition() : nullptr; position;)
    {
        rows[count++] = GetNextSelectedItem(position);
    }
}

int CTavListCtrl::GetCrntSlct() { return GetFrstSlct(); }

int CTavListCtrl::GetFrstSlct() { return m_hWnd ? GetNextItem(-1, LVNI_SELECTED) : -1; }

int CTavListCtrl::GetNumSlct() { return static_cast<int>(GetSelectedCount()); }

void CTavListCtrl::ClearSlct()
{
    const HWND list = m_hWnd;
    for (int row = -1; ::IsWindow(list) && (row = GetNextItem(row, LVNI_SELECTED)) >= 0;)
    {
        SetItemState(row, 0, LVIS_SELECTED | LVIS_FOCUSED);
    }
}

int CTavListCtrl::GetRowIndex(DWORD_PTR data)
{
    for (int row = 0; m_hWnd && row < m_nNumRow; ++row)
    {
        if (GetItemData(row) == data)
        {
            return row;
        }
    }
    return -1;
}

int CTavListCtrl::SetSlctByItemData(DWORD_PTR data, bool select)
{
    const int row = GetRowIndex(data);
    SetSlct(row, select);
    return row;
}

void CTavListCtrl::SetMultiSlct(bool multi) { ModifyStyle(multi ? LVS_SINGLESEL : 0, multi ? 0 : LVS_SINGLESEL); }

bool CTavListCtrl::IsMultiSlct() const { return (GetStyle() & LVS_SINGLESEL) == 0; }

// Images

void CTavListCtrl::CreateImages()
{
    m_lstImage.SetWindow(this);
    if (!m_lstImage.GetSafeHandle()) // what the rows show already stays good
    {
        m_lstImage.Create();
    }
    SetImageList(&m_lstImage, LVSIL_SMALL);
}

void CTavListCtrl::DestroyImages() { m_lstImage.Clear(); }

// Messages

void CTavListCtrl::OnSize(UINT nType, int cx, int cy)
{
    const HWND list = m_hWnd;
    CListCtrlFlex::OnSize(nType, cx, cy);
    if (::IsWindowVisible(list))
    {
        ::KillTimer(list, FillTimerId);
        ::SetTimer(list, FillTimerId, FillTimerPeriod, nullptr);
    }
}

void CTavListCtrl::OnTimer(UINT_PTR nIDEvent)
{
    const HWND list = m_hWnd;
    CListCtrlFlex::OnTimer(nIDEvent);
    if (nIDEvent == FillTimerId && ::IsWindow(list))
    {
        KillTimer(FillTimerId);
        if (m_nFillCol != NoFillCol)
        {
            EnlargeCol(m_nFillCol, false);
        }
    }
}

BOOL CTavListCtrl::OnClick(NMHDR* pNMHDR, LRESULT*)
{
    if (GetSelectedCount() <= 1)
    {
        LVHITTESTINFO hit = {};
        hit.pt = reinterpret_cast<const NMITEMACTIVATE*>(pNMHDR)->ptAction;
        const int row = SubItemHitTest(&hit);
        if (row < GetItemCount())
        {
            SetSlct(row, true);
        }
    }
    return FALSE; // the parent gets the click too
}
