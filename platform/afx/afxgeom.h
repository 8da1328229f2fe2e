// afxgeom.h - points, sizes and rectangles: the platform's structures with operators
#pragma once

#include "afxdefs.h"

class CPoint;
class CRect;

/// Width and height. Starts as 0, 0.
class CSize : public tagSIZE
{
public:
    constexpr CSize() noexcept : tagSIZE{0, 0} {}
    constexpr CSize(int initCX, int initCY) noexcept : tagSIZE{initCX, initCY} {}
    constexpr CSize(SIZE initSize) noexcept : tagSIZE{initSize} {}
    constexpr CSize(POINT initPt) noexcept : tagSIZE{initPt.x, initPt.y} {}

    constexpr bool operator==(SIZE size) const noexcept { return cx == size.cx && cy == size.cy; }
    constexpr bool operator!=(SIZE size) const noexcept { return !(*this == size); }
    constexpr void SetSize(int newCX, int newCY) noexcept { cx = newCX, cy = newCY; }
    constexpr CSize& operator+=(SIZE size) noexcept { return cx += size.cx, cy += size.cy, *this; }
    constexpr CSize& operator-=(SIZE size) noexcept { return cx -= size.cx, cy -= size.cy, *this; }
    constexpr CSize operator+(SIZE size) const noexcept { return {int(cx + size.cx), int(cy + size.cy)}; }
    constexpr CSize operator-(SIZE size) const noexcept { return {int(cx - size.cx), int(cy - size.cy)}; }
    constexpr CSize operator-() const noexcept { return {int(-cx), int(-cy)}; }
    constexpr CPoint operator+(POINT point) const noexcept;
    constexpr CPoint operator-(POINT point) const noexcept;
};

/// Position. Starts as 0, 0.
class CPoint : public tagPOINT
{
public:
    constexpr CPoint() noexcept : tagPOINT{0, 0} {}
    constexpr CPoint(int initX, int initY) noexcept : tagPOINT{initX, initY} {}
    constexpr CPoint(POINT initPt) noexcept : tagPOINT{initPt} {}
    constexpr CPoint(SIZE initSize) noexcept : tagPOINT{initSize.cx, initSize.cy} {}
    /// Position out of a mouse message: the signed halves of the low 32 bits.
    constexpr explicit CPoint(LPARAM dwPoint) noexcept
        : tagPOINT{static_cast<short>(LOWORD(dwPoint)), static_cast<short>(HIWORD(dwPoint))}
    {
    }

    constexpr void Offset(int xOffset, int yOffset) noexcept { x += xOffset, y += yOffset; }
    constexpr void Offset(POINT point) noexcept { x += point.x, y += point.y; }
    constexpr void Offset(SIZE size) noexcept { x += size.cx, y += size.cy; }
    constexpr void SetPoint(int newX, int newY) noexcept { x = newX, y = newY; }
    constexpr bool operator==(POINT point) const noexcept { return x == point.x && y == point.y; }
    constexpr bool operator!=(POINT point) const noexcept { return !(*this == point); }
    constexpr CPoint& operator+=(SIZE size) noexcept { return x += size.cx, y += size.cy, *this; }
    constexpr CPoint& operator-=(SIZE size) noexcept { return x -= size.cx, y -= size.cy, *this; }
    constexpr CPoint& operator+=(POINT point) noexcept { return x += point.x, y += point.y, *this; }
    constexpr CPoint& operator-=(POINT point) noexcept { return x -= point.x, y -= point.y, *this; }
    constexpr CPoint operator+(SIZE size) const noexcept { return {int(x + size.cx), int(y + size.cy)}; }
    constexpr CPoint operator-(SIZE size) const noexcept { return {int(x - size.cx), int(y - size.cy)}; }
    constexpr CPoint operator+(POINT point) const noexcept { return {int(x + point.x), int(y + point.y)}; }
    /// The way from one point to the other.
    constexpr CSize operator-(POINT point) const noexcept { return {int(x - point.x), int(y - point.y)}; }
    constexpr CPoint operator-() const noexcept { return {int(-x), int(-y)}; }
};

