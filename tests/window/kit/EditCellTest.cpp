// EditCellTest.cpp - editing in place: real double clicks and keys in a real list, and what its parent is told

#include "FlexFixture.h"

#include "../layoutproc/LayoutProc.h"

#include <algorithm>
#include <array>

namespace
{

using flex_test::Begun;
using flex_test::Cancelled;
using flex_test::Ended;
using flex_test::kListId;
using flex_test::kListStyle;
using flex_test::Label;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT kEditorId = 1001;

class EditCell : public flex_test::FlexTest
{
protected:
    void SetUp() override
    {
        FlexTest::SetUp();
        AddColumns(3, true);
        AddNumberedRows(5, 3);
        m_list->SetFocus();
        support::Settle();
    }

    // Opens the box over a cell and forgets what led there.
    void Edit(int row, int col)
    {
        m_list->OnEdit(row, col, false);
        support::Settle();
        ASSERT_EQ(EditorText(), Text(row, col));
        m_frame->m_labels.clear();
    }

    // The box is open over that cell, whose text it shows.
    void ExpectOpenAt(int row, int col) const
    {
        ASSERT_NE(Editor(), nullptr);
        EXPECT_EQ(::GetFocus(), Editor());
        EXPECT_EQ(EditorText(), Text(row, col));
        CRect label;
        ASSERT_TRUE(m_list->GetSubItemRect(row, col, LVIR_LABEL, label));
        EXPECT_EQ(EditorPlace(), label);
    }

    void ExpectClosed() const
    {
        EXPECT_EQ(Editor(), nullptr);
        EXPECT_EQ(::GetFocus(), m_list->m_hWnd);
    }

    [[nodiscard]] CRect EditorPlace() const
    {
        CRect place;
        ::GetWindowRect(Editor(), place);
        m_list->ScreenToClient(place);
        return place;
    }

    [[nodiscard]] std::vector<Label> const& Labels() const { return m_frame->m_labels; }
};

// Opening

TEST_F(EditCell, OpensOverTheLabelWithAllTextSelectedAndTheFocus)
{
    m_list->OnEdit(1, 2, false);
    support::Settle();
    ExpectOpenAt(1, 2);
    HWND const box = Editor();
    char name[16] = "";
    ::GetClassNameA(box, name, sizeof name);
    EXPECT_STREQ(name, "Edit");
    EXPECT_EQ(::GetParent(box), m_list->m_hWnd);
    EXPECT_EQ(::GetWindowLongPtr(box, GWL_STYLE), 0x54010080);
    EXPECT_EQ(::SendMessage(box, WM_GETFONT, 0, 0), m_list->SendMessage(WM_GETFONT));
    EXPECT_EQ(::SendMessage(box, EM_GETSEL, 0, 0), MAKELRESULT(0, 3));
    EXPECT_NE(dynamic_cast<CListCtrlFlex::CEditCell*>(CWnd::FromHandlePermanent(box)), nullptr);
}

TEST_F(EditCell, AsksTheParentFirst)
{
    m_list->OnEdit(1, 2, false);
    EXPECT_THAT(Labels(), ElementsAre(Begun(1, 2)));
    EXPECT_EQ(m_frame->m_lastLabel.hdr.hwndFrom, m_list->m_hWnd);
    EXPECT_EQ(m_frame->m_lastLabel.hdr.idFrom, kListId);
    EXPECT_EQ(m_frame->m_lastLabel.item.mask, 0U);
    EXPECT_EQ(m_frame->m_lastLabel.item.pszText, nullptr);
}

// A parent with a number of its own.
class Pane : public CWnd
{
public:
    WPARAM m_number = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == static_cast<UINT>(LVN_BEGINLABELEDIT))
        {
            m_number = wParam;
            return 1;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

TEST_F(EditCell, AsksWithTheParentsOwnNumber)
{
    Pane pane;
    ASSERT_TRUE(pane.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 220, 300, 320), m_frame.get(), 321));
    CListCtrlFlex list;
    ASSERT_TRUE(list.Create(kListStyle, CRect(0, 0, 300, 100), &pane, kListId));
    list.InsertColumn(0, adiString, "a", true, 0, 100, 0);
    list.InsertItem(0, "x", 0, nullptr, 0, 0xFFFFFF, 0);
    list.OnEdit(0, 0, false);
    EXPECT_EQ(pane.m_number, 321U);
    list.DestroyWindow();
    pane.DestroyWindow();
}

