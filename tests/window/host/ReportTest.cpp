// ReportTest.cpp - warnings and notices to the user
#include <string>
#include <utility>
#include <vector>

#include "../../support/WindowTest.h"
#include "tavkit/frame/services/Report.h"

using testing::ElementsAre;
using testing::Pair;

namespace
{
class Recorder : public Report::Receiver
{
public:
    std::vector<std::pair<Report::Kind, std::string>> m_reports;
    void OnReport(Report::Kind kind, char const* text) override { m_reports.emplace_back(kind, text); }
};

std::string TextOf(HWND window)
{
    char text[1024] = "";
    ::GetWindowTextA(window, text, sizeof(text));
    return text;
}

/// The text of a message box: its static control without a picture.
std::string BoxText(HWND box)
{
    std::string found;
    for (HWND child = ::GetWindow(box, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
    {
        char name[32] = "";
        ::GetClassNameA(child, name, sizeof(name));
        if (std::string(name) == "Static" && !TextOf(child).empty())
        {
            found = TextOf(child);
        }
    }
    return found;
}

/// Makes a window the application's main window for as long as a test runs.
class MainWindowScope
{
public:
    explicit MainWindowScope(CWnd* window) : m_before(AfxGetApp()->m_pMainWnd) { AfxGetApp()->m_pMainWnd = window; }
    ~MainWindowScope() { AfxGetApp()->m_pMainWnd = m_before; }

private:
    CWnd* m_before;
};

class ReportBox : public support::WindowTest
{
};
} // namespace

TEST(ReportReceiver, GetsTheKindAndThePrintedText)
{
    Recorder recorder;
    const Report::ReceiverScope scope(recorder);
    Report::UserWarning("%s: %d of %d", "tissue.png", 1, 3);
    Report::UserNotificationEnforced("done");
    EXPECT_THAT(recorder.m_reports, ElementsAre(Pair(Report::Kind::Warning, "tissue.png: 1 of 3"),
                                                Pair(Report::Kind::Notification, "done")));
}

TEST(ReportReceiver, GetsLongTextsWholeAndNullAsEmpty)
{
    Recorder recorder;
    const Report::ReceiverScope scope(recorder);
    const std::string text(5000, 'x');
    Report::UserWarning("%s", text.c_str());
    char const* const none = nullptr;
    Report::UserWarning(none);
    EXPECT_THAT(recorder.m_reports, ElementsAre(Pair(Report::Kind::Warning, text), Pair(Report::Kind::Warning, "")));
}

TEST(ReportReceiver, ScopesNestAndTheOuterOneTakesOverAgain)
{
    Recorder outer;
    Recorder inner;
    const Report::ReceiverScope outerScope(outer);
    {
        const Report::ReceiverScope innerScope(inner);
        Report::UserWarning("inner");
    }
    Report::UserWarning("outer");
    EXPECT_EQ(inner.m_reports.size(), 1u);
    EXPECT_THAT(outer.m_reports, ElementsAre(Pair(Report::Kind::Warning, "outer")));
}

TEST_F(ReportBox, AWarningStandsInABoxOwnedByTheMainWindow)
{
    support::TestFrame frame;
    const MainWindowScope main(&frame);
    std::string text;
    HWND owner = nullptr;
    bool ownerUsable = true;
    support::ModalHelper helper(AfxGetApp()->m_pszAppName, [&](HWND box) {
        text = BoxText(box);
        owner = ::GetWindow(box, GW_OWNER);
        ownerUsable = ::IsWindowEnabled(frame.m_hWnd) != FALSE;
        support::PressButton(box, IDOK);
    });
    Report::UserWarning("cannot read %s", "tissue.png");
    EXPECT_TRUE(helper.Done());
    EXPECT_EQ(text, "cannot read tissue.png");
    EXPECT_EQ(owner, frame.m_hWnd);
    EXPECT_FALSE(ownerUsable) << "the program waits for the user";
    EXPECT_TRUE(::IsWindowEnabled(frame.m_hWnd)) << "the call returned, so the box is closed";
    AllowGdiGrowth("the system keeps the icon of a message box");
}

TEST_F(ReportBox, ANoticeComesUpWithoutAMainWindowToo)
{
    const MainWindowScope main(nullptr);
    std::string text;
    support::ModalHelper helper(AfxGetApp()->m_pszAppName, [&](HWND box) {
        text = BoxText(box);
        support::PressButton(box, IDOK);
    });
    Report::UserNotificationEnforced("%d files written", 3);
    EXPECT_TRUE(helper.Done());
    EXPECT_EQ(text, "3 files written");
    AllowGdiGrowth("the system keeps the icon of a message box");
}
