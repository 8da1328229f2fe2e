#include "tavkit/widgets/TavComboBox.h"

#include "tavkit/widgets/ComboCompletion.h"

#include <algorithm>
#include <new>
#include <numeric>
#include <utility>

using namespace tavkit;

namespace
{

constexpr int kMouseButtons[] = {VK_LBUTTON, VK_RBUTTON, VK_MBUTTON};

unsigned char LowerByte(unsigned char byte)
{
    auto letter = static_cast<char>(byte);
    ::CharLowerBuffA(&letter, 1);
    return static_cast<unsigned char>(letter);
}

// The framework's rule: the letters of the ANSI code page as their small forms.
CaseFold const& LowerCase()
{
    static CaseFold const fold = [] {
        CPINFO page{};
        return FoldBytes(LowerByte, ::GetCPInfo(CP_ACP, &page) && page.MaxCharSize == 1);
    }();
    return fold;
}

void MatchByStart(CTavComboBox*, DString const& text, DVectorSafe<CTavComboBox::ComboItem> const* items,
                  DVector<int>* found)
{
    auto const textOf = [](CTavComboBox::ComboItem const& item) { return item.m_strText.GetString(); };
    AppendMatches(*items, textOf, text.c_str(), LowerCase(), *found);
}

COMBOBOXINFO InfoOf(HWND combo)
{
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    ::GetComboBoxInfo(combo, &info);
    return info;
}

// The list of a combo box, for what is asked of each entry: the control would only pass every question on to it. Null
// for a window of another kind.
CListBox const* ListOf(HWND combo) { return static_cast<CListBox*>(CWnd::FromHandle(InfoOf(combo).hwndList)); }

// A list that isn't drawn while its entries are exchanged.
class NoRedraw
{
public:
    explicit NoRedraw(HWND combo) : m_list(InfoOf(combo).hwndList) { ::SendMessageA(m_list, WM_SETREDRAW, FALSE, 0); }
    ~NoRedraw() { ::SendMessageA(m_list, WM_SETREDRAW, TRUE, 0); }
    NoRedraw(NoRedraw const&) = delete;
    NoRedraw& operator=(NoRedraw const&) = delete;

private:
    HWND m_list;
};

bool IsMouseButtonDown()
{
    return std::any_of(std::begin(kMouseButtons), std::end(kMouseButtons),
                       [](int button) { return ::GetKeyState(button) < 0; });
}

bool MayChangeTip(UINT message)
{
    switch (message)
    {
    case WM_MOUSEMOVE:
    case WM_NCMOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
        return !IsMouseButtonDown();
    default:
        return false;
    }
}

} // namespace

// Notices that what was called meanwhile has overtaken an operation: it ended the edit, typed on, or destroyed the
// control.
class CTavComboBox::EditWatch
{
public:
    explicit EditWatch(CTavComboBox& combo) : m_combo(combo), m_life(combo.m_life), m_edit(combo.m_nEdit) {}

    [[nodiscard]] bool IsOver() const
    {
        return m_life.IsGone() || m_combo.m_hWnd == nullptr || m_combo.m_nEdit != m_edit;
    }

private:
    CTavComboBox& m_combo;
    LifeWatch m_life;
    unsigned m_edit;
};

// Lasts as long as a call of the filter.
class CTavComboBox::FilterCall
{
public:
    explicit FilterCall(CTavComboBox& combo) : m_combo(combo), m_life(combo.m_life) { ++combo.m_nFilters; }
    ~FilterCall()
    {
        if (!m_life.IsGone() && --m_combo.m_nFilters == 0)
        {
            m_combo.m_Walked.clear();
        }
    }
    FilterCall(FilterCall const&) = delete;
    FilterCall& operator=(FilterCall const&) = delete;

private:
    CTavComboBox& m_combo;
    LifeWatch m_life;
};

// The edit field as a keystroke finds it.
struct CTavComboBox::Keystroke
{
    explicit Keystroke(CTavComboBox& combo) : watch(combo)
    {
        combo.GetWindowText(text);
        typed = {.length = text.GetLength(), .selection = combo.GetEditSel(), .deleting = combo.m_bDeleting};
    }

    EditWatch watch;
    CString text;
    TypedText typed{};

    // Does what is told to the field of a control.
    void Finish(CTavComboBox& combo, EditChange const& change) const
    {
        if (change.putTextBack)
        {
            combo.SetWindowText(text);
        }
        if (change.select)
        {
            combo.SetEditSel(change.select->start, change.select->end);
        }
    }
};

