#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <type_traits>

#include "tests/support/PlaneSupport.h"

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();
constexpr int c_lowest = std::numeric_limits<int>::min();
constexpr int c_highest = std::numeric_limits<int>::max();

/// Edges one by one: equality is under test.
void ExpectEdges(double left, double top, double right, double bottom, const CVeRect& rect)
{
    EXPECT_EQ(left, rect.left);
    EXPECT_EQ(top, rect.top);
    EXPECT_EQ(right, rect.right);
    EXPECT_EQ(bottom, rect.bottom);
}

}  // namespace

TEST(Plane, StartsAtTheOriginWithoutExtent)
{
    EXPECT_EQ(0.0, CVePointD().x);
    EXPECT_EQ(0.0, CVePointD().y);
    EXPECT_EQ(0.0, CVeSize().cx);
    EXPECT_EQ(0.0, CVeSize().cy);
    ExpectEdges(0.0, 0.0, 0.0, 0.0, CVeRect());
}

TEST(Plane, RoundsCoordinatesToTheNearestHalvesAwayFromZero)
{
    const struct
    {
        int expected;
        double coordinate;
    } rows[] = {
        {0, 0.0},
        {0, -0.0},
        {0, 1e-11},
        {0, 1e-10},
        {0, 0.4},
        {0, -0.4},
        {1, 0.5},
        {-1, -0.5},
        {3, 2.5},
        {-3, -2.5},
        {2, 2.4999999},
        {1, 0.49999999999999994},  // the sum with 0.5 is rounded first
        {c_highest, 2147483646.6},
        {c_highest, 2147483647.0},
        {c_highest, 1e300},
        {c_highest, c_infinity},
        {c_lowest, -2147483648.0},
        {c_lowest, -1e300},
        {c_lowest, -c_infinity},
        {0, c_nan},
    };
    for (const auto& row : rows)
    {
        const double v = row.coordinate;
        EXPECT_EQ(CPoint(row.expected, 7), static_cast<CPoint>(CVePointD(v, 7.0))) << v;
        EXPECT_EQ(CPoint(7, row.expected), static_cast<CPoint>(CVePointD(7.0, v))) << v;
        EXPECT_EQ(CSize(row.expected, 7), static_cast<CSize>(CVeSize(v, 7.0))) << v;
        EXPECT_EQ(CSize(7, row.expected), static_cast<CSize>(CVeSize(7.0, v))) << v;
        EXPECT_EQ(CRect(row.expected, 1, 2, 3), static_cast<CRect>(CVeRect(v, 1.0, 2.0, 3.0))) << v;
        EXPECT_EQ(CRect(1, row.expected, 2, 3), static_cast<CRect>(CVeRect(1.0, v, 2.0, 3.0))) << v;
        EXPECT_EQ(CRect(1, 2, row.expected, 3), static_cast<CRect>(CVeRect(1.0, 2.0, v, 3.0))) << v;
        EXPECT_EQ(CRect(1, 2, 3, row.expected), static_cast<CRect>(CVeRect(1.0, 2.0, 3.0, v))) << v;
    }
}

TEST(Plane, RoundsAPoint)
{
    const CPoint halves = CVePointD(2.5, -2.5);
    EXPECT_EQ(CPoint(3, -3), halves);
    const CPoint small = CVePointD(1e-11, 0.4);
    EXPECT_EQ(CPoint(0, 0), small);
}

TEST(Plane, TakesWholeSizesAndRectangles)
{
    const CVeSize size = CSize(c_lowest, c_highest);
    EXPECT_EQ(-2147483648.0, size.cx);
    EXPECT_EQ(2147483647.0, size.cy);
    const CVeRect rect = CRect(1, c_lowest, c_highest, -4);
    ExpectEdges(1.0, -2147483648.0, 2147483647.0, -4.0, rect);
}

