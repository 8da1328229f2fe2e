// NumbersTest.cpp - number texts, rounding, histogram and canvas
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include <gmock/gmock.h>

#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/DCanvas.h"
#include "tavkit/frame/services/DError.h"
#include "tavkit/frame/services/DHstg.h"

using testing::ElementsAre;
using testing::IsNull;
using testing::NotNull;
using testing::StrEq;

namespace
{
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

/// Bytes between the start of an object and one of its fields.
template <class T, class F>
std::ptrdiff_t Offset(T const& object, F const& field)
{
    return reinterpret_cast<char const*>(&field) - reinterpret_cast<char const*>(&object);
}

std::vector<int> Slots(DHstg const& histogram)
{
    std::vector<int> slots;
    for (int i = 0; i < histogram.m_nSlots; ++i)
    {
        slots.push_back(histogram.GetSlotVal(i));
    }
    return slots;
}
} // namespace

TEST(FormatDouble, PrintsAsManyDecimalsAsAsked)
{
    EXPECT_THAT(FormatDouble(3.14159, 2).c_str(), StrEq("3.14"));
    EXPECT_THAT(FormatDouble(-2.5, 3).c_str(), StrEq("-2.500"));
    EXPECT_THAT(FormatDouble(7.0, 0).c_str(), StrEq("7"));
    EXPECT_THAT(FormatDouble(0.0, 1).c_str(), StrEq("0.0"));
    EXPECT_THAT(FormatDouble(123456789.0, 1).c_str(), StrEq("123456789.0"));
}

TEST(FormatDouble, TakesDigitCountsOutsideToTheNearerEnd)
{
    EXPECT_THAT(FormatDouble(1.5, -4).c_str(), StrEq("2"));
    EXPECT_EQ(FormatDouble(1.5, 1'000'000).GetLength(), 102);
}

TEST(FormatDouble, HoldsTheLargestNumberAndThoseThatAreNone)
{
    EXPECT_EQ(FormatDouble(-kLargest, 100).GetLength(), 1 + 309 + 1 + 100);
    EXPECT_THAT(FormatDouble(kInfinity, 2).c_str(), StrEq("inf"));
    EXPECT_THAT(FormatDouble(-kInfinity, 2).c_str(), StrEq("-inf"));
    EXPECT_THAT(FormatDouble(kNotANumber, 2).c_str(), StrEq("nan"));
}

TEST(RoundTo, RoundsToSignificantDigits)
{
    EXPECT_EQ(RoundTo(123.456789, 6, roundSignificant), 123.457);
    EXPECT_EQ(RoundTo(0.000123456789, 6, roundSignificant), 0.000123457);
    EXPECT_EQ(RoundTo(-98765432.1, 3, roundSignificant), -98800000.0);
    EXPECT_EQ(RoundTo(0.0, 6, roundSignificant), 0.0);
}

TEST(RoundTo, RoundsToDecimals)
{
    EXPECT_EQ(RoundTo(123.456789, 2, roundDecimals), 123.46);
    EXPECT_EQ(RoundTo(0.3, 0, roundDecimals), 0.0);
    EXPECT_EQ(RoundTo(1.005, 2, roundDecimals), 1.0) << "1.005 isn't a double: the nearest one lies below";
}

TEST(RoundTo, GivesBackWhatItCannotRound)
{
    EXPECT_EQ(RoundTo(kInfinity, 6, roundSignificant), kInfinity);
    EXPECT_TRUE(std::isnan(RoundTo(kNotANumber, 6, roundSignificant)));
    EXPECT_EQ(RoundTo(kLargest, 1, roundSignificant), kLargest) << "rounded up it is past the range";
    EXPECT_EQ(RoundTo(1.2345, 0, roundSignificant), 1.2345);
    EXPECT_EQ(RoundTo(1.2345, -1, roundDecimals), 1.2345);
    EXPECT_EQ(RoundTo(1.2345, 2, 7), 1.2345);
    EXPECT_EQ(RoundTo(1.2345, 1'000'000, roundSignificant), 1.2345);
}

