// The plane primitives: CVePointD, CVeSize and CVeRect.
#include <algorithm>
#include <cmath>
#include <iterator>
#include <new>
#include <utility>

#include "vetools/framework/SaturatingInt.h"
#include "vetools/objects/VePointD.h"
#include "vetools/objects/VeRect.h"
#include "vetools/objects/VeSize.h"

namespace
{

constexpr double c_tolerance = 1e-10;
constexpr double c_squaredTolerance = 1e-20;

/// The nearest whole number, halves away from zero; what is next to zero, or not a number, is 0.
int Rounded(double value)
{
    return TruncateToInt(value > c_tolerance ? value + 0.5 : value - 0.5);
}

bool IsNull(double value)
{
    return value * value <= c_squaredTolerance;
}

/// How far two values near this one may lie apart and still count as the same.
double ToleranceAt(double value)
{
    return std::fabs(value) * c_tolerance + c_tolerance;
}

bool IsBetween(double value, double low, double high)
{
    const double tolerance = ToleranceAt(value);
    return value + tolerance >= low && high >= value - tolerance;
}

}  // namespace

CVePointD::CVePointD()
    : CVePointD(0.0, 0.0)
{
}

CVePointD::CVePointD(double initialX, double initialY)
    : x(initialX)
    , y(initialY)
{
}

CVePointD::CVePointD(const CVePointD& other)
    : CVePointD(other.x, other.y)
{
}

CVePointD::~CVePointD() = default;

CVePointD* CVePointD::GetClone() const
{
    return new (std::nothrow) CVePointD(*this);
}

CVePointD& CVePointD::operator=(const CVePointD& other)
{
    x = other.x;
    y = other.y;
    return *this;
}

int CVePointD::operator==(const CVePointD& other) const
{
    return x == other.x && y == other.y;
}

int CVePointD::operator!=(const CVePointD& other) const
{
    return !operator==(other);
}

CVePointD::operator CPoint() const
{
    return CPoint(Rounded(x), Rounded(y));
}

void CVePointD::Rotate90Trigo()
{
    x = std::exchange(y, -x);
}

CVeSize::CVeSize()
    : CVeSize(0.0, 0.0)
{
}

CVeSize::CVeSize(double initialCX, double initialCY)
    : cx(initialCX)
    , cy(initialCY)
{
}

CVeSize::CVeSize(const CVeSize& other)
    : CVeSize(other.cx, other.cy)
{
}

CVeSize::CVeSize(const CSize& size)
    : CVeSize(size.cx, size.cy)
{
}

CVeSize::~CVeSize() = default;

CVeSize* CVeSize::GetClone() const
{
    return new (std::nothrow) CVeSize(*this);
}

CVeSize& CVeSize::operator=(const CVeSize& other)
{
    cx = other.cx;
    cy = other.cy;
    return *this;
}

int CVeSize::operator==(const CVeSize& other) const
{
    return cx == other.cx && cy == other.cy;
}

int CVeSize::operator!=(const CVeSize& other) const
{
    return !operator==(other);
}

CVeSize::operator CSize() const
{
    return CSize(Rounded(cx), Rounded(cy));
}

namespace
{

/// Where an attach point lies along one axis of a rectangle.
enum class Place
{
    Start,
    Middle,
    End,
};

struct AttachRow
{
    Place column;
    Place row;
};

// clang-format off
constexpr AttachRow c_attachPoints[] = {
//   column         row                   code
    {Place::Start,  Place::Start},     // 0
    {Place::Middle, Place::Start},     // 1
    {Place::End,    Place::Start},     // 2
    {Place::Start,  Place::Middle},    // 3
    {Place::Middle, Place::Middle},    // 4
    {Place::End,    Place::Middle},    // 5
    {Place::Start,  Place::End},       // 6
    {Place::Middle, Place::End},       // 7
    {Place::End,    Place::End},       // 8
};
// clang-format on

const AttachRow* FindAttachPoint(unsigned short code)
{
    return code < std::size(c_attachPoints) ? &c_attachPoints[code] : nullptr;
}

/// Where an edge of that length starts so that the given place of it lies at `position`.
double StartOf(double position, double length, Place place)
{
    switch (place)
    {
    case Place::Middle:
        return position - length / 2;
    case Place::End:
        return position - length;
    default:
        return position;
    }
}

double PositionOf(Place place, double start, double end)
{
    switch (place)
    {
    case Place::Middle:
        return (start + end) / 2;
    case Place::End:
        return end;
    default:
        return start;
    }
}

}  // namespace

