// XmlFileTest.cpp - elements read from files and written to them
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <windows.h>

#include "../../support/TempFolder.h"
#include "host/FileBytes.h"
#include "tavkit/frame/services/XMLNode.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsNull;
using testing::StrEq;

namespace
{
/// Loads a document from a file of the test's own.
class XmlFile : public testing::Test
{
protected:
    bool Load(std::string_view document) { return m_root.Load(Write(document), nullptr); }
    DFile Write(std::string_view document) { return m_folder.Write("t.xml", document).c_str(); }
    DFile Target() const { return m_folder.Path("out.xml").c_str(); }

    support::TempFolder m_folder;
    XMLNode m_root{nullptr};
};

std::vector<std::string> ChildNames(XMLNode const& node)
{
    std::vector<std::string> names;
    for (XMLNode const* child = node.m_pFrstChld; child; child = child->m_pNext)
    {
        names.emplace_back(child->GetName());
    }
    return names;
}

std::vector<std::string> AttrNames(XMLNode const& node)
{
    std::vector<std::string> names;
    for (int i = 0; i < node.GetNumAttr(); ++i)
    {
        names.emplace_back(node.GetAttrName(i).c_str());
    }
    return names;
}

constexpr char const* kSmall = "<?xml version=\"1.0\"?><a x=\"1\"><b y='2'/><c>t</c></a>";
} // namespace

TEST_F(XmlFile, GivesNameAttributesAndElementTree)
{
    ASSERT_TRUE(Load("<Bars z='1' a='2' M='3'><Bar name='x'/><Bar name='y'><Tab/></Bar></Bars>"));
    EXPECT_THAT(m_root.GetName(), StrEq("Bars"));
    EXPECT_THAT(AttrNames(m_root), ElementsAre("z", "a", "M")) << "in the order of the file";
    ASSERT_THAT(ChildNames(m_root), ElementsAre("Bar", "Bar"));
    EXPECT_TRUE(m_root.m_pFrstChld->GetAttrStr("name") == "x");
    EXPECT_THAT(ChildNames(*m_root.m_pFrstChld->m_pNext), ElementsAre("Tab"));
    EXPECT_THAT(m_root.m_pNext, IsNull());
}

TEST_F(XmlFile, PassesOverTextCommentsSectionsAndInstructions)
{
    ASSERT_TRUE(Load(
        "<?xml version='1.0'?><!-- c --><?pi x?><a>text<!-- c --><b/>more<![CDATA[<x/>]]><?pi y?><c/></a><!-- e -->"));
    EXPECT_THAT(ChildNames(m_root), ElementsAre("b", "c"));
}

TEST_F(XmlFile, ResolvesTheFiveNamedEntitiesAndNumbers)
{
    ASSERT_TRUE(Load("<a x='&lt;&gt;&amp;&quot;&apos;&#65;&#x42;'/>"));
    EXPECT_TRUE(m_root.GetAttrStr("x") == "<>&\"'AB");
}

TEST_F(XmlFile, ReadsTheEncodingsThatAFileDeclares)
{
    ASSERT_TRUE(Load("\xEF\xBB\xBF<a x='B\xC3\xA4r'/>"));
    EXPECT_TRUE(m_root.GetAttrStr("x") == "B\xE4r");
    ASSERT_TRUE(Load("<?xml version='1.0' encoding='ISO-8859-1'?><a x='B\xE4r'/>"));
    EXPECT_TRUE(m_root.GetAttrStr("x") == "B\xE4r");
    const std::u16string wide = u"\xFEFF<a x='B\u00E4r'/>";
    ASSERT_TRUE(Load(std::string_view(reinterpret_cast<char const*>(wide.data()), wide.size() * 2)));
    EXPECT_TRUE(m_root.GetAttrStr("x") == "B\xE4r");
}

TEST_F(XmlFile, ACharacterThatTheCodePageLacksReadsAsOneQuestionMark)
{
    ASSERT_TRUE(Load("<a x='\xE6\x97\xA5|\xC4\x80|\xF0\x9F\x98\x80|\xE2\x82\xAC' \xE6\x97\xA5='1'/>"));
    EXPECT_THAT(m_root.GetAttrStr("x").c_str(), StrEq("?|?|?|\x80"));
    EXPECT_THAT(AttrNames(m_root), ElementsAre("x", "?"));
}

TEST_F(XmlFile, TheRootMayBeAskedForByName)
{
    const DFile file = Write(kSmall);
    EXPECT_TRUE(XMLNode(nullptr).Load(file, "a"));
    EXPECT_FALSE(XMLNode(nullptr).Load(file, "b"));
}

TEST_F(XmlFile, LoadingReplacesWhatTheNodeHeld)
{
    m_root.AddAttr("old", 1);
    m_root.AddChld(new XMLNode("old"));
    ASSERT_TRUE(Load(kSmall));
    EXPECT_FALSE(m_root.HasAttr("old"));
    EXPECT_THAT(ChildNames(m_root), ElementsAre("b", "c"));
}

