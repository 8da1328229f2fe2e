// HandlerArgumentsTest.cpp - what each handler of a window message is given, and what becomes of its answer

#include "support/WindowTest.h"

#include <array>

namespace
{
constexpr LRESULT kAnswer = 0x1234;
constexpr UINT kNumber = WM_APP + 5;
const UINT kRegistered = ::RegisterWindowMessageA("TavKit.Tests.HandlerArguments");

/// Things that messages point to.
CREATESTRUCTA g_create = {};
MINMAXINFO g_minMax = {};
RECT g_rect = {};

/// Notes each handler with its arguments, and answers what can be answered with the same value.
class Recorder : public CWnd
{
public:
    std::string m_call;

    CWnd* m_other = nullptr;
    HDC m_hDC = nullptr;

protected:
    void Note(const char* name, std::initializer_list<long long> values)
    {
        m_call = name;
        for (const long long value : values)
        {
            m_call += " " + std::to_string(value);
        }
    }
    int Known(const CWnd* wnd) const { return wnd == m_other ? 1 : wnd == nullptr ? 0 : -1; }
    int Known(const CDC* dc) const { return dc != nullptr && dc->m_hDC == m_hDC ? 1 : 0; }

    int OnCreate(LPCREATESTRUCT create)
    {
        Note("create", {create == &g_create});
        return kAnswer;
    }
    void OnDestroy() { Note("destroy", {}); }
    void OnPaint() { Note("paint", {}); }
    BOOL OnEraseBkgnd(CDC* dc)
    {
        Note("erase", {Known(dc)});
        return kAnswer;
    }
    void OnSize(UINT type, int cx, int cy) { Note("size", {type, cx, cy}); }
    void OnSizing(UINT side, LPRECT rect) { Note("sizing", {side, rect == &g_rect}); }
    void OnGetMinMaxInfo(MINMAXINFO* info) { Note("minmax", {info == &g_minMax}); }
    void OnParentNotify(UINT message, LPARAM lParam) { Note("parentnotify", {message, lParam}); }
    void OnTimer(UINT_PTR id) { Note("timer", {static_cast<long long>(id)}); }
    BOOL OnSetCursor(CWnd* wnd, UINT hit, UINT message)
    {
        Note("setcursor", {Known(wnd), hit, message});
        return kAnswer;
    }
    void OnSetFocus(CWnd* wnd) { Note("setfocus", {Known(wnd)}); }
    void OnKillFocus(CWnd* wnd) { Note("killfocus", {Known(wnd)}); }
    void OnChar(UINT key, UINT repeat, UINT flags) { Note("char", {key, repeat, flags}); }
    void OnKeyDown(UINT key, UINT repeat, UINT flags) { Note("keydown", {key, repeat, flags}); }
    void OnKeyUp(UINT key, UINT repeat, UINT flags) { Note("keyup", {key, repeat, flags}); }
    UINT OnGetDlgCode()
    {
        Note("dlgcode", {});
        return kAnswer;
    }
    void OnMouseMove(UINT flags, CPoint point) { Note("move", {flags, point.x, point.y}); }
    void OnLButtonDown(UINT flags, CPoint point) { Note("ldown", {flags, point.x, point.y}); }
    void OnLButtonUp(UINT flags, CPoint point) { Note("lup", {flags, point.x, point.y}); }
    void OnLButtonDblClk(UINT flags, CPoint point) { Note("ldouble", {flags, point.x, point.y}); }
    void OnRButtonDown(UINT flags, CPoint point) { Note("rdown", {flags, point.x, point.y}); }
    void OnRButtonUp(UINT flags, CPoint point) { Note("rup", {flags, point.x, point.y}); }
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point)
    {
        Note("wheel", {flags, delta, point.x, point.y});
        return kAnswer;
    }
    HBRUSH OnCtlColor(CDC* dc, CWnd* wnd, UINT kind)
    {
        Note("ctlcolor", {Known(dc), Known(wnd), kind});
        return reinterpret_cast<HBRUSH>(kAnswer);
    }
    LRESULT OnNumber(WPARAM wParam, LPARAM lParam)
    {
        Note("number", {static_cast<long long>(wParam), lParam});
        return kAnswer;
    }
    LRESULT OnRegistered(WPARAM wParam, LPARAM lParam)
    {
        Note("registered", {static_cast<long long>(wParam), lParam});
        return kAnswer;
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Recorder, CWnd)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_SIZE()
    ON_WM_SIZING()
    ON_WM_GETMINMAXINFO()
    ON_WM_PARENTNOTIFY()
    ON_WM_TIMER()
    ON_WM_SETCURSOR()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_CHAR()
    ON_WM_KEYDOWN()
    ON_WM_KEYUP()
    ON_WM_GETDLGCODE()
    ON_WM_MOUSEMOVE()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_RBUTTONDOWN()
    ON_WM_RBUTTONUP()
    ON_WM_MOUSEWHEEL()
    ON_WM_CTLCOLOR()
    ON_MESSAGE(kNumber, &Recorder::OnNumber)
    ON_REGISTERED_MESSAGE(kRegistered, &Recorder::OnRegistered)
END_MESSAGE_MAP()

/// What a message carries besides plain numbers.
enum class Carries
{
    Nothing,
    OtherInFirst,    ///< wParam is the other window
    ContextInFirst,  ///< wParam is the device context
    ContextAndOther, ///< wParam is the device context, lParam the other window
};

struct Row
{
    const char* name;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    Carries carries;
    const char* call;
    LRESULT answer;
};

const LPARAM kLeftOfIt = MAKELPARAM(static_cast<WORD>(-3), static_cast<WORD>(-70));

const std::array kRows = {
    Row{"Create", WM_CREATE, 0, reinterpret_cast<LPARAM>(&g_create), Carries::Nothing, "create 1", kAnswer},
    Row{"Destroy", WM_DESTROY, 0, 0, Carries::Nothing, "destroy", 0},
    Row{"Paint", WM_PAINT, 0, 0, Carries::Nothing, "paint", 0},
    Row{"Erase", WM_ERASEBKGND, 0, 0, Carries::ContextInFirst, "erase 1", kAnswer},
    Row{"SizeIsUnsigned", WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(40000, 50000), Carries::Nothing, "size 2 40000 50000", 0},
    Row{"Sizing", WM_SIZING, WMSZ_BOTTOMRIGHT, reinterpret_cast<LPARAM>(&g_rect), Carries::Nothing, "sizing 8 1", 0},
    Row{"MinMax", WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&g_minMax), Carries::Nothing, "minmax 1", 0},
    // The whole word: event 1 (WM_CREATE) below, id 7 above.
    Row{"ParentNotify", WM_PARENTNOTIFY, MAKEWPARAM(WM_CREATE, 7), 9, Carries::Nothing, "parentnotify 458753 9", 0},
    Row{"TimerIsPointerWide", WM_TIMER, 0x123456789A, 0, Carries::Nothing, "timer 78187493530", 0},
    Row{"SetCursor", WM_SETCURSOR, 0, MAKELPARAM(HTCAPTION, WM_MOUSEMOVE), Carries::OtherInFirst, "setcursor 1 2 512",
        kAnswer},
    Row{"SetFocus", WM_SETFOCUS, 0, 0, Carries::OtherInFirst, "setfocus 1", 0},
    Row{"SetFocusFromNobody", WM_SETFOCUS, 0, 0, Carries::Nothing, "setfocus 0", 0},
    Row{"KillFocus", WM_KILLFOCUS, 0, 0, Carries::OtherInFirst, "killfocus 1", 0},
    Row{"Char", WM_CHAR, 'x', MAKELPARAM(3, 0xC01E), Carries::Nothing, "char 120 3 49182", 0},
    Row{"KeyDown", WM_KEYDOWN, VK_F2, MAKELPARAM(2, 0x003C), Carries::Nothing, "keydown 113 2 60", 0},
    Row{"KeyUp", WM_KEYUP, VK_F2, MAKELPARAM(1, 0xC03C), Carries::Nothing, "keyup 113 1 49212", 0},
    Row{"DialogCode", WM_GETDLGCODE, 0, 0, Carries::Nothing, "dlgcode", kAnswer},
    Row{"MoveIsSigned", WM_MOUSEMOVE, MK_SHIFT, kLeftOfIt, Carries::Nothing, "move 4 -3 -70", 0},
    Row{"LeftDown", WM_LBUTTONDOWN, MK_LBUTTON, kLeftOfIt, Carries::Nothing, "ldown 1 -3 -70", 0},
    Row{"LeftUp", WM_LBUTTONUP, 0, kLeftOfIt, Carries::Nothing, "lup 0 -3 -70", 0},
    Row{"LeftDouble", WM_LBUTTONDBLCLK, MK_LBUTTON, kLeftOfIt, Carries::Nothing, "ldouble 1 -3 -70", 0},
    Row{"RightDown", WM_RBUTTONDOWN, MK_RBUTTON, kLeftOfIt, Carries::Nothing, "rdown 2 -3 -70", 0},
    Row{"RightUp", WM_RBUTTONUP, 0, kLeftOfIt, Carries::Nothing, "rup 0 -3 -70", 0},
    Row{"WheelTowardsTheUser", WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(-120)), kLeftOfIt,
        Carries::Nothing, "wheel 8 -120 -3 -70", kAnswer},
    Row{"ColourOfAnEdit", WM_CTLCOLOREDIT, 0, 0, Carries::ContextAndOther, "ctlcolor 1 1 1", kAnswer},
    Row{"ColourOfAListBox", WM_CTLCOLORLISTBOX, 0, 0, Carries::ContextAndOther, "ctlcolor 1 1 2", kAnswer},
    Row{"ColourOfAButton", WM_CTLCOLORBTN, 0, 0, Carries::ContextAndOther, "ctlcolor 1 1 3", kAnswer},
    Row{"ColourOfADialog", WM_CTLCOLORDLG, 0, 0, Carries::ContextAndOther, "ctlcolor 1 1 4", kAnswer},
    Row{"ColourOfAScrollBar", WM_CTLCOLORSCROLLBAR, 0, 0, Carries::ContextAndOther, "ctlcolor 1 1 5", kAnswer},
    Row{"ColourOfAStatic", WM_CTLCOLORSTATIC, 0, 0, Carries::ContextAndOther, "ctlcolor 1 1 6", kAnswer},
    Row{"Number", kNumber, 7, -8, Carries::Nothing, "number 7 -8", kAnswer},
    Row{"Registered", kRegistered, 5, -6, Carries::Nothing, "registered 5 -6", kAnswer},
};

