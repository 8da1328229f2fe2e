#include "workbench/TourInput.h"

#include <vector>

namespace workbench
{
namespace
{
/// Absolute input counts each side of the screen in this many parts.
constexpr LONGLONG kScreenParts = 65536;

void Send(std::vector<INPUT> inputs) { ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)); }

INPUT Mouse(DWORD flags)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    return input;
}

INPUT Key(WORD key, bool up)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(::MapVirtualKeyA(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
    return input;
}
} // namespace

POINT MiddleOf(HWND window)
{
    RECT rect{};
    ::GetWindowRect(window, &rect);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

void MoveMouse(POINT screen)
{
    INPUT input = Mouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
    // Half a part more, so that the division lands on the same pixel.
    input.mi.dx = static_cast<LONG>((screen.x * kScreenParts + kScreenParts / 2) / ::GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = static_cast<LONG>((screen.y * kScreenParts + kScreenParts / 2) / ::GetSystemMetrics(SM_CYSCREEN));
    Send({input});
}

void PressMouse() { Send({Mouse(MOUSEEVENTF_LEFTDOWN)}); }

void ReleaseMouse() { Send({Mouse(MOUSEEVENTF_LEFTUP)}); }

void Click(POINT screen)
{
    MoveMouse(screen);
    Send({Mouse(MOUSEEVENTF_LEFTDOWN), Mouse(MOUSEEVENTF_LEFTUP)});
}

void DoubleClick(POINT screen)
{
    Click(screen);
    Send({Mouse(MOUSEEVENTF_LEFTDOWN), Mouse(MOUSEEVENTF_LEFTUP)});
}

void PressKey(WORD key, std::initializer_list<WORD> modifiers)
{
    std::vector<INPUT> inputs;
    for (const WORD modifier : modifiers)
    {
        inputs.push_back(Key(modifier, false));
    }
    inputs.push_back(Key(key, false));
    inputs.push_back(Key(key, true));
    for (const WORD modifier : modifiers)
    {
        inputs.push_back(Key(modifier, true));
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
} // namespace workbench
