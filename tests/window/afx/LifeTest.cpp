// LifeTest.cpp - objects that end under a handler, temporary objects, the message under way, the way of the input

#include "support/WindowTest.h"

#include <cstring>

using testing::ElementsAre;

namespace
{
/// Deletes itself with its window and leaves nothing readable behind: a call or a field of the dead object would crash.
class Mortal : public CWnd
{
public:
    explicit Mortal(bool& gone) : m_gone(gone) {}
    Mortal(const Mortal&) = delete;
    Mortal& operator=(const Mortal&) = delete;

    static void operator delete(void* memory, size_t size)
    {
        ::memset(memory, 0xDD, size);
        asm volatile("" : : "r"(memory) : "memory"); // the store counts although the object is dead
        ::operator delete(memory);
    }
    static void* operator new(size_t size) { return ::operator new(size); }

protected:
    ~Mortal() override { m_gone = true; }
    void PostNcDestroy() override { delete this; }

private:
    bool& m_gone;
};

/// Ends in the moment in which it gets the focus.
class EndsWithFocus : public Mortal
{
public:
    using Mortal::Mortal;

protected:
    void OnSetFocus(CWnd*) { DestroyWindow(); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(EndsWithFocus, CWnd)
    ON_WM_SETFOCUS()
END_MESSAGE_MAP()

/// A cell editor's habit: Enter gives the focus to the parent, and the loss of the focus ends the editor.
class Cell : public Mortal
{
public:
    using Mortal::Mortal;

protected:
    void OnKeyDown(UINT key, UINT, UINT)
    {
        if (key == VK_RETURN)
        {
            GetParent()->SetFocus(); // this is gone now
        }
    }
    void OnKillFocus(CWnd*) { DestroyWindow(); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Cell, CWnd)
    ON_WM_KEYDOWN()
    ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

/// Notes what the message under way says about a click.
class Watcher : public CWnd
{
public:
    std::vector<CPoint> m_clicks;
    std::vector<UINT> m_messages;

protected:
    void OnLButtonDown(UINT, CPoint)
    {
        SendMessage(WM_NULL); // a message inside, which must not leave its traces
        m_clicks.emplace_back(GetCurrentMessage()->pt);
        m_messages.push_back(GetCurrentMessage()->message);
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Watcher, CWnd)
    ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

class Life : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<support::TestFrame>();
    }
    void TearDown() override
    {
        m_frame.reset();
        WindowTest::TearDown();
    }
    /// A window without an object of its own.
    HWND RawChild(int id = 7) const
    {
        return ::CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 9, 9, m_frame->m_hWnd,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }
    std::unique_ptr<support::TestFrame> m_frame;
};
} // namespace

TEST_F(Life, AnObjectMayEndInItsOwnSetFocus)
{
    bool gone = false;
    auto* const mortal = new EndsWithFocus(gone);
    ASSERT_TRUE(mortal->Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 20), m_frame.get(), 1));
    m_frame->SetFocus();
    EXPECT_EQ(mortal->SetFocus(), m_frame.get()) << "the window that had the focus";
    EXPECT_TRUE(gone);
}

TEST_F(Life, AnObjectMayEndInAKeyHandlerByGivingTheFocusAway)
{
    bool gone = false;
    auto* const cell = new Cell(gone);
    ASSERT_TRUE(cell->Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 20), m_frame.get(), 1));
    cell->SetFocus();
    support::PressKey(VK_RETURN);
    EXPECT_TRUE(support::PumpUntil([&] { return gone; }));
    EXPECT_EQ(::GetFocus(), m_frame->m_hWnd);
}

