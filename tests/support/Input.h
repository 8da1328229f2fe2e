// Input.h - real mouse and keyboard input, also from a second thread
#pragma once

#include "automation/Input.h"

#include <functional>
#include <thread>
#include <vector>

namespace support
{
// The hand's operations, under the tests' own name.
using automation::Button;
using automation::CenterOf;
using automation::Click;
using automation::DoubleClick;
using automation::KeyDown;
using automation::KeyUp;
using automation::MoveMouse;
using automation::Press;
using automation::PressKey;
using automation::Release;
using automation::ScreenPoint;
using automation::TurnWheel;
using automation::TypeText;

/// Steps done one after the other by a second thread, for input into loops that the system runs itself (menus, window
/// sizing, drags): the thread under test is inside the loop meanwhile. A step that waits does so for a condition.
class InputThread
{
public:
    /// Starts at once.
    explicit InputThread(std::vector<std::function<void()>> steps);
    /// Waits for the last step.
    ~InputThread();
    InputThread(const InputThread&) = delete;
    InputThread& operator=(const InputThread&) = delete;

private:
    std::jthread m_thread;
};

/// Waits, without pumping, until the condition holds; for steps of an InputThread.
/// @return false when the deadline passed first.
[[nodiscard]] bool WaitFor(const std::function<bool()>& condition);
} // namespace support