TEST_F(EditCell, StaysClosedWhenTheParentRefuses)
{
    m_frame->m_onLabel = [](NMLVDISPINFO&) { return LRESULT{1}; };
    m_list->OnEdit(1, 2, false);
    m_list->OnEdit(1, 2, true);
    support::Settle();
    ExpectClosed();
    EXPECT_THAT(Labels(), ElementsAre(Begun(1, 2), Begun(1, 2)));
}

TEST_F(EditCell, LeavesTheOpenBoxWhenTheParentRefusesTheNext)
{
    Edit(1, 1);
    m_frame->m_onLabel = [](NMLVDISPINFO&) { return LRESULT{1}; };
    Key(VK_DOWN);
    ExpectOpenAt(1, 1);
    EXPECT_THAT(Labels(), ElementsAre(Begun(2, 1)));
    m_frame->m_onLabel = nullptr;
}

TEST_F(EditCell, DoesNotOpenOverACellThatDoesNotExist)
{
    for (auto const& [row, col] : {std::pair{-1, 0}, {5, 0}, {99, 1}, {0, -1}, {0, 3}, {-1, -1}})
    {
        m_list->OnEdit(row, col, false);
        support::Settle();
        EXPECT_EQ(Editor(), nullptr) << row << ", " << col;
    }
    m_list->OnEdit(5, 0, true);
    m_list->OnEdit(-7, 0, true);
    support::Settle();
    ExpectClosed();
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_F(EditCell, OpensOverTheNamedCellThoughItsColumnIsNotEditable)
{
    m_list->SetColType(1, adiString, false);
    m_list->OnEdit(2, 1, false);
    support::Settle();
    ExpectOpenAt(2, 1);
}

TEST_F(EditCell, LooksForTheNextEditableColumnInTheRowAndThenFromTheNextRowsStart)
{
    m_list->SetColType(0, adiString, false);
    m_list->SetColType(2, adiString, false);
    m_list->OnEdit(2, 0, true);
    support::Settle();
    ExpectOpenAt(2, 1);
    m_list->OnEdit(2, 2, true);
    support::Settle();
    ExpectOpenAt(3, 1);
    m_frame->m_labels.clear();
    m_list->OnEdit(4, 2, true);
    support::Settle();
    ExpectOpenAt(3, 1);
    EXPECT_THAT(Labels(), IsEmpty()) << "the rows ran out";
}

TEST_F(EditCell, LooksForNothingWhenNoColumnIsEditable)
{
    for (int col = 0; col < 3; ++col)
    {
        m_list->SetColType(col, adiString, false);
    }
    m_list->OnEdit(0, 0, true);
    support::Settle();
    ExpectClosed();
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_F(EditCell, GrowsTheTableOfColumnsByAskingForOne)
{
    EXPECT_EQ(m_list->GetColType(6), adiString);
    m_list->OnEdit(0, 6, false);
    EXPECT_EQ(m_list->GetColType(6), adiNone);
    EXPECT_EQ(m_list->GetColType(7), adiString);
}

// The mouse

TEST_F(EditCell, OpensAtADoubleClickOnAnEditableColumn)
{
    m_list->SetColType(0, adiString, false);
    LRESULT seen = -1;
    m_frame->m_onNotify = [&](NMHDR& header) { seen = header.code == static_cast<UINT>(NM_DBLCLK) ? 1 : seen; };
    support::DoubleClick(CellPoint(2, 1));
    support::Settle();
    ExpectOpenAt(2, 1);
    EXPECT_THAT(Labels(), ElementsAre(Begun(2, 1)));
    EXPECT_EQ(m_list->GetItemState(2, LVIS_SELECTED | LVIS_FOCUSED), 0U);
    EXPECT_EQ(seen, 1) << "the parent hears of it too";
}

TEST_F(EditCell, SelectsTheRowAtADoubleClickOnAColumnThatIsNotEditable)
{
    m_list->SetColType(1, adiString, false);
    support::DoubleClick(CellPoint(2, 1));
    support::Settle();
    ExpectClosed();
    EXPECT_THAT(Labels(), IsEmpty());
    EXPECT_EQ(m_list->GetItemState(2, LVIS_SELECTED), UINT{LVIS_SELECTED});
    EXPECT_EQ(m_list->GetSelectedCount(), 1U);
}

// Tells the parent of a double click at a point of the list.
void SendDoubleClick(CWnd& list, CWnd& parent, POINT point)
{
    NMITEMACTIVATE click{};
    click.hdr = {list.m_hWnd, kListId, static_cast<UINT>(NM_DBLCLK)};
    click.ptAction = point;
    parent.SendMessage(WM_NOTIFY, kListId, reinterpret_cast<LPARAM>(&click));
}

TEST_F(EditCell, SelectsAllRowsAtADoubleClickOutsideOfAll)
{
    for (int col = 0; col < 3; ++col)
    {
        m_list->SetColType(col, adiString, false);
    }
    SendDoubleClick(*m_list, *m_frame, {450, 150});
    EXPECT_EQ(m_list->GetSelectedCount(), 5U) << "row -1 stands for all";
}

TEST_F(EditCell, AnswersADoubleClickByWhetherItOpens)
{
    m_list->SetColType(0, adiString, false);
    POINT cell = CellPoint(2, 1);
    m_list->ScreenToClient(&cell);
    SendDoubleClick(*m_list, *m_frame, cell);
    EXPECT_EQ(m_frame->m_result, 1);
    cell = CellPoint(2, 0);
    m_list->ScreenToClient(&cell);
    SendDoubleClick(*m_list, *m_frame, cell);
    EXPECT_EQ(m_frame->m_result, 0);
}

TEST_F(EditCell, OpensNowhereAtADoubleClickOutsideOfAllRows)
{
    SendDoubleClick(*m_list, *m_frame, {50, 150});
    support::Settle();
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_F(EditCell, ShowsABeamOverEditableCellsAndAnArrowOverOthers)
{
    m_list->SetColType(0, adiString, false);
    HCURSOR const beam = ::LoadCursor(nullptr, IDC_IBEAM);
    HCURSOR const arrow = ::LoadCursor(nullptr, IDC_ARROW);
    support::MoveMouse(CellPoint(1, 1));
    support::Settle();
    EXPECT_EQ(::GetCursor(), beam);
    support::MoveMouse(CellPoint(1, 0));
    support::Settle();
    EXPECT_EQ(::GetCursor(), arrow);
    support::MoveMouse(CellPoint(3, 2));
    support::Settle();
    EXPECT_EQ(::GetCursor(), beam);
    EXPECT_EQ(
        m_list->SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_list->m_hWnd), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)),
        1);
    m_list->SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_list->m_hWnd), MAKELPARAM(HTVSCROLL, WM_MOUSEMOVE));
    EXPECT_EQ(::GetCursor(), arrow) << "not in the client area";
}

