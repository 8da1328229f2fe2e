// TavListSlctTest.cpp - the row list: selection, clicks and images

#include "TavListFixture.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class TavListSlct : public TavListTest
{
protected:
    void SetUp() override
    {
        TavListTest::SetUp();
        Fill();
    }
    void Fill()
    {
        AddColumns({"a", "b", "c"}, 100);
        for (const char* const row : {"0|x|p", "1|y|q", "2|z|r", "3|w|s"})
        {
            m_list->AddRow(row, nullptr);
        }
        support::Settle();
    }
    [[nodiscard]] std::vector<int> Selected()
    {
        std::vector<int> rows;
        for (int row = 0; row < m_list->GetItemCount(); ++row)
        {
            if (m_list->GetItemState(row, LVIS_SELECTED) != 0)
            {
                rows.push_back(row);
            }
        }
        return rows;
    }
    [[nodiscard]] bool IsFocused(int row) { return m_list->GetItemState(row, LVIS_FOCUSED) != 0; }
    void ClickCell(int row, int col, support::Button button = support::Button::left)
    {
        support::Click(CellOnScreen(row, col), button);
        support::Settle();
    }
};

TEST_F(TavListSlct, SelectingARowLeavesTheOthersAndTheFocusAlone)
{
    m_list->SetSlct(1, true);
    m_list->SetSlct(3, true);
    EXPECT_THAT(Selected(), ElementsAre(1, 3));
    EXPECT_FALSE(IsFocused(1));
    EXPECT_FALSE(IsFocused(3));
}

TEST_F(TavListSlct, DeselectingARowTakesItsFocusToo)
{
    m_list->SetSlct(1, true);
    m_list->SetSlct(2, true);
    m_list->SetItemState(2, LVIS_FOCUSED, LVIS_FOCUSED);
    m_list->SetSlct(2, false);
    EXPECT_THAT(Selected(), ElementsAre(1));
    EXPECT_FALSE(IsFocused(2));
}

TEST_F(TavListSlct, RowsOutsideAreNotSelected)
{
    m_list->SetSlct(-1, true); // the control would take it for all rows
    m_list->SetSlct(4, true);
    EXPECT_THAT(Selected(), IsEmpty());
    m_list->SetSlct(0, true);
    m_list->SetSlct(-1, false);
    EXPECT_THAT(Selected(), ElementsAre(0));
}

TEST_F(TavListSlct, TheCurrentRowIsSelected)
{
    m_list->SetCrntRow(2);
    m_list->SetSlct(true);
    EXPECT_THAT(Selected(), ElementsAre(2));
    m_list->SetSlct(false);
    EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TavListSlct, ARowTellsWhetherItIsSelected)
{
    m_list->SetSlct(2, true);
    EXPECT_TRUE(m_list->GetSlct(2));
    EXPECT_FALSE(m_list->GetSlct(1));
    EXPECT_FALSE(m_list->GetSlct(99));
}

TEST_F(TavListSlct, SelectedRowsAreGivenInAscendingOrder)
{
    m_list->SetSlct(3, true);
    m_list->SetSlct(0, true);
    DVector<int> rows;
    m_list->GetSlct(rows);
    ASSERT_EQ(rows.GetCount(), 2);
    EXPECT_EQ(rows[0], 0);
    EXPECT_EQ(rows[1], 3);
}

TEST_F(TavListSlct, ALongerArrayKeepsItsTail)
{
    DVector<int> rows;
    for (const int old : {70, 71, 72})
    {
        rows.Append(old);
    }
    m_list->SetSlct(2, true);
    m_list->GetSlct(rows);
    ASSERT_EQ(rows.GetCount(), 3);
    EXPECT_EQ(rows[0], 2);
    EXPECT_EQ(rows[1], 71);
    EXPECT_EQ(rows[2], 72);
}

TEST_F(TavListSlct, TheFirstSelectedRowHasTwoNames)
{
    EXPECT_EQ(m_list->GetFrstSlct(), -1);
    EXPECT_EQ(m_list->GetCrntSlct(), -1);
    m_list->SetSlct(3, true);
    m_list->SetSlct(1, true);
    EXPECT_EQ(m_list->GetFrstSlct(), 1);
    EXPECT_EQ(m_list->GetCrntSlct(), 1);
    EXPECT_EQ(m_list->GetNumSlct(), 2);
}

