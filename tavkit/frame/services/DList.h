// DList.h - the host's singly linked list
#pragma once

#include <utility>

/// Singly linked list of values; a list of pointers doesn't own what they point to. Walk it by its nodes:
/// @code for (auto* node = list.m_pHead; node; node = node->m_pNext) { Use(node->m_val); } @endcode
/// or with a range-for over the values.
template <class T>
class DList
{
public:
    /// One place of the list.
    struct Node
    {
        T m_val;                 ///< the value
        Node* m_pNext = nullptr; ///< the following place, null at the tail
    };

    /// Steps over the values of a list.
    template <class N, class V>
    struct Walk
    {
        N* node;
        V& operator*() const noexcept { return node->m_val; }
        Walk& operator++() noexcept
        {
            node = node->m_pNext;
            return *this;
        }
        bool operator==(Walk const&) const noexcept = default;
    };

    DList() noexcept = default;
    /// Nodes of its own with the same values.
    DList(DList const& other)
    {
        try
        {
            for (Node const* node = other.m_pHead; node; node = node->m_pNext)
            {
                AddTail(node->m_val);
            }
        }
        catch (...)
        {
            Clear();
            throw;
        }
    }
    DList(DList&& other) noexcept
        : m_pHead(std::exchange(other.m_pHead, nullptr)), m_pTail(std::exchange(other.m_pTail, nullptr)),
          m_nCount(std::exchange(other.m_nCount, 0))
    {
    }
    DList& operator=(DList other) noexcept
    {
        std::swap(m_pHead, other.m_pHead);
        std::swap(m_pTail, other.m_pTail);
        std::swap(m_nCount, other.m_nCount);
        return *this;
    }
    ~DList() { Clear(); }

    [[nodiscard]] int GetCount() const noexcept { return m_nCount; }
    [[nodiscard]] bool IsEmpty() const noexcept { return !m_pHead; }

    /// Appends @p value.
    void AddTail(T value)
    {
        Node* const node = new Node{std::move(value), nullptr};
        (m_pTail ? m_pTail->m_pNext : m_pHead) = node;
        m_pTail = node;
        ++m_nCount;
    }
    /// Removes the first value that equals @p value, which may be the list's own; false when there is none.
    bool Remove(T const& value)
    {
        for (Node *last = nullptr, *node = m_pHead; node; last = node, node = node->m_pNext)
        {
            if (node->m_val == value)
            {
                Cut(last, node);
                return true;
            }
        }
        return false;
    }
    /// Takes one place out of the list and frees it; the value, if a pointer, stays alive.
    /// @return the place that followed, with which a walk goes on; null at the tail, and for a node of another list.
    Node* Unlink(Node* node)
    {
        for (Node *last = nullptr, *at = m_pHead; at; last = at, at = at->m_pNext)
        {
            if (at == node)
            {
                return Cut(last, node);
            }
        }
        return nullptr;
    }
    /// Frees every node.
    void Clear() noexcept
    {
        for (Node* node = m_pHead; node;)
        {
            Node* const gone = node;
            node = node->m_pNext;
            delete gone;
        }
        m_pHead = nullptr;
        m_pTail = nullptr;
        m_nCount = 0;
    }

    Walk<Node, T> begin() noexcept { return {m_pHead}; }
    Walk<Node, T> end() noexcept { return {nullptr}; }
    Walk<Node const, T const> begin() const noexcept { return {m_pHead}; }
    Walk<Node const, T const> end() const noexcept { return {nullptr}; }

    // The fields are part of the interface, in this order.
    Node* m_pHead = nullptr; ///< first place, null when empty
    Node* m_pTail = nullptr; ///< last place, null when empty
    int m_nCount = 0;        ///< number of places

private:
    Node* Cut(Node* last, Node* node) noexcept
    {
        Node* const next = node->m_pNext;
        (last ? last->m_pNext : m_pHead) = next;
        if (m_pTail == node)
        {
            m_pTail = last;
        }
        --m_nCount;
        delete node;
        return next;
    }
};