TEST_F(Life, TemporaryObjectsLiveThroughTheFirstIdleCallAndEndWithTheSecond)
{
    const HWND raw = RawChild();
    // What a temporary object was told is forgotten when it ends.
    CWnd* const temporary = CWnd::FromHandle(raw);
    temporary->SetOwner(temporary);
    AfxGetThread()->OnIdle(0);
    EXPECT_EQ(CWnd::FromHandle(raw), temporary);
    EXPECT_EQ(CWnd::FromHandle(raw)->GetOwner()->m_hWnd, raw);
    AfxGetThread()->OnIdle(1);
    EXPECT_EQ(CWnd::FromHandle(raw)->GetOwner(), m_frame.get());
    EXPECT_TRUE(::IsWindow(raw)) << "the end of a temporary object isn't that of its window";
    ::DestroyWindow(raw);
}

TEST_F(Life, LockedMapsKeepTheirTemporaryObjectsThroughIdleWork)
{
    const HWND raw = RawChild();
    AfxLockTempMaps();
    CWnd* const temporary = CWnd::FromHandle(raw);
    temporary->SetOwner(temporary);
    AfxGetThread()->OnIdle(1);
    EXPECT_EQ(CWnd::FromHandle(raw)->GetOwner()->m_hWnd, raw);
    AfxUnlockTempMaps();
    EXPECT_EQ(CWnd::FromHandle(raw)->GetOwner(), m_frame.get());
    ::DestroyWindow(raw);
}

TEST_F(Life, TheMessageUnderWayTellsWhereTheMouseWasWhenItWasPosted)
{
    Watcher watcher;
    ASSERT_TRUE(watcher.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 300, 200), m_frame.get(), 1));
    support::Settle();
    const POINT pressed = support::ScreenPoint(watcher.m_hWnd, 40, 30);
    support::Click(pressed);
    support::MoveMouse(support::ScreenPoint(watcher.m_hWnd, 200, 150)); // before anybody has looked at the queue
    EXPECT_TRUE(support::PumpUntil([&] { return !watcher.m_clicks.empty(); }));
    EXPECT_THAT(watcher.m_clicks, ElementsAre(CPoint(pressed)));
    EXPECT_THAT(watcher.m_messages, ElementsAre(static_cast<UINT>(WM_LBUTTONDOWN)));
}

TEST_F(Life, SendMessageToDescendantsReachesWhatItIsToldTo)
{
    class Counter : public CWnd
    {
    public:
        int m_count = 0;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            m_count += message == WM_APP ? 1 : 0;
            return CWnd::WindowProc(message, wParam, lParam);
        }
    };
    Counter child;
    ASSERT_TRUE(child.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), m_frame.get(), 1));
    // Between the two stands a window that only the system knows.
    const HWND raw = ::CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 9, 9, child.m_hWnd, nullptr, nullptr, nullptr);
    Counter grandchild;
    ASSERT_TRUE(grandchild.CreateEx(0, AfxRegisterWndClass(0), "", WS_CHILD, 0, 0, 5, 5, raw, nullptr));
    m_frame->SendMessageToDescendants(WM_APP, 0, 0, FALSE, FALSE);
    EXPECT_EQ(child.m_count, 1);
    EXPECT_EQ(grandchild.m_count, 0);
    m_frame->SendMessageToDescendants(WM_APP, 0, 0, TRUE, TRUE);
    EXPECT_EQ(child.m_count, 2);
    EXPECT_EQ(grandchild.m_count, 1) << "the walk passes through windows without an object";
    EXPECT_EQ(m_frame->Count(WM_APP), 0) << "the window itself is none of its descendants";
}

TEST_F(Life, OfWindowsWithOneIdTheInnerOneIsTheDescendant)
{
    CWnd outer;
    CWnd inner;
    ASSERT_TRUE(outer.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), m_frame.get(), 9));
    ASSERT_TRUE(inner.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 20, 20), &outer, 9));
    EXPECT_EQ(m_frame->GetDescendantWindow(9, TRUE), &inner);
    const HWND raw = RawChild(10);
    EXPECT_EQ(m_frame->GetDescendantWindow(10, TRUE), nullptr);
    ASSERT_NE(m_frame->GetDescendantWindow(10, FALSE), nullptr);
    EXPECT_EQ(m_frame->GetDescendantWindow(10, FALSE)->m_hWnd, raw);
    ::DestroyWindow(raw);
}

