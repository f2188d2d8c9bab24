#include "vetools/platform/posix/VariantNumber.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>

namespace
{

__extension__ using Whole = __int128;

/// The digits of the greatest power of ten within a Magnitude.
constexpr int c_magnitudeDigits = 38;
constexpr int c_maxDecimalScale = 28;
constexpr int c_moneyScale = 4;

constexpr Magnitude c_maxDecimal = (Magnitude{0xFFFFFFFF} << 64) | 0xFFFFFFFFFFFFFFFF;

struct IntegerRow
{
    VARTYPE type;
    int bits;
    bool isSigned;

    constexpr Whole Min() const { return isSigned ? -(Whole{1} << (bits - 1)) : 0; }
    constexpr Whole Max() const { return (Whole{1} << (isSigned ? bits - 1 : bits)) - 1; }
};

constexpr IntegerRow c_integers[] = {
    {VT_I1, 8, true},    {VT_UI1, 8, false}, {VT_I2, 16, true},   {VT_UI2, 16, false}, {VT_I4, 32, true},
    {VT_UI4, 32, false}, {VT_I8, 64, true},  {VT_UI8, 64, false}, {VT_INT, 32, true},  {VT_UINT, 32, false},
};

const IntegerRow* IntegerRowOf(VARTYPE type)
{
    const auto* const row = std::find_if(std::begin(c_integers), std::end(c_integers),
                                         [type](const IntegerRow& candidate) { return candidate.type == type; });
    return row != std::end(c_integers) ? row : nullptr;
}

constexpr Magnitude PowerOfTen(int exponent)
{
    Magnitude power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}

Whole Signed(bool negative, Magnitude magnitude)
{
    return negative ? -static_cast<Whole>(magnitude) : static_cast<Whole>(magnitude);
}

// A number with a scale: rounding to other scales

/// The nearest number with `scale` decimals, halves to the even one; nothing beyond c_magnitudeDigits.
std::optional<ScaledNumber> Rounded(const ScaledNumber& number, int scale)
{
    if (scale >= number.scale)
    {
        const Magnitude factor = PowerOfTen(scale - number.scale);
        if (number.magnitude > PowerOfTen(c_magnitudeDigits) / factor)
            return std::nullopt;
        return ScaledNumber{number.negative, number.magnitude * factor, scale};
    }
    const Magnitude divisor = PowerOfTen(number.scale - scale);
    Magnitude quotient = number.magnitude / divisor;
    const Magnitude twice = number.magnitude % divisor * 2;
    if (twice > divisor || (twice == divisor && quotient % 2 != 0))
        ++quotient;
    return ScaledNumber{number.negative, quotient, scale};
}

/// How the digits from a place on round what stands in front of them.
bool RoundsUp(const DigitNumber& number, std::int64_t place, bool isOdd)
{
    if (place < 0 || place >= number.count || number.digits[place] < '5')
        return false;
    const bool isHalf =
        number.digits[place] == '5' && !number.hasMore &&
        std::all_of(number.digits + place + 1, number.digits + number.count, [](char digit) { return digit == '0'; });
    return !isHalf || isOdd;
}

std::optional<ScaledNumber> Rounded(const DigitNumber& number, int scale)
{
    ScaledNumber rounded = {number.negative, 0, scale};
    if (number.count == 0)
        return rounded;
    const std::int64_t kept = number.count + number.exponent + scale;
    if (kept > c_magnitudeDigits)
        return std::nullopt;
    for (std::int64_t i = 0; i < kept; ++i)
        rounded.magnitude = rounded.magnitude * 10 + (i < number.count ? number.digits[i] - '0' : 0);
    if (RoundsUp(number, kept, rounded.magnitude % 2 != 0))
        ++rounded.magnitude;
    return rounded;
}

/// So many digits of a finite number.
template <class Float>
DigitNumber DigitsOf(Float value, int digits)
{
    DigitNumber number;
    number.negative = std::signbit(value);
    // d.dddddddddddddde+xxx
    char text[c_doubleDigits + 8];
    char* const last = text + sizeof text;
    const char* const end = std::to_chars(text, last, std::fabs(value), std::chars_format::scientific, digits - 1).ptr;
    number.digits[0] = text[0];
    std::copy_n(text + 2, digits - 1, number.digits + 1);
    number.count = text[0] == '0' ? 0 : digits;
    const char* const exponent = text + digits + 2;
    int decimalExponent = 0;
    std::from_chars(*exponent == '+' ? exponent + 1 : exponent, end, decimalExponent);
    number.exponent = decimalExponent - (digits - 1);
    return number;
}

// Each kind of number as an integer of a type

std::optional<Whole> WholeOf(const ScaledNumber& number, const IntegerRow&)
{
    const std::optional<ScaledNumber> rounded = Rounded(number, 0);
    return rounded ? std::optional(Signed(rounded->negative, rounded->magnitude)) : std::nullopt;
}

std::optional<Whole> WholeOf(const DigitNumber& number, const IntegerRow&)
{
    const std::optional<ScaledNumber> rounded = Rounded(number, 0);
    return rounded ? std::optional(Signed(rounded->negative, rounded->magnitude)) : std::nullopt;
}

std::optional<Whole> WholeOf(double value, const IntegerRow& row)
{
    constexpr double beyondAll = 0x1p100;
    if (std::isnan(value))
        return row.Max();
    const double rounded = std::rint(value);
    return std::fabs(rounded) < beyondAll ? std::optional(static_cast<Whole>(rounded)) : std::nullopt;
}

std::optional<Whole> WholeOf(const BitNumber& number, const IntegerRow& row)
{
    const Whole value = number.bits;
    const Whole beyondBits = Whole{1} << row.bits;
    return row.isSigned && value > row.Max() && value < beyondBits ? value - beyondBits : value;
}

std::optional<Whole> WholeOf(const BooleanNumber& number, const IntegerRow& row)
{
    const Whole beyondBits = Whole{1} << row.bits;
    const Whole bits = number.value & (beyondBits - 1);
    return bits > row.Max() ? bits - beyondBits : bits;
}

// Each kind of number as a number with a scale

std::optional<ScaledNumber> ScaledOf(const DigitNumber& number, int scale)
{
    return Rounded(number, scale);
}

std::optional<ScaledNumber> ScaledOf(const ScaledNumber& number, int scale)
{
    return Rounded(number, scale);
}

std::optional<ScaledNumber> ScaledOf(const BitNumber& number, int scale)
{
    return Rounded(NumberOf(ULONGLONG{number.bits}), scale);
}

std::optional<ScaledNumber> ScaledOf(const BooleanNumber& number, int scale)
{
    return Rounded(NumberOf(LONGLONG{number.value}), scale);
}

/// Halves a number so many times and takes the nearest integer, halves the even one.
Magnitude ShiftedRight(Magnitude value, int bits)
{
    constexpr int magnitudeBits = 128;
    if (bits >= magnitudeBits)
        return 0;
    const Magnitude half = Magnitude{1} << (bits - 1);
    const Magnitude rest = value & ((half << 1) - 1);
    const Magnitude quotient = value >> bits;
    return rest > half || (rest == half && quotient % 2 != 0) ? quotient + 1 : quotient;
}

/// Exactly, in the bits of the double: 0.00025 is a little more than it seems. The decimals are few.
std::optional<ScaledNumber> ScaledOf(double value, int scale)
{
    constexpr double beyondAll = 0x1p60;
    if (!(std::fabs(value) < beyondAll))
        return std::nullopt;
    int exponent = 0;
    const double fraction = std::frexp(std::fabs(value), &exponent);
    const auto bits = static_cast<std::uint64_t>(std::ldexp(fraction, DBL_MANT_DIG));
    const Magnitude scaled = bits * PowerOfTen(scale);
    const int shift = DBL_MANT_DIG - exponent;
    const Magnitude magnitude = shift > 0 ? ShiftedRight(scaled, shift) : scaled << -shift;
    return ScaledNumber{value < 0, magnitude, scale};
}

// Each kind of number as a DECIMAL, with as many decimals as it has or as fit

bool FitsDecimal(const std::optional<ScaledNumber>& number)
{
    return number && number->magnitude <= c_maxDecimal;
}

std::optional<ScaledNumber> DecimalOf(const ScaledNumber& number)
{
    return number;
}

/// Decimals that are all zero are left out.
std::optional<ScaledNumber> DecimalOf(const DigitNumber& number)
{
    int count = number.count;
    while (count > 0 && number.digits[count - 1] == '0' && !number.hasMore)
        --count;
    const std::int64_t decimals = count > 0 ? -(number.exponent + number.count - count) : 0;
    int scale = static_cast<int>(std::clamp<std::int64_t>(decimals, 0, c_maxDecimalScale));
    std::optional<ScaledNumber> rounded = Rounded(number, scale);
    while (!FitsDecimal(rounded) && scale > 0)
        rounded = Rounded(number, --scale);
    if (rounded && rounded->magnitude == 0)
        rounded->scale = 0;
    return rounded;
}

/// A whole number is exact; of others so many digits are certain.
template <class Float>
std::optional<ScaledNumber> DecimalOf(Float value, int digits)
{
    constexpr Float beyondAll = 0x1p96;
    if (!(std::fabs(value) < beyondAll))
        return std::nullopt;
    if (value == std::trunc(value))
        return ScaledNumber{value < 0, static_cast<Magnitude>(std::fabs(value)), 0};
    return DecimalOf(DigitsOf(value, digits));
}

std::optional<ScaledNumber> DecimalOf(double value)
{
    return DecimalOf(value, c_doubleDigits);
}

std::optional<ScaledNumber> DecimalOf(float value)
{
    return DecimalOf(value, c_floatDigits);
}

std::optional<ScaledNumber> DecimalOf(const BitNumber& number)
{
    return NumberOf(ULONGLONG{number.bits});
}

std::optional<ScaledNumber> DecimalOf(const BooleanNumber& number)
{
    return NumberOf(ULONGLONG{number.value != VARIANT_FALSE});
}

// Each kind of number as a double

std::optional<double> ToDouble(const ScaledNumber& number)
{
    const double value = static_cast<double>(number.magnitude) / static_cast<double>(PowerOfTen(number.scale));
    return number.negative && number.magnitude != 0 ? -value : value;
}

std::optional<double> ToDouble(double value)
{
    return value;
}

std::optional<double> ToDouble(const DigitNumber& number)
{
    // The digits, one for those that are left out, and an exponent.
    char text[DigitNumber::c_capacity + 24];
    char* end = std::copy_n(number.digits, number.count, text);
    if (number.count == 0)
        *end++ = '0';
    std::int64_t exponent = number.exponent;
    if (number.hasMore)
    {
        *end++ = '1';
        --exponent;
    }
    *end++ = 'e';
    end = std::to_chars(end, text + sizeof text, exponent).ptr;

    double value = 0.0;
    const bool isOutOfRange = std::from_chars(text, end, value).ec == std::errc::result_out_of_range;
    if (isOutOfRange && number.count + number.exponent > 0)
        return std::nullopt;
    // A number too small for a double is zero.
    const double magnitude = isOutOfRange ? 0.0 : value;
    return number.negative ? -magnitude : magnitude;
}

/// As a LONG, whose least value is what its bits say too.
std::optional<double> ToDouble(const BitNumber& number)
{
    constexpr std::uint64_t leastBits = 0x80000000;
    if (number.bits > leastBits)
        return std::nullopt;
    return static_cast<double>(static_cast<LONG>(number.bits));
}

std::optional<double> ToDouble(const BooleanNumber& number)
{
    return number.value;
}

HRESULT WriteInteger(const Number& number, const IntegerRow& row, VARIANT& value)
{
    const std::optional<Whole> whole = std::visit([&row](const auto& kind) { return WholeOf(kind, row); }, number);
    if (!whole || *whole < row.Min() || *whole > row.Max())
        return DISP_E_OVERFLOW;
    // The low bytes of the widest member are those of the others.
    value.llVal = static_cast<LONGLONG>(*whole);
    value.vt = row.type;
    return S_OK;
}

HRESULT WriteFloat(const Number& number, VARIANT& value)
{
    const std::optional<double> wide = DoubleOf(number);
    if (!wide)
        return DISP_E_OVERFLOW;
    const auto narrow = static_cast<float>(*wide);
    if (std::isinf(narrow))
        return DISP_E_OVERFLOW;
    value.fltVal = narrow;
    value.vt = VT_R4;
    return S_OK;
}

HRESULT WriteMoney(const Number& number, VARIANT& value)
{
    const std::optional<ScaledNumber> scaled =
        std::visit([](const auto& kind) { return ScaledOf(kind, c_moneyScale); }, number);
    if (!scaled)
        return DISP_E_OVERFLOW;
    const Whole money = Signed(scaled->negative, scaled->magnitude);
    if (money < std::numeric_limits<LONGLONG>::min() || money > std::numeric_limits<LONGLONG>::max())
        return DISP_E_OVERFLOW;
    value.cyVal.int64 = static_cast<LONGLONG>(money);
    value.vt = VT_CY;
    return S_OK;
}

HRESULT WriteDecimal(const Number& number, VARIANT& value)
{
    const std::optional<ScaledNumber> decimal = std::visit([](const auto& kind) { return DecimalOf(kind); }, number);
    if (!FitsDecimal(decimal))
        return DISP_E_OVERFLOW;
    value.decVal.scale = static_cast<BYTE>(decimal->scale);
    value.decVal.sign = decimal->negative && decimal->magnitude != 0 ? DECIMAL_NEG : BYTE{0};
    value.decVal.Hi32 = static_cast<ULONG>(decimal->magnitude >> 64);
    value.decVal.Lo64 = static_cast<ULONGLONG>(decimal->magnitude);
    value.vt = VT_DECIMAL;
    return S_OK;
}

}  // namespace

