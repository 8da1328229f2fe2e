// TavComboTypingTest.cpp - completion and filtering under real keys

#include "ComboFixture.h"

namespace
{

using namespace combo_test;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Pair;

const std::vector<std::string> kEntries{"Abc", "abd", "xyz"};

class TavComboTyping : public ComboTest
{
protected:
    void OpenFiltering(std::vector<std::string> const& entries = kEntries, DWORD style = kEditable)
    {
        Open(entries, style);
        m_combo->EnableAutoComplete(true, true);
    }
    void OpenCompleting(std::vector<std::string> const& entries = kEntries, DWORD style = kEditable)
    {
        Open(entries, style);
        m_combo->EnableAutoComplete(true, false);
    }
};

TEST_F(TavComboTyping, IsLeftAloneUntilCompletionIsOn)
{
    Open(kEntries);
    EXPECT_FALSE(m_combo->IsAutoCompleteEnabled());
    Type("ab");
    EXPECT_EQ(m_combo->Text(), "ab");
    EXPECT_FALSE(m_combo->IsListVisible());
    EXPECT_EQ(m_frame->CountCommand(kComboId, CBN_SELCHANGE), 0);
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
}

TEST_F(TavComboTyping, FilteringCountsOnlyWithCompletion)
{
    Open(kEntries);
    m_combo->EnableAutoComplete(false, true);
    EXPECT_FALSE(m_combo->m_bAutoComplete);
    EXPECT_FALSE(m_combo->m_bFilterList);
    m_combo->EnableAutoComplete(true, true);
    EXPECT_TRUE(m_combo->IsAutoCompleteEnabled());
    EXPECT_TRUE(m_combo->m_bFilterList);
    m_combo->EnableAutoComplete(true, false);
    EXPECT_TRUE(m_combo->IsAutoCompleteEnabled());
    EXPECT_FALSE(m_combo->m_bFilterList);
}

TEST_F(TavComboTyping, CompletesTheFirstEntryAndHighlightsWhatWasNotTyped)
{
    OpenCompleting();
    Type("ab");
    EXPECT_EQ(m_combo->Text(), "Abc");
    EXPECT_EQ(m_combo->Highlighted(), "c");
    EXPECT_EQ(m_combo->GetCurSel(), 0);
    EXPECT_TRUE(m_combo->IsListVisible());
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries)) << "without filtering the list keeps its entries";
}

TEST_F(TavComboTyping, LeavesOnlyTheMatchesInAFilteredList)
{
    OpenFiltering();
    Type("ab");
    EXPECT_EQ(m_combo->Text(), "Abc");
    EXPECT_EQ(m_combo->Highlighted(), "c");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("Abc", "abd"));
    EXPECT_EQ(m_combo->GetCurSel(), 0);
    EXPECT_TRUE(m_combo->IsListVisible());
    EXPECT_EQ(m_combo->GetItemData(0), 100U);
    EXPECT_EQ(m_combo->GetItemData(1), 101U);
}

TEST_F(TavComboTyping, SelectsAnEntryFurtherDownByItsOwnIndexWithoutFiltering)
{
    OpenCompleting();
    Type("x");
    EXPECT_EQ(m_combo->GetCurSel(), 2);
    EXPECT_EQ(m_combo->Highlighted(), "yz");
}

TEST_F(TavComboTyping, GoesOnFromACompletedTextByTypingOverTheHighlight)
{
    OpenFiltering();
    Type("a");
    EXPECT_EQ(m_combo->Highlighted(), "bc");
    Type("bd");
    EXPECT_EQ(m_combo->Text(), "abd");
    EXPECT_EQ(m_combo->Highlighted(), "");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("abd"));
    EXPECT_THAT(m_combo->Selection(), Pair(3, 3));
}

TEST_F(TavComboTyping, TellsTheParentOfEverySelectionThatItMakes)
{
    OpenFiltering();
    std::vector<std::string> selected;
    m_frame->m_onNotify = [&](UINT code) {
        if (code == CBN_SELCHANGE)
        {
            selected.emplace_back(m_combo->GetCrntText());
        }
    };
    Type("ab");
    EXPECT_THAT(selected, ElementsAre("Abc", "Abc"));
    Type("q");
    EXPECT_EQ(selected.size(), 2U) << "nothing was selected for a text that matches nothing";
    for (auto const& message : m_frame->Messages())
    {
        if (message.message == WM_COMMAND && HIWORD(message.wParam) == CBN_SELCHANGE)
        {
            EXPECT_EQ(LOWORD(message.wParam), kComboId);
            EXPECT_EQ(message.lParam, reinterpret_cast<LPARAM>(m_combo->m_hWnd));
        }
    }
}

