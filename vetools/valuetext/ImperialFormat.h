#pragma once

#include <cstddef>

#include "vetools/framework/NumberText.h"
#include "vetools/units/ImperialFactors.h"
#include "vetools/units/UnitTypes.h"

/// A length as feet, inches and a decimal or binary fraction of an inch (internal).
///
///     value        in       precision  format                  text
///     5.9479166    Feet     4          UNITFORMAT_FRACTION     5'-11 3/8"
///     5.9479166    Feet     2          UNITFORMAT_FEET_INCHES  5'-11.37"
///     0.99999      Feet     4          UNITFORMAT_FRACTION     1'
///     11.999       Inches   4          UNITFORMAT_FRACTION     12"
///     0.03125      Feet     2          UNITFORMAT_FRACTION     1/4"         3/8 is half a step: down
///     -0.25        Inches   3          UNITFORMAT_FRACTION     -1/4"
///     1.5          Feet     3          UNITFORMAT_DECIMAL      (no text)
///
/// value      any sign; out of the range of an int, its feet, inches and numerator are printed as the nearest int, so a
///            text of numbers that wrong is still a bounded text. Below -1e-10 the text starts with '-'.
/// in         whether value is in feet or in inches; only feet are split into feet and inches.
/// precision  decimals in format 2; in format 4 the fractions go down to 1/2^precision of an inch, exact halves rounded
///            down. Any number: decimals end at c_imperialDecimals, denominators at 2^c_imperialFractionBits.
/// separator  the character that is removed with the zeros behind it.
///
/// Kept: in feet, format 2 removes the zeros at the end also when the number has no decimals, so 10 inches at precision 0
/// read 1" and 0 inches read ".
/// Kept: numbers are printed with '.', and only the given separator is removed behind the zeros, so with ',' 3 inches at
/// precision 1 read 3.".
/// Kept: in inches, format 2 leaves the zeros: 1.50".
/// Kept: in format 2 inches rounded up to 12 stay: 3'-12".
/// Kept: a value below -1e-10 keeps its '-' where the digits shown are all zeros: -0".

/// No double has more decimals than this.
inline constexpr unsigned int c_imperialDecimals = 1074;

/// The largest denominator, 2^30, is still an int.
inline constexpr unsigned int c_imperialFractionBits = 30;

/// Characters of the longest text with its terminator: -2147483647'-, the inches in decimals, an inch mark. The text of a
/// fraction, -2147483647'-2147483647 2147483647/1073741824", is far shorter.
inline constexpr std::size_t c_imperialTextCapacity = 16 + FixedTextCapacity(static_cast<int>(c_imperialDecimals));

/// Writes the text and a terminator into `out`, which has room for c_imperialTextCapacity characters. Returns the length
/// without the terminator; 0 with an empty text for a format other than 2 and 4. A fraction writes no character but those
/// of the text; decimals use room behind it.
std::size_t WriteImperialText(wchar_t* out, double value, LengthIn in, unsigned int precision, wchar_t separator,
                              Unit::enumUNITFORMAT format);
