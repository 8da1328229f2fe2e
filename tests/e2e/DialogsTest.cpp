#include "WorkbenchFixture.h"

#include "workbench/resource.h"

#include <functional>

namespace e2e
{
namespace
{
using support::Click;
using support::PressKey;
using support::PumpUntil;
using support::TypeText;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr char kSettingsTitle[] = "Settings";
constexpr char kColorTitle[] = "Color";
constexpr int kRedField = 706; // of the system's dialog; green and blue follow
constexpr int kNeverAgain = 5555;
constexpr int kQuestion = 1001;
constexpr int kOpenDetails = 6006;
constexpr int kDetailsField = 6005;
constexpr int kMessageField = 6007;
constexpr char kPlacesKey[] = "Software\\TavKit\\TavKit Workbench\\WindowPositions\\Workbench Settings";

bool operator==(const RECT& a, const RECT& b) { return ::EqualRect(&a, &b) != FALSE; }

std::optional<DWORD> SettingsNumber(const char* name)
{
    DWORD value = 0;
    DWORD size = sizeof value;
    const bool found = ::RegGetValueA(HKEY_CURRENT_USER, kSettingsKey, name, RRF_RT_REG_DWORD, nullptr, &value,
                                      &size) == ERROR_SUCCESS;
    return found ? std::optional(value) : std::nullopt;
}

void WriteNumber(const char* key, const char* name, DWORD value)
{
    ASSERT_EQ(::RegSetKeyValueA(HKEY_CURRENT_USER, key, name, REG_DWORD, &value, sizeof value), ERROR_SUCCESS);
}

/// Hands for the dialogs of the workbench.
class DialogsTest : public WorkbenchTest
{
protected:
    /// Waits until a dialog of that title is in front; null when it doesn't come.
    HWND AwaitDialog(const char* title)
    {
        HWND dialog = nullptr;
        const bool came = PumpUntil([&] {
            return (dialog = Workbench().Popup(kDialogClass, title)) != nullptr && ::GetForegroundWindow() == dialog;
        });
        if (came)
        {
            // A dialog is visible before it is done with opening; it answers when its own loop runs.
            ::SendMessageA(dialog, WM_NULL, 0, 0);
            support::Settle();
        }
        return came ? dialog : nullptr;
    }
    [[nodiscard]] static bool IsGone(HWND window)
    {
        return PumpUntil([&] { return !::IsWindow(window); });
    }
    [[nodiscard]] bool HasFocus(HWND window)
    {
        return PumpUntil([&] { return Workbench().Focus() == window; });
    }

    /// Opens the settings by their keys.
    void OpenSettings()
    {
        PressKey(VK_OEM_COMMA, {VK_CONTROL});
        m_dialog = AwaitDialog(kSettingsTitle);
        ASSERT_NE(m_dialog, nullptr);
        m_page = ::FindWindowExA(m_dialog, nullptr, kDialogClass, nullptr);
        ASSERT_NE(m_page, nullptr);
        ASSERT_TRUE(HasFocus(Field(IDC_SETTINGS_PIXEL_SIZE)));
    }
    void CloseSettings(WORD key)
    {
        PressKey(key);
        ASSERT_TRUE(IsGone(m_dialog));
    }
    [[nodiscard]] HWND Dialog() const { return m_dialog; }
    [[nodiscard]] HWND Page() const { return m_page; }
    [[nodiscard]] HWND Field(int id) const { return ::GetDlgItem(m_page, id); }

    /// Chooses a colour through the button of the page, in the system's dialog.
    void ChooseColor(int button, int red, int green, int blue)
    {
        Click(Field(button));
        HWND chooser = AwaitDialog(kColorTitle);
        ASSERT_NE(chooser, nullptr);
        int id = kRedField;
        for (const int value : {red, green, blue})
        {
            HWND part = ::GetDlgItem(chooser, id++);
            ASSERT_TRUE(ClickUntil(part, [&] { return Workbench().Focus() == part; }));
            PressKey(VK_HOME);
            PressKey(VK_END, {VK_SHIFT});
            TypeText(std::to_string(value));
            ASSERT_TRUE(PumpUntil([&] { return TextOf(part) == std::to_string(value); }));
        }
        PressKey(VK_RETURN);
        ASSERT_TRUE(IsGone(chooser));
    }

