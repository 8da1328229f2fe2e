// TavComboHostileTest.cpp - combo boxes that are destroyed or changed by those they tell, and wrong filters

#include "ComboFixture.h"

#include <limits>
#include <utility>

namespace
{

using namespace combo_test;
using testing::ElementsAre;
using testing::ElementsAreArray;

const std::vector<std::string> kEntries{"Abc", "abd", "xyz"};

std::function<void()> g_inFilter;

void RunInFilter(CTavComboBox*, DString const&, DVectorSafe<CTavComboBox::ComboItem> const*, DVector<int>* found)
{
    g_inFilter();
    found->Append(0);
}

std::vector<std::string> g_walked; // the entries that the filter below has met

/// Calls out at the first entry, and goes on.
void RunWhileWalking(CTavComboBox*, DString const&, DVectorSafe<CTavComboBox::ComboItem> const* items,
                     DVector<int>* found)
{
    for (CTavComboBox::ComboItem const& item : *items)
    {
        if (g_walked.empty())
        {
            g_inFilter();
        }
        g_walked.emplace_back(item.m_strText);
    }
    found->Append(0);
}

void GiveLargest(CTavComboBox*, DString const&, DVectorSafe<CTavComboBox::ComboItem> const*, DVector<int>* found)
{
    found->Append(0);
    found->Append(std::numeric_limits<int>::max());
}

class TavComboHostile : public ComboTest
{
protected:
    void TearDown() override
    {
        g_inFilter = nullptr;
        g_walked.clear();
        ComboTest::TearDown();
    }

    void OpenFiltering(DWORD style = kEditable)
    {
        Open(kEntries, style);
        m_combo->EnableAutoComplete(true, true);
    }
};

class TavComboDestroyed : public TavComboHostile, public testing::WithParamInterface<UINT>
{
};

TEST_P(TavComboDestroyed, WithItsObjectInANotificationOfAKeystroke)
{
    OpenFiltering();
    bool told = false;
    m_frame->m_onNotify = [&](UINT code) {
        if (code == GetParam() && m_combo)
        {
            told = true;
            m_combo.reset();
        }
    };
    Type("ab");
    EXPECT_TRUE(told);
    EXPECT_EQ(m_combo, nullptr);
}

TEST_P(TavComboDestroyed, WithItsWindowInANotificationOfAKeystroke)
{
    OpenFiltering();
    bool told = false;
    m_frame->m_onNotify = [&](UINT code) {
        if (code == GetParam() && m_combo->m_hWnd != nullptr)
        {
            told = true;
            m_combo->DestroyWindow();
        }
    };
    Type("ab");
    EXPECT_TRUE(told);
    EXPECT_EQ(m_combo->m_hWnd, nullptr);
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
}

TEST_P(TavComboDestroyed, WithItsWindowInANotificationOfATextThatMatchesNothing)
{
    if (GetParam() == CBN_SELCHANGE)
    {
        return; // nothing is selected
    }
    OpenFiltering();
    m_frame->m_onNotify = [&](UINT code) {
        if (code == GetParam() && m_combo->m_hWnd != nullptr)
        {
            m_combo->DestroyWindow();
        }
    };
    Type("qq");
    EXPECT_EQ(m_combo->m_hWnd, nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, TavComboDestroyed, testing::Values(CBN_EDITUPDATE, CBN_DROPDOWN, CBN_SELCHANGE));

TEST_F(TavComboHostile, IsDestroyedAsTheUserTakesAnEntry)
{
    for (UINT const code : {CBN_SELENDOK, CBN_SELENDCANCEL})
    {
        OpenFiltering();
        Type("ab");
        m_frame->m_onNotify = [&](UINT told) {
            if (told == code)
            {
                m_combo.reset();
            }
        };
        Key(code == CBN_SELENDOK ? VK_RETURN : VK_ESCAPE);
        m_frame->m_onNotify = nullptr;
        EXPECT_EQ(m_combo, nullptr);
    }
}

TEST_F(TavComboHostile, IsDestroyedByItsFilter)
{
    OpenFiltering();
    m_combo->SetFltrFunc(RunInFilter);
    g_inFilter = [&] { m_combo->DestroyWindow(); };
    Type("a");
    EXPECT_EQ(m_combo->m_hWnd, nullptr);

    OpenFiltering();
    m_combo->SetFltrFunc(RunInFilter);
    g_inFilter = [&] { m_combo.reset(); };
    Type("a");
    EXPECT_EQ(m_combo, nullptr);
}

TEST_F(TavComboHostile, IsDestroyedWhileItsListIsDown)
{
    OpenFiltering();
    Type("ab");
    ASSERT_TRUE(m_combo->IsListVisible());
    HWND const list = m_combo->Info().hwndList;
    m_combo.reset();
    EXPECT_FALSE(::IsWindow(list));
}

TEST_F(TavComboHostile, AParentThatEmptiesTheListAsItIsToldOfASelection)
{
    OpenFiltering();
    m_frame->m_onNotify = [&](UINT code) {
        if (code == CBN_SELCHANGE)
        {
            m_combo->ResetContent();
        }
    };
    Type("a");
    EXPECT_EQ(m_combo->GetCount(), 0);
    m_frame->m_onNotify = nullptr;
    Key(VK_ESCAPE);
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries)) << "the entries come back all the same";
}

