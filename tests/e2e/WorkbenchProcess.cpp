#include "WorkbenchProcess.h"

#include "support/Input.h"
#include "support/Pump.h"

#include "workbench/resource.h"

#include <algorithm>
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
    /// Writes the bytes of a value to the memory's start.
    template <class T>
    void Write(const T& value) const
    {
        ::WriteProcessMemory(m_process, m_memory, &value, sizeof value, nullptr);
    }
    /// The value whose bytes stand at the memory's start.
    template <class T>
    [[nodiscard]] T ReadValue() const
    {
        T value{};
        ::ReadProcessMemory(m_process, m_memory, &value, sizeof value, nullptr);
        return value;
    }
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

HWND WorkbenchProcess::Table() const { return ::GetDlgItem(::GetDlgItem(m_window, IDC_TABLE_PANE), IDC_TABLE_LIST); }

HWND WorkbenchProcess::ClassBox() const
{
    return ::GetDlgItem(::GetDlgItem(m_window, IDC_TABLE_PANE), IDC_TABLE_CLASS);
}

HWND WorkbenchProcess::Tree() const { return ::GetDlgItem(::GetDlgItem(m_window, IDC_PROJECT_PANE), IDC_PROJECT_TREE); }

HWND WorkbenchProcess::FindField() const
{
    return ::GetDlgItem(::GetDlgItem(m_window, IDC_PROJECT_PANE), IDC_PROJECT_FIND);
}

HTREEITEM WorkbenchProcess::TreeNext(HTREEITEM row, WPARAM relation) const
{
    return reinterpret_cast<HTREEITEM>(
        ::SendMessageA(Tree(), TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(row)));
}

std::string WorkbenchProcess::TreeLabel(HTREEITEM row) const
{
    constexpr size_t kText = 512;
    const RemoteBuffer buffer(m_process.hProcess, sizeof(TVITEMA) + kText);
    TVITEMA item{};
    item.mask = TVIF_TEXT;
    item.hItem = row;
    item.pszText = reinterpret_cast<char*>(buffer.Address()) + sizeof item;
    item.cchTextMax = kText;
    buffer.Write(item);
    ::SendMessageA(Tree(), TVM_GETITEMA, 0, buffer.Address());
    return buffer.Read(sizeof item + kText).substr(sizeof item).c_str();
}

bool WorkbenchProcess::HasTreeState(HTREEITEM row, UINT state) const
{
    const auto answer = ::SendMessageA(Tree(), TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(row), state);
    return (static_cast<UINT>(answer) & state) != 0;
}

bool WorkbenchProcess::IsTreeTarget(HTREEITEM row) const { return HasTreeState(row, TVIS_DROPHILITED); }

bool WorkbenchProcess::HasTreeButton(HTREEITEM row) const
{
    const RemoteBuffer buffer(m_process.hProcess, sizeof(TVITEMA));
    TVITEMA item{};
    item.mask = TVIF_CHILDREN;
    item.hItem = row;
    buffer.Write(item);
    ::SendMessageA(Tree(), TVM_GETITEMA, 0, buffer.Address());
    return buffer.ReadValue<TVITEMA>().cChildren > 0;
}

std::string WorkbenchProcess::TreeRowsFrom(HTREEITEM row) const
{
    std::string line = TreeLabel(row);
    HTREEITEM child = HasTreeState(row, TVIS_EXPANDED) ? TreeNext(row, TVGN_CHILD) : nullptr;
    if (child == nullptr)
    {
        return line + (HasTreeButton(row) ? "+" : "");
    }
    line += "(";
    while (child != nullptr)
    {
        line += TreeRowsFrom(child);
        child = TreeNext(child, TVGN_NEXT);
        line += child != nullptr ? " " : "";
    }
    return line + ")";
}

std::string WorkbenchProcess::TreeRows() const
{
    const HTREEITEM root = TreeNext(nullptr, TVGN_ROOT);
    return root != nullptr ? TreeRowsFrom(root) : "";
}

