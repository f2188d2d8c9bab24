#include "vetools/framework/NumberWriter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

namespace
{

constexpr int c_defaultPrecision = 6;
/// No double has more decimals than the smallest one, 2^-1074.
constexpr int c_exactDecimals = 1074;

constexpr int c_mantissaBits = std::numeric_limits<double>::digits - 1;
constexpr std::uint64_t c_hiddenBit = std::uint64_t{1} << c_mantissaBits;
constexpr int c_exponentMask = 0x7FF;
/// A double is mantissa * 2^(exponent field - bias), the mantissa taken as a whole number.
constexpr int c_exponentBias = 1023 + c_mantissaBits;

__extension__ using UInt128 = unsigned __int128;

constexpr int c_powerCount = 20;
constexpr std::array<std::uint64_t, c_powerCount> c_powersOfTen = []
{
    std::array<std::uint64_t, c_powerCount> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();

/// "00" to "99" one after the other.
constexpr std::array<wchar_t, 200> c_digitPairs = []
{
    std::array<wchar_t, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i)
    {
        pairs[2 * i] = static_cast<wchar_t>(L'0' + i / 10);
        pairs[2 * i + 1] = static_cast<wchar_t>(L'0' + i % 10);
    }
    return pairs;
}();

/// The number of decimal digits, 1 for 0.
int CountDigits(std::uint64_t number)
{
    // 1233 / 4096 is about log10(2): the guess is the count, or one less. Setting the last bit makes 0 a one-digit number.
    number |= 1;
    const int guess = (std::bit_width(number) * 1233) >> 12;
    return guess + (number >= c_powersOfTen[static_cast<std::size_t>(guess)] ? 1 : 0);
}

/// Writes the last `count` digits of a number before `end`, zeros in front as they are needed, and takes them off the number.
template <typename Number>
void TakeDigits(wchar_t* end, Number& number, int count)
{
    for (; count >= 2; count -= 2)
    {
        const std::size_t pair = 2 * static_cast<std::size_t>(number % 100);
        number /= 100;
        end -= 2;
        std::memcpy(end, &c_digitPairs[pair], 2 * sizeof(wchar_t));  // one store
    }
    if (count == 1)
    {
        end[-1] = static_cast<wchar_t>(L'0' + number % 10);
        number /= 10;
    }
}

/// Writes the digits of number / 10^decimals, `whole` of them before the point.
template <typename Number>
wchar_t* WriteDigits(wchar_t* out, Number number, int whole, int decimals)
{
    wchar_t* const point = out + whole;
    wchar_t* end = point;
    if (decimals > 0)
    {
        *point = L'.';
        end = point + 1 + decimals;
        TakeDigits(end, number, decimals);
    }
    TakeDigits(point, number, whole);
    return end;
}

/// The digits of number / 10^decimals. Most numbers fit 32 bits, whose arithmetic is the faster.
inline wchar_t* WriteShifted(wchar_t* out, std::uint64_t number, int decimals)
{
    const int whole = std::max(CountDigits(number) - decimals, 1);
    if (number <= std::numeric_limits<std::uint32_t>::max())
        return WriteDigits(out, static_cast<std::uint32_t>(number), whole, decimals);
    return WriteDigits(out, number, whole, decimals);
}

wchar_t* Append(wchar_t* out, std::string_view text)
{
    return std::transform(text.begin(), text.end(), out, [](char c) { return static_cast<wchar_t>(c); });
}

/// The magnitude of a finite double, mantissa * 2^exponent.
struct BinaryNumber
{
    std::uint64_t mantissa;
    int exponent;
};

BinaryNumber MagnitudeOf(double value)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const auto field = static_cast<int>(bits >> c_mantissaBits) & c_exponentMask;
    const std::uint64_t mantissa = bits & (c_hiddenBit - 1);
    if (field == 0)
        return {mantissa, 1 - c_exponentBias};
    return {mantissa | c_hiddenBit, field - c_exponentBias};
}

/// A number rounded to decimals: `whole`, and `fraction` units of the last decimal.
struct FixedNumber
{
    std::uint64_t whole;
    std::uint64_t fraction;
};

/// Rounds mantissa / 2^shift, shift positive, to at most 19 decimals, an exact half to the even last digit.
FixedNumber RoundFraction(std::uint64_t mantissa, int shift, int precision)
{
    constexpr int c_shiftLimit = 127;
    const std::uint64_t scale = c_powersOfTen[static_cast<std::size_t>(precision)];

    // Below 2^53 / 2^127 a number is less than half of the nineteenth decimal.
    if (shift > c_shiftLimit)
        return {0, 0};

    FixedNumber number{0, 0};
    std::uint64_t remainder = mantissa;
    if (shift <= c_mantissaBits)
    {
        number.whole = mantissa >> shift;
        remainder = mantissa & ((std::uint64_t{1} << shift) - 1);
    }

    // remainder < 2^53 and scale < 2^64: the product is exact in 128 bits.
    const UInt128 product = static_cast<UInt128>(remainder) * scale;
    const UInt128 half = static_cast<UInt128>(1) << (shift - 1);
    const UInt128 rest = product & ((half << 1) - 1);
    number.fraction = static_cast<std::uint64_t>(product >> shift);

    // Up or down is chance: no branch.
    const unsigned int odd = (number.whole * scale + number.fraction) & 1;
    number.fraction += static_cast<unsigned int>(rest > half) | (static_cast<unsigned int>(rest == half) & odd);
    if (number.fraction >= scale)
    {
        number.fraction -= scale;
        ++number.whole;
    }
    return number;
}

