// Options.h - what the workbench was started with
#pragma once

#include <span>
#include <string>

namespace workbench
{
/// The command line, read.
struct Options
{
    std::string path;       ///< folder or file to show; empty for the samples
    std::string tourFolder; ///< where the tour leaves its pictures; empty when no tour was asked for
    std::string error;      ///< what is wrong with the command line, as a sentence; empty when nothing is

    bool operator==(const Options&) const = default;
};

/// One line that explains the command line.
inline constexpr char kUsage[] = "Usage: Workbench [--tour FOLDER] [FOLDER|FILE]";

/// Reads the arguments behind the program's name.
[[nodiscard]] Options ReadOptions(std::span<const char* const> arguments);
} // namespace workbench