TEST_F(TavListSlct, ClearingDeselectsAllRowsAndTakesTheirFocus)
{
    m_list->SetSlct(0, true);
    m_list->SetSlct(2, true);
    m_list->SetItemState(2, LVIS_FOCUSED, LVIS_FOCUSED);
    m_list->ClearSlct();
    EXPECT_THAT(Selected(), IsEmpty());
    EXPECT_FALSE(IsFocused(2));
    EXPECT_EQ(m_list->GetNumSlct(), 0);
}

TEST_F(TavListSlct, ClearingLeavesTheFocusOfARowThatIsNotSelected)
{
    m_list->SetSlct(0, true);
    m_list->SetItemState(2, LVIS_FOCUSED, LVIS_FOCUSED);
    m_list->ClearSlct();
    EXPECT_TRUE(IsFocused(2));
}

TEST_F(TavListSlct, ARowIsFoundAndSelectedByItsData)
{
    for (int row = 0; row < 4; ++row)
    {
        m_list->SetCrntRow(row);
        m_list->SetData(row == 3 ? 100U : 99U + row); // 99, 100, 101, 100
    }
    EXPECT_EQ(m_list->GetRowIndex(100), 1) << "the first of two";
    EXPECT_EQ(m_list->GetRowIndex(55), -1);
    EXPECT_EQ(m_list->SetSlctByItemData(101, true), 2);
    EXPECT_THAT(Selected(), ElementsAre(2));
    EXPECT_EQ(m_list->SetSlctByItemData(55, true), -1);
    EXPECT_THAT(Selected(), ElementsAre(2));
    EXPECT_EQ(m_list->SetSlctByItemData(101, false), 2);
    EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TavListSlct, ManyRowsMayBeSelectedOrOne)
{
    EXPECT_TRUE(m_list->IsMultiSlct());
    m_list->SetMultiSlct(false);
    EXPECT_FALSE(m_list->IsMultiSlct());
    EXPECT_NE(m_list->GetStyle() & LVS_SINGLESEL, 0U);
    m_list->SetSlct(0, true);
    m_list->SetSlct(1, true);
    EXPECT_THAT(Selected(), ElementsAre(1));
    m_list->SetMultiSlct(true);
    EXPECT_TRUE(m_list->IsMultiSlct());
    m_list->SetSlct(0, true);
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
}

// Clicks on a list that the control draws: there it selects a row by its first cell alone.
class TavListClick : public TavListSlct
{
protected:
    void SetUp() override
    {
        TavListTest::SetUp();
        Open(kStyle & ~LVS_OWNERDRAWFIXED);
        Fill();
    }
};

TEST_F(TavListClick, AClickOnAnyCellSelectsTheRow)
{
    ClickCell(2, 1);
    EXPECT_THAT(Selected(), ElementsAre(2));
    ClickCell(1, 2);
    EXPECT_THAT(Selected(), ElementsAre(1));
    ClickCell(3, 0);
    EXPECT_THAT(Selected(), ElementsAre(3));
}

TEST_F(TavListClick, ARightClickOnAnyCellSelectsTheRow)
{
    ClickCell(2, 1, support::Button::right);
    EXPECT_THAT(Selected(), ElementsAre(2));
}

TEST_F(TavListClick, TheParentGetsTheClicksToo)
{
    ClickCell(2, 1);
    EXPECT_EQ(m_frame->CountNotify(UINT(NM_CLICK)), 1);
    ClickCell(2, 1, support::Button::right);
    EXPECT_EQ(m_frame->CountNotify(UINT(NM_RCLICK)), 1);
}

TEST_F(TavListClick, AClickBelowTheRowsSelectsNone)
{
    CRect last;
    m_list->GetItemRect(3, last, LVIR_BOUNDS);
    support::Click(support::ScreenPoint(m_list->m_hWnd, 20, last.bottom + 20));
    support::Settle();
    EXPECT_GE(m_frame->CountNotify(UINT(NM_CLICK)), 1);
    EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TavListClick, AClickChangesNothingWhenMoreThanOneRowIsSelected)
{
    m_list->SetSlct(0, true);
    m_list->SetSlct(1, true);
    support::KeyDown(VK_CONTROL);
    ClickCell(3, 1);
    support::KeyUp(VK_CONTROL);
    EXPECT_EQ(m_frame->CountNotify(UINT(NM_CLICK)), 1);
    EXPECT_THAT(Selected(), ElementsAre(0, 1));
}

