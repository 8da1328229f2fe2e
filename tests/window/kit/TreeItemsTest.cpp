// TreeItemsTest.cpp - items of a tree: adding, walking, glyphs

#include "TreeItemsFixture.h"

#include "Picture.h"
#include "support/TempFolder.h"

using testing::ElementsAre;

namespace
{

TEST_F(TreeItems, AnItemIsAddedWithTextAndDataInItsPlace)
{
    Fill();
    auto const pointer = reinterpret_cast<DWORD_PTR>(this);
    HTREEITEM const first = m_tree->AddItem("first", pointer, m_a, TVI_FIRST);
    HTREEITEM const middle = m_tree->AddItem("middle", 8, m_a, m_b);
    EXPECT_EQ(m_tree->GetChildItem(m_a), first);
    EXPECT_EQ(m_tree->GetNextSiblingItem(first), m_b);
    EXPECT_EQ(m_tree->GetNextSiblingItem(m_b), middle);
    EXPECT_EQ(m_tree->GetNextSiblingItem(middle), m_d) << "TVI_LAST";
    EXPECT_EQ(m_tree->GetNextSiblingItem(m_a), m_e);
    HTREEITEM const sorted = m_tree->AddItem("3", 9, m_b, TVI_SORT);
    EXPECT_EQ(m_tree->GetChildItem(m_b), sorted);
    EXPECT_STREQ(m_tree->GetItemText(first), "first");
    EXPECT_EQ(m_tree->GetItemData(first), pointer) << "as wide as a pointer";
    EXPECT_EQ(m_tree->GetItemData(nullptr), 0U);
}

TEST_F(TreeItems, MayHaveNoText)
{
    EXPECT_STREQ(m_tree->GetItemText(m_tree->AddItem(static_cast<char const*>(nullptr), 1, TVI_ROOT, TVI_LAST)), "");
    EXPECT_STREQ(m_tree->GetItemText(Add("")), "");
}

TEST_F(TreeItems, TheCurrentDataIsThatOfTheSelectedItem)
{
    Fill();
    EXPECT_EQ(m_tree->GetCrntData(), 0U);
    m_tree->SelectItem(m_d);
    EXPECT_EQ(m_tree->GetCrntData(), 4U);
    m_tree->SelectItem(nullptr);
    EXPECT_EQ(m_tree->GetCrntData(), 0U);
}

TEST_F(TreeItems, GetTheDefaultImageOnlyInATreeWithAnImageList)
{
    HTREEITEM const before = Add("before");
    m_tree->InitImages();
    m_tree->DrawRect(before, RGB(1, 2, 3), RGB(4, 5, 6));
    HTREEITEM const after = Add("after");
    int image = -1;
    int selected = -1;
    m_tree->GetItemImage(after, image, selected);
    EXPECT_EQ(image, 0);
    EXPECT_EQ(selected, 0);
    m_tree->GetItemImage(before, image, selected);
    EXPECT_EQ(image, 1);
    EXPECT_EQ(selected, 1);
}

// --- walking

TEST_F(TreeItems, AreWalkedOverInOrder)
{
    Fill();
    auto const walk = [&](HTREEITEM root) {
        std::vector<HTREEITEM> order;
        CTreeCtrlItr itr(m_tree.get(), root);
        for (itr.Frst(); itr.Cont(); itr.Next())
        {
            EXPECT_EQ(itr.Crnt(), *itr);
            order.push_back(itr.Crnt());
        }
        itr.Next();
        EXPECT_FALSE(itr.Cont()) << "a walk that has ended stays ended";
        return order;
    };
    EXPECT_THAT(walk(nullptr), ElementsAre(m_a, m_b, m_c, m_d, m_e));
    EXPECT_THAT(walk(m_a), ElementsAre(m_a, m_b, m_c, m_d));
    EXPECT_THAT(walk(m_b), ElementsAre(m_b, m_c));
    EXPECT_THAT(walk(m_c), ElementsAre(m_c));
    m_tree->DeleteAllItems();
    EXPECT_THAT(walk(nullptr), testing::IsEmpty());
}

TEST_F(TreeItems, AWalkIsAValue)
{
    Fill();
    CTreeCtrlItr itr(m_tree.get(), m_a);
    itr.Frst();
    itr.Next();
    CTreeCtrlItr copy(nullptr, nullptr);
    copy = itr;
    itr.Next();
    EXPECT_EQ(*copy, m_b);
    EXPECT_EQ(*itr, m_c);
    copy.Next();
    copy.Next();
    EXPECT_EQ(*copy, m_d);
    copy.Next();
    EXPECT_FALSE(copy.Cont()) << "it took over the root too";
}

TEST_F(TreeItems, AWalkOverNoTreeIsEmpty)
{
    CTreeCtrlItr itr(nullptr, nullptr);
    itr.Frst();
    EXPECT_FALSE(itr.Cont());
    itr.Next();
    EXPECT_EQ(itr.Crnt(), nullptr);
    Fill();
    CTreeCtrlItr rooted(nullptr, m_a);
    rooted.Frst();
    EXPECT_FALSE(rooted.Cont());
}

// --- glyphs

constexpr COLORREF kFill = RGB(200, 40, 10);
constexpr COLORREF kBorder = RGB(10, 20, 210);
constexpr COLORREF kBar = RGB(255, 0, 0);
constexpr COLORREF kGreenIconColor = RGB(0x10, 0xC0, 0x20);
constexpr UINT kGreenIcon = 7101; // in this program's resources
constexpr UINT kNoSuchIcon = 7199;

std::string ThisProgram()
{
    char path[MAX_PATH];
    ::GetModuleFileNameA(nullptr, path, MAX_PATH);
    return path;
}

class TreeGlyphs : public TreeItems
{
protected:
    void SetUp() override
    {
        TreeItems::SetUp();
        Fill();
    }
    void TearDown() override
    {
        m_picture.reset();
        TreeItems::TearDown();
    }
    /// The item's image, which is its selected image too.
    [[nodiscard]] int ImageOf(HTREEITEM item) const
    {
        int image = -2;
        int selected = -3;
        EXPECT_TRUE(m_tree->GetItemImage(item, image, selected));
        EXPECT_EQ(image, selected);
        return image;
    }
    [[nodiscard]] Picture const& Draw(HTREEITEM item)
    {
        m_picture.emplace(16, 16, RGB(255, 0, 255));
        m_tree->GetImageList(TVSIL_NORMAL)->Draw(m_picture->DC(), ImageOf(item), CPoint(0, 0), ILD_NORMAL);
        return *m_picture;
    }
    static COLORREF Paper() { return ::GetSysColor(COLOR_WINDOW); }

private:
    std::optional<Picture> m_picture;
};

TEST_F(TreeGlyphs, ACircleFillsItsImage)
{
    m_tree->InitImages();
    m_tree->DrawCircle(m_b, kFill, kBorder, false);
    Picture const& picture = Draw(m_b);
    EXPECT_EQ(picture.At(8, 7), kFill);
    EXPECT_EQ(picture.At(1, 7), kBorder);
    EXPECT_EQ(picture.At(8, 1), kBorder);
    EXPECT_EQ(picture.At(0, 7), Paper());
    EXPECT_EQ(picture.At(1, 1), Paper());
}

TEST_F(TreeGlyphs, ABarredCircleIsCrossedByARedLine)
{
    m_tree->InitImages();
    m_tree->DrawCircle(m_b, kFill, kBorder, true);
    Picture const& picture = Draw(m_b);
    EXPECT_EQ(picture.At(8, 7), kBar);
    EXPECT_EQ(picture.At(8, 6), RGB(255, 255, 255));
    EXPECT_EQ(picture.At(8, 4), kFill);
    m_tree->DrawCircle(m_c, kFill, kBorder, false);
    EXPECT_NE(ImageOf(m_c), ImageOf(m_b));
}

TEST_F(TreeGlyphs, ASmallCircleIsSmaller)
{
    m_tree->InitImages();
    m_tree->DrawCircleSmall(m_b, kFill, kBorder);
    Picture const& picture = Draw(m_b);
    EXPECT_EQ(picture.At(8, 7), kFill);
    EXPECT_EQ(picture.At(3, 7), kBorder);
    EXPECT_EQ(picture.At(1, 7), Paper());
}

TEST_F(TreeGlyphs, ARectangleLeavesAMarginOfTwo)
{
    m_tree->InitImages();
    m_tree->DrawRect(m_b, kFill, kBorder);
    Picture const& picture = Draw(m_b);
    EXPECT_EQ(picture.At(2, 2), kBorder);
    EXPECT_EQ(picture.At(13, 13), kBorder);
    EXPECT_EQ(picture.At(3, 3), kFill);
    EXPECT_EQ(picture.At(14, 14), Paper());
    EXPECT_EQ(picture.At(1, 8), Paper());
}

TEST_F(TreeGlyphs, AreShownInTheTree)
{
    m_tree->InitImages();
    m_tree->DrawRect(m_e, kFill, kBorder);
    support::Settle();
    CRect text;
    m_tree->GetItemRect(m_e, text, TRUE);
    int const middle = text.CenterPoint().y;
    bool shown = false;
    for (int x = 0; x < text.left; ++x)
    {
        shown = shown || support::ClientPixel(m_tree->m_hWnd, x, middle) == kFill;
    }
    EXPECT_TRUE(shown);
}

TEST_F(TreeGlyphs, OnePairOfColoursIsOneImage)
{
    m_tree->InitImages();
    m_tree->DrawCircle(m_a, kFill, kBorder, false);
    m_tree->DrawCircle(m_b, kFill, kBorder, false);
    EXPECT_EQ(ImageOf(m_a), ImageOf(m_b));
    m_tree->DrawCircleSmall(m_c, kFill, kBorder);
    EXPECT_EQ(ImageOf(m_c), ImageOf(m_a)) << "at the size of the first";
    m_tree->DrawRect(m_d, kFill, kBorder);
    EXPECT_NE(ImageOf(m_d), ImageOf(m_a));
    EXPECT_EQ(m_tree->GetImageList(TVSIL_NORMAL)->GetImageCount(), 3);
}

TEST_F(TreeGlyphs, WithoutAnImageListNothingIsDrawn)
{
    int const before = ImageOf(m_b);
    m_tree->DrawCircle(m_b, kFill, kBorder, false);
    m_tree->DrawCircleSmall(m_b, kFill, kBorder);
    m_tree->DrawRect(m_b, kFill, kBorder);
    EXPECT_TRUE(m_tree->DrawIcon(m_b, kGreenIcon, nullptr)) << "nothing to do is done";
    EXPECT_TRUE(m_tree->DrawIcon(m_b, kNoSuchIcon, "no such file"));
    EXPECT_TRUE(m_tree->DrawPluginIcon(m_b, kNoSuchIcon, "no such file"));
    EXPECT_EQ(ImageOf(m_b), before);
    EXPECT_EQ(m_tree->GetImageList(TVSIL_NORMAL), nullptr);
}

TEST_F(TreeGlyphs, InitImagesMakesTheListOnceAndAlwaysHandsItToTheTree)
{
    m_tree->InitImages();
    CImageList* const list = m_tree->GetImageList(TVSIL_NORMAL);
    ASSERT_NE(list, nullptr);
    HIMAGELIST const handle = *list;
    EXPECT_EQ(list->GetImageCount(), 1) << "the default image";
    m_tree->DrawRect(m_b, kFill, kBorder);
    m_tree->SetImageList(nullptr, TVSIL_NORMAL);
    m_tree->InitImages();
    EXPECT_EQ(m_tree->GetImageList(TVSIL_NORMAL)->GetSafeHandle(), handle);
    EXPECT_EQ(list->GetImageCount(), 2) << "what was drawn is still there";
}

TEST_F(TreeGlyphs, AnImageListComesFromABitmapToo)
{
    constexpr UINT kStrip = 584; // of the library, in tiles of 16 pixels
    m_tree->InitImages(kStrip, 16, 4, RGB(255, 0, 255));
    CImageList* const list = m_tree->GetImageList(TVSIL_NORMAL);
    ASSERT_NE(list, nullptr);
    HIMAGELIST const handle = *list;
    int const images = list->GetImageCount();
    EXPECT_GT(images, 1);
    HTREEITEM const added = Add("added");
    EXPECT_EQ(ImageOf(added), 0);
    m_tree->DrawRect(m_b, kFill, kBorder);
    EXPECT_EQ(ImageOf(m_b), images) << "glyphs go behind the bitmap's images";
    EXPECT_NE(Draw(m_b).At(3, 3), Paper());
    m_tree->InitImages();
    m_tree->InitImages(kStrip, 16, 4, RGB(255, 0, 255));
    EXPECT_EQ(m_tree->GetImageList(TVSIL_NORMAL)->GetSafeHandle(), handle);
}

TEST_F(TreeGlyphs, AreGoneAfterClearing)
{
    m_tree->InitImages();
    m_tree->DrawRect(m_b, kFill, kBorder);
    m_tree->ClearImages();
    EXPECT_EQ(m_tree->GetImageList(TVSIL_NORMAL)->GetImageCount(), 0);
    m_tree->DrawRect(m_b, kFill, kBorder);
    EXPECT_EQ(ImageOf(m_b), 0);
}

TEST_F(TreeGlyphs, AnIconComesFromTheProgramOrFromAFile)
{
    m_tree->InitImages();
    EXPECT_TRUE(m_tree->DrawIcon(m_b, kGreenIcon, nullptr));
    EXPECT_EQ(Draw(m_b).At(8, 8), kGreenIconColor);
    EXPECT_TRUE(m_tree->DrawIcon(m_c, kGreenIcon, ThisProgram().c_str()));
    EXPECT_EQ(Draw(m_c).At(8, 8), kGreenIconColor);
    EXPECT_NE(ImageOf(m_c), ImageOf(m_b));
}

TEST_F(TreeGlyphs, AMissingIconLeavesTheItemAlone)
{
    m_tree->InitImages();
    m_tree->DrawRect(m_b, kFill, kBorder);
    int const before = ImageOf(m_b);
    EXPECT_FALSE(m_tree->DrawIcon(m_b, kGreenIcon, "C:\\no such folder\\no.dll"));
    EXPECT_FALSE(m_tree->DrawIcon(m_b, kNoSuchIcon, ThisProgram().c_str()));
    EXPECT_FALSE(m_tree->DrawPluginIcon(m_b, kGreenIcon, "no such plugin.dll"));
    EXPECT_EQ(ImageOf(m_b), before);
}

TEST_F(TreeGlyphs, APluginsIconIsFoundInThePluginFolderByItsName)
{
    support::TempFolder const folder;
    ASSERT_TRUE(::CreateDirectoryA(folder.Path("plugins").c_str(), nullptr));
    std::string const plugin = folder.Path("plugins\\icons.dll");
    ASSERT_TRUE(::CopyFileA(ThisProgram().c_str(), plugin.c_str(), FALSE));
    m_tree->InitImages();
    {
        InstallDirScope const scope(folder.Path("").c_str());
        EXPECT_TRUE(m_tree->DrawPluginIcon(m_b, kGreenIcon, "icons.dll"));
        EXPECT_EQ(Draw(m_b).At(8, 8), kGreenIconColor);
        EXPECT_TRUE(m_tree->DrawPluginIcon(m_c, kGreenIcon, "D:\\elsewhere\\icons.dll")) << "only the name counts";
        EXPECT_EQ(ImageOf(m_c), ImageOf(m_b)) << "it is the same file";
        EXPECT_FALSE(m_tree->DrawPluginIcon(m_d, kGreenIcon, "others.dll"));
        EXPECT_TRUE(m_tree->DrawPluginIcon(m_d, kGreenIcon, ThisProgram().c_str())) << "a file that exists is taken";
        EXPECT_NE(ImageOf(m_d), ImageOf(m_b));
        EXPECT_TRUE(m_tree->DrawPluginIcon(m_e, kGreenIcon, nullptr)) << "no file is the program's resources";
        EXPECT_TRUE(m_tree->DrawPluginIcon(m_e, kGreenIcon, ""));
        EXPECT_EQ(Draw(m_e).At(8, 8), kGreenIconColor);
    }
    ::DeleteFileA(plugin.c_str());
}

} // namespace