class XmlFileRefused : public XmlFile, public testing::WithParamInterface<char const*>
{
};

TEST_P(XmlFileRefused, AFailedLoadChangesNothing)
{
    ASSERT_TRUE(Load(kSmall));
    EXPECT_FALSE(Load(GetParam()));
    EXPECT_THAT(m_root.GetName(), StrEq("a"));
    EXPECT_TRUE(m_root.GetAttrStr("x") == "1");
    EXPECT_THAT(ChildNames(m_root), ElementsAre("b", "c"));
}

INSTANTIATE_TEST_SUITE_P(
    Documents, XmlFileRefused,
    testing::Values(
        "", " \r\n", "garbage", "<", "<a", "<a>", "<a></b>", "<a/><b/>", "<a x=1/>", "<a x='1' x='2'/>",
        "<a x='1' undeclared:x='2'/>", "<a x='<'/>", "<a x='&unknown;'/>", "<a>&unknown;</a>", "<a x='\x01'/>",
        "<a>\x02</a>", "<a x='&#1;'/>", "<a x='\xFF'/>", "<a>\xC3</a>", "<!DOCTYPE a><a/>",
        "<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>", "<!DOCTYPE a SYSTEM 'file:///c:/windows/win.ini'><a/>",
        "<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///c:/windows/win.ini'>]><a>&e;</a>",
        "<!DOCTYPE a [<!ENTITY b 'xxxxxxxxxx'><!ENTITY c '&b;&b;&b;&b;'><!ENTITY d '&c;&c;&c;&c;'>]><a y='&d;'/>",
        "<a><!-- -- --></a>", "<a>]]></a>", "text<a/>", "<a/>text", "<?xml version='1.0' encoding='nonsense-8'?><a/>"));

TEST_F(XmlFile, EveryTruncationOfADocumentIsRefused)
{
    const std::string document(kSmall);
    for (std::size_t length = 0; length < document.size(); ++length)
    {
        EXPECT_FALSE(Load(std::string_view(document).substr(0, length))) << length;
    }
    EXPECT_TRUE(Load(document));
}

TEST_F(XmlFile, BinaryBytesAndZeroesAreRefused)
{
    EXPECT_FALSE(Load(std::string(1'000'000, '\0')));
    EXPECT_FALSE(Load(std::string("<a/>\0<b/>", 9)));
    std::string noise;
    for (unsigned i = 0, seed = 1; i < 4096; ++i)
    {
        seed = seed * 1103515245u + 12345u;
        noise += static_cast<char>(seed >> 16);
    }
    EXPECT_FALSE(Load(noise));
}

