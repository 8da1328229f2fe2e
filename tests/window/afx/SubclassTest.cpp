// SubclassTest.cpp - what the procedure of a window gets that was there before its object
#include "support/WindowTest.h"

#include <afxwin.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;

constexpr UINT kOwnMessage = WM_USER + 5;
constexpr LPARAM kParam = 0x123456789AB;

struct Seen
{
    UINT message;
    WPARAM wParam;
    LPARAM lParam;

    bool operator==(const Seen&) const = default;
};

std::vector<Seen> g_seen;
std::wstring g_wideText;
std::string g_narrowText;

LRESULT Note(UINT message, WPARAM wParam, LPARAM lParam)
{
    g_seen.push_back({message, wParam, lParam});
    return 42;
}

LRESULT CALLBACK WideProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_SETTEXT)
    {
        g_wideText = reinterpret_cast<const wchar_t*>(lParam);
    }
    return message >= WM_USER ? Note(message, wParam, lParam) : ::DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK NarrowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_SETTEXT)
    {
        g_narrowText = reinterpret_cast<const char*>(lParam);
    }
    return message >= WM_USER ? Note(message, wParam, lParam) : ::DefWindowProcA(window, message, wParam, lParam);
}

/// A window of a class that isn't the framework's, in front of an object.
class SubclassTest : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        g_seen.clear();
        g_wideText.clear();
        g_narrowText.clear();
    }

    void TearDown() override
    {
        m_wnd.DestroyWindow();
        ::UnregisterClassW(L"WideControl", nullptr);
        ::UnregisterClassA("NarrowControl", nullptr);
        WindowTest::TearDown();
    }

    void OpenWide()
    {
        WNDCLASSW cls{};
        cls.lpfnWndProc = &WideProc;
        cls.lpszClassName = L"WideControl";
        ASSERT_TRUE(::RegisterClassW(&cls));
        ASSERT_TRUE(m_wnd.SubclassWindow(
            ::CreateWindowExW(0, L"WideControl", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr)));
    }

    void OpenNarrow()
    {
        WNDCLASSA cls{};
        cls.lpfnWndProc = &NarrowProc;
        cls.lpszClassName = "NarrowControl";
        ASSERT_TRUE(::RegisterClassA(&cls));
        ASSERT_TRUE(m_wnd.SubclassWindow(
            ::CreateWindowExA(0, "NarrowControl", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr)));
    }

    CWnd m_wnd;
};

TEST_F(SubclassTest, AProcedureOfWideTextsGetsItsOwnMessagesOnceAndAsTheyAre)
{
    OpenWide();
    EXPECT_EQ(::SendMessageA(m_wnd.m_hWnd, kOwnMessage, 7, kParam), 42);
    EXPECT_EQ(::SendMessageW(m_wnd.m_hWnd, WM_APP, 8, kParam), 42);
    EXPECT_THAT(g_seen, ElementsAre(Seen{kOwnMessage, 7, kParam}, Seen{WM_APP, 8, kParam}));
}

TEST_F(SubclassTest, AProcedureOfWideTextsGetsTheSystemsTextsWide)
{
    OpenWide();
    ::SendMessageA(m_wnd.m_hWnd, WM_SETTEXT, 0,
                   reinterpret_cast<LPARAM>("Gr\xFC\xDF"
                                            "e"));
    EXPECT_EQ(g_wideText, L"Gr\u00FC\u00DFe");
}

TEST_F(SubclassTest, AProcedureOfNarrowTextsGetsItsOwnMessagesOnceAndTextsNarrow)
{
    OpenNarrow();
    EXPECT_EQ(::SendMessageA(m_wnd.m_hWnd, kOwnMessage, 7, kParam), 42);
    EXPECT_THAT(g_seen, ElementsAre(Seen{kOwnMessage, 7, kParam}));
    ::SendMessageW(m_wnd.m_hWnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Gr\u00FC\u00DFe"));
    EXPECT_EQ(g_narrowText, "Gr\xFC\xDF"
                            "e");
}

TEST_F(SubclassTest, AWindowThatIsLetGoKeepsItsProcedureToItself)
{
    OpenWide();
    const HWND window = m_wnd.UnsubclassWindow();
    EXPECT_EQ(reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(window, GWLP_WNDPROC)), &WideProc);
    EXPECT_EQ(::SendMessageA(window, kOwnMessage, 1, 2), 42);
    EXPECT_THAT(g_seen, ElementsAre(Seen{kOwnMessage, 1, 2}));
    ::DestroyWindow(window);
}

} // namespace
