#include "vetools/platform/Power.h"

#include <cmath>

// |base| ^ exponent = exp(exponent * ln |base|) in pairs of doubles, which hold some 105 bits. Products are split into
// halves rather than fused, so that the result depends neither on the processor nor on the run-time library.

namespace
{

/// The unevaluated sum of two doubles, the second below half a last digit of the first.
struct Pair
{
    double high;
    double low;
};

constexpr Pair c_ln2 = {0x1.62e42fefa39efp-1, 0x1.abc9e3b39803fp-56};

/// Beyond this magnitude the exponential function is 0 or infinite.
constexpr double c_largestArgument = 800.0;

/// The exponential's argument is divided by 2 to this power, where ten terms of the series give all digits.
constexpr int c_halvings = 9;
constexpr int c_terms = 10;

/// The exact sum of two numbers of which the first is not the smaller one.
constexpr Pair Sum(double larger, double smaller)
{
    const double high = larger + smaller;
    return {high, smaller - (high - larger)};
}

/// The exact sum of any two numbers.
constexpr Pair ExactSum(double a, double b)
{
    const double high = a + b;
    const double part = high - a;
    return {high, (a - (high - part)) + (b - part)};
}

/// The upper 26 bits, and with it the lower ones, of a number.
constexpr Pair Halves(double a)
{
    const double scaled = 134217729.0 * a;  // 2^27 + 1
    const double upper = scaled - (scaled - a);
    return {upper, a - upper};
}

constexpr Pair ExactProduct(double a, double b)
{
    const double high = a * b;
    const Pair x = Halves(a);
    const Pair y = Halves(b);
    return {high, ((x.high * y.high - high) + x.high * y.low + x.low * y.high) + x.low * y.low};
}

constexpr Pair operator+(Pair a, Pair b)
{
    const Pair high = ExactSum(a.high, b.high);
    const Pair low = ExactSum(a.low, b.low);
    const Pair sum = Sum(high.high, high.low + low.high);
    return Sum(sum.high, sum.low + low.low);
}

constexpr Pair operator-(Pair a)
{
    return {-a.high, -a.low};
}

constexpr Pair operator*(Pair a, Pair b)
{
    const Pair product = ExactProduct(a.high, b.high);
    return Sum(product.high, product.low + (a.high * b.low + a.low * b.high));
}

/// A quotient by a small whole number.
constexpr Pair operator/(Pair a, double divisor)
{
    const double first = a.high / divisor;
    const Pair rest = a + -ExactProduct(first, divisor);
    return Sum(first, rest.high / divisor);
}

/// e^x - 1 for |x| below 0.4, to all digits also near 0.
constexpr Pair ExponentialLessOne(Pair x)
{
    const double scale = 1 << c_halvings;
    const Pair reduced = {x.high / scale, x.low / scale};
    Pair sum = reduced / c_terms;  // x (1 + x/2 (1 + x/3 (…))), from the inside
    for (int term = c_terms - 1; term > 0; --term)
        sum = (reduced + reduced * sum) / term;
    for (int i = 0; i < c_halvings; ++i)  // e^2x - 1 = 2 (e^x - 1) + (e^x - 1)²
        sum = Pair{2.0 * sum.high, 2.0 * sum.low} + sum * sum;
    return sum;
}

/// ln(mantissa * 2^binaryExponent), the mantissa between 0.7 and 1.42.
Pair Logarithm(double mantissa, int binaryExponent)
{
    // One step of Newton's method doubles the digits of the library's logarithm.
    const double guess = std::log(mantissa);
    const Pair less = ExponentialLessOne({guess, 0.0});
    const Pair difference = Pair{mantissa - 1.0, 0.0} + -less;
    const double correction = difference.high / (1.0 + less.high);
    const Pair logarithm = Sum(guess, correction - 0.5 * correction * correction);
    return logarithm + c_ln2 * Pair{static_cast<double>(binaryExponent), 0.0};
}

double PositivePower(double base, double exponent)
{
    int binaryExponent = 0;
    double mantissa = std::frexp(base, &binaryExponent);
    if (mantissa < 0.70710678118654757)
    {
        mantissa *= 2.0;
        --binaryExponent;
    }
    const Pair logarithm = Logarithm(mantissa, binaryExponent);
    const double estimate = logarithm.high * exponent;
    if (!(std::fabs(estimate) < c_largestArgument))
        return estimate > 0.0 ? HUGE_VAL : 0.0;

    const Pair argument = logarithm * Pair{exponent, 0.0};
    const double doublings = std::nearbyint(argument.high / c_ln2.high);
    const Pair rest = argument + -(c_ln2 * Pair{doublings, 0.0});
    const Pair power = Pair{1.0, 0.0} + ExponentialLessOne(rest);
    return std::ldexp(power.high + power.low, static_cast<int>(doublings));
}

bool IsWhole(double value)
{
    return std::trunc(value) == value;
}

bool IsOdd(double whole)
{
    return std::fmod(whole, 2.0) != 0.0;
}

}  // namespace

double Power(double base, double exponent)
{
    if (exponent == 0.0 || base == 1.0)
        return 1.0;
    if (std::isnan(base) || std::isnan(exponent))
        return std::isnan(base) ? base : exponent;
    if (base == 0.0 || std::isinf(base) || std::isinf(exponent))
        return std::pow(base, exponent);  // the standard fixes these results
    if (base > 0.0)
        return PositivePower(base, exponent);
    if (!IsWhole(exponent))
        return (base - base) / (base - base);  // not a number, of the sign that the processor gives
    const double power = base == -1.0 ? 1.0 : PositivePower(-base, exponent);
    return IsOdd(exponent) ? -power : power;
}
