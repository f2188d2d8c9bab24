#pragma once

#include "vetools/objects/VeObject.h"
#include "vetools/platform/Export.h"

/// A tolerance ε and a range [min, max] of real numbers: what two numbers of a structural model are compared with.
///
///     CVeLimits limits;                          // ε 1e-10, range [-2e12, 2e12]
///     limits.IsEqual(0.1 + 0.2, 0.3)             // 1
///     limits.IsLower(0.3, 0.1 + 0.2)             // 0: they are equal
///     limits.IsInStrictly(0.0, 3.0, -3.0)        // 1: bounds in any order
///
/// Comparisons return 1 or 0. A number that is not one (NaN) is neither equal to, nor lower than, nor inside of anything:
/// they return 0 for it, except IsNotNull and IsNotEqual, which return 1. Nothing is checked: a negative or infinite ε
/// counts as it is.
class VETOOLS_API CVeLimits : public CVeObject
{
public:
    ~CVeLimits() override;

    /// Copies ε, min and max; the copy's count and id are 0, and those of the target of an assignment stay.
    CVeLimits* GetClone() const override;
    /// 2.
    int GetObjectClassId() const override;

    // Assignment and comparisons of limits have slots of their own behind those of the base, which they hide.

    virtual CVeLimits& operator=(const CVeLimits& other);
    /// 1 when ε, min and max are exactly equal, else 0. As objects (CVeObject::operator==) all limits are equal.
    virtual int operator==(const CVeLimits& other) const;
    /// The negation of operator==, also of one that a derived class provides.
    virtual int operator!=(const CVeLimits& other) const;

    /// ε 1e-10, range [-2e12, 2e12].
    CVeLimits();
    /// A tolerance and two bounds in any order: CVeLimits(1e-3, 5, 2) ranges from 2 to 5.
    CVeLimits(double epsilon, double a, double b);
    CVeLimits(const CVeLimits& other);

    double GetEpsilon() const;
    double GetMin() const;
    double GetMax() const;

    /// Each stores a value and returns the previous one.
    /// Kept: SetMin and SetMax don't compare the two, so min may become greater than max.
    double SetEpsilon(double epsilon);
    double SetMin(double min);
    double SetMax(double max);

    /// Sets both bounds, given in any order.
    void SetRange(double a, double b);
    void GetRange(double& min, double& max) const;
    /// max − min.
    double GetRange() const;

    /// |x| ≤ ε, and its negation.
    int IsNull(double x) const;
    int IsNotNull(double x) const;
    /// |b − a| ≤ ε, and its negation. The difference is rounded as doubles are: with an `a` of 1e300 every ordinary b has
    /// the same.
    int IsEqual(double a, double b) const;
    int IsNotEqual(double a, double b) const;

    /// a < b − ε; a ≤ b + ε; a > b + ε; a ≥ b − ε.
    int IsLower(double a, double b) const;
    int IsLowerOrEqual(double a, double b) const;
    int IsGreater(double a, double b) const;
    int IsGreaterOrEqual(double a, double b) const;

    /// x > ε; x ≥ −ε; x < −ε; x ≤ ε.
    int IsPositive(double x) const;
    int IsPositiveOrNull(double x) const;
    int IsNegative(double x) const;
    int IsNegativeOrNull(double x) const;

    /// Whether x is within ε of a bound of the range.
    int IsMin(double x) const;
    int IsMax(double x) const;
    /// Whether x is at the lower bound or below; at the upper bound or above; either. Bounds have a width of ε on each side.
    /// Kept: IsOuter calls the bounds themselves outer; unless min is above max, it is 1 where IsInStrictly(x, min, max) is 0.
    int IsLowest(double x) const;
    int IsGreatest(double x) const;
    int IsOuter(double x) const;

    /// Whether x lies between a and b, given in any order, bounds included or not, each with a width of ε. The stored range
    /// does not count.
    int IsInOrEqual(double x, double a, double b) const;
    int IsInStrictly(double x, double a, double b) const;

private:
    double m_epsilon;
    double m_min;
    double m_max;
};
