#include "Leaks.h"

#include <windows.h>

#include <cstring>
#include <ostream>

namespace support
{
namespace
{
BOOL CALLBACK CountChild(HWND, LPARAM param)
{
    ++*reinterpret_cast<int*>(param);
    return TRUE;
}

bool IsOfSystem(HWND window)
{
    // Input method windows come and go with the first focus; they belong to the system.
    char name[64] = "";
    ::GetClassNameA(window, name, sizeof name);
    return std::strcmp(name, "IME") == 0 || std::strncmp(name, "MSCTFIME", 8) == 0;
}

void CountWindow(HWND window, int& count)
{
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process == ::GetCurrentProcessId() && !IsOfSystem(window))
    {
        ++count;
        ::EnumChildWindows(window, CountChild, reinterpret_cast<LPARAM>(&count));
    }
}

BOOL CALLBACK CountTopLevel(HWND window, LPARAM param)
{
    CountWindow(window, *reinterpret_cast<int*>(param));
    return TRUE;
}

int CountWindows()
{
    int count = 0;
    ::EnumWindows(CountTopLevel, reinterpret_cast<LPARAM>(&count));
    for (HWND window = ::FindWindowExA(HWND_MESSAGE, nullptr, nullptr, nullptr); window != nullptr;
         window = ::FindWindowExA(HWND_MESSAGE, window, nullptr, nullptr))
    {
        CountWindow(window, count);
    }
    return count;
}

bool RunsUnderWine() { return ::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr; }

/// One entry of the table of GDI handles that Wine keeps in the process environment block.
struct GdiEntry
{
    unsigned char rest[14];
    unsigned char type; ///< 0 when the entry is free
    unsigned char tail[9];
};
static_assert(sizeof(GdiEntry) == 24);

constexpr int kGdiEntries = 0x4000;
constexpr int kGdiTableOffset = 0xF8; ///< of the table's address in the process environment block

/// The system makes the brushes of its colours on first demand and gives one up when its colour changes: whether one
/// is there says nothing about the test.
void DemandSystemBrushes()
{
    for (int color = 0; color <= COLOR_MENUBAR; ++color)
    {
        ::GetSysColorBrush(color);
    }
}

void CountGdi(SystemCounts& counts)
{
    DemandSystemBrushes();
    if (!RunsUnderWine())
    {
        counts.gdiObjects = static_cast<int>(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS));
        return;
    }
    using CurrentBlock = const unsigned char*(WINAPI*)();
    const auto current = reinterpret_cast<CurrentBlock>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleA("ntdll.dll"), "RtlGetCurrentPeb")));
    const unsigned char* block = current();
    const GdiEntry* table = *reinterpret_cast<const GdiEntry* const*>(block + kGdiTableOffset);
    for (int i = 0; i < kGdiEntries; ++i)
    {
        if (table[i].type != 0)
        {
            ++counts.gdiObjects;
            ++counts.gdiByType[table[i].type];
        }
    }
}
} // namespace

std::ostream& operator<<(std::ostream& out, const SystemCounts& counts)
{
    out << counts.windows << " windows, " << counts.gdiObjects << " GDI objects";
    for (size_t type = 0; type < counts.gdiByType.size(); ++type)
    {
        if (counts.gdiByType[type] != 0)
        {
            out << ", type " << type << ": " << counts.gdiByType[type];
        }
    }
    return out;
}

SystemCounts CountSystemObjects()
{
    SystemCounts counts;
    counts.windows = CountWindows();
    CountGdi(counts);
    return counts;
}
} // namespace support