TEST_F(EditCell, LeavesTheCursorToTheFrameworkBesideTheColumns)
{
    support::MoveMouse(CellPoint(1, 1));
    support::Settle();
    support::MoveMouse(support::ScreenPoint(m_list->m_hWnd, 400, 150));
    support::Settle();
    EXPECT_EQ(::GetCursor(), ::LoadCursor(nullptr, IDC_ARROW));
    EXPECT_EQ(
        m_list->SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_list->m_hWnd), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)),
        0);
}

// Ending

TEST_F(EditCell, CommitsAtEnterTwiceAndGivesTheFocusBack)
{
    Edit(1, 1);
    Type("new");
    EXPECT_EQ(EditorText(), "new") << "all was selected";
    std::vector<std::string> cells;
    m_frame->m_onNotify = [&](NMHDR& header) {
        if (header.code == static_cast<UINT>(LVN_ENDLABELEDIT))
        {
            cells.push_back(Text(1, 1));
        }
    };
    Key(VK_RETURN);
    ExpectClosed();
    EXPECT_THAT(Labels(), ElementsAre(Ended(1, 1, "new"), Ended(1, 1, "new")));
    EXPECT_THAT(cells, ElementsAre("new", "new")) << "the parent is told when the cell has the text";
    EXPECT_EQ(Text(1, 1), "new");
}

TEST_F(EditCell, TellsTheEndWithItsOwnNumberUnderTheListsName)
{
    Edit(1, 1);
    Type("four");
    m_list->SetFocus();
    EXPECT_EQ(m_frame->m_lastLabel.hdr.hwndFrom, m_list->m_hWnd);
    EXPECT_EQ(m_frame->m_lastLabel.hdr.idFrom, kEditorId);
    EXPECT_EQ(m_frame->m_lastLabel.item.mask, UINT{LVIF_TEXT});
    EXPECT_EQ(m_frame->m_lastLabel.item.cchTextMax, 4);
    EXPECT_EQ(m_frame->m_lastLabelWParam, kListId);
}

TEST_F(EditCell, CancelsAtEscapeOnce)
{
    Edit(1, 1);
    Type("new");
    Key(VK_ESCAPE);
    ExpectClosed();
    EXPECT_THAT(Labels(), ElementsAre(Cancelled(1, 1)));
    EXPECT_EQ(m_frame->m_lastLabel.item.mask, UINT{LVIF_TEXT});
    EXPECT_EQ(m_frame->m_lastLabel.hdr.idFrom, kEditorId);
    EXPECT_EQ(Text(1, 1), "1.1");
}

