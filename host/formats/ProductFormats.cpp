// ProductFormats.cpp
#include "host/formats/ProductFormats.h"

#include "tavkit/frame/services/CnfgLdr.h"

namespace formats
{
namespace
{
constexpr int kLoad = 0; ///< mode
constexpr int kSave = 1; ///< mode

/// A plug-in that the product configuration describes.
class ProductPlugin final : public DIOPlugin
{
public:
    explicit ProductPlugin(CnfgLdr::Plugin const& plugin) : m_plugin(plugin) {}

    char const* GetName() const override { return m_plugin.strName.c_str(); }

protected:
    void OnBuildFrmtList(DList<DFileFrmt*>& list, int mode, unsigned int dataType, ICheck<DString>* check) override
    {
        for (CnfgLdr::PluginFrmt const& format : m_plugin.vecFrmt)
        {
            const bool hasMode = (mode == kLoad && format.bLoad) || (mode == kSave && format.bSave);
            const bool hasType = dataType == 0 || (dataType & format.nDataType) != 0;
            if (hasMode && hasType && (!check || check->Check(format.strId)))
            {
                list.AddTail(new DFileFrmt(format.strId.c_str(), format.strName.c_str(), format.strPattern.c_str()));
            }
        }
    }

private:
    CnfgLdr::Plugin m_plugin;
};
} // namespace

ProductPlugins::ProductPlugins(DIOPluginMngr& mngr) : m_mngr(mngr)
{
    for (CnfgLdr::Plugin const& plugin : CnfgLdr::Instance()->GetPlugins())
    {
        m_plugins.push_back(std::make_unique<ProductPlugin>(plugin));
        m_mngr.Register(m_plugins.back().get());
    }
}

ProductPlugins::~ProductPlugins()
{
    for (auto const& plugin : m_plugins)
    {
        m_mngr.Unregister(plugin.get());
    }
}

std::unique_ptr<DataSchm> ProductSchema()
{
    auto schema = std::make_unique<DataSchm>();
    for (CustImport::Dfntn const& definition : CnfgLdr::Instance()->GetCustImports())
    {
        schema->AddCustImport(definition);
    }
    return schema;
}
} // namespace formats
