// CreationTest.cpp - objects and their windows: creation, maps, subclassing, end

#include "support/WindowTest.h"

#include <afxcount.h>

using testing::ElementsAre;

namespace
{
class Traced : public CWnd
{
public:
    std::vector<std::string> m_calls;
    int m_createAnswer = 0;
    bool m_throwInCreate = false;
    bool m_refuse = false;
    bool m_forgetBase = false;

    BOOL Open(CWnd& parent, LPCTSTR cls = nullptr)
    {
        return Create(cls, "traced", WS_VISIBLE, CRect(0, 0, 50, 40), &parent, 0xFFFF);
    }
    BOOL PreCreateWindow(CREATESTRUCT& cs) override
    {
        m_calls.emplace_back("pre create");
        return !m_refuse && CWnd::PreCreateWindow(cs);
    }
    void PreSubclassWindow() override
    {
        m_calls.emplace_back(m_hWnd != nullptr ? "subclass" : "subclass without window");
    }
    void PostNcDestroy() override { m_calls.emplace_back(m_hWnd == nullptr ? "post" : "post with window"); }

protected:
    BOOL OnNcCreate(LPCREATESTRUCT cs)
    {
        m_calls.emplace_back("nc create");
        return CWnd::OnNcCreate(cs);
    }
    int OnCreate(LPCREATESTRUCT)
    {
        m_calls.emplace_back("create");
        if (m_throwInCreate)
        {
            AfxThrowUserException();
        }
        return m_createAnswer;
    }
    void OnNcDestroy()
    {
        m_calls.emplace_back("nc destroy");
        if (!m_forgetBase)
        {
            CWnd::OnNcDestroy();
        }
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Traced, CWnd)
    ON_WM_NCCREATE()
    ON_WM_CREATE()
    ON_WM_NCDESTROY()
END_MESSAGE_MAP()

class SelfDeleting : public CWnd
{
public:
    explicit SelfDeleting(int& ended) : m_ended(ended) {}
    int m_createAnswer = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_CREATE)
        {
            return m_createAnswer;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
    void PostNcDestroy() override
    {
        ++m_ended;
        delete this;
    }

private:
    int& m_ended;
};

class Creation : public support::WindowTest
{
};
} // namespace

TEST_F(Creation, TheObjectHasItsWindowBeforeTheFirstMessage)
{
    support::TestFrame frame;
    Traced wnd;
    ASSERT_TRUE(wnd.Open(frame));
    EXPECT_THAT(wnd.m_calls, ElementsAre("pre create", "subclass", "nc create", "create"));
    EXPECT_EQ(CWnd::FromHandlePermanent(wnd.m_hWnd), &wnd);
}

TEST_F(Creation, ANullClassIsTheFrameworksOwn)
{
    support::TestFrame frame;
    Traced wnd;
    ASSERT_TRUE(wnd.Open(frame));
    const auto style = static_cast<UINT>(::GetClassLongPtrA(wnd.m_hWnd, GCL_STYLE));
    EXPECT_EQ(style, static_cast<UINT>(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW));
    EXPECT_EQ(::GetClassLongPtrA(wnd.m_hWnd, GCLP_HBRBACKGROUND), 0u);
    EXPECT_EQ(reinterpret_cast<HCURSOR>(::GetClassLongPtrA(wnd.m_hWnd, GCLP_HCURSOR)),
              ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32512)));
    EXPECT_FALSE(::IsWindowUnicode(wnd.m_hWnd));
}

TEST_F(Creation, ARefusalBeforeTheWindowRunsPostNcDestroy)
{
    support::TestFrame frame;
    Traced wnd;
    wnd.m_refuse = true;
    EXPECT_FALSE(wnd.Open(frame));
    EXPECT_THAT(wnd.m_calls, ElementsAre("pre create", "post"));
}

