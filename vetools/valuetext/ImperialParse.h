#pragma once

#include <string_view>

#include "vetools/units/ImperialFactors.h"
#include "vetools/units/UnitTypes.h"

/// Reads a length written as feet, inches and a fraction (internal), allocating nothing.
///
///     text            inches   what is read
///     3'-4 1/2"       40.5     feet, inches and a fraction; the dash may be missing, and 3-4 1/2 does as well
///     3'-1/2"         36.5     feet and a fraction
///     4 1/2           4.5      inches and a fraction
///     3'4             40       feet and inches
///     3/4"            0.75     a fraction
///     3'              36       feet
///     4.25"           4.25     inches: digits and the separator, read as a decimal number
///     -3'-4"          -40      a '-' at the very start is the sign
///
/// value      receives the number, in what `in` says; 0.0 on failure.
/// separator  a character that belongs to a number. A number is read with '.' alone: with ',' the text 3,5" is 3 inches.
/// format     of the unit. In a format other than 2 and 4 a text that holds a '.' is one decimal number: the marks behind
///            it count only in this, that a foot mark makes it feet.
/// Returns false for a text of any other shape; division by a denominator of 0 is a shape and gives an infinity.
///
/// Kept: in such a decimal text the sign is applied twice, so -1.5' reads as +1.5 feet.
/// Kept: the sign is not looked for behind a blank or tab, and a mark ends at its first blank or tab: " -3'" is +3 feet.
bool ReadImperialText(std::wstring_view text, double& value, LengthIn in, wchar_t separator,
                      Unit::enumUNITFORMAT format);
