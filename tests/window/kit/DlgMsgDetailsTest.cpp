// DlgMsgDetailsTest.cpp - a short message whose details open on demand

#include "tavkit/drawing/DlgMsgDetails.h"

#include "support/WindowTest.h"

#include <string>

namespace
{

using support::ModalHelper;

constexpr int kDetails = 6005;
constexpr int kShow = 6006;
constexpr int kMessage = 6007;

class DlgMsgDetailsTest : public support::WindowTest
{
protected:
    void Open(const std::function<void(HWND)>& act, const char* details = "first\nsecond")
    {
        ModalHelper helper("A title", act);
        DlgMsgDetails dialog("A title", "A message", details, &m_frame);
        dialog.DoModal();
        EXPECT_TRUE(helper.Done());
    }

    support::TestFrame m_frame;
};

CRect Rect(HWND window)
{
    CRect rect;
    ::GetWindowRect(window, rect);
    return rect;
}

std::string TextOf(HWND window)
{
    char text[256] = "";
    ::GetWindowTextA(window, text, sizeof text);
    return text;
}

TEST_F(DlgMsgDetailsTest, OpensWithoutTheDetailsInView)
{
    Open([](HWND dialog) {
        CRect client;
        ::GetClientRect(dialog, client);
        CRect details = Rect(::GetDlgItem(dialog, kDetails));
        CRect message = Rect(::GetDlgItem(dialog, kMessage));
        ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&details), 2);
        ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&message), 2);
        EXPECT_GE(details.top, client.bottom);
        EXPECT_GT(client.bottom, message.top);
        EXPECT_EQ(TextOf(::GetDlgItem(dialog, kMessage)), "A message");
        support::PressButton(dialog, IDOK);
    });
}

TEST_F(DlgMsgDetailsTest, TheButtonGrowsTheDialogOnceAndGreysItself)
{
    Open([](HWND dialog) {
        const CRect folded = Rect(dialog);
        const int details = Rect(::GetDlgItem(dialog, kDetails)).Height();
        const int message = Rect(::GetDlgItem(dialog, kMessage)).Height();
        support::Click(::GetDlgItem(dialog, kShow));
        EXPECT_TRUE(support::PumpUntil([&] { return Rect(dialog).Height() > folded.Height(); }));
        const CRect full = Rect(dialog);
        EXPECT_EQ(full.TopLeft(), folded.TopLeft());
        EXPECT_EQ(full.Width(), folded.Width());
        EXPECT_EQ(folded.Height(), full.Height() - details - (full.Height() - details - message) / 3);
        EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(dialog, kShow)));
        support::PressButton(dialog, IDOK);
    });
    AllowGdiGrowth("the system keeps the pens of scroll bars once they were drawn");
}

TEST_F(DlgMsgDetailsTest, StaysWhereTheUserHasPutIt)
{
    Open([](HWND dialog) {
        ::SetWindowPos(dialog, nullptr, 33, 44, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        ::SendMessageA(dialog, WM_COMMAND, kShow, reinterpret_cast<LPARAM>(::GetDlgItem(dialog, kShow)));
        EXPECT_EQ(Rect(dialog).TopLeft(), CPoint(33, 44));
        support::PressButton(dialog, IDOK);
    });
}

TEST_F(DlgMsgDetailsTest, LineFeedsBecomePairsWhateverStandsBeforeThem)
{
    Open(
        [](HWND dialog) {
            EXPECT_EQ(TextOf(::GetDlgItem(dialog, kDetails)), "one\r\ntwo\r\r\nthree");
            support::PressButton(dialog, IDOK);
        },
        "one\ntwo\r\nthree");
}

TEST_F(DlgMsgDetailsTest, AHundredThousandCharactersAreAllThere)
{
    std::string details;
    std::string shown;
    while (details.size() < 100'000)
    {
        details += "a line of the details\n";
        shown += "a line of the details\r\n";
    }
    const std::string message(100'000, 'm');
    ModalHelper helper("A title", [&](HWND dialog) {
        std::string text(static_cast<size_t>(::GetWindowTextLengthA(::GetDlgItem(dialog, kDetails))), 0);
        ::GetWindowTextA(::GetDlgItem(dialog, kDetails), text.data(), static_cast<int>(text.size()) + 1);
        EXPECT_TRUE(text == shown) << text.size();
        EXPECT_EQ(::GetWindowTextLengthA(::GetDlgItem(dialog, kMessage)), 100'000);
        support::Click(::GetDlgItem(dialog, kShow));
        EXPECT_TRUE(support::PumpUntil([&] { return !::IsWindowEnabled(::GetDlgItem(dialog, kShow)); }));
        support::PressButton(dialog, IDOK);
    });
    DlgMsgDetails dialog("A title", message.c_str(), details.c_str(), &m_frame);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(helper.Done());
    AllowGdiGrowth("the system keeps the pens of scroll bars once they were drawn");
}

TEST_F(DlgMsgDetailsTest, DestroyedInItsLoopItEndsAndFreesItsOwner)
{
    for (const bool opened : {false, true})
    {
        ModalHelper helper("A title", [opened](HWND dialog) {
            if (opened)
            {
                ::SendMessageA(dialog, WM_COMMAND, kShow, reinterpret_cast<LPARAM>(::GetDlgItem(dialog, kShow)));
            }
            ::DestroyWindow(dialog);
        });
        DlgMsgDetails dialog("A title", "A message", "details", &m_frame);
        EXPECT_NE(dialog.DoModal(), IDOK);
        EXPECT_TRUE(helper.Done());
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_TRUE(::IsWindowEnabled(m_frame));
    }
    AllowGdiGrowth("the system keeps the pens of scroll bars once they were drawn");
}

TEST_F(DlgMsgDetailsTest, GoesWithItsOwner)
{
    support::TestFrame owner;
    ModalHelper helper("A title", [&](HWND) { owner.DestroyWindow(); });
    DlgMsgDetails dialog("A title", "A message", "details", &owner);
    EXPECT_NE(dialog.DoModal(), IDOK);
    EXPECT_TRUE(helper.Done());
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(DlgMsgDetailsTest, NullTextsAreEmpty)
{
    ModalHelper helper("", [](HWND dialog) {
        EXPECT_EQ(TextOf(::GetDlgItem(dialog, kMessage)), "");
        EXPECT_EQ(TextOf(::GetDlgItem(dialog, kDetails)), "");
        support::PressButton(dialog, IDOK);
    });
    DlgMsgDetails dialog(nullptr, nullptr, nullptr, &m_frame);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_TRUE(helper.Done());
}

} // namespace
