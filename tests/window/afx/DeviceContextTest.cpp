#include "CountedTest.h"

using namespace colour;

namespace
{
using DeviceContextTest = CountedTest;

TEST_F(DeviceContextTest, ANullObjectHasANullHandle)
{
    const CDC* none = nullptr;
    EXPECT_EQ(none->GetSafeHdc(), nullptr);
    EXPECT_EQ(CDC::FromHandle(nullptr), nullptr);
    CDC empty;
    EXPECT_FALSE(empty.Attach(nullptr));
    EXPECT_FALSE(empty.DeleteDC());
}

TEST_F(DeviceContextTest, TheDestructorDeletesTheContext)
{
    HDC handle = nullptr;
    {
        CDC dc;
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        handle = dc;
        EXPECT_EQ(dc.m_hAttribDC, dc.m_hDC);
        EXPECT_EQ(CDC::FromHandle(handle), &dc);
    }
    EXPECT_EQ(::GetObjectType(handle), 0U);
}

TEST_F(DeviceContextTest, AContextIsMadeAnewInPlaceOfTheOneBefore)
{
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    ASSERT_TRUE(dc.CreateDC("DISPLAY", nullptr, nullptr, nullptr));
    EXPECT_GT(dc.GetDeviceCaps(HORZRES), 0);
}

TEST_F(DeviceContextTest, AnUnknownDriverIsRefused)
{
    CDC dc;
    EXPECT_FALSE(dc.CreateDC("NO SUCH DRIVER", "NO SUCH DEVICE", nullptr, nullptr));
    EXPECT_EQ(dc.m_hDC, nullptr);
    EXPECT_EQ(dc.GetDeviceCaps(LOGPIXELSY), 0);
}

TEST_F(DeviceContextTest, ATemporaryObjectStandsForABorrowedContext)
{
    const HDC handle = ::CreateCompatibleDC(nullptr);
    CDC* temporary = CDC::FromHandle(handle);
    EXPECT_EQ(temporary->m_hDC, handle);
    EXPECT_EQ(temporary->m_hAttribDC, handle);
    EXPECT_EQ(CDC::FromHandle(handle), temporary);
    AfxLockTempMaps();
    AfxUnlockTempMaps();
    EXPECT_EQ(::GetObjectType(handle), DWORD(OBJ_MEMDC)) << "the temporary object deleted the context";
    ::DeleteDC(handle);
}

TEST_F(DeviceContextTest, SelectingAnswersWithWhatWasSelectedBefore)
{
    MemoryCanvas canvas;
    CPen red(PS_SOLID, 1, kRed);
    CPen green(PS_SOLID, 1, kGreen);
    CPen* first = canvas.dc.SelectObject(&red);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->m_hObject, ::GetStockObject(BLACK_PEN));
    EXPECT_EQ(canvas.dc.SelectObject(&green), &red);
    EXPECT_EQ(canvas.dc.GetCurrentPen(), &green);
    EXPECT_EQ(canvas.dc.SelectObject(first), &green);
    EXPECT_EQ(canvas.dc.GetCurrentPen()->m_hObject, ::GetStockObject(BLACK_PEN));
}

TEST_F(DeviceContextTest, EveryKindOfObjectIsSelected)
{
    MemoryCanvas canvas;
    CBrush brush(kBlue);
    CFont font;
    font.CreatePointFont(100, "Arial");
    CBrush* oldBrush = canvas.dc.SelectObject(&brush);
    CFont* oldFont = canvas.dc.SelectObject(&font);
    EXPECT_EQ(canvas.dc.GetCurrentBrush(), &brush);
    EXPECT_EQ(canvas.dc.GetCurrentFont(), &font);
    EXPECT_EQ(canvas.dc.GetCurrentBitmap(), &canvas.bitmap);
    EXPECT_EQ(canvas.dc.SelectObject(oldBrush), &brush);
    EXPECT_EQ(canvas.dc.SelectObject(oldFont), &font);
    CGdiObject* old = canvas.dc.SelectStockObject(NULL_BRUSH);
    ASSERT_NE(old, nullptr);
    EXPECT_NE(dynamic_cast<CBrush*>(old), nullptr);
    EXPECT_EQ(canvas.dc.GetCurrentBrush()->m_hObject, ::GetStockObject(NULL_BRUSH));
}

