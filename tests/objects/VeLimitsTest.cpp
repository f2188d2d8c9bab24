#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <random>

#include "tests/support/VirtualSlots.h"
#include "vetools/objects/VeLimits.h"

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_nan = std::numeric_limits<double>::quiet_NaN();

using OfOne = int (CVeLimits::*)(double) const;
using OfTwo = int (CVeLimits::*)(double, double) const;
using OfThree = int (CVeLimits::*)(double, double, double) const;

/// What a comparison answers for each of a list of numbers.
template <class Comparison, std::size_t count>
struct Row
{
    const char* name;
    Comparison comparison;
    int expected[count];
};

}  // namespace

TEST(Limits, HaveDefaults)
{
    const CVeLimits limits;
    EXPECT_EQ(1e-10, limits.GetEpsilon());
    EXPECT_EQ(-2e12, limits.GetMin());
    EXPECT_EQ(2e12, limits.GetMax());
    EXPECT_EQ(4e12, limits.GetRange());
    EXPECT_EQ(2, limits.GetObjectClassId());
    EXPECT_EQ(0, limits.GetRef());
    EXPECT_EQ(0, limits.GetId());
}

TEST(Limits, TakeBoundsInAnyOrder)
{
    const struct
    {
        double min;
        double max;
        double a;
        double b;
    } rows[] = {
        {2.0, 5.0, 2.0, 5.0},
        {2.0, 5.0, 5.0, 2.0},
        {3.0, 3.0, 3.0, 3.0},
        {-c_infinity, c_infinity, c_infinity, -c_infinity},
    };
    for (const auto& row : rows)
    {
        const CVeLimits made(1e-3, row.a, row.b);
        EXPECT_EQ(row.min, made.GetMin()) << row.a << ", " << row.b;
        EXPECT_EQ(row.max, made.GetMax()) << row.a << ", " << row.b;
        EXPECT_EQ(1e-3, made.GetEpsilon());

        CVeLimits set;
        set.SetRange(row.a, row.b);
        double min = 0.0;
        double max = 0.0;
        set.GetRange(min, max);
        EXPECT_EQ(row.min, min) << row.a << ", " << row.b;
        EXPECT_EQ(row.max, max) << row.a << ", " << row.b;
        EXPECT_EQ(1e-10, set.GetEpsilon());
    }
}

TEST(Limits, ExchangeBoundsThatCannotBeOrdered)
{
    const CVeLimits limits(1e-3, c_nan, 5.0);
    EXPECT_EQ(5.0, limits.GetMin());
    EXPECT_NE(limits.GetMax(), limits.GetMax()) << "not a number";
}

TEST(Limits, KeptSettersReturnThePreviousValueAndDoNotOrder)
{
    CVeLimits limits(1e-3, 5.0, 2.0);
    EXPECT_EQ(2.0, limits.SetMin(10.0));
    EXPECT_EQ(10.0, limits.GetMin());
    EXPECT_EQ(5.0, limits.GetMax());
    EXPECT_EQ(-5.0, limits.GetRange());
    EXPECT_EQ(5.0, limits.SetMax(-1.0));
    EXPECT_EQ(-1.0, limits.GetMax());
    EXPECT_EQ(1e-3, limits.SetEpsilon(-0.5));
    EXPECT_EQ(-0.5, limits.GetEpsilon());
}

TEST(Limits, CopyToleranceAndRangeButNeitherCountNorId)
{
    CVeLimits source(0.5, 1.0, 2.0);
    source.SetMin(9.0);
    source.AddRef(3);
    source.SetId(42);

    const CVeLimits copy(source);
    const std::unique_ptr<CVeObject> clone(static_cast<const CVeObject&>(source).GetClone());
    CVeLimits target;
    target.AddRef(1);
    target.SetId(7);
    EXPECT_EQ(&target, &(target = source));

    EXPECT_EQ(1, copy == source);
    EXPECT_EQ(0, copy.GetRef());
    EXPECT_EQ(0, copy.GetId());
    EXPECT_EQ(1, dynamic_cast<const CVeLimits&>(*clone) == source);
    EXPECT_EQ(0, clone->GetRef());
    EXPECT_EQ(0, clone->GetId());
    EXPECT_EQ(1, target == source);
    EXPECT_EQ(1, target.GetRef());
    EXPECT_EQ(7, target.GetId());
}