TEST_F(Creation, AnUnknownClassRunsPostNcDestroyOnce)
{
    support::TestFrame frame;
    Traced wnd;
    EXPECT_FALSE(wnd.Open(frame, "NoSuchClassAnywhere"));
    EXPECT_THAT(wnd.m_calls, ElementsAre("pre create", "post"));
    Traced next; // the hook is gone: the next window isn't mistaken for the first
    ASSERT_TRUE(next.Open(frame));
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST_F(Creation, AHandlerThatAnswersMinusOneRefusesTheWindow)
{
    support::TestFrame frame;
    Traced wnd;
    wnd.m_createAnswer = -1;
    EXPECT_FALSE(wnd.Open(frame));
    EXPECT_EQ(wnd.m_calls.back(), "post");
    EXPECT_EQ(std::count(wnd.m_calls.begin(), wnd.m_calls.end(), "post"), 1);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST_F(Creation, AnExceptionInOnCreateRefusesTheWindow)
{
    support::TestFrame frame;
    Traced wnd;
    wnd.m_throwInCreate = true;
    EXPECT_FALSE(wnd.Open(frame));
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST_F(Creation, AnObjectThatDeletesItselfDoesSoOnceHoweverCreationEnds)
{
    support::TestFrame frame;
    int ended = 0;
    auto* wnd = new SelfDeleting(ended);
    wnd->m_createAnswer = -1;
    EXPECT_FALSE(wnd->Create(nullptr, "", 0, CRect(0, 0, 9, 9), &frame, 1));
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE((new SelfDeleting(ended))->Create("NoSuchClassAnywhere", "", 0, CRect(0, 0, 9, 9), &frame, 1));
    EXPECT_EQ(ended, 2);
    wnd = new SelfDeleting(ended);
    ASSERT_TRUE(wnd->Create(nullptr, "", 0, CRect(0, 0, 9, 9), &frame, 1));
    EXPECT_TRUE(wnd->DestroyWindow());
    EXPECT_EQ(ended, 3);
}

TEST_F(Creation, DestroyingDetachesAndThenRunsPostNcDestroy)
{
    support::TestFrame frame;
    Traced wnd;
    ASSERT_TRUE(wnd.Open(frame));
    const HWND hWnd = wnd.m_hWnd;
    wnd.m_calls.clear();
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_THAT(wnd.m_calls, ElementsAre("nc destroy", "post"));
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
    EXPECT_FALSE(wnd.DestroyWindow());
}

TEST_F(Creation, AnOnNcDestroyThatForgetsItsBaseStillLosesTheHandle)
{
    support::TestFrame frame;
    Traced wnd;
    wnd.m_forgetBase = true;
    ASSERT_TRUE(wnd.Open(frame));
    const HWND hWnd = wnd.m_hWnd;
    ::DestroyWindow(hWnd);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(hWnd), nullptr);
}

TEST_F(Creation, TheDestructorDestroysTheWindow)
{
    support::TestFrame frame;
    HWND hWnd = nullptr;
    const int before = AfxGetLiveCount(AfxResource::Window);
    {
        CWnd wnd;
        ASSERT_TRUE(wnd.Create(nullptr, "", 0, CRect(0, 0, 9, 9), &frame, 1));
        hWnd = wnd.m_hWnd;
    }
    EXPECT_FALSE(::IsWindow(hWnd));
    EXPECT_EQ(AfxGetLiveCount(AfxResource::Window), before);
}

TEST_F(Creation, AnIdOfMinusOneStaysSixteenBitsWide)
{
    support::TestFrame frame;
    Traced wnd;
    ASSERT_TRUE(wnd.Open(frame));
    EXPECT_EQ(wnd.GetDlgCtrlID() & 0xFFFF, 0xFFFF);
}

TEST_F(Creation, FromHandleGivesTheObjectOfTheWindowOrOneTemporary)
{
    support::TestFrame frame;
    EXPECT_EQ(CWnd::FromHandle(frame.m_hWnd), &frame);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(nullptr), nullptr);
    const HWND raw = ::CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 9, 9, frame.m_hWnd, nullptr, nullptr, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(raw), nullptr);
    CWnd* const temporary = CWnd::FromHandle(raw);
    ASSERT_NE(temporary, nullptr);
    EXPECT_EQ(CWnd::FromHandle(raw), temporary);
    EXPECT_EQ(CWnd::FromHandlePermanent(raw), nullptr);
    AfxGetApp()->OnIdle(0); // updates only
    EXPECT_EQ(CWnd::FromHandle(raw), temporary);
    AfxGetApp()->OnIdle(1);
    EXPECT_TRUE(::IsWindow(raw)); // only the object went
}

