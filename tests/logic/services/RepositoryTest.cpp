// RepositoryTest.cpp - names of items, and the registry of the repository drivers
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tavkit/frame/services/BDIDrvrMngr.h"
#include "tavkit/frame/services/BDIMoniker.h"

using testing::IsNull;
using testing::NotNull;
using testing::StrEq;

namespace
{
/// A repository in memory that counts what is open.
class MemoryDrvr : public BDIDrvr
{
public:
    std::map<std::string, std::string> m_displayById;
    int m_openNodes = 0;
    int m_openRepositories = 0;
    int m_openCalls = 0;
    bool m_nodeOutlivedRepository = false;
    std::string m_lastPath;

    void* OpenRepository(char const* path, BDINode** root) override
    {
        ++m_openCalls;
        m_lastPath = path;
        if (m_displayById.empty())
        {
            *root = nullptr;
            return nullptr;
        }
        ++m_openRepositories;
        *root = NewNode(path, "root");
        return this;
    }
    void CloseRepository(void*) override
    {
        m_nodeOutlivedRepository = m_nodeOutlivedRepository || m_openNodes >= m_openRepositories + 1;
        --m_openRepositories;
    }
    BDINode* OpenNode(void*, char const* id) override
    {
        const auto found = m_displayById.find(id);
        return found == m_displayById.end() ? nullptr : NewNode(id, found->second.c_str());
    }
    void CloseNode(BDINode* node) override
    {
        --m_openNodes;
        delete node;
    }
    void* FindFirstChildNode(BDINode const*, int) override { return nullptr; }
    BDINode* FindNextChildNode(void*&) override { return nullptr; }
    void FindClose(void*) override {}
    DString GetDriverParameterString(BDINode const*) override { return ""; }

private:
    BDINode* NewNode(char const* id, char const* display)
    {
        ++m_openNodes;
        return new BDINode{nullptr, bdiRaster, id, display};
    }
};

/// Registers for the length of a test.
class Registered
{
public:
    Registered(char const* id, char const* formats, BDIDrvr& driver) : m_driver(driver)
    {
        EXPECT_TRUE(BDIDrvrMngr::Instance()->Register(id, formats, &driver));
    }
    ~Registered() { BDIDrvrMngr::Instance()->Unregister(&m_driver); }

private:
    BDIDrvr& m_driver;
};
} // namespace

TEST(BDIMonikerText, HasFourForms)
{
    const BDIMoniker moniker("C:\\d\\slides.tif?page=2", nullptr);
    EXPECT_THAT(moniker.GetMoniker().c_str(), StrEq("C:\\d\\slides.tif?page=2"));
    EXPECT_THAT(moniker.GetPathOnDisk().c_str(), StrEq("C:\\d\\slides.tif"));
    EXPECT_THAT(moniker.GetDisplayName().c_str(), StrEq("slides.tif?page=2"));
    EXPECT_THAT(moniker.GetFrmtExtn().c_str(), StrEq("tif"));
}

TEST(BDIMonikerText, IsNeverMadeAbsolute)
{
    const BDIMoniker here(".", nullptr);
    EXPECT_THAT(here.GetPathOnDisk().c_str(), StrEq("."));
    EXPECT_THAT(here.GetDisplayName().c_str(), StrEq("."));
    EXPECT_THAT(here.GetFrmtExtn().c_str(), StrEq(""));
    EXPECT_THAT(BDIMoniker("a/b.csv", nullptr).GetPathOnDisk().c_str(), StrEq("a/b.csv"));
}

TEST(BDIMonikerText, NullAndAFolderAreNamesToo)
{
    const BDIMoniker none(nullptr, nullptr);
    EXPECT_THAT(none.GetMoniker().c_str(), StrEq(""));
    EXPECT_THAT(none.GetDisplayName().c_str(), StrEq(""));
    EXPECT_THAT(BDIMoniker("C:\\d\\", nullptr).GetDisplayName().c_str(), StrEq("C:\\d\\"));
}

TEST(BDIMonikerNode, IsNullOutsideARepository)
{
    const BDIMoniker plain("a.tif", nullptr);
    EXPECT_THAT(plain.GetNode(), IsNull());
    EXPECT_THAT(plain.GetDrvr(), IsNull());
}

TEST(BDIMonikerNode, IsOpenedOnceAndKeptUntilTheMonikerDies)
{
    MemoryDrvr driver;
    driver.m_displayById["f.tif?page=2"] = "Page 2";
    {
        const BDIMoniker moniker("f.tif?page=2", &driver);
        EXPECT_EQ(driver.m_openCalls, 0);
        BDINode const* const node = moniker.GetNode();
        ASSERT_THAT(node, NotNull());
        EXPECT_TRUE(node->m_strId == "f.tif?page=2");
        EXPECT_EQ(moniker.GetNode(), node);
        EXPECT_EQ(driver.m_openCalls, 1);
        EXPECT_EQ(driver.m_lastPath, "f.tif");
        EXPECT_EQ(driver.m_openNodes, 1) << "the root node isn't kept";
        EXPECT_TRUE(moniker.GetDisplayName() == "Page 2");
    }
    EXPECT_EQ(driver.m_openNodes, 0);
    EXPECT_EQ(driver.m_openRepositories, 0);
    EXPECT_FALSE(driver.m_nodeOutlivedRepository);
}

