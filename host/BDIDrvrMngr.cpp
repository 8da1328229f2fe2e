// BDIDrvrMngr.cpp
#include "tavkit/frame/services/BDIDrvrMngr.h"

#include <algorithm>

BDIDrvrMngr::BDIDrvrMngr() = default;
BDIDrvrMngr::~BDIDrvrMngr() = default;

BDIDrvrMngr* BDIDrvrMngr::Instance()
{
    static BDIDrvrMngr instance;
    return &instance;
}

BDIDrvr* BDIDrvrMngr::GetDrvr(char const* id)
{
    if (!id || !*id)
    {
        return nullptr;
    }
    const auto found = std::ranges::find_if(m_vecEntry, [&](Entry const& entry) { return entry.m_strId == id; });
    return found == m_vecEntry.end() ? nullptr : found->m_pDrvr;
}

BDIDrvr* BDIDrvrMngr::FindDriverByFrmt(char const* frmt)
{
    if (!frmt || !*frmt)
    {
        return nullptr;
    }
    for (auto entry = m_vecEntry.rbegin(); entry != m_vecEntry.rend(); ++entry)
    {
        for (DString::Tokens walk(entry->m_strFrmts, ";"); !walk.Done(); walk.Next())
        {
            if (walk.Crnt() == frmt)
            {
                return entry->m_pDrvr;
            }
        }
    }
    return nullptr;
}

bool BDIDrvrMngr::Register(char const* id, char const* frmts, BDIDrvr* drvr)
{
    if (!id || !*id || !drvr || GetDrvr(id))
    {
        return false;
    }
    m_vecEntry.push_back({id, frmts, drvr});
    return true;
}

void BDIDrvrMngr::Unregister(BDIDrvr const* drvr)
{
    std::erase_if(m_vecEntry, [&](Entry const& entry) { return entry.m_pDrvr == drvr; });
}