TEST_F(EditCell, CommitsOnceWhenItLosesTheFocus)
{
    Edit(1, 1);
    Type("new");
    support::Click(support::ScreenPoint(m_list->m_hWnd, 400, 150));
    support::Settle();
    ExpectClosed();
    EXPECT_THAT(Labels(), ElementsAre(Ended(1, 1, "new")));
    EXPECT_EQ(Text(1, 1), "new");
}

TEST_F(EditCell, AnswersEveryEndWithOneAndWritesNoNullTextAndNoRowOfMinusOne)
{
    char text[] = "told";
    NMLVDISPINFO info{};
    info.hdr = {m_list->m_hWnd, kListId, static_cast<UINT>(LVN_ENDLABELEDIT)};
    info.item.iItem = 2;
    info.item.iSubItem = 1;
    auto const send = [&] {
        m_frame->m_result = -1;
        m_frame->SendMessage(WM_NOTIFY, kListId, reinterpret_cast<LPARAM>(&info));
        EXPECT_EQ(m_frame->m_result, 1);
    };
    send();
    EXPECT_EQ(Text(2, 1), "2.1");
    info.item.pszText = text;
    info.item.iItem = -1;
    send();
    EXPECT_EQ(Column(1), (std::vector<std::string>{"0.1", "1.1", "2.1", "3.1", "4.1"}));
    info.item.iItem = 2;
    send();
    EXPECT_EQ(Text(2, 1), "told");
    info.item.iItem = 99;
    send();
    m_list->SetColType(1, adiInt, true);
    info.item.iItem = 3;
    send();
    EXPECT_EQ(Text(3, 1), "told") << "the type isn't checked";
}

// Keys

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

// The box's width

TEST_F(EditCell, GrowsWithItsTextByFivePixelsMoreThanTheText)
{
    Edit(1, 1);
    CRect const before = EditorPlace();
    Type("WWWW");
    EXPECT_EQ(EditorPlace(), before) << "there is room";
    Type(std::string(12, 'W'));
    CRect const grown = EditorPlace();
    CClientDC dc(m_list.get());
    int width = 0;
    {
        SelectScope const font(dc, *m_list->GetFont());
        width = dc.GetTextExtent("WWWWWWWWWWWWWWWW", 16).cx;
    }
    EXPECT_EQ(grown, CRect(before.left, before.top, before.left + width + 5, before.bottom));
    Key(VK_BACK);
    EXPECT_EQ(EditorPlace(), grown) << "it never shrinks";
}

TEST_F(EditCell, GrowsUpToTheListsEdge)
{
    Edit(1, 2);
    Type(std::string(100, 'W'));
    CRect client;
    m_list->GetClientRect(client);
    EXPECT_EQ(EditorPlace().right, client.right);
}

// Parents that do the worst

enum class Blow
{
    Window,
    Object
};

class EditCellParent : public EditCell, public testing::WithParamInterface<Blow>
{
protected:
    // At the notification given, counted from 1, the parent does away with the list.
    void DestroyAt(UINT code, int count = 1)
    {
        m_countdown = count;
        m_frame->m_onLabel = [this, code](NMLVDISPINFO& info) {
            if (info.hdr.code == code && --m_countdown == 0)
            {
                m_frame->m_onLabel = nullptr;
                if (GetParam() == Blow::Object)
                {
                    m_list.reset();
                }
                else
                {
                    m_list->DestroyWindow();
                }
            }
            return LRESULT{0};
        };
    }

    void ExpectGone() const
    {
        support::Settle();
        EXPECT_TRUE(m_list == nullptr || m_list->m_hWnd == nullptr);
    }

    int m_countdown = 0;
};

TEST_P(EditCellParent, MayDestroyTheListWhenItIsAsked)
{
    DestroyAt(static_cast<UINT>(LVN_BEGINLABELEDIT));
    CListCtrlFlex* const list = m_list.get();
    list->OnEdit(1, 1, true);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListAtADoubleClick)
{
    DestroyAt(static_cast<UINT>(LVN_BEGINLABELEDIT));
    support::DoubleClick(CellPoint(1, 1));
    ExpectGone();
}

// Leaves nothing sensible behind in its memory, so that no use of it goes unnoticed.
class SpoiledList : public CListCtrlFlex
{
public:
    using CListCtrlFlex::OnDblClick;

