// MemDCTest.cpp - the off-screen buffer

#include "Picture.h"

#include "support/WindowTest.h"
#include "tavkit/drawing/MemDC.h"

#include <gtest/gtest.h>

namespace
{

constexpr COLORREF kRed = RGB(250, 10, 20);
constexpr COLORREF kGreen = RGB(30, 240, 40);
constexpr COLORREF kBlue = RGB(50, 60, 230);
constexpr COLORREF kWhite = RGB(255, 255, 255);

class MemDC : public support::WindowTest
{
protected:
    // A context of the screen, which decides what the buffer is compatible with.
    CDC* Screen() { return m_picture.DC(); }

    [[nodiscard]] static COLORREF At(CMemDC& buffer, int x, int y) { return ::GetPixel(buffer.m_dc.m_hDC, x, y); }

private:
    Picture m_picture{8, 8, kWhite};
};

TEST_F(MemDC, IsEmptyAtFirst)
{
    CMemDC const buffer;
    EXPECT_EQ(buffer.m_nWidth, 0);
    EXPECT_EQ(buffer.m_nHeight, 0);
    EXPECT_EQ(buffer.m_dc.GetSafeHdc(), nullptr);
    EXPECT_EQ(buffer.m_bitmap.GetSafeHandle(), nullptr);
    EXPECT_EQ(buffer.m_pLine, nullptr);
}

TEST_F(MemDC, ResizedHasContextBitmapHeaderAndLine)
{
    CMemDC buffer;
    buffer.Resize(Screen(), 30, 20);
    EXPECT_EQ(buffer.m_nWidth, 30);
    EXPECT_EQ(buffer.m_nHeight, 20);
    ASSERT_NE(buffer.m_dc.GetSafeHdc(), nullptr);
    EXPECT_EQ(::GetCurrentObject(buffer.m_dc.m_hDC, OBJ_BITMAP), buffer.m_bitmap.m_hObject);
    BITMAP info{};
    buffer.m_bitmap.GetBitmap(&info);
    EXPECT_EQ(info.bmWidth, 30);
    EXPECT_EQ(info.bmHeight, 20);
    EXPECT_EQ(info.bmBitsPixel, 32) << "as the context it is compatible with";
    EXPECT_EQ(buffer.m_bmi.biSize, 40U);
    EXPECT_EQ(buffer.m_bmi.biWidth, 30);
    EXPECT_EQ(buffer.m_bmi.biHeight, -20);
    EXPECT_EQ(buffer.m_bmi.biPlanes, 1);
    EXPECT_EQ(buffer.m_bmi.biBitCount, 24);
    EXPECT_EQ(buffer.m_bmi.biCompression, 0U);
    EXPECT_EQ(buffer.m_bmi.biSizeImage, 0U);
    EXPECT_EQ(buffer.m_bmi.biXPelsPerMeter, 0);
    EXPECT_EQ(buffer.m_bmi.biYPelsPerMeter, 0);
    EXPECT_EQ(buffer.m_bmi.biClrUsed, 0U);
    EXPECT_EQ(buffer.m_bmi.biClrImportant, 0U);
    EXPECT_NE(buffer.m_pLine, nullptr);
}

TEST_F(MemDC, KeepsWhatWasDrawnWhenTheSizeIsTheSame)
{
    CMemDC buffer;
    buffer.Resize(Screen(), 30, 20);
    ::SetPixel(buffer.m_dc.m_hDC, 5, 6, kRed);
    HDC const context = buffer.m_dc.m_hDC;
    HGDIOBJ const bitmap = buffer.m_bitmap.m_hObject;
    buffer.Resize(Screen(), 30, 20);
    EXPECT_EQ(buffer.m_dc.m_hDC, context);
    EXPECT_EQ(buffer.m_bitmap.m_hObject, bitmap);
    EXPECT_EQ(At(buffer, 5, 6), kRed);
}

TEST_F(MemDC, MakesANewBitmapForEachOtherSize)
{
    CMemDC buffer;
    for (int const side : {10, 20, 5})
    {
        buffer.Resize(Screen(), side, side + 1);
        BITMAP info{};
        buffer.m_bitmap.GetBitmap(&info);
        EXPECT_EQ(info.bmWidth, side);
        EXPECT_EQ(info.bmHeight, side + 1);
        EXPECT_EQ(buffer.m_bmi.biHeight, -(side + 1));
    }
}

TEST_F(MemDC, ReleasedIsEmptyAgainAndMayBeUsedAgain)
{
    CMemDC buffer;
    buffer.Resize(Screen(), 30, 20);
    HGDIOBJ const bitmap = buffer.m_bitmap.m_hObject;
    buffer.Release();
    EXPECT_EQ(buffer.m_nWidth, 0);
    EXPECT_EQ(buffer.m_nHeight, 0);
    EXPECT_EQ(buffer.m_dc.GetSafeHdc(), nullptr);
    EXPECT_EQ(buffer.m_pLine, nullptr);
    EXPECT_EQ(::GetObjectType(bitmap), 0U) << "the bitmap was deselected first, so that it could be deleted";
    buffer.Release();
    buffer.Resize(Screen(), 4, 4);
    EXPECT_EQ(buffer.m_nWidth, 4);
}

TEST_F(MemDC, StaysReleasedAtASizeThatCantBeMade)
{
    CMemDC buffer;
    for (const auto& [w, h] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {5, -1}, {2'000'000'000, 2'000'000'000}})
    {
        buffer.Resize(Screen(), 8, 8);
        buffer.Resize(Screen(), w, h);
        EXPECT_EQ(buffer.m_nWidth, 0) << w << " x " << h;
        EXPECT_EQ(buffer.m_dc.GetSafeHdc(), nullptr);
    }
    buffer.Resize(nullptr, 5, 5);
    EXPECT_EQ(buffer.m_nWidth, 0);
}