TEST_F(Creation, ANullObjectHasANullHandle)
{
    const CWnd* nothing = nullptr;
    EXPECT_EQ(nothing->GetSafeHwnd(), nullptr);
    EXPECT_EQ(static_cast<HWND>(*nothing), nullptr);
}

TEST_F(Creation, AttachRefusesNullAndAWindowWithAnObject)
{
    support::TestFrame frame;
    CWnd wnd;
    EXPECT_FALSE(wnd.Attach(nullptr));
    EXPECT_FALSE(wnd.Attach(frame.m_hWnd));
    EXPECT_EQ(wnd.Detach(), nullptr);
}

TEST_F(Creation, SubclassingSeesMessagesAndKeepsTheFormerProcedureAsDefault)
{
    support::TestFrame frame;
    const HWND raw = ::CreateWindowExA(0, "EDIT", "abc", WS_CHILD, 0, 0, 90, 20, frame.m_hWnd,
                                       reinterpret_cast<HMENU>(UINT_PTR{12}), nullptr, nullptr);
    const LONG_PTR former = ::GetWindowLongPtrA(raw, GWLP_WNDPROC);
    Traced wnd;
    EXPECT_FALSE(wnd.SubclassDlgItem(13, &frame));
    ASSERT_TRUE(wnd.SubclassDlgItem(12, &frame));
    EXPECT_THAT(wnd.m_calls, ElementsAre("subclass"));
    EXPECT_EQ(wnd.SendMessage(EM_GETLIMITTEXT),
              ::CallWindowProcA(reinterpret_cast<WNDPROC>(former), raw, EM_GETLIMITTEXT, 0, 0));
    EXPECT_EQ(wnd.UnsubclassWindow(), raw);
    EXPECT_EQ(::GetWindowLongPtrA(raw, GWLP_WNDPROC), former);
    EXPECT_EQ(wnd.m_hWnd, nullptr);
}

TEST_F(Creation, TheEndOfTheMainWindowEndsTheLoop)
{
    CWinThread* const thread = AfxGetThread();
    CWnd* const before = thread->m_pMainWnd;
    {
        support::TestFrame frame;
        thread->m_pMainWnd = &frame;
        frame.DestroyWindow();
    }
    EXPECT_EQ(thread->m_pMainWnd, nullptr);
    MSG msg;
    EXPECT_TRUE(::PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    thread->m_pMainWnd = before;
}

TEST_F(Creation, SetWindowPosConstantsAreTheSystems)
{
    EXPECT_EQ(CWnd::wndTop.m_hWnd, HWND_TOP);
    EXPECT_EQ(CWnd::wndBottom.m_hWnd, HWND_BOTTOM);
    EXPECT_EQ(CWnd::wndTopMost.m_hWnd, HWND_TOPMOST);
    EXPECT_EQ(CWnd::wndNoTopMost.m_hWnd, HWND_NOTOPMOST);
}

TEST_F(Creation, CenteringAChildPutsItInTheMiddleOfItsParent)
{
    support::TestFrame frame;
    CWnd wnd;
    ASSERT_TRUE(wnd.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 100, 50), &frame, 1));
    wnd.CenterWindow();
    CRect client;
    CRect rect;
    frame.GetClientRect(&client);
    wnd.GetWindowRect(&rect);
    frame.ScreenToClient(&rect);
    EXPECT_EQ(rect.left, client.right / 2 - 50);
    EXPECT_EQ(rect.top, client.bottom / 2 - 25);
}

TEST_F(Creation, ModifyStyleTellsWhetherItChangedAnything)
{
    support::TestFrame frame;
    EXPECT_FALSE(frame.ModifyStyle(0, WS_VISIBLE));
    EXPECT_TRUE(frame.ModifyStyle(0, WS_HSCROLL, SWP_FRAMECHANGED));
    EXPECT_NE(frame.GetStyle() & WS_HSCROLL, 0u);
    EXPECT_TRUE(frame.ModifyStyle(WS_HSCROLL, 0));
    EXPECT_EQ(frame.GetStyle() & WS_HSCROLL, 0u);
}
