// ListExtrasTest.cpp - additions to the lists: real keys, the clipboard, the profile, and lists of every kind

#include "FlexFixture.h"
#include "Picture.h"

#include <afxcmn.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace
{

using flex_test::kListId;
using flex_test::kListPlace;
using flex_test::kListStyle;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char const* kName = "ListExtrasTest";

// What the clipboard holds under a format; no value if it holds nothing there.
std::optional<std::string> Clipboard(UINT format)
{
    std::optional<std::string> text;
    if (::OpenClipboard(nullptr))
    {
        if (HANDLE const data = ::GetClipboardData(format))
        {
            text = static_cast<char const*>(::GlobalLock(data));
            ::GlobalUnlock(data);
        }
        ::CloseClipboard();
    }
    return text;
}

void ClearClipboard()
{
    if (::OpenClipboard(nullptr))
    {
        ::EmptyClipboard();
        ::CloseClipboard();
    }
}

UINT CsvFormat() { return ::RegisterClipboardFormatA("Csv"); }

// A list that makes its texts up.
class MadeUpList : public CTavListCtrlVirtual
{
public:
    std::vector<std::vector<std::string>> m_cells;

    DString OnGetItemText(int row, int col) override
    {
        return m_cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)].c_str();
    }
};

enum class Kind
{
    Records,
    Virtual
};

// The same rows in a list that holds them and in one that makes them up.
class ListExtrasBase : public flex_test::FlexTest
{
protected:
    void Fill(Kind kind)
    {
        std::vector<std::vector<std::string>> const cells{
            {"Alpha", "10", "red"}, {"beta", "9", "blue, dark"}, {"Gamma", "8", "red"}, {"alp", "7", "say \"no\""}};
        if (kind == Kind::Records)
        {
            AddColumns(3);
            for (int row = 0; row < 4; ++row)
            {
                AddRows({cells[static_cast<std::size_t>(row)][0]});
                m_list->SetItemText(row, 1, cells[static_cast<std::size_t>(row)][1].c_str());
                m_list->SetItemText(row, 2, cells[static_cast<std::size_t>(row)][2].c_str());
            }
        }
        else
        {
            auto list = std::make_unique<MadeUpList>();
            ASSERT_TRUE(list->Create(kListStyle, kListPlace, m_frame.get(), kListId));
            list->m_cells = cells;
            auto* const made = list.get();
            m_list = std::move(list);
            AddColumns(3);
            made->SetNumRow(4);
        }
        ASSERT_TRUE(m_extras.Attach(*m_list));
        m_list->SetFocus();
        support::Settle();
    }

    void TearDown() override
    {
        m_list.reset();
        ClearClipboard();
        AfxGetApp()->WriteProfileString(ListExtras::kProfileSection, kName, nullptr);
        FlexTest::TearDown();
    }

    void Select(std::vector<int> const& rows)
    {
        m_list->SetItemState(-1, 0, LVIS_SELECTED);
        for (int const row : rows)
        {
            m_list->SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
        }
    }

    void Focus(int row) { m_list->SetItemState(row, LVIS_FOCUSED, LVIS_FOCUSED); }

    [[nodiscard]] std::vector<int> Selected() const
    {
        std::vector<int> rows;
        for (int row = m_list->GetNextItem(-1, LVNI_SELECTED); row >= 0; row = m_list->GetNextItem(row, LVNI_SELECTED))
        {
            rows.push_back(row);
        }
        return rows;
    }

    // The row that is both the current and the only selected one; -1 if there is none such.
    [[nodiscard]] int Current() const
    {
        int const row = m_list->GetNextItem(-1, LVNI_FOCUSED);
        return Selected() == std::vector{row} ? row : -1;
    }

    [[nodiscard]] int MarkOf(int col) const
    {
        HDITEM item{};
        item.mask = HDI_FORMAT;
        EXPECT_TRUE(Header_GetItem(m_list->GetHeaderCtrl()->m_hWnd, col, &item));
        return item.fmt & (HDF_SORTUP | HDF_SORTDOWN);
    }

