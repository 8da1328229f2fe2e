// DrawImgTest.cpp - showing raster files: a driver of the tests' own, and a real file

#include "Picture.h"

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace
{

constexpr COLORREF kBack = RGB(10, 200, 30);
constexpr char kPrefix[] = "synthetic:";

// Value of a pixel at a place of the block that is asked for.
using Pixels = std::function<double(int x, int y)>;

struct Channel
{
    DMITypes::RDIDataType type = DMITypes::rdiUInt8;
    Pixels pixels;
    bool readable = true;
};

struct Read
{
    int channel;
    double left, top, right, bottom;
    int width, height;
    unsigned int mode;
    bool resample;

    bool operator==(const Read&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Read& r)
{
    return out << r.channel << ": " << r.left << " " << r.top << " " << r.right << " " << r.bottom << " -> " << r.width
               << " x " << r.height << " mode " << r.mode << " " << r.resample;
}

// A file in memory, of any channels.
class SyntheticDriver : public RDIDriver
{
public:
    SyntheticDriver() { RDIDriverMngr::Instance()->Register(this); }
    ~SyntheticDriver() override { RDIDriverMngr::Instance()->Unregister(this); }

    SIZE m_size{100, 100};
    RDIGeoCoo m_steps;
    bool m_hasSteps = true;
    bool m_opens = true;
    std::vector<Channel> m_channels;

    int m_open = 0;
    int m_opened = 0;
    std::vector<Read> m_reads;
    bool m_bufferWasZero = true;

    bool Accepts(BDIMoniker const& moniker) const override
    {
        return std::string(moniker.GetMoniker().c_str()).starts_with(kPrefix);
    }
    void* OpenFile(BDIMoniker const&, DError* error) override
    {
        if (!m_opens)
        {
            error->SetError("refused");
            return nullptr;
        }
        ++m_open;
        ++m_opened;
        return this;
    }
    int GetNumChnl(void*) override { return static_cast<int>(m_channels.size()); }
    int GetChnlSizeX(void*, int chnl) override { return chnl < GetNumChnl(nullptr) ? m_size.cx : 0; }
    int GetChnlSizeY(void*, int chnl) override { return chnl < GetNumChnl(nullptr) ? m_size.cy : 0; }
    bool GetChnlGeoCode(void*, int, RDIGeoCoo* geoCoo) override
    {
        if (m_hasSteps)
        {
            *geoCoo = m_steps;
        }
        return m_hasSteps;
    }
    DMITypes::RDIDataType GetChnlDataType(void*, int chnl) override { return At(chnl).type; }
    bool ReadBlockRsmpl(void*, int chnl, double left, double top, double right, double bottom, void* buffer, int width,
                        int height, unsigned int mode, bool bRsmpl) override
    {
        m_reads.push_back({chnl, left, top, right, bottom, width, height, mode, bRsmpl});
        Channel const& channel = At(chnl);
        auto* out = static_cast<unsigned char*>(buffer);
        for (int y = 0; y < height; ++y)
        {
            for (int x = 0; x < width; ++x)
            {
                Put(out, channel.type, channel.pixels(x, y));
            }
        }
        return channel.readable;
    }
    void CloseFile(void* hFile) override
    {
        EXPECT_EQ(hFile, this);
        --m_open;
    }

private:
    Channel const& At(int chnl) const { return m_channels.at(static_cast<std::size_t>(chnl)); }

    template <class T>
    void Write(unsigned char*& out, T value)
    {
        T old;
        std::memcpy(&old, out, sizeof old);
        m_bufferWasZero = m_bufferWasZero && old == T{};
        std::memcpy(out, &value, sizeof value);
        out += sizeof value;
    }

    void Put(unsigned char*& out, DMITypes::RDIDataType type, double value)
    {
        switch (type)
        {
        case DMITypes::rdiUInt8:
            return Write(out, static_cast<std::uint8_t>(value));
        case DMITypes::rdiUInt16:
            return Write(out, static_cast<std::uint16_t>(value));
        case DMITypes::rdiInt16:
            return Write(out, static_cast<std::int16_t>(value));
        case DMITypes::rdiUInt32:
            return Write(out, static_cast<std::uint32_t>(value));
        case DMITypes::rdiInt32:
            return Write(out, static_cast<std::int32_t>(value));
        case DMITypes::rdiFloat32:
            return Write(out, static_cast<float>(value));
        }
    }
};

Channel Constant(double value, DMITypes::RDIDataType type = DMITypes::rdiUInt8)
{
    return {type, [value](int, int) { return value; }};
}

// The left half has one value, the right half another.
Channel Halves(int middle, double left, double right, DMITypes::RDIDataType type = DMITypes::rdiUInt8)
{
    return {type, [=](int x, int) { return x < middle ? left : right; }};
}

constexpr COLORREF Grey(int v) { return RGB(v, v, v); }

class DrawImg : public support::WindowTest
{
protected:
    bool Draw(const CRect& rect) { return DrawImgToDC("synthetic:picture", m_picture.DC(), rect); }

    SyntheticDriver m_driver;
    Picture m_picture{440, 320, kBack};
};

TEST_F(DrawImg, FitsASquareIntoAWideRectangleByItsHeightAndCentresIt)
{
    m_driver.m_channels = {Constant(50)};
    EXPECT_TRUE(Draw(CRect(10, 10, 410, 310)));
    EXPECT_EQ(m_picture.Painted(), CRect(60, 10, 360, 310));
    EXPECT_EQ(m_picture.At(60, 10), Grey(255));
    EXPECT_EQ(m_picture.At(59, 10), kBack);
}

TEST_F(DrawImg, FitsAWidePictureByItsWidthAndCentresIt)
{
    m_driver.m_size = {200, 100};
    m_driver.m_channels = {Constant(50)};
    EXPECT_TRUE(Draw(CRect(20, 10, 121, 311)));
    EXPECT_EQ(m_picture.Painted(), CRect(20, 135, 121, 186)); // 101 by 51 (50.5), the odd pixel below
}

TEST_F(DrawImg, TurnsEqualPixelsWhiteAndZeroesBlack)
{
    m_driver.m_channels = {Constant(7)};
    Draw(CRect(0, 0, 40, 40));
    EXPECT_EQ(m_picture.At(20, 20), Grey(255));
    m_driver.m_channels = {Constant(0)};
    Draw(CRect(0, 0, 40, 40));
    EXPECT_EQ(m_picture.At(20, 20), Grey(0));
}

TEST_F(DrawImg, ShowsTheFirstOfTwoChannelsInGrey)
{
    m_driver.m_channels = {Halves(20, 10, 20), Halves(20, 200, 100)};
    Draw(CRect(0, 0, 40, 40));
    EXPECT_EQ(m_picture.At(5, 20), Grey(0));
    EXPECT_EQ(m_picture.At(35, 20), Grey(255));
    EXPECT_EQ(m_driver.m_reads.size(), 1U) << "the second channel isn't even read";
}

TEST_F(DrawImg, ShowsThreeChannelsAsRedGreenAndBlue)
{
    m_driver.m_channels = {Halves(20, 10, 20), Halves(20, 20, 10), Constant(0)};
    Draw(CRect(0, 0, 40, 40));
    EXPECT_EQ(m_picture.At(5, 20), RGB(0, 255, 0));
    EXPECT_EQ(m_picture.At(35, 20), RGB(255, 0, 0));
    m_driver.m_channels = {Constant(0), Constant(0), Constant(9)};
    Draw(CRect(0, 0, 40, 40));
    EXPECT_EQ(m_picture.At(5, 20), RGB(0, 0, 255));
}

TEST_F(DrawImg, UsesThreeOfMoreChannels)
{
    m_driver.m_channels = {Constant(0), Constant(3), Constant(0), Constant(9), Constant(9)};
    Draw(CRect(0, 0, 40, 40));
    EXPECT_EQ(m_picture.At(5, 20), RGB(0, 255, 0));
    EXPECT_EQ(m_driver.m_reads.size(), 3U);
}

TEST_F(DrawImg, StretchesEveryChannelByItself)
{
    m_driver.m_channels = {Halves(20, 10, 12), Halves(20, 100, 185), Halves(20, 1, 86)};
    Draw(CRect(0, 0, 40, 40));
    EXPECT_EQ(m_picture.At(5, 20), Grey(0));
    EXPECT_EQ(m_picture.At(35, 20), Grey(255));
}

class DrawImgOfType : public DrawImg, public testing::WithParamInterface<DMITypes::RDIDataType>
{
};

TEST_P(DrawImgOfType, StretchesItsValuesToGrey)
{
    m_driver.m_channels = {{GetParam(), [](int x, int) { return 10.0 + x; }}};
    Draw(CRect(0, 0, 103, 103)); // values 10 to 112, a scale of 2.5
    EXPECT_EQ(m_picture.At(0, 50), Grey(0));
    EXPECT_EQ(m_picture.At(51, 50), Grey(127));
    EXPECT_EQ(m_picture.At(102, 50), Grey(255));
}

INSTANTIATE_TEST_SUITE_P(EveryType, DrawImgOfType,
                         testing::Values(DMITypes::rdiUInt8, DMITypes::rdiUInt16, DMITypes::rdiInt16,
                                         DMITypes::rdiUInt32, DMITypes::rdiInt32, DMITypes::rdiFloat32),
                         [](const auto& info) { return "Code" + std::to_string(static_cast<int>(info.param)); });

TEST_F(DrawImg, ShowsAChannelOfAnUnknownTypeBlackWithoutReadingIt)
{
    m_driver.m_channels = {Constant(7, static_cast<DMITypes::RDIDataType>(64))};
    EXPECT_TRUE(Draw(CRect(0, 0, 40, 40)));
    EXPECT_EQ(m_picture.At(20, 20), Grey(0));
    EXPECT_TRUE(m_driver.m_reads.empty());
}

TEST_F(DrawImg, ReadsTheWholeImageAtTheSizeShown)
{
    m_driver.m_size = {4000, 2000};
    m_driver.m_channels = {Constant(1)};
    Draw(CRect(0, 0, 100, 100));
    EXPECT_THAT(m_driver.m_reads, testing::ElementsAre(Read{0, 0.0, 0.0, 4000.0, 2000.0, 100, 50, 3, true}));
    EXPECT_TRUE(m_driver.m_bufferWasZero) << "the buffer is handed over all zero";
}

TEST_F(DrawImg, DividesTheSizeByTheStepsOfTheAxes)
{
    m_driver.m_size = {400, 200};
    m_driver.m_steps.m_nStepX = 4;
    m_driver.m_steps.m_nStepY = 2;
    m_driver.m_channels = {Constant(1)};
    Draw(CRect(0, 0, 300, 200));
    EXPECT_THAT(m_driver.m_reads, testing::ElementsAre(Read{0, 0.0, 0.0, 100.0, 100.0, 200, 200, 3, true}));
}

TEST_F(DrawImg, TakesStepsBelowOneAsOne)
{
    m_driver.m_steps.m_nStepX = 0;
    m_driver.m_steps.m_nStepY = -5;
    m_driver.m_channels = {Constant(1)};
    Draw(CRect(0, 0, 50, 50));
    EXPECT_THAT(m_driver.m_reads, testing::ElementsAre(Read{0, 0.0, 0.0, 100.0, 100.0, 50, 50, 3, true}));
    m_driver.m_hasSteps = false;
    m_driver.m_reads.clear();
    Draw(CRect(0, 0, 50, 50));
    EXPECT_EQ(m_driver.m_reads.size(), 1U);
}

TEST_F(DrawImg, AnswersFalseForAFileThatWontOpenAndPaintsNothing)
{
    m_driver.m_opens = false;
    EXPECT_FALSE(Draw(CRect(0, 0, 40, 40)));
    EXPECT_FALSE(DrawImgToDC("C:\\no\\such\\picture.tif", m_picture.DC(), CRect(0, 0, 40, 40)));
    EXPECT_FALSE(DrawImgToDC("", m_picture.DC(), CRect(0, 0, 40, 40)));
    EXPECT_FALSE(DrawImgToDC(nullptr, m_picture.DC(), CRect(0, 0, 40, 40)));
    EXPECT_TRUE(m_picture.Painted().IsRectEmpty());
}

TEST_F(DrawImg, ShowsAPictureThatCantBeReadBlack)
{
    m_driver.m_channels = {Halves(20, 10, 20)};
    m_driver.m_channels[0].readable = false;
    EXPECT_TRUE(Draw(CRect(0, 0, 40, 40)));
    EXPECT_EQ(m_picture.Painted(), CRect(0, 0, 40, 40));
    EXPECT_EQ(m_picture.At(5, 20), Grey(0));
    EXPECT_EQ(m_picture.At(35, 20), Grey(0));
}

TEST_F(DrawImg, ClosesTheFileEveryTimeAndReadsItAnew)
{
    m_driver.m_channels = {Constant(1)};
    for (int i = 0; i < 3; ++i)
    {
        Draw(CRect(0, 0, 40, 40));
        EXPECT_EQ(m_driver.m_open, 0);
    }
    EXPECT_EQ(m_driver.m_opened, 3);
    EXPECT_EQ(m_driver.m_reads.size(), 3U);
}

TEST_F(DrawImg, PaintsNothingWhereThereIsNoRoomOrNoPicture)
{
    m_driver.m_channels = {Constant(1)};
    EXPECT_TRUE(Draw(CRect(40, 40, 40, 80)));
    EXPECT_TRUE(Draw(CRect(80, 80, 40, 40)));
    m_driver.m_size = {0, 0};
    EXPECT_TRUE(Draw(CRect(0, 0, 40, 40)));
    m_driver.m_channels.clear();
    EXPECT_TRUE(Draw(CRect(0, 0, 40, 40)));
    m_driver.m_size = {10000, 1};
    m_driver.m_channels = {Constant(1)};
    EXPECT_TRUE(Draw(CRect(0, 0, 40, 40)));
    EXPECT_TRUE(m_picture.Painted().IsRectEmpty());
    EXPECT_EQ(m_driver.m_open, 0);
    EXPECT_TRUE(DrawImgToDC("synthetic:x", nullptr, CRect(0, 0, 40, 40)));
}

TEST_F(DrawImg, GivesUpOnARectangleBeyondAllMemory)
{
    m_driver.m_channels = {Constant(1)};
    EXPECT_TRUE(Draw(CRect(0, 0, 2'000'000'000, 2'000'000'000)));
    EXPECT_EQ(m_driver.m_open, 0);
}

TEST_F(DrawImg, ShowsARealFileWithItsContrastStretched)
{
    EXPECT_TRUE(DrawImgToDC(support::SamplePath("cell8.tif").c_str(), m_picture.DC(), CRect(0, 0, 300, 300)));
    const CRect painted = m_picture.Painted();
    EXPECT_FALSE(painted.IsRectEmpty());
    int darkest = 255;
    int brightest = 0;
    for (int y = painted.top; y < painted.bottom; ++y)
    {
        for (int x = painted.left; x < painted.right; ++x)
        {
            const COLORREF pixel = m_picture.At(x, y);
            ASSERT_EQ(pixel, Grey(GetRValue(pixel))) << x << ", " << y;
            darkest = std::min<int>(darkest, GetRValue(pixel));
            brightest = std::max<int>(brightest, GetRValue(pixel));
        }
    }
    EXPECT_LE(darkest, 1);
    EXPECT_GE(brightest, 254);
}

} // namespace
