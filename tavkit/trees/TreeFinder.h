// TreeFinder.h - finds the items of a tree by their data
#pragma once

#include <afxcmn.h>
#include <cstddef>
#include <unordered_map>
#include <vector>
#include "tavkit/trees/TreeIndex.h"
#include "tavkit/trees/WindowTree.h"

namespace tavkit
{

/// An index answers for every tree that was seen from its beginning, empty. The tree has to tell of every message that
/// changes items, around the message (Change), which keeps the index true. Where it can't be kept true (a change inside
/// a change, or one that contradicts the index) it is dropped. Then items are walked to, which costs three messages an
/// item, and the control takes the longer over each the more items it has; when the walks have come to the cost of
/// learning the whole tree, it is learned. Insertions are only noted until somebody asks, so that filling a tree costs
/// no more than it must. Among several items with one value the first is walked to, and remembered until anything
/// changes.
class TreeFinder
{
public:
    /// The first item with this data in walking order; null if there is none.
    /// @param root      this item and those below it; null for the whole tree
    /// @param seesAll   every message to the control is told of; otherwise nothing is learned
    [[nodiscard]] HTREEITEM Find(WindowTree const& tree, DWORD_PTR data, HTREEITEM root, bool seesAll);

    /// What a message is about to change; taken down before, since its structure may be gone afterwards.
    struct Change
    {
        UINT message;
        HTREEITEM item; ///< the parent of an insertion, otherwise the item itself
        bool hasData;
        LPARAM data; ///< only with hasData
        bool moves;  ///< items come, go or change places
    };
    /// Is it one of the messages that insert, change, delete or sort items.
    [[nodiscard]] static bool IsChange(UINT message, WPARAM wParam) noexcept;
    /// Before the control gets the message.
    [[nodiscard]] Change Begin(WindowTree const& tree, UINT message, LPARAM lParam);
    /// After it.
    void End(WindowTree const& tree, Change const& change, LRESULT result);

    /// A window is taken over, with what is in it.
    void Restart() noexcept;

private:
    [[nodiscard]] HTREEITEM Walk(WindowTree const& tree, DWORD_PTR data, HTREEITEM root);
    void Learn(WindowTree const& tree);
    void Forget() noexcept;
    [[nodiscard]] bool Follow(WindowTree const& tree, Change const& change, LRESULT result);
    [[nodiscard]] bool CatchUp();

    /// An item that the index doesn't know yet.
    struct Inserted
    {
        HTREEITEM item;
        HTREEITEM parent;
        DWORD_PTR data;
    };

    TreeIndex m_index;
    std::vector<Inserted> m_inserted;                  // in the order in which they came
    std::unordered_map<DWORD_PTR, HTREEITEM> m_firsts; // of values that several items have
    bool m_met = false;                                // it is known whether the tree was empty at first
    bool m_learned = false;                            // the index is true
    int m_changes = 0;                                 // under way, one inside the other
    bool m_disturbed = false;                          // there was one inside another
    std::size_t m_walked = 0;                          // items since the index was dropped
};

} // namespace tavkit
