// CnfgLdrTest.cpp - the product configuration
#include <string>

#include <gmock/gmock.h>

#include "../../support/TempFolder.h"
#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/CnfgLdr.h"

using testing::IsNull;
using testing::NotNull;
using testing::StrEq;

namespace
{
constexpr char const* kGood =
    "<?xml version=\"1.0\"?>\r\n"
    "<Product><Folder category=\"Images\" path=\"InstallDir\\Examples;My Documents\"/>"
    "<TextBlock name=\"About\" x=\"20\" y=\"-16\" font=\"Tahoma\" height=\"18\" weight=\"700\""
    " color=\"#203040\" text=\"TavKit\"/></Product>";

class ProductFile : public testing::Test
{
protected:
    void SetUp() override { m_loader->Reset(); }
    void TearDown() override { m_loader->Reset(); }

    bool Load(std::string_view document) { return m_loader->Load(m_folder.Write("p.xml", document).c_str()); }

    /// A good file is loaded first: a bad one after it must leave nothing of it.
    void ExpectRefused(std::string_view document)
    {
        ASSERT_TRUE(Load(kGood));
        EXPECT_FALSE(Load(document)) << document;
        EXPECT_THAT(m_loader->GetDfltFldr("Images", "dflt").c_str(), StrEq("dflt")) << document;
        EXPECT_THAT(m_loader->GetTextBlock("About"), IsNull()) << document;
    }

    support::TempFolder m_folder;
    CnfgLdr* m_loader = CnfgLdr::Instance();
};
} // namespace

TEST_F(ProductFile, NamesTheDefaultFoldersOfACategory)
{
    ASSERT_TRUE(Load(kGood));
    EXPECT_THAT(m_loader->GetDfltFldr("Images", "dflt").c_str(), StrEq("InstallDir\\Examples;My Documents"));
    EXPECT_THAT(m_loader->GetDfltFldr("images", "dflt").c_str(), StrEq("dflt")) << "categories are exact";
    EXPECT_THAT(m_loader->GetDfltFldr("Tables", "dflt").c_str(), StrEq("dflt"));
    EXPECT_THAT(m_loader->GetDfltFldr("Tables", nullptr).c_str(), StrEq(""));
    EXPECT_THAT(m_loader->GetDfltFldr(DString(), "dflt").c_str(), StrEq("dflt"));
}

TEST_F(ProductFile, HoldsTextBlocks)
{
    ASSERT_TRUE(Load(kGood));
    CnfgLdr::TextBlock const* const block = m_loader->GetTextBlock("About");
    ASSERT_THAT(block, NotNull());
    EXPECT_EQ(block->x, 20);
    EXPECT_EQ(block->y, -16);
    EXPECT_THAT(block->pszFont, StrEq("Tahoma"));
    EXPECT_EQ(block->nHeight, 18);
    EXPECT_EQ(block->nWeight, 700);
    EXPECT_EQ(block->crColor, 0x403020u);
    EXPECT_TRUE(block->strText == "TavKit");
    EXPECT_THAT(m_loader->GetTextBlock("Other"), IsNull());
    EXPECT_THAT(m_loader->GetTextBlock(nullptr), IsNull());
}

TEST_F(ProductFile, WhatABlockDoesNotNameIsZero)
{
    ASSERT_TRUE(Load("<Product><TextBlock name='b'/></Product>"));
    CnfgLdr::TextBlock const* const block = m_loader->GetTextBlock("b");
    ASSERT_THAT(block, NotNull());
    EXPECT_EQ(block->x, 0);
    EXPECT_THAT(block->pszFont, StrEq(""));
    EXPECT_EQ(block->crColor, 0u);
    EXPECT_TRUE(block->strText == "");
}

