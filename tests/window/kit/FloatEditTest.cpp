// FloatEditTest.cpp - numeric entry: real typing, real pastes

#include "ImportHook.h"

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace
{

constexpr UINT kSimpleBeep = 0xFFFFFFFF;

std::vector<UINT>* g_beeps = nullptr;

BOOL WINAPI RecordBeep(UINT type)
{
    g_beeps->push_back(type);
    return ::MessageBeep(type);
}

// The control, and what reached its default handling.
class WatchedEdit : public CFloatEdit
{
public:
    std::vector<WPARAM> m_chars;
    int m_copies = 0;
    int m_pastes = 0;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_CHAR)
        {
            m_chars.push_back(wParam);
        }
        m_copies += message == WM_COPY;
        m_pastes += message == WM_PASTE;
        return CFloatEdit::DefWindowProc(message, wParam, lParam);
    }
};

class FloatEdit : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        g_beeps = &m_beeps;
        m_hook.emplace("TavKit.dll", "user32.dll", "MessageBeep", reinterpret_cast<void*>(RecordBeep));
        m_frame.emplace();
        Open(0);
    }

    void TearDown() override
    {
        m_edit.reset();
        m_frame.reset();
        m_hook.reset();
        g_beeps = nullptr;
        ClearClipboard();
        WindowTest::TearDown();
    }

    // A control of its own style in place of the present one.
    void Open(DWORD style)
    {
        m_edit = std::make_unique<WatchedEdit>();
        ASSERT_TRUE(m_edit->Create(WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL | style, CRect(20, 20, 320, 80),
                                   &*m_frame, 1));
        m_edit->SetFocus();
        ASSERT_TRUE(support::PumpUntil([&] { return ::GetFocus() == m_edit->m_hWnd; }));
        support::Settle();
    }

    [[nodiscard]] std::string Text() const
    {
        CString text;
        m_edit->GetWindowText(text);
        return static_cast<LPCTSTR>(text);
    }

    void Type(std::string_view text)
    {
        support::TypeText(text);
        support::Settle();
    }

    void Key(WORD key, std::initializer_list<WORD> modifiers = {})
    {
        support::PressKey(key, modifiers);
        support::Settle();
    }

    void OpenClipboardEmpty() const
    {
        ASSERT_TRUE(support::PumpUntil([&] { return ::OpenClipboard(m_frame ? m_frame->m_hWnd : nullptr) != FALSE; }));
        ::EmptyClipboard();
    }

    void ClearClipboard() const
    {
        OpenClipboardEmpty();
        ::CloseClipboard();
    }

    // Exactly these bytes.
    void PutOnClipboard(std::string_view bytes) const
    {
        OpenClipboardEmpty();
        HGLOBAL const data = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
        std::memcpy(::GlobalLock(data), bytes.data(), bytes.size());
        ::GlobalUnlock(data);
        EXPECT_NE(::SetClipboardData(CF_TEXT, data), nullptr);
        ::CloseClipboard();
    }

    void PutText(const std::string& text) const { PutOnClipboard({text.c_str(), text.size() + 1}); }

    static std::string ClipboardText()
    {
        std::string text;
        if (::OpenClipboard(nullptr))
        {
            if (HANDLE const data = ::GetClipboardData(CF_TEXT))
            {
                text = static_cast<char const*>(::GlobalLock(data));
                ::GlobalUnlock(data);
            }
            ::CloseClipboard();
        }
        return text;
    }

    std::optional<support::TestFrame> m_frame;
    std::unique_ptr<WatchedEdit> m_edit;
    std::vector<UINT> m_beeps;

private:
    std::optional<ImportHook> m_hook;
};

TEST_F(FloatEdit, TakesDigitsAndAPoint)
{
    Type("0123456789.5");
    EXPECT_EQ(Text(), "0123456789.5");
    EXPECT_TRUE(m_beeps.empty());
}

TEST_F(FloatEdit, RefusesASignAndAnExponentWithABeepEach)
{
    Type("-1e5");
    EXPECT_EQ(Text(), "15");
    EXPECT_EQ(m_beeps, (std::vector<UINT>{kSimpleBeep, kSimpleBeep}));
}

TEST_F(FloatEdit, RefusesASecondPoint)
{
    Type("1.2.3");
    EXPECT_EQ(Text(), "1.23");
    EXPECT_EQ(m_beeps.size(), 1U);
}

TEST_F(FloatEdit, TakesAPointAgainWhenTheFirstIsGone)
{
    Type("1.");
    Key(VK_BACK);
    Type("2.5");
    EXPECT_EQ(Text(), "12.5");
    EXPECT_TRUE(m_beeps.empty());
}

TEST_F(FloatEdit, RefusesAPointThatWouldReplaceASelectedOne)
{
    Type("1.2");
    m_edit->SetSel(0, -1);
    Type(".");
    EXPECT_EQ(Text(), "1.2");
    EXPECT_EQ(m_beeps.size(), 1U);
}

