// TextBlockTest.cpp - blocks of text and their trade mark signs, compared with plain drawing calls

#include "Picture.h"

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <string>
#include <vector>

namespace
{

constexpr COLORREF kBack = RGB(255, 255, 255);
constexpr COLORREF kInk = RGB(20, 40, 160);
constexpr int kWidth = 700;
constexpr int kHeight = 260;
constexpr char kFace[] = "Tahoma";
constexpr char kSign[] = "\xAE";

CnfgLdr::TextBlock Block(const char* text, int height = 40, int weight = 700)
{
    CnfgLdr::TextBlock block;
    block.x = 30;
    block.y = 12;
    block.pszFont = kFace;
    block.nHeight = height;
    block.nWeight = weight;
    block.crColor = kInk;
    block.strText = text;
    return block;
}

class TextBlock : public support::WindowTest
{
protected:
    // Plain text in the main font, as the block's whole text is drawn.
    static void DrawPlain(Picture& picture, const CnfgLdr::TextBlock& block)
    {
        const FontScope font(picture, block.nHeight, block.nWeight, block.pszFont);
        RECT rect{block.x, block.y, 1000, 1000};
        ::DrawTextA(picture.Handle(), block.strText.c_str(), -1, &rect, 0);
    }

    // A sign behind `before`, which is a line's text up to the end of the marker word, on the line of that number.
    static void DrawSign(Picture& picture, const CnfgLdr::TextBlock& block, const std::string& before, int line,
                         int signHeight, int signWeight)
    {
        SIZE text{};
        SIZE last{};
        {
            const FontScope font(picture, block.nHeight, block.nWeight, block.pszFont);
            ::GetTextExtentPoint32A(picture.Handle(), before.c_str(), static_cast<int>(before.size()), &text);
            ::GetTextExtentPoint32A(picture.Handle(), "2", 1, &last);
        }
        const FontScope font(picture, signHeight, signWeight, block.pszFont);
        SIZE sign{};
        ::GetTextExtentPoint32A(picture.Handle(), kSign, 1, &sign);
        ::TextOutA(picture.Handle(), block.x + text.cx - last.cx / 4, block.y + line * text.cy - sign.cy / 4, kSign, 1);
    }

    static SIZE Extent(Picture& picture, const CnfgLdr::TextBlock& block, const std::string& text)
    {
        const FontScope font(picture, block.nHeight, block.nWeight, block.pszFont);
        SIZE size{};
        ::GetTextExtentPoint32A(picture.Handle(), text.c_str(), static_cast<int>(text.size()), &size);
        return size;
    }

    Picture m_drawn{kWidth, kHeight, kBack};
    Picture m_expected{kWidth, kHeight, kBack};

private:
    class FontScope
    {
    public:
        FontScope(Picture& picture, int height, int weight, const char* face)
            : m_dc(picture.Handle()),
              m_font(::CreateFontA(height, 0, 0, 0, weight, 0, 0, 0, 0, 0, 0, 0, 0, face ? face : "")),
              m_old(::SelectObject(m_dc, m_font))
        {
            ::SetBkMode(m_dc, TRANSPARENT);
            ::SetTextColor(m_dc, kInk);
        }
        ~FontScope()
        {
            ::SelectObject(m_dc, m_old);
            ::DeleteObject(m_font);
        }
        FontScope(const FontScope&) = delete;
        FontScope& operator=(const FontScope&) = delete;

