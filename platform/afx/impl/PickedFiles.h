// PickedFiles.h - walks over the paths that a file dialog has written into its buffer
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

/// One path, and where the walk goes on.
struct AfxPickedFile
{
    std::string path;
    size_t next; ///< 0 behind the last one
};

/// The path at a position of the buffer. One file is there as its full path, several as the folder and the names, each
/// closed by a zero, with one more zero behind the last.
/// @param position  0 to begin, then what the last call gave
/// @param several   the dialog let several files be picked; otherwise what follows the first text means nothing
inline AfxPickedFile AfxNextPickedFile(std::span<const char> buffer, size_t position, bool several)
{
    const auto textAt = [&](size_t start) {
        const auto rest = buffer.subspan(std::min(start, buffer.size()));
        return std::string(rest.begin(), std::find(rest.begin(), rest.end(), '\0'));
    };
    const auto behind = [](size_t start, const std::string& text) { return start + text.size() + 1; };
    const std::string first = textAt(0);
    if (position == 0)
    {
        position = behind(0, first);
        if (!several || textAt(position).empty())
        {
            return {first, 0};
        }
    }
    const std::string name = textAt(position);
    const size_t next = behind(position, name);
    // A root alone comes closed. A backslash at another end may be half a character.
    const bool isRoot = first.size() == 3 && first[1] == ':';
    const bool closed = first.empty() || isRoot;
    return {first + (closed ? "" : "\\") + name, textAt(next).empty() ? 0 : next};
}
