// WinTypes.h - the few plain Win32 value types that pure logic uses: windows.h on Windows, the same structs elsewhere
#pragma once

#ifdef _WIN32
#    ifndef NOMINMAX
#        define NOMINMAX
#    endif
#    include <windows.h>
#else
#    include <cstdint>

using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using BYTE = std::uint8_t;
using COLORREF = DWORD;

struct POINT
{
    LONG x;
    LONG y;
};

struct SIZE
{
    LONG cx;
    LONG cy;
};

struct RECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

constexpr COLORREF RGB(unsigned r, unsigned g, unsigned b)
{
    return (r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16);
}
constexpr BYTE GetRValue(COLORREF color) { return static_cast<BYTE>(color & 0xFF); }
constexpr BYTE GetGValue(COLORREF color) { return static_cast<BYTE>((color >> 8) & 0xFF); }
constexpr BYTE GetBValue(COLORREF color) { return static_cast<BYTE>((color >> 16) & 0xFF); }
#endif
