// TavComboListTest.cpp - filters of the host's own, backup and restore, measures of the dropped list

#include "ComboFixture.h"

#include <algorithm>

namespace
{

using namespace combo_test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Pair;

const std::vector<std::string> kEntries{"one", "two", "three", "four"};

std::vector<int> g_results; // what the filter below gives

/// What the last call of the filter got.
struct FilterCall
{
    CTavComboBox* combo = nullptr;
    std::string text;
    std::vector<std::pair<std::string, DWORD_PTR>> items;
    int found = -1;
    bool zeroFill = false;
};
FilterCall g_call;

void GiveResults(CTavComboBox* combo, DString const& text, DVectorSafe<CTavComboBox::ComboItem> const* items,
                 DVector<int>* found)
{
    g_call = {combo, text.c_str(), {}, found->GetCount(), found->m_bZeroFill};
    for (CTavComboBox::ComboItem const& item : *items)
    {
        g_call.items.emplace_back(item.m_strText, item.m_dwData);
    }
    for (int const index : g_results)
    {
        found->Append(index);
    }
}

class TavComboFilter : public ComboTest
{
protected:
    void OpenWith(std::vector<int> const& results, bool filterList)
    {
        g_results = results;
        g_call = {};
        Open(kEntries);
        m_combo->EnableAutoComplete(true, filterList);
        m_combo->SetFltrFunc(GiveResults);
    }
};

TEST_F(TavComboFilter, GetsTheControlTheTextTheEntriesAndAnEmptyResult)
{
    OpenWith({1}, true);
    Type("q");
    EXPECT_EQ(g_call.combo, m_combo.get());
    EXPECT_EQ(g_call.text, "q");
    EXPECT_THAT(g_call.items, ElementsAre(Pair("one", 100), Pair("two", 101), Pair("three", 102), Pair("four", 103)));
    EXPECT_EQ(g_call.found, 0);
    EXPECT_TRUE(g_call.zeroFill);
}

TEST_F(TavComboFilter, IsNotAskedForAnEmptyText)
{
    OpenWith({1}, true);
    Type("q");
    ASSERT_EQ(m_combo->Text(), "two");
    Key('A', {VK_CONTROL});
    g_call = {};
    m_combo->SetEditSel(0, -1);
    Key(VK_BACK);
    EXPECT_EQ(m_combo->Text(), "");
    EXPECT_EQ(g_call.combo, nullptr);
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboFilter, SetsTheOrderOfTheFilteredList)
{
    OpenWith({3, 0, 2}, true);
    Type("q");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("four", "one", "three"));
    EXPECT_EQ(m_combo->GetItemData(0), 103U);
    EXPECT_EQ(m_combo->GetItemData(2), 102U);
    EXPECT_EQ(m_combo->GetCurSel(), 0);
    EXPECT_EQ(m_combo->Text(), "four");
    EXPECT_EQ(m_combo->Highlighted(), "our");
}

TEST_F(TavComboFilter, ItsFirstResultIsSelectedInAWholeList)
{
    OpenWith({3, 0}, false);
    Type("q");
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_EQ(m_combo->GetCurSel(), 3);
    EXPECT_EQ(m_combo->Highlighted(), "our");
}

TEST_F(TavComboFilter, AFirstResultOfMinusOneMatchesNothing)
{
    OpenWith({-1, 2}, true);
    Type("q");
    EXPECT_EQ(m_combo->Text(), "q");
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_TRUE(m_combo->IsListVisible());
    EXPECT_EQ(m_frame->CountCommand(kComboId, CBN_SELCHANGE), 0);
}

TEST_F(TavComboFilter, NoneAtAllOnlyShowsTheList)
{
    OpenWith({}, true);
    m_combo->SetFltrFunc(nullptr);
    Type("one");
    EXPECT_EQ(m_combo->Text(), "one");
    EXPECT_THAT(m_combo->Selection(), Pair(3, 3));
    EXPECT_TRUE(m_combo->IsListVisible());
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_EQ(m_frame->CountCommand(kComboId, CBN_SELCHANGE), 0);
}

