// ChartFixture.h - a chart in a frame that sees its messages, and a picture of the chart
#pragma once

#include "../kit/Picture.h"

#include "automation/Screenshot.h"
#include "support/WindowTest.h"
#include "tavkit/charts/HstgCtrl.h"
#include "tavkit/charts/PlotCtrl.h"

#include <memory>
#include <string>

namespace chart_test
{

constexpr int kChartId = 55;
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);

/// The client area of a window as it stands on the screen.
class Shot
{
public:
    explicit Shot(CWnd& window)
    {
        window.UpdateWindow();
        support::Settle();
        RECT client{};
        ::GetClientRect(window.m_hWnd, &client);
        ::MapWindowPoints(window.m_hWnd, nullptr, reinterpret_cast<POINT*>(&client), 2);
        m_size = {client.right - client.left, client.bottom - client.top};
        m_picture = std::make_unique<automation::Screenshot>(client);
    }

    [[nodiscard]] COLORREF At(int x, int y) const { return m_picture->ColourAt(x, y); }
    [[nodiscard]] SIZE Size() const { return m_size; }

    /// Number of pixels of a colour in a rectangle, which is cut at the client area.
    [[nodiscard]] int Count(CRect rect, COLORREF color) const
    {
        rect.IntersectRect(rect, CRect(0, 0, m_size.cx, m_size.cy));
        int count = 0;
        for (int y = rect.top; y < rect.bottom; ++y)
        {
            for (int x = rect.left; x < rect.right; ++x)
            {
                count += At(x, y) == color ? 1 : 0;
            }
        }
        return count;
    }
    [[nodiscard]] int Count(COLORREF color) const { return Count(CRect(0, 0, m_size.cx, m_size.cy), color); }

    /// True if a text stands where DrawText puts it, with nothing else around its letters.
    /// @param size  tenths of a point
    [[nodiscard]] bool HasText(const char* text, CRect place, UINT format, int size, const char* face) const
    {
        Picture expected(m_size.cx, m_size.cy, kWhite);
        CFont font;
        font.CreatePointFont(size, face, expected.DC());
        const SelectScope selected(*expected.DC(), font);
        expected.DC()->SetBkMode(TRANSPARENT);
        expected.DC()->DrawText(text, -1, place, format);
        const CRect painted = expected.Painted();
        bool same = !painted.IsRectEmpty();
        for (int y = painted.top; y < painted.bottom; ++y)
        {
            for (int x = painted.left; x < painted.right; ++x)
            {
                same = same && At(x, y) == expected.At(x, y);
            }
        }
        return same;
    }

private:
    SIZE m_size{};
    std::unique_ptr<automation::Screenshot> m_picture;
};

/// A frame that keeps what charts post to it, and can act on it.
class ChartParent : public support::TestFrame
{
public:
    using TestFrame::TestFrame;

    struct Note
    {
        WPARAM wParam;
        LPARAM lParam;
        bool operator==(Note const&) const = default;
    };
    std::vector<Note> m_notes;
    std::function<void(Note const&)> m_onNote;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_CHART_SLCT)
        {
            m_notes.push_back({wParam, lParam});
            if (m_onNote)
            {
                m_onNote(m_notes.back());
            }
        }
        return TestFrame::WindowProc(message, wParam, lParam);
    }
};

/// @tparam Chart  CHstgCtrl or CPlotCtrl
template <class Chart>
class ChartTest : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<ChartParent>(700, 500);
        m_chart = std::make_unique<Chart>();
    }
    void TearDown() override
    {
        m_chart.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }

    void Open(int width, int height)
    {
        const CRect place(CPoint(10, 10), CSize(width, height));
        ASSERT_TRUE(m_chart->Create(Chart::ClassName, "", WS_CHILD | WS_VISIBLE, place, m_frame.get(), kChartId));
    }
    /// A real click. Two that are less than some pixels apart make a double click, which a chart takes for one.
    void Click(int x, int y)
    {
        support::Click(support::ScreenPoint(m_chart->m_hWnd, x, y));
        support::Settle();
    }
    [[nodiscard]] Shot Look() { return Shot(*m_chart); }

    std::unique_ptr<ChartParent> m_frame;
    std::unique_ptr<Chart> m_chart;
};

} // namespace chart_test