TEST_F(DeviceContextTest, SelectingNothingChangesNothing)
{
    MemoryCanvas canvas;
    EXPECT_EQ(canvas.dc.SelectObject(static_cast<CPen*>(nullptr)), nullptr);
    EXPECT_EQ(canvas.dc.SelectObject(static_cast<CBitmap*>(nullptr)), nullptr);
    CBrush empty;
    EXPECT_EQ(canvas.dc.SelectObject(&empty), nullptr);
    EXPECT_EQ(canvas.dc.SelectObject(static_cast<CRgn*>(nullptr)), ERROR);
    EXPECT_EQ(canvas.dc.GetCurrentPen()->m_hObject, ::GetStockObject(BLACK_PEN));
}

TEST_F(DeviceContextTest, ABitmapThatIsInAnotherContextIsRefused)
{
    MemoryCanvas canvas;
    CDC other;
    other.CreateCompatibleDC(nullptr);
    EXPECT_EQ(other.SelectObject(&canvas.bitmap), nullptr);
}

// The fixture compares the counts of live objects afterwards.
TEST_F(DeviceContextTest, AContextThatDiesWithObjectsSelectedLeavesThemToTheirOwners)
{
    CPen pen(PS_SOLID, 4, kRed);
    CBrush brush(kBlue);
    CFont font;
    font.CreatePointFont(90, "Arial");
    CBitmap bitmap;
    bitmap.CreateBitmap(4, 4, 1, 1, nullptr);
    {
        CDC dc;
        dc.CreateCompatibleDC(nullptr);
        dc.SelectObject(&pen);
        dc.SelectObject(&brush);
        dc.SelectObject(&font);
        dc.SelectObject(&bitmap);
    }
    for (const CGdiObject* object : {static_cast<const CGdiObject*>(&pen), static_cast<const CGdiObject*>(&brush),
                                     static_cast<const CGdiObject*>(&font), static_cast<const CGdiObject*>(&bitmap)})
    {
        EXPECT_NE(::GetObjectType(object->m_hObject), 0U);
    }
    CDC next;
    next.CreateCompatibleDC(nullptr);
    EXPECT_NE(next.SelectObject(&bitmap), nullptr) << "the dead context still holds the bitmap";
}

TEST_F(DeviceContextTest, AttributesAnswerWithTheValueBefore)
{
    MemoryCanvas canvas;
    CDC& dc = canvas.dc;
    EXPECT_EQ(dc.SetTextColor(kRed), kBlack);
    EXPECT_EQ(dc.SetTextColor(kGreen), kRed);
    EXPECT_EQ(dc.GetTextColor(), kGreen);
    EXPECT_EQ(dc.SetBkColor(kBlue), kWhite);
    EXPECT_EQ(dc.GetBkColor(), kBlue);
    EXPECT_EQ(dc.SetBkMode(TRANSPARENT), OPAQUE);
    EXPECT_EQ(dc.GetBkMode(), TRANSPARENT);
    EXPECT_EQ(dc.SetTextAlign(TA_RIGHT | TA_BASELINE), UINT(TA_LEFT | TA_TOP));
    EXPECT_EQ(dc.GetTextAlign(), UINT(TA_RIGHT | TA_BASELINE));
    EXPECT_EQ(dc.SetROP2(R2_XORPEN), R2_COPYPEN);
}

TEST_F(DeviceContextTest, AttributesOfAnEmptyObjectFail)
{
    CDC dc;
    EXPECT_EQ(dc.SetTextColor(kRed), COLORREF(CLR_INVALID));
    EXPECT_EQ(dc.SetBkColor(kRed), COLORREF(CLR_INVALID));
    EXPECT_EQ(dc.SaveDC(), 0);
    EXPECT_FALSE(dc.RestoreDC(-1));
    EXPECT_EQ(dc.GetTextExtent("text", 4), CSize(0, 0));
}

