// LayoutFixture.h - a window with the layout engine on it, and children that keep account of how they are moved
#pragma once

#include "support/Print.h"
#include "support/WindowTest.h"
#include "tavkit/layout/DynamicWnd.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace layout_test
{

/// Whether that thread is in the system's loop that sizes a window.
inline bool IsSizing(DWORD thread)
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return ::GetGUIThreadInfo(thread, &info) && (info.flags & GUI_INMOVESIZE) != 0;
}

/// A child window that notes every attempt to move it.
class Child : public CWnd
{
public:
    Child(CWnd& parent, UINT id, const CRect& rect)
    {
        EXPECT_TRUE(Create(AfxRegisterWndClass(0), "", WS_CHILD | WS_VISIBLE, rect, &parent, id));
        m_moves.clear();
    }
    ~Child() override { DestroyWindow(); }

    /// Rectangle in the parent's client area.
    [[nodiscard]] CRect Place() const
    {
        CRect rect;
        GetWindowRect(rect);
        GetParent()->ScreenToClient(rect);
        return rect;
    }

    std::vector<UINT> m_moves; ///< flags of each SetWindowPos, deferred ones too

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_WINDOWPOSCHANGING)
        {
            m_moves.push_back(reinterpret_cast<const WINDOWPOS*>(lParam)->flags);
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

/// The engine with its protected side open, and an account of its overridables.
class Engine : public cdxCDynamicWnd
{
public:
    explicit Engine(Freedom freedom = FreedomXY, UINT flags = 0) : cdxCDynamicWnd(freedom, flags) {}
    ~Engine() override { DoOnDestroy(); }

    using cdxCDynamicWnd::AddSzControl;
    using cdxCDynamicWnd::m_bUseScrollPos;
    using cdxCDynamicWnd::m_Freedom;
    using cdxCDynamicWnd::m_idSizeIcon;
    using cdxCDynamicWnd::m_idTimer;
    using cdxCDynamicWnd::m_szInitial;
    using cdxCDynamicWnd::m_szMax;
    using cdxCDynamicWnd::m_szMin;

    const __dynEntry* m_table = nullptr;
    std::function<bool(HWND, UINT, CRect&, const cdxCDynamicLayoutInfo&)> m_onMove; ///< in place of the rule
    std::function<void()> m_onInitialized;
    std::function<void()> m_onDestroying;
    std::function<void()> m_onInfo; ///< called when a snapshot is asked for
    bool m_noInfo = false;          ///< no snapshot can be made
    int m_layouts = 0;              ///< calls of Layout
    std::vector<HWND> m_asked;      ///< children that DoMoveCtrl was asked about
    std::vector<UINT> m_askedIds;   ///< their ids
    std::vector<HWND> m_added;      ///< children in the order of their registration
    std::vector<HWND> m_destroyed;  ///< children that DoDestroyCtrl was told of

    bool AddSzControl(HWND hWnd, Position const& pos, bool bReposNow) override
    {
        m_added.push_back(hWnd);
        return cdxCDynamicWnd::AddSzControl(hWnd, pos, bReposNow);
    }
    void Layout() override
    {
        ++m_layouts;
        cdxCDynamicWnd::Layout();
    }
    bool DoMoveCtrl(HWND hWnd, UINT id, CRect& rect, cdxCDynamicLayoutInfo const& info) override
    {
        m_asked.push_back(hWnd);
        m_askedIds.push_back(id);
        return m_onMove ? m_onMove(hWnd, id, rect, info) : cdxCDynamicWnd::DoMoveCtrl(hWnd, id, rect, info);
    }
    void DoDestroyCtrl(HWND hWnd) override
    {
        m_destroyed.push_back(hWnd);
        cdxCDynamicWnd::DoDestroyCtrl(hWnd);
    }
    void OnInitialized() override
    {
        if (m_onInitialized)
        {
            m_onInitialized();
        }
    }
    void OnDestroying() override
    {
        if (m_onDestroying)
        {
            m_onDestroying();
        }
    }
    cdxCDynamicLayoutInfo* DoCreateLayoutInfo() override
    {
        if (m_onInfo)
        {
            m_onInfo();
        }
        return m_noInfo ? nullptr : cdxCDynamicWnd::DoCreateLayoutInfo();
    }
    const __dynEntry* __getDynMap(const __dynEntry* pBase) const override
    {
        EXPECT_EQ(pBase, nullptr);
        return m_table;
    }
};

/// A top-level window that forwards its messages to an engine.
class EngineFrame : public support::TestFrame
{
public:
    static constexpr int kWidth = 300; ///< of the client area to begin with
    static constexpr int kHeight = 200;

    explicit EngineFrame(cdxCDynamicWnd::Freedom freedom = cdxCDynamicWnd::FreedomXY, UINT flags = 0)
        : m_engine(freedom, flags)
    {
        SetClient(kWidth, kHeight);
    }
    ~EngineFrame() override { DestroyWindow(); }

    Engine m_engine;

    /// Gives the client area a size.
    void SetClient(int width, int height)
    {
        CRect window;
        CRect client;
        GetWindowRect(window);
        GetClientRect(client);
        SetWindowPos(nullptr, 0, 0, window.Width() - client.Width() + width, window.Height() - client.Height() + height,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    /// Makes the client area larger (or smaller) than at the beginning.
    void GrowBy(int dx, int dy) { SetClient(kWidth + dx, kHeight + dy); }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_DESTROY)
        {
            m_engine.DoOnDestroy();
        }
        const LRESULT result = TestFrame::WindowProc(message, wParam, lParam);
        switch (message)
        {
        case WM_SIZE:
            m_engine.DoOnSize(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam));
            break;
        case WM_SIZING:
            m_engine.DoOnSizing(static_cast<UINT>(wParam), reinterpret_cast<RECT*>(lParam));
            break;
        case WM_PARENTNOTIFY:
            m_engine.DoOnParentNotify(static_cast<UINT>(wParam), lParam);
            break;
        case WM_TIMER:
            m_engine.DoOnTimer(static_cast<UINT_PTR>(wParam));
            break;
        case WM_GETMINMAXINFO:
            m_engine.DoOnGetMinMaxInfo(reinterpret_cast<MINMAXINFO*>(lParam));
            break;
        default:
            break;
        }
        return result;
    }
};