TEST_F(TavComboTyping, LetsTheParentSeeWhatTheControlHandlesItself)
{
    OpenFiltering();
    std::vector<UINT> handled;
    m_frame->m_onNotify = [&](UINT code) { handled.push_back(code); };
    Type("a");
    EXPECT_THAT(handled, testing::IsSupersetOf({CBN_EDITUPDATE, CBN_DROPDOWN, CBN_SELCHANGE}));
    handled.clear();
    Key(VK_RETURN);
    EXPECT_THAT(handled, testing::Contains(static_cast<UINT>(CBN_SELENDOK)));
    Type("b");
    handled.clear();
    Key(VK_ESCAPE);
    EXPECT_THAT(handled, testing::Contains(static_cast<UINT>(CBN_SELENDCANCEL)));
}

TEST_F(TavComboTyping, BackspaceRemovesTheHighlightAndNothingIsCompletedAgain)
{
    OpenFiltering();
    Type("ab");
    Key(VK_BACK);
    EXPECT_EQ(m_combo->Text(), "Ab") << "completion wrote the letters as the entry has them";
    EXPECT_THAT(m_combo->Selection(), Pair(2, 2));
    EXPECT_THAT(m_combo->Entries(), ElementsAre("Abc", "abd"));
    Key(VK_BACK);
    EXPECT_EQ(m_combo->Text(), "A");
    EXPECT_THAT(m_combo->Selection(), Pair(1, 1));
    Type("b");
    EXPECT_EQ(m_combo->Highlighted(), "c") << "the next letter completes again";
}

TEST_F(TavComboTyping, BackspaceOverACompletedWordLeavesWhatRemains)
{
    OpenCompleting();
    Type("xyz");
    EXPECT_EQ(m_combo->Text(), "xyz");
    Key(VK_BACK);
    EXPECT_EQ(m_combo->Text(), "xy");
    EXPECT_THAT(m_combo->Selection(), Pair(2, 2));
}

TEST_F(TavComboTyping, DeleteInsideATextKeepsTheCaretThere)
{
    OpenCompleting({"abcd", "acd"});
    Type("abc");
    Key(VK_HOME);
    Key(VK_RIGHT);
    Key(VK_DELETE); // the b
    EXPECT_EQ(m_combo->Text(), "acd");
    EXPECT_THAT(m_combo->Selection(), Pair(1, 1));
    EXPECT_TRUE(m_combo->m_bDeleting);
}

TEST_F(TavComboTyping, ALetterTypedInsideATextKeepsTheCaretThere)
{
    OpenCompleting({"abcd"});
    Type("acd");
    Key(VK_HOME);
    Key(VK_RIGHT);
    Type("b");
    EXPECT_EQ(m_combo->Text(), "abcd");
    EXPECT_THAT(m_combo->Selection(), Pair(2, 2)) << "the text goes on behind the caret: nothing is highlighted";
}

TEST_F(TavComboTyping, ATextThatMatchesNothingBringsTheWholeListBackAndStays)
{
    OpenFiltering();
    Type("ab");
    ASSERT_EQ(m_combo->GetCount(), 2);
    Type("q");
    EXPECT_EQ(m_combo->Text(), "Abq");
    EXPECT_THAT(m_combo->Selection(), Pair(3, 3));
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_EQ(m_combo->GetItemData(2), 102U);
    EXPECT_TRUE(m_combo->IsListVisible());
}

TEST_F(TavComboTyping, AFirstLetterThatMatchesNothingOpensTheList)
{
    OpenFiltering();
    Type("q");
    EXPECT_EQ(m_combo->Text(), "q");
    EXPECT_TRUE(m_combo->IsListVisible());
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboTyping, DeletingTheLastLetterBringsTheWholeListBackAndKeepsItOpen)
{
    OpenFiltering();
    Type("x");
    ASSERT_THAT(m_combo->Entries(), ElementsAre("xyz"));
    Key(VK_BACK);
    ASSERT_EQ(m_combo->Text(), "x");
    Key(VK_BACK);
    EXPECT_EQ(m_combo->Text(), "");
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_TRUE(m_combo->IsListVisible());
}

TEST_F(TavComboTyping, TakingTheEntryBringsTheListBackWithItSelected)
{
    OpenFiltering();
    Type("x");
    ASSERT_EQ(m_combo->GetCount(), 1);
    Key(VK_RETURN);
    EXPECT_FALSE(m_combo->IsListVisible());
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_EQ(m_combo->GetCurSel(), 2);
    EXPECT_EQ(m_combo->GetItemData(2), 102U);
    EXPECT_EQ(m_combo->Text(), "xyz");
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
}

