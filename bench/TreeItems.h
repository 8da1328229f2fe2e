// TreeItems.h - trees of 50,000 items in three levels, ours and the control's own, for the measurements of trees
#pragma once

#include "tavkit/TavKit.h"

#include <memory>

namespace bench
{

// 16 items with 44 below each and 70 below each of those.
constexpr int kTreeRoots = 16;
constexpr int kTreeBranches = 44;
constexpr int kTreeLeaves = 70;
constexpr int kTreeItems = kTreeRoots * (1 + kTreeBranches * (1 + kTreeLeaves));
static_assert(kTreeItems == 50'000);

/// A hidden window for the trees: what the screen costs would only drown what the two sides do differently.
class TreeHost
{
public:
    TreeHost();
    ~TreeHost();
    TreeHost(const TreeHost&) = delete;
    TreeHost& operator=(const TreeHost&) = delete;

    /// An empty tree of ours.
    [[nodiscard]] std::unique_ptr<CTavTreeCtrl> NewTree();
    /// An empty tree of the system, without any of our code around it.
    [[nodiscard]] HWND NewRaw();
    /// An image list like the one that our tree makes.
    [[nodiscard]] LPARAM Images();

private:
    CWnd m_frame;
    HWND m_rawFrame;
    CTavImageList m_images;
};

/// Fills an empty tree with the items; their data is 1 to kTreeItems in walking order.
void FillTree(CTavTreeCtrl& tree);
/// The same with one message an item.
void FillRaw(HWND tree);
/// Throws a WorkError unless the items are there.
void CheckTree(HWND tree);

/// The first item with that data, by TVM_GETNEXTITEM and TVM_GETITEM.
[[nodiscard]] HTREEITEM WalkTo(HWND tree, LPARAM data);

} // namespace bench
