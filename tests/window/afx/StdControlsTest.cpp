#include "CountedTest.h"

#include <afxext.h>

using namespace colour;
using support::Settle;
using support::TestFrame;

namespace
{
using StdControlsTest = CountedTest;

constexpr UINT kId = 40;
constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;
const CRect kPlace(10, 10, 110, 40);

TEST_F(StdControlsTest, AStaticShowsItsTextWithTheDefaultId)
{
    TestFrame frame;
    CStatic label;
    ASSERT_TRUE(label.Create("caption", kChild | SS_NOTIFY, kPlace, &frame));
    CString text;
    label.GetWindowText(text);
    EXPECT_STREQ(text, "caption");
    EXPECT_EQ(label.GetDlgCtrlID() & 0xFFFF, 0xFFFF);
    char name[32] = "";
    ::GetClassNameA(label, name, sizeof name);
    EXPECT_STRCASEEQ(name, "static");
}

TEST_F(StdControlsTest, NoControlIsMadeWithoutAParent)
{
    CStatic label;
    CButton button;
    CEdit edit;
    CListBox list;
    CComboBox combo;
    CScrollBar bar;
    CWnd dead;
    EXPECT_FALSE(label.Create("", kChild, kPlace, nullptr));
    EXPECT_FALSE(button.Create("", kChild, kPlace, nullptr, kId));
    EXPECT_FALSE(edit.Create(kChild, kPlace, &dead, kId));
    EXPECT_FALSE(list.Create(kChild, kPlace, nullptr, kId));
    EXPECT_FALSE(combo.Create(kChild, kPlace, nullptr, kId));
    EXPECT_FALSE(bar.Create(kChild, kPlace, nullptr, kId));
    EXPECT_EQ(label.m_hWnd, nullptr);
}

TEST_F(StdControlsTest, AButtonKeepsItsCheckAndItsStyle)
{
    TestFrame frame;
    CButton button;
    ASSERT_TRUE(button.Create("check", kChild | BS_AUTO3STATE, kPlace, &frame, kId));
    EXPECT_EQ(button.GetCheck(), BST_UNCHECKED);
    button.SetCheck(BST_INDETERMINATE);
    EXPECT_EQ(button.GetCheck(), BST_INDETERMINATE);
    EXPECT_EQ(button.GetState() & 3, UINT(BST_INDETERMINATE));
    button.SetState(TRUE);
    EXPECT_NE(button.GetState() & BST_PUSHED, 0U);
    button.SetState(FALSE);
    EXPECT_EQ(button.GetState() & BST_PUSHED, 0U);
    EXPECT_EQ(button.GetButtonStyle(), UINT(BS_AUTO3STATE));
    button.SetButtonStyle(BS_PUSHBUTTON, FALSE);
    EXPECT_EQ(button.GetButtonStyle(), UINT(BS_PUSHBUTTON));
}

TEST_F(StdControlsTest, AClickedButtonNotifiesItsParent)
{
    TestFrame frame;
    CButton button;
    ASSERT_TRUE(button.Create("press", kChild | BS_PUSHBUTTON, kPlace, &frame, kId));
    Settle();
    support::Click(button);
    EXPECT_TRUE(support::PumpUntil([&] { return frame.CountCommand(kId, BN_CLICKED) == 1; }));
}

class DrawnButton : public CButton
{
public:
    int m_draws = 0;
    UINT m_id = 0;
    void DrawItem(LPDRAWITEMSTRUCT item) override
    {
        ++m_draws;
        m_id = item->CtlID;
        CDC::FromHandle(item->hDC)->FillSolidRect(&item->rcItem, kRed);
    }
};

TEST_F(StdControlsTest, AnOwnerDrawnButtonIsAskedToDrawItself)
{
    TestFrame frame;
    DrawnButton button;
    ASSERT_TRUE(button.Create("", kChild | BS_OWNERDRAW, kPlace, &frame, kId));
    Settle();
    EXPECT_GT(button.m_draws, 0);
    EXPECT_EQ(button.m_id, kId);
    EXPECT_EQ(support::ClientPixel(button, 50, 15), kRed);
}

TEST_F(StdControlsTest, TheBaseClassDrawsNothingForAnOwnerDrawnButton)
{
    TestFrame frame;
    CButton button;
    ASSERT_TRUE(button.Create("text", kChild | BS_OWNERDRAW, kPlace, &frame, kId));
    MemoryCanvas canvas;
    DRAWITEMSTRUCT item = {};
    item.hDC = canvas.dc;
    item.rcItem = CRect(0, 0, 20, 20);
    button.DrawItem(&item);
    EXPECT_EQ(canvas.At(10, 10), kWhite);
}

TEST_F(StdControlsTest, AnEditFieldSelectsAndReplaces)
{
    TestFrame frame;
    CEdit edit;
    ASSERT_TRUE(edit.Create(kChild | ES_AUTOHSCROLL, kPlace, &frame, kId));
    edit.SetWindowText("0123456789");
    edit.SetSel(2, 5);
    EXPECT_EQ(edit.GetSel(), DWORD(MAKELONG(2, 5)));
    edit.ReplaceSel("ab", TRUE);
    CString text;
    edit.GetWindowText(text);
    EXPECT_STREQ(text, "01ab56789");
    EXPECT_TRUE(edit.Undo());
    edit.GetWindowText(text);
    EXPECT_STREQ(text, "0123456789");
    edit.SetSel(0, -1);
    int start = -7;
    int end = -7;
    edit.GetSel(start, end);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 10);
    edit.SetSel(DWORD(MAKELONG(1, 3)));
    EXPECT_EQ(edit.GetSel(), DWORD(MAKELONG(1, 3)));
    edit.ReplaceSel(nullptr);
    edit.GetWindowText(text);
    EXPECT_STREQ(text, "03456789") << "a null text deletes the selection";
}

