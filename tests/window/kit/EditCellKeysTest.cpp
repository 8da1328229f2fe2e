// EditCellKeysTest.cpp - editing in place: the keys of the box, in a list and in a dialog

#include "EditCellFixture.h"

#include "../layoutproc/LayoutProc.h"

#include <array>

namespace
{

using flex_test::Begun;
using flex_test::EditCell;
using flex_test::Ended;
using flex_test::kEditorId;
using flex_test::kListId;
using flex_test::kListStyle;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(EditCell, EditsTheRowAboveAtUpAndTheNextRowAtDown)
{
    Edit(2, 1);
    Type("changed");
    Key(VK_UP);
    ExpectOpenAt(1, 1);
    EXPECT_THAT(Labels(), ElementsAre(Begun(1, 1), Ended(2, 1, "changed"))) << "the next opens before the old ends";
    EXPECT_EQ(Text(2, 1), "changed");
    Key(VK_DOWN);
    Key(VK_DOWN);
    ExpectOpenAt(3, 1);
}

TEST_F(EditCell, StaysAtUpInTheFirstRowAndAtDownInTheLast)
{
    Edit(0, 1);
    Key(VK_UP);
    ExpectOpenAt(0, 1);
    Edit(4, 1);
    Type("kept");
    Key(VK_DOWN);
    EXPECT_THAT(Labels(), IsEmpty());
    EXPECT_EQ(EditorText(), "kept");
    Key(VK_ESCAPE);
    EXPECT_EQ(Text(4, 1), "4.1");
}

TEST_F(EditCell, EditsTheLastRowAtCtrlEndAndTheFirstAtCtrlHome)
{
    Edit(2, 1);
    Key(VK_END, {VK_CONTROL});
    ExpectOpenAt(4, 1);
    Key(VK_HOME, {VK_CONTROL});
    ExpectOpenAt(0, 1);
    EXPECT_THAT(Labels(), ElementsAre(Begun(4, 1), Ended(2, 1, "2.1"), Begun(0, 1), Ended(4, 1, "4.1")));
}

TEST_F(EditCell, MovesTheCaretAtHomeEndLeftAndRight)
{
    Edit(2, 1);
    Key(VK_END);
    EXPECT_EQ(::SendMessage(Editor(), EM_GETSEL, 0, 0), MAKELRESULT(3, 3));
    Key(VK_HOME);
    EXPECT_EQ(::SendMessage(Editor(), EM_GETSEL, 0, 0), MAKELRESULT(0, 0));
    Key(VK_RIGHT);
    EXPECT_EQ(::SendMessage(Editor(), EM_GETSEL, 0, 0), MAKELRESULT(1, 1));
    Key(VK_LEFT);
    EXPECT_EQ(::SendMessage(Editor(), EM_GETSEL, 0, 0), MAKELRESULT(0, 0));
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_F(EditCell, DeletesCharactersAtDeleteAndBackspace)
{
    Edit(2, 1);
    Key(VK_HOME);
    Key(VK_DELETE);
    EXPECT_EQ(EditorText(), ".1");
    Key(VK_END);
    Key(VK_BACK);
    EXPECT_EQ(EditorText(), ".");
}

class EditCellPages : public EditCell
{
protected:
    void SetUp() override
    {
        EditCell::SetUp();
        m_list->DeleteAllItems();
        AddNumberedRows(40, 3);
        m_page = m_list->GetCountPerPage();
        ASSERT_GT(m_page, 3);
        ASSERT_LT(m_page, 20);
    }

    void ExpectEditing(int row, int col) const
    {
        ASSERT_NE(Editor(), nullptr);
        EXPECT_EQ(EditorText(), Text(row, col));
    }

    int m_page = 0;
};

TEST_F(EditCellPages, GoByAPageWhenAPageKeyIsReleased)
{
    Edit(2, 1);
    support::KeyDown(VK_NEXT);
    support::Settle();
    ExpectEditing(2, 1);
    support::KeyUp(VK_NEXT);
    support::Settle();
    ExpectEditing(2 + m_page, 1);
    support::KeyDown(VK_PRIOR);
    support::Settle();
    ExpectEditing(2 + m_page, 1);
    support::KeyUp(VK_PRIOR);
    support::Settle();
    ExpectEditing(2, 1);
}

TEST_F(EditCellPages, StopAtTheFirstAndAtTheLastRow)
{
    Edit(2, 1);
    Key(VK_PRIOR);
    ExpectEditing(0, 1);
    Edit(38, 1);
    Key(VK_NEXT);
    ExpectEditing(39, 1);
}

TEST_F(EditCell, GoesRightAtTabUpToColumnTwoAndOnToTheNextRow)
{
    Edit(1, 0);
    Key(VK_TAB);
    ExpectOpenAt(1, 1);
    Key(VK_TAB);
    ExpectOpenAt(1, 2);
    Key(VK_TAB);
    ExpectOpenAt(2, 0);
}

TEST_F(EditCell, GoesFromColumnTwoOfFiveToTheNextRow)
{
    m_list->RmvAllCol();
    AddColumns(5, true);
    Edit(1, 2);
    Key(VK_TAB);
    ExpectOpenAt(2, 0);
    Edit(1, 4);
    Key(VK_TAB);
    ExpectOpenAt(2, 0);
}

TEST_F(EditCell, GoesLeftAtShiftTabAndBackToColumnTwoOfTheRowAbove)
{
    Edit(1, 1);
    Key(VK_TAB, {VK_SHIFT});
    ExpectOpenAt(1, 0);
    Key(VK_TAB, {VK_SHIFT});
    ExpectOpenAt(0, 2);
}

TEST_F(EditCell, StaysAtShiftTabInTheFirstCellAndAtTabInTheLast)
{
    Edit(0, 0);
    Key(VK_TAB, {VK_SHIFT});
    ExpectOpenAt(0, 0);
    EXPECT_THAT(Labels(), IsEmpty());
    Edit(4, 2);
    Key(VK_TAB);
    ExpectOpenAt(4, 2);
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_F(EditCell, PassesOverColumnsThatAreNotEditableAtTab)
{
    m_list->SetColType(1, adiString, false);
    Edit(1, 0);
    Key(VK_TAB);
    ExpectOpenAt(1, 2);
}

TEST_F(EditCell, WantsArrowsAndTabBesidesWhatAnEditWants)
{
    Edit(1, 1);
    LRESULT const code = ::SendMessage(Editor(), WM_GETDLGCODE, 0, 0);
    EXPECT_EQ(code & (DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS),
              DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_WANTCHARS);
}

TEST_F(EditCell, TakesKeysForItselfBeforeADialogSeesThem)
{
    Edit(1, 1);
    CWnd* const box = CWnd::FromHandlePermanent(Editor());
    std::array<BYTE, 256> before{};
    ::GetKeyboardState(before.data());
    std::array<BYTE, 256> keys = before;
    MSG msg{};
    msg.hwnd = box->m_hWnd;
    auto const takes = [&](UINT message, WPARAM key) {
        msg.message = message;
        msg.wParam = key;
        return box->PreTranslateMessage(&msg) != FALSE;
    };
    keys[VK_CONTROL] = 0;
    ::SetKeyboardState(keys.data());
    EXPECT_TRUE(takes(WM_KEYDOWN, VK_DELETE));
    EXPECT_FALSE(takes(WM_KEYDOWN, 'A'));
    EXPECT_FALSE(takes(WM_KEYDOWN, VK_NEXT));
    EXPECT_FALSE(takes(WM_KEYUP, VK_DELETE));
    EXPECT_FALSE(takes(WM_CHAR, VK_TAB));
    keys[VK_CONTROL] = 1; // not down, but pressed an odd number of times
    ::SetKeyboardState(keys.data());
    EXPECT_TRUE(takes(WM_KEYDOWN, VK_F5));
    keys[VK_CONTROL] = 0x80;
    ::SetKeyboardState(keys.data());
    EXPECT_TRUE(takes(WM_KEYDOWN, VK_F5));
    EXPECT_FALSE(takes(WM_KEYUP, VK_F5));
    ::SetKeyboardState(before.data());
}

// In a dialog, whose own keys are Tab, Enter and Escape

class ListDialog : public CDialog
{
public:
    int m_ends = 0;

protected:
    void OnOK() override { ++m_ends; }
    void OnCancel() override { ++m_ends; }
};

TEST_F(EditCell, KeepsItsKeysFromTheDialogAroundTheList)
{
    ListDialog dialog;
    ASSERT_TRUE(dialog.Create(IDD_LAYOUT, m_frame.get()));
    dialog.ShowWindow(SW_SHOW);
    CListCtrlFlex list;
    ASSERT_TRUE(list.Create(kListStyle | WS_TABSTOP, CRect(0, 0, 200, 100), &dialog, kListId));
    list.InsertColumn(0, adiString, "a", true, 0, 80, 0);
    list.InsertColumn(1, adiString, "b", true, 0, 80, 1);
    list.InsertItem(0, "one", 0, nullptr, 0, 0xFFFFFF, 0);
    list.InsertItem(1, "two", 0, nullptr, 0, 0xFFFFFF, 0);
    list.OnEdit(0, 0, false);
    support::Settle();
    auto const editorText = [&] {
        char text[64] = "";
        ::GetWindowTextA(::GetDlgItem(list.m_hWnd, kEditorId), text, sizeof text);
        return std::string(text);
    };
    Type("1st");
    Key(VK_DOWN);
    EXPECT_EQ(editorText(), "two");
    Key(VK_UP);
    EXPECT_EQ(editorText(), "1st");
    Key(VK_TAB);
    Type("right");
    Key(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(editorText(), "1st");
    Key(VK_RETURN);
    EXPECT_EQ(::GetDlgItem(list.m_hWnd, kEditorId), nullptr);
    list.OnEdit(1, 0, false);
    support::Settle();
    Key(VK_DELETE);
    EXPECT_EQ(editorText(), "");
    Key(VK_ESCAPE);
    EXPECT_EQ(::GetDlgItem(list.m_hWnd, kEditorId), nullptr);
    EXPECT_EQ(dialog.m_ends, 0);
    EXPECT_STREQ(list.GetItemText(0, 0), "1st");
    EXPECT_STREQ(list.GetItemText(0, 1), "right");
    EXPECT_STREQ(list.GetItemText(1, 0), "two");
    list.DestroyWindow();
    dialog.DestroyWindow();
}

TEST_F(EditCell, StaysWithoutRowsAtEveryKey)
{
    Edit(0, 1);
    m_list->DeleteAllItems();
    for (WORD const key : {WORD{VK_DOWN}, WORD{VK_UP}, WORD{VK_NEXT}, WORD{VK_PRIOR}, WORD{VK_TAB}})
    {
        Key(key);
    }
    Key(VK_END, {VK_CONTROL});
    Key(VK_HOME, {VK_CONTROL});
    EXPECT_NE(Editor(), nullptr);
    EXPECT_THAT(Labels(), IsEmpty());
    Key(VK_RETURN);
    ExpectClosed();
}

} // namespace
