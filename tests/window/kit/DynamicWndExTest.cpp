// DynamicWndExTest.cpp - windows that remember their place

#include "ImportHook.h"

#include "support/Print.h"
#include "support/WindowTest.h"
#include "tavkit/layout/DynamicWndEx.h"

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();
constexpr char kName[] = "Window of the tests";
constexpr char kSection[] = "WindowPositions\\Window of the tests";
constexpr UINT kAll = 3; // state and visibility

class Ex : public cdxCDynamicWndEx
{
public:
    Ex() : cdxCDynamicWndEx(FreedomXY, 0) {}
    using cdxCDynamicWndEx::m_strAutoPos;
};

// One write to the profile.
struct Written
{
    std::string key;
    int value;
    bool operator==(const Written&) const = default;
};

std::vector<Written>* g_written = nullptr;
int g_failAt = 0; // number of the write that fails; 0 for none

LSTATUS WINAPI RecordWrite(HKEY key, LPCSTR name, DWORD reserved, DWORD type, const BYTE* data, DWORD size)
{
    EXPECT_EQ(type, static_cast<DWORD>(REG_DWORD));
    g_written->push_back({name, *reinterpret_cast<const int*>(data)});
    if (static_cast<int>(g_written->size()) == g_failAt)
    {
        return ERROR_ACCESS_DENIED;
    }
    return ::RegSetValueExA(key, name, reserved, type, data, size);
}

std::vector<BOOL>* g_repaints = nullptr;

BOOL WINAPI RecordMove(HWND window, int x, int y, int cx, int cy, BOOL repaint)
{
    g_repaints->push_back(repaint);
    return ::MoveWindow(window, x, y, cx, cy, repaint);
}

// A virtual screen of the test's choice.
CRect g_screen;

int WINAPI FakeMetrics(int index)
{
    switch (index)
    {
    case SM_XVIRTUALSCREEN:
        return g_screen.left;
    case SM_YVIRTUALSCREEN:
        return g_screen.top;
    case SM_CXVIRTUALSCREEN:
        return g_screen.Width();
    case SM_CYVIRTUALSCREEN:
        return g_screen.Height();
    default:
        return ::GetSystemMetrics(index);
    }
}

class DynamicWndEx : public support::WindowTest
{
protected:
    static constexpr int kLeft = 100;
    static constexpr int kTop = 120;
    static constexpr int kWidth = 400;
    static constexpr int kHeight = 300;

    void SetUp() override
    {
        WindowTest::SetUp();
        Forget();
        m_frame = std::make_unique<support::TestFrame>();
        m_frame->MoveWindow(kLeft, kTop, kWidth, kHeight);
        m_ex = std::make_unique<Ex>();
    }
    void TearDown() override
    {
        m_ex.reset();
        m_frame.reset();
        Forget();
        WindowTest::TearDown();
    }
    static void Forget() { AfxGetApp()->WriteProfileString(kSection, nullptr, nullptr); }

    void Attach() { m_ex->DoInitWindow(*m_frame); }
    CRect Place() const
    {
        CRect rect;
        m_frame->GetWindowRect(rect);
        return rect;
    }
    static CRect FirstPlace() { return CRect(CPoint(kLeft, kTop), CSize(kWidth, kHeight)); }

    static int Read(const char* key) { return static_cast<int>(AfxGetApp()->GetProfileInt(kSection, key, -99)); }
    static void Write(const char* key, int value) { ASSERT_TRUE(AfxGetApp()->WriteProfileInt(kSection, key, value)); }
    // A whole record; entries may be changed afterwards.
    static void WriteRecord(const CRect& rect, int visibility = 1, int state = -1)
    {
        Write("(valid)", 1);
        Write("Left", rect.left);
        Write("Top", rect.top);
        Write("Right", rect.right);
        Write("Bottom", rect.bottom);
        Write("Visibility", visibility);
        Write("State", state);
    }

    std::unique_ptr<support::TestFrame> m_frame;
    std::unique_ptr<Ex> m_ex;
};

// --- names

TEST_F(DynamicWndEx, AWindowWithoutANameIsNotRemembered)
{
    EXPECT_TRUE(m_ex->m_strAutoPos.IsEmpty());
    Attach();
    EXPECT_EQ(Place(), FirstPlace());
    m_ex->DoOnDestroy();
    EXPECT_EQ(Read("(valid)"), -99);
}

