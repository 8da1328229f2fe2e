// DialogPlaceTest.cpp - where dialogs open: centred by the framework, or where template or program put them

#include "DialogTemplate.h"
#include "support/WindowTest.h"

namespace
{
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;

class PlacedDialog : public CDialog
{
public:
    std::function<void(CDialog&)> m_onInit;
    BOOL m_mayCentre = TRUE;

    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        GetWindowRect(m_atInit);
        if (m_onInit)
        {
            m_onInit(*this);
        }
        return TRUE;
    }
    CRect m_atInit; ///< where the system made it

protected:
    BOOL CheckAutoCenter() override { return m_mayCentre && CDialog::CheckAutoCenter(); }
};

class DialogPlace : public support::WindowTest
{
protected:
    std::unique_ptr<support::TestFrame> m_frame;
    PlacedDialog m_dialog;

    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<support::TestFrame>();
    }
    /// Makes the dialog over the frame; its corner is still where it is when it is shown.
    CRect Open(const DialogTemplate& made)
    {
        EXPECT_TRUE(m_dialog.CreateIndirect(made.Get(), m_frame.get()));
        CRect rect;
        m_dialog.GetWindowRect(rect);
        return rect;
    }
    CPoint MiddleOfFrame() const
    {
        CRect rect;
        m_frame->GetWindowRect(rect);
        return rect.CenterPoint();
    }
    void TearDown() override
    {
        m_dialog.DestroyWindow();
        m_frame.reset();
        WindowTest::TearDown();
    }
};
} // namespace

TEST_F(DialogPlace, ATemplateAtTheOriginLeavesThePlaceToTheFrameworkWhichCentresItOverItsOwner)
{
    const CRect place = Open(DialogTemplate("Plain", kStyle));
    EXPECT_EQ(place.CenterPoint(), MiddleOfFrame());
    EXPECT_NE(place.TopLeft(), m_dialog.m_atInit.TopLeft());
}

TEST_F(DialogPlace, AnExtendedTemplateAtTheOriginIsCentredToo)
{
    const CRect place = Open(DialogTemplate::Extended(kStyle, 0, 0));
    EXPECT_EQ(place.CenterPoint(), MiddleOfFrame());
}

TEST_F(DialogPlace, AModalDialogIsCentredBeforeItShows)
{
    const DialogTemplate made("Plain", kStyle);
    m_dialog.InitModalIndirect(made.Get(), m_frame.get());
    CRect place;
    support::ModalHelper helper("Plain", [&](HWND h) {
        ::GetWindowRect(h, place);
        support::PressButton(h, IDCANCEL);
    });
    m_dialog.DoModal();
    EXPECT_TRUE(helper.Done());
    EXPECT_EQ(place.CenterPoint(), MiddleOfFrame());
}

TEST_F(DialogPlace, ATemplateWithAPlaceKeepsIt)
{
    EXPECT_EQ(Open(DialogTemplate::Extended(kStyle, 20, 0)), m_dialog.m_atInit);
    m_dialog.DestroyWindow();
    EXPECT_EQ(Open(DialogTemplate::Extended(kStyle, 0, 10)), m_dialog.m_atInit);
}

TEST_F(DialogPlace, AStyleThatNamesThePlaceHolds)
{
    EXPECT_EQ(Open(DialogTemplate("Plain", kStyle | DS_ABSALIGN)), m_dialog.m_atInit);
    EXPECT_EQ(m_dialog.m_atInit.TopLeft(), CPoint(0, 0));
}

TEST_F(DialogPlace, AProgramThatMovesOrShowsItAtInitialisationHasTheLastWord)
{
    m_dialog.m_onInit = [](CDialog& dialog) {
        dialog.SetWindowPos(nullptr, 31, 37, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    };
    EXPECT_EQ(Open(DialogTemplate("Plain", kStyle)).TopLeft(), CPoint(31, 37));
    m_dialog.DestroyWindow();
    m_dialog.m_onInit = [](CDialog& dialog) { dialog.ShowWindow(SW_SHOW); };
    EXPECT_EQ(Open(DialogTemplate("Plain", kStyle)), m_dialog.m_atInit);
}

TEST_F(DialogPlace, OneSizedAtInitialisationIsCentredInItsNewSize)
{
    m_dialog.m_onInit = [](CDialog& dialog) {
        dialog.SetWindowPos(nullptr, 0, 0, 300, 120, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    };
    const CRect place = Open(DialogTemplate("Plain", kStyle));
    EXPECT_EQ(place.Size(), CSize(300, 120));
    EXPECT_EQ(place.CenterPoint(), MiddleOfFrame());
}

TEST_F(DialogPlace, AChildDialogStaysWhereItIs)
{
    EXPECT_EQ(Open(DialogTemplate("", WS_CHILD | DS_CONTROL)), m_dialog.m_atInit);
}

TEST_F(DialogPlace, ADerivedClassMayRefuse)
{
    m_dialog.m_mayCentre = FALSE;
    EXPECT_EQ(Open(DialogTemplate("Plain", kStyle)), m_dialog.m_atInit);
}

TEST_F(DialogPlace, OneThatIsDestroyedAtInitialisationIsLeftAlone)
{
    m_dialog.m_onInit = [](CDialog& dialog) { dialog.DestroyWindow(); };
    const DialogTemplate made("Plain", kStyle);
    m_dialog.CreateIndirect(made.Get(), m_frame.get());
    EXPECT_EQ(m_dialog.m_hWnd, nullptr);
}