BEGIN_MESSAGE_MAP(CTavComboBox, CComboBox)
    ON_WM_DESTROY()
    ON_WM_MOUSEMOVE()
    ON_CONTROL_REFLECT_EX(CBN_DROPDOWN, OnDropDown)       // the list is about to show
    ON_CONTROL_REFLECT_EX(CBN_EDITUPDATE, OnEditUpdate)   // the user changed the text
    ON_CONTROL_REFLECT_EX(CBN_SELENDOK, OnFinishEdit)     // the user took an entry
    ON_CONTROL_REFLECT_EX(CBN_SELENDCANCEL, OnFinishEdit) // or none
END_MESSAGE_MAP()

CTavComboBox::CTavComboBox() : m_pFltrFunc(MatchByStart) {}
CTavComboBox::~CTavComboBox() = default;

void CTavComboBox::EnableTooltip(bool bEnable) { m_bToolTip = bEnable; }

void CTavComboBox::EnableAutoComplete(bool bEnable, bool bFilter)
{
    if (m_bFilterList && !(bEnable && bFilter) && m_hWnd != nullptr)
    {
        LifeWatch const watch(m_life);
        RestoreContents(); // nobody would at the end of the edit
        if (watch.IsGone())
        {
            return;
        }
    }
    m_bAutoComplete = bEnable;
    m_bFilterList = bEnable && bFilter;
}

bool CTavComboBox::IsAutoCompleteEnabled() const { return m_bAutoComplete; }

void CTavComboBox::SetFltrFunc(FltrFunc pFltrFunc) { m_pFltrFunc = pFltrFunc; }

int CTavComboBox::FindByData(DWORD_PTR dwData)
{
    int const count = GetCount();
    for (int i = 0; i < count; ++i)
    {
        if (GetItemData(i) == dwData)
        {
            return i;
        }
    }
    return CB_ERR;
}

void CTavComboBox::OnDestroy()
{
    // Entries that are hidden by the filter are deleted with the others, for a class that owns their data.
    LifeWatch const watch(m_life);
    OnFinishEdit();
    if (!watch.IsGone())
    {
        CComboBox::OnDestroy();
    }
}

void CTavComboBox::PostNcDestroy()
{
    // A window made anew begins anew.
    m_ToolTip.DestroyWindow();
    m_strToolTip.Empty();
    m_bDeleting = false;
    ForgetBackup();
    m_rcDropped.SetRectEmpty();
    CComboBox::PostNcDestroy();
}

// The dropped list

bool CTavComboBox::AdjustDropppedWidth()
{
    if (m_hWnd == nullptr)
    {
        return false;
    }
    CDC* const dc = GetDC();
    CFont* const font = GetFont();
    if (dc == nullptr || font == nullptr)
    {
        return false; // without a font the context isn't released; kept as it is
    }
    CRect dropped;
    GetDroppedControlRect(dropped);
    CFont* const oldFont = dc->SelectObject(font);
    TEXTMETRIC metrics{};
    dc->GetTextMetrics(&metrics);

    int widest = 0;
    int entriesHeight = 0;
    CListBox const* const list = ListOf(m_hWnd);
    int const count = list != nullptr ? list->GetCount() : 0;
    CString text;
    for (int i = 0; i < count; ++i)
    {
        list->GetText(i, text);
        widest = std::max<int>(widest, dc->GetTextExtent(text).cx + metrics.tmAveCharWidth);
        entriesHeight += GetItemHeight(i);
    }
    dc->SelectObject(oldFont);
    ReleaseDC(dc);

    int const width = DroppedWidth({.widest = widest,
                                    .entriesHeight = entriesHeight,
                                    .listHeight = dropped.Height(),
                                    .edgeWidth = ::GetSystemMetrics(SM_CXEDGE),
                                    .edgeHeight = ::GetSystemMetrics(SM_CYEDGE),
                                    .scrollWidth = ::GetSystemMetrics(SM_CXVSCROLL)});
    return SetDroppedWidth(static_cast<UINT>(width)) != CB_ERR;
}

void CTavComboBox::AdjustDroppedHeight(CRect const& rc)
{
    HWND const list = InfoOf(m_hWnd).hwndList;
    CRect place;
    if (!::GetWindowRect(list, &place))
    {
        return;
    }
    int const height = DroppedHeight(GetItemHeight(0), GetCount(), ::GetSystemMetrics(SM_CYEDGE), rc.Height());
    if (height == place.Height())
    {
        return;
    }
    place.bottom = place.top + height;
    if (HWND const parent = ::GetParent(list))
    {
        ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    }
    ::MoveWindow(list, place.left, place.top, place.Width(), place.Height(), TRUE);
}

