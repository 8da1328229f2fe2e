// ProjectTreeTest.cpp - the project tree over real folders, with a real mouse and keyboard
#include "ProjectFixture.h"

#include "host/FileBytes.h"
#include "support/FolderLink.h"
#include "tavkit/frame/services/BDIDrvrMngr.h"

#include <filesystem>
#include <set>

using support::Button;
using support::PressKey;
using support::PumpUntil;
using support::TypeText;
using namespace workbench;

namespace
{
void Remove(const std::string& path)
{
    std::error_code error;
    std::filesystem::remove_all(path, error);
}

class ProjectRows : public ProjectTest
{
};
class ProjectDrag : public ProjectTest
{
};
class ProjectEdit : public ProjectTest
{
};
class ProjectSearch : public ProjectTest
{
};
class ProjectHostile : public ProjectTest
{
};
} // namespace

TEST_F(ProjectRows, AreTheOpenedFolderUnfoldedOnce)
{
    Open();
    EXPECT_EQ(Rows(), "project(sub+ a.tif b.png stack.tif+ t.csv)");
    EXPECT_EQ(m_drivers->Folders().Live(), (repository::LiveCounts{1, 0, 0})) << "only the repository stays open";
    EXPECT_EQ(m_drivers->Pages().Live(), repository::LiveCounts{});
}

TEST_F(ProjectRows, AreReadWhenAFolderIsUnfolded)
{
    Open();
    m_temp.Write("project\\sub\\z.tif", "");
    Unfold("sub");
    EXPECT_EQ(Rows(), "project(sub(x.tif y.tif z.tif) a.tif b.png stack.tif+ t.csv)");
    PressKey(VK_LEFT);
    m_temp.Write("project\\sub\\z2.tif", "");
    Unfold("sub");
    EXPECT_EQ(Rows(), "project(sub(x.tif y.tif z.tif) a.tif b.png stack.tif+ t.csv)") << "once";
    EXPECT_EQ(m_drivers->Folders().Live(), (repository::LiveCounts{1, 0, 0}));
}

TEST_F(ProjectRows, AnEmptyFolderLosesItsButton)
{
    m_temp.MakeFolder("project\\empty");
    Open();
    EXPECT_EQ(Rows(), "project(empty+ sub+ a.tif b.png stack.tif+ t.csv)");
    Unfold("empty");
    EXPECT_EQ(Rows(), "project(empty sub+ a.tif b.png stack.tif+ t.csv)");
}

TEST_F(ProjectRows, APictureOfSeveralPagesHoldsThem)
{
    Open();
    Unfold("stack.tif");
    EXPECT_EQ(Rows(), "project(sub+ a.tif b.png stack.tif(Page 0 Page 1 Page 2) t.csv)");
    Choose("Page 1");
    EXPECT_EQ(m_tree->Chosen()->moniker, FilePath("stack.tif?page=1"));
    EXPECT_EQ(m_drivers->Pages().Live(), repository::LiveCounts{});
}

TEST_F(ProjectRows, HaveAGlyphForEachKind)
{
    m_temp.Write("project\\v.shp", "");
    Open();
    std::set<int> images;
    for (const char* label : {"sub", "a.tif", "t.csv", "v.shp"})
    {
        int image = -1;
        int selected = -1;
        ASSERT_TRUE(m_tree->GetItemImage(Row(label), image, selected));
        EXPECT_EQ(image, selected);
        EXPECT_TRUE(images.insert(image).second) << label << " looks like another kind";
    }
    int picture = 0;
    int other = 0;
    int selected = 0;
    m_tree->GetItemImage(Row("a.tif"), picture, selected);
    m_tree->GetItemImage(Row("b.png"), other, selected);
    EXPECT_EQ(picture, other);
    // The folder's square and the picture's circle stand to the left of the label.
    CRect label;
    m_tree->GetItemRect(Row("sub"), label, TRUE);
    EXPECT_EQ(support::ClientPixel(m_tree->m_hWnd, label.left - 11, label.CenterPoint().y), RGB(244, 200, 84));
    m_tree->GetItemRect(Row("a.tif"), label, TRUE);
    EXPECT_EQ(support::ClientPixel(m_tree->m_hWnd, label.left - 11, label.CenterPoint().y), RGB(96, 184, 104));
}