TEST_F(StdControlsTest, SelectionsPastTheSixteenBitsOfOneWordAreTold)
{
    TestFrame frame;
    CEdit edit;
    ASSERT_TRUE(edit.Create(kChild | ES_MULTILINE, kPlace, &frame, kId));
    edit.LimitText(0);
    CString text;
    while (text.GetLength() < 70000)
    {
        text += "a line of a long text\r\n";
    }
    edit.SetWindowText(text);
    edit.SetSel(66000, 69000, TRUE);
    int start = 0;
    int end = 0;
    edit.GetSel(start, end);
    EXPECT_EQ(start, 66000);
    EXPECT_EQ(end, 69000);
}

// Counts the request to scroll; what the control scrolls on its own differs between systems.
class ScrolledEdit : public CEdit
{
public:
    int m_scrolls = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_scrolls += message == EM_SCROLLCARET;
        return CEdit::WindowProc(message, wParam, lParam);
    }
};

TEST_F(StdControlsTest, SelectingScrollsTheCaretIntoViewUnlessToldNotTo)
{
    TestFrame frame;
    ScrolledEdit edit;
    ASSERT_TRUE(edit.Create(kChild | ES_MULTILINE | ES_AUTOVSCROLL, CRect(0, 0, 100, 40), &frame, kId));
    CString lines;
    for (int i = 0; i < 50; ++i)
    {
        lines += "line\r\n";
    }
    edit.SetWindowText(lines);
    edit.SetSel(lines.GetLength(), lines.GetLength(), TRUE);
    edit.SetSel(DWORD(0), TRUE);
    EXPECT_EQ(edit.m_scrolls, 0);
    edit.SetSel(DWORD(0));
    EXPECT_EQ(edit.m_scrolls, 1);
    edit.SetSel(lines.GetLength(), lines.GetLength());
    EXPECT_EQ(edit.m_scrolls, 2);
    EXPECT_GT(edit.SendMessage(EM_GETFIRSTVISIBLELINE), 0);
}

TEST_F(StdControlsTest, TheLimitHoldsForTypedText)
{
    TestFrame frame;
    CEdit edit;
    ASSERT_TRUE(edit.Create(kChild, kPlace, &frame, kId));
    edit.LimitText(3);
    edit.SetFocus();
    for (const char c : {'a', 'b', 'c', 'd', 'e'})
    {
        edit.SendMessage(WM_CHAR, c);
    }
    EXPECT_EQ(edit.GetWindowTextLength(), 3);
}

TEST_F(StdControlsTest, TextTravelsThroughTheClipboard)
{
    TestFrame frame;
    CEdit edit;
    ASSERT_TRUE(edit.Create(kChild, kPlace, &frame, kId));
    edit.SetWindowText("abcdef");
    edit.SetSel(0, 3);
    edit.Cut();
    CString text;
    edit.GetWindowText(text);
    EXPECT_STREQ(text, "def");
    edit.SetSel(3, 3);
    edit.Paste();
    edit.GetWindowText(text);
    EXPECT_STREQ(text, "defabc");
    edit.SetSel(0, 2);
    edit.Copy();
    edit.SetSel(6, 6);
    edit.Paste();
    edit.GetWindowText(text);
    EXPECT_STREQ(text, "defabcde");
}

TEST_F(StdControlsTest, AScrollBarMovesItsThumb)
{
    TestFrame frame;
    CScrollBar bar;
    ASSERT_TRUE(bar.Create(kChild | SBS_HORZ, kPlace, &frame, kId));
    ::SetScrollRange(bar, SB_CTL, 0, 50, FALSE);
    EXPECT_EQ(bar.SetScrollPos(20), 0);
    EXPECT_EQ(bar.SetScrollPos(99), 20);
    EXPECT_EQ(bar.GetScrollPos(), 50) << "held inside the range";
}

// Bitmap buttons

class OpenBitmapButton : public CBitmapButton
{
public:
    using CBitmapButton::m_bitmap;
    using CBitmapButton::m_bitmapDisabled;
    using CBitmapButton::m_bitmapFocus;
    using CBitmapButton::m_bitmapSel;
};

