// ResolveBDITest.cpp - picked files through the host's own drivers, and the dialog that asks which items are meant
#include "host/repository/StandardDrivers.h"
#include "support/ManyFiles.h"
#include "support/ScriptedDrvr.h"
#include "support/TempFolder.h"
#include "support/TiffWriter.h"
#include "support/WindowTest.h"
#include "tavkit/TavKit.h"
#include "tavkit/resources/resource.h"

#include <commctrl.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace
{

using repository::LiveCounts;
using support::ModalHelper;
using support::ScriptedDrvr;
using support::TempFolder;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kCaption[] = "Which items?";

std::vector<std::string> Texts(DVector<BDIMoniker*> const& monikers)
{
    std::vector<std::string> texts;
    for (BDIMoniker const* moniker : monikers)
    {
        const std::string text = moniker->GetMoniker().c_str();
        texts.push_back(moniker->GetDrvr() ? text : "[" + text + "]");
    }
    return texts;
}

class Resolved : public support::WindowTest
{
protected:
    void TearDown() override
    {
        Clear();
        WindowTest::TearDown();
    }

    void Clear()
    {
        for (BDIMoniker const* moniker : m_monikers)
        {
            delete moniker;
        }
        m_monikers.Clear();
    }

    bool Resolve(std::vector<std::string> const& files, int nodeType = bdiRaster, int mode = FileDlg::kLoad,
                 char const* options = nullptr, char const* caption = kCaption)
    {
        Clear();
        DVectorSafe<DFile> names;
        for (std::string const& file : files)
        {
            names.Append(file.c_str());
        }
        return FileDlg::ResolveBDI(mode, nodeType, &m_format, caption, names, m_defExt, m_monikers, options);
    }

    DFileFrmt m_format{"X", "X files", "*.x"};
    char const* m_defExt = "*.x";
    DVector<BDIMoniker*> m_monikers;
    support::TestFrame m_frame;
};

/// With the host's drivers and files on disk.
class ResolvedFromDisk : public Resolved
{
protected:
    void TearDown() override
    {
        Clear();
        EXPECT_EQ(m_drivers.Folders().Live(), LiveCounts{});
        EXPECT_EQ(m_drivers.Pages().Live(), LiveCounts{});
        Resolved::TearDown();
    }

    std::string Tiff(char const* name, int pages)
    {
        support::TiffWriter writer;
        for (int i = 0; i < pages; ++i)
        {
            writer.AddPage({});
        }
        return m_temp.Write(name, writer.Bytes());
    }

    void UseFolders() { m_format.m_strId = repository::kFolderDriver; }
    void UsePages() { m_format.m_strId = "TIF"; }

    repository::StandardDrivers m_drivers;
    TempFolder m_temp;
};

/// With a driver whose nodes a test writes down; the dialog is driven while it is up.
class Selector : public Resolved
{
protected:
    void TearDown() override
    {
        Clear();
        EXPECT_EQ(m_drvr.m_live, ScriptedDrvr::Live{});
        EXPECT_FALSE(m_drvr.m_closedTooEarly);
        Resolved::TearDown();
    }

    /// Picks the repository and acts on the dialog, which must end by itself.
    bool Ask(std::function<void(HWND)> const& act, int nodeType = bdiRaster)
    {
        ModalHelper helper(kCaption, act);
        const bool answered = Resolve({"root"}, nodeType);
        EXPECT_TRUE(helper.Done());
        return answered;
    }

    static HWND Tree(HWND dialog) { return ::GetDlgItem(dialog, IDC_PATH_TREE); }
    static HWND List(HWND dialog) { return ::GetDlgItem(dialog, IDC_SELECTOR_LIST); }
    static HTREEITEM Root(HWND dialog) { return TreeView_GetRoot(Tree(dialog)); }

    static std::vector<std::string> Rows(HWND dialog)
    {
        std::vector<std::string> rows;
        for (int row = 0; row < ListView_GetItemCount(List(dialog)); ++row)
        {
            char text[64] = "";
            LVITEMA item{};
            item.pszText = text;
            item.cchTextMax = sizeof text;
            ::SendMessageA(List(dialog), LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
            rows.emplace_back(text);
        }
        return rows;
    }
    static std::vector<std::string> Children(HWND dialog, HTREEITEM parent)
    {
        std::vector<std::string> texts;
        for (HTREEITEM item = TreeView_GetChild(Tree(dialog), parent); item;
             item = TreeView_GetNextSibling(Tree(dialog), item))
        {
            texts.push_back(TextOf(dialog, item));
        }
        return texts;
    }
    static std::string TextOf(HWND dialog, HTREEITEM item)
    {
        char text[64] = "";
        TVITEMA what{};
        what.mask = TVIF_TEXT;
        what.hItem = item;
        what.pszText = text;
        what.cchTextMax = sizeof text;
        ::SendMessageA(Tree(dialog), TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&what));
        return text;
    }
    static int ImageOf(HWND dialog, HTREEITEM item)
    {
        TVITEMA what{};
        what.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
        what.hItem = item;
        ::SendMessageA(Tree(dialog), TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&what));
        EXPECT_EQ(what.iImage, what.iSelectedImage);
        return what.iImage;
    }
    static void SelectRow(HWND dialog, int row, bool select)
    {
        ListView_SetItemState(List(dialog), row, select ? LVIS_SELECTED : 0U, LVIS_SELECTED);
    }
    static bool IsSelected(HWND dialog, int row)
    {
        return ListView_GetItemState(List(dialog), row, LVIS_SELECTED) != 0;
    }
    static bool CanOk(HWND dialog) { return ::IsWindowEnabled(::GetDlgItem(dialog, IDOK)) != FALSE; }
    static void Ok(HWND dialog) { support::PressButton(dialog, IDOK); }
    static void Cancel(HWND dialog) { support::PressButton(dialog, IDCANCEL); }

    /// The middle of an item's label on the screen.
    static CPoint LabelOf(HWND dialog, HTREEITEM item)
    {
        CRect rect;
        TreeView_GetItemRect(Tree(dialog), item, static_cast<RECT*>(&rect), TRUE);
        ::MapWindowPoints(Tree(dialog), nullptr, reinterpret_cast<POINT*>(&rect), 2);
        return rect.CenterPoint();
    }

    ScriptedDrvr m_drvr{{{"root", {bdiContainer, {"c1", "o1", "p1", "p2", "p3"}, "Root"}},
                         {"c1", {bdiContainer, {"c11", "p4"}, "Box"}},
                         {"c11", {bdiContainer, {}, "Inner"}},
                         {"o1", {bdiOther, {}, "Odd"}},
                         {"p1", {bdiRaster, {}, "One"}},
                         {"p2", {bdiRaster, {}, "Two"}},
                         {"p3", {bdiRaster, {}, "A|three"}},
                         {"p4", {bdiRaster, {}, "Four"}}}};
    support::RegisteredDrvr m_registered{"Scripted", "X", m_drvr};
};

} // namespace