TEST_F(ProjectRows, TellWhenTheUserChoosesAnotherItem)
{
    Open();
    support::Click(PlaceOf("b.png"));
    EXPECT_TRUE(PumpUntil([&] { return Told(projectChosen) == 1; }));
    EXPECT_EQ(Chosen(), "b.png");
    PressKey(VK_UP);
    EXPECT_TRUE(PumpUntil([&] { return Told(projectChosen) == 2; }));
    EXPECT_EQ(Chosen(), "a.tif");
    EXPECT_TRUE(m_tree->ChooseMoniker(FilePath("t.csv")));
    EXPECT_EQ(Chosen(), "t.csv");
    EXPECT_TRUE(m_tree->ChooseMoniker(FilePath("T.CSV")));
    EXPECT_FALSE(m_tree->ChooseMoniker(FilePath("none")));
    EXPECT_EQ(Chosen(), "");
    EXPECT_EQ(Told(projectChosen), 2) << "a program's choice isn't told";
}

TEST_F(ProjectRows, AChosenMonikerIsUnfolded)
{
    Open();
    Unfold("sub");
    PressKey(VK_LEFT);
    support::Settle();
    EXPECT_TRUE(m_tree->ChooseMoniker(FilePath("sub\\y.tif")));
    EXPECT_EQ(Chosen(), "y.tif");
    EXPECT_NE(m_tree->GetItemState(Row("sub"), TVIS_EXPANDED), 0u);
}

TEST_F(ProjectRows, AReloadShowsTheFolderAsItIsNow)
{
    Open();
    Choose("a.tif");
    m_tree->Do(ProjectCommand::remove);
    m_temp.Write("project\\c.gif", "");
    m_tree->Reload();
    EXPECT_EQ(Rows(), "project(sub+ a.tif b.png c.gif stack.tif+ t.csv)");
    Remove(m_root);
    m_tree->Reload();
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(m_tree->Chosen(), nullptr);
    EXPECT_EQ(m_drivers->Folders().Live(), repository::LiveCounts{});
}

TEST_F(ProjectRows, WhatWasImportedComesBackWithAFolderThatWasAway)
{
    Open();
    ASSERT_TRUE(m_tree->Import({{bdiRaster, m_temp.Write("other.tif", ""), "other.tif"}}));
    ASSERT_THAT(Rows(), testing::HasSubstr("other.tif"));
    const std::string away = m_root + ".away";
    ASSERT_TRUE(::MoveFileA(m_root.c_str(), away.c_str()));
    m_tree->Reload();
    EXPECT_EQ(Rows(), "");
    m_tree->Reload();
    EXPECT_EQ(Rows(), "");
    ASSERT_TRUE(::MoveFileA(away.c_str(), m_root.c_str()));
    m_tree->Reload();
    EXPECT_THAT(Rows(), testing::HasSubstr("other.tif"));
}

TEST_F(ProjectDrag, WithTheLeftButtonItPutsAnItemElsewhereAmongItsBrothers)
{
    Open();
    Drag("a.tif", PlaceOf("stack.tif"));
    EXPECT_EQ(Rows(), "project(sub+ b.png stack.tif+ a.tif t.csv)");
    EXPECT_EQ(Chosen(), "a.tif");
    Drag("t.csv", PlaceOf("b.png"));
    EXPECT_EQ(Rows(), "project(sub+ t.csv b.png stack.tif+ a.tif)");
    EXPECT_TRUE(std::filesystem::exists(FilePath("a.tif"))) << "files stay where they are";
}

TEST_F(ProjectDrag, OntoAFolderItPutsAnItemInside)
{
    Open();
    Drag("a.tif", PlaceOf("sub"));
    EXPECT_EQ(Rows(), "project(sub(x.tif y.tif a.tif) b.png stack.tif+ t.csv)");
    EXPECT_EQ(Chosen(), "a.tif");
    EXPECT_EQ(m_tree->Chosen()->moniker, FilePath("a.tif"));
    EXPECT_FALSE(std::filesystem::exists(FilePath("sub\\a.tif")));
}