TEST_F(TavComboHostile, AParentThatTurnsCompletionOffAsItIsToldOfASelection)
{
    OpenFiltering();
    m_frame->m_onNotify = [&](UINT code) {
        if (code == CBN_SELCHANGE)
        {
            m_combo->EnableAutoComplete(false, false);
        }
    };
    Type("a");
    EXPECT_EQ(m_combo->Text(), "Abc");
    Type("x");
    EXPECT_EQ(m_combo->Text(), "Ax");
}

TEST_F(TavComboHostile, AFilterThatTakesTheFocusAwayLosesNoEntry)
{
    for (bool const filterList : {true, false})
    {
        OpenFiltering();
        m_combo->EnableAutoComplete(true, filterList);
        m_combo->SetFltrFunc(RunWhileWalking);
        g_walked.clear();
        g_inFilter = [&] { m_frame->SetFocus(); };
        Type("a");
        EXPECT_THAT(g_walked, ElementsAreArray(kEntries)) << "the filter walks on through what it was given";
        EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
        EXPECT_EQ(m_combo->GetItemData(0), 100U);
        EXPECT_EQ(m_combo->Text(), "a");
        EXPECT_FALSE(m_combo->IsListVisible());
        EXPECT_TRUE(m_combo->m_Backup.IsEmpty()) << "the edit is over";
        EXPECT_EQ(m_frame->CountCommand(kComboId, CBN_SELCHANGE), 0);
    }
}

TEST_F(TavComboHostile, AFilterThatEndsTheEditOfAFilteredListLosesNoEntry)
{
    OpenFiltering();
    Type("x");
    ASSERT_EQ(m_combo->GetCount(), 1);
    m_combo->SetFltrFunc(RunWhileWalking);
    g_inFilter = [&] { m_frame->SetFocus(); };
    Type("y");
    EXPECT_THAT(g_walked, ElementsAreArray(kEntries));
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
}

TEST_F(TavComboHostile, AFilterThatMakesTheWindowAnewLeavesItAlone)
{
    OpenFiltering();
    m_combo->SetFltrFunc(RunWhileWalking);
    g_inFilter = [&] {
        m_combo->DestroyWindow();
        m_combo->Create(kEditable, kPlace, &*m_frame, kComboId);
        m_combo->AddString("other");
    };
    Type("a");
    EXPECT_THAT(g_walked, ElementsAreArray(kEntries));
    EXPECT_THAT(m_combo->Entries(), ElementsAre("other"));
    EXPECT_EQ(m_combo->Text(), "");
}

TEST_F(TavComboHostile, AKeystrokeWhileTheFilterRunsOvertakesTheFirst)
{
    OpenFiltering();
    m_combo->SetFltrFunc(RunInFilter);
    bool first = true;
    g_inFilter = [&] {
        if (std::exchange(first, false))
        {
            ::SendMessageA(m_combo->Info().hwndItem, WM_CHAR, 'b', 0);
        }
    };
    Type("a");
    EXPECT_EQ(m_combo->Text(), "Abc");
    EXPECT_EQ(m_combo->Highlighted(), "c");
    EXPECT_EQ(m_frame->CountCommand(kComboId, CBN_SELCHANGE), 1);
}

TEST_F(TavComboHostile, AnEditAndItsNextWhileTheFilterRunsLoseNoEntry)
{
    OpenFiltering();
    m_combo->SetFltrFunc(RunWhileWalking);
    bool first = true;
    g_inFilter = [&] {
        if (!std::exchange(first, false))
        {
            return;
        }
        m_frame->SetFocus();
        m_combo->SetFocus();
        ::SendMessageA(m_combo->Info().hwndItem, WM_CHAR, 'b', 0);
        g_walked.clear();
    };
    Type("a");
    EXPECT_THAT(g_walked, ElementsAreArray(kEntries));
    EXPECT_EQ(m_combo->m_Backup.GetCount(), 3) << "the second edit goes on";
    Key(VK_ESCAPE);
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboHostile, AParentThatMovesTheFocusAsTheListOpensEndsTheEdit)
{
    for (std::string const key : {"x", "q"}) // matches, and doesn't
    {
        OpenFiltering();
        m_frame->m_onNotify = [&](UINT code) {
            if (code == CBN_DROPDOWN)
            {
                m_frame->SetFocus();
            }
        };
        Type(key);
        m_frame->m_onNotify = nullptr;
        EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
        EXPECT_NE(m_combo->GetCurSel(), 0) << "that entry doesn't match";
        EXPECT_EQ(m_frame->CountCommand(kComboId, CBN_SELCHANGE), 0);
        EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
    }
}