class HandlerArguments : public support::WindowTest, public testing::WithParamInterface<Row>
{
};
} // namespace

TEST_P(HandlerArguments, ComeFromTheMessageAndTheAnswerGoesBack)
{
    const Row& row = GetParam();
    support::TestFrame frame;
    CWnd other;
    Recorder recorder;
    ASSERT_TRUE(other.Create(nullptr, "", 0, CRect(0, 0, 9, 9), &frame, 1));
    ASSERT_TRUE(recorder.Create(nullptr, "", 0, CRect(0, 0, 9, 9), &frame, 2));
    recorder.m_other = &other;
    WPARAM wParam = row.wParam;
    LPARAM lParam = row.lParam;
    const CClientDC dc(&other);
    recorder.m_hDC = dc.m_hDC;
    if (row.carries == Carries::OtherInFirst)
    {
        wParam = reinterpret_cast<WPARAM>(other.m_hWnd);
    }
    else if (row.carries != Carries::Nothing)
    {
        wParam = reinterpret_cast<WPARAM>(dc.m_hDC);
        lParam = row.carries == Carries::ContextAndOther ? reinterpret_cast<LPARAM>(other.m_hWnd) : lParam;
    }
    recorder.m_call.clear();
    EXPECT_EQ(recorder.SendMessage(row.message, wParam, lParam), row.answer);
    EXPECT_EQ(recorder.m_call, row.call);
}

