// WorkbenchApp.h - the workbench's application object
#pragma once

#include "host/repository/StandardDrivers.h"

#include <afxwin.h>

#include <memory>
#include <optional>

namespace workbench
{
class Formats;
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
    std::optional<repository::StandardDrivers> m_drivers; // while there are windows
    std::unique_ptr<Formats> m_formats;                   // the same
    std::unique_ptr<Tour> m_tour;
    bool m_started = false; // the library's graphics
};
} // namespace workbench