TEST_F(TavComboFilter, NoneAtAllKeepsTheCaretBehindATextThatIsAnEntry)
{
    OpenWith({}, true);
    m_combo->SetFltrFunc(nullptr);
    Type("on");
    Key(VK_ESCAPE);
    m_combo->SetEditSel(2, 2);
    Type("e"); // the list opens, and the system finds the text in it
    EXPECT_EQ(m_combo->Text(), "one");
    EXPECT_THAT(m_combo->Selection(), Pair(3, 3));
    Type("s");
    EXPECT_EQ(m_combo->Text(), "ones");
}

TEST_F(TavComboFilter, AResultBehindTheLastEntryIsAnEmptyEntry)
{
    OpenWith({1, 5}, true);
    Type("q");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("two", ""));
    EXPECT_EQ(m_combo->GetItemData(1), 0U);
    EXPECT_EQ(m_combo->m_Backup.GetCount(), 6) << "the entries were extended by it";
    g_results = {};
    Type("r");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("one", "two", "three", "four", "", ""));
}

TEST_F(TavComboFilter, AFirstResultBehindTheLastEntryOfAWholeListLosesNothing)
{
    OpenWith({9}, false);
    Type("q");
    EXPECT_EQ(m_combo->Text(), "q");
    EXPECT_THAT(m_combo->Selection(), Pair(1, 1));
    EXPECT_EQ(m_combo->GetCurSel(), CB_ERR);
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboFilter, AnEntryGivenTwiceIsShownTwice)
{
    OpenWith({2, 2, 0}, true);
    Type("q");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("three", "three", "one"));
    Key(VK_ESCAPE);
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboFilter, NegativeResultsBehindTheFirstAreLeftOut)
{
    OpenWith({2, -1, -7, 0}, true);
    Type("q");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("three", "one"));
}

TEST_F(TavComboFilter, OnlyNegativeResultsLeaveAnEmptyListAndTheText)
{
    OpenWith({-7}, true);
    Type("q");
    EXPECT_EQ(m_combo->Text(), "q");
    EXPECT_EQ(m_combo->GetCount(), 0);
    Key(VK_ESCAPE);
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboFilter, AsManyResultsAsEntriesAreTakenForTheWholeList)
{
    OpenWith({0, 0, 0, 0}, true);
    Type("q");
    ASSERT_EQ(m_combo->GetCount(), 4);
    Key(VK_ESCAPE);
    EXPECT_THAT(m_combo->Entries(), ElementsAre("one", "one", "one", "one"));
}

// Backup and restore

using TavComboBackup = ComboTest;

/// Keeps account of the data that its entries are deleted with.
class OwnerDrawn : public WatchedCombo
{
public:
    std::vector<DWORD_PTR> m_deleted;

    void MeasureItem(LPMEASUREITEMSTRUCT item) override { item->itemHeight = 16; }
    void DrawItem(LPDRAWITEMSTRUCT) override {}
    void DeleteItem(LPDELETEITEMSTRUCT item) override { m_deleted.push_back(item->itemData); }
};

TEST_F(TavComboBackup, CopiesTextAndDataOfEveryEntry)
{
    Open(kEntries);
    m_combo->BackupContents();
    ASSERT_EQ(m_combo->m_Backup.GetCount(), 4);
    EXPECT_STREQ(m_combo->m_Backup[2].m_strText, "three");
    EXPECT_EQ(m_combo->m_Backup[2].m_dwData, 102U);
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboBackup, HoldsDataAsWideAsAPointer)
{
    Open(kEntries);
    auto const wide = DWORD_PTR{0x123456789ABCDEF0};
    m_combo->SetItemData(1, wide);
    m_combo->BackupContents();
    m_combo->SafeResetContents();
    m_combo->RestoreContents();
    EXPECT_EQ(m_combo->GetItemData(1), wide);
}

