#include "workbench/MainFrame.h"

#include "tavkit/drawing/DlgMsgDetails.h"
#include "tavkit/drawing/XMessageBox.h"
#include "workbench/AboutDlg.h"
#include "workbench/PictureNames.h"
#include "workbench/SettingsDlg.h"
#include "workbench/resource.h"

#include <commdlg.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace workbench
{
namespace
{
constexpr int kFontTenths = 80;
constexpr char kFontFace[] = "MS Shell Dlg";
constexpr int kPixelSizeChars = 12;

/// Size of the window at the first start, and the part of the work area that it may take.
constexpr CSize kStartUnits{480, 330}; // dialog units
constexpr int kWorkAreaPercent = 90;

/// Parts of the status bar and their widths in dialog units; the first takes the rest.
enum StatusPart
{
    statusName,
    statusSize,
    statusType,
    statusZoom,
    statusParts
};
constexpr std::array<int, statusParts> kStatusUnits{0, 80, 90, 48};

CRect StartRect(const DialogUnits& units)
{
    CRect work;
    ::SystemParametersInfoA(SPI_GETWORKAREA, 0, static_cast<LPRECT>(work), 0);
    const int width = std::min(units.X(kStartUnits.cx), work.Width() * kWorkAreaPercent / 100);
    const int height = std::min(units.Y(kStartUnits.cy), work.Height() * kWorkAreaPercent / 100);
    const CPoint origin(work.left + (work.Width() - width) / 2, work.top + (work.Height() - height) / 2);
    return {origin, CSize(width, height)};
}
} // namespace

BEGIN_MESSAGE_MAP(MainFrame, CFrameWnd)
    ON_WM_DESTROY()        // its parts are no longer placed
    ON_WM_SIZE()           // places its parts
    ON_WM_PARENTNOTIFY()   // a part goes away
    ON_WM_GETMINMAXINFO()  // no smaller than its parts need
    ON_WM_SETFOCUS()       // goes on to the part that had it last
    ON_WM_SYSCOLORCHANGE() // only top-level windows are told
    ON_COMMAND(IDM_FILE_OPEN, OnFileOpen)
    ON_COMMAND(IDM_FILE_EXIT, OnFileExit)
    ON_COMMAND(IDM_EDIT_DELETE, OnEditDelete)
    ON_COMMAND(IDM_EDIT_SETTINGS, OnEditSettings)
    ON_COMMAND(IDM_VIEW_NEXT, OnViewNext)
    ON_COMMAND(IDM_VIEW_PREVIOUS, OnViewPrevious)
    ON_COMMAND(IDM_VIEW_SCALE_BAR, OnViewScaleBar)
    ON_COMMAND(IDM_VIEW_RELOAD, OnViewReload)
    ON_COMMAND(IDM_VIEW_DETAILS, OnViewDetails)
    ON_COMMAND(IDM_HELP_ABOUT, OnHelpAbout)
    ON_COMMAND(IDM_GO_PICTURES, OnGoPictures) // the labels' letters, which only dialogs look after themselves
    ON_COMMAND(IDM_GO_PIXEL_SIZE, OnGoPixelSize)
    ON_UPDATE_COMMAND_UI(IDM_EDIT_DELETE, OnUpdateDelete)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_DETAILS, OnUpdateDetails)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_NEXT, OnUpdateNext)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_PREVIOUS, OnUpdatePrevious)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_SCALE_BAR, OnUpdateScaleBar)
    ON_LBN_SELCHANGE(IDC_PICTURE_LIST, OnListSelection)
    ON_CONTROL(LBN_SETFOCUS, IDC_PICTURE_LIST, OnListFocus)
    ON_BN_CLICKED(IDC_PICTURE_DETAILS, OnViewDetails)
    ON_CONTROL(BN_SETFOCUS, IDC_PICTURE_DETAILS, OnDetailsFocus)
    ON_EN_CHANGE(IDC_PIXEL_SIZE, OnPixelSizeChange)
    ON_CONTROL(EN_SETFOCUS, IDC_PIXEL_SIZE, OnPixelSizeFocus)
END_MESSAGE_MAP()

