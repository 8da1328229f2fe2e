// ResolutionTest.cpp - how picked files become monikers, over a driver that a test writes down
#include "tests/support/ScriptedDrvr.h"
#include "tavkit/filedlg/FormatCatalogue.h"
#include "tavkit/filedlg/Resolution.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <vector>

namespace
{

using support::ScriptedDrvr;
using testing::ElementsAre;
using testing::IsEmpty;

class ResolutionTest : public testing::Test
{
protected:
    void TearDown() override
    {
        Clear();
        EXPECT_EQ(m_drvr.m_live, ScriptedDrvr::Live{}) << "whatever was opened is closed";
        EXPECT_FALSE(m_drvr.m_closedTooEarly);
    }

    void Clear()
    {
        for (BDIMoniker const* moniker : m_monikers)
        {
            delete moniker;
        }
        m_monikers.Clear();
        m_questions.clear();
    }

    bool Resolve(std::vector<char const*> const& files, int nodeType = bdiRaster, bool load = true,
                 char const* options = nullptr)
    {
        Clear();
        DVectorSafe<DFile> names;
        for (char const* file : files)
        {
            names.Append(file);
        }
        return tavkit::ResolveFiles({load, nodeType, m_format, "Which?", m_defExt, options}, names, m_monikers,
                                    [&](tavkit::ItemQuestion const& question, DVectorSafe<DString>& picked) {
                                        m_questions.push_back(question);
                                        if (m_answer)
                                        {
                                            for (char const* item : *m_answer)
                                            {
                                                picked.Append(item);
                                            }
                                        }
                                        return m_answer.has_value();
                                    });
    }

    /// The monikers' texts, those without a driver in brackets.
    [[nodiscard]] std::vector<std::string> Texts() const
    {
        std::vector<std::string> texts;
        for (BDIMoniker const* moniker : m_monikers)
        {
            const std::string text = moniker->GetMoniker().c_str();
            texts.push_back(moniker->GetDrvr() ? text : "[" + text + "]");
        }
        return texts;
    }

    ScriptedDrvr m_drvr{{{"one.x", {2, {}, "", "page=0"}},
                         {"pic.x", {2, {}}},
                         {"tab.x", {8, {}}},
                         {"vec.x", {4, {}}},
                         {"box.x", {1, {"box.x?a", "box.x?b", "box.x?c"}}},
                         {"box.x?a", {2, {}}},
                         {"box.x?b", {2, {}}},
                         {"box.x?c", {2, {}}},
                         {"empty.x", {1, {}}},
                         {"nest.x", {1, {"nest.x?d", "nest.x?t"}}},
                         {"nest.x?d", {1, {"nest.x?d/e"}}},
                         {"nest.x?d/e", {2, {}}},
                         {"nest.x?t", {8, {}}},
                         {"odd.x", {16, {"odd.x?1", "odd.x?2"}}},
                         {"odd.x?1", {16, {}}},
                         {"odd.x?2", {16, {}}},
                         {"odd2.x", {16, {"odd2.x?1"}}},
                         {"odd2.x?1", {16, {}}}}};
    support::RegisteredDrvr m_registered{"Scripted", "X", m_drvr};
    DFileFrmt m_xFormat{"X", "X files", "*.x"};
    DFileFrmt* m_format = &m_xFormat;
    char const* m_defExt = "*.x";
    std::optional<std::vector<char const*>> m_answer; ///< nothing for a cancel
    std::vector<tavkit::ItemQuestion> m_questions;
    DVector<BDIMoniker*> m_monikers;
};

} // namespace