TEST_F(TavComboBackup, KeepsItsBlockWhenItIsTakenAnew)
{
    Open(kEntries);
    m_combo->BackupContents();
    CTavComboBox::ComboItem const* const block = m_combo->m_Backup.m_pData;
    m_combo->DeleteString(0);
    m_combo->BackupContents();
    EXPECT_EQ(m_combo->m_Backup.GetCount(), 3);
    EXPECT_EQ(m_combo->m_Backup.m_pData, block);
    EXPECT_STREQ(m_combo->m_Backup[0].m_strText, "two");
}

TEST_F(TavComboBackup, NotesThePlaceOfTheListOnlyOnce)
{
    Open(kEntries);
    EXPECT_EQ(m_combo->m_rcDropped.Height(), 0);
    CRect const place = m_combo->ListRect();
    m_combo->BackupContents();
    EXPECT_EQ(m_combo->m_rcDropped, place);
    ::MoveWindow(m_combo->Info().hwndList, 0, 0, 30, 40, FALSE);
    m_combo->BackupContents();
    EXPECT_EQ(m_combo->m_rcDropped, place);
}

TEST_F(TavComboBackup, DataAreClearedBeforeTheListIsEmptied)
{
    Open(kEntries);
    m_combo->SafeResetContents();
    EXPECT_EQ(m_combo->GetCount(), 0);
    auto const& messages = m_combo->m_messages;
    auto const reset = std::ranges::find(messages, static_cast<UINT>(CB_RESETCONTENT));
    ASSERT_NE(reset, messages.end());
    EXPECT_EQ(std::count(messages.begin(), reset, static_cast<UINT>(CB_SETITEMDATA)), 4);
    EXPECT_EQ(std::count(reset, messages.end(), static_cast<UINT>(CB_SETITEMDATA)), 0);
}

TEST_F(TavComboBackup, AnOwnerDrawnListFreesNothingThatTheBackupNeeds)
{
    OwnerDrawn combo;
    ASSERT_TRUE(combo.Create(kEditable | CBS_OWNERDRAWFIXED, kPlace, &*m_frame, kComboId));
    combo.SetItemData(combo.AddString("a"), 5);
    combo.SetItemData(combo.AddString("b"), 6);
    combo.BackupContents();
    combo.SafeResetContents();
    EXPECT_THAT(combo.m_deleted, testing::Each(DWORD_PTR{0}));
    combo.RestoreContents();
    EXPECT_EQ(combo.GetItemData(0), 5U);
    EXPECT_EQ(combo.GetItemData(1), 6U);
    combo.DestroyWindow();
    EXPECT_THAT(combo.m_deleted, testing::IsSupersetOf({DWORD_PTR{5}, DWORD_PTR{6}}));
}

TEST_F(TavComboBackup, EntriesThatAreHiddenAreDeletedWithTheWindow)
{
    OwnerDrawn combo;
    ASSERT_TRUE(combo.Create(kEditable | CBS_OWNERDRAWFIXED, kPlace, &*m_frame, kComboId));
    combo.SetItemData(combo.AddString("a"), 5);
    combo.SetItemData(combo.AddString("b"), 6);
    combo.EnableAutoComplete(true, true);
    combo.SetFocus();
    support::Settle();
    Type("b");
    ASSERT_EQ(combo.GetCount(), 1);
    combo.DestroyWindow();
    std::erase(combo.m_deleted, DWORD_PTR{0});
    EXPECT_THAT(combo.m_deleted, testing::UnorderedElementsAre(5, 6));
}

TEST_F(TavComboBackup, TurningTheFilterOffInTheMiddleOfAnEditBringsTheEntriesBack)
{
    Open(kEntries);
    m_combo->EnableAutoComplete(true, true);
    Type("tw");
    ASSERT_THAT(m_combo->Entries(), ElementsAre("two"));
    m_combo->EnableAutoComplete(true, false);
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_EQ(m_combo->GetCurSel(), 1);
}

