// CnfgLdr.cpp
#include "tavkit/frame/services/CnfgLdr.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <map>
#include <string_view>

#include "tavkit/frame/services/BDIDrvr.h"
#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/XMLNode.h"

namespace
{
constexpr char const* kRoot = "Product";
constexpr char const* kFolder = "Folder";
constexpr char const* kTextBlock = "TextBlock";
constexpr char const* kPlugin = "Plugin";
constexpr char const* kFormat = "Format";
constexpr char const* kCustomImport = "CustomImport";
constexpr char const* kParam = "Param";
constexpr char const* kLayer = "Layer";

/// A word for a kind of data.
struct DataWord
{
    char const* word;
    unsigned int bit;
};
constexpr DataWord kDataWords[] = {
    {"raster", bdiRaster}, {"vector", bdiVector}, {"table", bdiTable}, {"metadata", bdiOther}};
constexpr unsigned int kAllData = bdiRaster | bdiVector | bdiTable | bdiOther;

constexpr int kMaxCoordinate = 32767; ///< as far as a device context reaches on every version of the system
constexpr int kMaxWeight = 1000;      ///< heaviest font

/// A text block and the face name that it points to.
struct OwnedBlock
{
    DString strFont;
    CnfgLdr::TextBlock block;
};

bool ReadNumber(XMLNode const& node, char const* name, int lowest, int highest, int& number)
{
    if (!node.HasAttr(name))
    {
        return true; // keeps what it has
    }
    const DString text = node.GetAttrStr(name);
    char const* const end = text.c_str() + text.GetLength();
    const auto [stop, error] = std::from_chars(text.c_str(), end, number);
    return error == std::errc() && stop == end && number >= lowest && number <= highest;
}

/// Reads "#RRGGBB" as a colour 0x00BBGGRR.
bool ReadColor(XMLNode const& node, char const* name, unsigned long& color)
{
    if (!node.HasAttr(name))
    {
        return true;
    }
    constexpr std::size_t kLength = 7;
    const DString text = node.GetAttrStr(name);
    const std::string_view view(text.c_str());
    if (view.size() != kLength || view.front() != '#' ||
        view.find_first_not_of("0123456789abcdefABCDEF", 1) != std::string_view::npos)
    {
        return false;
    }
    unsigned long rgb = 0;
    std::from_chars(view.data() + 1, view.data() + view.size(), rgb, 16);
    color = (rgb & 0xFF) << 16 | (rgb & 0xFF00) | rgb >> 16;
    return true;
}

bool IsNamed(XMLNode const& node, char const* name) { return std::strcmp(node.GetName(), name) == 0; }

/// Reads which kinds of data a format is for.
bool ReadDataType(XMLNode const& node, unsigned int& type)
{
    type = node.HasAttr("data") ? 0 : kAllData;
    const DString words = node.GetAttrStr("data");
    for (DString::Tokens walk(words, " "); !walk.Done(); walk.Next())
    {
        const auto found =
            std::ranges::find_if(kDataWords, [word = walk.Crnt()](DataWord const& each) { return word == each.word; });
        if (found == std::ranges::end(kDataWords))
        {
            return false;
        }
        type |= found->bit;
    }
    return type != 0;
}

bool ReadFormat(XMLNode const& node, CnfgLdr::PluginFrmt& format)
{
    format.strId = node.GetAttrStr("id");
    format.strName = node.GetAttrStr("name");
    format.strPattern = node.GetAttrStr("pattern");
    const DString access = node.HasAttr("access") ? node.GetAttrStr("access") : DString("both");
    const bool both = access == "both";
    format.bLoad = both || access == "load";
    format.bSave = both || access == "save";
    return !format.strName.IsEmpty() && !format.strPattern.IsEmpty() && (format.bLoad || format.bSave) &&
           ReadDataType(node, format.nDataType);
}
} // namespace

struct CnfgLdr::Data
{
    std::map<DString, DString, DStringLess> mapFolder;
    std::map<DString, OwnedBlock, DStringLess> mapBlock;
    std::vector<Plugin> vecPlugin;
    std::vector<CustImport::Dfntn> vecImport;

    bool AddFolder(XMLNode const& node)
    {
        const DString category = node.GetAttrStr("category");
        if (category.IsEmpty() || !node.HasAttr("path"))
        {
            return false;
        }
        mapFolder[category] = node.GetAttrStr("path");
        return true;
    }

