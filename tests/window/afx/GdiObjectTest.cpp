#include "CountedTest.h"

#include <thread>

using namespace colour;

namespace
{
using GdiObjectTest = CountedTest;

TEST_F(GdiObjectTest, ANullObjectHasANullHandle)
{
    const CPen* none = nullptr;
    EXPECT_EQ(none->GetSafeHandle(), nullptr);
    const CPen pen;
    EXPECT_EQ(pen.GetSafeHandle(), nullptr);
    EXPECT_EQ(static_cast<HPEN>(pen), nullptr);
}

TEST_F(GdiObjectTest, TheDestructorDeletesTheHandle)
{
    HGDIOBJ handle = nullptr;
    {
        CPen pen(PS_SOLID, 3, kRed);
        handle = pen.m_hObject;
        EXPECT_EQ(::GetObjectType(handle), DWORD(OBJ_PEN));
    }
    EXPECT_EQ(::GetObjectType(handle), 0U);
}

TEST_F(GdiObjectTest, ADetachedHandleBelongsToTheCaller)
{
    HGDIOBJ handle = nullptr;
    {
        CBrush brush(kGreen);
        handle = brush.Detach();
        EXPECT_EQ(brush.m_hObject, nullptr);
        EXPECT_EQ(brush.Detach(), nullptr);
    }
    ASSERT_EQ(::GetObjectType(handle), DWORD(OBJ_BRUSH));
    CBrush owner;
    EXPECT_TRUE(owner.Attach(handle));
    EXPECT_EQ(CBrush::FromHandle(static_cast<HBRUSH>(handle)), &owner);
}

TEST_F(GdiObjectTest, AttachingNullFailsAndKeepsWhatWasHeld)
{
    CBrush brush(kGreen);
    const HGDIOBJ handle = brush.m_hObject;
    EXPECT_FALSE(brush.Attach(nullptr));
    EXPECT_EQ(brush.m_hObject, handle);
    EXPECT_EQ(::GetObjectType(handle), DWORD(OBJ_BRUSH));
}

TEST_F(GdiObjectTest, CreatingAnewDeletesWhatWasHeld)
{
    CPen pen(PS_SOLID, 1, kRed);
    const HGDIOBJ first = pen.m_hObject;
    EXPECT_TRUE(pen.CreatePen(PS_DOT, 1, kGreen));
    EXPECT_EQ(::GetObjectType(first), 0U);
    LOGPEN description = {};
    EXPECT_EQ(pen.GetLogPen(&description), int(sizeof(LOGPEN)));
    EXPECT_EQ(description.lopnStyle, UINT(PS_DOT));
    EXPECT_EQ(description.lopnColor, kGreen);
}

TEST_F(GdiObjectTest, DeletingTwiceIsHarmless)
{
    CBrush brush(kRed);
    EXPECT_TRUE(brush.DeleteObject());
    EXPECT_FALSE(brush.DeleteObject());
}

TEST_F(GdiObjectTest, AStockObjectOutlivesEveryObjectThatHeldIt)
{
    const HGDIOBJ stock = ::GetStockObject(BLACK_PEN);
    {
        CPen first;
        CPen second;
        EXPECT_TRUE(first.CreateStockObject(BLACK_PEN));
        EXPECT_TRUE(second.Attach(stock));
        first.DeleteObject();
        EXPECT_EQ(second.m_hObject, stock);
    }
    EXPECT_EQ(::GetObjectType(stock), DWORD(OBJ_PEN));
    LOGPEN description = {};
    EXPECT_NE(::GetObject(stock, sizeof description, &description), 0);
}

TEST_F(GdiObjectTest, ASystemColourBrushMayBeHeldByManyAndSurvives)
{
    {
        CBrush first;
        CBrush second;
        EXPECT_TRUE(first.CreateSysColorBrush(COLOR_WINDOW));
        EXPECT_TRUE(second.CreateSysColorBrush(COLOR_WINDOW));
    }
    LOGBRUSH description = {};
    EXPECT_NE(::GetObject(::GetSysColorBrush(COLOR_WINDOW), sizeof description, &description), 0);
}

TEST_F(GdiObjectTest, FromHandleGivesTheOwnerAndNullForNull)
{
    CPen pen(PS_SOLID, 1, kRed);
    EXPECT_EQ(CPen::FromHandle(pen), &pen);
    EXPECT_EQ(CGdiObject::FromHandle(pen.m_hObject), &pen);
    EXPECT_EQ(CPen::FromHandle(nullptr), nullptr);
}

TEST_F(GdiObjectTest, FromHandleMakesATemporaryObjectOfTheFittingClass)
{
    const HFONT font = ::CreateFontA(12, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, "Arial");
    const HRGN region = ::CreateRectRgn(0, 0, 5, 5);
    CGdiObject* fontObject = CGdiObject::FromHandle(font);
    CGdiObject* regionObject = CGdiObject::FromHandle(region);
    EXPECT_NE(dynamic_cast<CFont*>(fontObject), nullptr);
    EXPECT_NE(dynamic_cast<CRgn*>(regionObject), nullptr);
    EXPECT_TRUE(fontObject->IsKindOf(RUNTIME_CLASS(CFont)));
    EXPECT_EQ(CGdiObject::FromHandle(font), fontObject) << "the same one until idle";
    EXPECT_NE(dynamic_cast<CPen*>(CGdiObject::FromHandle(::GetStockObject(NULL_PEN))), nullptr);
    EXPECT_NE(dynamic_cast<CBrush*>(CGdiObject::FromHandle(::GetStockObject(NULL_BRUSH))), nullptr);
    ::DeleteObject(font);
    ::DeleteObject(region);
}

TEST_F(GdiObjectTest, ATemporaryObjectDiesWithoutDeletingTheHandle)
{
    const HBRUSH brush = ::CreateSolidBrush(kBlue);
    EXPECT_EQ(static_cast<HBRUSH>(*CBrush::FromHandle(brush)), brush);
    AfxLockTempMaps();
    AfxUnlockTempMaps();
    EXPECT_EQ(::GetObjectType(brush), DWORD(OBJ_BRUSH));
    EXPECT_TRUE(::DeleteObject(brush));
}

TEST_F(GdiObjectTest, ATemporaryObjectThatWasDetachedIsRightAgainWhenAskedFor)
{
    const HBRUSH brush = ::CreateSolidBrush(kBlue);
    CBrush::FromHandle(brush)->Detach();
    EXPECT_EQ(static_cast<HBRUSH>(*CBrush::FromHandle(brush)), brush);
    EXPECT_TRUE(CBrush::FromHandle(brush)->DeleteObject());
    EXPECT_EQ(::GetObjectType(brush), 0U);
}

TEST_F(GdiObjectTest, EveryKindIsCountedWhileItIsHeld)
{
#ifndef NDEBUG
    const Counts before = LiveCounts();
    {
        CPen pen(PS_SOLID, 1, kRed);
        CBrush brush(kRed);
        CFont font;
        font.CreatePointFont(80, "Arial");
        CBitmap bitmap;
        bitmap.CreateBitmap(2, 2, 1, 1, nullptr);
        CRgn region;
        region.CreateRectRgn(0, 0, 1, 1);
        CDC dc;
        dc.CreateCompatibleDC(nullptr);
        for (const auto kind : {AfxResource::Pen, AfxResource::Brush, AfxResource::Font, AfxResource::Bitmap,
                                AfxResource::Region, AfxResource::DeviceContext})
        {
            EXPECT_EQ(AfxGetLiveCount(kind), before[static_cast<size_t>(kind)] + 1) << static_cast<int>(kind);
        }
    }
    EXPECT_EQ(LiveCounts(), before);
#endif
}

TEST_F(GdiObjectTest, EveryThreadHasObjectsOfItsOwn)
{
    CBrush brush(kRed);
    const HBRUSH handle = brush;
    CBrush* seen = &brush;
    bool died = false;
    std::jthread([&] {
        seen = CBrush::FromHandle(handle);
        CPen pen(PS_SOLID, 1, kRed);
        const HGDIOBJ own = pen.m_hObject;
        pen.DeleteObject();
        died = ::GetObjectType(own) == 0;
    }).join();
    EXPECT_NE(seen, &brush);
    EXPECT_TRUE(died);
    EXPECT_EQ(::GetObjectType(handle), DWORD(OBJ_BRUSH)) << "the other thread's temporary object deleted it";
    EXPECT_EQ(CBrush::FromHandle(handle), &brush);
}

TEST_F(GdiObjectTest, AWrongPenDescriptionIsRefused)
{
    CPen pen;
    EXPECT_FALSE(pen.CreatePenIndirect(nullptr));
    EXPECT_EQ(pen.m_hObject, nullptr);
    LOGPEN description = {PS_DASH, {1, 0}, kBlue};
    EXPECT_TRUE(pen.CreatePenIndirect(&description));
}

TEST_F(GdiObjectTest, BrushesTellTheirKindAndColour)
{
    LOGBRUSH description = {};
    CBrush brush(kBlue);
    EXPECT_EQ(brush.GetLogBrush(&description), int(sizeof(LOGBRUSH)));
    EXPECT_EQ(description.lbStyle, UINT(BS_SOLID));
    EXPECT_EQ(description.lbColor, kBlue);
    EXPECT_TRUE(brush.CreateHatchBrush(HS_CROSS, kRed));
    brush.GetLogBrush(&description);
    EXPECT_EQ(description.lbStyle, UINT(BS_HATCHED));
    EXPECT_EQ(description.lbHatch, ULONG_PTR(HS_CROSS));
    EXPECT_FALSE(brush.CreatePatternBrush(nullptr));
    EXPECT_NE(brush.m_hObject, nullptr) << "a failed creation leaves the brush as it was";
}

TEST_F(GdiObjectTest, APatternBrushRepeatsItsBitmap)
{
    MemoryCanvas canvas;
    CBitmap pattern;
    ASSERT_TRUE(pattern.LoadBitmap(kStripBitmap));
    CBrush brush;
    ASSERT_TRUE(brush.CreatePatternBrush(&pattern));
    pattern.DeleteObject();
    canvas.dc.FillRect(CRect(0, 0, 16, 16), &brush);
    EXPECT_EQ(canvas.At(0, 1), kRed);
    EXPECT_EQ(canvas.At(2, 1), kBlue);
    EXPECT_EQ(canvas.At(4, 1), kRed);
    EXPECT_EQ(canvas.At(7, 0), kMagenta);
}

TEST_F(GdiObjectTest, AFontKeepsItsDescription)
{
    CFont font;
    ASSERT_TRUE(font.CreateFont(-17, 0, 900, 0, FW_BOLD, TRUE, TRUE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, "Arial"));
    LOGFONT description = {};
    EXPECT_NE(font.GetLogFont(&description), 0);
    EXPECT_EQ(description.lfHeight, -17);
    EXPECT_EQ(description.lfEscapement, 900);
    EXPECT_EQ(description.lfWeight, FW_BOLD);
    EXPECT_TRUE(description.lfItalic);
    EXPECT_TRUE(description.lfUnderline);
    EXPECT_FALSE(description.lfStrikeOut);
    EXPECT_STREQ(description.lfFaceName, "Arial");
    EXPECT_FALSE(font.CreateFontIndirect(nullptr));
    EXPECT_NE(font.m_hObject, nullptr);
}

TEST_F(GdiObjectTest, ANullFaceNameLetsTheSystemChoose)
{
    CFont font;
    EXPECT_TRUE(font.CreateFont(12, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, nullptr));
    EXPECT_TRUE(font.CreatePointFont(80, nullptr));
}

TEST_F(GdiObjectTest, ALongFaceNameIsCut)
{
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(80, "A name of a face that is much longer than thirty-one characters"));
    LOGFONT description = {};
    font.GetLogFont(&description);
    EXPECT_STREQ(description.lfFaceName, "A name of a face that is much l");
}

