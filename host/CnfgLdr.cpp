// CnfgLdr.cpp
#include "tavkit/frame/services/CnfgLdr.h"

#include <charconv>
#include <cstring>
#include <map>
#include <string_view>

#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/XMLNode.h"

namespace
{
constexpr char const* kRoot = "Product";
constexpr char const* kFolder = "Folder";
constexpr char const* kTextBlock = "TextBlock";

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
} // namespace

struct CnfgLdr::Data
{
    std::map<DString, DString, DStringLess> mapFolder;
    std::map<DString, OwnedBlock, DStringLess> mapBlock;

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

    /// Takes a whole product configuration; false if any part of it contradicts what is expected.
    bool Read(XMLNode const& root)
    {
        for (XMLNode const* node = root.m_pFrstChld; node; node = node->m_pNext)
        {
            if ((std::strcmp(node->GetName(), kFolder) == 0 && !AddFolder(*node)) ||
                (std::strcmp(node->GetName(), kTextBlock) == 0 && !AddBlock(*node)))
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
