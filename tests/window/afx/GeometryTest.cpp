// GeometryTest.cpp - points, sizes, rectangles
#include <afxgeom.h>
#include <gmock/gmock.h>

namespace
{
SIZE Extent(LONG cx, LONG cy) { return {cx, cy}; }
POINT At(LONG x, LONG y) { return {x, y}; }
} // namespace

TEST(Point, StartsAtTheOrigin) { EXPECT_EQ(CPoint(), CPoint(0, 0)); }

TEST(Point, OfAMessageTakesSignedHalves)
{
    EXPECT_EQ(CPoint(MAKELPARAM(5, -3)), CPoint(5, -3));
    EXPECT_EQ(CPoint(static_cast<LPARAM>(0xFFFF8000)), CPoint(-32768, -1));
}

TEST(Point, ConvertsFromItsPlatformRelatives)
{
    EXPECT_EQ(CPoint(At(1, 2)), CPoint(1, 2));
    EXPECT_EQ(CPoint(Extent(1, 2)), CPoint(1, 2));
}

TEST(Point, MovesAndCompares)
{
    CPoint point(1, 2);
    point.Offset(10, 20);
    EXPECT_EQ(point, CPoint(11, 22));
    point.Offset(POINT{-1, -2});
    point.Offset(SIZE{1, 1});
    EXPECT_EQ(point, CPoint(11, 21));
    point += SIZE{1, 1};
    point -= SIZE{2, 3};
    EXPECT_EQ(point, CPoint(10, 19));
    point += POINT{1, 1};
    point -= POINT{11, 20};
    EXPECT_EQ(point, CPoint(0, 0));
    EXPECT_NE(point, CPoint(0, 1));
    EXPECT_EQ(CPoint(1, 2) + Extent(3, 4), CPoint(4, 6));
    EXPECT_EQ(CPoint(1, 2) + At(3, 4), CPoint(4, 6));
    EXPECT_EQ(CPoint(1, 2) - Extent(3, 4), CPoint(-2, -2));
    EXPECT_EQ(CPoint(1, 2) - At(3, 4), CSize(-2, -2));
    EXPECT_EQ(-CPoint(1, 2), CPoint(-1, -2));
}

TEST(Size, AddsAndCompares)
{
    EXPECT_EQ(CSize(), CSize(0, 0));
    EXPECT_EQ(CSize(Extent(1, 2)), CSize(1, 2));
    EXPECT_EQ(CSize(At(1, 2)), CSize(1, 2));
    CSize size(1, 2);
    size += SIZE{3, 4};
    size -= SIZE{1, 1};
    EXPECT_EQ(size, CSize(3, 5));
    EXPECT_NE(size, CSize(3, 4));
    EXPECT_EQ(size + Extent(1, 1), CSize(4, 6));
    EXPECT_EQ(size - Extent(1, 1), CSize(2, 4));
    EXPECT_EQ(size + At(1, 1), CPoint(4, 6));
    EXPECT_EQ(-size, CSize(-3, -5));
}

TEST(Rectangle, IsMadeFromItsPlatformRelatives)
{
    const RECT plain{1, 2, 3, 4};
    EXPECT_EQ(CRect(), CRect(0, 0, 0, 0));
    EXPECT_EQ(CRect(plain), CRect(1, 2, 3, 4));
    EXPECT_EQ(CRect(&plain), CRect(1, 2, 3, 4));
    EXPECT_EQ(CRect(At(1, 2), Extent(10, 20)), CRect(1, 2, 11, 22));
    EXPECT_EQ(CRect(At(1, 2), At(10, 20)), CRect(1, 2, 10, 20));
    EXPECT_EQ(CRect(static_cast<LPCRECT>(nullptr)), CRect());
}

TEST(Rectangle, TellsItsMeasures)
{
    const CRect rect(10, 20, 40, 70);
    EXPECT_EQ(rect.Width(), 30);
    EXPECT_EQ(rect.Height(), 50);
    EXPECT_EQ(rect.Size(), CSize(30, 50));
    EXPECT_EQ(rect.TopLeft(), CPoint(10, 20));
    EXPECT_EQ(rect.BottomRight(), CPoint(40, 70));
    EXPECT_EQ(rect.CenterPoint(), CPoint(25, 45));
}

TEST(Rectangle, ItsCornersAreReferences)
{
    CRect rect(10, 20, 40, 70);
    rect.TopLeft() = CPoint(1, 2);
    rect.BottomRight().Offset(5, 5);
    EXPECT_EQ(rect, CRect(1, 2, 45, 75));
}

TEST(Rectangle, EmptyAndNullAreTwoThings)
{
    EXPECT_TRUE(CRect(1, 1, 1, 5).IsRectEmpty());
    EXPECT_TRUE(CRect(5, 1, 1, 5).IsRectEmpty());
    EXPECT_FALSE(CRect(1, 1, 2, 2).IsRectEmpty());
    EXPECT_TRUE(CRect().IsRectNull());
    EXPECT_FALSE(CRect(1, 1, 1, 1).IsRectNull());
}