TEST_F(XmlFile, AMissingFileAFolderAndALockedFileAreRefused)
{
    EXPECT_FALSE(m_root.Load(DFile(nullptr), nullptr));
    EXPECT_FALSE(m_root.Load(m_folder.Path("none.xml").c_str(), nullptr));
    EXPECT_FALSE(m_root.Load(m_folder.MakeFolder("sub").c_str(), nullptr));
    const DFile file = Write(kSmall);
    const host::FileHandle exclusive(::CreateFileA(file.GetMoniker().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                                   FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(exclusive.IsValid());
    EXPECT_FALSE(m_root.Load(file, nullptr));
    EXPECT_THAT(m_root.GetName(), StrEq(""));
}

TEST_F(XmlFile, AFileLargerThanTheLimitIsRefusedUnread)
{
    const DFile file = Write("<a/>");
    const host::FileHandle handle(::CreateFileA(file.GetMoniker().c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                                FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size;
    size.QuadPart = 4LL * 1024 * 1024 * 1024; // sparse: four gigabytes of zeroes
    ASSERT_TRUE(::SetFilePointerEx(handle.Get(), size, nullptr, FILE_BEGIN) && ::SetEndOfFile(handle.Get()));
    EXPECT_FALSE(m_root.Load(file, nullptr));
}

TEST_F(XmlFile, WhatWasSavedLoadsAgain)
{
    XMLNode saved("Bars");
    saved.AddAttr("text", "<&>\"'\t\r\n  B\xE4r \x80");
    saved.AddAttr("width", 150);
    saved.AddAttr("visible", true);
    saved.AddChld(new XMLNode("B\xE4r"));
    saved.m_pFrstChld->AddAttr("a", "");
    saved.AddChld(new XMLNode("second"));
    ASSERT_TRUE(saved.Save(Target()));
    ASSERT_TRUE(m_root.Load(Target(), "Bars"));
    EXPECT_THAT(AttrNames(m_root), ElementsAre("text", "width", "visible"));
    EXPECT_THAT(m_root.GetAttrStr("text").c_str(), StrEq("<&>\"'\t\r\n  B\xE4r \x80"));
    EXPECT_EQ(m_root.GetAttrInt("width"), 150);
    EXPECT_TRUE(m_root.GetAttrBool("visible"));
    EXPECT_THAT(ChildNames(m_root), ElementsAre("B\xE4r", "second"));
    EXPECT_TRUE(m_root.m_pFrstChld->HasAttr("a"));
}

TEST_F(XmlFile, IsWrittenAsUtf8WithOneElementOnALine)
{
    XMLNode saved("a");
    saved.AddAttr("x", "B\xE4r<&>\"\t\r\n");
    saved.AddChld(new XMLNode("b"));
    saved.m_pFrstChld->AddChld(new XMLNode("c"));
    saved.AddChld(new XMLNode("d"));
    ASSERT_TRUE(saved.Save(Target()));
    EXPECT_EQ(m_folder.Read("out.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
                                        "<a x=\"B\xC3\xA4r&lt;&amp;&gt;&quot;&#9;&#13;&#10;\">\r\n"
                                        "  <b>\r\n"
                                        "    <c/>\r\n"
                                        "  </b>\r\n"
                                        "  <d/>\r\n"
                                        "</a>\r\n");
}

TEST_F(XmlFile, TheRootsOwnSiblingsAreNotWritten)
{
    XMLNode sibling("b");
    XMLNode saved("a");
    saved.m_pNext = &sibling;
    ASSERT_TRUE(saved.Save(Target()));
    EXPECT_THAT(m_folder.Read("out.xml"), HasSubstr("<a/>"));
    EXPECT_THAT(m_folder.Read("out.xml"), testing::Not(HasSubstr("<b/>")));
}

TEST_F(XmlFile, WhatIsNoXmlIsNotWrittenAndTheOldFileStays)
{
    m_folder.Write("out.xml", "old");
    for (char const* name : {"", "a b", "1a", "-a", "a<", "a?", "\xD7", "a\x01"})
    {
        EXPECT_FALSE(XMLNode(name).Save(Target())) << name;
        XMLNode attribute("a");
        attribute.AddAttr(name, "x");
        EXPECT_EQ(attribute.Save(m_folder.Path("attr.xml").c_str()), !*name) << name;
    }
    EXPECT_FALSE(XMLNode(nullptr).Save(Target()));
    XMLNode control("a");
    control.AddAttr("x", "\x01");
    EXPECT_FALSE(control.Save(Target()));
    EXPECT_EQ(m_folder.Read("out.xml"), "old");
}

TEST_F(XmlFile, SavingWhereNothingCanBeWrittenAnswersFalse)
{
    const XMLNode saved("a");
    EXPECT_FALSE(saved.Save(m_folder.MakeFolder("sub").c_str()));
    EXPECT_FALSE(saved.Save(m_folder.Path("none\\out.xml").c_str()));
    EXPECT_FALSE(saved.Save(DFile(nullptr)));
    EXPECT_THAT(m_folder.Names(), ElementsAre("sub"));
}

namespace
{
/// A chain of @p depth elements.
std::unique_ptr<XMLNode> Chain(unsigned depth)
{
    auto root = std::make_unique<XMLNode>("n");
    XMLNode* deepest = root.get();
    for (unsigned i = 1; i < depth; ++i)
    {
        deepest->AddChld(new XMLNode("n"));
        deepest = deepest->m_pFrstChld;
    }
    return root;
}

unsigned DepthOf(XMLNode const& root)
{
    unsigned depth = 0;
    for (XMLNode const* node = &root; node; node = node->m_pFrstChld)
    {
        ++depth;
    }
    return depth;
}
} // namespace

TEST_F(XmlFile, ADeepFileIsReadDownToTheLimit)
{
    constexpr unsigned kDepth = XMLNode::kMaxDepth;
    ASSERT_TRUE(Chain(kDepth)->Save(Target()));
    ASSERT_TRUE(m_root.Load(Target(), nullptr));
    EXPECT_EQ(DepthOf(m_root), kDepth);
    ASSERT_TRUE(Chain(kDepth + 1)->Save(Target()));
    EXPECT_FALSE(m_root.Load(Target(), nullptr));
    EXPECT_EQ(DepthOf(m_root), kDepth) << "the node is as it was";
}

TEST_F(XmlFile, ATreeOfAnyDepthIsWrittenAndADeeperFileRefusedWithoutTheStack)
{
    ASSERT_TRUE(Chain(20'000)->Save(Target()));
    EXPECT_FALSE(m_root.Load(Target(), nullptr));
}

TEST_F(XmlFile, NamesKeepTheirNamespacePrefix)
{
    ASSERT_TRUE(Load("<p:a xmlns:p='u' p:x='1'><p:b/></p:a>"));
    EXPECT_THAT(m_root.GetName(), StrEq("p:a"));
    EXPECT_TRUE(m_root.GetAttrStr("p:x") == "1");
    EXPECT_THAT(ChildNames(m_root), ElementsAre("p:b"));
}

TEST_F(XmlFile, AnAttributeOfSomeMegabytesIsRead)
{
    const std::string value(4u * 1000 * 1000, 'v');
    ASSERT_TRUE(Load("<a x='" + value + "'/>"));
    EXPECT_EQ(m_root.GetAttrStr("x").GetLength(), static_cast<int>(value.size()));
}
