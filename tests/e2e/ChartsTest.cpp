// ChartsTest.cpp - the histogram of the picture and the plot of the table, by mouse and keyboard
#include "WorkbenchFixture.h"

#include "workbench/resource.h"

namespace e2e
{
namespace
{
using support::Click;
using support::PressKey;
using support::PumpUntil;
using support::ScreenPoint;
using testing::HasSubstr;
using testing::Not;

constexpr char kObjects[] = "Nr,X,Y,Area,Class\r\n"
                            "1,50,25,7,Star\r\n"
                            "2,150,75,30,Galaxy\r\n"
                            "3,20,80,100,Star\r\n"
                            "4,60,10,2,Star\r\n";
constexpr int kArea = 4; // column of the list
constexpr COLORREF kMarked = RGB(0, 220, 90);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

class WorkbenchCharts : public WorkbenchTest
{
protected:
    void StartWithObjects()
    {
        WriteTwoColours("two.bmp", 200, 100);
        Start(WriteFile("two_objects.csv", kObjects));
        ASSERT_TRUE(PumpUntil([&] { return Workbench().RowCount(Workbench().Table()) == 4; }));
        ASSERT_TRUE(ViewHolds("two.bmp"));
    }
    /// Opens a pane by its key. @return its window
    HWND Open(WORD key, const char* title)
    {
        PressKey(key, {VK_CONTROL});
        HWND pane = nullptr;
        EXPECT_TRUE(PumpUntil([&] {
            pane = Pane(title);
            return pane != nullptr && ::GetForegroundWindow() == pane;
        }));
        support::Settle();
        return pane;
    }
    /// The pane while it is shown.
    [[nodiscard]] HWND Pane(const char* title)
    {
        HWND pane = ::FindWindowA(nullptr, title);
        return pane != nullptr && ::GetWindow(pane, GW_OWNER) == Workbench().Window() && ::IsWindowVisible(pane)
                   ? pane
                   : nullptr;
    }
    /// Clicks into the plot at a share of its width.
    void ClickPlot(HWND pane, double share, int y)
    {
        HWND chart = ::GetDlgItem(pane, IDC_PLOT_CHART);
        Click(ScreenPoint(chart, 60 + static_cast<int>((ClientSize(chart).cx - 80) * share), y));
    }
    /// A place in one half of the picture, away from rings.
    [[nodiscard]] bool HalfBecomes(bool left, COLORREF color)
    {
        const SIZE view = ClientSize(Workbench().View());
        return Becomes(Workbench().View(), view.cx * (left ? 2 : 8) / 10, view.cy / 2, color);
    }
    /// Moves the pane to the lower side of the screen, off the picture.
    static void MoveAway(HWND pane)
    {
        const RECT place = WindowRect(pane);
        ::SetWindowPos(pane, nullptr, place.left, ::GetSystemMetrics(SM_CYSCREEN) - (place.bottom - place.top), 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        support::Settle();
    }
};

TEST_F(WorkbenchCharts, TheHistogramMarksThePixelsOfTheBarThatIsClicked)
{
    StartWithObjects();
    HWND pane = Open('1', "Histogram");
    ASSERT_NE(pane, nullptr);
    MoveAway(pane);
    HWND chart = ::GetDlgItem(pane, IDC_HISTOGRAM_CHART);
    ASSERT_TRUE(HalfBecomes(true, kRed));
    Click(ScreenPoint(chart, ClientSize(chart).cx - 18, 60)); // the highest values of red
    EXPECT_TRUE(ViewHolds(", values from "));
    EXPECT_TRUE(HalfBecomes(true, kMarked));
    EXPECT_TRUE(HalfBecomes(false, kBlue));
    Click(ScreenPoint(chart, 38, 60)); // the lowest
    EXPECT_TRUE(HalfBecomes(true, kRed));
    EXPECT_TRUE(HalfBecomes(false, kMarked));
    Click(ScreenPoint(chart, 38, 80)); // the same again
    EXPECT_TRUE(HalfBecomes(false, kBlue));
    EXPECT_THAT(Workbench().ViewText(), Not(HasSubstr(", values from ")));
}

TEST_F(WorkbenchCharts, TheHistogramShowsTheChannelThatIsChosen)
{
    StartWithObjects();
    HWND pane = Open('1', "Histogram");
    ASSERT_NE(pane, nullptr);
    MoveAway(pane);
    HWND chart = ::GetDlgItem(pane, IDC_HISTOGRAM_CHART);
    Click(ScreenPoint(chart, ClientSize(chart).cx - 18, 60));
    ASSERT_TRUE(HalfBecomes(true, kMarked));
    HWND box = ::GetDlgItem(pane, IDC_HISTOGRAM_CHANNEL);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == box; })) << "the choice has the focus from the start";
    PressKey(VK_END);
    ASSERT_TRUE(PumpUntil([&] { return TextOf(box) == "3"; }));
    EXPECT_TRUE(HalfBecomes(true, kRed)) << "the highest values of blue are in the other half";
    EXPECT_TRUE(HalfBecomes(false, kMarked));
}

