#include "workbench/WorkbenchApp.h"

#include "automation/FinishedMark.h"
#include "tavkit/frame/Module.h"
#include "tavkit/layout/DynamicWndEx.h"
#include "workbench/Formats.h"
#include "workbench/MainFrame.h"
#include "workbench/Options.h"
#include "workbench/PictureList.h"
#include "workbench/Tour.h"

#include <afxole.h>

#include <cstdlib>

namespace workbench
{
namespace
{
constexpr char kRegistryKey[] = "TavKit";
constexpr char kSection[] = "Workbench";
/// The tour types its own values and leaves the user's alone, but for the folders that the file dialogs remember.
constexpr char kTourSection[] = "Tour";
constexpr int kNotStarted = 2;

WorkbenchApp theApp;
} // namespace

WorkbenchApp::WorkbenchApp() : CWinApp(kTitle) {}

WorkbenchApp::~WorkbenchApp() = default;

BOOL WorkbenchApp::InitInstance()
{
    const auto options = ReadOptions({__argv + 1, static_cast<size_t>(std::max(0, __argc - 1))});
    if (!options.error.empty())
    {
        AfxMessageBox((options.error + "\n\n" + kUsage).c_str(), MB_OK | MB_ICONERROR);
        return FALSE;
    }
    if (!AfxOleInit())
    {
        AfxMessageBox("The system's object services can't be started.", MB_OK | MB_ICONERROR);
        return FALSE;
    }
    SetRegistryKey(kRegistryKey);
    TavKitInit();
    m_started = true;
    m_drivers.emplace();
    m_formats = std::make_unique<Formats>();

    const bool tour = !options.tourFolder.empty();
    if (tour)
    {
        WriteProfileString(kTourSection, nullptr, nullptr);
        const CString places = cdxCDynamicWndEx::M_lpszAutoPosProfileSection;
        WriteProfileString(places + "\\" + MainFrame::SettingsPlace(kTourSection), nullptr, nullptr);
    }
    auto* const frame = new MainFrame(tour ? kTourSection : kSection, *m_formats); // deletes itself with its window
    if (!frame->CreateWindows())
    {
        AfxMessageBox("The main window can't be made.", MB_OK | MB_ICONERROR);
        return FALSE;
    }
    m_pMainWnd = frame;
    const std::string path = options.path.empty() ? SamplesFolder() : options.path;
    frame->OpenPath(path);
    frame->ShowWindow(m_nCmdShow);
    frame->UpdateWindow();
    if (tour)
    {
        m_tour = std::make_unique<Tour>(frame->m_hWnd, options.tourFolder);
    }
    return TRUE;
}

int WorkbenchApp::ExitInstance()
{
    int code = m_started ? CWinApp::ExitInstance() : kNotStarted;
    if (m_tour)
    {
        // A crash may leave a good exit code behind: the closing line tells a script that the tour reached its end.
        code = automation::Finish(m_tour->Wait() ? EXIT_SUCCESS : EXIT_FAILURE);
        m_tour.reset();
    }
    m_formats.reset();
    m_drivers.reset();
    if (m_started)
    {
        TavKitShutdown();
    }
    return code;
}
} // namespace workbench
