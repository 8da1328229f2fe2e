#include "WorkbenchFixture.h"

#include "automation/Screenshot.h"
#include "workbench/resource.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>

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
using testing::IsEmpty;
using testing::Not;

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

std::string ReadBytes(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The longest run of one colour in any row of a window's client area, as it stands on the screen.
int LongestRun(HWND window, COLORREF color)
{
    const SIZE size = ClientSize(window);
    const POINT origin = support::ScreenPoint(window, 0, 0);
    const automation::Screenshot shot({origin.x, origin.y, origin.x + size.cx, origin.y + size.cy});
    int longest = 0;
    for (int y = 0; y < shot.Height(); ++y)
    {
        int run = 0;
        for (int x = 0; x < shot.Width(); ++x)
        {
            run = shot.ColourAt(x, y) == color ? run + 1 : 0;
            longest = std::max(longest, run);
        }
    }
    return longest;
}

/// Empties the field and types into it.
void Retype(const WorkbenchProcess& workbench, const std::string& text)
{
    Click(workbench.Field());
    ASSERT_TRUE(PumpUntil([&] { return workbench.Focus() == workbench.Field(); }));
    PressKey(VK_HOME);
    PressKey(VK_END, {VK_SHIFT});
    PressKey(VK_DELETE);
    ASSERT_TRUE(PumpUntil([&] { return workbench.FieldText().empty(); }));
    TypeText(text);
}

using WorkbenchStart = WorkbenchTest;
using WorkbenchPicture = WorkbenchTest;
using WorkbenchScaleBar = WorkbenchTest;
using WorkbenchKeys = WorkbenchTest;
using WorkbenchAbout = WorkbenchTest;
using WorkbenchBadInput = WorkbenchTest;

TEST_F(WorkbenchStart, ShowsTitleAndThePicturesOfTheSamplesInOrder)
{
    Start(Samples());
    EXPECT_EQ(TextOf(Workbench().Window()), kTitle);
    EXPECT_THAT(Workbench().Names(),
                ElementsAre("cell16.tif", "cell8.tif", "cell_float.tif", "deepfield.tif", "slides.tif", "tissue.png"));
    EXPECT_EQ(Workbench().Chosen(), "cell16.tif");
    EXPECT_TRUE(Shows(support::SamplePath("cell16.tif")));
    EXPECT_EQ(Workbench().Status(statusName), "cell16.tif");
    EXPECT_EQ(Workbench().Status(statusSize), "550 x 660 pixels");
    EXPECT_EQ(Workbench().Status(statusType), "1 channel, 16 bit");
    EXPECT_THAT(Workbench().Status(statusZoom), testing::EndsWith(" %"));
}

TEST_F(WorkbenchStart, ShowsFromTheBeginningThatItIsTheActiveWindow)
{
    Start(Samples());
    const RECT frame = WindowRect(Workbench().Window());
    const POINT title{(frame.left + frame.right) / 2,
                      frame.top + ::GetSystemMetrics(SM_CYSIZEFRAME) + ::GetSystemMetrics(SM_CYCAPTION) / 2};
    const COLORREF before = support::ScreenPixel(title);
    // A box that comes and goes makes the window active beyond doubt.
    PressKey('H', {VK_MENU});
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
    PressKey('A');
    HWND about = nullptr;
    ASSERT_TRUE(
        PumpUntil([&] { return (about = Workbench().Popup(kDialogClass, "About TavKit Workbench")) != nullptr; }));
    ASSERT_TRUE(PumpUntil([&] { return support::ScreenPixel(title) != before; })) << "it looked inactive all along";
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(PumpUntil([&] { return !::IsWindow(about) && Workbench().Focus() == Workbench().List(); }));
    EXPECT_TRUE(PumpUntil([&] { return support::ScreenPixel(title) == before; }));
}

TEST_F(WorkbenchStart, WithAFileChoosesItAmongThoseOfItsFolder)
{
    Start(support::SamplePath("slides.tif"));
    EXPECT_EQ(Workbench().Chosen(), "slides.tif");
    EXPECT_EQ(Workbench().Names().size(), 6u);
}

TEST_F(WorkbenchStart, WithoutAPathFindsTheSamplesAboveTheProgram)
{
    WorkbenchProcess workbench("");
    ASSERT_NE(workbench.Window(), nullptr);
    EXPECT_THAT(workbench.Names(), testing::Contains("tissue.png"));
    PressKey(VK_F4, {VK_MENU});
    EXPECT_EQ(workbench.WaitForExit(20'000), 0u);
}

TEST_F(WorkbenchPicture, IsChosenByMouseAndKeyboardAndDescribedInTheStatusBar)
{
    Start(Samples());
    Workbench().ClickLine(5);
    ASSERT_TRUE(Shows(support::SamplePath("tissue.png")));
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusType) == "3 channels, 8 bit"; }));
    EXPECT_EQ(Workbench().Status(statusSize), "512 x 512 pixels");
    PressKey(VK_UP);
    ASSERT_TRUE(Shows(support::SamplePath("slides.tif")));
    PressKey(VK_HOME);
    ASSERT_TRUE(Shows(support::SamplePath("cell16.tif")));
    PressKey(VK_DOWN);
    PressKey(VK_DOWN);
    ASSERT_TRUE(Shows(support::SamplePath("cell_float.tif")));
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusType) == "1 channel, 32 bit float"; }));
}

