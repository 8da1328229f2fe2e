#include "Pump.h"

#include <afxwin.h>

namespace support
{
namespace
{
using Clock = std::chrono::steady_clock;

/// Longest wait before the condition is looked at again although no message came.
constexpr DWORD kPollMs = 5;

void Dispatch(MSG& msg)
{
    if (CWinThread* thread = AfxGetThread(); thread != nullptr && thread->PreTranslateMessage(&msg))
    {
        return;
    }
    ::TranslateMessage(&msg);
    ::DispatchMessageA(&msg);
}
} // namespace

void DrainMessages()
{
    MSG msg;
    while (::PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE))
    {
        if (msg.message == WM_QUIT)
        {
            ::PostQuitMessage(static_cast<int>(msg.wParam)); // the loop that it is meant for takes it
            return;
        }
        Dispatch(msg);
    }
}

bool PumpUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline)
{
    const auto end = Clock::now() + deadline;
    for (;;)
    {
        DrainMessages();
        if (condition())
        {
            return true;
        }
        if (Clock::now() >= end)
        {
            return false;
        }
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kPollMs, QS_ALLINPUT);
    }
}

void Settle()
{
    for (int round = 0; round < 2; ++round)
    {
        static const UINT mark = ::RegisterWindowMessageA("TavKit.Tests.Settle");
        ::PostThreadMessageA(::GetCurrentThreadId(), mark, 0, 0);
        bool seen = false;
        const auto end = Clock::now() + kDeadline;
        while (!seen && Clock::now() < end)
        {
            MSG msg;
            while (::PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE))
            {
                if (msg.hwnd == nullptr && msg.message == mark)
                {
                    seen = true;
                    continue;
                }
                if (msg.message == WM_QUIT)
                {
                    ::PostQuitMessage(static_cast<int>(msg.wParam));
                    return;
                }
                Dispatch(msg);
            }
        }
        ::GdiFlush();
    }
}
} // namespace support
