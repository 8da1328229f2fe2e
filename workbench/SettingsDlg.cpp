#include "workbench/SettingsDlg.h"

#include "workbench/ScaleBar.h"
#include "workbench/resource.h"

#include <commdlg.h>

#include <array>

namespace workbench
{
namespace
{
constexpr int kPixelSizeChars = 12;
/// The part of the page that stays in view however low the dialog is made, in dialog units.
constexpr int kLowestPage = 60;
constexpr int kCustomColors = 16;

/// Colours that the user mixes in the system's dialog, until the program ends.
COLORREF* CustomColors()
{
    static std::array<COLORREF, kCustomColors> colors = [] {
        std::array<COLORREF, kCustomColors> white{};
        white.fill(RGB(0xFF, 0xFF, 0xFF));
        return white;
    }();
    return colors.data();
}

const CSize kNoMinimum(0, 0);
} // namespace

BEGIN_MESSAGE_MAP(SettingsPage, cdxCDynamicChildDlg)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_SETTINGS_BACKGROUND, IDC_SETTINGS_PLATE, OnColor)
    ON_BN_CLICKED(IDC_SETTINGS_DEFAULT_COLORS, OnDefaultColors)
END_MESSAGE_MAP()

SettingsPage::SettingsPage(const Settings& settings) : cdxCDynamicChildDlg(IDD_SETTINGS_PAGE), m_settings(settings) {}

void SettingsPage::DoDataExchange(CDataExchange* exchange)
{
    cdxCDynamicChildDlg::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_SETTINGS_PIXEL_SIZE, m_pixelSize);
    DDX_Control(exchange, IDC_SETTINGS_PIXEL_UNIT, m_pixelUnit);
    DDX_Control(exchange, IDC_SETTINGS_BACKGROUND, m_background);
    DDX_Control(exchange, IDC_SETTINGS_BAR, m_bar);
    DDX_Control(exchange, IDC_SETTINGS_PLATE, m_plate);
    DDX_Control(exchange, IDC_SETTINGS_ASK, m_ask);
}

BOOL SettingsPage::OnInitDialog()
{
    cdxCDynamicChildDlg::OnInitDialog();
    AllControls(TopLeft, false, false);
    for (const UINT group : {IDC_SETTINGS_PIXEL_GROUP, IDC_SETTINGS_COLOR_GROUP, IDC_SETTINGS_LIST_GROUP})
    {
        AddSzXControl(group, ModeStretch, kNoMinimum, true);
    }
    m_pixelSize.LimitText(kPixelSizeChars);
    m_pixelSize.SetWindowText(m_settings.pixelSize.c_str());
    m_pixelUnit.SetWindowText(kPixelUnit);
    m_ask.SetCheck(m_settings.askBeforeDelete ? BST_CHECKED : BST_UNCHECKED);
    ShowColors();
    return FALSE; // the dialog around it gives the focus
}

BOOL SettingsPage::PreTranslateMessage(MSG* message)
{
    // The dialog around the page looks after Tab, Enter and Esc for both.
    return CWnd::PreTranslateMessage(message);
}

Settings SettingsPage::Current() const
{
    Settings settings = m_settings;
    CString text;
    m_pixelSize.GetWindowText(text);
    settings.pixelSize = static_cast<LPCTSTR>(text);
    settings.askBeforeDelete = m_ask.GetCheck() == BST_CHECKED;
    return settings;
}

void SettingsPage::FocusFirst()
{
    m_pixelSize.SetFocus();
    m_pixelSize.SetSel(0, -1);
}

BOOL SettingsPage::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const UINT code = HIWORD(wParam);
    if (lParam != 0 && (code == EN_SETFOCUS || code == BN_SETFOCUS))
    {
        BringIntoView(reinterpret_cast<HWND>(lParam));
    }
    return cdxCDynamicChildDlg::OnCommand(wParam, lParam);
}

/// Scrolls until a field that got the focus can be seen.
void SettingsPage::BringIntoView(HWND field)
{
    CRect rect;
    ::GetWindowRect(field, rect);
    ScreenToClient(rect);
    CRect client;
    GetClientRect(client);
    int down = 0;
    if (rect.top < client.top)
    {
        down = rect.top - client.top;
    }
    else if (rect.bottom > client.bottom)
    {
        down = rect.bottom - client.bottom;
    }
    if (down != 0)
    {
        SetScrollPos(SB_VERT, GetScrollPos(SB_VERT) + down);
        Layout();
    }
}

void SettingsPage::ShowColors()
{
    const ViewColors& colors = m_settings.colors;
    m_background.SetColor(colors.background.value_or(::GetSysColor(COLOR_APPWORKSPACE)));
    m_bar.SetColor(colors.bar);
    m_plate.SetColor(colors.plate);
}

void SettingsPage::OnColor(UINT id)
{
    CHOOSECOLORA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = GetParent()->m_hWnd;
    dialog.lpCustColors = CustomColors();
    dialog.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
    const auto choose = [&](const ColorButton& button) {
        dialog.rgbResult = button.Color();
        return ::ChooseColorA(&dialog) != FALSE;
    };
    ViewColors& colors = m_settings.colors;
    if (id == IDC_SETTINGS_BACKGROUND && choose(m_background))
    {
        colors.background = dialog.rgbResult;
    }
    else if (id == IDC_SETTINGS_BAR && choose(m_bar))
    {
        colors.bar = dialog.rgbResult;
    }
    else if (id == IDC_SETTINGS_PLATE && choose(m_plate))
    {
        colors.plate = dialog.rgbResult;
    }
    ShowColors();
}

void SettingsPage::OnDefaultColors()
{
    m_settings.colors = ViewColors();
    ShowColors();
}

SettingsDlg::SettingsDlg(CWnd* parent, const CString& place, const Settings& settings)
    : cdxCDynamicDialog(IDD_SETTINGS, parent), m_page(settings), m_result(settings)
{
    ActivateAutoPos(place);
}

void SettingsDlg::OnInitialized()
{
    // Before the remembered place comes back, which may be as low as that.
    CWnd* const place = GetDlgItem(IDC_SETTINGS_PLACE);
    CRect page;
    place->GetWindowRect(page);
    CRect lowest(0, 0, 0, kLowestPage);
    MapDialogRect(lowest);
    m_szMin.cy -= page.Height() - lowest.Height();
    cdxCDynamicDialog::OnInitialized();
}

BOOL SettingsDlg::OnInitDialog()
{
    cdxCDynamicDialog::OnInitDialog();
    SetIcon(AfxGetApp()->LoadIcon(IDR_MAIN), FALSE);
    CWnd* const place = GetDlgItem(IDC_SETTINGS_PLACE);
    if (!m_page.Create(IDD_SETTINGS_PAGE, this))
    {
        EndDialog(IDCANCEL);
        return TRUE;
    }
    CRect rect;
    place->GetWindowRect(rect);
    ScreenToClient(rect);
    // Behind the place in the order of the Tab key, and so before the buttons.
    m_page.SetWindowPos(place, rect.left, rect.top, rect.Width(), rect.Height(), SWP_SHOWWINDOW);
    AddSzControl(m_page.m_hWnd, ModeStretch, ModeStretch, kNoMinimum, true);
    AddSzControl(UINT{IDOK}, ModeFollow, ModeFollow, kNoMinimum, true);
    AddSzControl(UINT{IDCANCEL}, ModeFollow, ModeFollow, kNoMinimum, true);
    m_page.FocusFirst();
    return FALSE;
}

void SettingsDlg::OnOK()
{
    m_result = m_page.Current();
    cdxCDynamicDialog::OnOK();
}
} // namespace workbench
