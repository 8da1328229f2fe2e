#include "CountedTest.h"

#include <afxcmn.h>

using namespace colour;

namespace
{
using ImageListTest = CountedTest;

constexpr int kCell = 2;

TEST_F(ImageListTest, ANullObjectHasANullHandle)
{
    const CImageList* none = nullptr;
    EXPECT_EQ(none->GetSafeHandle(), nullptr);
    EXPECT_EQ(CImageList::FromHandle(nullptr), nullptr);
    EXPECT_EQ(CImageList::FromHandlePermanent(nullptr), nullptr);
    CImageList list;
    EXPECT_FALSE(list.DeleteImageList());
    EXPECT_FALSE(list.Attach(nullptr));
    EXPECT_EQ(list.GetImageCount(), 0);
}

TEST_F(ImageListTest, ABitmapResourceIsCutIntoPictures)
{
    CImageList list;
    ASSERT_TRUE(list.Create(kStripBitmap, kCell, 1, kMagenta));
    EXPECT_EQ(list.GetImageCount(), 2);
    MemoryCanvas canvas(kGreen);
    EXPECT_TRUE(list.Draw(&canvas.dc, 0, CPoint(0, 0), ILD_TRANSPARENT));
    EXPECT_TRUE(list.Draw(&canvas.dc, 1, CPoint(10, 10), ILD_TRANSPARENT));
    EXPECT_EQ(canvas.At(0, 0), kRed);
    EXPECT_EQ(canvas.At(1, 1), kRed);
    EXPECT_EQ(canvas.At(10, 10), kBlue);
    EXPECT_EQ(canvas.At(11, 10), kGreen) << "the mask colour is transparent";
    EXPECT_EQ(canvas.At(11, 11), kBlue);
}

TEST_F(ImageListTest, ABitmapResourceKeepsItsColours)
{
    constexpr UINT kPlainBitmap = 7705;
    constexpr COLORREF kColor = RGB(102, 140, 227); // none of the sixteen that every screen has
    for (const COLORREF mask : {COLORREF{CLR_NONE}, kMagenta})
    {
        CImageList list;
        ASSERT_TRUE(list.Create(kPlainBitmap, kCell, 1, mask));
        MemoryCanvas canvas(kGreen);
        EXPECT_TRUE(list.Draw(&canvas.dc, 0, CPoint(0, 0), ILD_NORMAL));
        EXPECT_EQ(canvas.At(0, 0), kColor);
        EXPECT_EQ(canvas.At(1, 1), kColor);
    }
}

TEST_F(ImageListTest, AMissingBitmapResourceLeavesTheListAsItWas)
{
    CImageList list;
    EXPECT_FALSE(list.Create(kMissingBitmap, kCell, 1, kMagenta));
    EXPECT_EQ(list.m_hImageList, nullptr);
    ASSERT_TRUE(list.Create("PICU", kCell, 1, CLR_NONE));
    EXPECT_FALSE(list.Create("NOSUCHPICTURE", kCell, 1, CLR_NONE));
    EXPECT_EQ(list.GetImageCount(), 1);
}

TEST_F(ImageListTest, CreatingAnewDestroysTheListBefore)
{
    CImageList list;
    ASSERT_TRUE(list.Create(8, 8, ILC_COLOR32, 4, 4));
    ASSERT_TRUE(list.Create(4, 4, ILC_COLOR32, 4, 4));
    int width = 0;
    int height = 0;
    EXPECT_TRUE(::ImageList_GetIconSize(list, &width, &height));
    EXPECT_EQ(width, 4);
}

TEST_F(ImageListTest, PicturesAreAddedReplacedAndRemoved)
{
    CImageList list;
    ASSERT_TRUE(list.Create(kCell, kCell, ILC_COLOR24 | ILC_MASK, 0, 4));
    CBitmap strip;
    CBitmap green;
    ASSERT_TRUE(strip.LoadBitmap(kStripBitmap));
    ASSERT_TRUE(green.LoadBitmap(kGreenBitmap));
    EXPECT_EQ(list.Add(&green, static_cast<CBitmap*>(nullptr)), 0);
    EXPECT_EQ(list.Add(&strip, kMagenta), 1) << "the index of the first of two";
    EXPECT_EQ(list.GetImageCount(), 3);
    EXPECT_TRUE(list.Replace(1, &green, nullptr));
    MemoryCanvas canvas;
    list.Draw(&canvas.dc, 1, CPoint(0, 0), ILD_NORMAL);
    EXPECT_EQ(canvas.At(0, 0), kGreen);
    EXPECT_TRUE(list.Remove(0));
    EXPECT_EQ(list.GetImageCount(), 2);
    EXPECT_FALSE(list.Remove(7));
    EXPECT_TRUE(list.Remove(-1));
    EXPECT_EQ(list.GetImageCount(), 0);
    EXPECT_EQ(list.Add(static_cast<CBitmap*>(nullptr), kMagenta), -1);
}

TEST_F(ImageListTest, IconsGoInAndOut)
{
    CImageList list;
    ASSERT_TRUE(list.Create(16, 16, ILC_COLOR32 | ILC_MASK, 0, 4));
    const HICON icon = ::LoadIcon(nullptr, IDI_WARNING);
    EXPECT_EQ(list.Add(icon), 0);
    EXPECT_EQ(list.Replace(0, icon), 0);
    EXPECT_EQ(list.Replace(99, icon), -1);
    EXPECT_EQ(list.GetImageCount(), 1);
    const HICON copy = list.ExtractIcon(0);
    EXPECT_NE(copy, nullptr);
    EXPECT_TRUE(::DestroyIcon(copy));
    EXPECT_EQ(list.ExtractIcon(9), nullptr);
}

TEST_F(ImageListTest, TheBackgroundColourAnswersWithTheOneBefore)
{
    CImageList list;
    ASSERT_TRUE(list.Create(kStripBitmap, kCell, 1, kMagenta));
    EXPECT_EQ(list.SetBkColor(kBlue), COLORREF(CLR_NONE));
    EXPECT_EQ(list.GetBkColor(), kBlue);
    MemoryCanvas canvas;
    list.Draw(&canvas.dc, 1, CPoint(0, 0), ILD_NORMAL);
    EXPECT_EQ(canvas.At(1, 0), kBlue) << "the masked corner shows the background";
}

TEST_F(ImageListTest, APictureTellsItsPlace)
{
    CImageList list;
    ASSERT_TRUE(list.Create(kStripBitmap, kCell, 1, kMagenta));
    IMAGEINFO info = {};
    EXPECT_TRUE(list.GetImageInfo(1, &info));
    EXPECT_EQ(info.rcImage.right - info.rcImage.left, kCell);
    EXPECT_NE(info.hbmImage, nullptr);
    EXPECT_FALSE(list.GetImageInfo(2, &info));
}

TEST_F(ImageListTest, TheOwnerIsFoundAndATemporaryObjectDestroysNothing)
{
    CImageList list;
    ASSERT_TRUE(list.Create(4, 4, ILC_COLOR32, 1, 1));
    EXPECT_EQ(CImageList::FromHandle(list), &list);
    EXPECT_EQ(CImageList::FromHandlePermanent(list), &list);
    const HIMAGELIST borrowed = list.Detach();
    EXPECT_EQ(CImageList::FromHandlePermanent(borrowed), nullptr);
    CImageList* temporary = CImageList::FromHandle(borrowed);
    EXPECT_NE(temporary, &list);
    EXPECT_EQ(temporary->m_hImageList, borrowed);
    AfxLockTempMaps();
    AfxUnlockTempMaps();
    EXPECT_TRUE(list.Attach(borrowed)) << "still alive";
    EXPECT_EQ(list.GetImageCount(), 0);
}

TEST_F(ImageListTest, APictureIsDraggedOverAWindow)
{
    support::TestFrame frame;
    support::Settle();
    CImageList list;
    ASSERT_TRUE(list.Create(16, 16, ILC_COLOR24, 1, 1));
    {
        MemoryCanvas red(kRed, 16, 16);
        CDC empty;
        empty.CreateCompatibleDC(nullptr);
        red.dc.SelectObject(CBitmap::FromHandle(static_cast<HBITMAP>(::GetCurrentObject(empty, OBJ_BITMAP))));
        EXPECT_EQ(list.Add(&red.bitmap, static_cast<CBitmap*>(nullptr)), 0);
    }
    ASSERT_TRUE(list.BeginDrag(0, CPoint(4, 4)));
    EXPECT_TRUE(CImageList::DragEnter(&frame, CPoint(60, 60)));
    EXPECT_TRUE(CImageList::DragMove(CPoint(80, 80)));
    EXPECT_TRUE(CImageList::DragShowNolock(FALSE));
    EXPECT_TRUE(CImageList::DragShowNolock(TRUE));
    EXPECT_TRUE(CImageList::DragLeave(&frame));
    CImageList::EndDrag();
    EXPECT_TRUE(list.BeginDrag(0, CPoint(0, 0))) << "the drag before has ended";
    CImageList::EndDrag();
}
} // namespace
