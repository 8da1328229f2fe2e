#include "CountedTest.h"

#include <afxcmn.h>

using support::TestFrame;

namespace
{
using TabTest = CountedTest;
using StatusBarTest = CountedTest;

constexpr UINT kId = 47;
const CRect kPlace(10, 10, 310, 210);

TEST_F(TabTest, NoTabsAreMadeWithoutAParent)
{
    CTabCtrl tabs;
    EXPECT_FALSE(tabs.Create(WS_CHILD, kPlace, nullptr, kId));
}

TEST_F(TabTest, TabsAreInsertedSelectedAndDeleted)
{
    TestFrame frame;
    CTabCtrl tabs;
    ASSERT_TRUE(tabs.Create(WS_CHILD | WS_VISIBLE, kPlace, &frame, kId));
    EXPECT_EQ(tabs.GetCurSel(), -1);
    EXPECT_EQ(tabs.InsertItem(0, "one"), 0);
    char second[] = "two";
    TCITEM item = {};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = second;
    item.lParam = 5;
    EXPECT_EQ(tabs.InsertItem(1, &item), 1);
    EXPECT_EQ(tabs.GetItemCount(), 2);
    EXPECT_EQ(tabs.GetCurSel(), 0);
    frame.Clear();
    EXPECT_EQ(tabs.SetCurSel(1), 0);
    EXPECT_EQ(tabs.GetCurSel(), 1);
    EXPECT_EQ(frame.CountNotify(UINT(TCN_SELCHANGE)), 0) << "the program knows already";
    EXPECT_TRUE(tabs.DeleteItem(0));
    EXPECT_FALSE(tabs.DeleteItem(9));
    EXPECT_EQ(tabs.GetItemCount(), 1);
}

TEST_F(TabTest, TheDisplayAreaAndTheControlAdjustToEachOther)
{
    TestFrame frame;
    CTabCtrl tabs;
    ASSERT_TRUE(tabs.Create(WS_CHILD | WS_VISIBLE, kPlace, &frame, kId));
    tabs.InsertItem(0, "one");
    CRect area(0, 0, 300, 200);
    tabs.AdjustRect(FALSE, &area);
    EXPECT_GT(area.top, 10) << "the row of tabs";
    EXPECT_LT(area.bottom, 200);
    tabs.AdjustRect(TRUE, &area);
    EXPECT_EQ(area, CRect(0, 0, 300, 200));
}

TEST_F(StatusBarTest, PanesHoldTheirTexts)
{
    TestFrame frame;
    CStatusBarCtrl bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | WS_VISIBLE | CCS_BOTTOM, CRect(), &frame, kId));
    const int edges[] = {100, 250, -1};
    EXPECT_TRUE(bar.SetParts(3, edges));
    EXPECT_EQ(bar.GetPartCount(), 3);
    EXPECT_TRUE(bar.SetText("ready", 0));
    EXPECT_TRUE(bar.SetText("flat", 2, SBT_NOBORDERS));
    int type = -1;
    EXPECT_STREQ(bar.GetText(0, &type), "ready");
    EXPECT_EQ(type, 0);
    EXPECT_STREQ(bar.GetText(1), "");
    EXPECT_STREQ(bar.GetText(2, &type), "flat");
    EXPECT_EQ(type, SBT_NOBORDERS);
    EXPECT_STREQ(bar.GetText(99), "");
    CRect first;
    EXPECT_TRUE(bar.GetRect(0, &first));
    CRect second;
    EXPECT_TRUE(bar.GetRect(1, &second));
    EXPECT_LE(first.right, second.left);
}

TEST_F(StatusBarTest, TheBarStandsAtTheLowerEdge)
{
    TestFrame frame;
    CStatusBarCtrl bar;
    EXPECT_FALSE(bar.Create(WS_CHILD, CRect(), nullptr, kId));
    ASSERT_TRUE(bar.Create(WS_CHILD | WS_VISIBLE | CCS_BOTTOM, CRect(), &frame, kId));
    bar.SendMessage(WM_SIZE);
    CRect client;
    frame.GetClientRect(&client);
    CRect place;
    bar.GetWindowRect(&place);
    frame.ScreenToClient(&place);
    EXPECT_EQ(place.bottom, client.bottom);
    EXPECT_EQ(place.Width(), client.Width());
}

TEST_F(StatusBarTest, OneTextMayTakeTheWholeBar)
{
    TestFrame frame;
    CStatusBarCtrl bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | WS_VISIBLE | CCS_BOTTOM, CRect(), &frame, kId));
    EXPECT_FALSE(bar.IsSimple());
    bar.SetSimple();
    EXPECT_TRUE(bar.IsSimple());
    bar.SetSimple(FALSE);
    EXPECT_FALSE(bar.IsSimple());
}
} // namespace