TEST_F(DynamicWndEx, ANumberMakesANameInHexadecimal)
{
    m_ex->ActivateAutoPos(UINT{0x1A2b});
    EXPECT_STREQ(m_ex->m_strAutoPos, "ID=0x00001a2b");
    m_ex->ActivateAutoPos(CString("free text"));
    EXPECT_STREQ(m_ex->m_strAutoPos, "free text");
    m_ex->NoAutoPos();
    EXPECT_TRUE(m_ex->m_strAutoPos.IsEmpty());
    EXPECT_STREQ(cdxCDynamicWndEx::M_lpszAutoPosProfileSection, "WindowPositions");
}

TEST_F(DynamicWndEx, TheRecordLiesBelowTheSectionUnderTheWindowsName)
{
    m_ex->ActivateAutoPos(CString(kName));
    WriteRecord(CRect(50, 60, 350, 260));
    Attach();
    EXPECT_EQ(Place(), CRect(50, 60, 350, 260));
    m_frame->MoveWindow(70, 80, 310, 220);
    m_ex->DoOnDestroy();
    EXPECT_EQ(Read("Left"), 70);
    EXPECT_EQ(Read("Bottom"), 300);
}

// --- storing

TEST_F(DynamicWndEx, ARecordIsMarkedInvalidFirstAndValidLast)
{
    Attach();
    std::vector<Written> written;
    g_written = &written;
    g_failAt = 0;
    {
        const ImportHook hook("TavAfx.dll", "advapi32.dll", "RegSetValueExA", reinterpret_cast<void*>(RecordWrite));
        EXPECT_TRUE(m_ex->StoreWindowPosition(kSection));
    }
    EXPECT_THAT(written, ElementsAre(Written{"(valid)", 0}, Written{"Left", kLeft}, Written{"Right", kLeft + kWidth},
                                     Written{"Top", kTop}, Written{"Bottom", kTop + kHeight}, Written{"Visibility", 1},
                                     Written{"State", -1}, Written{"(valid)", 1}));
}

TEST_F(DynamicWndEx, TheFirstFailedWriteEndsTheStoreWithAnInvalidRecord)
{
    Attach();
    for (int failAt = 1; failAt <= 8; ++failAt)
    {
        WriteRecord(CRect(1, 2, 300, 400));
        std::vector<Written> written;
        g_written = &written;
        g_failAt = failAt;
        {
            const ImportHook hook("TavAfx.dll", "advapi32.dll", "RegSetValueExA", reinterpret_cast<void*>(RecordWrite));
            EXPECT_FALSE(m_ex->StoreWindowPosition(kSection));
        }
        EXPECT_EQ(static_cast<int>(written.size()), failAt);
        EXPECT_EQ(Read("(valid)"), failAt == 1 ? 1 : 0) << "write " << failAt;
    }
}

TEST_F(DynamicWndEx, AMaximisedWindowKeepsItsNormalPlaceBehindItsState)
{
    Attach();
    m_frame->ShowWindow(SW_MAXIMIZE);
    EXPECT_TRUE(m_ex->StoreWindowPosition(kSection));
    EXPECT_EQ(Read("State"), 1);
    EXPECT_EQ(Read("Visibility"), 1);
    EXPECT_EQ(Read("Left"), kLeft);
    EXPECT_EQ(Read("Right"), kLeft + kWidth);
    EXPECT_EQ(Read("Top"), kTop);
    EXPECT_EQ(Read("Bottom"), kTop + kHeight);
}

TEST_F(DynamicWndEx, AMinimisedWindowIsStoredAsWell)
{
    Attach();
    m_frame->ShowWindow(SW_MINIMIZE);
    EXPECT_TRUE(m_ex->StoreWindowPosition(kSection));
    EXPECT_EQ(Read("State"), 0);
    EXPECT_EQ(Read("Left"), kLeft);
    EXPECT_EQ(Read("Bottom"), kTop + kHeight);
}

TEST_F(DynamicWndEx, AHiddenWindowIsStoredAsHidden)
{
    Attach();
    m_frame->ShowWindow(SW_HIDE);
    EXPECT_TRUE(m_ex->StoreWindowPosition(kSection));
    EXPECT_EQ(Read("Visibility"), 0);
    EXPECT_EQ(Read("State"), -1);
}

TEST_F(DynamicWndEx, WithoutAWindowOrANameNothingIsStoredOrRestored)
{
    EXPECT_FALSE(m_ex->StoreWindowPosition(kSection));
    EXPECT_FALSE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_FALSE(m_ex->StretchWindow(CSize(10, 10)));
    EXPECT_FALSE(m_ex->StretchWindow(10));
    Attach();
    EXPECT_FALSE(m_ex->StoreWindowPosition(nullptr));
    EXPECT_FALSE(m_ex->StoreWindowPosition(""));
    EXPECT_FALSE(m_ex->RestoreWindowPosition(nullptr, kAll));
    EXPECT_FALSE(m_ex->RestoreWindowPosition("", kAll));
    EXPECT_EQ(Read("(valid)"), -99);
}

