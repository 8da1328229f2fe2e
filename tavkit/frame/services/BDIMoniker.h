// BDIMoniker.h - names an item: a file, or a node of a repository
#pragma once

#include "tavkit/frame/services/BDIDrvr.h"
#include "tavkit/frame/services/DString.h"

/// Name of an item as text, with the driver of the repository that it lies in. A tail from the first "?" on holds
/// options ("a.tif?page=2"). A copy has the same text and driver and opens a node of its own when asked for it.
class TAVHOST_API BDIMoniker
{
public:
    /// @param text  the name, copied, never made absolute; null gives an empty name.
    /// @param drvr  borrowed; null for a plain path.
    BDIMoniker(char const* text, BDIDrvr* drvr);
    BDIMoniker(BDIMoniker const& other);
    BDIMoniker& operator=(BDIMoniker const& other);
    ~BDIMoniker();

    /// The text as constructed, options included.
    [[nodiscard]] DString GetMoniker() const;
    /// The path of the file that the item lies in, as given, without options. "." stays ".".
    [[nodiscard]] DString GetPathOnDisk() const;
    /// What lists show and sort by: the node's display name in a repository, otherwise the file name with its options.
    [[nodiscard]] DString GetDisplayName() const;
    /// The extension of the file, without the dot.
    [[nodiscard]] DString GetFrmtExtn() const;
    /// The repository node of the item: opened on the first call, kept until the moniker dies or its driver changes.
    /// Null without a driver, and for an item that the driver doesn't find.
    [[nodiscard]] BDINode const* GetNode() const;
    [[nodiscard]] BDIDrvr* GetDrvr() const;
    /// Ties the item to another driver, null for none; a node that is open is closed.
    void SetDrvr(BDIDrvr* drvr);

private:
    void CloseNode() const;

    DString m_strText;
    BDIDrvr* m_pDrvr;                      ///< borrowed
    mutable void* m_hRepository = nullptr; ///< open while the node is
    mutable BDINode* m_pNode = nullptr;    ///< closed by this object
    mutable bool m_bNodeLookedUp = false;  ///< a driver that doesn't find the item is asked once
};
