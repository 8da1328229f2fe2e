// ListCtrlFlexDrawTest.cpp - rows of the flexible list, pixel by pixel, and the room around them

#include "FlexFixture.h"
#include "Picture.h"

#include <afxcmn.h>

#include <array>
#include <utility>

namespace
{

using flex_test::kListStyle;

constexpr COLORREF kBehind = RGB(7, 8, 9);
constexpr COLORREF kInk = RGB(200, 10, 20);
constexpr COLORREF kPaper = RGB(220, 240, 200);
constexpr COLORREF kListColor = RGB(180, 190, 250);
constexpr COLORREF kGlyph = RGB(10, 200, 30);
constexpr CRect kRow(5, 3, 405, 23);
constexpr int kColumnWidth = 100;

class ListCtrlFlexDraw : public flex_test::FlexTest
{
protected:
    void SetUp() override
    {
        FlexTest::SetUp();
        AddColumns(4);
    }

    // Draws a row by itself as the control would ask for it.
    void Draw(Picture& picture, int row, UINT state = 0)
    {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_LISTVIEW;
        item.itemID = static_cast<UINT>(row);
        item.itemState = state;
        item.hDC = picture.Handle();
        item.rcItem = kRow;
        item.itemData = m_list->CListCtrl::GetItemData(row);
        m_list->DrawItem(&item);
    }

    static void FillColor(Picture& picture, CRect const& rect, COLORREF color)
    {
        CBrush brush(color);
        picture.DC()->FillRect(rect, &brush);
    }

    // The place of a column's text in the row.
    static CRect Column(int col)
    {
        int const left = kRow.left + col * kColumnWidth;
        return {left + 1, kRow.top + 1, left + kColumnWidth - 1, kRow.bottom - 1};
    }

    static void Write(Picture& picture, CRect rect, char const* text, COLORREF ink, COLORREF paper,
                      UINT format = DT_LEFT | DT_END_ELLIPSIS)
    {
        picture.DC()->SetTextColor(ink);
        picture.DC()->SetBkColor(paper);
        picture.DC()->DrawText(text, -1, rect, format);
    }

    static void ExpectSame(Picture const& actual, Picture const& expected)
    {
        CRect const difference = actual.DifferenceTo(expected);
        EXPECT_TRUE(difference.IsRectEmpty()) << testing::PrintToString(difference);
    }