std::optional<ScaledNumber> NumberOf(const DECIMAL& decimal)
{
    if (decimal.scale > c_maxDecimalScale || (decimal.sign & ~DECIMAL_NEG) != 0)
        return std::nullopt;
    return ScaledNumber{decimal.sign == DECIMAL_NEG, (Magnitude{decimal.Hi32} << 64) | decimal.Lo64, decimal.scale};
}

ScaledNumber NumberOf(LONGLONG integer)
{
    const auto bits = static_cast<ULONGLONG>(integer);
    return {integer < 0, integer < 0 ? 0 - bits : bits, 0};
}

ScaledNumber NumberOf(ULONGLONG integer)
{
    return {false, integer, 0};
}

ScaledNumber NumberOf(CY money)
{
    ScaledNumber number = NumberOf(money.int64);
    number.scale = c_moneyScale;
    return number;
}

std::optional<double> DoubleOf(const Number& number)
{
    return std::visit([](const auto& kind) { return ToDouble(kind); }, number);
}

bool AreIntegersOfOneWidth(VARTYPE left, VARTYPE right)
{
    const IntegerRow* const leftRow = IntegerRowOf(left);
    const IntegerRow* const rightRow = IntegerRowOf(right);
    return leftRow != nullptr && rightRow != nullptr && leftRow->bits == rightRow->bits;
}

HRESULT WriteNumber(const Number& number, VARTYPE type, VARIANT& value)
{
    if (const IntegerRow* const row = IntegerRowOf(type))
        return WriteInteger(number, *row, value);
    switch (type)
    {
    case VT_R4:
        return WriteFloat(number, value);
    case VT_CY:
        return WriteMoney(number, value);
    case VT_DECIMAL:
        return WriteDecimal(number, value);
    case VT_R8:
    case VT_BOOL:
        break;
    default:
        return DISP_E_TYPEMISMATCH;
    }

    const std::optional<double> wide = DoubleOf(number);
    if (!wide)
        return DISP_E_OVERFLOW;
    if (type == VT_R8)
        value.dblVal = *wide;
    else
        value.boolVal = *wide != 0.0 ? VARIANT_TRUE : VARIANT_FALSE;
    value.vt = type;
    return S_OK;
}
