// Report.cpp
#include <afxwin.h>

#include <utility>

#include "tavkit/frame/services/Report.h"

namespace
{
Report::Receiver*& CurrentReceiver()
{
    static Report::Receiver* receiver = nullptr;
    return receiver;
}

/// The window that a box belongs to: the last one that the main window has opened, so that it stands above a dialog.
HWND BoxOwner()
{
    CWnd const* const main = AfxGetMainWnd();
    const HWND window = main ? main->m_hWnd : nullptr;
    return ::IsWindow(window) ? ::GetLastActivePopup(window) : nullptr;
}

void ShowBox(Report::Kind kind, char const* text)
{
    const UINT icon = kind == Report::Kind::Warning ? MB_ICONWARNING : MB_ICONINFORMATION;
    // Without a main window the box stands alone and must keep the program's other windows from being used.
    const HWND owner = BoxOwner();
    CWinApp const* const app = AfxGetApp();
    ::MessageBoxA(owner, text, app ? app->m_pszAppName : nullptr, MB_OK | icon | (owner ? 0 : MB_TASKMODAL));
}

void Tell(Report::Kind kind, char const* format, va_list args)
{
    const DString text = DString::FormatV(format, args);
    if (Report::Receiver* const receiver = CurrentReceiver())
    {
        receiver->OnReport(kind, text.c_str());
    }
    else
    {
        ShowBox(kind, text.c_str());
    }
}
} // namespace

Report::Receiver::~Receiver() = default;

Report::ReceiverScope::ReceiverScope(Receiver& receiver) : m_pBefore(std::exchange(CurrentReceiver(), &receiver)) {}

Report::ReceiverScope::~ReceiverScope() { CurrentReceiver() = m_pBefore; }

void Report::UserWarning(char const* format, ...)
{
    va_list args;
    va_start(args, format);
    Tell(Kind::Warning, format, args);
    va_end(args);
}

void Report::UserNotificationEnforced(char const* format, ...)
{
    va_list args;
    va_start(args, format);
    Tell(Kind::Notification, format, args);
    va_end(args);
}
