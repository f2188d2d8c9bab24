#include "vetools/valuetext/ImperialFormat.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "vetools/framework/SaturatingInt.h"

namespace
{

/// Values down to here are written without a sign.
constexpr double c_negativeTolerance = -1e-10;

/// Inches whose square is no larger are not written behind feet.
constexpr double c_squareOfNoInches = 1e-20;

constexpr double c_fractionTolerance = 1e-10;

struct InchFraction
{
    int inches;
    int numerator;
    int denominator;
};

/// Feet and the inches that are left, less than a foot, also of feet beyond the range of an int.
struct FeetAndInches
{
    int feet;
    double inches;
};

FeetAndInches SplitFeet(double value)
{
    return {TruncateToInt(value), (value - std::trunc(value)) * c_inchesPerFoot};
}

/// Halves numerator and denominator while both are even: 6/16 -> 3/8.
void Reduce(InchFraction& fraction)
{
    const auto numerator = static_cast<unsigned int>(fraction.numerator);
    const auto denominator = static_cast<unsigned int>(fraction.denominator);
    const int halvings = std::countr_zero(numerator | denominator);
    fraction.numerator = static_cast<int>(numerator >> halvings);
    fraction.denominator = static_cast<int>(denominator >> halvings);
}

/// The fraction next to the inches. An exact half of a step is rounded down, and the tolerance extends that to what lies
/// just above the half.
InchFraction NearestFraction(double inches, unsigned int precision)
{
    InchFraction fraction{};
    fraction.inches = TruncateToInt(inches);
    fraction.denominator = 1 << std::min(precision, c_imperialFractionBits);

    const double denominator = fraction.denominator;
    const double rest = inches - std::trunc(inches);
    // A power of two: multiplying by the step is exactly dividing by the denominator.
    const double step = 1.0 / denominator;
    const double halfStep = 0.5 * step;
    fraction.numerator = TruncateToInt(denominator * rest);
    // Up or down is chance: no branch. The numerator is no larger than the denominator.
    fraction.numerator +=
        rest - fraction.numerator * step > halfStep + (halfStep * c_fractionTolerance + c_fractionTolerance) ? 1 : 0;

    if (fraction.numerator == fraction.denominator)
        return {NextInt(fraction.inches), 0, 1};
    Reduce(fraction);
    return fraction;
}

wchar_t* WriteFeet(wchar_t* out, int feet)
{
    out = WriteInteger(out, feet);
    *out++ = L'\'';
    return out;
}

/// 0 3/8 -> 3/8"   4 1/2 -> 4 1/2"   4 0/1 -> 4"
wchar_t* WriteInches(wchar_t* out, const InchFraction& fraction)
{
    if (fraction.inches != 0 || fraction.numerator == 0)
        out = WriteInteger(out, fraction.inches);
    if (fraction.numerator != 0)
    {
        if (fraction.inches != 0)
            *out++ = L' ';
        out = WriteInteger(out, fraction.numerator);
        *out++ = L'/';
        out = WriteInteger(out, fraction.denominator);
    }
    *out++ = L'"';
    return out;
}

wchar_t* WriteFeetAndFraction(wchar_t* out, double value, unsigned int precision)
{
    auto [feet, inches] = SplitFeet(value);
    InchFraction fraction = NearestFraction(inches, precision);
    if (fraction.inches == 12)
    {
        feet = NextInt(feet);
        fraction.inches = 0;
    }
    if (feet == 0)
        return WriteInches(out, fraction);
    out = WriteFeet(out, feet);
    if (fraction.inches == 0 && fraction.numerator == 0)
        return out;
    *out++ = L'-';
    return WriteInches(out, fraction);
}

/// As "%.*f" writes it, except that decimals which are zero in every double are left out.
wchar_t* WriteDecimals(wchar_t* out, double inches, unsigned int precision)
{
    const int decimals = static_cast<int>(precision);
    return WriteFixed(out, inches, std::min(decimals, static_cast<int>(c_imperialDecimals)));
}

/// The end of the text without its last zeros, and without the separator before them.
/// Kept: zeros of a whole number go too (10 -> 1), and no other separator than the given one goes.
wchar_t* TrimZeros(wchar_t* first, wchar_t* last, wchar_t separator)
{
    while (last != first && last[-1] == L'0')
        --last;
    if (last != first && last[-1] == separator)
        --last;
    return last;
}

wchar_t* WriteFeetAndDecimals(wchar_t* out, double value, unsigned int precision, wchar_t separator)
{
    const auto [feet, inches] = SplitFeet(value);
    if (feet != 0)
    {
        out = WriteFeet(out, feet);
        if (!(inches * inches > c_squareOfNoInches))
            return out;
        *out++ = L'-';
    }
    out = TrimZeros(out, WriteDecimals(out, inches, precision), separator);
    *out++ = L'"';
    return out;
}

/// Kept: the zeros stay, because what is looked at for zeros to remove ends in the inch mark.
wchar_t* WriteDecimalInches(wchar_t* out, double value, unsigned int precision)
{
    out = WriteDecimals(out, value, precision);
    *out++ = L'"';
    return out;
}

}  // namespace

std::size_t WriteImperialText(wchar_t* out, double value, LengthIn in, unsigned int precision, wchar_t separator,
                              Unit::enumUNITFORMAT format)
{
    *out = L'\0';
    if (format != Unit::UNITFORMAT_FEET_INCHES && format != Unit::UNITFORMAT_FRACTION)
        return 0;

    wchar_t* end = out;
    if (value < c_negativeTolerance)
        *end++ = L'-';
    const double magnitude = std::fabs(value);
    if (format == Unit::UNITFORMAT_FRACTION)
        end = in == LengthIn::Feet ? WriteFeetAndFraction(end, magnitude, precision)
                                   : WriteInches(end, NearestFraction(magnitude, precision));
    else
        end = in == LengthIn::Feet ? WriteFeetAndDecimals(end, magnitude, precision, separator)
                                   : WriteDecimalInches(end, magnitude, precision);
    *end = L'\0';
    return static_cast<std::size_t>(end - out);
}