TEST_F(MemDC, TakesACanvasRowByRowFromTheTop)
{
    DCanvas canvas;
    ASSERT_TRUE(canvas.SetSize(5, 3)); // 15 bytes a line, which is no multiple of 4
    for (int x = 0; x < 5; ++x)
    {
        canvas.SetPixel(x, 0, kRed);
        canvas.SetPixel(x, 1, kGreen);
        canvas.SetPixel(x, 2, x == 4 ? kWhite : kBlue);
    }
    CMemDC buffer;
    buffer.SetCanvas(Screen(), canvas);
    EXPECT_EQ(buffer.m_nWidth, 5);
    EXPECT_EQ(buffer.m_nHeight, 3);
    for (int x = 0; x < 5; ++x)
    {
        EXPECT_EQ(At(buffer, x, 0), kRed);
        EXPECT_EQ(At(buffer, x, 1), kGreen);
        EXPECT_EQ(At(buffer, x, 2), x == 4 ? kWhite : kBlue);
    }
}

TEST_F(MemDC, TakesACanvasOfTheSameSizeAsItIs)
{
    DCanvas canvas;
    ASSERT_TRUE(canvas.SetSize(2, 2));
    canvas.SetPixel(1, 0, kRed);
    CMemDC buffer;
    buffer.SetCanvasScaled(Screen(), canvas, 2, 2);
    EXPECT_EQ(At(buffer, 0, 0), RGB(0, 0, 0));
    EXPECT_EQ(At(buffer, 1, 0), kRed);
}

TEST_F(MemDC, ScalesACanvasUpByTheNearestNeighbour)
{
    DCanvas canvas;
    ASSERT_TRUE(canvas.SetSize(2, 2));
    canvas.SetPixel(0, 0, kRed);
    canvas.SetPixel(1, 0, kGreen);
    canvas.SetPixel(0, 1, kBlue);
    canvas.SetPixel(1, 1, kWhite);
    CMemDC buffer;
    buffer.SetCanvasScaled(Screen(), canvas, 5, 3);
    EXPECT_EQ(buffer.m_nWidth, 5);
    EXPECT_EQ(buffer.m_nHeight, 3);
    for (int y = 0; y < 3; ++y)
    {
        for (int x = 0; x < 5; ++x)
        {
            COLORREF const top = x < 3 ? kRed : kGreen; // columns 0 0 0 1 1
            COLORREF const bottom = x < 3 ? kBlue : kWhite;
            EXPECT_EQ(At(buffer, x, y), y < 2 ? top : bottom) << x << ", " << y; // rows 0 0 1
        }
    }
}

TEST_F(MemDC, ScalesACanvasDownByTheNearestNeighbour)
{
    DCanvas canvas;
    ASSERT_TRUE(canvas.SetSize(6, 4));
    canvas.SetPixel(0, 0, kRed);
    canvas.SetPixel(3, 0, kGreen);
    canvas.SetPixel(0, 2, kBlue);
    canvas.SetPixel(3, 2, kWhite);
    CMemDC buffer;
    buffer.SetCanvasScaled(Screen(), canvas, 2, 2);
    EXPECT_EQ(At(buffer, 0, 0), kRed);
    EXPECT_EQ(At(buffer, 1, 0), kGreen);
    EXPECT_EQ(At(buffer, 0, 1), kBlue);
    EXPECT_EQ(At(buffer, 1, 1), kWhite);
}

TEST_F(MemDC, ScalingAnEmptyCanvasLeavesAnEmptyPictureOfTheSize)
{
    DCanvas const canvas;
    CMemDC buffer;
    buffer.SetCanvasScaled(Screen(), canvas, 3, 3);
    EXPECT_EQ(buffer.m_nWidth, 3);
    buffer.SetCanvas(Screen(), canvas);
    EXPECT_EQ(buffer.m_nWidth, 0);
}

} // namespace