TEST(Plane, TurnsAPointByAQuarter)
{
    CVePointD point(1.0, 0.0);
    point.Rotate90Trigo();
    EXPECT_EQ(0.0, point.x);
    EXPECT_EQ(-1.0, point.y);

    CVePointD turned(3.25, -7.5);
    for (int i = 0; i < 4; ++i)
        turned.Rotate90Trigo();
    EXPECT_EQ(1, turned == CVePointD(3.25, -7.5));
}

TEST(Plane, ComparesEveryMemberExactly)
{
    const CVePointD point(1.0, 2.0);
    EXPECT_EQ(1, point == CVePointD(1.0, 2.0));
    EXPECT_EQ(0, point != CVePointD(1.0, 2.0));
    EXPECT_EQ(0, point == CVePointD(1.0 + 1e-15, 2.0));
    EXPECT_EQ(1, point != CVePointD(1.0, 2.0 + 1e-15));
    EXPECT_EQ(0, CVePointD(c_nan, 0.0) == CVePointD(c_nan, 0.0));

    const CVeSize size(1.0, 2.0);
    EXPECT_EQ(1, size == CVeSize(1.0, 2.0));
    EXPECT_EQ(0, size != CVeSize(1.0, 2.0));
    EXPECT_EQ(0, size == CVeSize(1.0 + 1e-15, 2.0));
    EXPECT_EQ(1, size != CVeSize(1.0, 2.0 + 1e-15));

    const CVeRect rect(1.0, 2.0, 3.0, 4.0);
    EXPECT_EQ(1, rect == CVeRect(1.0, 2.0, 3.0, 4.0));
    EXPECT_EQ(0, rect != CVeRect(1.0, 2.0, 3.0, 4.0));
    for (const CVeRect& other : {CVeRect(0.0, 2.0, 3.0, 4.0), CVeRect(1.0, 0.0, 3.0, 4.0), CVeRect(1.0, 2.0, 0.0, 4.0),
                                 CVeRect(1.0, 2.0, 3.0, 0.0)})
    {
        EXPECT_EQ(0, rect == other) << testing::PrintToString(other);
        EXPECT_EQ(1, rect != other) << testing::PrintToString(other);
    }
}

TEST(Plane, InequalityNegatesTheEqualityOfTheClass)
{
    class UnequalPoint : public CVePointD
    {
        int operator==(const CVePointD&) const override { return 0; }
    };
    class UnequalSize : public CVeSize
    {
        int operator==(const CVeSize&) const override { return 0; }
    };
    class UnequalRect : public CVeRect
    {
        int operator==(const CVeRect&) const override { return 0; }
    };
    EXPECT_EQ(1, static_cast<const CVePointD&>(UnequalPoint()) != CVePointD());
    EXPECT_EQ(1, static_cast<const CVeSize&>(UnequalSize()) != CVeSize());
    EXPECT_EQ(1, static_cast<const CVeRect&>(UnequalRect()) != CVeRect());
}

TEST(Plane, CopiesAssignsAndClonesMemberByMember)
{
    static_assert(std::has_virtual_destructor_v<CVePointD> && std::has_virtual_destructor_v<CVeSize> &&
                  std::has_virtual_destructor_v<CVeRect>);

    const CVePointD point(1.0, 2.0);
    CVePointD assignedPoint;
    EXPECT_EQ(&assignedPoint, &(assignedPoint = point));
    const std::unique_ptr<CVePointD> pointClone(point.GetClone());
    EXPECT_EQ(1, CVePointD(point) == point && assignedPoint == point && *pointClone == point);

    const CVeSize size(1.0, 2.0);
    CVeSize assignedSize;
    EXPECT_EQ(&assignedSize, &(assignedSize = size));
    const std::unique_ptr<CVeSize> sizeClone(size.GetClone());
    EXPECT_EQ(1, CVeSize(size) == size && assignedSize == size && *sizeClone == size);

    const CVeRect rect(1.0, 2.0, 3.0, 4.0);
    CVeRect assignedRect;
    EXPECT_EQ(&assignedRect, &(assignedRect = rect));
    const std::unique_ptr<CVeRect> rectClone(rect.GetClone());
    EXPECT_EQ(1, CVeRect(rect) == rect && assignedRect == rect && *rectClone == rect);
}