HTREEITEM WorkbenchProcess::TreeRow(const std::string& label) const
{
    HTREEITEM row = TreeNext(nullptr, TVGN_ROOT);
    while (row != nullptr && TreeLabel(row) != label)
    {
        HTREEITEM next = TreeNext(row, TVGN_CHILD);
        for (; row != nullptr && next == nullptr; row = TreeNext(row, TVGN_PARENT))
        {
            next = TreeNext(row, TVGN_NEXT);
        }
        row = next;
    }
    return row;
}

std::string WorkbenchProcess::TreeChosen() const
{
    const HTREEITEM row = TreeNext(nullptr, TVGN_CARET);
    return row != nullptr ? TreeLabel(row) : "";
}

POINT WorkbenchProcess::TreePlace(const std::string& label) const
{
    const RemoteBuffer buffer(m_process.hProcess, sizeof(RECT));
    const HTREEITEM row = TreeRow(label);
    buffer.Write(row); // where the rectangle goes stands which row is meant
    ::SendMessageA(Tree(), TVM_GETITEMRECT, TRUE, buffer.Address());
    const RECT rect = buffer.ReadValue<RECT>();
    constexpr LONG kInText = 60; // a long label reaches out of the tree
    const LONG x = std::min((rect.left + rect.right) / 2, rect.left + kInText);
    return support::ScreenPoint(Tree(), x, (rect.top + rect.bottom) / 2);
}

std::vector<std::string> WorkbenchProcess::Names() const { return Column(List(), 0, RowCount(List())); }

std::string WorkbenchProcess::Chosen() const
{
    const int row = SelectedRow(List());
    return row >= 0 ? Cell(List(), row, 0) : "";
}

int WorkbenchProcess::RowCount(HWND list) const
{
    return static_cast<int>(::SendMessageA(list, LVM_GETITEMCOUNT, 0, 0));
}

std::string WorkbenchProcess::Cell(HWND list, int row, int column) const
{
    const RemoteBuffer text(m_process.hProcess, MAX_PATH);
    const RemoteBuffer request(m_process.hProcess, sizeof(LVITEMA));
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = reinterpret_cast<char*>(text.Address());
    item.cchTextMax = MAX_PATH;
    request.Write(item);
    const auto length = ::SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), request.Address());
    return text.Read(static_cast<size_t>(std::max<LRESULT>(0, length)));
}

std::vector<std::string> WorkbenchProcess::Column(HWND list, int column, int rows) const
{
    std::vector<std::string> cells;
    for (int row = 0; row < rows; ++row)
    {
        cells.push_back(Cell(list, row, column));
    }
    return cells;
}

int WorkbenchProcess::SelectedRow(HWND list) const
{
    return static_cast<int>(::SendMessageA(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

POINT WorkbenchProcess::CellPoint(HWND list, int row, int column) const
{
    const RemoteBuffer buffer(m_process.hProcess, sizeof(RECT));
    // The message takes the column and the part of the cell in the rectangle that it fills.
    buffer.Write(RECT{column == 0 ? LVIR_LABEL : LVIR_BOUNDS, column, 0, 0});
    ::SendMessageA(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), buffer.Address());
    const RECT cell = buffer.ReadValue<RECT>();
    constexpr LONG kInText = 8;
    return support::ScreenPoint(list, cell.left + kInText, (cell.top + cell.bottom) / 2);
}

void WorkbenchProcess::ClickCell(HWND list, int row, int column) const { support::Click(CellPoint(list, row, column)); }

RECT WorkbenchProcess::CaptionRect(HWND list, int column) const
{
    auto* const header = reinterpret_cast<HWND>(::SendMessageA(list, LVM_GETHEADER, 0, 0));
    const RemoteBuffer buffer(m_process.hProcess, sizeof(RECT));
    ::SendMessageA(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), buffer.Address());
    const RECT place = buffer.ReadValue<RECT>();
    const POINT corner = support::ScreenPoint(header, place.left, place.top);
    return {corner.x, corner.y, corner.x + place.right - place.left, corner.y + place.bottom - place.top};
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

std::string TextOf(HWND window)
{
    std::string text(static_cast<size_t>(::SendMessageA(window, WM_GETTEXTLENGTH, 0, 0)) + 1, '\0');
    text.resize(
        static_cast<size_t>(::SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}
} // namespace e2e
