// afxtempl.h - collections as templates: array, list, map, typed list of pointers
#pragma once

#include "afx.h"
#include <functional>
#include <memory>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

struct AFX_POSITION;
/// A place in a list or map, only good for the collection that gave it; null is the end.
using POSITION = AFX_POSITION*;

/// Hash of a key. Specialise it for keys that aren't numbers or pointers.
template <class ARG_KEY>
inline UINT AFXAPI HashKey(ARG_KEY key)
{
    if constexpr (std::is_convertible_v<ARG_KEY, LPCTSTR>)
    {
        return static_cast<UINT>(std::hash<std::string_view>{}(static_cast<LPCTSTR>(key)));
    }
    else
    {
        // Pointers and handles are aligned: their low bits say nothing. The shift comes before the cut to 32 bits.
        constexpr int kAlignmentBits = 4;
        return static_cast<UINT>((DWORD_PTR)(key) >> kAlignmentBits);
    }
}

/// Equality of map keys and list elements. Specialise it for types whose == isn't the one wanted.
template <class TYPE, class ARG_TYPE>
inline BOOL AFXAPI CompareElements(const TYPE* pElement1, const ARG_TYPE* pElement2)
{
    return *pElement1 == *pElement2;
}

/// Array that grows. Indices start at 0; one outside throws CInvalidArgException and changes nothing.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
    static_assert(!std::is_same_v<TYPE, bool>, "elements must be addressable; use BOOL");

public:
    int GetSize() const { return static_cast<int>(m_items.size()); }
    int GetCount() const { return GetSize(); }
    BOOL IsEmpty() const { return m_items.empty(); }
    /// Last index; -1 when empty.
    int GetUpperBound() const { return GetSize() - 1; }
    /// New elements at the end are value-initialised. The second argument is read by nobody: growth is the container's.
    void SetSize(int nNewSize, int = -1)
    {
        if (nNewSize < 0)
        {
            AfxThrowInvalidArgException();
        }
        m_items.resize(static_cast<size_t>(nNewSize));
    }
    void FreeExtra() { m_items.shrink_to_fit(); }
    void RemoveAll() { m_items = {}; }

    const TYPE& GetAt(int nIndex) const { return m_items[Checked(nIndex)]; }
    TYPE& GetAt(int nIndex) { return m_items[Checked(nIndex)]; }
    void SetAt(int nIndex, ARG_TYPE newElement) { m_items[Checked(nIndex)] = newElement; }
    TYPE& ElementAt(int nIndex) { return m_items[Checked(nIndex)]; }
    const TYPE& operator[](int nIndex) const { return m_items[Checked(nIndex)]; }
    TYPE& operator[](int nIndex) { return m_items[Checked(nIndex)]; }
    TYPE* GetData() { return m_items.data(); }
    const TYPE* GetData() const { return m_items.data(); }

    /// Sets an element, making the array larger when the index lies behind its end.
    void SetAtGrow(int nIndex, ARG_TYPE newElement)
    {
        TYPE copy(newElement); // may lie in this array
        if (nIndex >= GetSize())
        {
            SetSize(nIndex + 1);
        }
        m_items[Checked(nIndex)] = std::move(copy);
    }
    /// @return index of the new element.
    int Add(ARG_TYPE newElement)
    {
        m_items.push_back(newElement);
        return GetUpperBound();
    }
    /// @return index of the first element that was appended.
    int Append(const CArray& src)
    {
        const int nOldSize = GetSize();
        const size_t nCount = src.m_items.size(); // the source may be this array
        m_items.reserve(m_items.size() + nCount);
        for (size_t n = 0; n < nCount; n++)
        {
            m_items.push_back(src.m_items[n]);
        }
        return nOldSize;
    }
    void Copy(const CArray& src) { m_items = src.m_items; }
    /// Inserts nCount copies; an index behind the end makes the array larger first.
    void InsertAt(int nIndex, ARG_TYPE newElement, int nCount = 1)
    {
        if (nIndex < 0 || nCount < 0)
        {
            AfxThrowInvalidArgException();
        }
        const TYPE copy(newElement); // may lie in this array
        if (nIndex > GetSize())
        {
            SetSize(nIndex);
        }
        m_items.insert(m_items.begin() + nIndex, static_cast<size_t>(nCount), copy);
    }
    void RemoveAt(int nIndex, int nCount = 1)
    {
        if (nIndex < 0 || nCount < 0 || nCount > GetSize() - nIndex)
        {
            AfxThrowInvalidArgException();
        }
        m_items.erase(m_items.begin() + nIndex, m_items.begin() + nIndex + nCount);
    }

private:
    size_t Checked(int nIndex) const
    {
        if (nIndex < 0 || nIndex >= GetSize())
        {
            AfxThrowInvalidArgException();
        }
        return static_cast<size_t>(nIndex);
    }

    std::vector<TYPE> m_items;
};