MainFrame::MainFrame(const char* profileSection)
    : cdxCDynamicWnd(FreedomXY, FlagCopyBits), m_profileSection(profileSection)
{
}

cdxCDynamicWnd::__dynEntry const* MainFrame::__getDynMap(__dynEntry const*) const
{
    constexpr int kModes = 2;
    constexpr int kEnd = 0;
    static constexpr __dynEntry kParts[]{
        {kModes, IDC_PICTURE_LABEL, ModeStay, ModeStay, 0, 0},
        {kModes, IDC_PICTURE_LIST, ModeStay, ModeStretch, 0, 0},
        {kModes, IDC_PICTURE_VIEW, ModeStretch, ModeStretch, 0, 0},
        {kModes, IDC_PIXEL_LABEL, ModeStay, ModeFollow, 0, 0},
        {kModes, IDC_PIXEL_SIZE, ModeStay, ModeFollow, 0, 0},
        {kModes, IDC_PIXEL_UNIT, ModeStay, ModeFollow, 0, 0},
        {kEnd, 0, 0, 0, 0, 0},
    };
    return kParts;
}

CString MainFrame::SettingsPlace(const char* profileSection) { return CString(profileSection) + " Settings"; }

BOOL MainFrame::CreateWindows()
{
    MeasureFont();
    const LPCTSTR windowClass = AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW),
                                                    reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_3DFACE + 1)),
                                                    AfxGetApp()->LoadIcon(IDR_MAIN));
    if (!Create(windowClass, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, StartRect(m_units), nullptr,
                MAKEINTRESOURCEA(IDR_MAIN)))
    {
        return FALSE;
    }
    if (!LoadAccelTable(MAKEINTRESOURCEA(IDR_MAIN)) || !CreateParts())
    {
        DestroyWindow();
        return FALSE;
    }
    const CSize design(DesignFrame(m_units).client);
    DoInitWindow(*this, design + CSize(0, StatusHeight()));
    RecalcLayout();
    Apply(ReadSettings(m_profileSection));
    return TRUE;
}

BOOL MainFrame::CreateParts()
{
    const FrameLayout place = DesignFrame(m_units);
    constexpr DWORD kPart = WS_CHILD | WS_VISIBLE;
    // The order is that of the Tab key; a label stands before what its mnemonic leads to.
    if (!m_listLabel.Create("Pi&ctures:", kPart, place.listLabel, this, IDC_PICTURE_LABEL) ||
        !m_list.CreateEx(WS_EX_CLIENTEDGE, "LISTBOX", "",
                         kPart | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, place.list,
                         this, IDC_PICTURE_LIST) ||
        !m_view.Create(place.view, this, IDC_PICTURE_VIEW, &m_font) ||
        !m_pixelLabel.Create("&Pixel size:", kPart, place.pixelLabel, this, IDC_PIXEL_LABEL) ||
        !m_pixelSize.CreateEx(WS_EX_CLIENTEDGE, "EDIT", "", kPart | WS_TABSTOP | ES_AUTOHSCROLL | ES_RIGHT,
                              place.pixelSize, this, IDC_PIXEL_SIZE) ||
        !m_pixelUnit.Create(kPixelUnit, kPart, place.pixelUnit, this, IDC_PIXEL_UNIT) ||
        !m_status.CreateEx(0, STATUSCLASSNAMEA, "", kPart | SBARS_SIZEGRIP, CRect(0, 0, 0, 0), this, IDC_STATUS_BAR))
    {
        return FALSE;
    }
    for (CWnd* part :
         std::initializer_list<CWnd*>{&m_listLabel, &m_list, &m_pixelLabel, &m_pixelSize, &m_pixelUnit, &m_status})
    {
        part->SetFont(&m_font, FALSE);
    }
    m_pixelSize.LimitText(kPixelSizeChars);
    return TRUE;
}

/// Takes over what the profile holds already.
void MainFrame::Apply(const Settings& settings)
{
    m_settings = settings;
    m_view.SetColors(settings.colors);
    if (settings.pixelSize != PixelSizeText())
    {
        m_pixelSize.SetWindowText(settings.pixelSize.c_str()); // which tells the view
    }
}