    Picture m_actual{420, 30, kBehind};
    Picture m_expected{420, 30, kBehind};
};

TEST_F(ListCtrlFlexDraw, FillsTheRowAndWritesItsCellsInTheRecordsColours)
{
    m_list->InsertItem(0, "First", 0, nullptr, kInk, kPaper, 0);
    m_list->SetItemText(0, 2, "Third");
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    Write(m_expected, Column(0), "First", kInk, kPaper);
    Write(m_expected, Column(2), "Third", kInk, kPaper);
    ExpectSame(m_actual, m_expected);
    EXPECT_EQ(m_actual.At(kRow.left, kRow.top), kPaper);
    EXPECT_EQ(m_actual.At(kRow.right - 1, kRow.bottom - 1), kPaper);
    EXPECT_EQ(m_actual.At(kRow.left - 1, kRow.top), kBehind);
    EXPECT_EQ(m_actual.At(kRow.right, kRow.top), kBehind);
}

TEST_F(ListCtrlFlexDraw, TakesTheSelectionsColoursForASelectedRow)
{
    m_list->InsertItem(0, "First", 0, nullptr, kInk, kPaper, 0);
    m_list->SetBkColor(kListColor);
    Draw(m_actual, 0, ODS_SELECTED);
    COLORREF const ink = ::GetSysColor(COLOR_HIGHLIGHTTEXT);
    COLORREF const paper = ::GetSysColor(COLOR_HIGHLIGHT);
    FillColor(m_expected, kRow, paper);
    Write(m_expected, Column(0), "First", ink, paper);
    ExpectSame(m_actual, m_expected);
}

TEST_F(ListCtrlFlexDraw, KeepsTheSelectionsColoursOfItsConstruction)
{
    COLORREF const paper = ::GetSysColor(COLOR_HIGHLIGHT);
    int const index = COLOR_HIGHLIGHT;
    COLORREF const other = RGB(1, 250, 2);
    ::SetSysColors(1, &index, &other);
    ASSERT_EQ(::GetSysColor(COLOR_HIGHLIGHT), other);
    m_list->InsertItem(0, "", 0, nullptr, kInk, kPaper, 0);
    Draw(m_actual, 0, ODS_SELECTED);
    ::SetSysColors(1, &index, &paper);
    EXPECT_EQ(m_actual.At(50, 10), paper);
}

TEST_F(ListCtrlFlexDraw, TakesTheContextsColoursForARowWithoutARecord)
{
    m_list->CListCtrl::InsertItem(0, "Bare");
    m_actual.DC()->SetTextColor(kInk);
    m_actual.DC()->SetBkColor(kPaper);
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    Write(m_expected, Column(0), "Bare", kInk, kPaper);
    ExpectSame(m_actual, m_expected);
}

TEST_F(ListCtrlFlexDraw, TakesTheListsBackgroundForARowWithoutARecordWhenItIsSet)
{
    m_list->CListCtrl::InsertItem(0, "");
    m_list->InsertItem(1, "", 0, nullptr, kInk, kPaper, 0);
    m_list->SetBkColor(kListColor);
    Draw(m_actual, 0);
    EXPECT_EQ(m_actual.At(50, 10), kListColor);
    Draw(m_actual, 1);
    EXPECT_EQ(m_actual.At(50, 10), kPaper) << "a record's comes first";
    m_list->SetBkColor(0);
    m_actual.DC()->SetBkColor(kGlyph);
    Draw(m_actual, 0);
    EXPECT_EQ(m_actual.At(50, 10), kGlyph) << "black is none";
}

TEST_F(ListCtrlFlexDraw, TakesWhiteRowsForTheSystemsWindowColourAndBlackOnesForItsTextColourWithoutAnImage)
{
    int const indices[] = {COLOR_WINDOW, COLOR_WINDOWTEXT};
    COLORREF const before[] = {::GetSysColor(COLOR_WINDOW), ::GetSysColor(COLOR_WINDOWTEXT)};
    COLORREF const window = RGB(250, 251, 200);
    COLORREF const windowText = RGB(100, 0, 100);
    COLORREF const colors[] = {window, windowText};
    ::SetSysColors(2, indices, colors);
    m_list->InsertItem(0, "", 0, nullptr, kInk, 0xFFFFFF, 0);
    m_list->InsertItem(1, "", 0, nullptr, kInk, 0, 0);
    m_list->InsertItem(2, "", 0, 0, nullptr, kInk, 0xFFFFFF, 0);
    m_list->InsertItem(3, "", 0, 0, nullptr, kInk, 0, 0);
    // A window colour that is black meets the second rule as well.
    COLORREF const black = 0;
    ::SetSysColors(1, indices, &black);
    m_list->InsertItem(4, "", 0, nullptr, kInk, 0xFFFFFF, 0);
    m_list->InsertItem(5, "", 0, 0, nullptr, kInk, 0xFFFFFF, 0);
    ::SetSysColors(2, indices, before);
    for (int const index : indices)
    {
        ::GetSysColorBrush(index); // made anew, so that no later test counts it as its own
    }
    AllowGdiGrowth("the system's brushes were dropped with their colours");
    COLORREF const expected[] = {window, windowText, window, 0, windowText, 0};
    for (int row = 0; row < 6; ++row)
    {
        Draw(m_actual, row);
        EXPECT_EQ(m_actual.At(50, 10), expected[row]) << "row " << row;
    }
}

TEST_F(ListCtrlFlexDraw, IndentsTheTextAndNotTheBackground)
{
    m_list->InsertItem(0, "First", 0, nullptr, kInk, kPaper, 10);
    m_list->SetItemText(0, 1, "Second");
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    CRect first = Column(0);
    first.left += 10;
    Write(m_expected, first, "First", kInk, kPaper);
    Write(m_expected, Column(1), "Second", kInk, kPaper);
    ExpectSame(m_actual, m_expected);
}

TEST_F(ListCtrlFlexDraw, WritesNothingInColumnsThatTheIndentCovers)
{
    m_list->InsertItem(0, "First", 0, nullptr, kInk, kPaper, 130);
    m_list->SetItemText(0, 1, "Second");
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    CRect second = Column(1);
    second.left = kRow.left + 131;
    Write(m_expected, second, "Second", kInk, kPaper);
    ExpectSame(m_actual, m_expected);
}

class ListCtrlFlexImages : public ListCtrlFlexDraw
{
protected:
    void SetUp() override
    {
        ListCtrlFlexDraw::SetUp();
        m_images.SetWindow(m_list.get());
        m_images.Create();
        m_image = m_images.GetRect(kGlyph, kGlyph, CRect(0, 0, 16, 16));
        m_list->SetImageList(&m_images, LVSIL_SMALL);
    }

