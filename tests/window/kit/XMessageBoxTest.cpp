// XMessageBoxTest.cpp - the message box: every set opened for real and answered

#include "../layoutproc/LayoutProc.h"

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
    constexpr unsigned kDefaults[]{MB_DEFBUTTON1, MB_DEFBUTTON2, MB_DEFBUTTON3, MB_DEFBUTTON4};
    const auto& ids = GetParam().ids;
    for (size_t i = 0; i < std::size(kDefaults); ++i)
    {
        EXPECT_EQ(Open(GetParam().set | kDefaults[i], Key(VK_RETURN)), i < ids.size() ? ids[i] : ids.front()) << i;
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
    bool closes = false; ///< the box is answered with OK
    int count = 0;
    std::string file;
    UINT command = 0;
    ULONG_PTR data = 0;
} helpCall;

BOOL WINAPI RecordHelp(HWND box, LPCSTR file, UINT command, ULONG_PTR data)
{
    helpCall = {helpCall.closes, helpCall.count + 1, file, command, data};
    if (helpCall.closes)
    {
        ::PostMessageA(box, WM_COMMAND, IDOK, 0);
    }
    return TRUE;
}

/// With calls of the system replaced for as long as a test runs.
class MsgBoxCallsTest : public XMessageBoxTest
{
protected:
    ~MsgBoxCallsTest() override { tavkit::ReplaceMsgBoxSystemCalls(m_old); }
    static void Replace(const tavkit::MsgBoxSystemCalls& calls) { tavkit::ReplaceMsgBoxSystemCalls(calls); }

private:
    tavkit::MsgBoxSystemCalls m_old = tavkit::ReplaceMsgBoxSystemCalls({::LocalAlloc, ::WinHelpA});
};

