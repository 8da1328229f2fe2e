// MainFrame.h - the workbench's main window
#pragma once

#include "tavkit/frame/FloatEdit.h"
#include "tavkit/layout/DynamicWnd.h"
#include "workbench/FrameLayout.h"
#include "workbench/HistogramPane.h"
#include "workbench/LayerWindow.h"
#include "workbench/PictureInfo.h"
#include "workbench/PictureList.h"
#include "workbench/PictureListCtrl.h"
#include "workbench/PictureView.h"
#include "workbench/PlotPane.h"
#include "workbench/ProjectFile.h"
#include "workbench/ProjectPane.h"
#include "workbench/Settings.h"
#include "workbench/TablePane.h"

#include <afxwin.h>

#include <optional>
#include <string>
#include <string_view>

class FileDlg;

namespace workbench
{
class Formats;

/// Title of the main window.
inline constexpr char kTitle[] = "TavKit Workbench";

/// Posted by the window to itself: what went wrong in a notification is told when that is over.
inline constexpr UINT kTellProblem = WM_APP + 1;

/// The main window: at the left the project over a folder, and the pictures of the folder that the chosen item lies in,
/// the chosen picture beside them with a field for the size of its pixels, and a table of objects beneath, of which the
/// selected one is marked in the picture. Made with new; deletes itself with its window.
class MainFrame : public CFrameWnd, private cdxCDynamicWnd
{
public:
    /// @param profileSection  where settings are remembered; a literal
    /// @param formats         that the file dialogs offer; outlives the window
    MainFrame(const char* profileSection, Formats& formats);

