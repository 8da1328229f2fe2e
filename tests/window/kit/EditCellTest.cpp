// EditCellTest.cpp - editing in place: how the box opens, ends and grows in a real list

#include "EditCellFixture.h"

namespace
{

using flex_test::Begun;
using flex_test::Cancelled;
using flex_test::EditCell;
using flex_test::Ended;
using flex_test::kEditorId;
using flex_test::kListId;
using flex_test::kListStyle;
using testing::ElementsAre;
using testing::IsEmpty;

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

} // namespace