TEST_F(ProjectDrag, OntoAGroupItGroups)
{
    Open();
    Choose("b.png");
    m_tree->Do(ProjectCommand::newGroup);
    TypeText("Cells");
    PressKey(VK_RETURN);
    ASSERT_TRUE(PumpUntil([&] { return Chosen() == "Cells"; }));
    support::Settle();
    EXPECT_EQ(Rows(), "project(sub+ a.tif Cells b.png stack.tif+ t.csv)");
    Drag("t.csv", PlaceOf("Cells"));
    Drag("a.tif", PlaceOf("Cells"));
    EXPECT_EQ(Rows(), "project(sub+ Cells(t.csv a.tif) b.png stack.tif+)");
    Drag("Cells", PlaceOf("sub"));
    EXPECT_EQ(Rows(), "project(sub(x.tif y.tif Cells(t.csv a.tif)) b.png stack.tif+)") << "what was unfolded stays so";
}

TEST_F(ProjectDrag, BesideAllItemsItPutsAnItemAtTheEnd)
{
    Open();
    Drag("a.tif", EmptyPlace());
    EXPECT_EQ(Rows(), "project(sub+ b.png stack.tif+ t.csv a.tif)");
}

TEST_F(ProjectDrag, LeavesTheRootAndRefusesAnItemItself)
{
    Open();
    Unfold("sub");
    const std::string before = Rows();
    Pull("project", Button::left);
    EXPECT_FALSE(m_tree->IsDragging());
    Release(Button::left);
    EXPECT_EQ(Rows(), before);
    Drag("sub", PlaceOf("x.tif"));
    Drag("a.tif", PlaceOf("a.tif"));
    EXPECT_EQ(Rows(), before);
}

TEST_F(ProjectDrag, WithTheRightButtonItAsksAndMoves)
{
    Open();
    RightDrag("a.tif", PlaceOf("sub"), 'M');
    EXPECT_EQ(Rows(), "project(sub(x.tif y.tif a.tif) b.png stack.tif+ t.csv)");
}

TEST_F(ProjectDrag, WithTheRightButtonItAsksAndCopies)
{
    Open();
    RightDrag("a.tif", PlaceOf("sub"), 'C'); // two begin with it: the first is chosen by its letter, Enter takes it
    EXPECT_EQ(Rows(), "project(sub(x.tif y.tif a.tif) a.tif b.png stack.tif+ t.csv)");
    EXPECT_EQ(Chosen(), "a.tif");
    EXPECT_EQ(m_tree->Items().Find(m_tree->Chosen()->parent)->label, "sub") << "the copy is chosen";
    EXPECT_TRUE(m_tree->ChooseMoniker(FilePath("a.tif")));
    EXPECT_EQ(m_tree->Items().Find(m_tree->Chosen()->parent)->label, "sub") << "and stays so among its equals";
}

TEST_F(ProjectDrag, WithTheRightButtonItChangesNothingOnEsc)
{
    Open();
    const std::string before = Rows();
    RightDrag("a.tif", PlaceOf("sub"), VK_ESCAPE);
    EXPECT_EQ(Rows(), before);
}

