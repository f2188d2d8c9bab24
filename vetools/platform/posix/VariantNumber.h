#pragma once

#include <cfloat>
#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>

#include "vetools/platform/posix/WinVariant.h"

// The number that a value of any type stands for, and that number in any type. Internal to the platform layer.

__extension__ using Magnitude = unsigned __int128;

/// Integers, money and DECIMALs: `magnitude` divided by 10 to the power of `scale`.
struct ScaledNumber
{
    bool negative = false;
    Magnitude magnitude = 0;
    int scale = 0;
};

/// A decimal number with as many digits as decide how any double is rounded: `digits`, without leading zeros, times 10 to
/// the power of `exponent`. What follows them is not zero when `hasMore` is set. No digits are zero.
struct DigitNumber
{
    static constexpr int c_capacity = 800;

    bool negative = false;
    bool hasMore = false;
    int count = 0;
    std::int64_t exponent = 0;
    char digits[c_capacity];
};

/// A hexadecimal or octal number: the sign of an integer is one of its bits.
struct BitNumber
{
    std::uint64_t bits = 0;
};

/// A Boolean as a number is made of its bits: true is the greatest of the unsigned integers.
struct BooleanNumber
{
    VARIANT_BOOL value = VARIANT_FALSE;
};

using Number = std::variant<ScaledNumber, float, double, DigitNumber, BitNumber, BooleanNumber>;

/// A DECIMAL as a number; nothing when its scale or its sign is not one.
std::optional<ScaledNumber> NumberOf(const DECIMAL& decimal);
ScaledNumber NumberOf(LONGLONG integer);
ScaledNumber NumberOf(ULONGLONG integer);
ScaledNumber NumberOf(CY money);

/// Whether both types are integers with as many bits. The system hands these bits over as they are: the UI4 4294967295 is
/// the I4 -1.
bool AreIntegersOfOneWidth(VARTYPE left, VARTYPE right);

/// Writes a number into the member for one of the types VT_I1 to VT_UINT, VT_R4, VT_R8, VT_CY, VT_DECIMAL or VT_BOOL, and
/// sets the type. Integers and money become the nearest, halves the even one; a double with decimals becomes a DECIMAL of
/// 15 digits, a float one of 7. What is not a number becomes the greatest integer. DISP_E_OVERFLOW for what does not fit,
/// DISP_E_TYPEMISMATCH for other types; `value` is left alone then.
HRESULT WriteNumber(const Number& number, VARTYPE type, VARIANT& value);

/// The decimal digits that are shown of a number of this type.
constexpr int c_floatDigits = FLT_DIG + 1;
constexpr int c_doubleDigits = DBL_DIG;

/// The nearest double; nothing for a number beyond it.
std::optional<double> DoubleOf(const Number& number);
