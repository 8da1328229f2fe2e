// MessageCache.cpp - search through message maps, and the table in front of it

#include "impl/MessageCache.h"

#include <afxcmdtgt.h>

#include <atomic>
#include <cstdint>

namespace
{
/// Numbers from here on come from RegisterWindowMessage.
constexpr UINT kFirstRegistered = 0xC000;

std::atomic<unsigned> g_generation{1};

bool Answers(const AFX_MSGMAP_ENTRY& entry, UINT message) noexcept
{
    if (entry.pnRegistered != nullptr)
    {
        return *entry.pnRegistered == message;
    }
    return entry.nMessage == message && entry.nCode == 0 && entry.nID == 0 && entry.nLastID == 0;
}

const AFX_MSGMAP_ENTRY* Search(const AFX_MSGMAP* map, UINT message)
{
    while (map != nullptr)
    {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn != nullptr; ++entry)
        {
            if (Answers(*entry, message))
            {
                return entry;
            }
        }
        map = map->pfnGetBaseMap == nullptr ? nullptr : map->pfnGetBaseMap();
    }
    return nullptr;
}
} // namespace

size_t AfxMessageCache::SlotOf(const AFX_MSGMAP* map, UINT message) noexcept
{
    const auto bits = reinterpret_cast<std::uintptr_t>(map);
    return ((bits >> 4) ^ (bits >> 13) ^ message) & (kSlots - 1);
}

const AFX_MSGMAP_ENTRY* AfxMessageCache::Find(const AFX_MSGMAP* map, UINT message)
{
    // The value of a variable may be registered, or change, after the first search: such results aren't kept.
    if (message >= kFirstRegistered)
    {
        return Search(map, message);
    }
    const unsigned generation = g_generation.load(std::memory_order_relaxed);
    Slot& slot = m_slots[SlotOf(map, message)];
    if (slot.map != map || slot.message != message || slot.generation != generation)
    {
        slot = {map, Search(map, message), message, generation};
    }
    return slot.entry;
}

void AfxMessageCache::Invalidate() noexcept { g_generation.fetch_add(1, std::memory_order_relaxed); }
