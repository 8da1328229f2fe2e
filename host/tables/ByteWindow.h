// ByteWindow.h - a window that moves forward over the bytes of a source
#pragma once

#include <memory>

#include "host/ByteSource.h"
#include "host/tables/ByteStops.h"

namespace table
{

/// How much of a source stands in memory, in bytes.
struct WindowSizes
{
    std::size_t first; ///< what the first reading asks for, at least 1; each further one asks for twice as much
    std::size_t block; ///< until it asks for this, at least `first`
    std::size_t most;  ///< the window never holds more than this
};

/// For reading a table from its start to its end. The first reading is small, so that the first rows are there at once.
/// The longest row that is still read has 256 megabytes: a file without any line break can't fill the memory.
constexpr WindowSizes kTableWindow{std::size_t{16} << 10, std::size_t{256} << 10, std::size_t{256} << 20};

/// A part of a source in memory, which is changed at will by its user. Bytes are added behind its end and dropped from
/// its start; the room for them follows in both directions. Files are read, not mapped: when a mapped file shrinks,
/// touching its lost pages ends the program.
class ByteWindow
{
public:
    /// Begins empty.
    /// @param source  borrowed; lives longer than this object.
    /// @param from    where reading starts.
    ByteWindow(host::ByteSource& source, std::uint64_t from, WindowSizes sizes) noexcept
        : m_source(source), m_next(from), m_sizes(sizes), m_step(sizes.first)
    {
    }

    ByteWindow(const ByteWindow&) = delete;
    ByteWindow& operator=(const ByteWindow&) = delete;

    [[nodiscard]] char* Begin() noexcept { return m_begin; }
    /// Behind the last byte; a NUL stands there, which may be overwritten by another NUL only. As many bytes as a
    /// search by ByteStops looks at at a time can be read from there on.
    [[nodiscard]] char* End() noexcept { return m_end; }

    /// Adds bytes behind the end. The window may move in memory; what Begin() gives keeps its meaning.
    /// @return false at the end of the source, and once Failed().
    bool More() noexcept;

    /// Forgets bytes at the start.
    /// @param count  at most as many as there are.
    void Drop(std::size_t count) noexcept { m_begin += count; }

    /// True after a reading failed, as in a file that has become shorter, or the window would have grown too large.
    [[nodiscard]] bool Failed() const noexcept { return m_failed; }

    /// Where a byte of the window stands in the source.
    [[nodiscard]] std::uint64_t OffsetOf(const char* byte) const noexcept
    {
        return m_next - static_cast<std::uint64_t>(m_end - byte);
    }

private:
    [[nodiscard]] bool MakeRoom(std::size_t kept, std::size_t wanted) noexcept;

    host::ByteSource& m_source; // not owned
    std::uint64_t m_next;       ///< offset of what is read next
    WindowSizes m_sizes;
    std::size_t m_step; ///< how much is read next
    std::size_t m_room = 0;
    std::unique_ptr<char[]> m_pBytes;    ///< m_room bytes and those that may be read behind them
    char m_nothing[ByteStops::kBlock]{}; ///< stands for the window as long as it has no bytes
    char* m_begin = m_nothing;
    char* m_end = m_nothing;
    bool m_failed = false;
};

} // namespace table
