// DispatchTest.cpp - from the window procedure to a handler: map order, registered messages, defaults, exceptions

#include "support/WindowTest.h"

#include <stdexcept>

using testing::ElementsAre;

namespace
{
constexpr UINT kPlain = WM_USER + 1;
constexpr UINT kInherited = WM_USER + 2;
constexpr UINT kNested = WM_USER + 3;
constexpr UINT kThrow = WM_USER + 4;
constexpr UINT kThrowStd = WM_USER + 5;
constexpr UINT kThrowInt = WM_USER + 6;
constexpr UINT kDeleteThis = WM_USER + 7;
constexpr UINT kDestroy = WM_USER + 8;
constexpr UINT kUser = WM_USER + 9;

class Base : public CWnd
{
public:
    std::vector<std::string> m_calls;
    static UINT s_registered;
    CPoint m_point;
    UINT m_flags = 0;
    int m_cx = 0;

    BOOL Open(CWnd& parent) { return Create(nullptr, "dispatch", WS_VISIBLE, CRect(0, 0, 80, 60), &parent, 7); }

protected:
    LRESULT OnPlain(WPARAM, LPARAM)
    {
        m_calls.emplace_back("base plain");
        return 1;
    }
    LRESULT OnInherited(WPARAM w, LPARAM l)
    {
        m_calls.emplace_back("base inherited");
        return static_cast<LRESULT>(w) + l;
    }
    LRESULT OnRegistered(WPARAM, LPARAM)
    {
        m_calls.emplace_back("registered");
        return 77;
    }
    void OnMouseMove(UINT flags, CPoint point)
    {
        m_flags = flags;
        m_point = point;
    }
    void OnSize(UINT type, int cx, int cy)
    {
        m_cx = cx;
        CWnd::OnSize(type, cx, cy);
    }
    DECLARE_MESSAGE_MAP()
};
UINT Base::s_registered = 0;

BEGIN_MESSAGE_MAP(Base, CWnd)
    ON_MESSAGE(kPlain, &Base::OnPlain)
    ON_MESSAGE(kInherited, &Base::OnInherited)
    ON_REGISTERED_MESSAGE(s_registered, &Base::OnRegistered)
    ON_WM_MOUSEMOVE()
    ON_WM_SIZE()
END_MESSAGE_MAP()

class Derived : public Base
{
public:
    UINT m_messageAfterNested = 0;
    WPARAM m_wParamAfterNested = 0;
    bool* m_gone = nullptr;
    ~Derived() override
    {
        if (m_gone != nullptr)
        {
            *m_gone = true;
        }
    }

protected:
    LRESULT OnPlain(WPARAM, LPARAM)
    {
        m_calls.emplace_back("derived plain");
        return 2;
    }
    LRESULT OnNested(WPARAM, LPARAM)
    {
        SendMessage(kPlain, 5);
        m_messageAfterNested = GetCurrentMessage()->message;
        m_wParamAfterNested = GetCurrentMessage()->wParam;
        return 0;
    }
    LRESULT OnThrow(WPARAM, LPARAM) { AfxThrowUserException(); }
    LRESULT OnThrowStd(WPARAM, LPARAM) { throw std::runtime_error("handler lost its way"); }
    LRESULT OnThrowInt(WPARAM, LPARAM) { throw 3; }
    LRESULT OnDeleteThis(WPARAM, LPARAM)
    {
        delete this;
        return 9;
    }
    LRESULT OnDestroyNow(WPARAM, LPARAM)
    {
        DestroyWindow();
        m_calls.emplace_back(m_hWnd == nullptr ? "no window" : "window");
        return 4;
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Derived, Base)
    ON_MESSAGE(kPlain, &Derived::OnPlain)
    ON_MESSAGE(kNested, &Derived::OnNested)
    ON_MESSAGE(kThrow, &Derived::OnThrow)
    ON_MESSAGE(kThrowStd, &Derived::OnThrowStd)
    ON_MESSAGE(kThrowInt, &Derived::OnThrowInt)
    ON_MESSAGE(kDeleteThis, &Derived::OnDeleteThis)
    ON_MESSAGE(kDestroy, &Derived::OnDestroyNow)
END_MESSAGE_MAP()

class Dispatch : public support::WindowTest
{
protected:
    /// The first box loads fonts and icons for the life of the process.
    static void SetUpTestSuite()
    {
        for (int round = 0; round < 2; ++round)
        {
            support::ModalHelper box(AfxGetApp()->m_pszAppName, [](HWND h) { support::PressButton(h, IDOK); });
            AfxMessageBox("warm");
        }
    }
};
} // namespace

TEST_F(Dispatch, TheMostDerivedMapAnswersFirst)
{
    support::TestFrame frame;
    Derived wnd;
    ASSERT_TRUE(wnd.Open(frame));
    EXPECT_EQ(wnd.SendMessage(kPlain), 2);
    EXPECT_THAT(wnd.m_calls, ElementsAre("derived plain"));
}

TEST_F(Dispatch, AMessageWithoutEntryInTheClassIsFoundInItsBase)
{
    support::TestFrame frame;
    Derived wnd;
    ASSERT_TRUE(wnd.Open(frame));
    EXPECT_EQ(wnd.SendMessage(kInherited, 3, 4), 7);
    EXPECT_EQ(wnd.SendMessage(kInherited, 30, 4), 34); // from the cache
}

TEST_F(Dispatch, TwoClassesWithTheSameMessageKeepTheirOwnHandlers)
{
    support::TestFrame frame;
    Derived derived;
    Base base;
    ASSERT_TRUE(derived.Open(frame));
    ASSERT_TRUE(base.Open(frame));
    for (int round = 0; round < 3; ++round)
    {
        EXPECT_EQ(derived.SendMessage(kPlain), 2);
        EXPECT_EQ(base.SendMessage(kPlain), 1);
    }
}

TEST_F(Dispatch, ARegisteredMessageIsFoundByTheVariablesValueEvenIfItWasSetLate)
{
    support::TestFrame frame;
    Derived wnd;
    ASSERT_TRUE(wnd.Open(frame));
    const UINT number = ::RegisterWindowMessageA("TavKitDispatchTest");
    Base::s_registered = 0;
    EXPECT_EQ(wnd.SendMessage(number), 0);
    Base::s_registered = number;
    EXPECT_EQ(wnd.SendMessage(number), 77);
    Base::s_registered = ::RegisterWindowMessageA("TavKitDispatchTestOther");
    EXPECT_EQ(wnd.SendMessage(number), 0);
}

TEST_F(Dispatch, MouseCoordinatesAreSigned)
{
    support::TestFrame frame;
    Base wnd;
    ASSERT_TRUE(wnd.Open(frame));
    wnd.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-5, -7));
    EXPECT_EQ(wnd.m_point, CPoint(-5, -7));
    EXPECT_EQ(wnd.m_flags, static_cast<UINT>(MK_LBUTTON));
}

