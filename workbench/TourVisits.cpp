#include "automation/Input.h"
#include "automation/Screenshot.h"
#include "workbench/MainFrame.h"
#include "workbench/Tour.h"
#include "workbench/resource.h"

#include <filesystem>
#include <fstream>

namespace workbench
{
using automation::CenterOf;
using automation::Click;
using automation::DoubleClick;
using automation::PressKey;
using automation::Screenshot;
using automation::TypeText;

namespace
{
/// A picture of fewer colours counts as blank.
constexpr int kFewestColours = 24;
constexpr char kBrokenName[] = "broken.tif";
constexpr char kSettingsTitle[] = "Settings";
constexpr int kSettingsFields = 6;
// The system's dialog for colours: its title, and the first of the fields for red, green and blue.
constexpr char kColorTitle[] = "Color";
constexpr int kRedField = 706;
// The message with details: its button, and the field that the button brings.
constexpr int kOpenDetails = 6006;
constexpr int kDetailsText = 6005;

/// A TIFF file that breaks off behind its header.
bool WriteBrokenPicture(const std::filesystem::path& path)
{
    constexpr std::string_view kHeader("II*\0\x08\0\0\0", 8);
    std::ofstream file(path, std::ios::binary);
    file.write(kHeader.data(), static_cast<std::streamsize>(kHeader.size()));
    return static_cast<bool>(file.flush());
}
} // namespace

void Tour::VisitStart()
{
    Await([this] { return ::GetForegroundWindow() == m_frame && Focus() == Part(IDC_PICTURE_LIST); },
          "the main window is in front and its list has the focus");
    Check(TextOf(m_frame) == kTitle, "the title is that of the program");
    Check(ListCount() > 0, "the list holds the samples");
    Check(SelectedRow(Part(IDC_PICTURE_LIST)) == 0, "the first picture is chosen");
    Check(TextOf(Part(IDC_PIXEL_SIZE)).empty(), "the pixel size is empty");
    Picture("start", "At the start the first of the samples is shown.");
}

void Tour::VisitPictures()
{
    HWND list = Part(IDC_PICTURE_LIST);
    for (int i = 0; i < ListCount(); ++i)
    {
        const std::string name = ListText(i);
        Click(CellPoint(list, i, 0));
        Await([&] { return ViewText().ends_with("\\" + name) && StatusText(0) == name; }, name + " is shown");
        Check(StatusText(1).ends_with(" pixels"), "the status bar tells the size of " + name);
        Check(StatusText(2).find(" channel") != std::string::npos, "the status bar tells the channels of " + name);
        Check(StatusText(3).ends_with(" %"), "the status bar tells the zoom of " + name);
        Picture("picture-" + name, name + ": " + StatusText(1) + ", " + StatusText(2) + ".");
        Check(Screenshot(ViewRect()).Colours(kFewestColours) >= kFewestColours, name + " isn't blank");
    }
}

void Tour::VisitSizes()
{
    constexpr POINT kCorner{16, 16};
    constexpr SIZE kTiny{100, 80};
    constexpr SIZE kWide{1180, 420};
    constexpr SIZE kTall{620, 920};
    constexpr SIZE kUsual{900, 640};
    const auto caption = [this] {
        const RECT frame = FrameRect();
        return POINT{(frame.left + frame.right) / 2,
                     frame.top + ::GetSystemMetrics(SM_CYSIZEFRAME) + ::GetSystemMetrics(SM_CYCAPTION) / 2};
    };
    // A press that comes while the screen is still busy isn't taken for the begin of a drag; the next one is.
    constexpr int kAttempts = 3;
    const auto inCorner = [&] { return FrameRect().left == kCorner.x && FrameRect().top == kCorner.y; };
    for (int attempt = 0; attempt < kAttempts && !inCorner(); ++attempt)
    {
        const RECT before = FrameRect();
        const POINT from = caption();
        Drag(from, {from.x + kCorner.x - before.left, from.y + kCorner.y - before.top});
    }
    Await(inCorner, "the title bar moves the window");

    DragCorner(m_frame, kTiny);
    RECT view{};
    ::GetClientRect(Part(IDC_PICTURE_VIEW), &view);
    Check(FrameRect().right - FrameRect().left > kTiny.cx && view.right > 0 && view.bottom > 0,
          "the window stays large enough for its parts");
    Picture("small", "As small as it can be made.");
    DragCorner(m_frame, kWide);
    Picture("wide", "Wide: the picture takes the height.");
    DragCorner(m_frame, kTall);
    Picture("tall", "Tall: the picture takes the width.");
    DragCorner(m_frame, kUsual);
    DoubleClick(caption());
    Await([this] { return ::IsZoomed(m_frame) != FALSE; }, "a double click on the title maximises the window");
    Picture("maximised", "Maximised.");
    DoubleClick(caption());
    Await([this] { return ::IsZoomed(m_frame) == FALSE; }, "a second double click brings the old size back");
}

void Tour::VisitPixelSize()
{
    HWND field = Part(IDC_PIXEL_SIZE);
    Click(CenterOf(field));
    Await([&] { return Focus() == field; }, "a click brings the focus to the pixel size");
    TypeText("0.65");
    Await([&] { return TextOf(field) == "0.65" && ViewText().find(", scale bar ") != std::string::npos; },
          "the scale bar comes with the number");
    Picture("scale-bar", "A pixel size brings the scale bar.");

    TypeText("e-5x.7"); // the 5 and the 7 may enter
    Await([&] { return TextOf(field) == "0.6557"; }, "letters, signs and a second point are refused");
    Picture("letters-refused",
            "Letters, signs and a second point don't enter the field: of \"e-5x.7\" the digits did.");

    PressKey(VK_HOME);
    PressKey(VK_END, {VK_SHIFT});
    PressKey(VK_DELETE);
    Await([&] { return TextOf(field).empty() && ViewText().find(", scale bar ") == std::string::npos; },
          "the scale bar goes with the number");
    TypeText(".");
    Await([&] { return TextOf(field) == "."; }, "a point alone enters");
    Picture("no-scale-bar", "A point alone is no number, so there is no scale bar.");

    TypeText("5");
    Await([&] { return TextOf(field) == ".5"; }, "a digit makes it a number");
    PressKey(VK_RETURN);
    Await([this] { return Focus() == Part(IDC_PICTURE_LIST); }, "Enter goes back to the list");
    PressKey(VK_TAB);
    Await([&] { return Focus() == field; }, "Tab goes to the pixel size");
    TypeText("9");
    Await([&] { return TextOf(field) == "9"; }, "what is typed replaces the text that Tab selected");
    PressKey(VK_ESCAPE);
    Await([&] { return Focus() == Part(IDC_PICTURE_LIST) && TextOf(field) == ".5"; }, "Esc takes back what was typed");
    Check(ViewText().find(", scale bar ") != std::string::npos, "Esc brings the scale bar back");
}

void Tour::VisitMenus()
{
    const auto isOpen = [this] { return Popup(kMenuClass, nullptr) != nullptr; };
    struct Menu
    {
        WORD key;
        const char* name;
    };
    for (const auto& [key, name] :
         {Menu{'F', "File"}, Menu{'E', "Edit"}, Menu{'R', "Project"}, Menu{'V', "View"}, Menu{'H', "Help"}})
    {
        PressKey(key, {VK_MENU});
        Await(isOpen, std::string("the menu ") + name + " opens by its letter");
        Picture(std::string("menu-") + name, std::string("The menu ") + name + ".");
        PressKey(VK_ESCAPE);
        Await([&] { return !isOpen(); }, std::string("Esc closes the menu ") + name);
        PressKey(VK_ESCAPE); // leaves the menu bar
        AwaitIdle();
    }
    PressKey('B', {VK_CONTROL});
    Await([this] { return ViewText().find(", scale bar ") == std::string::npos; }, "Ctrl+B hides the scale bar");
    PressKey('B', {VK_CONTROL});
    Await([this] { return ViewText().find(", scale bar ") != std::string::npos; }, "Ctrl+B shows the scale bar again");
}

void Tour::VisitSettings()
{
    PressKey(VK_OEM_COMMA, {VK_CONTROL});
    HWND dialog = AwaitDialog(kSettingsTitle);
    if (dialog == nullptr)
    {
        return;
    }
    HWND page = ::GetParent(
        ::GetDlgItem(::GetWindow(::GetDlgItem(dialog, IDC_SETTINGS_PLACE), GW_HWNDNEXT), IDC_SETTINGS_PIXEL_SIZE));
    HWND field = ::GetDlgItem(page, IDC_SETTINGS_PIXEL_SIZE);
    HWND background = ::GetDlgItem(page, IDC_SETTINGS_BACKGROUND);
    HWND ask = ::GetDlgItem(page, IDC_SETTINGS_ASK);
    Await([&] { return Focus() == field; }, "the pixel size has the focus in the settings");
    Check(TextOf(field) == ".5", "the settings show the pixel size");
    Picture("settings", "The settings.");
    TypeText("0.65");
    Await([&] { return TextOf(field) == "0.65"; }, "what is typed replaces the pixel size in the settings");

    Click(CenterOf(background));
    if (HWND chooser = AwaitDialog(kColorTitle); chooser != nullptr)
    {
        const std::pair<int, const char*> parts[]{{kRedField, "0"}, {kRedField + 1, "64"}, {kRedField + 2, "128"}};
        for (const auto& [id, value] : parts)
        {
            HWND part = ::GetDlgItem(chooser, id);
            Click(CenterOf(part));
            Await([&] { return Focus() == part; }, "a part of the colour has the focus");
            PressKey(VK_HOME);
            PressKey(VK_END, {VK_SHIFT});
            TypeText(value);
            Await([&] { return TextOf(part) == value; }, "a part of the colour can be typed");
        }
        Picture("colour", "The system's dialog for the colour of the background.");
        PressKey(VK_RETURN);
        Await([&] { return !::IsWindow(chooser); }, "Enter closes the colours");
    }
    Await([&] { return TextOf(background) == "#004080"; }, "the settings show the colour that was chosen");

    constexpr SIZE kLow{0, 0};
    DragCorner(dialog, kLow);
    AwaitIdle();
    const RECT low = PlaceOf(dialog);
    Check((::GetWindowLongA(page, GWL_STYLE) & WS_VSCROLL) != 0, "the page of the low dialog has a scroll bar");
    Picture("settings-low", "The settings made as low as they can be: the page scrolls.");
    for (int i = 0; i < kSettingsFields && Focus() != ask; ++i)
    {
        HWND before = Focus();
        PressKey(VK_TAB);
        Await([&] { return Focus() != before; }, "Tab goes on in the settings");
    }
    const auto isInView = [&] {
        const RECT outer = PlaceOf(page);
        const RECT inner = PlaceOf(ask);
        return inner.top >= outer.top && inner.bottom <= outer.bottom;
    };
    Await([&] { return Focus() == ask && isInView(); }, "Tab brings the last field into view");
    Picture("settings-scrolled", "Tab has scrolled the page to its last field.");

    PressKey(VK_RETURN);
    Await([&] { return !::IsWindow(dialog); }, "Enter closes the settings");
    Await([this] { return TextOf(Part(IDC_PIXEL_SIZE)) == "0.65"; }, "the pixel size of the settings is taken over");
    Picture("settings-taken", "The new background and scale bar.");

    PressKey(VK_OEM_COMMA, {VK_CONTROL});
    dialog = AwaitDialog(kSettingsTitle);
    const RECT again = PlaceOf(dialog);
    Check(::EqualRect(&again, &low) != FALSE, "the settings come back where they were");
    PressKey('D', {VK_MENU});
    PressKey(VK_RETURN);
    Await([&] { return !::IsWindow(dialog); }, "Enter closes the settings again");
}

void Tour::VisitDelete()
{
    const int count = ListCount();
    const std::string first = ListText(0);
    Click(CenterOf(Part(IDC_PICTURE_LIST)));
    PressKey(VK_HOME);
    Await([&] { return ViewText().find("\\" + first) != std::string::npos; }, "Home shows the first picture");

    PressKey(VK_DELETE);
    HWND box = AwaitDialog(kTitle);
    Picture("delete", "Deleting a picture from the list is asked about.");
    PressKey('N');
    Await([&] { return !::IsWindow(box); }, "N answers with No");
    Check(ListCount() == count, "No leaves the list as it is");

    PressKey(VK_DELETE);
    box = AwaitDialog(kTitle);
    constexpr int kCheckBox = 5555;
    HWND never = ::GetDlgItem(box, kCheckBox);
    Click(CenterOf(never));
    Await([&] { return Ask(never, BM_GETCHECK, 0, 0) == BST_CHECKED; }, "a click checks the box");
    Picture("delete-unasked", "The user doesn't want to be asked again.");
    PressKey('Y', {VK_MENU});
    Await([&] { return !::IsWindow(box) && ListCount() == count - 1; }, "Yes takes the picture off the list");
    PressKey(VK_DELETE);
    Await([&] { return ListCount() == count - 2; }, "the next one goes unasked");
    Picture("deleted", "Two pictures are off the list.");
    PressKey(VK_F5);
    Await([&] { return ListCount() == count && ListText(0) == first; }, "F5 brings the pictures back");
}

void Tour::VisitAbout()
{
    constexpr char kAboutTitle[] = "About TavKit Workbench";
    PressKey('H', {VK_MENU});
    Await([this] { return Popup(kMenuClass, nullptr) != nullptr; }, "the menu Help opens");
    PressKey('A');
    HWND about = nullptr;
    if (!Await([&] { return (about = Popup(kDialogClass, kAboutTitle)) != nullptr; }, "the About box opens"))
    {
        return;
    }
    Check(TextOf(::GetDlgItem(about, IDC_ABOUT_VERSION)).size() > std::string_view("Version ").size(),
          "the About box tells the version");
    Picture("about", "The About box.");
    PressKey(VK_ESCAPE);
    Await([&] { return !::IsWindow(about); }, "Esc closes the About box");
    Await([this] { return Focus() == Part(IDC_PICTURE_LIST); }, "the focus is back in the list");
}

void Tour::VisitDetails()
{
    HWND button = ::GetDlgItem(Part(IDC_PICTURE_VIEW), IDC_PICTURE_DETAILS);
    PressKey(VK_TAB);
    Await([&] { return Focus() == button; }, "Tab goes to the button for details");
    PressKey(VK_RETURN);
    HWND dialog = AwaitDialog(kTitle);
    if (dialog == nullptr)
    {
        return;
    }
    Picture("details-closed", "The message alone.");
    Click(CenterOf(::GetDlgItem(dialog, kOpenDetails)));
    HWND text = ::GetDlgItem(dialog, kDetailsText);
    Await([&] { return PlaceOf(text).bottom < PlaceOf(dialog).bottom; }, "the details open");
    Check(TextOf(text).find("\r\nFailed: ") != std::string::npos, "the details tell what failed");
    Picture("details", "The details say what is known of the file.");
    PressKey(VK_ESCAPE);
    Await([&] { return !::IsWindow(dialog); }, "Esc closes the details");
    Await([&] { return Focus() == button; }, "the focus is back on the button");
}

void Tour::VisitBadFiles()
{
    std::error_code error;
    const auto folder =
        std::filesystem::temp_directory_path(error) / ("workbench-tour-" + std::to_string(::GetCurrentProcessId()));
    std::filesystem::create_directories(folder, error);
    const auto broken = folder / kBrokenName;
    Check(WriteBrokenPicture(broken), "the broken picture can be written");

    OpenFolder(folder, kBrokenName, "open", "Opening a folder.");
    Await([this] { return ViewText() == std::string("\"") + kBrokenName + "\" can't be read."; },
          "a picture that can't be read is named");
    Check(StatusText(0) == kBrokenName, "the status bar names the broken picture");
    Picture("unreadable", "A picture that can't be read: the file breaks off behind its header.");

    VisitDetails();

    std::filesystem::remove(broken, error);
    PressKey(VK_F5);
    Await([this] { return ViewText().starts_with("There are no pictures in "); }, "an empty folder says so");
    Check(ListCount() == 0, "the list of an empty folder is empty");
    Picture("empty-folder", "A folder without pictures.");
    std::filesystem::remove(folder, error);
}
} // namespace workbench
