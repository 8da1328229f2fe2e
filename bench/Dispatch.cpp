// Dispatch.cpp - [dispatch] messages through a map of 40 entries against a window procedure with a switch
#include "bench/Bench.h"

#include <afxwin.h>

#include <algorithm>
#include <array>

namespace bench
{
namespace
{

constexpr double kTarget = 1.5;
constexpr int kRepeats = 2000;
constexpr UINT kFirstOwn = WM_APP;           // numbered messages of the most derived map
constexpr UINT kFirstBase = WM_APP + 100;    // messages that only the base class's map knows
constexpr UINT kFirstUnknown = WM_APP + 200; // messages that no map knows
constexpr UINT kOwnCount = 32;
constexpr UINT kBaseCount = 8;
constexpr UINT kUnknownCount = 8;

// The numbered messages as lists, so that the map and the switch are about the same ones.
#define BENCH_EIGHT(X, first)                                                                                          \
    X(first) X(first + 1) X(first + 2) X(first + 3) X(first + 4) X(first + 5) X(first + 6) X(first + 7)
#define BENCH_OWN(X) BENCH_EIGHT(X, 0) BENCH_EIGHT(X, 8) BENCH_EIGHT(X, 16) BENCH_EIGHT(X, 24)
#define BENCH_BASE(X) BENCH_EIGHT(X, 0)

/// Where a message is booked.
enum Slot : std::size_t
{
    FirstBaseSlot = kOwnCount,
    MouseMoveSlot = FirstBaseSlot + kBaseCount,
    ButtonDownSlot,
    ButtonUpSlot,
    TimerSlot,
    SizeSlot,
    KeyDownSlot,
    CharSlot,
    WheelSlot,
    SlotCount
};

/// What the handlers of both sides do: each keeps account in a slot of its own.
class Account
{
public:
    void Add(std::size_t slot, long long value) noexcept { m_sums[slot] += 3 * value + 1; }
    LRESULT Add(std::size_t slot, WPARAM wParam, LPARAM lParam) noexcept
    {
        Add(slot, static_cast<long long>(wParam) + lParam);
        return static_cast<LRESULT>(slot) + 1;
    }
    void Clear() noexcept { m_sums = {}; }
    [[nodiscard]] bool IsComplete() const noexcept { return std::ranges::find(m_sums, 0) == m_sums.end(); }
    friend bool operator==(const Account&, const Account&) = default;

private:
    std::array<long long, SlotCount> m_sums{};
};

// --- ours: message maps --------------------------------------------------------------------------------------------

class CAccountWnd : public CWnd
{
public:
    Account m_account;

protected:
    template <UINT N>
    LRESULT OnBase(WPARAM wParam, LPARAM lParam)
    {
        return m_account.Add(FirstBaseSlot + N, wParam, lParam);
    }

    DECLARE_MESSAGE_MAP()
};

#define BENCH_ENTRY(n) ON_MESSAGE(kFirstBase + n, &CAccountWnd::OnBase<n>)
BEGIN_MESSAGE_MAP(CAccountWnd, CWnd)
    BENCH_BASE(BENCH_ENTRY)
END_MESSAGE_MAP()
#undef BENCH_ENTRY

class CMapWnd : public CAccountWnd
{
protected:
    template <UINT N>
    LRESULT OnOwn(WPARAM wParam, LPARAM lParam)
    {
        return m_account.Add(N, wParam, lParam);
    }
    void OnMouseMove(UINT, CPoint point) { m_account.Add(MouseMoveSlot, point.x + point.y); }
    void OnLButtonDown(UINT, CPoint point) { m_account.Add(ButtonDownSlot, point.x + point.y); }
    void OnLButtonUp(UINT, CPoint point) { m_account.Add(ButtonUpSlot, point.x + point.y); }
    void OnTimer(UINT_PTR id) { m_account.Add(TimerSlot, static_cast<long long>(id)); }
    void OnSize(UINT, int cx, int cy) { m_account.Add(SizeSlot, cx + cy); }
    void OnKeyDown(UINT nChar, UINT, UINT) { m_account.Add(KeyDownSlot, nChar); }
    void OnChar(UINT nChar, UINT, UINT) { m_account.Add(CharSlot, nChar); }
    BOOL OnMouseWheel(UINT, short zDelta, CPoint)
    {
        m_account.Add(WheelSlot, zDelta);
        return TRUE;
    }

