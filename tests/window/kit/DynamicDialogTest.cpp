// DynamicDialogTest.cpp - dialogs that keep their shape and remember their place, also across processes

#include "../layoutproc/LayoutProc.h"

#include "LayoutFixture.h"

#include "support/Print.h"
#include "support/WindowTest.h"
#include "tavkit/layout/DynamicChildDlg.h"

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;

constexpr char kSection[] = "WindowPositions\\ID=0x00001069";
static_assert(IDD_LAYOUT == 0x1069);
constexpr UINT kNoSuchTemplate = 4999;
constexpr UINT kGripId = 59936;

CRect PlaceOf(HWND window)
{
    CRect rect;
    ::GetWindowRect(window, rect);
    return rect;
}

class Dialog : public cdxCDynamicDialog
{
public:
    using cdxCDynamicDialog::cdxCDynamicDialog;
    using cdxCDynamicDialog::m_Freedom;
    using cdxCDynamicDialog::m_Map;
    using cdxCDynamicDialog::m_strAutoPos;

    std::function<void()> m_onInit; ///< inside OnInitDialog, after the base's
    std::function<void()> m_onInitialized;
    std::vector<std::string> m_order;

    BOOL OnInitDialog() override
    {
        m_order.push_back("init begins");
        const BOOL result = cdxCDynamicDialog::OnInitDialog();
        m_order.push_back("init ends");
        AddSzControl(IDC_LAYOUT_TEXT, ModeStretch, ModeStay, CSize(0, 0), true);
        AddSzControl(IDCANCEL, BotRight, CSize(0, 0), true);
        if (m_onInit)
        {
            m_onInit();
        }
        return result;
    }
    void OnInitialized() override
    {
        m_order.push_back("initialized");
        if (m_onInitialized)
        {
            m_onInitialized();
            return;
        }
        cdxCDynamicDialog::OnInitialized();
    }
    void OnDestroying() override
    {
        m_order.push_back("destroying");
        cdxCDynamicDialog::OnDestroying();
    }
    CRect ChildPlace(UINT id) const
    {
        CRect rect = PlaceOf(::GetDlgItem(m_hWnd, static_cast<int>(id)));
        ScreenToClient(rect);
        return rect;
    }
};

class DynamicDialog : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        Forget();
    }
    void TearDown() override
    {
        Forget();
        WindowTest::TearDown();
    }
    static void Forget() { AfxGetApp()->WriteProfileString("WindowPositions", nullptr, nullptr); }
    static int Read(const char* key) { return static_cast<int>(AfxGetApp()->GetProfileInt(kSection, key, -99)); }

    // Shows a dialog modally, acts on it and closes it.
    static INT_PTR RunModal(Dialog& dialog, const std::function<void()>& act)
    {
        const support::ModalHelper helper(LAYOUT_TITLE, [&](HWND) {
            act();
            if (dialog.m_hWnd != nullptr)
            {
                dialog.PostMessage(WM_CLOSE);
            }
        });
        const INT_PTR result = dialog.DoModal();
        EXPECT_TRUE(helper.Done());
        return result;
    }
};

// --- construction

TEST_F(DynamicDialog, ATemplatesNumberOrNameIsTheNameOfItsPlace)
{
    EXPECT_STREQ(Dialog(UINT{IDD_LAYOUT}).m_strAutoPos, "ID=0x00001069");
    EXPECT_STREQ(Dialog("some dialog").m_strAutoPos, "some dialog");
    EXPECT_STREQ(Dialog("").m_strAutoPos, "");
    EXPECT_STREQ(Dialog(static_cast<const char*>(nullptr)).m_strAutoPos, "");
    EXPECT_STREQ(Dialog().m_strAutoPos, "");
}

TEST_F(DynamicDialog, BuiltWithoutArgumentsItIsFreeWithGripAndAntiFlicker)
{
    const Dialog dialog;
    EXPECT_EQ(dialog.m_Freedom, cdxCDynamicWnd::FreedomXY);
    EXPECT_EQ(dialog.GetFlags(), 3u);
    EXPECT_FALSE(dialog.IsValid());
    EXPECT_STREQ(dialog.GetRuntimeClass()->m_lpszClassName, "cdxCDynamicDialog");
    EXPECT_TRUE(dialog.IsKindOf(RUNTIME_CLASS(CBCGDialog)));
}

