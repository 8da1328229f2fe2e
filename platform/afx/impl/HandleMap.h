// HandleMap.h - objects by handle, for one thread: permanent ones (borrowed) and temporary ones (owned until idle)
#pragma once

#include "impl/ThreadState.h"
#include <array>
#include <cstdint>
#include <memory>
#include <unordered_map>

/// How a map makes an object and puts a handle into it; specialised beside each mapped class:
///     static std::unique_ptr<TObject> MakeTemporary();            // an object without handle
///     static void SetHandle(TObject& object, THandle handle);     // plain store: no counting, no destruction
template <class TObject, class THandle>
struct AfxHandleTraits;

/// Map of one thread. Every message that is dispatched goes through LookupPermanent: a small direct-mapped cache
/// stands before the hash table.
template <class TObject, class THandle>
class CHandleMap final : public CHandleMapBase
{
public:
    using Traits = AfxHandleTraits<TObject, THandle>;

    ~CHandleMap() override { DeleteTemp(); }

    /// The permanent object of the handle, else its temporary one, which is made when needed; null for a null handle.
    TObject* FromHandle(THandle handle) { return FromHandle(handle, &Traits::MakeTemporary); }

    /// @param make  makes the temporary object (of a derived class, say) when one is needed: () -> unique_ptr<TObject>
    template <class TMake>
    TObject* FromHandle(THandle handle, TMake&& make)
    {
        if (handle == nullptr)
        {
            return nullptr;
        }
        if (TObject* found = LookupPermanent(handle))
        {
            return found;
        }
        if (TObject* found = LookupTemporary(handle))
        {
            return found;
        }
        std::unique_ptr<TObject> object = make();
        Traits::SetHandle(*object, handle);
        return (m_temporary[handle] = std::move(object)).get();
    }

    /// The permanent object of the handle, or null.
    TObject* LookupPermanent(THandle handle) const
    {
        CacheSlot& slot = m_cache[SlotOf(handle)];
        if (slot.handle == handle)
        {
            return slot.object;
        }
        const auto found = m_permanent.find(handle);
        if (found == m_permanent.end())
        {
            return nullptr;
        }
        slot = {handle, found->second};
        return found->second;
    }

    /// The temporary object of the handle, or null.
    TObject* LookupTemporary(THandle handle) const
    {
        const auto found = m_temporary.find(handle);
        return found == m_temporary.end() ? nullptr : found->second.get();
    }

    /// Enters an object, which the map borrows until RemoveHandle; a second object of a handle replaces the first.
    void SetPermanent(THandle handle, TObject* object)
    {
        m_permanent[handle] = object;
        m_cache[SlotOf(handle)] = {handle, object};
    }

    /// Takes the permanent object of a handle out. A temporary one stays to idle: somebody may still hold it.
    void RemoveHandle(THandle handle)
    {
        m_permanent.erase(handle);
        CacheSlot& slot = m_cache[SlotOf(handle)];
        if (slot.handle == handle)
        {
            slot = {};
        }
    }

    /// Deletes the temporary objects. Their handles are taken from them first, so nothing else is destroyed.
    void DeleteTemp() override
    {
        auto dying = std::move(m_temporary);
        m_temporary.clear(); // a moved-from table is only valid, not empty
        for (auto& [handle, object] : dying)
        {
            Traits::SetHandle(*object, nullptr);
        }
    }

    size_t GetPermanentCount() const { return m_permanent.size(); }
    size_t GetTemporaryCount() const { return m_temporary.size(); }

private:
    struct CacheSlot
    {
        THandle handle = nullptr;
        TObject* object = nullptr;
    };
    static constexpr size_t kCacheSlots = 256; // a power of two

    // Handles are indices with type bits below and a generation above; neighbours differ by 1, 2 or 4.
    static size_t SlotOf(THandle handle)
    {
        const auto bits = reinterpret_cast<std::uintptr_t>(handle);
        return ((bits >> 1) ^ (bits >> 9)) & (kCacheSlots - 1);
    }

    mutable std::array<CacheSlot, kCacheSlots> m_cache{};
    std::unordered_map<THandle, TObject*> m_permanent;
    std::unordered_map<THandle, std::unique_ptr<TObject>> m_temporary;
};

/// The calling thread's map of a kind, made at the first use.
template <class TObject, class THandle>
CHandleMap<TObject, THandle>& AfxGetHandleMap(AfxMapKind kind)
{
    std::unique_ptr<CHandleMapBase>& map = AfxGetThreadState()->m_maps[static_cast<size_t>(kind)];
    if (map == nullptr)
    {
        map = std::make_unique<CHandleMap<TObject, THandle>>();
    }
    return static_cast<CHandleMap<TObject, THandle>&>(*map);
}
