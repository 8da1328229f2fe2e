// NotifyTest.cpp - what controls ask and tell their parents: scrolling, measuring, colours, the letters of
// notifications

#include "DialogTemplate.h"
#include "support/WindowTest.h"

#include <afxcmn.h>

using testing::ElementsAre;

namespace
{
constexpr UINT kScroll = 21;
constexpr UINT kSlider = 22;
constexpr UINT kList = 23;
constexpr UINT kCode = static_cast<UINT>(-2000);
constexpr UINT kListHeight = 29;

class ScrollParent : public CWnd
{
public:
    std::vector<std::string> m_calls;
    CScrollBar* m_from = nullptr;

protected:
    void OnHScroll(UINT code, UINT pos, CScrollBar* bar)
    {
        m_calls.push_back("parent h " + std::to_string(code) + " " + std::to_string(pos));
        m_from = bar;
        CWnd::OnHScroll(code, pos, bar);
    }
    void OnVScroll(UINT code, UINT pos, CScrollBar* bar)
    {
        m_calls.push_back("parent v " + std::to_string(code) + " " + std::to_string(pos));
        m_from = bar;
        CWnd::OnVScroll(code, pos, bar);
    }
    void OnReflected(NMHDR*, LRESULT*) { m_calls.emplace_back("parent took what was reflected"); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(ScrollParent, CWnd)
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_NOTIFY_REFLECT(kCode, &ScrollParent::OnReflected)
END_MESSAGE_MAP()

class Scroller : public CScrollBar
{
public:
    std::vector<UINT> m_codes;
    UINT m_pos = 0;

protected:
    void HScroll(UINT code, UINT pos)
    {
        m_codes.push_back(code);
        m_pos = pos;
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Scroller, CScrollBar)
    ON_WM_HSCROLL_REFLECT()
END_MESSAGE_MAP()

class UprightSlider : public CSliderCtrl
{
public:
    std::vector<UINT> m_codes;

protected:
    void VScroll(UINT code, UINT) { m_codes.push_back(code); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(UprightSlider, CSliderCtrl)
    ON_WM_VSCROLL_REFLECT()
END_MESSAGE_MAP()

class Notify : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<support::TestFrame>();
        ASSERT_TRUE(m_parent.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 500, 300), m_frame.get(), 1));
    }
    void TearDown() override
    {
        m_frame.reset();
        WindowTest::TearDown();
    }
    std::unique_ptr<support::TestFrame> m_frame;
    ScrollParent m_parent;
};

class ChildDialog : public CDialog
{
};
} // namespace

TEST_F(Notify, AClickedScrollBarHearsItsOwnScrollingBehindItsParent)
{
    Scroller bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, CRect(10, 10, 210, 30), &m_parent, kScroll));
    bar.SetScrollRange(SB_CTL, 0, 100);
    support::Settle();
    support::Click(support::ScreenPoint(bar.m_hWnd, 195, 10)); // the right arrow
    ASSERT_TRUE(support::PumpUntil([&] { return bar.m_codes.size() >= 2; }));
    EXPECT_THAT(bar.m_codes, ElementsAre(SB_LINERIGHT, SB_ENDSCROLL));
    EXPECT_EQ(m_parent.m_from, &bar);
    EXPECT_THAT(m_parent.m_calls, ElementsAre("parent h " + std::to_string(SB_LINERIGHT) + " 0",
                                              "parent h " + std::to_string(SB_ENDSCROLL) + " 0"));
}

TEST_F(Notify, AThumbPositionComesWithTheCode)
{
    Scroller bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | WS_VISIBLE | SBS_HORZ, CRect(10, 10, 210, 30), &m_parent, kScroll));
    m_parent.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 65000), reinterpret_cast<LPARAM>(bar.m_hWnd));
    EXPECT_THAT(bar.m_codes, ElementsAre(SB_THUMBPOSITION));
    EXPECT_EQ(bar.m_pos, 65000u);
}

TEST_F(Notify, ASliderHearsItsVerticalScrolling)
{
    UprightSlider slider;
    ASSERT_TRUE(slider.Create(WS_CHILD | WS_VISIBLE | TBS_VERT, CRect(10, 10, 40, 210), &m_parent, kSlider));
    slider.SetFocus();
    support::PressKey(VK_DOWN);
    ASSERT_TRUE(support::PumpUntil([&] { return slider.m_codes.size() >= 2; }));
    EXPECT_THAT(slider.m_codes, ElementsAre(TB_LINEDOWN, TB_ENDTRACK));
    AllowGdiGrowth("the slider's class loads what it draws with at its first use");
}

TEST_F(Notify, TheWindowsOwnScrollBarIsNobodysNotification)
{
    Scroller bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | SBS_HORZ, CRect(10, 10, 210, 30), &m_parent, kScroll));
    m_parent.SendMessage(WM_HSCROLL, SB_LINERIGHT, 0);
    EXPECT_TRUE(bar.m_codes.empty());
    EXPECT_EQ(m_parent.m_from, nullptr);
    EXPECT_EQ(m_parent.m_calls.size(), 1u);
}