struct ButtonState
{
    UINT state;
    COLORREF expected;
};

TEST_F(StdControlsTest, TheBitmapFollowsTheStateOfTheButton)
{
    OpenBitmapButton button;
    ASSERT_TRUE(button.LoadBitmaps(kGreenBitmap, kRedBitmap, kWhiteBitmap, kBlueBitmap));
    for (const ButtonState& row :
         {ButtonState{0, kGreen}, ButtonState{ODS_SELECTED, kRed}, ButtonState{ODS_FOCUS, kWhite},
          ButtonState{ODS_DISABLED, kBlue}, ButtonState{ODS_SELECTED | ODS_FOCUS, kRed},
          ButtonState{ODS_FOCUS | ODS_DISABLED, kWhite}})
    {
        MemoryCanvas canvas(kMagenta);
        DRAWITEMSTRUCT item = {};
        item.hDC = canvas.dc;
        item.rcItem = CRect(3, 4, 5, 6);
        item.itemState = row.state;
        button.DrawItem(&item);
        EXPECT_EQ(canvas.At(3, 4), row.expected) << "state " << row.state;
        EXPECT_EQ(canvas.At(4, 5), row.expected) << "state " << row.state;
        EXPECT_EQ(canvas.At(2, 3), kMagenta);
    }
}

TEST_F(StdControlsTest, TheNormalBitmapStandsInForThoseThatAreNotThere)
{
    OpenBitmapButton button;
    ASSERT_TRUE(button.LoadBitmaps(kGreenBitmap));
    for (const UINT state : {0U, UINT(ODS_SELECTED), UINT(ODS_FOCUS), UINT(ODS_DISABLED)})
    {
        MemoryCanvas canvas(kMagenta);
        DRAWITEMSTRUCT item = {};
        item.hDC = canvas.dc;
        item.rcItem = CRect(0, 0, 2, 2);
        item.itemState = state;
        button.DrawItem(&item);
        EXPECT_EQ(canvas.At(0, 0), kGreen) << "state " << state;
    }
}

TEST_F(StdControlsTest, AMissingBitmapIsToldAndTheOthersStay)
{
    OpenBitmapButton button;
    EXPECT_FALSE(button.LoadBitmaps(kGreenBitmap, kMissingBitmap, kWhiteBitmap));
    EXPECT_NE(button.m_bitmap.m_hObject, nullptr);
    EXPECT_EQ(button.m_bitmapSel.m_hObject, nullptr);
    EXPECT_NE(button.m_bitmapFocus.m_hObject, nullptr);
    EXPECT_FALSE(button.LoadBitmaps(kMissingBitmap));
    EXPECT_EQ(button.m_bitmap.m_hObject, nullptr) << "those of before are gone";
    EXPECT_EQ(button.m_bitmapFocus.m_hObject, nullptr);
    MemoryCanvas canvas(kMagenta);
    DRAWITEMSTRUCT item = {};
    item.hDC = canvas.dc;
    item.rcItem = CRect(0, 0, 2, 2);
    button.DrawItem(&item);
    EXPECT_EQ(canvas.At(0, 0), kMagenta) << "without the normal bitmap nothing is drawn";
}

TEST_F(StdControlsTest, ABitmapButtonTakesTheSizeOfItsBitmap)
{
    TestFrame frame;
    CBitmapButton button;
    ASSERT_TRUE(button.Create("", kChild | BS_OWNERDRAW, kPlace, &frame, kId));
    button.SizeToContent();
    CRect rect;
    button.GetClientRect(&rect);
    EXPECT_EQ(rect.Size(), kPlace.Size()) << "no bitmap yet";
    ASSERT_TRUE(button.LoadBitmaps(kStripBitmap));
    button.SizeToContent();
    button.GetClientRect(&rect);
    EXPECT_EQ(rect.Size(), CSize(4, 2));
}

TEST_F(StdControlsTest, AutoLoadTakesTheBitmapsThatTheCaptionNames)
{
    TestFrame frame;
    const HWND window = ::CreateWindowExA(0, "BUTTON", "PIC", kChild | BS_OWNERDRAW, 10, 10, 50, 50, frame,
                                          reinterpret_cast<HMENU>(UINT_PTR(kId)), nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    OpenBitmapButton button;
    EXPECT_FALSE(button.AutoLoad(kId + 1, &frame)) << "no such control";
    ASSERT_TRUE(button.AutoLoad(kId, &frame)) << "the bitmaps for focused and disabled may be missing";
    EXPECT_EQ(button.m_hWnd, window);
    EXPECT_NE(button.m_bitmapSel.m_hObject, nullptr);
    EXPECT_EQ(button.m_bitmapDisabled.m_hObject, nullptr);
    CRect rect;
    button.GetClientRect(&rect);
    EXPECT_EQ(rect.Size(), CSize(2, 2));
}
} // namespace
