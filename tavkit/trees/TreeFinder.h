// TreeFinder.h - finds the items of a tree by their data
#pragma once

#include <afxcmn.h>
#include <cstddef>
#include "tavkit/trees/TreeIndex.h"

namespace tavkit
{

/// A walk costs two messages an item, and the control takes the longer over each the more items it has. So walks are
/// counted, and when they have come to the cost of learning the whole tree, it is learned: an index answers from then
/// on. The tree has to tell of every message that changes items, around the message (TreeChange), which keeps the index
/// true. Where it can't be kept true (a change inside a change, or one that contradicts the index) it is dropped, and
/// the counting begins anew.
class TreeFinder
{
public:
    /// The first item with this data in walking order; null if there is none.
    /// @param root      this item and those below it; null for the whole tree
    /// @param seesAll   every message to the control is told of; otherwise nothing is learned
    [[nodiscard]] HTREEITEM Find(CTreeCtrl const& tree, DWORD_PTR data, HTREEITEM root, bool seesAll);

    /// What a message is about to change; taken down before, since its structure may be gone afterwards.
    struct Change
    {
        UINT message;
        HTREEITEM item; ///< the parent of an insertion, otherwise the item itself
        bool hasData;
        LPARAM data; ///< only with hasData
    };
    /// Is it one of the messages that insert, change, delete or sort items.
    [[nodiscard]] static bool IsChange(UINT message, WPARAM wParam) noexcept;
    /// Before the control gets the message.
    [[nodiscard]] Change Begin(UINT message, LPARAM lParam);
    /// After it.
    void End(CTreeCtrl const& tree, Change const& change, LRESULT result);

    /// Drops what was learned.
    void Forget() noexcept;

private:
    void Learn(CTreeCtrl const& tree);
    [[nodiscard]] bool Follow(CTreeCtrl const& tree, Change const& change, LRESULT result);

    TreeIndex m_index;
    bool m_learned = false;   // the index is true
    int m_changes = 0;        // under way, one inside the other
    std::size_t m_walked = 0; // items since the last Forget()
};

} // namespace tavkit