    static void operator delete(void* memory, std::size_t size)
    {
        std::fill_n(static_cast<unsigned char volatile*>(memory), size, kSpoilt);
        CListCtrlFlex::operator delete(memory);
    }

private:
    static constexpr unsigned char kSpoilt = 0x7F; // no pointer is made of it
};

TEST_P(EditCellParent, MayDestroyTheListWhenADoubleClickTakesTheSelection)
{
    auto spoiled = std::make_unique<SpoiledList>();
    SpoiledList* const list = spoiled.get();
    m_list = std::move(spoiled);
    ASSERT_TRUE(m_list->Create(kListStyle, flex_test::kListPlace, m_frame.get(), kListId));
    AddColumns(3, true);
    AddNumberedRows(3, 3);
    m_list->SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    NMITEMACTIVATE click{};
    click.ptAction = CellPoint(1, 1);
    m_list->ScreenToClient(&click.ptAction);
    m_frame->m_onNotify = [this](NMHDR& header) {
        if (header.code != static_cast<UINT>(LVN_ITEMCHANGED))
        {
            return;
        }
        if (GetParam() == Blow::Object)
        {
            m_list.reset();
        }
        else
        {
            m_list->DestroyWindow();
        }
    };
    LRESULT result = 0;
    list->OnDblClick(&click.hdr, &result); // not by a message: a window procedure may swallow the fault
    m_frame->m_onNotify = nullptr;
    ExpectGone();
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_P(EditCellParent, MayDestroyTheListAtTheFirstEndOfEnter)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT));
    Key(VK_RETURN);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListAtTheSecondEndOfEnter)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT), 2);
    Key(VK_RETURN);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListAtEscape)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT));
    Key(VK_ESCAPE);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListWhenTheBoxLosesTheFocus)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT));
    m_frame->SetFocus();
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListWhenTheNextBoxIsAskedFor)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_BEGINLABELEDIT));
    Key(VK_DOWN);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListWhileTheNextBoxOpens)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT));
    Key(VK_TAB);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListBeforeItIsSorted)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT));
    CListCtrlFlex* const list = m_list.get();
    list->Sort(0, true);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListWhileTheBoxIsOpen)
{
    Edit(1, 1);
    Type("lost");
    if (GetParam() == Blow::Object)
    {
        m_list.reset();
    }
    else
    {
        m_list->DestroyWindow();
    }
    ExpectGone();
}

INSTANTIATE_TEST_SUITE_P(, EditCellParent, testing::Values(Blow::Window, Blow::Object),
                         [](auto const& info) { return info.param == Blow::Window ? "Window" : "Object"; });

TEST_F(EditCell, MayLoseTheFocusWhileItCommits)
{
    Edit(1, 1);
    Type("new");
    m_frame->m_onLabel = [&](NMLVDISPINFO&) {
        m_frame->SetFocus(); // as a message box would
        return LRESULT{0};
    };
    Key(VK_RETURN);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_THAT(Labels(), ElementsAre(Ended(1, 1, "new"))) << "the box was gone before its second end";
    EXPECT_EQ(Text(1, 1), "new");
    m_frame->m_onLabel = nullptr;
}

TEST_F(EditCell, EndsOnceWhenTheParentShowsAMessageBox)
{
    Edit(1, 1);
    Type("new");
    support::ModalHelper box("Objection", [](HWND dialog) { support::PressButton(dialog, IDOK); });
    m_frame->m_onLabel = [&](NMLVDISPINFO&) {
        m_frame->m_onLabel = nullptr;
        ::MessageBoxA(m_frame->m_hWnd, "Not this text", "Objection", MB_OK);
        return LRESULT{0};
    };
    Key(VK_RETURN);
    EXPECT_TRUE(box.Done());
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(Text(1, 1), "new");
}

TEST_F(EditCell, MayHaveItsRowDeletedWhileItCommits)
{
    Edit(4, 1);
    m_frame->m_onLabel = [&](NMLVDISPINFO&) {
        m_list->DeleteItem(4);
        return LRESULT{0};
    };
    Key(VK_RETURN);
    ExpectClosed();
    EXPECT_EQ(m_list->GetItemCount(), 4);
    m_frame->m_onLabel = nullptr;
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

TEST_F(EditCell, CommitsToItsRowBeforeTheListIsSorted)
{
    Edit(0, 0);
    Type("9");
    ClickHeader(0);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_THAT(Column(), ElementsAre("1.0", "2.0", "3.0", "4.0", "9"));
    EXPECT_EQ(Text(4, 1), "0.1") << "the row that was edited";
    EXPECT_THAT(Labels(), ElementsAre(Ended(0, 0, "9")));
}

} // namespace
