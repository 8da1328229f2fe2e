// Print.h - how rectangles, sizes and points read in a failure
#pragma once

#include <afxwin.h>

#include <ostream>

inline void PrintTo(const CRect& rect, std::ostream* out)
{
    *out << "(" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ")";
}

inline void PrintTo(const CSize& size, std::ostream* out) { *out << size.cx << " x " << size.cy; }

inline void PrintTo(const CPoint& point, std::ostream* out) { *out << "(" << point.x << ", " << point.y << ")"; }
