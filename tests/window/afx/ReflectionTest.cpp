// ReflectionTest.cpp - notifications handed back to the control that sent them

#include "support/WindowTest.h"

#include <algorithm>
#include <memory>

using testing::ElementsAre;

namespace
{
constexpr UINT kId = 31;
constexpr UINT kCode = static_cast<UINT>(-2000);
constexpr UINT kExCode = static_cast<UINT>(-2001);
constexpr LRESULT kChildResult = 5;

class Parent : public CWnd
{
public:
    std::vector<std::string> m_calls;
    UINT m_notifyEvent = 0;

protected:
    void OnClicked() { m_calls.emplace_back("parent clicked"); }
    void OnDouble() { m_calls.emplace_back("parent double"); }
    void OnCode(NMHDR*, LRESULT* result)
    {
        m_calls.emplace_back("parent code");
        *result = 11;
    }
    void OnExCode(NMHDR*, LRESULT* result)
    {
        m_calls.push_back("parent ex code, result " + std::to_string(*result));
        *result = 12;
    }
    void OnParentNotify(UINT message, LPARAM lParam)
    {
        m_notifyEvent = message;
        CWnd::OnParentNotify(message, lParam);
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Parent, CWnd)
    ON_BN_CLICKED(kId, &Parent::OnClicked)
    ON_BN_DOUBLECLICKED(kId, &Parent::OnDouble)
    ON_NOTIFY(kCode, kId, &Parent::OnCode)
    ON_NOTIFY(kExCode, kId, &Parent::OnExCode)
    ON_WM_PARENTNOTIFY()
END_MESSAGE_MAP()

class Child : public CButton
{
public:
    Parent* m_parent = nullptr;
    BOOL m_eat = TRUE;
    HBRUSH m_brush = nullptr;
    UINT m_colorKind = 99;

protected:
    void OnClicked() { m_parent->m_calls.emplace_back("child clicked"); }
    BOOL OnDouble()
    {
        m_parent->m_calls.emplace_back("child double");
        return m_eat;
    }
    void OnCode(NMHDR*, LRESULT* result)
    {
        m_parent->m_calls.emplace_back("child code");
        *result = kChildResult;
    }
    BOOL OnExCode(NMHDR*, LRESULT* result)
    {
        m_parent->m_calls.push_back("child ex code, result " + std::to_string(*result));
        return m_eat;
    }
    HBRUSH CtlColor(CDC*, UINT kind)
    {
        m_colorKind = kind;
        return m_brush;
    }
    void ParentNotify(UINT event, LPARAM)
    {
        m_parent->m_calls.push_back("child event " + std::to_string(LOWORD(event)));
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Child, CButton)
    ON_CONTROL_REFLECT(BN_CLICKED, &Child::OnClicked)
    ON_CONTROL_REFLECT_EX(BN_DOUBLECLICKED, &Child::OnDouble)
    ON_NOTIFY_REFLECT(kCode, &Child::OnCode)
    ON_NOTIFY_REFLECT_EX(kExCode, &Child::OnExCode)
    ON_WM_CTLCOLOR_REFLECT()
    ON_WM_PARENTNOTIFY_REFLECT()
END_MESSAGE_MAP()

class Reflection : public support::WindowTest
{
protected:
    void Open()
    {
        m_frame = std::make_unique<support::TestFrame>();
        ASSERT_TRUE(m_parent.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 200, 200), m_frame.get(), 1));
        m_child.m_parent = &m_parent;
        ASSERT_TRUE(m_child.Create("child", WS_CHILD | WS_VISIBLE, CRect(0, 0, 60, 20), &m_parent, kId));
        m_parent.m_calls.clear();
    }
    void TearDown() override
    {
        m_child.DestroyWindow();
        m_parent.DestroyWindow();
        m_frame.reset();
        WindowTest::TearDown();
    }
    LRESULT Notify(UINT code, UINT_PTR idInHeader = kId, WPARAM wParam = kId)
    {
        NMHDR header = {m_child.m_hWnd, idInHeader, code};
        return m_parent.SendMessage(WM_NOTIFY, wParam, reinterpret_cast<LPARAM>(&header));
    }
    void Command(UINT code)
    {
        m_parent.SendMessage(WM_COMMAND, MAKEWPARAM(kId, code), reinterpret_cast<LPARAM>(m_child.m_hWnd));
    }