TEST(Plane, HasItsMembersInOrder)
{
    EXPECT_EQ(sizeof(void*) + 2 * sizeof(double), sizeof(CVePointD));
    EXPECT_EQ(sizeof(void*) + 2 * sizeof(double), sizeof(CVeSize));
    EXPECT_EQ(sizeof(void*) + 4 * sizeof(double), sizeof(CVeRect));
    const CVeRect rect;
    EXPECT_TRUE(&rect.left < &rect.top && &rect.top < &rect.right && &rect.right < &rect.bottom);
}

TEST(Plane, PlacesARectangleByEachOfItsNinePoints)
{
    // clang-format off
    const struct
    {
        double left;
        double top;
        unsigned short code;
    } rows[] = {
    //   left  top  code
        {10.0, 20.0, 0},
        { 8.0, 20.0, 1},
        { 6.0, 20.0, 2},
        {10.0, 19.0, 3},
        { 8.0, 19.0, 4},
        { 6.0, 19.0, 5},
        {10.0, 18.0, 6},
        { 8.0, 18.0, 7},
        { 6.0, 18.0, 8},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        const CVeRect rect(row.code, 10.0, 20.0, 4.0, 2.0);
        SCOPED_TRACE(row.code);
        ExpectEdges(row.left, row.top, row.left + 4.0, row.top + 2.0, rect);

        double x = 0.0;
        double y = 0.0;
        rect.AttachPoint(row.code, &x, &y);
        EXPECT_EQ(10.0, x);
        EXPECT_EQ(20.0, y);
    }
}

TEST(Plane, GivesTheNinePointsOfARectangle)
{
    const CVeRect rect(8.0, 19.0, 12.0, 21.0);
    // clang-format off
    const struct
    {
        double x;
        double y;
        unsigned short code;
    } rows[] = {
    //   x     y    code
        { 8.0, 19.0, 0},
        {10.0, 19.0, 1},
        {12.0, 19.0, 2},
        { 8.0, 20.0, 3},
        {10.0, 20.0, 4},
        {12.0, 20.0, 5},
        { 8.0, 21.0, 6},
        {10.0, 21.0, 7},
        {12.0, 21.0, 8},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        double x = 0.0;
        double y = 0.0;
        rect.AttachPoint(row.code, &x, &y);
        EXPECT_EQ(row.x, x) << row.code;
        EXPECT_EQ(row.y, y) << row.code;
    }
}

TEST(Plane, KnowsNoPointAboveEight)
{
    for (const unsigned short code : {9, 10, 255, 256, 65535})
    {
        ExpectEdges(0.0, 0.0, 0.0, 0.0, CVeRect(code, 10.0, 20.0, 4.0, 2.0));
        double x = -1.0;
        double y = -2.0;
        CVeRect(8.0, 19.0, 12.0, 21.0).AttachPoint(code, &x, &y);
        EXPECT_EQ(-1.0, x) << code;
        EXPECT_EQ(-2.0, y) << code;
    }
}

TEST(Plane, GivesOneCoordinateAlone)
{
    double x = 0.0;
    double y = 0.0;
    CVeRect(8.0, 19.0, 12.0, 21.0).AttachPoint(4, &x, nullptr);
    CVeRect(8.0, 19.0, 12.0, 21.0).AttachPoint(4, nullptr, &y);
    EXPECT_EQ(10.0, x);
    EXPECT_EQ(20.0, y);
}

