// ADIListSortTest.cpp - the attribute list: order of the rows by clicks on the header

#include "ADIListFixture.h"

namespace
{

using testing::ElementsAre;

class ADIListSort : public ADIListTest
{
protected:
    void SetUp() override
    {
        ADIListTest::SetUp();
        Open({"Text", "Number", "Mixed"}, {{"pear", "10", "word"}, {"Apple", "9.5", "-2"}, {"fig", "-1", "5"}});
        m_list->AddAllColumns();
        m_list->SetNumRow(3);
        m_list->ShowWindow(SW_SHOW);
        support::Settle();
    }
    // A real click on a column's header, each time at another place: two at one place are a double click.
    void ClickHeader(int col)
    {
        const HWND header = m_list->GetHeaderCtrl()->m_hWnd;
        RECT item;
        ASSERT_TRUE(::SendMessage(header, HDM_GETITEMRECT, col, reinterpret_cast<LPARAM>(&item)));
        const bool ascending = m_list->GetLastSort().IsSortAscnd(col);
        m_place = m_place == kPlace ? 2 * kPlace : kPlace;
        support::Click(support::ScreenPoint(header, item.left + m_place, (item.top + item.bottom) / 2));
        ASSERT_TRUE(support::PumpUntil([&] {
            return m_list->GetLastSort().GetCol() == col && m_list->GetLastSort().IsSortedAscnd() == ascending;
        }));
        support::Settle();
    }

private:
    static constexpr int kPlace = 15; // pixels
    int m_place = 0;
};

TEST_F(ADIListSort, TheFirstClickOnTheIDPutsTheHighestFirst)
{
    ClickHeader(0);
    EXPECT_THAT(Column(0), ElementsAre("2", "1", "0"));
    EXPECT_THAT(Column(1), ElementsAre("fig", "Apple", "pear"));
    ClickHeader(0);
    EXPECT_THAT(Column(0), ElementsAre("0", "1", "2"));
}

TEST_F(ADIListSort, TheFirstClickOnTextsGoesFromAToZRegardlessOfCase)
{
    ClickHeader(1);
    EXPECT_THAT(Column(1), ElementsAre("Apple", "fig", "pear"));
    EXPECT_THAT(Column(0), ElementsAre("1", "2", "0")) << "the IDs go with their rows";
    ClickHeader(1);
    EXPECT_THAT(Column(1), ElementsAre("pear", "fig", "Apple"));
    ClickHeader(2);
    ClickHeader(1);
    EXPECT_THAT(Column(1), ElementsAre("Apple", "fig", "pear")) << "ascending again after another column";
}

TEST_F(ADIListSort, TheFirstClickOnNumbersPutsTheHighestFirst)
{
    ClickHeader(2);
    EXPECT_THAT(Column(2), ElementsAre("10", "9.5", "-1"));
    ClickHeader(2);
    EXPECT_THAT(Column(2), ElementsAre("-1", "9.5", "10"));
}

TEST_F(ADIListSort, AWordAmongNumbersCountsAsZero)
{
    ClickHeader(3);
    EXPECT_THAT(Column(3), ElementsAre("5", "word", "-2"));
}

TEST_F(ADIListSort, ReadsTheWholeTableFirst)
{
    OpenCounted(100);
    m_list->SetNumRow(10);
    m_list->Sort(0, true);
    EXPECT_EQ(m_list->GetCacheRows(), 100);
    EXPECT_EQ(m_list->GetNumRow(), 100);
    EXPECT_EQ(m_notes.m_alive, 0);
    EXPECT_EQ(Text(0, 0), "99");
}

TEST_F(ADIListSort, DeselectsTheFirstSelectedRowAndLeavesTheOthers)
{
    m_list->ReadAllRows();
    m_list->SetSlct(1, true);
    m_list->SetSlct(2, true);
    m_list->Sort(0, true);
    EXPECT_FALSE(m_list->GetSlct(1));
    EXPECT_TRUE(m_list->GetSlct(2));
    EXPECT_EQ(m_list->GetNumSlct(), 1);
    m_list->Sort(0, true);
    EXPECT_EQ(m_list->GetNumSlct(), 0);
}

TEST_F(ADIListSort, PaintsTheListAnew)
{
    m_list->ReadAllRows();
    support::Settle();
    m_list->UpdateWindow();
    ASSERT_FALSE(::GetUpdateRect(m_list->m_hWnd, nullptr, FALSE));
    m_list->Sort(0, true);
    CRect update;
    CRect client;
    ::GetUpdateRect(m_list->m_hWnd, update, FALSE);
    m_list->GetClientRect(client);
    EXPECT_EQ(update.bottom, client.bottom);
    EXPECT_EQ(update.right, client.right);
}

TEST_F(ADIListSort, DoesNotAskWhetherSortingIsEnabled)
{
    m_list->EnblSort(false);
    ClickHeader(0);
    EXPECT_THAT(Column(0), ElementsAre("2", "1", "0"));
}

TEST_F(ADIListSort, AColumnThatIsNotThereLeavesTheOrder)
{
    m_list->Sort(4, true);
    m_list->Sort(-1, true);
    m_list->Sort(-2, false);
    EXPECT_THAT(Column(0), ElementsAre("0", "1", "2"));
}

TEST_F(ADIListSort, EqualRowsKeepTheirOrder)
{
    Open({"Class", "Name"}, {{"b", "x"}, {"a", "y"}, {"B", "z"}, {"a", "w"}});
    m_list->AddAllColumns();
    m_list->Sort(2, true);
    m_list->Sort(1, true);
    EXPECT_THAT(Column(2), ElementsAre("w", "y", "x", "z"));
}

} // namespace