TEST_F(Life, AKeyGoesFromItsWindowThroughTheParentsToTheMainWindowBeforeItIsTranslated)
{
    struct Step
    {
        std::vector<std::string>* order = nullptr;
        const char* name = "";
        BOOL take = FALSE;
        BOOL Look(const MSG* msg) const
        {
            if (msg->message == WM_KEYDOWN)
            {
                order->emplace_back(name);
                return take;
            }
            return FALSE;
        }
    };
    class Window : public CWnd
    {
    public:
        Step m_step;
        int m_keys = 0;
        int m_chars = 0;
        BOOL PreTranslateMessage(MSG* msg) override { return m_step.Look(msg) || CWnd::PreTranslateMessage(msg); }

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            m_keys += message == WM_KEYDOWN ? 1 : 0;
            m_chars += message == WM_CHAR ? 1 : 0;
            return CWnd::WindowProc(message, wParam, lParam);
        }
    };
    std::vector<std::string> order;
    Window beyond; // above the main window
    Window main;
    Window middle;
    Window focus;
    const auto open = [&order](Window& window, CWnd& parent, const char* name) {
        window.m_step = {&order, name};
        return window.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), &parent, 1);
    };
    ASSERT_TRUE(open(beyond, *m_frame, "beyond"));
    ASSERT_TRUE(open(main, beyond, "main"));
    ASSERT_TRUE(open(middle, main, "middle"));
    ASSERT_TRUE(open(focus, middle, "focus"));
    CWinThread* const thread = AfxGetThread();
    thread->m_pMainWnd = &main;
    focus.SetFocus();
    support::PressKey('A');
    EXPECT_TRUE(support::PumpUntil([&] { return focus.m_chars == 1; }));
    EXPECT_THAT(order, ElementsAre("focus", "middle", "main"));
    order.clear();
    middle.m_step.take = TRUE;
    support::PressKey('B');
    EXPECT_TRUE(support::PumpUntil([&] { return order.size() >= 2; }));
    support::Settle();
    EXPECT_THAT(order, ElementsAre("focus", "middle"));
    EXPECT_EQ(focus.m_keys, 1) << "an eaten key doesn't reach the window";
    EXPECT_EQ(focus.m_chars, 1) << "nor does its character";
    thread->m_pMainWnd = nullptr;
}

TEST_F(Life, TheDefaultOfAHandlerGetsTheMessageAsItCame)
{
    class Sender : public CWnd
    {
    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_SETTEXT)
            {
                SendMessage(WM_GETTEXTLENGTH); // another one in between
                return Default();
            }
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } window;
    ASSERT_TRUE(window.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), m_frame.get(), 1));
    window.SetWindowText("as it came");
    CString text;
    window.GetWindowText(text);
    EXPECT_STREQ(text, "as it came");
}

TEST_F(Life, AHandlerThatPumpsWhileItLooksAtAMessageStillLooksAtThatOne)
{
    class Window : public CWnd
    {
    public:
        UINT m_afterwards = 0;
        std::vector<UINT> m_handled;
        BOOL PreTranslateMessage(MSG* msg) override
        {
            if (msg->message == WM_APP + 1)
            {
                AfxPumpMessage();
                m_afterwards = msg->message;
            }
            return CWnd::PreTranslateMessage(msg);
        }

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_APP + 1 || message == WM_APP + 2)
            {
                m_handled.push_back(message);
            }
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } window;
    ASSERT_TRUE(window.Create(nullptr, "", 0, CRect(0, 0, 50, 50), m_frame.get(), 1));
    support::Settle();
    window.PostMessage(WM_APP + 1);
    window.PostMessage(WM_APP + 2);
    while (window.m_handled.size() < 2 && AfxPumpMessage())
    {
    }
    EXPECT_EQ(window.m_afterwards, static_cast<UINT>(WM_APP + 1));
    EXPECT_THAT(window.m_handled, ElementsAre(WM_APP + 2, WM_APP + 1));
}
