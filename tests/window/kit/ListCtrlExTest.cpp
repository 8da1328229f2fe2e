// ListCtrlExTest.cpp - the list control with short forms

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <memory>

namespace
{

constexpr UINT kId = 21;
constexpr int kUsualMask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;

class ListCtrlEx : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<support::TestFrame>();
        m_list = std::make_unique<CListCtrlEx>();
        ASSERT_TRUE(m_list->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 400, 200), m_frame.get(), kId));
    }
    void TearDown() override
    {
        m_list.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }

    [[nodiscard]] LVCOLUMN Column(int col) const
    {
        LVCOLUMN column = {};
        column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
        EXPECT_TRUE(m_list->GetColumn(col, &column));
        return column;
    }
    [[nodiscard]] int Image(int row, int subItem = 0) const
    {
        LVITEM item = {};
        item.mask = LVIF_IMAGE;
        item.iItem = row;
        item.iSubItem = subItem;
        EXPECT_TRUE(m_list->GetItem(&item));
        return item.iImage;
    }

    std::unique_ptr<support::TestFrame> m_frame;
    std::unique_ptr<CListCtrlEx> m_list;
};

TEST_F(ListCtrlEx, AColumnIsAsWideAsItsCaptionAndAMargin)
{
    EXPECT_EQ(m_list->AddColumn("Caption", 0, -1, kUsualMask, LVCFMT_LEFT), 0);
    EXPECT_EQ(m_list->AddColumn("A rather longer caption", 1, -1, kUsualMask, LVCFMT_LEFT), 1);
    EXPECT_EQ(m_list->GetColumnWidth(0), m_list->GetStringWidth("Caption") + 15);
    EXPECT_EQ(m_list->GetColumnWidth(1), m_list->GetStringWidth("A rather longer caption") + 15);
}

TEST_F(ListCtrlEx, AColumnTakesItsFormat)
{
    m_list->AddColumn("a", 0, -1, kUsualMask, LVCFMT_LEFT);
    m_list->AddColumn("b", 1, -1, kUsualMask, LVCFMT_RIGHT);
    EXPECT_EQ(Column(1).fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
}

TEST_F(ListCtrlEx, AColumnsSubitemIsItsIndexOrTheOneGiven)
{
    m_list->AddColumn("a", 0, -1, kUsualMask, LVCFMT_LEFT);
    m_list->AddColumn("b", 1, -1, kUsualMask, LVCFMT_LEFT);
    m_list->AddColumn("c", 2, 7, kUsualMask, LVCFMT_LEFT);
    EXPECT_EQ(Column(1).iSubItem, 1);
    EXPECT_EQ(Column(2).iSubItem, 7);
}

TEST_F(ListCtrlEx, ASubitemOutsideTheMaskIsNotRead)
{
    m_list->AddColumn("a", 0, -1, kUsualMask, LVCFMT_LEFT);
    m_list->AddColumn("b", 1, 7, kUsualMask & ~LVCF_SUBITEM, LVCFMT_LEFT);
    EXPECT_NE(Column(1).iSubItem, 7);
}

TEST_F(ListCtrlEx, SubitemZeroInsertsARow)
{
    m_list->AddColumn("a", 0, -1, kUsualMask, LVCFMT_LEFT);
    EXPECT_EQ(m_list->AddItem(0, 0, "second", -1), 0);
    EXPECT_EQ(m_list->AddItem(0, 0, "first", -1), 0);
    EXPECT_EQ(m_list->GetItemCount(), 2);
    EXPECT_STREQ(m_list->GetItemText(0, 0), "first");
    EXPECT_STREQ(m_list->GetItemText(1, 0), "second");
}

TEST_F(ListCtrlEx, AnotherSubitemSetsACell)
{
    m_list->AddColumn("a", 0, -1, kUsualMask, LVCFMT_LEFT);
    m_list->AddColumn("b", 1, -1, kUsualMask, LVCFMT_LEFT);
    m_list->AddItem(0, 0, "row", -1);
    EXPECT_EQ(m_list->AddItem(0, 1, "cell", -1), 1);
    EXPECT_EQ(m_list->GetItemCount(), 1);
    EXPECT_STREQ(m_list->GetItemText(0, 1), "cell");
    EXPECT_EQ(m_list->AddItem(5, 1, "nowhere", -1), 0);
}

TEST_F(ListCtrlEx, ARowShowsTheImageThatIsGiven)
{
    m_list->AddColumn("a", 0, -1, kUsualMask, LVCFMT_LEFT);
    m_list->AddItem(0, 0, "pictured", 3);
    m_list->AddItem(1, 0, "plain", -1);
    EXPECT_EQ(Image(0), 3);
    EXPECT_EQ(Image(1), 0) << "the control's own";
}

TEST_F(ListCtrlEx, SettingACellWithoutAnImageKeepsTheOneItHas)
{
    m_list->SetExtendedStyle(LVS_EX_SUBITEMIMAGES);
    m_list->AddColumn("a", 0, -1, kUsualMask, LVCFMT_LEFT);
    m_list->AddColumn("b", 1, -1, kUsualMask, LVCFMT_LEFT);
    m_list->AddItem(0, 0, "row", -1);
    m_list->AddItem(0, 1, "cell", 2);
    m_list->AddItem(0, 1, "renamed", -1);
    EXPECT_EQ(Image(0, 1), 2);
    EXPECT_STREQ(m_list->GetItemText(0, 1), "renamed");
}

TEST_F(ListCtrlEx, SettingAnImageListGivesTheFormerOne)
{
    CImageList first;
    CImageList second;
    ASSERT_TRUE(first.Create(16, 16, ILC_COLOR32, 1, 1));
    ASSERT_TRUE(second.Create(16, 16, ILC_COLOR32, 1, 1));
    EXPECT_EQ(m_list->SetImageList(&first, LVSIL_SMALL), nullptr);
    EXPECT_EQ(m_list->SetImageList(&second, LVSIL_SMALL), &first);
    EXPECT_EQ(m_list->GetImageList(LVSIL_SMALL), &second);
    EXPECT_EQ(m_list->GetImageList(LVSIL_NORMAL), nullptr) << "of the other kind";
    EXPECT_EQ(m_list->SetImageList(nullptr, LVSIL_SMALL), &second);
    EXPECT_EQ(m_list->GetImageList(LVSIL_SMALL), nullptr);
}

TEST_F(ListCtrlEx, MissingTextsAreEmpty)
{
    EXPECT_EQ(m_list->AddColumn(nullptr, 0, -1, kUsualMask, LVCFMT_LEFT), 0);
    EXPECT_EQ(m_list->GetColumnWidth(0), m_list->GetStringWidth("") + 15);
    EXPECT_EQ(m_list->AddItem(0, 0, nullptr, -1), 0);
    EXPECT_STREQ(m_list->GetItemText(0, 0), "");
}

} // namespace