TEST_F(DynamicDialog, ATemplateThatDoesNotExistIsNotShownAndStoresNothing)
{
    Dialog modal(kNoSuchTemplate);
    EXPECT_EQ(modal.DoModal(), -1);
    EXPECT_EQ(modal.m_hWnd, nullptr);
    Dialog modeless;
    EXPECT_FALSE(modeless.Create(kNoSuchTemplate));
    Dialog named("no such template");
    EXPECT_EQ(named.DoModal(), -1);
    EXPECT_TRUE(modal.m_order.empty());
    EXPECT_EQ(AfxGetApp()->GetProfileInt("WindowPositions\\ID=0x00001387", "(valid)", 7), 7u);
}

// --- order of events

TEST_F(DynamicDialog, AttachesInsideOnInitDialogAndLetsGoOnceWhenDestroyed)
{
    Dialog dialog(UINT{IDD_LAYOUT});
    ASSERT_TRUE(dialog.Create(IDD_LAYOUT));
    EXPECT_TRUE(dialog.IsUp());
    EXPECT_EQ(dialog.Window(), &dialog);
    EXPECT_TRUE(dialog.DestroyWindow());
    EXPECT_THAT(dialog.m_order, ElementsAre("init begins", "initialized", "init ends", "destroying"));
    EXPECT_EQ(Read("(valid)"), 1);
}

TEST_F(DynamicDialog, AWindowThatIsDestroyedFromOutsideStoresItsPlaceToo)
{
    Dialog dialog(UINT{IDD_LAYOUT});
    ASSERT_TRUE(dialog.Create(IDD_LAYOUT));
    dialog.MoveWindow(210, 220, 500, 400);
    ::DestroyWindow(dialog.m_hWnd);
    EXPECT_FALSE(dialog.IsValid());
    EXPECT_EQ(Read("Left"), 210);
    EXPECT_EQ(Read("Right"), 710);
    EXPECT_EQ(dialog.m_order.back(), "destroying");
}

TEST_F(DynamicDialog, ADialogObjectThatDiesTakesItsWindowAndItsGripAlong)
{
    HWND window = nullptr;
    {
        Dialog dialog(UINT{IDD_LAYOUT});
        ASSERT_TRUE(dialog.Create(IDD_LAYOUT));
        window = dialog.m_hWnd;
    }
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(DynamicDialog, WithoutANumberNothingIsRememberedOrMoved)
{
    Dialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_LAYOUT));
    const CRect place = PlaceOf(dialog.m_hWnd);
    Dialog next;
    ASSERT_TRUE(next.Create(IDD_LAYOUT));
    EXPECT_EQ(PlaceOf(next.m_hWnd), place) << "neither centred nor stretched";
    dialog.DestroyWindow();
    next.DestroyWindow();
    EXPECT_EQ(Read("(valid)"), -99);
}

TEST_F(DynamicDialog, AnUnknownDialogOpensCentredAndATenthLarger)
{
    Dialog plain;
    ASSERT_TRUE(plain.Create(IDD_LAYOUT));
    const CSize size = PlaceOf(plain.m_hWnd).Size();
    plain.DestroyWindow();
    Dialog dialog(UINT{IDD_LAYOUT});
    ASSERT_TRUE(dialog.Create(IDD_LAYOUT));
    const CRect place = PlaceOf(dialog.m_hWnd);
    EXPECT_EQ(place.Size(), size + CSize(size.cx / 10, size.cy / 10));
    EXPECT_NEAR(place.CenterPoint().x, ::GetSystemMetrics(SM_CXSCREEN) / 2, 1);
    EXPECT_NEAR(place.CenterPoint().y, ::GetSystemMetrics(SM_CYSCREEN) / 2, 1);
    dialog.DestroyWindow();
}

// --- layout

TEST_F(DynamicDialog, ControlsRegisteredAfterwardsAreInPlaceAndFollow)
{
    Dialog dialog(UINT{IDD_LAYOUT});
    ASSERT_TRUE(dialog.Create(IDD_LAYOUT));
    dialog.ShowWindow(SW_SHOW);
    const CRect button = dialog.ChildPlace(IDCANCEL);
    const CRect text = dialog.ChildPlace(IDC_LAYOUT_TEXT);
    CRect window = PlaceOf(dialog.m_hWnd);
    window.right += 60;
    window.bottom += 40;
    dialog.MoveWindow(window);
    EXPECT_EQ(dialog.ChildPlace(IDCANCEL), button + CPoint(60, 40));
    EXPECT_EQ(dialog.ChildPlace(IDC_LAYOUT_TEXT), CRect(text.left, text.top, text.right + 60, text.bottom));
    dialog.DestroyWindow();
}