    [[nodiscard]] std::vector<int> Order() const
    {
        std::vector<int> order(3, -1);
        m_list->SendMessage(LVM_GETCOLUMNORDERARRAY, 3, reinterpret_cast<LPARAM>(order.data()));
        return order;
    }

    void SetOrder(std::vector<int> order)
    {
        m_list->SendMessage(LVM_SETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.data()));
    }

    ListExtras m_extras;
};

class ListExtrasOn : public ListExtrasBase, public testing::WithParamInterface<Kind>
{
protected:
    void SetUp() override
    {
        ListExtrasBase::SetUp();
        Fill(GetParam());
    }
};

INSTANTIATE_TEST_SUITE_P(, ListExtrasOn, testing::Values(Kind::Records, Kind::Virtual),
                         [](auto const& info) { return info.param == Kind::Records ? "Records" : "Virtual"; });

TEST_P(ListExtrasOn, ChangeNothingUntilTheyAreSwitchedOn)
{
    DWORD const style = m_list->GetExtendedStyle();
    Select({1});
    Focus(1);
    Key('C', {VK_CONTROL});
    EXPECT_EQ(Clipboard(CF_TEXT), std::nullopt);
    Key(VK_F3);
    EXPECT_THAT(Selected(), ElementsAre(1));
    ClickHeader(0);
    EXPECT_EQ(MarkOf(0), 0);
    EXPECT_EQ(m_list->GetExtendedStyle(), style);
    m_list->DestroyWindow();
    EXPECT_TRUE(AfxGetApp()->GetProfileString(ListExtras::kProfileSection, kName).IsEmpty());
}

// Copying

TEST_P(ListExtrasOn, CopyTheSelectedRowsAsTextAndAsCsv)
{
    Select({1, 3});
    EXPECT_TRUE(m_extras.CopySelection());
    EXPECT_EQ(Clipboard(CF_TEXT), "beta\t9\tblue, dark\r\nalp\t7\t\"say \"\"no\"\"\"\r\n");
    EXPECT_EQ(Clipboard(CsvFormat()), "beta,9,\"blue, dark\"\r\nalp,7,\"say \"\"no\"\"\"\r\n");
}

TEST_P(ListExtrasOn, CopyTheCaptionsWhenAskedTo)
{
    Select({0});
    EXPECT_TRUE(m_extras.CopySelection(true));
    EXPECT_EQ(Clipboard(CF_TEXT), "C0\tC1\tC2\r\nAlpha\t10\tred\r\n");
}

TEST_P(ListExtrasOn, CopyColumnsFromLeftToRight)
{
    SetOrder({2, 0, 1});
    Select({0});
    EXPECT_TRUE(m_extras.CopySelection(true));
    EXPECT_EQ(Clipboard(CsvFormat()), "C2,C0,C1\r\nred,Alpha,10\r\n");
}

TEST_P(ListExtrasOn, CopyAtTheUsualKeys)
{
    m_extras.EnblCopy(true);
    Select({0});
    Key('C', {VK_CONTROL});
    EXPECT_EQ(Clipboard(CF_TEXT), "Alpha\t10\tred\r\n");
    Select({2});
    Key(VK_INSERT, {VK_CONTROL});
    EXPECT_EQ(Clipboard(CF_TEXT), "Gamma\t8\tred\r\n");
    Select({1});
    Key('C');
    EXPECT_EQ(Clipboard(CF_TEXT), "Gamma\t8\tred\r\n");
}

TEST_P(ListExtrasOn, LeaveTheClipboardAloneWhenNothingIsSelectedOrItIsTaken)
{
    Select({0});
    ASSERT_TRUE(m_extras.CopySelection());
    Select({});
    EXPECT_FALSE(m_extras.CopySelection(true));
    Select({1});
    ASSERT_TRUE(::OpenClipboard(m_frame->m_hWnd));
    EXPECT_FALSE(m_extras.CopySelection());
    ::CloseClipboard();
    EXPECT_EQ(Clipboard(CF_TEXT), "Alpha\t10\tred\r\n");
}

// Finding