TEST_F(TavComboBackup, IsNotRestoredWhenThereIsNone)
{
    Open(kEntries);
    m_combo->RestoreContents();
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    m_combo->SafeResetContents();
    m_combo->RestoreContents();
    EXPECT_EQ(m_combo->GetCount(), 0);
}

TEST_F(TavComboBackup, IsNotRestoredIntoAListOfTheSameCount)
{
    Open(kEntries);
    m_combo->BackupContents();
    m_combo->DeleteString(3);
    m_combo->AddString("other");
    m_combo->RestoreContents();
    EXPECT_THAT(m_combo->Entries(), ElementsAre("one", "two", "three", "other"));
}

TEST_F(TavComboBackup, RestoringSelectsWhatWasSelected)
{
    Open(kEntries);
    m_combo->BackupContents();
    m_combo->DeleteString(0);
    m_combo->SetCurSel(1);
    ASSERT_STREQ(m_combo->GetCrntText(), "three");
    m_combo->RestoreContents();
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_EQ(m_combo->GetCurSel(), 2);
    EXPECT_EQ(m_combo->Text(), "three");
}

TEST_F(TavComboBackup, RestoringKeepsATextThatIsNoEntry)
{
    Open(kEntries);
    m_combo->BackupContents();
    m_combo->DeleteString(0);
    m_combo->SetCurSel(-1);
    m_combo->SetWindowText("something else");
    m_combo->RestoreContents();
    EXPECT_EQ(m_combo->GetCurSel(), CB_ERR);
    EXPECT_EQ(m_combo->Text(), "something else");
}

TEST_F(TavComboBackup, RestoringSelectsTheEntryThatATextNames)
{
    Open(kEntries);
    m_combo->BackupContents();
    m_combo->DeleteString(0);
    m_combo->SetCurSel(-1);
    m_combo->SetWindowText("ONE");
    m_combo->RestoreContents();
    EXPECT_EQ(m_combo->GetCurSel(), 0);
    EXPECT_EQ(m_combo->Text(), "one");
}

TEST_F(TavComboBackup, RestoringTellsEqualTextsApartByTheirData)
{
    for (int const wanted : {0, 2, 4})
    {
        Open({"same", "other", "same", "more", "Same"});
        m_combo->BackupContents();
        m_combo->DeleteString(3);
        m_combo->SetCurSel(m_combo->FindByData(static_cast<DWORD_PTR>(wanted) + 100));
        m_combo->RestoreContents();
        EXPECT_EQ(m_combo->GetCurSel(), wanted);
    }
}

TEST_F(TavComboBackup, RestoringTakesTheLastOfEqualTextsWhenNoneHasTheData)
{
    Open({"same", "other", "same", "more"});
    m_combo->BackupContents();
    m_combo->DeleteString(3);
    m_combo->SetCurSel(0);
    m_combo->SetItemData(0, 999);
    m_combo->RestoreContents();
    EXPECT_EQ(m_combo->GetCurSel(), 2);
}

TEST_F(TavComboBackup, RestoringForATextThatNamesSeveralEntriesTakesTheOneWithoutDataElseTheLast)
{
    for (bool const withoutData : {true, false})
    {
        Open({"same", "other", "same", "same", "more"});
        if (withoutData)
        {
            m_combo->SetItemData(2, 0);
        }
        m_combo->BackupContents();
        m_combo->DeleteString(4);
        m_combo->SetCurSel(-1);
        m_combo->SetWindowText("same");
        m_combo->RestoreContents();
        EXPECT_EQ(m_combo->GetCurSel(), withoutData ? 2 : 3);
    }
}

// Data

using TavComboData = ComboTest;

TEST_F(TavComboData, FindsTheFirstEntryWithTheData)
{
    Open({"a", "b", "c"});
    m_combo->SetItemData(2, 101);
    EXPECT_EQ(m_combo->FindByData(101), 1);
    EXPECT_EQ(m_combo->FindByData(100), 0);
    EXPECT_EQ(m_combo->FindByData(7), -1);
}

