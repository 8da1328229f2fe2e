#include "ProjectFixture.h"

#include "support/TiffWriter.h"

#include <filesystem>
#include <functional>
#include <utility>

using support::Button;

LRESULT WatchedTree::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    m_pressed = m_pressed || message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDOWN;
    return ProjectTree::DefWindowProc(message, wParam, lParam);
}

BOOL WatchedTree::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pLResult)
{
    const BOOL done = ProjectTree::OnChildNotify(message, wParam, lParam, pLResult);
    if (message == WM_NOTIFY)
    {
        const UINT code = reinterpret_cast<NMHDR*>(lParam)->code;
        m_dragsBegun += code == static_cast<UINT>(TVN_BEGINDRAG) || code == static_cast<UINT>(TVN_BEGINRDRAG);
    }
    return done;
}

void ProjectTest::SetUp()
{
    m_root = m_temp.MakeFolder("project");
    m_temp.MakeFolder("project\\sub");
    for (const char* name : {"sub\\x.tif", "sub\\y.tif", "a.tif", "b.png", "t.csv"})
    {
        m_temp.Write("project\\" + std::string(name), "");
    }
    support::TiffWriter stack;
    for (int page = 0; page < 3; ++page)
    {
        stack.AddPage({.width = 2, .height = 2});
    }
    ASSERT_TRUE(stack.Save(FilePath("stack.tif")));
    m_drivers.emplace();
    // What the system keeps from the first tree with glyphs and the first pop-up menu on.
    static const bool warm = WarmUp();
    ASSERT_TRUE(warm);
    WindowTest::SetUp();
}

bool ProjectTest::WarmUp()
{
    Open();
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 1, "x");
    const support::ModalHelper helper([] { return support::FindThreadWindow("#32768", nullptr); },
                                      [](HWND window) {
                                          ::UpdateWindow(window);
                                          ::EndMenu();
                                      });
    menu.TrackPopupMenu(0, 0, 0, m_frame.get());
    CloseWindows();
    return helper.Done();
}

void ProjectTest::CloseWindows()
{
    m_tree.reset();
    m_frame.reset();
    m_font.DeleteObject();
    support::Settle();
}

void ProjectTest::TearDown()
{
    CloseWindows();
    if (m_drivers)
    {
        EXPECT_EQ(m_drivers->Folders().Live(), repository::LiveCounts{});
        EXPECT_EQ(m_drivers->Pages().Live(), repository::LiveCounts{});
        m_drivers.reset();
    }
    std::error_code error;
    std::filesystem::remove_all(m_root, error);
    WindowTest::TearDown();
}

void ProjectTest::OpenWindow()
{
    m_frame = std::make_unique<support::TestFrame>();
    m_tree = std::make_unique<WatchedTree>();
    m_font.CreatePointFont(80, "MS Shell Dlg");
    ASSERT_TRUE(m_tree->Create(CRect(20, 20, 320, 340), m_frame.get(), kTreeId, &m_font));
    m_tree->SetFocus();
}

void ProjectTest::Open()
{
    OpenWindow();
    ASSERT_TRUE(m_tree->OpenFolder(m_root));
    support::Settle();
    m_frame->Clear();
}

std::string ProjectTest::Rows() const
{
    const std::function<std::string(HTREEITEM)> text = [&](HTREEITEM row) {
        std::string line = static_cast<LPCTSTR>(m_tree->GetItemText(row));
        HTREEITEM child = m_tree->GetChildItem(row);
        if (!child)
        {
            return m_tree->ItemHasChildren(row) ? line + "+" : line;
        }
        line += "(";
        for (; child; child = m_tree->GetNextSiblingItem(child))
        {
            line += text(child) + (m_tree->GetNextSiblingItem(child) ? " " : "");
        }
        return line + ")";
    };
    const HTREEITEM root = m_tree->GetRootItem();
    return root ? text(root) : "";
}

HTREEITEM ProjectTest::Row(const char* label) const { return m_tree->FindItem(CString(label)); }

std::string ProjectTest::Chosen() const
{
    const workbench::ProjectItem* const item = m_tree->Chosen();
    return item ? item->label : "";
}

POINT ProjectTest::PlaceOf(const char* label) const
{
    CRect rect;
    EXPECT_TRUE(m_tree->GetItemRect(Row(label), rect, TRUE)) << label;
    return support::ScreenPoint(m_tree->m_hWnd, rect.CenterPoint().x, rect.CenterPoint().y);
}

POINT ProjectTest::EmptyPlace() const
{
    CRect client;
    m_tree->GetClientRect(client);
    return support::ScreenPoint(m_tree->m_hWnd, client.right - 20, client.bottom - 8);
}

void ProjectTest::Choose(const char* label)
{
    m_tree->SelectItem(Row(label));
    support::Settle();
    EXPECT_EQ(Chosen(), label);
}

void ProjectTest::Unfold(const char* label)
{
    Choose(label);
    support::PressKey(VK_RIGHT);
    support::Settle();
}

void ProjectTest::Pull(const char* label, Button button)
{
    // From a second thread: the control waits in a loop of its own for what becomes of the press.
    const POINT place = PlaceOf(label);
    m_tree->m_pressed = false;
    WatchedTree* const tree = m_tree.get();
    const int before = tree->m_dragsBegun;
    const auto begun = [=] { return tree->m_dragsBegun > before; };
    const support::InputThread input({[=] { support::MoveMouse(place); }, [=] { support::Press(button); },
                                      [=] { EXPECT_TRUE(support::WaitFor([=] { return tree->m_pressed.load(); })); },
                                      [=] {
                                          // A move that comes before the control waits for it is lost.
                                          bool pulled = false;
                                          EXPECT_TRUE(support::WaitFor([&] {
                                              pulled = !pulled;
                                              support::MoveMouse({place.x + (pulled ? 12 : 10), place.y});
                                              return begun();
                                          }));
                                      }});
    EXPECT_TRUE(support::PumpUntil(begun));
    support::Settle();
}

void ProjectTest::MoveTo(POINT place)
{
    support::MoveMouse(place);
    support::Settle();
}

void ProjectTest::Release(Button button)
{
    support::Release(button);
    support::Settle();
}

void ProjectTest::Drag(const char* label, POINT to)
{
    Pull(label, Button::left);
    MoveTo(to);
    Release(Button::left);
    EXPECT_FALSE(m_tree->IsDragging());
}

void ProjectTest::RightDrag(const char* label, POINT to, WORD answer)
{
    Pull(label, Button::right);
    MoveTo(to);
    const support::ModalHelper menu([] { return support::FindThreadWindow("#32768", nullptr); },
                                    [answer](HWND) { support::PressKey(answer); });
    support::Release(Button::right);
    EXPECT_TRUE(support::PumpUntil([&] { return menu.Done() && !m_tree->IsDragging(); }));
    support::Settle();
    static bool first = true;
    if (std::exchange(first, false))
    {
        AllowGdiGrowth("the system keeps the cursor that it shows over a menu");
    }
}
