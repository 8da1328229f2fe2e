#include "Input.h"

#include "Pump.h"

namespace support
{
namespace
{
constexpr DWORD kPollMs = 2;
} // namespace

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
