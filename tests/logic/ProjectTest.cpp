// ProjectTest.cpp - filling, moving, copying and finding the items of the project tree
#include "workbench/Project.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace
{
using namespace workbench;
using repository::NodeRecord;
using testing::ElementsAre;
using testing::IsNull;

constexpr ProjectPlace kNowhere{};

/// A project with a root "root" that holds the folder "sub" and the pictures "a", "b" and "c"; "sub" isn't filled.
class ProjectTest : public testing::Test
{
protected:
    ProjectTest()
    {
        m_root = m_project.Begin({bdiContainer, "r", "root"});
        m_project.Fill(
            m_root,
            {{bdiContainer, "r/sub", "sub"}, {bdiRaster, "r/a", "a"}, {bdiRaster, "r/b", "b"}, {bdiTable, "r/c", "c"}});
        m_sub = Child(m_root, 0);
        m_a = Child(m_root, 1);
        m_b = Child(m_root, 2);
        m_c = Child(m_root, 3);
    }

    [[nodiscard]] ProjectId Child(ProjectId parent, std::size_t index) const
    {
        return m_project.Find(parent)->children.at(index);
    }

    /// The tree in one line: labels, children in brackets. Every item is checked to know its own place.
    [[nodiscard]] std::string Text(ProjectId id) const
    {
        const ProjectItem& item = *m_project.Find(id);
        std::string text = item.label;
        for (std::size_t i = 0; i < item.children.size(); ++i)
        {
            const ProjectItem* const child = m_project.Find(item.children[i]);
            EXPECT_NE(child, nullptr);
            EXPECT_EQ(child->parent, id);
            EXPECT_EQ(child->index, i);
            text += (i == 0 ? "(" : " ") + Text(item.children[i]);
        }
        return item.children.empty() ? text : text + ")";
    }
    [[nodiscard]] std::string Text() const { return Text(m_project.Root()); }

    /// Drops an item as the user does.
    bool Drop(ProjectId dragged, ProjectId target)
    {
        const ProjectPlace place = m_project.PlaceFor(dragged, target);
        return place != kNowhere && m_project.Move(dragged, place);
    }

    void FillSub() { m_project.Fill(m_sub, {{bdiRaster, "r/sub/x", "x"}, {bdiRaster, "r/sub/y", "y"}}); }

    Project m_project;
    ProjectId m_root = 0;
    ProjectId m_sub = 0;
    ProjectId m_a = 0;
    ProjectId m_b = 0;
    ProjectId m_c = 0;
};

TEST_F(ProjectTest, HoldsWhatItWasFilledWith)
{
    EXPECT_EQ(Text(), "root(sub a b c)");
    const ProjectItem* const a = m_project.Find(m_a);
    EXPECT_EQ(a->kind, bdiRaster);
    EXPECT_EQ(a->moniker, "r/a");
    EXPECT_FALSE(a->hidden);
    EXPECT_FALSE(a->IsContainer());
    EXPECT_TRUE(m_project.Find(m_sub)->IsContainer());
    EXPECT_FALSE(m_project.Find(m_sub)->filled);
    EXPECT_TRUE(m_project.Find(m_root)->filled);
    EXPECT_THAT(m_project.Find(0), IsNull());
    EXPECT_THAT(m_project.Find(1000), IsNull());
}

TEST_F(ProjectTest, IsFilledOnce)
{
    m_project.Fill(m_root, {{bdiRaster, "r/z", "z"}});
    EXPECT_EQ(Text(), "root(sub a b c)");
    m_project.Fill(1000, {{bdiRaster, "r/z", "z"}});
    EXPECT_EQ(Text(), "root(sub a b c)");
    m_project.Fill(m_sub, {});
    EXPECT_TRUE(m_project.Find(m_sub)->filled);
}

TEST_F(ProjectTest, WhatWasDroppedIntoAFolderStandsBeforeWhatItIsFilledWithLater)
{
    EXPECT_TRUE(Drop(m_a, m_sub));
    FillSub();
    EXPECT_EQ(Text(), "root(sub(a x y) b c)");
}

TEST_F(ProjectTest, BeginsAnewWithNumbersOfItsOwn)
{
    const ProjectId root = m_project.Begin({bdiContainer, "s", "other"});
    EXPECT_EQ(Text(), "other");
    EXPECT_GT(root, m_c);
    EXPECT_THAT(m_project.Find(m_a), IsNull());
    m_project.Clear();
    EXPECT_EQ(m_project.Root(), 0u);
    EXPECT_FALSE(m_project.MayChange(0));
    EXPECT_EQ(m_project.FindMoniker("s"), 0u);
}

TEST_F(ProjectTest, ADropOnABrotherPutsItToTheFarSide)
{
    EXPECT_TRUE(Drop(m_a, m_b)) << "downwards";
    EXPECT_EQ(Text(), "root(sub b a c)");
    EXPECT_TRUE(Drop(m_a, m_b)) << "and up again";
    EXPECT_EQ(Text(), "root(sub a b c)");
    EXPECT_TRUE(Drop(m_c, m_a));
    EXPECT_EQ(Text(), "root(sub c a b)");
    EXPECT_TRUE(Drop(m_sub, m_b));
    EXPECT_EQ(Text(), "root(c a b sub)");
}

TEST_F(ProjectTest, ADropOnAContainerPutsItInside)
{
    FillSub();
    EXPECT_TRUE(Drop(m_a, m_sub));
    EXPECT_EQ(Text(), "root(sub(x y a) b c)");
    EXPECT_TRUE(Drop(m_a, m_root));
    EXPECT_EQ(Text(), "root(sub(x y) b c a)");
    EXPECT_TRUE(Drop(m_b, m_root)) << "its own container: behind the others";
    EXPECT_EQ(Text(), "root(sub(x y) c a b)");
}

TEST_F(ProjectTest, ADropBesideAllItemsPutsItAtTheEndOfTheRoot)
{
    FillSub();
    EXPECT_TRUE(Drop(Child(m_sub, 0), 0));
    EXPECT_EQ(Text(), "root(sub(y) a b c x)");
}

TEST_F(ProjectTest, ADropFromElsewherePutsItInFrontOfTheTarget)
{
    FillSub();
    EXPECT_TRUE(Drop(m_a, Child(m_sub, 1)));
    EXPECT_EQ(Text(), "root(sub(x a y) b c)");
    EXPECT_TRUE(Drop(Child(m_sub, 2), m_b));
    EXPECT_EQ(Text(), "root(sub(x a) y b c)");
}

TEST_F(ProjectTest, NothingIsDroppedIntoItselfAndTheRootStays)
{
    FillSub();
    EXPECT_EQ(m_project.PlaceFor(m_sub, m_sub), kNowhere);
    EXPECT_EQ(m_project.PlaceFor(m_a, m_a), kNowhere);
    EXPECT_EQ(m_project.PlaceFor(m_sub, Child(m_sub, 0)), kNowhere);
    EXPECT_EQ(m_project.PlaceFor(m_root, m_a), kNowhere);
    EXPECT_EQ(m_project.PlaceFor(m_root, 0), kNowhere);
    EXPECT_EQ(m_project.PlaceFor(m_a, 1000), kNowhere);
    EXPECT_EQ(m_project.PlaceFor(1000, m_a), kNowhere);
    EXPECT_FALSE(m_project.Move(m_sub, {m_sub, 0}));
    EXPECT_FALSE(m_project.Move(m_root, {m_sub, 0}));
    EXPECT_FALSE(m_project.Move(m_a, {m_b, 0})) << "a picture holds nothing";
    EXPECT_FALSE(m_project.Move(m_a, kNowhere));
    EXPECT_EQ(Text(), "root(sub(x y) a b c)");
}

TEST_F(ProjectTest, PagesStayWithTheirPictureAndTakeNothingIn)
{
    m_project.Fill(m_a, {{bdiRaster, "r/a?page=0", "Page 0"}, {bdiRaster, "r/a?page=1", "Page 1"}});
    const ProjectId page = Child(m_a, 1);
    EXPECT_EQ(m_project.PlaceFor(m_b, Child(m_a, 0)), kNowhere);
    EXPECT_EQ(m_project.PlaceBeside(page, true), kNowhere);
    EXPECT_TRUE(Drop(page, m_sub)) << "a page may go elsewhere of its own";
    EXPECT_EQ(Text(), "root(sub(Page 1) a(Page 0) b c)");
    const ProjectId copy = m_project.Copy(m_a, {m_root, 0});
    EXPECT_EQ(Text(copy), "a(Page 0)");
}

TEST_F(ProjectTest, GoesAStepUpOrDownAmongItsBrothers)
{
    EXPECT_TRUE(m_project.Move(m_b, m_project.PlaceBeside(m_b, true)));
    EXPECT_EQ(Text(), "root(sub b a c)");
    EXPECT_TRUE(m_project.Move(m_b, m_project.PlaceBeside(m_b, false)));
    EXPECT_TRUE(m_project.Move(m_b, m_project.PlaceBeside(m_b, false)));
    EXPECT_EQ(Text(), "root(sub a c b)");
    EXPECT_EQ(m_project.PlaceBeside(m_b, false), kNowhere);
    EXPECT_EQ(m_project.PlaceBeside(m_sub, true), kNowhere);
    EXPECT_EQ(m_project.PlaceBeside(m_root, true), kNowhere);
    EXPECT_EQ(m_project.PlaceBeside(1000, true), kNowhere);
}

TEST_F(ProjectTest, ACopyHoldsCopiesOfAllThatTheItemHolds)
{
    FillSub();
    m_project.SetHidden(Child(m_sub, 1), true);
    const ProjectId group = m_project.MakeGroup({m_root, 4});
    const ProjectId copy = m_project.Copy(m_sub, {group, 0});
    EXPECT_EQ(Text(), "root(sub(x y) a b c New Group(sub(x y)))");
    EXPECT_NE(copy, m_sub);
    EXPECT_EQ(m_project.Find(Child(copy, 1))->moniker, "r/sub/y");
    EXPECT_TRUE(m_project.IsHidden(Child(copy, 1)));
    m_project.Rename(Child(copy, 0), "z");
    m_project.Remove(m_sub);
    EXPECT_EQ(Text(), "root(a b c New Group(sub(z y)))");
    EXPECT_EQ(m_project.Copy(copy, {copy, 0}), 0u) << "not into itself";
    EXPECT_EQ(m_project.Copy(m_root, {group, 0}), 0u);
    EXPECT_EQ(m_project.Copy(m_a, {m_b, 0}), 0u);
}

TEST_F(ProjectTest, ACopyOfWhatIsNotFilledIsFilledOfItsOwn)
{
    const ProjectId copy = m_project.Copy(m_sub, {m_root, 0});
    FillSub();
    EXPECT_EQ(Text(), "root(sub sub(x y) a b c)");
    EXPECT_FALSE(m_project.Find(copy)->filled);
    m_project.Fill(copy, {{bdiRaster, "r/sub/x", "x"}});
    EXPECT_EQ(Text(), "root(sub(x) sub(x y) a b c)");
}

TEST_F(ProjectTest, GroupsHaveLabelsOfTheirOwn)
{
    const ProjectId first = m_project.MakeGroup({m_root, 0});
    m_project.MakeGroup({m_root, 100});
    EXPECT_EQ(Text(), "root(New Group sub a b c New Group 2)");
    m_project.Rename(first, "Mine");
    m_project.MakeGroup({m_root, 0});
    EXPECT_EQ(Text(), "root(New Group Mine sub a b c New Group 2)");
    EXPECT_TRUE(m_project.Find(first)->IsContainer());
    EXPECT_TRUE(m_project.Find(first)->moniker.empty());
    EXPECT_EQ(m_project.MakeGroup({m_a, 0}), 0u);
    EXPECT_EQ(m_project.MakeGroup(kNowhere), 0u);
    EXPECT_TRUE(Drop(m_a, first));
    EXPECT_EQ(Text(first), "Mine(a)");
}

TEST_F(ProjectTest, LabelsAreNeverBlank)
{
    EXPECT_TRUE(m_project.Rename(m_a, "  new name\t"));
    EXPECT_EQ(m_project.Find(m_a)->label, "new name");
    EXPECT_EQ(m_project.Find(m_a)->moniker, "r/a");
    EXPECT_FALSE(m_project.Rename(m_a, ""));
    EXPECT_FALSE(m_project.Rename(m_a, " \t "));
    EXPECT_FALSE(m_project.Rename(m_root, "x"));
    EXPECT_FALSE(m_project.Rename(1000, "x"));
    EXPECT_EQ(m_project.Find(m_a)->label, "new name");
    std::string everyByte;
    for (int c = 255; c > 0; --c)
    {
        everyByte += static_cast<char>(c);
    }
    everyByte += std::string(45, 'x');
    EXPECT_TRUE(m_project.Rename(m_a, everyByte));
    EXPECT_EQ(m_project.Find(m_a)->label, everyByte);
}

TEST_F(ProjectTest, ItemsFollowAFileThatGetsAnotherName)
{
    m_project.Fill(m_a, {{bdiRaster, "r/a?page=0", "Page 0"}});
    const ProjectId copy = m_project.Copy(m_a, {m_sub, 0});
    m_project.Rename(copy, "mine");
    EXPECT_THAT(m_project.FileRenamed("R/A", "r/z"),
                testing::UnorderedElementsAre(m_a, Child(m_a, 0), copy, Child(copy, 0)));
    EXPECT_EQ(m_project.Find(m_a)->moniker, "r/z");
    EXPECT_EQ(m_project.Find(m_a)->label, "z");
    EXPECT_EQ(m_project.Find(Child(m_a, 0))->moniker, "r/z?page=0");
    EXPECT_EQ(m_project.Find(Child(m_a, 0))->label, "Page 0");
    EXPECT_EQ(m_project.Find(copy)->label, "mine") << "a label of the user's own stays";
    EXPECT_THAT(m_project.FileRenamed("r/none", "r/y"), ElementsAre());
    EXPECT_THAT(m_project.FileRenamed("", "r/y"), ElementsAre());
}

TEST_F(ProjectTest, WhatStandsInAHiddenItemIsHiddenToo)
{
    FillSub();
    EXPECT_TRUE(m_project.SetHidden(m_sub, true));
    EXPECT_TRUE(m_project.IsHidden(m_sub));
    EXPECT_TRUE(m_project.IsHidden(Child(m_sub, 0)));
    EXPECT_FALSE(m_project.Find(Child(m_sub, 0))->hidden);
    EXPECT_FALSE(m_project.IsHidden(m_a));
    m_project.SetHidden(m_sub, false);
    EXPECT_FALSE(m_project.IsHidden(Child(m_sub, 0)));
    EXPECT_FALSE(m_project.SetHidden(m_root, true));
    EXPECT_FALSE(m_project.IsHidden(1000));
}

TEST_F(ProjectTest, WhatIsRemovedGoesWithAllThatItHolds)
{
    FillSub();
    const ProjectId x = Child(m_sub, 0);
    EXPECT_TRUE(m_project.Remove(m_sub));
    EXPECT_EQ(Text(), "root(a b c)");
    EXPECT_THAT(m_project.Find(x), IsNull());
    EXPECT_FALSE(m_project.Remove(m_sub));
    EXPECT_FALSE(m_project.Remove(m_root));
}

TEST_F(ProjectTest, TheFirstOfSeveralWithAMonikerIsFound)
{
    FillSub();
    EXPECT_EQ(m_project.FindMoniker("R/SUB/Y"), Child(m_sub, 1));
    EXPECT_EQ(m_project.FindMoniker("r/none"), 0u);
    EXPECT_EQ(m_project.FindMoniker(""), 0u);
    const ProjectId copy = m_project.Copy(m_c, {m_sub, 0});
    EXPECT_EQ(m_project.FindMoniker("r/c"), copy);
}

/// A search that never comes to a folder that isn't filled.
constexpr auto kNoFill = [](ProjectId) { ADD_FAILURE() << "nothing is to be filled"; };

TEST_F(ProjectTest, ASearchGoesOnBehindAnItemAndBeginsAgainAtTheTop)
{
    FillSub();
    m_project.Rename(m_a, "cell 1");
    m_project.Rename(Child(m_sub, 0), "Cell 2");
    m_project.Rename(m_c, "big CELL");
    const auto next = [&](ProjectId after) { return m_project.FindNext("cell", after, kNoFill, 0); };
    EXPECT_EQ(next(0), (SearchResult{SearchEnd::found, Child(m_sub, 0)}));
    EXPECT_EQ(next(Child(m_sub, 0)), (SearchResult{SearchEnd::found, m_a}));
    EXPECT_EQ(next(m_a), (SearchResult{SearchEnd::found, m_c}));
    EXPECT_EQ(next(m_c), (SearchResult{SearchEnd::found, Child(m_sub, 0)}));
    EXPECT_EQ(m_project.FindNext("big", m_c, kNoFill, 0), (SearchResult{SearchEnd::found, m_c})) << "itself, last";
    EXPECT_EQ(m_project.FindNext("none", m_a, kNoFill, 0), SearchResult{});
    EXPECT_EQ(m_project.FindNext("none", 0, kNoFill, 0), SearchResult{});
    EXPECT_EQ(m_project.FindNext("", m_a, kNoFill, 0), SearchResult{});
    EXPECT_EQ(m_project.FindNext("root", 0, kNoFill, 0), (SearchResult{SearchEnd::found, m_root}));
    EXPECT_EQ(next(1000), next(0)) << "an item that is gone";
    m_project.Clear();
    EXPECT_EQ(next(0), SearchResult{});
}

TEST_F(ProjectTest, ASearchFillsTheFoldersThatItComesTo)
{
    std::vector<ProjectId> filled;
    const auto fill = [&](ProjectId id) {
        filled.push_back(id);
        FillSub();
    };
    const SearchResult result = m_project.FindNext("y", 0, fill, 10);
    EXPECT_EQ(result, (SearchResult{SearchEnd::found, Child(m_sub, 1)}));
    EXPECT_THAT(filled, ElementsAre(m_sub));
}

TEST_F(ProjectTest, ASearchComesToAnEndWhereAFolderCannotBeFilled)
{
    int asked = 0;
    EXPECT_EQ(m_project.FindNext(
                  "none", m_b, [&](ProjectId) { ++asked; }, 10),
              SearchResult{});
    EXPECT_EQ(asked, 1);
}

TEST_F(ProjectTest, ASearchIsInterruptedAndGoesOn)
{
    // Folders without end, each with one more in it.
    int depth = 0;
    const auto fill = [&](ProjectId id) {
        const std::string name = "deep" + std::to_string(++depth);
        m_project.Fill(id, {{bdiContainer, name, name}});
    };
    const SearchResult first = m_project.FindNext("deep7", 0, fill, 3);
    ASSERT_EQ(first.end, SearchEnd::interrupted);
    EXPECT_EQ(m_project.Find(first.item)->label, "deep3");
    const SearchResult second = m_project.FindNext("deep7", first.item, fill, 3);
    ASSERT_EQ(second.end, SearchEnd::interrupted);
    EXPECT_EQ(m_project.Find(second.item)->label, "deep6");
    const SearchResult third = m_project.FindNext("deep7", second.item, fill, 3);
    ASSERT_EQ(third.end, SearchEnd::found);
    EXPECT_EQ(m_project.Find(third.item)->label, "deep7");
}

TEST_F(ProjectTest, WhatIsImportedStandsInAGroupAtTheEnd)
{
    const auto added = m_project.Import({{bdiRaster, "x/p", "p"}, {bdiVector, "x/v", "v"}});
    EXPECT_EQ(Text(), "root(sub a b c Imported(p v))");
    ASSERT_EQ(added.size(), 2U);
    EXPECT_EQ(m_project.Find(added[0])->moniker, "x/p");
    EXPECT_EQ(m_project.Find(added[1])->kind, bdiVector);
    EXPECT_EQ(m_project.Import({{bdiTable, "x/t", "t"}}).size(), 1U);
    EXPECT_EQ(Text(), "root(sub a b c Imported(p v t))") << "the group is shared";
    m_project.Rename(m_project.Find(added[0])->parent, "mine");
    (void)m_project.Import({{bdiTable, "x/u", "u"}});
    EXPECT_EQ(Text(), "root(sub a b c mine(p v t u))") << "under whatever label";
}

TEST_F(ProjectTest, WhatIsThereAlreadyIsntImported)
{
    EXPECT_TRUE(m_project.Import({}).empty());
    EXPECT_TRUE(m_project.Import({{bdiRaster, "R/A", "A"}}).empty());
    EXPECT_EQ(Text(), "root(sub a b c)") << "no group for nothing";
    EXPECT_EQ(
        m_project.Import({{bdiRaster, "x/p", "p"}, {bdiRaster, "X/P", "P"}, {bdiRaster, "r/a?page=1", "a1"}}).size(),
        2U);
    EXPECT_EQ(Text(), "root(sub a b c Imported(p a1))");
}

TEST_F(ProjectTest, WhatWasImportedIsKnownWhereverItWasMoved)
{
    const std::vector<NodeRecord> items{{bdiRaster, "x/p", "p"}, {bdiVector, "x/v", "v"}, {bdiTable, "x/t", "t"}};
    const auto added = m_project.Import(items);
    EXPECT_EQ(m_project.Imported(), items);
    ASSERT_TRUE(m_project.Move(added[2], {m_root, 0}));
    ASSERT_NE(m_project.Copy(added[0], {m_root, 0}), 0U);
    ASSERT_TRUE(m_project.Remove(added[1]));
    EXPECT_EQ(m_project.Imported(), (std::vector<NodeRecord>{items[0], items[2]}))
        << "each once, in the order of the tree";
}

TEST_F(ProjectTest, WithoutARootNothingIsImported)
{
    m_project.Clear();
    EXPECT_TRUE(m_project.Import({{bdiRaster, "x/p", "p"}}).empty());
    EXPECT_TRUE(m_project.Imported().empty());
}
} // namespace