TEST(DErrorHolder, KeepsTheFirstErrorUntilItIsCleared)
{
    DError error;
    EXPECT_FALSE(error.HasError());
    EXPECT_TRUE(error.GetErrorText() == "");
    error.SetError("first");
    error.SetError("second");
    EXPECT_TRUE(error.HasError());
    EXPECT_TRUE(error.GetErrorText() == "first");
    error.ClearError();
    EXPECT_FALSE(error.HasError());
    EXPECT_TRUE(error.GetErrorText() == "");
    error.SetError(nullptr);
    EXPECT_TRUE(error.HasError());
}

TEST(DHstgCounts, FieldsStandInTheirOrder)
{
    const DHstg histogram(0.0, 1.0, {});
    EXPECT_EQ(Offset(histogram, histogram.m_nSlots), 0);
    EXPECT_EQ(Offset(histogram, histogram.m_dMin), 8);
    EXPECT_EQ(Offset(histogram, histogram.m_dMax), 16);
}

TEST(DHstgCounts, AreTakenAsGiven)
{
    const std::vector<int> counts{3, 0, 7, 2};
    const DHstg histogram(10.0, 20.0, counts);
    EXPECT_EQ(histogram.m_nSlots, 4);
    EXPECT_EQ(histogram.m_dMin, 10.0);
    EXPECT_EQ(histogram.m_dMax, 20.0);
    EXPECT_EQ(histogram.GetMaxVal(), 7);
    EXPECT_EQ(histogram.GetHstgSum(), 12);
    EXPECT_EQ(histogram.GetSlotVal(2), 7);
    EXPECT_EQ(histogram.GetSlotVal(-1), 0);
    EXPECT_EQ(histogram.GetSlotVal(4), 0);
}

TEST(DHstgCounts, OddArgumentsGiveAHarmlessHistogram)
{
    const DHstg none(0.0, 1.0, {});
    EXPECT_EQ(none.GetMaxVal(), 0);
    EXPECT_EQ(none.GetHstgSum(), 0);
    EXPECT_EQ(none.GetSlotIndx(0.5), -1);
    const std::vector<int> negative{-5, 3};
    const DHstg turned(9.0, 1.0, negative);
    EXPECT_EQ(turned.m_dMin, 1.0);
    EXPECT_EQ(turned.m_dMax, 9.0);
    EXPECT_EQ(turned.GetHstgSum(), 3);
    const DHstg endless(0.0, kInfinity, negative);
    EXPECT_EQ(endless.m_dMax, 0.0);
    EXPECT_EQ(DHstg(kNotANumber, 1.0, negative).m_dMin, 0.0);
}

TEST(DHstgCounts, TheSumStopsAtTheLargestInt)
{
    const std::vector<int> counts{2147483647, 2147483647};
    EXPECT_EQ(DHstg(0.0, 1.0, counts).GetHstgSum(), 2147483647);
}

TEST(DHstgSlots, TheirLimitsDivideTheRangeAndTheOnePastTheLastIsTheHighestValue)
{
    const std::vector<int> counts(5);
    const DHstg histogram(10.0, 20.0, counts);
    EXPECT_EQ(histogram.GetSlotClss(0), 10.0);
    EXPECT_EQ(histogram.GetSlotClss(1), 12.0);
    EXPECT_EQ(histogram.GetSlotClss(4), 18.0);
    EXPECT_EQ(histogram.GetSlotClss(5), 20.0);
    EXPECT_EQ(histogram.GetSlotClss(99), 20.0);
    EXPECT_EQ(histogram.GetSlotClss(-1), 10.0);
}

TEST(DHstgSlots, HoldTheirLowerLimitAndTheLastOneAlsoTheHighestValue)
{
    const std::vector<int> counts(5);
    const DHstg histogram(10.0, 20.0, counts);
    EXPECT_EQ(histogram.GetSlotIndx(10.0), 0);
    EXPECT_EQ(histogram.GetSlotIndx(11.999), 0);
    EXPECT_EQ(histogram.GetSlotIndx(12.0), 1);
    EXPECT_EQ(histogram.GetSlotIndx(19.999), 4);
    EXPECT_EQ(histogram.GetSlotIndx(20.0), 4);
    EXPECT_EQ(histogram.GetSlotIndx(-99.0), 0);
    EXPECT_EQ(histogram.GetSlotIndx(99.0), 4);
    EXPECT_EQ(histogram.GetSlotIndx(kNotANumber), -1);
}