TEST_F(WorkbenchPicture, FillsItsAreaKeepsItsAspectAndFollowsTheWindow)
{
    Start(WriteTwoColours("two.bmp", 400, 100));
    HWND view = Workbench().View();
    const COLORREF around = ::GetSysColor(COLOR_APPWORKSPACE);
    ASSERT_NE(around, kRed);
    for (const POINT drag : {POINT{0, 0}, POINT{60, -60}, POINT{-140, 40}})
    {
        const SIZE before = ClientSize(view);
        if (drag.x != 0)
        {
            DragCorner(Workbench(), Workbench().Window(), drag.x, drag.y);
            ASSERT_TRUE(PumpUntil([&] { return ClientSize(view).cx == before.cx + drag.x; }));
            constexpr double kViewPart = 0.6; // the table takes the rest of the height
            EXPECT_NEAR(ClientSize(view).cy, before.cy + kViewPart * drag.y, 1);
        }
        const SIZE size = ClientSize(view);
        ASSERT_LT(size.cx, 4 * size.cy) << "the picture takes the whole width";
        const int height = (size.cx + 2) / 4;
        const int top = (size.cy - height) / 2;
        const int middle = size.cx / 2;
        EXPECT_TRUE(Becomes(view, 0, top + 1, kRed)) << size.cx << " x " << size.cy;
        EXPECT_TRUE(Becomes(view, 0, top + height - 2, kRed));
        EXPECT_TRUE(Becomes(view, middle - 3, size.cy / 2, kRed));
        EXPECT_TRUE(Becomes(view, middle + 3, size.cy / 2, kBlue));
        EXPECT_TRUE(Becomes(view, size.cx - 1, top + 1, kBlue));
        EXPECT_TRUE(Becomes(view, middle, top - 2, around));
        EXPECT_TRUE(Becomes(view, middle, top + height + 1, around));
        const long percent = std::lround(100.0 * size.cx / 400);
        EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusZoom) == std::to_string(percent) + " %"; }));
    }
}

TEST_F(WorkbenchPicture, KeepsRoomForItsPartsWhateverTheDrag)
{
    Start(WriteTwoColours("two.bmp", 200, 100));
    DragCorner(Workbench(), Workbench().Window(), -900, -900);
    ASSERT_TRUE(PumpUntil([&] { return ClientSize(Workbench().View()).cx < 400; }));
    EXPECT_GT(ClientSize(Workbench().View()).cx, 150);
    EXPECT_GT(ClientSize(Workbench().View()).cy, 100);
    const RECT frame = WindowRect(Workbench().Window());
    const RECT unit = WindowRect(::GetDlgItem(Workbench().Window(), IDC_PIXEL_UNIT));
    EXPECT_LT(unit.right, frame.right);
    EXPECT_LT(unit.bottom, frame.bottom);
}