TEST_F(Dispatch, SizesAreNotSigned)
{
    support::TestFrame frame;
    Base wnd;
    ASSERT_TRUE(wnd.Open(frame));
    wnd.SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(40000, 10));
    EXPECT_EQ(wnd.m_cx, 40000);
}

TEST_F(Dispatch, TheMessageUnderWayIsBackAfterANestedOne)
{
    support::TestFrame frame;
    Derived wnd;
    ASSERT_TRUE(wnd.Open(frame));
    wnd.SendMessage(kNested, 42);
    EXPECT_EQ(wnd.m_messageAfterNested, kNested);
    EXPECT_EQ(wnd.m_wParamAfterNested, 42u);
}

TEST_F(Dispatch, AUserExceptionEndsInTheProcedureWithoutAWord)
{
    support::TestFrame frame;
    Derived wnd;
    ASSERT_TRUE(wnd.Open(frame));
    EXPECT_EQ(wnd.SendMessage(kThrow), 0);
    EXPECT_EQ(wnd.SendMessage(kPlain), 2);
}

TEST_F(Dispatch, AStandardExceptionIsShownWithItsTextAndAnswersZero)
{
    support::TestFrame frame;
    Derived wnd;
    ASSERT_TRUE(wnd.Open(frame));
    std::string text;
    support::ModalHelper box(AfxGetApp()->m_pszAppName, [&](HWND hWnd) {
        char buffer[200] = "";
        ::GetDlgItemTextA(hWnd, 65535, buffer, sizeof buffer);
        text = buffer;
        support::PressButton(hWnd, IDOK);
    });
    EXPECT_EQ(wnd.SendMessage(kThrowStd), 0);
    EXPECT_TRUE(box.Done());
    EXPECT_EQ(text, "handler lost its way");
    AllowGdiGrowth("the system's cache of window contexts grows at the first box or dialog of a kind, not again");
}

TEST_F(Dispatch, AnExceptionOfAnyTypeEndsInTheProcedure)
{
    support::TestFrame frame;
    Derived wnd;
    ASSERT_TRUE(wnd.Open(frame));
    support::ModalHelper box(AfxGetApp()->m_pszAppName, [](HWND hWnd) { support::PressButton(hWnd, IDOK); });
    EXPECT_EQ(wnd.SendMessage(kThrowInt), 0);
    EXPECT_TRUE(box.Done());
}

TEST_F(Dispatch, AHandlerMayDeleteItsObject)
{
    support::TestFrame frame;
    auto* const wnd = new Derived;
    bool gone = false;
    wnd->m_gone = &gone;
    ASSERT_TRUE(wnd->Open(frame));
    const HWND hWnd = wnd->m_hWnd;
    EXPECT_EQ(::SendMessageA(hWnd, kDeleteThis, 0, 0), 9);
    EXPECT_TRUE(gone);
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
}

TEST_F(Dispatch, AHandlerMayDestroyItsWindow)
{
    support::TestFrame frame;
    Derived wnd;
    ASSERT_TRUE(wnd.Open(frame));
    EXPECT_EQ(wnd.SendMessage(kDestroy), 4);
    EXPECT_THAT(wnd.m_calls, ElementsAre("no window"));
}

TEST_F(Dispatch, AMessageWithoutAnyEntryGoesToTheDefault)
{
    support::TestFrame frame;
    Derived wnd;
    ASSERT_TRUE(wnd.Open(frame));
    EXPECT_EQ(wnd.SendMessage(kUser), 0);
    wnd.SetWindowText("told by default");
    CString text;
    wnd.GetWindowText(text);
    EXPECT_STREQ(text, "told by default");
}

TEST_F(Dispatch, CommandsAndNotificationsAreNotLookedUpAsPlainMessages)
{
    support::TestFrame frame;
    Derived wnd;
    ASSERT_TRUE(wnd.Open(frame));
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, MAKEWPARAM(0, 0), 0), 0);
    EXPECT_EQ(wnd.SendMessage(WM_NOTIFY, 0, 0), 0); // a null header does no harm
}
