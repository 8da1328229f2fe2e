// NativeFileDlgLockTest.cpp - a file dialog that keeps the user in its folder
#include "NativeFileDlgFixture.h"

#include "support/Emulation.h"

#include <commctrl.h>

namespace
{

using support::FindFileDialog;
using support::ModalScript;
using support::PressButton;
using support::SetFileName;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr int kPlaces = 1184;
constexpr int kUp = 40961;
constexpr int kNewFolder = 40962;
constexpr BYTE kHiddenState = 24;

/// A list of files of a test's own, on the thread that the dialog locks.
class OwnList : public CWnd
{
public:
    OwnList(CWnd& parent, std::vector<std::string> const& rows)
    {
        Create(WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_LIST, CRect(0, 0, 200, 100), &parent, 1);
        for (std::string const& row : rows)
        {
            LVITEMA item{};
            item.mask = LVIF_TEXT;
            item.iItem = static_cast<int>(SendMessage(LVM_GETITEMCOUNT));
            item.pszText = const_cast<char*>(row.c_str());
            SendMessage(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
        }
    }
    ~OwnList() override { DestroyWindow(); }

    [[nodiscard]] std::vector<std::string> Rows()
    {
        std::vector<std::string> rows;
        const LRESULT count = SendMessage(LVM_GETITEMCOUNT);
        for (int row = 0; row < count; ++row)
        {
            char text[300] = "";
            LVITEMA item{};
            item.pszText = text;
            item.cchTextMax = sizeof text;
            SendMessage(LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
            rows.emplace_back(text);
        }
        return rows;
    }
};

/// A tool bar with the two buttons that a locked dialog hides, and one that it leaves.
class OwnToolBar : public CWnd
{
public:
    explicit OwnToolBar(CWnd& parent)
    {
        Create(TOOLBARCLASSNAMEA, "", WS_CHILD | WS_VISIBLE, CRect(0, 100, 200, 130), &parent, 2);
        SendMessage(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
        for (const int id : {kUp, kNewFolder, kOther})
        {
            TBBUTTON button{};
            button.idCommand = id;
            button.fsState = TBSTATE_ENABLED;
            SendMessage(TB_ADDBUTTONSA, 1, reinterpret_cast<LPARAM>(&button));
        }
    }
    ~OwnToolBar() override { DestroyWindow(); }

    [[nodiscard]] int State(int id) { return static_cast<int>(SendMessage(TB_GETSTATE, static_cast<WPARAM>(id))); }

    static constexpr int kOther = 40965;
};

/// Sees, before the thread's windows, every message that is sent to them.
class SentMessages
{
public:
    explicit SentMessages(std::function<void()> each)
    {
        s_each = std::move(each);
        m_hook = ::SetWindowsHookExA(WH_CALLWNDPROC, &SentMessages::Proc, nullptr, ::GetCurrentThreadId());
    }
    ~SentMessages()
    {
        ::UnhookWindowsHookEx(m_hook);
        s_each = nullptr;
    }
    SentMessages(SentMessages const&) = delete;
    SentMessages& operator=(SentMessages const&) = delete;

private:
    static LRESULT CALLBACK Proc(int code, WPARAM wParam, LPARAM lParam)
    {
        static bool s_inside = false;
        if (s_each && !s_inside)
        {
            s_inside = true;
            s_each();
            s_inside = false;
        }
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static inline std::function<void()> s_each;
    HHOOK m_hook;
};

/// The tool bar of a dialog that has a button of that command.
HWND ToolBarWith(HWND dialog, int button)
{
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        char name[64] = "";
        ::GetClassNameA(child, name, sizeof name);
        if (_stricmp(name, TOOLBARCLASSNAMEA) == 0 &&
            ::SendMessageA(child, TB_COMMANDTOINDEX, static_cast<WPARAM>(button), 0) >= 0)
        {
            return child;
        }
    }
    return nullptr;
}

class LockedFileDlg : public NativeFileDlg
{
protected:
    void SetUp() override
    {
        NativeFileDlg::SetUp();
        m_dlg.SetNoChangeDir();
    }
};

} // namespace

TEST_F(LockedFileDlg, TheFolderOfTheDialogCantBeChosen)
{
    LookAt([](HWND dialog) { EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(dialog, kLookIn))); });
}

TEST_F(NativeFileDlg, ADialogThatIsntLockedLetsTheFolderBeChosen)
{
    LookAt([](HWND dialog) {
        EXPECT_TRUE(::IsWindowEnabled(::GetDlgItem(dialog, kLookIn)));
        EXPECT_THAT(support::FileListTexts(dialog), Contains("sub"));
    });
}

TEST_F(LockedFileDlg, TheListHasNoFolders)
{
    m_folder.MakeFolder("sub2");
    m_folder.MakeFolder("sub3");
    m_folder.MakeFolder("sub4");
    ModalScript script;
    script
        .Then(
            [] {
                const HWND dialog = FindFileDialog();
                if (!dialog)
                {
                    return dialog;
                }
                // What the system asks at every selection; each time at least every other folder goes.
                ::SendMessageA(support::FileListOf(dialog), LVM_GETSELECTEDCOUNT, 0, 0);
                return support::FileListTexts(dialog) == std::vector<std::string>{"a.tif", "b.tif"} ? dialog : nullptr;
            },
            [](HWND dialog) {
                SetFileName(dialog, "b.tif");
                PressButton(dialog, IDOK);
            })
        .Start();
    EXPECT_TRUE(Open());
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("b.tif")));
}

