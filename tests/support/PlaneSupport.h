#pragma once

#include <ostream>

#include "vetools/framework/CPoint.h"
#include "vetools/objects/VePointD.h"
#include "vetools/objects/VeRect.h"
#include "vetools/objects/VeSize.h"

// How a failing test shows points, sizes and rectangles.

inline void PrintTo(const CPoint& point, std::ostream* out)
{
    *out << '(' << point.x << ", " << point.y << ')';
}

inline void PrintTo(const CSize& size, std::ostream* out)
{
    *out << size.cx << " x " << size.cy;
}

inline void PrintTo(const CRect& rect, std::ostream* out)
{
    *out << '(' << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ')';
}

inline void PrintTo(const CVePointD& point, std::ostream* out)
{
    *out << '(' << point.x << ", " << point.y << ')';
}

inline void PrintTo(const CVeSize& size, std::ostream* out)
{
    *out << size.cx << " x " << size.cy;
}

inline void PrintTo(const CVeRect& rect, std::ostream* out)
{
    *out << '(' << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << ')';
}