// The application's registry key taken away for a while.
class KeyTakenAway
{
public:
    KeyTakenAway() : m_key(AfxGetApp()->m_pszRegistryKey) { AfxGetApp()->m_pszRegistryKey = nullptr; }
    ~KeyTakenAway() { AfxGetApp()->m_pszRegistryKey = m_key; }
    KeyTakenAway(const KeyTakenAway&) = delete;
    KeyTakenAway& operator=(const KeyTakenAway&) = delete;

private:
    LPCTSTR m_key;
};

CRect CentredAndStretched(CSize size)
{
    const CSize screen(::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN));
    CRect rect(CPoint(screen.cx / 2 - size.cx / 2, screen.cy / 2 - size.cy / 2), size);
    const CSize growth(size.cx / 10, size.cy / 10);
    return CRect(rect.left - growth.cx / 2, rect.top - growth.cy / 2, rect.right + (growth.cx + 1) / 2,
                 rect.bottom + (growth.cy + 1) / 2);
}

TEST_F(DynamicWndEx, WithoutARegistryKeyNothingIsStoredAndTheWindowOpensCentred)
{
    WriteRecord(CRect(50, 60, 350, 260));
    m_ex->ActivateAutoPos(CString(kName));
    {
        const KeyTakenAway noKey;
        Attach();
        EXPECT_EQ(Place(), CentredAndStretched(CSize(kWidth, kHeight)));
        EXPECT_FALSE(m_ex->StoreWindowPosition(kSection));
        m_ex->DoOnDestroy();
    }
    EXPECT_EQ(Read("Left"), 50);
}

// --- restoring

TEST_F(DynamicWndEx, AWindowWithoutARecordIsCentredAndATenthLarger)
{
    m_ex->ActivateAutoPos(CString(kName));
    Attach();
    EXPECT_EQ(Place(), CentredAndStretched(CSize(kWidth, kHeight)));
}

TEST_F(DynamicWndEx, ARecordThatIsNotValidIsIgnored)
{
    WriteRecord(CRect(50, 60, 350, 260));
    Attach();
    for (const int valid : {0, 2, -1})
    {
        Write("(valid)", valid);
        EXPECT_FALSE(m_ex->RestoreWindowPosition(kSection, kAll));
        EXPECT_EQ(Place(), FirstPlace());
    }
    ASSERT_TRUE(AfxGetApp()->WriteProfileString(kSection, "(valid)", "1"));
    EXPECT_FALSE(m_ex->RestoreWindowPosition(kSection, kAll)) << "a text is no mark";
    Write("(valid)", 1);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_EQ(Place(), CRect(50, 60, 350, 260));
}

TEST_F(DynamicWndEx, SidesTheWrongWayRoundAreSwapped)
{
    WriteRecord(CRect(500, 460, 100, 60));
    Attach();
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_EQ(Place(), CRect(100, 60, 500, 460));
}

TEST_F(DynamicWndEx, AMissingSideIsThePresentOne)
{
    Write("(valid)", 1);
    Write("Left", 150);
    Attach();
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_EQ(Place(), CRect(150, kTop, kLeft + kWidth, kTop + kHeight));
    EXPECT_TRUE(m_frame->IsWindowVisible());
}

TEST_F(DynamicWndEx, AValueOfTheWrongTypeCountsAsMissing)
{
    WriteRecord(CRect(150, 60, 350, 260));
    ASSERT_TRUE(AfxGetApp()->WriteProfileString(kSection, "Top", "60"));
    ASSERT_TRUE(AfxGetApp()->WriteProfileString(kSection, "State", "1"));
    Attach();
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_EQ(Place(), CRect(150, kTop, 350, 260));
    EXPECT_FALSE(m_frame->IsZoomed());
}

TEST_F(DynamicWndEx, ARecordOnAScreenThatHasGoneLeavesTheWindowToBeCentred)
{
    WriteRecord(CRect(5000, 60, 5300, 260));
    m_ex->ActivateAutoPos(CString(kName));
    Attach();
    EXPECT_EQ(Place(), CentredAndStretched(CSize(kWidth, kHeight)));
    EXPECT_FALSE(m_ex->RestoreWindowPosition(kSection, kAll));
}