    /// Presses Del in the list and answers the question.
    void AnswerDelete(WORD letter, bool neverAgain)
    {
        PressKey(VK_DELETE);
        HWND box = AwaitDialog(kTitle);
        ASSERT_NE(box, nullptr);
        if (neverAgain)
        {
            HWND check = ::GetDlgItem(box, kNeverAgain);
            ASSERT_TRUE(ClickUntil(check, [&] { return ::SendMessageA(check, BM_GETCHECK, 0, 0) == BST_CHECKED; }));
        }
        PressKey(letter, {VK_MENU});
        ASSERT_TRUE(IsGone(box));
    }

    void WriteThree()
    {
        for (const char* name : {"a.bmp", "b.bmp", "c.bmp"})
        {
            WriteTwoColours(name, 40, 40);
        }
    }
    [[nodiscard]] bool Lists(const std::vector<std::string>& names)
    {
        return PumpUntil([&] { return Workbench().Names() == names; });
    }

private:
    HWND m_dialog = nullptr;
    HWND m_page = nullptr;
};

using WorkbenchLayout = DialogsTest;
using WorkbenchSettings = DialogsTest;
using WorkbenchDelete = DialogsTest;
using WorkbenchDetails = DialogsTest;

TEST_F(WorkbenchLayout, SharesFurtherHeightBetweenViewAndTableAndGivesAllWidthToBoth)
{
    Start(WriteTwoColours("two.bmp", 200, 100));
    HWND frame = Workbench().Window();
    const auto place = [&](int id) {
        RECT rect = WindowRect(::GetDlgItem(frame, id));
        ::MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    };
    const auto moved = [](RECT rect, LONG left, LONG top, LONG right, LONG bottom) {
        return RECT{rect.left + left, rect.top + top, rect.right + right, rect.bottom + bottom};
    };
    const int ids[]{IDC_PICTURE_LABEL, IDC_PICTURE_LIST, IDC_PICTURE_VIEW, IDC_PIXEL_LABEL,
                    IDC_PIXEL_SIZE,    IDC_PIXEL_UNIT,   IDC_TABLE_PANE};
    for (const POINT by : {POINT{70, 50}, POINT{-130, -90}, POINT{60, -35}})
    {
        std::vector<RECT> before;
        for (const int id : ids)
        {
            before.push_back(place(id));
        }
        const RECT project = place(IDC_PROJECT_PANE);
        DragCorner(Workbench(), frame, by.x, by.y);
        const LONG down = by.y * 3 / 5; // the view's part; the table gets the rest
        ASSERT_TRUE(PumpUntil([&] { return place(IDC_PICTURE_VIEW) == moved(before[2], 0, 0, by.x, down); }));
        // The project shares what the view gets with the list under it.
        const LONG share = place(IDC_PROJECT_PANE).bottom - project.bottom;
        EXPECT_NEAR(share, by.y * 0.36, 1.0);
        EXPECT_TRUE(place(IDC_PROJECT_PANE) == moved(project, 0, 0, 0, share));
        EXPECT_TRUE(place(IDC_PICTURE_LABEL) == moved(before[0], 0, share, 0, share));
        EXPECT_TRUE(place(IDC_PICTURE_LIST) == moved(before[1], 0, share, 0, down));
        for (size_t i = 3; i < std::size(ids) - 1; ++i)
        {
            EXPECT_TRUE(place(ids[i]) == moved(before[i], 0, down, 0, down)) << i;
        }
        EXPECT_TRUE(place(IDC_TABLE_PANE) == moved(before.back(), 0, down, by.x, by.y));
    }
}

TEST_F(WorkbenchSettings, AreTakenOverAtOKAndRememberedUntilTheNextStart)
{
    const std::string picture = WriteTwoColours("two.bmp", 200, 100);
    Start(picture);
    OpenSettings();
    TypeText("0.x5"); // no letters here either
    ASSERT_TRUE(PumpUntil([&] { return TextOf(Field(IDC_SETTINGS_PIXEL_SIZE)) == "0.5"; }));
    ChooseColor(IDC_SETTINGS_BACKGROUND, 10, 20, 30);
    ChooseColor(IDC_SETTINGS_PLATE, 250, 240, 0);
    EXPECT_EQ(TextOf(Field(IDC_SETTINGS_BACKGROUND)), "#0A141E");
    EXPECT_EQ(TextOf(Field(IDC_SETTINGS_PLATE)), "#FAF000");
    EXPECT_EQ(TextOf(Field(IDC_SETTINGS_BAR)), "#000000");
    const int right = ClientSize(Workbench().View()).cx - 3; // beside the dialog
    EXPECT_TRUE(Becomes(Workbench().View(), right, 2, ::GetSysColor(COLOR_APPWORKSPACE))) << "not before OK";
    CloseSettings(VK_RETURN);
    for (int round = 0; round < 2; ++round)
    {
        EXPECT_TRUE(PumpUntil([&] { return Workbench().FieldText() == "0.5"; }));
        EXPECT_TRUE(ViewHolds("scale bar 20 \xB5m"));
        EXPECT_TRUE(Becomes(Workbench().View(), 2, 2, RGB(10, 20, 30)));
        if (round == 0)
        {
            Start(picture);
        }
    }
    EXPECT_EQ(SettingsNumber("ScaleBarPlate"), std::optional<DWORD>(RGB(250, 240, 0)));
    EXPECT_EQ(SettingsNumber("ScaleBar"), std::nullopt) << "a default isn't written";
}

TEST_F(WorkbenchSettings, EscChangesNothing)
{
    Start(WriteTwoColours("two.bmp", 200, 100));
    OpenSettings();
    TypeText("7");
    ASSERT_TRUE(PumpUntil([&] { return TextOf(Field(IDC_SETTINGS_PIXEL_SIZE)) == "7"; }));
    ChooseColor(IDC_SETTINGS_BACKGROUND, 200, 0, 0);
    Click(Field(IDC_SETTINGS_ASK));
    CloseSettings(VK_ESCAPE);
    EXPECT_EQ(Workbench().FieldText(), "");
    EXPECT_TRUE(Becomes(Workbench().View(), 2, 2, ::GetSysColor(COLOR_APPWORKSPACE)));
    EXPECT_EQ(SettingsNumber("Background"), std::nullopt);
    EXPECT_EQ(SettingsNumber("AskBeforeDelete"), std::nullopt);
    EXPECT_TRUE(HasFocus(Workbench().List()));
}

TEST_F(WorkbenchSettings, DefaultColoursForgetTheChosenOnes)
{
    for (const char* name : {"Background", "ScaleBar", "ScaleBarPlate"})
    {
        WriteNumber(kSettingsKey, name, RGB(1, 2, 3));
    }
    Start(WriteTwoColours("two.bmp", 200, 100));
    EXPECT_TRUE(Becomes(Workbench().View(), 2, 2, RGB(1, 2, 3)));
    OpenSettings();
    EXPECT_EQ(TextOf(Field(IDC_SETTINGS_BAR)), "#010203");
    PressKey('D', {VK_MENU});
    EXPECT_TRUE(PumpUntil([&] { return TextOf(Field(IDC_SETTINGS_BAR)) == "#000000"; }));
    EXPECT_EQ(TextOf(Field(IDC_SETTINGS_PLATE)), "#FFFFFF");
    Click(::GetDlgItem(Dialog(), IDOK));
    ASSERT_TRUE(IsGone(Dialog()));
    EXPECT_TRUE(Becomes(Workbench().View(), 2, 2, ::GetSysColor(COLOR_APPWORKSPACE)));
    for (const char* name : {"Background", "ScaleBar", "ScaleBarPlate"})
    {
        EXPECT_EQ(SettingsNumber(name), std::nullopt) << name;
    }
}

TEST_F(WorkbenchSettings, ValuesOfTheWrongKindOrOutOfRangeLeaveTheDefaults)
{
    WriteNumber(kSettingsKey, "Background", 0x7FFFFFFF);
    WriteNumber(kSettingsKey, "ScaleBarPlate", 0x01000000);
    ::RegSetKeyValueA(HKEY_CURRENT_USER, kSettingsKey, "ScaleBar", REG_SZ, "red", sizeof "red");
    WriteNumber(kPlacesKey, "(valid)", 1);
    for (const char* edge : {"Left", "Right", "Top", "Bottom"})
    {
        WriteNumber(kPlacesKey, edge, 0x7FFFFFFF);
    }
    Start(WriteTwoColours("two.bmp", 200, 100));
    EXPECT_TRUE(Becomes(Workbench().View(), 2, 2, ::GetSysColor(COLOR_APPWORKSPACE)));
    OpenSettings();
    EXPECT_EQ(TextOf(Field(IDC_SETTINGS_BAR)), "#000000");
    EXPECT_EQ(TextOf(Field(IDC_SETTINGS_PLATE)), "#FFFFFF");
    const RECT place = WindowRect(Dialog());
    EXPECT_GE(place.left, 0);
    EXPECT_LE(place.right, ::GetSystemMetrics(SM_CXSCREEN));
    CloseSettings(VK_ESCAPE);
}

TEST_F(WorkbenchSettings, ComeBackInTheNextProcessWhereTheyWereLeft)
{
    Start(Samples());
    OpenSettings();
    const RECT first = WindowRect(Dialog());
    DragCorner(Workbench(), Dialog(), 60, -100);
    const RECT left = WindowRect(Dialog());
    EXPECT_EQ(left.right, first.right + 60);
    EXPECT_EQ(left.bottom, first.bottom - 100) << "lower than it was designed";
    CloseSettings(VK_ESCAPE);
    Start(Samples());
    OpenSettings();
    EXPECT_TRUE(WindowRect(Dialog()) == left);
    CloseSettings(VK_ESCAPE);
}

TEST_F(WorkbenchSettings, PageScrollsWhileTheDialogIsLow)
{
    Start(Samples());
    OpenSettings();
    const auto hasBar = [&] { return (::GetWindowLongA(Page(), GWL_STYLE) & WS_VSCROLL) != 0; };
    EXPECT_FALSE(hasBar());
    DragCorner(Workbench(), Dialog(), -500, -500);
    EXPECT_TRUE(PumpUntil(hasBar));
    EXPECT_GT(ClientSize(Page()).cy, 60) << "some of the page stays in view";
    const LONG top = WindowRect(Field(IDC_SETTINGS_PIXEL_SIZE)).top;
    support::MoveMouse(support::CenterOf(Page()));
    support::TurnWheel(-1);
    EXPECT_TRUE(PumpUntil([&] { return WindowRect(Field(IDC_SETTINGS_PIXEL_SIZE)).top < top; }));
    DragCorner(Workbench(), Dialog(), 0, 400);
    EXPECT_TRUE(PumpUntil([&] { return !hasBar() && WindowRect(Field(IDC_SETTINGS_PIXEL_SIZE)).top == top; }));
    CloseSettings(VK_ESCAPE);
}

TEST_F(WorkbenchSettings, TabGoesThroughThePageAndOnToTheButtonsAndBringsEachIntoView)
{
    Start(Samples());
    OpenSettings();
    DragCorner(Workbench(), Dialog(), -500, -500);
    const int fields[]{IDC_SETTINGS_BACKGROUND, IDC_SETTINGS_BAR, IDC_SETTINGS_PLATE, IDC_SETTINGS_DEFAULT_COLORS,
                       IDC_SETTINGS_ASK};
    const auto isInView = [&](HWND field) {
        const RECT outer = WindowRect(Page());
        const RECT inner = WindowRect(field);
        return inner.top >= outer.top && inner.bottom <= outer.bottom;
    };
    for (const int id : fields)
    {
        PressKey(VK_TAB);
        ASSERT_TRUE(HasFocus(Field(id))) << id;
        EXPECT_TRUE(PumpUntil([&] { return isInView(Field(id)); })) << id;
    }
    for (const int id : {IDOK, IDCANCEL})
    {
        PressKey(VK_TAB);
        ASSERT_TRUE(HasFocus(::GetDlgItem(Dialog(), id))) << id;
    }
    PressKey(VK_TAB);
    ASSERT_TRUE(HasFocus(Field(IDC_SETTINGS_PIXEL_SIZE)));
    EXPECT_TRUE(PumpUntil([&] { return isInView(Field(IDC_SETTINGS_PIXEL_SIZE)); }));
    PressKey('A', {VK_MENU});
    EXPECT_TRUE(HasFocus(Field(IDC_SETTINGS_ASK))) << "the letters lead there too";
    CloseSettings(VK_ESCAPE);
}

TEST_F(WorkbenchDelete, NoKeepsThePictureAndYesTakesItOffTheListOnly)
{
    WriteThree();
    Start(Folder().string());
    PressKey(VK_DOWN);
    ASSERT_TRUE(Shows((Folder() / "b.bmp").string()));
    AnswerDelete('N', false);
    EXPECT_TRUE(Lists({"a.bmp", "b.bmp", "c.bmp"}));
    AnswerDelete('Y', false);
    EXPECT_TRUE(Lists({"a.bmp", "c.bmp"}));
    EXPECT_TRUE(Shows((Folder() / "c.bmp").string())) << "the next one is shown";
    EXPECT_TRUE(std::filesystem::exists(Folder() / "b.bmp"));
    PressKey(VK_F5);
    EXPECT_TRUE(Lists({"a.bmp", "b.bmp", "c.bmp"}));
    EXPECT_EQ(Workbench().Chosen(), "c.bmp");
}

TEST_F(WorkbenchDelete, AnAmpersandInTheNameIsPartOfItAndNotTheMarkOfALetter)
{
    WriteTwoColours("a&b.bmp", 40, 40);
    Start(Folder().string());
    ASSERT_TRUE(Lists({"a&b.bmp"}));
    PressKey(VK_DELETE);
    HWND box = AwaitDialog(kTitle);
    ASSERT_NE(box, nullptr);
    HWND text = ::GetDlgItem(box, kQuestion);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(::GetWindowLongA(text, GWL_STYLE) & SS_NOPREFIX, 0) << "so that a single one would be a mark";
    EXPECT_THAT(TextOf(text), HasSubstr("Delete \"a&&b.bmp\" from the list?"));
    PressKey('B', {VK_MENU}); // the letter of nothing
    PressKey('N', {VK_MENU});
    ASSERT_TRUE(IsGone(box));
    EXPECT_TRUE(Lists({"a&b.bmp"}));
    AnswerDelete('Y', false);
    EXPECT_TRUE(Lists({}));
}

TEST_F(WorkbenchDelete, OnlyAYesIsRememberedAndTheSettingsBringTheQuestionBack)
{
    WriteThree();
    Start(Folder().string());
    AnswerDelete('N', true);
    AnswerDelete('Y', true); // asked in spite of the check at "No"
    EXPECT_TRUE(Lists({"b.bmp", "c.bmp"}));
    PressKey(VK_DELETE);
    EXPECT_TRUE(Lists({"c.bmp"})) << "unasked";
    Start(Folder().string());
    PressKey(VK_DELETE);
    EXPECT_TRUE(Lists({"b.bmp", "c.bmp"})) << "unasked in the next process too";
    OpenSettings();
    HWND ask = Field(IDC_SETTINGS_ASK);
    EXPECT_EQ(::SendMessageA(ask, BM_GETCHECK, 0, 0), BST_UNCHECKED);
    ASSERT_TRUE(ClickUntil(ask, [&] { return ::SendMessageA(ask, BM_GETCHECK, 0, 0) == BST_CHECKED; }));
    CloseSettings(VK_RETURN);
    AnswerDelete('N', false);
    EXPECT_TRUE(Lists({"b.bmp", "c.bmp"}));
}

TEST_F(WorkbenchDelete, IsInTheMenuAndTheLastPictureLeavesAMessage)
{
    WriteTwoColours("only.bmp", 40, 40);
    Start(Folder().string());
    for (const bool again : {false, true})
    {
        PressKey('E', {VK_MENU});
        ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
        PressKey('D');
        if (!again)
        {
            HWND box = AwaitDialog(kTitle);
            ASSERT_NE(box, nullptr);
            ASSERT_TRUE(ClickUntil(::GetDlgItem(box, IDYES), [&] { return !::IsWindow(box); }));
            EXPECT_TRUE(Lists({}));
            EXPECT_TRUE(ViewHolds("F5 brings them back."));
        }
    }
    PressKey(VK_ESCAPE); // the grey item left its menu open
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(PumpUntil([&] { return !Workbench().IsInModalLoop(); }));
    EXPECT_EQ(Workbench().Popup(kDialogClass), nullptr) << "there is nothing to ask about";
    PressKey(VK_F5);
    EXPECT_TRUE(Shows((Folder() / "only.bmp").string()));
}

TEST_F(WorkbenchDelete, DelInTheFieldDeletesText)
{
    Start(Samples());
    Click(Workbench().Field());
    ASSERT_TRUE(HasFocus(Workbench().Field()));
    TypeText("12");
    PressKey(VK_HOME);
    PressKey(VK_DELETE);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().FieldText() == "2"; }));
    EXPECT_EQ(Workbench().Popup(kDialogClass), nullptr);
}