    void TearDown() override
    {
        m_list.reset();
        m_images.DeleteImageList();
        ListCtrlFlexDraw::TearDown();
    }

    CTavImageList m_images;
    int m_image = -1;
};

TEST_F(ListCtrlFlexImages, DrawsTheImageAtTheRowsCornerWhateverTheIndentAndTheTextBehindBoth)
{
    m_list->InsertItem(0, "First", m_image, 0, nullptr, kInk, kPaper, 10);
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    FillColor(m_expected, CRect(kRow.left, kRow.top, kRow.left + 16, kRow.top + 16), kGlyph);
    CRect first = Column(0);
    first.left += 10 + 16;
    Write(m_expected, first, "First", kInk, kPaper);
    ExpectSame(m_actual, m_expected);
}

TEST_F(ListCtrlFlexImages, DrawsASelectedRowsImageAsSelected)
{
    m_list->InsertItem(0, "", m_image, 0, nullptr, kInk, kPaper, 0);
    Draw(m_actual, 0, ODS_SELECTED);
    FillColor(m_expected, kRow, ::GetSysColor(COLOR_HIGHLIGHT));
    ASSERT_TRUE(m_images.Draw(m_expected.DC(), m_image, kRow.TopLeft(), ILD_TRANSPARENT | ILD_SELECTED));
    ExpectSame(m_actual, m_expected);
    EXPECT_NE(m_actual.At(kRow.left + 8, kRow.top + 8), kGlyph);
}

TEST_F(ListCtrlFlexImages, KeepsTheImagesRoomFreeInARowWithoutOne)
{
    m_list->InsertItem(0, "First", -1, 0, nullptr, kInk, kPaper, 0);
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    CRect first = Column(0);
    first.left += 16;
    Write(m_expected, first, "First", kInk, kPaper);
    ExpectSame(m_actual, m_expected);
}

TEST_F(ListCtrlFlexDraw, AlignsByTheColumnsFormatAndCentresBeforeItAlignsRight)
{
    m_list->InsertItem(0, "0", 0, nullptr, kInk, kPaper, 0);
    UINT const aligns[] = {DT_LEFT, DT_RIGHT, DT_CENTER, DT_CENTER};
    int const formats[] = {LVCFMT_LEFT, LVCFMT_RIGHT, LVCFMT_CENTER, LVCFMT_CENTER | LVCFMT_RIGHT};
    FillColor(m_expected, kRow, kPaper);
    for (int col = 1; col < 4; ++col)
    {
        LVCOLUMN column{};
        column.mask = LVCF_FMT;
        column.fmt = formats[col];
        ASSERT_TRUE(m_list->SetColumn(col, &column));
        m_list->SetItemText(0, col, "Cell");
        Write(m_expected, Column(col), "Cell", kInk, kPaper, aligns[col] | DT_END_ELLIPSIS);
    }
    Write(m_expected, Column(0), "0", kInk, kPaper);
    Draw(m_actual, 0);
    ExpectSame(m_actual, m_expected);
}

TEST_F(ListCtrlFlexDraw, EndsATextThatIsTooLongWithDots)
{
    char const* const text = "A text that has by far no room in its column";
    m_list->InsertItem(0, text, 0, nullptr, kInk, kPaper, 0);
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    Write(m_expected, Column(0), text, kInk, kPaper);
    ExpectSame(m_actual, m_expected);
    // Nothing of it in the pixel around the cell's text nor in the next column.
    for (int x = kRow.left + kColumnWidth - 1; x < kRow.right; ++x)
    {
        for (int y = kRow.top; y < kRow.bottom; ++y)
        {
            ASSERT_EQ(m_actual.At(x, y), kPaper) << x << ", " << y;
        }
    }
}

TEST_F(ListCtrlFlexDraw, UnderlinesTheCharacterBehindAnAmpersand)
{
    m_list->InsertItem(0, "A&B && C", 0, nullptr, kInk, kPaper, 0);
    m_list->SetItemText(0, 1, "AB & C");
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    Write(m_expected, Column(0), "A&B && C", kInk, kPaper);
    Write(m_expected, Column(1), "AB & C", kInk, kPaper);
    ExpectSame(m_actual, m_expected);
    Picture plain(420, 30, kBehind);
    FillColor(plain, kRow, kPaper);
    Write(plain, Column(0), "A&B && C", kInk, kPaper, DT_LEFT | DT_END_ELLIPSIS | DT_NOPREFIX);
    Write(plain, Column(1), "AB & C", kInk, kPaper);
    EXPECT_FALSE(m_actual.DifferenceTo(plain).IsRectEmpty());
}

TEST_F(ListCtrlFlexDraw, WritesAtTheTopOfTheRowLineByLine)
{
    m_list->InsertItem(0, "One\nTwo", 0, nullptr, kInk, kPaper, 0);
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    Write(m_expected, Column(0), "One\nTwo", kInk, kPaper);
    ExpectSame(m_actual, m_expected);
}

TEST_F(ListCtrlFlexDraw, WritesInTheRecordsFontAndGivesTheContextBackAsItWas)
{
    CFont bold;
    ASSERT_TRUE(bold.CreatePointFont(120, "Arial"));
    m_list->InsertItem(0, "First", 0, &bold, kInk, kPaper, 0);
    m_actual.DC()->SetTextColor(kGlyph);
    m_actual.DC()->SetBkColor(kListColor);
    HGDIOBJ const font = ::GetCurrentObject(m_actual.Handle(), OBJ_FONT);
    Draw(m_actual, 0);
    EXPECT_EQ(m_actual.DC()->GetTextColor(), kGlyph);
    EXPECT_EQ(m_actual.DC()->GetBkColor(), kListColor);
    EXPECT_EQ(::GetCurrentObject(m_actual.Handle(), OBJ_FONT), font);
    FillColor(m_expected, kRow, kPaper);
    {
        SelectScope const selected(*m_expected.DC(), bold);
        Write(m_expected, Column(0), "First", kInk, kPaper);
    }
    ExpectSame(m_actual, m_expected);
}

TEST_F(ListCtrlFlexDraw, DrawsTheFocusAroundTheWholeRow)
{
    m_list->InsertItem(0, "First", 0, nullptr, kInk, kPaper, 10);
    m_actual.DC()->SetTextColor(0);
    m_actual.DC()->SetBkColor(0xFFFFFF);
    Draw(m_actual, 0, ODS_FOCUS);
    FillColor(m_expected, kRow, kPaper);
    CRect first = Column(0);
    first.left += 10;
    Write(m_expected, first, "First", kInk, kPaper);
    m_expected.DC()->SetTextColor(0);
    m_expected.DC()->SetBkColor(0xFFFFFF);
    m_expected.DC()->DrawFocusRect(kRow);
    ExpectSame(m_actual, m_expected);
}

TEST_F(ListCtrlFlexDraw, ShowsEachColumnsOwnSubItem)
{
    m_list->RmvAllCol();
    m_list->InsertColumn(0, adiString, "a", false, 0, 100, 0);
    m_list->InsertColumn(1, adiString, "b", false, 0, 40, 2);
    m_list->InsertColumn(2, adiString, "c", false, 0, 60, 1);
    m_list->InsertItem(0, "zero", 0, nullptr, kInk, kPaper, 0);
    m_list->SetItemText(0, 1, "one");
    m_list->SetItemText(0, 2, "two");
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    Write(m_expected, Column(0), "zero", kInk, kPaper);
    Write(m_expected, CRect(106, 4, 144, 22), "two", kInk, kPaper);
    Write(m_expected, CRect(146, 4, 204, 22), "one", kInk, kPaper);
    ExpectSame(m_actual, m_expected);
}

TEST_F(ListCtrlFlexDraw, DrawsARowWithoutColumnsOrARowThatDoesNotExistAsABareBackground)
{
    m_list->InsertItem(0, "First", 0, nullptr, kInk, kPaper, 0);
    m_list->RmvAllCol();
    Draw(m_actual, 0);
    FillColor(m_expected, kRow, kPaper);
    ExpectSame(m_actual, m_expected);
    m_actual.DC()->SetBkColor(kListColor);
    Draw(m_actual, 12);
    FillColor(m_expected, kRow, kListColor);
    ExpectSame(m_actual, m_expected);
}

// On the screen

TEST_F(ListCtrlFlexDraw, IsDrawnByTheControl)
{
    m_list->InsertItem(0, "", 0, nullptr, kInk, kPaper, 0);
    m_list->InsertItem(1, "", 0, nullptr, kInk, kGlyph, 0);
    CRect first;
    CRect second;
    m_list->GetItemRect(0, first, LVIR_BOUNDS);
    m_list->GetItemRect(1, second, LVIR_BOUNDS);
    support::Settle();
    EXPECT_EQ(support::ClientPixel(m_list->m_hWnd, 50, first.CenterPoint().y), kPaper);
    EXPECT_EQ(support::ClientPixel(m_list->m_hWnd, 50, second.CenterPoint().y), kGlyph);
    support::Click(support::ScreenPoint(m_list->m_hWnd, 50, second.CenterPoint().y));
    support::Settle();
    EXPECT_EQ(support::ClientPixel(m_list->m_hWnd, 50, second.CenterPoint().y), ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(support::ClientPixel(m_list->m_hWnd, 50, first.CenterPoint().y), kPaper);
}

TEST_F(ListCtrlFlexDraw, ErasesTheRoomAroundTheRowsInItsBackgroundColour)
{
    EXPECT_FALSE(m_list->IsBkColorSet());
    EXPECT_NE(m_list->SetBkColor(kListColor), 0);
    EXPECT_TRUE(m_list->IsBkColorSet());
    EXPECT_EQ(m_list->GetBkColor(), kListColor) << "the control knows it as well";
    m_list->Invalidate();
    support::Settle();
    CRect client;
    m_list->GetClientRect(client);
    EXPECT_EQ(support::ClientPixel(m_list->m_hWnd, 200, 100), kListColor);
    EXPECT_EQ(support::ClientPixel(m_list->m_hWnd, client.right - 1, client.bottom - 1), kListColor);
}

TEST_F(ListCtrlFlexDraw, ErasesInTheContextsColourWhenNoneOrBlackIsSet)
{
    Picture room(600, 300, kBehind);
    room.DC()->SetBkColor(kGlyph);
    EXPECT_EQ(m_list->SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(room.Handle())), 1);
    CRect client;
    m_list->GetClientRect(client);
    EXPECT_EQ(room.Painted(), CRect(0, 0, client.right + 1, client.bottom + 1)) << "a pixel more to right and bottom";
    EXPECT_EQ(room.At(10, 10), kGlyph);
    m_list->SetBkColor(kListColor);
    m_list->SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(room.Handle()));
    EXPECT_EQ(room.At(10, 10), kListColor);
    EXPECT_NE(m_list->SetBkColor(0), 0);
    EXPECT_EQ(m_list->GetBkColor(), 0U) << "black reaches the control";
    EXPECT_FALSE(m_list->IsBkColorSet());
    m_list->SendMessage(WM_ERASEBKGND, reinterpret_cast<WPARAM>(room.Handle()));
    EXPECT_EQ(room.At(10, 10), kGlyph);
    EXPECT_EQ(room.DC()->GetBkColor(), kGlyph);
}

