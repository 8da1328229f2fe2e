// StartTest.cpp - a whole program of the framework: start, loop, idle work, filter of the system's loops, end

#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace
{
constexpr DWORD kDeadlineMs = 60'000;
constexpr UINT kHung = 98;

struct Outcome
{
    DWORD code = 0;
    std::vector<std::string> trace;
};

std::string ProgramPath()
{
    char path[MAX_PATH] = "";
    ::GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string own = path;
    return own.substr(0, own.rfind('\\') + 1) + "StartProgram.exe";
}

/// Runs the program to its end and reads what it wrote down.
Outcome Play(const std::string& play)
{
    const support::TempFolder folder;
    std::string commandLine = "StartProgram " + play + " " + folder.Path("trace.txt");
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION process = {};
    Outcome outcome;
    if (!::CreateProcessA(ProgramPath().c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &start, &process))
    {
        ADD_FAILURE() << "the program did not start: " << ::GetLastError();
        return outcome;
    }
    if (::WaitForSingleObject(process.hProcess, kDeadlineMs) != WAIT_OBJECT_0)
    {
        ADD_FAILURE() << "the program did not end";
        ::TerminateProcess(process.hProcess, kHung);
        ::WaitForSingleObject(process.hProcess, kDeadlineMs);
    }
    ::GetExitCodeProcess(process.hProcess, &outcome.code);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    std::istringstream lines(folder.Read("trace.txt"));
    for (std::string line; std::getline(lines, line);)
    {
        if (!line.empty() && line.back() == '\r')
        {
            line.pop_back();
        }
        outcome.trace.push_back(line);
    }
    return outcome;
}
} // namespace

TEST(ProgramStart, AQuitMessageEndsTheLoopWithItsCode)
{
    const Outcome outcome = Play("quit");
    EXPECT_EQ(outcome.code, 23u);
    EXPECT_THAT(outcome.trace, ElementsAre("init quit", "own instance", "run", "exit"));
}

TEST(ProgramStart, AnInitInstanceThatRefusesLosesItsMainWindowAndNeverRuns)
{
    const Outcome outcome = Play("refuse");
    EXPECT_EQ(outcome.code, 41u);
    EXPECT_THAT(outcome.trace, ElementsAre("init refuse", "own instance", "frame destroyed", "exit"));
}

TEST(ProgramStart, TheEndOfTheMainWindowEndsTheProgramWithZero)
{
    const Outcome outcome = Play("close");
    EXPECT_EQ(outcome.code, 0u);
    EXPECT_THAT(outcome.trace, ElementsAre("init close", "own instance", "run", "frame destroyed", "exit"));
}

TEST(ProgramStart, IdleWorkIsDoneOnceUntilItHasEnoughAndAgainAfterEachMessage)
{
    const Outcome outcome = Play("idle");
    EXPECT_EQ(outcome.code, 0u);
    // Other messages (activation, timers) may lead to idle work too: the order is what counts.
    std::vector<std::string> steps;
    for (const std::string& line : outcome.trace)
    {
        if (line == "ping" || line == "pre-translated" || line == "run" || line == "frame destroyed" || line == "exit")
        {
            steps.push_back(line);
        }
    }
    EXPECT_THAT(steps, ElementsAre("run", "pre-translated", "ping", "frame destroyed", "exit"));
    for (size_t i = 0; i < outcome.trace.size(); ++i)
    {
        if (outcome.trace[i] == "idle 1, enough")
        {
            ASSERT_GT(i, 0u);
            EXPECT_EQ(outcome.trace[i - 1], "idle 0, more") << "line " << i;
        }
    }
    const auto ping = std::ranges::find(outcome.trace, "ping");
    ASSERT_NE(ping, outcome.trace.end());
    EXPECT_THAT(std::vector<std::string>(outcome.trace.begin(), ping), Contains("idle 1, enough"));
    EXPECT_THAT(std::vector<std::string>(ping, outcome.trace.end()),
                AllOf(Contains("idle 0, more"), Contains("idle 1, enough")));
    EXPECT_THAT(outcome.trace, Not(Contains("idle 2, enough")));
}

TEST(ProgramStart, TheFilterSeesTheMessagesOfAMenusLoopAndMayEatThem)
{
    const Outcome outcome = Play("filter");
    EXPECT_EQ(outcome.code, 0u);
    EXPECT_THAT(outcome.trace,
                ElementsAre("init filter", "own instance", "run", "pre-translated", "ping", "escape 1 in a menu",
                            "escape 2 in a menu", "menu closed", "frame destroyed", "exit"));
}