TEST_F(FloatEdit, ReplacesASelectionByADigit)
{
    Type("1.2");
    m_edit->SetSel(0, -1);
    Type("7");
    EXPECT_EQ(Text(), "7");
}

TEST_F(FloatEdit, PassesBackspaceOnWhenItIsEmpty)
{
    Key(VK_BACK);
    EXPECT_EQ(m_edit->m_chars, (std::vector<WPARAM>{8}));
    EXPECT_TRUE(m_beeps.empty());
}

TEST_F(FloatEdit, DropsARefusedCharacterBeforeTheDefaultHandling)
{
    Type("x");
    EXPECT_TRUE(m_edit->m_chars.empty());
}

TEST_F(FloatEdit, RefusesCharactersBeyondAscii)
{
    m_edit->SendMessage(WM_CHAR, 0xAE, 0);
    m_edit->SendMessage(WM_CHAR, 0xFF, 0);
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(m_beeps.size(), 2U);
}

TEST_F(FloatEdit, TakesALineBreakWhenItHasSeveralLines)
{
    Open(ES_MULTILINE | ES_WANTRETURN);
    Type("1");
    Key(VK_RETURN);
    Type("2");
    EXPECT_EQ(Text(), "1\r\n2");
    EXPECT_TRUE(m_beeps.empty());
}

TEST_F(FloatEdit, AnswersForAnyCharacter)
{
    for (int c = 0; c < 256; ++c)
    {
        const bool expected = c == 8 || c == 10 || c == 13 || c == '.' || (c >= '0' && c <= '9');
        EXPECT_EQ(m_edit->IsCharAllowed(static_cast<char>(c)), expected) << c;
    }
    m_edit->SetWindowText("1.0");
    EXPECT_FALSE(m_edit->IsCharAllowed('.'));
    EXPECT_TRUE(m_edit->IsCharAllowed('0'));
    EXPECT_TRUE(m_edit->IsCharAllowed(8));
}

TEST_F(FloatEdit, AnswersWithoutAWindowToo)
{
    CFloatEdit edit;
    EXPECT_TRUE(edit.IsCharAllowed('.'));
    EXPECT_FALSE(edit.IsCharAllowed('-'));
}

TEST_F(FloatEdit, RefusesAPasteAsAWholeWhenOneCharacterIsRefused)
{
    m_edit->SetWindowText("1.0");
    m_edit->SetSel(3, 3);
    PutText("12.5");
    Key('V', {VK_CONTROL});
    EXPECT_EQ(Text(), "1.0");
    EXPECT_EQ(m_edit->m_pastes, 0);
    EXPECT_TRUE(m_beeps.empty()) << "a refused paste makes no sound";
}

TEST_F(FloatEdit, AnswersARefusedPasteWithNull)
{
    PutText("abc");
    EXPECT_EQ(m_edit->SendMessage(WM_PASTE), 0);
    EXPECT_EQ(Text(), "");
}

TEST_F(FloatEdit, PastesANumber)
{
    PutText("12.5");
    Key('V', {VK_CONTROL});
    EXPECT_EQ(Text(), "12.5");
    EXPECT_EQ(m_edit->m_pastes, 1);
    EXPECT_TRUE(m_edit->m_chars.empty()) << "the key itself ends there";
}

TEST_F(FloatEdit, PastesTextWithTwoPointsIntoAControlWithoutOne)
{
    PutText("1.2.3");
    Key('V', {VK_CONTROL});
    EXPECT_EQ(Text(), "1.2.3");
}

TEST_F(FloatEdit, PastesTextWithALineBreak)
{
    Open(ES_MULTILINE);
    PutText("1\r\n2");
    EXPECT_TRUE(m_edit->IsClipboardOK());
    Key('V', {VK_CONTROL});
    EXPECT_EQ(Text(), "1\r\n2");
}

TEST_F(FloatEdit, AcceptsAnEmptyTextOnTheClipboard)
{
    PutText("");
    EXPECT_TRUE(m_edit->IsClipboardOK());
}

TEST_F(FloatEdit, RefusesAClipboardWithoutText)
{
    ClearClipboard();
    EXPECT_FALSE(m_edit->IsClipboardOK());
    OpenClipboardEmpty();
    HBITMAP const bitmap = ::CreateBitmap(4, 4, 1, 1, nullptr);
    ::SetClipboardData(CF_BITMAP, bitmap);
    ::CloseClipboard();
    EXPECT_FALSE(m_edit->IsClipboardOK());
}

TEST_F(FloatEdit, StopsAtTheEndOfTextThatHasNoTerminator)
{
    PutOnClipboard("123");
    EXPECT_TRUE(m_edit->IsClipboardOK());
}

TEST_F(FloatEdit, LooksNoFurtherThanTheTerminator)
{
    PutOnClipboard(std::string_view("12\0ab", 6));
    EXPECT_TRUE(m_edit->IsClipboardOK());
}