/// Doubly linked list. A place stays good until its own element is removed.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject
{
public:
    CList() = default;
    explicit CList(int) {} // block size: nodes are allocated one by one
    ~CList() override { RemoveAll(); }

    int GetCount() const { return m_nCount; }
    int GetSize() const { return m_nCount; }
    BOOL IsEmpty() const { return m_nCount == 0; }

    // Reading the ends, or a null place, throws CInvalidArgException.
    TYPE& GetHead() { return NodeAt(Place(m_pHead)).value; }
    const TYPE& GetHead() const { return NodeAt(Place(m_pHead)).value; }
    TYPE& GetTail() { return NodeAt(Place(m_pTail)).value; }
    const TYPE& GetTail() const { return NodeAt(Place(m_pTail)).value; }
    TYPE RemoveHead() { return TakeOut(m_pHead); }
    TYPE RemoveTail() { return TakeOut(m_pTail); }

    POSITION AddHead(ARG_TYPE newElement) { return Link(nullptr, newElement, m_pHead); }
    POSITION AddTail(ARG_TYPE newElement) { return Link(m_pTail, newElement, nullptr); }
    /// Null is in front of the head.
    POSITION InsertBefore(POSITION position, ARG_TYPE newElement)
    {
        return position == nullptr ? AddHead(newElement) : Link(NodeAt(position).pPrev, newElement, &NodeAt(position));
    }
    /// Null is behind the tail.
    POSITION InsertAfter(POSITION position, ARG_TYPE newElement)
    {
        return position == nullptr ? AddTail(newElement) : Link(&NodeAt(position), newElement, NodeAt(position).pNext);
    }

    POSITION GetHeadPosition() const { return Place(m_pHead); }
    POSITION GetTailPosition() const { return Place(m_pTail); }
    /// The element at the place, which then moves on; the element just returned may be removed.
    TYPE& GetNext(POSITION& position) { return Step(position, &Node::pNext); }
    const TYPE& GetNext(POSITION& position) const { return Step(position, &Node::pNext); }
    TYPE& GetPrev(POSITION& position) { return Step(position, &Node::pPrev); }
    const TYPE& GetPrev(POSITION& position) const { return Step(position, &Node::pPrev); }

    TYPE& GetAt(POSITION position) { return NodeAt(position).value; }
    const TYPE& GetAt(POSITION position) const { return NodeAt(position).value; }
    void SetAt(POSITION position, ARG_TYPE newElement) { NodeAt(position).value = newElement; }
    void RemoveAt(POSITION position) { Unlink(&NodeAt(position)); }
    void RemoveAll()
    {
        while (m_pHead != nullptr)
        {
            Unlink(m_pHead);
        }
    }

    /// First place with an equal element, behind startAfter when that is given; null when there is none.
    POSITION Find(ARG_TYPE searchValue, POSITION startAfter = nullptr) const
    {
        const std::remove_cvref_t<ARG_TYPE>& wanted = searchValue;
        for (Node* pNode = startAfter == nullptr ? m_pHead : NodeAt(startAfter).pNext; pNode; pNode = pNode->pNext)
        {
            if (CompareElements(&pNode->value, &wanted))
            {
                return Place(pNode);
            }
        }
        return nullptr;
    }
    /// Place of the element with this index, counted from 0; null outside.
    POSITION FindIndex(int nIndex) const
    {
        if (nIndex < 0)
        {
            return nullptr;
        }
        Node* pNode = m_pHead;
        while (pNode != nullptr && nIndex-- > 0)
        {
            pNode = pNode->pNext;
        }
        return Place(pNode);
    }

private:
    struct Node
    {
        Node* pPrev;
        Node* pNext;
        TYPE value;
    };

    static POSITION Place(Node* pNode) { return reinterpret_cast<POSITION>(pNode); }
    static Node& NodeAt(POSITION position)
    {
        if (position == nullptr)
        {
            AfxThrowInvalidArgException();
        }
        return *reinterpret_cast<Node*>(position);
    }
    static TYPE& Step(POSITION& position, Node* Node::*pDirection)
    {
        Node& node = NodeAt(position);
        position = Place(node.*pDirection);
        return node.value;
    }
    POSITION Link(Node* pPrev, ARG_TYPE newElement, Node* pNext)
    {
        Node* pNode = new Node{pPrev, pNext, newElement};
        (pPrev != nullptr ? pPrev->pNext : m_pHead) = pNode;
        (pNext != nullptr ? pNext->pPrev : m_pTail) = pNode;
        m_nCount++;
        return Place(pNode);
    }
    void Unlink(Node* pNode)
    {
        (pNode->pPrev != nullptr ? pNode->pPrev->pNext : m_pHead) = pNode->pNext;
        (pNode->pNext != nullptr ? pNode->pNext->pPrev : m_pTail) = pNode->pPrev;
        m_nCount--;
        delete pNode;
    }
    TYPE TakeOut(Node* pNode)
    {
        TYPE value = std::move(NodeAt(Place(pNode)).value);
        Unlink(pNode);
        return value;
    }

    Node* m_pHead = nullptr;
    Node* m_pTail = nullptr;
    int m_nCount = 0;
};

