#include "automation/Input.h"

#include <utility>
#include <vector>

namespace automation
{
namespace
{
/// Absolute input counts each side of the screen in this many parts.
constexpr LONGLONG kScreenParts = 65536;

void Send(std::vector<INPUT> inputs) { ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)); }

INPUT MouseInput(DWORD flags, DWORD data = 0)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    return input;
}

INPUT KeyInput(WORD key, bool up)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(::MapVirtualKeyA(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
    return input;
}

/// Puts the mouse on a point, and does with its buttons what the flags say.
INPUT MouseInputAt(POINT screen, DWORD flags)
{
    INPUT input = MouseInput(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | flags);
    // Half a part more, so that the division lands on the same pixel.
    input.mi.dx = static_cast<LONG>((screen.x * kScreenParts + kScreenParts / 2) / ::GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = static_cast<LONG>((screen.y * kScreenParts + kScreenParts / 2) / ::GetSystemMetrics(SM_CYSCREEN));
    return input;
}

DWORD DownFlag(Button button) { return button == Button::left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN; }

DWORD UpFlag(Button button) { return button == Button::left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP; }
} // namespace

void MoveMouse(POINT screen) { Send({MouseInputAt(screen, 0)}); }

POINT ScreenPoint(HWND window, int x, int y)
{
    POINT point{x, y};
    ::ClientToScreen(window, &point);
    return point;
}

POINT CenterOf(HWND window)
{
    RECT rect{};
    ::GetWindowRect(window, &rect);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

void Press(Button button) { Send({MouseInput(DownFlag(button))}); }

void Release(Button button) { Send({MouseInput(UpFlag(button))}); }

void Click(POINT screen, Button button)
{
    // Press and release carry their place: a late echo of an earlier move, which a busy screen sends, can't misplace
    // them.
    Send({MouseInputAt(screen, DownFlag(button)), MouseInputAt(screen, UpFlag(button))});
}

void DoubleClick(POINT screen)
{
    Click(screen);
    Click(screen);
}

void Click(HWND window, Button button) { Click(CenterOf(window), button); }

void TurnWheel(int notches) { Send({MouseInput(MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA))}); }

void KeyDown(WORD key) { Send({KeyInput(key, false)}); }

void KeyUp(WORD key) { Send({KeyInput(key, true)}); }

void PressKey(WORD key, std::initializer_list<WORD> modifiers)
{
    std::vector<INPUT> inputs;
    for (const WORD modifier : modifiers)
    {
        inputs.push_back(KeyInput(modifier, false));
    }
    inputs.push_back(KeyInput(key, false));
    inputs.push_back(KeyInput(key, true));
    for (const WORD modifier : modifiers)
    {
        inputs.push_back(KeyInput(modifier, true));
    }
    Send(std::move(inputs));
}

void TypeText(std::string_view text)
{
    std::vector<INPUT> inputs;
    for (const char c : text)
    {
        WCHAR wide = 0;
        ::MultiByteToWideChar(CP_ACP, 0, &c, 1, &wide, 1);
        for (const DWORD up : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}})
        {
            INPUT input{};
            input.type = INPUT_KEYBOARD;
            input.ki.wScan = wide;
            input.ki.dwFlags = KEYEVENTF_UNICODE | up;
            inputs.push_back(input);
        }
    }
    Send(std::move(inputs));
}
} // namespace automation
