// Layout.cpp - [layout] passes of the layout engine against moves written out by hand, [placement] its arithmetic
#include "bench/Bench.h"

#include "tavkit/layout/DynamicWnd.h"
#include "tavkit/layout/Placement.h"

#include <afxwin.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>

namespace bench
{
namespace
{

constexpr double kPassTarget = 1.10; ///< a pass against the same moves by hand
constexpr double kSameTarget = 0.25; ///< a pass in which nothing changes against a full one
constexpr int kResizes = 10;         ///< of one run; the runs of a comparison come to a hundred
constexpr int kColumns = 20;
constexpr int kCellWidth = 30;
constexpr int kCellHeight = 14;
constexpr int kFirstWidth = kColumns * kCellWidth;
constexpr int kFirstHeight = 500;
constexpr const char* kChildClass = "TavKitBenchChild";

long long g_moves = 0; // attempts to move a child, of all windows

LRESULT CALLBACK ChildProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_moves += message == WM_WINDOWPOSCHANGING;
    return ::DefWindowProcA(window, message, wParam, lParam);
}

/// Growth of the client area at a resize.
SIZE GrowthAt(int step) { return {1 + step * 7 % 97, 1 + step * 5 % 89}; }

/// How a child follows; four kinds in turns.
struct Rule
{
    signed char percent[4];
};

constexpr Rule kRules[] = {{{0, 0, 100, 0}}, {{100, 100, 100, 100}}, {{50, 0, 50, 100}}, {{25, 25, 75, 75}}};

CRect ChildRect(int i)
{
    return CRect(CPoint(i % kColumns * kCellWidth, i / kColumns * kCellHeight), CSize(kCellWidth - 2, kCellHeight - 2));
}

/// A window with children. It stays hidden: what the screen costs would only drown what the two sides do differently.
class Host : public CWnd
{
public:
    Host(int count, int left)
    {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = ChildProc;
        windowClass.hInstance = ::GetModuleHandleA(nullptr);
        windowClass.lpszClassName = kChildClass;
        ::RegisterClassA(&windowClass); // fails from the second time on
        Require(CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP, CRect(left, 0, left, 0), nullptr, 0) != FALSE,
                "the window can't be made");
        SetGrowth({0, 0});
        for (int i = 0; i < count; ++i)
        {
            const CRect rect = ChildRect(i);
            HWND child = ::CreateWindowExA(0, kChildClass, "", WS_CHILD | WS_VISIBLE, rect.left, rect.top, rect.Width(),
                                           rect.Height(), m_hWnd, reinterpret_cast<HMENU>(UINT_PTR{100} + i),
                                           windowClass.hInstance, nullptr);
            Require(child != nullptr, "a child can't be made");
            m_children.push_back(child);
        }
    }
    ~Host() override { DestroyWindow(); }

