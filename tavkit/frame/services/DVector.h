// DVector.h - the host's growable arrays: DVector for plain items, DVectorSafe for items with constructors
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

class DString;

namespace DVectorGrowth
{
constexpr int kFirstCapacity = 16; ///< slots of the first block; every further block doubles

/// Capacity of the block that holds @p n slots, starting from @p capacity. Throws std::bad_alloc past the range of int.
inline int CapacityFor(int capacity, int n)
{
    if (capacity == 0)
    {
        capacity = kFirstCapacity;
    }
    while (capacity < n)
    {
        if (capacity > std::numeric_limits<int>::max() / 2)
        {
            throw std::bad_alloc();
        }
        capacity *= 2;
    }
    return capacity;
}

/// Number of slots behind the index @p index. Throws std::bad_alloc when no int counts them.
inline int CountBehind(int index)
{
    if (index == std::numeric_limits<int>::max())
    {
        throw std::bad_alloc();
    }
    return index + 1;
}
} // namespace DVectorGrowth

/// Array of plain items (pointers, integers) that grows when an index asks for it. An index is never negative.
/// The slots between an old and a raised count within one block keep what they held before: zeroes in a block made with
/// the zero-fill flag, old values after the count was lowered.
template <class T>
class DVector
{
    static_assert(std::is_trivially_copyable_v<T>, "items with constructors belong into a DVectorSafe");

public:
    using value_type = T;
    using const_iterator = T const*;

    /// @param zeroFill  zero the part of every new block that holds no old element.
    explicit DVector(bool zeroFill = true) noexcept : m_bZeroFill(zeroFill) {}
    /// A block of its own with the same elements (pointers are copied, not what they point to).
    DVector(DVector const& other) : m_bZeroFill(other.m_bZeroFill) { CopyFrom(other); }
    DVector(DVector&& other) noexcept
        : m_nCount(std::exchange(other.m_nCount, 0)), m_nCapacity(std::exchange(other.m_nCapacity, 0)),
          m_pData(std::exchange(other.m_pData, nullptr)), m_bZeroFill(other.m_bZeroFill)
    {
    }
    DVector& operator=(DVector other) noexcept
    {
        std::swap(m_nCount, other.m_nCount);
        std::swap(m_nCapacity, other.m_nCapacity);
        std::swap(m_pData, other.m_pData);
        std::swap(m_bZeroFill, other.m_bZeroFill);
        return *this;
    }
    ~DVector() { ::operator delete(m_pData); }

    [[nodiscard]] int GetCount() const noexcept { return m_nCount; }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_nCount == 0; }

    /// Raises the count to @p n, in a new block when the present one is too small. Never shrinks.
    void SetSize(int n)
    {
        if (n > m_nCapacity)
        {
            Grow(n);
        }
        else if (n > m_nCount)
        {
            m_nCount = n;
        }
    }
    /// Adds @p value behind the last element.
    void Append(T value)
    {
        SetSize(DVectorGrowth::CountBehind(m_nCount));
        m_pData[m_nCount - 1] = value;
    }
    /// The element at @p index; an index past the end sizes the array first, so that it is always valid.
    T& operator[](int index)
    {
        assert(index >= 0);
        if (index >= m_nCount)
        {
            SetSize(DVectorGrowth::CountBehind(index));
        }
        return m_pData[index];
    }
    /// The element at @p index; a zero element outside the array, which doesn't grow.
    T const& operator[](int index) const
    {
        static constexpr T zero{};
        return index >= 0 && index < m_nCount ? m_pData[index] : zero;
    }
    /// Frees the block; count and capacity become 0.
    void Clear() noexcept
    {
        ::operator delete(m_pData);
        m_pData = nullptr;
        m_nCount = 0;
        m_nCapacity = 0;
    }

    T* begin() noexcept { return m_pData; }
    T* end() noexcept { return m_pData + m_nCount; }
    T const* begin() const noexcept { return m_pData; }
    T const* end() const noexcept { return m_pData + m_nCount; }

    // The fields are part of the interface, in this order.
    int m_nCount = 0;     ///< elements in use
    int m_nCapacity = 0;  ///< slots of the block
    T* m_pData = nullptr; ///< the block, owned
    bool m_bZeroFill;     ///< zero the unused part of a new block