constexpr CPoint CSize::operator+(POINT point) const noexcept { return {int(cx + point.x), int(cy + point.y)}; }
constexpr CPoint CSize::operator-(POINT point) const noexcept { return {int(cx - point.x), int(cy - point.y)}; }

/// Rectangle; right and bottom lie outside. Starts empty at 0, 0. Null pointers read as the empty rectangle.
/// Where the platform's functions want a normalised rectangle, so do these.
class CRect : public tagRECT
{
public:
    constexpr CRect() noexcept : tagRECT{0, 0, 0, 0} {}
    constexpr CRect(int l, int t, int r, int b) noexcept : tagRECT{l, t, r, b} {}
    constexpr CRect(const RECT& srcRect) noexcept : tagRECT{srcRect} {}
    constexpr CRect(LPCRECT lpSrcRect) noexcept : tagRECT{lpSrcRect != nullptr ? *lpSrcRect : RECT{0, 0, 0, 0}} {}
    constexpr CRect(POINT point, SIZE size) noexcept : tagRECT{point.x, point.y, point.x + size.cx, point.y + size.cy}
    {
    }
    constexpr CRect(POINT topLeft, POINT bottomRight) noexcept
        : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
    {
    }

    constexpr int Width() const noexcept { return right - left; }
    constexpr int Height() const noexcept { return bottom - top; }
    constexpr CSize Size() const noexcept { return {Width(), Height()}; }
    CPoint& TopLeft() noexcept { return *reinterpret_cast<CPoint*>(&left); }
    CPoint& BottomRight() noexcept { return *reinterpret_cast<CPoint*>(&right); }
    const CPoint& TopLeft() const noexcept { return *reinterpret_cast<const CPoint*>(&left); }
    const CPoint& BottomRight() const noexcept { return *reinterpret_cast<const CPoint*>(&right); }
    constexpr CPoint CenterPoint() const noexcept { return {int((left + right) / 2), int((top + bottom) / 2)}; }

    operator LPRECT() noexcept { return this; }
    operator LPCRECT() const noexcept { return this; }

    /// No area: a width or height of 0 or less.
    constexpr BOOL IsRectEmpty() const noexcept { return right <= left || bottom <= top; }
    /// All four fields are 0.
    constexpr BOOL IsRectNull() const noexcept { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    /// Left and top edge belong to the rectangle, right and bottom edge don't.
    constexpr BOOL PtInRect(POINT point) const noexcept
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }

    constexpr void SetRect(int x1, int y1, int x2, int y2) noexcept { left = x1, top = y1, right = x2, bottom = y2; }
    constexpr void SetRect(POINT topLeft, POINT bottomRight) noexcept
    {
        SetRect(topLeft.x, topLeft.y, bottomRight.x, bottomRight.y);
    }
    constexpr void SetRectEmpty() noexcept { SetRect(0, 0, 0, 0); }
    constexpr void CopyRect(LPCRECT lpSrcRect) noexcept { *this = CRect(lpSrcRect); }
    constexpr BOOL EqualRect(LPCRECT lpRect) const noexcept { return *this == CRect(lpRect); }

    constexpr void InflateRect(int x, int y) noexcept { InflateRect(x, y, x, y); }
    constexpr void InflateRect(SIZE size) noexcept { InflateRect(size.cx, size.cy); }
    constexpr void InflateRect(LPCRECT lpRect) noexcept
    {
        const CRect by(lpRect);
        InflateRect(by.left, by.top, by.right, by.bottom);
    }
    constexpr void InflateRect(int l, int t, int r, int b) noexcept { left -= l, top -= t, right += r, bottom += b; }
    constexpr void DeflateRect(int x, int y) noexcept { InflateRect(-x, -y); }
    constexpr void DeflateRect(SIZE size) noexcept { InflateRect(-size.cx, -size.cy); }
    constexpr void DeflateRect(LPCRECT lpRect) noexcept
    {
        const CRect by(lpRect);
        DeflateRect(by.left, by.top, by.right, by.bottom);
    }
    constexpr void DeflateRect(int l, int t, int r, int b) noexcept { InflateRect(-l, -t, -r, -b); }

