// TavListFixture.h - a row list in a frame, for the tests of its parts
#pragma once

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Does something once, inside a notification.
class AtNotification
{
public:
    /// @param codes  of the same notification, for both kinds of text
    void Set(std::initializer_list<UINT> codes, std::function<void()> act)
    {
        m_codes = codes;
        m_act = std::move(act);
    }
    /// True if the notification has not come yet.
    [[nodiscard]] bool IsWaiting() const { return static_cast<bool>(m_act); }
    /// True if the message was the notification: the object that got it may be gone now.
    bool Acts(UINT message, LPARAM lParam)
    {
        if (message != WM_NOTIFY || !m_act ||
            std::ranges::find(m_codes, reinterpret_cast<const NMHDR*>(lParam)->code) == m_codes.end())
        {
            return false;
        }
        const std::function<void()> act = std::exchange(m_act, nullptr);
        act();
        return true;
    }

private:
    std::vector<UINT> m_codes;
    std::function<void()> m_act;
};

/// The list, what reached it, and its fonts.
class WatchedTavList : public CTavListCtrl
{
public:
    int m_hidings = 0;              ///< times that the list was hidden
    std::vector<UINT_PTR> m_timers; ///< ids of the timers that ran
    AtNotification m_at;            ///< of the header, whose parent the list is

    CFont& MediumFont() { return m_fontMedium; }
    CFont& BoldFont() { return m_fontBold; }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_hidings += message == WM_SHOWWINDOW && wParam == FALSE;
        if (message == WM_TIMER)
        {
            m_timers.push_back(wParam);
        }
        return m_at.Acts(message, lParam) ? 0 : CTavListCtrl::WindowProc(message, wParam, lParam);
    }
};

/// A parent that does something once, inside a notification, before anybody else hears of it.
class NotifiedFrame : public support::TestFrame
{
public:
    using TestFrame::TestFrame;

    AtNotification m_at;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        return m_at.Acts(message, lParam) ? 0 : TestFrame::WindowProc(message, wParam, lParam);
    }
};

class TavListTest : public support::WindowTest
{
protected:
    static constexpr UINT kId = 31;
    static constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED | LVS_SHOWSELALWAYS;
    static constexpr int kWidth = 400;
    static constexpr int kHeight = 200;

    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<NotifiedFrame>();
        Open();
    }
    void TearDown() override
    {
        m_list.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }

    /// A new list without columns.
    void Open(DWORD style = kStyle)
    {
        m_list = std::make_unique<WatchedTavList>();
        ASSERT_TRUE(m_list->Create(style, CRect(0, 0, kWidth, kHeight), m_frame.get(), kId));
    }
    void AddColumns(std::initializer_list<const char*> captions, int width = 80)
    {
        for (const char* const caption : captions)
        {
            m_list->AddCol(caption, adiString, false, width, LVCFMT_LEFT);
        }
    }
    [[nodiscard]] std::vector<std::string> Cells(int row) const
    {
        std::vector<std::string> cells;
        for (int col = 0; col < m_list->GetNumCol(); ++col)
        {
            cells.emplace_back(m_list->GetItemText(row, col).GetString());
        }
        return cells;
    }
    /// The middle of a cell on the screen.
    [[nodiscard]] POINT CellOnScreen(int row, int col) const
    {
        CRect rect;
        EXPECT_TRUE(m_list->GetSubItemRect(row, col, LVIR_LABEL, rect));
        const CPoint middle = rect.CenterPoint();
        return support::ScreenPoint(m_list->m_hWnd, middle.x, middle.y);
    }
    [[nodiscard]] int ClientWidth() const
    {
        CRect client;
        m_list->GetClientRect(client);
        return client.Width();
    }
    /// Something that happens while a column's width changes.
    void AtWidthChange(std::function<void()> act)
    {
        m_list->m_at.Set({UINT(HDN_ITEMCHANGEDA), UINT(HDN_ITEMCHANGEDW)}, std::move(act));
    }
    void ResizeList(int width, int height = kHeight)
    {
        m_list->SetWindowPos(nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    }

    std::unique_ptr<NotifiedFrame> m_frame;
    std::unique_ptr<WatchedTavList> m_list;
};