class MsgBoxHelpTest : public MsgBoxCallsTest
{
protected:
    MsgBoxHelpTest()
    {
        Replace({::LocalAlloc, RecordHelp});
        helpCall = {};
    }
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

TEST_F(MsgBoxHelpTest, OpensByItsLetterAndByEnterOnceItIsTheDefault)
{
    helpCall.closes = true; // each key reaches the box through its own loop, which goes on until help has been called
    const std::function<void(HWND)> ways[]{Key(VK_RETURN), [](HWND box) {
                                               ::SetForegroundWindow(box);
                                               support::PressKey('H', {VK_MENU});
                                           }};
    int calls = 0;
    for (const auto& way : ways)
    {
        const unsigned second = calls == 0 ? MB_DEFBUTTON2 : MB_DEFBUTTON1;
        EXPECT_EQ(Open(MB_OK | MB_HELP | second, way), IDOK);
        EXPECT_EQ(helpCall.count, ++calls);
    }
}

// --- what stands in for the box

HLOCAL WINAPI NoMemory(UINT, SIZE_T) { return nullptr; }

/// A block that can't be locked, since there is nothing in it.
HLOCAL WINAPI EmptyBlock(UINT flags, SIZE_T) { return ::LocalAlloc(flags, 0); }

TEST_F(MsgBoxCallsTest, WithoutMemoryTheSystemsBoxSaysSoAndTheResultIsTwo)
{
    for (const auto alloc : {NoMemory, EmptyBlock})
    {
        Replace({alloc, ::WinHelpA});
        ModalHelper helper("Allocation Failure", [](HWND box) {
            EXPECT_EQ(TextOf(::GetDlgItem(box, 0xFFFF)), "Memory allocation for dialog template failed.");
            EXPECT_EQ(::GetWindow(box, GW_OWNER), nullptr);
            support::PressButton(box, IDOK);
        });
        EXPECT_EQ(XMessageBox(m_frame, "text", kCaption, MB_OK | MB_DONOTASKAGAIN, nullptr, 0), 2);
        EXPECT_TRUE(helper.Done());
    }
    AllowGdiGrowth("the system's own message box keeps bitmaps under some platforms");
}

TEST_F(XMessageBoxTest, HandAndSystemModalTogetherAreTheSystemsOwnBox)
{
    // The exclamation mark's number holds the hand's bit.
    for (const unsigned icon : {MB_ICONHAND, MB_ICONEXCLAMATION})
    {
        EXPECT_EQ(Open(MB_YESNO | icon | MB_SYSTEMMODAL,
                       [](HWND box) {
                           EXPECT_EQ(::GetDlgItem(box, 1001), nullptr); // none of ours
                           support::PressButton(box, IDNO);
                       }),
                  IDNO);
    }
    AllowGdiGrowth("the font that this path makes stays, as it always has");
}

TEST_F(XMessageBoxTest, SystemModalIsAStyleOfTheDialog)
{
    for (const unsigned icon : {0U, static_cast<unsigned>(MB_ICONQUESTION), static_cast<unsigned>(MB_ICONASTERISK)})
    {
        for (const unsigned modal : {0U, static_cast<unsigned>(MB_SYSTEMMODAL)})
        {
            Open(MB_OK | icon | modal, [modal](HWND box) {
                constexpr LONG kStyle = static_cast<LONG>(0x90C80880);
                const LONG style = ::GetWindowLongA(box, GWL_STYLE);
                EXPECT_EQ(style & kStyle, kStyle);
                EXPECT_EQ((style & DS_SYSMODAL) != 0, modal != 0);
                EXPECT_NE(::GetDlgItem(box, 1001), nullptr);
                support::PressButton(box, IDOK);
            });
        }
    }
    AllowGdiGrowth("the system keeps its own icons once they were drawn");
}

// --- windows that die

TEST_F(XMessageBoxTest, ABoxThatIsDestroyedIsAnsweredWithNothingAndFreesItsOwner)
{
    EXPECT_EQ(Open(MB_YESNO | MB_DONOTASKAGAIN, [](HWND box) { ::DestroyWindow(box); }), 0);
    EXPECT_TRUE(::IsWindowEnabled(m_frame));
    EXPECT_EQ(Open(MB_YESNO, Mouse(IDNO)), IDNO) << "the next one works";
}

TEST_F(XMessageBoxTest, ABoxWhoseOwnerIsDestroyedIsAnsweredWithNothing)
{
    support::TestFrame owner;
    HWND const gone = owner;
    ModalHelper helper(kCaption, [&](HWND) { owner.DestroyWindow(); });
    EXPECT_EQ(XMessageBox(gone, "text", kCaption, MB_YESNO | MB_ICONQUESTION, nullptr, 0), 0);
    EXPECT_TRUE(helper.Done());
    EXPECT_EQ(XMessageBox(gone, "text", kCaption, MB_YESNO | MB_DONOTASKAGAIN, nullptr, 0), 0) << "no window any more";
    EXPECT_EQ(Open(MB_OK, Mouse(IDOK)), IDOK) << "the next one works";
    AllowGdiGrowth("the system keeps its own icons once they were drawn");
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

/// Another module's resources in place of the program's.
class ResourcesOf
{
public:
    explicit ResourcesOf(const char* module)
        : m_module(::LoadLibraryExA(module, nullptr, LOAD_LIBRARY_AS_DATAFILE)), m_old(AfxGetResourceHandle())
    {
        EXPECT_NE(m_module, nullptr);
        AfxSetResourceHandle(m_module);
    }
    ~ResourcesOf()
    {
        AfxSetResourceHandle(m_old);
        ::FreeLibrary(m_module);
    }
    ResourcesOf(const ResourcesOf&) = delete;
    ResourcesOf& operator=(const ResourcesOf&) = delete;

private:
    HMODULE m_module;
    HINSTANCE m_old;
};

TEST_F(XMessageBoxTest, ANullOrEmptyCaptionIsTheApplicationsTitle)
{
    const ResourcesOf program("LayoutProc.exe");
    for (const char* caption : {static_cast<const char*>(nullptr), ""})
    {
        ModalHelper helper(LAYOUT_PROC_TITLE, Mouse(IDOK));
        EXPECT_EQ(XMessageBox(m_frame, "text", caption, MB_OK, nullptr, 0), IDOK);
        EXPECT_TRUE(helper.Done());
    }
}

TEST_F(XMessageBoxTest, ACaptionIsCutAtItsLongest)
{
    for (const size_t length : {size_t{1023}, size_t{1024}, size_t{100'000}})
    {
        ModalHelper helper([] { return FindThreadWindow("#32770", nullptr); },
                           [](HWND box) {
                               EXPECT_EQ(TextOf(box), std::string(1023, 'c'));
                               support::PressButton(box, IDOK);
                           });
        EXPECT_EQ(XMessageBox(m_frame, "text", std::string(length, 'c').c_str(), MB_OK, nullptr, 0), IDOK);
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
