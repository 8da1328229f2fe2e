// BDIDrvrMngr.h - registry of the repository drivers
#pragma once

#include <vector>

#include "tavkit/frame/services/BDIDrvr.h"

/// Finds repository drivers by their own name or by the file formats that they open.
class TAVHOST_API BDIDrvrMngr
{
public:
    /// The one registry of the process.
    static BDIDrvrMngr* Instance();

    /// The driver registered as @p id, exactly; null when nothing matches.
    BDIDrvr* GetDrvr(char const* id);
    /// The driver for files of the format @p frmt, exactly; null when nothing matches.
    BDIDrvr* FindDriverByFrmt(char const* frmt);

    /// Adds a driver.
    /// @param id     its name; null, "" and a name that is taken are refused.
    /// @param frmts  identifiers of the file formats that it opens, separated by ";"; may be null. A format that
    ///               several drivers open belongs to the one registered last.
    /// @param drvr   borrowed; must be unregistered before it dies.
    bool Register(char const* id, char const* frmts, BDIDrvr* drvr);
    /// Takes a driver out again; an unknown one is ignored.
    void Unregister(BDIDrvr const* drvr);

private:
    struct Entry
    {
        DString m_strId;
        DString m_strFrmts;
        BDIDrvr* m_pDrvr;
    };

    BDIDrvrMngr();
    ~BDIDrvrMngr();

    std::vector<Entry> m_vecEntry;
};
