#include "tavkit/trees/TreeFinder.h"

#include <new>
#include <utility>

namespace tavkit
{
namespace
{

HTREEITEM AsHandle(TreeIndex::Item item) noexcept { return static_cast<HTREEITEM>(const_cast<void*>(item)); }

/// A tree that is being learned: what the index knows of an item isn't asked of the control again.
class LearnedTree
{
public:
    LearnedTree(WindowTree const& tree, TreeIndex const& index) : m_tree(tree), m_index(index) {}

    [[nodiscard]] HTREEITEM Child(HTREEITEM item) const
    {
        m_parent = item;
        return m_tree.Child(item);
    }
    [[nodiscard]] HTREEITEM Next(HTREEITEM item) const
    {
        m_parent = Parent(item);
        return m_tree.Next(item);
    }
    [[nodiscard]] HTREEITEM Parent(HTREEITEM item) const { return AsHandle(m_index.Parent(item)); }

    /// Parent of the item that was given out last.
    [[nodiscard]] HTREEITEM ParentOfLast() const { return m_parent; }

private:
    WindowTree const& m_tree;
    TreeIndex const& m_index;
    mutable HTREEITEM m_parent = nullptr;
};

/// The item that a message names as a parent, or as all that there is to delete; null for the place above all items.
HTREEITEM BelowRoot(HTREEITEM item) noexcept { return item == TVI_ROOT ? nullptr : item; }

} // namespace

HTREEITEM TreeFinder::Find(WindowTree const& tree, DWORD_PTR data, HTREEITEM root, bool seesAll)
{
    // Inside a change the control may be half way: what it shows then is not to be learned.
    if (!seesAll || m_changes != 0)
    {
        return Walk(tree, data, root);
    }
    if (!m_learned && m_walked >= tree.Count())
    {
        Learn(tree);
    }
    try
    {
        if (!CatchUp())
        {
            Forget();
        }
    }
    catch (std::bad_alloc const&)
    {
        Forget(); // there is always the walk
    }
    if (!m_learned)
    {
        return Walk(tree, data, root);
    }
    TreeIndex::Match const match = m_index.Find(data);
    auto const remembered = m_firsts.find(data);
    HTREEITEM const first = match.count > 1 && remembered != m_firsts.end() ? remembered->second : AsHandle(match.item);
    if (first != nullptr && (root == nullptr || m_index.IsWithin(first, root)))
    {
        return first;
    }
    if (match.count < 2)
    {
        return nullptr;
    }
    HTREEITEM const found = Walk(tree, data, root);
    if (root == nullptr)
    {
        m_firsts[data] = found;
    }
    return found;
}

HTREEITEM TreeFinder::Walk(WindowTree const& tree, DWORD_PTR data, HTREEITEM root)
{
    for (HTREEITEM item = tree.First(root); item != nullptr; item = NextInWalk(tree, root, item))
    {
        ++m_walked;
        if (tree.Data(item) == data)
        {
            return item;
        }
    }
    return nullptr;
}

void TreeFinder::Learn(WindowTree const& tree)
{
    Forget();
    try
    {
        LearnedTree const learned(tree, m_index);
        HTREEITEM item = tree.First(nullptr);
        while (item != nullptr && m_index.Insert(item, learned.ParentOfLast(), tree.Data(item)))
        {
            item = NextInWalk<LearnedTree, HTREEITEM>(learned, nullptr, item);
        }
        m_learned = item == nullptr;
    }
    catch (std::bad_alloc const&)
    {
        m_learned = false; // there is always the walk
    }
    if (!m_learned)
    {
        m_index.Clear();
    }
}

bool TreeFinder::IsChange(UINT message, WPARAM wParam) noexcept
{
    switch (message)
    {
    case TVM_INSERTITEMA:
    case TVM_INSERTITEMW:
    case TVM_SETITEMA:
    case TVM_SETITEMW:
    case TVM_DELETEITEM:
    case TVM_SORTCHILDREN:
    case TVM_SORTCHILDRENCB:
        return true;
    case TVM_EXPAND:
        return (wParam & TVE_COLLAPSERESET) != 0;
    default:
        return false;
    }
}

TreeFinder::Change TreeFinder::Begin(WindowTree const& tree, UINT message, LPARAM lParam)
{
    if (!std::exchange(m_met, true) && !m_learned)
    {
        m_learned = tree.Count() == 0;
    }
    m_disturbed = m_changes != 0;
    if (m_disturbed)
    {
        Forget();
    }
    ++m_changes;
    Change change{message, nullptr, false, 0, false};
    switch (message)
    {
    case TVM_INSERTITEMA:
    case TVM_INSERTITEMW: // the two structures differ only in the kind of text
        if (auto const* const insert = reinterpret_cast<TVINSERTSTRUCTA const*>(lParam))
        {
            change.item = BelowRoot(insert->hParent);
            change.hasData = (insert->item.mask & TVIF_PARAM) != 0;
            change.data = insert->item.lParam;
            change.moves = true;
        }
        break;
    case TVM_SETITEMA:
    case TVM_SETITEMW:
        if (auto const* const item = reinterpret_cast<TVITEMA const*>(lParam))
        {
            change.item = item->hItem;
            change.hasData = (item->mask & TVIF_PARAM) != 0;
            change.data = item->lParam;
        }
        break;
    default:
        change.item = BelowRoot(reinterpret_cast<HTREEITEM>(lParam));
        change.moves = true;
        break;
    }
    if (change.hasData || change.moves)
    {
        m_firsts.clear();
    }
    return change;
}

void TreeFinder::End(WindowTree const& tree, Change const& change, LRESULT result)
{
    --m_changes;
    if (change.message == TVM_DELETEITEM && change.item == nullptr && result != 0 && m_changes == 0 && !m_disturbed)
    {
        Forget();
        m_learned = true; // nothing is known of nothing
    }
    if (!m_learned)
    {
        return;
    }
    try
    {
        if (!Follow(tree, change, result))
        {
            Forget();
        }
    }
    catch (std::bad_alloc const&)
    {
        Forget();
    }
}

bool TreeFinder::Follow(WindowTree const& tree, Change const& change, LRESULT result)
{
    switch (change.message)
    {
    case TVM_INSERTITEMA:
    case TVM_INSERTITEMW: {
        auto const item = reinterpret_cast<HTREEITEM>(result);
        if (item == nullptr)
        {
            return true;
        }
        m_inserted.push_back(
            {item, change.item, change.hasData ? static_cast<DWORD_PTR>(change.data) : tree.Data(item)});
        return true;
    }
    case TVM_SETITEMA:
    case TVM_SETITEMW:
        // What the control now says: versions of it differ in how they answer the message.
        return !change.hasData || (CatchUp() && m_index.SetValue(change.item, tree.Data(change.item)));
    case TVM_DELETEITEM:
        if (result == 0)
        {
            return false;
        }
        return change.item == nullptr || (CatchUp() && m_index.Erase(change.item));
    case TVM_EXPAND: // all below went, or the parent has forbidden it
        return tree.Child(change.item) != nullptr || (CatchUp() && m_index.EraseBelow(change.item));
    default:
        return true; // sorting moves items among their brothers only
    }
}

// Takes what was inserted into the index. @return false if it contradicts the index, which can't be kept then
bool TreeFinder::CatchUp()
{
    for (Inserted const& each : m_inserted)
    {
        if (!m_index.Insert(each.item, each.parent, each.data))
        {
            return false;
        }
    }
    m_inserted = std::vector<Inserted>(); // with its memory
    return true;
}

void TreeFinder::Restart() noexcept
{
    Forget();
    m_met = false;
}

void TreeFinder::Forget() noexcept
{
    m_index.Clear();
    m_inserted.clear();
    m_firsts.clear();
    m_learned = false;
    m_walked = 0;
}

} // namespace tavkit