/// Map from keys to values. A walk survives the removal of the element that it has just returned.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject
{
public:
    static constexpr UINT kDefaultHashTableSize = 17;

    CMap() = default;
    explicit CMap(int) {} // block size: nodes are allocated one by one

    int GetCount() const { return static_cast<int>(m_table.size()); }
    int GetSize() const { return GetCount(); }
    BOOL IsEmpty() const { return m_table.empty(); }

    /// @return FALSE, and rValue as it was, for an unknown key.
    BOOL Lookup(ARG_KEY key, VALUE& rValue) const
    {
        const auto found = m_table.find(Probe{key});
        if (found == m_table.end())
        {
            return FALSE;
        }
        rValue = found->second;
        return TRUE;
    }
    /// The value of the key, made (value-initialised) when the key is new.
    VALUE& operator[](ARG_KEY key)
    {
        const auto found = m_table.find(Probe{key});
        return found != m_table.end() ? found->second : m_table.emplace(KEY(key), VALUE()).first->second;
    }
    void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }
    /// @return FALSE for an unknown key.
    BOOL RemoveKey(ARG_KEY key)
    {
        const auto found = m_table.find(Probe{key});
        if (found == m_table.end())
        {
            return FALSE;
        }
        m_table.erase(found);
        return TRUE;
    }
    void RemoveAll() { m_table.clear(); }

    /// Begin of a walk in no order that means anything; null when the map is empty.
    POSITION GetStartPosition() const { return Place(m_table.begin()); }
    /// The pair at the place, which then moves on.
    void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const
    {
        if (rNextPosition == nullptr)
        {
            AfxThrowInvalidArgException();
        }
        const auto* pPair = reinterpret_cast<const typename Table::value_type*>(rNextPosition);
        auto place = m_table.find(pPair->first);
        rKey = pPair->first;
        rValue = pPair->second;
        rNextPosition = Place(++place);
    }

    /// The size asked for; the table itself grows with the number of keys.
    UINT GetHashTableSize() const { return m_nHashTableSize; }
    /// Makes room beforehand; only for an empty map. The second argument is read by nobody.
    void InitHashTable(UINT nHashSize, BOOL = TRUE)
    {
        ASSERT(IsEmpty());
        m_nHashTableSize = nHashSize;
        m_table.rehash(nHashSize);
    }

private:
    // Keys are looked up in the form of the argument, so that a search by text makes no string.
    struct Probe
    {
        const std::remove_cvref_t<ARG_KEY>& key;
    };
    struct Hash
    {
        using is_transparent = void;
        size_t operator()(const Probe& probe) const { return HashKey<ARG_KEY>(probe.key); }
        size_t operator()(const KEY& key) const { return HashKey<ARG_KEY>(key); }
    };
    struct Equal
    {
        using is_transparent = void;
        bool operator()(const KEY& key1, const KEY& key2) const { return CompareElements(&key1, &key2); }
        bool operator()(const KEY& key, const Probe& probe) const { return CompareElements(&key, &probe.key); }
        bool operator()(const Probe& probe, const KEY& key) const { return CompareElements(&key, &probe.key); }
    };
    using Table = std::unordered_map<KEY, VALUE, Hash, Equal>;

    POSITION Place(typename Table::const_iterator place) const
    {
        return place == m_table.end()
                   ? nullptr
                   : reinterpret_cast<POSITION>(const_cast<typename Table::value_type*>(std::to_address(place)));
    }

    Table m_table;
    UINT m_nHashTableSize = kDefaultHashTableSize;
};

/// List of untyped pointers (CPtrList, CObList) seen as a list of TYPE, which is a pointer.
template <class BASE_CLASS, class TYPE>
class CTypedPtrList : public BASE_CLASS
{
public:
    using BASE_CLASS::BASE_CLASS;

    TYPE GetHead() const { return static_cast<TYPE>(BASE_CLASS::GetHead()); }
    TYPE GetTail() const { return static_cast<TYPE>(BASE_CLASS::GetTail()); }
    TYPE RemoveHead() { return static_cast<TYPE>(BASE_CLASS::RemoveHead()); }
    TYPE RemoveTail() { return static_cast<TYPE>(BASE_CLASS::RemoveTail()); }
    TYPE GetNext(POSITION& position) const { return static_cast<TYPE>(BASE_CLASS::GetNext(position)); }
    TYPE GetPrev(POSITION& position) const { return static_cast<TYPE>(BASE_CLASS::GetPrev(position)); }
    TYPE GetAt(POSITION position) const { return static_cast<TYPE>(BASE_CLASS::GetAt(position)); }
    POSITION AddHead(TYPE newElement) { return BASE_CLASS::AddHead(newElement); }
    POSITION AddTail(TYPE newElement) { return BASE_CLASS::AddTail(newElement); }
    POSITION InsertBefore(POSITION position, TYPE newElement) { return BASE_CLASS::InsertBefore(position, newElement); }
    POSITION InsertAfter(POSITION position, TYPE newElement) { return BASE_CLASS::InsertAfter(position, newElement); }
    void SetAt(POSITION position, TYPE newElement) { BASE_CLASS::SetAt(position, newElement); }
    POSITION Find(TYPE searchValue, POSITION startAfter = nullptr) const
    {
        return BASE_CLASS::Find(searchValue, startAfter);
    }
};