    bool AddBlock(XMLNode const& node)
    {
        const DString name = node.GetAttrStr("name");
        OwnedBlock owned;
        TextBlock& block = owned.block;
        if (name.IsEmpty() || !ReadNumber(node, "x", -kMaxCoordinate, kMaxCoordinate, block.x) ||
            !ReadNumber(node, "y", -kMaxCoordinate, kMaxCoordinate, block.y) ||
            !ReadNumber(node, "height", -kMaxCoordinate, kMaxCoordinate, block.nHeight) ||
            !ReadNumber(node, "weight", 0, kMaxWeight, block.nWeight) || !ReadColor(node, "color", block.crColor))
        {
            return false;
        }
        owned.strFont = node.GetAttrStr("font");
        block.strText = node.GetAttrStr("text");
        OwnedBlock& kept = mapBlock[name];
        kept = owned;
        kept.block.pszFont = kept.strFont.c_str();
        return true;
    }

    bool AddPlugin(XMLNode const& node)
    {
        Plugin plugin{node.GetAttrStr("name"), {}};
        for (XMLNode const* child = node.m_pFrstChld; child; child = child->m_pNext)
        {
            if (IsNamed(*child, kFormat) && !ReadFormat(*child, plugin.vecFrmt.emplace_back()))
            {
                return false;
            }
        }
        const bool named = !plugin.strName.IsEmpty();
        vecPlugin.push_back(std::move(plugin));
        return named;
    }

    bool AddImport(XMLNode const& node)
    {
        CustImport::Dfntn& import = vecImport.emplace_back();
        import.m_strName = node.GetAttrStr("name");
        import.m_strDscr = node.GetAttrStr("description");
        import.m_strFrmtId = node.GetAttrStr("format");
        for (XMLNode const* child = node.m_pFrstChld; child; child = child->m_pNext)
        {
            if (IsNamed(*child, kParam))
            {
                import.m_vecParam.Append(child->GetAttrStr("text"));
            }
            else if (IsNamed(*child, kLayer))
            {
                ImportImgLayerData layer;
                layer.m_strLayer = child->GetAttrStr("name");
                layer.m_strFile = child->GetAttrStr("file");
                layer.m_strDrvrId = child->GetAttrStr("driver");
                import.m_vecLayer.Append(layer);
            }
        }
        return !import.m_strName.IsEmpty();
    }

    /// Takes a whole product configuration; false if any part of it contradicts what is expected.
    bool Read(XMLNode const& root)
    {
        for (XMLNode const* node = root.m_pFrstChld; node; node = node->m_pNext)
        {
            if ((IsNamed(*node, kFolder) && !AddFolder(*node)) || (IsNamed(*node, kTextBlock) && !AddBlock(*node)) ||
                (IsNamed(*node, kPlugin) && !AddPlugin(*node)) || (IsNamed(*node, kCustomImport) && !AddImport(*node)))
            {
                return false;
            }
        }
        return true;
    }
};

CnfgLdr::CnfgLdr() : m_pData(std::make_unique<Data>()) {}
CnfgLdr::~CnfgLdr() = default;

CnfgLdr* CnfgLdr::Instance()
{
    static CnfgLdr instance;
    static const bool loaded = instance.Load((GetInstallDir(nullptr) + kFileName).c_str());
    static_cast<void>(loaded); // a product without the file runs on its callers' defaults
    return &instance;
}

bool CnfgLdr::Load(DFile const& file)
{
    auto data = std::make_unique<Data>();
    XMLNode root(nullptr);
    if (!root.Load(file, kRoot) || !data->Read(root))
    {
        Reset();
        return false;
    }
    m_pData = std::move(data);
    return true;
}

void CnfgLdr::Reset() { m_pData = std::make_unique<Data>(); }

DString CnfgLdr::GetDfltFldr(DString const& key, char const* dflt) const
{
    const auto found = m_pData->mapFolder.find(key);
    return found == m_pData->mapFolder.end() ? DString(dflt) : found->second;
}

CnfgLdr::TextBlock const* CnfgLdr::GetTextBlock(char const* name) const
{
    const auto found = m_pData->mapBlock.find(name);
    return found == m_pData->mapBlock.end() ? nullptr : &found->second.block;
}

std::vector<CnfgLdr::Plugin> const& CnfgLdr::GetPlugins() const { return m_pData->vecPlugin; }

std::vector<CustImport::Dfntn> const& CnfgLdr::GetCustImports() const { return m_pData->vecImport; }
