// DiscStampTest.cpp - discs that are drawn once and stamped into pixels

#include "tavkit/charts/DiscStamp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

namespace
{

using namespace tavkit;

constexpr std::uint32_t kGround = 0x00FFFFFF;
constexpr std::uint32_t kRed = 0x00E60000;
constexpr int kSize = 4;

// A ring with a gap in the second row, so that a row has two runs.
constexpr std::array<const char*, kSize> kShape{".##.", "#..#", "####", ".##."};

std::vector<std::uint32_t> ShapePixels()
{
    std::vector<std::uint32_t> pixels;
    for (const char* const row : kShape)
    {
        for (int x = 0; x < kSize; ++x)
        {
            pixels.push_back(row[x] == '#' ? kRed : kGround);
        }
    }
    return pixels;
}

class DiscStampTest : public testing::Test
{
protected:
    static constexpr int kWidth = 9;
    static constexpr int kHeight = 7;

    // The same, pixel by pixel.
    void PutSlowly(int left, int top)
    {
        for (int y = 0; y < kSize; ++y)
        {
            for (int x = 0; x < kSize; ++x)
            {
                const bool inside = left + x >= 0 && left + x < kWidth && top + y >= 0 && top + y < kHeight;
                if (inside && kShape[static_cast<std::size_t>(y)][x] == '#')
                {
                    m_expected[static_cast<std::size_t>((top + y) * kWidth + left + x)] = kRed;
                }
            }
        }
    }

    PixelField Field() { return {m_pixels.data(), kWidth, kHeight}; }

    DiscStamp m_stamp{ShapePixels(), kSize, kGround};
    std::vector<std::uint32_t> m_pixels = std::vector<std::uint32_t>(kWidth * kHeight, kGround);
    std::vector<std::uint32_t> m_expected = m_pixels;
};

TEST_F(DiscStampTest, KeepsWhatLiesInItsGaps)
{
    std::fill(m_pixels.begin(), m_pixels.end(), 0x123456U);
    m_expected = m_pixels;
    m_stamp.Put(Field(), 2, 1);
    PutSlowly(2, 1);
    EXPECT_EQ(m_pixels, m_expected);
    EXPECT_EQ(m_pixels[static_cast<std::size_t>(2 * kWidth + 3)], 0x123456U);
}

TEST_F(DiscStampTest, IsCutAtAllSides)
{
    for (int y = -kSize - 1; y <= kHeight + 1; ++y)
    {
        for (int x = -kSize - 1; x <= kWidth + 1; ++x)
        {
            std::fill(m_pixels.begin(), m_pixels.end(), kGround);
            m_expected = m_pixels;
            m_stamp.Put(Field(), x, y);
            PutSlowly(x, y);
            ASSERT_EQ(m_pixels, m_expected) << x << ", " << y;
        }
    }
}

TEST_F(DiscStampTest, GoesIntoAFieldSmallerThanItself)
{
    std::vector<std::uint32_t> pixels(4, kGround);
    m_stamp.Put({pixels.data(), 2, 2}, -1, -1);
    EXPECT_EQ(pixels, (std::vector<std::uint32_t>{kGround, kGround, kRed, kRed}));
}

TEST_F(DiscStampTest, OfAnEmptyPicturePutsNothing)
{
    const DiscStamp none(std::vector<std::uint32_t>(kSize * kSize, kGround), kSize, kGround);
    none.Put(Field(), 1, 1);
    EXPECT_EQ(m_pixels, m_expected);
}

TEST_F(DiscStampTest, LiesAtEveryPlaceThatWasAsked)
{
    // Places from 3 left and 2 above the field to its far sides; a disc's corner lies 2 pixels before its place.
    const RECT bounds{-3, -2, kWidth, kHeight};
    std::mt19937 random(7);
    for (int round = 0; round < 50; ++round)
    {
        std::fill(m_pixels.begin(), m_pixels.end(), kGround);
        m_expected = m_pixels;
        DiscPlaces places(bounds);
        for (unsigned i = random() % 12; i > 0; --i)
        {
            const int x = static_cast<int>(random() % (kWidth + 4)) - 3;
            const int y = static_cast<int>(random() % (kHeight + 3)) - 2;
            places.Add(x, y);
            places.Add(x, y);
            PutSlowly(x - 2, y - 2);
        }
        places.PutAll(Field(), m_stamp, {2, 2});
        ASSERT_EQ(m_pixels, m_expected) << round;
    }
}

TEST_F(DiscStampTest, DropsPlacesOutOfItsBounds)
{
    DiscPlaces places({2, 2, 5, 4});
    for (const POINT at :
         {POINT{1, 3}, POINT{6, 3}, POINT{3, 1}, POINT{3, 5}, POINT{-2000000000, 3}, POINT{3, 2000000000}})
    {
        places.Add(at.x, at.y);
    }
    places.PutAll(Field(), m_stamp, {2, 2});
    EXPECT_EQ(m_pixels, m_expected);
    for (const POINT at : {POINT{2, 2}, POINT{5, 4}})
    {
        places.Add(at.x, at.y);
        PutSlowly(at.x - 2, at.y - 2);
    }
    places.PutAll(Field(), m_stamp, {2, 2});
    EXPECT_EQ(m_pixels, m_expected) << "the corners of the bounds are inside";
}

TEST_F(DiscStampTest, HasNoPlacesInBoundsTurnedInsideOut)
{
    DiscPlaces places({5, 4, 2, 2});
    places.Add(3, 3);
    places.PutAll(Field(), m_stamp, {0, 0});
    EXPECT_EQ(m_pixels, m_expected);
}

} // namespace