TEST_F(WorkbenchPicture, IsPaintedAgainBehindAWindowThatGoes)
{
    Start(WriteTwoColours("two.bmp", 200, 100));
    HWND view = Workbench().View();
    const SIZE size = ClientSize(view);
    ASSERT_TRUE(Becomes(view, size.cx / 4, size.cy / 2, kRed));
    const POINT corner = support::ScreenPoint(view, 0, 0);
    HWND cover = ::CreateWindowExA(WS_EX_TOPMOST | WS_EX_NOACTIVATE, "STATIC", "", WS_POPUP | SS_BLACKRECT, corner.x,
                                   corner.y, size.cx, size.cy, nullptr, nullptr, nullptr, nullptr);
    ::ShowWindow(cover, SW_SHOWNOACTIVATE);
    ::UpdateWindow(cover);
    EXPECT_FALSE(support::ScreenPixel(support::ScreenPoint(view, size.cx / 4, size.cy / 2)) == kRed);
    ::DestroyWindow(cover);
    EXPECT_TRUE(Becomes(view, size.cx / 4, size.cy / 2, kRed));
}

TEST_F(WorkbenchScaleBar, HasTheLengthThatItsLabelSays)
{
    Start(WriteTwoColours("two.bmp", 200, 100));
    HWND view = Workbench().View();
    const double zoom = std::min(ClientSize(view).cx / 200.0, ClientSize(view).cy / 100.0);
    // At half a micrometre the picture is 100 wide, and a third of it holds 20; at 3.2 it is 640, and holds 200.
    for (const auto& [typed, label, length] :
         {std::tuple{"0.5", "scale bar 20 \xB5m", 20 / 0.5}, std::tuple{"3.2", "scale bar 200 \xB5m", 200 / 3.2},
          std::tuple{"40", "scale bar 2 mm", 2000 / 40.0}, std::tuple{".002", "scale bar 100 nm", 0.1 / 0.002}})
    {
        Retype(Workbench(), typed);
        ASSERT_TRUE(ViewHolds(label)) << typed << ": " << Workbench().ViewText();
        const auto expected = static_cast<int>(std::lround(length * zoom));
        EXPECT_TRUE(PumpUntil([&] { return LongestRun(view, kBlack) == expected; }))
            << typed << ": " << LongestRun(view, kBlack) << " for " << expected;
        EXPECT_GT(LongestRun(view, kWhite), expected) << "it stands on a plate";
    }
}

TEST_F(WorkbenchScaleBar, ComesAndGoesAsTheNumberIsTyped)
{
    Start(WriteTwoColours("two.bmp", 200, 100));
    EXPECT_THAT(Workbench().ViewText(), Not(HasSubstr("scale bar")));
    EXPECT_EQ(LongestRun(Workbench().View(), kWhite), 0);
    for (const char* nothing : {"0", ".", "0.00"})
    {
        Retype(Workbench(), nothing);
        ASSERT_TRUE(PumpUntil([&] { return Workbench().FieldText() == nothing; }));
        EXPECT_THAT(Workbench().ViewText(), Not(HasSubstr("scale bar"))) << nothing;
    }
    TypeText("5"); // behind "0.00"
    EXPECT_TRUE(ViewHolds("scale bar 200 nm"));
    PressKey(VK_BACK);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().ViewText().find("scale bar") == std::string::npos; }));
    EXPECT_TRUE(PumpUntil([&] { return LongestRun(Workbench().View(), kWhite) == 0; }));
}

TEST_F(WorkbenchScaleBar, IsHiddenAndShownByCtrlB)
{
    Start(WriteTwoColours("two.bmp", 200, 100));
    Retype(Workbench(), "1");
    ASSERT_TRUE(ViewHolds("scale bar"));
    PressKey('B', {VK_CONTROL});
    EXPECT_TRUE(PumpUntil([&] { return Workbench().ViewText().find("scale bar") == std::string::npos; }));
    PressKey('B', {VK_CONTROL});
    EXPECT_TRUE(ViewHolds("scale bar"));
    EXPECT_EQ(Workbench().FieldText(), "1");
}

