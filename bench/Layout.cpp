// Layout.cpp - [layout] passes of the layout engine against moves written out by hand, [placement] its arithmetic
#include "bench/Bench.h"

#include "tavkit/layout/DynamicWnd.h"
#include "tavkit/layout/Placement.h"

#include <afxwin.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace bench
{
namespace
{

constexpr double kPassTarget = 1.10; ///< a pass against the same moves by hand
constexpr double kSameTarget = 0.25; ///< a pass in which nothing changes against a full one
constexpr int kResizes = 100;        ///< measured passes of each side
constexpr int kSameRounds = 21;      ///< of passes in which nothing changes
constexpr int kColumns = 10;
constexpr int kRowsInView = 20;
constexpr int kCellWidth = 50;
constexpr int kCellHeight = 20;
constexpr int kFirstWidth = kColumns * kCellWidth;
constexpr int kFirstHeight = kRowsInView * kCellHeight;
constexpr int kSecondLeft = 640; ///< the two sides' windows stand beside each other
constexpr int kWhole = 100;      ///< percent
constexpr const char* kChildClass = "TavKitBenchChild";

long long g_moves = 0; // attempts to move a child, of all windows

LRESULT CALLBACK ChildProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_moves += message == WM_WINDOWPOSCHANGING;
    return ::DefWindowProcA(window, message, wParam, lParam);
}

/// Growth of the client area at a resize. One differs from the next by so much that every child moves.
SIZE GrowthAt(int step) { return {step * 37 % 97, step * 29 % 89}; }

/// How a child follows.
struct Rule
{
    signed char percent[4];
};

/// The children in view share out the window's growth, as the fields of a page do; those below it go down.
Rule RuleOf(int i)
{
    const int column = i % kColumns;
    const int row = i / kColumns;
    const auto share = [](int part, int parts) {
        return static_cast<signed char>(std::min(part, parts) * kWhole / parts);
    };
    return {
        {share(column, kColumns), share(row, kRowsInView), share(column + 1, kColumns), share(row + 1, kRowsInView)}};
}

CRect ChildRect(int i)
{
    return CRect(CPoint(i % kColumns * kCellWidth, i / kColumns * kCellHeight), CSize(kCellWidth - 2, kCellHeight - 2));
}

/// Paints what waits for it.
void Drain()
{
    MSG message;
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
    {
        ::DispatchMessageA(&message);
    }
}

/// A window with children that stand side by side; the first 200 are in view.
class Host : public CWnd
{
public:
    Host(int count, int left, bool visible)
    {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = ChildProc;
        windowClass.hInstance = ::GetModuleHandleA(nullptr);
        windowClass.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
        windowClass.lpszClassName = kChildClass;
        ::RegisterClassA(&windowClass); // fails from the second time on
        LPCTSTR frame = AfxRegisterWndClass(0, nullptr, ::GetSysColorBrush(COLOR_APPWORKSPACE));
        Require(CreateEx(0, frame, "", WS_POPUP, CRect(left, 0, left, 0), nullptr, 0) != FALSE,
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
        if (visible)
        {
            ShowWindow(SW_SHOWNOACTIVATE);
        }
        Drain();
    }
    ~Host() override { DestroyWindow(); }

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
    /// Gives the window its next size, with the children as they were.
    void Resize()
    {
        m_growth = GrowthAt(++m_step);
        ResizeAgain();
    }
    /// The same work with the size that it has.
    void ResizeAgain()
    {
        SetGrowth(m_growth);
        Drain();
        g_moves = 0;
    }
    void RequireAllMoved() const
    {
        Require(g_moves == static_cast<long long>(m_children.size()), "not every child was moved once");
    }

protected:
    std::vector<HWND> m_children;
    SIZE m_growth{};

private:
    void SetGrowth(SIZE growth)
    {
        SetWindowPos(nullptr, 0, 0, kFirstWidth + growth.cx, kFirstHeight + growth.cy,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    int m_step = 0;
};

/// Ours: the engine.
class EngineHost : public Host
{
public:
    EngineHost(int count, bool visible) : Host(count, 0, visible), m_engine(cdxCDynamicWnd::FreedomXY, 0)
    {
        m_engine.DoInitWindow(*this);
        for (int i = 0; i < count; ++i)
        {
            Require(
                m_engine.AddSzControl(m_children[static_cast<std::size_t>(i)], RuleOf(i).percent, CSize(0, 0), false),
                "a child can't be registered");
        }
    }
    /// A pass in which every child moves.
    Side Full()
    {
        return {.run = [this] { m_engine.Layout(); },
                .prepare = [this] { Resize(); },
                .check = [this] { RequireAllMoved(); }};
    }
    /// A pass in which nothing changes.
    Side Same()
    {
        return {.run = [this] { m_engine.Layout(); },
                .prepare = [this] { ResizeAgain(); },
                .check = [] { Require(g_moves == 0, "a child was touched without need"); }};
    }

private:
    cdxCDynamicWnd m_engine;
};

/// The same final rectangles, known beforehand and moved by hand.
class HandHost : public Host
{
public:
    HandHost(int count, bool visible) : Host(count, kSecondLeft, visible) {}
    Side Full()
    {
        return {
            .run = [this] { Move(); }, .prepare = [this] { ResizeAndPlace(); }, .check = [this] { RequireAllMoved(); }};
    }

private:
    void ResizeAndPlace()
    {
        Resize();
        m_places.clear();
        for (int i = 0; i < static_cast<int>(m_children.size()); ++i)
        {
            m_places.push_back(tavkit::PlaceRect(ChildRect(i), RuleOf(i).percent, {0, 0}, {m_growth, {}, false}));
        }
    }
    void Move()
    {
        const CRect* place = m_places.data();
        HDWP batch = ::BeginDeferWindowPos(static_cast<int>(m_children.size()));
        for (HWND child : m_children)
        {
            batch = ::DeferWindowPos(batch, child, nullptr, place->left, place->top, place->Width(), place->Height(),
                                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER | SWP_NOCOPYBITS);
            ++place;
        }
        ::EndDeferWindowPos(batch);
    }

    std::vector<CRect> m_places;
};

/// The pass alone: neither the window's own change of size nor the painting behind it is measured.
void MeasurePasses(int count, bool visible, std::vector<Row>& rows)
{
    EngineHost ours(count, visible);
    HandHost hand(count, visible);
    const Medians full = Interleave(ours.Full(), hand.Full(), kResizes);
    Require(ours.Places() == hand.Places(), "the children stand at different places");
    // A window that isn't on the screen costs the system next to nothing to lay out, so that there the walk along the
    // children shows, for which some systems ask the window server once a child. Nobody waits for such a window.
    const std::string name = std::string(visible ? "" : "hidden.") + std::to_string(count);
    rows.push_back(
        {"layout." + name, count, full.ours, full.reference, visible ? std::optional(kPassTarget) : std::nullopt});
    // Our own full pass is the measure of the one in which nothing changes.
    const Medians same = Interleave(ours.Same(), ours.Full(), kSameRounds);
    rows.push_back({"layout.same." + name, count, same.ours, same.reference, kSameTarget});
}

std::vector<Row> RunLayout()
{
    std::vector<Row> rows;
    for (const int count : {200, 1000})
    {
        MeasurePasses(count, true, rows);
        MeasurePasses(count, false, rows);
    }
    return rows;
}

std::vector<Row> RunPlacement()
{
    constexpr std::size_t kCount = 1'000'000;
    constexpr Rule kRules[] = {{{0, 0, 100, 0}}, {{100, 100, 100, 100}}, {{50, 0, 50, 100}}, {{25, 25, 75, 75}}};
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
