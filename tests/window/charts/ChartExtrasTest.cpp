// ChartExtrasTest.cpp - additions to the charts: files, the clipboard, tips, and a closer look at the plot

#include "../kit/ImportHook.h"
#include "ChartFixture.h"

#include "support/TempFolder.h"

#include <objidl.h>
#include <gdiplus.h>

#include <future>
#include <thread>
#include <type_traits>
#include <vector>

namespace
{

using namespace chart_test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr COLORREF kBarRed = RGB(255, 0, 0);
constexpr COLORREF kPointRed = RGB(230, 0, 0);
constexpr COLORREF kPointBlue = RGB(0, 0, 255);

/// Gives a chart something to show.
struct Content
{
    void Fill(CHstgCtrl& chart)
    {
        m_hstg = std::make_unique<DHstg>(0.0, 2.5, std::vector{25, 50, 0, 25, 0});
        chart.SetHstg(m_hstg.get());
    }
    void Fill(CPlotCtrl& chart)
    {
        chart.SetDataMaxX(10.0);
        chart.SetDataMaxY(10.0);
        chart.DrawGrid(false);
        chart.AddData(5.0, 5.0, "five", "");
        chart.AddData(7.5, 2.5, "", "");
    }

private:
    std::unique_ptr<DHstg> m_hstg;
};

/// The tip that shows; null for none.
HWND VisibleTip()
{
    HWND found = nullptr;
    const auto look = [](HWND window, LPARAM result) -> BOOL {
        char name[64]{};
        ::GetClassNameA(window, name, sizeof name);
        if (std::string_view(name) == TOOLTIPS_CLASSA && ::IsWindowVisible(window))
        {
            *reinterpret_cast<HWND*>(result) = window;
        }
        return TRUE;
    };
    ::EnumThreadWindows(::GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&found));
    return found;
}

std::string TipText(HWND owner)
{
    char text[256]{};
    TOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    tool.hwnd = owner;
    tool.uId = 1;
    tool.lpszText = text;
    ::SendMessageA(VisibleTip(), TTM_GETTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
    return text;
}

template <class Chart>
class ChartExtras : public ChartTest<Chart>
{
protected:
    void SetUp() override
    {
        ChartTest<Chart>::SetUp();
        this->Open(480, 252);
        m_content.Fill(*this->m_chart);
    }

    /// Different pixels between what is on the screen and a picture.
    template <class At>
    static int Differences(Shot const& shot, At at)
    {
        int different = 0;
        for (int y = 0; y < shot.Size().cy; ++y)
        {
            for (int x = 0; x < shot.Size().cx; ++x)
            {
                different += shot.At(x, y) != at(x, y) ? 1 : 0;
            }
        }
        return different;
    }

    [[nodiscard]] bool Save(bool png, std::string const& path)
    {
        return png ? this->m_chart->SavePng(path.c_str()) : this->m_chart->SaveEmf(path.c_str());
    }

    Content m_content;
    support::TempFolder m_folder;
};

using Charts = testing::Types<CHstgCtrl, CPlotCtrl>;
TYPED_TEST_SUITE(ChartExtras, Charts);

// Files

TYPED_TEST(ChartExtras, SavesAsPngWhatTheScreenShows)
{
    const std::string path = this->m_folder.Path("chart.png");
    ASSERT_TRUE(this->m_chart->SavePng(path.c_str()));
    const Shot shot = this->Look();
    const std::wstring wide(path.begin(), path.end());
    Gdiplus::Bitmap picture(wide.c_str());
    ASSERT_EQ(picture.GetLastStatus(), Gdiplus::Ok);
    ASSERT_EQ(picture.GetWidth(), 480U);
    ASSERT_EQ(picture.GetHeight(), 252U);
    EXPECT_EQ(this->Differences(shot,
                                [&](int x, int y) {
                                    Gdiplus::Color color;
                                    picture.GetPixel(x, y, &color);
                                    return color.ToCOLORREF();
                                }),
              0);
    this->AllowGdiGrowth("GDI+ keeps a context of the screen after its first use");
}

TYPED_TEST(ChartExtras, SavesAsMetafileWhatTheScreenShows)
{
    const std::string path = this->m_folder.Path("chart.emf");
    ASSERT_TRUE(this->m_chart->SaveEmf(path.c_str()));
    const HENHMETAFILE metafile = ::GetEnhMetaFileA(path.c_str());
    ASSERT_NE(metafile, nullptr);
    Picture picture(480, 252, kWhite);
    const RECT place{0, 0, 480, 252};
    EXPECT_TRUE(::PlayEnhMetaFile(picture.Handle(), metafile, &place));
    ::DeleteEnhMetaFile(metafile);
    const bool isPlot = std::is_same_v<TypeParam, CPlotCtrl>;
    EXPECT_EQ(picture.At(isPlot ? 260 : 170, isPlot ? 120 : 200), isPlot ? kPointRed : kBarRed);
    EXPECT_EQ(picture.At(0, 100), kBlack);
    EXPECT_EQ(picture.At(isPlot ? 60 : 35, 100), kBlack);
}

TYPED_TEST(ChartExtras, ReplacesAnOldFile)
{
    for (const bool png : {true, false})
    {
        const std::string path = this->m_folder.Write("chart", "old");
        EXPECT_TRUE(this->Save(png, path));
        EXPECT_GT(this->m_folder.Read("chart").size(), 100U);
        EXPECT_THAT(this->m_folder.Names(), ElementsAre("chart"));
    }
}

TYPED_TEST(ChartExtras, FailClearlyWhereNoFileCanBe)
{
    this->m_folder.MakeFolder("folder");
    for (const bool png : {true, false})
    {
        for (const char* const name : {"missing\\chart", "folder"})
        {
            ::SetLastError(ERROR_SUCCESS);
            EXPECT_FALSE(this->Save(png, this->m_folder.Path(name))) << name;
            EXPECT_NE(::GetLastError(), static_cast<DWORD>(ERROR_SUCCESS)) << name;
        }
        EXPECT_FALSE(this->Save(png, ""));
        EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_INVALID_NAME));
    }
    EXPECT_FALSE(this->m_chart->SavePng(nullptr));
    EXPECT_FALSE(this->m_chart->SaveEmf(nullptr));
    EXPECT_THAT(this->m_folder.Names(), ElementsAre("folder")) << "nothing is left behind";
}

