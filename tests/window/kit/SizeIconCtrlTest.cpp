// SizeIconCtrlTest.cpp - the size grip: picture, cursor, mouse

#include "support/Print.h"
#include "support/WindowTest.h"
#include "tavkit/layout/SizeIconCtrl.h"

#include <memory>

namespace
{

constexpr UINT kId = 9;
constexpr UINT kSystemGrip = 32766;
constexpr UINT kNoSuchBitmap = 1;

class SizeIconCtrl : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<support::TestFrame>(400, 300);
    }
    void TearDown() override
    {
        m_grip.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }
    void Open(bool autoHide)
    {
        m_grip = std::make_unique<cdxCSizeIconCtrl>(autoHide);
        ASSERT_EQ(m_grip->Create(m_frame.get(), kId), 1);
        m_grip->ShowWindow(SW_SHOW);
        support::Settle();
    }
    // Number of pixels of the grip's window that are not the frame's background.
    int Drawn() const
    {
        support::Settle();
        m_grip->UpdateWindow();
        CRect client;
        m_grip->GetClientRect(client);
        int count = 0;
        for (int y = 0; y < client.bottom; ++y)
        {
            for (int x = 0; x < client.right; ++x)
            {
                count += support::ClientPixel(m_grip->m_hWnd, x, y) != ::GetSysColor(COLOR_WINDOW);
            }
        }
        return count;
    }
    void ToTheCorner() const
    {
        CRect client;
        CRect grip;
        m_frame->GetClientRect(client);
        m_grip->GetClientRect(grip);
        m_grip->SetWindowPos(nullptr, client.right - grip.right, client.bottom - grip.bottom, 0, 0,
                             SWP_NOSIZE | SWP_NOZORDER);
        m_frame->RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    }
    LRESULT SetCursorAt(UINT hit) const
    {
        return m_grip->SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_grip->m_hWnd),
                                   MAKELPARAM(hit, WM_MOUSEMOVE));
    }

    std::unique_ptr<support::TestFrame> m_frame;
    std::unique_ptr<cdxCSizeIconCtrl> m_grip;
};

TEST_F(SizeIconCtrl, IsAScrollBarOfTheSizeBoxKindInTheLowerRightCorner)
{
    Open(true);
    char name[32] = "";
    ::GetClassNameA(m_grip->m_hWnd, name, sizeof name);
    EXPECT_STRCASEEQ(name, "SCROLLBAR");
    EXPECT_EQ(m_grip->GetStyle() & 0x4000000C, 0x4000000Cu);
    EXPECT_EQ(m_grip->GetStyle() & 0x13, 0u);
    EXPECT_NE(m_grip->GetExStyle() & WS_EX_TRANSPARENT, 0u);
    EXPECT_EQ(::GetDlgCtrlID(m_grip->m_hWnd), static_cast<int>(kId));
    CRect client;
    CRect grip;
    m_frame->GetClientRect(client);
    m_grip->GetWindowRect(grip);
    m_frame->ScreenToClient(grip);
    EXPECT_NEAR(grip.right, client.right, 1);
    EXPECT_NEAR(grip.bottom, client.bottom, 1);
    EXPECT_STREQ(m_grip->GetRuntimeClass()->m_lpszClassName, "cdxCSizeIconCtrl");
    EXPECT_TRUE(m_grip->IsKindOf(RUNTIME_CLASS(CScrollBar)));
}

TEST_F(SizeIconCtrl, IsHiddenUntilItIsShown)
{
    cdxCSizeIconCtrl grip;
    ASSERT_EQ(grip.Create(m_frame.get(), kId), 1);
    EXPECT_FALSE(grip.IsWindowVisible());
    grip.DestroyWindow();
}

TEST_F(SizeIconCtrl, NeedsAParent)
{
    cdxCSizeIconCtrl grip;
    EXPECT_EQ(grip.Create(nullptr, kId), 0);
    CWnd noWindow;
    EXPECT_EQ(grip.Create(&noWindow, kId), 0);
    EXPECT_EQ(grip.m_hWnd, nullptr);
}

