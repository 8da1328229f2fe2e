// TavComboTipTest.cpp - the tool tip of a combo box whose text doesn't fit

#include "ComboFixture.h"

#include <algorithm>

namespace
{

using namespace combo_test;

const std::string kLong = "a rather long entry that does not fit into its box";

/// What comes to a tool tip, which stays the owner of its window.
class TipRecorder
{
public:
    explicit TipRecorder(HWND tip) : m_tip(tip)
    {
        s_messages.clear();
        s_before =
            reinterpret_cast<WNDPROC>(::SetWindowLongPtrA(tip, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Record)));
    }
    ~TipRecorder() { ::SetWindowLongPtrA(m_tip, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(s_before)); }
    TipRecorder(TipRecorder const&) = delete;
    TipRecorder& operator=(TipRecorder const&) = delete;

    [[nodiscard]] static auto Count(UINT message) { return std::ranges::count(s_messages, message); }

private:
    static LRESULT CALLBACK Record(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        s_messages.push_back(message);
        return ::CallWindowProcA(s_before, window, message, wParam, lParam);
    }

    inline static std::vector<UINT> s_messages;
    inline static WNDPROC s_before = nullptr;
    HWND m_tip;
};

class TavComboTip : public ComboTest
{
protected:
    void OpenLong(DWORD style = kEditable)
    {
        Open({"short", kLong, kLong + " indeed"}, style);
        m_combo->SetCurSel(1);
    }

    /// The mouse comes to a place inside the control.
    void MoveInto(int x)
    {
        support::MoveMouse(support::ScreenPoint(*m_combo, x, 10));
        support::Settle();
    }

    /// The one tool, without its text.
    [[nodiscard]] TOOLINFO Tool()
    {
        TOOLINFO tool{};
        tool.cbSize = TTTOOLINFOA_V2_SIZE;
        m_combo->m_ToolTip.SendMessage(TTM_ENUMTOOLS, 0, reinterpret_cast<LPARAM>(&tool));
        return tool;
    }
    [[nodiscard]] std::string ToolText()
    {
        CToolInfo text; // the control hands out 80 characters at most
        TOOLINFO const tool = Tool();
        text.hwnd = tool.hwnd;
        text.uId = tool.uId;
        m_combo->m_ToolTip.SendMessage(TTM_GETTEXT, CToolInfo::kTextSize,
                                       reinterpret_cast<LPARAM>(static_cast<TOOLINFO*>(&text)));
        return text.szText;
    }
    [[nodiscard]] bool HasTip() const { return m_combo->m_ToolTip.m_hWnd != nullptr; }
};

TEST_F(TavComboTip, ATextThatFitsHasNone)
{
    OpenLong();
    m_combo->SetCurSel(0);
    MoveInto(20);
    EXPECT_FALSE(HasTip());
    EXPECT_STREQ(m_combo->m_strToolTip, "");
}

TEST_F(TavComboTip, ATextThatGrowsHasOneAtTheNextMouseMove)
{
    OpenLong();
    m_combo->SetCurSel(0);
    MoveInto(20);
    ASSERT_FALSE(HasTip());
    m_combo->SetCurSel(1);
    EXPECT_FALSE(HasTip());
    MoveInto(24);
    ASSERT_TRUE(HasTip());
    EXPECT_STREQ(m_combo->m_strToolTip, kLong.c_str());
    EXPECT_EQ(ToolText(), kLong);
    MoveInto(28); // the tip is told of the mouse from now on
    EXPECT_TRUE(support::PumpUntil([&] { return ::IsWindowVisible(m_combo->m_ToolTip) != FALSE; }));
}

TEST_F(TavComboTip, IsEmptiedWhenTheTextFitsAgain)
{
    OpenLong();
    MoveInto(20);
    ASSERT_TRUE(HasTip());
    HWND const tip = m_combo->m_ToolTip;
    m_combo->SetCurSel(0);
    MoveInto(24);
    EXPECT_STREQ(m_combo->m_strToolTip, "");
    EXPECT_EQ(ToolText(), "");
    EXPECT_EQ(m_combo->m_ToolTip.m_hWnd, tip) << "it is made once";
}

TEST_F(TavComboTip, FollowsTheText)
{
    OpenLong();
    MoveInto(20);
    m_combo->SetCurSel(2);
    MoveInto(24);
    EXPECT_EQ(ToolText(), kLong + " indeed");
    m_combo->SetCurSel(-1);
    m_combo->SetWindowText((kLong + " typed").c_str());
    MoveInto(20);
    EXPECT_EQ(ToolText(), kLong + " typed");
}