TEST(Limits, KeptAssignmentAsObjectsCopiesNothing)
{
    CVeLimits target;
    const CVeLimits source(0.5, 1.0, 2.0);
    static_cast<CVeObject&>(target) = source;
    EXPECT_EQ(1, target == CVeLimits());
}

TEST(Limits, AreEqualWhenToleranceAndRangeAreExactlyEqual)
{
    const CVeLimits limits(0.5, 1.0, 2.0);
    const struct
    {
        int expected;
        CVeLimits other;
    } rows[] = {
        {1, CVeLimits(0.5, 2.0, 1.0)},         {0, CVeLimits(0.25, 1.0, 2.0)},  {0, CVeLimits(0.5, 1.0 - 1e-15, 2.0)},
        {0, CVeLimits(0.5, 1.0, 2.0 + 1e-15)}, {0, CVeLimits(c_nan, 1.0, 2.0)},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.expected, limits == row.other) << &row - rows;
        EXPECT_EQ(!row.expected, limits != row.other) << &row - rows;
    }
}

TEST(Limits, KeptAllLimitsAreEqualAsObjects)
{
    const CVeLimits one(0.5, 1.0, 2.0);
    const CVeLimits other;
    EXPECT_EQ(0, one == other);
    EXPECT_EQ(1, one.CVeObject::operator==(other));
    EXPECT_EQ(1, static_cast<const CVeObject&>(one) == other);
    EXPECT_EQ(0, static_cast<const CVeObject&>(one) != other);
    EXPECT_EQ(0, CVeObject() == other);
}

TEST(Limits, InequalityNegatesTheEqualityOfTheClass)
{
    class Unequal : public CVeLimits
    {
    public:
        int operator==(const CVeLimits&) const override { return 0; }
    };
    const Unequal unequal;
    const CVeLimits& limits = unequal;
    EXPECT_EQ(1, limits != limits);
}

TEST(Limits, CompareANumberWithZero)
{
    const CVeLimits limits(0.25, 10.0, 20.0);  // the range does not count
    const double numbers[] = {-c_infinity, -0.5, -0.25, 0.0, 0.25, 0.5, c_infinity, c_nan};
    // clang-format off
    const Row<OfOne, std::size(numbers)> rows[] = {
    //   name               comparison                     -∞  -.5 -.25  0  .25  .5   ∞  NaN
        {"IsNull",           &CVeLimits::IsNull,           {0,  0,  1,   1,  1,   0,  0,  0}},
        {"IsNotNull",        &CVeLimits::IsNotNull,        {1,  1,  0,   0,  0,   1,  1,  1}},
        {"IsPositive",       &CVeLimits::IsPositive,       {0,  0,  0,   0,  0,   1,  1,  0}},
        {"IsPositiveOrNull", &CVeLimits::IsPositiveOrNull, {0,  0,  1,   1,  1,   1,  1,  0}},
        {"IsNegative",       &CVeLimits::IsNegative,       {1,  1,  0,   0,  0,   0,  0,  0}},
        {"IsNegativeOrNull", &CVeLimits::IsNegativeOrNull, {1,  1,  1,   1,  1,   0,  0,  0}},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        for (std::size_t i = 0; i < std::size(numbers); ++i)
            EXPECT_EQ(row.expected[i], (limits.*row.comparison)(numbers[i])) << row.name << '(' << numbers[i] << ')';
    }
}

