// TmtcDrawElmtTest.cpp - the draw elements of the thematic list, painted into a picture

#include "Picture.h"
#include "ThematicFixture.h"

#include "support/TempFolder.h"

#include <objidl.h>
#include <gdiplus.h>

#include <fstream>
#include <string>

namespace
{

constexpr COLORREF kBack = RGB(255, 255, 255);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kShadow = RGB(200, 100, 0);
constexpr COLORREF kPenColor = RGB(0, 150, 0);
const CRect kPlace(20, 10, 38, 28);
constexpr int kHot = 1;
constexpr int kPressed = 2;

class DrawElmtTest : public ThematicTest
{
protected:
    void Draw(Elmt::DrawElmt const& element) { element.Draw(m_picture.DC(), true); }
    /// Paints with the pen of a list.
    void DrawWithPen(Elmt::DrawElmt const& element)
    {
        CPen const pen(PS_SOLID, 1, kPenColor);
        SelectScope const selected(*m_picture.DC(), pen);
        Draw(element);
    }
    [[nodiscard]] bool Empty() const { return m_picture.Painted() == CRect(0, 0, 0, 0); }
    /// A picture file of one colour. @return its path
    std::string Save(const char* name, Gdiplus::Color color)
    {
        Gdiplus::Bitmap bitmap(8, 8, PixelFormat32bppARGB);
        Gdiplus::Graphics(&bitmap).Clear(color);
        const std::string path = m_folder.Path(name);
        const CLSID png{0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};
        EXPECT_EQ(bitmap.Save(std::wstring(path.begin(), path.end()).c_str(), &png, nullptr), Gdiplus::Ok);
        return path;
    }