TEST_F(DeviceContextTest, ASavedStateComesBack)
{
    MemoryCanvas canvas;
    const int saved = canvas.dc.SaveDC();
    EXPECT_GT(saved, 0);
    canvas.dc.SetTextColor(kRed);
    canvas.dc.SaveDC();
    canvas.dc.SetTextColor(kGreen);
    EXPECT_TRUE(canvas.dc.RestoreDC(-1));
    EXPECT_EQ(canvas.dc.GetTextColor(), kRed);
    EXPECT_TRUE(canvas.dc.RestoreDC(saved));
    EXPECT_EQ(canvas.dc.GetTextColor(), kBlack);
    EXPECT_FALSE(canvas.dc.RestoreDC(saved));
}

// Output and questions may go to different contexts, as for a preview.
TEST_F(DeviceContextTest, SeparateOutputAndAttributeContextsAreKeptAlike)
{
    MemoryCanvas canvas;
    CDC attributes;
    attributes.CreateCompatibleDC(nullptr);
    canvas.dc.m_hAttribDC = attributes.m_hDC;
    CFont font;
    font.CreatePointFont(200, "Arial");
    CFont* old = canvas.dc.SelectObject(&font);
    EXPECT_EQ(::GetCurrentObject(canvas.dc.m_hDC, OBJ_FONT), font.m_hObject);
    EXPECT_EQ(::GetCurrentObject(attributes, OBJ_FONT), font.m_hObject);
    EXPECT_EQ(canvas.dc.SaveDC(), -1);
    canvas.dc.SetTextColor(kRed);
    EXPECT_EQ(::GetTextColor(canvas.dc.m_hDC), kRed);
    EXPECT_EQ(::GetTextColor(attributes), kRed);
    EXPECT_TRUE(canvas.dc.RestoreDC(-1));
    EXPECT_EQ(::GetTextColor(canvas.dc.m_hDC), kBlack);
    EXPECT_EQ(::GetTextColor(attributes), kBlack);
    canvas.dc.MoveTo(3, 4);
    canvas.dc.LineTo(9, 4);
    POINT position = {};
    ::GetCurrentPositionEx(attributes, &position);
    EXPECT_EQ(position.x, 9);
    ::GetCurrentPositionEx(canvas.dc.m_hDC, &position);
    EXPECT_EQ(position.x, 9);
    canvas.dc.SelectObject(old);
    canvas.dc.m_hAttribDC = canvas.dc.m_hDC;
}

TEST_F(DeviceContextTest, ALineLeavesItsEndPointUnpainted)
{
    MemoryCanvas canvas;
    CPen pen(PS_SOLID, 1, kRed);
    const SelectScope selected(canvas.dc, pen);
    EXPECT_EQ(canvas.dc.MoveTo(5, 5), CPoint(0, 0));
    EXPECT_TRUE(canvas.dc.LineTo(10, 5));
    EXPECT_EQ(canvas.At(5, 5), kRed);
    EXPECT_EQ(canvas.At(9, 5), kRed);
    EXPECT_EQ(canvas.At(10, 5), kWhite);
    EXPECT_EQ(canvas.dc.MoveTo(CPoint(0, 0)), CPoint(10, 5));
}

TEST_F(DeviceContextTest, ShapesLeaveOutRightAndBottom)
{
    MemoryCanvas canvas;
    CBrush brush(kBlue);
    const SelectScope fill(canvas.dc, brush);
    EXPECT_TRUE(canvas.dc.Rectangle(CRect(2, 2, 10, 12)));
    EXPECT_EQ(canvas.At(2, 2), kBlack);
    EXPECT_EQ(canvas.At(3, 3), kBlue);
    EXPECT_EQ(canvas.At(9, 11), kBlack);
    EXPECT_EQ(canvas.At(10, 12), kWhite);
    EXPECT_TRUE(canvas.dc.Ellipse(CRect(20, 20, 40, 40)));
    EXPECT_EQ(canvas.At(30, 30), kBlue);
    EXPECT_EQ(canvas.At(20, 20), kWhite);
    EXPECT_TRUE(canvas.dc.RoundRect(CRect(42, 2, 62, 22), CPoint(8, 8)));
    EXPECT_EQ(canvas.At(42, 2), kWhite);
    EXPECT_EQ(canvas.At(52, 2), kBlack);
    EXPECT_EQ(canvas.At(52, 12), kBlue);
}

