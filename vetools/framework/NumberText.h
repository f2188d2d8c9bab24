#pragma once

#include <cstddef>
#include <string_view>

#include "vetools/platform/Export.h"

/// Numbers read from wide text, the same on both builds (internal).
///
/// Leading white space (U+0020, U+0009 to U+000D) is skipped, then an optional sign is taken. Whatever follows the number
/// is left alone. `consumed`, when given, receives the number of characters taken, 0 when there is no number.

/// Decimal notation only: digits, one '.', an exponent marked e or E; no hexadecimal, "inf" or "nan". Correctly rounded,
/// whatever the number of digits; too large gives an infinity, too small zero. 0.0 when there is no number.
double ReadDouble(std::wstring_view text, std::size_t* consumed = nullptr);

/// A decimal integer, clamped to the range of a 32-bit integer. 0 when there is no number.
int ReadInteger(std::wstring_view text, std::size_t* consumed = nullptr);

/// The decimal texts of a double, exact and rounded half to even (internal). Each appends nothing else than the number and
/// returns the end of what it wrote; the buffer holds at least FixedTextCapacity(precision) or ExponentTextCapacity(precision) characters.
/// Non-finite values read 1.#INF00, -1.#INF00, 1.#QNAN0, -1.#IND00, cut or padded to the precision.
constexpr std::size_t FixedTextCapacity(int precision) { return 320 + static_cast<std::size_t>(precision < 0 ? 6 : precision); }
constexpr std::size_t ExponentTextCapacity(int precision) { return 16 + static_cast<std::size_t>(precision < 0 ? 6 : precision); }

/// As "%.*f" writes it; a negative precision counts as 6.
wchar_t* WriteFixed(wchar_t* out, double value, int precision);
/// As "%.*e" writes it: at least two digits of exponent; a negative precision counts as 6.
wchar_t* WriteExponent(wchar_t* out, double value, int precision);
/// As "%d" writes it; at most 11 characters.
wchar_t* WriteInteger(wchar_t* out, int value);
