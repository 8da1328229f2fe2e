#include "tavkit/trees/ItemWatch.h"

// Not inline: seen at once with its callers, GCC 12 takes the tree's pointer to what stands on the stack for a mistake.

CTavTreeCtrl::ItemWatch::ItemWatch(CTavTreeCtrl& tree, HTREEITEM item)
    : m_pTree(&tree), m_hWnd(tree.m_hWnd), m_hItem(item), m_pBelow(tree.m_pTopWatch)
{
    tree.m_pTopWatch = this;
}

CTavTreeCtrl::ItemWatch::~ItemWatch()
{
    if (m_pTree != nullptr)
    {
        m_pTree->m_pTopWatch = m_pBelow;
    }
}
