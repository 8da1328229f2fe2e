// DIOPlugin.cpp
#include "tavkit/frame/services/DIOPlugin.h"

#include <algorithm>

DIOPlugin::DIOPlugin() = default;
DIOPlugin::~DIOPlugin() = default;

void DIOPlugin::BuildFrmtList(DList<DFileFrmt*>* list, int mode, unsigned int dataType, ICheck<DString>* check)
{
    if (list)
    {
        OnBuildFrmtList(*list, mode, dataType, check);
    }
}

DAddinMngr::DAddinMngr() = default;
DAddinMngr::~DAddinMngr() = default;

DIOPluginMngr::DIOPluginMngr() = default;
DIOPluginMngr::~DIOPluginMngr() = default;

void DIOPluginMngr::BuildFrmtList(DList<DFileFrmt*>* list, int mode, unsigned int dataType, ICheck<DString>* check)
{
    for (DIOPlugin* const plugin : m_vecPlugin)
    {
        plugin->BuildFrmtList(list, mode, dataType, check);
    }
}

void DIOPluginMngr::Register(DIOPlugin* plugin)
{
    if (plugin)
    {
        m_vecPlugin.push_back(plugin);
    }
}

void DIOPluginMngr::Unregister(DIOPlugin* plugin) { std::erase(m_vecPlugin, plugin); }

DIOPluginMngr::DriverItr::DriverItr(DAddinMngr* mngr) : m_pMngr(dynamic_cast<DIOPluginMngr*>(mngr))
{
    m_nIndex = -1;
    Next();
}

DIOPluginMngr::DriverItr::~DriverItr() = default;

void DIOPluginMngr::DriverItr::Next()
{
    // By index: a plug-in may come or go while a walk is under way.
    const auto index = static_cast<std::size_t>(++m_nIndex);
    const bool isThere = m_pMngr && index < m_pMngr->m_vecPlugin.size();
    m_pCrnt = isThere ? m_pMngr->m_vecPlugin[index] : nullptr;
}
