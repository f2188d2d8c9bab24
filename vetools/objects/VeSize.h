#pragma once

#include "vetools/framework/CPoint.h"
#include "vetools/platform/Export.h"

/// A width and a height, in real numbers. It is made of a CSize, and becomes one, wherever one is given or wanted.
class VETOOLS_API CVeSize
{
public:
    virtual ~CVeSize();
    /// A copy made with new, which the caller deletes; null when there is no memory.
    virtual CVeSize* GetClone() const;
    virtual CVeSize& operator=(const CVeSize& other);
    /// 1 when width and height are exactly equal, else 0.
    virtual int operator==(const CVeSize& other) const;
    /// The negation of operator==, also of one that a derived class provides.
    virtual int operator!=(const CVeSize& other) const;

    /// 0 by 0.
    CVeSize();
    CVeSize(double cx, double cy);
    CVeSize(const CVeSize& other);
    CVeSize(const CSize& size);

    /// The nearest whole size, as CVePointD rounds.
    operator CSize() const;

    double cx;
    double cy;
};
