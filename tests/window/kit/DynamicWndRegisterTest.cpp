// DynamicWndRegisterTest.cpp - the layout engine: attaching, registering children, declaration tables, snapshots

#include "LayoutFixture.h"

#include <array>

namespace
{

using layout_test::Child;
using layout_test::Engine;
using layout_test::EngineFrame;
using testing::ElementsAre;
using Percent = std::array<int, 4>;
using Dyn = cdxCDynamicWnd;

constexpr UINT kId = 77;
constexpr UINT kOtherId = 78;
constexpr UINT kNoSuchId = 4711;
const CRect kRect(10, 20, 110, 50);
const CRect kOtherRect(10, 60, 110, 90);
const CSize kMin(3, 4);

class DynamicWndRegister : public support::WindowTest
{
protected:
    void SetUp() override
    {
        WindowTest::SetUp();
        m_frame = std::make_unique<EngineFrame>();
        m_child = std::make_unique<Child>(*m_frame, kId, kRect);
        m_other = std::make_unique<Child>(*m_frame, kOtherId, kOtherRect);
    }
    void TearDown() override
    {
        m_other.reset();
        m_child.reset();
        m_frame.reset();
        WindowTest::TearDown();
    }

    Engine& E() { return m_frame->m_engine; }
    void Attach() { E().DoInitWindow(*m_frame); }

    // The percentages that a child is registered with; all -1 when it isn't registered.
    Percent PercentOf(HWND child)
    {
        Dyn::Position pos{};
        if (!E().GetControlPosition(child, pos))
        {
            return {-1, -1, -1, -1};
        }
        return {pos.m_percent[0], pos.m_percent[1], pos.m_percent[2], pos.m_percent[3]};
    }

