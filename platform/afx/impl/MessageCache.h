// MessageCache.h - which entry of a message map answers a message, remembered for one thread
#pragma once

#include <afxdefs.h>
#include <array>

struct AFX_MSGMAP;
struct AFX_MSGMAP_ENTRY;

/// A direct-mapped table in front of the search through a class's map and those of its bases. That there is no entry is
/// remembered too: most messages of a window have none.
class AfxMessageCache
{
public:
    /// The entry of the map or of the nearest base map for a plain or registered message; null if there is none.
    const AFX_MSGMAP_ENTRY* Find(const AFX_MSGMAP* map, UINT message);

    /// Forgets everything on every thread, because the maps of a module go away with it.
    static void Invalidate() noexcept;

private:
    struct Slot
    {
        const AFX_MSGMAP* map = nullptr;
        const AFX_MSGMAP_ENTRY* entry = nullptr;
        UINT message = 0;
        unsigned generation = 0;
    };
    static constexpr size_t kSlots = 512; // a power of two

    static size_t SlotOf(const AFX_MSGMAP* map, UINT message) noexcept;

    std::array<Slot, kSlots> m_slots{};
};
