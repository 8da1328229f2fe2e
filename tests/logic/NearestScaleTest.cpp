// NearestScaleTest.cpp - resampling by the nearest neighbour

#include "tavkit/drawing/NearestScale.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

using tavkit::NearestOffsets;
using tavkit::NearestSource;
using tavkit::ScaleLine;

TEST(NearestSource, TruncatesTheShare)
{
    EXPECT_EQ(NearestSource(0, 3, 5), 0);
    EXPECT_EQ(NearestSource(1, 3, 5), 0);
    EXPECT_EQ(NearestSource(2, 3, 5), 1);
    EXPECT_EQ(NearestSource(3, 3, 5), 1);
    EXPECT_EQ(NearestSource(4, 3, 5), 2);
}

TEST(NearestSource, IsLimitedToTheLast)
{
    EXPECT_EQ(NearestSource(5, 3, 5), 2);
    EXPECT_EQ(NearestSource(500, 3, 5), 2);
}

TEST(NearestSource, HoldsProductsBeyond32Bits)
{
    EXPECT_EQ(NearestSource(99'999, 100'000, 100'000), 99'999);
    EXPECT_EQ(NearestSource(1'999'999'999, 2'000'000'000, 2'000'000'000), 1'999'999'999);
}

TEST(NearestOffsets, AreInBytesOfThreePerPixel)
{
    EXPECT_EQ(NearestOffsets(2, 4), (std::vector<int>{0, 0, 3, 3}));
    EXPECT_EQ(NearestOffsets(4, 2), (std::vector<int>{0, 6}));
    EXPECT_EQ(NearestOffsets(1, 3), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(NearestOffsets(3, 3), (std::vector<int>{0, 3, 6}));
}

TEST(ScaleLineTest, CopiesWholePixels)
{
    const std::vector<unsigned char> source{1, 2, 3, 4, 5, 6};
    std::vector<unsigned char> target(10, 99);
    ScaleLine(source.data(), NearestOffsets(2, 3), target.data());
    EXPECT_EQ(target, (std::vector<unsigned char>{1, 2, 3, 1, 2, 3, 4, 5, 6, 99}));
}

TEST(ScaleLineTest, OfNoPixelsWritesNothing)
{
    unsigned char target = 99;
    ScaleLine(&target, {}, &target);
    EXPECT_EQ(target, 99);
}

} // namespace
