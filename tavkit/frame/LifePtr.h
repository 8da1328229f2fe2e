// LifePtr.h - a pointer that forgets its object when that is destroyed
#pragma once

#include "tavkit/frame/LifeWatch.h"

#include <optional>

/// Borrows an object of a class that holds a LifeToken named `m_life` (and lets this class see it), and reads as null
/// once the object is gone. One thread.
template <class T>
class LifePtr
{
public:
    LifePtr() = default;
    explicit LifePtr(T* object) { *this = object; }
    LifePtr(LifePtr const&) = delete;
    LifePtr& operator=(LifePtr const&) = delete;
    LifePtr& operator=(T* object)
    {
        m_watch.reset();
        m_object = object;
        if (object != nullptr)
        {
            m_watch.emplace(object->m_life);
        }
        return *this;
    }

    /// Null if there was no object, or it is gone.
    [[nodiscard]] T* Get() const noexcept { return m_watch && !m_watch->IsGone() ? m_object : nullptr; }

    /// Whether it pointed to an object at that address which is gone. Another may stand there by now.
    [[nodiscard]] bool HasLost(T const* address) const noexcept
    {
        return m_watch && m_watch->IsGone() && m_object == address;
    }

private:
    T* m_object = nullptr;
    std::optional<LifeWatch> m_watch;
};
