// RepositoryDrvrTest.cpp - what the driver gives out, gets back and counts
#include <new>
#include <string>
#include <utility>

#include <gmock/gmock.h>

#include "host/repository/RepositoryDrvr.h"
#include "tavkit/frame/services/BDIMoniker.h"

namespace
{
using namespace repository;
using testing::ElementsAre;
using testing::IsNull;
using testing::NotNull;
using testing::StrEq;

/// What a test's repository holds; outlives it.
struct Content
{
    std::vector<NodeRecord> children{{bdiRaster, "r/a", "A"}, {bdiContainer, "r/c", "C"}, {bdiTable, "r/t", "T"}};
    bool outOfMemory = false;
    int alive = 0; ///< repositories
};

class Shelf : public Repository
{
public:
    explicit Shelf(Content& content) : m_content(content) { ++m_content.alive; }
    ~Shelf() override { --m_content.alive; }

    NodeRecord Root() const override
    {
        CheckMemory();
        return {bdiContainer, "r", "Root"};
    }
    std::optional<NodeRecord> Find(std::string_view id) const override
    {
        CheckMemory();
        for (const NodeRecord& child : m_content.children)
        {
            if (child.id == id)
            {
                return child;
            }
        }
        return std::nullopt;
    }
    std::vector<NodeRecord> Children(const BDINode& parent, unsigned int mask) const override
    {
        CheckMemory();
        std::vector<NodeRecord> found;
        for (const NodeRecord& child : m_content.children)
        {
            if (parent.m_strId == "r" && (child.kind & mask) != 0)
            {
                found.push_back(child);
            }
        }
        return found;
    }
    std::string Parameters(const BDINode& node) const override
    {
        CheckMemory();
        return std::string("of ") + node.m_strId.c_str();
    }

private:
    void CheckMemory() const
    {
        if (m_content.outOfMemory)
        {
            throw std::bad_alloc();
        }
    }

    Content& m_content;
};

class RepositoryDrvrTest : public testing::Test
{
protected:
    /// The names of a walk's nodes, each closed at once.
    std::vector<std::string> Walk(BDINode const* node, int mask)
    {
        std::vector<std::string> names;
        if (void* find = m_driver.FindFirstChildNode(node, mask))
        {
            while (BDINode* const child = m_driver.FindNextChildNode(find))
            {
                names.emplace_back(child->m_strDisplay.c_str());
                m_driver.CloseNode(child);
            }
            EXPECT_THAT(m_driver.FindNextChildNode(find), IsNull()) << "the end stays the end";
            m_driver.FindClose(find);
        }
        return names;
    }

    Content m_content;
    RepositoryDrvr m_driver{[this](std::string_view path) -> std::unique_ptr<Repository> {
        return path == "r" ? std::make_unique<Shelf>(m_content) : nullptr;
    }};
};
} // namespace

TEST_F(RepositoryDrvrTest, CountsAllThatIsOpen)
{
    BDINode* root = nullptr;
    void* const repository = m_driver.OpenRepository("r", &root);
    ASSERT_THAT(repository, NotNull());
    ASSERT_THAT(root, NotNull());
    EXPECT_EQ(m_driver.Live(), (LiveCounts{1, 1, 0}));
    BDINode* const node = m_driver.OpenNode(repository, "r/t");
    ASSERT_THAT(node, NotNull());
    EXPECT_EQ(m_driver.Live(), (LiveCounts{1, 2, 0}));
    void* find = m_driver.FindFirstChildNode(root, bdiRaster);
    ASSERT_THAT(find, NotNull());
    EXPECT_EQ(m_driver.Live(), (LiveCounts{1, 2, 1}));
    BDINode* const child = m_driver.FindNextChildNode(find);
    EXPECT_EQ(m_driver.Live(), (LiveCounts{1, 3, 1}));
    m_driver.FindClose(find);
    m_driver.CloseNode(child);
    m_driver.CloseNode(node);
    m_driver.CloseNode(root);
    EXPECT_EQ(m_driver.Live(), (LiveCounts{1, 0, 0}));
    m_driver.CloseRepository(repository);
    EXPECT_EQ(m_driver.Live(), LiveCounts{});
    EXPECT_EQ(m_content.alive, 0);
}

TEST_F(RepositoryDrvrTest, NodesTellWhatTheRepositoryKnows)
{
    BDINode* root = nullptr;
    void* const repository = m_driver.OpenRepository("r", &root);
    BDINode* const node = m_driver.OpenNode(repository, "r/t");
    ASSERT_THAT(node, NotNull());
    EXPECT_EQ(node->m_nKind, bdiTable);
    EXPECT_THAT(node->m_strId.c_str(), StrEq("r/t"));
    EXPECT_THAT(node->m_strDisplay.c_str(), StrEq("T"));
    EXPECT_THAT(root->m_strDisplay.c_str(), StrEq("Root"));
    EXPECT_THAT(m_driver.GetDriverParameterString(node).c_str(), StrEq("of r/t"));
    EXPECT_THAT(m_driver.OpenNode(repository, "r/none"), IsNull());
    m_driver.CloseNode(node);
    m_driver.CloseNode(root);
    m_driver.CloseRepository(repository);
}

TEST_F(RepositoryDrvrTest, AWalkYieldsTheChildrenOfTheMaskAndNothingWhereNoneMatches)
{
    BDINode* root = nullptr;
    void* const repository = m_driver.OpenRepository("r", &root);
    EXPECT_THAT(Walk(root, bdiRaster | bdiContainer), ElementsAre("A", "C"));
    EXPECT_THAT(Walk(root, bdiTable), ElementsAre("T"));
    EXPECT_THAT(m_driver.FindFirstChildNode(root, bdiVector), IsNull());
    EXPECT_THAT(m_driver.FindFirstChildNode(root, 0), IsNull());
    EXPECT_EQ(m_driver.Live(), (LiveCounts{1, 1, 0}));
    m_driver.CloseNode(root);
    m_driver.CloseRepository(repository);
}