wchar_t* WriteRounded(wchar_t* out, const FixedNumber& number, int precision)
{
    out = WriteShifted(out, number.whole, 0);
    if (precision == 0)
        return out;
    *out++ = L'.';
    std::uint64_t fraction = number.fraction;
    TakeDigits(out + precision, fraction, precision);
    return out + precision;
}

/// Any finite magnitude at any precision, by the run-time library's exact algorithm.
wchar_t* WriteFixedInFull(wchar_t* out, double magnitude, int precision)
{
    char text[FixedTextCapacity(c_exactDecimals)];
    const int decimals = std::min(precision, c_exactDecimals);
    const auto result = std::to_chars(text, text + sizeof text, magnitude, std::chars_format::fixed, decimals);
    out = Append(out, {text, result.ptr});
    return std::fill_n(out, precision - decimals, L'0');
}

wchar_t* WriteFixedMagnitude(wchar_t* out, double magnitude, int precision)
{
    constexpr int c_wholeShift = 64 - (c_mantissaBits + 1);  // a larger exponent gives a number beyond 64 bits

    const BinaryNumber number = MagnitudeOf(magnitude);
    if (precision >= c_powerCount || number.exponent > c_wholeShift)
        return WriteFixedInFull(out, magnitude, precision);
    if (number.exponent >= 0)
        return WriteRounded(out, {number.mantissa << number.exponent, 0}, precision);
    return WriteRounded(out, RoundFraction(number.mantissa, -number.exponent, precision), precision);
}

/// The text of an infinity or a not-a-number, without its sign.
wchar_t* WriteNonFinite(wchar_t* out, double value, int precision)
{
    std::wstring_view name = std::isinf(value) ? L"#INF" : std::signbit(value) ? L"#IND" : L"#QNAN";
    const auto decimals = static_cast<std::size_t>(precision);

    *out++ = L'1';
    if (decimals == 0)
        return out;
    *out++ = L'.';
    if (decimals >= name.size())
    {
        out = std::copy(name.begin(), name.end(), out);
        return std::fill_n(out, decimals - name.size(), L'0');
    }
    out = std::copy_n(name.begin(), decimals, out);
    if (name[decimals] >= L'5')
        ++out[-1];
    return out;
}

wchar_t* WriteSign(wchar_t* out, double value)
{
    if (std::signbit(value))
        *out++ = L'-';
    return out;
}

}  // namespace

wchar_t* WriteFixed(wchar_t* out, double value, int precision)
{
    if (precision < 0)
        precision = c_defaultPrecision;
    out = WriteSign(out, value);
    if (!std::isfinite(value))
        return WriteNonFinite(out, value, precision);
    return WriteFixedMagnitude(out, std::fabs(value), precision);
}

wchar_t* WriteUnits(wchar_t* out, std::int64_t units, int precision)
{
    const auto bits = static_cast<std::uint64_t>(units);
    if (units < 0)
        *out++ = L'-';
    return WriteShifted(out, units < 0 ? 0 - bits : bits, precision);
}

wchar_t* WriteExponent(wchar_t* out, double value, int precision)
{
    if (precision < 0)
        precision = c_defaultPrecision;
    out = WriteSign(out, value);
    if (!std::isfinite(value))
        return Append(WriteNonFinite(out, value, precision), "e+00");

    char text[ExponentTextCapacity(c_exactDecimals)];
    const int decimals = std::min(precision, c_exactDecimals);
    const auto result =
        std::to_chars(text, text + sizeof text, std::fabs(value), std::chars_format::scientific, decimals);
    const std::string_view written(text, result.ptr);
    const std::size_t exponent = written.rfind('e');
    out = Append(out, written.substr(0, exponent));
    out = std::fill_n(out, precision - decimals, L'0');
    return Append(out, written.substr(exponent));
}

wchar_t* WriteInteger(wchar_t* out, int value)
{
    if (value >= 0 && value <= 9)
    {
        *out = static_cast<wchar_t>(L'0' + value);
        return out + 1;
    }
    if (value < 0)
        *out++ = L'-';
    const auto bits = static_cast<std::uint32_t>(value);
    const std::uint32_t magnitude = value < 0 ? 0 - bits : bits;
    return WriteDigits(out, magnitude, CountDigits(magnitude), 0);
}