TEST(Limits, CompareTwoNumbers)
{
    const CVeLimits limits(0.25, 10.0, 20.0);
    const double numbers[] = {-c_infinity, 0.5, 0.75, 1.0, 1.25, 1.5, c_infinity, c_nan};
    // clang-format off
    const Row<OfTwo, std::size(numbers)> rows[] = {
    //   name               comparison of 1.0 with         -∞  .5  .75   1  1.25 1.5  ∞  NaN
        {"IsEqual",          &CVeLimits::IsEqual,          {0,  0,  1,   1,  1,   0,  0,  0}},
        {"IsNotEqual",       &CVeLimits::IsNotEqual,       {1,  1,  0,   0,  0,   1,  1,  1}},
        {"IsLower",          &CVeLimits::IsLower,          {0,  0,  0,   0,  0,   1,  1,  0}},
        {"IsLowerOrEqual",   &CVeLimits::IsLowerOrEqual,   {0,  0,  1,   1,  1,   1,  1,  0}},
        {"IsGreater",        &CVeLimits::IsGreater,        {1,  1,  0,   0,  0,   0,  0,  0}},
        {"IsGreaterOrEqual", &CVeLimits::IsGreaterOrEqual, {1,  1,  1,   1,  1,   0,  0,  0}},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        for (std::size_t i = 0; i < std::size(numbers); ++i)
        {
            EXPECT_EQ(row.expected[i], (limits.*row.comparison)(1.0, numbers[i]))
                << row.name << "(1, " << numbers[i] << ')';
        }
        const int ofNan = row.expected[std::size(numbers) - 1];  // on either side
        EXPECT_EQ(ofNan, (limits.*row.comparison)(c_nan, 1.0)) << row.name << "(NaN, 1)";
        EXPECT_EQ(ofNan, (limits.*row.comparison)(c_nan, c_nan)) << row.name << "(NaN, NaN)";
    }
}

TEST(Limits, CompareANumberWithTheRange)
{
    const CVeLimits limits(0.25, -8.0, 8.0);
    const double numbers[] = {-c_infinity, -8.5, -8.25, -8.0, -7.75, -7.5,       0.0,
                              7.5,         7.75, 8.0,   8.25, 8.5,   c_infinity, c_nan};
    // clang-format off
    const Row<OfOne, std::size(numbers)> rows[] = {
    //   name         comparison               -∞ -8.5 -8.25 -8 -7.75 -7.5 0 7.5 7.75 8 8.25 8.5  ∞ NaN
        {"IsMin",      &CVeLimits::IsMin,      {0,  0,  1,   1,  1,   0,  0,  0,  0,  0,  0,  0,  0,  0}},
        {"IsMax",      &CVeLimits::IsMax,      {0,  0,  0,   0,  0,   0,  0,  0,  1,  1,  1,  0,  0,  0}},
        {"IsLowest",   &CVeLimits::IsLowest,   {1,  1,  1,   1,  1,   0,  0,  0,  0,  0,  0,  0,  0,  0}},
        {"IsGreatest", &CVeLimits::IsGreatest, {0,  0,  0,   0,  0,   0,  0,  0,  1,  1,  1,  1,  1,  0}},
        {"IsOuter",    &CVeLimits::IsOuter,    {1,  1,  1,   1,  1,   0,  0,  0,  1,  1,  1,  1,  1,  0}},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        for (std::size_t i = 0; i < std::size(numbers); ++i)
            EXPECT_EQ(row.expected[i], (limits.*row.comparison)(numbers[i])) << row.name << '(' << numbers[i] << ')';
    }
}

