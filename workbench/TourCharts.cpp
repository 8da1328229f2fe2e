#include "automation/Input.h"
#include "automation/Screenshot.h"
#include "tavkit/charts/HstgCtrl.h"
#include "tavkit/charts/PlotCtrl.h"
#include "workbench/Tour.h"
#include "workbench/resource.h"

#include <optional>

namespace workbench
{
using automation::Click;
using automation::MoveMouse;
using automation::PressKey;
using automation::Screenshot;
using automation::TurnWheel;

namespace
{
constexpr char kMarked[] = ", values from ";
constexpr char kObject[] = ", object at ";
/// A place this far from others of a colour is taken for the middle of what is there.
constexpr int kDisc = 6;

/// A place on the screen in a window that has a colour, and below which so many pixels have it too.
std::optional<POINT> FindColour(HWND window, COLORREF colour, int height)
{
    RECT rect{};
    ::GetClientRect(window, &rect);
    ::MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    const Screenshot shot(rect);
    for (int x = shot.Width() * 3 / 4; x > 0; --x)
    {
        for (int y = 0, run = 0; y < shot.Height(); ++y)
        {
            run = shot.ColourAt(x, y) == colour ? run + 1 : 0;
            if (run == height)
            {
                return POINT{rect.left + x, rect.top + y - height / 2};
            }
        }
    }
    return std::nullopt;
}
} // namespace

HWND Tour::AwaitPane(const char* title)
{
    HWND pane = nullptr;
    Await(
        [&] {
            pane = ::GetForegroundWindow();
            return TextOf(pane) == title && ::GetWindow(pane, GW_OWNER) == m_frame;
        },
        std::string("the window \"") + title + "\" comes up");
    return pane;
}

void Tour::VisitHistogram()
{
    PressKey('1', {VK_CONTROL});
    HWND pane = AwaitPane("Histogram");
    HWND chart = ::GetDlgItem(pane, IDC_HISTOGRAM_CHART);
    std::optional<POINT> bar;
    constexpr int kTallBar = 20;
    Await([&] { return (bar = FindColour(chart, CHstgCtrl::BarColor, kTallBar)).has_value(); },
          "the histogram has bars");
    Picture("histogram", "The histogram of the picture's first channel.");
    if (bar)
    {
        Click(*bar);
        Await([this] { return ViewText().find(kMarked) != std::string::npos; },
              "a click on a bar marks the pixels of its class");
        Picture("histogram-class", "A click on a bar marks the pixels of its class.");
    }
    HWND box = ::GetDlgItem(pane, IDC_HISTOGRAM_CHANNEL);
    Await([&] { return Focus() == box; }, "the choice of the channel has the focus");
    PressKey(VK_DOWN);
    Await([&] { return TextOf(box) == "2"; }, "another channel is chosen");
    Picture("histogram-channel", "The same class of another channel.");
    PressKey(VK_ESCAPE);
    Await([&] { return !::IsWindowVisible(pane) && ViewText().find(kMarked) == std::string::npos; },
          "Esc closes the histogram and takes the mark away");
}

void Tour::VisitPlot()
{
    PressKey('2', {VK_CONTROL});
    HWND pane = AwaitPane("Plot");
    HWND chart = ::GetDlgItem(pane, IDC_PLOT_CHART);
    std::optional<POINT> point;
    Await([&] { return (point = FindColour(chart, CPlotCtrl::PointColor, kDisc)).has_value(); }, "the plot has points");
    Picture("plot", "Two columns of the table against each other.");
    if (point)
    {
        Click(*point);
        Await([this] { return ViewText().find(kObject) != std::string::npos; },
              "a click on a point marks its object in the picture");
        Check(SelectedRow(::GetDlgItem(Part(IDC_TABLE_PANE), IDC_TABLE_LIST)) >= 0, "its row is selected");
        Picture("plot-chosen", "A point is chosen: its row is selected, and its object marked.");
    }
    RECT place{};
    ::GetWindowRect(chart, &place);
    MoveMouse({place.left + (place.right - place.left) / 4, place.bottom - (place.bottom - place.top) / 4});
    constexpr int kNotches = 4;
    TurnWheel(kNotches);
    Picture("plot-zoomed", "The wheel shows a part more closely.");
    HWND box = ::GetDlgItem(pane, IDC_PLOT_Y);
    const std::string before = TextOf(box);
    PressKey(VK_TAB); // from the plot to the first box
    PressKey(VK_TAB);
    Await([&] { return Focus() == box; }, "Tab goes to the second column");
    PressKey(VK_DOWN);
    Await([&] { return TextOf(box) != before; }, "another column is chosen");
    Picture("plot-columns", "Another column against the same one.");
    PressKey(VK_ESCAPE);
    Await([&] { return !::IsWindowVisible(pane); }, "Esc closes the plot");
}
} // namespace workbench