INSTANTIATE_TEST_SUITE_P(Messages, HandlerArguments, testing::ValuesIn(kRows),
                         [](const auto& info) { return std::string(info.param.name); });

namespace
{
class WheelParent : public CWnd
{
public:
    int m_turns = 0;

protected:
    BOOL OnMouseWheel(UINT, short, CPoint)
    {
        ++m_turns;
        return TRUE;
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(WheelParent, CWnd)
    ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()

enum class Turn
{
    Declined,
    Taken,
    BasesAnswer,   // that of the base's handler is given on
    TakenAfterBase // the base's handler runs all the same
};

class WheelChild : public CWnd
{
public:
    Turn m_turn = Turn::Declined;
    int m_defaults = 0;

protected:
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point)
    {
        switch (m_turn)
        {
        case Turn::BasesAnswer:
            return CWnd::OnMouseWheel(flags, delta, point);
        case Turn::TakenAfterBase:
            CWnd::OnMouseWheel(flags, delta, point);
            return TRUE;
        default:
            return m_turn == Turn::Taken;
        }
    }
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        m_defaults += message == WM_MOUSEWHEEL;
        return CWnd::DefWindowProc(message, wParam, lParam);
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(WheelChild, CWnd)
    ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()

class Wheel : public support::WindowTest
{
};
} // namespace

struct WheelRow
{
    const char* name;
    Turn turn;
    int defaults;
};

class WheelTurn : public Wheel, public testing::WithParamInterface<WheelRow>
{
};

TEST_P(WheelTurn, GoesToTheDefaultAndToTheParentOnceAtMost)
{
    support::TestFrame frame;
    WheelParent parent;
    WheelChild child;
    ASSERT_TRUE(parent.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 90, 90), &frame, 1));
    ASSERT_TRUE(child.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), &parent, 2));
    child.m_turn = GetParam().turn;
    child.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(child.m_defaults, GetParam().defaults);
    EXPECT_EQ(parent.m_turns, GetParam().defaults);
}

INSTANTIATE_TEST_SUITE_P(Answers, WheelTurn,
                         testing::Values(WheelRow{"Declined", Turn::Declined, 1}, WheelRow{"Taken", Turn::Taken, 0},
                                         WheelRow{"BasesAnswer", Turn::BasesAnswer, 1},
                                         WheelRow{"TakenAfterBase", Turn::TakenAfterBase, 1}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(Wheel, ATurnThatIsPassedUpIsDeclinedByEachWindowOnItsOwn)
{
    support::TestFrame frame;
    WheelParent top;
    WheelChild middle;
    WheelChild child;
    ASSERT_TRUE(top.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 90, 90), &frame, 1));
    ASSERT_TRUE(middle.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 80, 80), &top, 2));
    ASSERT_TRUE(child.Create(nullptr, "", WS_VISIBLE, CRect(0, 0, 50, 50), &middle, 3));
    child.m_turn = Turn::BasesAnswer; // whose default has run while the others are asked
    child.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(child.m_defaults, 1);
    EXPECT_EQ(middle.m_defaults, 1);
    EXPECT_EQ(top.m_turns, 1);
}
