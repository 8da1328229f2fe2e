// FinishedMark.h - the closing line by which a runner knows that a program reached its end
#pragma once

#include <cstdio>

namespace automation
{
/// Prints "[finished N]"; the exit code alone isn't safe after a crash on every platform.
/// @return the code, for the caller to end with.
inline int Finish(int code)
{
    std::printf("[finished %d]\n", code);
    std::fflush(stdout);
    return code;
}
} // namespace automation