TEST_F(LockedFileDlg, TheCurrentFolderStaysAndNoHistoryIsWritten)
{
    const std::string before = support::CurrentFolder();
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "a.tif"); }));
    EXPECT_EQ(support::CurrentFolder(), before);
    EXPECT_EQ(History(), "(nothing)");
}

TEST_F(NativeFileDlg, ADialogThatIsntLockedLeavesItsFolderAsTheCurrentOne)
{
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "a.tif"); }));
    EXPECT_EQ(support::CurrentFolder() + "\\", m_folder.Path());
}

TEST_F(LockedFileDlg, ItBeginsInTheFirstFolderOfTheCategoryAndDoesntShowAny)
{
    m_dlg.SetInitFile("a.tif");
    DfltFldrs::Instance()->SaveDirHist(kKey, m_folder.Path().c_str());
    const std::string history = History();
    EXPECT_TRUE(Ask([&](HWND dialog) {
        EXPECT_EQ(support::ShownFolder(dialog) + "\\", m_folder.Path());
        EXPECT_FALSE(IsShown(ControlOf(dialog, kFolders)));
        EXPECT_FALSE(IsShown(ControlOf(dialog, kFoldersLabel)));
        EXPECT_THAT(FolderTexts(dialog), IsEmpty());
        EXPECT_TRUE(IsShown(ControlOf(dialog, kOptions)));
    }));
    EXPECT_EQ(History(), history);
}

TEST_F(LockedFileDlg, EveryOtherOfTheFoldersGoesAtEachPassAndWhatCantBeAskedForGoesToo)
{
    support::TestFrame frame;
    m_folder.MakeFolder("sub2");
    m_folder.MakeFolder("sub3");
    OwnList list(frame, {"sub", "sub2", "sub3", "a.tif", "no such file", std::string(260, 'x'), "b.tif"});
    LookAt([&](HWND) {
        EXPECT_EQ(list.Rows().size(), 7U) << "other messages take nothing away";
        list.SetRedraw(FALSE); // or what is repainted meanwhile is another pass
        list.SendMessage(LVM_GETSELECTEDCOUNT);
        EXPECT_THAT(list.Rows(), ElementsAre("sub2", "a.tif", std::string(260, 'x'), "b.tif"))
            << "the row behind one that goes is passed over";
        list.SendMessage(WM_NCPAINT, 1);
        EXPECT_THAT(list.Rows(), ElementsAre("a.tif", "b.tif"));
    });
    list.SendMessage(LVM_GETSELECTEDCOUNT);
    EXPECT_EQ(list.Rows().size(), 2U);
}

TEST_F(LockedFileDlg, NothingIsTakenOffListsOnceTheDialogIsGone)
{
    support::TestFrame frame;
    LookAt([](HWND) {});
    OwnList list(frame, {"no such file", "neither"});
    list.SendMessage(LVM_GETSELECTEDCOUNT);
    EXPECT_EQ(list.Rows().size(), 2U);
}

