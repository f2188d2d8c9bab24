#pragma once

#include "vetools/framework/CPoint.h"
#include "vetools/platform/Export.h"

/// A rectangle in real coordinates, y growing downwards. It is made of a CRect, and becomes one, wherever one is given or
/// wanted. Nothing orders the edges but NormalizeRect.
///
/// Nine points of a rectangle have a code, by which it is placed and asked:
///
///     0 --- 1 --- 2
///     |           |
///     3     4     5
///     |           |
///     6 --- 7 --- 8
class VETOOLS_API CVeRect
{
public:
    virtual ~CVeRect();
    /// A copy made with new, which the caller deletes; null when there is no memory.
    virtual CVeRect* GetClone() const;
    virtual CVeRect& operator=(const CVeRect& other);
    /// 1 when all four edges are exactly equal, else 0.
    virtual int operator==(const CVeRect& other) const;
    /// The negation of operator==, also of one that a derived class provides.
    virtual int operator!=(const CVeRect& other) const;

    /// All edges 0.
    CVeRect();
    CVeRect(double left, double top, double right, double bottom);
    CVeRect(const CVeRect& other);
    CVeRect(const CRect& rect);
    /// A rectangle of that width and height, placed so that its point `code` lies at (x, y):
    /// CVeRect(4, 10, 20, 4, 2) is (8, 19, 12, 21). A code above 8 gives the empty rectangle at the origin.
    CVeRect(unsigned short code, double x, double y, double width, double height);

    /// The nearest whole rectangle, each edge as CVePointD rounds.
    operator CRect() const;

    /// Gives the point `code`: point 4 of (8, 19, 12, 21) is (10, 20). A code above 8 writes nothing. Null for a coordinate
    /// that is not wanted.
    void AttachPoint(unsigned short code, double* x, double* y) const;

    /// right − left and bottom − top, negative where the edges are the wrong way round.
    double Width() const;
    double Height() const;

    void SetRect(double left, double top, double right, double bottom);
    void SetRectEmpty();

    /// 1 when width or height is 1e-10 or less, else 0.
    int IsRectEmpty() const;
    /// 1 when all four edges are 0, within 1e-10, else 0.
    int IsRectNull() const;

    /// Swaps edges that are the wrong way round.
    /// Kept: left and right stay when they differ by less than about 1e-10, top and bottom are always swapped.
    void NormalizeRect();

    /// The smallest rectangle around both, a null one counting for nothing. Neither is normalized for it.
    void operator|=(const CVeRect& other);

    /// 1 when the point lies inside or on the border, within about 1e-10, else 0.
    int IsPointInRect(const CPoint& point) const;

    double left;
    double top;
    double right;
    double bottom;
};