TEST_F(WorkbenchCharts, TheHistogramGoesByEscAndTakesItsMarkAlong)
{
    StartWithObjects();
    HWND pane = Open('1', "Histogram");
    ASSERT_NE(pane, nullptr);
    MoveAway(pane);
    HWND chart = ::GetDlgItem(pane, IDC_HISTOGRAM_CHART);
    Click(ScreenPoint(chart, ClientSize(chart).cx - 18, 60));
    ASSERT_TRUE(HalfBecomes(true, kMarked));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(PumpUntil([&] { return Pane("Histogram") == nullptr; }));
    EXPECT_TRUE(HalfBecomes(true, kRed));
    EXPECT_TRUE(PumpUntil([&] { return ::GetForegroundWindow() == Workbench().Window(); }));
    EXPECT_EQ(CloseByKeys(), 0U);
}

TEST_F(WorkbenchCharts, ThePlotSelectsTheRowAndTheObjectOfThePointThatIsClicked)
{
    StartWithObjects();
    HWND pane = Open('2', "Plot");
    ASSERT_NE(pane, nullptr);
    MoveAway(pane);
    EXPECT_EQ(TextOf(::GetDlgItem(pane, IDC_PLOT_X)), "Area");
    ClickPlot(pane, 0.30, 60);
    EXPECT_TRUE(ViewHolds(", object at 150, 75"));
    EXPECT_EQ(Workbench().SelectedRow(Workbench().Table()), 1);
    ClickPlot(pane, 1.0, 60);
    EXPECT_TRUE(ViewHolds(", object at 20, 80"));
    EXPECT_EQ(Workbench().SelectedRow(Workbench().Table()), 2);
}

TEST_F(WorkbenchCharts, ThePlotFindsTheRowInASortedTableAndInOneOfAnotherClass)
{
    StartWithObjects();
    const RECT caption = Workbench().CaptionRect(Workbench().Table(), kArea);
    Click(POINT{(caption.left + caption.right) / 2, (caption.top + caption.bottom) / 2});
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Cell(Workbench().Table(), 0, kArea) == "100"; }));
    HWND pane = Open('2', "Plot");
    ASSERT_NE(pane, nullptr);
    MoveAway(pane);
    ClickPlot(pane, 0.30, 60);
    EXPECT_TRUE(PumpUntil([&] { return Workbench().SelectedRow(Workbench().Table()) == 1; }));
    ASSERT_TRUE(ViewHolds(", object at 150, 75"));
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Cell(Workbench().Table(), 1, kArea) == "30"; }));

    HWND box = Workbench().ClassBox();
    Click(Workbench().Table());
    PressKey('L', {VK_MENU});
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == box; }));
    PressKey(VK_END); // "Star"
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Cell(Workbench().Table(), 1, kArea) == "7"; }));
    ClickPlot(pane, 1.0, 60);
    EXPECT_TRUE(ViewHolds(", object at 20, 80")) << "a star";
    EXPECT_EQ(TextOf(box), "Star");
    ClickPlot(pane, 0.30, 60);
    EXPECT_TRUE(ViewHolds(", object at 150, 75")) << "no star";
    EXPECT_EQ(TextOf(box), "All classes");
}

TEST_F(WorkbenchCharts, ThePlotShowsTheColumnsThatAreChosen)
{
    StartWithObjects();
    HWND pane = Open('2', "Plot");
    ASSERT_NE(pane, nullptr);
    MoveAway(pane);
    HWND box = ::GetDlgItem(pane, IDC_PLOT_X);
    ASSERT_TRUE(PumpUntil([&] { return Workbench().Focus() == box; }));
    PressKey(VK_F4);
    ASSERT_TRUE(PumpUntil([&] { return ::SendMessageA(box, CB_GETDROPPEDSTATE, 0, 0) != 0; }));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(PumpUntil([&] { return ::SendMessageA(box, CB_GETDROPPEDSTATE, 0, 0) == 0; }));
    EXPECT_TRUE(::IsWindowVisible(pane)) << "Esc closes the box first";
    PressKey('X');
    ASSERT_TRUE(PumpUntil([&] { return TextOf(box) == "X"; }));
    // From 20 to 160: the first object lies at 50.
    ClickPlot(pane, 30.0 / 140, 60);
    EXPECT_TRUE(ViewHolds(", object at 50, 25"));
    EXPECT_EQ(Workbench().SelectedRow(Workbench().Table()), 0);
}

TEST_F(WorkbenchCharts, ThePlotIsEmptyWithoutATable)
{
    WriteTwoColours("two.bmp", 200, 100);
    Start((Folder() / "two.bmp").string());
    ASSERT_TRUE(ViewHolds("two.bmp"));
    HWND pane = Open('2', "Plot");
    ASSERT_NE(pane, nullptr);
    ClickPlot(pane, 0.5, 60);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(PumpUntil([&] { return Pane("Plot") == nullptr; }));
    EXPECT_EQ(CloseByKeys(), 0U);
}
} // namespace
} // namespace e2e
