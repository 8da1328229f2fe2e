// NodeCursor.cpp
#include "tavkit/filedlg/NodeCursor.h"

#include <utility>

namespace tavkit
{

NodeCursor::NodeCursor(BDIDrvr* drvr, BDINode const* node, bool deep, unsigned int types)
    : m_pDrvr(drvr), m_pNode(node), m_bDeep(deep), m_nTypes(types)
{
}

NodeCursor::~NodeCursor() { Close(); }

void NodeCursor::First()
{
    Close();
    if (m_pDrvr && m_pNode && Enter(m_pNode))
    {
        SetCrnt(NextOfInnermost());
    }
}

void NodeCursor::Next()
{
    if (m_stack.IsEmpty())
    {
        return;
    }
    // The step down ends here even with no node: what a driver begins a search for it should also have.
    if (!m_bDeep || (m_pCrnt && Enter(m_pCrnt)))
    {
        SetCrnt(NextOfInnermost());
        return;
    }
    BDINode* next = nullptr;
    while (!m_stack.IsEmpty() && (next = NextOfInnermost()) == nullptr)
    {
        Leave();
    }
    SetCrnt(next);
}

void NodeCursor::Close()
{
    SetCrnt(nullptr);
    while (!m_stack.IsEmpty())
    {
        Leave();
    }
}

int NodeCursor::SearchMask() const noexcept { return static_cast<int>((m_bDeep ? bdiContainer : 0U) | m_nTypes); }

/// Begins a search below a node; false if there is nothing.
bool NodeCursor::Enter(BDINode const* node)
{
    void* const find = m_pDrvr->FindFirstChildNode(node, SearchMask());
    if (find)
    {
        m_stack.AddTail(find);
    }
    return find != nullptr;
}

/// Ends the innermost search.
void NodeCursor::Leave()
{
    m_pDrvr->FindClose(m_stack.m_pTail->m_val);
    m_stack.Unlink(m_stack.m_pTail);
}

void NodeCursor::SetCrnt(BDINode* node)
{
    if (BDINode* const before = std::exchange(m_pCrnt, node))
    {
        m_pDrvr->CloseNode(before);
    }
}

BDINode* NodeCursor::NextOfInnermost() { return m_pDrvr->FindNextChildNode(m_stack.m_pTail->m_val); }

} // namespace tavkit