    constexpr void OffsetRect(int x, int y) noexcept { left += x, top += y, right += x, bottom += y; }
    constexpr void OffsetRect(POINT point) noexcept { OffsetRect(point.x, point.y); }
    constexpr void OffsetRect(SIZE size) noexcept { OffsetRect(size.cx, size.cy); }
    constexpr void MoveToX(int x) noexcept { right += x - left, left = x; }
    constexpr void MoveToY(int y) noexcept { bottom += y - top, top = y; }
    constexpr void MoveToXY(int x, int y) noexcept { MoveToX(x), MoveToY(y); }
    constexpr void MoveToXY(POINT point) noexcept { MoveToXY(point.x, point.y); }

    /// Swaps edges so that width and height aren't negative.
    constexpr void NormalizeRect() noexcept
    {
        if (left > right)
        {
            SetRect(right, top, left, bottom);
        }
        if (top > bottom)
        {
            SetRect(left, bottom, right, top);
        }
    }

    /// Becomes the area in both; all 0, and FALSE, when there is none.
    BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
    {
        const CRect first(lpRect1), second(lpRect2);
        return ::IntersectRect(this, &first, &second);
    }
    /// Becomes the smallest rectangle around both; an empty one doesn't count. FALSE when the result is empty.
    BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) noexcept
    {
        const CRect first(lpRect1), second(lpRect2);
        return ::UnionRect(this, &first, &second);
    }
    /// Becomes the first less the second where that is a rectangle, else the first. FALSE when the result is empty.
    BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) noexcept
    {
        const CRect first(lpRectSrc1), second(lpRectSrc2);
        return ::SubtractRect(this, &first, &second);
    }

    constexpr bool operator==(const RECT& rect) const noexcept
    {
        return left == rect.left && top == rect.top && right == rect.right && bottom == rect.bottom;
    }
    constexpr bool operator!=(const RECT& rect) const noexcept { return !(*this == rect); }

    constexpr CRect& operator+=(POINT point) noexcept { return OffsetRect(point), *this; }
    constexpr CRect& operator+=(SIZE size) noexcept { return OffsetRect(size), *this; }
    constexpr CRect& operator+=(LPCRECT lpRect) noexcept { return InflateRect(lpRect), *this; }
    constexpr CRect& operator-=(POINT point) noexcept { return OffsetRect(-point.x, -point.y), *this; }
    constexpr CRect& operator-=(SIZE size) noexcept { return OffsetRect(-size.cx, -size.cy), *this; }
    constexpr CRect& operator-=(LPCRECT lpRect) noexcept { return DeflateRect(lpRect), *this; }
    CRect& operator&=(const RECT& rect) noexcept { return IntersectRect(this, &rect), *this; }
    CRect& operator|=(const RECT& rect) noexcept { return UnionRect(this, &rect), *this; }

    constexpr CRect operator+(POINT point) const noexcept { return CRect(*this) += point; }
    constexpr CRect operator+(SIZE size) const noexcept { return CRect(*this) += size; }
    constexpr CRect operator+(LPCRECT lpRect) const noexcept { return CRect(*this) += lpRect; }
    constexpr CRect operator-(POINT point) const noexcept { return CRect(*this) -= point; }
    constexpr CRect operator-(SIZE size) const noexcept { return CRect(*this) -= size; }
    constexpr CRect operator-(LPCRECT lpRect) const noexcept { return CRect(*this) -= lpRect; }
    CRect operator&(const RECT& rect) const noexcept { return CRect(*this) &= rect; }
    CRect operator|(const RECT& rect) const noexcept { return CRect(*this) |= rect; }
};

static_assert(sizeof(CRect) == sizeof(RECT) && sizeof(CPoint) == sizeof(POINT) && sizeof(CSize) == sizeof(SIZE));