TEST_F(WorkbenchDetails, AreOpenedByTheButtonByEnterInTheListAndByTheMenu)
{
    WriteFile("bad.tif", std::string("II*\0\x08\0\0\0", 8));
    Start(Folder().string());
    ASSERT_TRUE(Shows("\"bad.tif\" can't be read."));
    const std::function<void()> ways[]{
        [&] { Click(::GetDlgItem(Workbench().View(), IDC_PICTURE_DETAILS)); },
        [&] {
            Workbench().ClickLine(0);
            PressKey(VK_RETURN);
        },
        [&] {
            PressKey('V', {VK_MENU});
            ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
            PressKey('D');
        },
    };
    for (const auto& open : ways)
    {
        open();
        HWND dialog = AwaitDialog(kTitle);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(TextOf(::GetDlgItem(dialog, kMessageField)), "\"bad.tif\" can't be read.");
        HWND field = ::GetDlgItem(dialog, kDetailsField);
        EXPECT_GT(WindowRect(field).top, WindowRect(dialog).bottom - 10) << "closed at first";
        EXPECT_TRUE(ClickUntil(::GetDlgItem(dialog, kOpenDetails),
                               [&] { return WindowRect(field).bottom < WindowRect(dialog).bottom; }));
        const std::string text = TextOf(field);
        EXPECT_THAT(text, HasSubstr("File: " + (Folder() / "bad.tif").string() + "\r\n"));
        EXPECT_THAT(text, HasSubstr("Size: 8 bytes\r\n"));
        EXPECT_THAT(text, HasSubstr("Begins with: 49 49 2A 00 08 00 00 00\r\n"));
        EXPECT_THAT(text, HasSubstr("Failed: opening the file\r\nCause: "));
        EXPECT_TRUE(HasFocus(field)) << "and not the button that is grey now";
        PressKey(VK_ESCAPE);
        ASSERT_TRUE(IsGone(dialog));
        ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == Workbench().Window(); }));
    }
}

