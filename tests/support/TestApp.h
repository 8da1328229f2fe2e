// TestApp.h - the application object of a test program
#pragma once

#include <afxwin.h>

namespace support
{
/// An application without a main window; its profile lies under a registry key of its own.
class TestApp : public CWinApp
{
public:
    TestApp();
    BOOL InitInstance() override;
};
} // namespace support
