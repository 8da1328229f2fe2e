// MainFrame.h - the workbench's main window
#pragma once

#include "tavkit/frame/FloatEdit.h"
#include "tavkit/layout/DynamicWnd.h"
#include "workbench/FrameLayout.h"
#include "workbench/PictureInfo.h"
#include "workbench/PictureList.h"
#include "workbench/PictureView.h"
#include "workbench/Settings.h"

#include <afxwin.h>

#include <optional>
#include <string>

namespace workbench
{
/// Title of the main window.
inline constexpr char kTitle[] = "TavKit Workbench";

/// The main window: the pictures of a folder at the left, the chosen one beside them, and a field for the size of its
/// pixels beneath. Made with new; deletes itself with its window.
class MainFrame : public CFrameWnd, private cdxCDynamicWnd
{
public:
    /// @param profileSection  where settings are remembered; a literal
    explicit MainFrame(const char* profileSection);

    /// Creates the window with all its parts, not shown yet.
    /// @return FALSE when the system refuses; the object is gone then.
    BOOL CreateWindows();
    /// Shows the pictures of a folder, or a file among those of its folder.
    void OpenPath(const std::string& path);

    void RecalcLayout(BOOL notify = TRUE) override;
    BOOL PreTranslateMessage(MSG* message) override;

    /// Section of the profile that the settings dialog's place is in, for the settings of a section.
    [[nodiscard]] static CString SettingsPlace(const char* profileSection);

protected:
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnParentNotify(UINT message, LPARAM lParam);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* info);
    afx_msg void OnSetFocus(CWnd* old);
    afx_msg void OnSysColorChange();
    afx_msg void OnFileOpen();
    afx_msg void OnFileExit();
    afx_msg void OnEditDelete();
    afx_msg void OnEditSettings();
    afx_msg void OnViewNext();
    afx_msg void OnViewPrevious();
    afx_msg void OnViewScaleBar();
    afx_msg void OnViewReload();
    afx_msg void OnViewDetails();
    afx_msg void OnHelpAbout();
    afx_msg void OnGoPictures();
    afx_msg void OnGoPixelSize();
    afx_msg void OnUpdateDelete(CCmdUI* command);
    afx_msg void OnUpdateDetails(CCmdUI* command);
    afx_msg void OnUpdateNext(CCmdUI* command);
    afx_msg void OnUpdatePrevious(CCmdUI* command);
    afx_msg void OnUpdateScaleBar(CCmdUI* command);
    afx_msg void OnListSelection();
    afx_msg void OnListFocus();
    afx_msg void OnDetailsFocus();
    afx_msg void OnPixelSizeChange();
    afx_msg void OnPixelSizeFocus();
    DECLARE_MESSAGE_MAP()

private:
    __dynEntry const* __getDynMap(__dynEntry const* base) const override;
    [[nodiscard]] BOOL CreateParts();
    void Apply(const Settings& settings);
    [[nodiscard]] bool MayDelete(const std::string& name);
    void MeasureFont();
    void FillList(int selection);
    void Select(int index);
    void ShowSelection();
    void UpdateStatus();
    void SetStatus(int part, const std::string& text);
    [[nodiscard]] int StatusHeight() const;
    [[nodiscard]] std::string PixelSizeText() const;
    bool TakeKey(const MSG& message);
    bool TakeFieldKey(WPARAM key);
    bool TakeListKey(WPARAM key);

    const char* m_profileSection;
    Settings m_settings; // as they are in the profile
    CFont m_font;
    DialogUnits m_units;
    CStatic m_listLabel;
    CListBox m_list;
    PictureView m_view;
    CStatic m_pixelLabel;
    CFloatEdit m_pixelSize;
    CStatic m_pixelUnit;
    CWnd m_status;
    CWnd* m_focus = &m_list; // the part that had the focus last
    PictureList m_pictures;
    std::optional<PictureInfo> m_info; // of the picture shown
    std::string m_pixelSizeBefore;     // what Esc brings back
};
} // namespace workbench
