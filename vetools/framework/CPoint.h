#pragma once

#include "vetools/platform/Platform.h"

/// The framework's points, sizes and rectangles in whole units (CPoint, CSize, CRect): the part of them that is of use
/// without a window. Each derives from the system's structure (POINT, SIZE, RECT) and adds no member to it, so that it can
/// be given to the system's functions.
///
/// Numbers are those of a 32-bit LONG. A result beyond its range wraps round, as the processor's would; nothing is checked.

class CSize;
class CRect;

/// What the three classes calculate with (internal).
namespace PlaneArithmetic
{

constexpr LONG Sum(LONG a, LONG b) noexcept
{
    return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}
constexpr LONG Difference(LONG a, LONG b) noexcept
{
    return static_cast<LONG>(static_cast<DWORD>(a) - static_cast<DWORD>(b));
}
constexpr LONG Middle(LONG a, LONG b) noexcept
{
    return static_cast<LONG>((static_cast<LONGLONG>(a) + b) / 2);
}

}  // namespace PlaneArithmetic

/// A point; (0, 0) at first.
class CPoint : public tagPOINT
{
public:
    CPoint() noexcept
        : tagPOINT{0, 0}
    {
    }
    CPoint(int initialX, int initialY) noexcept
        : tagPOINT{initialX, initialY}
    {
    }
    CPoint(POINT point) noexcept
        : tagPOINT(point)
    {
    }
    CPoint(SIZE size) noexcept
        : tagPOINT{size.cx, size.cy}
    {
    }

    void SetPoint(int newX, int newY) noexcept { *this = CPoint(newX, newY); }
    void Offset(int dx, int dy) noexcept { *this += CPoint(dx, dy); }
    void Offset(POINT distance) noexcept { *this += distance; }
    void Offset(SIZE distance) noexcept { *this += CPoint(distance); }

    bool operator==(const CPoint& other) const noexcept { return x == other.x && y == other.y; }

    void operator+=(POINT point) noexcept
    {
        x = PlaneArithmetic::Sum(x, point.x);
        y = PlaneArithmetic::Sum(y, point.y);
    }
    void operator+=(SIZE size) noexcept { *this += CPoint(size); }
    void operator-=(POINT point) noexcept
    {
        x = PlaneArithmetic::Difference(x, point.x);
        y = PlaneArithmetic::Difference(y, point.y);
    }
    void operator-=(SIZE size) noexcept { *this -= CPoint(size); }

    CPoint operator-() const noexcept { return CPoint() - SIZE{x, y}; }
    CPoint operator+(POINT point) const noexcept { return Moved(point); }
    CPoint operator+(SIZE size) const noexcept { return Moved(CPoint(size)); }
    CPoint operator-(SIZE size) const noexcept
    {
        CPoint result = *this;
        result -= size;
        return result;
    }
    /// The way from one point to another is a size.
    CSize operator-(POINT point) const noexcept;

private:
    CPoint Moved(POINT distance) const noexcept
    {
        CPoint result = *this;
        result += distance;
        return result;
    }
};

/// A width and a height; 0 by 0 at first.
class CSize : public tagSIZE
{
public:
    CSize() noexcept
        : tagSIZE{0, 0}
    {
    }
    CSize(int initialCX, int initialCY) noexcept
        : tagSIZE{initialCX, initialCY}
    {
    }
    CSize(SIZE size) noexcept
        : tagSIZE(size)
    {
    }
    CSize(POINT point) noexcept
        : tagSIZE{point.x, point.y}
    {
    }

    void SetSize(int newCX, int newCY) noexcept { *this = CSize(newCX, newCY); }

    bool operator==(const CSize& other) const noexcept { return cx == other.cx && cy == other.cy; }

    void operator+=(SIZE size) noexcept
    {
        cx = PlaneArithmetic::Sum(cx, size.cx);
        cy = PlaneArithmetic::Sum(cy, size.cy);
    }
    void operator-=(SIZE size) noexcept
    {
        cx = PlaneArithmetic::Difference(cx, size.cx);
        cy = PlaneArithmetic::Difference(cy, size.cy);
    }

