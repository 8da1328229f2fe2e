#include "tavkit/trees/TreeCtrlItr.h"

#include "tavkit/trees/WindowTree.h"

CTreeCtrlItr::CTreeCtrlItr(CTreeCtrl* tree, HTREEITEM root) : m_pTree(tree), m_hRoot(root) {}

void CTreeCtrlItr::Frst() { m_hCrnt = m_pTree == nullptr ? nullptr : tavkit::WindowTree(*m_pTree).First(m_hRoot); }

void CTreeCtrlItr::Next()
{
    if (m_pTree != nullptr)
    {
        m_hCrnt = NextInWalk(tavkit::WindowTree(*m_pTree), m_hRoot, m_hCrnt);
    }
}
