// Main.cpp - the other process of the layout tests: a dialog that remembers its place, and a store that stops half-way

#include "LayoutProc.h"

#include "../kit/ImportHook.h"

#include "tavkit/layout/DynamicDialog.h"

#include <cstdlib>
#include <cstring>

namespace
{

constexpr int kFailed = 1;

class LayoutApp : public CWinApp
{
public:
    LayoutApp() : CWinApp("TavKit Tests") {}
    BOOL InitInstance() override
    {
        SetRegistryKey("TavKit Tests");
        return TRUE;
    }
};

LayoutApp theApp;

class LayoutDialog : public cdxCDynamicDialog
{
public:
    LayoutDialog() : cdxCDynamicDialog(IDD_LAYOUT) {}
    BOOL OnInitDialog() override
    {
        const BOOL result = cdxCDynamicDialog::OnInitDialog();
        AddSzControl(IDC_LAYOUT_TEXT, ModeStretch, ModeStay, CSize(0, 0), true);
        AddSzControl(IDCANCEL, BotRight, CSize(0, 0), true);
        return result;
    }
};

int g_writesLeft = 0;

LSTATUS WINAPI WriteAndStop(HKEY key, LPCSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size)
{
    const LSTATUS status = ::RegSetValueExA(key, name, reserved, type, data, size);
    if (--g_writesLeft == 0)
    {
        HANDLE stopped = ::OpenEventA(EVENT_MODIFY_STATE, FALSE, LAYOUT_STOPPED_EVENT);
        ::SetEvent(stopped);
        ::WaitForSingleObject(::GetCurrentProcess(), INFINITE); // until the other process ends this one
    }
    return status;
}

int Store(int writes)
{
    g_writesLeft = writes;
    LayoutDialog dialog;
    if (!dialog.Create(IDD_LAYOUT, nullptr))
    {
        return kFailed;
    }
    dialog.MoveWindow(300, 310, 400, 320);
    const ImportHook hook("TavAfx.dll", "advapi32.dll", "RegSetValueExA", reinterpret_cast<void*>(WriteAndStop));
    dialog.DestroyWindow();
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (!AfxWinInit(::GetModuleHandleA(nullptr), nullptr, ::GetCommandLineA(), SW_SHOWNORMAL) || !theApp.InitInstance())
    {
        return kFailed;
    }
    int code = kFailed;
    if (argc == 2 && std::strcmp(argv[1], LAYOUT_MODE_OPEN) == 0)
    {
        LayoutDialog dialog;
        code = dialog.DoModal() == IDCANCEL ? 0 : kFailed;
    }
    else if (argc == 3 && std::strcmp(argv[1], LAYOUT_MODE_STORE) == 0)
    {
        code = Store(std::atoi(argv[2]));
    }
    AfxWinTerm();
    return code; // whoever started it reads it; a closing mark would be taken for the starter's
}
