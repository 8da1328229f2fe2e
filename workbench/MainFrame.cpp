#include "workbench/MainFrame.h"

#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/DFile.h"
#include "workbench/PictureNames.h"
#include "workbench/resource.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace workbench
{
namespace
{
constexpr int kFontTenths = 80;
constexpr char kFontFace[] = "MS Shell Dlg";
constexpr int kPixelSizeChars = 12;

/// Size of the window at the first start, and the part of the work area that it may take.
constexpr CSize kStartUnits{540, 400}; // dialog units
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

/// Parts don't keep their pixels when they are moved: one platform copies them from where another part was moved to.
constexpr UINT kNoFlags = 0;

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
    ON_COMMAND(IDM_FILE_OPEN_WORKSPACE, OnFileOpenWorkspace)
    ON_COMMAND(IDM_FILE_OPEN_PROJECT, OnFileOpenProject)
    ON_COMMAND(IDM_FILE_OPEN_FOLDER, OnFileOpenFolder)
    ON_COMMAND(IDM_FILE_IMPORT_IMAGES, OnFileImportImages)
    ON_COMMAND(IDM_FILE_IMPORT_THEMATIC, OnFileImportThematic)
    ON_COMMAND(IDM_FILE_LOAD_TABLE, OnFileLoadTable)
    ON_COMMAND(IDM_FILE_SAVE_CONTENTS, OnFileSaveContents)
    ON_COMMAND(IDM_FILE_SAVE_PROJECT, OnFileSaveProject)
    ON_COMMAND(IDM_FILE_SAVE_WORKSPACE, OnFileSaveWorkspace)
    ON_COMMAND(IDM_FILE_EXIT, OnFileExit)
    ON_COMMAND(IDM_EDIT_RENAME, OnEditRename)
    ON_COMMAND(IDM_EDIT_DELETE, OnEditDelete)
    ON_COMMAND(IDM_EDIT_SETTINGS, OnEditSettings)
    ON_COMMAND(IDM_VIEW_NEXT, OnViewNext)
    ON_COMMAND(IDM_VIEW_PREVIOUS, OnViewPrevious)
    ON_COMMAND(IDM_VIEW_SCALE_BAR, OnViewScaleBar)
    ON_COMMAND(IDM_VIEW_LAYERS, OnViewLayers)
    ON_COMMAND(IDM_VIEW_RELOAD, OnViewReload)
    ON_COMMAND(IDM_VIEW_DETAILS, OnViewDetails)
    ON_COMMAND(IDM_VIEW_HISTOGRAM, OnViewHistogram)
    ON_COMMAND(IDM_VIEW_PLOT, OnViewPlot)
    ON_COMMAND(IDM_HELP_ABOUT, OnHelpAbout)
    ON_COMMAND_RANGE(IDM_PROJECT_NEW_GROUP, IDM_PROJECT_REMOVE, OnProjectCommand)
    ON_COMMAND(IDM_PROJECT_FIND, OnProjectFind)
    ON_COMMAND(IDM_PROJECT_FIND_NEXT, OnProjectFindNext)
    ON_COMMAND(IDM_GO_PROJECT, OnGoProject)
    ON_COMMAND(IDM_GO_PICTURES, OnGoPictures) // the labels' letters, which only dialogs look after themselves
    ON_COMMAND(IDM_GO_PIXEL_SIZE, OnGoPixelSize)
    ON_COMMAND(IDM_GO_TABLE, OnGoTable)
    ON_COMMAND(IDM_GO_CLASS, OnGoClass)
    ON_UPDATE_COMMAND_UI(IDM_FILE_SAVE_PROJECT, OnUpdateHasProject)
    ON_UPDATE_COMMAND_UI(IDM_FILE_SAVE_WORKSPACE, OnUpdateHasProject)
    ON_UPDATE_COMMAND_UI(IDM_FILE_SAVE_CONTENTS, OnUpdateSaveContents)
    ON_UPDATE_COMMAND_UI(IDM_EDIT_RENAME, OnUpdateHasPicture)
    ON_UPDATE_COMMAND_UI(IDM_EDIT_DELETE, OnUpdateHasPicture)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_DETAILS, OnUpdateDetails)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_NEXT, OnUpdateNext)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_PREVIOUS, OnUpdatePrevious)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_SCALE_BAR, OnUpdateScaleBar)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_HISTOGRAM, OnUpdateHistogram)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_PLOT, OnUpdatePlot)
    ON_UPDATE_COMMAND_UI(IDM_VIEW_LAYERS, OnUpdateLayers)
    ON_UPDATE_COMMAND_UI_RANGE(IDM_PROJECT_NEW_GROUP, IDM_PROJECT_REMOVE, OnUpdateProjectCommand)
    ON_CONTROL(layerChosen, IDC_LAYER_WINDOW, OnLayerChosen)
    ON_CONTROL(projectChosen, IDC_PROJECT_PANE, OnProjectChosen)
    ON_CONTROL(projectChanged, IDC_PROJECT_PANE, OnProjectChosen) // hidden, or under another label
    ON_CONTROL(projectFocus, IDC_PROJECT_PANE, OnProjectFocus)
    ON_CONTROL(projectUnread, IDC_PROJECT_PANE, OnProjectUnread)
    ON_CONTROL(projectSearched, IDC_PROJECT_PANE, OnProjectSearched)
    ON_CONTROL(projectFieldFocus, IDC_PROJECT_PANE, OnProjectFieldFocus)
    ON_CONTROL(projectMenu, IDC_PROJECT_PANE, OnProjectMenu)
    ON_NOTIFY(LVN_ITEMCHANGED, IDC_PICTURE_LIST, OnListItemChanged) // another picture is selected
    ON_NOTIFY(LVN_ENDLABELEDIT, IDC_PICTURE_LIST, OnListNameEdited) // a picture gets another name
    ON_NOTIFY(NM_SETFOCUS, IDC_PICTURE_LIST, OnListFocus)
    ON_CONTROL(tablePlaceChanged, IDC_TABLE_PANE, OnTablePlace) // another object is selected
    ON_CONTROL(tableFocus, IDC_TABLE_PANE, OnTableFocus)
    ON_CONTROL(histogramChosen, IDC_HISTOGRAM_PANE, OnHistogramChosen)
    ON_CONTROL(plotChosen, IDC_PLOT_PANE, OnPlotChosen)
    ON_MESSAGE(kTellProblem, OnTellProblem)
    ON_BN_CLICKED(IDC_PICTURE_DETAILS, OnViewDetails)
    ON_CONTROL(BN_SETFOCUS, IDC_PICTURE_DETAILS, OnDetailsFocus)
    ON_EN_CHANGE(IDC_PIXEL_SIZE, OnPixelSizeChange)
    ON_CONTROL(EN_SETFOCUS, IDC_PIXEL_SIZE, OnPixelSizeFocus)