TEST_F(ProductFile, ALaterElementOfTheSameNameWinsAndUnknownOnesArePassedOver)
{
    ASSERT_TRUE(
        Load("<Product><Folder category='a' path='1'/><Other><Folder category='b' path='x'/></Other>"
             "<Folder category='a' path='2'/><TextBlock name='t' font='A'/><TextBlock name='t' font='B'/></Product>"));
    EXPECT_TRUE(m_loader->GetDfltFldr("a", "") == "2");
    EXPECT_TRUE(m_loader->GetDfltFldr("b", "dflt") == "dflt");
    EXPECT_THAT(m_loader->GetTextBlock("t")->pszFont, StrEq("B"));
}

TEST_F(ProductFile, ASecondFileReplacesTheFirstWhole)
{
    ASSERT_TRUE(Load(kGood));
    ASSERT_TRUE(Load("<Product/>"));
    EXPECT_TRUE(m_loader->GetDfltFldr("Images", "dflt") == "dflt");
    EXPECT_THAT(m_loader->GetTextBlock("About"), IsNull());
}

TEST_F(ProductFile, AHostileOneGivesFalseAndLeavesTheDefaults)
{
    for (char const* document : {"",
                                 "garbage",
                                 "<Other/>",
                                 "<product/>",
                                 "<Product><Folder path='x'/></Product>",
                                 "<Product><Folder category='' path='x'/></Product>",
                                 "<Product><Folder category='a'/></Product>",
                                 "<Product><TextBlock x='1'/></Product>",
                                 "<Product><TextBlock name='a' x='one'/></Product>",
                                 "<Product><TextBlock name='a' x='1.5'/></Product>",
                                 "<Product><TextBlock name='a' x=''/></Product>",
                                 "<Product><TextBlock name='a' x='32768'/></Product>",
                                 "<Product><TextBlock name='a' y='-32768'/></Product>",
                                 "<Product><TextBlock name='a' height='99999999999999'/></Product>",
                                 "<Product><TextBlock name='a' weight='-1'/></Product>",
                                 "<Product><TextBlock name='a' weight='1001'/></Product>",
                                 "<Product><TextBlock name='a' color='red'/></Product>",
                                 "<Product><TextBlock name='a' color='#12345'/></Product>",
                                 "<Product><TextBlock name='a' color='#1234567'/></Product>",
                                 "<Product><TextBlock name='a' color='#12345G'/></Product>",
                                 "<Product><TextBlock name='a' color='#+12345'/></Product>",
                                 "<!DOCTYPE Product><Product/>"})
    {
        ExpectRefused(document);
    }
}

TEST_F(ProductFile, EveryTruncationIsRefused)
{
    const std::string document(kGood);
    for (std::size_t length = 0; length < document.size(); ++length)
    {
        EXPECT_FALSE(Load(std::string_view(document).substr(0, length))) << length;
        EXPECT_TRUE(m_loader->GetDfltFldr("Images", "dflt") == "dflt");
    }
}

TEST_F(ProductFile, AMissingFileAndAFolderGiveFalse)
{
    EXPECT_FALSE(m_loader->Load(m_folder.Path("none.xml").c_str()));
    EXPECT_FALSE(m_loader->Load(m_folder.MakeFolder("sub").c_str()));
    EXPECT_FALSE(m_loader->Load(DFile(nullptr)));
}

TEST_F(ProductFile, TheFieldsOfABlockStandInTheirOrder)
{
    const CnfgLdr::TextBlock block;
    auto const* const start = reinterpret_cast<char const*>(&block);
    EXPECT_EQ(reinterpret_cast<char const*>(&block.x) - start, 0);
    EXPECT_EQ(reinterpret_cast<char const*>(&block.y) - start, 4);
    EXPECT_EQ(reinterpret_cast<char const*>(&block.pszFont) - start, 8);
    EXPECT_EQ(reinterpret_cast<char const*>(&block.nHeight) - start, 16);
    EXPECT_EQ(reinterpret_cast<char const*>(&block.nWeight) - start, 20);
    EXPECT_EQ(reinterpret_cast<char const*>(&block.crColor) - start, 24);
    EXPECT_EQ(reinterpret_cast<char const*>(&block.strText) - start, 32);
}
