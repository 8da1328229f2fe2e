// TavImageListTest.cpp - glyphs painted on demand, pixel by pixel, and what is remembered of them

#include "Picture.h"

#include "support/TempFolder.h"
#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <afxcmn.h>

#include <algorithm>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace
{

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlue = RGB(20, 40, 200);
constexpr COLORREF kGreen = RGB(30, 160, 60);
constexpr COLORREF kBehind = RGB(1, 2, 3);
constexpr CRect kLarge(1, 1, 16, 15);
constexpr int kSide = 16;

// Icons of one colour each, in this program's resources.
constexpr UINT kGreenIcon = 7101;
constexpr UINT kBlueIcon = 7102;
constexpr UINT kNoSuchIcon = 7199;
constexpr COLORREF kGreenIconColor = RGB(0x10, 0xC0, 0x20);
constexpr COLORREF kBlueIconColor = RGB(0x20, 0x30, 0xD0);

// The pixels of one image.
class Pixels
{
public:
    explicit Pixels(Picture const& picture)
    {
        for (int i = 0; i < kSide * kSide; ++i)
        {
            m_pixels.push_back(picture.At(i % kSide, i / kSide));
        }
    }

    [[nodiscard]] COLORREF At(int x, int y) const { return m_pixels[static_cast<std::size_t>(y * kSide + x)]; }
    bool operator==(Pixels const&) const = default;

    friend void PrintTo(Pixels const& pixels, std::ostream* out)
    {
        for (int y = 0; y < kSide; ++y)
        {
            *out << '\n';
            for (int x = 0; x < kSide; ++x)
            {
                COLORREF const at = pixels.At(x, y);
                *out << (at == kRed ? 'r' : at == kBlack ? 'k' : at == kWhite ? '.' : at == kBlue ? 'b' : '?');
            }
        }
    }

private:
    std::vector<COLORREF> m_pixels;
};

class TavImageList : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame.emplace();
        m_list.emplace();
        m_list->SetWindow(&*m_frame);
        m_list->Create();
    }

    void TearDown() override
    {
        m_list.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }

    // The image as the list draws it.
    Pixels Draw(int image)
    {
        Picture picture(kSide, kSide, kBehind);
        EXPECT_TRUE(m_list->Draw(picture.DC(), image, CPoint(0, 0), ILD_NORMAL)) << "image " << image;
        return Pixels(picture);
    }

    // What an image is expected to look like: painted by hand on the colour of windows.
    template <class Paint>
    static Pixels Expected(Paint paint)
    {
        Picture picture(kSide, kSide, ::GetSysColor(COLOR_WINDOW));
        paint(*picture.DC());
        return Pixels(picture);
    }

    // A shape with a thin border.
    template <class Shape>
    static Pixels ExpectedShape(COLORREF fill, COLORREF border, Shape shape)
    {
        return Expected([&](CDC& dc) {
            CPen const pen(PS_SOLID, 1, border);
            CBrush const brush(fill);
            SelectScope const selectedPen(dc, pen);
            SelectScope const selectedBrush(dc, brush);
            shape(dc);
        });
    }

    static std::string ThisProgram()
    {
        char path[MAX_PATH];
        ::GetModuleFileNameA(nullptr, path, MAX_PATH);
        return path;
    }

    std::optional<support::TestFrame> m_frame;
    std::optional<CTavImageList> m_list;
};

TEST_F(TavImageList, HasNoListAtFirst)
{
    CTavImageList list;
    EXPECT_EQ(list.GetSafeHandle(), nullptr);
    EXPECT_EQ(list.GetDefaultImage(), 0);
    list.Clear();
    EXPECT_EQ(list.GetSafeHandle(), nullptr);
}