    /// Creates the window with all its parts, not shown yet.
    /// @return FALSE when the system refuses; the object is gone then.
    BOOL CreateWindows();
    /// Shows the pictures of a folder, or a file among those of its folder. A table is opened, beside the picture that
    /// its name belongs to if there is one.
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
    afx_msg void OnFileOpenWorkspace();
    afx_msg void OnFileOpenProject();
    afx_msg void OnFileOpenFolder();
    afx_msg void OnFileImportImages();
    afx_msg void OnFileImportThematic();
    afx_msg void OnFileLoadTable();
    afx_msg void OnFileSaveContents();
    afx_msg void OnFileSaveProject();
    afx_msg void OnFileSaveWorkspace();
    afx_msg void OnUpdateHasProject(CCmdUI* command);
    void OnUpdateSaveContents(CCmdUI* command);
    afx_msg void OnFileExit();
    afx_msg void OnEditRename();
    afx_msg void OnEditDelete();
    afx_msg void OnEditSettings();
    afx_msg void OnViewNext();
    afx_msg void OnViewPrevious();
    afx_msg void OnViewScaleBar();
    afx_msg void OnViewLayers();
    afx_msg void OnViewReload();
    afx_msg void OnViewDetails();
    afx_msg void OnViewHistogram();
    afx_msg void OnViewPlot();
    afx_msg void OnHelpAbout();
    afx_msg void OnProjectCommand(UINT id);
    afx_msg void OnProjectFind();
    afx_msg void OnProjectFindNext();
    afx_msg void OnGoProject();
    afx_msg void OnGoPictures();
    afx_msg void OnGoPixelSize();
    afx_msg void OnGoTable();
    afx_msg void OnGoClass();
    afx_msg void OnUpdateHasPicture(CCmdUI* command);
    afx_msg void OnUpdateDetails(CCmdUI* command);
    afx_msg void OnUpdateNext(CCmdUI* command);
    afx_msg void OnUpdatePrevious(CCmdUI* command);
    afx_msg void OnUpdateScaleBar(CCmdUI* command);
    afx_msg void OnUpdateHistogram(CCmdUI* command);
    afx_msg void OnUpdatePlot(CCmdUI* command);
    afx_msg void OnHistogramChosen();
    afx_msg void OnPlotChosen();
    afx_msg void OnUpdateLayers(CCmdUI* command);
    afx_msg void OnUpdateProjectCommand(CCmdUI* command);
    afx_msg void OnLayerChosen();
    afx_msg void OnProjectChosen();
    afx_msg void OnProjectFocus();
    afx_msg void OnProjectUnread();
    afx_msg void OnProjectSearched();
    afx_msg void OnProjectFieldFocus();
    afx_msg void OnProjectMenu();
    afx_msg void OnListItemChanged(NMHDR* header, LRESULT* result);
    afx_msg void OnListNameEdited(NMHDR* header, LRESULT* result);
    afx_msg void OnListFocus(NMHDR* header, LRESULT* result);
    afx_msg void OnTablePlace();
    afx_msg void OnTableFocus();
    afx_msg LRESULT OnTellProblem(WPARAM wParam, LPARAM lParam);
    afx_msg void OnDetailsFocus();
    afx_msg void OnPixelSizeChange();
    afx_msg void OnPixelSizeFocus();
    DECLARE_MESSAGE_MAP()

private:
    __dynEntry const* __getDynMap(__dynEntry const* base) const override;
    [[nodiscard]] BOOL CreateParts();
    void Apply(const Settings& settings);
    [[nodiscard]] std::string TryProject(const ProjectContent& project);
    void ShowAsIn(const WorkspaceContent& workspace);
    [[nodiscard]] ProjectContent ProjectAsItIs();
    void Import(const FileDlg& dialog, unsigned int (*kindOf)(const std::string& moniker));
    bool AddToProject(const std::vector<repository::NodeRecord>& items);
    void OpenTable(const std::string& path);
    [[nodiscard]] std::string TryTable(const std::string& path);
    void TellLater(const std::string& problem);
    void ShowItem(const ProjectItem& item);
    void UpdateLayers();
    void ShowNoPicture(const std::string& message);
    void ListPictures(const std::string& folder, std::string_view name);
    [[nodiscard]] bool MayDelete(const std::string& name);
    void MeasureFont();
    void FillRows();
    void FillList(int selection);
    void Select(int index);
    void ShowCurrent();
    void UpdateMark();
    void UpdateHistogram();
    [[nodiscard]] std::string CurrentPath() const;
    void UpdateStatus();
    void SetStatus(int part, const std::string& text);
    /// Says something in the status bar until the next picture is shown.
    void ShowNotice(const std::string& text);
    [[nodiscard]] int StatusHeight() const;
    [[nodiscard]] std::string PixelSizeText() const;
    bool TakeKey(const MSG& message);
    bool TakeFieldKey(WPARAM key);
    bool TakeListKey(WPARAM key);

    const char* m_profileSection;
    Formats& m_formats;
    Settings m_settings; // as they are in the profile
    CFont m_font;
    DialogUnits m_units;
    ProjectPane m_project;
    LayerWindow m_layers; // made when it is first asked for
    CStatic m_listLabel;
    PictureListCtrl m_list;
    PictureView m_view;
    CStatic m_pixelLabel;
    CFloatEdit m_pixelSize;
    CStatic m_pixelUnit;
    TablePane m_table;
    HistogramPane m_histogram;
    PlotPane m_plot;
    CWnd m_status;
    CWnd* m_focus = &m_list; // the part that had the focus last
    PictureList m_pictures;
    int m_current = -1;                // the picture shown; -1 for none
    std::string m_page;                // a single page of it that is shown, as a moniker; empty for the file
    std::string m_pageName;            // its label
    std::string m_message;             // shown in place of a picture; empty for the list's own problem
    bool m_isProjectChoice = false;    // what is shown was chosen in the project
    bool m_isFilling = false;          // what the list tells meanwhile isn't the user's doing
    std::string m_measured;            // the picture that the table belongs to
    std::string m_readOnlyWorkspace;   // path of the one that was opened so; empty for none
    std::string m_problem;             // to be told when the notification under way is over
    std::optional<PictureInfo> m_info; // of the picture shown
    std::string m_pixelSizeBefore;     // what Esc brings back
};
} // namespace workbench
