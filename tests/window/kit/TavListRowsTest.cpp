// TavListRowsTest.cpp - the row list: rows and cells

#include "TavListFixture.h"

namespace
{

using testing::ElementsAre;
using Info = CTavListCtrl::RowInfo;

constexpr COLORREF kRed = RGB(200, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 200);

class TavListRows : public TavListTest
{
protected:
    void SetUp() override
    {
        TavListTest::SetUp();
        AddColumns({"a", "b"});
    }

    // Colour of a row's background, behind its texts.
    [[nodiscard]] COLORREF RowColor(int row)
    {
        CRect rect;
        EXPECT_TRUE(m_list->GetItemRect(row, rect, LVIR_BOUNDS));
        return support::ClientPixel(m_list->m_hWnd, rect.right - 3, rect.CenterPoint().y);
    }
    // Whether something in the row has exactly that colour.
    [[nodiscard]] bool RowShows(int row, COLORREF color)
    {
        CRect rect;
        EXPECT_TRUE(m_list->GetItemRect(row, rect, LVIR_BOUNDS));
        support::Settle();
        CClientDC dc(m_list.get());
        for (int y = rect.top; y < rect.bottom; ++y)
        {
            for (int x = rect.left; x < rect.right; ++x)
            {
                if (dc.GetPixel(x, y) == color)
                {
                    return true;
                }
            }
        }
        return false;
    }
    // The first column in which a row has something drawn.
    [[nodiscard]] int FirstInk(int row)
    {
        CRect rect;
        EXPECT_TRUE(m_list->GetItemRect(row, rect, LVIR_BOUNDS));
        support::Settle();
        CClientDC dc(m_list.get());
        for (int x = rect.left; x < rect.right; ++x)
        {
            for (int y = rect.top; y < rect.bottom; ++y)
            {
                if (dc.GetPixel(x, y) != RowColor(row))
                {
                    return x - rect.left;
                }
            }
        }
        return -1;
    }
    [[nodiscard]] int Image(int row) const
    {
        LVITEM item = {};
        item.mask = LVIF_IMAGE;
        item.iItem = row;
        EXPECT_TRUE(m_list->GetItem(&item));
        return item.iImage;
    }
};

TEST_F(TavListRows, ANewListIsEmpty)
{
    const CTavListCtrl list;
    EXPECT_EQ(list.GetNumRow(), 0);
    EXPECT_EQ(list.GetNumCol(), 0);
    EXPECT_EQ(list.GetCrntRow(), 0);
    EXPECT_FALSE(list.HasSavedColWidth());
}

TEST_F(TavListRows, CellsOfARowAreSeparatedByBars)
{
    EXPECT_EQ(m_list->AddRow("one|two", nullptr), 0);
    EXPECT_EQ(m_list->AddRow("three|four", nullptr), 1);
    EXPECT_THAT(Cells(0), ElementsAre("one", "two"));
    EXPECT_THAT(Cells(1), ElementsAre("three", "four"));
    EXPECT_EQ(m_list->GetNumRow(), 2);
    EXPECT_EQ(m_list->GetItemCount(), 2);
}

TEST_F(TavListRows, AnAddedRowIsTheCurrentOne)
{
    m_list->AddRow("x", nullptr);
    EXPECT_EQ(m_list->GetCrntRow(), 0);
    m_list->SetCrntRow(7);
    m_list->AddRow("y", nullptr);
    EXPECT_EQ(m_list->GetCrntRow(), 1);
}

TEST_F(TavListRows, CellsWithoutAColumnAreDropped)
{
    m_list->AddRow("a|b|c", nullptr);
    EXPECT_THAT(Cells(0), ElementsAre("a", "b"));
    EXPECT_STREQ(m_list->GetItemText(0, 2), "");
}

TEST_F(TavListRows, ABarAtTheEndAddsNoCell)
{
    EXPECT_EQ(m_list->AddRow("a|", nullptr), 0);
    EXPECT_THAT(Cells(0), ElementsAre("a", ""));
}

TEST_F(TavListRows, AnEmptyTextIsARowWithAnEmptyFirstCell)
{
    EXPECT_EQ(m_list->AddRow("", nullptr), 0);
    EXPECT_EQ(m_list->GetItemCount(), 1);
    EXPECT_THAT(Cells(0), ElementsAre("", ""));
}

TEST_F(TavListRows, AnEmptyCellBetweenBarsStaysEmpty)
{
    AddColumns({"c"});
    m_list->AddRow("a||c", nullptr);
    EXPECT_THAT(Cells(0), ElementsAre("a", "", "c"));
}

TEST_F(TavListRows, ARowOfAListWithoutColumnsHasItsFirstCell)
{
    Open();
    EXPECT_EQ(m_list->AddRow("a|b", nullptr), 0);
    EXPECT_STREQ(m_list->GetItemText(0, 0), "a");
    EXPECT_EQ(m_list->GetNumRow(), 1);
}

TEST_F(TavListRows, ARowWithoutAnInfoIsPlain)
{
    m_list->AddRow("", nullptr);
    EXPECT_EQ(m_list->GetData(), 0U);
    EXPECT_EQ(RowColor(0), ::GetSysColor(COLOR_WINDOW));
    m_list->SetText("text");
    EXPECT_TRUE(RowShows(0, RGB(0, 0, 0)));
}

TEST_F(TavListRows, ARowTakesWhatItsInfoSays)
{
    Info info = {-1, kRed, kBlue, nullptr, 0, 4711, 0};
    m_list->AddRow("text", &info);
    EXPECT_EQ(m_list->GetData(), 4711U);
    EXPECT_EQ(RowColor(0), kBlue);
    EXPECT_TRUE(RowShows(0, kRed));
    EXPECT_EQ(Image(0), 0) << "the control's own";
}

TEST_F(TavListRows, AnInfosWhiteBackgroundIsTheSystemsWindowColour)
{
    Info info = {-1, kRed, 0xFFFFFF, nullptr, 0, 0, 0};
    m_list->AddRow("", &info);
    EXPECT_EQ(RowColor(0), ::GetSysColor(COLOR_WINDOW));
}

TEST_F(TavListRows, AnInfosImageIsTheRows)
{
    Info info = {3, kRed, kBlue, nullptr, 0, 12, 0};
    m_list->AddRow("text|cell", &info);
    EXPECT_EQ(Image(0), 3);
    EXPECT_EQ(m_list->GetData(), 12U);
    EXPECT_THAT(Cells(0), ElementsAre("text", "cell"));
}

TEST_F(TavListRows, ABlackBackgroundStaysBlackOnlyBesideAnImage)
{
    Info info = {-1, kRed, 0, nullptr, 0, 0, 0};
    m_list->AddRow("", &info);
    EXPECT_EQ(RowColor(0), ::GetSysColor(COLOR_WINDOWTEXT));
    info.m_nImage = 0;
    m_list->AddRow("", &info);
    EXPECT_EQ(RowColor(1), COLORREF(0));
}

TEST_F(TavListRows, AnIndentMovesTheTexts)
{
    m_list->AddRow("text", nullptr);
    Info info = {-1, 0, 0xFFFFFF, nullptr, 0, 0, 20};
    m_list->AddRow("text", &info);
    EXPECT_EQ(FirstInk(1), FirstInk(0) + 20);
}

TEST_F(TavListRows, AnInfosFontIsTheRows)
{
    CFont large;
    ASSERT_TRUE(large.CreateFont(28, 0, 0, 0, FW_BOLD, 0, 0, 0, 0, 0, 0, 0, 0, "Arial"));
    Info info = {-1, kRed, 0xFFFFFF, &large, 0, 0, 0};
    m_list->AddRow("W", nullptr);
    m_list->AddRow("W", &info);
    const auto inkWidth = [&](int row) {
        CRect rect;
        m_list->GetItemRect(row, rect, LVIR_BOUNDS);
        CClientDC dc(m_list.get());
        int last = 0;
        for (int x = rect.left; x < rect.right; ++x)
        {
            last = dc.GetPixel(x, rect.CenterPoint().y) != RowColor(row) ? x : last;
        }
        return last - FirstInk(row);
    };
    EXPECT_GT(inkWidth(1), inkWidth(0));
}

TEST_F(TavListRows, AnEmptyRowIsAppended)
{
    m_list->AddRow("x|y", nullptr);
    m_list->SetCrntRow(0);
    EXPECT_EQ(m_list->AddRow(), 1);
    EXPECT_EQ(m_list->GetNumRow(), 2);
    EXPECT_EQ(m_list->GetCrntRow(), 1);
    EXPECT_THAT(Cells(1), ElementsAre("", ""));
    EXPECT_EQ(m_list->GetData(), 0U);
    EXPECT_EQ(RowColor(1), ::GetSysColor(COLOR_WINDOW));
}

TEST_F(TavListRows, AnEmptyRowIsInserted)
{
    m_list->AddRow("first", nullptr);
    m_list->AddRow("last", nullptr);
    EXPECT_EQ(m_list->InsertRow(1), 1);
    EXPECT_EQ(m_list->GetCrntRow(), 1);
    EXPECT_EQ(m_list->GetNumRow(), 3);
    m_list->SetText("between");
    EXPECT_STREQ(m_list->GetItemText(0, 0), "first");
    EXPECT_STREQ(m_list->GetItemText(1, 0), "between");
    EXPECT_STREQ(m_list->GetItemText(2, 0), "last");
    m_list->AddRow("behind", nullptr);
    EXPECT_STREQ(m_list->GetItemText(3, 0), "behind") << "the inserted row is counted";
}

TEST_F(TavListRows, ARowIsPrinted)
{
    EXPECT_EQ(m_list->AddRowV("%d|%s", 12, "pieces"), 0);
    EXPECT_THAT(Cells(0), ElementsAre("12", "pieces"));
    Info info = {2, kRed, kBlue, nullptr, 0, 99, 0};
    EXPECT_EQ(m_list->AddRowV(&info, "%.1f|%c", 0.5, 'z'), 1);
    EXPECT_THAT(Cells(1), ElementsAre("0.5", "z"));
    EXPECT_EQ(Image(1), 2);
    EXPECT_EQ(m_list->GetData(), 99U);
}

TEST_F(TavListRows, LongTextsArePrintedWhole)
{
    const std::string text(5000, 'q');
    m_list->AddRowV("%s|%s", text.c_str(), "end");
    EXPECT_STREQ(m_list->GetItemText(0, 0), text.c_str());
    EXPECT_STREQ(m_list->GetItemText(0, 1), "end");
}

struct StyleCase
{
    unsigned int style;
    COLORREF background;
    COLORREF text;
    bool bold;
};

class TavListStyles : public TavListRows, public testing::WithParamInterface<StyleCase>
{
protected:
    // The system's colour where the case names none.
    static COLORREF Or(COLORREF color, int system) { return color != CLR_INVALID ? color : ::GetSysColor(system); }
};

TEST_P(TavListStyles, SetAnInfosColoursAndFont)
{
    Info info = {5, kRed, kBlue, &m_list->MediumFont(), 0, 1, 2};
    m_list->SetStyle(&info, GetParam().style);
    EXPECT_EQ(info.m_clrText, Or(GetParam().text, COLOR_WINDOWTEXT));
    EXPECT_EQ(info.m_clrBk, Or(GetParam().background, COLOR_WINDOW));
    EXPECT_EQ(info.m_pFont, GetParam().bold ? &m_list->BoldFont() : nullptr);
    EXPECT_EQ(info.m_nImage, 5) << "and nothing else";
    EXPECT_EQ(info.m_dwData, 1U);
    EXPECT_EQ(info.m_nIndent, 2);
}

TEST_P(TavListStyles, ShowInTheRow)
{
    EXPECT_EQ(m_list->AddRowStyle("text|cell", GetParam().style), 0);
    EXPECT_THAT(Cells(0), ElementsAre("text", "cell"));
    EXPECT_EQ(RowColor(0), Or(GetParam().background, COLOR_WINDOW));
    EXPECT_TRUE(RowShows(0, Or(GetParam().text, COLOR_WINDOWTEXT)));
    EXPECT_EQ(m_list->GetData(), 0U);
}

INSTANTIATE_TEST_SUITE_P(All, TavListStyles,
                         testing::Values(StyleCase{0, CLR_INVALID, CLR_INVALID, false},
                                         StyleCase{1, 0xD7E6E6, CLR_INVALID, false},
                                         StyleCase{2, CLR_INVALID, CLR_INVALID, true},
                                         StyleCase{4, CLR_INVALID, RGB(128, 128, 128), false},
                                         StyleCase{5, 0xE1EBEB, RGB(128, 128, 128), false},
                                         StyleCase{7, 0xE1EBEB, RGB(128, 128, 128), true}));

TEST_F(TavListRows, RemovingARowMakesRowZeroCurrent)
{
    m_list->AddRow("a", nullptr);
    m_list->AddRow("b", nullptr);
    m_list->AddRow("c", nullptr);
    ASSERT_EQ(m_list->GetCrntRow(), 2);
    m_list->RmvRow(1);
    EXPECT_EQ(m_list->GetCrntRow(), 0);
    EXPECT_EQ(m_list->GetNumRow(), 2);
    EXPECT_STREQ(m_list->GetItemText(1, 0), "c");
    m_list->AddRow("d", nullptr);
    EXPECT_STREQ(m_list->GetItemText(2, 0), "d");
}

TEST_F(TavListRows, RemovingARowThatIsNotThereDoesNothing)
{
    m_list->AddRow("a", nullptr);
    m_list->RmvRow(1);
    m_list->RmvRow(-1);
    EXPECT_EQ(m_list->GetNumRow(), 1);
    EXPECT_EQ(m_list->GetItemCount(), 1);
}

TEST_F(TavListRows, RemovingAllRowsKeepsTheNumberOfTheCurrentOne)
{
    m_list->AddRow("a", nullptr);
    m_list->AddRow("b", nullptr);
    m_list->RmvAllRow();
    EXPECT_EQ(m_list->GetNumRow(), 0);
    EXPECT_EQ(m_list->GetItemCount(), 0);
    EXPECT_EQ(m_list->GetCrntRow(), 1);
    EXPECT_EQ(m_list->GetNumCol(), 2);
}

TEST_F(TavListRows, CellsAreSetByRowAndColumn)
{
    m_list->AddRow("a|b", nullptr);
    m_list->AddRow("c|d", nullptr);
    m_list->SetText(0, 1, "set");
    EXPECT_STREQ(m_list->GetItemText(0, 1), "set");
    EXPECT_EQ(m_list->GetCrntRow(), 0) << "the row that was named";
}

TEST_F(TavListRows, CellsOfTheCurrentRowAreSet)
{
    m_list->AddRow("a|b", nullptr);
    m_list->AddRow("c|d", nullptr);
    m_list->SetCrntRow(0);
    m_list->SetText("first");
    m_list->SetColText(1, "second");
    EXPECT_THAT(Cells(0), ElementsAre("first", "second"));
    EXPECT_THAT(Cells(1), ElementsAre("c", "d"));
}

TEST_F(TavListRows, NumbersAreSetWithTheirDecimals)
{
    m_list->AddRow();
    m_list->SetColText(0, 3.14159, 2);
    m_list->SetColText(1, -2.0, 0, "\xB5m");
    EXPECT_THAT(Cells(0), ElementsAre("3.14", "-2 \xB5m"));
    m_list->SetColText(1, 0.5, 3, "");
    EXPECT_STREQ(m_list->GetItemText(0, 1), "0.500 ");
}

TEST_F(TavListRows, SizesAreSetInKilobytesAndMegabytes)
{
    m_list->AddRow();
    m_list->SetColKByte(0, 1023);
    m_list->SetColKByte(1, 1024);
    EXPECT_THAT(Cells(0), ElementsAre("1023 KB", "1.00 MB"));
    m_list->SetColKByte(1, 1659);
    EXPECT_STREQ(m_list->GetItemText(0, 1), "1.62 MB");
}

TEST_F(TavListRows, DataBelongsToTheCurrentRow)
{
    m_list->AddRow("a", nullptr);
    m_list->AddRow("b", nullptr);
    EXPECT_EQ(m_list->SetData(0x123456789ABCULL), 0) << "wide enough for a pointer";
    EXPECT_EQ(m_list->GetData(), 0x123456789ABCULL);
    m_list->SetCrntRow(0);
    EXPECT_EQ(m_list->GetData(), 0U);
}

TEST_F(TavListRows, ImagesAreSetByRowOrOnTheCurrentOne)
{
    m_list->AddRow("a", nullptr);
    m_list->AddRow("b", nullptr);
    m_list->SetImage(0, 4);
    EXPECT_EQ(m_list->GetCrntRow(), 0) << "the row that was named";
    EXPECT_EQ(Image(0), 4);
    m_list->SetCrntRow(1);
    m_list->SetImage(2);
    EXPECT_EQ(Image(1), 2);
    EXPECT_EQ(Image(0), 4);
}

TEST_F(TavListRows, OperationsWithoutAWindowDoNothing)
{
    CTavListCtrl list;
    list.AddCol("a", adiString, false, 50, LVCFMT_LEFT);
    list.AddCol("b", "sample", adiString, LVCFMT_LEFT, false);
    EXPECT_EQ(list.AddRow("a|b", nullptr), -1);
    EXPECT_EQ(list.AddRow(), -1);
    EXPECT_EQ(list.InsertRow(0), -1);
    EXPECT_EQ(list.AddRowV("%d", 1), -1);
    EXPECT_EQ(list.GetNumRow(), 0);
    EXPECT_EQ(list.GetNumCol(), 0);
    list.SetText(0, 0, "x");
    list.RmvRow(0);
    list.SetSlct(0, true);
    list.ClearSlct();
    EXPECT_EQ(list.GetFrstSlct(), -1);
    EXPECT_EQ(list.GetRowIndex(0), -1);
    DVector<int> rows;
    list.GetSlct(rows);
    EXPECT_EQ(rows.GetCount(), 0);
    list.ResizeColToFit();
    list.EnlargeCol(0, false);
    list.SetColWidth(0, "sample");
    list.SaveColWidth();
    list.RestoreColWidth();
    EXPECT_STREQ(list.GetColCaption(0), "");
    list.Reset();
}

TEST_F(TavListRows, AListWithAllItsOwnIsGoneWithItsFrame)
{
    m_list->CreateImages();
    m_list->AddRow("a|b", nullptr);
    m_frame->DestroyWindow();
    EXPECT_EQ(m_list->m_hWnd, nullptr);
    EXPECT_EQ(m_list->AddRow("c", nullptr), -1);
}

// An end of the list while an operation of its own is under way.
struct EndCase
{
    const char* name;
    UINT code; // of the notification
    std::function<void(CTavListCtrl&)> act;
};

void PrintTo(const EndCase& c, std::ostream* out) { *out << c.name; }

class TavListEnds : public TavListTest, public testing::WithParamInterface<EndCase>
{
};

TEST_P(TavListEnds, InANotificationOfItsOwnOperation)
{
    AddColumns({"a", "b", "c"});
    m_list->AddRow("1|2|3", nullptr);
    m_list->AddRow("4|5|6", nullptr);
    m_list->SetSlct(0, true);
    m_list->SetSlct(1, true);
    m_list->SaveColWidth();
    m_list->SetColWidth(1, 33);
    support::Settle();
    m_frame->m_at.Set({GetParam().code}, [&] { m_list.reset(); });
    GetParam().act(*m_list);
    EXPECT_EQ(m_list, nullptr);
    EXPECT_EQ(::GetDlgItem(m_frame->m_hWnd, kId), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    All, TavListEnds,
    testing::Values(EndCase{"AddRow", UINT(LVN_INSERTITEM),
                            [](CTavListCtrl& list) { EXPECT_EQ(list.AddRow("a|b|c", nullptr), -1); }},
                    EndCase{"AddEmptyRow", UINT(LVN_INSERTITEM),
                            [](CTavListCtrl& list) { EXPECT_EQ(list.AddRow(), -1); }},
                    EndCase{"RmvRow", UINT(LVN_DELETEITEM), [](CTavListCtrl& list) { list.RmvRow(1); }},
                    EndCase{"Reset", UINT(LVN_DELETEALLITEMS), [](CTavListCtrl& list) { list.Reset(); }},
                    EndCase{"SetSlct", UINT(LVN_ITEMCHANGED), [](CTavListCtrl& list) { list.SetSlct(0, false); }},
                    EndCase{"ClearSlct", UINT(LVN_ITEMCHANGED), [](CTavListCtrl& list) { list.ClearSlct(); }}));

// Takes the focus from a list that hides, and ends it.
class JealousFrame : public support::TestFrame
{
public:
    std::unique_ptr<CTavListCtrl> m_list;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_SETFOCUS)
        {
            m_list.reset();
        }
        return TestFrame::WindowProc(message, wParam, lParam);
    }
};

TEST_F(TavListRows, AParentMayEndTheListWhileItHidesForANewLayout)
{
    for (const bool enlarge : {false, true})
    {
        JealousFrame frame;
        frame.m_list = std::make_unique<CTavListCtrl>();
        CTavListCtrl& list = *frame.m_list;
        ASSERT_TRUE(list.Create(kStyle, CRect(0, 0, kWidth, kHeight), &frame, kId));
        list.AddCol("a", adiString, false, 50, LVCFMT_LEFT);
        list.SetFocus();
        if (enlarge)
        {
            list.EnlargeCol(0, false);
        }
        else
        {
            list.ResizeColToFit();
        }
        EXPECT_EQ(frame.m_list, nullptr);
    }
}

} // namespace
