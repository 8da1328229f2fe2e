// TreeIndex.h - which items of a tree carry a value, and what stands under what
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace tavkit
{

/// An image of a tree's items without their order: the parent and the value of each. It knows the item of a value at
/// once as long as only one has it. Items are named by their handles, of which only the address counts; null stands
/// above the topmost ones. What would contradict the image is refused, and leaves it as it was.
class TreeIndex
{
public:
    using Item = void const*;
    using Value = std::uintptr_t;

    /// How many items carry a value, and which one if it is only one.
    struct Match
    {
        std::size_t count;
        Item item; ///< null unless count is 1
    };

    TreeIndex() = default;
    TreeIndex(TreeIndex const&) = delete;
    TreeIndex& operator=(TreeIndex const&) = delete;

    void Clear() noexcept;
    /// @return false if the item is null or known already, or the parent is not known.
    bool Insert(Item item, Item parent, Value value);
    /// @return false if the item is not known.
    bool SetValue(Item item, Value value);
    /// Takes out an item and all that stands under it. @return false if the item is not known.
    bool Erase(Item item);
    /// Takes out what stands under an item. @return false if the item is not known.
    bool EraseBelow(Item item);

    [[nodiscard]] std::size_t Count() const noexcept { return m_nodes.size(); }
    [[nodiscard]] Match Find(Value value) const;
    /// @return null for a topmost item, and for one that is not known.
    [[nodiscard]] Item Parent(Item item) const;
    /// Is `item` the item `root` or one below it; false if either is not known.
    [[nodiscard]] bool IsWithin(Item item, Item root) const;

private:
    struct Node
    {
        Value value;
        Node* parent; // null for a topmost item
        Node* child;  // any one of them; the brothers follow in no order
        Node* next;
        Node* previous; // null in the first child
        Item item;
    };
    /// The addresses of all items with one value, combined by exclusive or: with one item left, that is its own.
    struct Bearers
    {
        std::size_t count = 0;
        std::uintptr_t mixed = 0;
    };

    void Enter(Item item, Value value);
    void Strike(Item item, Value value);
    [[nodiscard]] Node const* NodeOf(Item item) const;

    std::unordered_map<Item, Node> m_nodes; // an element keeps its address as long as it is in
    std::unordered_map<Value, Bearers> m_bearers;
};

} // namespace tavkit