void MainFrame::MeasureFont()
{
    m_font.CreatePointFont(kFontTenths, kFontFace);
    CClientDC dc(nullptr);
    const SelectScope scope(dc, m_font);
    // The average that dialogs use too.
    constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int kCount = sizeof kLetters - 1;
    const CSize extent = dc.GetTextExtent(kLetters, kCount);
    m_units = {(extent.cx / (kCount / 2) + 1) / 2, extent.cy};
}

void MainFrame::OpenPath(const std::string& path)
{
    m_pictures.Load(path);
    FillList(std::max(0, m_pictures.Asked()));
}

void MainFrame::FillList(int selection)
{
    m_list.SetRedraw(FALSE);
    m_list.ResetContent();
    int widest = 0;
    {
        CClientDC dc(&m_list);
        const SelectScope scope(dc, m_font);
        for (const auto& name : m_pictures.Names())
        {
            m_list.AddString(name.c_str());
            widest = std::max<int>(widest, dc.GetTextExtent(name.c_str(), static_cast<int>(name.size())).cx);
        }
    }
    constexpr int kTextMargin = 2; // dialog units at both sides of a line
    m_list.SendMessage(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest + m_units.X(kTextMargin)));
    m_list.SetRedraw(TRUE);
    m_list.Invalidate();
    Select(selection);
}

void MainFrame::Select(int index)
{
    if (index >= 0 && index < m_list.GetCount())
    {
        m_list.SetCurSel(index); // a program's choice isn't notified
    }
    ShowSelection();
}

void MainFrame::ShowSelection()
{
    const CWaitCursor wait;
    m_info.reset();
    const int index = m_list.GetCurSel();
    if (index == LB_ERR)
    {
        m_view.ShowMessage(m_pictures.Problem(), false);
    }
    else
    {
        const auto place = static_cast<size_t>(index);
        const std::string path = m_pictures.PathOf(place);
        m_info = ReadPictureInfo(path);
        if (m_info)
        {
            m_view.ShowPicture(path, m_info->size);
        }
        else
        {
            m_view.ShowMessage("\"" + m_pictures.Names()[place] + "\" can't be read.", true);
        }
    }
    UpdateStatus();
}

void MainFrame::UpdateStatus()
{
    const int index = m_list.GetCurSel();
    SetStatus(statusName, index == LB_ERR ? m_pictures.Folder() : m_pictures.Names()[static_cast<size_t>(index)]);
    if (!m_info || !m_view.HasPicture())
    {
        SetStatus(statusSize, "");
        SetStatus(statusType, index == LB_ERR ? "" : "Not readable");
        SetStatus(statusZoom, "");
        return;
    }
    constexpr double kPercent = 100;
    SetStatus(statusSize, SizeText(*m_info));
    SetStatus(statusType, TypeText(*m_info));
    SetStatus(statusZoom, std::to_string(std::lround(m_view.Zoom() * kPercent)) + " %");
}

void MainFrame::SetStatus(int part, const std::string& text)
{
    m_status.SendMessage(SB_SETTEXTA, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(text.c_str()));
}

int MainFrame::StatusHeight() const
{
    CRect rect;
    m_status.GetWindowRect(rect);
    return rect.Height();
}

void MainFrame::RecalcLayout(BOOL)
{
    if (m_status.GetSafeHwnd() == nullptr || IsIconic())
    {
        return; // still being made, or nothing to be seen
    }
    CRect client;
    GetClientRect(client);
    m_status.SendMessage(WM_SIZE); // it places itself
    std::array<int, statusParts> edges{};
    int edge = client.right;
    for (int part = statusParts - 1; part >= 0; --part)
    {
        edges[static_cast<size_t>(part)] = edge;
        edge -= m_units.X(kStatusUnits[static_cast<size_t>(part)]);
    }
    edges.back() = -1; // to the very end
    m_status.SendMessage(SB_SETPARTS, statusParts, reinterpret_cast<LPARAM>(edges.data()));
}

BOOL MainFrame::PreTranslateMessage(MSG* message)
{
    return TakeKey(*message) || CFrameWnd::PreTranslateMessage(message) || PreTranslateInput(message);
}

