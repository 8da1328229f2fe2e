// ComboFixture.h - a combo box in a frame, typed into with real keys
#pragma once

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace combo_test
{

inline constexpr UINT kComboId = 77;
inline constexpr DWORD kEditable = WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL | CBS_HASSTRINGS;
inline constexpr DWORD kSimple = WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_SIMPLE | CBS_AUTOHSCROLL | CBS_HASSTRINGS;
inline constexpr DWORD kListOnly = WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS;
inline constexpr CRect kPlace(20, 20, 220, 220);

/// The combo box as a class derived from it sees it.
class WatchedCombo : public CTavComboBox
{
public:
    using CTavComboBox::BackupContents;
    using CTavComboBox::GetCrntText;
    using CTavComboBox::m_Backup;
    using CTavComboBox::m_bAutoComplete;
    using CTavComboBox::m_bDeleting;
    using CTavComboBox::m_bFilterList;
    using CTavComboBox::m_pFltrFunc;
    using CTavComboBox::m_rcDropped;
    using CTavComboBox::m_strToolTip;
    using CTavComboBox::m_ToolTip;
    using CTavComboBox::PreTranslateMessage;
    using CTavComboBox::RestoreContents;
    using CTavComboBox::SafeResetContents;
    using CTavComboBox::UpdateToolTip;

    int m_widthCalls = 0;
    std::vector<UINT> m_messages; ///< all that came to the control

    bool AdjustDropppedWidth() override
    {
        ++m_widthCalls;
        return CTavComboBox::AdjustDropppedWidth();
    }

    [[nodiscard]] COMBOBOXINFO Info() const
    {
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        ::GetComboBoxInfo(m_hWnd, &info);
        return info;
    }
    [[nodiscard]] CRect ListRect() const
    {
        CRect rect;
        ::GetWindowRect(Info().hwndList, &rect);
        return rect;
    }
    [[nodiscard]] bool IsListVisible() const { return ::IsWindowVisible(Info().hwndList) != FALSE; }
    [[nodiscard]] std::string Text() const
    {
        CString text;
        GetWindowText(text);
        return text.GetString();
    }
    [[nodiscard]] std::vector<std::string> Entries() const
    {
        std::vector<std::string> entries;
        for (int i = 0; i < GetCount(); ++i)
        {
            CString text;
            GetLBText(i, text);
            entries.emplace_back(text);
        }
        return entries;
    }
    [[nodiscard]] std::pair<int, int> Selection() const
    {
        DWORD const selection = GetEditSel();
        return {LOWORD(selection), HIWORD(selection)};
    }
    /// The part of the text that is highlighted.
    [[nodiscard]] std::string Highlighted() const
    {
        auto const [start, end] = Selection();
        return Text().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_messages.push_back(message);
        return CTavComboBox::WindowProc(message, wParam, lParam);
    }
};

/// The combo box's parent.
class ComboFrame : public support::TestFrame
{
public:
    /// Called with the code of each notification, once the combo box has had it.
    std::function<void(UINT code)> m_onNotify;

protected:
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override
    {
        if (nID == kComboId && m_onNotify)
        {
            m_onNotify(static_cast<UINT>(nCode));
        }
        return TestFrame::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
    }
};

class ComboTest : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        AllowGdiGrowth("the system keeps a region and a brush of a list that it has shown");
        m_font.CreateStockObject(DEFAULT_GUI_FONT);
        m_frame.emplace();
    }

    void TearDown() override
    {
        m_frame->m_onNotify = nullptr;
        m_combo.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }

    /// A combo box with these entries, the data of each being its index and 100, and the focus in it.
    void Open(std::vector<std::string> const& entries, DWORD style = kEditable, CRect const& place = kPlace)
    {
        m_combo = std::make_unique<WatchedCombo>();
        ASSERT_TRUE(m_combo->Create(style, place, &*m_frame, kComboId));
        m_combo->SetFont(&m_font);
        for (std::string const& entry : entries)
        {
            int const at = m_combo->AddString(entry.c_str());
            m_combo->SetItemData(at, static_cast<DWORD_PTR>(at) + 100);
        }
        m_combo->SetFocus();
        ASSERT_TRUE(
            support::PumpUntil([&] { return m_combo->IsChild(CWnd::GetFocus()) || CWnd::GetFocus() == &*m_combo; }));
        support::Settle();
        m_frame->Clear();
        m_combo->m_messages.clear();
    }

    static void Type(std::string_view text)
    {
        support::TypeText(text);
        support::Settle();
    }

    static void Key(WORD key, std::initializer_list<WORD> modifiers = {})
    {
        support::PressKey(key, modifiers);
        support::Settle();
    }

    CFont m_font;
    std::optional<ComboFrame> m_frame;
    std::unique_ptr<WatchedCombo> m_combo;
};

} // namespace combo_test