TEST_F(WorkbenchScaleBar, FieldTakesNoLettersSignsOrSecondPoint)
{
    Start(WriteTwoColours("two.bmp", 200, 100));
    Retype(Workbench(), "-1a.e+2.x5,");
    EXPECT_TRUE(PumpUntil([&] { return Workbench().FieldText() == "1.25"; })) << Workbench().FieldText();
}

TEST_F(WorkbenchScaleBar, SizeIsRememberedUntilTheNextStart)
{
    const std::string picture = WriteTwoColours("two.bmp", 200, 100);
    Start(picture);
    Retype(Workbench(), "0.5");
    ASSERT_TRUE(ViewHolds("scale bar"));
    Start(picture);
    EXPECT_EQ(Workbench().FieldText(), "0.5");
    EXPECT_TRUE(ViewHolds("scale bar 20 \xB5m"));
    Retype(Workbench(), "");
    Start(picture);
    EXPECT_EQ(Workbench().FieldText(), "");
}

TEST_F(WorkbenchKeys, TabGoesRoundThePartsAndPassesOverTheClassesOfNoTable)
{
    Start(Samples());
    PressKey(VK_TAB);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Field(); }));
    PressKey(VK_TAB);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Table(); }));
    PressKey(VK_TAB);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().FindField(); }));
    PressKey(VK_TAB);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Tree(); }));
    PressKey(VK_TAB);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().List(); }));
    PressKey(VK_TAB, {VK_SHIFT});
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Tree(); }));
}

TEST_F(WorkbenchKeys, LettersOfTheLabelsLeadToTheirParts)
{
    Start(Samples());
    PressKey('P', {VK_MENU});
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Field(); }));
    PressKey('T', {VK_MENU});
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Table(); }));
    PressKey('J', {VK_MENU});
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Tree(); }));
    PressKey('C', {VK_MENU});
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().List(); }));
}

TEST_F(WorkbenchKeys, EnterKeepsAndEscTakesBackWhatWasTyped)
{
    Start(Samples());
    Retype(Workbench(), "1.5");
    PressKey(VK_RETURN);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().List(); }));
    EXPECT_EQ(Workbench().FieldText(), "1.5");
    PressKey(VK_TAB);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Field(); }));
    TypeText("77");
    ASSERT_TRUE(PumpUntil([&] { return Workbench().FieldText() == "77"; }));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().List(); }));
    EXPECT_EQ(Workbench().FieldText(), "1.5");
}

TEST_F(WorkbenchKeys, AClickOnThePictureLeavesTheFocusWhereItIs)
{
    Start(Samples());
    Click(Workbench().Field());
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Field(); }));
    Click(Workbench().View());
    support::Settle();
    EXPECT_EQ(Workbench().Focus(), Workbench().Field());
}

TEST_F(WorkbenchKeys, TheFocusComesBackFromAnotherWindow)
{
    Start(Samples());
    Click(Workbench().Field());
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Field(); }));
    {
        support::TestFrame other(200, 100);
        Click(other.m_hWnd);
        ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == other.m_hWnd; }));
        const RECT frame = WindowRect(Workbench().Window());
        Click(POINT{(frame.left + frame.right) / 2, frame.top + 12}); // the title
        ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == Workbench().Window(); }));
    }
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().Field(); }));
}

TEST_F(WorkbenchKeys, CtrlPageKeysStepThroughThePicturesFromAnywhere)
{
    Start(Samples());
    PressKey(VK_TAB);
    PressKey(VK_NEXT, {VK_CONTROL});
    EXPECT_TRUE(Shows(support::SamplePath("cell8.tif")));
    PressKey(VK_NEXT, {VK_CONTROL});
    EXPECT_TRUE(Shows(support::SamplePath("cell_float.tif")));
    PressKey(VK_PRIOR, {VK_CONTROL});
    EXPECT_TRUE(Shows(support::SamplePath("cell8.tif")));
    PressKey(VK_PRIOR, {VK_CONTROL});
    PressKey(VK_PRIOR, {VK_CONTROL}); // before the first there is none
    EXPECT_TRUE(Shows(support::SamplePath("cell16.tif")));
    EXPECT_EQ(Workbench().Chosen(), "cell16.tif");
}