TEST_F(DeviceContextTest, AnArcRunsAnticlockwise)
{
    MemoryCanvas canvas;
    EXPECT_TRUE(canvas.dc.Arc(CRect(10, 10, 51, 51), CPoint(60, 30), CPoint(0, 30)));
    EXPECT_EQ(canvas.At(30, 10), kBlack) << "upper half";
    EXPECT_EQ(canvas.At(30, 50), kWhite) << "lower half";
}

TEST_F(DeviceContextTest, FloodFillStopsAtTheBorderColour)
{
    MemoryCanvas canvas;
    const SelectScope hollow(canvas.dc, NULL_BRUSH);
    canvas.dc.Rectangle(10, 10, 20, 20);
    CBrush brush(kGreen);
    const SelectScope fill(canvas.dc, brush);
    EXPECT_TRUE(canvas.dc.FloodFill(15, 15, kBlack));
    EXPECT_EQ(canvas.At(11, 11), kGreen);
    EXPECT_EQ(canvas.At(18, 18), kGreen);
    EXPECT_EQ(canvas.At(10, 10), kBlack);
    EXPECT_EQ(canvas.At(21, 21), kWhite);
    EXPECT_FALSE(canvas.dc.FloodFill(10, 10, kBlack)) << "begins on the border";
}

TEST_F(DeviceContextTest, APolygonIsFilled)
{
    MemoryCanvas canvas;
    CBrush brush(kRed);
    const SelectScope fill(canvas.dc, brush);
    const POINT corners[] = {{10, 10}, {40, 10}, {10, 40}};
    EXPECT_TRUE(canvas.dc.Polygon(corners, 3));
    EXPECT_EQ(canvas.At(15, 15), kRed);
    EXPECT_EQ(canvas.At(38, 38), kWhite);
}

TEST_F(DeviceContextTest, FillSolidRectLeavesTheBackgroundColourChanged)
{
    MemoryCanvas canvas;
    canvas.dc.SetBkColor(kWhite);
    canvas.dc.FillSolidRect(CRect(4, 4, 8, 8), kRed);
    EXPECT_EQ(canvas.At(4, 4), kRed);
    EXPECT_EQ(canvas.At(7, 7), kRed);
    EXPECT_EQ(canvas.At(8, 8), kWhite);
    EXPECT_EQ(canvas.dc.GetBkColor(), kRed);
    canvas.dc.FillSolidRect(20, 20, 3, 2, kGreen);
    EXPECT_EQ(canvas.At(22, 21), kGreen);
    EXPECT_EQ(canvas.At(23, 21), kWhite);
    EXPECT_EQ(canvas.At(22, 22), kWhite);
    EXPECT_EQ(canvas.dc.GetBkColor(), kGreen);
}

TEST_F(DeviceContextTest, FillRectAndFrameRectUseTheBrushGiven)
{
    MemoryCanvas canvas;
    CBrush brush(kBlue);
    canvas.dc.FillRect(CRect(0, 0, 5, 5), &brush);
    EXPECT_EQ(canvas.At(4, 4), kBlue);
    EXPECT_EQ(canvas.At(5, 5), kWhite);
    canvas.dc.FrameRect(CRect(10, 10, 20, 20), &brush);
    EXPECT_EQ(canvas.At(10, 15), kBlue);
    EXPECT_EQ(canvas.At(15, 15), kWhite);
}