TEST_P(ListExtrasOn, GoToTheNextRowThatBeginsWithWhatIsTyped)
{
    m_extras.EnblFind(true);
    Focus(0);
    Type("g");
    EXPECT_EQ(Current(), 2);
    Type("am");
    EXPECT_EQ(Current(), 2);
}

TEST_P(ListExtrasOn, GrowTheTypedTextInTheRowWhereItIs)
{
    m_extras.EnblFind(true);
    Focus(2);
    support::TypeText("alph");
    support::Settle();
    EXPECT_EQ(Current(), 0) << "past \"alp\", round the end";
}

TEST_P(ListExtrasOn, WalkThroughTheRowsOfOneCharacterTypedSeveralTimes)
{
    m_extras.EnblFind(true);
    Focus(1);
    Type("A");
    EXPECT_EQ(Current(), 3);
    Type("a");
    EXPECT_EQ(Current(), 0);
    Type("a");
    EXPECT_EQ(Current(), 3);
}

TEST_P(ListExtrasOn, StayWhereNothingBeginsWithWhatIsTyped)
{
    m_extras.EnblFind(true);
    Select({1});
    Focus(1);
    Type("zz");
    EXPECT_EQ(Current(), 1);
}

TEST_P(ListExtrasOn, FindInTheColumnNamed)
{
    m_extras.EnblFind(true);
    m_extras.SetFindCol(2);
    Focus(0);
    Type("blue, d");
    EXPECT_EQ(Current(), 1);
}

TEST_P(ListExtrasOn, FindInTheColumnSortedByLastUnlessOneIsNamed)
{
    m_extras.EnblFind(true);
    m_list->EnblSort(false); // the column is remembered, the rows stay
    ClickHeader(1);
    m_list->SetFocus();
    Focus(0);
    Type("8");
    EXPECT_EQ(Current(), 2);
}

TEST_P(ListExtrasOn, GoOnAtF3AndBackAtShiftF3)
{
    m_extras.EnblFind(true);
    m_extras.SetFindCol(2);
    Focus(1);
    Type("re");
    EXPECT_EQ(Current(), 2);
    Key(VK_F3);
    EXPECT_EQ(Current(), 0);
    Key(VK_F3);
    EXPECT_EQ(Current(), 2);
    Key(VK_F3, {VK_SHIFT});
    EXPECT_EQ(Current(), 0);
    Key(VK_F3, {VK_SHIFT});
    EXPECT_EQ(Current(), 2);
}

TEST_P(ListExtrasOn, FindATextAnywhereInACell)
{
    EXPECT_TRUE(m_extras.Find("LP"));
    EXPECT_EQ(Current(), 0);
    EXPECT_TRUE(m_extras.FindNext());
    EXPECT_EQ(Current(), 3);
    EXPECT_TRUE(m_extras.FindNext());
    EXPECT_EQ(Current(), 0);
    EXPECT_TRUE(m_extras.FindNext(true));
    EXPECT_EQ(Current(), 3);
    EXPECT_FALSE(m_extras.Find("lp", tavkit::FindPlace::Begin));
    EXPECT_EQ(Current(), 3) << "nothing done";
    EXPECT_FALSE(m_extras.Find(""));
    EXPECT_FALSE(m_extras.Find(nullptr));
    EXPECT_FALSE(m_extras.FindNext());
}

TEST_P(ListExtrasOn, LeaveKeysThatAreNoTextToTheList)
{
    m_extras.EnblFind(true);
    Select({0});
    Focus(0);
    Key(VK_DOWN);
    EXPECT_EQ(Current(), 1);
    Key(VK_BACK);
    Key(VK_ESCAPE);
    EXPECT_EQ(Current(), 1);
}

// Columns

TEST_P(ListExtrasOn, KeepWidthsUnderAName)
{
    m_list->SetColumnWidth(0, 77);
    m_list->SetColumnWidth(2, 33);
    EXPECT_TRUE(m_extras.SaveColumns(kName));
    m_list->SetColumnWidth(0, 10);
    m_list->SetColumnWidth(2, 11);
    EXPECT_TRUE(m_extras.RestoreColumns(kName));
    EXPECT_EQ(m_list->GetColumnWidth(0), 77);
    EXPECT_EQ(m_list->GetColumnWidth(1), 100);
    EXPECT_EQ(m_list->GetColumnWidth(2), 33);
}

