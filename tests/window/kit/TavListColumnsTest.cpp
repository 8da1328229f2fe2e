// TavListColumnsTest.cpp - the row list: columns, the one that fills the width, remembered widths

#include "TavListFixture.h"

namespace
{

using testing::Contains;
using testing::Each;
using testing::IsEmpty;

constexpr UINT_PTR kFillTimer = 16061970;

class TavListColumns : public TavListTest
{
protected:
    [[nodiscard]] std::vector<int> Widths() const
    {
        std::vector<int> widths;
        for (int col = 0; col < m_list->GetNumCol(); ++col)
        {
            widths.push_back(m_list->GetColumnWidth(col));
        }
        return widths;
    }
    // What the columns but one leave of the client width.
    [[nodiscard]] int SpareWidth(int fill) const
    {
        int spare = ClientWidth();
        for (int col = 0; col < m_list->GetNumCol(); ++col)
        {
            spare -= col != fill ? m_list->GetColumnWidth(col) : 0;
        }
        return spare;
    }
    // Width that the control itself takes for a column's contents.
    [[nodiscard]] int ContentWidth(int col, int fit = LVSCW_AUTOSIZE)
    {
        const int before = m_list->GetColumnWidth(col);
        m_list->SetColumnWidth(col, fit);
        const int width = m_list->GetColumnWidth(col);
        m_list->SetColumnWidth(col, before);
        return width;
    }
    [[nodiscard]] int SampleWidth(const char* sample)
    {
        CClientDC dc(m_list.get());
        return dc.GetTextExtent(sample, static_cast<int>(strlen(sample))).cx;
    }
    // Whether the timer of the fill column runs; it doesn't afterwards.
    [[nodiscard]] bool StopFillTimer() { return ::KillTimer(m_list->m_hWnd, kFillTimer) != FALSE; }
    // Waits until a resize has had its effect.
    [[nodiscard]] bool AwaitFillTimer()
    {
        return support::PumpUntil([&] { return !m_list->m_timers.empty() && m_list->m_timers.back() == kFillTimer; });
    }
};

TEST_F(TavListColumns, AreAppendedWithTheirTypeFormatAndWidth)
{
    m_list->AddCol("first", adiInt, true, 70, LVCFMT_LEFT);
    m_list->AddCol("second", adiDouble, false, 90, LVCFMT_RIGHT);
    EXPECT_EQ(m_list->GetNumCol(), 2);
    EXPECT_STREQ(m_list->GetColCaption(0), "first");
    EXPECT_STREQ(m_list->GetColCaption(1), "second");
    EXPECT_EQ(m_list->GetColumnWidth(0), 70);
    EXPECT_EQ(m_list->GetColumnWidth(1), 90);
    EXPECT_EQ(m_list->GetColType(0), adiInt);
    EXPECT_EQ(m_list->GetColType(1), adiDouble);
    LVCOLUMN column = {};
    column.mask = LVCF_FMT | LVCF_SUBITEM;
    ASSERT_TRUE(m_list->GetColumn(1, &column));
    EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    EXPECT_EQ(column.iSubItem, 1);
}

TEST_F(TavListColumns, AreAppendedAsWideAsASample)
{
    m_list->AddCol("x", "a sample of some length", adiInt, LVCFMT_LEFT, false);
    EXPECT_EQ(m_list->GetColumnWidth(0), SampleWidth("a sample of some length"));
    EXPECT_EQ(m_list->GetColType(0), adiInt);
}

TEST_F(TavListColumns, ASampleIsMeasuredInTheContextsOwnFontWhateverTheListHas)
{
    CFont large;
    ASSERT_TRUE(large.CreateFont(40, 0, 0, 0, FW_BOLD, 0, 0, 0, 0, 0, 0, 0, 0, "Arial"));
    const int width = SampleWidth("sample");
    m_list->SetFont(&large);
    m_list->AddCol("x", "sample", adiString, LVCFMT_LEFT, false);
    EXPECT_EQ(m_list->GetColumnWidth(0), width);
}

TEST_F(TavListColumns, EditableColumnsLetTheirCellsBeEdited)
{
    m_list->AddCol("fixed", adiString, false, 80, LVCFMT_LEFT);
    m_list->AddCol("open", adiString, true, 80, LVCFMT_LEFT);
    m_list->AddCol("sample", "sample text", adiString, LVCFMT_LEFT, true);
    m_list->AddRow("a|b|c", nullptr);
    for (const int col : {0, 1, 2})
    {
        m_frame->Clear();
        support::DoubleClick(CellOnScreen(0, col));
        support::Settle();
        EXPECT_EQ(m_frame->CountNotify(UINT(LVN_BEGINLABELEDIT)), col == 0 ? 0 : 1) << "column " << col;
        m_frame->SetFocus();
    }
}

TEST_F(TavListColumns, TheFirstColumnMakesTheDerivedFonts)
{
    EXPECT_EQ(m_list->MediumFont().GetSafeHandle(), nullptr);
    EXPECT_EQ(m_list->BoldFont().GetSafeHandle(), nullptr);
    CFont font;
    ASSERT_TRUE(font.CreateFont(-17, 0, 0, 0, FW_NORMAL, TRUE, 0, 0, 0, 0, 0, 0, 0, "Arial"));
    m_list->SetFont(&font);
    AddColumns({"a"});
    LOGFONT medium = {};
    LOGFONT bold = {};
    ASSERT_TRUE(m_list->MediumFont().GetLogFont(&medium));
    ASSERT_TRUE(m_list->BoldFont().GetLogFont(&bold));
    EXPECT_EQ(medium.lfWeight, 500);
    EXPECT_EQ(bold.lfWeight, 700);
    EXPECT_EQ(bold.lfHeight, -17) << "everything else is the list's font's";
    EXPECT_NE(bold.lfItalic, 0);
    EXPECT_STREQ(medium.lfFaceName, "Arial");
}

TEST_F(TavListColumns, TheFontsStayWhenTheListsFontChanges)
{
    AddColumns({"a"});
    const HGDIOBJ bold = m_list->BoldFont().GetSafeHandle();
    ASSERT_NE(bold, nullptr);
    CFont font;
    ASSERT_TRUE(font.CreateFont(30, 0, 0, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, "Arial"));
    m_list->SetFont(&font);
    AddColumns({"b"});
    EXPECT_EQ(m_list->BoldFont().GetSafeHandle(), bold);
    m_list->Reset();
    AddColumns({"c"});
    EXPECT_EQ(m_list->BoldFont().GetSafeHandle(), bold) << "and through a reset";
}

TEST_F(TavListColumns, ACaptionIsChanged)
{
    AddColumns({"old"});
    m_list->SetColCaption(0, "new");
    EXPECT_STREQ(m_list->GetColCaption(0), "new");
    m_list->SetColCaption(5, "nowhere");
    EXPECT_STREQ(m_list->GetColCaption(5), "");
}

TEST_F(TavListColumns, ACaptionIsReadUpToItsLimit)
{
    AddColumns({"x"});
    m_list->SetColCaption(0, CString('m', 2000));
    EXPECT_EQ(m_list->GetColCaption(0).GetLength(), 1023);
    m_list->SetColCaption(0, CString('m', 600));
    EXPECT_EQ(m_list->GetColCaption(0).GetLength(), 600);
}

TEST_F(TavListColumns, AWidthIsSetInPixelsOrByASample)
{
    AddColumns({"a", "b"});
    m_list->SetColWidth(0, 123);
    m_list->SetColWidth(1, "the sample");
    EXPECT_EQ(m_list->GetColumnWidth(0), 123);
    EXPECT_EQ(m_list->GetColumnWidth(1), SampleWidth("the sample"));
}

TEST_F(TavListColumns, RemovingAllColumnsCountsNone)
{
    AddColumns({"a", "b"});
    m_list->RmvAllCol();
    EXPECT_EQ(m_list->GetNumCol(), 0);
    EXPECT_EQ(m_list->GetHeaderCtrl()->GetItemCount(), 0);
    EXPECT_EQ(m_list->GetColType(0), adiString) << "the types are gone too";
    AddColumns({"c"});
    EXPECT_STREQ(m_list->GetColCaption(0), "c");
}

TEST_F(TavListColumns, AResetLeavesAListToBeSetUpAnew)
{
    m_list->CreateImages();
    AddColumns({"a", "b"});
    m_list->AddRow("2|x", nullptr);
    m_list->AddRow("1|y", nullptr);
    m_list->SetCrntRow(1);
    CRect header;
    m_list->GetHeaderCtrl()->GetClientRect(header);
    support::Click(support::ScreenPoint(m_list->GetHeaderCtrl()->m_hWnd, 20, header.CenterPoint().y));
    ASSERT_TRUE(support::PumpUntil([&] { return m_list->GetLastSort().GetCol() == 0; }));
    m_list->Reset();
    EXPECT_EQ(m_list->GetItemCount(), 0);
    EXPECT_EQ(m_list->GetNumRow(), 0);
    EXPECT_EQ(m_list->GetNumCol(), 0);
    EXPECT_EQ(m_list->GetTavImageList().GetImageCount(), 0);
    EXPECT_NE(m_list->GetTavImageList().GetSafeHandle(), nullptr);
    EXPECT_EQ(m_list->GetLastSort().GetCol(), -2);
    EXPECT_TRUE(m_list->GetLastSort().IsSortedAscnd());
    AddColumns({"c"});
    m_list->AddRow("again", nullptr);
    EXPECT_STREQ(m_list->GetItemText(0, 0), "again");
}

TEST_F(TavListColumns, AResetAsksTheDerivedListToRemoveItsColumns)
{
    class Derived : public CTavListCtrl
    {
    public:
        int m_removals = 0;
        void RmvAllCol() override
        {
            ++m_removals;
            CTavListCtrl::RmvAllCol();
        }
    } list;
    ASSERT_TRUE(list.Create(kStyle, CRect(0, 0, 50, 50), m_frame.get(), kId + 1));
    list.Reset();
    EXPECT_EQ(list.m_removals, 1);
}

// Fitting

class TavListFit : public TavListColumns
{
protected:
    void SetUp() override
    {
        TavListColumns::SetUp();
        AddColumns({"a caption longer than its cells", "b", "c"}, 60);
        m_list->AddRow("short|a cell that is longer than its caption|x", nullptr);
        support::Settle();
        m_list->m_hidings = 0;
    }
};

TEST_F(TavListFit, AllColumnsAreFitToTheirContents)
{
    const std::vector<int> expected = {ContentWidth(0), ContentWidth(1), ContentWidth(2)};
    m_list->ResizeColToFit();
    EXPECT_EQ(Widths(), expected);
    EXPECT_NE(Widths()[0], 60);
}

TEST_F(TavListFit, AllColumnsAreFitToTheirHeadersToo)
{
    const std::vector<int> expected = {ContentWidth(0, LVSCW_AUTOSIZE_USEHEADER),
                                       ContentWidth(1, LVSCW_AUTOSIZE_USEHEADER)};
    m_list->ResizeColToFitUseHeader();
    EXPECT_EQ(m_list->GetColumnWidth(0), expected[0]);
    EXPECT_EQ(m_list->GetColumnWidth(1), expected[1]);
    EXPECT_GT(m_list->GetColumnWidth(0), ContentWidth(0));
}

TEST_F(TavListFit, OneColumnIsFitToItsContents)
{
    const int expected = ContentWidth(1);
    m_list->ResizeColToFit(1);
    EXPECT_EQ(Widths(), (std::vector<int>{60, expected, 60}));
    EXPECT_EQ(m_list->m_hidings, 0);
}

TEST_F(TavListFit, TheListIsHiddenMeanwhileAndShownAgain)
{
    bool visible = true;
    AtWidthChange([&] { visible = m_list->IsWindowVisible() != FALSE; });
    m_list->ResizeColToFit();
    EXPECT_FALSE(visible);
    EXPECT_TRUE(m_list->IsWindowVisible());
    EXPECT_EQ(m_list->m_hidings, 1);
}

TEST_F(TavListFit, AHiddenListStaysHidden)
{
    m_list->ShowWindow(SW_HIDE);
    const int expected = ContentWidth(1);
    m_list->ResizeColToFit();
    EXPECT_FALSE(m_list->IsWindowVisible());
    m_list->ResizeColToFitUseHeader();
    m_list->EnlargeCol(0, false);
    EXPECT_FALSE(m_list->IsWindowVisible());
    EXPECT_GE(m_list->GetColumnWidth(1), expected);
}

TEST_F(TavListFit, AListThatHadTheFocusHasItAfterwards)
{
    m_list->SetFocus();
    m_list->ResizeColToFit();
    EXPECT_EQ(::GetFocus(), m_list->m_hWnd);
    m_list->EnlargeCol(0, false);
    EXPECT_EQ(::GetFocus(), m_list->m_hWnd);
    m_frame->SetFocus();
    m_list->ResizeColToFit();
    EXPECT_EQ(::GetFocus(), m_frame->m_hWnd) << "and doesn't take it from another window";
}

// The fill column

class TavListFill : public TavListColumns
{
protected:
    void SetUp() override
    {
        TavListColumns::SetUp();
        AddColumns({"a", "b", "c"}, 60);
        m_list->AddRow("x|y|z", nullptr);
        support::Settle();
        (void)StopFillTimer(); // of the list's first size
        m_list->m_timers.clear();
        m_list->m_hidings = 0;
    }
};

TEST_F(TavListFill, TakesWhatTheOthersLeave)
{
    m_list->EnlargeCol(1, false);
    EXPECT_EQ(Widths(), (std::vector<int>{60, ClientWidth() - 120, 60}));
    EXPECT_EQ(m_list->m_hidings, 1);
    EXPECT_TRUE(m_list->IsWindowVisible());
}

TEST_F(TavListFill, TheSecondArgumentHasNoEffect)
{
    m_list->EnlargeCol(1, true);
    EXPECT_EQ(Widths(), (std::vector<int>{60, ClientWidth() - 120, 60}));
}

TEST_F(TavListFill, HasTheWidthOfItsContentsWhenNothingIsLeft)
{
    m_list->SetColWidth(0, 390);
    const int expected = ContentWidth(1);
    m_list->EnlargeCol(1, false);
    EXPECT_EQ(m_list->GetColumnWidth(1), expected);
    ResizeList(600);
    ASSERT_TRUE(support::PumpUntil([&] { return m_list->GetColumnWidth(1) == 600 - 390 - 60; }))
        << "it is the fill column even so";
}

TEST_F(TavListFill, FollowsTheListsWidthALittleLater)
{
    m_list->EnlargeCol(1, false);
    const int before = m_list->GetColumnWidth(1);
    ResizeList(500);
    EXPECT_EQ(m_list->GetColumnWidth(1), before) << "not at once";
    ASSERT_TRUE(support::PumpUntil([&] { return m_list->GetColumnWidth(1) == SpareWidth(1); }));
    EXPECT_EQ(m_list->GetColumnWidth(1), 380);
    EXPECT_THAT(m_list->m_timers, Contains(kFillTimer));
    EXPECT_FALSE(StopFillTimer()) << "the timer has run once";
}

TEST_F(TavListFill, ABurstOfSizesCostsOneLayout)
{
    m_list->EnlargeCol(1, false);
    m_list->m_hidings = 0;
    for (int width = 410; width <= 480; width += 10)
    {
        ResizeList(width);
    }
    ASSERT_TRUE(support::PumpUntil([&] { return m_list->GetColumnWidth(1) == 480 - 120; }));
    EXPECT_EQ(m_list->m_hidings, 1);
    EXPECT_FALSE(StopFillTimer());
}

TEST_F(TavListFill, AFurtherSizeBeginsTheWaitAnew)
{
    constexpr ULONGLONG kLongerThanTheWait = 250; // milliseconds
    constexpr ULONGLONG kSurelyWithin = 70;
    m_list->EnlargeCol(1, false);
    ULONGLONG start = 0;
    ULONGLONG last = 0;
    int width = 500;
    // Sizes in close succession for longer than one wait; a busy machine may hold one back, and then they begin again.
    ASSERT_TRUE(support::PumpUntil([&] {
        const ULONGLONG now = ::GetTickCount64();
        if (now - last > kSurelyWithin)
        {
            start = now;
            m_list->m_hidings = 0;
        }
        last = now;
        width = width == 500 ? 510 : 500;
        ResizeList(width);
        return now - start > kLongerThanTheWait;
    }));
    EXPECT_EQ(m_list->m_hidings, 0);
    ASSERT_TRUE(support::PumpUntil([&] { return m_list->GetColumnWidth(1) == width - 120; }));
    EXPECT_EQ(m_list->m_hidings, 1);
}

TEST_F(TavListFill, StandsStillWhileTheListIsHidden)
{
    m_list->EnlargeCol(1, false);
    const int before = m_list->GetColumnWidth(1);
    m_list->ShowWindow(SW_HIDE);
    ResizeList(500);
    EXPECT_FALSE(StopFillTimer());
    m_list->ShowWindow(SW_SHOW);
    support::Settle();
    EXPECT_EQ(m_list->GetColumnWidth(1), before);
    ResizeList(520);
    EXPECT_TRUE(support::PumpUntil([&] { return m_list->GetColumnWidth(1) == 400; }));
}

TEST_F(TavListFill, AResizeOfAListWithoutAFillColumnLeavesItsWidths)
{
    ResizeList(500);
    ASSERT_TRUE(AwaitFillTimer());
    EXPECT_EQ(Widths(), (std::vector<int>{60, 60, 60}));
    EXPECT_EQ(m_list->m_hidings, 0);
}

TEST_F(TavListFill, NoColumnFillsTheWidthOnceAllAreFit)
{
    m_list->EnlargeCol(1, false);
    m_list->ResizeColToFit();
    const std::vector<int> fit = Widths();
    ResizeList(500);
    ASSERT_TRUE(AwaitFillTimer());
    EXPECT_EQ(Widths(), fit);

    m_list->EnlargeCol(1, false);
    m_list->ResizeColToFitUseHeader();
    const std::vector<int> header = Widths();
    m_list->m_timers.clear();
    ResizeList(450);
    ASSERT_TRUE(AwaitFillTimer());
    EXPECT_EQ(Widths(), header);
}

TEST_F(TavListFill, FittingTheFillColumnEndsItsFilling)
{
    m_list->EnlargeCol(1, false);
    m_list->ResizeColToFit(1);
    const std::vector<int> fit = Widths();
    ResizeList(500);
    ASSERT_TRUE(AwaitFillTimer());
    EXPECT_EQ(Widths(), fit);
}

TEST_F(TavListFill, FittingAnotherColumnLeavesItFilling)
{
    m_list->EnlargeCol(1, false);
    m_list->ResizeColToFit(0);
    const int first = m_list->GetColumnWidth(0);
    ResizeList(500);
    EXPECT_TRUE(support::PumpUntil([&] { return m_list->GetColumnWidth(1) == 500 - 60 - first; }));
}

TEST_F(TavListFill, AnotherTimerLeavesTheWidthsAlone)
{
    m_list->EnlargeCol(1, false);
    m_list->SetColWidth(1, 50);
    m_list->SendMessage(WM_TIMER, 1);
    EXPECT_EQ(m_list->GetColumnWidth(1), 50);
}

TEST_F(TavListFill, AColumnThatIsNotThereFillsNothing)
{
    m_list->EnlargeCol(7, false);
    EXPECT_EQ(Widths(), (std::vector<int>{60, 60, 60}));
    ResizeList(500);
    ASSERT_TRUE(AwaitFillTimer());
    EXPECT_EQ(Widths(), (std::vector<int>{60, 60, 60}));
    EXPECT_TRUE(m_list->IsWindowVisible());
}

// Remembered widths

class TavListWidths : public TavListColumns
{
};

TEST_F(TavListWidths, AreFoundByCaptionAfterTheColumnsWereRebuiltInAnotherOrder)
{
    AddColumns({"name", "size", "date"});
    m_list->SetColWidth(0, 111);
    m_list->SetColWidth(1, 122);
    m_list->SetColWidth(2, 133);
    m_list->SaveColWidth();
    EXPECT_TRUE(m_list->HasSavedColWidth());
    m_list->Reset();
    EXPECT_TRUE(m_list->HasSavedColWidth()) << "through a reset";
    AddColumns({"date", "name", "other", "size"}, 70);
    m_list->RestoreColWidth();
    EXPECT_EQ(Widths(), (std::vector<int>{133, 111, 70, 122}));
}

TEST_F(TavListWidths, AChangedCaptionFindsNone)
{
    AddColumns({"name"});
    m_list->SetColWidth(0, 111);
    m_list->SaveColWidth();
    m_list->SetColCaption(0, "Name");
    m_list->SetColWidth(0, 60);
    m_list->RestoreColWidth();
    EXPECT_EQ(m_list->GetColumnWidth(0), 60);
}

TEST_F(TavListWidths, AColumnWithoutACaptionGoesByItsIndex)
{
    AddColumns({"a", ""});
    m_list->SetColWidth(1, 144);
    m_list->SaveColWidth();
    m_list->Reset();
    AddColumns({"", ""}, 70);
    m_list->RestoreColWidth();
    EXPECT_EQ(Widths(), (std::vector<int>{70, 144}));
}

TEST_F(TavListWidths, OfTwoColumnsWithOneCaptionTheLaterWins)
{
    AddColumns({"x", "x"});
    m_list->SetColWidth(0, 50);
    m_list->SetColWidth(1, 75);
    m_list->SaveColWidth();
    m_list->RestoreColWidth();
    EXPECT_EQ(Widths(), (std::vector<int>{75, 75}));
}

TEST_F(TavListWidths, AColumnThatHadNoWidthKeepsItsPresentOne)
{
    AddColumns({"x"});
    m_list->SetColWidth(0, 0);
    m_list->SaveColWidth();
    EXPECT_TRUE(m_list->HasSavedColWidth());
    m_list->SetColWidth(0, 50);
    m_list->RestoreColWidth();
    EXPECT_EQ(m_list->GetColumnWidth(0), 50);
}

TEST_F(TavListWidths, SavingForgetsWhatWasSavedBefore)
{
    AddColumns({"old"});
    m_list->SaveColWidth();
    m_list->RmvAllCol();
    m_list->SaveColWidth();
    EXPECT_FALSE(m_list->HasSavedColWidth());
}

TEST_F(TavListWidths, RestoringKeepsTheListFromBeingPaintedMeanwhile)
{
    AddColumns({"a"});
    m_list->SetColWidth(0, 100);
    m_list->SaveColWidth();
    m_list->SetColWidth(0, 50);
    bool locked = false;
    AtWidthChange([&] { locked = ::LockWindowUpdate(m_frame->m_hWnd) == FALSE; }); // one at a time
    m_list->RestoreColWidth();
    EXPECT_TRUE(locked);
    EXPECT_NE(::LockWindowUpdate(m_frame->m_hWnd), FALSE) << "unlocked afterwards";
    ::LockWindowUpdate(nullptr);
}

TEST_F(TavListWidths, RestoringLeavesTheLockOfAnotherWindowAlone)
{
    AddColumns({"a"});
    m_list->SetColWidth(0, 100);
    m_list->SaveColWidth();
    m_list->SetColWidth(0, 50);
    ASSERT_NE(::LockWindowUpdate(m_frame->m_hWnd), FALSE);
    m_list->RestoreColWidth();
    EXPECT_EQ(m_list->GetColumnWidth(0), 100);
    EXPECT_EQ(::LockWindowUpdate(m_list->m_hWnd), FALSE) << "still the frame's";
    CTavListCtrl bare;
    bare.RestoreColWidth();
    EXPECT_EQ(::LockWindowUpdate(m_list->m_hWnd), FALSE) << "nor does a list without a window unlock it";
    ::LockWindowUpdate(nullptr);
}

} // namespace
