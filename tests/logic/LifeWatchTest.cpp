// LifeWatchTest.cpp - operations that notice the end of their own object

#include "tavkit/frame/LifePtr.h"
#include "tavkit/frame/LifeWatch.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

TEST(LifeWatch, NoticesTheEndOfItsObject)
{
    auto token = std::make_unique<LifeToken>();
    const LifeWatch watch(*token);
    EXPECT_FALSE(watch.IsGone());
    token.reset();
    EXPECT_TRUE(watch.IsGone());
}

TEST(LifeWatch, AllNestedWatchesNotice)
{
    auto token = std::make_unique<LifeToken>();
    const LifeWatch outer(*token);
    {
        const LifeWatch ended(*token);
    }
    const LifeWatch inner(*token);
    token.reset();
    EXPECT_TRUE(outer.IsGone());
    EXPECT_TRUE(inner.IsGone());
}

TEST(LifeWatch, ACopyIsNotTheWatchedObject)
{
    LifeToken token;
    const LifeWatch watch(token);
    {
        LifeToken copy(token);
        copy = token;
    }
    EXPECT_FALSE(watch.IsGone());
}

TEST(LifeWatch, MayEndInAnyOrder)
{
    auto token = std::make_unique<LifeToken>();
    auto first = std::make_unique<LifeWatch>(*token);
    auto second = std::make_unique<LifeWatch>(*token);
    auto third = std::make_unique<LifeWatch>(*token);
    second.reset();
    first.reset();
    EXPECT_FALSE(third->IsGone());
    token.reset();
    EXPECT_TRUE(third->IsGone());
}

struct Watched
{
    LifeToken m_life;
};

TEST(LifePtr, ReadsAsNullOnceItsObjectIsGone)
{
    auto object = std::make_unique<Watched>();
    Watched const* const address = object.get();
    const LifePtr<Watched> pointer(object.get());
    EXPECT_EQ(pointer.Get(), address);
    EXPECT_FALSE(pointer.HasLost(address));
    object.reset();
    EXPECT_EQ(pointer.Get(), nullptr);
    EXPECT_TRUE(pointer.HasLost(address));
    EXPECT_FALSE(pointer.HasLost(nullptr));
}

TEST(LifePtr, CanBeTurnedToAnotherObject)
{
    auto first = std::make_unique<Watched>();
    Watched second;
    LifePtr<Watched> pointer(first.get());
    pointer = &second;
    first.reset();
    EXPECT_EQ(pointer.Get(), &second);
    pointer = nullptr;
    EXPECT_EQ(pointer.Get(), nullptr);
}

TEST(LifePtr, WithoutAnObjectIsNullAndHasLostNothing)
{
    const LifePtr<Watched> pointer;
    EXPECT_EQ(pointer.Get(), nullptr);
    EXPECT_FALSE(pointer.HasLost(nullptr));
}

} // namespace