TEST_F(FloatEdit, LeavesAPasteToFailByItselfWhenTheClipboardCantBeReached)
{
    PutText("abc");
    bool accepted = false;
    // OLE isn't started on that thread, so the clipboard's data object can't be attached.
    std::jthread([&] {
        CFloatEdit edit;
        accepted = edit.IsClipboardOK();
    }).join();
    EXPECT_TRUE(accepted);
    EXPECT_FALSE(m_edit->IsClipboardOK());
}

TEST_F(FloatEdit, LetsGoOfTheClipboard)
{
    for (const char* text : {"1.5", "abc"})
    {
        PutText(text);
        for (int i = 0; i < 20; ++i)
        {
            m_edit->IsClipboardOK();
        }
        ClearClipboard(); // fails the test when the clipboard is still open
        EXPECT_EQ(ClipboardText(), "");
    }
}

TEST_F(FloatEdit, CopiesWithCtrlAndNeverBeeps)
{
    m_edit->SetWindowText("4.2");
    m_edit->SetSel(0, -1);
    Key('C', {VK_CONTROL});
    EXPECT_EQ(ClipboardText(), "4.2");
    EXPECT_EQ(m_edit->m_copies, 1);
    EXPECT_TRUE(m_edit->m_chars.empty());
    EXPECT_TRUE(m_beeps.empty());
}

TEST_F(FloatEdit, RefusesTheCopyCharacterWithoutCtrlWithABeep)
{
    m_edit->SetWindowText("4.2");
    m_edit->SetSel(0, -1);
    m_edit->SendMessage(WM_CHAR, 3, 0);
    EXPECT_EQ(ClipboardText(), "");
    EXPECT_EQ(m_beeps, (std::vector<UINT>{kSimpleBeep}));
}

TEST_F(FloatEdit, CutsWithCtrl)
{
    m_edit->SetWindowText("4.2");
    m_edit->SetSel(0, -1);
    Key('X', {VK_CONTROL});
    EXPECT_EQ(ClipboardText(), "4.2");
    EXPECT_EQ(Text(), "");
    EXPECT_TRUE(m_beeps.empty());
}

TEST_F(FloatEdit, UndoesWithCtrl)
{
    m_edit->SetWindowText("4.2");
    m_edit->SetSel(0, -1);
    Type("7");
    Key('Z', {VK_CONTROL});
    EXPECT_EQ(Text(), "4.2");
    EXPECT_TRUE(m_beeps.empty());
}

TEST_F(FloatEdit, AsksTheFormatAboutOtherControlCharactersWithCtrl)
{
    support::KeyDown(VK_CONTROL);
    support::Settle();
    m_edit->SendMessage(WM_CHAR, 1, 0);
    EXPECT_EQ(m_beeps.size(), 1U);
    m_edit->SendMessage(WM_CHAR, '5', 0);
    support::KeyUp(VK_CONTROL);
    support::Settle();
    EXPECT_EQ(Text(), "5");
}

TEST_F(FloatEdit, ShowsAnyTextThatAProgramSets)
{
    m_edit->SetWindowText("-1e5");
    EXPECT_EQ(Text(), "-1e5") << "only typing and pasting are filtered";
}

TEST(BaseFormatTest, StartsEmpty)
{
    BaseFormat format;
    EXPECT_FALSE(format.IsValidChar('0'));
    EXPECT_FALSE(format.IsValidChar('\0'));
}

TEST(BaseFormatTest, HoldsTheCharactersOfTheLastSet)
{
    BaseFormat format;
    format.SetValidChars("abcdefghijklmnopqrstuvwxyz", 26);
    EXPECT_TRUE(format.IsValidChar('z'));
    format.SetValidChars("xyz", 2);
    EXPECT_TRUE(format.IsValidChar('x'));
    EXPECT_TRUE(format.IsValidChar('y'));
    EXPECT_FALSE(format.IsValidChar('z')) << "only two were counted";
    EXPECT_FALSE(format.IsValidChar('a'));
    format.SetValidChars(nullptr, 5);
    EXPECT_FALSE(format.IsValidChar('x'));
    format.SetValidChars("x", 0);
    EXPECT_FALSE(format.IsValidChar('x'));
    format.SetValidChars("x", -1);
    EXPECT_FALSE(format.IsValidChar('x'));
}

TEST(BaseFormatTest, MayHoldTheTerminator)
{
    BaseFormat format;
    format.SetValidChars("a\0b", 3);
    EXPECT_TRUE(format.IsValidChar('\0'));
    EXPECT_TRUE(format.IsValidChar('b'));
}

TEST(FloatFormatTest, HoldsTheDigitsAndThePoint)
{
    FloatFormat format;
    for (int c = 0; c < 256; ++c)
    {
        EXPECT_EQ(format.IsValidChar(static_cast<char>(c)), c == '.' || (c >= '0' && c <= '9')) << c;
    }
}

} // namespace
