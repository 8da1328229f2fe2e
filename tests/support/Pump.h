// Pump.h - message pump of the tests: waits for conditions, with a deadline, never for time to pass
#pragma once

#include <windows.h>
#include <chrono>
#include <functional>

namespace support
{
inline constexpr std::chrono::milliseconds kDeadline{10'000};

/// Hands out what lies in the queue of the calling thread, through the framework's pump when a thread object exists.
void DrainMessages();

/// Pumps messages until the condition holds.
/// @return false when the deadline passed first.
[[nodiscard]] bool PumpUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline = kDeadline);

/// Pumps until everything sent and posted so far has been handled and painted, other programs' part included: two
/// rounds of a posted message through the queue and a screen that has taken in the drawing.
void Settle();
} // namespace support
