// ProductFormats.h - the plug-ins and custom imports that the product configuration declares
#pragma once

#include <memory>
#include <vector>

#include "tavkit/frame/services/DIOPlugin.h"
#include "tavkit/frame/services/Wksp.h"

namespace formats
{
/// The plug-ins of the product configuration, registered with a manager for as long as the object lives. They are those
/// of the moment: a configuration that is loaded later changes nothing.
class TAVHOST_API ProductPlugins
{
public:
    /// @param mngr  must outlive this object.
    explicit ProductPlugins(DIOPluginMngr& mngr);
    ProductPlugins(ProductPlugins const&) = delete;
    ProductPlugins& operator=(ProductPlugins const&) = delete;
    ~ProductPlugins();

private:
    DIOPluginMngr& m_mngr;
    std::vector<std::unique_ptr<DIOPlugin>> m_plugins;
};

/// A schema with the custom imports of the product configuration.
[[nodiscard]] TAVHOST_API std::unique_ptr<DataSchm> ProductSchema();
} // namespace formats