TEST_F(DynamicDialog, CannotBeMadeSmallerThanItsTemplate)
{
    Dialog plain;
    ASSERT_TRUE(plain.Create(IDD_LAYOUT));
    const CSize size = PlaceOf(plain.m_hWnd).Size();
    plain.MoveWindow(0, 0, 10, 10);
    EXPECT_EQ(PlaceOf(plain.m_hWnd).Size(), size);
    plain.DestroyWindow();
}

TEST_F(DynamicDialog, AChildThatDiesIsForgottenUnlessItIsTheTemplates)
{
    // Controls of a template don't tell their parent of their end; they are passed over when they are gone.
    Dialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_LAYOUT));
    CWnd child;
    ASSERT_TRUE(child.Create(AfxRegisterWndClass(0), "", WS_CHILD, CRect(0, 0, 5, 5), &dialog, 7));
    ASSERT_TRUE(dialog.AddSzControl(child.m_hWnd, cdxCDynamicWnd::TopLeft, CSize(0, 0), false));
    const UINT before = dialog.GetCtrlCount();
    child.DestroyWindow();
    EXPECT_EQ(dialog.GetCtrlCount(), before - 1);
    ::DestroyWindow(::GetDlgItem(dialog.m_hWnd, IDC_LAYOUT_TEXT));
    const CRect button = dialog.ChildPlace(IDCANCEL);
    CRect window = PlaceOf(dialog.m_hWnd);
    window.right += 30;
    dialog.MoveWindow(window);
    EXPECT_EQ(dialog.ChildPlace(IDCANCEL), button + CPoint(30, 0));
    dialog.DestroyWindow();
}

TEST_F(DynamicDialog, TheClassStyleComesBackBehindASizing)
{
    Dialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_LAYOUT));
    const DWORD found = ::GetClassLongA(dialog.m_hWnd, GCL_STYLE);
    constexpr DWORD kRedrawBits = CS_HREDRAW | CS_VREDRAW;
    CRect rect = PlaceOf(dialog.m_hWnd);
    dialog.SendMessage(WM_SIZING, WMSZ_LEFT, reinterpret_cast<LPARAM>(&rect));
    EXPECT_EQ(::GetClassLongA(dialog.m_hWnd, GCL_STYLE) & kRedrawBits, kRedrawBits);
    EXPECT_TRUE(support::PumpUntil(
        [&] { return (::GetClassLongA(dialog.m_hWnd, GCL_STYLE) & kRedrawBits) == (found & kRedrawBits); }));
    ::SetClassLongA(dialog.m_hWnd, GCL_STYLE, static_cast<LONG>(found)); // the other bits, for the tests that come
    dialog.DestroyWindow();
}

// --- place, in one process

TEST_F(DynamicDialog, AModalDialogComesBackWhereItWasLeft)
{
    Dialog first(UINT{IDD_LAYOUT});
    EXPECT_EQ(RunModal(first, [&] { first.MoveWindow(140, 150, 520, 410); }), IDCANCEL);
    Dialog second(UINT{IDD_LAYOUT});
    CRect place;
    RunModal(second, [&] { place = PlaceOf(second.m_hWnd); });
    EXPECT_EQ(place, CRect(CPoint(140, 150), CSize(520, 410)));
}

TEST_F(DynamicDialog, AModalDialogLeftMaximisedComesBackMaximisedAndVisible)
{
    Dialog first(UINT{IDD_LAYOUT});
    EXPECT_EQ(RunModal(first,
                       [&] {
                           first.MoveWindow(140, 150, 520, 410);
                           first.ShowWindow(SW_MAXIMIZE);
                       }),
              IDCANCEL);
    Dialog second(UINT{IDD_LAYOUT});
    bool zoomed = false;
    CRect normal;
    RunModal(second, [&] {
        zoomed = second.IsZoomed() && second.IsWindowVisible();
        WINDOWPLACEMENT placement{};
        placement.length = sizeof placement;
        second.GetWindowPlacement(&placement);
        normal = placement.rcNormalPosition;
    });
    EXPECT_TRUE(zoomed);
    EXPECT_EQ(normal, CRect(CPoint(140, 150), CSize(520, 410)));
}

// --- windows that die at a bad moment

TEST_F(DynamicDialog, ADialogDestroyedWhileItIsInitialisedEndsWithoutHarm)
{
    Dialog modeless;
    modeless.m_onInitialized = [&] { modeless.DestroyWindow(); };
    modeless.Create(IDD_LAYOUT);
    EXPECT_EQ(modeless.m_hWnd, nullptr);
    EXPECT_FALSE(modeless.IsValid());

    Dialog modal(UINT{IDD_LAYOUT});
    modal.m_onInitialized = [&] { modal.DestroyWindow(); };
    EXPECT_EQ(modal.DoModal(), -1);
    EXPECT_EQ(modal.m_hWnd, nullptr);

    Dialog late(UINT{IDD_LAYOUT});
    late.m_onInit = [&] { late.DestroyWindow(); };
    EXPECT_EQ(late.DoModal(), -1);
}

