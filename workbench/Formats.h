// Formats.h - the file formats that the workbench knows beside the library's own
#pragma once

#include "host/formats/ProductFormats.h"
#include "tavkit/frame/services/DFileFrmt.h"
#include "tavkit/frame/services/DIOPlugin.h"

namespace workbench
{
/// The plug-in formats and custom imports that the product declares, and the workbench's own formats in the library's
/// file dialogs, for as long as the object lives. One at a time.
class Formats
{
public:
    Formats();
    ~Formats();
    Formats(const Formats&) = delete;
    Formats& operator=(const Formats&) = delete;

    /// For the dialogs that offer the plug-ins' formats.
    [[nodiscard]] DIOPluginMngr& Plugins() { return m_manager; }

private:
    DIOPluginMngr m_manager;
    formats::ProductPlugins m_plugins{m_manager};
    DFileFrmt m_workspace;
    DFileFrmt m_project;
};
} // namespace workbench