BOOL CTavComboBox::OnDropDown()
{
    if (GetFont() != nullptr)
    {
        AdjustDropppedWidth();
    }
    if (m_bAutoComplete)
    {
        ::SetCursor(::LoadCursor(nullptr, IDC_ARROW)); // the list would go on with the edit field's
    }
    return FALSE;
}

// The true entries

void CTavComboBox::SafeResetContents()
{
    // By messages, as a derived class may have operations of these names.
    int const count = GetCount();
    for (int i = 0; i < count; ++i)
    {
        SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(i), 0);
    }
    SendMessage(CB_RESETCONTENT);
}

void CTavComboBox::BackupContents()
{
    SetCount(m_Backup, 0);
    CListBox const* const list = ListOf(m_hWnd);
    if (list == nullptr)
    {
        return;
    }
    int const count = list->GetCount();
    m_Backup.SetSize(count);
    for (int i = 0; i < count; ++i)
    {
        ComboItem& item = m_Backup[i];
        list->GetText(i, item.m_strText);
        item.m_dwData = list->GetItemData(i);
    }
    if (m_rcDropped.Height() == 0)
    {
        list->GetWindowRect(m_rcDropped);
    }
}

void CTavComboBox::RestoreContents()
{
    // A list with as many other entries stays too; kept as it is.
    if (m_Backup.IsEmpty() || GetCount() == m_Backup.GetCount())
    {
        return;
    }
    int const slct = GetCurSel();
    CString const text = GetCrntText();
    DWORD_PTR const data = slct == CB_ERR ? 0 : GetItemData(slct);

    DVector<int> all;
    all.SetSize(m_Backup.GetCount());
    std::iota(all.begin(), all.end(), 0);
    m_bMatchesOnly = false;
    if (InsertItems(all))
    {
        SlctItem(text, data);
    }
}

// In place of what the list has. False if that was overtaken: an owner-drawn list calls out for each entry.
bool CTavComboBox::InsertItems(DVector<int> const& indexes)
{
    auto const last = std::max_element(indexes.begin(), indexes.end());
    if (last != indexes.end() && *last >= m_Backup.GetCount())
    {
        m_Backup.SetSize(DVectorGrowth::CountBehind(*last)); // fails, if it must, before the list is touched
    }
    EditWatch const watch(*this);
    NoRedraw const noRedraw(m_hWnd);
    SafeResetContents();
    if (watch.IsOver())
    {
        return false;
    }
    for (int const index : indexes)
    {
        if (index < 0)
        {
            continue; // a filter's mistake
        }
        ComboItem const& item = m_Backup[index];
        auto const at =
            SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(item.m_strText.GetString()));
        if (watch.IsOver())
        {
            return false;
        }
        SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(at), static_cast<LPARAM>(item.m_dwData));
    }
    return true;
}

// The entry of that text and data; of that text alone, the last one.
void CTavComboBox::SlctItem(CString const& text, DWORD_PTR data)
{
    int found = FindStringExact(-1, text);
    if (found == CB_ERR)
    {
        SetWindowText(text);
        return;
    }
    while (GetItemData(found) != data)
    {
        int const next = FindStringExact(found, text);
        if (next <= found)
        {
            break;
        }
        found = next;
    }
    SetCurSel(found);
}

BOOL CTavComboBox::OnFinishEdit()
{
    ++m_nEdit;
    EditWatch const watch(*this);
    if (m_bFilterList)
    {
        RestoreContents();
    }
    if (!watch.IsOver())
    {
        ForgetBackup();
    }
    return FALSE;
}

void CTavComboBox::ForgetBackup()
{
    if (m_nFilters > 0)
    {
        m_Walked.push_back(std::move(m_Backup));
    }
    SetCount(m_Backup, 0);
}

// Typing

BOOL CTavComboBox::OnEditUpdate()
{
    if (!m_bAutoComplete)
    {
        return FALSE;
    }
    if (m_Backup.IsEmpty())
    {
        BackupContents();
    }
    ++m_nEdit;
    Keystroke const key(*this);

    DVector<int> found(true);
    if (m_pFltrFunc != nullptr && !key.text.IsEmpty())
    {
        FilterCall const call(*this);
        m_pFltrFunc(this, DString(key.text), &m_Backup, &found);
    }
    if (key.watch.IsOver())
    {
        return FALSE;
    }
    if (HasMatch(found))
    {
        ShowMatches(key, found);
    }
    else
    {
        ShowAll(key);
    }
    return FALSE;
}