TEST_F(TavComboTip, IsTurnedOnWithEachNewText)
{
    OpenLong();
    MoveInto(20);
    TipRecorder const tip(m_combo->m_ToolTip);
    m_combo->m_ToolTip.Activate(FALSE);
    m_combo->SetCurSel(2);
    m_combo->UpdateToolTip();
    EXPECT_EQ(tip.Count(TTM_ACTIVATE), 2);
    m_combo->UpdateToolTip();
    EXPECT_EQ(tip.Count(TTM_ACTIVATE), 2) << "the text is the tip already";
    MoveInto(24);
    MoveInto(28);
    EXPECT_TRUE(support::PumpUntil([&] { return ::IsWindowVisible(m_combo->m_ToolTip) != FALSE; }));
}

TEST_F(TavComboTip, IsDrawnAnewAtEachMouseMoveOverAnEditField)
{
    MSG move{.hwnd = nullptr, .message = WM_MOUSEMOVE, .wParam = 0, .lParam = MAKELPARAM(5, 5), .time = 0, .pt = {}};
    for (DWORD const style : {kEditable, kListOnly})
    {
        OpenLong(style);
        m_combo->UpdateToolTip();
        ASSERT_TRUE(HasTip());
        TipRecorder const tip(m_combo->m_ToolTip);
        int const each = style == kEditable ? 1 : 0;
        move.hwnd = m_combo->m_hWnd;
        m_combo->PreTranslateMessage(&move);
        m_combo->PreTranslateMessage(&move);
        EXPECT_EQ(tip.Count(TTM_UPDATE), 2 * each);
        m_combo->SetCurSel(0);
        m_combo->PreTranslateMessage(&move);
        EXPECT_EQ(tip.Count(TTM_UPDATE), 2 * each) << "an empty tip isn't drawn";
    }
}

TEST_F(TavComboTip, ItsToolIsTheEditField)
{
    OpenLong();
    MoveInto(20);
    ASSERT_TRUE(HasTip());
    EXPECT_EQ(m_combo->m_ToolTip.GetToolCount(), 1);
    TOOLINFO const tool = Tool();
    EXPECT_TRUE(tool.uFlags & TTF_IDISHWND);
    EXPECT_EQ(tool.uId, reinterpret_cast<UINT_PTR>(m_combo->Info().hwndItem));
    EXPECT_EQ(tool.hwnd, m_combo->m_hWnd);
}

TEST_F(TavComboTip, WithoutAnEditFieldItsToolIsTheClientArea)
{
    OpenLong(kListOnly);
    MoveInto(20);
    ASSERT_TRUE(HasTip());
    TOOLINFO const tool = Tool();
    EXPECT_FALSE(tool.uFlags & TTF_IDISHWND);
    EXPECT_EQ(tool.uId, 1U);
    EXPECT_EQ(tool.hwnd, m_combo->m_hWnd);
    CRect client;
    m_combo->GetClientRect(client);
    EXPECT_EQ(CRect(tool.rect), client);
    EXPECT_EQ(ToolText(), kLong);
}

TEST_F(TavComboTip, WaitsHalfASecond)
{
    OpenLong();
    MoveInto(20);
    ASSERT_TRUE(HasTip());
    EXPECT_EQ(m_combo->m_ToolTip.SendMessage(TTM_GETDELAYTIME, TTDT_INITIAL), 500);
}

TEST_F(TavComboTip, IsNotSetWhileItIsOff)
{
    OpenLong();
    m_combo->EnableTooltip(false);
    MoveInto(20);
    EXPECT_FALSE(HasTip());
    m_combo->EnableTooltip(true);
    MoveInto(24);
    ASSERT_TRUE(HasTip());
    m_combo->EnableTooltip(false);
    m_combo->SetCurSel(0);
    MoveInto(20);
    EXPECT_STREQ(m_combo->m_strToolTip, kLong.c_str()) << "one that is set stays as it is";
}

TEST_F(TavComboTip, IsNotSetWhileAMouseButtonIsDown)
{
    OpenLong();
    support::MoveMouse(support::ScreenPoint(*m_frame, 400, 300));
    support::Settle();
    support::Press();
    MoveInto(20);
    EXPECT_FALSE(HasTip());
    support::Release();
    support::Settle();
    MoveInto(24);
    EXPECT_TRUE(HasTip());
}

