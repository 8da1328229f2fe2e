// versions.cpp - prints what each DLL says about its version: in numbers and in words
#include <windows.h>

#include <cstdio>
#include <vector>

namespace
{

/// @return false if the DLL doesn't tell.
bool PrintVersion(const char* dll)
{
    DWORD ignored = 0;
    const DWORD size = ::GetFileVersionInfoSizeA(dll, &ignored);
    std::vector<char> info(size);
    VS_FIXEDFILEINFO* fixed = nullptr;
    char* text = nullptr;
    UINT length = 0;
    if (size == 0 || !::GetFileVersionInfoA(dll, 0, size, info.data()) ||
        !::VerQueryValueA(info.data(), "\\", reinterpret_cast<void**>(&fixed), &length) ||
        !::VerQueryValueA(info.data(), "\\StringFileInfo\\040904E4\\FileVersion", reinterpret_cast<void**>(&text),
                          &length))
    {
        std::printf("%s has no version\n", dll);
        return false;
    }
    std::printf("%s %u.%u.%u.%u %s\n", dll, HIWORD(fixed->dwFileVersionMS), LOWORD(fixed->dwFileVersionMS),
                HIWORD(fixed->dwFileVersionLS), LOWORD(fixed->dwFileVersionLS), text);
    return true;
}

} // namespace

int main()
{
    bool all = true;
    for (const char* const dll : {"TavAfx.dll", "TavBcg.dll", "TavHost.dll", "TavKit.dll"})
    {
        all = PrintVersion(dll) && all;
    }
    std::printf("[finished %d]\n", all ? 0 : 1);
    return all ? 0 : 1;
}