TEST_P(ListExtrasOn, RestoreTheOrderOnlyWhenColumnsMayBeDragged)
{
    SetOrder({2, 0, 1});
    EXPECT_TRUE(m_extras.SaveColumns(kName));
    SetOrder({0, 1, 2});
    EXPECT_TRUE(m_extras.RestoreColumns(kName));
    EXPECT_THAT(Order(), ElementsAre(0, 1, 2));
    m_extras.EnblColOrder(true);
    EXPECT_TRUE(m_extras.RestoreColumns(kName));
    EXPECT_THAT(Order(), ElementsAre(2, 0, 1));
}

TEST_P(ListExtrasOn, RefuseARecordOfOtherColumns)
{
    for (char const* const text : {"", "0:10,1:10", "0:10,1:10,2:10,3:10", "0:10,1:10,1:10", "0:10,1:10,2:-1", "junk"})
    {
        AfxGetApp()->WriteProfileString(ListExtras::kProfileSection, kName, text);
        EXPECT_FALSE(m_extras.RestoreColumns(kName)) << text;
        EXPECT_EQ(m_list->GetColumnWidth(0), 100);
    }
    EXPECT_FALSE(m_extras.RestoreColumns(""));
    EXPECT_FALSE(m_extras.RestoreColumns(nullptr));
    EXPECT_FALSE(m_extras.SaveColumns(""));
    EXPECT_FALSE(m_extras.SaveColumns(nullptr));
    m_list->RmvAllCol();
    EXPECT_FALSE(m_extras.SaveColumns(kName));
    EXPECT_FALSE(m_extras.RestoreColumns(kName));
}

TEST_P(ListExtrasOn, KeepColumnsFromOneListToTheNext)
{
    m_extras.EnblColOrder(true);
    m_extras.KeepColumns(kName);
    m_list->SetColumnWidth(1, 55);
    SetOrder({1, 2, 0});
    m_list->DestroyWindow();
    Open(kListStyle);
    AddColumns(3);
    ASSERT_TRUE(m_extras.Attach(*m_list));
    EXPECT_EQ(m_list->GetColumnWidth(1), 55);
    EXPECT_THAT(Order(), ElementsAre(1, 2, 0));
    m_extras.KeepColumns("");
    m_list->SetColumnWidth(1, 99);
    m_list->DestroyWindow();
    EXPECT_STREQ(AfxGetApp()->GetProfileString(ListExtras::kProfileSection, kName), "1:55,2:100,0:100");
}

TEST_P(ListExtrasOn, LetTheUserDragColumns)
{
    EXPECT_EQ(m_list->GetExtendedStyle() & LVS_EX_HEADERDRAGDROP, 0U);
    m_extras.EnblColOrder(true);
    EXPECT_NE(m_list->GetExtendedStyle() & LVS_EX_HEADERDRAGDROP, 0U);
    m_extras.EnblColOrder(false);
    EXPECT_EQ(m_list->GetExtendedStyle() & LVS_EX_HEADERDRAGDROP, 0U);
}