CVeRect::CVeRect()
    : CVeRect(0.0, 0.0, 0.0, 0.0)
{
}

CVeRect::CVeRect(double initialLeft, double initialTop, double initialRight, double initialBottom)
    : left(initialLeft)
    , top(initialTop)
    , right(initialRight)
    , bottom(initialBottom)
{
}

CVeRect::CVeRect(const CVeRect& other)
    : CVeRect(other.left, other.top, other.right, other.bottom)
{
}

CVeRect::CVeRect(const CRect& rect)
    : CVeRect(rect.left, rect.top, rect.right, rect.bottom)
{
}

CVeRect::CVeRect(unsigned short code, double x, double y, double width, double height)
    : CVeRect()
{
    const AttachRow* const point = FindAttachPoint(code);
    if (point == nullptr)
        return;
    left = StartOf(x, width, point->column);
    top = StartOf(y, height, point->row);
    right = left + width;
    bottom = top + height;
}

CVeRect::~CVeRect() = default;

CVeRect* CVeRect::GetClone() const
{
    return new (std::nothrow) CVeRect(*this);
}

CVeRect& CVeRect::operator=(const CVeRect& other)
{
    SetRect(other.left, other.top, other.right, other.bottom);
    return *this;
}

int CVeRect::operator==(const CVeRect& other) const
{
    return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
}

int CVeRect::operator!=(const CVeRect& other) const
{
    return !operator==(other);
}

CVeRect::operator CRect() const
{
    return CRect(Rounded(left), Rounded(top), Rounded(right), Rounded(bottom));
}

void CVeRect::AttachPoint(unsigned short code, double* x, double* y) const
{
    const AttachRow* const point = FindAttachPoint(code);
    if (point == nullptr)
        return;
    if (x != nullptr)
        *x = PositionOf(point->column, left, right);
    if (y != nullptr)
        *y = PositionOf(point->row, top, bottom);
}

double CVeRect::Width() const
{
    return right - left;
}

double CVeRect::Height() const
{
    return bottom - top;
}

void CVeRect::SetRect(double newLeft, double newTop, double newRight, double newBottom)
{
    left = newLeft;
    top = newTop;
    right = newRight;
    bottom = newBottom;
}

void CVeRect::SetRectEmpty()
{
    SetRect(0.0, 0.0, 0.0, 0.0);
}

int CVeRect::IsRectEmpty() const
{
    return Width() <= c_tolerance || Height() <= c_tolerance;
}

int CVeRect::IsRectNull() const
{
    return IsNull(left) && IsNull(top) && IsNull(right) && IsNull(bottom);
}

void CVeRect::NormalizeRect()
{
    if (left > right + ToleranceAt(right))
        std::swap(left, right);
    if (top > bottom)  // Kept: without the tolerance of the other axis
        std::swap(top, bottom);
}

void CVeRect::operator|=(const CVeRect& other)
{
    if (IsRectNull())
    {
        *this = other;
        return;
    }
    if (other.IsRectNull())
        return;
    SetRect(std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
            std::max(bottom, other.bottom));
}

int CVeRect::IsPointInRect(const CPoint& point) const
{
    return IsBetween(point.x, left, right) && IsBetween(point.y, top, bottom);
}