TEST_F(ResolvedFromDisk, FoldersAmongSeveralGiveWayToTheirPictures)
{
    UseFolders();
    const std::string a = m_temp.MakeFolder("a");
    const std::string b = m_temp.MakeFolder("b");
    m_temp.Write("a\\1.tif", "x");
    m_temp.Write("a\\t.csv", "x");
    m_temp.Write("a\\2.png", "x");
    EXPECT_TRUE(Resolve({a, b}));
    EXPECT_THAT(Texts(m_monikers), ElementsAre(b, a + "\\1.tif", a + "\\2.png"));
    EXPECT_TRUE(Resolve({a, b}, bdiTable));
    EXPECT_THAT(Texts(m_monikers), ElementsAre(b, a + "\\t.csv"));
    EXPECT_TRUE(Resolve({a, b}, bdiRaster, FileDlg::kSave));
    EXPECT_THAT(Texts(m_monikers), ElementsAre(a, b));
    Clear();
    for (std::string const& file : {a + "\\1.tif", a + "\\t.csv", a + "\\2.png"})
    {
        ::DeleteFileA(file.c_str());
    }
}

TEST_F(ResolvedFromDisk, FilesOfAnotherKindLoseTheirDriver)
{
    UseFolders();
    const std::string picture = m_temp.Write("1.tif", "x");
    const std::string table = m_temp.Write("t.csv", "x");
    const std::string unknown = m_temp.Write("u.exe", "x");
    EXPECT_TRUE(Resolve({picture, table, unknown}));
    EXPECT_THAT(Texts(m_monikers), ElementsAre(picture, "[" + table + "]", unknown))
        << "what is outside the repository isn't looked at";
}

