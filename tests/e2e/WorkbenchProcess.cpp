#include "WorkbenchProcess.h"

#include "support/Input.h"
#include "support/Pump.h"

#include "workbench/resource.h"

#include <commctrl.h>

#include <algorithm>
#include <filesystem>
#include <string_view>

namespace e2e
{
namespace
{
struct Search
{
    DWORD process;
    const char* className;
    const char* title;
    HWND found;
};

BOOL CALLBACK Match(HWND window, LPARAM data)
{
    auto& search = *reinterpret_cast<Search*>(data);
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    char text[MAX_PATH];
    if (process != search.process || !::IsWindowVisible(window))
    {
        return TRUE;
    }
    if (search.className != nullptr &&
        (::GetClassNameA(window, text, sizeof text) == 0 || std::string_view(text) != search.className))
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

HWND FindWindowOf(DWORD process, const char* className, const char* title)
{
    Search search{process, className, title, nullptr};
    ::EnumWindows(Match, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::string BesideThisProgram(const char* name)
{
    char path[MAX_PATH];
    const DWORD length = ::GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string own(path, length);
    return own.substr(0, own.find_last_of('\\') + 1) + name;
}

/// Memory in another process, for messages whose buffers the system doesn't carry over.
class RemoteBuffer
{
public:
    RemoteBuffer(HANDLE process, size_t size)
        : m_process(process),
          m_memory(::VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE))
    {
    }
    ~RemoteBuffer() { ::VirtualFreeEx(m_process, m_memory, 0, MEM_RELEASE); }
    RemoteBuffer(const RemoteBuffer&) = delete;
    RemoteBuffer& operator=(const RemoteBuffer&) = delete;

    [[nodiscard]] LPARAM Address() const { return reinterpret_cast<LPARAM>(m_memory); }
    [[nodiscard]] std::string Read(size_t length) const
    {
        std::string text(length, '\0');
        SIZE_T read = 0;
        ::ReadProcessMemory(m_process, m_memory, text.data(), length, &read);
        text.resize(read);
        return text;
    }

private:
    HANDLE m_process;
    void* m_memory;
};
} // namespace

WorkbenchProcess::WorkbenchProcess(const std::string& arguments, bool waitForWindow)
{
    std::string line(1, '"');
    line.append(BesideThisProgram("Workbench.exe")).append("\" ").append(arguments);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    if (!::CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &m_process))
    {
        m_process = {};
        return;
    }
    if (waitForWindow && support::PumpUntil([this] {
            m_window = FindWindowOf(m_process.dwProcessId, nullptr, kTitle);
            return m_window != nullptr && ::GetForegroundWindow() == m_window;
        }))
    {
        ::WaitForInputIdle(m_process.hProcess, static_cast<DWORD>(support::kDeadline.count()));
    }
}

WorkbenchProcess::~WorkbenchProcess()
{
    if (m_process.hProcess == nullptr)
    {
        return;
    }
    constexpr DWORD kQuick = 0;
    if (::WaitForSingleObject(m_process.hProcess, kQuick) != WAIT_OBJECT_0)
    {
        ::TerminateProcess(m_process.hProcess, 1);
        ::WaitForSingleObject(m_process.hProcess, INFINITE);
    }
    ::CloseHandle(m_process.hThread);
    ::CloseHandle(m_process.hProcess);
}

std::optional<DWORD> WorkbenchProcess::WaitForExit(DWORD milliseconds) const
{
    DWORD code = 0;
    const bool ended =
        support::PumpUntil([this] { return ::WaitForSingleObject(m_process.hProcess, 0) == WAIT_OBJECT_0; },
                           std::chrono::milliseconds(milliseconds));
    return ended && ::GetExitCodeProcess(m_process.hProcess, &code) ? std::optional(code) : std::nullopt;
}

HWND WorkbenchProcess::List() const { return ::GetDlgItem(m_window, IDC_PICTURE_LIST); }

HWND WorkbenchProcess::View() const { return ::GetDlgItem(m_window, IDC_PICTURE_VIEW); }

HWND WorkbenchProcess::Field() const { return ::GetDlgItem(m_window, IDC_PIXEL_SIZE); }

std::vector<std::string> WorkbenchProcess::Names() const
{
    std::vector<std::string> names;
    const auto count = ::SendMessageA(List(), LB_GETCOUNT, 0, 0);
    for (WPARAM i = 0; static_cast<LRESULT>(i) < count; ++i)
    {
        // In wide characters: between processes one platform forgets to translate the text of a list.
        const LRESULT length = ::SendMessageW(List(), LB_GETTEXTLEN, i, 0);
        std::wstring name(static_cast<size_t>(std::max<LRESULT>(0, length)) + 1, L'\0');
        const LRESULT got = ::SendMessageW(List(), LB_GETTEXT, i, reinterpret_cast<LPARAM>(name.data()));
        if (length < 0 || got < 0)
        {
            break; // the list became shorter meanwhile
        }
        name.resize(static_cast<size_t>(got));
        names.push_back(std::filesystem::path(name).string());
    }
    return names;
}

std::string WorkbenchProcess::Chosen() const
{
    const auto index = ::SendMessageA(List(), LB_GETCURSEL, 0, 0);
    const auto names = Names();
    return index >= 0 && index < static_cast<LRESULT>(names.size()) ? names[static_cast<size_t>(index)] : "";
}

std::string WorkbenchProcess::ViewText() const { return TextOf(View()); }

std::string WorkbenchProcess::FieldText() const { return TextOf(Field()); }

std::string WorkbenchProcess::Status(StatusPart part) const
{
    HWND status = ::GetDlgItem(m_window, IDC_STATUS_BAR);
    const auto length = LOWORD(::SendMessageA(status, SB_GETTEXTLENGTHA, part, 0));
    const RemoteBuffer buffer(m_process.hProcess, length + size_t{1});
    ::SendMessageA(status, SB_GETTEXTA, part, buffer.Address());
    return buffer.Read(length);
}

HWND WorkbenchProcess::Focus() const
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return ::GetGUIThreadInfo(m_process.dwThreadId, &info) ? info.hwndFocus : nullptr;
}

HWND WorkbenchProcess::Popup(const char* className, const char* title) const
{
    return FindWindowOf(m_process.dwProcessId, className, title);
}

bool WorkbenchProcess::IsInModalLoop() const
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return ::GetGUIThreadInfo(m_process.dwThreadId, &info) &&
           (info.flags & (GUI_INMENUMODE | GUI_INMOVESIZE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE)) != 0;
}

void WorkbenchProcess::ClickLine(int index) const
{
    RECT item{};
    ::SendMessageA(List(), LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    support::Click(support::ScreenPoint(List(), (item.left + item.right) / 2, (item.top + item.bottom) / 2));
}

std::string TextOf(HWND window)
{
    std::string text(static_cast<size_t>(::SendMessageA(window, WM_GETTEXTLENGTH, 0, 0)) + 1, '\0');
    text.resize(
        static_cast<size_t>(::SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}
} // namespace e2e
