// Emulation.h - reaches the system that emulates Windows, where one does, for what Windows' own calls can't do there
#pragma once

#include <windows.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace support
{
/// The emulating system's own name of a path of ASCII letters; "" on Windows itself.
[[nodiscard]] inline std::string EmulatorPath(const std::string& path)
{
    using GetUnixName = char*(CDECL*)(const WCHAR*);
    const auto getUnixName = reinterpret_cast<GetUnixName>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name")));
    if (!getUnixName)
    {
        return {};
    }
    char* const name = getUnixName(std::wstring(path.begin(), path.end()).c_str());
    const std::string result = name ? name : "";
    ::HeapFree(::GetProcessHeap(), 0, name);
    return result;
}

/// Runs a program, without a window. One of Windows is waited for, one of the emulating system can't be: wait for what
/// it does.
inline void RunProgram(std::string command)
{
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!::CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr, &start,
                          &process))
    {
        throw std::runtime_error("cannot run " + command);
    }
    if (process.hProcess)
    {
        ::WaitForSingleObject(process.hProcess, INFINITE);
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
    }
}

/// Waits for what a program does. False when the deadline passed first.
[[nodiscard]] inline bool AwaitProgram(const std::function<bool()>& condition)
{
    constexpr ULONGLONG kDeadlineMs = 30'000;
    const ULONGLONG end = ::GetTickCount64() + kDeadlineMs;
    while (!condition())
    {
        if (::GetTickCount64() > end)
        {
            return false;
        }
        ::Sleep(1); // the poll of a condition
    }
    return true;
}
} // namespace support