TEST_F(TavListClick, AClickOnARowThatTheListHasNotCountedSelectsNothing)
{
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.iItem = 4;
    char text[] = "foreign";
    item.pszText = text;
    ASSERT_EQ(m_list->SendMessage(LVM_INSERTITEM, 0, reinterpret_cast<LPARAM>(&item)), 4);
    support::Settle();
    ClickCell(4, 1);
    EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TavListClick, AParentMayEndTheListInAClick)
{
    const POINT cell = CellOnScreen(1, 1);
    m_frame->m_at.Set({UINT(NM_CLICK)}, [&] { m_list.reset(); });
    support::Click(cell);
    EXPECT_TRUE(support::PumpUntil([&] { return m_list == nullptr; }));
    support::Settle();
}

// Images

// Icons of this program, each of one colour.
constexpr unsigned int kGreenIcon = 7101;
constexpr unsigned int kBlueIcon = 7102;
constexpr COLORREF kGreen = RGB(0x10, 0xC0, 0x20);
constexpr COLORREF kBlue = RGB(0x20, 0x30, 0xD0);

class TavListImages : public TavListSlct
{
};

TEST_F(TavListImages, AreShownOnceTheyAreCreated)
{
    EXPECT_EQ(m_list->GetImageList(LVSIL_SMALL), nullptr);
    m_list->CreateImages();
    CTavImageList& images = m_list->GetTavImageList();
    ASSERT_NE(images.GetSafeHandle(), nullptr);
    EXPECT_EQ(m_list->GetImageList(LVSIL_SMALL), &images);
    const int red = images.GetRect(RGB(255, 0, 0), RGB(255, 0, 0), CRect(0, 0, 16, 16));
    m_list->SetImage(1, red);
    CRect row;
    m_list->GetItemRect(1, row, LVIR_BOUNDS);
    EXPECT_EQ(support::ClientPixel(m_list->m_hWnd, row.left + 8, row.top + 5), RGB(255, 0, 0));
}

TEST_F(TavListImages, AreForgottenButTheListStays)
{
    m_list->CreateImages();
    m_list->GetTavImageList().GetCircleSmall(RGB(255, 0, 0), 0);
    m_list->DestroyImages();
    EXPECT_EQ(m_list->GetTavImageList().GetImageCount(), 0);
    EXPECT_EQ(m_list->GetImageList(LVSIL_SMALL), &m_list->GetTavImageList());
}

TEST_F(TavListImages, AreMadeOnceAndNotAgainAsLongAsThereIsAList)
{
    m_list->CreateImages();
    CTavImageList& images = m_list->GetTavImageList();
    const HIMAGELIST handle = images.GetSafeHandle();
    const int circle = images.GetCircleSmall(RGB(255, 0, 0), 0);
    m_list->CreateImages();
    EXPECT_EQ(images.GetSafeHandle(), handle);
    EXPECT_EQ(images.GetImageCount(), 2);
    EXPECT_EQ(images.GetCircleSmall(RGB(255, 0, 0), 0), circle) << "the index handed out stays good";
    m_list->Reset();
    m_list->CreateImages();
    EXPECT_EQ(images.GetImageCount(), 0);
    EXPECT_EQ(m_list->GetImageList(LVSIL_SMALL), &images);
}

TEST_F(TavListImages, AnIconIsShownByItsNumber)
{
    m_list->CreateImages();
    m_list->SetIcon(2, kGreenIcon);
    EXPECT_EQ(m_list->GetCrntRow(), 2) << "the row that was named";
    m_list->SetCrntRow(0);
    m_list->SetIcon(kBlueIcon);
    const auto pixel = [&](int row) {
        CRect rect;
        m_list->GetItemRect(row, rect, LVIR_BOUNDS);
        return support::ClientPixel(m_list->m_hWnd, rect.left + 8, rect.top + 8);
    };
    EXPECT_EQ(pixel(2), kGreen);
    EXPECT_EQ(pixel(0), kBlue);
}

} // namespace
