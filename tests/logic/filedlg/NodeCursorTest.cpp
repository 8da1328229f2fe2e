// NodeCursorTest.cpp - the walk over repository nodes
#include "tests/support/ScriptedDrvr.h"
#include "tavkit/filedlg/NodeCursor.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace
{

using support::ScriptedDrvr;
using tavkit::NodeCursor;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::StrEq;

class NodeCursorTest : public testing::Test
{
protected:
    void TearDown() override { EXPECT_EQ(m_drvr.m_live, ScriptedDrvr::Live{}) << "whatever was opened is closed"; }

    std::vector<std::string> Walk(bool deep, unsigned int types, char const* from = "r")
    {
        BDINode start;
        start.m_strId = from;
        std::vector<std::string> ids;
        NodeCursor cursor(&m_drvr, &start, deep, types);
        for (cursor.First(); cursor.Crnt(); cursor.Next())
        {
            ids.emplace_back(cursor.Crnt()->m_strId.c_str());
            EXPECT_EQ(m_drvr.m_live.nodes, 1) << "one node at a time";
        }
        return ids;
    }

    ScriptedDrvr m_drvr{{{"r", {1, {"c1", "p1", "c2", "t1"}}},
                         {"c1", {1, {"c11", "p2"}}},
                         {"c11", {1, {"p3"}}},
                         {"c2", {1, {}}},
                         {"p1", {2, {}}},
                         {"p2", {2, {}}},
                         {"p3", {2, {}}},
                         {"t1", {8, {}}}}};
};

} // namespace

TEST_F(NodeCursorTest, AFlatWalkYieldsTheChildrenThatAreAskedFor)
{
    EXPECT_THAT(Walk(false, bdiRaster), ElementsAre("p1"));
    EXPECT_THAT(m_drvr.m_masks, Each(2));
    EXPECT_THAT(Walk(false, bdiRaster | bdiTable), ElementsAre("p1", "t1"));
    EXPECT_THAT(Walk(false, bdiContainer), ElementsAre("c1", "c2"));
    EXPECT_THAT(Walk(false, bdiVector), IsEmpty());
}

TEST_F(NodeCursorTest, ADeepWalkYieldsContainersBeforeWhatTheyHold)
{
    EXPECT_THAT(Walk(true, bdiRaster), ElementsAre("c1", "c11", "p3", "p2", "p1", "c2"));
    EXPECT_THAT(m_drvr.m_masks, Each(3)) << "containers are asked for at every level";
    EXPECT_THAT(Walk(true, bdiTable), ElementsAre("c1", "c11", "c2", "t1"));
    EXPECT_THAT(Walk(true, 0), ElementsAre("c1", "c11", "c2"));
}

TEST_F(NodeCursorTest, ANodeIsLookedIntoBeforeItIsGivenBack)
{
    Walk(true, bdiRaster);
    EXPECT_THAT(m_drvr.m_log, ElementsAre("find r", "find c1", "find c11", "find p3", "find p2", "find p1", "find c2"));
}

TEST_F(NodeCursorTest, StandsNowhereBeforeTheFirstStepAndBehindTheLast)
{
    BDINode start;
    start.m_strId = "c1";
    for (const bool deep : {false, true})
    {
        NodeCursor cursor(&m_drvr, &start, deep, bdiRaster);
        EXPECT_THAT(cursor.Crnt(), IsNull());
        cursor.Next();
        EXPECT_THAT(cursor.Crnt(), IsNull());
        for (cursor.First(); cursor.Crnt(); cursor.Next())
        {
        }
        cursor.Next();
        EXPECT_THAT(cursor.Crnt(), IsNull());
    }
}

TEST_F(NodeCursorTest, CanBeginAnewAndBeClosedAtAnyStep)
{
    BDINode start;
    start.m_strId = "r";
    NodeCursor cursor(&m_drvr, &start, true, bdiRaster);
    for (int steps = 0; steps < 6; ++steps)
    {
        cursor.First();
        for (int i = 0; i < steps; ++i)
        {
            cursor.Next();
        }
        if (steps % 2 == 0)
        {
            cursor.Close();
            EXPECT_EQ(m_drvr.m_live, ScriptedDrvr::Live{});
            EXPECT_THAT(cursor.Crnt(), IsNull());
        }
    }
    cursor.First();
    EXPECT_THAT(cursor.Crnt()->m_strId.c_str(), StrEq("c1"));
}

TEST_F(NodeCursorTest, ADeepWalkEndsAtASearchThatYieldsNothingThoughItWasBegun)
{
    m_drvr.m_emptyWalks = true;
    EXPECT_THAT(Walk(true, bdiRaster), ElementsAre("c1", "c11", "p3"));
    EXPECT_THAT(Walk(false, bdiVector), IsEmpty());
}

TEST_F(NodeCursorTest, WithoutADriverOrANodeThereIsNothingToWalk)
{
    BDINode start;
    start.m_strId = "r";
    NodeCursor withoutDriver(nullptr, &start, true, bdiRaster);
    withoutDriver.First();
    withoutDriver.Next();
    EXPECT_THAT(withoutDriver.Crnt(), IsNull());
    NodeCursor withoutNode(&m_drvr, nullptr, true, bdiRaster);
    withoutNode.First();
    withoutNode.Next();
    EXPECT_THAT(withoutNode.Crnt(), IsNull());
    EXPECT_THAT(m_drvr.m_log, IsEmpty());
}

TEST_F(NodeCursorTest, ADriverThatFailsAtAnyStepEndsTheWalkWithAllGivenBack)
{
    const std::size_t whole = Walk(true, bdiRaster).size();
    const int calls = m_drvr.m_calls;
    for (m_drvr.m_failFrom = 0; m_drvr.m_failFrom < calls; ++m_drvr.m_failFrom)
    {
        for (const bool once : {false, true})
        {
            m_drvr.m_failOnce = once;
            m_drvr.m_calls = 0;
            EXPECT_LE(Walk(true, bdiRaster).size(), whole);
            EXPECT_EQ(m_drvr.m_live, ScriptedDrvr::Live{});
        }
    }
}
