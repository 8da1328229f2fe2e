// AntiFlickerTest.cpp - the window class while its window is being sized

#include "ImportHook.h"
#include "LayoutFixture.h"

namespace
{

using layout_test::Engine;
using layout_test::EngineFrame;
using layout_test::IsSizing;
using testing::ElementsAre;
using testing::IsEmpty;
using Dyn = cdxCDynamicWnd;

constexpr UINT kTimer = 29028;
constexpr UINT kPeriod = 120;
constexpr UINT kRedrawBits = CS_VREDRAW | CS_HREDRAW;

std::vector<LONG>* g_styles = nullptr;                      // what is written to the class
std::vector<std::pair<UINT_PTR, UINT>>* g_timers = nullptr; // timers set, with their periods

DWORD WINAPI RecordClassLong(HWND window, int index, LONG value)
{
    if (index == GCL_STYLE)
    {
        g_styles->push_back(value);
    }
    return ::SetClassLongA(window, index, value);
}

UINT_PTR WINAPI RecordTimer(HWND window, UINT_PTR id, UINT period, TIMERPROC proc)
{
    g_timers->emplace_back(id, period);
    return ::SetTimer(window, id, period, proc);
}

class AntiFlicker : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        g_styles = &m_styles;
        g_timers = &m_timers;
        m_frame = std::make_unique<EngineFrame>(Dyn::FreedomXY, Dyn::FlagAntiFlicker);
        m_found = ::GetClassLongA(m_frame->m_hWnd, GCL_STYLE);
        E().DoInitWindow(*m_frame);
        m_classHook = std::make_unique<ImportHook>("TavKit.dll", "user32.dll", "SetClassLongA",
                                                   reinterpret_cast<void*>(RecordClassLong));
        m_timerHook =
            std::make_unique<ImportHook>("TavAfx.dll", "user32.dll", "SetTimer", reinterpret_cast<void*>(RecordTimer));
    }
    void TearDown() override
    {
        m_timerHook.reset();
        m_classHook.reset();
        ::SetClassLongA(m_frame->m_hWnd, GCL_STYLE, static_cast<LONG>(m_found)); // for the tests that come
        m_frame.reset();
        WindowTest::TearDown();
    }

    Engine& E() { return m_frame->m_engine; }
    UINT RedrawBits() const { return ::GetClassLongA(m_frame->m_hWnd, GCL_STYLE) & kRedrawBits; }

    std::vector<LONG> m_styles;
    std::vector<std::pair<UINT_PTR, UINT>> m_timers;
    std::unique_ptr<EngineFrame> m_frame;
    std::unique_ptr<ImportHook> m_classHook;
    std::unique_ptr<ImportHook> m_timerHook;
    DWORD m_found = 0;
};

TEST_F(AntiFlicker, GrowingSidesTakeTheRedrawBitsAwayAndTheOthersSetThem)
{
    for (const UINT side :
         {WMSZ_LEFT, WMSZ_RIGHT, WMSZ_TOP, WMSZ_TOPLEFT, WMSZ_TOPRIGHT, WMSZ_BOTTOM, WMSZ_BOTTOMLEFT, WMSZ_BOTTOMRIGHT})
    {
        CRect rect(1, 2, 3, 4);
        E().DoOnSizing(side, rect);
        EXPECT_EQ(rect, CRect(1, 2, 3, 4));
        const bool grows = side == WMSZ_RIGHT || side == WMSZ_BOTTOM || side == WMSZ_BOTTOMRIGHT;
        EXPECT_EQ(RedrawBits(), grows ? 0u : kRedrawBits) << "side " << side;
        E().DoOnTimer(kTimer);
    }
}

