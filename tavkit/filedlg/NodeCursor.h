// NodeCursor.h - a walk over the children of a repository node
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/BDIDrvr.h"
#include "tavkit/frame/services/DList.h"

namespace tavkit
{

/// Walks the children of a node, or all that lies below it, each container before what it holds. The cursor owns the
/// node that it stands on and the find handles that are open, and gives all of them back when it dies; it must be gone
/// before the repository is closed.
/// @code for (cursor.First(); cursor.Crnt(); cursor.Next()) { Use(*cursor.Crnt()); } @endcode
class TAVKIT_API NodeCursor
{
public:
    /// @param drvr   borrowed; with a null driver there is nothing to walk
    /// @param node   borrowed; with a null node there is nothing to walk
    /// @param deep   walk all levels; containers are then yielded whether or not they are asked for
    /// @param types  kinds of nodes that are asked for, bits of BDINodeKind
    NodeCursor(BDIDrvr* drvr, BDINode const* node, bool deep, unsigned int types);
    NodeCursor(NodeCursor const&) = delete;
    NodeCursor& operator=(NodeCursor const&) = delete;
    ~NodeCursor();

    /// Goes to the first node, from wherever the cursor stands.
    void First();
    /// Goes to the next node. A deep walk ends with a container whose search yields nothing though it was begun; the
    /// handles stay open until Close.
    void Next();
    /// Gives back the node and all handles.
    void Close();

    /// The node that the cursor stands on, null at the end; valid until the cursor moves.
    [[nodiscard]] BDINode const* Crnt() const noexcept { return m_pCrnt; }

private:
    [[nodiscard]] int SearchMask() const noexcept;
    bool Enter(BDINode const* node);
    void Leave();
    void SetCrnt(BDINode* node);
    BDINode* NextOfInnermost();

    DList<void*> m_stack;   ///< find handles, the innermost last
    BDIDrvr* m_pDrvr;       ///< borrowed
    BDINode const* m_pNode; ///< borrowed
    bool m_bDeep;
    unsigned int m_nTypes;
    BDINode* m_pCrnt = nullptr; ///< owned, given back with CloseNode
};

} // namespace tavkit