    std::unique_ptr<support::TestFrame> m_frame;
    Parent m_parent;
    Child m_child;
};
} // namespace

TEST_F(Reflection, APlainCommandReflectionKeepsTheNotificationFromTheParent)
{
    Open();
    Command(BN_CLICKED);
    EXPECT_THAT(m_parent.m_calls, ElementsAre("child clicked"));
}

TEST_F(Reflection, AnExtendedCommandReflectionDecidesWhetherTheParentSeesIt)
{
    Open();
    Command(BN_DOUBLECLICKED);
    EXPECT_THAT(m_parent.m_calls, ElementsAre("child double"));
    m_child.m_eat = FALSE;
    Command(BN_DOUBLECLICKED);
    EXPECT_THAT(m_parent.m_calls, ElementsAre("child double", "child double", "parent double"));
}

TEST_F(Reflection, APlainNotifyReflectionAnswersInPlaceOfTheParent)
{
    Open();
    EXPECT_EQ(Notify(kCode), kChildResult);
    EXPECT_THAT(m_parent.m_calls, ElementsAre("child code"));
}

TEST_F(Reflection, AnExtendedNotifyReflectionMayLetTheParentAnswer)
{
    Open();
    m_child.m_eat = FALSE;
    EXPECT_EQ(Notify(kExCode), 12);
    EXPECT_THAT(m_parent.m_calls, ElementsAre("child ex code, result 0", "parent ex code, result 0"));
}

TEST_F(Reflection, TheControlIsKnownByItsHandleAndNotByTheIdsInTheMessage)
{
    Open();
    m_child.m_eat = FALSE;
    EXPECT_EQ(Notify(kExCode, 555, 777), 12);
    EXPECT_THAT(m_parent.m_calls, ElementsAre("child ex code, result 0", "parent ex code, result 0"));
}

TEST_F(Reflection, AControlWithoutAnObjectOfItsOwnReflectsNothing)
{
    Open();
    CWnd* const temporary = m_parent.GetDlgItem(static_cast<int>(kId));
    EXPECT_EQ(temporary, &m_child);
    const HWND hWnd = m_child.UnsubclassWindow();
    NMHDR header = {hWnd, kId, kCode};
    EXPECT_EQ(m_parent.SendMessage(WM_NOTIFY, kId, reinterpret_cast<LPARAM>(&header)), 11);
    EXPECT_THAT(m_parent.m_calls, ElementsAre("parent code"));
    ::DestroyWindow(hWnd);
}

TEST_F(Reflection, ABrushOfTheControlIsTheAnswerToItsColourRequest)
{
    Open();
    m_child.m_brush = static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH));
    const HDC dc = ::GetDC(m_child.m_hWnd);
    const LRESULT answer =
        m_parent.SendMessage(WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(m_child.m_hWnd));
    EXPECT_EQ(reinterpret_cast<HBRUSH>(answer), m_child.m_brush);
    EXPECT_EQ(m_child.m_colorKind, static_cast<UINT>(CTLCOLOR_BTN));
    ::ReleaseDC(m_child.m_hWnd, dc);
}