TEST_F(DynamicDialog, ADialogDestroyedInsideItsModalLoopEndsIt)
{
    Dialog dialog(UINT{IDD_LAYOUT});
    const INT_PTR result = RunModal(dialog, [&] {
        dialog.MoveWindow(140, 150, 520, 410);
        dialog.DestroyWindow();
    });
    EXPECT_EQ(result, -1);
    EXPECT_EQ(Read("Left"), 140);
}

// --- the grip by real mouse input

TEST_F(DynamicDialog, DraggingTheGripSizesTheDialog)
{
    Dialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_LAYOUT));
    dialog.MoveWindow(100, 100, 400, 300);
    dialog.ShowWindow(SW_SHOW);
    ::SetForegroundWindow(dialog.m_hWnd);
    support::Settle();
    const CRect button = dialog.ChildPlace(IDCANCEL);
    HWND grip = ::GetDlgItem(dialog.m_hWnd, kGripId);
    ASSERT_NE(grip, nullptr);
    const POINT from = support::CenterOf(grip);
    const CRect goal(100, 100, 770, 560);
    const DWORD thread = ::GetCurrentThreadId();
    {
        const support::InputThread drag({
            [&] { support::MoveMouse(from); },
            [&] { support::Press(); },
            [&] { EXPECT_TRUE(support::WaitFor([&] { return layout_test::IsSizing(thread); })); },
            [&] {
                support::MoveMouse({from.x + 70, from.y + 30});
            },
            [&] { EXPECT_TRUE(support::WaitFor([&] { return PlaceOf(dialog.m_hWnd).Width() == 470; })); },
            [&] {
                support::MoveMouse({from.x + 270, from.y + 160});
            },
            [&] { EXPECT_TRUE(support::WaitFor([&] { return PlaceOf(dialog.m_hWnd).right == goal.right; })); },
            [&] { support::Release(); },
        });
        EXPECT_TRUE(support::PumpUntil([&] { return PlaceOf(dialog.m_hWnd) == goal; }));
    }
    support::Settle();
    EXPECT_EQ(dialog.ChildPlace(IDCANCEL), button + CPoint(270, 160));
    AllowGdiGrowth("the system keeps its own cursors once they have been set");
    dialog.DestroyWindow();
}

// --- place, across processes

// The helper program, ended with the object if it hasn't ended by itself.
class OtherProcess
{
public:
    explicit OtherProcess(const std::string& arguments)
    {
        char path[MAX_PATH] = "";
        ::GetModuleFileNameA(nullptr, path, sizeof path);
        std::string program(path);
        program = program.substr(0, program.find_last_of("\\/") + 1) + "LayoutProc.exe";
        std::string line = "\"" + program + "\" " + arguments;
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        EXPECT_TRUE(::CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                     &startup, &m_process));
    }
    ~OtherProcess()
    {
        Kill();
        ::CloseHandle(m_process.hThread);
        ::CloseHandle(m_process.hProcess);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;

    // Its dialog as soon as it shows; null when it doesn't.
    HWND WaitForDialog() const
    {
        HWND found = nullptr;
        EXPECT_TRUE(support::PumpUntil([&] {
            for (HWND window = nullptr; (window = ::FindWindowExA(nullptr, window, "#32770", LAYOUT_TITLE)) != nullptr;)
            {
                DWORD process = 0;
                ::GetWindowThreadProcessId(window, &process);
                if (process == m_process.dwProcessId && ::IsWindowVisible(window))
                {
                    found = window;
                    return true;
                }
            }
            return false;
        }));
        return found;
    }
    bool HasEnded() const { return ::WaitForSingleObject(m_process.hProcess, 0) == WAIT_OBJECT_0; }
    void WaitForEnd() const
    {
        EXPECT_TRUE(support::PumpUntil([&] { return HasEnded(); }));
        DWORD code = 0;
        ::GetExitCodeProcess(m_process.hProcess, &code);
        EXPECT_EQ(code, 0u);
    }
    void Kill() const
    {
        if (!HasEnded())
        {
            ::TerminateProcess(m_process.hProcess, 3);
            ::WaitForSingleObject(m_process.hProcess, INFINITE);
        }
    }

private:
    PROCESS_INFORMATION m_process{};
};

