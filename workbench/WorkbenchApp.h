// WorkbenchApp.h - the workbench's application object
#pragma once

#include <afxwin.h>

#include <memory>

namespace workbench
{
class Tour;

/// Starts the library, shows the main window and, when asked, drives it through the tour.
class WorkbenchApp : public CWinApp
{
public:
    WorkbenchApp();
    ~WorkbenchApp() override;

    BOOL InitInstance() override;
    int ExitInstance() override;

private:
    std::unique_ptr<Tour> m_tour;
    bool m_started = false; // the library's graphics
};
} // namespace workbench
