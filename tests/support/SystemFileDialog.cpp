#include "SystemFileDialog.h"

#include "Pump.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <array>

namespace support
{
namespace
{
constexpr const char* kDialogClass = "#32770";
constexpr int kBoxText = 0xFFFF; // the text of a message box

/// The first window of that class below another, at any depth.
HWND FindBelow(HWND parent, const char* className)
{
    struct Search
    {
        const char* className;
        HWND found;
    } search{className, nullptr};
    ::EnumChildWindows(
        parent,
        [](HWND window, LPARAM param) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(param);
            char name[64] = "";
            ::GetClassNameA(window, name, sizeof name);
            if (std::string(wanted.className) == name)
            {
                wanted.found = window;
            }
            return wanted.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::string TextOf(HWND window)
{
    std::string text(static_cast<size_t>(::GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<size_t>(::GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}
} // namespace

ModalScript& ModalScript::Then(ModalHelper::Find find, ModalHelper::Act act)
{
    m_steps.emplace_back(std::move(find), std::move(act));
    return *this;
}

ModalScript& ModalScript::Then(const char* title, ModalHelper::Act act)
{
    return Then([text = std::string(title)] { return FindThreadWindow(kDialogClass, text.c_str()); }, std::move(act));
}

void ModalScript::Start() { Arm(); }

bool ModalScript::Done() const { return m_done == m_steps.size(); }

void ModalScript::Arm()
{
    if (Done())
    {
        // A loop that goes on after the last step is ended when the deadline has passed.
        m_helpers.push_back(std::make_unique<ModalHelper>([] { return static_cast<HWND>(nullptr); }, [](HWND) {}));
        return;
    }
    m_helpers.push_back(std::make_unique<ModalHelper>(m_steps[m_done].first, [this](HWND window) {
        const ModalHelper::Act& act = m_steps[m_done].second;
        ++m_done;
        Arm(); // before acting: the action may run a loop of its own, which the next step acts in
        act(window);
    }));
}

std::string CurrentFolder()
{
    std::string folder(::GetCurrentDirectoryA(0, nullptr), '\0');
    folder.resize(::GetCurrentDirectoryA(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

CurrentFolderScope::CurrentFolderScope() : m_folder(CurrentFolder()) {}
CurrentFolderScope::~CurrentFolderScope() { ::SetCurrentDirectoryA(m_folder.c_str()); }

void WarmUpFileDialogs()
{
    static bool done = false;
    if (done)
    {
        return;
    }
    done = true;
    // The system keeps as many window contexts as were ever in use at once; a file dialog has dozens of windows.
    std::array<HDC, 256> contexts{};
    for (int round = 0; round < 3; ++round)
    {
        OPENFILENAMEA ofn = {};
        char name[MAX_PATH] = "";
        ofn.lStructSize = sizeof ofn;
        ofn.lpstrFile = name;
        ofn.nMaxFile = sizeof name;
        ofn.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR;
        ModalScript script;
        script
            .Then(FindFileDialog,
                  [&](HWND dialog) {
                      Settle();
                      for (HDC& context : contexts)
                      {
                          context = ::GetDC(dialog);
                      }
                      for (HDC context : contexts)
                      {
                          ::ReleaseDC(dialog, context);
                      }
                      PressButton(dialog, IDCANCEL);
                  })
            .Start();
        ::GetOpenFileNameA(&ofn);
    }
}

HWND FindFileDialog()
{
    HWND found = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM param) -> BOOL {
            if (::IsWindowVisible(window) && ::GetDlgItem(window, kFileNameBox) != nullptr &&
                FileListOf(window) != nullptr)
            {
                *reinterpret_cast<HWND*>(param) = window;
                return FALSE;
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND FileListOf(HWND dialog) { return FindBelow(dialog, WC_LISTVIEWA); }

HWND FindBoxOver(HWND dialog)
{
    const HWND box = ::GetLastActivePopup(dialog);
    char name[64] = "";
    ::GetClassNameA(box, name, sizeof name);
    return box != dialog && std::string(kDialogClass) == name && ::IsWindowVisible(box) ? box : nullptr;
}

std::string BoxText(HWND box) { return TextOf(::GetDlgItem(box, kBoxText)); }

std::vector<std::string> FileListTexts(HWND dialog)
{
    std::vector<std::string> texts;
    const HWND list = FileListOf(dialog);
    const LRESULT count = ::SendMessageA(list, LVM_GETITEMCOUNT, 0, 0);
    for (WPARAM row = 0; row < static_cast<WPARAM>(count); ++row)
    {
        char text[MAX_PATH] = "";
        LVITEMA item = {};
        item.pszText = text;
        item.cchTextMax = sizeof text;
        ::SendMessageA(list, LVM_GETITEMTEXTA, row, reinterpret_cast<LPARAM>(&item));
        texts.emplace_back(text);
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

std::string ShownFolder(HWND dialog)
{
    char folder[2 * MAX_PATH] = "";
    ::SendMessageA(dialog, CDM_GETFOLDERPATH, sizeof folder, reinterpret_cast<LPARAM>(folder));
    return folder;
}

std::string FileName(HWND dialog) { return TextOf(::GetDlgItem(dialog, kFileNameBox)); }

void SetFileName(HWND dialog, const std::string& name)
{
    ::SendMessageA(dialog, CDM_SETCONTROLTEXT, kFileNameBox, reinterpret_cast<LPARAM>(name.c_str()));
}

void ChooseFilter(HWND dialog, int index)
{
    const HWND box = ::GetDlgItem(dialog, kFilterBox);
    ::SendMessageA(box, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    ::SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kFilterBox, CBN_SELENDOK), reinterpret_cast<LPARAM>(box));
}

int ChosenFilter(HWND dialog)
{
    return static_cast<int>(::SendMessageA(::GetDlgItem(dialog, kFilterBox), CB_GETCURSEL, 0, 0));
}

std::vector<std::string> FilterTexts(HWND dialog)
{
    std::vector<std::string> texts;
    const HWND box = ::GetDlgItem(dialog, kFilterBox);
    const LRESULT count = ::SendMessageA(box, CB_GETCOUNT, 0, 0);
    for (WPARAM row = 0; row < static_cast<WPARAM>(count); ++row)
    {
        std::string text(static_cast<size_t>(::SendMessageA(box, CB_GETLBTEXTLEN, row, 0)) + 1, '\0');
        ::SendMessageA(box, CB_GETLBTEXT, row, reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        texts.push_back(text);
    }
    return texts;
}
} // namespace support
