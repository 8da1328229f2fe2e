#include "workbench/Tour.h"

#include "automation/FinishedMark.h"
#include "automation/Input.h"
#include "automation/Screenshot.h"
#include "workbench/MainFrame.h"
#include "workbench/resource.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace workbench
{
using automation::Finish;
using automation::MoveMouse;
using automation::Press;
using automation::PressKey;
using automation::Release;
using automation::Screenshot;

namespace
{
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kDeadline{15'000};
constexpr DWORD kPollMs = 5;
/// The screen counts as at rest when it hasn't changed for this long.
constexpr milliseconds kRest{200};
/// Room around the windows in a picture.
constexpr int kPictureMargin = 12;
constexpr int kDragSteps = 8;
constexpr UINT kAnswerMs = 5000;

struct PopupSearch
{
    const char* className;
    const char* title;
    HWND found;
};

BOOL CALLBACK MatchPopup(HWND window, LPARAM data)
{
    auto& search = *reinterpret_cast<PopupSearch*>(data);
    char text[MAX_PATH];
    if (!::IsWindowVisible(window) || ::GetClassNameA(window, text, sizeof text) == 0 ||
        std::string_view(text) != search.className)
    {
        return TRUE;
    }
    if (search.title != nullptr &&
        (::GetWindowTextA(window, text, sizeof text), std::string_view(text) != search.title))
    {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}
} // namespace

LRESULT Tour::Ask(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    DWORD_PTR answer = 0;
    ::SendMessageTimeoutA(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kAnswerMs, &answer);
    return static_cast<LRESULT>(answer);
}

Tour::Tour(HWND frame, std::string folder)
    : m_frame(frame), m_uiThread(::GetWindowThreadProcessId(frame, nullptr)), m_folder(std::move(folder)),
      m_thread([this] { Run(); })
{
}

Tour::~Tour()
{
    if (m_thread.joinable())
    {
        m_thread.join();
    }
}

bool Tour::Wait()
{
    m_thread.join();
    return m_failures.empty();
}

void Tour::Run()
{
    std::error_code error;
    std::filesystem::create_directories(m_folder, error);
    if (Check(std::filesystem::is_directory(m_folder, error), "the folder \"" + m_folder + "\" can be made"))
    {
        VisitStart();
        if (ListCount() > 0) // nothing else can be as expected
        {
            VisitPictures();
            VisitTable();
            VisitHistogram();
            VisitPlot();
            VisitSizes();
            VisitPixelSize();
            VisitMenus();
            VisitSettings();
            VisitDelete();
            VisitAbout();
            VisitNames();
            VisitProject();
            VisitFiles();
            VisitBadFiles();
        }
        WritePage();
    }
    Leave();
}

void Tour::Leave()
{
    PressKey(VK_F4, {VK_MENU});
    if (!Await([this] { return !::IsWindow(m_frame); }, "Alt+F4 closes the window"))
    {
        // A dialog that shouldn't be there may hold it; nobody is here to answer.
        ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(Finish(EXIT_FAILURE)));
    }
}

void Tour::WritePage()
{
    std::ofstream file(std::filesystem::path(m_folder) / "index.html", std::ios::binary);
    file << MakeTourPage(m_stops, m_failures);
    Check(static_cast<bool>(file.flush()), "the page can be written");
}

bool Tour::Check(bool ok, const std::string& what)
{
    if (!ok)
    {
        m_failures.push_back("Not so: " + what + ".");
        std::printf("%s\n", m_failures.back().c_str());
        std::fflush(stdout);
    }
    return ok;
}

bool Tour::Await(const std::function<bool()>& condition, const std::string& what)
{
    const auto end = Clock::now() + kDeadline;
    while (!condition())
    {
        if (Clock::now() >= end)
        {
            return Check(false, what);
        }
        ::Sleep(kPollMs); // the poll of a condition, not a wait for time to pass
    }
    Ask(m_frame, WM_NULL, 0, 0); // what the program was in the middle of is done when it answers
    return true;
}

void Tour::Picture(const std::string& name, const std::string& caption)
{
    RECT place = FrameRect();
    for (const char* className : {kMenuClass, kDialogClass})
    {
        RECT rect{};
        if (HWND popup = Popup(className, nullptr); popup != nullptr && ::GetWindowRect(popup, &rect))
        {
            ::UnionRect(&place, &place, &rect);
        }
    }
    HWND front = ::GetForegroundWindow();
    if (RECT rect{}; ::GetWindow(front, GW_OWNER) == m_frame && ::GetWindowRect(front, &rect))
    {
        ::UnionRect(&place, &place, &rect);
    }
    ::InflateRect(&place, kPictureMargin, kPictureMargin);

    Screenshot shot(place);
    auto since = Clock::now();
    const bool rested = Await(
        [&] {
            Screenshot now(place);
            if (now != shot)
            {
                shot = std::move(now);
                since = Clock::now();
            }
            return Clock::now() - since >= kRest;
        },
        "the screen comes to rest for " + name);
    char number[8];
    std::snprintf(number, sizeof number, "%02u-", static_cast<unsigned>(m_stops.size() + 1));
    const std::string file = number + FileNamePart(name) + ".png";
    const bool saved = shot.SavePng((std::filesystem::path(m_folder) / file).string());
    if (Check(saved, "the picture " + file + " can be written") && rested)
    {
        m_stops.push_back({file, caption});
    }
}

void Tour::Drag(POINT from, POINT to)
{
    MoveMouse(from);
    Press();
    Await([this] { return !IsIdle(); }, "the system takes up the drag");
    for (int step = 1; step <= kDragSteps; ++step)
    {
        MoveMouse({from.x + (to.x - from.x) * step / kDragSteps, from.y + (to.y - from.y) * step / kDragSteps});
    }
    Release();
    AwaitIdle();
}

void Tour::DragCorner(HWND window, SIZE size)
{
    const RECT before = PlaceOf(window);
    const POINT from{before.right - 2, before.bottom - 2};
    const POINT to{from.x + size.cx - (before.right - before.left), from.y + size.cy - (before.bottom - before.top)};
    Drag(from, to);
    Await(
        [&] {
            const RECT now = PlaceOf(window);
            return now.right - now.left >= size.cx && now.bottom - now.top >= size.cy &&
                   (now.right != before.right || now.bottom != before.bottom);
        },
        "the corner sizes the window");
}

HWND Tour::AwaitDialog(const char* title)
{
    HWND dialog = nullptr;
    Await([&] { return (dialog = Popup(kDialogClass, title)) != nullptr && ::GetForegroundWindow() == dialog; },
          std::string("the dialog \"") + title + "\" opens");
    return dialog;
}

bool Tour::IsIdle() const
{
    constexpr DWORD kLoops = GUI_INMENUMODE | GUI_INMOVESIZE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return ::GetGUIThreadInfo(m_uiThread, &info) && (info.flags & kLoops) == 0 && info.hwndCapture == nullptr;
}

bool Tour::AwaitIdle()
{
    return Await([this] { return IsIdle(); }, "menus and drags come to an end");
}

HWND Tour::Part(int id) const { return ::GetDlgItem(m_frame, id); }

std::string Tour::TextOf(HWND window) const
{
    std::string text(static_cast<size_t>(std::max<LRESULT>(0, Ask(window, WM_GETTEXTLENGTH, 0, 0))) + 1, '\0');
    const LRESULT length = Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(std::max<LRESULT>(0, length)));
    return text;
}

std::string Tour::ViewText() const { return TextOf(Part(IDC_PICTURE_VIEW)); }

std::filesystem::path Tour::ShownFolder() const
{
    const std::string text = ViewText(); // behind a comma follows what else is shown
    return std::filesystem::path(text.substr(0, text.find(", "))).parent_path();
}

std::string Tour::StatusText(int part) const
{
    HWND status = Part(IDC_STATUS_BAR);
    const auto number = static_cast<WPARAM>(part);
    std::string text(LOWORD(Ask(status, SB_GETTEXTLENGTHA, number, 0)) + size_t{1}, '\0');
    text.resize(LOWORD(Ask(status, SB_GETTEXTA, number, reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

int Tour::ListCount() const { return RowCount(Part(IDC_PICTURE_LIST)); }

std::string Tour::ListText(int row) const { return CellText(Part(IDC_PICTURE_LIST), row, 0); }

int Tour::RowCount(HWND list) { return static_cast<int>(Ask(list, LVM_GETITEMCOUNT, 0, 0)); }

std::string Tour::CellText(HWND list, int row, int column)
{
    char text[MAX_PATH]{};
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    Ask(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return item.pszText;
}

int Tour::SelectedRow(HWND list)
{
    return static_cast<int>(Ask(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

POINT Tour::CellPoint(HWND list, int row, int column)
{
    RECT place{};
    place.top = column;
    place.left = column == 0 ? LVIR_LABEL : LVIR_BOUNDS;
    Ask(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    constexpr LONG kInside = 24; // from the cell's left, where its text stands
    POINT point{std::min(place.left + kInside, (place.left + place.right) / 2), (place.top + place.bottom) / 2};
    ::ClientToScreen(list, &point);
    return point;
}

POINT Tour::CaptionPoint(HWND list, int column, int nth)
{
    auto* const header = reinterpret_cast<HWND>(Ask(list, LVM_GETHEADER, 0, 0));
    RECT place{};
    Ask(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&place));
    constexpr LONG kPlaces = 3; // the divider at the end is for dragging
    POINT point{place.left + (place.right - place.left) * (nth + 1) / kPlaces, (place.top + place.bottom) / 2};
    ::ClientToScreen(header, &point);
    return point;
}

HWND Tour::Focus() const
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return ::GetGUIThreadInfo(m_uiThread, &info) ? info.hwndFocus : nullptr;
}

HWND Tour::Popup(const char* className, const char* title) const
{
    PopupSearch search{className, title, nullptr};
    ::EnumThreadWindows(m_uiThread, MatchPopup, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

RECT Tour::ViewRect() const
{
    HWND view = Part(IDC_PICTURE_VIEW);
    RECT rect{};
    ::GetClientRect(view, &rect);
    ::MapWindowPoints(view, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

RECT Tour::FrameRect() const { return PlaceOf(m_frame); }

RECT Tour::PlaceOf(HWND window)
{
    RECT rect{};
    ::GetWindowRect(window, &rect);
    return rect;
}
} // namespace workbench