TEST_F(TavComboData, FindsNothingInAnEmptyList)
{
    Open({});
    EXPECT_EQ(m_combo->FindByData(0), -1);
    EXPECT_EQ(m_combo->FindByData(static_cast<DWORD_PTR>(CB_ERR)), -1);
}

TEST_F(TavComboData, TheCurrentTextIsThatOfTheSelectedEntryElseOfTheWindow)
{
    Open({"a", "b"});
    m_combo->SetWindowText("typed");
    EXPECT_STREQ(m_combo->GetCrntText(), "typed");
    m_combo->SetCurSel(1);
    EXPECT_STREQ(m_combo->GetCrntText(), "b");
    m_combo->SetWindowText("typed");
    EXPECT_STREQ(m_combo->GetCrntText(), "b") << "the entry counts, whatever the field says";
}

// Measures

class TavComboMeasures : public ComboTest
{
protected:
    [[nodiscard]] int Extent(CString const& text)
    {
        CClientDC dc(m_combo.get());
        SelectScope const font(dc, m_font);
        TEXTMETRIC metrics{};
        dc.GetTextMetrics(&metrics);
        return static_cast<int>(dc.GetTextExtent(text).cx + metrics.tmAveCharWidth);
    }
};

const CString kLong("an entry that is a good deal longer than the combo box that it belongs to is wide");

TEST_F(TavComboMeasures, TheListIsAsWideAsItsLongestEntry)
{
    Open({"short", kLong.GetString(), "x"});
    EXPECT_TRUE(m_combo->AdjustDropppedWidth());
    EXPECT_EQ(m_combo->GetDroppedWidth(), Extent(kLong) + 2 * ::GetSystemMetrics(SM_CXEDGE));
}

TEST_F(TavComboMeasures, AListThatScrollsIsWiderByItsScrollBar)
{
    Open(std::vector<std::string>(100, kLong.GetString()));
    EXPECT_TRUE(m_combo->AdjustDropppedWidth());
    EXPECT_EQ(m_combo->GetDroppedWidth(),
              Extent(kLong) + ::GetSystemMetrics(SM_CXVSCROLL) + 2 * ::GetSystemMetrics(SM_CXEDGE));
}

TEST_F(TavComboMeasures, OpeningTheListWidensIt)
{
    Open({kLong.GetString()});
    ASSERT_LT(m_combo->GetDroppedWidth(), Extent(kLong));
    support::Click({m_combo->ListRect().right - 8, m_combo->ListRect().top - 8});
    ASSERT_TRUE(support::PumpUntil([&] { return m_combo->IsListVisible(); }));
    EXPECT_EQ(m_combo->m_widthCalls, 1);
    EXPECT_GE(m_combo->ListRect().Width(), Extent(kLong));
}

TEST_F(TavComboMeasures, OpeningTheListAgainAndAgainKeepsNothing)
{
    Open({kLong.GetString()});
    for (int i = 0; i < 40; ++i) // more than a first use may keep
    {
        m_combo->ShowDropDown();
        m_combo->ShowDropDown(FALSE);
    }
    EXPECT_EQ(m_combo->m_widthCalls, 40);
}

TEST_F(TavComboMeasures, WithoutAFontTheWidthStays)
{
    Open({kLong.GetString()});
    m_combo->SetFont(nullptr);
    int const width = m_combo->GetDroppedWidth();
    m_combo->ShowDropDown();
    EXPECT_EQ(m_combo->m_widthCalls, 0) << "the list of a control without a font opens as it is";
    EXPECT_FALSE(m_combo->AdjustDropppedWidth());
    EXPECT_EQ(m_combo->GetDroppedWidth(), width);
}

TEST_F(TavComboMeasures, AListInsideTheControlRefusesTheWidth)
{
    Open({kLong.GetString()}, kSimple);
    EXPECT_FALSE(m_combo->AdjustDropppedWidth());
}

