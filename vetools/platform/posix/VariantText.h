#pragma once

#include <optional>
#include <string_view>

#include "vetools/platform/posix/VariantNumber.h"

// Numbers and Booleans as text and back, in the notation of the United States. Internal to the platform layer.

/// The longest text of a number: 39 digits of a magnitude, with a sign and a point, or as many zeros in front of them.
constexpr std::size_t c_maxNumberText = 48;

/// Writes a number without an exponent and without decimals that are zero: -12.5. Returns the end.
wchar_t* WriteNumberText(wchar_t* text, const ScaledNumber& number);
/// Writes a number with so many significant digits at most, and an exponent when it has more in front of the point or four
/// zeros behind it: 0.1, 1E+15, 1.5E-05, INF, -INF, NAN. Returns the end.
wchar_t* WriteNumberText(wchar_t* text, double value, int digits);

enum class NumberTextError
{
    None,
    NoNumber,
    TooLarge
};

/// Reads a whole text as a number. White space may stand at both ends and between marks. In front of the digits there may
/// be both signs, an opening parenthesis and the currency sign, each once, in any order; behind them the same with a closing
/// one, as often as they like, save for a sign that stands in front. A minus sign or a closing parenthesis negates, and
/// either closes the parenthesis. Commas may stand anywhere behind the first digit or point, but not within an exponent,
/// which money has not. &H and &O begin hexadecimal and octal digits, which have neither commas nor currency: TooLarge for
/// more than 64 bits.
NumberTextError ReadNumberText(std::wstring_view text, Number& number);

/// True, False, in any case, or #TRUE#, #FALSE#.
std::optional<bool> ReadBooleanText(std::wstring_view text);