TEST_F(AntiFlicker, FurtherSizingOnlyRestartsTheTimer)
{
    E().DoOnSizing(WMSZ_RIGHT, nullptr);
    E().DoOnSizing(WMSZ_RIGHT, nullptr);
    E().DoOnSizing(WMSZ_LEFT, nullptr);
    EXPECT_THAT(m_styles, ElementsAre(0));
    EXPECT_THAT(m_timers,
                ElementsAre(std::pair<UINT_PTR, UINT>(kTimer, kPeriod), std::pair<UINT_PTR, UINT>(kTimer, kPeriod),
                            std::pair<UINT_PTR, UINT>(kTimer, kPeriod)));
    EXPECT_TRUE(support::PumpUntil([&] { return m_styles.size() == 2; }));
    EXPECT_EQ(m_styles.back(), static_cast<LONG>(m_found & kRedrawBits));
    EXPECT_EQ(RedrawBits(), m_found & kRedrawBits);
    EXPECT_EQ(m_frame->Count(WM_TIMER), 1) << "the timer that was restarted rings once, and is gone";
    E().DoOnTimer(kTimer);
    EXPECT_EQ(m_styles.size(), 2u) << "restored once";
}

TEST_F(AntiFlicker, TheBitsThatTheClassHadComeBack)
{
    E().DoOnDestroy();
    ::SetClassLongA(m_frame->m_hWnd, GCL_STYLE, CS_HREDRAW);
    Engine engine(Dyn::FreedomXY, Dyn::FlagAntiFlicker);
    engine.DoInitWindow(*m_frame);
    engine.DoOnSizing(WMSZ_RIGHT, nullptr);
    EXPECT_EQ(RedrawBits(), 0u);
    engine.DoOnTimer(kTimer);
    EXPECT_EQ(RedrawBits(), static_cast<UINT>(CS_HREDRAW));
    engine.DoOnSizing(WMSZ_LEFT, nullptr);
    EXPECT_EQ(RedrawBits(), kRedrawBits);
    engine.DoOnTimer(kTimer);
    EXPECT_EQ(RedrawBits(), static_cast<UINT>(CS_HREDRAW));
}

TEST_F(AntiFlicker, AnotherTimerEndsNothing)
{
    E().DoOnSizing(WMSZ_RIGHT, nullptr);
    E().DoOnTimer(kTimer + 1);
    EXPECT_EQ(m_styles.size(), 1u);
}

TEST_F(AntiFlicker, IsForThoseWhoAskForItAndAreUpAndEnabled)
{
    E().ModifyFlags(0, Dyn::FlagAntiFlicker);
    E().DoOnSizing(WMSZ_RIGHT, nullptr);
    E().ModifyFlags(Dyn::FlagAntiFlicker, 0);
    E().Disable();
    E().DoOnSizing(WMSZ_RIGHT, nullptr);
    E().Enable();
    E().m_idTimer = 0;
    E().DoOnSizing(WMSZ_RIGHT, nullptr);
    E().StartAntiFlickering(true);
    E().m_idTimer = kTimer;
    m_frame->ShowWindow(SW_MINIMIZE);
    E().DoOnSizing(WMSZ_RIGHT, nullptr);
    E().StartAntiFlickering(true);
    EXPECT_THAT(m_styles, IsEmpty());
    EXPECT_THAT(m_timers, IsEmpty());
}

TEST_F(AntiFlicker, LastsForTheLengthOfARealDragOfTheBorder)
{
    CRect window;
    m_frame->GetWindowRect(window);
    const POINT border{window.right - 2, window.CenterPoint().y};
    const DWORD thread = ::GetCurrentThreadId();
    {
        const support::InputThread drag({
            [&] { support::MoveMouse(border); },
            [&] { support::Press(); },
            [&] { EXPECT_TRUE(support::WaitFor([&] { return IsSizing(thread); })); },
            [&] {
                support::MoveMouse({border.x + 30, border.y});
            },
            [&] { EXPECT_TRUE(support::WaitFor([&] { return !m_styles.empty(); })); },
            [&] {
                support::MoveMouse({border.x + 60, border.y});
            },
            [&] { support::Release(); },
        });
        EXPECT_TRUE(support::PumpUntil([&] { return m_styles.size() >= 2; }));
    }
    EXPECT_THAT(m_styles, ElementsAre(0, static_cast<LONG>(m_found & kRedrawBits)));
    EXPECT_TRUE(support::PumpUntil([&] {
        m_frame->GetClientRect(window);
        return window.Width() == EngineFrame::kWidth + 60;
    }));
    AllowGdiGrowth("the system keeps its own cursors once they have been set");
}

} // namespace