TEST(BDIMonikerNode, IsNullForAnItemThatTheDriverDoesNotFindAndIsAskedForOnce)
{
    MemoryDrvr driver;
    const BDIMoniker lost("f.tif", &driver);
    EXPECT_THAT(lost.GetNode(), IsNull());
    EXPECT_THAT(lost.GetNode(), IsNull());
    EXPECT_EQ(driver.m_openCalls, 1);
    EXPECT_TRUE(lost.GetDisplayName() == "f.tif");
    driver.m_displayById["other"] = "x";
    {
        const BDIMoniker missing("f.tif", &driver);
        EXPECT_THAT(missing.GetNode(), IsNull());
        EXPECT_EQ(driver.m_openRepositories, 1);
    }
    EXPECT_EQ(driver.m_openRepositories, 0);
    EXPECT_EQ(driver.m_openNodes, 0);
}

TEST(BDIMonikerNode, IsClosedWhenTheDriverIsTakenAway)
{
    MemoryDrvr driver;
    driver.m_displayById["f.tif"] = "f";
    BDIMoniker moniker("f.tif", &driver);
    ASSERT_THAT(moniker.GetNode(), NotNull());
    moniker.SetDrvr(&driver);
    EXPECT_EQ(driver.m_openNodes, 1) << "the same driver changes nothing";
    moniker.SetDrvr(nullptr);
    EXPECT_EQ(driver.m_openNodes, 0);
    EXPECT_EQ(driver.m_openRepositories, 0);
    EXPECT_THAT(moniker.GetNode(), IsNull());
    EXPECT_THAT(moniker.GetMoniker().c_str(), StrEq("f.tif"));
    moniker.SetDrvr(&driver);
    EXPECT_THAT(moniker.GetNode(), NotNull());
}

TEST(BDIMonikerValue, ACopyOpensANodeOfItsOwn)
{
    MemoryDrvr driver;
    driver.m_displayById["f.tif"] = "f";
    auto first = std::make_unique<BDIMoniker>("f.tif", &driver);
    BDINode const* const node = first->GetNode();
    BDIMoniker second(*first);
    BDIMoniker third("x", nullptr);
    third = *first;
    EXPECT_NE(second.GetNode(), node);
    first.reset();
    EXPECT_TRUE(second.GetNode()->m_strDisplay == "f");
    EXPECT_TRUE(third.GetNode()->m_strDisplay == "f");
    BDIMoniker const& alias = third;
    third = alias;
    EXPECT_TRUE(third.GetMoniker() == "f.tif");
    third = BDIMoniker("plain", nullptr);
    EXPECT_EQ(driver.m_openNodes, 1);
    EXPECT_THAT(third.GetNode(), IsNull());
}

TEST(BDIDrvrMngrLookup, GivesNullWhenNothingMatches)
{
    BDIDrvrMngr* const manager = BDIDrvrMngr::Instance();
    EXPECT_EQ(manager, BDIDrvrMngr::Instance());
    EXPECT_THAT(manager->GetDrvr("nobody"), IsNull());
    EXPECT_THAT(manager->GetDrvr(nullptr), IsNull());
    EXPECT_THAT(manager->GetDrvr(""), IsNull());
    EXPECT_THAT(manager->FindDriverByFrmt("nothing"), IsNull());
    EXPECT_THAT(manager->FindDriverByFrmt(nullptr), IsNull());
    EXPECT_THAT(manager->FindDriverByFrmt(""), IsNull());
}

TEST(BDIDrvrMngrLookup, FindsByNameAndByEachFormatExactly)
{
    MemoryDrvr driver;
    const Registered registered("memory", "TIFF;BTF", driver);
    BDIDrvrMngr* const manager = BDIDrvrMngr::Instance();
    EXPECT_EQ(manager->GetDrvr("memory"), &driver);
    EXPECT_THAT(manager->GetDrvr("Memory"), IsNull());
    EXPECT_EQ(manager->FindDriverByFrmt("TIFF"), &driver);
    EXPECT_EQ(manager->FindDriverByFrmt("BTF"), &driver);
    EXPECT_THAT(manager->FindDriverByFrmt("TIF"), IsNull());
    EXPECT_THAT(manager->FindDriverByFrmt("TIFF;BTF"), IsNull());
}

TEST(BDIDrvrMngrLookup, AFormatBelongsToTheDriverRegisteredLast)
{
    MemoryDrvr first;
    MemoryDrvr second;
    const Registered one("one", "TIFF", first);
    {
        const Registered two("two", "TIFF", second);
        EXPECT_EQ(BDIDrvrMngr::Instance()->FindDriverByFrmt("TIFF"), &second);
    }
    EXPECT_EQ(BDIDrvrMngr::Instance()->FindDriverByFrmt("TIFF"), &first);
}

TEST(BDIDrvrMngrRegister, RefusesNamesThatAreMissingOrTaken)
{
    MemoryDrvr first;
    MemoryDrvr second;
    BDIDrvrMngr* const manager = BDIDrvrMngr::Instance();
    const Registered one("one", nullptr, first);
    EXPECT_FALSE(manager->Register("one", "TIFF", &second));
    EXPECT_FALSE(manager->Register(nullptr, "TIFF", &second));
    EXPECT_FALSE(manager->Register("", "TIFF", &second));
    EXPECT_FALSE(manager->Register("two", "TIFF", nullptr));
    EXPECT_THAT(manager->FindDriverByFrmt("TIFF"), IsNull());
    manager->Unregister(&second);
    manager->Unregister(nullptr);
    EXPECT_EQ(manager->GetDrvr("one"), &first);
}