TEST_F(TavComboTip, IsSetAsAButtonIsReleasedOverTheControl)
{
    for (UINT const message : {WM_LBUTTONUP, WM_RBUTTONUP, WM_MBUTTONUP, WM_NCMOUSEMOVE, WM_MOUSEMOVE})
    {
        OpenLong();
        MSG msg{
            .hwnd = m_combo->m_hWnd, .message = message, .wParam = 0, .lParam = MAKELPARAM(5, 5), .time = 0, .pt = {}};
        EXPECT_FALSE(m_combo->PreTranslateMessage(&msg));
        EXPECT_STREQ(m_combo->m_strToolTip, kLong.c_str()) << message;
    }
    OpenLong();
    MSG msg{.hwnd = m_combo->m_hWnd,
            .message = WM_LBUTTONDOWN,
            .wParam = 0,
            .lParam = MAKELPARAM(5, 5),
            .time = 0,
            .pt = {}};
    m_combo->PreTranslateMessage(&msg);
    EXPECT_STREQ(m_combo->m_strToolTip, "");
}

TEST_F(TavComboTip, ATextAsWideAsItsPlaceDoesNotFit)
{
    OpenLong();
    // The text takes away from its place what is left over, until nothing is.
    CClientDC dc(m_combo.get());
    SelectScope const font(dc, m_font);
    int const room = CRect(m_combo->Info().rcItem).Width();
    CRect size(0, 0, 0, 0);
    dc.DrawText("iiii", size, DT_CALCRECT);
    int const width = size.Width();
    CRect place;
    m_combo->GetWindowRect(place);
    m_frame->ScreenToClient(place);
    m_combo->SetCurSel(-1);
    m_combo->SetWindowText("iiii");
    m_combo->MoveWindow(place.left, place.top, place.Width() - room + width, 200);
    ASSERT_EQ(CRect(m_combo->Info().rcItem).Width(), width);
    m_combo->UpdateToolTip();
    EXPECT_STREQ(m_combo->m_strToolTip, "iiii");
    m_combo->MoveWindow(place.left, place.top, place.Width() - room + width + 1, 200);
    m_combo->UpdateToolTip();
    EXPECT_STREQ(m_combo->m_strToolTip, "iiii") << "the text is the tip already";
    m_combo->SetWindowText("iii");
    m_combo->UpdateToolTip();
    EXPECT_STREQ(m_combo->m_strToolTip, "");
}

TEST_F(TavComboTip, ATextOfTenThousandLettersIsSetWhole)
{
    std::string const text(10'000, 'w');
    Open({text});
    m_combo->SetCurSel(0);
    MoveInto(20);
    EXPECT_STREQ(m_combo->m_strToolTip, text.c_str());
    MoveInto(24);
    m_combo->SetWindowText("");
    m_combo->SetCurSel(-1);
    MoveInto(20);
    EXPECT_STREQ(m_combo->m_strToolTip, "");
}

TEST_F(TavComboTip, WithoutAFontTheSystemsOwnIsMeasured)
{
    OpenLong();
    m_combo->SetFont(nullptr);
    MoveInto(20);
    EXPECT_STREQ(m_combo->m_strToolTip, kLong.c_str());
    m_combo->SetCurSel(0);
    MoveInto(24);
    EXPECT_STREQ(m_combo->m_strToolTip, "");
}

TEST_F(TavComboTip, GoesWithTheWindowAndComesAgainWithTheNext)
{
    OpenLong();
    MoveInto(20);
    HWND const tip = m_combo->m_ToolTip;
    ASSERT_NE(tip, nullptr);
    m_combo->DestroyWindow();
    EXPECT_FALSE(::IsWindow(tip));
    ASSERT_TRUE(m_combo->Create(kEditable, kPlace, &*m_frame, kComboId));
    m_combo->SetFont(&m_font);
    m_combo->SetCurSel(m_combo->AddString(kLong.c_str()));
    support::Settle();
    MoveInto(24);
    ASSERT_TRUE(HasTip());
    EXPECT_EQ(Tool().uId, reinterpret_cast<UINT_PTR>(m_combo->Info().hwndItem));
    EXPECT_EQ(ToolText(), kLong);
}

} // namespace