TEST_F(ResolutionTest, NothingPickedIsNothingAndFine)
{
    EXPECT_TRUE(Resolve({}));
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(ResolutionTest, TheFormatNamesTheDriver)
{
    EXPECT_TRUE(Resolve({"pic.x"}));
    EXPECT_EQ(m_monikers[0]->GetDrvr(), &m_drvr);
    DFileFrmt unknown("unknown", "", "");
    m_format = &unknown;
    EXPECT_TRUE(Resolve({"pic.x", "box.x"}));
    EXPECT_THAT(Texts(), ElementsAre("[pic.x]", "[box.x]"));
    m_format = nullptr;
    EXPECT_TRUE(Resolve({"box.x"}));
    EXPECT_THAT(Texts(), ElementsAre("[box.x]"));
    m_format = &tavkit::FileFrmtAscii; // without an identifier
    EXPECT_TRUE(Resolve({"box.x"}));
    EXPECT_THAT(Texts(), ElementsAre("[box.x]"));
}

TEST_F(ResolutionTest, OptionsGoBehindTheText)
{
    m_format = nullptr;
    EXPECT_TRUE(Resolve({"f.x", "f.x?b=2", ""}, bdiRaster, true, "a=1"));
    EXPECT_THAT(Texts(), ElementsAre("[f.x?a=1]", "[f.x?b=2&a=1]", "[?a=1]"));
    EXPECT_TRUE(Resolve({"f.x", "f.x?b=2"}, bdiRaster, true, ""));
    EXPECT_THAT(Texts(), ElementsAre("[f.x]", "[f.x?b=2]"));
    EXPECT_TRUE(Resolve({"f.x"}, bdiRaster, false, "a=1"));
    EXPECT_THAT(Texts(), ElementsAre("[f.x?a=1]"));
}

TEST_F(ResolutionTest, WhatThereWasBeforeStaysInFront)
{
    m_monikers.Append(new BDIMoniker("before", nullptr));
    DVectorSafe<DFile> files;
    files.Append("box.x");
    EXPECT_TRUE(tavkit::ResolveFiles({true, bdiRaster, m_format, "", "", nullptr}, files, m_monikers, nullptr));
    EXPECT_THAT(Texts(), ElementsAre("[before]", "box.x?a", "box.x?b", "box.x?c")) << "two monikers: no question";
}

TEST_F(ResolutionTest, AContainerAmongSeveralFilesGivesWayToItsItems)
{
    EXPECT_TRUE(Resolve({"box.x", "pic.x"}));
    EXPECT_THAT(Texts(), ElementsAre("pic.x", "box.x?a", "box.x?b", "box.x?c"));
    EXPECT_THAT(m_questions, IsEmpty());
}

TEST_F(ResolutionTest, ItemsOfTheLastContainerComeFirstAndInnerContainersWithThem)
{
    EXPECT_TRUE(Resolve({"box.x", "pic.x", "nest.x"}));
    EXPECT_THAT(Texts(), ElementsAre("pic.x", "nest.x?d", "nest.x?d/e", "box.x?a", "box.x?b", "box.x?c"));
}

TEST_F(ResolutionTest, CollectedItemsAreNotOpened)
{
    EXPECT_TRUE(Resolve({"box.x", "pic.x"}));
    for (std::string const& entry : m_drvr.m_log)
    {
        EXPECT_NE(entry, "open box.x?a");
    }
    EXPECT_EQ(m_drvr.m_live.repositories, 1) << "of the picture, which was looked at";
}

TEST_F(ResolutionTest, AContainerThatHoldsNothingStaysTheFile)
{
    EXPECT_TRUE(Resolve({"empty.x", "pic.x"}));
    EXPECT_THAT(Texts(), ElementsAre("empty.x", "pic.x"));
    m_drvr.m_entries["empty.x"].kind = bdiVector;
    EXPECT_TRUE(Resolve({"empty.x", "pic.x"}));
    EXPECT_THAT(Texts(), ElementsAre("[empty.x]", "pic.x")) << "and is looked at like any other";
}

TEST_F(ResolutionTest, ForSavingNothingIsOpenedUpButKindsAreChecked)
{
    EXPECT_TRUE(Resolve({"box.x", "pic.x", "tab.x", "new.x"}, bdiRaster, false));
    EXPECT_THAT(Texts(), ElementsAre("box.x", "pic.x", "[tab.x]", "new.x"));
    EXPECT_TRUE(Resolve({"box.x"}, bdiRaster, false));
    EXPECT_THAT(Texts(), ElementsAre("box.x"));
    EXPECT_THAT(m_questions, IsEmpty());
}

TEST_F(ResolutionTest, ASingleContainerMakesTheUserChoose)
{
    m_answer = {"box.x?c", "box.x?a"};
    EXPECT_TRUE(Resolve({"box.x"}));
    EXPECT_THAT(Texts(), ElementsAre("box.x?c", "box.x?a"));
    ASSERT_EQ(m_questions.size(), 1u);
    EXPECT_EQ(m_questions[0].drvr, &m_drvr);
    EXPECT_TRUE(m_questions[0].root == "box.x");
    EXPECT_EQ(m_questions[0].nodeType, bdiRaster);
    EXPECT_TRUE(m_questions[0].caption == "Which?");
    EXPECT_TRUE(m_questions[0].multi);
}

TEST_F(ResolutionTest, ItemsDeepInsideMakeTheUserChooseToo)
{
    m_answer = {"nest.x?d/e"};
    EXPECT_TRUE(Resolve({"nest.x"}));
    EXPECT_EQ(m_questions.size(), 1u);
    EXPECT_TRUE(Resolve({"nest.x"}, bdiVector));
    EXPECT_THAT(m_questions, IsEmpty());
    EXPECT_THAT(Texts(), ElementsAre("nest.x"));
}

TEST_F(ResolutionTest, AConnectionNamesOneItem)
{
    m_answer = {"box.x?a"};
    m_defExt = "*.ZRC";
    EXPECT_TRUE(Resolve({"box.x"}));
    EXPECT_FALSE(m_questions.at(0).multi);
    m_defExt = nullptr;
    EXPECT_TRUE(Resolve({"box.x"}));
    EXPECT_TRUE(m_questions.at(0).multi);
}

TEST_F(ResolutionTest, ACancelLeavesTheFileInTheResult)
{
    EXPECT_FALSE(Resolve({"box.x"}));
    EXPECT_THAT(Texts(), ElementsAre("box.x"));
}

TEST_F(ResolutionTest, ChoosingNothingFailsWithAnEmptyResult)
{
    m_answer.emplace();
    EXPECT_FALSE(Resolve({"box.x"}));
    EXPECT_THAT(Texts(), IsEmpty());
}

TEST_F(ResolutionTest, AChoiceOfAnotherKindLosesItsDriver)
{
    m_answer = {"box.x?a", "tab.x"};
    EXPECT_TRUE(Resolve({"box.x"}));
    EXPECT_THAT(Texts(), ElementsAre("box.x?a", "[tab.x]"));
}

TEST_F(ResolutionTest, ASingleItemGetsTheParametersOfItsDriver)
{
    EXPECT_TRUE(Resolve({"one.x"}));
    EXPECT_THAT(Texts(), ElementsAre("one.x?page=0"));
    EXPECT_TRUE(Resolve({"pic.x"}));
    EXPECT_THAT(Texts(), ElementsAre("pic.x"));
    EXPECT_TRUE(Resolve({"one.x", "pic.x"}));
    EXPECT_THAT(Texts(), ElementsAre("one.x", "pic.x")) << "not among several";
    EXPECT_TRUE(Resolve({"none.x"}));
    EXPECT_THAT(Texts(), ElementsAre("none.x")) << "nor outside a repository";
}

TEST_F(ResolutionTest, WithoutKindsOnlyContainersKeepTheirDriverAndNobodyIsAsked)
{
    EXPECT_TRUE(Resolve({"box.x"}, 0));
    EXPECT_THAT(Texts(), ElementsAre("box.x"));
    EXPECT_TRUE(Resolve({"pic.x"}, 0));
    EXPECT_THAT(Texts(), ElementsAre("[pic.x]"));
    EXPECT_TRUE(Resolve({"none.x"}, 0));
    EXPECT_THAT(Texts(), ElementsAre("none.x")) << "what has no node isn't looked at";
    EXPECT_THAT(m_questions, IsEmpty());
}

TEST_F(ResolutionTest, WhereATableIsWantedTheFirstThingInsideTakesThePlaceAndTheRestIsLeft)
{
    EXPECT_TRUE(Resolve({"tab.x", "odd.x", "odd2.x"}, bdiTable, false));
    EXPECT_THAT(Texts(), ElementsAre("tab.x", "odd.x?1", "odd2.x"));
    EXPECT_EQ(m_drvr.m_masks.back(), 16) << "things of the item's own kind";
}

TEST_F(ResolutionTest, WhereATableIsWantedAnItemThatHoldsNothingLosesItsDriverAndTheNextIsLookedAt)
{
    EXPECT_TRUE(Resolve({"vec.x", "odd.x", "pic.x"}, bdiTable, false));
    EXPECT_THAT(Texts(), ElementsAre("[vec.x]", "odd.x?1", "pic.x"));
}

TEST_F(ResolutionTest, FindsItemsOfAKindAtAnyDepth)
{
    BDINode node;
    node.m_strId = "nest.x";
    EXPECT_TRUE(tavkit::HasNodeOfType(&m_drvr, &node, bdiRaster));
    EXPECT_TRUE(tavkit::HasNodeOfType(&m_drvr, &node, bdiTable));
    EXPECT_FALSE(tavkit::HasNodeOfType(&m_drvr, &node, bdiVector));
    EXPECT_FALSE(tavkit::HasNodeOfType(&m_drvr, &node, 0));
    EXPECT_FALSE(tavkit::HasNodeOfType(nullptr, &node, bdiRaster));
    EXPECT_FALSE(tavkit::HasNodeOfType(&m_drvr, nullptr, bdiRaster));
}

TEST_F(ResolutionTest, ADeepHierarchyIsNoMatterOfTheStack)
{
    constexpr int kLevels = 20'000;
    for (int i = 0; i < kLevels; ++i)
    {
        m_drvr.m_entries["d" + std::to_string(i)] = {bdiContainer, {"d" + std::to_string(i + 1)}};
    }
    m_drvr.m_entries["d" + std::to_string(kLevels)] = {bdiRaster, {}};
    BDINode node;
    node.m_strId = "d0";
    EXPECT_TRUE(tavkit::HasNodeOfType(&m_drvr, &node, bdiRaster));
    EXPECT_FALSE(tavkit::HasNodeOfType(&m_drvr, &node, bdiVector));
}

TEST_F(ResolutionTest, ADriverThatFailsAtAnyStepLosesNothingAndLeavesNothingOpen)
{
    const std::vector<std::vector<char const*>> choices = {
        {"box.x"}, {"one.x"}, {"nest.x", "box.x", "pic.x"}, {"odd.x", "odd2.x"}, {"tab.x", "vec.x"}};
    for (auto const& files : choices)
    {
        for (const int nodeType : {int{bdiRaster}, int{bdiTable}})
        {
            m_answer = {"box.x?a"};
            m_drvr.m_failFrom = -1;
            m_drvr.m_calls = 0;
            (void)Resolve(files, nodeType);
            const int calls = m_drvr.m_calls;
            for (int step = 0; step < calls; ++step)
            {
                for (const bool once : {false, true})
                {
                    m_drvr.m_failFrom = step;
                    m_drvr.m_failOnce = once;
                    m_drvr.m_calls = 0;
                    EXPECT_TRUE(Resolve(files, nodeType));
                    EXPECT_GE(m_monikers.GetCount(), 1);
                    Clear();
                    EXPECT_EQ(m_drvr.m_live, ScriptedDrvr::Live{}) << files[0] << " fails at " << step;
                }
            }
        }
    }
}
