// SettingsDlg.h - the dialog in which the user sets what the workbench remembers
#pragma once

#include "tavkit/frame/FloatEdit.h"
#include "tavkit/layout/DynamicChildDlg.h"
#include "workbench/ColorButton.h"
#include "workbench/Settings.h"

namespace workbench
{
/// The fields of the settings dialog: a page that scrolls while the dialog is too low for it.
class SettingsPage : public cdxCDynamicChildDlg
{
public:
    /// @param settings  shown at first
    explicit SettingsPage(const Settings& settings);

    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* message) override;

    /// What the fields hold.
    [[nodiscard]] Settings Current() const;
    /// Gives the first field the focus and selects its text.
    void FocusFirst();

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    afx_msg void OnColor(UINT id);
    afx_msg void OnDefaultColors();
    DECLARE_MESSAGE_MAP()

private:
    void ShowColors();
    void BringIntoView(HWND field);

    Settings m_settings;
    CFloatEdit m_pixelSize;
    CStatic m_pixelUnit;
    ColorButton m_background;
    ColorButton m_bar;
    ColorButton m_plate;
    CButton m_ask;
};

/// The settings dialog. It remembers its place and can be made lower than its page.
class SettingsDlg : public cdxCDynamicDialog
{
public:
    /// @param place     name under which the dialog's place is remembered
    /// @param settings  shown at first
    SettingsDlg(CWnd* parent, const CString& place, const Settings& settings);

    BOOL OnInitDialog() override;
    void OnInitialized() override;
    void OnOK() override;

    /// What the user has set, once the dialog was closed by OK.
    [[nodiscard]] const Settings& Result() const { return m_result; }

private:
    SettingsPage m_page;
    Settings m_result;
};
} // namespace workbench