TEST_F(ProjectDrag, TheMenuOfARightDragHasThreeChoices)
{
    Open();
    std::vector<std::string> texts;
    Pull("a.tif", Button::right);
    MoveTo(PlaceOf("sub"));
    const support::ModalHelper menu(
        [] { return support::FindThreadWindow("#32768", nullptr); },
        [&](HWND window) {
            constexpr UINT kGetMenu = 0x01E1; // MN_GETHMENU
            const auto handle = reinterpret_cast<HMENU>(::SendMessageA(window, kGetMenu, 0, 0));
            for (int i = 0; i < ::GetMenuItemCount(handle); ++i)
            {
                char text[64] = "";
                ::GetMenuStringA(handle, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
                texts.emplace_back(text);
            }
            PressKey(VK_ESCAPE);
        });
    support::Release(Button::right);
    EXPECT_TRUE(PumpUntil([&] { return menu.Done() && !m_tree->IsDragging(); }));
    EXPECT_THAT(texts, testing::ElementsAre("&Move here", "&Copy here", "", "Cancel"));
}

TEST_F(ProjectEdit, F2OpensTheLabelAndEnterTakesIt)
{
    Open();
    Choose("a.tif");
    PressKey(VK_F2);
    ASSERT_TRUE(PumpUntil([&] { return m_tree->GetEditControl() != nullptr; }));
    TypeText("  first cells ");
    PressKey(VK_RETURN);
    ASSERT_TRUE(PumpUntil([&] { return m_tree->GetEditControl() == nullptr; }));
    EXPECT_EQ(Rows(), "project(sub+ first cells b.png stack.tif+ t.csv)");
    EXPECT_EQ(m_tree->Chosen()->moniker, FilePath("a.tif"));
    EXPECT_EQ(Told(projectChanged), 1);
    EXPECT_TRUE(std::filesystem::exists(FilePath("a.tif")));
}

TEST_F(ProjectEdit, EscAndBlanksLeaveTheLabel)
{
    Open();
    Choose("a.tif");
    for (const WORD key : {WORD{VK_ESCAPE}, WORD{VK_RETURN}})
    {
        PressKey(VK_F2);
        ASSERT_TRUE(PumpUntil([&] { return m_tree->GetEditControl() != nullptr; }));
        TypeText(key == VK_RETURN ? "  " : "other");
        PressKey(key);
        ASSERT_TRUE(PumpUntil([&] { return m_tree->GetEditControl() == nullptr; }));
        EXPECT_EQ(Chosen(), "a.tif");
        EXPECT_EQ(Rows(), "project(sub+ a.tif b.png stack.tif+ t.csv)");
    }
    EXPECT_EQ(Told(projectChanged), 0);
}

TEST_F(ProjectEdit, TheRootKeepsItsLabel)
{
    Open();
    Choose("project");
    EXPECT_FALSE(m_tree->Can(ProjectCommand::rename));
    PressKey(VK_F2);
    m_tree->EditLabel(m_tree->GetRootItem());
    support::Settle();
    EXPECT_EQ(m_tree->GetEditControl(), nullptr);
}

TEST_F(ProjectEdit, LabelsOf300CharactersAndOfEveryByteAreKept)
{
    Open();
    Choose("a.tif");
    std::string label;
    for (int c = ' ' + 1; c < 256; ++c)
    {
        label += static_cast<char>(c);
    }
    label += std::string(300, 'x');
    PressKey(VK_F2);
    ASSERT_TRUE(PumpUntil([&] { return m_tree->GetEditControl() != nullptr; }));
    m_tree->GetEditControl()->SetWindowText(label.c_str());
    PressKey(VK_RETURN);
    ASSERT_TRUE(PumpUntil([&] { return m_tree->GetEditControl() == nullptr; }));
    const std::string taken = Chosen();
    EXPECT_GE(taken.size(), 259u) << "as much as the control hands over";
    EXPECT_TRUE(label.starts_with(taken));
    EXPECT_EQ(static_cast<LPCTSTR>(m_tree->GetItemText(m_tree->GetSelectedItem())), taken);
}

TEST_F(ProjectEdit, DelTakesAnItemOutOfTheProject)
{
    Open();
    Choose("a.tif");
    m_frame->Clear();
    PressKey(VK_DELETE);
    ASSERT_TRUE(PumpUntil([&] { return Rows() == "project(sub+ b.png stack.tif+ t.csv)"; }));
    EXPECT_NE(Chosen(), "a.tif");
    EXPECT_EQ(Told(projectChosen), 1) << "another one is chosen";
    EXPECT_TRUE(std::filesystem::exists(FilePath("a.tif")));
    Choose("project");
    PressKey(VK_DELETE);
    support::Settle();
    EXPECT_EQ(Rows(), "project(sub+ b.png stack.tif+ t.csv)");
}

TEST_F(ProjectEdit, CommandsMoveAnItemStepByStep)
{
    Open();
    Choose("b.png");
    m_tree->Do(ProjectCommand::moveUp);
    EXPECT_EQ(Rows(), "project(sub+ b.png a.tif stack.tif+ t.csv)");
    m_tree->Do(ProjectCommand::moveUp);
    EXPECT_EQ(Rows(), "project(b.png sub+ a.tif stack.tif+ t.csv)");
    EXPECT_FALSE(m_tree->Can(ProjectCommand::moveUp));
    m_tree->Do(ProjectCommand::moveUp);
    m_tree->Do(ProjectCommand::moveDown);
    EXPECT_EQ(Rows(), "project(sub+ b.png a.tif stack.tif+ t.csv)");
    EXPECT_EQ(Chosen(), "b.png");
    EXPECT_EQ(Told(projectChosen), 1) << "the chosen item stays the same";
    m_tree->SelectItem(nullptr);
    for (const auto command : {ProjectCommand::newGroup, ProjectCommand::rename, ProjectCommand::hide,
                               ProjectCommand::moveUp, ProjectCommand::moveDown, ProjectCommand::remove})
    {
        EXPECT_FALSE(m_tree->Can(command));
        m_tree->Do(command);
    }
    EXPECT_EQ(Rows(), "project(sub+ b.png a.tif stack.tif+ t.csv)");
}

TEST_F(ProjectEdit, WhatIsHiddenIsBarred)
{
    Open();
    Unfold("sub");
    int shown = 0;
    int selected = 0;
    m_tree->GetItemImage(Row("x.tif"), shown, selected);
    Choose("sub");
    m_tree->Do(ProjectCommand::hide);
    EXPECT_EQ(Told(projectChanged), 1);
    int barred = 0;
    m_tree->GetItemImage(Row("x.tif"), barred, selected);
    EXPECT_NE(barred, shown) << "with what it stands in";
    EXPECT_TRUE(m_tree->Items().IsHidden(m_tree->Items().FindMoniker(FilePath("sub\\x.tif"))));
    int other = 0;
    m_tree->GetItemImage(Row("a.tif"), other, selected);
    EXPECT_EQ(other, shown);
    // A red bar crosses the glyph.
    support::Settle();
    CRect label;
    m_tree->GetItemRect(Row("x.tif"), label, TRUE);
    int red = 0;
    for (int x = label.left - 20; x < label.left; ++x)
    {
        for (int y = label.top; y < label.bottom; ++y)
        {
            red += support::ClientPixel(m_tree->m_hWnd, x, y) == RGB(255, 0, 0);
        }
    }
    EXPECT_GE(red, 6);
    Drag("x.tif", PlaceOf("a.tif"));
    m_tree->GetItemImage(Row("x.tif"), other, selected);
    EXPECT_EQ(other, shown) << "out of the hidden folder it is shown again";
    Choose("sub");
    m_tree->Do(ProjectCommand::hide);
    m_tree->GetItemImage(Row("y.tif"), other, selected);
    EXPECT_EQ(other, shown);
}

TEST_F(ProjectEdit, GroupsAreMadeInsideFoldersAndBesideFiles)
{
    Open();
    const auto makeGroup = [&] {
        m_tree->Do(ProjectCommand::newGroup);
        ASSERT_TRUE(PumpUntil([&] { return m_tree->GetEditControl() != nullptr; }));
        PressKey(VK_RETURN);
        ASSERT_TRUE(PumpUntil([&] { return m_tree->GetEditControl() == nullptr; }));
    };
    Choose("sub");
    makeGroup();
    EXPECT_EQ(Rows(), "project(sub(New Group x.tif y.tif) a.tif b.png stack.tif+ t.csv)");
    EXPECT_EQ(Chosen(), "New Group");
    Choose("t.csv");
    makeGroup();
    EXPECT_EQ(Rows(), "project(sub(New Group x.tif y.tif) a.tif b.png stack.tif+ New Group t.csv)");
    Unfold("stack.tif");
    Choose("Page 1");
    EXPECT_FALSE(m_tree->Can(ProjectCommand::newGroup)) << "pages stay among themselves";
}

TEST_F(ProjectEdit, TheKeyboardsMenuComesUpUnderTheChosenLabel)
{
    Open();
    Choose("b.png");
    CRect label;
    m_tree->GetItemRect(Row("b.png"), label, TRUE);
    m_tree->ClientToScreen(label);
    EXPECT_EQ(m_tree->MenuPlace(), CPoint(label.left, label.bottom));
    m_tree->SelectItem(nullptr);
    CPoint corner(0, 0);
    m_tree->ClientToScreen(&corner);
    EXPECT_EQ(m_tree->MenuPlace(), corner);
}

TEST_F(ProjectSearch, ChoosesTheNextItemAndGoesRound)
{
    Open();
    EXPECT_EQ(m_tree->FindNext("TIF"), SearchEnd::found);
    EXPECT_EQ(Chosen(), "x.tif") << "in a folder that was never unfolded";
    EXPECT_EQ(Rows(), "project(sub(x.tif y.tif) a.tif b.png stack.tif+ t.csv)");
    for (const char* next : {"y.tif", "a.tif", "stack.tif", "x.tif"})
    {
        EXPECT_EQ(m_tree->FindNext("TIF"), SearchEnd::found);
        EXPECT_EQ(Chosen(), next);
    }
    EXPECT_EQ(m_tree->FindNext("nowhere"), SearchEnd::missing);
    EXPECT_EQ(Chosen(), "x.tif");
    EXPECT_EQ(Told(projectChosen), 5);
    EXPECT_EQ(m_drivers->Folders().Live(), (repository::LiveCounts{1, 0, 0}));
}

TEST_F(ProjectHostile, AFolderThatVanishesHoldsNothingAndTheParentIsTold)
{
    Open();
    Remove(FilePath("sub"));
    Unfold("sub");
    EXPECT_EQ(Rows(), "project(sub a.tif b.png stack.tif+ t.csv)");
    EXPECT_EQ(Told(projectUnread), 1);
    EXPECT_EQ(m_tree->ReadProblem(), "The folder \"sub\" isn't there any more.");
    Drag("a.tif", PlaceOf("sub"));
    EXPECT_EQ(Rows(), "project(sub(a.tif) b.png stack.tif+ t.csv)");
}

TEST_F(ProjectHostile, AFolderThatCannotBeReadIsToldTakesNothingInAndIsReadLater)
{
    Open();
    {
        // Another program keeps the folder to itself.
        const host::FileHandle exclusive(::CreateFileA(FilePath("sub").c_str(), FILE_LIST_DIRECTORY, 0, nullptr,
                                                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        ASSERT_TRUE(exclusive.IsValid());
        Unfold("sub");
        EXPECT_EQ(Told(projectUnread), 1);
        EXPECT_EQ(m_tree->ReadProblem(), "The folder \"sub\" can't be read.");
        m_tree->Do(ProjectCommand::newGroup);
        Drag("a.tif", PlaceOf("sub"));
        EXPECT_EQ(m_tree->FindNext("none"), SearchEnd::missing);
        EXPECT_EQ(Rows(), "project(sub+ a.tif b.png stack.tif+ t.csv)");
    }
    Unfold("sub");
    EXPECT_EQ(Rows(), "project(sub(x.tif y.tif) a.tif b.png stack.tif+ t.csv)");
    EXPECT_EQ(m_drivers->Folders().Live(), (repository::LiveCounts{1, 0, 0}));
}

TEST_F(ProjectHostile, TheOpenedFolderMayVanishAsAWhole)
{
    Open();
    Remove(m_root);
    Unfold("sub");
    Unfold("stack.tif");
    EXPECT_EQ(Rows(), "project(sub a.tif b.png stack.tif t.csv)");
    EXPECT_EQ(m_tree->FindNext("none"), SearchEnd::missing);
    EXPECT_FALSE(m_tree->OpenFolder(m_root));
    EXPECT_EQ(Rows(), "");
}

TEST_F(ProjectHostile, ALinkBackCannotBeUnfolded)
{
    const support::FolderLink link(FilePath("sub") + "\\back", m_root);
    Open();
    Unfold("sub");
    EXPECT_EQ(Rows(), "project(sub(back x.tif y.tif) a.tif b.png stack.tif+ t.csv)");
    EXPECT_EQ(m_tree->FindNext("none"), SearchEnd::missing) << "a search through everything ends";
}

TEST_F(ProjectHostile, ATreeThatGoesWhileTheMenuOfADropIsOpenTakesNoHarm)
{
    Open();
    Pull("a.tif", Button::right);
    MoveTo(PlaceOf("sub"));
    const support::ModalHelper menu([] { return support::FindThreadWindow("#32768", nullptr); },
                                    [&](HWND) {
                                        m_tree->DestroyWindow();
                                        ::EndMenu();
                                    });
    support::Release(Button::right);
    EXPECT_TRUE(PumpUntil([&] { return menu.Done(); }));
    support::Settle();
    EXPECT_EQ(m_tree->m_hWnd, nullptr);
}

TEST_F(ProjectHostile, AFolderOpenedWhileTheMenuOfADropIsOpenWins)
{
    Open();
    Pull("a.tif", Button::right);
    MoveTo(PlaceOf("sub"));
    const support::ModalHelper menu([] { return support::FindThreadWindow("#32768", nullptr); },
                                    [&](HWND) {
                                        m_tree->OpenFolder(FilePath("sub"));
                                        PressKey('M');
                                    });
    support::Release(Button::right);
    EXPECT_TRUE(PumpUntil([&] { return menu.Done() && !m_tree->IsDragging(); }));
    support::Settle();
    EXPECT_EQ(Rows(), "sub(x.tif y.tif)");
}

TEST_F(ProjectHostile, AFolderOpenedInTheMiddleOfADragEndsIt)
{
    Open();
    Pull("a.tif", Button::left);
    EXPECT_TRUE(m_tree->IsDragging());
    m_tree->OpenFolder(FilePath("sub"));
    MoveTo(EmptyPlace());
    Release(Button::left);
    EXPECT_FALSE(m_tree->IsDragging());
    EXPECT_EQ(Rows(), "sub(x.tif y.tif)");
}

namespace
{
/// A folder in memory whose names no disk would take.
class OddNames : public repository::Repository
{
public:
    repository::NodeRecord Root() const override { return {bdiContainer, "odd", "odd"}; }
    std::optional<repository::NodeRecord> Find(std::string_view id) const override
    {
        return id == "odd" ? std::optional(Root()) : std::nullopt;
    }
    std::vector<repository::NodeRecord> Children(const BDINode&, unsigned int) const override
    {
        std::vector<repository::NodeRecord> nodes;
        for (int c = 1; c < 256; ++c)
        {
            const std::string name(300, static_cast<char>(c));
            nodes.push_back({bdiRaster, "odd\\" + name, name});
        }
        nodes.push_back({bdiRaster, "", ""});
        return nodes;
    }
    std::string Parameters(const BDINode&) const override { return {}; }
};
} // namespace

TEST_F(ProjectHostile, NamesOf300CharactersOfEveryByteAreShownAndFound)
{
    m_drivers.reset();
    repository::RepositoryDrvr driver([](std::string_view) { return std::make_unique<OddNames>(); });
    BDIDrvrMngr::Instance()->Register(repository::kFolderDriver, nullptr, &driver);
    OpenWindow();
    ASSERT_TRUE(m_tree->OpenFolder("odd"));
    support::Settle();
    HTREEITEM row = m_tree->GetChildItem(m_tree->GetRootItem());
    for (int c = 1; c < 256; ++c, row = m_tree->GetNextSiblingItem(row))
    {
        const std::string name(300, static_cast<char>(c));
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(static_cast<LPCTSTR>(m_tree->GetItemText(row)), name) << c;
    }
    EXPECT_EQ(m_tree->FindNext(std::string(20, '\xE4')), SearchEnd::found);
    EXPECT_EQ(Chosen(), std::string(300, '\xE4'));
    m_tree->DestroyWindow();
    m_tree.reset();
    EXPECT_EQ(driver.Live(), repository::LiveCounts{});
    BDIDrvrMngr::Instance()->Unregister(&driver);
}

TEST_F(ProjectHostile, WithoutDriversNothingIsOpened)
{
    m_drivers.reset();
    OpenWindow();
    EXPECT_FALSE(m_tree->OpenFolder(m_root));
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(m_tree->FindNext("a"), SearchEnd::missing);
    EXPECT_FALSE(m_tree->ChooseMoniker("a"));
}