TEST(DHstgSlots, EveryLimitFallsIntoItsOwnSlotWhateverTheRange)
{
    for (const double highest : {0.3, 1.0, 12.34567, 1e-300, kLargest})
    {
        for (const int slots : {1, 3, 7, 100, 1000})
        {
            const std::vector<int> counts(static_cast<std::size_t>(slots));
            const DHstg histogram(-highest, highest, counts);
            for (int i = 0; i < slots; ++i)
            {
                ASSERT_EQ(histogram.GetSlotIndx(histogram.GetSlotClss(i)), i) << highest << " in " << slots;
            }
        }
    }
}

TEST(DHstgSlots, ARangeOfOneValueFillsTheLastSlot)
{
    const std::vector<int> counts(3);
    const DHstg histogram(5.0, 5.0, counts);
    EXPECT_EQ(histogram.GetSlotIndx(5.0), 2);
    EXPECT_EQ(histogram.GetSlotIndx(4.0), 0);
    EXPECT_EQ(histogram.GetSlotClss(1), 5.0);
}

TEST(DHstgFromValues, CountsBytesBetweenTheirLowestAndHighest)
{
    const std::vector<std::uint8_t> values{10, 10, 11, 14, 20};
    const auto histogram = DHstg::FromValues(DMITypes::rdiUInt8, values.data(), values.size(), 5);
    ASSERT_THAT(histogram, NotNull());
    EXPECT_EQ(histogram->m_dMin, 10.0);
    EXPECT_EQ(histogram->m_dMax, 20.0);
    EXPECT_THAT(Slots(*histogram), ElementsAre(3, 0, 1, 0, 1));
}

TEST(DHstgFromValues, CountsEveryTypeWithItsSign)
{
    const std::vector<std::uint16_t> u16{0, 65535};
    const std::vector<std::int16_t> s16{-32768, 32767};
    const std::vector<std::uint32_t> u32{0, 4294967295u};
    const std::vector<std::int32_t> s32{-2147483647 - 1, 2147483647};
    const std::vector<float> f32{-3.0e38f, 3.0e38f};
    const auto check = [](DMITypes::RDIDataType type, auto const& values) {
        const auto histogram = DHstg::FromValues(type, values.data(), values.size(), 2);
        ASSERT_THAT(histogram, NotNull());
        EXPECT_EQ(histogram->m_dMin, static_cast<double>(values[0]));
        EXPECT_EQ(histogram->m_dMax, static_cast<double>(values[1]));
        EXPECT_THAT(Slots(*histogram), ElementsAre(1, 1));
    };
    check(DMITypes::rdiUInt16, u16);
    check(DMITypes::rdiInt16, s16);
    check(DMITypes::rdiUInt32, u32);
    check(DMITypes::rdiInt32, s32);
    check(DMITypes::rdiFloat32, f32);
}

TEST(DHstgFromValues, LeavesOutWhatIsNotFinite)
{
    const std::vector<float> values{std::numeric_limits<float>::quiet_NaN(), 1.0f,
                                    std::numeric_limits<float>::infinity(), 3.0f};
    const auto histogram = DHstg::FromValues(DMITypes::rdiFloat32, values.data(), values.size(), 2);
    ASSERT_THAT(histogram, NotNull());
    EXPECT_EQ(histogram->GetHstgSum(), 2);
    EXPECT_EQ(histogram->m_dMax, 3.0);
    EXPECT_THAT(DHstg::FromValues(DMITypes::rdiFloat32, values.data(), 1, 2), IsNull());
}

