// RDIDriverMngr.h - opens a picture file with the driver that reads it
#pragma once

#include <vector>

#include "tavkit/frame/services/BDIMoniker.h"
#include "tavkit/frame/services/DError.h"
#include "tavkit/frame/services/RDIDriver.h"

/// Registry of the raster drivers. The driver for the platform's picture formats is always there, behind all others.
class TAVHOST_API RDIDriverMngr
{
public:
    /// The one registry of the process.
    static RDIDriverMngr* Instance();

    /// Opens a picture with the first driver that accepts it, the one registered last first.
    /// @param driver   receives the driver, borrowed; as it was on failure.
    /// @param hFile    receives the file's handle, to be ended by the driver's CloseFile; as it was on failure.
    /// @param options  text of open options, "" or null for none; the same as behind the "?" of the moniker's text.
    /// @param error    receives the cause of a failure; may be null.
    /// @param drvrId   null or "": drivers have no identifiers yet, so any other text fails.
    bool OpenFile(BDIMoniker const& moniker, RDIDriver** driver, void** hFile, char const* options, DError* error,
                  char const* drvrId);

    /// Adds a driver in front of those that are there. Null and a driver that is there already are ignored.
    /// @param driver  borrowed; must be unregistered before it dies.
    void Register(RDIDriver* driver);
    /// Takes a driver out again; an unknown one is ignored.
    void Unregister(RDIDriver* driver);

private:
    RDIDriverMngr();
    ~RDIDriverMngr();

    std::vector<RDIDriver*> m_vecDriver; ///< in the order of registration, borrowed
};
