// BDIDrvr.h - reaches a repository, a container of pictures, tables and further containers
#pragma once

#include "tavkit/frame/services/DString.h"

/// Kinds of repository nodes, as bits; a node matches a mask when it shares a bit with it.
enum BDINodeKind : unsigned int
{
    bdiContainer = 1, ///< holds further nodes
    bdiRaster = 2,    ///< picture
    bdiVector = 4,    ///< vector data
    bdiTable = 8,     ///< attribute table
    bdiOther = 16     ///< anything else that a driver knows
};

/// A place in a repository. The driver that gives it out makes and frees it.
struct BDINode
{
    void* m_pDrvrData = nullptr; ///< the driver's own
    unsigned int m_nKind = 0;    ///< bits of BDINodeKind
    DString m_strId;             ///< identifier: the text of a moniker that names this node
    DString m_strDisplay;        ///< what a user reads
};

/// Way into one kind of repository. Hosts and tests derive their drivers and register them with the BDIDrvrMngr.
/// Whoever gets a repository, a node or a find handle gives it back to the same driver; nodes go before their
/// repository. No operation throws.
class BDIDrvr
{
public:
    BDIDrvr() = default;
    BDIDrvr(BDIDrvr const&) = delete;
    BDIDrvr& operator=(BDIDrvr const&) = delete;
    virtual ~BDIDrvr() = default;

    /// Opens the repository at a path.
    /// @param root  receives the root node, to be closed by the caller; may be null when it isn't wanted.
    /// @return handle of the repository; null, and a null root, if there is none.
    virtual void* OpenRepository(char const* path, BDINode** root) = 0;
    virtual void CloseRepository(void* hRepository) = 0;
    /// The node with the identifier @p id; null if there is none.
    virtual BDINode* OpenNode(void* hRepository, char const* id) = 0;
    virtual void CloseNode(BDINode* node) = 0;
    /// Begins a walk over the children of @p node that share a bit with @p mask; null when there is none.
    virtual void* FindFirstChildNode(BDINode const* node, int mask) = 0;
    /// The next child of a walk, to be closed by the caller; null behind the last.
    virtual BDINode* FindNextChildNode(void*& hFind) = 0;
    virtual void FindClose(void* hFind) = 0;
    /// The parameters that a path needs to name @p node to the driver ("page=0"); "" if it needs none.
    virtual DString GetDriverParameterString(BDINode const* node) = 0;
};
