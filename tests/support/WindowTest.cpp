#include "WindowTest.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace support
{
namespace
{
constexpr int kFrameLeft = 80;
constexpr int kFrameTop = 60;
/// GDI objects that the system may keep after the first use of something.
constexpr int kMostKept = 16;

/// Opens what the system itself keeps after its first use: fonts, caret, input method, the classes of the controls.
void WarmUp()
{
    static bool done = false;
    if (done)
    {
        return;
    }
    done = true;
    for (int round = 0; round < 2; ++round)
    {
        HWND frame = ::CreateWindowExA(0, "#32770", "warm", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 200, nullptr,
                                       nullptr, nullptr, nullptr);
        for (const char* name : {"EDIT", "BUTTON", "STATIC", "LISTBOX", "COMBOBOX", "SCROLLBAR", WC_LISTVIEWA,
                                 WC_TREEVIEWA, WC_HEADERA, TOOLTIPS_CLASSA})
        {
            HWND child =
                ::CreateWindowExA(0, name, "x", WS_CHILD | WS_VISIBLE, 0, 0, 100, 50, frame, nullptr, nullptr, nullptr);
            ::SetFocus(child);
            Settle();
        }
        // What is drawn once and kept: the marks of checked and of disabled buttons.
        for (const DWORD style : {DWORD{BS_AUTOCHECKBOX}, DWORD{BS_PUSHBUTTON | WS_DISABLED}})
        {
            HWND button = ::CreateWindowExA(0, "BUTTON", "x", WS_CHILD | WS_VISIBLE | style, 0, 0, 100, 20, frame,
                                            nullptr, nullptr, nullptr);
            ::SendMessageA(button, BM_SETCHECK, BST_CHECKED, 0);
            Settle();
        }
        // The system keeps as many window contexts as were ever in use at once.
        std::array<HDC, 16> contexts{};
        for (HDC& context : contexts)
        {
            context = ::GetDC(frame);
        }
        for (HDC context : contexts)
        {
            ::ReleaseDC(frame, context);
        }
        ::DestroyWindow(frame);
        Settle();
    }
}

void ReleaseKeys()
{
    for (const WORD key : {WORD{VK_CONTROL}, WORD{VK_SHIFT}, WORD{VK_MENU}})
    {
        if (::GetAsyncKeyState(key) < 0)
        {
            KeyUp(key);
        }
    }
    if (::GetAsyncKeyState(VK_LBUTTON) < 0)
    {
        Release(Button::left);
    }
    if (::GetAsyncKeyState(VK_RBUTTON) < 0)
    {
        Release(Button::right);
    }
}

std::string FileNameOfCurrentTest()
{
    const testing::TestInfo* info = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(info->test_suite_name()) + "." + info->name();
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)) && c != '.'; }, '_');
    return name;
}

/// Temporary objects hold no system handle of their own, but idle work may release some that do.
void DoIdle()
{
    if (CWinThread* thread = AfxGetThread())
    {
        for (LONG count = 0; count < 3 && thread->OnIdle(count); ++count)
        {
        }
    }
}
} // namespace

void WindowTest::SetUp()
{
    WarmUp();
    ReleaseKeys();
    MoveMouse({::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1});
    Settle();
    DoIdle();
    m_before = CountSystemObjects();
}

void WindowTest::TearDown()
{
    if (HasFailure())
    {
        const std::string folder = OutputFolder() + "\\failures";
        ::CreateDirectoryA(folder.c_str(), nullptr);
        const std::string file = folder + "\\" + FileNameOfCurrentTest() + ".png";
        if (SaveScreenshot(file))
        {
            GTEST_LOG_(INFO) << "screen saved as " << file;
        }
    }
    ReleaseKeys();
    Settle();
    DoIdle();
    SystemCounts after = CountSystemObjects();
    EXPECT_EQ(after.windows, m_before.windows) << "windows left behind";
    if (m_allowGdiGrowth)
    {
        EXPECT_LE(after.gdiObjects, m_before.gdiObjects + kMostKept) << "more GDI objects left behind than a first use";
    }
    else
    {
        EXPECT_EQ(after, m_before) << "GDI objects left behind";
    }
}

void WindowTest::AllowGdiGrowth(const char* reason)
{
    RecordProperty("gdi_growth", reason);
    m_allowGdiGrowth = true;
}

TestFrame::TestFrame(int width, int height)
{
    CreateEx(0,
             AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW)),
                                 ::GetSysColorBrush(COLOR_WINDOW)),
             "Test frame", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, kFrameLeft, kFrameTop, width, height, nullptr,
             nullptr);
    ShowWindow(SW_SHOWNORMAL);
    ::SetForegroundWindow(m_hWnd);
    Settle();
    Clear();
}

TestFrame::~TestFrame() { DestroyWindow(); }

int TestFrame::Count(UINT message) const
{
    return static_cast<int>(std::ranges::count(m_messages, message, &Message::message));
}

int TestFrame::CountCommand(int id, UINT code) const
{
    return static_cast<int>(std::ranges::count_if(m_messages, [&](const Message& m) {
        return m.message == WM_COMMAND && LOWORD(m.wParam) == id && HIWORD(m.wParam) == code;
    }));
}

int TestFrame::CountNotify(UINT code) const
{
    return static_cast<int>(std::ranges::count_if(
        m_messages, [&](const Message& m) { return m.message == WM_NOTIFY && m.notifyCode == code; }));
}

LRESULT TestFrame::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const UINT code = message == WM_NOTIFY ? reinterpret_cast<const NMHDR*>(lParam)->code : 0;
    m_messages.push_back({message, wParam, lParam, code});
    return CWnd::WindowProc(message, wParam, lParam);
}
} // namespace support