bool MainFrame::TakeKey(const MSG& message)
{
    if (message.message != WM_KEYDOWN || ::GetKeyState(VK_CONTROL) < 0 || ::GetKeyState(VK_SHIFT) < 0)
    {
        return false;
    }
    if (message.hwnd == m_pixelSize.GetSafeHwnd())
    {
        return TakeFieldKey(message.wParam);
    }
    if (message.hwnd == m_list.GetSafeHwnd())
    {
        return TakeListKey(message.wParam);
    }
    if (message.hwnd == m_view.DetailsButton().GetSafeHwnd() && message.wParam == VK_RETURN)
    {
        OnViewDetails();
        return true;
    }
    return false;
}

/// In the field Enter is done with it and Esc takes back what was typed; both return to the list.
bool MainFrame::TakeFieldKey(WPARAM key)
{
    if (key != VK_RETURN && key != VK_ESCAPE)
    {
        return false;
    }
    if (key == VK_ESCAPE)
    {
        m_pixelSize.SetWindowText(m_pixelSizeBefore.c_str());
    }
    m_list.SetFocus();
    return true;
}

/// Del and Enter mean the chosen picture only where it is chosen, so they are no accelerators.
bool MainFrame::TakeListKey(WPARAM key)
{
    if (key == VK_DELETE)
    {
        OnEditDelete();
        return true;
    }
    if (key == VK_RETURN)
    {
        OnViewDetails();
        return true;
    }
    return false;
}

void MainFrame::OnDestroy()
{
    DoOnDestroy();
    CFrameWnd::OnDestroy();
}

void MainFrame::OnSize(UINT type, int width, int height)
{
    CFrameWnd::OnSize(type, width, height); // the status bar
    DoOnSize(type, width, height);
    if (IsUp())
    {
        UpdateStatus(); // another zoom
    }
}

void MainFrame::OnParentNotify(UINT message, LPARAM lParam)
{
    CFrameWnd::OnParentNotify(message, lParam);
    DoOnParentNotify(message, lParam);
}

void MainFrame::OnGetMinMaxInfo(MINMAXINFO* info)
{
    Default();
    DoOnGetMinMaxInfo(info);
}

void MainFrame::OnSetFocus(CWnd*)
{
    if (m_focus->GetSafeHwnd() != nullptr)
    {
        m_focus = m_focus->IsWindowVisible() || !IsWindowVisible() ? m_focus : &m_list; // the button comes and goes
        m_focus->SetFocus();
    }
}

void MainFrame::OnSysColorChange()
{
    CFrameWnd::OnSysColorChange();
    SendMessageToDescendants(WM_SYSCOLORCHANGE);
}

void MainFrame::OnFileOpen()
{
    const std::string filter = PictureFilter();
    std::vector<char> path(MAX_PATH);
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = m_hWnd;
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrInitialDir = m_pictures.Folder().c_str();
    dialog.lpstrTitle = "Open Picture";
    dialog.Flags =
        OFN_EXPLORER | OFN_ENABLESIZING | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (::GetOpenFileNameA(&dialog))
    {
        OpenPath(path.data());
    }
    else if (const DWORD error = ::CommDlgExtendedError(); error != 0)
    {
        const std::string text = "The dialog for opening a picture failed (error " + std::to_string(error) + ").";
        AfxMessageBox(text.c_str(), MB_OK | MB_ICONEXCLAMATION);
    }
}

void MainFrame::OnFileExit() { PostMessage(WM_CLOSE); }

void MainFrame::OnEditDelete()
{
    const int index = m_list.GetCurSel();
    if (index == LB_ERR || !MayDelete(m_pictures.Names()[static_cast<size_t>(index)]))
    {
        return;
    }
    m_pictures.Remove(static_cast<size_t>(index));
    FillList(std::min(index, static_cast<int>(m_pictures.Names().size()) - 1));
}

