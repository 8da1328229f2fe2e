// RasterDriverTest.cpp - real picture files through the registry of raster drivers, and files that are none

#include <objbase.h>
#include <windows.h>
#include <psapi.h>

#include <cstdlib>
#include <cmath>
#include <cstring>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "tavkit/frame/services/RDIDriverMngr.h"
#include "tests/support/TiffWriter.h"

namespace
{

using support::OnePage;
using support::TiffKind;
using support::TiffPacking;
using support::TiffPageSpec;
using testing::ElementsAre;

constexpr unsigned kModeNearest = 1;
constexpr unsigned kModeAverage = 2;
constexpr unsigned kModeAny = 3;

std::string Sample(const std::string& name)
{
    const char* folder = std::getenv("TAVKIT_SAMPLES");
    return std::string(folder != nullptr ? folder : "samples") + "\\" + name;
}

/// Small files that other programs wrote, one of each kind; the fuzzer starts from them too.
std::string SmallFile(const std::string& name) { return Sample("..\\tests\\fuzz\\RasterFuzz\\" + name); }

/// A file that is gone at the end of the test.
class TempFile
{
public:
    TempFile()
    {
        char folder[MAX_PATH];
        char path[MAX_PATH];
        ::GetTempPathA(sizeof folder, folder);
        ::GetTempFileNameA(folder, "ras", 0, path);
        m_path = path;
    }
    explicit TempFile(const std::string& bytes) : TempFile()
    {
        std::ofstream(m_path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    ~TempFile() { EXPECT_TRUE(::DeleteFileA(m_path.c_str())) << "still open: " << m_path; }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;

    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

std::string Load(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A picture, opened as the library does it.
class Opened
{
public:
    explicit Opened(const std::string& name, const char* options = "")
    {
        m_isOpen = RDIDriverMngr::Instance()->OpenFile(BDIMoniker(name.c_str(), nullptr), &m_driver, &m_handle, options,
                                                       &m_error, nullptr);
    }
    ~Opened()
    {
        if (m_isOpen)
        {
            m_driver->CloseFile(m_handle);
        }
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    explicit operator bool() const { return m_isOpen; }
    int Channels() { return m_driver->GetNumChnl(m_handle); }
    int Width() { return m_driver->GetChnlSizeX(m_handle, 0); }
    int Height() { return m_driver->GetChnlSizeY(m_handle, 0); }
    int Type() { return m_driver->GetChnlDataType(m_handle, 0); }

    template <class Value>
    bool Read(int channel, double left, double top, double right, double bottom, std::vector<Value>& values, int width,
              int height, unsigned mode = kModeAny)
    {
        values.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
        return m_driver->ReadBlockRsmpl(m_handle, channel, left, top, right, bottom, values.data(), width, height, mode,
                                        true);
    }

    template <class Value = unsigned char>
    Value At(int x, int y, int channel = 0)
    {
        std::vector<Value> value;
        EXPECT_TRUE(Read(channel, x, y, x + 1, y + 1, value, 1, 1));
        return value.front();
    }

    std::vector<int> ColourAt(int x, int y) { return {At(x, y, 0), At(x, y, 1), At(x, y, 2)}; }

    RDIDriver* m_driver = nullptr;
    void* m_handle = nullptr;
    DError m_error;
    bool m_isOpen = false;
};

// --- the pictures of the samples, against values that another program read

TEST(RasterSamples, AnEightBitTiffKeepsItsValues)
{
    Opened picture(Sample("cell8.tif"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.Channels(), 1);
    EXPECT_EQ(picture.Width(), 550);
    EXPECT_EQ(picture.Height(), 660);
    EXPECT_EQ(picture.Type(), DMITypes::rdiUInt8);
    EXPECT_EQ(picture.At(0, 0), 71);
    EXPECT_EQ(picture.At(100, 200), 72);
    EXPECT_EQ(picture.At(549, 659), 61);
}

TEST(RasterSamples, ASixteenBitTiffKeepsItsValues)
{
    Opened picture(Sample("cell16.tif"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.Type(), DMITypes::rdiUInt16);
    EXPECT_EQ(picture.At<unsigned short>(3, 7), 6639);
    EXPECT_EQ(picture.At<unsigned short>(100, 200), 7068);
    EXPECT_EQ(picture.At<unsigned short>(549, 659), 6125);
}

TEST(RasterSamples, AFloatingPointTiffKeepsItsValues)
{
    Opened picture(Sample("cell_float.tif"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.Type(), DMITypes::rdiFloat32);
    EXPECT_FLOAT_EQ(picture.At<float>(0, 0), 0.2789243757724762F);
    EXPECT_FLOAT_EQ(picture.At<float>(100, 200), 0.28057244420051575F);
    EXPECT_FLOAT_EQ(picture.At<float>(549, 659), 0.23688557744026184F);
}

TEST(RasterSamples, AColourTiffHasRedGreenAndBlueInThisOrder)
{
    Opened picture(Sample("deepfield.tif"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.Channels(), 3);
    EXPECT_THAT(picture.ColourAt(10, 20), ElementsAre(4, 8, 7));
    EXPECT_THAT(picture.ColourAt(500, 400), ElementsAre(14, 19, 15));
    EXPECT_THAT(picture.ColourAt(999, 871), ElementsAre(7, 18, 12));
}

TEST(RasterSamples, AColourPngHasRedGreenAndBlueInThisOrder)
{
    Opened picture(Sample("tissue.png"));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.Channels(), 3);
    EXPECT_THAT(picture.ColourAt(0, 0), ElementsAre(156, 118, 81));
    EXPECT_THAT(picture.ColourAt(256, 100), ElementsAre(115, 72, 40));
    EXPECT_THAT(picture.ColourAt(511, 511), ElementsAre(215, 210, 207));
}

TEST(RasterSamples, PagesCountFromZero)
{
    Opened first(Sample("slides.tif"));
    Opened second(Sample("slides.tif?page=1"));
    Opened fourth(Sample("slides.tif"), "page=3");
    ASSERT_TRUE(first && second && fourth);
    EXPECT_EQ(first.Width(), 550);
    EXPECT_EQ(second.Width(), 102);
    EXPECT_EQ(second.At(10, 90), 114);
    EXPECT_EQ(second.At(101, 101), 86);
    EXPECT_EQ(fourth.Width(), 471);
    EXPECT_EQ(fourth.At(200, 100), 120);
}

TEST(RasterSamples, APageThatIsntThereCantBeOpened)
{
    for (const char* name :
         {"slides.tif?page=4", "slides.tif?page=4294967295", "slides.tif?page=-1",
          "slides.tif?page=", "slides.tif?page=1x", "slides.tif?sheet=1", "tissue.png?page=1", "cell8.tif?page=1"})
    {
        EXPECT_FALSE(Opened(Sample(name))) << name;
    }
    EXPECT_FALSE(Opened(Sample("slides.tif?page=1"), "page=2")) << "two pages at once";
    EXPECT_TRUE(Opened(Sample("cell8.tif?page=0")));
}

// --- files of other programs

TEST(RasterFiles, AllKindsDeliverTheirPixels)
{
    struct Expected
    {
        const char* name;
        int channels;
        int type;
        std::vector<double> at5and3;
        double tolerance;
    };
    const std::vector<Expected> files = {
        {"quarters.gif", 3, DMITypes::rdiUInt8, {255, 0, 0}, 0},
        {"quarters.bmp", 3, DMITypes::rdiUInt8, {255, 0, 0}, 0},
        {"quarters_palette.png", 3, DMITypes::rdiUInt8, {255, 0, 0}, 0},
        {"quarters_palette.tif", 3, DMITypes::rdiUInt8, {255, 0, 0}, 0},
        {"cmyk.tif", 3, DMITypes::rdiUInt8, {255, 0, 0}, 1},
        {"checks.png", 1, DMITypes::rdiUInt8, {0}, 0},
        {"checks.tif", 1, DMITypes::rdiUInt8, {0}, 0},
        {"grey16.png", 1, DMITypes::rdiUInt16, {5111}, 0},
        {"grey16_lzw.tif", 1, DMITypes::rdiUInt16, {5111}, 0},
        {"rgb16.png", 3, DMITypes::rdiUInt16, {5000, 6000, 15}, 0},
        {"rgb16_zip.tif", 3, DMITypes::rdiUInt16, {5000, 6000, 15}, 0},
        {"rgba.png", 3, DMITypes::rdiUInt8, {50, 36, 40}, 0},
        {"colour.bmp", 3, DMITypes::rdiUInt8, {50, 36, 40}, 0},
        {"rgb_packbits.tif", 3, DMITypes::rdiUInt8, {50, 36, 40}, 0},
        {"rgb_tiled_lzw.tif", 3, DMITypes::rdiUInt8, {50, 36, 40}, 0},
        {"float_zip.tif", 1, DMITypes::rdiFloat32, {44 / 255.0}, 1e-6},
        {"grey.jpg", 1, DMITypes::rdiUInt8, {44}, 3},
        {"colour.jpg", 3, DMITypes::rdiUInt8, {48, 36, 40}, 4},
    };
    for (const Expected& file : files)
    {
        SCOPED_TRACE(file.name);
        Opened picture(SmallFile(file.name));
        EXPECT_TRUE(picture) << picture.m_error.GetErrorText().c_str();
        if (!picture)
        {
            continue;
        }
        EXPECT_EQ(picture.Width(), 24);
        EXPECT_EQ(picture.Height(), 20);
        EXPECT_EQ(picture.Channels(), file.channels);
        EXPECT_EQ(picture.Type(), file.type);
        for (int channel = 0; channel < std::min(picture.Channels(), file.channels); ++channel)
        {
            const double expected = file.at5and3[static_cast<std::size_t>(channel)];
            const double value = picture.Type() == DMITypes::rdiFloat32  ? picture.At<float>(5, 3, channel)
                                 : picture.Type() == DMITypes::rdiUInt16 ? picture.At<unsigned short>(5, 3, channel)
                                                                         : picture.At(5, 3, channel);
            EXPECT_NEAR(value, expected, file.tolerance) << "channel " << channel;
        }
    }
}

TEST(RasterFiles, TheFourQuartersOfAPaletteKeepTheirColours)
{
    for (const char* name : {"quarters.gif", "quarters.bmp", "quarters_palette.png", "quarters_palette.tif"})
    {
        Opened picture(SmallFile(name));
        ASSERT_TRUE(picture) << name;
        EXPECT_THAT(picture.ColourAt(11, 9), ElementsAre(255, 0, 0)) << name;
        EXPECT_THAT(picture.ColourAt(12, 9), ElementsAre(0, 255, 0)) << name;
        EXPECT_THAT(picture.ColourAt(0, 19), ElementsAre(0, 0, 255)) << name;
        EXPECT_THAT(picture.ColourAt(23, 10), ElementsAre(10, 20, 30)) << name;
    }
}

TEST(RasterFiles, SignedAndLongTiffValuesKeepTheirSignAndSize)
{
    struct Case
    {
        TiffKind kind;
        unsigned bits;
        int type;
        double value;
    };
    for (const Case& c :
         {Case{TiffKind::Signed, 16, DMITypes::rdiInt16, -12345}, Case{TiffKind::Signed, 8, DMITypes::rdiInt16, -100},
          Case{TiffKind::Unsigned, 32, DMITypes::rdiUInt32, 4000000001.0},
          Case{TiffKind::Signed, 32, DMITypes::rdiInt32, -2000000001.0}})
    {
        for (const bool bigEndian : {false, true})
        {
            TiffPageSpec page;
            page.width = page.height = 20;
            page.kind = c.kind;
            page.bits = c.bits;
            page.value = [&c](unsigned, unsigned, unsigned) { return c.value; };
            const TempFile file(OnePage(page, {bigEndian, false}).Bytes());
            Opened picture(file.Path());
            ASSERT_TRUE(picture);
            EXPECT_EQ(picture.Type(), c.type);
            const double value = c.type == DMITypes::rdiInt16    ? static_cast<double>(picture.At<short>(3, 4))
                                 : c.type == DMITypes::rdiUInt32 ? static_cast<double>(picture.At<unsigned>(3, 4))
                                                                 : static_cast<double>(picture.At<int>(3, 4));
            EXPECT_EQ(value, c.value);
        }
    }
}

// --- windows

TEST(RasterWindows, APictureInItsOwnSizeComesAsItIs)
{
    Opened picture(Sample("cell8.tif"));
    ASSERT_TRUE(picture);
    std::vector<unsigned char> values;
    ASSERT_TRUE(picture.Read(0, 0, 0, 550, 660, values, 550, 660));
    const std::string bytes = Load(Sample("cell8.tif"));
    EXPECT_NE(bytes.find(std::string(values.begin(), values.end())), std::string::npos)
        << "the file holds it as one block";
}

TEST(RasterWindows, WhatLiesBesideThePictureIsZero)
{
    Opened picture(Sample("cell8.tif"));
    ASSERT_TRUE(picture);
    for (const unsigned mode : {kModeNearest, kModeAverage, kModeAny})
    {
        std::vector<unsigned char> values(9, 0xCC);
        ASSERT_TRUE(picture.Read(0, -1, -1, 2, 2, values, 3, 3, mode));
        EXPECT_THAT(values,
                    ElementsAre(0, 0, 0, 0, picture.At(0, 0), picture.At(1, 0), 0, picture.At(0, 1), picture.At(1, 1)));
        ASSERT_TRUE(picture.Read(0, 1000, 0, 1003, 3, values, 3, 3, mode));
        EXPECT_THAT(values, testing::Each(0));
    }
}

TEST(RasterWindows, ChannelsReadInAnyOrderAreTheSame)
{
    Opened picture(Sample("tissue.png"));
    ASSERT_TRUE(picture);
    std::vector<unsigned char> first[3];
    for (int channel = 0; channel < 3; ++channel)
    {
        ASSERT_TRUE(picture.Read(channel, 10.5, 20.25, 400, 300, first[channel], 100, 80));
    }
    for (int channel = 2; channel >= 0; --channel)
    {
        std::vector<unsigned char> again;
        ASSERT_TRUE(picture.Read(channel, 0, 0, 512, 512, again, 3, 3));
        ASSERT_TRUE(picture.Read(channel, 10.5, 20.25, 400, 300, again, 100, 80));
        EXPECT_EQ(again, first[channel]);
    }
}

TEST(RasterWindows, ImproperRequestsAreRefusedAndTheBufferIsLeftAlone)
{
    Opened picture(Sample("cell8.tif"));
    ASSERT_TRUE(picture);
    unsigned char value = 77;
    RDIDriver& driver = *picture.m_driver;
    void* const file = picture.m_handle;
    const double nan = std::nan("");
    EXPECT_FALSE(driver.ReadBlockRsmpl(file, 1, 0, 0, 1, 1, &value, 1, 1, kModeAny, true)) << "no such channel";
    EXPECT_FALSE(driver.ReadBlockRsmpl(file, -1, 0, 0, 1, 1, &value, 1, 1, kModeAny, true));
    EXPECT_FALSE(driver.ReadBlockRsmpl(file, 0, 1, 0, 1, 1, &value, 1, 1, kModeAny, true)) << "empty window";
    EXPECT_FALSE(driver.ReadBlockRsmpl(file, 0, 2, 0, 1, 1, &value, 1, 1, kModeAny, true)) << "turned round";
    EXPECT_FALSE(driver.ReadBlockRsmpl(file, 0, nan, 0, 1, 1, &value, 1, 1, kModeAny, true));
    EXPECT_FALSE(driver.ReadBlockRsmpl(file, 0, 0, 0, HUGE_VAL, 1, &value, 1, 1, kModeAny, true));
    EXPECT_FALSE(driver.ReadBlockRsmpl(file, 0, 0, 0, 1, 1, &value, 0, 1, kModeAny, true)) << "no target";
    EXPECT_FALSE(driver.ReadBlockRsmpl(file, 0, 0, 0, 1, 1, nullptr, 1, 1, kModeAny, true));
    EXPECT_FALSE(driver.ReadBlockRsmpl(file, 0, 0, 0, 1, 1, &value, 1, 1, 4, true)) << "no such mode";
    EXPECT_FALSE(driver.ReadBlockRsmpl(file, 0, 0, 0, 2, 1, &value, 1, 1, kModeAny, false)) << "would need resampling";
    EXPECT_FALSE(driver.ReadBlockRsmpl(nullptr, 0, 0, 0, 1, 1, &value, 1, 1, kModeAny, true));
    EXPECT_EQ(value, 77);
    EXPECT_TRUE(driver.ReadBlockRsmpl(file, 0, 3, 0, 4, 1, &value, 1, 1, kModeAny, false));
}

TEST(RasterWindows, AFileThatIsCutOffWhileOpenReadsAsFalseAndZero)
{
    TiffPageSpec page;
    page.width = page.height = 100;
    page.value = [](unsigned, unsigned, unsigned) { return 9; };
    const TempFile file(OnePage(page).Bytes());
    Opened picture(file.Path());
    ASSERT_TRUE(picture);
    std::ofstream(file.Path(), std::ios::binary | std::ios::trunc) << "II";
    std::vector<unsigned char> values(100, 0xCC);
    EXPECT_FALSE(picture.Read(0, 0, 0, 100, 100, values, 10, 10));
    EXPECT_THAT(values, testing::Each(0));
}

// --- files that are none

class RasterRefusal : public testing::Test
{
protected:
    /// True if the file is refused as it should be.
    static bool IsRefused(const std::string& name)
    {
        int marker = 0;
        auto* driver = reinterpret_cast<RDIDriver*>(&marker);
        void* handle = &marker;
        DError error;
        const bool opened = RDIDriverMngr::Instance()->OpenFile(BDIMoniker(name.c_str(), nullptr), &driver, &handle, "",
                                                                &error, nullptr);
        if (opened)
        {
            driver->CloseFile(handle);
            return false;
        }
        EXPECT_EQ(static_cast<void*>(driver), &marker);
        EXPECT_EQ(handle, &marker);
        EXPECT_TRUE(error.HasError());
        EXPECT_GT(error.GetErrorText().GetLength(), 0);
        return true;
    }
};

TEST_F(RasterRefusal, WhatIsNoFileIsRefused)
{
    EXPECT_TRUE(IsRefused(""));
    EXPECT_TRUE(IsRefused("?page=0"));
    EXPECT_TRUE(IsRefused(Sample("no such file.tif")));
    EXPECT_TRUE(IsRefused(Sample("..\\samples"))) << "a folder";
    EXPECT_TRUE(IsRefused(Sample("no such folder\\cell8.tif")));
    EXPECT_TRUE(IsRefused("NUL"));
    EXPECT_TRUE(IsRefused(Sample("nuclei.csv"))) << "no picture";
}

TEST_F(RasterRefusal, AFileThatMayNotBeReadIsRefused)
{
    const TempFile file(Load(Sample("cell8.tif")));
    const HANDLE locked =
        ::CreateFileA(file.Path().c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(locked, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(IsRefused(file.Path()));
    ::CloseHandle(locked);
    EXPECT_FALSE(IsRefused(file.Path()));
}

TEST_F(RasterRefusal, GarbageBehindEverySignatureIsRefused)
{
    using namespace std::string_literals;
    std::string garbage;
    for (unsigned i = 0, seed = 1; i < 5000; ++i, seed = seed * 1103515245 + 12345)
    {
        garbage += static_cast<char>(seed >> 16);
    }
    for (const std::string& start :
         {""s, "II*\0\x08\0\0\0"s, "MM\0*\0\0\0\x08"s, "\x89PNG\r\n\x1A\n"s, "\xFF\xD8\xFF"s, "GIF89a"s, "BM"s})
    {
        EXPECT_TRUE(IsRefused(TempFile(start).Path())) << start;
        EXPECT_TRUE(IsRefused(TempFile(start + garbage).Path())) << start;
        EXPECT_TRUE(IsRefused(TempFile(start + std::string(5000, '\0')).Path())) << start;
    }
}

TEST_F(RasterRefusal, AFileCutOffAnywhereIsRefusedOrFailsToRead)
{
    for (const char* name : {"quarters.gif", "quarters_palette.png", "rgba.png", "quarters.bmp", "grey16_lzw.tif",
                             "quarters_palette.tif", "grey.jpg", "rgb16_zip.tif", "cmyk.tif"})
    {
        const std::string whole = Load(SmallFile(name));
        ASSERT_FALSE(whole.empty()) << name;
        const auto readAll = [](Opened& picture, int channel, std::vector<float>& values) {
            values.assign(24 * 20, -1.0F); // as large as the widest type needs
            return picture.m_driver->ReadBlockRsmpl(picture.m_handle, channel, 0, 0, 24, 20, values.data(), 24, 20,
                                                    kModeAny, true);
        };
        std::vector<float> expected[3];
        {
            Opened picture(SmallFile(name));
            ASSERT_TRUE(picture) << name;
            for (int channel = 0; channel < picture.Channels(); ++channel)
            {
                ASSERT_TRUE(readAll(picture, channel, expected[channel]));
            }
        }
        const std::size_t step = whole.size() > 250 ? 11 : 1; // each opening of the small ones, a sample of the others
        for (std::size_t size = 0; size < whole.size(); size += step)
        {
            const TempFile file(whole.substr(0, size));
            Opened picture(file.Path());
            EXPECT_TRUE(picture || picture.m_error.HasError());
            for (int channel = 0; picture && channel < picture.Channels(); ++channel)
            {
                // What lacks no pixel, but only an end mark or a remark behind them, may be read still.
                std::vector<float> values;
                if (readAll(picture, channel, values))
                {
                    EXPECT_EQ(std::memcmp(values.data(), expected[channel].data(), values.size() * sizeof(float)), 0)
                        << name << " cut at " << size << " of " << whole.size();
                }
            }
        }
    }
}

TEST_F(RasterRefusal, AClaimOfFourThousandMillionPixelsCostsNothing)
{
    using namespace std::string_literals;
    const std::string png = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\xFF\xFF\0\0\xFF\xFF\x08\0\0\0\0\0\0\0\0"s;
    const std::string bmp = "BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\xFF\xFF\0\0\xFF\xFF\0\0\x01\0\x08\0\0\0\0\0"s;
    const std::string jpg = "\xFF\xD8\xFF\xC0\0\x0B\x08\xFF\xFF\xFF\xFF\x01\x01\x11\0"s;
    const std::string gif = "GIF89a\xFF\xFF\xFF\xFF\0\0\0,\0\0\0\0\xFF\xFF\xFF\xFF\0\x08\0"s;
    PROCESS_MEMORY_COUNTERS before{};
    ASSERT_TRUE(::GetProcessMemoryInfo(::GetCurrentProcess(), &before, sizeof before));
    for (const std::string& start : {png, bmp, jpg, gif})
    {
        EXPECT_TRUE(IsRefused(TempFile(start + std::string(2000, '\0')).Path()));
    }
    PROCESS_MEMORY_COUNTERS after{};
    ASSERT_TRUE(::GetProcessMemoryInfo(::GetCurrentProcess(), &after, sizeof after));
    EXPECT_LT(after.PeakWorkingSetSize - before.WorkingSetSize, std::size_t{100} << 20);
}

TEST_F(RasterRefusal, PlacesForTheResultsMustBeGiven)
{
    const BDIMoniker moniker(Sample("cell8.tif").c_str(), nullptr);
    RDIDriver* driver = nullptr;
    void* handle = nullptr;
    DError error;
    EXPECT_FALSE(RDIDriverMngr::Instance()->OpenFile(moniker, nullptr, &handle, "", &error, nullptr));
    EXPECT_FALSE(RDIDriverMngr::Instance()->OpenFile(moniker, &driver, nullptr, "", &error, nullptr));
    EXPECT_FALSE(RDIDriverMngr::Instance()->OpenFile(moniker, &driver, &handle, "", nullptr, "no such driver"));
    EXPECT_FALSE(
        RDIDriverMngr::Instance()->OpenFile(BDIMoniker(nullptr, nullptr), &driver, &handle, nullptr, nullptr, nullptr));
}

// --- size, threads, further drivers

TEST(RasterSize, AHugeTiledPictureCostsWhatTheWindowShows)
{
    constexpr unsigned kSide = 20000;
    constexpr unsigned kTile = 256;
    TiffPageSpec page;
    page.width = page.height = kSide;
    page.tileWidth = page.tileHeight = kTile;
    page.sharedTile = true;
    page.value = [](unsigned x, unsigned y, unsigned) { return (x + 2 * y) % 251; };
    const TempFile file(OnePage(page).Bytes());
    Opened picture(file.Path());
    ASSERT_TRUE(picture);
    std::vector<unsigned char> values;
    ASSERT_TRUE(picture.Read(0, 0, 0, kSide, kSide, values, 400, 300));
    for (unsigned y = 0; y < 300; ++y)
    {
        for (unsigned x = 0; x < 400; ++x)
        {
            const unsigned sourceX = (2 * x + 1) * kSide / 800 % kTile;
            const unsigned sourceY = (2 * y + 1) * kSide / 600 % kTile;
            ASSERT_EQ(values[y * 400 + x], (sourceX + 2 * sourceY) % 251) << x << ' ' << y;
        }
    }
    ASSERT_TRUE(picture.Read(0, 0, 0, kSide, kSide, values, 400, 300, kModeAverage));
    PROCESS_MEMORY_COUNTERS memory{};
    ASSERT_TRUE(::GetProcessMemoryInfo(::GetCurrentProcess(), &memory, sizeof memory));
    EXPECT_LT(memory.PeakWorkingSetSize, std::size_t{400} << 20);
    EXPECT_LT(memory.PeakPagefileUsage, std::size_t{400} << 20);
}

TEST(RasterThreads, PicturesOpenWhateverTheThreadHasDoneAboutCom)
{
    for (const DWORD kind : {DWORD{COINIT_APARTMENTTHREADED}, DWORD{COINIT_MULTITHREADED}, DWORD{MAXDWORD}})
    {
        std::thread([kind] {
            if (kind != MAXDWORD)
            {
                ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, kind)));
            }
            {
                Opened picture(Sample("tissue.png"));
                EXPECT_TRUE(picture);
                EXPECT_EQ(picture.At(0, 0), 156);
            }
            if (kind != MAXDWORD)
            {
                ::CoUninitialize();
            }
            else
            {
                // Nothing stays behind: the thread may choose its apartment still.
                EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
                ::CoUninitialize();
            }
        }).join();
    }
}

class OddDriver final : public RDIDriver
{
public:
    bool Accepts(BDIMoniker const& moniker) const override { return moniker.GetFrmtExtn() == "odd"; }
    void* OpenFile(BDIMoniker const& moniker, DError*) override
    {
        m_asked = moniker.GetMoniker().c_str();
        return m_opens ? this : nullptr;
    }
    int GetNumChnl(void*) override { return 7; }
    int GetChnlSizeX(void*, int) override { return 1; }
    int GetChnlSizeY(void*, int) override { return 1; }
    bool GetChnlGeoCode(void*, int, RDIGeoCoo*) override { return false; }
    DMITypes::RDIDataType GetChnlDataType(void*, int) override { return DMITypes::rdiUInt8; }
    bool ReadBlockRsmpl(void*, int, double, double, double, double, void*, int, int, unsigned, bool) override
    {
        return false;
    }
    void CloseFile(void*) override { ++m_closed; }

    std::string m_asked;
    bool m_opens = true;
    int m_closed = 0;
};

TEST(RasterDrivers, ADriverThatAcceptsTheNameComesBeforeThePlatforms)
{
    OddDriver older;
    OddDriver newer;
    auto* const registry = RDIDriverMngr::Instance();
    registry->Register(&older);
    registry->Register(&newer);
    registry->Register(&older); // is there already
    registry->Register(nullptr);
    {
        Opened picture("no file.odd", "a=1");
        ASSERT_TRUE(picture);
        EXPECT_EQ(picture.m_driver, &newer);
        EXPECT_EQ(picture.Channels(), 7);
        EXPECT_EQ(newer.m_asked, "no file.odd?a=1");
        EXPECT_TRUE(Opened(Sample("cell8.tif")));
    }
    EXPECT_EQ(newer.m_closed, 1);
    registry->Unregister(&newer);
    registry->Unregister(&newer);
    EXPECT_EQ(Opened("x.odd").m_driver, &older);
    older.m_opens = false;
    Opened refused("x.odd");
    EXPECT_FALSE(refused);
    EXPECT_TRUE(refused.m_error.HasError());
    registry->Unregister(&older);
    EXPECT_FALSE(Opened("x.odd"));
}

TEST(RasterDrivers, AFileThatIsOpenedAndClosedOftenLeavesNoHandles)
{
    const auto count = [] {
        DWORD handles = 0;
        ::GetProcessHandleCount(::GetCurrentProcess(), &handles);
        return handles;
    };
    const auto touch = [] {
        for (const char* name : {"tissue.png", "cell8.tif", "nuclei.csv", "slides.tif?page=9"})
        {
            const Opened picture(Sample(name));
        }
    };
    touch();
    const DWORD before = count();
    for (int i = 0; i < 20; ++i)
    {
        touch();
    }
    EXPECT_LE(count(), before);
}

} // namespace