TEST_F(DeviceContextTest, DrawingAFocusRectangleTwiceRestoresThePicture)
{
    MemoryCanvas canvas;
    const auto changed = [&canvas] {
        int count = 0;
        for (int x = 5; x < 30; ++x)
        {
            count += canvas.At(x, 5) != kWhite;
        }
        return count;
    };
    canvas.dc.DrawFocusRect(CRect(5, 5, 30, 30));
    EXPECT_GT(changed(), 0);
    canvas.dc.DrawFocusRect(CRect(5, 5, 30, 30));
    EXPECT_EQ(changed(), 0);
}

TEST_F(DeviceContextTest, EdgesAndFrameControlsAreDrawn)
{
    MemoryCanvas canvas(kMagenta);
    CRect rect(10, 10, 30, 30);
    EXPECT_TRUE(canvas.dc.DrawEdge(&rect, EDGE_SUNKEN, BF_RECT | BF_ADJUST));
    EXPECT_EQ(rect, CRect(12, 12, 28, 28));
    EXPECT_NE(canvas.At(10, 10), kMagenta);
    EXPECT_EQ(canvas.At(20, 20), kMagenta);
    CRect button(40, 40, 60, 60);
    EXPECT_TRUE(canvas.dc.DrawFrameControl(&button, DFC_BUTTON, DFCS_BUTTONPUSH));
    EXPECT_NE(canvas.At(50, 50), kMagenta);
}

TEST_F(DeviceContextTest, AnIconIsDrawnAndANullOneFails)
{
    MemoryCanvas canvas(kMagenta);
    EXPECT_TRUE(canvas.dc.DrawIcon(0, 0, ::LoadIcon(nullptr, IDI_ERROR)));
    EXPECT_NE(canvas.At(16, 16), kMagenta);
    EXPECT_FALSE(canvas.dc.DrawIcon(CPoint(0, 0), nullptr));
}

TEST_F(DeviceContextTest, DrawTextMeasuresAndPaints)
{
    MemoryCanvas canvas;
    canvas.dc.SetTextColor(kRed);
    CRect rect(0, 0, 60, 60);
    const int height = canvas.dc.DrawText(CString("M"), &rect, DT_CALCRECT | DT_SINGLELINE);
    EXPECT_GT(height, 0);
    EXPECT_EQ(rect.Size(), CSize(canvas.dc.GetTextExtent("M", 1).cx, height));
    EXPECT_EQ(canvas.dc.DrawText("M", -1, &rect, DT_SINGLELINE), height);
    int painted = 0;
    for (int y = 0; y < rect.bottom; ++y)
    {
        for (int x = 0; x < rect.right; ++x)
        {
            painted += canvas.At(x, y) == kRed;
        }
    }
    EXPECT_GT(painted, 0);
}

TEST_F(DeviceContextTest, DrawTextNeverWritesToTheTextGiven)
{
    MemoryCanvas canvas;
    const CString text("a text that is far too long for so narrow a place");
    const CString shared = text;
    CRect rect(0, 0, 30, 20);
    canvas.dc.DrawText(text, &rect, DT_SINGLELINE | DT_END_ELLIPSIS | DT_MODIFYSTRING);
    EXPECT_STREQ(shared, "a text that is far too long for so narrow a place");
}

TEST_F(DeviceContextTest, ANullTextReadsAsEmpty)
{
    MemoryCanvas canvas;
    CRect rect(0, 0, 60, 60);
    canvas.dc.DrawText(nullptr, -1, &rect, DT_CALCRECT);
    EXPECT_EQ(rect.Width(), 0);
    EXPECT_EQ(canvas.dc.GetTextExtent(nullptr, 3), CSize(0, 0));
}

TEST_F(DeviceContextTest, TextOutPaintsAtItsPlaceInTheBackgroundMode)
{
    MemoryCanvas canvas;
    canvas.dc.SetBkColor(kGreen);
    EXPECT_TRUE(canvas.dc.TextOut(10, 10, CString(" ")));
    EXPECT_EQ(canvas.At(10, 10), kGreen);
    EXPECT_EQ(canvas.At(9, 9), kWhite);
    canvas.dc.SetBkMode(TRANSPARENT);
    EXPECT_TRUE(canvas.dc.TextOut(30, 30, " ", 1));
    EXPECT_EQ(canvas.At(30, 30), kWhite);
}