struct PointSize
{
    int tenths;
};
class PointFontTest : public CountedTest, public testing::WithParamInterface<PointSize>
{
};

TEST_P(PointFontTest, TheHeightIsThePointSizeInPixelsCutToAWhole)
{
    CClientDC screen(nullptr);
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(GetParam().tenths, "Arial", &screen));
    LOGFONT description = {};
    font.GetLogFont(&description);
    EXPECT_EQ(description.lfHeight, -(GetParam().tenths * screen.GetDeviceCaps(LOGPIXELSY) / 720));
    EXPECT_EQ(description.lfCharSet, DEFAULT_CHARSET);
    EXPECT_STREQ(description.lfFaceName, "Arial");
    CFont withoutContext;
    ASSERT_TRUE(withoutContext.CreatePointFont(GetParam().tenths, "Arial"));
    LOGFONT second = {};
    withoutContext.GetLogFont(&second);
    EXPECT_EQ(second.lfHeight, description.lfHeight);
}
INSTANTIATE_TEST_SUITE_P(Sizes, PointFontTest,
                         testing::Values(PointSize{70}, PointSize{75}, PointSize{65}, PointSize{120}, PointSize{800}));

TEST_F(GdiObjectTest, APointFontFollowsTheMappingOfItsContext)
{
    MemoryCanvas canvas;
    ::SetMapMode(canvas.dc, MM_ANISOTROPIC);
    ::SetWindowExtEx(canvas.dc, 300, 300, nullptr);
    ::SetViewportExtEx(canvas.dc, 100, 100, nullptr);
    ::SetWindowOrgEx(canvas.dc, 50, 50, nullptr);
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(120, "Arial", &canvas.dc));
    LOGFONT description = {};
    font.GetLogFont(&description);
    EXPECT_EQ(description.lfHeight, -3 * (120 * canvas.dc.GetDeviceCaps(LOGPIXELSY) / 720));
}

