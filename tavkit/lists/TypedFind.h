// TypedFind.h - finding a row by what is typed
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace tavkit
{

/// Pause in milliseconds after which a character begins a new text.
inline constexpr unsigned kTypingPause = 1000;

/// The characters typed in one go.
class TypedText
{
public:
    /// Adds a character.
    /// @param now  milliseconds of a clock that may wrap
    void Add(char c, unsigned now)
    {
        if (IsOver(now))
        {
            m_text.clear();
        }
        m_text += c;
        m_last = now;
    }

    [[nodiscard]] std::string const& Get() const noexcept { return m_text; }
    /// True if the next character begins a new text.
    [[nodiscard]] bool IsOver(unsigned now) const noexcept { return m_text.empty() || now - m_last > kTypingPause; }
    /// True for one character typed several times, by which one walks through all rows that begin with it.
    [[nodiscard]] bool IsOneCharacter() const
    {
        return m_text.size() > 1 && m_text.find_first_not_of(m_text.front()) == std::string::npos;
    }

private:
    std::string m_text;
    unsigned m_last = 0;
};

/// Where a text has to stand in a cell.
enum class FindPlace
{
    Begin,
    Anywhere
};

/// Both texts in one case already.
[[nodiscard]] inline bool IsFoundIn(std::string_view cell, std::string_view text, FindPlace place)
{
    return place == FindPlace::Begin ? cell.starts_with(text) : cell.find(text) != std::string_view::npos;
}

/// The first row that matches, from `from` on to the end and then from the other end up to `from`.
/// @param from     the first row looked at; one outside stands for the end where the search begins
/// @param count    () -> int: number of rows, which may change in the course of it; 0 ends the search
/// @param matches  (int row) -> bool
template <class Count, class Matches>
[[nodiscard]] std::optional<int> FindRow(int from, bool backwards, Count count, Matches matches)
{
    int const rows = count();
    if (from < 0 || from >= rows)
    {
        from = backwards ? rows - 1 : 0;
    }
    int const step = backwards ? -1 : 1;
    for (int row = from; row >= 0 && row < count(); row += step)
    {
        if (matches(row))
        {
            return row;
        }
    }
    int const wrapped = backwards ? count() - 1 : 0;
    for (int row = wrapped; (backwards ? row > from : row < from) && row >= 0 && row < count(); row += step)
    {
        if (matches(row))
        {
            return row;
        }
    }
    return std::nullopt;
}

} // namespace tavkit
