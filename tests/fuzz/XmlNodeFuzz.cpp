// XmlNodeFuzz.cpp - any bytes as a document: refused without a trace, or a tree that can be walked and, saved, comes
// back
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "../support/TempFolder.h"
#include "tavkit/frame/services/XMLNode.h"

namespace
{
/// A text that two trees have in common exactly when they are equal.
void Describe(XMLNode const& root, std::string& text)
{
    text += root.GetName();
    for (int i = 0; i < root.GetNumAttr(); ++i)
    {
        const DString name = root.GetAttrName(i);
        text += std::string(" ") + name.c_str() + "=" + root.GetAttrStr(name.c_str()).c_str();
    }
    text += "(";
    for (XMLNode const* child = root.m_pFrstChld; child; child = child->m_pNext)
    {
        Describe(*child, text); // no deeper than a file may be
    }
    text += ")";
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static const support::TempFolder folder;
    const std::string path = folder.Write("in.xml", std::string_view(reinterpret_cast<char const*>(data), size));
    XMLNode root("untouched");
    root.AddAttr("a", 1);
    if (!root.Load(path.c_str(), nullptr))
    {
        if (std::string_view(root.GetName()) != "untouched" || root.GetAttrInt("a") != 1 || root.m_pFrstChld)
        {
            std::abort();
        }
        return 0;
    }
    // A name with a character that the code page lacks can't be written again; everything else comes back as it was.
    const std::string saved = folder.Path("out.xml");
    if (root.Save(saved.c_str()))
    {
        XMLNode again(nullptr);
        std::string before;
        std::string after;
        Describe(root, before);
        if (again.Load(saved.c_str(), nullptr))
        {
            Describe(again, after);
        }
        if (before != after)
        {
            std::printf("Saved: %s\nLoaded: %s\n", before.c_str(), after.c_str());
            std::abort();
        }
    }
    return 0;
}