void CTavComboBox::ShowMatches(Keystroke const& key, DVector<int> const& found)
{
    m_bMatchesOnly = m_bFilterList;
    if (m_bFilterList && !InsertItems(found))
    {
        return;
    }
    if (!ShowList(key))
    {
        return;
    }
    // The parent may have turned the filter off as the list opened.
    bool const selected = SetCurSel(m_bMatchesOnly ? 0 : found[0]) != CB_ERR;
    if (key.watch.IsOver())
    {
        return;
    }
    // Selecting by message doesn't tell the parent.
    ::SendMessageA(::GetParent(m_hWnd), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), CBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(m_hWnd));
    if (key.watch.IsOver())
    {
        return;
    }
    // An entry that there isn't leaves the field empty: what was typed isn't lost to it.
    key.Finish(*this, selected ? AfterMatch(key.typed) : AfterNoMatch(key.typed));
}

void CTavComboBox::ShowAll(Keystroke const& key)
{
    if (GetCount() != m_Backup.GetCount())
    {
        RestoreContents();
        if (key.watch.IsOver())
        {
            return;
        }
    }
    EditChange const change = AfterNoMatch(key.typed);
    key.Finish(*this, change);
    if (ShowList(key))
    {
        key.Finish(*this, change); // the system completes a text on its own when the list opens, and selects all of it
    }
}

// False if the keystroke was overtaken.
bool CTavComboBox::ShowList(Keystroke const& key)
{
    ShowDropDown(TRUE);
    if (key.watch.IsOver())
    {
        return false;
    }
    if (m_bFilterList)
    {
        AdjustDroppedHeight(m_rcDropped);
    }
    return !key.watch.IsOver();
}

// The tool tip

CString CTavComboBox::GetCrntText()
{
    CString text;
    int const slct = GetCurSel();
    if (slct == CB_ERR)
    {
        GetWindowText(text);
    }
    else
    {
        GetLBText(slct, text);
    }
    return text;
}

bool CTavComboBox::TextFits(CString const& text)
{
    CRect size(0, 0, 0, 0);
    if (CDC* const dc = GetDC())
    {
        CFont* const font = GetFont();
        CFont* const oldFont = font != nullptr ? dc->SelectObject(font) : nullptr;
        dc->DrawText(text, size, DT_CALCRECT);
        if (oldFont != nullptr)
        {
            dc->SelectObject(oldFont);
        }
        ReleaseDC(dc);
    }
    return size.Width() < CRect(InfoOf(m_hWnd).rcItem).Width();
}

bool CTavComboBox::CreateToolTip()
{
    if (m_ToolTip.m_hWnd != nullptr)
    {
        return true;
    }
    if (!m_ToolTip.Create(this))
    {
        return false;
    }
    m_ToolTip.Activate(TRUE);
    m_ToolTip.SetDelayTime(TTDT_INITIAL, TipDelay);
    if (CWnd* const child = GetWindow(GW_CHILD))
    {
        m_ToolTip.AddTool(child, "");
    }
    else
    {
        CRect client;
        GetClientRect(client);
        m_ToolTip.AddTool(this, "", client, TipToolID);
    }
    return true;
}

void CTavComboBox::UpdateToolTip()
{
    if (!m_bToolTip)
    {
        return;
    }
    CString text = GetCrntText();
    if (text == m_strToolTip)
    {
        return;
    }
    if (TextFits(text))
    {
        text.Empty();
        if (m_strToolTip.IsEmpty())
        {
            return;
        }
    }
    if (!CreateToolTip())
    {
        return;
    }
    m_strToolTip = text;
    TOOLINFO tool{};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    // Without room for its text, which may be of any length, and which is replaced.
    m_ToolTip.SendMessage(TTM_ENUMTOOLS, 0, reinterpret_cast<LPARAM>(&tool));
    tool.lpszText = const_cast<LPTSTR>(m_strToolTip.GetString());
    m_ToolTip.SetToolInfo(&tool);
    m_ToolTip.Activate(TRUE);
}

int CTavComboBox::PreTranslateMessage(MSG* pMsg)
{
    if (m_ToolTip.m_hWnd != nullptr)
    {
        m_ToolTip.RelayEvent(pMsg);
    }
    if (pMsg->message == WM_KEYDOWN)
    {
        m_bDeleting = pMsg->wParam == VK_BACK || pMsg->wParam == VK_DELETE;
    }
    if (MayChangeTip(pMsg->message))
    {
        UpdateToolTip();
        if (!m_strToolTip.IsEmpty() && m_ToolTip.m_hWnd != nullptr && ::GetWindow(m_hWnd, GW_CHILD) != nullptr)
        {
            m_ToolTip.Update();
        }
    }
    return CComboBox::PreTranslateMessage(pMsg);
}

void CTavComboBox::OnMouseMove(UINT nFlags, CPoint point) { CComboBox::OnMouseMove(nFlags, point); }