TEST(Plane, MeasuresAndSetsARectangle)
{
    CVeRect rect;
    rect.SetRect(1.0, 2.0, 5.0, 4.5);
    ExpectEdges(1.0, 2.0, 5.0, 4.5, rect);
    EXPECT_EQ(4.0, rect.Width());
    EXPECT_EQ(2.5, rect.Height());
    EXPECT_EQ(-4.0, CVeRect(5.0, 0.0, 1.0, 0.0).Width());
    rect.SetRectEmpty();
    ExpectEdges(0.0, 0.0, 0.0, 0.0, rect);
}

TEST(Plane, CallsARectangleEmptyWithoutWidthOrHeight)
{
    const struct
    {
        int expected;
        CVeRect rect;
    } rows[] = {
        {1, CVeRect()},
        {0, CVeRect(0.0, 0.0, 1.0, 1.0)},
        {1, CVeRect(0.0, 0.0, 1e-10, 1.0)},
        {0, CVeRect(0.0, 0.0, 1.1e-10, 1.0)},
        {1, CVeRect(0.0, 0.0, 1.0, 1e-10)},
        {1, CVeRect(1.0, 0.0, 0.0, 1.0)},
        {1, CVeRect(0.0, 1.0, 1.0, 0.0)},
        {0, CVeRect(c_nan, c_nan, c_nan, c_nan)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, row.rect.IsRectEmpty()) << testing::PrintToString(row.rect);
}

TEST(Plane, CallsARectangleNullWhenAllEdgesAreZero)
{
    const struct
    {
        int expected;
        CVeRect rect;
    } rows[] = {
        {1, CVeRect()},
        {1, CVeRect(9e-11, -9e-11, 9e-11, -9e-11)},
        {0, CVeRect(1.1e-10, 0.0, 0.0, 0.0)},
        {0, CVeRect(0.0, -1.1e-10, 0.0, 0.0)},
        {0, CVeRect(0.0, 0.0, 1.1e-10, 0.0)},
        {0, CVeRect(0.0, 0.0, 0.0, 1.1e-10)},
        {0, CVeRect(0.0, 0.0, 0.0, c_nan)},
        {0, CVeRect(5.0, 5.0, 5.0, 5.0)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, row.rect.IsRectNull()) << testing::PrintToString(row.rect);
}

TEST(Plane, KeptNormalizesTheTwoAxesDifferently)
{
    constexpr double nearly5 = 5.0 - 1e-12;
    const struct
    {
        CVeRect expected;
        CVeRect rect;
    } rows[] = {
        {CVeRect(1.0, 2.0, 3.0, 4.0), CVeRect(1.0, 2.0, 3.0, 4.0)},
        {CVeRect(1.0, 2.0, 3.0, 4.0), CVeRect(3.0, 4.0, 1.0, 2.0)},
        {CVeRect(5.0, 0.0, nearly5, 1.0), CVeRect(5.0, 0.0, nearly5, 1.0)},
        {CVeRect(0.0, 4.0, 1.0, 5.0), CVeRect(0.0, 5.0, 1.0, 4.0)},
        {CVeRect(0.0, nearly5, 1.0, 5.0), CVeRect(0.0, 5.0, 1.0, nearly5)},
        {CVeRect(0.0, 0.0, 1e-9, 1.0), CVeRect(1e-9, 0.0, 0.0, 1.0)},
        {CVeRect(1e6 + 5e-5, 0.0, 1e6, 1.0), CVeRect(1e6 + 5e-5, 0.0, 1e6, 1.0)},  // the tolerance grows with the edge
        {CVeRect(-1e6, 0.0, -1e6 + 2e-4, 1.0), CVeRect(-1e6 + 2e-4, 0.0, -1e6, 1.0)},
    };
    for (const auto& row : rows)
    {
        CVeRect rect(row.rect);
        rect.NormalizeRect();
        EXPECT_EQ(row.expected, rect) << testing::PrintToString(row.rect);
    }
}

TEST(Plane, UnitesRectangles)
{
    const struct
    {
        CVeRect expected;
        CVeRect rect;
        CVeRect other;
    } rows[] = {
        {CVeRect(1.0, 2.0, 3.0, 4.0), CVeRect(), CVeRect(1.0, 2.0, 3.0, 4.0)},
        {CVeRect(1.0, 2.0, 3.0, 4.0), CVeRect(1.0, 2.0, 3.0, 4.0), CVeRect()},
        {CVeRect(1.0, 2.0, 3.0, 4.0), CVeRect(1.0, 2.0, 3.0, 4.0), CVeRect(1e-11, 0.0, 0.0, -1e-11)},
        {CVeRect(1e-11, 0.0, 0.0, 0.0), CVeRect(), CVeRect(1e-11, 0.0, 0.0, 0.0)},
        {CVeRect(0.0, 2.0, 3.0, 9.0), CVeRect(1.0, 2.0, 3.0, 4.0), CVeRect(0.0, 5.0, 2.0, 9.0)},
        {CVeRect(1.0, 1.0, 3.0, 3.0), CVeRect(3.0, 3.0, 1.0, 1.0), CVeRect(1.0, 1.0, 3.0, 3.0)},  // not normalized
        {CVeRect(3.0, 3.0, 2.0, 2.0), CVeRect(3.0, 3.0, 1.0, 1.0), CVeRect(4.0, 4.0, 2.0, 2.0)},
    };
    for (const auto& row : rows)
    {
        CVeRect rect(row.rect);
        rect |= row.other;
        EXPECT_EQ(row.expected, rect) << testing::PrintToString(row.rect) << " and "
                                      << testing::PrintToString(row.other);
    }
}

TEST(Plane, UnitesARectangleWithItself)
{
    CVeRect rect(1.0, 2.0, 3.0, 4.0);
    const CVeRect& same = rect;
    rect |= same;
    EXPECT_EQ(CVeRect(1.0, 2.0, 3.0, 4.0), rect);
}

TEST(Plane, TakesTheOtherRectangleByTheAssignmentOfTheClass)
{
    class Counted : public CVeRect
    {
    public:
        CVeRect& operator=(const CVeRect& other) override
        {
            ++m_assignments;
            return CVeRect::operator=(other);
        }
        int m_assignments = 0;
    };
    Counted rect;
    rect |= CVeRect(1.0, 2.0, 3.0, 4.0);
    EXPECT_EQ(1, rect.m_assignments);
    ExpectEdges(1.0, 2.0, 3.0, 4.0, rect);
}

TEST(Plane, FindsPointsInARectangleAndOnItsBorder)
{
    const CVeRect rect(1.0, 2.0, 5.0, 4.0);
    const CVeRect distant(1e6 + 5e-5, -2.0, 1e6 + 10.0, 2.0);
    const CVeRect tooDistant(1e6 + 2e-4, -2.0, 1e6 + 10.0, 2.0);
    const struct
    {
        int expected;
        CVeRect rect;
        CPoint point;
    } rows[] = {
        {1, rect, CPoint(3, 3)},
        {1, rect, CPoint(1, 2)},
        {1, rect, CPoint(5, 4)},
        {1, rect, CPoint(1, 4)},
        {0, rect, CPoint(0, 3)},
        {0, rect, CPoint(6, 3)},
        {0, rect, CPoint(3, 1)},
        {0, rect, CPoint(3, 5)},
        {1, distant, CPoint(1000000, 0)},  // the tolerance grows with the coordinate
        {0, tooDistant, CPoint(1000000, 0)},
        {1, CVeRect(), CPoint(0, 0)},
        {0, CVeRect(5.0, 4.0, 1.0, 2.0), CPoint(3, 3)},  // not normalized
        {1, CVeRect(-1e300, -1e300, 1e300, 1e300), CPoint(c_lowest, c_highest)},
        {0, CVeRect(c_nan, 0.0, 1.0, 1.0), CPoint(0, 0)},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.expected, row.rect.IsPointInRect(row.point))
            << testing::PrintToString(row.point) << " in " << testing::PrintToString(row.rect);
    }
}