private:
    void Grow(int n)
    {
        static_assert(alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);
        const int capacity = DVectorGrowth::CapacityFor(m_nCapacity, n);
        const std::size_t slots = static_cast<std::size_t>(capacity);
        if (slots > std::numeric_limits<std::size_t>::max() / sizeof(T))
        {
            throw std::bad_alloc();
        }
        T* const data = static_cast<T*>(::operator new(slots * sizeof(T)));
        const auto used = static_cast<std::size_t>(m_nCount);
        if (used > 0)
        {
            std::memcpy(static_cast<void*>(data), m_pData, used * sizeof(T));
        }
        if (m_bZeroFill)
        {
            std::memset(static_cast<void*>(data + used), 0, (slots - used) * sizeof(T));
        }
        ::operator delete(m_pData);
        m_pData = data;
        m_nCapacity = capacity;
        m_nCount = n;
    }

    void CopyFrom(DVector const& other)
    {
        SetSize(other.m_nCount);
        if (m_nCount > 0)
        {
            std::memcpy(static_cast<void*>(m_pData), other.m_pData, static_cast<std::size_t>(m_nCount) * sizeof(T));
        }
    }
};

/// Array of items with constructors (texts, file names) that grows when an index asks for it. An index is never
/// negative. A new slot reads as an empty value. When it grows, every element is copied into the new block and the old
/// one destroyed; if a copy throws, the array is as it was.
template <class T>
class DVectorSafe
{
public:
    using value_type = T;
    using const_iterator = T const*;

    DVectorSafe() noexcept = default;
    DVectorSafe(DVectorSafe const& other)
    {
        // A copy that throws half-way leaves a whole, shorter array for the destructor: count follows construction.
        try
        {
            CopyFrom(other);
        }
        catch (...)
        {
            Clear();
            throw;
        }
    }
    DVectorSafe(DVectorSafe&& other) noexcept
        : m_nCount(std::exchange(other.m_nCount, 0)), m_nCapacity(std::exchange(other.m_nCapacity, 0)),
          m_pData(std::exchange(other.m_pData, nullptr))
    {
    }
    DVectorSafe& operator=(DVectorSafe other) noexcept
    {
        std::swap(m_nCount, other.m_nCount);
        std::swap(m_nCapacity, other.m_nCapacity);
        std::swap(m_pData, other.m_pData);
        return *this;
    }
    ~DVectorSafe() { Clear(); }

    [[nodiscard]] int GetCount() const noexcept { return m_nCount; }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_nCount == 0; }

    /// Raises the count to @p n with empty values, in a new block when the present one is too small. Never shrinks.
    void SetSize(int n)
    {
        if (n > m_nCapacity)
        {
            Grow(n);
        }
        while (m_nCount < n)
        {
            std::construct_at(m_pData + m_nCount);
            ++m_nCount;
        }
    }
    /// Adds a copy of @p value, which may be an element of this array, behind the last element.
    void Append(T const& value)
    {
        const int count = DVectorGrowth::CountBehind(m_nCount);
        if (count > m_nCapacity)
        {
            const T copy(value); // the block that may hold the original goes
            Grow(count);
            std::construct_at(m_pData + m_nCount, copy);
        }
        else
        {
            std::construct_at(m_pData + m_nCount, value);
        }
        m_nCount = count;
    }
    /// The element at @p index; an index past the end sizes the array first, so that it is always valid.
    T& operator[](int index)
    {
        assert(index >= 0);
        if (index >= m_nCount)
        {
            SetSize(DVectorGrowth::CountBehind(index));
        }
        return m_pData[index];
    }
    /// The element at @p index; an empty value outside the array, which doesn't grow.
    T const& operator[](int index) const
    {
        static T const empty{};
        return index >= 0 && index < m_nCount ? m_pData[index] : empty;
    }
    /// Takes the last element away and returns it; an empty array gives "".
    T RemoveLast() requires std::is_same_v<T, DString> { return RemoveAt(m_nCount - 1); }
    /// Takes the element at @p index away, moves those behind it down and returns it; "" for an index outside.
    T RemoveAt(int index) requires std::is_same_v<T, DString>
    {
        if (index < 0 || index >= m_nCount)
        {
            return T();
        }
        T removed(std::move(m_pData[index]));
        Erase(index);
        return removed;
    }
    /// Destroys the elements and frees the block; count and capacity become 0.
    void Clear() noexcept
    {
        std::destroy_n(m_pData, m_nCount);
        ::operator delete(m_pData);
        m_pData = nullptr;
        m_nCount = 0;
        m_nCapacity = 0;
    }

    T* begin() noexcept { return m_pData; }
    T* end() noexcept { return m_pData + m_nCount; }
    T const* begin() const noexcept { return m_pData; }
    T const* end() const noexcept { return m_pData + m_nCount; }

    // The fields are part of the interface, in this order.
    int m_nCount = 0;     ///< elements in use
    int m_nCapacity = 0;  ///< slots of the block; those behind the count hold no object
    T* m_pData = nullptr; ///< the block, owned

