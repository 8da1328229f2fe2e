// TreeKeysTest.cpp - keys of the system while a tree has the focus

#include "TreeFixture.h"

#include <algorithm>

using support::PressKey;
using support::PumpUntil;

class TreeKeys : public TreeTest
{
protected:
    void SetUp() override
    {
        TreeTest::SetUp();
        Open();
        m_tree->SelectItem(Add("alpha"));
        support::Settle();
    }
};

TEST_F(TreeKeys, AltF4ClosesTheWindowOnce)
{
    PressKey(VK_F4, {VK_MENU});
    EXPECT_TRUE(PumpUntil([&] { return m_frame->Count(WM_CLOSE) > 0; }));
    support::Settle();
    EXPECT_EQ(m_frame->Count(WM_CLOSE), 1);
}

TEST_F(TreeKeys, AKeyWithAltIsToldToTheHook)
{
    PressKey('X', {VK_MENU});
    EXPECT_TRUE(PumpUntil([&] { return std::ranges::count(m_tree->m_keys, 'X') == 1; }));
}