TEST(Limits, CompareANumberWithBoundsInAnyOrderWhateverTheRange)
{
    const CVeLimits limits(0.25, 100.0, 200.0);
    const double numbers[] = {-c_infinity, -8.5, -8.25, -8.0, -7.75, -7.5,       0.0,
                              7.5,         7.75, 8.0,   8.25, 8.5,   c_infinity, c_nan};
    // clang-format off
    const Row<OfThree, std::size(numbers)> rows[] = {
    //   name           comparison                 -∞ -8.5 -8.25 -8 -7.75 -7.5 0 7.5 7.75 8 8.25 8.5  ∞ NaN
        {"IsInOrEqual",  &CVeLimits::IsInOrEqual,  {0,  0,  1,   1,  1,   1,  1,  1,  1,  1,  1,  0,  0,  0}},
        {"IsInStrictly", &CVeLimits::IsInStrictly, {0,  0,  0,   0,  0,   1,  1,  1,  0,  0,  0,  0,  0,  0}},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        for (std::size_t i = 0; i < std::size(numbers); ++i)
        {
            EXPECT_EQ(row.expected[i], (limits.*row.comparison)(numbers[i], -8.0, 8.0)) << row.name << numbers[i];
            EXPECT_EQ(row.expected[i], (limits.*row.comparison)(numbers[i], 8.0, -8.0)) << row.name << numbers[i];
        }
        EXPECT_EQ(0, (limits.*row.comparison)(0.0, c_nan, 0.0)) << row.name;
        EXPECT_EQ(0, (limits.*row.comparison)(0.0, 0.0, c_nan)) << row.name;
        EXPECT_EQ(0, (limits.*row.comparison)(0.0, c_nan, c_nan)) << row.name;
    }
}

TEST(Limits, CompareByTheDefaults)
{
    const CVeLimits limits;
    EXPECT_EQ(1, limits.IsNull(1e-10));
    EXPECT_EQ(0, limits.IsNull(1.1e-10));
    EXPECT_EQ(1, limits.IsOuter(-2e12));
    EXPECT_EQ(1, limits.IsInStrictly(0.0, 3.0, -3.0));
    EXPECT_EQ(1, limits.IsEqual(0.1 + 0.2, 0.3));
}

TEST(Limits, CompareTheRoundedDifference)
{
    constexpr double huge = 9007199254740992.0;  // 2^53: the next double is greater by 2
    const CVeLimits limits(huge, 0.0, 1.0);
    EXPECT_EQ(1, limits.IsEqual(-huge, 1.0)) << "2^53 + 1 rounds to 2^53";
    EXPECT_EQ(0, limits.IsEqual(-huge, 2.0));
    EXPECT_EQ(1, CVeLimits().IsEqual(1e300, 1e300 + 1e280));
    EXPECT_EQ(0, CVeLimits().IsEqual(1e300, 1e-300));
}

TEST(Limits, KeptOuterIsWhatIsNotStrictlyInside)
{
    std::mt19937 random(20);  // the seed
    std::uniform_real_distribution<double> number(-3.0, 3.0);
    for (int i = 0; i < 20000; ++i)
    {
        const CVeLimits limits(number(random) / 10.0, number(random), number(random));
        const double x = i % 4 == 0 ? limits.GetMin() + limits.GetEpsilon() : number(random);
        EXPECT_EQ(!limits.IsOuter(x), limits.IsInStrictly(x, limits.GetMin(), limits.GetMax()))
            << x << " in " << limits.GetMin() << ", " << limits.GetMax() << " by " << limits.GetEpsilon();
    }
}

TEST(Limits, HaveTheirVirtualFunctionsAndMembersInTheOrderThatHostsWereBuiltWith)
{
    using Assign = CVeLimits& (CVeLimits::*)(const CVeLimits&);
    using Compare = int (CVeLimits::*)(const CVeLimits&) const;
    EXPECT_EQ(2, SlotOf(&CVeLimits::GetClone));
    EXPECT_EQ(9, SlotOf(&CVeLimits::GetObjectClassId));
    EXPECT_EQ(10, SlotOf(static_cast<Assign>(&CVeLimits::operator=)));
    EXPECT_EQ(11, SlotOf(static_cast<Compare>(&CVeLimits::operator==)));
    EXPECT_EQ(12, SlotOf(static_cast<Compare>(&CVeLimits::operator!=)));
    EXPECT_EQ(sizeof(CVeObject) + 3 * sizeof(double), sizeof(CVeLimits));
}
