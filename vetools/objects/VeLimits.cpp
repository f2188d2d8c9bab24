#include "vetools/objects/VeLimits.h"

#include <new>
#include <utility>

namespace
{

constexpr int c_limitsClassId = 2;
constexpr double c_defaultEpsilon = 1e-10;
constexpr double c_defaultMin = -2e12;
constexpr double c_defaultMax = 2e12;

/// Two bounds, the lower one first. When one is not a number, a comparison with it fails, so nothing lies between the two.
struct Bounds
{
    Bounds(double a, double b)
        : low(b > a ? a : b)
        , high(b > a ? b : a)
    {
    }

    double low;
    double high;
};

}  // namespace

CVeLimits::CVeLimits()
    : CVeLimits(c_defaultEpsilon, c_defaultMin, c_defaultMax)
{
}

CVeLimits::CVeLimits(double epsilon, double a, double b)
    : m_epsilon(epsilon)
{
    SetRange(a, b);
}

CVeLimits::CVeLimits(const CVeLimits& other)
    : CVeObject(other)
    , m_epsilon(other.m_epsilon)
    , m_min(other.m_min)
    , m_max(other.m_max)
{
}

CVeLimits::~CVeLimits() = default;

CVeLimits* CVeLimits::GetClone() const
{
    return new (std::nothrow) CVeLimits(*this);
}

int CVeLimits::GetObjectClassId() const
{
    return c_limitsClassId;
}

CVeLimits& CVeLimits::operator=(const CVeLimits& other)
{
    m_epsilon = other.m_epsilon;
    m_min = other.m_min;
    m_max = other.m_max;
    return *this;
}

int CVeLimits::operator==(const CVeLimits& other) const
{
    return m_epsilon == other.m_epsilon && m_min == other.m_min && m_max == other.m_max;
}

int CVeLimits::operator!=(const CVeLimits& other) const
{
    return !operator==(other);
}

double CVeLimits::GetEpsilon() const
{
    return m_epsilon;
}

double CVeLimits::GetMin() const
{
    return m_min;
}

double CVeLimits::GetMax() const
{
    return m_max;
}

double CVeLimits::SetEpsilon(double epsilon)
{
    return std::exchange(m_epsilon, epsilon);
}

double CVeLimits::SetMin(double min)
{
    return std::exchange(m_min, min);  // Kept: not compared with max
}

double CVeLimits::SetMax(double max)
{
    return std::exchange(m_max, max);  // Kept: not compared with min
}

void CVeLimits::SetRange(double a, double b)
{
    const Bounds bounds(a, b);
    m_min = bounds.low;
    m_max = bounds.high;
}

void CVeLimits::GetRange(double& min, double& max) const
{
    min = m_min;
    max = m_max;
}

double CVeLimits::GetRange() const
{
    return m_max - m_min;
}

// Every comparison is written so that it is false for what is not a number; the negations then are true.

int CVeLimits::IsNull(double x) const
{
    return m_epsilon >= x && x >= -m_epsilon;
}

int CVeLimits::IsNotNull(double x) const
{
    return !IsNull(x);
}

int CVeLimits::IsEqual(double a, double b) const
{
    return IsNull(b - a);
}

int CVeLimits::IsNotEqual(double a, double b) const
{
    return !IsEqual(a, b);
}

int CVeLimits::IsLower(double a, double b) const
{
    return b - m_epsilon > a;
}

int CVeLimits::IsLowerOrEqual(double a, double b) const
{
    return b + m_epsilon >= a;
}

int CVeLimits::IsGreater(double a, double b) const
{
    return a > b + m_epsilon;
}

int CVeLimits::IsGreaterOrEqual(double a, double b) const
{
    return a >= b - m_epsilon;
}

int CVeLimits::IsPositive(double x) const
{
    return x > m_epsilon;
}

int CVeLimits::IsPositiveOrNull(double x) const
{
    return x >= -m_epsilon;
}

int CVeLimits::IsNegative(double x) const
{
    return -m_epsilon > x;
}

int CVeLimits::IsNegativeOrNull(double x) const
{
    return m_epsilon >= x;
}

int CVeLimits::IsMin(double x) const
{
    return IsNull(m_min - x);
}

int CVeLimits::IsMax(double x) const
{
    return IsNull(m_max - x);
}

int CVeLimits::IsLowest(double x) const
{
    return m_min + m_epsilon >= x;
}

int CVeLimits::IsGreatest(double x) const
{
    return x >= m_max - m_epsilon;
}

int CVeLimits::IsOuter(double x) const
{
    return IsLowest(x) || IsGreatest(x);  // Kept: the bounds themselves are outer
}

int CVeLimits::IsInOrEqual(double x, double a, double b) const
{
    const Bounds bounds(a, b);
    return x >= bounds.low - m_epsilon && bounds.high + m_epsilon >= x;
}

int CVeLimits::IsInStrictly(double x, double a, double b) const
{
    const Bounds bounds(a, b);
    return x > bounds.low + m_epsilon && bounds.high - m_epsilon > x;
}
