#include <gtest/gtest.h>

#include <limits>

#include "tests/support/PlaneSupport.h"
#include "vetools/framework/CPoint.h"

namespace
{

constexpr int c_lowest = std::numeric_limits<int>::min();
constexpr int c_highest = std::numeric_limits<int>::max();

}  // namespace

TEST(WholePlane, AddsNothingToTheStructuresOfTheSystem)
{
    static_assert(sizeof(CPoint) == sizeof(POINT) && sizeof(POINT) == 8);
    static_assert(sizeof(CSize) == sizeof(SIZE) && sizeof(SIZE) == 8);
    static_assert(sizeof(CRect) == sizeof(RECT) && sizeof(RECT) == 16);
    const POINT point = CPoint(1, 2);
    EXPECT_EQ(CPoint(1, 2), point);
    const SIZE size = CSize(1, 2);
    EXPECT_EQ(CSize(1, 2), size);
    const RECT rect = CRect(1, 2, 3, 4);
    EXPECT_EQ(CRect(1, 2, 3, 4), rect);
}

TEST(WholePlane, StartsAtTheOriginWithoutExtent)
{
    EXPECT_EQ(CPoint(0, 0), CPoint());
    EXPECT_EQ(CSize(0, 0), CSize());
    EXPECT_EQ(CRect(0, 0, 0, 0), CRect());
}

TEST(WholePlane, ComparesMemberByMember)
{
    EXPECT_TRUE(CPoint(1, 2) != CPoint(0, 2) && CPoint(1, 2) != CPoint(1, 0));
    EXPECT_TRUE(CSize(1, 2) != CSize(0, 2) && CSize(1, 2) != CSize(1, 0));
    for (const CRect& other : {CRect(0, 2, 3, 4), CRect(1, 0, 3, 4), CRect(1, 2, 0, 4), CRect(1, 2, 3, 0)})
        EXPECT_NE(CRect(1, 2, 3, 4), other);
    EXPECT_TRUE((POINT{1, 2} == CPoint(1, 2)));
}

TEST(WholePlane, CalculatesWithPointsAndSizes)
{
    CPoint point(10, 20);
    EXPECT_EQ(CPoint(11, 22), point + CSize(1, 2));
    EXPECT_EQ(CPoint(11, 22), point + CPoint(1, 2));
    EXPECT_EQ(CPoint(9, 18), point - CSize(1, 2));
    EXPECT_EQ(CSize(9, 18), point - CPoint(1, 2));
    EXPECT_EQ(CPoint(-10, -20), -point);
    point += CSize(1, 2);
    point += CPoint(1, 2);
    EXPECT_EQ(CPoint(12, 24), point);
    point -= CSize(1, 2);
    point -= CPoint(1, 2);
    EXPECT_EQ(CPoint(10, 20), point);
    point.Offset(1, 2);
    point.Offset(CPoint(1, 2));
    point.Offset(CSize(1, 2));
    EXPECT_EQ(CPoint(13, 26), point);
    point.SetPoint(7, 8);
    EXPECT_EQ(CPoint(7, 8), point);
    EXPECT_EQ(CPoint(3, 4), CPoint(CSize(3, 4)));

    CSize size(3, 4);
    EXPECT_EQ(CSize(4, 6), size + CSize(1, 2));
    EXPECT_EQ(CSize(2, 2), size - CSize(1, 2));
    EXPECT_EQ(CSize(-3, -4), -size);
    size += CSize(1, 2);
    EXPECT_EQ(CSize(4, 6), size);
    size -= CSize(2, 2);
    EXPECT_EQ(CSize(2, 4), size);
    size.SetSize(7, 8);
    EXPECT_EQ(CSize(7, 8), size);
    EXPECT_EQ(CSize(3, 4), CSize(CPoint(3, 4)));
}

TEST(WholePlane, MakesAndMeasuresRectangles)
{
    const CRect rect(CPoint(1, 2), CSize(3, 6));
    EXPECT_EQ(CRect(1, 2, 4, 8), rect);
    EXPECT_EQ(CRect(1, 2, 4, 8), CRect(CPoint(1, 2), CPoint(4, 8)));
    EXPECT_EQ(CRect(1, 2, 4, 8), CRect(static_cast<LPCRECT>(rect)));
    EXPECT_EQ(CRect(), CRect(static_cast<LPCRECT>(nullptr)));
    EXPECT_EQ(3, rect.Width());
    EXPECT_EQ(6, rect.Height());
    EXPECT_EQ(CSize(3, 6), rect.Size());
    EXPECT_EQ(CPoint(1, 2), rect.TopLeft());
    EXPECT_EQ(CPoint(4, 8), rect.BottomRight());
    EXPECT_EQ(CPoint(2, 5), rect.CenterPoint());
}

TEST(WholePlane, TestsRectanglesAsTheyAre)
{
    EXPECT_TRUE(CRect().IsRectNull());
    EXPECT_TRUE(CRect().IsRectEmpty());
    EXPECT_FALSE(CRect(5, 5, 5, 9).IsRectNull());
    EXPECT_TRUE(CRect(5, 5, 5, 9).IsRectEmpty());
    EXPECT_TRUE(CRect(5, 5, 9, 4).IsRectEmpty());
    EXPECT_FALSE(CRect(5, 5, 6, 6).IsRectEmpty());

    const CRect rect(1, 2, 4, 8);
    EXPECT_TRUE(rect.PtInRect(CPoint(1, 2)));
    EXPECT_TRUE(rect.PtInRect(CPoint(3, 7)));
    for (const CPoint& outside : {CPoint(0, 2), CPoint(1, 1), CPoint(4, 2), CPoint(1, 8)})
        EXPECT_FALSE(rect.PtInRect(outside)) << testing::PrintToString(outside);
}

TEST(WholePlane, MovesTheEdgesOfRectangles)
{
    CRect rect(1, 2, 4, 8);
    rect.OffsetRect(1, 1);
    rect.OffsetRect(CPoint(1, 2));
    rect.OffsetRect(CSize(-2, -3));
    EXPECT_EQ(CRect(1, 2, 4, 8), rect);
    rect.InflateRect(1, 2);
    EXPECT_EQ(CRect(0, 0, 5, 10), rect);
    rect.DeflateRect(1, 2);
    EXPECT_EQ(CRect(1, 2, 4, 8), rect);
    rect.SetRect(4, 2, 1, 8);
    rect.NormalizeRect();
    EXPECT_EQ(CRect(1, 2, 4, 8), rect);
    rect.SetRect(1, 8, 4, 2);
    rect.NormalizeRect();
    EXPECT_EQ(CRect(1, 2, 4, 8), rect);
    rect.SetRectEmpty();
    EXPECT_EQ(CRect(), rect);
}

TEST(WholePlane, WrapsRoundBeyondItsRange)
{
    const CRect whole(c_lowest, c_lowest, c_highest, c_highest);
    EXPECT_EQ(-1, whole.Width());
    EXPECT_EQ(CPoint(0, 0), whole.CenterPoint());
    EXPECT_EQ(CPoint(c_lowest, c_lowest), CPoint(c_highest, c_highest) + CSize(1, 1));
    EXPECT_EQ(CPoint(c_lowest, c_highest), -CPoint(c_lowest, c_lowest + 1));
    EXPECT_EQ(CSize(c_highest, 0), CSize(c_lowest, 1) - CSize(1, 1));
    EXPECT_EQ(CRect(c_highest, 0, c_lowest, 2), CRect(CPoint(c_highest, 0), CSize(1, 2)));
}
