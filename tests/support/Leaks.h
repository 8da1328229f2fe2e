// Leaks.h - counts of live windows and GDI objects of this process
#pragma once

#include <array>
#include <iosfwd>

namespace support
{
/// What a process holds of the window system at one moment.
struct SystemCounts
{
    int windows = 0;                  ///< top-level, child and message-only windows
    int gdiObjects = 0;               ///< device contexts, bitmaps, pens, brushes, fonts, regions, palettes
    std::array<int, 256> gdiByType{}; ///< the same by the table's type byte; all zero where only the sum is known

    bool operator==(const SystemCounts&) const = default;
};

std::ostream& operator<<(std::ostream& out, const SystemCounts& counts);

[[nodiscard]] SystemCounts CountSystemObjects();
} // namespace support