TEST_F(WorkbenchKeys, F5ReadsFolderAndPictureAnewAndKeepsTheChoice)
{
    WriteTwoColours("b.bmp", 200, 100);
    Start(Folder().string());
    ASSERT_THAT(Workbench().Names(), ElementsAre("b.bmp"));
    WriteTwoColours("a.bmp", 100, 100);
    WriteTwoColours("b.bmp", 300, 300);
    WriteFile("notes.txt", "no picture");
    PressKey(VK_F5);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Names().size() == 2; }));
    EXPECT_THAT(Workbench().Names(), ElementsAre("a.bmp", "b.bmp"));
    EXPECT_EQ(Workbench().Chosen(), "b.bmp");
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusSize) == "300 x 300 pixels"; }));
}

TEST_F(WorkbenchKeys, MenusOpenByMouseAndLetterAndCloseByEsc)
{
    Start(Samples());
    const POINT file = support::ScreenPoint(Workbench().Window(), 12, -::GetSystemMetrics(SM_CYMENU) / 2);
    Click(file);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) == nullptr; }));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(PumpUntil([&] { return !Workbench().IsInModalLoop(); }));
    PressKey('V', {VK_MENU});
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
    PressKey('N');
    EXPECT_TRUE(Shows(support::SamplePath("cell8.tif")));
}

TEST_F(WorkbenchKeys, ExitInTheMenuAndAltF4LeaveNoProcess)
{
    Start(Samples());
    PressKey('F', {VK_MENU});
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
    PressKey('X');
    EXPECT_EQ(Workbench().WaitForExit(20'000), 0u);

    WorkbenchProcess second(Quoted(Samples()));
    ASSERT_NE(second.Window(), nullptr);
    PressKey(VK_F4, {VK_MENU});
    EXPECT_EQ(second.WaitForExit(20'000), 0u);
}

TEST_F(WorkbenchAbout, IsOpenedByTheMenuAndClosedByEscAndByItsButton)
{
    Start(Samples());
    for (const bool byButton : {false, true})
    {
        PressKey('H', {VK_MENU});
        ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
        PressKey(byButton ? WORD{VK_RETURN} : WORD{'A'});
        HWND about = nullptr;
        ASSERT_TRUE(
            PumpUntil([&] { return (about = Workbench().Popup(kDialogClass, "About TavKit Workbench")) != nullptr; }));
        EXPECT_FALSE(::IsWindowEnabled(Workbench().Window()));
        const std::string version = TextOf(::GetDlgItem(about, IDC_ABOUT_VERSION));
        EXPECT_TRUE(std::regex_match(version, std::regex("Version \\d+\\.\\d+\\.\\d+"))) << version;
        ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == ::GetDlgItem(about, IDOK); }));
        byButton ? Click(::GetDlgItem(about, IDOK)) : PressKey(VK_ESCAPE);
        EXPECT_TRUE(PumpUntil([&] { return !::IsWindow(about); }));
        EXPECT_TRUE(PumpUntil([&] { return Workbench().Focus() == Workbench().List(); }));
        EXPECT_TRUE(::IsWindowEnabled(Workbench().Window()));
    }
}

TEST_F(WorkbenchAbout, DrawsItsTextOnTheWindowColour)
{
    Start(Samples());
    PressKey('H', {VK_MENU});
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Popup(kMenuClass) != nullptr; }));
    PressKey('A');
    HWND about = nullptr;
    ASSERT_TRUE(
        PumpUntil([&] { return (about = Workbench().Popup(kDialogClass, "About TavKit Workbench")) != nullptr; }));
    HWND area = ::GetDlgItem(about, IDC_ABOUT_BLOCK);
    EXPECT_TRUE(Becomes(area, 2, 2, ::GetSysColor(COLOR_WINDOW)));
    EXPECT_TRUE(PumpUntil([&] { return LongestRun(area, ::GetSysColor(COLOR_WINDOWTEXT)) > 0; }));
    EXPECT_EQ(ClientSize(area).cx, ClientSize(about).cx) << "the area goes from edge to edge";
    PressKey(VK_RETURN);
    EXPECT_TRUE(PumpUntil([&] { return !::IsWindow(about); }));
}

