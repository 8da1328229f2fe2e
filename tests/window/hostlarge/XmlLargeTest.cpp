// XmlLargeTest.cpp - a large document, in a program of its own: its memory would spoil what others measure of theirs
#include <string>
#include <string_view>

#include <gmock/gmock.h>

#include "../../support/TempFolder.h"
#include "tavkit/frame/services/XMLNode.h"

TEST(XmlLargeFile, FiftyMegabytesAreRead)
{
    constexpr std::size_t kBytes = 50u * 1000 * 1000;
    constexpr std::string_view kRow =
        "<row id=\"123456\" name=\"nucleus with a name of some length\" area=\"12.5\"/>\n";
    std::string document = "<rows>";
    std::size_t rows = 0;
    while (document.size() < kBytes)
    {
        document += kRow;
        ++rows;
    }
    document += "</rows>";
    const support::TempFolder folder;
    XMLNode root(nullptr);
    ASSERT_TRUE(root.Load(folder.Write("large.xml", document).c_str(), "rows"));
    std::size_t children = 0;
    for (XMLNode const* child = root.m_pFrstChld; child; child = child->m_pNext)
    {
        ++children;
    }
    EXPECT_EQ(children, rows);
    EXPECT_TRUE(root.m_pFrstChld->GetAttrStr("area") == "12.5");
}