TYPED_TEST(ChartExtras, LeaveAFileWholeThatIsInUse)
{
    const std::string path = this->m_folder.Write("chart", "old");
    const HANDLE user = ::CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(user, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(this->Save(true, path));
    EXPECT_FALSE(this->Save(false, path));
    ::CloseHandle(user);
    EXPECT_EQ(this->m_folder.Read("chart"), "old");
    EXPECT_THAT(this->m_folder.Names(), ElementsAre("chart"));
}

BOOL WINAPI WriteHalf(HANDLE file, LPCVOID bytes, DWORD count, DWORD* written, OVERLAPPED* overlapped)
{
    ::WriteFile(file, bytes, count / 2, written, overlapped);
    ::SetLastError(ERROR_DISK_FULL);
    return FALSE;
}

TYPED_TEST(ChartExtras, LeaveTheOldFileWholeWhenTheDiskIsFull)
{
    const std::string path = this->m_folder.Write("chart", "old");
    const ImportHook full("TavKit.dll", "kernel32.dll", "WriteFile", reinterpret_cast<void*>(WriteHalf));
    for (const bool png : {true, false})
    {
        EXPECT_FALSE(this->Save(png, path));
        EXPECT_EQ(::GetLastError(), static_cast<DWORD>(ERROR_DISK_FULL));
        EXPECT_EQ(this->m_folder.Read("chart"), "old");
        EXPECT_THAT(this->m_folder.Names(), ElementsAre("chart"));
    }
}

TYPED_TEST(ChartExtras, SaveNothingWithoutAPage)
{
    const std::string path = this->m_folder.Write("chart", "old");
    this->m_chart->SetWindowPos(nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_FALSE(this->m_chart->CopyToClpbrd());
    EXPECT_FALSE(this->Save(true, path));
    this->m_chart->DestroyWindow();
    EXPECT_FALSE(this->Save(false, path));
    EXPECT_FALSE(this->m_chart->CopyToClpbrd());
    EXPECT_EQ(this->m_folder.Read("chart"), "old");
}

// The clipboard

TYPED_TEST(ChartExtras, CopyThemselvesAsBitmapAndMetafile)
{
    ASSERT_TRUE(this->m_chart->CopyToClpbrd());
    const Shot shot = this->Look();
    ASSERT_TRUE(::OpenClipboard(nullptr));
    EXPECT_NE(::GetClipboardData(CF_ENHMETAFILE), nullptr);
    const HANDLE bitmap = ::GetClipboardData(CF_BITMAP);
    ASSERT_NE(bitmap, nullptr);
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    const HGDIOBJ old = ::SelectObject(dc.m_hDC, bitmap);
    EXPECT_EQ(this->Differences(shot, [&](int x, int y) { return ::GetPixel(dc.m_hDC, x, y); }), 0);
    ::SelectObject(dc.m_hDC, old);
    ::EmptyClipboard();
    ::CloseClipboard();
    this->AllowGdiGrowth("the clipboard is the system's");
}

TYPED_TEST(ChartExtras, LeaveAClipboardAloneThatIsInUse)
{
    std::promise<void> taken;
    std::promise<void> done;
    std::jthread other([&] {
        ::OpenClipboard(nullptr);
        taken.set_value();
        done.get_future().wait();
        ::CloseClipboard();
    });
    taken.get_future().wait();
    const DWORD before = ::GetClipboardSequenceNumber();
    EXPECT_FALSE(this->m_chart->CopyToClpbrd());
    EXPECT_EQ(::GetClipboardSequenceNumber(), before);
    done.set_value();
}

// Tips

class HstgExtras : public ChartExtras<CHstgCtrl>
{
};

class PlotExtras : public ChartExtras<CPlotCtrl>
{
protected:
    void Move(int x, int y)
    {
        support::MoveMouse(support::ScreenPoint(m_chart->m_hWnd, x, y));
        support::Settle();
    }
    void Wheel(int x, int y, int notches)
    {
        Move(x, y);
        support::TurnWheel(notches);
        support::Settle();
    }
    [[nodiscard]] int Points(CRect rect) { return Look().Count(rect, kPointRed); }
};

TEST_F(HstgExtras, ShowNoTipUntilAsked)
{
    support::MoveMouse(support::ScreenPoint(m_chart->m_hWnd, 150, 150));
    support::Settle();
    EXPECT_EQ(VisibleTip(), nullptr);
}

TEST_F(HstgExtras, TellTheSlotUnderTheMouse)
{
    m_chart->EnblToolTip(true);
    support::MoveMouse(support::ScreenPoint(m_chart->m_hWnd, 150, 150));
    ASSERT_TRUE(support::PumpUntil([] { return VisibleTip() != nullptr; }));
    EXPECT_EQ(TipText(m_chart->m_hWnd), "0.5 to 1: 50 (50.0%)");
    support::MoveMouse(support::ScreenPoint(m_chart->m_hWnd, 60, 50));
    ASSERT_TRUE(support::PumpUntil([&] { return TipText(m_chart->m_hWnd) == "0 to 0.5: 25 (25.0%)"; }));
    support::MoveMouse(support::ScreenPoint(m_chart->m_hWnd, 10, 50));
    EXPECT_TRUE(support::PumpUntil([] { return VisibleTip() == nullptr; })) << "left of the axis";
}

TEST_F(HstgExtras, TakeTheTipAwayWhenTheMouseLeaves)
{
    m_chart->EnblToolTip(true);
    support::MoveMouse(support::ScreenPoint(m_chart->m_hWnd, 150, 150));
    ASSERT_TRUE(support::PumpUntil([] { return VisibleTip() != nullptr; }));
    support::MoveMouse(support::ScreenPoint(m_frame->m_hWnd, 600, 400));
    EXPECT_TRUE(support::PumpUntil([] { return VisibleTip() == nullptr; }));
}

TEST_F(HstgExtras, TakeTheTipAwayWhenItIsSwitchedOff)
{
    m_chart->EnblToolTip(true);
    support::MoveMouse(support::ScreenPoint(m_chart->m_hWnd, 150, 150));
    ASSERT_TRUE(support::PumpUntil([] { return VisibleTip() != nullptr; }));
    m_chart->EnblToolTip(false);
    EXPECT_EQ(VisibleTip(), nullptr);
}

TEST_F(HstgExtras, EndWithATipThatShows)
{
    m_chart->EnblToolTip(true);
    support::MoveMouse(support::ScreenPoint(m_chart->m_hWnd, 150, 150));
    ASSERT_TRUE(support::PumpUntil([] { return VisibleTip() != nullptr; }));
    m_chart.reset();
    EXPECT_EQ(VisibleTip(), nullptr);
}

TEST_F(PlotExtras, TellThePointUnderTheMouse)
{
    m_chart->EnblToolTip(true);
    Move(262, 121);
    ASSERT_TRUE(support::PumpUntil([] { return VisibleTip() != nullptr; }));
    EXPECT_EQ(TipText(m_chart->m_hWnd), "five: 5, 5");
    Move(300, 121);
    EXPECT_TRUE(support::PumpUntil([] { return VisibleTip() == nullptr; })) << "no point there";
    Move(360, 170);
    ASSERT_TRUE(support::PumpUntil([] { return VisibleTip() != nullptr; }));
    EXPECT_EQ(TipText(m_chart->m_hWnd), "7.5, 2.5");
    m_chart->Clear();
    EXPECT_EQ(VisibleTip(), nullptr);
}

// A closer look

TEST_F(PlotExtras, DoNotZoomUntilAsked)
{
    m_chart->SetFocus();
    Wheel(260, 120, 3);
    EXPECT_EQ(Look().At(360, 170), kPointRed);
    EXPECT_EQ(m_frame->Count(WM_MOUSEWHEEL), 1) << "the parent gets it, once";
}

TEST_F(PlotExtras, ZoomAboutTheMouse)
{
    m_chart->EnblZoom(true);
    Click(300, 60); // on no point; takes the focus
    EXPECT_EQ(::GetFocus(), m_chart->m_hWnd);
    Wheel(260, 120, 1);
    Shot shot = Look();
    EXPECT_EQ(shot.At(260, 120), kPointRed) << "keeps its place";
    EXPECT_EQ(shot.At(360, 170), kWhite);
    EXPECT_EQ(shot.At(385, 182), kPointRed) << "is 1.25 times as far away";
    Wheel(260, 120, 3);
    EXPECT_EQ(Points(CRect(300, 20, 460, 210)), 0) << "the other one is out of sight";
    Wheel(260, 120, -8);
    shot = Look();
    EXPECT_EQ(shot.At(260, 120), kPointRed);
    EXPECT_EQ(shot.At(360, 170), kPointRed) << "all is shown again, and no more than all";
}

TEST_F(PlotExtras, SelectWhatIsShown)
{
    m_chart->EnblZoom(true);
    Click(300, 60);
    Wheel(260, 120, 1);
    Click(385, 100);
    ASSERT_THAT(m_frame->m_notes, SizeIs(1));
    EXPECT_EQ(reinterpret_cast<const CPlotCtrl::DataPoint*>(m_frame->m_notes[0].wParam)->x, 7.5);
    EXPECT_EQ(Look().At(385, 182), kPointBlue);
}

TEST_F(PlotExtras, DragWhatIsShownWithTheRightButton)
{
    m_chart->EnblZoom(true);
    Click(300, 60);
    Wheel(260, 120, 1);
    Move(300, 100);
    support::Press(support::Button::right);
    Move(280, 90);
    Move(270, 80);
    support::Release(support::Button::right);
    support::Settle();
    EXPECT_NE(::GetCapture(), m_chart->m_hWnd);
    EXPECT_EQ(Look().At(230, 100), kPointRed) << "30 to the left and 20 upward";
    Move(200, 80);
    EXPECT_EQ(Look().At(230, 100), kPointRed) << "the drag is over";
    Move(330, 100); // elsewhere, so that it is no double click
    support::Press(support::Button::right);
    Move(630, 400);
    support::Release(support::Button::right);
    support::Settle();
    EXPECT_EQ(Look().At(310, 145), kPointRed) << "no further than the limits";
}

TEST_F(PlotExtras, ShowAllAgainAtADoubleClickWithTheRightButton)
{
    m_chart->EnblZoom(true);
    Click(300, 60);
    Wheel(260, 120, 2);
    ASSERT_EQ(Look().At(360, 170), kWhite);
    m_chart->SendMessage(WM_RBUTTONDBLCLK, MK_RBUTTON, MAKELPARAM(300, 60));
    EXPECT_EQ(Look().At(360, 170), kPointRed);
}

TEST_F(PlotExtras, ShowAllAgainWhenZoomIsOffOrALimitIsSet)
{
    m_chart->EnblZoom(true);
    Click(300, 60);
    Wheel(260, 120, 2);
    m_chart->EnblZoom(false);
    EXPECT_EQ(Look().At(360, 170), kPointRed);
    m_chart->EnblZoom(true);
    Wheel(260, 120, 2);
    ASSERT_EQ(Look().At(360, 170), kWhite);
    m_chart->SetDataMaxX(10.0);
    EXPECT_EQ(Look().At(360, 170), kPointRed);
}

TEST_F(PlotExtras, KeepTheirTicksOnRoundValues)
{
    m_chart->SetTickX(2.5);
    m_chart->SetTickY(2.5);
    m_chart->EnblZoom(true);
    Click(300, 60);
    Wheel(260, 120, 4); // 2.44 times: from 2.952 to 7.048, ticks at each 1.25
    const Shot shot = Look();
    const int width = static_cast<int>(1.25 * 1.25 * 1.25 * 1.25 * 40 * 1.25);
    EXPECT_TRUE(shot.HasText("5", CRect(260 - width / 2, 226, 260 + width / 2, 236), DT_CENTER | DT_NOCLIP, 75,
                             "Arial Narrow"));
    EXPECT_EQ(shot.At(260, 224), kBlack);
}

TEST_F(PlotExtras, LeaveTheWheelToTheParentWithoutARange)
{
    m_chart->EnblZoom(true);
    m_chart->Clear();
    m_chart->SetDataMaxX(0.0);
    m_chart->SetFocus();
    Wheel(260, 120, 2);
    EXPECT_EQ(Look().At(60, 100), kBlack);
    EXPECT_EQ(m_frame->Count(WM_MOUSEWHEEL), 1);
}

} // namespace
