#include "ThematicFixture.h"

#include "tavkit/frame/ModuleHandle.h"
#include "tavkit/resources/resource.h"

using support::Button;

namespace
{

constexpr int kLeft = 20;
constexpr int kTop = 20;
constexpr int kListId = 88;

/// Opens what all lists of a process share: the strip of arrows and the fonts of links; and the hand and the icon,
/// which the system keeps.
void OpenShared()
{
    static bool opened = false;
    if (!std::exchange(opened, true))
    {
        delete Item::Create("first", kGreenIcon, 0, true);
        Group::Delete(Group::Create("first", "", 0, 0, 0));
        ::LoadCursorA(tavkit::ModuleInstance(), MAKEINTRESOURCE(IDC_TMTC_HAND));
    }
}

} // namespace

void ThematicTest::SetUp()
{
    OpenShared();
    WindowTest::SetUp();
    m_list = std::make_unique<HookList>();
}

void ThematicTest::TearDown()
{
    m_list.reset();
    m_frame.reset();
    WindowTest::TearDown();
}

void ThematicTest::Open(int width, int height)
{
    m_frame = std::make_unique<support::TestFrame>();
    ASSERT_TRUE(m_list->Create(WS_CHILD | WS_VISIBLE, CRect(kLeft, kTop, kLeft + width, kTop + height), m_frame.get(),
                               kListId));
    Paint();
}

void ThematicTest::Paint()
{
    m_list->Invalidate(FALSE);
    support::Settle();
}

Group* ThematicTest::AddGroup(int items, const char* id)
{
    Group* const group = NewGroup("Layers", id);
    for (int i = 0; i < items; ++i)
    {
        group->AddTail(NewItem());
    }
    m_list->AddTail(group);
    m_list->RepositionItems();
    return group;
}

HITTEST ThematicTest::Hit(int x, int y)
{
    HITTEST hit;
    m_list->HitTest(CPoint(x, y), &hit);
    return hit;
}

CRect ThematicTest::PartAt(int x, int y)
{
    CRect rect;
    if (Elmt::DrawElmt* const element = Hit(x, y).pDrawElmt)
    {
        element->GetRect(rect);
    }
    return rect;
}

CRect ThematicTest::ButtonOf(Group* group, Item* item, unsigned long id)
{
    constexpr int kStep = 4; // smaller than any button
    CRect client;
    m_list->GetClientRect(&client);
    for (int y = 0; y < client.bottom; y += kStep)
    {
        for (int x = 0; x < client.right; x += kStep)
        {
            HITTEST const hit = Hit(x, y);
            auto const* const button = dynamic_cast<Elmt::ButtonBase*>(hit.pDrawElmt);
            if (button != nullptr && button->GetID() == id && hit.pGroup == group && hit.pItem == item)
            {
                CRect rect;
                button->GetRect(rect);
                return rect;
            }
        }
    }
    return {};
}

void ThematicTest::MoveTo(CPoint client)
{
    support::MoveMouse(support::ScreenPoint(m_list->m_hWnd, client.x, client.y));
    support::Settle();
}

void ThematicTest::PressAt(CPoint client, Button button)
{
    MoveTo(client);
    support::Press(button);
    support::Settle();
}

void ThematicTest::ReleaseAt(CPoint client, Button button)
{
    MoveTo(client);
    support::Release(button);
    support::Settle();
}

void ThematicTest::ClickAt(CPoint client, Button button)
{
    PressAt(client, button);
    support::Release(button);
    support::Settle();
}