    void SetGrowth(SIZE growth)
    {
        SetWindowPos(nullptr, 0, 0, kFirstWidth + growth.cx, kFirstHeight + growth.cy,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    [[nodiscard]] std::vector<CRect> Places() const
    {
        std::vector<CRect> places;
        for (HWND child : m_children)
        {
            CRect rect;
            ::GetWindowRect(child, rect);
            ScreenToClient(rect);
            places.push_back(rect);
        }
        return places;
    }

    std::vector<HWND> m_children;
};

/// Ours: the engine.
class EngineHost : public Host
{
public:
    EngineHost(int count, int left) : Host(count, left), m_engine(cdxCDynamicWnd::FreedomXY, 0)
    {
        m_engine.DoInitWindow(*this);
        for (int i = 0; i < count; ++i)
        {
            Require(m_engine.AddSzControl(m_children[static_cast<std::size_t>(i)],
                                          kRules[i % std::size(kRules)].percent, CSize(0, 0), false),
                    "a child can't be registered");
        }
    }
    void Run()
    {
        for (int step = 0; step < kResizes; ++step)
        {
            SetGrowth(GrowthAt(step));
            m_engine.Layout();
        }
    }
    /// Passes in which nothing changes.
    void RunSame()
    {
        for (int step = 0; step < kResizes; ++step)
        {
            m_engine.Layout();
        }
    }

private:
    cdxCDynamicWnd m_engine;
};

/// The same final rectangles, known beforehand and moved by hand.
class HandHost : public Host
{
public:
    HandHost(int count, int left) : Host(count, left)
    {
        for (int step = 0; step < kResizes; ++step)
        {
            const SIZE growth = GrowthAt(step);
            for (int i = 0; i < count; ++i)
            {
                m_places.push_back(tavkit::PlaceRect(ChildRect(i), kRules[i % std::size(kRules)].percent, {0, 0},
                                                     {growth, {}, false}));
            }
        }
    }
    void Run()
    {
        const CRect* place = m_places.data();
        for (int step = 0; step < kResizes; ++step)
        {
            SetGrowth(GrowthAt(step));
            HDWP batch = ::BeginDeferWindowPos(static_cast<int>(m_children.size()));
            for (HWND child : m_children)
            {
                batch =
                    ::DeferWindowPos(batch, child, nullptr, place->left, place->top, place->Width(), place->Height(),
                                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER | SWP_NOCOPYBITS);
                ++place;
            }
            ::EndDeferWindowPos(batch);
        }
    }

private:
    std::vector<CRect> m_places;
};

void MeasurePasses(int count, std::vector<Row>& rows)
{
    EngineHost ours(count, 0);
    HandHost hand(count, kFirstWidth / 2);
    const Medians full = Interleave({.run = [&] { ours.Run(); }}, {.run = [&] { hand.Run(); }});
    Require(ours.Places() == hand.Places(), "the children stand at different places");
    rows.push_back({"layout." + std::to_string(count), static_cast<long long>(count) * kResizes, full.ours,
                    full.reference, kPassTarget});
    // Our own full pass is the measure of the one in which nothing changes.
    const Medians same = Interleave({.run = [&] { ours.RunSame(); },
                                     .prepare = [&] { g_moves = 0; },
                                     .check = [&] { Require(g_moves == 0, "a child was touched without need"); }},
                                    {.run = [&] { ours.Run(); },
                                     .prepare = [&] { g_moves = 0; },
                                     .check = [&] { Require(g_moves != 0, "no child was moved"); }},
                                    5);
    rows.push_back({"layout.same." + std::to_string(count), static_cast<long long>(count) * kResizes, same.ours,
                    same.reference, kSameTarget});
}

std::vector<Row> RunLayout()
{
    std::vector<Row> rows;
    for (const int count : {200, 1000})
    {
        MeasurePasses(count, rows);
    }
    return rows;
}

std::vector<Row> RunPlacement()
{
    constexpr std::size_t kCount = 1'000'000;
    constexpr unsigned kSeed = 2;
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<LONG> side(0, 2000);
    std::vector<RECT> source(kCount);
    for (RECT& rect : source)
    {
        const LONG left = side(random);
        const LONG top = side(random);
        rect = {left, top, left + 1 + side(random), top + 1 + side(random)};
    }
    std::vector<RECT> placed(kCount);
    std::vector<RECT> copied(kCount);
    const tavkit::LayoutDelta layout{{123, 45}, {}, false};
    const Medians medians = Interleave(
        {.run =
             [&] {
                 for (std::size_t i = 0; i < kCount; ++i)
                 {
                     placed[i] = tavkit::PlaceRect(source[i], kRules[i % std::size(kRules)].percent, {0, 0}, layout);
                 }
             },
         .check =
             [&] {
                 Require(placed[0].right == source[0].right + 123 && placed[1].top == source[1].top + 45 &&
                             placed[kCount - 1].left == source[kCount - 1].left + 123 * 25 / 100,
                         "a rectangle was placed wrongly");
             }},
        {.run = [&] { std::memcpy(copied.data(), source.data(), kCount * sizeof(RECT)); },
         .check = [&] { Require(std::memcmp(&copied.back(), &source.back(), sizeof(RECT)) == 0, "not copied"); }});
    return {{"placement", static_cast<long long>(kCount), medians.ours, medians.reference, std::nullopt}};
}

const Registration layout("layout", RunLayout);
const Registration placement("placement", RunPlacement);

} // namespace
} // namespace bench