TEST_P(ListExtrasOn, ShowCellsUnderTheirCaptionsWhenColumnsWereDragged)
{
    constexpr COLORREF kPaper = RGB(240, 240, 250);
    constexpr CRect kRow(0, 0, 300, 20);
    auto const draw = [&](Picture& picture) {
        picture.DC()->SetBkColor(kPaper);
        DRAWITEMSTRUCT item{};
        item.hDC = picture.Handle();
        item.rcItem = kRow;
        m_list->DrawItem(&item); // a row without a record, whose texts are those of row 0
    };
    auto const write = [&](Picture& picture, std::vector<char const*> const& texts) {
        CBrush brush(kPaper);
        picture.DC()->FillRect(kRow, &brush);
        picture.DC()->SetBkColor(kPaper);
        LONG left = 0;
        for (char const* const text : texts)
        {
            CRect cell(left + 1, 1, left + 99, 19);
            picture.DC()->DrawText(text, -1, cell, DT_LEFT | DT_END_ELLIPSIS);
            left += 100;
        }
    };
    SetOrder({2, 0, 1});
    Picture expected(300, 20, 0);
    write(expected, {"Alpha", "10", "red"});
    Picture off(300, 20, 0);
    draw(off);
    EXPECT_TRUE(off.DifferenceTo(expected).IsRectEmpty()) << "in the order of the columns' numbers";
    m_extras.EnblColOrder(true);
    write(expected, {"red", "Alpha", "10"});
    Picture on(300, 20, 0);
    draw(on);
    EXPECT_TRUE(on.DifferenceTo(expected).IsRectEmpty());
}

// Sort mark

TEST_P(ListExtrasOn, MarkTheColumnSortedByLastAsItIsClicked)
{
    m_extras.EnblSortMark(true);
    EXPECT_EQ(MarkOf(0), 0);
    ClickHeader(1);
    EXPECT_EQ(MarkOf(1), HDF_SORTUP);
    ClickHeader(1);
    EXPECT_EQ(MarkOf(1), HDF_SORTDOWN);
    ClickHeader(0);
    EXPECT_EQ(MarkOf(1), 0);
    EXPECT_EQ(MarkOf(0), HDF_SORTUP);
    m_extras.EnblSortMark(false);
    EXPECT_EQ(MarkOf(0), 0);
    ClickHeader(2);
    EXPECT_EQ(MarkOf(2), 0);
    m_extras.EnblSortMark(true);
    EXPECT_EQ(MarkOf(2), HDF_SORTUP) << "sorted before it was switched on";
    AllowGdiGrowth("the header keeps what it draws its first mark with");
}

TEST_P(ListExtrasOn, MarkAColumnTheHostNamesAndKeepItsFormat)
{
    LVCOLUMN column{};
    column.mask = LVCF_FMT;
    column.fmt = LVCFMT_RIGHT;
    ASSERT_TRUE(m_list->SetColumn(1, &column));
    m_extras.ShowSortMark(1, false);
    EXPECT_EQ(MarkOf(1), HDF_SORTDOWN);
    EXPECT_TRUE(m_list->GetColumn(1, &column));
    EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    m_extras.ShowSortMark(-1, false);
    EXPECT_EQ(MarkOf(1), 0);
    AllowGdiGrowth("the header keeps what it draws its first mark with");
}

TEST_P(ListExtrasOn, MarkIsSeenInTheHeader)
{
    HWND const header = m_list->GetHeaderCtrl()->m_hWnd;
    RECT item{};
    ASSERT_TRUE(Header_GetItemRect(header, 1, &item));
    auto const pixels = [&] {
        support::Settle();
        std::vector<COLORREF> seen;
        for (int x = item.left + 2; x < item.right - 2; ++x)
        {
            seen.push_back(support::ClientPixel(header, x, (item.top + item.bottom) / 2));
        }
        return seen;
    };
    std::vector<COLORREF> const before = pixels();
    m_extras.ShowSortMark(1, true);
    EXPECT_NE(pixels(), before);
    m_extras.ShowSortMark(-1, true);
    EXPECT_EQ(pixels(), before);
    AllowGdiGrowth("the header keeps what it draws its first mark with");
}

// Lives

TEST_P(ListExtrasOn, ServeNoListAfterItsWindowIsGone)
{
    m_list->DestroyWindow();
    EXPECT_FALSE(m_extras.CopySelection());
    EXPECT_FALSE(m_extras.Find("a"));
    EXPECT_FALSE(m_extras.SaveColumns(kName));
    EXPECT_FALSE(m_extras.RestoreColumns(kName));
    m_extras.EnblColOrder(true);
    m_extras.EnblSortMark(true);
    m_extras.ShowSortMark(0, true);
    EXPECT_FALSE(m_extras.Attach(*m_list));
}

