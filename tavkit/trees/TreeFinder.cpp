#include "tavkit/trees/TreeFinder.h"

#include "tavkit/trees/WindowTree.h"

#include <new>

namespace tavkit
{
namespace
{

HTREEITEM AsHandle(TreeIndex::Item item) noexcept { return static_cast<HTREEITEM>(const_cast<void*>(item)); }

/// A tree that is being learned: what the index knows of an item isn't asked of the control again.
class LearnedTree
{
public:
    LearnedTree(CTreeCtrl const& tree, TreeIndex const& index) : m_tree(tree), m_index(index) {}

    [[nodiscard]] HTREEITEM Child(HTREEITEM item) const
    {
        m_parent = item;
        return m_tree.GetChildItem(item);
    }
    [[nodiscard]] HTREEITEM Next(HTREEITEM item) const
    {
        m_parent = Parent(item);
        return m_tree.GetNextSiblingItem(item);
    }
    [[nodiscard]] HTREEITEM Parent(HTREEITEM item) const { return AsHandle(m_index.Parent(item)); }

    /// Parent of the item that was given out last.
    [[nodiscard]] HTREEITEM ParentOfLast() const { return m_parent; }

private:
    CTreeCtrl const& m_tree;
    TreeIndex const& m_index;
    mutable HTREEITEM m_parent = nullptr;
};

/// The item that a message names as a parent, or as all that there is to delete; null for the place above all items.
HTREEITEM BelowRoot(HTREEITEM item) noexcept { return item == TVI_ROOT ? nullptr : item; }

} // namespace

HTREEITEM TreeFinder::Find(CTreeCtrl const& tree, DWORD_PTR data, HTREEITEM root, bool seesAll)
{
    // Inside a change the control may be half way: what it shows then is not to be learned.
    if (seesAll && m_changes == 0)
    {
        if (!m_learned && m_walked != 0 && m_walked >= tree.GetCount())
        {
            Learn(tree);
        }
        if (m_learned)
        {
            TreeIndex::Match const match = m_index.Find(data);
            if (match.count == 0)
            {
                return nullptr;
            }
            if (match.count == 1)
            {
                return root == nullptr || m_index.IsWithin(match.item, root) ? AsHandle(match.item) : nullptr;
            }
        }
    }
    WindowTree const window(tree);
    for (HTREEITEM item = window.First(root); item != nullptr; item = NextInWalk(window, root, item))
    {
        ++m_walked;
        if (tree.GetItemData(item) == data)
        {
            return item;
        }
    }
    return nullptr;
}

void TreeFinder::Learn(CTreeCtrl const& tree)
{
    m_index.Clear();
    m_walked = 0;
    try
    {
        LearnedTree const learned(tree, m_index);
        HTREEITEM item = tree.GetRootItem();
        while (item != nullptr && m_index.Insert(item, learned.ParentOfLast(), tree.GetItemData(item)))
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

TreeFinder::Change TreeFinder::Begin(UINT message, LPARAM lParam)
{
    if (m_changes++ != 0)
    {
        Forget();
    }
    Change change{message, nullptr, false, 0};
    switch (message)
    {
    case TVM_INSERTITEMA:
    case TVM_INSERTITEMW: // the two structures differ only in the kind of text
        if (auto const* const insert = reinterpret_cast<TVINSERTSTRUCTA const*>(lParam))
        {
            change.item = BelowRoot(insert->hParent);
            change.hasData = (insert->item.mask & TVIF_PARAM) != 0;
            change.data = insert->item.lParam;
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
        break;
    }
    return change;
}

void TreeFinder::End(CTreeCtrl const& tree, Change const& change, LRESULT result)
{
    --m_changes;
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

bool TreeFinder::Follow(CTreeCtrl const& tree, Change const& change, LRESULT result)
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
        return m_index.Insert(item, change.item,
                              change.hasData ? static_cast<DWORD_PTR>(change.data) : tree.GetItemData(item));
    }
    case TVM_SETITEMA:
    case TVM_SETITEMW:
        // What the control now says: versions of it differ in how they answer the message.
        return !change.hasData || m_index.SetValue(change.item, tree.GetItemData(change.item));
    case TVM_DELETEITEM:
        if (result == 0)
        {
            return false;
        }
        if (change.item == nullptr)
        {
            m_index.Clear();
            return true;
        }
        return m_index.Erase(change.item);
    case TVM_EXPAND:
        return false; // which children went isn't told
    default:
        return true; // sorting moves items among their brothers only
    }
}

void TreeFinder::Forget() noexcept
{
    m_index.Clear();
    m_learned = false;
    m_walked = 0;
}

} // namespace tavkit
