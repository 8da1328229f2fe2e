// CountedTest.h - fixture that also compares the framework's own counts of what it holds
#pragma once

#include "support/WindowTest.h"

#include <afxcount.h>
#include <array>

/// As WindowTest, and the counts of the framework must be the same after the test as before.
class CountedTest : public support::WindowTest
{
protected:
    using Counts = std::array<int, static_cast<size_t>(AfxResource::Count)>;

    static Counts LiveCounts()
    {
        Counts counts{};
        for (size_t kind = 0; kind < counts.size(); ++kind)
        {
            counts[kind] = AfxGetLiveCount(static_cast<AfxResource>(kind));
        }
        return counts;
    }

    void SetUp() override
    {
        [[maybe_unused]] static const bool warm = WarmUp();
        WindowTest::SetUp();
        m_live = LiveCounts();
    }

    void TearDown() override
    {
        EXPECT_EQ(LiveCounts(), m_live) << "the framework still holds something";
        WindowTest::TearDown();
    }

private:
    // Opens what the system keeps for the life of the process: its icons, the cursors of a header.
    static bool WarmUp()
    {
        ::LoadIcon(nullptr, IDI_ERROR);
        ::LoadIcon(nullptr, IDI_WARNING);
        const HWND list = ::CreateWindowExA(0, WC_LISTVIEWA, "", WS_POPUP | WS_VISIBLE | LVS_REPORT, 0, 0, 100, 100,
                                            nullptr, nullptr, nullptr, nullptr);
        support::Settle();
        ::DestroyWindow(list);
        return true;
    }

    Counts m_live{};
};

/// A memory context with a bitmap of its own, filled with one colour.
struct MemoryCanvas
{
    CBitmap bitmap; // declared first: the context must die before what is selected in it
    CDC dc;

    explicit MemoryCanvas(COLORREF fill = RGB(255, 255, 255), int width = 64, int height = 64)
    {
        CClientDC screen(nullptr);
        EXPECT_TRUE(bitmap.CreateCompatibleBitmap(&screen, width, height));
        EXPECT_TRUE(dc.CreateCompatibleDC(&screen));
        dc.SelectObject(&bitmap);
        const COLORREF before = dc.GetBkColor();
        dc.FillSolidRect(0, 0, width, height, fill);
        dc.SetBkColor(before);
    }

    COLORREF At(int x, int y) const { return dc.GetPixel(x, y); }
};

namespace colour
{
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kMagenta = RGB(255, 0, 255);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
} // namespace colour

/// Bitmaps in ControlTestResources.rc.
constexpr UINT kStripBitmap = 7700; ///< two pictures of 2 x 2: red; blue with a magenta corner at the upper right
constexpr UINT kGreenBitmap = 7701; ///< this and the following: 2 x 2 of one colour
constexpr UINT kRedBitmap = 7702;
constexpr UINT kWhiteBitmap = 7703;
constexpr UINT kBlueBitmap = 7704;
constexpr UINT kMissingBitmap = 7799;