    CSize operator-() const noexcept { return CSize() - *this; }
    CSize operator+(SIZE size) const noexcept
    {
        CSize result = *this;
        result += size;
        return result;
    }
    CSize operator-(SIZE size) const noexcept
    {
        CSize result = *this;
        result -= size;
        return result;
    }
};

inline CSize CPoint::operator-(POINT point) const noexcept
{
    return CSize(*this) - CSize(point);
}

/// A rectangle, y growing downwards; right and bottom lie outside of it. All edges are 0 at first. Widths, heights and tests
/// take the edges as they are: NormalizeRect puts them in order.
class CRect : public tagRECT
{
public:
    CRect() noexcept
        : tagRECT{0, 0, 0, 0}
    {
    }
    CRect(int initialLeft, int initialTop, int initialRight, int initialBottom) noexcept
        : tagRECT{initialLeft, initialTop, initialRight, initialBottom}
    {
    }
    CRect(const RECT& rect) noexcept
        : tagRECT(rect)
    {
    }
    /// A null pointer gives the rectangle whose edges are all 0.
    CRect(LPCRECT rect) noexcept
        : tagRECT(rect != nullptr ? *rect : RECT{0, 0, 0, 0})
    {
    }
    CRect(POINT topLeft, SIZE size) noexcept
        : tagRECT{topLeft.x, topLeft.y, PlaneArithmetic::Sum(topLeft.x, size.cx),
                  PlaneArithmetic::Sum(topLeft.y, size.cy)}
    {
    }
    CRect(POINT topLeft, POINT bottomRight) noexcept
        : tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}
    {
    }

    /// The rectangle as the system's functions take it.
    operator LPRECT() noexcept { return this; }
    operator LPCRECT() const noexcept { return this; }

    int Width() const noexcept { return PlaneArithmetic::Difference(right, left); }
    int Height() const noexcept { return PlaneArithmetic::Difference(bottom, top); }
    CSize Size() const noexcept { return CSize(Width(), Height()); }
    CPoint TopLeft() const noexcept { return CPoint(left, top); }
    CPoint BottomRight() const noexcept { return CPoint(right, bottom); }
    CPoint CenterPoint() const noexcept
    {
        return CPoint(PlaneArithmetic::Middle(left, right), PlaneArithmetic::Middle(top, bottom));
    }

    /// Whether the width or the height is 0 or negative.
    bool IsRectEmpty() const noexcept { return right <= left || bottom <= top; }
    /// Whether all edges are 0.
    bool IsRectNull() const noexcept { return *this == CRect(); }
    /// Whether the point lies inside; the left and top edges belong to the rectangle, the right and bottom ones do not.
    bool PtInRect(POINT point) const noexcept
    {
        return left <= point.x && point.x < right && top <= point.y && point.y < bottom;
    }
    bool operator==(const CRect& other) const noexcept
    {
        return TopLeft() == other.TopLeft() && BottomRight() == other.BottomRight();
    }

    void SetRect(int newLeft, int newTop, int newRight, int newBottom) noexcept
    {
        *this = CRect(newLeft, newTop, newRight, newBottom);
    }
    void SetRectEmpty() noexcept { *this = CRect(); }

    /// Moves the rectangle.
    void OffsetRect(int dx, int dy) noexcept { MoveEdges(CSize(dx, dy), CSize(dx, dy)); }
    void OffsetRect(POINT distance) noexcept { MoveEdges(CSize(distance), CSize(distance)); }
    void OffsetRect(SIZE distance) noexcept { MoveEdges(CSize(distance), CSize(distance)); }
    /// Moves each edge outwards, or inwards.
    void InflateRect(int dx, int dy) noexcept { MoveEdges(-CSize(dx, dy), CSize(dx, dy)); }
    void DeflateRect(int dx, int dy) noexcept { MoveEdges(CSize(dx, dy), -CSize(dx, dy)); }

    /// Swaps edges that are the wrong way round.
    void NormalizeRect() noexcept
    {
        *this = CRect(left < right ? left : right, top < bottom ? top : bottom, left < right ? right : left,
                      top < bottom ? bottom : top);
    }

private:
    void MoveEdges(CSize topLeft, CSize bottomRight) noexcept
    {
        *this = CRect(TopLeft() + topLeft, BottomRight() + bottomRight);
    }
};
