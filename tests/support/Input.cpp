#include "Input.h"

#include "Pump.h"

namespace support
{
namespace
{
constexpr DWORD kPollMs = 2;

void Send(const std::vector<INPUT>& inputs)
{
    ::SendInput(static_cast<UINT>(inputs.size()), const_cast<INPUT*>(inputs.data()), sizeof(INPUT));
}

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

DWORD DownFlag(Button button) { return button == Button::left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN; }

DWORD UpFlag(Button button) { return button == Button::left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP; }
} // namespace

void MoveMouse(POINT screen)
{
    // Absolute input counts the screen in 65536 parts; the half part makes the division land on the same pixel.
    const int width = ::GetSystemMetrics(SM_CXSCREEN);
    const int height = ::GetSystemMetrics(SM_CYSCREEN);
    INPUT input = MouseInput(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
    input.mi.dx = static_cast<LONG>((screen.x * 65536LL + 32768) / width);
    input.mi.dy = static_cast<LONG>((screen.y * 65536LL + 32768) / height);
    Send({input});
}

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
    MoveMouse(screen);
    Send({MouseInput(DownFlag(button)), MouseInput(UpFlag(button))});
}

void DoubleClick(POINT screen)
{
    Click(screen);
    Send({MouseInput(MOUSEEVENTF_LEFTDOWN), MouseInput(MOUSEEVENTF_LEFTUP)});
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
    Send(inputs);
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
    Send(inputs);
}

InputThread::InputThread(std::vector<std::function<void()>> steps)
    : m_thread([steps = std::move(steps)] {
          for (const auto& step : steps)
          {
              step();
          }
      })
{
}

InputThread::~InputThread() = default;

bool WaitFor(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + kDeadline;
    while (!condition())
    {
        if (std::chrono::steady_clock::now() >= end)
        {
            return false;
        }
        ::Sleep(kPollMs); // the poll of a condition, not a wait for time to pass
    }
    return true;
}
} // namespace support
