// FlexFixture.h - a flexible list in a frame that keeps account of every notification about labels
#pragma once

#include "support/Print.h"
#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace flex_test
{

inline constexpr UINT kListId = 77;
inline constexpr DWORD kListStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDRAWFIXED;
inline constexpr CRect kListPlace(10, 10, 510, 210);

/// One LVN_BEGINLABELEDIT or LVN_ENDLABELEDIT as the parent got it.
struct Label
{
    UINT code;
    int row;
    int col;
    std::optional<std::string> text;

    bool operator==(Label const&) const = default;
};

inline Label Begun(int row, int col) { return {static_cast<UINT>(LVN_BEGINLABELEDIT), row, col, std::nullopt}; }
inline Label Ended(int row, int col, std::string const& text)
{
    return {static_cast<UINT>(LVN_ENDLABELEDIT), row, col, text};
}
inline Label Cancelled(int row, int col) { return {static_cast<UINT>(LVN_ENDLABELEDIT), row, col, std::nullopt}; }

inline void PrintTo(Label const& label, std::ostream* out)
{
    *out << (label.code == static_cast<UINT>(LVN_BEGINLABELEDIT) ? "begin " : "end ") << label.row << ", " << label.col
         << ": " << label.text.value_or("(null)");
}

/// The list's parent.
class ListFrame : public support::TestFrame
{
public:
    std::vector<Label> m_labels;
    NMLVDISPINFO m_lastLabel{}; ///< the last notification in full; its text isn't there any more
    WPARAM m_lastLabelWParam = 0;
    /// Called with each notification about labels before the list sees it; the answer goes to the sender of a begin.
    std::function<LRESULT(NMLVDISPINFO&)> m_onLabel;
    /// Called with LVN_GETDISPINFO.
    std::function<void(LVITEM&)> m_onDispInfo;
    /// Called with all notifications that got as far as the parent.
    std::function<void(NMHDR&)> m_onNotify;
    LRESULT m_result = -1; ///< the list's result of the last of them, as the parent finds it

    /// Calls nobody any more: a test's callbacks name variables that end with its body, the windows end later.
    void Forget() { m_onLabel = nullptr, m_onDispInfo = nullptr, m_onNotify = nullptr; }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_NOTIFY)
        {
            auto& header = *reinterpret_cast<NMHDR*>(lParam);
            auto& info = *reinterpret_cast<NMLVDISPINFO*>(lParam);
            if (header.code == static_cast<UINT>(LVN_BEGINLABELEDIT) ||
                header.code == static_cast<UINT>(LVN_ENDLABELEDIT))
            {
                m_lastLabel = info;
                m_lastLabelWParam = wParam;
                m_labels.push_back({header.code, info.item.iItem, info.item.iSubItem,
                                    info.item.pszText ? std::optional<std::string>(info.item.pszText) : std::nullopt});
                if (auto const onLabel = m_onLabel) // a copy: it may put another in its place
                {
                    if (LRESULT const answer = onLabel(info))
                    {
                        return answer;
                    }
                }
            }
            else if (auto const onDispInfo = m_onDispInfo;
                     header.code == static_cast<UINT>(LVN_GETDISPINFO) && onDispInfo)
            {
                onDispInfo(info.item);
                return 0;
            }
        }
        return TestFrame::WindowProc(message, wParam, lParam);
    }

    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override
    {
        // Notifications that the list let pass come by here.
        if (HIWORD(nCode) == WM_NOTIFY)
        {
            auto const& notify = *static_cast<AFX_NOTIFY*>(pExtra);
            m_result = *notify.pResult;
            if (auto const onNotify = m_onNotify)
            {
                onNotify(*notify.pNMHDR);
            }
        }
        return TestFrame::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
    }
};