END_MESSAGE_MAP()

MainFrame::MainFrame(const char* profileSection, Formats& formats)
    : cdxCDynamicWnd(FreedomXY, kNoFlags), m_profileSection(profileSection), m_formats(formats)
{
}

cdxCDynamicWnd::__dynEntry const* MainFrame::__getDynMap(__dynEntry const*) const
{
    constexpr int kPercent = 1;
    constexpr int kEnd = 0;
    constexpr signed char kAll = 100;
    static constexpr __dynEntry kParts[]{
        {kPercent, IDC_PROJECT_PANE, 0, 0, 0, kProjectPercent},
        {kPercent, IDC_PICTURE_LABEL, 0, kProjectPercent, 0, kProjectPercent},
        {kPercent, IDC_PICTURE_LIST, 0, kProjectPercent, 0, kViewPercent},
        {kPercent, IDC_PICTURE_VIEW, 0, 0, kAll, kViewPercent},
        {kPercent, IDC_PIXEL_LABEL, 0, kViewPercent, 0, kViewPercent},
        {kPercent, IDC_PIXEL_SIZE, 0, kViewPercent, 0, kViewPercent},
        {kPercent, IDC_PIXEL_UNIT, 0, kViewPercent, 0, kViewPercent},
        {kPercent, IDC_TABLE_PANE, 0, kViewPercent, kAll, kAll},
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
    if (!m_project.Create(place.project, this, IDC_PROJECT_PANE, &m_font, m_units) ||
        !m_listLabel.Create("Pi&ctures:", kPart, place.listLabel, this, IDC_PICTURE_LABEL) ||
        !m_list.Create(place.list, this, IDC_PICTURE_LIST, &m_font) ||
        !m_view.Create(place.view, this, IDC_PICTURE_VIEW, &m_font) ||
        !m_pixelLabel.Create("&Pixel size:", kPart, place.pixelLabel, this, IDC_PIXEL_LABEL) ||
        !m_pixelSize.CreateEx(WS_EX_CLIENTEDGE, "EDIT", "", kPart | WS_TABSTOP | ES_AUTOHSCROLL | ES_RIGHT,
                              place.pixelSize, this, IDC_PIXEL_SIZE) ||
        !m_pixelUnit.Create(kPixelUnit, kPart, place.pixelUnit, this, IDC_PIXEL_UNIT) ||
        !m_table.Create(place.table, this, IDC_TABLE_PANE, &m_font, m_units) ||
        !m_histogram.Create(this, IDC_HISTOGRAM_PANE, &m_font, m_units) ||
        !m_plot.Create(this, IDC_PLOT_PANE, &m_font, m_units) ||
        !m_status.CreateEx(0, STATUSCLASSNAMEA, "", kPart | SBARS_SIZEGRIP, CRect(0, 0, 0, 0), this, IDC_STATUS_BAR))
    {
        return FALSE;
    }
    for (CWnd* part : std::initializer_list<CWnd*>{&m_listLabel, &m_pixelLabel, &m_pixelSize, &m_pixelUnit, &m_status})
    {
        part->SetFont(&m_font, FALSE);
    }
    m_pixelSize.LimitText(kPixelSizeChars);
    m_list.ReadWidths(m_profileSection);
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

void MainFrame::OpenPath(const std::string& asked)
{
    const std::string path = MakeAbsolute(asked); // a file dialog changes the current folder
    const DFile file(path.c_str());
    if (IsTableName(file.GetPhysFileName().c_str()))
    {
        const DString folder = file.GetPhysFilePath();
        m_pictures.Load(folder.IsEmpty() ? "." : folder.c_str());
        m_project.Tree().OpenFolder(m_pictures.Folder());
        UpdateLayers();
        FillList(0);
        OpenTable(path);
        return;
    }
    m_pictures.Load(path);
    m_project.Tree().OpenFolder(m_pictures.Folder());
    UpdateLayers();
    FillList(std::max(0, m_pictures.Asked()));
}

void MainFrame::OpenTable(const std::string& path)
{
    if (const std::string problem = TryTable(path); !problem.empty())
    {
        AfxMessageBox(problem.c_str(), MB_OK | MB_ICONEXCLAMATION);
    }
}

/// Opens a table, beside the picture that its name belongs to if there is one. @return why that can't be done
std::string MainFrame::TryTable(const std::string& path)
{
    std::string problem = m_table.OpenTable(path);
    if (!problem.empty())
    {
        return problem;
    }
    const int picture = PictureOfTable(m_pictures.Names(), StripPath(path.c_str()).c_str());
    if (picture >= 0 && picture != m_current)
    {
        Select(picture);
    }
    m_measured = CurrentPath();
    UpdateMark();
    m_plot.ShowTable(path);
    return problem;
}

void MainFrame::FillRows()
{
    if (m_list.IsChild(GetFocus()))
    {
        m_list.SetFocus(); // ends the editing of a name
    }
    m_isFilling = true;
    m_list.Fill(m_pictures);
    m_isFilling = false;
    m_current = -1;
    m_page.clear();
    m_message.clear();
}

void MainFrame::FillList(int selection)
{
    FillRows();
    Select(selection);
}

void MainFrame::Select(int index)
{
    if (index >= 0 && index < static_cast<int>(m_pictures.Names().size()))
    {
        m_isFilling = true;
        m_list.Select(index);
        m_isFilling = false;
        m_current = index;
        m_page.clear();
    }
    ShowCurrent();
}

std::string MainFrame::CurrentPath() const
{
    return m_current < 0 ? std::string() : m_page.empty() ? m_pictures.PathOf(static_cast<size_t>(m_current)) : m_page;
}

void MainFrame::ShowCurrent()
{
    const CWaitCursor wait;
    m_info.reset();
    if (m_current < 0)
    {
        m_view.ShowMessage(m_message.empty() ? m_pictures.Problem() : m_message, false);
    }
    else
    {
        const std::string path = CurrentPath();
        m_info = ReadPictureInfo(path);
        if (m_info)
        {
            m_view.ShowPicture(path, m_info->size);
        }
        else
        {
            m_view.ShowMessage("\"" + m_pictures.Names()[static_cast<size_t>(m_current)] + "\" can't be read.", true);
            m_list.ShowUnreadable(m_current);
        }
        if (!m_isProjectChoice)
        {
            m_project.Tree().ChooseMoniker(path);
        }
    }
    UpdateMark();
    UpdateHistogram();
    UpdateStatus();
}

/// The places of a table are those of the picture that it was opened beside.
void MainFrame::UpdateMark()
{
    m_view.SetMark(m_current >= 0 && CurrentPath() == m_measured ? m_table.Place() : std::nullopt);
}

void MainFrame::UpdateStatus()
{
    const std::string name = m_current < 0 ? m_pictures.Folder() : m_pictures.Names()[static_cast<size_t>(m_current)];
    SetStatus(statusName, m_page.empty() ? name : name + ", " + m_pageName);
    if (!m_info || !m_view.HasPicture())
    {
        SetStatus(statusSize, "");
        SetStatus(statusType, m_current < 0 ? "" : "Not readable");
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

void MainFrame::ShowNotice(const std::string& text) { SetStatus(statusName, text); }

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
    const bool isForDetails =
        message.hwnd == m_view.DetailsButton().GetSafeHwnd() || message.hwnd == m_project.Tree().GetSafeHwnd();
    if (isForDetails && message.wParam == VK_RETURN)
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
    m_list.WriteWidths(m_profileSection);
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
} // namespace workbench