TEST_F(SizeIconCtrl, TheImageIsTheSystemsWithItsFaceColourTransparent)
{
    CBitmap bitmap;
    BITMAP info{};
    ASSERT_TRUE(bitmap.LoadOEMBitmap(kSystemGrip));
    ASSERT_NE(bitmap.GetBitmap(&info), 0);
    EXPECT_EQ(cdxCSizeIconCtrl::M_ilImage.m_szImage, CSize(info.bmWidth, info.bmHeight));
    EXPECT_EQ(cdxCSizeIconCtrl::M_ilImage.GetImageCount(), 1);
    EXPECT_EQ(cdxCSizeIconCtrl::M_hcSize, ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32642)));
}

TEST_F(SizeIconCtrl, AnUnknownSystemBitmapLeavesTheListEmpty)
{
    const cdxCSizeIconCtrl::AutoOEMImageList list(kNoSuchBitmap, RGB(0, 0, 0));
    EXPECT_EQ(list.m_szImage, CSize(0, 0));
    EXPECT_EQ(list.m_hImageList, nullptr);
}

TEST_F(SizeIconCtrl, DrawsTheImageUnlessItsParentIsMaximisedAndItHides)
{
    Open(true);
    ToTheCorner();
    EXPECT_GT(Drawn(), 0);
    m_frame->ShowWindow(SW_MAXIMIZE);
    ToTheCorner();
    EXPECT_EQ(Drawn(), 0);
    m_frame->ShowWindow(SW_RESTORE);
    ToTheCorner();
    EXPECT_GT(Drawn(), 0);
    m_grip.reset();
    Open(false);
    m_frame->ShowWindow(SW_MAXIMIZE);
    ToTheCorner();
    EXPECT_GT(Drawn(), 0);
}

TEST_F(SizeIconCtrl, SetsTheSizingCursorInItsClientAreaAndNoneElsewhere)
{
    Open(true);
    ::SetCursor(::LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT)));
    EXPECT_EQ(SetCursorAt(HTCLIENT), 1);
    EXPECT_EQ(::GetCursor(), cdxCSizeIconCtrl::M_hcSize);
    EXPECT_EQ(SetCursorAt(HTBORDER), 1);
    EXPECT_EQ(::GetCursor(), nullptr);
    AllowGdiGrowth("the system keeps its own cursors once they have been set");
}

TEST_F(SizeIconCtrl, SetsNoCursorWhileItsParentIsMaximisedAndItHides)
{
    Open(true);
    m_frame->ShowWindow(SW_MAXIMIZE);
    HCURSOR wait = ::LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT));
    ::SetCursor(wait);
    EXPECT_EQ(SetCursorAt(HTCLIENT), 1);
    EXPECT_EQ(SetCursorAt(HTBORDER), 1);
    EXPECT_EQ(::GetCursor(), wait);
    m_grip.reset();
    Open(false);
    ::SetCursor(wait);
    EXPECT_EQ(SetCursorAt(HTCLIENT), 1);
    EXPECT_EQ(::GetCursor(), cdxCSizeIconCtrl::M_hcSize);
    AllowGdiGrowth("the system keeps its own cursors once they have been set");
}

TEST_F(SizeIconCtrl, TheRealMouseShowsTheSizingCursor)
{
    Open(true);
    ::SetCursor(::LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT)));
    support::MoveMouse(support::CenterOf(m_grip->m_hWnd));
    EXPECT_TRUE(support::PumpUntil([] { return ::GetCursor() == cdxCSizeIconCtrl::M_hcSize; }));
    AllowGdiGrowth("the system keeps its own cursors once they have been set");
}

TEST_F(SizeIconCtrl, ADoubleClickHasNoEffect)
{
    Open(true);
    CRect before;
    m_frame->GetWindowRect(before);
    m_frame->Clear();
    m_grip->SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 3));
    support::Settle();
    CRect after;
    m_frame->GetWindowRect(after);
    EXPECT_EQ(after, before);
    EXPECT_EQ(m_frame->Count(WM_SYSCOMMAND), 0);
    EXPECT_FALSE(m_frame->IsZoomed());
}

TEST_F(SizeIconCtrl, AClickOnItsMaximisedParentSizesNothing)
{
    Open(true);
    m_frame->ShowWindow(SW_MAXIMIZE);
    m_frame->Clear();
    m_grip->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_EQ(m_frame->Count(WM_SYSCOMMAND), 0);
}

} // namespace