TEST_F(DeviceContextTest, ExtTextOutFillsItsRectangle)
{
    MemoryCanvas canvas;
    canvas.dc.SetBkColor(kBlue);
    EXPECT_TRUE(canvas.dc.ExtTextOut(0, 0, ETO_OPAQUE, CRect(0, 0, 40, 20), CString(), nullptr));
    EXPECT_EQ(canvas.At(39, 19), kBlue);
    EXPECT_EQ(canvas.At(40, 20), kWhite);
}

TEST_F(DeviceContextTest, TextExtentsComeFromTheAttributeContext)
{
    MemoryCanvas canvas;
    CFont large;
    large.CreatePointFont(300, "Arial");
    const CSize small = canvas.dc.GetTextExtent(CString("width"));
    CDC attributes;
    attributes.CreateCompatibleDC(nullptr);
    attributes.SelectObject(&large);
    canvas.dc.m_hAttribDC = attributes.m_hDC;
    EXPECT_GT(canvas.dc.GetTextExtent(CString("width")).cx, small.cx);
    TEXTMETRIC metrics = {};
    EXPECT_TRUE(canvas.dc.GetTextMetrics(&metrics));
    EXPECT_EQ(canvas.dc.GetTextExtent("x", 1).cy, metrics.tmHeight);
    canvas.dc.m_hAttribDC = canvas.dc.m_hDC;
}

TEST_F(DeviceContextTest, BitBltCopiesAndNeedsNoSourceForFills)
{
    MemoryCanvas source(kRed);
    MemoryCanvas target;
    EXPECT_TRUE(target.dc.BitBlt(5, 6, 10, 10, &source.dc, 0, 0, SRCCOPY));
    EXPECT_EQ(target.At(5, 6), kRed);
    EXPECT_EQ(target.At(14, 15), kRed);
    EXPECT_EQ(target.At(15, 16), kWhite);
    EXPECT_TRUE(target.dc.BitBlt(0, 0, 64, 64, nullptr, 0, 0, BLACKNESS));
    EXPECT_EQ(target.At(63, 63), kBlack);
    EXPECT_TRUE(target.dc.PatBlt(0, 0, 8, 8, WHITENESS));
    EXPECT_EQ(target.At(7, 7), kWhite);
}

TEST_F(DeviceContextTest, PixelsAreSetAndRead)
{
    MemoryCanvas canvas;
    EXPECT_EQ(canvas.dc.SetPixel(3, 4, kGreen), kGreen);
    EXPECT_EQ(canvas.dc.GetPixel(CPoint(3, 4)), kGreen);
    EXPECT_EQ(canvas.dc.SetPixel(CPoint(4, 4), kBlue), kBlue);
    EXPECT_EQ(canvas.At(4, 4), kBlue);
    EXPECT_EQ(canvas.At(-1, 0), COLORREF(CLR_INVALID));
    EXPECT_EQ(canvas.At(64, 0), COLORREF(CLR_INVALID));
}

TEST_F(DeviceContextTest, ClippingNarrowsWhatIsPainted)
{
    MemoryCanvas canvas;
    EXPECT_EQ(canvas.dc.IntersectClipRect(CRect(10, 10, 20, 20)), SIMPLEREGION);
    CRect box;
    EXPECT_EQ(canvas.dc.GetClipBox(&box), SIMPLEREGION);
    EXPECT_EQ(box, CRect(10, 10, 20, 20));
    canvas.dc.FillSolidRect(0, 0, 64, 64, kRed);
    EXPECT_EQ(canvas.dc.SelectClipRgn(nullptr), SIMPLEREGION);
    EXPECT_EQ(canvas.At(9, 9), kWhite);
    EXPECT_EQ(canvas.At(10, 10), kRed);
    CRgn region;
    region.CreateRectRgn(0, 0, 2, 2);
    EXPECT_EQ(canvas.dc.SelectObject(&region), SIMPLEREGION);
    region.DeleteObject();
    canvas.dc.FillSolidRect(0, 0, 64, 64, kBlue);
    canvas.dc.SelectClipRgn(nullptr);
    EXPECT_EQ(canvas.At(1, 1), kBlue);
    EXPECT_EQ(canvas.At(2, 2), kWhite);
}

