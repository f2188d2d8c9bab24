#pragma once

#include <cstddef>
#include <string_view>

/// Numbers read from wide text, the same on both builds (internal).
///
/// White space before the number (U+0009 to U+000D, U+0020) is skipped, then one sign is taken. Whatever follows the
/// number is left alone and no fault. Neither function allocates, and both take time in proportion to the text that they
/// consume. `consumed`, when given, receives the number of characters taken, white space included; 0 when there is no number.

/// A number in decimal notation: digits, at most one '.', then optionally e or E, a sign and digits.
///
/// Returns the nearest double, an exact half going to the even neighbour, however many digits there are; an infinity when
/// that is too large, a denormal or a zero when it is too small, and 0.0 when there is no number. The sign is kept: "-0"
/// gives -0.0. Hexadecimal notation, "inf" and "nan" are no numbers.
///
///     " -12.5kN"  -12.5, 6 consumed        ".5"  0.5, 2 consumed        "."    0.0, 0 consumed
///     "1e"          1.0, 1 consumed        "1."  1.0, 2 consumed        "0x1"  0.0, 1 consumed
double ReadDouble(std::wstring_view text, std::size_t* consumed = nullptr);

/// The same of a text with a terminator, whose length need not be known.
double ReadDouble(const wchar_t* text);

/// A decimal integer; one beyond the range of a 32-bit integer gives the nearer end of that range, no number gives 0.
///
///     "\t+42 mm"  42, 4 consumed           "-3000000000"  -2147483648, 11 consumed
int ReadInteger(std::wstring_view text, std::size_t* consumed = nullptr);