TEST_F(ResolvedFromDisk, APictureOfOnePageNamesItAndOneOfSeveralIsOpenedUp)
{
    UsePages();
    const std::string one = Tiff("one.tif", 1);
    const std::string three = Tiff("three.tif", 3);
    EXPECT_TRUE(Resolve({one}));
    EXPECT_THAT(Texts(m_monikers), ElementsAre(one + "?page=0"));
    EXPECT_TRUE(Resolve({three, one}));
    EXPECT_THAT(Texts(m_monikers), ElementsAre(one, three + "?page=0", three + "?page=1", three + "?page=2"));
    EXPECT_TRUE(Resolve({one, three}, bdiRaster, FileDlg::kLoad, "gain=2"));
    EXPECT_THAT(Texts(m_monikers).front(), one + "?gain=2");
    EXPECT_EQ(m_monikers.GetCount(), 4);
}

TEST_F(ResolvedFromDisk, APageIsChosenInTheDialog)
{
    UsePages();
    const std::string three = Tiff("three.tif", 3);
    ModalHelper helper(kCaption, [](HWND dialog) {
        const HWND list = ::GetDlgItem(dialog, IDC_SELECTOR_LIST);
        EXPECT_EQ(ListView_GetItemCount(list), 3);
        ListView_SetItemState(list, 0, 0, LVIS_SELECTED);
        ListView_SetItemState(list, 2, LVIS_SELECTED, LVIS_SELECTED);
        support::PressButton(dialog, IDOK);
    });
    EXPECT_TRUE(Resolve({three}));
    EXPECT_TRUE(helper.Done());
    EXPECT_THAT(Texts(m_monikers), ElementsAre(three + "?page=2"));
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(ResolvedFromDisk, VanishedUnreadableAndLongNamesStayTheTextThatWasPicked)
{
    constexpr std::size_t kLongest = 259;
    constexpr std::size_t kLonger = 400;
    for (const bool folders : {true, false})
    {
        m_format.m_strId = folders ? repository::kFolderDriver : "TIF";
        const std::vector<std::string> names = {m_temp.Path("gone\\a.tif"),
                                                "C:\\" + std::string(kLongest - 3, 'a'),
                                                "C:\\" + std::string(kLonger - 3, 'b'),
                                                "Q:\\none",
                                                "<|>*",
                                                "",
                                                m_temp.Write("cut.tif", "II*")};
        for (std::string const& name : names)
        {
            EXPECT_TRUE(Resolve({name}));
            EXPECT_EQ(Texts(m_monikers), std::vector<std::string>{name});
        }
        EXPECT_TRUE(Resolve(names));
        EXPECT_EQ(Texts(m_monikers), names);
    }
}

TEST_F(ResolvedFromDisk, AFolderThatVanishesBetweenIsNoHarm)
{
    UseFolders();
    const std::string folder = m_temp.MakeFolder("sub");
    m_temp.Write("sub\\1.tif", "x");
    EXPECT_TRUE(Resolve({folder, m_temp.Path("other.tif")}));
    ASSERT_THAT(Texts(m_monikers), ElementsAre(m_temp.Path("other.tif"), folder + "\\1.tif"));
    ::DeleteFileA((folder + "\\1.tif").c_str());
    ::RemoveDirectoryA(folder.c_str());
    EXPECT_EQ(m_monikers[1]->GetNode(), nullptr);
    EXPECT_TRUE(m_monikers[1]->GetDisplayName() == "1.tif");
}

TEST_F(Selector, ShowsTheContainersAndTheItemsOfTheSelectedOne)
{
    EXPECT_TRUE(Ask([](HWND dialog) {
        EXPECT_EQ(TextOf(dialog, Root(dialog)), "Root");
        EXPECT_EQ(TreeView_GetSelection(Tree(dialog)), Root(dialog));
        EXPECT_THAT(Rows(dialog), ElementsAre("One", "Two", "A|three"));
        EXPECT_TRUE(IsSelected(dialog, 0));
        EXPECT_TRUE(CanOk(dialog));
        HDITEMA column{};
        char caption[32] = "";
        column.mask = HDI_TEXT | HDI_WIDTH;
        column.pszText = caption;
        column.cchTextMax = sizeof caption;
        ::SendMessageA(ListView_GetHeader(List(dialog)), HDM_GETITEMA, 0, reinterpret_cast<LPARAM>(&column));
        EXPECT_STREQ(caption, "Name");
        EXPECT_EQ(column.cxy, 200);
        Ok(dialog);
    }));
    EXPECT_THAT(Texts(m_monikers), ElementsAre("p1"));
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(Selector, ACancelLeavesTheFileInTheResult)
{
    EXPECT_FALSE(Ask(Cancel));
    EXPECT_THAT(Texts(m_monikers), ElementsAre("root"));
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(Selector, SeveralRowsComeInTheirOrderNotInThatOfTheClicks)
{
    EXPECT_TRUE(Ask([](HWND dialog) {
        EXPECT_EQ(::GetWindowLongPtrA(List(dialog), GWL_STYLE) & LVS_SINGLESEL, 0);
        SelectRow(dialog, 0, false);
        SelectRow(dialog, 2, true);
        SelectRow(dialog, 1, true);
        Ok(dialog);
    }));
    EXPECT_THAT(Texts(m_monikers), ElementsAre("p2", "p3"));
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(Selector, AConnectionTakesOneItem)
{
    m_defExt = "*.ZRC";
    EXPECT_TRUE(Ask([](HWND dialog) {
        EXPECT_NE(::GetWindowLongPtrA(List(dialog), GWL_STYLE) & LVS_SINGLESEL, 0);
        EXPECT_TRUE(IsSelected(dialog, 0));
        SelectRow(dialog, 1, true);
        EXPECT_FALSE(IsSelected(dialog, 0));
        Ok(dialog);
    }));
    EXPECT_THAT(Texts(m_monikers), ElementsAre("p2"));
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(Selector, WithoutARowTheContainerItselfIsPicked)
{
    EXPECT_TRUE(Ask([](HWND dialog) {
        SelectRow(dialog, 0, false);
        Ok(dialog);
    }));
    EXPECT_THAT(Texts(m_monikers), ElementsAre("root"));
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(Selector, SortedRowsKeepTheirItems)
{
    EXPECT_TRUE(Ask([](HWND dialog) {
        CRect header;
        Header_GetItemRect(ListView_GetHeader(List(dialog)), 0, static_cast<RECT*>(&header));
        NMLISTVIEW click{};
        click.hdr = {List(dialog), IDC_SELECTOR_LIST, LVN_COLUMNCLICK};
        ::SendMessageA(dialog, WM_NOTIFY, IDC_SELECTOR_LIST, reinterpret_cast<LPARAM>(&click));
        const std::vector<std::string> rows = Rows(dialog);
        ASSERT_EQ(rows.size(), 3u);
        for (int row = 0; row < 3; ++row)
        {
            SelectRow(dialog, row, rows[static_cast<std::size_t>(row)] == "Two");
        }
        Ok(dialog);
    }));
    EXPECT_THAT(Texts(m_monikers), ElementsAre("p2"));
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(Selector, ContainersAreOpenedOnceAndShowWhetherTheyAre)
{
    EXPECT_TRUE(Ask([this](HWND dialog) {
        const HTREEITEM root = Root(dialog);
        EXPECT_EQ(ImageOf(dialog, root), 0);
        EXPECT_THAT(Children(dialog, root), IsEmpty());
        TreeView_Expand(Tree(dialog), root, TVE_EXPAND);
        EXPECT_THAT(Children(dialog, root), ElementsAre("Box", "Odd"));
        EXPECT_EQ(ImageOf(dialog, root), 1);
        // Only what the user does is told of an item that was open before.
        ::SetFocus(Tree(dialog));
        support::PressKey(VK_LEFT);
        EXPECT_TRUE(support::PumpUntil([&] { return ImageOf(dialog, root) == 0; }));
        m_drvr.m_entries["root"].children.push_back("c11");
        support::PressKey(VK_RIGHT);
        EXPECT_TRUE(support::PumpUntil([&] { return ImageOf(dialog, root) == 1; }));
        EXPECT_THAT(Children(dialog, root), ElementsAre("Box", "Odd"));
        const HTREEITEM box = TreeView_GetChild(Tree(dialog), root);
        EXPECT_EQ(ImageOf(dialog, box), 0);
        TreeView_SelectItem(Tree(dialog), box);
        EXPECT_THAT(Rows(dialog), ElementsAre("Four"));
        EXPECT_FALSE(IsSelected(dialog, 0)) << "only the first list begins with a row selected";
        Ok(dialog);
    }));
    EXPECT_THAT(Texts(m_monikers), ElementsAre("c1"));
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(Selector, ItemsOfOtherKindsInTheTreeHaveTheirImages)
{
    m_drvr.m_entries["c1"].kind = bdiContainer | bdiTable;
    EXPECT_TRUE(Ask([](HWND dialog) {
        TreeView_Expand(Tree(dialog), Root(dialog), TVE_EXPAND);
        const HTREEITEM box = TreeView_GetChild(Tree(dialog), Root(dialog));
        EXPECT_EQ(ImageOf(dialog, box), 0) << "several kinds look like a container";
        EXPECT_EQ(ImageOf(dialog, TreeView_GetNextSibling(Tree(dialog), box)), 0);
        Ok(dialog);
    }));
    for (auto const& [kind, image] : {std::pair{bdiRaster, 2}, std::pair{bdiVector, 4}, std::pair{bdiTable, 3}})
    {
        m_drvr.m_entries["root"].kind = kind;
        EXPECT_TRUE(Ask([image = image](HWND dialog) {
            EXPECT_EQ(ImageOf(dialog, Root(dialog)), image);
            Ok(dialog);
        }));
    }
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(Selector, ADoubleClickOnALabelPicksAndOneBesideItDoesNothing)
{
    bool open = false;
    EXPECT_TRUE(Ask([&](HWND dialog) {
        SelectRow(dialog, 0, false);
        CRect client;
        ::GetClientRect(Tree(dialog), client);
        CPoint beside(client.right - 4, client.bottom - 4);
        ::ClientToScreen(Tree(dialog), &beside);
        support::DoubleClick(beside);
        EXPECT_TRUE(support::PumpUntil(
            [&] { return ::GetMessagePos() == static_cast<DWORD>(MAKELPARAM(beside.x, beside.y)); }));
        open = ::IsWindow(dialog) && ::IsWindowVisible(dialog);
        support::DoubleClick(LabelOf(dialog, Root(dialog)));
    }));
    EXPECT_TRUE(open);
    EXPECT_THAT(Texts(m_monikers), ElementsAre("root"));
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(Selector, TheTreeTakesAllGrowthInWidth)
{
    EXPECT_FALSE(Ask([](HWND dialog) {
        CRect window;
        CRect tree;
        CRect list;
        CRect ok;
        const auto measure = [&] {
            ::GetWindowRect(dialog, window);
            ::GetWindowRect(Tree(dialog), tree);
            ::GetWindowRect(List(dialog), list);
            ::GetWindowRect(::GetDlgItem(dialog, IDOK), ok);
        };
        measure();
        const CSize treeBefore = tree.Size();
        const CSize listBefore = list.Size();
        const CPoint okBefore = ok.TopLeft() - window.TopLeft();
        ::SetWindowPos(dialog, nullptr, 0, 0, window.Width() + 60, window.Height() + 40, SWP_NOMOVE | SWP_NOZORDER);
        measure();
        EXPECT_EQ(tree.Size(), treeBefore + CSize(60, 40));
        EXPECT_EQ(list.Size(), listBefore + CSize(0, 40));
        EXPECT_EQ(CPoint(ok.TopLeft() - window.TopLeft()), okBefore + CSize(60, 40));
        Cancel(dialog);
    }));
    AllowGdiGrowth("the system keeps what it has once drawn with");
}

TEST_F(Selector, ADriverThatFailsFromAnyStepOnLeavesADialogThatCanBeEnded)
{
    m_drvr.m_calls = 0;
    EXPECT_TRUE(Ask(Ok));
    const int calls = m_drvr.m_calls;
    Clear();
    for (int step = 1; step < calls; ++step)
    {
        m_drvr.m_failFrom = step;
        m_drvr.m_calls = 0;
        // Whether the question still comes depends on the step.
        std::optional<ModalHelper> helper;
        helper.emplace([] { return support::FindThreadWindow("#32770", kCaption); }, Cancel);
        (void)Resolve({"root"});
        helper.reset();
        Clear();
        EXPECT_EQ(m_drvr.m_live, ScriptedDrvr::Live{}) << step;
    }
    AllowGdiGrowth("the system keeps what it has once drawn with");
}