/// Asks, unless the user has said that it isn't needed. A "No" is never remembered: nothing could be deleted any more.
bool MainFrame::MayDelete(const std::string& name)
{
    if (!m_settings.askBeforeDelete)
    {
        return true;
    }
    std::string shown; // the box takes a single "&" for the mark of a letter
    for (const char c : name)
    {
        shown.append(c == '&' ? 2 : 1, c);
    }
    const std::string text =
        "Delete \"" + shown + "\" from the list?\n\nThe file itself stays as it is. F5 brings it back into the list.";
    const auto answer = static_cast<unsigned>(
        XMessageBox(m_hWnd, text.c_str(), kTitle, MB_YESNO | MB_ICONQUESTION | MB_DONOTASKAGAIN, nullptr, 0));
    if ((answer & ~MB_DONOTASKAGAIN) != IDYES)
    {
        return false;
    }
    if ((answer & MB_DONOTASKAGAIN) != 0)
    {
        Settings settings = m_settings;
        settings.askBeforeDelete = false;
        WriteSettings(m_profileSection, m_settings, settings);
        Apply(settings);
    }
    return true;
}

void MainFrame::OnEditSettings()
{
    SettingsDlg dialog(this, SettingsPlace(m_profileSection), m_settings);
    if (dialog.DoModal() == IDOK)
    {
        WriteSettings(m_profileSection, m_settings, dialog.Result());
        Apply(dialog.Result());
    }
}

void MainFrame::OnViewNext() { Select(m_list.GetCurSel() + 1); }

void MainFrame::OnViewPrevious() { Select(m_list.GetCurSel() - 1); }

void MainFrame::OnViewScaleBar() { m_view.ShowScaleBar(!m_view.IsScaleBarShown()); }

void MainFrame::OnViewReload()
{
    const int index = m_list.GetCurSel();
    const std::string name = index == LB_ERR ? "" : m_pictures.Names()[static_cast<size_t>(index)];
    m_pictures.Reload();
    const int found = IndexOfName(m_pictures.Names(), name);
    const int last = static_cast<int>(m_pictures.Names().size()) - 1;
    FillList(found >= 0 ? found : std::clamp(index, 0, std::max(0, last)));
}

void MainFrame::OnViewDetails()
{
    const int index = m_list.GetCurSel();
    if (index == LB_ERR || !m_view.OffersDetails())
    {
        return;
    }
    std::string details;
    {
        const CWaitCursor wait;
        details = DescribeFailure(m_pictures.PathOf(static_cast<size_t>(index)));
    }
    DlgMsgDetails(kTitle, m_view.Message().c_str(), details.c_str(), this).DoModal();
}

void MainFrame::OnHelpAbout() { AboutDlg(this).DoModal(); }

void MainFrame::OnGoPictures() { m_list.SetFocus(); }

void MainFrame::OnGoPixelSize()
{
    m_pixelSize.SetFocus();
    m_pixelSize.SetSel(0, -1);
}

void MainFrame::OnUpdateDelete(CCmdUI* command) { command->Enable(m_list.GetCurSel() != LB_ERR); }

void MainFrame::OnUpdateDetails(CCmdUI* command) { command->Enable(m_view.OffersDetails()); }

void MainFrame::OnUpdateNext(CCmdUI* command) { command->Enable(m_list.GetCurSel() + 1 < m_list.GetCount()); }

void MainFrame::OnUpdatePrevious(CCmdUI* command) { command->Enable(m_list.GetCurSel() > 0); }

void MainFrame::OnUpdateScaleBar(CCmdUI* command) { command->SetCheck(m_view.IsScaleBarShown() ? 1 : 0); }

void MainFrame::OnListSelection() { ShowSelection(); }

void MainFrame::OnListFocus() { m_focus = &m_list; }

void MainFrame::OnDetailsFocus() { m_focus = &m_view.DetailsButton(); }

void MainFrame::OnPixelSizeChange()
{
    Settings settings = m_settings;
    settings.pixelSize = PixelSizeText();
    m_view.SetPixelSize(ParsePixelSize(settings.pixelSize));
    WriteSettings(m_profileSection, m_settings, settings);
    m_settings = settings;
}

void MainFrame::OnPixelSizeFocus()
{
    if (m_focus != &m_pixelSize) // and not back from another program
    {
        m_focus = &m_pixelSize;
        m_pixelSizeBefore = PixelSizeText();
    }
}

std::string MainFrame::PixelSizeText() const
{
    CString text;
    m_pixelSize.GetWindowText(text);
    return static_cast<LPCTSTR>(text);
}
} // namespace workbench