    private:
        HDC m_dc;
        HFONT m_font;
        HGDIOBJ m_old;
    };
};

TEST_F(TextBlock, WithoutTheMarkerIsDrawnOnceAndGetsNoSign)
{
    const auto block = Block("Image analysis\nCorvaline 222");
    DrawTextBlock(m_drawn.DC(), block);
    DrawPlain(m_expected, block);
    EXPECT_FALSE(m_drawn.Painted().IsRectEmpty());
    EXPECT_TRUE(m_drawn.DifferenceTo(m_expected).IsRectEmpty());
}

TEST_F(TextBlock, IsDrawnAtItsPlaceInItsColour)
{
    DrawTextBlock(m_drawn.DC(), Block("HHH"));
    const CRect painted = m_drawn.Painted();
    EXPECT_GE(painted.left, 30);
    EXPECT_LT(painted.left, 40);
    EXPECT_GE(painted.top, 12);
    EXPECT_LT(painted.bottom, 12 + 41);
    EXPECT_EQ(m_drawn.At(painted.left + 2, (painted.top + painted.bottom) / 2 + 6), kInk) << "a stem of the letter";
}

TEST_F(TextBlock, HonoursLineBreaks)
{
    DrawTextBlock(m_drawn.DC(), Block("H\nH\nH"));
    const auto block = Block("H");
    const int line = Extent(m_drawn, block, "H").cy;
    const CRect painted = m_drawn.Painted();
    EXPECT_GT(painted.bottom, 12 + 2 * line);
    EXPECT_LE(painted.bottom, 12 + 3 * line);
}

TEST_F(TextBlock, PutsASmallSignBehindTheMarker)
{
    const auto block = Block("By Corvaline222 Ltd");
    DrawTextBlock(m_drawn.DC(), block);
    DrawPlain(m_expected, block);
    const CRect sign = m_drawn.DifferenceTo(m_expected);
    ASSERT_FALSE(sign.IsRectEmpty());
    EXPECT_LE(sign.Height(), 20);
    DrawSign(m_expected, block, "By Corvaline222", 0, 20, 700);
    EXPECT_TRUE(m_drawn.DifferenceTo(m_expected).IsRectEmpty());
}

TEST_F(TextBlock, PutsTheSignOfAMarkerOnTheThirdLineTwoLineHeightsBelow)
{
    const auto block = Block("First\nSecond\nThe Corvaline222 line");
    DrawTextBlock(m_drawn.DC(), block);
    DrawPlain(m_expected, block);
    const CRect sign = m_drawn.DifferenceTo(m_expected);
    const int line = Extent(m_drawn, block, "X").cy;
    EXPECT_GE(sign.top, block.y + 2 * line - 5) << "a quarter of the sign's height above the line";
    EXPECT_LT(sign.bottom, block.y + 3 * line);
    DrawSign(m_expected, block, "The Corvaline222", 2, 20, 700);
    EXPECT_TRUE(m_drawn.DifferenceTo(m_expected).IsRectEmpty());
}

TEST_F(TextBlock, PutsOneSignBehindEveryMarker)
{
    const auto block = Block("Corvaline222Corvaline222\nand Corvaline222", 30);
    DrawTextBlock(m_drawn.DC(), block);
    DrawPlain(m_expected, block);
    DrawSign(m_expected, block, "Corvaline222", 0, 15, 700);
    DrawSign(m_expected, block, "Corvaline222Corvaline222", 0, 15, 700);
    DrawSign(m_expected, block, "and Corvaline222", 1, 15, 700);
    EXPECT_TRUE(m_drawn.DifferenceTo(m_expected).IsRectEmpty());
}

TEST_F(TextBlock, DrawsTheSignThirteenHighAndThinBesideSmallText)
{
    const auto block = Block("Corvaline222", 16);
    DrawTextBlock(m_drawn.DC(), block);
    DrawPlain(m_expected, block);
    DrawSign(m_expected, block, "Corvaline222", 0, 13, 100);
    EXPECT_TRUE(m_drawn.DifferenceTo(m_expected).IsRectEmpty());
}

TEST_F(TextBlock, GivesTheSignTheBlocksWeightFromFifteenOn)
{
    for (const auto& [height, signHeight, signWeight] : {std::tuple{29, 14, 100}, {30, 15, 700}})
    {
        Picture drawn(kWidth, kHeight, kBack);
        Picture expected(kWidth, kHeight, kBack);
        const auto block = Block("Corvaline222", height);
        DrawTextBlock(drawn.DC(), block);
        DrawPlain(expected, block);
        DrawSign(expected, block, "Corvaline222", 0, signHeight, signWeight);
        EXPECT_TRUE(drawn.DifferenceTo(expected).IsRectEmpty()) << height;
    }
}

TEST_F(TextBlock, PutsColourFontAndBackgroundModeBack)
{
    CDC* const dc = m_drawn.DC();
    dc->SetTextColor(RGB(1, 2, 3));
    dc->SetBkMode(OPAQUE);
    HGDIOBJ const font = ::GetCurrentObject(dc->m_hDC, OBJ_FONT);
    DrawTextBlock(dc, Block("Corvaline222"));
    EXPECT_EQ(dc->GetTextColor(), RGB(1, 2, 3));
    EXPECT_EQ(dc->GetBkMode(), OPAQUE);
    EXPECT_EQ(::GetCurrentObject(dc->m_hDC, OBJ_FONT), font);
}

TEST_F(TextBlock, LeavesTheBackgroundBehindItsLetters)
{
    m_drawn.DC()->SetBkMode(OPAQUE);
    m_drawn.DC()->SetBkColor(RGB(255, 0, 0));
    DrawTextBlock(m_drawn.DC(), Block("Corvaline222"));
    DrawPlain(m_expected, Block("Corvaline222"));
    DrawSign(m_expected, Block("Corvaline222"), "Corvaline222", 0, 20, 700);
    EXPECT_TRUE(m_drawn.DifferenceTo(m_expected).IsRectEmpty());
}

TEST_F(TextBlock, EndsAtTheFarSideOfItsRectangle)
{
    Picture wide(1200, 60, kBack);
    DrawTextBlock(wide.DC(), Block(std::string(200, 'M').c_str()));
    EXPECT_LE(wide.Painted().right, 1000);
    EXPECT_GT(wide.Painted().right, 950);
}

TEST_F(TextBlock, OfANullTextDrawsNothing)
{
    auto block = Block("");
    block.strText = DString();
    DrawTextBlock(m_drawn.DC(), block);
    DrawTextBlock(m_drawn.DC(), Block(""));
    EXPECT_TRUE(m_drawn.Painted().IsRectEmpty());
}

TEST_F(TextBlock, TakesANullFaceAsNoName)
{
    auto block = Block("Corvaline222");
    block.pszFont = nullptr;
    DrawTextBlock(m_drawn.DC(), block);
    block.pszFont = "";
    DrawTextBlock(m_expected.DC(), block);
    EXPECT_FALSE(m_drawn.Painted().IsRectEmpty());
    EXPECT_TRUE(m_drawn.DifferenceTo(m_expected).IsRectEmpty());
}

TEST_F(TextBlock, WithoutADeviceContextDoesNothing) { DrawTextBlock(nullptr, Block("Corvaline222")); }

} // namespace