TEST_F(WorkbenchBadInput, APictureThatCantBeReadIsNamedInTheWindow)
{
    const std::string whole = ReadBytes(support::SamplePath("cell8.tif"));
    ASSERT_GT(whole.size(), 1000u);
    WriteFile("1 empty.tif", "");
    WriteFile("2 garbage.png", "this is no picture at all");
    WriteFile("3 header.tif", whole.substr(0, 8));
    WriteFile("4 half.tif", whole.substr(0, whole.size() / 2));
    WriteTwoColours("5 good.bmp", 20, 10);
    Start(Folder().string());
    const auto names = Workbench().Names();
    ASSERT_EQ(names.size(), 5u);
    for (int i = 0; i < 4; ++i)
    {
        Workbench().ClickLine(i);
        const std::string name = names[static_cast<size_t>(i)];
        EXPECT_TRUE(Shows("\"" + name + "\" can't be read.")) << Workbench().ViewText();
        EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusName) == name; }));
        EXPECT_EQ(Workbench().Status(statusType), "Not readable");
        EXPECT_THAT(Workbench().Status(statusSize), IsEmpty());
        EXPECT_THAT(Workbench().Status(statusZoom), IsEmpty());
        EXPECT_TRUE(Becomes(Workbench().View(), 2, 2, ::GetSysColor(COLOR_WINDOW)));
    }
    Workbench().ClickLine(4);
    EXPECT_TRUE(Shows((Folder() / "5 good.bmp").string())) << "the next good one is shown";
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusSize) == "20 x 10 pixels"; }));
}

TEST_F(WorkbenchBadInput, AFolderWithoutPicturesSaysSo)
{
    WriteFile("notes.txt", "no picture");
    std::filesystem::create_directory(Folder() / "folder.tif"); // not a file
    Start(Folder().string());
    EXPECT_TRUE(Shows("There are no pictures in \"" + Folder().string() + "\"."));
    EXPECT_THAT(Workbench().Names(), IsEmpty());
    EXPECT_EQ(Workbench().Status(statusName), Folder().string());
    PressKey(VK_NEXT, {VK_CONTROL}); // nothing to step to
    PressKey(VK_F5);
    WriteTwoColours("now.bmp", 20, 10);
    PressKey(VK_F5);
    EXPECT_TRUE(Shows((Folder() / "now.bmp").string())) << "F5 finds what has come";
}

TEST_F(WorkbenchBadInput, APathThatIsNotThereIsNamed)
{
    const std::string path = (Folder() / "missing.tif").string();
    Start(path);
    EXPECT_TRUE(Shows("There is no folder or file \"" + path + "\"."));
    EXPECT_THAT(Workbench().Names(), IsEmpty());
}

TEST_F(WorkbenchBadInput, APictureThatVanishesIsToldAtTheNextSizeOrReload)
{
    const std::string picture = WriteTwoColours("gone.bmp", 200, 100);
    WriteTwoColours("stays.bmp", 200, 100);
    Start(picture);
    ASSERT_TRUE(Shows(picture));
    std::filesystem::remove(picture);
    DragCorner(Workbench(), Workbench().Window(), -60, 0);
    EXPECT_TRUE(Shows("\"" + picture + "\" can no longer be read."));
    EXPECT_TRUE(PumpUntil([&] { return Workbench().Status(statusType) == "Not readable"; }));
    PressKey(VK_F5);
    EXPECT_TRUE(Shows((Folder() / "stays.bmp").string()));
    EXPECT_THAT(Workbench().Names(), ElementsAre("stays.bmp"));
}

TEST_F(WorkbenchBadInput, AWrongCommandLineIsExplainedAndEndsTheProgram)
{
    const WorkbenchProcess workbench("--fast", false);
    HWND box = nullptr;
    ASSERT_TRUE(PumpUntil([&] { return (box = workbench.Popup(kDialogClass)) != nullptr; }));
    constexpr int kMessageText = 65535;
    EXPECT_THAT(TextOf(::GetDlgItem(box, kMessageText)), HasSubstr("There is no option --fast."));
    ASSERT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == box; }));
    PressKey(VK_RETURN);
    EXPECT_EQ(workbench.WaitForExit(20'000), 2u);
}
} // namespace
} // namespace e2e
