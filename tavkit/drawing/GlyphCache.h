// GlyphCache.h - which colours have an image already
#pragma once

#include "tavkit/frame/WinTypes.h"

#include <algorithm>
#include <forward_list>
#include <optional>

namespace tavkit
{

/// What makes one glyph another than the next. The rectangle it was painted in is no part of it, on purpose: whoever
/// asks for the same colours in another rectangle gets the first image.
struct GlyphKey
{
    COLORREF fill = 0;
    COLORREF border = 0;
    bool barred = false; ///< never set for rectangles

    bool operator==(GlyphKey const&) const = default;
};

/// Images by key, the newest first.
class GlyphCache
{
public:
    /// @return the image of the newest entry with that key.
    [[nodiscard]] std::optional<int> Find(GlyphKey const& key) const
    {
        auto const entry = std::ranges::find(m_entries, key, &Entry::key);
        return entry != m_entries.end() ? std::optional(entry->image) : std::nullopt;
    }

    void Add(GlyphKey const& key, int image) { m_entries.push_front({key, image}); }

    /// Gives every entry with that image the key; the keys that it had are gone.
    void Rename(int image, GlyphKey const& key)
    {
        for (Entry& entry : m_entries)
        {
            if (entry.image == image)
            {
                entry.key = key;
            }
        }
    }

    void Clear() noexcept { m_entries.clear(); }

private:
    struct Entry
    {
        GlyphKey key;
        int image;
    };
    std::forward_list<Entry> m_entries;
};

} // namespace tavkit