TEST_F(GdiObjectTest, BitmapsLoadFromResourcesByNumberAndName)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadBitmap(kStripBitmap));
    BITMAP info = {};
    EXPECT_NE(bitmap.GetBitmap(&info), 0);
    EXPECT_EQ(info.bmWidth, 4);
    EXPECT_EQ(info.bmHeight, 2);
    EXPECT_TRUE(bitmap.LoadBitmap("PICU"));
    bitmap.GetBitmap(&info);
    EXPECT_EQ(info.bmWidth, 2);
}

TEST_F(GdiObjectTest, AMissingBitmapResourceLeavesTheBitmapAsItWas)
{
    CBitmap bitmap;
    EXPECT_FALSE(bitmap.LoadBitmap(kMissingBitmap));
    EXPECT_EQ(bitmap.m_hObject, nullptr);
    ASSERT_TRUE(bitmap.LoadBitmap(kGreenBitmap));
    const HGDIOBJ handle = bitmap.m_hObject;
    EXPECT_FALSE(bitmap.LoadBitmap("NOSUCHPICTURE"));
    EXPECT_EQ(bitmap.m_hObject, handle);
}

TEST_F(GdiObjectTest, TheSystemsOwnBitmapsLoad)
{
    constexpr UINT kSizeGrip = 32766;
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadOEMBitmap(kSizeGrip));
    BITMAP info = {};
    bitmap.GetBitmap(&info);
    EXPECT_GT(info.bmWidth, 0);
}