TEST(DHstgFromValues, RefusesWhatMakesNoHistogram)
{
    const std::uint8_t value = 1;
    EXPECT_THAT(DHstg::FromValues(DMITypes::rdiUInt8, nullptr, 1, 4), IsNull());
    EXPECT_THAT(DHstg::FromValues(DMITypes::rdiUInt8, &value, 0, 4), IsNull());
    EXPECT_THAT(DHstg::FromValues(DMITypes::rdiUInt8, &value, 1, 0), IsNull());
    EXPECT_THAT(DHstg::FromValues(DMITypes::rdiUInt8, &value, 1, -1), IsNull());
    EXPECT_THAT(DHstg::FromValues(DMITypes::rdiUInt8, &value, 1, DHstg::kMaxSlots + 1), IsNull());
    EXPECT_EQ(DHstg::FromValues(DMITypes::rdiUInt8, &value, 1, DHstg::kMaxSlots)->m_nSlots, DHstg::kMaxSlots);
    const auto unknown = std::bit_cast<DMITypes::RDIDataType>(3);
    EXPECT_THAT(DHstg::FromValues(unknown, &value, 1, 4), IsNull());
}

TEST(DCanvasSize, WidthAndHeightAreItsFirstFields)
{
    DCanvas canvas;
    EXPECT_EQ(Offset(canvas, canvas.m_nWidth), 0);
    EXPECT_EQ(Offset(canvas, canvas.m_nHeight), 4);
    EXPECT_EQ(canvas.m_nWidth, 0);
    EXPECT_EQ(canvas.m_nHeight, 0);
    EXPECT_THAT(canvas.GetDataLine(0), IsNull());
}

TEST(DCanvasSize, LinesArePaddedToFourBytes)
{
    DCanvas canvas;
    const std::size_t expected[] = {0, 4, 8, 12, 12, 16};
    for (int width = 0; width <= 5; ++width)
    {
        ASSERT_TRUE(canvas.SetSize(width, 2));
        EXPECT_EQ(canvas.GetLineSize(), expected[width]);
    }
    EXPECT_EQ(canvas.GetDataLine(1) - canvas.GetDataLine(0), 16);
}

TEST(DCanvasSize, RefusesNegativeAndAbsurdSidesAndStaysAsItWas)
{
    DCanvas canvas;
    ASSERT_TRUE(canvas.SetSize(2, 1));
    canvas.SetPixel(1, 0, 0x0000FF);
    EXPECT_FALSE(canvas.SetSize(-1, 5));
    EXPECT_FALSE(canvas.SetSize(5, -1));
    EXPECT_FALSE(canvas.SetSize(2147483647, 2147483647));
    EXPECT_FALSE(canvas.SetSize(2147483647, 1));
    EXPECT_FALSE(canvas.SetSize(1, 2147483647));
    EXPECT_EQ(canvas.m_nWidth, 2);
    EXPECT_EQ(canvas.m_nHeight, 1);
    EXPECT_EQ(canvas.GetDataLine(0)[5], 0xFF);
    EXPECT_TRUE(canvas.SetSize(0, 0));
}

TEST(DCanvasSize, ANewSizeIsAllBlack)
{
    DCanvas canvas;
    ASSERT_TRUE(canvas.SetSize(1, 1));
    canvas.SetPixel(0, 0, 0xFFFFFF);
    ASSERT_TRUE(canvas.SetSize(1, 1));
    EXPECT_EQ(canvas.GetDataLine(0)[0], 0);
}

TEST(DCanvasPixel, StandsAsBlueGreenRed)
{
    DCanvas canvas;
    ASSERT_TRUE(canvas.SetSize(2, 2));
    canvas.SetPixel(1, 1, 0x00332211);
    unsigned char const* const line = canvas.GetDataLine(1);
    EXPECT_THAT(std::vector<int>(line, line + 6), ElementsAre(0, 0, 0, 0x33, 0x22, 0x11));
}

TEST(DCanvasPixel, OutsideTheCanvasIsIgnored)
{
    DCanvas canvas;
    ASSERT_TRUE(canvas.SetSize(2, 2));
    for (const int outside : {-1, 2, 2147483647, -2147483647 - 1})
    {
        canvas.SetPixel(outside, 0, 0xFFFFFF);
        canvas.SetPixel(0, outside, 0xFFFFFF);
        EXPECT_THAT(canvas.GetDataLine(outside), IsNull());
    }
    for (int y = 0; y < 2; ++y)
    {
        unsigned char const* const line = canvas.GetDataLine(y);
        EXPECT_THAT(std::vector<int>(line, line + 8), testing::Each(0));
    }
}