TEST_F(DynamicWndEx, AnOverlapOfTheMarginAloneIsNotEnough)
{
    Attach();
    g_screen = CRect(-200, -100, 1080, 800);
    const ImportHook hook("TavKit.dll", "user32.dll", "GetSystemMetrics", reinterpret_cast<void*>(FakeMetrics));
    const CSize size(300, 200);
    // The corner of the record that lies on the screen, by 5 pixels and then by 6.
    const CPoint outside[] = {CPoint(1075, 100), CPoint(-495, 100), CPoint(100, 795), CPoint(100, -295)};
    const CPoint inside[] = {CPoint(1074, 100), CPoint(-494, 100), CPoint(100, 794), CPoint(100, -294)};
    for (const CPoint& corner : outside)
    {
        WriteRecord(CRect(corner, size));
        EXPECT_FALSE(m_ex->RestoreWindowPosition(kSection, kAll)) << corner.x << ", " << corner.y;
        EXPECT_EQ(Place(), FirstPlace());
    }
    for (const CPoint& corner : inside)
    {
        WriteRecord(CRect(corner, size));
        EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll)) << corner.x << ", " << corner.y;
        EXPECT_EQ(Place(), CRect(corner, size));
    }
}

TEST_F(DynamicWndEx, AVirtualScreenWithoutASizeRefusesNothing)
{
    Attach();
    g_screen = CRect(0, 0, 0, 0);
    const ImportHook hook("TavKit.dll", "user32.dll", "GetSystemMetrics", reinterpret_cast<void*>(FakeMetrics));
    WriteRecord(CRect(1275, 60, 1575, 260));
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_EQ(Place(), CRect(1275, 60, 1575, 260));
}

TEST_F(DynamicWndEx, SidesOutOfRangeAreRefused)
{
    Attach();
    for (const CRect& rect :
         {CRect(kMost, 60, kMost, 260), CRect(kMost, kMost, kMost, kMost), CRect(kLeast, kLeast, kLeast, kLeast),
          CRect(kLeast, 60, kMost, 260), CRect(0, kLeast, 300, kMost), CRect(kMost, kLeast, kLeast, kMost)})
    {
        WriteRecord(rect);
        EXPECT_FALSE(m_ex->RestoreWindowPosition(kSection, kAll)) << rect.left << " " << rect.top;
        EXPECT_EQ(Place(), FirstPlace());
    }
}

TEST_F(DynamicWndEx, ALeftSideBeyondEveryScreenAloneIsTheRightSideOfAWindowThatTheSystemLimits)
{
    m_ex->ActivateAutoPos(CString(kName));
    WriteRecord(CRect(50, 60, 350, 260));
    Write("Left", kMost);
    Attach();
    const CRect place = Place();
    EXPECT_EQ(CRect(place.TopLeft(), CSize(0, place.Height())), CRect(350, 60, 350, 260));
    EXPECT_LE(place.Width(), ::GetSystemMetrics(SM_CXMAXTRACK));
    m_ex->DoOnDestroy();
    EXPECT_EQ(Read("(valid)"), 1);
    EXPECT_EQ(Read("Left"), 350);
    EXPECT_EQ(Read("Right"), place.right);
}

TEST_F(DynamicWndEx, TheStateComesBackOnTopOfTheNormalPlace)
{
    Attach();
    WriteRecord(CRect(50, 60, 450, 360), 1, 1);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_TRUE(m_frame->IsZoomed());
    m_frame->ShowWindow(SW_RESTORE);
    EXPECT_EQ(Place(), CRect(50, 60, 450, 360));

    WriteRecord(CRect(60, 70, 460, 370), 1, 0);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_TRUE(m_frame->IsIconic());
    m_frame->ShowWindow(SW_RESTORE);
    EXPECT_EQ(Place(), CRect(60, 70, 460, 370));

    WriteRecord(CRect(70, 80, 470, 380), 1, 77);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_FALSE(m_frame->IsZoomed() || m_frame->IsIconic());
}

TEST_F(DynamicWndEx, StateAndVisibilityComeBackOnlyIfAskedFor)
{
    Attach();
    WriteRecord(CRect(50, 60, 450, 360), 0, 1);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, 0));
    EXPECT_FALSE(m_frame->IsZoomed());
    EXPECT_TRUE(m_frame->IsWindowVisible());
    EXPECT_EQ(Place(), CRect(50, 60, 450, 360));
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, 2));
    EXPECT_FALSE(m_frame->IsZoomed());
    EXPECT_FALSE(m_frame->IsWindowVisible());
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, 1));
    EXPECT_TRUE(m_frame->IsZoomed());
}

