// TreeWalk.h - the order in which a tree is walked, apart from any window
#pragma once

namespace tavkit
{

/// The item behind `current` in walking order: every item comes before what stands under it, and that before the
/// item's next brother.
/// @tparam Tree  answers Child(item), Next(item) and Parent(item); each gives Item() where there is none, and Parent()
///               of a topmost item gives Item() too.
/// @param root     the walk stays at this item and below it; Item() walks the whole tree.
/// @param current  Item() stays Item(): a walk that has ended does not begin again.
/// @return Item() behind the last one.
template <class Tree, class Item>
[[nodiscard]] Item NextInWalk(Tree const& tree, Item root, Item current)
{
    Item const none{};
    if (current == none)
    {
        return none;
    }
    if (Item const child = tree.Child(current); child != none)
    {
        return child;
    }
    while (current != none && current != root)
    {
        if (Item const next = tree.Next(current); next != none)
        {
            return next;
        }
        current = tree.Parent(current);
    }
    return none;
}

} // namespace tavkit