private:
    template <class U>
    friend bool RemoveAt(DVectorSafe<U>& vec, int index);

    /// Moves into a block for @p n slots; the count stays, the caller fills the slots behind it.
    void Grow(int n)
    {
        static_assert(alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__);
        const int capacity = DVectorGrowth::CapacityFor(m_nCapacity, n);
        const std::size_t slots = static_cast<std::size_t>(capacity);
        if (slots > std::numeric_limits<std::size_t>::max() / sizeof(T))
        {
            throw std::bad_alloc();
        }
        T* const data = static_cast<T*>(::operator new(slots * sizeof(T)));
        try
        {
            std::uninitialized_copy_n(static_cast<T const*>(m_pData), m_nCount, data);
        }
        catch (...)
        {
            ::operator delete(data);
            throw;
        }
        std::destroy_n(m_pData, m_nCount);
        ::operator delete(m_pData);
        m_pData = data;
        m_nCapacity = capacity;
    }

    void CopyFrom(DVectorSafe const& other)
    {
        if (other.m_nCount > 0)
        {
            Grow(other.m_nCount);
        }
        for (T const& value : other)
        {
            std::construct_at(m_pData + m_nCount, value);
            ++m_nCount;
        }
    }

    void Erase(int index)
    {
        std::move(m_pData + index + 1, m_pData + m_nCount, m_pData + index);
        --m_nCount;
        std::destroy_at(m_pData + m_nCount);
    }
};

// Editing in the middle, beside the classes: helpers of the library over the arrays' own operations.

/// Inserts @p value in front of the element at @p index; an index outside the array is taken to its nearer end.
template <class T>
void InsertAt(DVector<T>& vec, int index, std::type_identity_t<T> value)
{
    const int count = vec.GetCount();
    index = index < 0 ? 0 : (index > count ? count : index);
    vec.SetSize(DVectorGrowth::CountBehind(count));
    T* const slot = vec.m_pData + index;
    std::memmove(static_cast<void*>(slot + 1), slot, static_cast<std::size_t>(count - index) * sizeof(T));
    *slot = value;
}

/// As above, for items with constructors; @p value may be an element of @p vec.
template <class T>
void InsertAt(DVectorSafe<T>& vec, int index, std::type_identity_t<T> const& value)
{
    const int count = vec.GetCount();
    index = index < 0 ? 0 : (index > count ? count : index);
    vec.Append(value);
    for (int i = count; i > index; --i)
    {
        std::swap(vec.m_pData[i], vec.m_pData[i - 1]);
    }
}

/// Removes the element at @p index and moves those behind it down; false, and nothing done, for an index outside.
template <class T>
bool RemoveAt(DVector<T>& vec, int index)
{
    if (index < 0 || index >= vec.m_nCount)
    {
        return false;
    }
    T* const slot = vec.m_pData + index;
    std::memmove(static_cast<void*>(slot), slot + 1, static_cast<std::size_t>(vec.m_nCount - index - 1) * sizeof(T));
    --vec.m_nCount;
    return true;
}

/// As above, for items with constructors.
template <class T>
bool RemoveAt(DVectorSafe<T>& vec, int index)
{
    if (index < 0 || index >= vec.m_nCount)
    {
        return false;
    }
    vec.Erase(index);
    return true;
}

/// Sets the count to @p n and keeps the block; a lower count leaves the old values in their slots.
template <class T>
void SetCount(DVector<T>& vec, int n)
{
    if (n >= 0 && n < vec.m_nCount)
    {
        vec.m_nCount = n;
    }
    vec.SetSize(n);
}

/// As above, for items with constructors; elements behind a lower count are destroyed.
template <class T>
void SetCount(DVectorSafe<T>& vec, int n)
{
    if (n >= 0 && n < vec.m_nCount)
    {
        std::destroy_n(vec.m_pData + n, vec.m_nCount - n);
        vec.m_nCount = n;
    }
    vec.SetSize(n);
}
