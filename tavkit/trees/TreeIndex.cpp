#include "tavkit/trees/TreeIndex.h"

#include <utility>
#include <vector>

namespace tavkit
{

void TreeIndex::Clear() noexcept
{
    m_nodes.clear();
    m_bearers.clear();
}

bool TreeIndex::Insert(Item item, Item parent, Value value)
{
    Node* const above = const_cast<Node*>(NodeOf(parent));
    if (item == nullptr || (parent != nullptr && above == nullptr))
    {
        return false;
    }
    auto const [place, isNew] = m_nodes.try_emplace(item, Node{value, above, nullptr, nullptr, nullptr, item});
    if (!isNew)
    {
        return false;
    }
    Enter(item, value);
    if (above != nullptr)
    {
        Node& node = place->second;
        node.next = above->child;
        if (node.next != nullptr)
        {
            node.next->previous = &node;
        }
        above->child = &node;
    }
    return true;
}

bool TreeIndex::SetValue(Item item, Value value)
{
    auto const place = m_nodes.find(item);
    if (place == m_nodes.end())
    {
        return false;
    }
    Enter(item, value);
    Strike(item, std::exchange(place->second.value, value));
    return true;
}

bool TreeIndex::Erase(Item item)
{
    auto const place = m_nodes.find(item);
    if (place == m_nodes.end())
    {
        return false;
    }
    std::vector<Node*> doomed{&place->second}; // a list of our own: trees may be deeper than the stack
    for (std::size_t i = 0; i < doomed.size(); ++i)
    {
        for (Node* child = doomed[i]->child; child != nullptr; child = child->next)
        {
            doomed.push_back(child);
        }
    }
    Node const& top = *doomed.front();
    if (top.next != nullptr)
    {
        top.next->previous = top.previous;
    }
    if (top.previous != nullptr)
    {
        top.previous->next = top.next;
    }
    else if (top.parent != nullptr)
    {
        top.parent->child = top.next;
    }
    for (Node const* const node : doomed)
    {
        Item const gone = node->item;
        Strike(gone, node->value);
        m_nodes.erase(gone);
    }
    return true;
}

bool TreeIndex::EraseBelow(Item item)
{
    auto const place = m_nodes.find(item);
    if (place == m_nodes.end())
    {
        return false;
    }
    while (place->second.child != nullptr)
    {
        Erase(place->second.child->item);
    }
    return true;
}

TreeIndex::Match TreeIndex::Find(Value value) const
{
    auto const place = m_bearers.find(value);
    if (place == m_bearers.end())
    {
        return {0, nullptr};
    }
    Bearers const& bearers = place->second;
    return {bearers.count, bearers.count == 1 ? reinterpret_cast<Item>(bearers.mixed) : nullptr};
}

TreeIndex::Item TreeIndex::Parent(Item item) const
{
    Node const* const node = NodeOf(item);
    return node != nullptr && node->parent != nullptr ? node->parent->item : nullptr;
}

bool TreeIndex::IsWithin(Item item, Item root) const
{
    if (NodeOf(root) == nullptr)
    {
        return false;
    }
    for (Node const* node = NodeOf(item); node != nullptr; node = node->parent)
    {
        if (node->item == root)
        {
            return true;
        }
    }
    return false;
}

void TreeIndex::Enter(Item item, Value value)
{
    Bearers& bearers = m_bearers[value];
    ++bearers.count;
    bearers.mixed ^= reinterpret_cast<std::uintptr_t>(item);
}

void TreeIndex::Strike(Item item, Value value)
{
    auto const place = m_bearers.find(value);
    Bearers& bearers = place->second;
    --bearers.count;
    bearers.mixed ^= reinterpret_cast<std::uintptr_t>(item);
    if (bearers.count == 0)
    {
        m_bearers.erase(place);
    }
}

TreeIndex::Node const* TreeIndex::NodeOf(Item item) const
{
    auto const place = m_nodes.find(item);
    return place == m_nodes.end() ? nullptr : &place->second;
}

} // namespace tavkit
