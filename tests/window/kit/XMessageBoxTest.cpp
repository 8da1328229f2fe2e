// XMessageBoxTest.cpp - the message box: every set opened for real and answered

#include "tavkit/drawing/DialogTmpl.h"
#include "tavkit/drawing/MsgBoxLayout.h"
#include "tavkit/drawing/XMessageBox.h"

#include "support/WindowTest.h"

#include <functional>
#include <string>

namespace
{

using support::FindThreadWindow;
using support::ModalHelper;

constexpr char kCaption[] = "Caption of the box";

class XMessageBoxTest : public support::WindowTest
{
protected:
    /// Opens a box, acts on it from inside its loop and gives the result.
    int Open(unsigned style, const std::function<void(HWND)>& act, const char* text = "A short text",
             const char* check = nullptr, unsigned help = 0)
    {
        ModalHelper helper(kCaption, act);
        const int result = XMessageBox(m_frame, text, kCaption, style, check, help);
        EXPECT_TRUE(helper.Done()) << "the box didn't come";
        return result;
    }

    support::TestFrame m_frame;
};

/// Clicks with the real mouse.
std::function<void(HWND)> Mouse(int id)
{
    return [id](HWND box) { support::Click(::GetDlgItem(box, id)); };
}

std::function<void(HWND)> Key(WORD key)
{
    return [key](HWND box) {
        ::SetForegroundWindow(box);
        support::PressKey(key);
    };
}

/// Middle of the close box in the caption of a dialog, screen pixels.
POINT CloseBoxOf(HWND dialog)
{
    RECT window{};
    ::GetWindowRect(dialog, &window);
    const int edge = ::GetSystemMetrics(SM_CXDLGFRAME);
    return {window.right - edge - ::GetSystemMetrics(SM_CXSIZE) / 2,
            window.top + edge + ::GetSystemMetrics(SM_CYCAPTION) / 2};
}

std::string TextOf(HWND window)
{
    char text[2048] = "";
    ::GetWindowTextA(window, text, sizeof text);
    return text;
}

struct SetCase
{
    const char* name;
    unsigned set;
    std::vector<int> ids;
    std::vector<WORD> mnemonics; ///< 0 for a button without one
    int escape;                  ///< result of Esc and of the close box; 0 when both do nothing
};

class MsgBoxAnswer : public XMessageBoxTest, public testing::WithParamInterface<SetCase>
{
};

TEST_P(MsgBoxAnswer, EveryButtonAnswersTheMouseWithItsId)
{
    for (const int id : GetParam().ids)
    {
        EXPECT_EQ(Open(GetParam().set, Mouse(id)), id);
    }
}

TEST_P(MsgBoxAnswer, MnemonicsAnswerWithTheirButtonsId)
{
    for (size_t i = 0; i < GetParam().ids.size(); ++i)
    {
        if (GetParam().mnemonics[i] != 0)
        {
            EXPECT_EQ(Open(GetParam().set, Key(GetParam().mnemonics[i])), GetParam().ids[i]);
        }
    }
}

TEST_P(MsgBoxAnswer, EnterAnswersWithTheDefaultButton)
{
    EXPECT_EQ(Open(GetParam().set, Key(VK_RETURN)), GetParam().ids.front());
    if (GetParam().ids.size() > 1)
    {
        EXPECT_EQ(Open(GetParam().set | MB_DEFBUTTON2, Key(VK_RETURN)), GetParam().ids[1]);
    }
}

TEST_P(MsgBoxAnswer, EscapeCancelsOnlyWhatCanBeCancelled)
{
    // Both keys lie in the queue: a box that takes no notice of the first is answered by the second.
    const int result = Open(GetParam().set, [](HWND box) {
        ::SetForegroundWindow(box);
        support::PressKey(VK_ESCAPE);
        support::PressKey(VK_RETURN);
    });
    EXPECT_EQ(result, GetParam().escape != 0 ? GetParam().escape : GetParam().ids.front());
}

TEST_P(MsgBoxAnswer, TheCloseBoxCancelsOnlyWhatCanBeCancelledAndIsGreyOtherwise)
{
    const bool cancellable = GetParam().escape != 0;
    const int result = Open(GetParam().set, [&](HWND box) {
        const UINT state = ::GetMenuState(::GetSystemMenu(box, FALSE), SC_CLOSE, MF_BYCOMMAND);
        EXPECT_EQ((state & MF_GRAYED) == 0, cancellable);
        ::SetForegroundWindow(box);
        support::Click(CloseBoxOf(box));
        support::PressKey(VK_RETURN);
    });
    EXPECT_EQ(result, cancellable ? GetParam().escape : GetParam().ids.front());
}

INSTANTIATE_TEST_SUITE_P(
    Sets, MsgBoxAnswer,
    testing::Values(SetCase{"Ok", 0, {1}, {0}, 0}, SetCase{"OkCancel", 1, {1, 2}, {0, 0}, 2},
                    SetCase{"AbortRetryIgnore", 2, {3, 4, 5}, {'A', 'R', 'I'}, 0},
                    SetCase{"YesNoCancel", 3, {6, 7, 2}, {'Y', 'N', 0}, 2}, SetCase{"YesNo", 4, {6, 7}, {'Y', 'N'}, 0},
                    SetCase{"RetryCancel", 5, {4, 2}, {'R', 0}, 2}, SetCase{"Files", 6, {2, 3, 1, 4}, {0, 0, 0, 0}, 2},
                    SetCase{"ContinueAbort", 8, {10, 3}, {'C', 'A'}, 0}, SetCase{"Unknown", 9, {1}, {0}, 0}),
    [](const auto& info) { return info.param.name; });

TEST_F(XMessageBoxTest, ADefaultBeyondTheButtonsIsTheFirst)
{
    EXPECT_EQ(Open(MB_YESNO | MB_DEFBUTTON3,
                   [](HWND box) {
                       EXPECT_EQ(LOWORD(::SendMessageA(box, DM_GETDEFID, 0, 0)), IDYES);
                       EXPECT_EQ(::GetFocus(), ::GetDlgItem(box, IDYES));
                       support::PressButton(box, IDYES);
                   }),
              IDYES);
}

TEST_F(XMessageBoxTest, TheCheckBoxComesBackInTheResult)
{
    const auto check = [](HWND box) {
        EXPECT_EQ(TextOf(::GetDlgItem(box, 5555)), "Don't ask me again");
        EXPECT_FALSE(::IsDlgButtonChecked(box, 5555));
        support::Click(::GetDlgItem(box, 5555));
        EXPECT_TRUE(support::PumpUntil([box] { return ::IsDlgButtonChecked(box, 5555) != 0; }));
        support::PressButton(box, IDOK);
    };
    EXPECT_EQ(Open(MB_OK | MB_DONOTASKAGAIN, check), 0x1000001);
    EXPECT_EQ(Open(MB_OK | MB_DONOTASKAGAIN, Mouse(IDOK)), IDOK);
}

TEST_F(XMessageBoxTest, AClosedBoxBringsTheCheckBitToo)
{
    EXPECT_EQ(Open(MB_OKCANCEL | MB_DONOTASKAGAIN,
                   [](HWND box) {
                       ::CheckDlgButton(box, 5555, BST_CHECKED);
                       ::PostMessageA(box, WM_CLOSE, 0, 0);
                   }),
              0x1000002);
}

TEST_F(XMessageBoxTest, WithoutTheStyleThereIsNoCheckBox)
{
    Open(
        MB_OK,
        [](HWND box) {
            EXPECT_EQ(::GetDlgItem(box, 5555), nullptr);
            support::PressButton(box, IDOK);
        },
        "text", "Apply to all");
}

TEST_F(XMessageBoxTest, TheCallersCheckTextIsShown)
{
    Open(
        MB_OK | MB_DONOTASKAGAIN,
        [](HWND box) {
            EXPECT_EQ(TextOf(::GetDlgItem(box, 5555)), "Apply to all");
            support::PressButton(box, IDOK);
        },
        "text", "Apply to all");
}

TEST_F(XMessageBoxTest, AShortTextMakesABoxAtLeastSeventyHigh)
{
    Open(MB_OK, [](HWND box) {
        RECT client{};
        ::GetClientRect(box, &client);
        EXPECT_GE(client.bottom, 70);
        support::PressButton(box, IDOK);
    });
}

TEST_F(XMessageBoxTest, ControlsHaveTheBoxesFontAndTheFocusStandsOnTheDefault)
{
    Open(MB_OKCANCEL | MB_DEFBUTTON2 | MB_HELP | MB_DONOTASKAGAIN, [](HWND box) {
        for (const int id : {1, 2, 300, 1001, 5555})
        {
            LOGFONTA font{};
            ::GetObjectA(reinterpret_cast<HFONT>(::SendDlgItemMessageA(box, id, WM_GETFONT, 0, 0)), sizeof font, &font);
            EXPECT_STREQ(font.lfFaceName, "MS Sans Serif") << id;
            EXPECT_EQ(font.lfHeight, -12) << id;
            EXPECT_EQ(font.lfWeight, 400) << id;
        }
        EXPECT_EQ(::GetFocus(), ::GetDlgItem(box, IDCANCEL));
        support::PressButton(box, IDOK);
    });
}

TEST_F(XMessageBoxTest, AnIconIsDrawnForEachOfTheFourStyles)
{
    for (const unsigned icon : {MB_ICONHAND, MB_ICONQUESTION, MB_ICONEXCLAMATION, MB_ICONASTERISK})
    {
        Open(MB_OK | icon, [](HWND box) {
            HWND place = ::GetDlgItem(box, 1000);
            ASSERT_NE(place, nullptr);
            support::Settle();
            const COLORREF ground = support::ClientPixel(box, 3, 3);
            int drawn = 0;
            for (int x = 2; x < 32; x += 3)
            {
                drawn += support::ClientPixel(place, x, 16) != ground ? 1 : 0;
            }
            EXPECT_GT(drawn, 3);
            support::PressButton(box, IDOK);
        });
    }
    AllowGdiGrowth("the system keeps its own icons once they were drawn");
}

// --- help

struct HelpCall
{
    int count = 0;
    std::string file;
    UINT command = 0;
    ULONG_PTR data = 0;
} helpCall;

BOOL WINAPI RecordHelp(HWND, LPCSTR file, UINT command, ULONG_PTR data)
{
    helpCall = {helpCall.count + 1, file, command, data};
    return TRUE;
}

class MsgBoxHelpTest : public XMessageBoxTest
{
protected:
    MsgBoxHelpTest() : m_old(tavkit::ReplaceMsgBoxSystemCalls({::LocalAlloc, RecordHelp})) { helpCall = {}; }
    ~MsgBoxHelpTest() override { tavkit::ReplaceMsgBoxSystemCalls(m_old); }

private:
    tavkit::MsgBoxSystemCalls m_old;
};

TEST_F(MsgBoxHelpTest, OpensTheContextAndTheBoxStays)
{
    EXPECT_EQ(Open(
                  MB_OK | MB_HELP,
                  [](HWND box) {
                      support::Click(::GetDlgItem(box, 300));
                      EXPECT_TRUE(support::PumpUntil([] { return helpCall.count == 1; }));
                      EXPECT_TRUE(::IsWindowVisible(box));
                      support::PressButton(box, IDOK);
                  },
                  "text", nullptr, 77),
              IDOK);
    EXPECT_EQ(helpCall.command, static_cast<UINT>(HELP_CONTEXT));
    EXPECT_EQ(helpCall.data, 77U);
    EXPECT_THAT(helpCall.file, testing::EndsWith("TavKit.hlp"));
}

TEST_F(MsgBoxHelpTest, WithoutAContextOpensTheKeyWords)
{
    Open(MB_OK | MB_HELP, [](HWND box) {
        ::SendMessageA(box, WM_COMMAND, 300, 0);
        support::PressButton(box, IDOK);
    });
    EXPECT_EQ(helpCall.command, static_cast<UINT>(HELP_PARTIALKEY));
    EXPECT_EQ(helpCall.data, 0U);
}

// --- what stands in for the box

HLOCAL WINAPI NoMemory(UINT, SIZE_T) { return nullptr; }

TEST_F(XMessageBoxTest, WithoutMemoryTheSystemsBoxSaysSoAndTheResultIsTwo)
{
    const auto old = tavkit::ReplaceMsgBoxSystemCalls({NoMemory, ::WinHelpA});
    ModalHelper helper("Allocation Failure", [](HWND box) {
        EXPECT_EQ(TextOf(::GetDlgItem(box, 0xFFFF)), "Memory allocation for dialog template failed.");
        support::PressButton(box, IDOK);
    });
    EXPECT_EQ(XMessageBox(m_frame, "text", kCaption, MB_OK, nullptr, 0), 2);
    EXPECT_TRUE(helper.Done());
    tavkit::ReplaceMsgBoxSystemCalls(old);
    AllowGdiGrowth("the system's own message box keeps bitmaps under some platforms");
}

TEST_F(XMessageBoxTest, HandAndSystemModalTogetherAreTheSystemsOwnBox)
{
    EXPECT_EQ(Open(MB_YESNO | MB_ICONHAND | MB_SYSTEMMODAL,
                   [](HWND box) {
                       EXPECT_EQ(::GetDlgItem(box, 1001), nullptr); // none of ours
                       support::PressButton(box, IDNO);
                   }),
              IDNO);
    AllowGdiGrowth("the font that this path makes stays, as it always has");
}

// --- texts

TEST_F(XMessageBoxTest, ANullOrEmptyCaptionWithoutAnApplicationTitleIsError)
{
    for (const char* caption : {static_cast<const char*>(nullptr), ""})
    {
        ModalHelper helper("Error", Mouse(IDOK));
        EXPECT_EQ(XMessageBox(m_frame, "text", caption, MB_OK, nullptr, 0), IDOK);
        EXPECT_TRUE(helper.Done());
    }
}

TEST_F(XMessageBoxTest, ANullOwnerIsTheDesktop)
{
    ModalHelper helper(kCaption, Mouse(IDOK));
    EXPECT_EQ(XMessageBox(nullptr, "text", kCaption, MB_OK, nullptr, 0), IDOK);
    EXPECT_TRUE(helper.Done());
}

TEST_F(XMessageBoxTest, NullAndEmptyTextsShowAnEmptyBox)
{
    for (const char* text : {static_cast<const char*>(nullptr), ""})
    {
        EXPECT_EQ(Open(
                      MB_OK,
                      [](HWND box) {
                          EXPECT_EQ(TextOf(::GetDlgItem(box, 1001)), "");
                          support::PressButton(box, IDOK);
                      },
                      text),
                  IDOK);
    }
}

TEST_F(XMessageBoxTest, ATextOfAHundredThousandCharactersIsCutAndCanBeAnswered)
{
    const std::string text(100'000, 'w');
    EXPECT_EQ(Open(
                  MB_YESNO,
                  [](HWND box) {
                      EXPECT_EQ(::GetWindowTextLengthA(::GetDlgItem(box, 1001)), 1023);
                      support::PressButton(box, IDNO);
                  },
                  text.c_str()),
              IDNO);
}

TEST_F(XMessageBoxTest, TheOwnerIsDisabledMeanwhileAndActiveAfterwards)
{
    Open(MB_OK, [this](HWND box) {
        EXPECT_FALSE(::IsWindowEnabled(m_frame));
        support::PressButton(box, IDOK);
    });
    EXPECT_TRUE(::IsWindowEnabled(m_frame));
    EXPECT_EQ(::GetActiveWindow(), m_frame.m_hWnd);
}

} // namespace