    Picture m_picture{200, 60, kBack};
    support::TempFolder m_folder;
};

// Elements in general

TEST_F(DrawElmtTest, ADrawElementBeginsEnabledInAnEmptyRectangle)
{
    Elmt::Text text("x");
    CRect rect(1, 2, 3, 4);
    text.GetRect(rect);
    EXPECT_EQ(rect, CRect(0, 0, 0, 0));
    EXPECT_TRUE(text.IsEnabled());
    EXPECT_FALSE(text.HitTest(CPoint(0, 0)));
}

TEST_F(DrawElmtTest, IsAvailableWhileItIsEnabledAndHasSomethingToShow)
{
    Elmt::Text text("");
    EXPECT_FALSE(text.IsAvailable());
    text.SetText("x");
    EXPECT_TRUE(text.IsAvailable());
    text.SetEnabled(false);
    EXPECT_FALSE(text.IsAvailable());
    EXPECT_TRUE(text.IsValid());
}

TEST_F(DrawElmtTest, IsHitOnlyWhileItIsEnabledWhateverItShows)
{
    Elmt::Text text("");
    text.SetRect(kPlace);
    EXPECT_TRUE(text.HitTest(kPlace.TopLeft()));
    EXPECT_FALSE(text.HitTest(kPlace.BottomRight()));
    text.SetEnabled(false);
    EXPECT_FALSE(text.HitTest(kPlace.TopLeft()));
}

TEST_F(DrawElmtTest, WhatIsNoButtonDoesNotAnswerToTheMouse)
{
    Elmt::Text text("x");
    text.SetRect(kPlace);
    EXPECT_FALSE(text.MouseEvent(TmtcListCtrl::mouseMove, kPlace.CenterPoint()));
    EXPECT_FALSE(text.MouseEvent(TmtcListCtrl::mouseLDown, kPlace.CenterPoint()));
}

// Images

TEST_F(DrawElmtTest, AnImageIsScaledIntoItsRectangle)
{
    Elmt::Bitmap bitmap;
    EXPECT_FALSE(bitmap.IsValid());
    bitmap.SetBitmap(Save("red.png", Gdiplus::Color(255, 0, 0)).c_str());
    EXPECT_TRUE(bitmap.IsValid());
    bitmap.SetRect(kPlace);
    Draw(bitmap);
    EXPECT_EQ(m_picture.At(29, 19), RGB(255, 0, 0));
    EXPECT_EQ(m_picture.At(24, 14), RGB(255, 0, 0));
    EXPECT_EQ(m_picture.At(33, 23), RGB(255, 0, 0));
    EXPECT_EQ(m_picture.At(18, 8), kBack);
    EXPECT_EQ(m_picture.At(40, 30), kBack);
}

TEST_F(DrawElmtTest, AnImageThatIsNotEnabledIsNotPainted)
{
    Elmt::Bitmap bitmap;
    bitmap.SetBitmap(Save("red.png", Gdiplus::Color(255, 0, 0)).c_str());
    bitmap.SetRect(kPlace);
    bitmap.SetEnabled(false);
    Draw(bitmap);
    EXPECT_TRUE(Empty());
}

TEST_F(DrawElmtTest, AnIconOfTheProgramIsLoadedByItsLowSixteenBits)
{
    for (const int id : {kGreenIcon, kGreenIcon | 0x10000})
    {
        Elmt::Bitmap bitmap;
        bitmap.SetBitmap(id);
        ASSERT_TRUE(bitmap.IsValid());
        bitmap.SetRect({20, 10, 52, 42});
        Draw(bitmap);
        EXPECT_NE(m_picture.At(36, 26), kBack);
        m_picture.DC()->FillSolidRect(0, 0, 200, 60, kBack);
    }
}

TEST_F(DrawElmtTest, NoNameAndNoIconRemoveTheImage)
{
    const std::string red = Save("red.png", Gdiplus::Color(255, 0, 0));
    Elmt::Bitmap bitmap;
    bitmap.SetBitmap(red.c_str());
    bitmap.SetBitmap(static_cast<const char*>(nullptr));
    EXPECT_FALSE(bitmap.IsValid());
    bitmap.SetBitmap(red.c_str());
    bitmap.SetBitmap("");
    EXPECT_FALSE(bitmap.IsValid());
    bitmap.SetBitmap(red.c_str());
    bitmap.SetBitmap(-1);
    EXPECT_FALSE(bitmap.IsValid());
    bitmap.SetBitmap(red.c_str());
    bitmap.SetBitmap(static_cast<Gdiplus::Bitmap*>(nullptr));
    EXPECT_FALSE(bitmap.IsValid());
}

TEST_F(DrawElmtTest, AFileThatCantBeReadRemovesTheImage)
{
    const std::string red = Save("red.png", Gdiplus::Color(255, 0, 0));
    Elmt::Bitmap bitmap;
    bitmap.SetBitmap(red.c_str());
    bitmap.SetBitmap(m_folder.Path("none.png").c_str());
    EXPECT_FALSE(bitmap.IsValid()) << "a missing file";
    bitmap.SetBitmap(red.c_str());
    bitmap.SetBitmap(m_folder.Path("").c_str());
    EXPECT_FALSE(bitmap.IsValid()) << "a folder";
    bitmap.SetBitmap(red.c_str());
    bitmap.SetBitmap((red + "?" + std::string(1100, 'x')).c_str());
    EXPECT_FALSE(bitmap.IsValid()) << "a name that is too long";
}

TEST_F(DrawElmtTest, AFileThatIsNoPictureCountsAsAnImageThatShowsNothing)
{
    const std::string path = m_folder.Path("text.png");
    std::ofstream(path) << "no picture";
    Elmt::Bitmap bitmap;
    bitmap.SetBitmap(Save("red.png", Gdiplus::Color(255, 0, 0)).c_str());
    bitmap.SetBitmap(path.c_str());
    EXPECT_TRUE(bitmap.IsValid());
    bitmap.SetRect(kPlace);
    Draw(bitmap);
    EXPECT_TRUE(Empty());
}

TEST_F(DrawElmtTest, AnIconThatIsNotThereShowsNothing)
{
    Elmt::Bitmap bitmap;
    bitmap.SetBitmap(kGreenIcon);
    bitmap.SetBitmap(4711);
    bitmap.SetRect(kPlace);
    Draw(bitmap);
    EXPECT_TRUE(Empty());
}

class CountedBitmap : public Gdiplus::Bitmap
{
public:
    explicit CountedBitmap(int& alive) : Gdiplus::Bitmap(4, 4, PixelFormat32bppARGB), m_alive(alive) { ++m_alive; }
    ~CountedBitmap() override { --m_alive; }

private:
    int& m_alive;
};

TEST_F(DrawElmtTest, AnImageGoesWithItsElementAndWhenAnotherTakesItsPlace)
{
    int alive = 0;
    {
        Elmt::Bitmap bitmap;
        bitmap.SetBitmap(new CountedBitmap(alive));
        bitmap.SetBitmap(new CountedBitmap(alive));
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST_F(DrawElmtTest, TheImageHeldCanBeSetAgain)
{
    int alive = 0;
    Elmt::Bitmap bitmap;
    auto* const image = new CountedBitmap(alive);
    bitmap.SetBitmap(image);
    bitmap.SetBitmap(image);
    EXPECT_EQ(alive, 1);
    EXPECT_TRUE(bitmap.IsValid());
}

TEST_F(DrawElmtTest, ACopySharesTheImageUntilTheLastOneGoes)
{
    int alive = 0;
    {
        Elmt::Bitmap copy;
        {
            Elmt::Bitmap source;
            source.SetBitmap(new CountedBitmap(alive));
            const Elmt::Bitmap second(source);
            copy = second;
            EXPECT_EQ(alive, 1) << "nothing is cloned";
        }
        EXPECT_EQ(alive, 1);
        EXPECT_TRUE(copy.IsValid());
        Draw(copy);
    }
    EXPECT_EQ(alive, 0);
}

// Texts

TEST_F(DrawElmtTest, ATextIsPaintedInTheMiddleOfItsRectangleAndCutAtItsRight)
{
    Elmt::Text text("A text that is much too long for the place that it has");
    const CRect place(20, 10, 90, 50);
    text.SetRect(place);
    m_picture.DC()->SetTextColor(kBlue);
    m_picture.DC()->SetBkMode(TRANSPARENT);
    Draw(text);
    const CRect painted = m_picture.Painted();
    EXPECT_GE(painted.left, place.left);
    EXPECT_LE(painted.right, place.right);
    EXPECT_NEAR((painted.top + painted.bottom) / 2, 30, 3);
    EXPECT_STREQ(text.GetText(), "A text that is much too long for the place that it has");
}

TEST_F(DrawElmtTest, AnEmptyTextIsNotPainted)
{
    Elmt::Text text(nullptr);
    EXPECT_FALSE(text.IsValid());
    EXPECT_STREQ(text.GetText(), "");
    text.SetRect(kPlace);
    Draw(text);
    text.SetText("x");
    text.SetText(nullptr);
    Draw(text);
    EXPECT_TRUE(Empty());
}

TEST_F(DrawElmtTest, ATextThatIsNotEnabledIsNotPainted)
{
    Elmt::Text text("x");
    text.SetRect(kPlace);
    text.SetEnabled(false);
    Draw(text);
    EXPECT_TRUE(Empty());
}

// Arrows

/// Where the triangle of an arrow is wide: a triangle that points up is narrow at its top.
int WidthInRow(Picture const& picture, int y)
{
    int width = 0;
    for (int x = 20; x < 29; ++x)
    {
        width += picture.At(x, y) != kBack;
    }
    return width;
}

TEST_F(DrawElmtTest, AnArrowShowsTheImageOfItsStateUnscaled)
{
    const auto draw = [this](int first, int state) {
        m_picture.DC()->FillSolidRect(0, 0, 200, 60, kBack);
        Elmt::BitmapButton arrow(TmtcListCtrl::idUp, first);
        arrow.SetRect({20, 10, 120, 50});
        arrow.SetState(state);
        Draw(arrow);
        return m_picture.Painted();
    };
    CRect painted = draw(3, 0);
    EXPECT_TRUE(CRect(20, 10, 29, 18).PtInRect(painted.TopLeft()));
    EXPECT_LE(painted.right, 29);
    EXPECT_LE(painted.bottom, 18);
    EXPECT_LT(WidthInRow(m_picture, painted.top), WidthInRow(m_picture, painted.bottom - 1)) << "it points up";
    painted = draw(0, 0);
    EXPECT_GT(WidthInRow(m_picture, painted.top), WidthInRow(m_picture, painted.bottom - 1)) << "it points down";

    const auto has = [this](COLORREF color) {
        for (int y = 10; y < 18; ++y)
        {
            for (int x = 20; x < 29; ++x)
            {
                if (m_picture.At(x, y) == color)
                {
                    return true;
                }
            }
        }
        return false;
    };
    for (const int first : {0, 3})
    {
        for (const int state : {0, kHot})
        {
            draw(first, state);
            EXPECT_TRUE(has(RGB(102, 102, 102)));
            EXPECT_TRUE(has(RGB(192, 192, 192))) << first << " " << state;
            EXPECT_FALSE(has(RGB(204, 204, 204)));
        }
        for (const int state : {kPressed, kHot | kPressed})
        {
            draw(first, state);
            EXPECT_TRUE(has(RGB(204, 204, 204))) << first << " " << state;
            EXPECT_FALSE(has(RGB(192, 192, 192)));
        }
    }
}

TEST_F(DrawElmtTest, AnArrowWithoutAnImageOrSwitchedOffIsNotPainted)
{
    Elmt::BitmapButton arrow(TmtcListCtrl::idUp, -1);
    EXPECT_FALSE(arrow.IsValid());
    arrow.SetRect(kPlace);
    Draw(arrow);
    arrow.SetBitmapIndex(0);
    EXPECT_TRUE(arrow.IsValid());
    EXPECT_EQ(arrow.GetBitmapIndex(), 0);
    arrow.SetEnabled(false);
    Draw(arrow);
    arrow.SetEnabled(true);
    arrow.SetBitmapIndex(1000);
    Draw(arrow);
    EXPECT_TRUE(Empty());
}

TEST_F(DrawElmtTest, AllArrowsShareOneStripOfSixImagesOfNineByEight)
{
    const Elmt::BitmapButton arrow(TmtcListCtrl::idUp, 0);
    EXPECT_EQ(arrow.GetWidth(), 9);
    EXPECT_EQ(arrow.GetHeight(), 8);
    EXPECT_EQ(Elmt::BitmapButton::sizeImage.cx, 9);
    EXPECT_EQ(Elmt::BitmapButton::sizeImage.cy, 8);
    EXPECT_EQ(Elmt::BitmapButton::m_lstImg.GetImageCount(), 6);
}

TEST_F(DrawElmtTest, AnArrowMakesTheStripAgainWhenItFindsItEmpty)
{
    const HIMAGELIST old = Elmt::BitmapButton::m_lstImg.GetSafeHandle();
    ::ImageList_RemoveAll(old);
    const Elmt::BitmapButton arrow(TmtcListCtrl::idUp, 0);
    EXPECT_EQ(Elmt::BitmapButton::m_lstImg.GetImageCount(), 6);
}

// Buttons' state

TEST_F(DrawElmtTest, AButtonTellsWhetherItsStateChanged)
{
    Elmt::Button button(TmtcListCtrl::idRmv, false, kShadow);
    button.SetRect(kPlace);
    const CPoint inside = kPlace.CenterPoint();
    EXPECT_TRUE(button.MouseEvent(TmtcListCtrl::mouseMove, inside));
    EXPECT_FALSE(button.MouseEvent(TmtcListCtrl::mouseMove, inside)) << "still hot";
    EXPECT_EQ(button.GetState(), kHot);
    EXPECT_TRUE(button.MouseEvent(TmtcListCtrl::mouseLDown, inside));
    EXPECT_EQ(button.GetState(), kHot | kPressed);
    EXPECT_TRUE(button.MouseEvent(TmtcListCtrl::mouseMove, CPoint(0, 0)));
    EXPECT_EQ(button.GetState(), kPressed) << "a press outlives the mouse's way";
    EXPECT_TRUE(button.MouseEvent(TmtcListCtrl::mouseLUp, CPoint(0, 0)));
    EXPECT_FALSE(button.MouseEvent(TmtcListCtrl::mouseLUp, inside));
    EXPECT_EQ(button.GetState(), 0);
}

TEST_F(DrawElmtTest, AButtonThatIsNotEnabledTakesNeitherHoverNorPress)
{
    Elmt::Button button(TmtcListCtrl::idRmv, false, kShadow);
    button.SetRect(kPlace);
    button.SetState(kHot);
    button.SetEnabled(false);
    EXPECT_FALSE(button.MouseEvent(TmtcListCtrl::mouseMove, kPlace.CenterPoint())) << "an old hover stays";
    EXPECT_FALSE(button.MouseEvent(TmtcListCtrl::mouseLDown, kPlace.CenterPoint()));
    EXPECT_EQ(button.GetState(), kHot);
    EXPECT_TRUE(button.MouseEvent(TmtcListCtrl::mouseMove, CPoint(0, 0)));
    EXPECT_EQ(button.GetState(), 0);
}

TEST_F(DrawElmtTest, ALinkWithoutATextTakesNoHover)
{
    Elmt::Hyperlink link(TmtcListCtrl::idAdd);
    link.SetRect(kPlace);
    EXPECT_FALSE(link.MouseEvent(TmtcListCtrl::mouseMove, kPlace.CenterPoint()));
    link.SetText("x");
    EXPECT_TRUE(link.MouseEvent(TmtcListCtrl::mouseMove, kPlace.CenterPoint()));
    EXPECT_EQ(link.GetID(), 101U);
}

// Links

TEST_F(DrawElmtTest, ALinkIsBlueAndUnderlinedAndPutsTheTextColourBack)
{
    Elmt::Hyperlink link(TmtcListCtrl::idAdd);
    link.SetText("Add Layers...");
    link.SetRect({20, 10, 180, 50});
    m_picture.DC()->SetBkMode(TRANSPARENT);
    m_picture.DC()->SetTextColor(RGB(1, 2, 3));
    CFont* const font = m_picture.DC()->GetCurrentFont();
    const HGDIOBJ old = font->GetSafeHandle();
    Draw(link);
    EXPECT_EQ(m_picture.DC()->GetTextColor(), RGB(1, 2, 3));
    EXPECT_EQ(m_picture.DC()->GetCurrentFont()->GetSafeHandle(), old);
    const CRect painted = m_picture.Painted();
    EXPECT_NEAR((painted.left + painted.right) / 2, 100, 3) << "in the middle";
    bool blue = false;
    for (int x = painted.left; x < painted.right; ++x)
    {
        blue = blue || m_picture.At(x, painted.bottom - 1) == kBlue || m_picture.At(x, painted.bottom - 2) == kBlue;
    }
    EXPECT_TRUE(blue);
}

TEST_F(DrawElmtTest, ALinkThatIsNotEnabledIsPaintedAllTheSameAndLeavesTheTextColourBlack)
{
    Elmt::Hyperlink link(TmtcListCtrl::idAdd);
    link.SetText("No Layers items");
    link.SetRect({20, 10, 180, 50});
    link.SetEnabled(false);
    m_picture.DC()->SetBkMode(TRANSPARENT);
    m_picture.DC()->SetTextColor(RGB(200, 0, 0));
    Draw(link);
    EXPECT_FALSE(Empty());
    EXPECT_EQ(m_picture.DC()->GetTextColor(), RGB(0, 0, 0));
    const CRect painted = m_picture.Painted();
    bool red = false;
    bool blue = false;
    for (int y = painted.top; y < painted.bottom; ++y)
    {
        for (int x = painted.left; x < painted.right; ++x)
        {
            red = red || m_picture.At(x, y) == RGB(200, 0, 0);
            blue = blue || m_picture.At(x, y) == kBlue;
        }
    }
    EXPECT_TRUE(red) << "in the context's colour";
    EXPECT_FALSE(blue);
}

TEST_F(DrawElmtTest, AnEmptyLinkIsNotPaintedAndLeavesTheTextColourAlone)
{
    Elmt::Hyperlink link(TmtcListCtrl::idAdd);
    EXPECT_FALSE(link.IsValid());
    link.SetEnabled(false);
    link.SetRect({20, 10, 180, 50});
    m_picture.DC()->SetTextColor(RGB(200, 0, 0));
    Draw(link);
    EXPECT_TRUE(Empty());
    EXPECT_EQ(m_picture.DC()->GetTextColor(), RGB(200, 0, 0));
}

TEST_F(DrawElmtTest, TheFontsOfLinksAreTheSystemsWithAndWithoutAnUnderline)
{
    Elmt::Hyperlink link(TmtcListCtrl::idAdd);
    EXPECT_EQ(link.GetFont(), &Elmt::Hyperlink::fontHyper);
    LOGFONT underlined{};
    ASSERT_NE(Elmt::Hyperlink::fontHyper.GetLogFont(&underlined), 0);
    link.SetEnabled(false);
    EXPECT_EQ(link.GetFont(), &Elmt::Hyperlink::fontText);
    LOGFONT plain{};
    ASSERT_NE(Elmt::Hyperlink::fontText.GetLogFont(&plain), 0);
    LOGFONT stock{};
    ::GetObject(::GetStockObject(DEFAULT_GUI_FONT), sizeof stock, &stock);
    EXPECT_EQ(underlined.lfUnderline, 1);
    EXPECT_EQ(plain.lfUnderline, 0);
    EXPECT_EQ(plain.lfHeight, stock.lfHeight);
    EXPECT_STREQ(plain.lfFaceName, stock.lfFaceName);
    EXPECT_STREQ(underlined.lfFaceName, stock.lfFaceName);
}

TEST_F(DrawElmtTest, ALinkMakesAFontAgainOnlyWhenItIsGone)
{
    const HGDIOBJ old = Elmt::Hyperlink::fontHyper.GetSafeHandle();
    const Elmt::Hyperlink first(TmtcListCtrl::idAdd);
    EXPECT_EQ(Elmt::Hyperlink::fontHyper.GetSafeHandle(), old);
    Elmt::Hyperlink::fontHyper.DeleteObject();
    const Elmt::Hyperlink second(TmtcListCtrl::idAdd);
    EXPECT_NE(Elmt::Hyperlink::fontHyper.GetSafeHandle(), nullptr);
}

// Round buttons. kPlace has its middle at (29, 19); the strokes run 4 pixels to either side.

TEST_F(DrawElmtTest, ARoundButtonBeginsAsAPlusWithAShadowInTheColourOfWindows)
{
    const Elmt::Button button;
    EXPECT_TRUE(button.IsAddButton());
    EXPECT_TRUE(button.IsValid());
    EXPECT_EQ(button.GetShadowColor(), ::GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(button.GetID(), 0U);
    EXPECT_EQ(button.GetState(), 0);
}

TEST_F(DrawElmtTest, ARoundButtonHasTheOutlineOfTheListsPenAndTheFaceOfButtons)
{
    Elmt::Button button(TmtcListCtrl::idRmv, false, kShadow);
    button.SetRect(kPlace);
    DrawWithPen(button);
    EXPECT_EQ(m_picture.Painted(), kPlace);
    EXPECT_EQ(m_picture.At(20, 19), kPenColor);
    EXPECT_EQ(m_picture.At(29, 10), kPenColor);
    EXPECT_EQ(m_picture.At(20, 10), kBack) << "round";
    EXPECT_EQ(m_picture.At(29, 13), ::GetSysColor(COLOR_BTNFACE));
}

TEST_F(DrawElmtTest, AMinusIsTwoPixelsThickAndAPlusHasAnUprightAsWell)
{
    Elmt::Button button(TmtcListCtrl::idRmv, false, kShadow);
    button.SetRect(kPlace);
    DrawWithPen(button);
    const COLORREF face = ::GetSysColor(COLOR_BTNFACE);
    EXPECT_EQ(m_picture.At(24, 19), face);
    EXPECT_EQ(m_picture.At(25, 19), RGB(0, 0, 0));
    EXPECT_EQ(m_picture.At(32, 18), RGB(0, 0, 0));
    EXPECT_EQ(m_picture.At(33, 19), face) << "a line's end isn't painted";
    EXPECT_EQ(m_picture.At(29, 17), face);
    EXPECT_EQ(m_picture.At(29, 20), face);

    button.SetAddButton(true);
    DrawWithPen(button);
    EXPECT_EQ(m_picture.At(28, 15), RGB(0, 0, 0));
    EXPECT_EQ(m_picture.At(29, 22), RGB(0, 0, 0));
    EXPECT_EQ(m_picture.At(29, 23), face);
    EXPECT_EQ(m_picture.At(27, 15), face);
    EXPECT_EQ(m_picture.At(30, 15), face);
}

TEST_F(DrawElmtTest, AHotButtonIsLitAndHasAShadowDiscToItsLowerRight)
{
    Elmt::Button button(TmtcListCtrl::idRmv, false, kShadow);
    button.SetRect(kPlace);
    button.SetState(kHot);
    DrawWithPen(button);
    EXPECT_EQ(m_picture.Painted(), CRect(20, 10, 39, 29));
    EXPECT_EQ(m_picture.At(29, 13), ::GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(m_picture.At(38, 20), kShadow);
    EXPECT_EQ(m_picture.At(29, 28), kShadow);
    EXPECT_EQ(m_picture.At(20, 19), kPenColor);
    EXPECT_EQ(m_picture.At(25, 19), RGB(0, 0, 0));
}

TEST_F(DrawElmtTest, APressedButtonMovesOntoItsShadow)
{
    Elmt::Button button(TmtcListCtrl::idRmv, false, kShadow);
    button.SetRect(kPlace);
    button.SetState(kHot | kPressed);
    DrawWithPen(button);
    EXPECT_EQ(m_picture.At(20, 19), kShadow);
    EXPECT_EQ(m_picture.At(21, 20), kPenColor);
    EXPECT_EQ(m_picture.At(38, 20), kPenColor);
    EXPECT_EQ(m_picture.At(30, 14), ::GetSysColor(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(m_picture.At(26, 20), RGB(0, 0, 0)) << "the minus moves along";
    EXPECT_EQ(m_picture.At(26, 18), ::GetSysColor(COLOR_BTNHIGHLIGHT));
}

TEST_F(DrawElmtTest, APressedButtonWithoutTheMouseIsLitInItsPlaceWithoutAShadow)
{
    Elmt::Button button(TmtcListCtrl::idRmv, false, kShadow);
    button.SetRect(kPlace);
    button.SetState(kPressed);
    DrawWithPen(button);
    EXPECT_EQ(m_picture.Painted(), kPlace);
    EXPECT_EQ(m_picture.At(20, 19), kPenColor);
    EXPECT_EQ(m_picture.At(29, 13), ::GetSysColor(COLOR_BTNHIGHLIGHT));
}

TEST_F(DrawElmtTest, ARoundButtonThatIsNotEnabledIsNotPainted)
{
    Elmt::Button button(TmtcListCtrl::idRmv, false, kShadow);
    button.SetRect(kPlace);
    button.SetEnabled(false);
    Draw(button);
    EXPECT_TRUE(Empty());
}

TEST_F(DrawElmtTest, ARoundButtonPutsPenAndBrushBack)
{
    Elmt::Button button(TmtcListCtrl::idAdd, true, kShadow);
    button.SetRect(kPlace);
    button.SetState(kHot);
    CDC* const dc = m_picture.DC();
    const HGDIOBJ pen = ::GetCurrentObject(dc->m_hDC, OBJ_PEN);
    const HGDIOBJ brush = ::GetCurrentObject(dc->m_hDC, OBJ_BRUSH);
    Draw(button);
    EXPECT_EQ(::GetCurrentObject(dc->m_hDC, OBJ_PEN), pen);
    EXPECT_EQ(::GetCurrentObject(dc->m_hDC, OBJ_BRUSH), brush);
}

TEST_F(DrawElmtTest, ACopyOfAButtonHasItsOwnState)
{
    Elmt::Button button(7, true, kShadow);
    Elmt::Button copy(button);
    copy.SetState(kHot);
    copy.SetID(8);
    copy.SetShadowColor(0);
    EXPECT_EQ(button.GetState(), 0);
    EXPECT_EQ(button.GetID(), 7U);
    EXPECT_EQ(button.GetShadowColor(), kShadow);
}

} // namespace