TEST_F(RepositoryDrvrTest, AWalkHoldsWhatWasThereWhenItBegan)
{
    BDINode* root = nullptr;
    void* const repository = m_driver.OpenRepository("r", &root);
    void* find = m_driver.FindFirstChildNode(root, bdiTable);
    m_content.children.clear();
    BDINode* const child = m_driver.FindNextChildNode(find);
    ASSERT_THAT(child, NotNull());
    EXPECT_TRUE(child->m_strDisplay == "T");
    EXPECT_THAT(m_driver.FindFirstChildNode(child, bdiTable), IsNull());
    m_driver.CloseNode(child);
    m_driver.FindClose(find);
    m_driver.CloseNode(root);
    m_driver.CloseRepository(repository);
}

TEST_F(RepositoryDrvrTest, NothingIsOpenedWhereThereIsNothing)
{
    BDINode* root = reinterpret_cast<BDINode*>(this);
    EXPECT_THAT(m_driver.OpenRepository("other", &root), IsNull());
    EXPECT_THAT(root, IsNull());
    EXPECT_THAT(m_driver.OpenRepository(nullptr, &root), IsNull());
    EXPECT_THAT(m_driver.OpenRepository("other", nullptr), IsNull());
    EXPECT_EQ(m_driver.Live(), LiveCounts{});
}

TEST_F(RepositoryDrvrTest, OptionsBehindTheNameAreNoPartOfWhatIsOpened)
{
    for (const char* const moniker : {"r?", "r?page=1", "r?a=1?b=2"})
    {
        void* const repository = m_driver.OpenRepository(moniker, nullptr);
        EXPECT_THAT(repository, NotNull()) << moniker;
        m_driver.CloseRepository(repository);
    }
    EXPECT_THAT(m_driver.OpenRepository("?page=1", nullptr), IsNull());
    EXPECT_THAT(m_driver.OpenRepository("\\\\?\\r", nullptr), IsNull()) << "the prefix of a long path is kept";
}

TEST_F(RepositoryDrvrTest, TheRootIsOptionalAndNullIsHarmless)
{
    void* const repository = m_driver.OpenRepository("r", nullptr);
    ASSERT_THAT(repository, NotNull());
    EXPECT_EQ(m_driver.Live(), (LiveCounts{1, 0, 0}));
    m_driver.CloseRepository(repository);

    m_driver.CloseRepository(nullptr);
    m_driver.CloseNode(nullptr);
    m_driver.FindClose(nullptr);
    void* none = nullptr;
    EXPECT_THAT(m_driver.FindNextChildNode(none), IsNull());
    EXPECT_THAT(m_driver.FindFirstChildNode(nullptr, bdiRaster), IsNull());
    EXPECT_THAT(m_driver.OpenNode(nullptr, "r"), IsNull());
    EXPECT_TRUE(m_driver.GetDriverParameterString(nullptr) == "");
    EXPECT_EQ(m_driver.Live(), LiveCounts{});
}

TEST_F(RepositoryDrvrTest, NoMemoryMeansNoNodeAndNothingLeftOpen)
{
    BDINode* root = nullptr;
    void* const repository = m_driver.OpenRepository("r", &root);
    m_content.outOfMemory = true;
    EXPECT_THAT(m_driver.OpenNode(repository, "r/t"), IsNull());
    EXPECT_THAT(m_driver.FindFirstChildNode(root, bdiTable), IsNull());
    EXPECT_TRUE(m_driver.GetDriverParameterString(root) == "");
    BDINode* second = nullptr;
    EXPECT_THAT(m_driver.OpenRepository("r", &second), IsNull());
    EXPECT_THAT(second, IsNull());
    EXPECT_EQ(m_driver.Live(), (LiveCounts{1, 1, 0}));
    EXPECT_EQ(m_content.alive, 1);
    m_driver.CloseNode(root);
    m_driver.CloseRepository(repository);
}

TEST_F(RepositoryDrvrTest, AMonikerGivesAllBack)
{
    m_content.children.push_back({bdiContainer, "r", "Root"});
    {
        const BDIMoniker moniker("r?x=1", &m_driver);
        EXPECT_THAT(moniker.GetNode(), IsNull()) << "this repository knows no such identifier";
        EXPECT_EQ(m_driver.Live(), (LiveCounts{1, 0, 0}));
        const BDIMoniker found("r", &m_driver);
        EXPECT_THAT(found.GetNode(), NotNull());
        EXPECT_EQ(m_driver.Live(), (LiveCounts{2, 1, 0}));
    }
    EXPECT_EQ(m_driver.Live(), LiveCounts{});
}

#if !defined(NDEBUG) && !defined(_WIN32) // there an assertion asks the user
TEST(RepositoryDrvrDeathTest, ADriverThatDoesNotGetAllBackAsserts)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    Content content;
    const auto leak = [&] {
        RepositoryDrvr driver([&](std::string_view) { return std::make_unique<Shelf>(content); });
        (void)driver.OpenRepository("r", nullptr);
    };
    EXPECT_DEATH(leak(), "gives it back");
}

TEST(RepositoryDrvrDeathTest, ClosingARepositoryBeforeItsNodesAsserts)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    Content content;
    const auto closeTooEarly = [&] {
        RepositoryDrvr driver([&](std::string_view) { return std::make_unique<Shelf>(content); });
        BDINode* root = nullptr;
        driver.CloseRepository(driver.OpenRepository("r", &root));
        driver.CloseNode(root);
    };
    EXPECT_DEATH(closeTooEarly(), "before their repository");
}
#endif