TEST(Rectangle, HoldsItsLeftAndTopEdgeAlone)
{
    const CRect rect(10, 20, 40, 70);
    EXPECT_TRUE(rect.PtInRect(CPoint(10, 20)));
    EXPECT_TRUE(rect.PtInRect(CPoint(39, 69)));
    EXPECT_FALSE(rect.PtInRect(CPoint(40, 20)));
    EXPECT_FALSE(rect.PtInRect(CPoint(10, 70)));
    EXPECT_FALSE(rect.PtInRect(CPoint(9, 20)));
}

TEST(Rectangle, InflatesAndDeflates)
{
    const CRect start(10, 20, 40, 70);
    const RECT edges{1, 2, 3, 4};
    CRect rect = start;
    rect.InflateRect(1, 2);
    EXPECT_EQ(rect, CRect(9, 18, 41, 72));
    rect.DeflateRect(SIZE{1, 2});
    EXPECT_EQ(rect, start);
    rect.InflateRect(&edges);
    EXPECT_EQ(rect, CRect(9, 18, 43, 74));
    rect.DeflateRect(1, 2, 3, 4);
    EXPECT_EQ(rect, start);
    rect.InflateRect(1, 2, 3, 4);
    rect.DeflateRect(&edges);
    EXPECT_EQ(rect, start);
    rect.InflateRect(SIZE{5, 5});
    rect.DeflateRect(5, 5);
    EXPECT_EQ(rect, start);
}

TEST(Rectangle, Moves)
{
    CRect rect(10, 20, 40, 70);
    rect.OffsetRect(1, 2);
    rect.OffsetRect(POINT{1, 2});
    rect.OffsetRect(SIZE{1, 2});
    EXPECT_EQ(rect, CRect(13, 26, 43, 76));
    rect.MoveToXY(0, 0);
    EXPECT_EQ(rect, CRect(0, 0, 30, 50));
    rect.MoveToXY(POINT{5, 6});
    EXPECT_EQ(rect, CRect(5, 6, 35, 56));
}

TEST(Rectangle, NormalisesSwappedEdges)
{
    CRect rect(40, 70, 10, 20);
    rect.NormalizeRect();
    EXPECT_EQ(rect, CRect(10, 20, 40, 70));
    rect.NormalizeRect();
    EXPECT_EQ(rect, CRect(10, 20, 40, 70));
}

TEST(Rectangle, IntersectsAndUnites)
{
    const CRect a(0, 0, 10, 10), b(5, 5, 20, 20), away(50, 50, 60, 60);
    CRect rect(1, 1, 1, 1);
    EXPECT_TRUE(rect.IntersectRect(a, b));
    EXPECT_EQ(rect, CRect(5, 5, 10, 10));
    EXPECT_FALSE(rect.IntersectRect(a, away));
    EXPECT_EQ(rect, CRect());
    EXPECT_TRUE(rect.UnionRect(a, b));
    EXPECT_EQ(rect, CRect(0, 0, 20, 20));
    EXPECT_TRUE(rect.UnionRect(CRect(3, 3, 3, 3), a));
    EXPECT_EQ(rect, a);
    EXPECT_FALSE(rect.UnionRect(nullptr, nullptr));
    EXPECT_EQ(a & b, CRect(5, 5, 10, 10));
    EXPECT_EQ(a | b, CRect(0, 0, 20, 20));
    rect = a;
    EXPECT_TRUE(rect.IntersectRect(rect, b)) << "the source may be the target";
    EXPECT_EQ(rect, CRect(5, 5, 10, 10));
    EXPECT_TRUE(rect.SubtractRect(a, CRect(0, 0, 10, 4)));
    EXPECT_EQ(rect, CRect(0, 4, 10, 10));
}

TEST(Rectangle, SetsAndCopies)
{
    CRect rect;
    rect.SetRect(1, 2, 3, 4);
    EXPECT_EQ(rect, CRect(1, 2, 3, 4));
    CRect other;
    other.CopyRect(rect);
    EXPECT_TRUE(other.EqualRect(rect));
    other.SetRectEmpty();
    EXPECT_TRUE(other.IsRectNull());
    EXPECT_FALSE(other.EqualRect(rect));
    other.CopyRect(nullptr);
    EXPECT_TRUE(other.IsRectNull());
}

TEST(Rectangle, HasOperators)
{
    const CRect start(10, 20, 40, 70);
    EXPECT_EQ(start + At(1, 2), CRect(11, 22, 41, 72));
    EXPECT_EQ(start - At(1, 2), CRect(9, 18, 39, 68));
    EXPECT_EQ(start + Extent(1, 2), CRect(11, 22, 41, 72));
    CRect rect = start;
    rect += POINT{1, 2};
    rect -= POINT{1, 2};
    rect += SIZE{1, 2};
    rect -= SIZE{1, 2};
    EXPECT_EQ(rect, start);
    EXPECT_NE(rect, CRect(10, 20, 40, 71));
}

TEST(Rectangle, GoesWhereThePlatformWantsAPointer)
{
    CRect rect;
    ASSERT_TRUE(::SetRect(rect, 1, 2, 3, 4));
    EXPECT_TRUE(::EqualRect(rect, CRect(1, 2, 3, 4)));
}
