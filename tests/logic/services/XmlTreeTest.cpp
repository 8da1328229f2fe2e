// XmlTreeTest.cpp - elements, attributes and children, without a file
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tavkit/frame/services/XMLNode.h"

using testing::ElementsAre;
using testing::IsNull;
using testing::StrEq;

namespace
{
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
} // namespace

TEST(XMLNodeName, IsNeverNull)
{
    EXPECT_THAT(XMLNode("Bar").GetName(), StrEq("Bar"));
    EXPECT_THAT(XMLNode(nullptr).GetName(), StrEq(""));
}

TEST(XMLNodeAttributes, KeepTheirOrderAndAReplacedOneItsPlace)
{
    XMLNode node("Bar");
    node.AddAttr("Width", 150);
    node.AddAttr("Visible", true);
    node.AddAttr("Title", "Tools");
    node.AddAttr("Visible", false);
    EXPECT_THAT(AttrNames(node), ElementsAre("Width", "Visible", "Title"));
    EXPECT_TRUE(node.GetAttrStr("Visible") == "false");
    EXPECT_TRUE(node.GetAttrStr("Width") == "150");
    EXPECT_TRUE(node.GetAttrName(-1) == "");
    EXPECT_TRUE(node.GetAttrName(3) == "");
}

TEST(XMLNodeAttributes, MissingOnesReadAsNothing)
{
    const XMLNode node("Bar");
    EXPECT_FALSE(node.HasAttr("x"));
    EXPECT_FALSE(node.HasAttr(nullptr));
    EXPECT_TRUE(node.GetAttrStr("x") == "");
    EXPECT_EQ(node.GetAttrInt("x"), 0);
    EXPECT_FALSE(node.GetAttrBool("x"));
}

TEST(XMLNodeAttributes, WithoutANameAreIgnoredAndWithoutATextAreEmpty)
{
    XMLNode node("Bar");
    node.AddAttr(nullptr, 1);
    node.AddAttr("", "x");
    EXPECT_EQ(node.GetNumAttr(), 0);
    node.AddAttr("a", static_cast<char const*>(nullptr));
    EXPECT_TRUE(node.HasAttr("a"));
    EXPECT_TRUE(node.GetAttrStr("a") == "");
}

TEST(XMLNodeAttributes, NamesAreCaseSensitive)
{
    XMLNode node("Bar");
    node.AddAttr("width", 1);
    EXPECT_FALSE(node.HasAttr("Width"));
}

struct Reading
{
    char const* text;
    int number;
    bool truth;
};

class XMLNodeReading : public testing::TestWithParam<Reading>
{
};

TEST_P(XMLNodeReading, OfNumbersAndTruths)
{
    XMLNode node("n");
    node.AddAttr("a", GetParam().text);
    EXPECT_EQ(node.GetAttrInt("a"), GetParam().number) << GetParam().text;
    EXPECT_EQ(node.GetAttrBool("a"), GetParam().truth) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Texts, XMLNodeReading,
                         testing::Values(Reading{"1", 1, true}, Reading{"0", 0, false}, Reading{"3", 3, true},
                                         Reading{"-1", -1, true}, Reading{"+7", 7, true}, Reading{" 42 ", 42, true},
                                         Reading{"true", 0, true}, Reading{"false", 0, false},
                                         Reading{"TRUE", 0, false}, Reading{"", 0, false}, Reading{"abc", 0, false},
                                         Reading{"12abc", 12, true}, Reading{"+", 0, false}, Reading{"+-3", 0, false},
                                         Reading{"2147483647", 2147483647, true},
                                         Reading{"99999999999999999999", 2147483647, true},
                                         Reading{"-99999999999999999999", -2147483647 - 1, true}));

TEST(XMLNodeChildren, StandInTheOrderInWhichTheyCame)
{
    XMLNode root("root");
    EXPECT_THAT(root.m_pFrstChld, IsNull());
    root.AddChld(new XMLNode("a"));
    root.AddChld(nullptr);
    root.AddChld(new XMLNode("b"));
    root.AddChld(new XMLNode("c"));
    EXPECT_THAT(ChildNames(root), ElementsAre("a", "b", "c"));
    EXPECT_THAT(root.m_pNext, IsNull());
}

TEST(XMLNodeChildren, LinkedByHandAreFoundWhenFurtherOnesCome)
{
    XMLNode root("root");
    root.m_pFrstChld = new XMLNode("a");
    root.m_pFrstChld->m_pNext = new XMLNode("b");
    root.AddChld(new XMLNode("c"));
    root.m_pFrstChld->m_pNext->m_pNext->m_pNext = new XMLNode("d");
    root.AddChld(new XMLNode("e"));
    EXPECT_THAT(ChildNames(root), ElementsAre("a", "b", "c", "d", "e"));
}

TEST(XMLNodeChildren, AreTakenOutOneByOne)
{
    XMLNode root("root");
    for (char const* name : {"a", "b", "c"})
    {
        root.AddChld(new XMLNode(name));
    }
    const std::unique_ptr<XMLNode> last(root.RmvChld(root.m_pFrstChld->m_pNext->m_pNext));
    EXPECT_THAT(last->GetName(), StrEq("c"));
    root.AddChld(new XMLNode("d"));
    const std::unique_ptr<XMLNode> first(root.RmvChld(root.m_pFrstChld));
    EXPECT_THAT(first->m_pNext, IsNull());
    EXPECT_THAT(ChildNames(root), ElementsAre("b", "d"));
    EXPECT_THAT(root.RmvChld(first.get()), IsNull());
    EXPECT_THAT(root.RmvChld(nullptr), IsNull());
}

TEST(XMLNodeChildren, AHundredThousandAreAddedInConstantTimeEach)
{
    XMLNode root("root");
    for (int i = 0; i < 100'000; ++i)
    {
        root.AddChld(new XMLNode("n"));
    }
    EXPECT_EQ(ChildNames(root).size(), 100'000u);
}

TEST(XMLNodeDepth, AMillionLevelsAreDeletedWithoutTheStack)
{
    auto root = std::make_unique<XMLNode>("root");
    XMLNode* deepest = root.get();
    for (int i = 0; i < 1'000'000; ++i)
    {
        auto* const child = new XMLNode("n");
        deepest->AddChld(new XMLNode("leaf"));
        deepest->AddChld(child);
        deepest = child;
    }
    root.reset();
}