TEST_F(GdiObjectTest, BitmapsAreCreatedInTheSizeAskedFor)
{
    CClientDC screen(nullptr);
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&screen, 7, 5));
    BITMAP info = {};
    bitmap.GetBitmap(&info);
    EXPECT_EQ(info.bmWidth, 7);
    EXPECT_EQ(info.bmHeight, 5);
    EXPECT_EQ(info.bmBitsPixel, screen.GetDeviceCaps(BITSPIXEL));
    EXPECT_FALSE(bitmap.CreateCompatibleBitmap(nullptr, 7, 5));
    const WORD rows[] = {0xAA, 0x55};
    ASSERT_TRUE(bitmap.CreateBitmap(8, 2, 1, 1, rows));
    bitmap.GetBitmap(&info);
    EXPECT_EQ(info.bmBitsPixel, 1);
}

TEST_F(GdiObjectTest, AskingAnEmptyObjectForItsDescriptionAnswersZero)
{
    const CBitmap bitmap;
    BITMAP info = {};
    EXPECT_EQ(bitmap.GetBitmap(&info), 0);
    EXPECT_EQ(bitmap.GetObject(sizeof info, &info), 0);
}

TEST_F(GdiObjectTest, RegionsCombineAndTellWhatTheyHold)
{
    CRgn left;
    CRgn right;
    ASSERT_TRUE(left.CreateRectRgn(0, 0, 10, 10));
    ASSERT_TRUE(right.CreateRectRgnIndirect(CRect(5, 5, 20, 20)));
    EXPECT_FALSE(right.CreateRectRgnIndirect(nullptr));
    EXPECT_EQ(left.CombineRgn(&left, &right, RGN_OR), COMPLEXREGION);
    CRect box;
    EXPECT_EQ(left.GetRgnBox(&box), COMPLEXREGION);
    EXPECT_EQ(box, CRect(0, 0, 20, 20));
    EXPECT_TRUE(left.PtInRegion(CPoint(19, 19)));
    EXPECT_FALSE(left.PtInRegion(CPoint(19, 1)));
    EXPECT_EQ(CRgn::FromHandle(left), &left);
    EXPECT_EQ(left.CombineRgn(&left, nullptr, RGN_OR), ERROR);
}
} // namespace