// A row of a list without rows of its own has no record.
TEST_F(ListCtrlFlexDraw, DrawsTheRowsOfAVirtualList)
{
    Open(kListStyle | LVS_OWNERDATA);
    m_list->InsertColumn(0, adiString, "a", false, 0, 100, 0);
    char text[] = "Given";
    m_frame->m_onDispInfo = [&](LVITEM& item) { item.pszText = text; };
    m_list->SetItemCount(3);
    m_list->SetBkColor(kListColor);
    support::Settle();
    CRect row;
    m_list->GetItemRect(2, row, LVIR_BOUNDS);
    EXPECT_EQ(support::ClientPixel(m_list->m_hWnd, row.right - 2, row.CenterPoint().y), kListColor);
    EXPECT_EQ(m_list->GetItemData(0), 0U);
    EXPECT_EQ(m_list->SetItemData(0, 1), -1);
}

class ListCtrlFlexPaint : public ListCtrlFlexDraw, public testing::WithParamInterface<std::pair<UINT, bool>>
{
};

TEST_P(ListCtrlFlexPaint, SurvivesAParentThatDestroysItWhenAskedForWhatARowShows)
{
    Open(kListStyle | LVS_OWNERDATA);
    m_list->InsertColumn(0, adiString, "a", false, 0, 100, 0);
    m_list->InsertColumn(1, adiString, "b", false, 0, 100, 1);
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR32, 1, 1));
    m_list->SetImageList(&images, LVSIL_SMALL);
    support::Settle();
    auto const [mask, object] = GetParam();
    m_frame->m_onDispInfo = [&, mask = mask, object = object](LVITEM& item) {
        if ((item.mask & mask) == 0)
        {
            return;
        }
        m_frame->m_onDispInfo = nullptr;
        if (object)
        {
            m_list.reset();
        }
        else
        {
            m_list->DestroyWindow();
        }
    };
    m_list->SetItemCount(3);
    support::Settle();
    EXPECT_TRUE(m_list == nullptr || m_list->m_hWnd == nullptr);
    // The context that was being painted in holds on to the control's font until it serves another window.
    std::array<HDC, 16> contexts{};
    for (HDC& context : contexts)
    {
        context = ::GetDC(m_frame->m_hWnd);
    }
    for (HDC const context : contexts)
    {
        ::ReleaseDC(m_frame->m_hWnd, context);
    }
}

INSTANTIATE_TEST_SUITE_P(TextAndImage, ListCtrlFlexPaint,
                         testing::Values(std::pair(UINT{LVIF_TEXT}, false), std::pair(UINT{LVIF_TEXT}, true),
                                         std::pair(UINT{LVIF_IMAGE}, false), std::pair(UINT{LVIF_IMAGE}, true)));

} // namespace