TEST_F(TavComboTyping, ClickingAnEntryOfTheFilteredListSelectsItInTheWholeList)
{
    OpenFiltering({"xa", "ab", "ac", "xb"});
    Type("a");
    ASSERT_THAT(m_combo->Entries(), ElementsAre("ab", "ac"));
    CRect const list = m_combo->ListRect();
    support::Click({list.left + 20, list.top + m_combo->GetItemHeight(0) + m_combo->GetItemHeight(0) / 2});
    ASSERT_TRUE(support::PumpUntil([&] { return !m_combo->IsListVisible(); }));
    EXPECT_THAT(m_combo->Entries(), ElementsAre("xa", "ab", "ac", "xb"));
    EXPECT_EQ(m_combo->GetCurSel(), 2);
    EXPECT_EQ(m_combo->Text(), "ac");
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
}

TEST_F(TavComboTyping, GivingUpBringsTheListBack)
{
    OpenFiltering();
    Type("x");
    Key(VK_ESCAPE);
    EXPECT_FALSE(m_combo->IsListVisible());
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
}

TEST_F(TavComboTyping, LosingTheFocusBringsTheListBack)
{
    OpenFiltering();
    Type("x");
    m_frame->SetFocus();
    support::Settle();
    EXPECT_FALSE(m_combo->IsListVisible());
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboTyping, TheNextEditTakesTheEntriesAsTheyAreThen)
{
    OpenFiltering();
    Type("x");
    EXPECT_EQ(m_combo->m_Backup.GetCount(), 3);
    Key(VK_RETURN);
    int const at = m_combo->AddString("xylophone");
    m_combo->SetItemData(at, 7);
    m_combo->SetEditSel(0, -1);
    Type("xy");
    EXPECT_EQ(m_combo->m_Backup.GetCount(), 4);
    EXPECT_THAT(m_combo->Entries(), ElementsAre("xyz", "xylophone"));
    EXPECT_EQ(m_combo->GetItemData(1), 7U);
}

TEST_F(TavComboTyping, WithoutFilteringTheEndOfAnEditForgetsTheBackup)
{
    OpenCompleting();
    Type("x");
    EXPECT_EQ(m_combo->m_Backup.GetCount(), 3);
    Key(VK_RETURN);
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
}

TEST_F(TavComboTyping, AnEmptyComboBoxShowsItsEmptyList)
{
    OpenFiltering({});
    Type("a");
    EXPECT_EQ(m_combo->Text(), "a");
    EXPECT_TRUE(m_combo->IsListVisible());
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
    Type("b");
    EXPECT_EQ(m_combo->Text(), "ab");
    EXPECT_THAT(m_combo->Selection(), Pair(2, 2));
    // Nothing is backed up, so each keystroke looks anew.
    m_combo->AddString("abc");
    Type("c");
    EXPECT_EQ(m_combo->m_Backup.GetCount(), 1);
}

TEST_F(TavComboTyping, ASimpleComboBoxCompletesAndFilters)
{
    OpenFiltering(kEntries, kSimple);
    Type("ab");
    EXPECT_EQ(m_combo->Text(), "Abc");
    EXPECT_EQ(m_combo->Highlighted(), "c");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("Abc", "abd"));
    Type("q");
    EXPECT_EQ(m_combo->Text(), "Abq");
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboTyping, TheEndOfAnEditBringsTheListOfASimpleComboBoxBack)
{
    for (UINT const code : {CBN_SELENDOK, CBN_SELENDCANCEL})
    {
        OpenFiltering(kEntries, kSimple);
        Type("x");
        ASSERT_THAT(m_combo->Entries(), ElementsAre("xyz"));
        // Not every system tells of it for a list that never closes.
        m_frame->SendMessage(WM_COMMAND, MAKEWPARAM(kComboId, code), reinterpret_cast<LPARAM>(m_combo->m_hWnd));
        EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
        EXPECT_EQ(m_combo->GetCurSel(), 2);
        EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
    }
}

TEST_F(TavComboTyping, AListWithoutAnEditFieldIsLeftToItself)
{
    OpenFiltering(kEntries, kListOnly);
    Type("x");
    EXPECT_EQ(m_combo->GetCurSel(), 2);
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
}

TEST_F(TavComboTyping, LettersBeyondSevenBitsMatchWhateverTheirCase)
{
    OpenFiltering({"\xC4pfel", "\xE4rger", "Birnen"});
    Type("\xE4");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("\xC4pfel", "\xE4rger"));
    EXPECT_EQ(m_combo->Text(), "\xC4pfel");
}

TEST_F(TavComboTyping, CompletesAnEntryOfTenThousandLetters)
{
    OpenFiltering({"b", "a" + std::string(9'999, 'x')});
    Type("a");
    EXPECT_EQ(m_combo->Text().size(), 10'000U);
    EXPECT_THAT(m_combo->Selection(), Pair(1, 10'000));
    Key(VK_BACK);
    EXPECT_EQ(m_combo->Text(), "a");
}

} // namespace