inline constexpr UINT kFirstId = 70;      ///< of the children that a test adds
inline constexpr UINT kMoveFlags = 0x214; // no z-order, no activation, no z-order of the owner

/// A test with an engine's window and children in it.
class EngineTest : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<EngineFrame>();
    }
    void TearDown() override
    {
        m_children.clear();
        m_frame.reset();
        WindowTest::TearDown();
    }

    Engine& E() { return m_frame->m_engine; }

    // A child of that number, one below the other in the z-order and on the screen.
    Child& AddChild(int number)
    {
        const int top = 10 + 25 * number;
        m_children.push_back(
            std::make_unique<Child>(*m_frame, kFirstId + static_cast<UINT>(number), CRect(10, top, 110, top + 20)));
        return *m_children.back();
    }
    static CRect FirstPlace(int number) { return CRect(10, 10 + 25 * number, 110, 30 + 25 * number); }

    // Attaches without a least size.
    void AttachFreely()
    {
        E().DoInitWindow(*m_frame);
        E().m_szMin = CSize(0, 0);
    }
    // Attaches and registers all children, which follow the right edge.
    void AttachFollowing()
    {
        E().DoInitWindow(*m_frame);
        ASSERT_TRUE(E().AllControls(cdxCDynamicWnd::TopRight, false, false));
        ClearMoves();
        E().m_asked.clear();
        E().m_askedIds.clear();
    }
    void ClearMoves()
    {
        for (const auto& child : m_children)
        {
            child->m_moves.clear();
        }
    }
    Child& At(std::size_t i) { return *m_children.at(i); }

    std::unique_ptr<EngineFrame> m_frame;
    std::vector<std::unique_ptr<Child>> m_children;
};

} // namespace layout_test