TEST_F(TavComboMeasures, AControlWithoutAWindowHasNone)
{
    CTavComboBox combo;
    EXPECT_FALSE(combo.AdjustDropppedWidth());
    combo.AdjustDroppedHeight(CRect(0, 0, 10, 10));
    EXPECT_EQ(combo.FindByData(0), -1);
    combo.EnableAutoComplete(true, true);
    combo.EnableAutoComplete(false, false);
}

TEST_F(TavComboMeasures, OpeningTheListShowsTheArrowOnlyWithCompletion)
{
    Open({"a"});
    HCURSOR const beam = ::LoadCursor(nullptr, IDC_IBEAM);
    ::SetCursor(beam);
    m_combo->ShowDropDown();
    EXPECT_EQ(::GetCursor(), beam);
    m_combo->ShowDropDown(FALSE);
    m_combo->EnableAutoComplete(true, false);
    m_combo->ShowDropDown();
    EXPECT_EQ(::GetCursor(), ::LoadCursor(nullptr, IDC_ARROW));
}

TEST_F(TavComboMeasures, TheHeightIsThatOfTheEntriesAndAnEdge)
{
    Open({"a", "b", "c"});
    m_combo->ShowDropDown();
    CRect const before = m_combo->ListRect();
    m_combo->DeleteString(0);
    m_combo->AdjustDroppedHeight(CRect(0, 0, 10, 500));
    CRect const after = m_combo->ListRect();
    EXPECT_EQ(after.Height(), 2 * m_combo->GetItemHeight(0) + ::GetSystemMetrics(SM_CYEDGE));
    EXPECT_EQ(after.TopLeft(), before.TopLeft());
    EXPECT_EQ(after.Width(), before.Width());
}

TEST_F(TavComboMeasures, TheHeightIsBounded)
{
    Open({"a", "b", "c"});
    m_combo->ShowDropDown();
    int const bound = m_combo->GetItemHeight(0) + ::GetSystemMetrics(SM_CYEDGE);
    m_combo->AdjustDroppedHeight(CRect(0, 100, 10, 100 + bound));
    EXPECT_EQ(m_combo->ListRect().Height(), bound);
}

TEST_F(TavComboMeasures, AListInsideTheControlStaysInItsPlace)
{
    Open({"a", "b", "c"}, kSimple);
    CRect const before = m_combo->ListRect();
    m_combo->AdjustDroppedHeight(CRect(0, 0, 10, 30));
    CRect const after = m_combo->ListRect();
    EXPECT_EQ(after.TopLeft(), before.TopLeft());
    EXPECT_EQ(after.Size(), CSize(before.Width(), 30));
}

TEST_F(TavComboMeasures, AFilteredListNeverGrowsPastItsFirstHeight)
{
    std::vector<std::string> entries(60, "b");
    entries.insert(entries.begin(), {"ab", "ac"});
    Open(entries);
    m_combo->EnableAutoComplete(true, true);
    Type("a");
    int const bound = m_combo->m_rcDropped.Height();
    ASSERT_GT(bound, 0);
    EXPECT_EQ(m_combo->ListRect().Height(), 2 * m_combo->GetItemHeight(0) + ::GetSystemMetrics(SM_CYEDGE));
    Key(VK_BACK);
    Key(VK_BACK);
    ASSERT_EQ(m_combo->GetCount(), 62);
    EXPECT_EQ(m_combo->ListRect().Height(), bound) << "the whole list is as high as it was at first";
    Type("b");
    EXPECT_EQ(m_combo->GetCount(), 60);
    EXPECT_EQ(m_combo->ListRect().Height(), bound);
}

TEST_F(TavComboMeasures, AWholeListKeepsItsHeight)
{
    Open({"ab", "ac", "xy"});
    m_combo->EnableAutoComplete(true, false);
    m_combo->ShowDropDown();
    CRect const before = m_combo->ListRect();
    Type("a");
    EXPECT_EQ(m_combo->ListRect(), before);
}

} // namespace