    std::unique_ptr<EngineFrame> m_frame;
    std::unique_ptr<Child> m_child;
    std::unique_ptr<Child> m_other;
};

constexpr Percent kNotRegistered{-1, -1, -1, -1};

// --- the ways to register

struct Form
{
    const char* name;
    bool (*byHandle)(Engine&, HWND, bool);
    bool (*byId)(Engine&, UINT, bool);
    Percent percent;
    bool takesMinimum = true;
};

class DynamicWndForms : public DynamicWndRegister, public testing::WithParamInterface<Form>
{
};

constexpr signed char kArray[4] = {1, 2, 3, 4};

#define BOTH_FORMS(...)                                                                                                \
    [](Engine& e, HWND child, bool now) { return __VA_ARGS__; },                                                       \
        [](Engine& e, UINT child, bool now) { return __VA_ARGS__; }

INSTANTIATE_TEST_SUITE_P(
    Table, DynamicWndForms,
    testing::Values(
        Form{
            "Position", BOTH_FORMS(e.AddSzControl(child, Dyn::Position{kRect, {1, 2, 3, 4}, kMin}, now)), {1, 2, 3, 4}},
        Form{"PercentArray", BOTH_FORMS(e.AddSzControl(child, kArray, kMin, now)), {1, 2, 3, 4}},
        Form{"Corner", BOTH_FORMS(e.AddSzControl(child, Dyn::TopRight, kMin, now)), {100, 0, 100, 0}},
        Form{"FourPercentages", BOTH_FORMS(e.AddSzControl(child, 10, 20, 30, 40, kMin, now)), {10, 20, 30, 40}},
        Form{"ModesStretchFollow",
             BOTH_FORMS(e.AddSzControl(child, Dyn::ModeStretch, Dyn::ModeFollow, kMin, now)),
             {0, 100, 100, 100}},
        Form{"ModesHalfStay",
             BOTH_FORMS(e.AddSzControl(child, Dyn::ModeHalf, Dyn::ModeStay, kMin, now)),
             {50, 0, 50, 0}},
        Form{"AnUnknownModeStays",
             BOTH_FORMS(e.AddSzControl(child, static_cast<Dyn::Mode>(9), Dyn::ModeHalf, kMin, now)),
             {0, 50, 0, 50}},
        Form{"XPercentages", BOTH_FORMS(e.AddSzXControl(child, 25, 75, kMin, now)), {25, 0, 75, 0}},
        Form{"XMode", BOTH_FORMS(e.AddSzXControl(child, Dyn::ModeFollow, kMin, now)), {100, 0, 100, 0}},
        Form{"YPercentages", BOTH_FORMS(e.AddSzYControl(child, 25, 75, kMin, now)), {0, 25, 0, 75}},
        Form{"YMode", BOTH_FORMS(e.AddSzYControl(child, Dyn::ModeStretch, kMin, now)), {0, 0, 0, 100}}),
    [](const auto& info) { return info.param.name; });

TEST_P(DynamicWndForms, ByHandleKeepsRectanglePercentagesAndMinimum)
{
    Attach();
    ASSERT_TRUE(GetParam().byHandle(E(), m_child->m_hWnd, false));
    Dyn::Position pos{};
    ASSERT_TRUE(E().GetControlPosition(m_child->m_hWnd, pos));
    EXPECT_EQ(pos.m_rect, kRect);
    EXPECT_EQ(pos.m_szMin, kMin);
    EXPECT_EQ(PercentOf(m_child->m_hWnd), GetParam().percent);
    EXPECT_EQ(E().GetCtrlCount(), 1u);
}

TEST_P(DynamicWndForms, ByIdKeepsRectanglePercentagesAndMinimum)
{
    Attach();
    ASSERT_TRUE(GetParam().byId(E(), kId, false));
    Dyn::Position pos{};
    ASSERT_TRUE(E().GetControlPosition(m_child->m_hWnd, pos));
    EXPECT_EQ(pos.m_rect, kRect);
    EXPECT_EQ(pos.m_szMin, kMin);
    EXPECT_EQ(PercentOf(m_child->m_hWnd), GetParam().percent);
}

TEST_P(DynamicWndForms, AnUnknownChildIsRefused)
{
    Attach();
    EXPECT_FALSE(GetParam().byHandle(E(), nullptr, true));
    EXPECT_FALSE(GetParam().byId(E(), kNoSuchId, true));
    HWND gone = m_child->m_hWnd;
    m_child->DestroyWindow();
    EXPECT_FALSE(GetParam().byHandle(E(), gone, true));
    EXPECT_FALSE(GetParam().byId(E(), kId, true));
    EXPECT_EQ(E().GetCtrlCount(), 0u);
}

TEST_P(DynamicWndForms, BeforeAttachingNothingIsRegistered)
{
    EXPECT_FALSE(GetParam().byHandle(E(), m_child->m_hWnd, false));
    EXPECT_FALSE(GetParam().byId(E(), kId, false));
    EXPECT_EQ(E().GetCtrlCount(), 0u);
}

TEST_P(DynamicWndForms, InAMinimisedWindowNothingIsRegistered)
{
    Attach();
    m_frame->ShowWindow(SW_MINIMIZE);
    EXPECT_FALSE(GetParam().byHandle(E(), m_child->m_hWnd, false));
    EXPECT_FALSE(GetParam().byId(E(), kId, false));
}

TEST_P(DynamicWndForms, OnlyThoseThatAskForItArePlacedAtOnce)
{
    Attach();
    m_frame->GrowBy(100, 100);
    ASSERT_TRUE(GetParam().byHandle(E(), m_child->m_hWnd, false));
    EXPECT_TRUE(m_child->m_moves.empty());
    ASSERT_TRUE(GetParam().byHandle(E(), m_child->m_hWnd, true));
    const Percent& p = GetParam().percent;
    EXPECT_EQ(m_child->Place(), CRect(kRect.left + p[0], kRect.top + p[1], kRect.right + p[2], kRect.bottom + p[3]));
}

TEST_F(DynamicWndRegister, TheCornersFollowTheirTwoEdges)
{
    const auto corner = [](const signed char(&c)[4]) { return Percent{c[0], c[1], c[2], c[3]}; };
    EXPECT_EQ(corner(Dyn::TopLeft), (Percent{0, 0, 0, 0}));
    EXPECT_EQ(corner(Dyn::TopRight), (Percent{100, 0, 100, 0}));
    EXPECT_EQ(corner(Dyn::BotLeft), (Percent{0, 100, 0, 100}));
    EXPECT_EQ(corner(Dyn::BotRight), (Percent{100, 100, 100, 100}));
}

TEST_F(DynamicWndRegister, RegisteringAgainReplacesThePosition)
{
    Attach();
    ASSERT_TRUE(E().AddSzControl(kId, Dyn::TopRight, kMin, false));
    ASSERT_TRUE(E().AddSzControl(kId, Dyn::BotLeft, CSize(0, 0), false));
    EXPECT_EQ(E().GetCtrlCount(), 1u);
    EXPECT_EQ(PercentOf(m_child->m_hWnd), (Percent{0, 100, 0, 100}));
}

TEST_F(DynamicWndRegister, AnUnknownChildHasNoPositionToGive)
{
    Attach();
    Dyn::Position pos{kRect, {1, 2, 3, 4}, kMin};
    EXPECT_FALSE(E().GetControlPosition(m_child->m_hWnd, pos));
    EXPECT_EQ(pos.m_rect, kRect);
    EXPECT_FALSE(E().GetControlPosition(nullptr, pos));
}

// --- like another

TEST_F(DynamicWndRegister, AChildLikeAnotherTakesItsPlaceAtOnceEvenIfNotAskedTo)
{
    Attach();
    ASSERT_TRUE(E().AddSzControl(kId, Dyn::TopRight, kMin, false));
    m_frame->GrowBy(30, 40);
    ASSERT_TRUE(E().AddSzControl(m_other->m_hWnd, m_child->m_hWnd, false));
    EXPECT_EQ(m_other->Place(), m_child->Place());
    EXPECT_EQ(m_other->Place(), CRect(40, 20, 140, 50));
}

TEST_F(DynamicWndRegister, AChildLikeAnotherIsFoundByItsIdToo)
{
    Attach();
    ASSERT_TRUE(E().AddSzControl(kId, Dyn::TopRight, kMin, false));
    m_frame->GrowBy(30, 40);
    ASSERT_TRUE(E().AddSzControl(kOtherId, m_child->m_hWnd, false));
    EXPECT_EQ(m_other->Place(), CRect(40, 20, 140, 50));
    EXPECT_FALSE(E().AddSzControl(kNoSuchId, m_child->m_hWnd, true));
}

TEST_F(DynamicWndRegister, InAWindowOfItsFirstSizeAChildLikeAnotherStaysUntilTheNextLayout)
{
    // In the initial state every child counts as placed, so nothing is moved although the rectangle is another's.
    Attach();
    ASSERT_TRUE(E().AddSzControl(kId, Dyn::TopRight, kMin, false));
    ASSERT_TRUE(E().AddSzControl(m_other->m_hWnd, m_child->m_hWnd, true));
    EXPECT_EQ(m_other->Place(), kOtherRect);
    E().Layout();
    EXPECT_EQ(m_other->Place(), kRect);
}

TEST_F(DynamicWndRegister, LikeAChildThatIsNotRegisteredIsRefused)
{
    Attach();
    EXPECT_FALSE(E().AddSzControl(m_other->m_hWnd, m_child->m_hWnd, true));
    EXPECT_FALSE(E().AddSzControl(m_other->m_hWnd, HWND(nullptr), true));
    EXPECT_EQ(E().GetCtrlCount(), 0u);
}

// --- all children

TEST_F(DynamicWndRegister, AllControlsTakesTheDirectChildrenInZOrder)
{
    Child grandchild(*m_child, 1, CRect(0, 0, 5, 5));
    Attach();
    ::SetWindowPos(m_other->m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_TRUE(E().AllControls(5, 6, 7, 8, false, false));
    EXPECT_THAT(E().m_added, ElementsAre(m_other->m_hWnd, m_child->m_hWnd));
    EXPECT_EQ(PercentOf(m_child->m_hWnd), (Percent{5, 6, 7, 8}));
    EXPECT_EQ(PercentOf(grandchild.m_hWnd), kNotRegistered);
    Dyn::Position pos{};
    ASSERT_TRUE(E().GetControlPosition(m_other->m_hWnd, pos));
    EXPECT_EQ(pos.m_szMin, CSize(0, 0));
    EXPECT_EQ(pos.m_rect, kOtherRect);
}

TEST_F(DynamicWndRegister, AllControlsLeavesKnownChildrenUnlessTheyAreToBeOverwritten)
{
    Attach();
    ASSERT_TRUE(E().AddSzControl(kId, 1, 2, 3, 4, kMin, false));
    EXPECT_TRUE(E().AllControls(Dyn::ModeHalf, Dyn::ModeFollow, false, false));
    EXPECT_EQ(PercentOf(m_child->m_hWnd), (Percent{1, 2, 3, 4}));
    EXPECT_EQ(PercentOf(m_other->m_hWnd), (Percent{50, 100, 50, 100}));
    EXPECT_FALSE(E().AllControls(Dyn::BotRight, false, true)) << "all are known already";
    EXPECT_TRUE(E().AllControls(Dyn::BotRight, true, false));
    EXPECT_EQ(PercentOf(m_child->m_hWnd), (Percent{100, 100, 100, 100}));
    EXPECT_EQ(PercentOf(m_other->m_hWnd), (Percent{100, 100, 100, 100}));
}

TEST_F(DynamicWndRegister, AllControlsLaysOutOnlyWhenAskedToAndSomethingIsNew)
{
    Attach();
    EXPECT_TRUE(E().AllControls(Dyn::TopRight, false, false));
    EXPECT_EQ(E().m_layouts, 0);
    EXPECT_FALSE(E().AllControls(Dyn::TopRight, false, true));
    EXPECT_EQ(E().m_layouts, 0);
    EXPECT_TRUE(E().AllControls(Dyn::TopRight, true, true));
    EXPECT_EQ(E().m_layouts, 1);
}

TEST_F(DynamicWndRegister, AllControlsOfAWindowWithoutChildrenRegistersNothing)
{
    m_child.reset();
    m_other.reset();
    Attach();
    EXPECT_FALSE(E().AllControls(Dyn::TopRight, true, true));
    EXPECT_FALSE(Engine().AllControls(Dyn::TopRight, true, true)) << "no window at all";
}

// --- taking away

TEST_F(DynamicWndRegister, ARemovedChildStaysWhereItIs)
{
    Attach();
    ASSERT_TRUE(E().AddSzControl(kId, Dyn::TopRight, kMin, false));
    m_frame->GrowBy(30, 0);
    EXPECT_TRUE(E().RemSzControl(m_child->m_hWnd, false));
    EXPECT_EQ(E().GetCtrlCount(), 0u);
    m_frame->GrowBy(60, 0);
    EXPECT_EQ(m_child->Place(), kRect + CPoint(30, 0));
}

TEST_F(DynamicWndRegister, ARemovedChildIsPutBackWhereItWasRegisteredIfAskedTo)
{
    Attach();
    ASSERT_TRUE(E().AddSzControl(kId, Dyn::TopRight, kMin, false));
    m_frame->GrowBy(30, 0);
    m_child->m_moves.clear();
    EXPECT_TRUE(E().RemSzControl(m_child->m_hWnd, true));
    EXPECT_EQ(m_child->Place(), kRect);
    constexpr UINT kMoveFlags = 0x214;
    EXPECT_EQ(m_child->m_moves.size(), 1u);
    EXPECT_EQ(m_child->m_moves.at(0) & (kMoveFlags | SWP_NOCOPYBITS | SWP_NOMOVE), kMoveFlags);
}

TEST_F(DynamicWndRegister, RemovingAnUnknownChildFailsAndMovesNothing)
{
    Attach();
    EXPECT_FALSE(E().RemSzControl(m_child->m_hWnd, true));
    EXPECT_FALSE(E().RemSzControl(m_child->m_hWnd, false));
    EXPECT_FALSE(E().RemSzControl(nullptr, true));
    EXPECT_FALSE(Engine().RemSzControl(m_child->m_hWnd, false)) << "no window at all";
    EXPECT_TRUE(m_child->m_moves.empty());
}

TEST_F(DynamicWndRegister, AChildThatDiesIsForgotten)
{
    Attach();
    ASSERT_TRUE(E().AllControls(Dyn::TopRight, false, false));
    HWND gone = m_child->m_hWnd;
    m_child->DestroyWindow();
    EXPECT_THAT(E().m_destroyed, ElementsAre(gone));
    EXPECT_EQ(E().GetCtrlCount(), 1u);
    EXPECT_EQ(PercentOf(gone), kNotRegistered);
}

TEST_F(DynamicWndRegister, OnlyTheDeathOfAChildIsTakenFromAParentNotification)
{
    Attach();
    ASSERT_TRUE(E().AddSzControl(kId, Dyn::TopRight, kMin, false));
    E().DoOnParentNotify(MAKEWPARAM(WM_CREATE, kId), reinterpret_cast<LPARAM>(m_child->m_hWnd));
    E().DoOnParentNotify(MAKEWPARAM(WM_LBUTTONDOWN, 0), reinterpret_cast<LPARAM>(m_child->m_hWnd));
    E().DoOnParentNotify(MAKEWPARAM(WM_DESTROY, kId), 0);
    EXPECT_TRUE(E().m_destroyed.empty());
    EXPECT_EQ(E().GetCtrlCount(), 1u);
    // The id of the child stands in the high half of the word.
    E().DoOnParentNotify(MAKEWPARAM(WM_DESTROY, kId), reinterpret_cast<LPARAM>(m_child->m_hWnd));
    EXPECT_EQ(E().GetCtrlCount(), 0u);
}

// --- attaching and letting go

TEST_F(DynamicWndRegister, AttachingTakesThePresentClientSizeAsInitialAndLeast)
{
    EXPECT_FALSE(E().IsValid());
    EXPECT_EQ(E().m_idTimer, 0u);
    Attach();
    EXPECT_TRUE(E().IsValid());
    EXPECT_EQ(E().Window(), m_frame.get());
    EXPECT_EQ(static_cast<CWnd*>(E()), m_frame.get());
    EXPECT_EQ(E().m_szInitial, CSize(EngineFrame::kWidth, EngineFrame::kHeight));
    EXPECT_EQ(E().m_szMin, E().m_szInitial);
    EXPECT_EQ(E().m_szMax, CSize(0, 0));
    EXPECT_EQ(E().m_idTimer, 29028u);
    EXPECT_EQ(E().m_idSizeIcon, 59936u);
    EXPECT_EQ(E().GetCtrlCount(), 0u);
    EXPECT_EQ(E().m_layouts, 0) << "nothing was registered";
}

TEST_F(DynamicWndRegister, AttachingWithASizeMeasuresGrowthFromThatSize)
{
    const Dyn::__dynEntry table[] = {{1, kId, 100, 0, 100, 0}, {0, 0, 0, 0, 0, 0}};
    E().m_table = table;
    E().DoInitWindow(*m_frame, CSize(EngineFrame::kWidth - 25, EngineFrame::kHeight));
    EXPECT_EQ(E().m_szMin, CSize(EngineFrame::kWidth - 25, EngineFrame::kHeight));
    EXPECT_EQ(E().m_layouts, 1);
    EXPECT_EQ(m_child->Place(), kRect + CPoint(25, 0));
}

TEST_F(DynamicWndRegister, TheHookAfterAttachingRunsBeforeTheFirstLayout)
{
    UINT timer = 0;
    int layouts = -1;
    E().m_onInitialized = [&] {
        timer = E().m_idTimer;
        layouts = E().m_layouts;
        EXPECT_TRUE(E().AddSzControl(kId, Dyn::TopRight, kMin, false));
    };
    Attach();
    EXPECT_EQ(timer, 29028u);
    EXPECT_EQ(layouts, 0);
    EXPECT_EQ(E().m_layouts, 1);
}

TEST_F(DynamicWndRegister, AWindowDestroyedInTheHookAfterAttachingIsLetGo)
{
    E().m_onInitialized = [&] { m_frame->DestroyWindow(); };
    Attach();
    EXPECT_FALSE(E().IsValid());
    EXPECT_FALSE(E().AddSzControl(kId, Dyn::TopRight, kMin, true));
    E().Layout();
}

TEST_F(DynamicWndRegister, LettingGoMayBeRepeatedAndTellsOnce)
{
    Attach();
    ASSERT_TRUE(E().AllControls(Dyn::TopRight, false, false));
    int told = 0;
    E().m_onDestroying = [&] {
        ++told;
        EXPECT_TRUE(E().IsWindow());
        EXPECT_EQ(E().GetCtrlCount(), 2u);
    };
    E().DoOnDestroy();
    E().DoOnDestroy();
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(E().IsValid());
    EXPECT_TRUE(E().IsDisabled());
    EXPECT_EQ(E().GetCtrlCount(), 0u);
}

TEST_F(DynamicWndRegister, AnEngineThatDiesLetsGoOfItsWindowAndItsGrip)
{
    {
        cdxCDynamicWnd engine(Dyn::FreedomXY, Dyn::FlagSizeIcon);
        engine.DoInitWindow(*m_frame);
        EXPECT_NE(::GetDlgItem(m_frame->m_hWnd, 59936), nullptr);
    }
    EXPECT_EQ(::GetDlgItem(m_frame->m_hWnd, 59936), nullptr);
    EXPECT_TRUE(::IsWindow(m_frame->m_hWnd));
}

TEST_F(DynamicWndRegister, TheGripIsMadeShownAndBoundToTheLowerRightCorner)
{
    E().ModifyFlags(Dyn::FlagSizeIcon, 0);
    Attach();
    HWND grip = ::GetDlgItem(m_frame->m_hWnd, 59936);
    ASSERT_NE(grip, nullptr);
    EXPECT_TRUE(::IsWindowVisible(grip));
    EXPECT_EQ(PercentOf(grip), (Percent{100, 100, 100, 100}));
    EXPECT_EQ(E().m_layouts, 1) << "the grip counts as a registered child";
    m_frame->GrowBy(50, 60);
    CRect rect;
    ::GetWindowRect(grip, rect);
    m_frame->ScreenToClient(rect);
    EXPECT_NEAR(rect.right, EngineFrame::kWidth + 50, 1);
    EXPECT_NEAR(rect.bottom, EngineFrame::kHeight + 60, 1);
}

// --- declaration tables

TEST_F(DynamicWndRegister, ATableRegistersRowByRowUpToItsEnd)
{
    const Dyn::__dynEntry table[] = {
        {1, kNoSuchId, 9, 9, 9, 9}, {1, kId, 1, 2, 3, 4}, {0, 0, 0, 0, 0, 0}, {1, kOtherId, 5, 6, 7, 8}};
    E().m_table = table;
    Attach();
    EXPECT_EQ(PercentOf(m_child->m_hWnd), (Percent{1, 2, 3, 4}));
    EXPECT_EQ(PercentOf(m_other->m_hWnd), kNotRegistered) << "the row stands behind the end";
    Dyn::Position pos{};
    ASSERT_TRUE(E().GetControlPosition(m_child->m_hWnd, pos));
    EXPECT_EQ(pos.m_szMin, CSize(0, 0));
    EXPECT_EQ(E().m_layouts, 1);
}

TEST_F(DynamicWndRegister, ARowOfModesIsTranslated)
{
    const Dyn::__dynEntry table[] = {{2, kId, Dyn::ModeStretch, Dyn::ModeFollow, 77, 88},
                                     {2, kOtherId, Dyn::ModeHalf, 55, 0, 0},
                                     {0, 0, 0, 0, 0, 0}};
    E().m_table = table;
    Attach();
    EXPECT_EQ(PercentOf(m_child->m_hWnd), (Percent{0, 100, 100, 100}));
    EXPECT_EQ(PercentOf(m_other->m_hWnd), (Percent{50, 0, 50, 0}));
}

TEST_F(DynamicWndRegister, ARowWithoutIdIsForAllChildrenThatNoRowBeforeNamed)
{
    const Dyn::__dynEntry table[] = {
        {1, kId, 1, 2, 3, 4}, {2, 0, Dyn::ModeHalf, Dyn::ModeHalf, 0, 0}, {0, 0, 0, 0, 0, 0}};
    E().m_table = table;
    Attach();
    EXPECT_EQ(PercentOf(m_child->m_hWnd), (Percent{1, 2, 3, 4}));
    EXPECT_EQ(PercentOf(m_other->m_hWnd), (Percent{50, 50, 50, 50}));
}

TEST_F(DynamicWndRegister, ARowBehindOneForAllChildrenReplacesItForItsChild)
{
    const Dyn::__dynEntry table[] = {{1, 0, 50, 50, 50, 50}, {1, kId, 1, 2, 3, 4}, {0, 0, 0, 0, 0, 0}};
    E().m_table = table;
    Attach();
    EXPECT_EQ(PercentOf(m_child->m_hWnd), (Percent{1, 2, 3, 4}));
    EXPECT_EQ(PercentOf(m_other->m_hWnd), (Percent{50, 50, 50, 50}));
}

// --- state

TEST_F(DynamicWndRegister, WithoutAWindowEveryQuestionHasAnEmptyAnswer)
{
    Engine engine;
    EXPECT_FALSE(engine.IsValid());
    EXPECT_FALSE(engine.IsWindow());
    EXPECT_FALSE(engine.IsUp());
    EXPECT_EQ(engine.Window(), nullptr);
    EXPECT_EQ(engine.GetSafeChildHWND(kId), nullptr);
    EXPECT_EQ(engine.GetBorderSize(), CSize(0, 0));
    EXPECT_EQ(engine.GetCurrentClientSize(), CSize(0, 0));
    EXPECT_EQ(engine.GetCtrlCount(), 0u);
    engine.Layout();
    engine.DoOnSize(SIZE_RESTORED, 1, 1);
    engine.DoOnSizing(WMSZ_RIGHT, nullptr);
    engine.DoOnTimer(0);
    engine.DoOnParentNotify(WM_DESTROY, 0);
    MINMAXINFO info{};
    engine.DoOnGetMinMaxInfo(&info);
    EXPECT_EQ(info.ptMinTrackSize.x, 0);
    EXPECT_TRUE(engine.m_asked.empty());
}

TEST_F(DynamicWndRegister, TheBorderIsWhatTheWindowHasBeyondItsClientArea)
{
    Attach();
    CRect window;
    m_frame->GetWindowRect(window);
    EXPECT_EQ(E().GetCurrentClientSize(), CSize(EngineFrame::kWidth, EngineFrame::kHeight));
    EXPECT_EQ(E().GetBorderSize(), window.Size() - CSize(EngineFrame::kWidth, EngineFrame::kHeight));
    EXPECT_GT(E().GetBorderSize().cy, 0);
    EXPECT_TRUE(E().IsUp());
    m_frame->ShowWindow(SW_MINIMIZE);
    EXPECT_TRUE(E().IsWindow());
    EXPECT_FALSE(E().IsUp());
    EXPECT_EQ(E().GetBorderSize(), CSize(0, 0));
    EXPECT_EQ(E().GetSafeChildHWND(kId), nullptr);
    m_frame->ShowWindow(SW_RESTORE);
    EXPECT_EQ(E().GetSafeChildHWND(kId), m_child->m_hWnd);
}

TEST_F(DynamicWndRegister, FlagsAreRemovedFirstAndAddedThen)
{
    Engine engine(Dyn::FreedomXY, Dyn::FlagSizeIcon | Dyn::FlagCopyBits);
    EXPECT_EQ(engine.ModifyFlags(Dyn::FlagAntiFlicker | Dyn::FlagCopyBits, Dyn::FlagSizeIcon | Dyn::FlagCopyBits), 5u);
    EXPECT_EQ(engine.GetFlags(), 6u);
}

TEST_F(DynamicWndRegister, DisablingIsCounted)
{
    Engine engine;
    EXPECT_FALSE(engine.IsDisabled());
    engine.Disable();
    engine.Disable();
    EXPECT_TRUE(engine.IsDisabled());
    EXPECT_FALSE(engine.Enable());
    EXPECT_TRUE(engine.IsDisabled());
    EXPECT_TRUE(engine.Enable());
    EXPECT_FALSE(engine.IsDisabled());
}

// --- snapshots

TEST_F(DynamicWndRegister, ASnapshotHoldsSizesGrowthAndTheNumberOfChildren)
{
    Attach();
    ASSERT_TRUE(E().AllControls(Dyn::TopRight, false, false));
    E().m_szMin = CSize(0, 0);
    m_frame->GrowBy(-7, 9);
    const cdxCDynamicLayoutInfo info(&E());
    EXPECT_EQ(info.m_szInitial, CSize(EngineFrame::kWidth, EngineFrame::kHeight));
    EXPECT_EQ(info.m_szCurrent, info.m_szInitial + CSize(-7, 9));
    EXPECT_EQ(info.m_szDelta, CSize(-7, 9));
    EXPECT_EQ(info.m_nCtrlCnt, 2u);
    EXPECT_FALSE(info.m_bUseScrollPos);
    EXPECT_FALSE(info.IsInitial());
}

TEST_F(DynamicWndRegister, ASnapshotNeedsAWindowThatIsNotMinimised)
{
    cdxCDynamicLayoutInfo info;
    EXPECT_FALSE(info.m_bUseScrollPos);
    EXPECT_FALSE(info = static_cast<cdxCDynamicWnd*>(nullptr));
    Engine engine;
    EXPECT_FALSE(info = &engine);
    Attach();
    EXPECT_TRUE(info = &E());
    m_frame->ShowWindow(SW_MINIMIZE);
    EXPECT_FALSE(info = &E());
    EXPECT_EQ(info.m_szInitial, CSize(EngineFrame::kWidth, EngineFrame::kHeight)) << "nothing is changed";
}

TEST_F(DynamicWndRegister, ASnapshotReadsTheScrollPositionsOnlyWhenTheyCount)
{
    m_frame->ModifyStyle(0, WS_HSCROLL | WS_VSCROLL, SWP_FRAMECHANGED);
    for (const int bar : {SB_HORZ, SB_VERT})
    {
        SCROLLINFO range{};
        range.cbSize = sizeof range;
        range.fMask = SIF_RANGE | SIF_POS;
        range.nMax = 1000;
        range.nPos = bar == SB_HORZ ? 12 : 34;
        ::SetScrollInfo(m_frame->m_hWnd, bar, &range, TRUE);
    }
    Attach();
    cdxCDynamicLayoutInfo info(&E());
    EXPECT_TRUE(info.IsInitial()) << "scrolling doesn't count";
    E().m_bUseScrollPos = true;
    info = &E();
    EXPECT_TRUE(info.m_bUseScrollPos);
    EXPECT_EQ(info.m_nScrollX, 12);
    EXPECT_EQ(info.m_nScrollY, 34);
    EXPECT_FALSE(info.IsInitial());
    info.m_nScrollX = 0;
    EXPECT_FALSE(info.IsInitial());
    info.m_nScrollY = 0;
    EXPECT_TRUE(info.IsInitial());
    info.m_szDelta.cy = 1;
    EXPECT_FALSE(info.IsInitial());
}

TEST_F(DynamicWndRegister, ASnapshotKnowsItsClass)
{
    const cdxCDynamicLayoutInfo info;
    EXPECT_STREQ(info.GetRuntimeClass()->m_lpszClassName, "cdxCDynamicLayoutInfo");
    EXPECT_TRUE(info.IsKindOf(RUNTIME_CLASS(CObject)));
}

} // namespace
