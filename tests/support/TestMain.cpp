// TestMain.cpp - main program of the tests with windows

#include "automation/FinishedMark.h"
#include "TestApp.h"

#include <afxole.h>
#include <gmock/gmock.h>

#include <cstdio>

namespace
{
/// Exit code of a crashed test program.
constexpr UINT kCrashed = 99;

/// Prints where it crashed and ends at once: the platform's own way is a window that waits for ever.
LONG WINAPI OnCrash(EXCEPTION_POINTERS* info)
{
    const auto* record = info->ExceptionRecord;
    HMODULE module = nullptr;
    ::GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                         static_cast<LPCSTR>(record->ExceptionAddress), &module);
    char name[MAX_PATH] = "";
    ::GetModuleFileNameA(module, name, sizeof name);
    std::printf("crash: code %08lx at %p in %s (base %p)\n", record->ExceptionCode, record->ExceptionAddress, name,
                static_cast<void*>(module));
    void* frames[32];
    const USHORT count = ::RtlCaptureStackBackTrace(0, 32, frames, nullptr);
    for (USHORT i = 0; i < count; ++i)
    {
        std::printf("  %p\n", frames[i]);
    }
    std::fflush(stdout);
    ::TerminateProcess(::GetCurrentProcess(), kCrashed);
    return EXCEPTION_EXECUTE_HANDLER;
}

/// Looks over all heaps after each test, so that an overrun is told by the test that made it.
class HeapCheck : public testing::EmptyTestEventListener
{
    void OnTestEnd(const testing::TestInfo& info) override
    {
        HANDLE heaps[64];
        const DWORD count = ::GetProcessHeaps(64, heaps);
        for (DWORD i = 0; i < count && i < 64; ++i)
        {
            if (!::HeapValidate(heaps[i], 0, nullptr))
            {
                std::printf("heap damaged by %s.%s\n", info.test_suite_name(), info.name());
                std::fflush(stdout);
                ::TerminateProcess(::GetCurrentProcess(), kCrashed);
            }
        }
    }
};

support::TestApp theApp;
} // namespace

namespace support
{
TestApp::TestApp() : CWinApp("TavKit Tests") {}

BOOL TestApp::InitInstance()
{
    SetRegistryKey("TavKit Tests");
    return TRUE;
}
} // namespace support

int main(int argc, char** argv)
{
    ::SetUnhandledExceptionFilter(OnCrash);
    testing::InitGoogleMock(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new HeapCheck);
    if (!AfxWinInit(::GetModuleHandleA(nullptr), nullptr, ::GetCommandLineA(), SW_SHOWNORMAL) || !AfxOleInit() ||
        !theApp.InitInstance())
    {
        std::printf("the framework did not start\n");
        return automation::Finish(1);
    }
    const int result = RUN_ALL_TESTS();
    theApp.ExitInstance();
    AfxWinTerm();
    return automation::Finish(result);
}
