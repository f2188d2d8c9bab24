#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

/// The decimal texts of numbers, the same on both builds (internal).
///
/// Each function writes the text of one number and nothing after it (no terminator), and returns the end of what it wrote.
/// A double is written by its exact decimal expansion, rounded half to even at the precision asked for, which may be any:
/// behind the last exact digit stand zeros. A negative precision counts as 6. A negative zero, and a negative number that
/// rounds to zero, keep their sign.
///
/// Infinities and not-a-numbers are written as the Windows run-time library does. It takes the texts 1.#INF, 1.#QNAN and
/// 1.#IND for digits: padded with zeros to the precision, or cut at it, and then rounded up when the first character cut off
/// is not below '5':
///
///     precision     0     1      2       3        4         5          6           7
///     infinity      1     1.$    1.#J    1.#IO    1.#INF    1.#INF0    1.#INF00    1.#INF000
///     not a number  1     1.$    1.#R    1.#QO    1.#QNB    1.#QNAN    1.#QNAN0    1.#QNAN00
///     the same, <0  -1    -1.$   -1.#J   -1.#IO   -1.#IND   -1.#IND0   -1.#IND00   -1.#IND000

/// Room for what WriteUnits writes: a sign, the 19 digits of the largest number or "0" and the decimals, a point.
constexpr std::size_t UnitsTextCapacity(int precision)
{
    return 21 + static_cast<std::size_t>(precision);
}

/// Room for what WriteFixed and WriteExponent write at a precision: a sign, the 309 digits of the largest double or the
/// "1" of a text above, a point, the decimals, an exponent.
constexpr std::size_t FixedTextCapacity(int precision)
{
    return 320 + static_cast<std::size_t>(precision < 0 ? 6 : precision);
}
/// The same for one number: most are short.
inline std::size_t FixedTextCapacity(double value, int precision)
{
    return std::abs(value) < 1e18 ? UnitsTextCapacity(precision < 0 ? 6 : precision) : FixedTextCapacity(precision);
}
constexpr std::size_t ExponentTextCapacity(int precision)
{
    return 16 + static_cast<std::size_t>(precision < 0 ? 6 : precision);
}

/// Room for what WriteInteger writes.
constexpr std::size_t c_integerTextCapacity = 11;

/// As "%.*f" writes it: 0.125 with precision 2 gives 0.12, 2.5 with precision 0 gives 2, -0.001 with precision 2 gives -0.00.
/// The buffer holds at least FixedTextCapacity(precision) characters.
wchar_t* WriteFixed(wchar_t* out, double value, int precision);

/// units / 10^precision: 1234 with precision 2 gives 12.34, -5 with precision 2 gives -0.05, 7 with precision 0 gives 7.
/// The precision is 0 to 22, the text no longer than UnitsTextCapacity(precision).
wchar_t* WriteUnits(wchar_t* out, std::int64_t units, int precision);

/// As "%.*e" writes it, with at least two digits of exponent: 0.00001 with precision 1 gives 1.0e-05, 1e100 with
/// precision 0 gives 1e+100. The buffer holds at least ExponentTextCapacity(precision) characters.
wchar_t* WriteExponent(wchar_t* out, double value, int precision);

/// As "%d" writes it. The buffer holds at least c_integerTextCapacity characters.
wchar_t* WriteInteger(wchar_t* out, int value);