    DECLARE_MESSAGE_MAP()
};

#define BENCH_ENTRY(n) ON_MESSAGE(kFirstOwn + n, &CMapWnd::OnOwn<n>)
BEGIN_MESSAGE_MAP(CMapWnd, CAccountWnd)
    BENCH_OWN(BENCH_ENTRY)
    ON_WM_MOUSEMOVE()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_TIMER()
    ON_WM_SIZE()
    ON_WM_KEYDOWN()
    ON_WM_CHAR()
    ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()
#undef BENCH_ENTRY

// --- the reference: a switch --------------------------------------------------------------------------------------

int LowCoordinate(LPARAM lParam) { return static_cast<short>(LOWORD(lParam)); }

int HighCoordinate(LPARAM lParam) { return static_cast<short>(HIWORD(lParam)); }

/// Account of the one window with the switch, at the least cost that a procedure can have: nothing is looked up.
Account switchAccount;

LRESULT CALLBACK SwitchProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
#define BENCH_CASE(n)                                                                                                  \
    case kFirstOwn + n:                                                                                                \
        return switchAccount.Add(n, wParam, lParam);
        BENCH_OWN(BENCH_CASE)
#undef BENCH_CASE
#define BENCH_CASE(n)                                                                                                  \
    case kFirstBase + n:                                                                                               \
        return switchAccount.Add(FirstBaseSlot + n, wParam, lParam);
        BENCH_BASE(BENCH_CASE)
#undef BENCH_CASE
    case WM_MOUSEMOVE:
        switchAccount.Add(MouseMoveSlot, LowCoordinate(lParam) + HighCoordinate(lParam));
        return 0;
    case WM_LBUTTONDOWN:
        switchAccount.Add(ButtonDownSlot, LowCoordinate(lParam) + HighCoordinate(lParam));
        return 0;
    case WM_LBUTTONUP:
        switchAccount.Add(ButtonUpSlot, LowCoordinate(lParam) + HighCoordinate(lParam));
        return 0;
    case WM_TIMER:
        switchAccount.Add(TimerSlot, static_cast<long long>(wParam));
        return 0;
    case WM_SIZE:
        switchAccount.Add(SizeSlot, LowCoordinate(lParam) + HighCoordinate(lParam));
        return 0;
    case WM_KEYDOWN:
        switchAccount.Add(KeyDownSlot, static_cast<long long>(wParam));
        return 0;
    case WM_CHAR:
        switchAccount.Add(CharSlot, static_cast<long long>(wParam));
        return 0;
    case WM_MOUSEWHEEL:
        switchAccount.Add(WheelSlot, static_cast<short>(HIWORD(wParam)));
        return TRUE;
    default:
        return ::DefWindowProcA(window, message, wParam, lParam);
    }
}

/// A window without any framework.
class SwitchWindow
{
public:
    SwitchWindow()
    {
        constexpr const char* kClass = "TavKitBenchSwitch";
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = SwitchProc;
        windowClass.hInstance = ::GetModuleHandleA(nullptr);
        windowClass.lpszClassName = kClass;
        ::RegisterClassA(&windowClass);
        m_window = ::CreateWindowExA(0, kClass, "", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, windowClass.hInstance,
                                     nullptr);
        Require(m_window != nullptr, "the window with the switch can't be made");
    }
    ~SwitchWindow() { ::DestroyWindow(m_window); }
    SwitchWindow(const SwitchWindow&) = delete;
    SwitchWindow& operator=(const SwitchWindow&) = delete;

    [[nodiscard]] HWND Handle() const noexcept { return m_window; }

private:
    HWND m_window;
};

// --- the traffic ----------------------------------------------------------------------------------------------------

struct Message
{
    UINT number;
    WPARAM wParam;
    LPARAM lParam;
};

std::vector<Message> MakeTraffic()
{
    std::vector<Message> traffic;
    for (UINT i = 0; i < kOwnCount; ++i)
    {
        traffic.push_back({kFirstOwn + i, i, 7});
    }
    for (UINT i = 0; i < kBaseCount; ++i)
    {
        traffic.push_back({kFirstBase + i, i, 11});
    }
    for (UINT i = 0; i < kUnknownCount; ++i)
    {
        traffic.push_back({kFirstUnknown + i, i, 13});
    }
    traffic.push_back({WM_MOUSEMOVE, 0, MAKELPARAM(10, 20)});
    traffic.push_back({WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(11, 21)});
    traffic.push_back({WM_LBUTTONUP, 0, MAKELPARAM(12, 22)});
    traffic.push_back({WM_TIMER, 5, 0});
    traffic.push_back({WM_SIZE, SIZE_RESTORED, MAKELPARAM(100, 100)});
    traffic.push_back({WM_KEYDOWN, VK_LEFT, 1});
    traffic.push_back({WM_CHAR, 'x', 1});
    traffic.push_back({WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), MAKELPARAM(13, 23)});
    return traffic;
}

/// @return the sum of the answers.
long long Send(HWND window, const std::vector<Message>& traffic)
{
    long long answers = 0;
    for (int i = 0; i < kRepeats; ++i)
    {
        for (const Message& message : traffic)
        {
            answers += ::SendMessageA(window, message.number, message.wParam, message.lParam);
        }
    }
    return answers;
}

std::vector<Row> Run()
{
    const std::vector<Message> traffic = MakeTraffic();
    CMapWnd ours;
    Require(ours.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP, CRect(0, 0, 100, 100), nullptr, 0) != FALSE,
            "the window with the message map can't be made");
    const SwitchWindow reference;
    long long oursAnswers = 0;
    long long referenceAnswers = 0;
    const Medians medians =
        Interleave({.run = [&] { oursAnswers = Send(ours.m_hWnd, traffic); },
                    .prepare = [&] { ours.m_account.Clear(); },
                    .check = [&] { Require(ours.m_account.IsComplete(), "the map left out a message"); }},
                   {.run = [&] { referenceAnswers = Send(reference.Handle(), traffic); },
                    .prepare = [&] { switchAccount.Clear(); },
                    .check = [&] { Require(switchAccount.IsComplete(), "the switch left out a message"); }});
    ours.DestroyWindow();
    Require(ours.m_account == switchAccount, "the two sides kept different accounts");
    Require(oursAnswers == referenceAnswers, "the two sides answered differently");
    return {{"dispatch", static_cast<long long>(traffic.size()) * kRepeats, medians.ours, medians.reference, kTarget}};
}

const Registration registration("dispatch", Run);

} // namespace
} // namespace bench