TEST_F(DynamicDialog, ALeftSideBeyondEveryScreenLeavesADialogThatCanBeReachedAndIsStoredWhole)
{
    for (const char* key : {"(valid)", "Top", "Visibility"})
    {
        AfxGetApp()->WriteProfileInt(kSection, key, 1);
    }
    AfxGetApp()->WriteProfileInt(kSection, "Left", std::numeric_limits<int>::max());
    AfxGetApp()->WriteProfileInt(kSection, "Right", 200);
    AfxGetApp()->WriteProfileInt(kSection, "Bottom", 400);
    Dialog dialog(UINT{IDD_LAYOUT});
    EXPECT_EQ(RunModal(dialog,
                       [&] {
                           const CRect place = PlaceOf(dialog.m_hWnd);
                           EXPECT_EQ(place.TopLeft(), CPoint(200, 1));
                           EXPECT_LE(place.Width(), ::GetSystemMetrics(SM_CXMAXTRACK));
                           CRect client;
                           dialog.GetClientRect(client);
                           const CRect grip = dialog.ChildPlace(kGripId);
                           EXPECT_NEAR(grip.right, client.right, 1);
                           EXPECT_NEAR(grip.bottom, client.bottom, 1);
                       }),
              IDCANCEL);
    EXPECT_EQ(Read("(valid)"), 1);
    EXPECT_EQ(Read("Left"), 200);
    EXPECT_LE(Read("Right"), 200 + ::GetSystemMetrics(SM_CXMAXTRACK));
}

TEST_F(DynamicDialog, TheNextProcessFindsTheDialogMovedSizedAndMaximisedAsItWasLeft)
{
    {
        const OtherProcess process(LAYOUT_MODE_OPEN);
        HWND dialog = process.WaitForDialog();
        ASSERT_NE(dialog, nullptr);
        ::SetWindowPos(dialog, nullptr, 160, 170, 540, 430, SWP_NOZORDER | SWP_NOACTIVATE);
        ASSERT_TRUE(support::PumpUntil([&] { return PlaceOf(dialog) == CRect(160, 170, 700, 600); }));
        ::PostMessageA(dialog, WM_CLOSE, 0, 0);
        process.WaitForEnd();
    }
    {
        const OtherProcess process(LAYOUT_MODE_OPEN);
        HWND dialog = process.WaitForDialog();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(PlaceOf(dialog), CRect(160, 170, 700, 600));
        ::ShowWindow(dialog, SW_MAXIMIZE);
        ASSERT_TRUE(support::PumpUntil([&] { return ::IsZoomed(dialog); }));
        ::PostMessageA(dialog, WM_CLOSE, 0, 0);
        process.WaitForEnd();
    }
    const OtherProcess process(LAYOUT_MODE_OPEN);
    HWND dialog = process.WaitForDialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(::IsZoomed(dialog));
    ::ShowWindow(dialog, SW_RESTORE);
    EXPECT_TRUE(support::PumpUntil([&] { return PlaceOf(dialog) == CRect(160, 170, 700, 600); }));
    ::PostMessageA(dialog, WM_CLOSE, 0, 0);
    process.WaitForEnd();
}

TEST_F(DynamicDialog, AProcessKilledBetweenTwoWritesLeavesARecordThatDoesNotCount)
{
    constexpr int kWrites = 8;
    HANDLE stopped = ::CreateEventA(nullptr, FALSE, FALSE, LAYOUT_STOPPED_EVENT);
    for (int writes = 1; writes <= kWrites; ++writes)
    {
        for (const char* key : {"Left", "Right", "Top", "Bottom"})
        {
            AfxGetApp()->WriteProfileInt(kSection, key, 77);
        }
        AfxGetApp()->WriteProfileInt(kSection, "(valid)", 1);
        {
            const OtherProcess process(std::string(LAYOUT_MODE_STORE) + " " + std::to_string(writes));
            ASSERT_TRUE(support::PumpUntil([&] { return ::WaitForSingleObject(stopped, 0) == WAIT_OBJECT_0; }));
            process.Kill();
        }
        EXPECT_EQ(Read("(valid)"), writes == kWrites ? 1 : 0) << writes;
        EXPECT_EQ(Read("Left"), writes >= 2 ? 300 : 77) << writes;
        EXPECT_EQ(Read("Bottom"), writes >= 5 ? 630 : 77) << writes;
    }
    ::CloseHandle(stopped);
    EXPECT_EQ(Read("State"), -1);
}

} // namespace
