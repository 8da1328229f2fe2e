// LifeWatchTest.cpp - operations that notice the end of their own object

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

} // namespace
