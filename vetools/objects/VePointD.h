#pragma once

#include "vetools/framework/CPoint.h"
#include "vetools/platform/Export.h"

/// A point in the plane, in real coordinates. It becomes a CPoint wherever one is wanted.
class VETOOLS_API CVePointD
{
public:
    virtual ~CVePointD();
    /// A copy made with new, which the caller deletes; null when there is no memory.
    virtual CVePointD* GetClone() const;
    virtual CVePointD& operator=(const CVePointD& other);
    /// 1 when both coordinates are exactly equal, else 0.
    virtual int operator==(const CVePointD& other) const;
    /// The negation of operator==, also of one that a derived class provides.
    virtual int operator!=(const CVePointD& other) const;

    /// The origin.
    CVePointD();
    CVePointD(double x, double y);
    CVePointD(const CVePointD& other);

    /// The nearest whole point, halves away from zero: (2.5, -2.5) gives (3, -3). A coordinate beyond the range of an int
    /// becomes the nearest int, one that is not a number 0.
    operator CPoint() const;

    /// Turns the point a quarter about the origin: (x, y) becomes (y, -x), so (1, 0) becomes (0, -1). With y growing
    /// downwards that is counter-clockwise.
    void Rotate90Trigo();

    double x;
    double y;
};