TEST_F(WorkbenchDetails, TellWhatFailedForEachKindOfDamage)
{
    const std::string gone = WriteTwoColours("gone.bmp", 200, 100);
    Start(gone);
    ASSERT_TRUE(Shows(gone));
    std::filesystem::remove(gone);
    DragCorner(Workbench(), Workbench().Window(), -40, 0);
    ASSERT_TRUE(Shows("\"" + gone + "\" can no longer be read."));
    PressKey(VK_RETURN);
    HWND dialog = AwaitDialog(kTitle);
    ASSERT_NE(dialog, nullptr);
    EXPECT_THAT(TextOf(::GetDlgItem(dialog, kDetailsField)), HasSubstr("The file isn't there"));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(IsGone(dialog));

    WriteTwoColours("gone.bmp", 200, 100);
    PressKey(VK_RETURN);
    dialog = AwaitDialog(kTitle);
    ASSERT_NE(dialog, nullptr);
    EXPECT_THAT(TextOf(::GetDlgItem(dialog, kDetailsField)), HasSubstr("can be read at present. F5 reads it anew."));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(IsGone(dialog));
}

TEST_F(WorkbenchDetails, ButtonGoesWithTheMessageAndLeavesTheFocusToTheList)
{
    WriteTwoColours("a.bmp", 40, 40);
    WriteFile("b.tif", "");
    Start(Folder().string());
    HWND button = ::GetDlgItem(Workbench().View(), IDC_PICTURE_DETAILS);
    EXPECT_FALSE(::IsWindowVisible(button));
    PressKey(VK_RETURN); // of a good picture there is nothing to tell
    PressKey(VK_DOWN);
    ASSERT_TRUE(Shows("\"b.tif\" can't be read."));
    EXPECT_EQ(Workbench().Popup(kDialogClass), nullptr);
    EXPECT_TRUE(PumpUntil([&] { return ::IsWindowVisible(button) != FALSE; }));
    PressKey(VK_TAB);
    ASSERT_TRUE(HasFocus(button)) << "it lies between list and field";
    PressKey(VK_PRIOR, {VK_CONTROL});
    ASSERT_TRUE(Shows((Folder() / "a.bmp").string()));
    EXPECT_TRUE(HasFocus(Workbench().List()));
    EXPECT_FALSE(::IsWindowVisible(button));
}
} // namespace
} // namespace e2e