TEST_F(LockedFileDlg, TheFirstToolBarThatIsMetLosesItsTwoButtons)
{
    support::TestFrame frame;
    OwnToolBar bar(frame);
    OwnList list(frame, {});
    {
        // Lets the test's tool bar be the first: sends it something while the dialog is coming up.
        const SentMessages first([&] { bar.SendMessage(TB_BUTTONCOUNT); });
        LookAt([&](HWND) {
            list.SendMessage(LVM_GETITEMCOUNT);
            EXPECT_EQ(bar.State(kUp), kHiddenState);
            EXPECT_EQ(bar.State(kNewFolder), kHiddenState);
            EXPECT_EQ(bar.State(OwnToolBar::kOther), TBSTATE_ENABLED);
            bar.SendMessage(TB_SETSTATE, kUp, TBSTATE_ENABLED);
            list.SendMessage(LVM_GETITEMCOUNT);
            EXPECT_EQ(bar.State(kUp), kHiddenState) << "at any message of a list";
        });
    }
    bar.SendMessage(TB_SETSTATE, kUp, TBSTATE_ENABLED);
    list.SendMessage(LVM_GETITEMCOUNT);
    EXPECT_EQ(bar.State(kUp), TBSTATE_ENABLED);
    LookAt([&](HWND) {
        list.SendMessage(LVM_GETITEMCOUNT);
        EXPECT_EQ(bar.State(kUp), TBSTATE_ENABLED) << "the next dialog meets another one first";
    });
}

TEST_F(LockedFileDlg, TheButtonsOfTheSystemsDialogAreHiddenUnlessItsPlacesAreMetFirst)
{
    LookAt([&](HWND dialog) {
        char name[32] = "";
        ::GetClassNameA(::GetDlgItem(dialog, kPlaces), name, sizeof name);
        const bool placesAreAToolBar = _stricmp(name, TOOLBARCLASSNAMEA) == 0;
        const HWND bar = ToolBarWith(dialog, kUp);
        ASSERT_NE(bar, nullptr);
        for (const int button : {kUp, kNewFolder})
        {
            const bool hidden =
                (::SendMessageA(bar, TB_GETSTATE, static_cast<WPARAM>(button), 0) & TBSTATE_HIDDEN) != 0;
            EXPECT_EQ(hidden, !placesAreAToolBar) << button;
        }
    });
}

TEST_F(LockedFileDlg, OneAfterTheOtherIsLockedAndThenOneIsOpenAgain)
{
    for (int round = 0; round < 2; ++round)
    {
        LookAt([](HWND dialog) { EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(dialog, kLookIn))); });
    }
    NativeQuestion open;
    open.SetInitFile(m_folder.Path().c_str());
    ModalScript script;
    script
        .Then(FindFileDialog,
              [](HWND dialog) {
                  ::SendMessageA(support::FileListOf(dialog), LVM_GETSELECTEDCOUNT, 0, 0);
                  EXPECT_THAT(support::FileListTexts(dialog), Contains("sub"));
                  PressButton(dialog, IDCANCEL);
              })
        .Start();
    EXPECT_FALSE(open.OpenMFCFileDlg(FileDlg::kLoad, kFilter, 0, nullptr, ""));
    EXPECT_TRUE(script.Done());
}

TEST_F(LockedFileDlg, StaysLockedAfterOneThatWasUpInsideIt)
{
    static constexpr char kInner[] = "Inner";
    support::TestFrame frame;
    const auto loses = [&](char const* row) {
        OwnList rows(frame, {row});
        rows.SendMessage(LVM_GETSELECTEDCOUNT);
        return rows.Rows().empty();
    };
    NativeQuestion inner;
    inner.SetCaption(kInner);
    inner.SetInitFile(m_folder.Path().c_str());
    inner.SetNoChangeDir();
    ModalScript script;
    script
        .Then(FindFileDialog,
              [&](HWND dialog) {
                  EXPECT_FALSE(inner.OpenMFCFileDlg(FileDlg::kLoad, kFilter, 0, nullptr, ""));
                  EXPECT_TRUE(loses("no such file"));
                  PressButton(dialog, IDCANCEL);
              })
        .Then(
            [] {
                const HWND dialog = support::FindThreadWindow("#32770", kInner);
                return dialog && support::FileListOf(dialog) ? dialog : nullptr;
            },
            [&](HWND dialog) {
                EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(dialog, kLookIn)));
                EXPECT_TRUE(loses("no such file"));
                PressButton(dialog, IDCANCEL);
            })
        .Start();
    EXPECT_FALSE(Open());
    EXPECT_TRUE(script.Done());
    EXPECT_FALSE(loses("no such file"));
}
