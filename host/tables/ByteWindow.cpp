// ByteWindow.cpp
#include "host/tables/ByteWindow.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace table
{
namespace
{
constexpr std::size_t kSpareFactor = 4; ///< room is given back when more than this times what is needed lies idle
} // namespace

bool ByteWindow::More() noexcept
{
    const std::uint64_t size = m_source.Size();
    if (m_failed || m_next >= size)
    {
        return false;
    }
    const auto kept = static_cast<std::size_t>(m_end - m_begin);
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(m_step, size - m_next));
    if (!MakeRoom(kept, wanted))
    {
        m_failed = true;
        return false;
    }
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(m_room - kept, size - m_next));
    if (!m_source.Read(m_next, std::as_writable_bytes(std::span(m_end, count))))
    {
        m_failed = true;
        return false;
    }
    m_next += count;
    m_end += count;
    *m_end = '\0';
    m_step = std::min(m_step * 2, m_sizes.block);
    return true;
}

/// Moves what is kept to the start of a block that has room for more behind it.
bool ByteWindow::MakeRoom(std::size_t kept, std::size_t wanted) noexcept
{
    if (kept >= m_sizes.most)
    {
        return false;
    }
    // A row that outgrows the window gets twice the room each time, so that long rows aren't copied over and over.
    const std::size_t needed = std::min(std::max(kept + wanted, m_room < kept + wanted ? 2 * kept : 0), m_sizes.most);
    if (needed > m_room || m_room / kSpareFactor > needed)
    {
        std::unique_ptr<char[]> bytes(new (std::nothrow) char[needed + ByteStops::kBlock]);
        if (!bytes)
        {
            return false;
        }
        std::memcpy(bytes.get(), m_begin, kept);
        m_pBytes = std::move(bytes);
        m_room = needed;
    }
    else
    {
        std::memmove(m_pBytes.get(), m_begin, kept);
    }
    m_begin = m_pBytes.get();
    m_end = m_begin + kept;
    *m_end = '\0';
    return true;
}

} // namespace table
