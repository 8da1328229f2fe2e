#include "tavkit/frame/services/RDIDriverMngr.h"

#include <algorithm>

#include "host/raster/PictureDriver.h"

RDIDriverMngr::RDIDriverMngr() = default;

RDIDriverMngr::~RDIDriverMngr() = default;

RDIDriverMngr* RDIDriverMngr::Instance()
{
    static RDIDriverMngr instance;
    return &instance;
}

bool RDIDriverMngr::OpenFile(BDIMoniker const& moniker, RDIDriver** driver, void** hFile, char const* options,
                             DError* error, char const* drvrId)
{
    const auto fail = [error](char const* cause) {
        if (error != nullptr)
        {
            error->SetError(cause);
        }
        return false;
    };
    if (driver == nullptr || hFile == nullptr)
    {
        return fail("There is no place for the driver or the file's handle.");
    }
    if (drvrId != nullptr && *drvrId != '\0')
    {
        return fail("No raster driver has that identifier.");
    }
    // Options given apart are the same as options behind the name.
    BDIMoniker complete(moniker);
    if (options != nullptr && *options != '\0')
    {
        const DString text = moniker.GetMoniker();
        const bool hasOptions = text.GetLength() != moniker.GetPathOnDisk().GetLength();
        complete = BDIMoniker((text + (hasOptions ? "&" : "?") + options).c_str(), moniker.GetDrvr());
    }
    static raster::PictureDriver files;
    const auto accepts = [&](RDIDriver* candidate) { return candidate->Accepts(complete); };
    const auto found = std::find_if(m_vecDriver.rbegin(), m_vecDriver.rend(), accepts);
    RDIDriver* const chosen = found != m_vecDriver.rend() ? *found : &files;
    void* const opened = chosen->OpenFile(complete, error);
    if (opened == nullptr)
    {
        return fail("The picture can't be opened."); // kept only if the driver gave no cause of its own
    }
    *driver = chosen;
    *hFile = opened;
    return true;
}

void RDIDriverMngr::Register(RDIDriver* driver)
{
    if (driver != nullptr && std::ranges::find(m_vecDriver, driver) == m_vecDriver.end())
    {
        m_vecDriver.push_back(driver);
    }
}

void RDIDriverMngr::Unregister(RDIDriver* driver) { std::erase(m_vecDriver, driver); }
