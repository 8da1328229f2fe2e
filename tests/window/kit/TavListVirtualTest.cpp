// TavListVirtualTest.cpp - the list that asks for its cells

#include "TavListFixture.h"

#include <array>
#include <set>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT kVirtualId = 32;
constexpr int kMillion = 1'000'000;

class Products : public CTavListCtrlVirtual
{
public:
    std::set<int> m_rows;        ///< asked for
    int m_texts = 0;             ///< asked for
    std::function<void()> m_act; ///< inside the question for a text; may be empty

    DString OnGetItemText(int row, int col) override
    {
        m_rows.insert(row);
        ++m_texts;
        DString text = DString::Format("row %d, column %d", row, col);
        if (m_act)
        {
            const std::function<void()> act = std::exchange(m_act, nullptr);
            act(); // may be the end of this object
        }
        return text;
    }
};

class Pictured : public Products
{
public:
    int OnGetItemImg(int row, int) override { return row + 40; }
};

class TavListVirtual : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<support::TestFrame>();
        Open<Products>(0);
    }
    void TearDown() override
    {
        m_list.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }
    template <class TList>
    void Open(int rows)
    {
        m_list = std::make_unique<TList>();
        ASSERT_TRUE(m_list->Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED, CRect(0, 0, 400, 200),
                                   m_frame.get(), kVirtualId));
        m_list->AddCol("a", adiString, false, 150, LVCFMT_LEFT);
        m_list->AddCol("b", adiString, false, 150, LVCFMT_LEFT);
        m_list->SetNumRow(rows);
        support::Settle();
    }
    // The question of the control, with a buffer of a given size.
    LRESULT Ask(LVITEM& item)
    {
        NMLVDISPINFO info = {};
        info.hdr.hwndFrom = m_list->m_hWnd;
        info.hdr.idFrom = kVirtualId;
        info.hdr.code = UINT(LVN_GETDISPINFO);
        info.item = item;
        const LRESULT result = m_frame->SendMessage(WM_NOTIFY, kVirtualId, reinterpret_cast<LPARAM>(&info));
        item = info.item;
        return result;
    }
    std::unique_ptr<support::TestFrame> m_frame;
    std::unique_ptr<Products> m_list;
};

TEST_F(TavListVirtual, IsCreatedAsAListThatHoldsNoRows) { EXPECT_NE(m_list->GetStyle() & LVS_OWNERDATA, 0U); }

TEST_F(TavListVirtual, HasAsManyRowsAsItIsTold)
{
    m_list->SetNumRow(12);
    EXPECT_EQ(m_list->GetNumRow(), 12);
    EXPECT_EQ(m_list->GetItemCount(), 12);
    m_list->SetNumRow(3);
    EXPECT_EQ(m_list->GetNumRow(), 3);
    EXPECT_EQ(m_list->GetItemCount(), 3);
    m_list->SetNumRow(-1);
    EXPECT_EQ(m_list->GetNumRow(), 0);
    EXPECT_EQ(m_list->GetItemCount(), 0);
}

TEST_F(TavListVirtual, ANewNumberOfRowsPaintsTheListAnew)
{
    m_list->SetNumRow(5);
    support::Settle();
    m_list->UpdateWindow();
    ASSERT_FALSE(::GetUpdateRect(m_list->m_hWnd, nullptr, FALSE));
    m_list->m_texts = 0;
    m_list->SetNumRow(5);
    m_list->UpdateWindow();
    EXPECT_GT(m_list->m_texts, 0) << "although the number is the same";
}

TEST_F(TavListVirtual, CellsAreAskedFor)
{
    m_list->SetNumRow(10);
    EXPECT_STREQ(m_list->GetItemText(7, 0), "row 7, column 0");
    EXPECT_STREQ(m_list->GetItemText(3, 1), "row 3, column 1");
}

TEST_F(TavListVirtual, OnlyTheRowsInSightAreAskedFor)
{
    m_list->m_rows.clear();
    m_list->SetNumRow(kMillion);
    support::Settle();
    EXPECT_LE(m_list->m_rows.size(), 20U);
    EXPECT_TRUE(m_list->m_rows.contains(0));
}