TEST_F(TavComboHostile, AParentThatTurnsTheFilterOffAsTheListOpensGetsTheEntryThatMatches)
{
    for (bool const onAgain : {false, true})
    {
        OpenFiltering();
        m_frame->m_onNotify = [&](UINT code) {
            if (code == CBN_DROPDOWN)
            {
                m_combo->EnableAutoComplete(true, false);
                m_combo->EnableAutoComplete(true, onAgain);
            }
        };
        Type("x");
        m_frame->m_onNotify = nullptr;
        EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
        EXPECT_EQ(m_combo->GetCurSel(), 2);
        EXPECT_EQ(m_combo->Text(), "xyz");
        EXPECT_EQ(m_combo->Highlighted(), "yz");
    }
}

TEST_F(TavComboHostile, AParentThatEndsTheEditAsItIsToldOfASelectionHasTheLastWord)
{
    OpenFiltering();
    Type("xy");
    m_frame->m_onNotify = [&](UINT code) {
        if (code == CBN_SELCHANGE)
        {
            m_frame->SetFocus();
            m_combo->SetWindowText("of the parent");
        }
    };
    Key(VK_BACK); // puts the typed text back, were it not over
    m_frame->m_onNotify = nullptr;
    EXPECT_EQ(m_combo->Text(), "of the parent");
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboHostile, AFilterThatReplacesItself)
{
    OpenFiltering();
    m_combo->SetFltrFunc(RunInFilter);
    g_inFilter = [&] { m_combo->SetFltrFunc(nullptr); };
    Type("q");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("Abc"));
    Type("r");
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboHostile, AFilterThatAsksForMoreEntriesThanThereCanBeLosesNothing)
{
    OpenFiltering();
    m_combo->SetFltrFunc(GiveLargest);
    support::ModalHelper box([] { return support::FindThreadWindow("#32770", nullptr); },
                             [](HWND window) { support::PressButton(window, IDOK); });
    Type("a");
    EXPECT_TRUE(support::PumpUntil([&] { return box.Done(); })) << "the framework tells the user";
    EXPECT_EQ(m_combo->Text(), "a");
    EXPECT_THAT(m_combo->Entries(), ElementsAreArray(kEntries));
}

TEST_F(TavComboHostile, AControlWithoutAFontCompletes)
{
    OpenFiltering();
    m_combo->SetFont(nullptr);
    Type("ab");
    EXPECT_EQ(m_combo->Text(), "Abc");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("Abc", "abd"));
    EXPECT_EQ(m_combo->m_widthCalls, 0);
}

TEST_F(TavComboHostile, AWindowMadeAnewInTheMiddleOfAnEditBeginsAnew)
{
    OpenFiltering();
    Type("a");
    ASSERT_FALSE(m_combo->m_Backup.IsEmpty());
    m_combo->DestroyWindow();
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
    EXPECT_EQ(m_combo->m_rcDropped.Height(), 0);
    ASSERT_TRUE(m_combo->Create(kEditable, kPlace, &*m_frame, kComboId));
    m_combo->AddString("other");
    m_combo->SetFocus();
    support::Settle();
    Type("o");
    EXPECT_THAT(m_combo->Entries(), ElementsAre("other"));
    EXPECT_EQ(m_combo->m_Backup.GetCount(), 1);
}

TEST_F(TavComboHostile, AWindowOfAnotherKindHasNoList)
{
    Open(kEntries);
    m_combo.reset();
    m_combo = std::make_unique<WatchedCombo>();
    ASSERT_TRUE(m_combo->SubclassWindow(::CreateWindowExA(0, "EDIT", "text", WS_CHILD | WS_VISIBLE, 20, 20, 200, 20,
                                                          *m_frame, nullptr, nullptr, nullptr)));
    m_combo->SetFont(&m_font);
    m_combo->BackupContents();
    EXPECT_TRUE(m_combo->m_Backup.IsEmpty());
    m_combo->AdjustDropppedWidth();
    m_combo->AdjustDroppedHeight(CRect(0, 0, 10, 10));
    m_combo->RestoreContents();
    m_combo->UpdateToolTip();
}

TEST_F(TavComboHostile, AControlTakenOverFromADialogCompletes)
{
    HWND const window = ::CreateWindowExA(0, "COMBOBOX", "", kEditable, 20, 20, 200, 200, *m_frame,
                                          reinterpret_cast<HMENU>(kComboId), nullptr, nullptr);
    m_combo = std::make_unique<WatchedCombo>();
    ASSERT_TRUE(m_combo->SubclassDlgItem(kComboId, &*m_frame));
    ASSERT_EQ(m_combo->m_hWnd, window);
    m_combo->AddString("Abc");
    m_combo->EnableAutoComplete(true, true);
    m_combo->SetFocus();
    support::Settle();
    Type("a");
    EXPECT_EQ(m_combo->Text(), "Abc");
    EXPECT_EQ(m_combo->Highlighted(), "bc");
}

} // namespace