TEST_F(DynamicWndEx, VisibilityShowsHidesOrLeavesTheWindow)
{
    Attach();
    WriteRecord(CRect(50, 60, 450, 360), 0);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_FALSE(m_frame->IsWindowVisible());
    Write("Visibility", 5);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_FALSE(m_frame->IsWindowVisible());
    Write("Visibility", 1);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_TRUE(m_frame->IsWindowVisible());
    Write("Visibility", -1);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    EXPECT_TRUE(m_frame->IsWindowVisible());
}

TEST_F(DynamicWndEx, ARestoredPlaceIsPaintedUnlessTheStateFollows)
{
    Attach();
    WriteRecord(CRect(50, 60, 450, 360));
    std::vector<BOOL> repaints;
    g_repaints = &repaints;
    const ImportHook hook("TavAfx.dll", "user32.dll", "MoveWindow", reinterpret_cast<void*>(RecordMove));
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    Write("State", 1);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, kAll));
    m_frame->ShowWindow(SW_RESTORE);
    EXPECT_TRUE(m_ex->RestoreWindowPosition(kSection, 2));
    EXPECT_THAT(repaints, ElementsAre(TRUE, FALSE, TRUE));
}

TEST_F(DynamicWndEx, ARoundOfStoreAndRestoreBringsTheWindowBack)
{
    m_ex->ActivateAutoPos(CString(kName));
    Attach();
    m_frame->MoveWindow(33, 44, 333, 222);
    m_ex->DoOnDestroy();
    m_frame->MoveWindow(kLeft, kTop, kWidth, kHeight);
    Ex next;
    next.ActivateAutoPos(CString(kName));
    next.DoInitWindow(*m_frame);
    EXPECT_EQ(Place(), CRect(33, 44, 366, 266));
}

TEST_F(DynamicWndEx, AWindowThatDiesWhileItIsRestoredIsLeftAlone)
{
    class Dying : public CWnd
    {
    public:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_MOVE && m_armed)
            {
                m_armed = false;
                DestroyWindow();
                return 0;
            }
            return CWnd::WindowProc(message, wParam, lParam);
        }
        bool m_armed = false;
    };
    WriteRecord(CRect(50, 60, 450, 360), 1, 1);
    Dying window;
    ASSERT_TRUE(
        window.CreateEx(0, AfxRegisterWndClass(0), "dies", WS_OVERLAPPEDWINDOW, 0, 0, 200, 200, nullptr, nullptr));
    Ex ex;
    ex.DoInitWindow(window);
    window.m_armed = true;
    ex.RestoreWindowPosition(kSection, kAll);
    EXPECT_EQ(window.m_hWnd, nullptr);
}

// --- stretching

struct StretchCase
{
    CSize growth;
    int left, top, right, bottom; // moves of the sides
};

TEST_F(DynamicWndEx, StretchingGivesTheOddPixelToTheRightAndTheBottom)
{
    Attach();
    for (const StretchCase& c : {StretchCase{CSize(3, 3), -1, -1, 2, 2}, StretchCase{CSize(-3, -3), 1, 1, -1, -1},
                                 StretchCase{CSize(4, 0), -2, 0, 2, 0}, StretchCase{CSize(0, -5), 0, 2, 0, -2}})
    {
        m_frame->MoveWindow(kLeft, kTop, kWidth, kHeight);
        EXPECT_TRUE(m_ex->StretchWindow(c.growth));
        const CRect first = FirstPlace();
        EXPECT_EQ(Place(),
                  CRect(first.left + c.left, first.top + c.top, first.right + c.right, first.bottom + c.bottom));
    }
}

TEST_F(DynamicWndEx, StretchingToNothingIsRefused)
{
    Attach();
    for (const CSize& growth : {CSize(-kWidth - 1, 0), CSize(0, -kHeight - 1), CSize(kLeast, kLeast), CSize(kMost, 0)})
    {
        EXPECT_FALSE(m_ex->StretchWindow(growth)) << growth.cx << " " << growth.cy;
        EXPECT_EQ(Place(), FirstPlace());
    }
}

TEST_F(DynamicWndEx, APercentageIsOfTheWholeWindowAndTruncates)
{
    m_frame->MoveWindow(kLeft, kTop, 409, 309);
    Attach();
    EXPECT_TRUE(m_ex->StretchWindow(10)); // by 40 and 30
    EXPECT_EQ(Place(), CRect(kLeft - 20, kTop - 15, kLeft + 409 + 20, kTop + 309 + 15));
    EXPECT_TRUE(m_ex->StretchWindow(0));
    EXPECT_FALSE(m_ex->StretchWindow(-200));
}

} // namespace