class FlexTest : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<ListFrame>();
        Open(kListStyle);
    }

    void TearDown() override
    {
        if (m_frame)
        {
            m_frame->Forget();
        }
        m_list.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }

    /// An empty list of that style in place of the present one.
    void Open(DWORD style)
    {
        m_list = std::make_unique<CListCtrlFlex>();
        ASSERT_TRUE(m_list->Create(style, kListPlace, m_frame.get(), kListId));
    }

    /// Columns of 100 pixels, all of them texts.
    void AddColumns(int count, bool editable = false)
    {
        for (int col = 0; col < count; ++col)
        {
            std::string const caption = "C" + std::to_string(col);
            ASSERT_EQ(m_list->InsertColumn(col, adiString, caption.c_str(), editable, LVCFMT_LEFT, 100, col), col);
        }
    }

    /// Rows with the texts given in column 0.
    void AddRows(std::vector<std::string> const& texts)
    {
        for (std::string const& text : texts)
        {
            int const row = m_list->GetItemCount();
            ASSERT_EQ(m_list->InsertItem(row, text.c_str(), DWORD_PTR(row), nullptr, 0, 0xFFFFFF, 0), row);
        }
    }

    /// Rows whose cells read "row.column".
    void AddNumberedRows(int rows, int columns)
    {
        for (int row = 0; row < rows; ++row)
        {
            m_list->InsertItem(row, CellText(row, 0).c_str(), DWORD_PTR(row), nullptr, 0, 0xFFFFFF, 0);
            for (int col = 1; col < columns; ++col)
            {
                m_list->SetItemText(row, col, CellText(row, col).c_str());
            }
        }
    }

    static std::string CellText(int row, int col) { return std::to_string(row) + "." + std::to_string(col); }

    [[nodiscard]] std::string Text(int row, int col = 0) const
    {
        return static_cast<LPCTSTR>(m_list->GetItemText(row, col));
    }

    /// The texts of a column from top to bottom.
    [[nodiscard]] std::vector<std::string> Column(int col = 0) const
    {
        std::vector<std::string> texts;
        for (int row = 0; row < m_list->GetItemCount(); ++row)
        {
            texts.push_back(Text(row, col));
        }
        return texts;
    }

    /// The edit box that is open; null if none is.
    [[nodiscard]] HWND Editor() const
    {
        return m_list && m_list->m_hWnd ? ::GetDlgItem(m_list->m_hWnd, 1001) : nullptr;
    }

    [[nodiscard]] std::string EditorText() const
    {
        char text[256] = "";
        ::GetWindowTextA(Editor(), text, sizeof text);
        return text;
    }

    /// The middle of a cell on the screen.
    [[nodiscard]] POINT CellPoint(int row, int col) const
    {
        CRect rect;
        EXPECT_TRUE(m_list->GetSubItemRect(row, col, LVIR_LABEL, rect));
        return support::ScreenPoint(m_list->m_hWnd, rect.CenterPoint().x, rect.CenterPoint().y);
    }

    /// The middle of a column's header on the screen.
    [[nodiscard]] POINT HeaderPoint(int col) const
    {
        HWND const header = m_list->GetHeaderCtrl()->m_hWnd;
        RECT rect{};
        EXPECT_TRUE(Header_GetItemRect(header, col, &rect));
        return support::ScreenPoint(header, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    }

    void ClickHeader(int col)
    {
        // Two clicks at one place would be a double click.
        m_headerOffset = -m_headerOffset;
        POINT point = HeaderPoint(col);
        point.x += m_headerOffset;
        support::Click(point);
        support::Settle();
    }

    static void Key(WORD key, std::initializer_list<WORD> modifiers = {})
    {
        support::PressKey(key, modifiers);
        support::Settle();
    }

    static void Type(std::string_view text)
    {
        support::TypeText(text);
        support::Settle();
    }

    std::unique_ptr<ListFrame> m_frame;
    std::unique_ptr<CListCtrlFlex> m_list;

private:
    int m_headerOffset = 10; ///< pixels from the middle
};

} // namespace flex_test