TEST_F(TavImageList, CreatedHasOneEmptyImageOfSixteenPixelsWhichIsTheDefault)
{
    int width = 0;
    int height = 0;
    ASSERT_TRUE(::ImageList_GetIconSize(m_list->GetSafeHandle(), &width, &height));
    EXPECT_EQ(width, kSide);
    EXPECT_EQ(height, kSide);
    EXPECT_EQ(m_list->GetImageCount(), 1);
    EXPECT_EQ(m_list->GetDefaultImage(), 0);
    EXPECT_EQ(m_list->GetBkColor(), ::GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(Draw(0), Expected([](CDC&) {}));
}

TEST_F(TavImageList, HasTheWindowsColourDepthAndNoMask)
{
    IMAGEINFO info{};
    ASSERT_TRUE(m_list->GetImageInfo(0, &info));
    BITMAP bitmap{};
    ASSERT_NE(::GetObject(info.hbmImage, sizeof bitmap, &bitmap), 0);
    EXPECT_EQ(bitmap.bmBitsPixel, CClientDC(&*m_frame).GetDeviceCaps(BITSPIXEL));
    EXPECT_EQ(info.hbmMask, nullptr);
}

TEST_F(TavImageList, CreatedAnewForgetsWhatItHeld)
{
    int const circle = m_list->GetCircle(kRed, kBlack, kLarge, false);
    m_list->GetRect(kRed, kBlack, kLarge);
    m_list->Create();
    EXPECT_EQ(m_list->GetImageCount(), 1);
    EXPECT_EQ(m_list->GetRect(kRed, kBlack, kLarge), circle) << "the first place behind the default image";
}

TEST_F(TavImageList, WithoutAListEveryGlyphIsMinusOneUntilThereIsOne)
{
    CTavImageList list;
    list.SetWindow(&*m_frame);
    EXPECT_EQ(list.GetCircle(kRed, kBlack, kLarge, false), -1);
    EXPECT_EQ(list.GetRect(kRed, kBlack, kLarge), -1);
    EXPECT_FALSE(list.ReplaceRect(0, kRed, kBlack));
    list.Create();
    EXPECT_EQ(list.GetCircle(kRed, kBlack, kLarge, false), 1);
    EXPECT_EQ(list.GetRect(kRed, kBlack, kLarge), 2);
}

TEST_F(TavImageList, WithoutAWindowTheScreenDecides)
{
    CTavImageList list;
    list.Create();
    EXPECT_EQ(list.GetImageCount(), 1);
    EXPECT_EQ(list.GetCircleSmall(kRed, kBlack), 1);
}

TEST_F(TavImageList, PaintsACircleOnTheColourOfWindows)
{
    int const image = m_list->GetCircle(kBlue, kBlack, kLarge, false);
    Pixels const circle = Draw(image);
    EXPECT_EQ(circle.At(0, 0), ::GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(circle.At(8, 0), ::GetSysColor(COLOR_WINDOW)) << "above the rectangle";
    EXPECT_EQ(circle.At(8, 1), kBlack) << "the border's top";
    EXPECT_EQ(circle.At(1, 7), kBlack);
    EXPECT_EQ(circle.At(8, 7), kBlue);
    EXPECT_EQ(circle, ExpectedShape(kBlue, kBlack, [](CDC& dc) { dc.Ellipse(kLarge); }));
}

TEST_F(TavImageList, PaintsASmallCircleInItsOwnRectangle)
{
    Pixels const circle = Draw(m_list->GetCircleSmall(kBlue, kBlack));
    EXPECT_EQ(circle.At(8, 2), ::GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(circle.At(8, 3), kBlack);
    EXPECT_EQ(circle, ExpectedShape(kBlue, kBlack, [](CDC& dc) { dc.Ellipse(3, 3, 14, 13); }));
}

TEST_F(TavImageList, TheSameCircleIsPaintedOnce)
{
    int const first = m_list->GetCircle(kRed, kBlack, kLarge, false);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(m_list->GetImageCount(), 2);
    EXPECT_EQ(m_list->GetCircle(kRed, kBlack, kLarge, false), first);
    EXPECT_EQ(m_list->GetImageCount(), 2);
}

TEST_F(TavImageList, EveryOtherColourOrBarIsAnotherCircle)
{
    std::vector<int> const images{m_list->GetCircle(kRed, kBlack, kLarge, false),
                                  m_list->GetCircle(kRed, kBlack, kLarge, true),
                                  m_list->GetCircle(kBlue, kBlack, kLarge, false),
                                  m_list->GetCircle(kRed, kBlue, kLarge, false), m_list->GetRect(kRed, kBlack, kLarge)};
    EXPECT_EQ(images, (std::vector{1, 2, 3, 4, 5}));
    EXPECT_NE(Draw(images[0]), Draw(images[1]));
}

TEST_F(TavImageList, TheRectangleIsNoPartOfACirclesKey)
{
    int const large = m_list->GetCircle(kRed, kBlack, kLarge, false);
    EXPECT_EQ(m_list->GetCircleSmall(kRed, kBlack), large);
    EXPECT_EQ(Draw(large), ExpectedShape(kRed, kBlack, [](CDC& dc) { dc.Ellipse(kLarge); }));
}

TEST_F(TavImageList, ABarIsARedLineOnAWhiteBand)
{
    Pixels const plain = Draw(m_list->GetCircle(kBlue, kBlack, kLarge, false));
    Pixels const barred = Draw(m_list->GetCircle(kBlue, kBlack, kLarge, true));
    for (int y = 0; y < kSide; ++y)
    {
        for (int x = 0; x < kSide; ++x)
        {
            bool const line = y == 7 && x >= 5 && x <= 11;
            bool const band = y >= 6 && y <= 8 && x >= 3 && x <= 13;
            EXPECT_EQ(barred.At(x, y), line ? kRed : band ? kWhite : plain.At(x, y)) << x << ", " << y;
        }
    }
}

TEST_F(TavImageList, TheBarsHeightIgnoresTheRectanglesTop)
{
    Pixels const barred = Draw(m_list->GetCircle(kBlue, kBlack, CRect(2, 6, 14, 15), true)); // 9 high: middle 4
    EXPECT_EQ(barred.At(6, 4), kRed);
    EXPECT_EQ(barred.At(9, 4), kRed);
    EXPECT_NE(barred.At(5, 4), kRed);
    EXPECT_NE(barred.At(10, 4), kRed);
    EXPECT_EQ(barred.At(8, 3), kWhite);
    EXPECT_EQ(barred.At(8, 10), kBlue) << "the circle's own middle has no bar";
}

TEST_F(TavImageList, PaintsARectangleAndRemembersItByItsColoursAlone)
{
    int const image = m_list->GetRect(kBlue, kBlack, CRect(2, 3, 12, 14));
    Pixels const rect = Draw(image);
    EXPECT_EQ(rect.At(2, 3), kBlack);
    EXPECT_EQ(rect.At(11, 13), kBlack);
    EXPECT_EQ(rect.At(3, 4), kBlue);
    EXPECT_EQ(rect.At(10, 12), kBlue);
    EXPECT_EQ(rect.At(1, 3), ::GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(rect.At(12, 5), ::GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(rect.At(5, 14), ::GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(m_list->GetRect(kBlue, kBlack, kLarge), image);
    EXPECT_NE(m_list->GetRect(kBlue, kRed, kLarge), image);
    EXPECT_NE(m_list->GetRect(kRed, kBlack, kLarge), image);
}

TEST_F(TavImageList, AReplacedRectangleIsFoundByItsNewColoursOnly)
{
    int const image = m_list->GetRect(kRed, kBlack, kLarge);
    EXPECT_TRUE(m_list->ReplaceRect(image, kBlue, kGreen));
    EXPECT_EQ(m_list->GetImageCount(), 2);
    EXPECT_EQ(Draw(image), ExpectedShape(kBlue, kGreen, [](CDC& dc) { dc.Rectangle(2, 2, 14, 14); }));
    EXPECT_EQ(m_list->GetRect(kBlue, kGreen, kLarge), image);
    int const anew = m_list->GetRect(kRed, kBlack, kLarge);
    EXPECT_EQ(anew, 2);
    EXPECT_EQ(Draw(anew), ExpectedShape(kRed, kBlack, [](CDC& dc) { dc.Rectangle(kLarge); }));
}

TEST_F(TavImageList, ReplacingAnImageOfNoRectangleEntersNothing)
{
    EXPECT_TRUE(m_list->ReplaceRect(m_list->GetDefaultImage(), kBlue, kGreen));
    EXPECT_EQ(m_list->GetRect(kBlue, kGreen, kLarge), 1);
    for (int const wrong : {-1, 1'000'000})
    {
        EXPECT_FALSE(m_list->ReplaceRect(wrong, kRed, kRed)) << wrong;
    }
    EXPECT_EQ(m_list->GetRect(kRed, kRed, kLarge), 2);
}

TEST_F(TavImageList, ARefusedReplacementChangesTheColoursRemembered)
{
    int const image = m_list->GetRect(kRed, kBlack, kLarge);
    m_list->DeleteImageList();
    EXPECT_FALSE(m_list->ReplaceRect(image, kBlue, kGreen));
    EXPECT_EQ(m_list->GetRect(kBlue, kGreen, kLarge), image);
}

TEST_F(TavImageList, AnIconOfTheResourceChainIsAddedOnce)
{
    int const green = m_list->GetIcon(kGreenIcon, nullptr);
    EXPECT_EQ(green, 1);
    EXPECT_EQ(Draw(green).At(8, 8), kGreenIconColor);
    EXPECT_EQ(m_list->GetIcon(kGreenIcon, nullptr), green);
    EXPECT_EQ(m_list->GetIcon(kGreenIcon, ""), green) << "no name is an empty name";
    int const blue = m_list->GetIcon(kBlueIcon, "");
    EXPECT_EQ(blue, 2);
    EXPECT_EQ(Draw(blue).At(0, 15), kBlueIconColor);
    EXPECT_EQ(m_list->GetImageCount(), 3);
}

TEST_F(TavImageList, AnIconsNumberIsItsLowWordAndItsKeyTheWhole)
{
    int const low = m_list->GetIcon(kGreenIcon, nullptr);
    int const high = m_list->GetIcon(0x30000 | kGreenIcon, nullptr);
    EXPECT_EQ(high, low + 1);
    EXPECT_EQ(Draw(high).At(8, 8), kGreenIconColor);
}

TEST_F(TavImageList, AMissingIconOfTheChainIsRememberedAsTheListsAnswerForNone)
{
    EXPECT_EQ(m_list->GetIcon(kNoSuchIcon, nullptr), -1);
    EXPECT_EQ(m_list->GetIcon(kNoSuchIcon, nullptr), -1);
    EXPECT_EQ(m_list->GetImageCount(), 1);
}

TEST_F(TavImageList, AnIconOfAModuleIsRememberedByNumberAndFile)
{
    std::string const program = ThisProgram();
    int const own = m_list->GetIcon(kGreenIcon, nullptr);
    int const green = m_list->GetIcon(kGreenIcon, program.c_str());
    EXPECT_EQ(green, own + 1) << "another file, another image";
    EXPECT_EQ(Draw(green).At(3, 3), kGreenIconColor);
    EXPECT_EQ(m_list->GetIcon(kGreenIcon, program.c_str()), green);
    EXPECT_EQ(m_list->GetIcon(kBlueIcon, program.c_str()), green + 1);
    std::string upper = program;
    std::ranges::transform(upper, upper.begin(), [](char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; });
    ASSERT_NE(upper, program);
    EXPECT_EQ(m_list->GetIcon(kGreenIcon, upper.c_str()), green + 2) << "names are compared byte by byte";
}

TEST_F(TavImageList, AFileThatIsMissingOrNoModuleGivesMinusOneAndEntersNothing)
{
    support::TempFolder const folder;
    std::string const text = folder.Write("text.dll", "this is no module");
    for (std::string const& file : {folder.Path("missing.dll"), text, folder.Path()})
    {
        EXPECT_EQ(m_list->GetIcon(kGreenIcon, file.c_str()), -1) << file;
        EXPECT_EQ(m_list->GetImageCount(), 1);
    }
    EXPECT_EQ(m_list->GetIcon(kNoSuchIcon, ThisProgram().c_str()), -1);
    // What failed is tried again.
    ASSERT_TRUE(::CopyFileA(ThisProgram().c_str(), text.c_str(), FALSE));
    EXPECT_EQ(m_list->GetIcon(kGreenIcon, text.c_str()), 1);
}

TEST_F(TavImageList, ClearedKeepsItsListAndPaintsAgainFromIndexZero)
{
    m_list->GetCircle(kRed, kBlack, kLarge, false);
    m_list->GetRect(kRed, kBlack, kLarge);
    m_list->GetIcon(kGreenIcon, nullptr);
    m_list->GetIcon(kGreenIcon, ThisProgram().c_str());
    HIMAGELIST const handle = m_list->GetSafeHandle();
    m_list->Clear();
    EXPECT_EQ(m_list->GetSafeHandle(), handle);
    EXPECT_EQ(m_list->GetImageCount(), 0);
    EXPECT_EQ(m_list->GetRect(kRed, kBlack, kLarge), 0);
    EXPECT_EQ(m_list->GetDefaultImage(), 0) << "kept, although another image stands there now";
    EXPECT_EQ(m_list->GetCircle(kRed, kBlack, kLarge, false), 1);
    EXPECT_EQ(m_list->GetIcon(kGreenIcon, nullptr), 2);
    EXPECT_EQ(m_list->GetIcon(kGreenIcon, ThisProgram().c_str()), 3);
}

TEST_F(TavImageList, GrowsPastItsFirstRoom)
{
    for (int i = 1; i <= 100; ++i)
    {
        EXPECT_EQ(m_list->GetCircleSmall(RGB(i, 0, 0), kBlack), i);
    }
    EXPECT_EQ(m_list->GetCircleSmall(RGB(7, 0, 0), kBlack), 7);
    EXPECT_EQ(Draw(100).At(8, 8), RGB(100, 0, 0));
}

TEST_F(TavImageList, AListOrTreeShowsItsImages)
{
    CListCtrl control;
    ASSERT_TRUE(control.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 300, 100), &*m_frame, 1));
    control.SetImageList(&*m_list, LVSIL_SMALL);
    EXPECT_EQ(control.GetImageList(LVSIL_SMALL), static_cast<CImageList*>(&*m_list));
    control.DestroyWindow();
    EXPECT_EQ(m_list->GetImageCount(), 1) << "the control only borrowed the list";
}

} // namespace