TEST_F(TavListVirtual, TheEndIsReachedByAKey)
{
    m_list->SetNumRow(kMillion);
    m_list->SetFocus();
    support::PressKey(VK_END);
    ASSERT_TRUE(support::PumpUntil([&] { return m_list->m_rows.contains(kMillion - 1); }));
    EXPECT_TRUE(m_list->GetSlct(kMillion - 1));
    support::PressKey(VK_HOME);
    EXPECT_TRUE(support::PumpUntil([&] { return m_list->GetTopIndex() == 0; }));
}

TEST_F(TavListVirtual, RowsAreSelected)
{
    m_list->SetNumRow(100);
    m_list->SetSlct(3, true);
    m_list->SetSlct(99, true);
    m_list->SetSlct(100, true);
    DVector<int> rows;
    m_list->GetSlct(rows);
    EXPECT_EQ(std::vector<int>(rows.begin(), rows.end()), (std::vector<int>{3, 99}));
    EXPECT_EQ(m_list->GetNumSlct(), 2);
    m_list->ClearSlct();
    EXPECT_EQ(m_list->GetFrstSlct(), -1);
}

TEST_F(TavListVirtual, ATextIsCutToTheBuffer)
{
    std::array<char, 8> buffer;
    buffer.fill('#');
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.iItem = 4;
    item.pszText = buffer.data();
    item.cchTextMax = 6;
    EXPECT_EQ(Ask(item), 0);
    EXPECT_STREQ(buffer.data(), "row 4");
    EXPECT_EQ(buffer[6], '#') << "nothing behind its end";
}

TEST_F(TavListVirtual, ABufferOfOneCharacterHoldsTheEndAlone)
{
    char buffer = '#';
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.pszText = &buffer;
    item.cchTextMax = 1;
    Ask(item);
    EXPECT_EQ(buffer, '\0');
}

TEST_F(TavListVirtual, AQuestionWithoutABufferIsTakenWithoutHarm)
{
    char untouched = '#';
    LVITEM item = {};
    item.mask = LVIF_TEXT;
    item.pszText = &untouched;
    item.cchTextMax = 0;
    EXPECT_EQ(Ask(item), 0);
    EXPECT_EQ(untouched, '#');
    item.pszText = nullptr;
    item.cchTextMax = 10;
    EXPECT_EQ(Ask(item), 0);
}

TEST_F(TavListVirtual, ATextIsAskedForOnlyWhenItIsWanted)
{
    m_list->m_texts = 0;
    LVITEM item = {};
    item.mask = LVIF_IMAGE;
    item.iImage = 7;
    Ask(item);
    EXPECT_EQ(m_list->m_texts, 0);
    EXPECT_EQ(item.iImage, -1) << "no image unless a derived list has one";
    item.mask = 0;
    item.iImage = 7;
    Ask(item);
    EXPECT_EQ(item.iImage, 7);
}

TEST_F(TavListVirtual, ADerivedListGivesImages)
{
    Open<Pictured>(10);
    LVITEM item = {};
    item.mask = LVIF_IMAGE;
    item.iItem = 2;
    Ask(item);
    EXPECT_EQ(item.iImage, 42);
}

TEST_F(TavListVirtual, SortingDoesNothingToTheRows)
{
    m_list->SetNumRow(3);
    CRect header;
    m_list->GetHeaderCtrl()->GetClientRect(header);
    support::Click(support::ScreenPoint(m_list->GetHeaderCtrl()->m_hWnd, 20, header.CenterPoint().y));
    ASSERT_TRUE(support::PumpUntil([&] { return m_list->GetLastSort().GetCol() == 0; }));
    EXPECT_STREQ(m_list->GetItemText(0, 0), "row 0, column 0");
    static_cast<CListCtrlFlex&>(*m_list).Sort(1, false);
    EXPECT_STREQ(m_list->GetItemText(2, 1), "row 2, column 1");
}

TEST_F(TavListVirtual, MayEndWhileItIsAskedForAText)
{
    std::array<char, 40> buffer = {};
    LVITEM item = {};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iImage = 5;
    item.pszText = buffer.data();
    item.cchTextMax = static_cast<int>(buffer.size());
    m_list->m_act = [&] { m_list.reset(); };
    Ask(item);
    EXPECT_EQ(m_list, nullptr);
    EXPECT_EQ(item.iImage, 5) << "not asked for any more";
}

} // namespace