TEST_F(Notify, AnOwnerDrawnListMeasuresItselfWhileItIsCreatedAndItsBrotherIsNotAsked)
{
    class List : public CListBox
    {
    public:
        std::vector<UINT> m_asked;
        UINT m_height = 0;
        void MeasureItem(LPMEASUREITEMSTRUCT item) override
        {
            m_asked.push_back(item->CtlID);
            item->itemHeight = m_height;
        }
        void DrawItem(LPDRAWITEMSTRUCT) override {}
    };
    List brother;
    List list;
    brother.m_height = 11;
    list.m_height = kListHeight;
    const DWORD style = WS_CHILD | WS_VISIBLE | LBS_OWNERDRAWFIXED;
    ASSERT_TRUE(brother.Create(style, CRect(0, 0, 90, 90), &m_parent, kList + 1));
    ASSERT_TRUE(list.Create(style, CRect(100, 0, 190, 90), &m_parent, kList));
    EXPECT_THAT(list.m_asked, ElementsAre(kList));
    EXPECT_THAT(brother.m_asked, ElementsAre(kList + 1));
    EXPECT_EQ(list.SendMessage(LB_GETITEMHEIGHT), static_cast<LRESULT>(kListHeight));
    EXPECT_EQ(brother.SendMessage(LB_GETITEMHEIGHT), 11);
}

TEST_F(Notify, OwnerDrawnItemsAreDrawnComparedAndEndedByTheControlItself)
{
    class List : public CListBox
    {
    public:
        int m_drawn = 0;
        std::vector<DWORD_PTR> m_ended;
        void MeasureItem(LPMEASUREITEMSTRUCT item) override { item->itemHeight = 10; }
        void DrawItem(LPDRAWITEMSTRUCT) override { ++m_drawn; }
        int CompareItem(LPCOMPAREITEMSTRUCT items) override
        {
            return items->itemData1 < items->itemData2 ? -1 : items->itemData1 > items->itemData2 ? 1 : 0;
        }
        void DeleteItem(LPDELETEITEMSTRUCT item) override { m_ended.push_back(item->itemData); }
    } list;
    ASSERT_TRUE(
        list.Create(WS_CHILD | WS_VISIBLE | LBS_OWNERDRAWFIXED | LBS_SORT, CRect(0, 0, 90, 90), &m_parent, kList));
    for (const DWORD_PTR data : {30, 10, 20})
    {
        list.SendMessage(LB_ADDSTRING, 0, static_cast<LPARAM>(data));
    }
    EXPECT_EQ(list.GetItemData(0), 10u);
    EXPECT_EQ(list.GetItemData(1), 20u);
    EXPECT_EQ(list.GetItemData(2), 30u);
    list.UpdateWindow();
    EXPECT_GT(list.m_drawn, 0);
    list.DeleteString(1);
    EXPECT_THAT(list.m_ended, ElementsAre(20));
}

TEST_F(Notify, AReflectedNotificationOfAChildDialogDoesNotClimbToTheReflectionsOfItsParent)
{
    DialogTemplate made("child", WS_CHILD);
    ChildDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(made.Get(), &m_parent));
    NMHDR header = {dialog.m_hWnd, 0, kCode};
    m_parent.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    EXPECT_TRUE(m_parent.m_calls.empty());
}

TEST_F(Notify, AWindowOfTheFrameworkAsksForAnsiNotifications)
{
    CListCtrl list;
    ASSERT_TRUE(list.Create(WS_CHILD | LVS_REPORT, CRect(0, 0, 90, 90), &m_parent, kList));
    EXPECT_FALSE(::IsWindowUnicode(m_parent.m_hWnd));
    EXPECT_EQ(m_parent.SendMessage(WM_NOTIFYFORMAT, reinterpret_cast<WPARAM>(list.m_hWnd), NF_QUERY), NFR_ANSI);
    DialogTemplate made("child", WS_CHILD);
    ChildDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(made.Get(), &m_parent));
    EXPECT_FALSE(::IsWindowUnicode(dialog.m_hWnd));
    AllowGdiGrowth("the header's class loads its font at its first use");
}

TEST_F(Notify, TheParentIsAskedForTheCursorFirst)
{
    class Answering : public CWnd
    {
    public:
        int m_asked = 0;
        UINT m_hit = 0;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
        {
            if (message == WM_SETCURSOR)
            {
                ++m_asked;
                m_hit = LOWORD(lParam);
                return TRUE;
            }
            return CWnd::WindowProc(message, wParam, lParam);
        }
    } parent;
    CWnd child;
    ASSERT_TRUE(parent.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 90, 90), m_frame.get(), 5));
    ASSERT_TRUE(child.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), &parent, 6));
    const HCURSOR cross = ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32515));
    ::SetCursor(cross);
    EXPECT_EQ(
        child.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(child.m_hWnd), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)),
        TRUE);
    EXPECT_EQ(parent.m_asked, 1);
    EXPECT_EQ(parent.m_hit, static_cast<UINT>(HTCLIENT));
    EXPECT_EQ(::GetCursor(), cross) << "the child's class has a cursor, which the parent's answer kept away";
    AllowGdiGrowth("the system keeps its cursors for the life of the process once they are loaded");
}
