// LayersTest.cpp - the window of the layers, by mouse and keyboard
#include "WorkbenchFixture.h"

#include "workbench/resource.h"

namespace e2e
{
namespace
{
using support::Click;
using support::PressKey;
using support::PumpUntil;
using testing::HasSubstr;
using testing::StartsWith;

// Places of the cards, in the list's client area. Three pictures stand in the first group, from the top.
constexpr int kRow = 34;
constexpr int kFirstRow = 18;
constexpr POINT kImagesPlus{20, 15};
constexpr int kTextX = 90;

class Layers : public WorkbenchTest
{
protected:
    void SetUp() override
    {
        WorkbenchTest::SetUp();
        WriteTwoColours("a.bmp", 60, 40);
        WriteTwoColours("b.bmp", 50, 40);
        WriteTwoColours("c.bmp", 40, 40);
        WriteFile("a_objects.csv", "Nr,X,Y\r\n1,10,10\r\n");
        WriteFile("notes.csv", "Nr,X,Y\r\n1,10,10\r\n");
        Start((Folder() / "a.bmp").string());
        ASSERT_TRUE(Shows((Folder() / "a.bmp").string()));
        PressKey('L', {VK_CONTROL});
        ASSERT_TRUE(PumpUntil([this] { return LayerWindow() != nullptr; }));
        m_list = ::GetDlgItem(LayerWindow(), IDC_LAYER_LIST);
    }

    /// The window of the layers while it is shown, else null.
    [[nodiscard]] HWND LayerWindow()
    {
        HWND window = nullptr;
        while ((window = ::FindWindowExA(nullptr, window, nullptr, nullptr)) != nullptr)
        {
            if (::GetWindow(window, GW_OWNER) == Workbench().Window() && ::IsWindowVisible(window) &&
                ::GetDlgItem(window, IDC_LAYER_LIST) != nullptr)
            {
                return window;
            }
        }
        return nullptr;
    }
    [[nodiscard]] bool HasTitle(const std::string& title)
    {
        return PumpUntil([&] { return TextOf(LayerWindow()) == title; });
    }
    void ClickAt(int x, int y) { Click(support::ScreenPoint(m_list, x, y)); }
    void ClickCard(int row) { ClickAt(kTextX, kFirstRow + row * kRow); }
    [[nodiscard]] int RemoveX() const
    {
        RECT client{};
        ::GetClientRect(m_list, &client);
        return client.right - 21;
    }

    HWND m_list = nullptr;
};

TEST_F(Layers, CountsWhatTheProjectHolds) { EXPECT_TRUE(HasTitle("Layers: 3 images, 1 table, 1 result")); }

TEST_F(Layers, AClickOnACardShowsThePicture)
{
    ClickCard(1);
    EXPECT_TRUE(Shows((Folder() / "b.bmp").string()));
    EXPECT_EQ(Workbench().TreeChosen(), "b.bmp");
    PressKey(VK_DOWN);
    EXPECT_TRUE(Shows((Folder() / "c.bmp").string())) << "the keyboard does too";
}

TEST_F(Layers, AClickOnATableOpensIt)
{
    ClickCard(3);
    EXPECT_TRUE(PumpUntil([this] { return Workbench().RowCount(Workbench().Table()) == 1; }));
}

TEST_F(Layers, TheMinusTakesALayerOutAndThePlusBringsItBack)
{
    ClickAt(RemoveX(), kFirstRow);
    EXPECT_TRUE(HasTitle("Layers: 2 images, 1 table, 1 result"));
    EXPECT_TRUE(std::filesystem::exists(Folder() / "a.bmp"));
    EXPECT_NE(Workbench().TreeRow("a.bmp"), nullptr) << "the project still has it";
    ClickCard(0);
    EXPECT_TRUE(Shows((Folder() / "b.bmp").string())) << "the next one moved up";

    ClickAt(kImagesPlus.x, kImagesPlus.y);
    ASSERT_TRUE(PumpUntil([this] { return Workbench().Popup(kMenuClass) != nullptr; }));
    EXPECT_TRUE(ClickUntil(Workbench().Popup(kMenuClass), [this] { return Workbench().Popup(kMenuClass) == nullptr; }))
        << "the one entry";
    EXPECT_TRUE(HasTitle("Layers: 3 images, 1 table, 1 result"));
    ClickCard(2);
    EXPECT_TRUE(Shows((Folder() / "a.bmp").string())) << "at the end";
}

TEST_F(Layers, AnArrowMovesALayer)
{
    RECT client{};
    ::GetClientRect(m_list, &client);
    ClickAt(client.right - 5, 28); // the first card's arrow down
    support::MoveMouse(support::ScreenPoint(m_list, kTextX, kFirstRow));
    ClickCard(0);
    EXPECT_TRUE(Shows((Folder() / "b.bmp").string()));
    ClickCard(1);
    EXPECT_TRUE(Shows((Folder() / "a.bmp").string()));
}

TEST_F(Layers, EscAndTheCommandHideIt)
{
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(PumpUntil([this] { return LayerWindow() == nullptr; }));
    PressKey('L', {VK_CONTROL});
    EXPECT_TRUE(PumpUntil([this] { return LayerWindow() != nullptr; }));
    Click(Workbench().View());
    PressKey('L', {VK_CONTROL});
    EXPECT_TRUE(PumpUntil([this] { return LayerWindow() == nullptr; }));
}
} // namespace
} // namespace e2e
