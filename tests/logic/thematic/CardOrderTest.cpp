// CardOrderTest.cpp - neighbours, replacements and moves among the cards of the thematic list

#include "tavkit/thematic/CardOrder.h"
#include "tavkit/thematic/ButtonState.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace
{

using namespace tavkit::thematic;

TEST(MoveTarget, IsTheNeighbour)
{
    EXPECT_EQ(MoveTarget(1, 3, true), 0);
    EXPECT_EQ(MoveTarget(1, 3, false), 2);
}

TEST(MoveTarget, IsNowhereBeyondTheEnds)
{
    EXPECT_FALSE(MoveTarget(0, 3, true));
    EXPECT_FALSE(MoveTarget(2, 3, false));
    EXPECT_FALSE(MoveTarget(0, 1, true));
    EXPECT_FALSE(MoveTarget(0, 1, false));
}

TEST(MoveTarget, IsNowhereForWhatIsNotThere)
{
    EXPECT_FALSE(MoveTarget(-1, 3, false)) << "the place behind -1 would be the first";
    EXPECT_FALSE(MoveTarget(-1, 0, true));
    EXPECT_FALSE(MoveTarget(3, 3, true));
}

TEST(ReplacementOf, IsTheNextOne)
{
    EXPECT_EQ(ReplacementOf(0, 3), 1);
    EXPECT_EQ(ReplacementOf(1, 3), 2);
}

TEST(ReplacementOf, TheLastIsNone) { EXPECT_FALSE(ReplacementOf(2, 3)); }

TEST(ReplacementOf, WhatIsNotThereIsTheFirst)
{
    EXPECT_EQ(ReplacementOf(-1, 3), 0);
    EXPECT_FALSE(ReplacementOf(-1, 0));
}

struct Card
{
    char name;
    bool visible;
};

/// The cards a to e, of which c and e are hidden.
class Neighbours : public testing::Test
{
protected:
    char Find(char start, bool visibleOnly, bool backward)
    {
        Card* const from = start != 0 ? At(start) : nullptr;
        NeighbourSearch<Card> search(from, visibleOnly, backward);
        for (Card& card : m_cards)
        {
            if (search.Show(&card, card.visible))
            {
                break;
            }
        }
        return search.Result() != nullptr ? search.Result()->name : '-';
    }
    Card* At(char name) { return name == 'x' ? &m_stranger : &m_cards[static_cast<std::size_t>(name - 'a')]; }

    std::array<Card, 5> m_cards{{{'a', true}, {'b', true}, {'c', false}, {'d', true}, {'e', false}}};
    Card m_stranger{'x', true};
};

TEST_F(Neighbours, ForwardIsTheNextCard)
{
    EXPECT_EQ(Find('a', false, false), 'b');
    EXPECT_EQ(Find('b', false, false), 'c');
    EXPECT_EQ(Find('d', false, false), 'e');
    EXPECT_EQ(Find('e', false, false), '-');
}

TEST_F(Neighbours, ForwardFromNothingIsTheFirstThatCounts)
{
    EXPECT_EQ(Find(0, false, false), 'a');
    m_cards[0].visible = false;
    EXPECT_EQ(Find(0, false, false), 'a');
    EXPECT_EQ(Find(0, true, false), 'b');
}

TEST_F(Neighbours, ForwardSkipsHiddenCardsOnRequest)
{
    EXPECT_EQ(Find('b', true, false), 'd');
    EXPECT_EQ(Find('d', true, false), '-');
}

TEST_F(Neighbours, ForwardAHiddenCardIsNeverReachedWhenHiddenOnesDontCount)
{
    EXPECT_EQ(Find('c', true, false), '-');
    EXPECT_EQ(Find('c', false, false), 'd');
}

TEST_F(Neighbours, BackwardIsTheCardBefore)
{
    EXPECT_EQ(Find('e', false, true), 'd');
    EXPECT_EQ(Find('d', false, true), 'c');
    EXPECT_EQ(Find('b', false, true), 'a');
}

TEST_F(Neighbours, BackwardSkipsHiddenCardsOnRequest) { EXPECT_EQ(Find('d', true, true), 'b'); }

TEST_F(Neighbours, BackwardAHiddenCardIsKnown)
{
    EXPECT_EQ(Find('c', true, true), 'b');
    EXPECT_EQ(Find('e', true, true), 'd');
}

TEST_F(Neighbours, BackwardFromTheFirstIsNone)
{
    EXPECT_EQ(Find('a', false, true), '-');
    m_cards[0].visible = false;
    EXPECT_EQ(Find('b', true, true), '-') << "the only card before it is hidden";
}

TEST_F(Neighbours, BackwardFromNothingIsNone) { EXPECT_EQ(Find(0, false, true), '-'); }

TEST_F(Neighbours, OfACardThatIsNotThereIsNone)
{
    EXPECT_EQ(Find('x', false, false), '-');
    EXPECT_EQ(Find('x', true, false), '-');
    EXPECT_EQ(Find('x', false, true), '-');
    EXPECT_EQ(Find('x', true, true), '-');
}

TEST_F(Neighbours, BackwardKnowsTheLastThatCounts)
{
    for (const bool visibleOnly : {true, false})
    {
        NeighbourSearch<Card> search(nullptr, visibleOnly, true);
        EXPECT_EQ(search.Last(), nullptr);
        for (Card& card : m_cards)
        {
            EXPECT_FALSE(search.Show(&card, card.visible));
        }
        ASSERT_NE(search.Last(), nullptr);
        EXPECT_EQ(search.Last()->name, visibleOnly ? 'd' : 'e');
    }
}

struct Spot
{
    RECT rect;
    [[nodiscard]] bool HitTest(POINT const& pt) const { return Contains(rect, pt); }
};

TEST(LastHit, IsTheOneThatIsPaintedLast)
{
    Spot below{{0, 0, 20, 20}};
    Spot above{{10, 10, 30, 30}};
    const std::vector<Spot*> spots{&below, &above};
    EXPECT_EQ(LastHit(spots, {5, 5}), &below);
    EXPECT_EQ(LastHit(spots, {15, 15}), &above);
    EXPECT_EQ(LastHit(spots, {25, 25}), &above);
    EXPECT_EQ(LastHit(spots, {35, 35}), nullptr);
}

} // namespace