TEST_F(DeviceContextTest, AScopeRestoresWhatWasSelected)
{
    MemoryCanvas canvas;
    CPen pen(PS_SOLID, 1, kRed);
    {
        const SelectScope selected(canvas.dc, pen);
        const SelectScope hollow(canvas.dc, NULL_BRUSH);
        EXPECT_EQ(canvas.dc.GetCurrentPen(), &pen);
        AfxLockTempMaps();
        AfxUnlockTempMaps(); // the scope keeps handles, so that temporary objects may die under it
    }
    EXPECT_EQ(canvas.dc.GetCurrentPen()->m_hObject, ::GetStockObject(BLACK_PEN));
    EXPECT_EQ(canvas.dc.GetCurrentBrush()->m_hObject, ::GetStockObject(WHITE_BRUSH));
    {
        const SavedDCScope saved(canvas.dc);
        canvas.dc.SetTextColor(kRed);
    }
    EXPECT_EQ(canvas.dc.GetTextColor(), kBlack);
}

TEST_F(DeviceContextTest, AClientContextDrawsInTheWindowAndIsReleased)
{
    support::TestFrame frame;
    support::Settle();
    {
        CClientDC dc(&frame);
        EXPECT_EQ(::WindowFromDC(dc), frame.m_hWnd);
        dc.FillSolidRect(0, 0, 20, 20, kRed);
        EXPECT_EQ(CDC::FromHandle(dc), &dc);
    }
    EXPECT_EQ(support::ClientPixel(frame, 10, 10), kRed);
}

TEST_F(DeviceContextTest, ANullWindowStandsForTheScreen)
{
    CClientDC client(nullptr);
    CWindowDC window(nullptr);
    EXPECT_EQ(client.GetDeviceCaps(HORZRES), ::GetSystemMetrics(SM_CXSCREEN));
    EXPECT_EQ(window.GetDeviceCaps(VERTRES), ::GetSystemMetrics(SM_CYSCREEN));
}

TEST_F(DeviceContextTest, AWindowContextBeginsAtTheWindowsCorner)
{
    support::TestFrame frame;
    support::Settle();
    CRect rect;
    frame.GetWindowRect(&rect);
    CWindowDC dc(&frame);
    CRect box;
    dc.GetClipBox(&box);
    EXPECT_EQ(box.Size(), rect.Size());
}

// Counts what a paint handler is told.
class PaintedWnd : public support::TestFrame
{
public:
    int m_paints = 0;
    CRect m_paintRect;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_PAINT)
        {
            ++m_paints;
            CPaintDC dc(this);
            m_paintRect = dc.m_ps.rcPaint;
            dc.FillSolidRect(&m_paintRect, kGreen);
            return 0;
        }
        return TestFrame::WindowProc(message, wParam, lParam);
    }
};

TEST_F(DeviceContextTest, APaintContextValidatesTheWindow)
{
    PaintedWnd frame;
    support::Settle();
    frame.m_paints = 0;
    frame.InvalidateRect(CRect(10, 10, 30, 25));
    frame.UpdateWindow();
    EXPECT_EQ(frame.m_paints, 1);
    EXPECT_EQ(frame.m_paintRect, CRect(10, 10, 30, 25));
    EXPECT_FALSE(::GetUpdateRect(frame, nullptr, FALSE));
    EXPECT_EQ(support::ClientPixel(frame, 20, 20), kGreen);
}

TEST_F(DeviceContextTest, AContextOfADeadWindowIsAResourceException)
{
    CWnd dead;
    EXPECT_THROW(
        try { CPaintDC dc(&dead); } catch (CException* e) {
            EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CResourceException)));
            e->Delete();
            throw 1;
        },
        int);
}
} // namespace