TEST_F(Reflection, ANullBrushOfTheControlLeavesTheColoursToTheDefault)
{
    Open();
    const HDC dc = ::GetDC(m_child.m_hWnd);
    const WPARAM wParam = reinterpret_cast<WPARAM>(dc);
    const LPARAM lParam = reinterpret_cast<LPARAM>(m_child.m_hWnd);
    const LRESULT plain = ::DefWindowProcA(m_parent.m_hWnd, WM_CTLCOLORSTATIC, wParam, lParam);
    EXPECT_NE(plain, 0);
    EXPECT_EQ(m_parent.SendMessage(WM_CTLCOLORSTATIC, wParam, lParam), plain);
    EXPECT_EQ(m_child.m_colorKind, static_cast<UINT>(CTLCOLOR_STATIC));
    ::ReleaseDC(m_child.m_hWnd, dc);
}

TEST_F(Reflection, ParentNotifyHandsOverTheWholeWordWithTheChildsIdAboveAndReflectsTheEndOfAChild)
{
    Open();
    m_child.DestroyWindow();
    EXPECT_EQ(m_parent.m_notifyEvent, static_cast<UINT>(MAKELONG(WM_DESTROY, kId)));
    EXPECT_THAT(m_parent.m_calls, ElementsAre("child event " + std::to_string(WM_DESTROY)));
}

TEST_F(Reflection, AParentMayDieInTheNotificationOfItsChild)
{
    Open();
    class Killer : public CWnd
    {
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_COMMAND)
            {
                DestroyWindow();
                return 0;
            }
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } killer;
    ASSERT_TRUE(killer.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 100, 100), m_frame.get(), 2));
    CButton button;
    ASSERT_TRUE(button.Create("kill", WS_CHILD | WS_VISIBLE, CRect(0, 0, 60, 20), &killer, 3));
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(killer.m_hWnd, nullptr);
    EXPECT_EQ(button.m_hWnd, nullptr);
}

TEST_F(Reflection, AParentMayDieWithItsObjectInWhatItsChildMakesOfANotification)
{
    Open();
    // Leaves nothing sensible behind in its memory, so that no use of it goes unnoticed.
    class Spoiled : public CWnd
    {
    public:
        static void operator delete(void* memory, std::size_t size)
        {
            std::fill_n(static_cast<unsigned char volatile*>(memory), size, static_cast<unsigned char>(0x7F));
            CWnd::operator delete(memory);
        }
    };
    class Killer : public CButton
    {
    public:
        std::unique_ptr<Spoiled> m_parent;

    protected:
        BOOL OnChildNotify(UINT message, WPARAM, LPARAM, LRESULT*) override
        {
            if (message == WM_COMMAND || message == WM_NOTIFY)
            {
                m_parent.reset();
            }
            return FALSE;
        }
    } killer;
    for (const UINT message : {WM_COMMAND, WM_NOTIFY})
    {
        killer.m_parent = std::make_unique<Spoiled>();
        ASSERT_TRUE(killer.m_parent->Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 100, 100), m_frame.get(), 2));
        ASSERT_TRUE(killer.Create("kill", WS_CHILD, CRect(0, 0, 60, 20), killer.m_parent.get(), 3));
        NMHDR header = {killer.m_hWnd, 3, kCode};
        const HWND parent = *killer.m_parent;
        ::SendMessageA(parent, message, MAKEWPARAM(3, BN_CLICKED),
                       message == WM_NOTIFY ? reinterpret_cast<LPARAM>(&header)
                                            : reinterpret_cast<LPARAM>(killer.m_hWnd));
        EXPECT_FALSE(::IsWindow(parent));
        EXPECT_EQ(killer.m_hWnd, nullptr);
    }
}

TEST_F(Reflection, AnOwnerDrawnComboMeasuresItselfWhileItIsBeingCreated)
{
    Open();
    class Combo : public CComboBox
    {
    public:
        int m_measured = 0;
        void MeasureItem(LPMEASUREITEMSTRUCT item) override
        {
            ++m_measured;
            item->itemHeight = 37;
        }
        void DrawItem(LPDRAWITEMSTRUCT) override {}
    } combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED, CRect(0, 0, 90, 90), &m_parent, 44));
    EXPECT_GT(combo.m_measured, 0);
    EXPECT_EQ(combo.GetItemHeight(0), 37);
}