TEST_P(ListExtrasOn, EndBeforeTheirList)
{
    auto extras = std::make_unique<ListExtras>();
    ASSERT_TRUE(extras->Attach(*m_list));
    extras->EnblCopy(true);
    extras.reset();
    Select({0});
    Key('C', {VK_CONTROL});
    EXPECT_EQ(Clipboard(CF_TEXT), std::nullopt);
}

TEST_P(ListExtrasOn, ServeOneListAtATime)
{
    m_extras.EnblCopy(true);
    CListCtrlFlex other;
    ASSERT_TRUE(other.Create(kListStyle, CRect(0, 220, 200, 300), m_frame.get(), kListId + 1));
    other.InsertColumn(0, adiString, "a", false, 0, 50, 0);
    other.InsertItem(0, "other", 0, nullptr, 0, 0xFFFFFF, 0);
    other.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    ASSERT_TRUE(m_extras.Attach(other));
    Select({0});
    Key('C', {VK_CONTROL});
    EXPECT_EQ(Clipboard(CF_TEXT), std::nullopt) << "the first list is by itself again";
    EXPECT_TRUE(m_extras.CopySelection());
    EXPECT_EQ(Clipboard(CF_TEXT), "other\r\n");
    other.DestroyWindow();
}

class ListExtrasTrouble : public ListExtrasBase
{
protected:
    // The first row asks its parent for its text, which does the worst instead.
    void SetUp() override
    {
        ListExtrasBase::SetUp();
        AddColumns(1);
        m_list->ShowWindow(SW_HIDE);
        AddRows({"one", "two", "three"});
        m_list->SetItemText(1, 0, LPSTR_TEXTCALLBACK);
        Select({0, 1, 2});
        m_own = std::make_unique<ListExtras>();
        ASSERT_TRUE(m_own->Attach(*m_list));
    }

    void AtTheText(std::function<void()> blow)
    {
        m_frame->m_onDispInfo = [this, blow](LVITEM&) {
            m_frame->m_onDispInfo = nullptr;
            blow();
        };
    }

    std::unique_ptr<ListExtras> m_own;
};

TEST_F(ListExtrasTrouble, SurviveTheEndOfTheListWhileTheyCopy)
{
    AtTheText([&] { m_list.reset(); });
    EXPECT_FALSE(m_own->CopySelection());
}

TEST_F(ListExtrasTrouble, SurviveTheirOwnEndWhileTheyCopy)
{
    AtTheText([&] { m_own.reset(); });
    ListExtras* const extras = m_own.get();
    EXPECT_FALSE(extras->CopySelection());
}

TEST_F(ListExtrasTrouble, SurviveTheEndOfTheListWhileTheyFind)
{
    AtTheText([&] { m_list.reset(); });
    EXPECT_FALSE(m_own->Find("three"));
}

TEST_F(ListExtrasTrouble, SurviveTheirOwnEndWhileTheyFind)
{
    AtTheText([&] { m_own.reset(); });
    ListExtras* const extras = m_own.get();
    EXPECT_FALSE(extras->Find("three"));
}

TEST_F(ListExtrasTrouble, SurviveTheEndOfTheListWhenTheyGoToARow)
{
    m_frame->m_onNotify = [&](NMHDR& header) {
        if (header.code == static_cast<UINT>(LVN_ITEMCHANGED) && m_list)
        {
            m_list.reset();
        }
    };
    EXPECT_TRUE(m_own->Find("one"));
    EXPECT_EQ(m_list, nullptr);
}

TEST_F(ListExtrasTrouble, SurviveTheEndOfTheListInAClickOnItsHeader)
{
    m_list->ShowWindow(SW_SHOW);
    support::Settle();
    m_own->EnblSortMark(true);
    AtTheText([&] {
        m_own.reset();
        m_list.reset();
    });
    NMHEADER click{};
    click.hdr = {m_list->GetHeaderCtrl()->m_hWnd, 0, static_cast<UINT>(HDN_ITEMCLICKA)};
    m_list->SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
    EXPECT_EQ(m_list, nullptr);
}

} // namespace
