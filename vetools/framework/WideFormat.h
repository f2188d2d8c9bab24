#pragma once

#include <array>
#include <cstdarg>
#include <cstdint>
#include <span>
#include <variant>

#include "vetools/framework/CString.h"

/// Formatted printing of wide text by the Windows conventions, the same on both builds (internal; hosts call CString::Format).
///
///     %[flags][width][.precision][size]conversion
///
/// flags       -  to the left, 0  zeros in front, +  or blank  a sign in front of numbers that are not negative,
///             #  0 before octal, 0x before hexadecimal numbers, always a point in a double
/// width       the least number of characters, or * for an int argument; a negative one means to the left
/// precision   decimals, significant digits, least digits of an integer or most characters of a text, or * for an int
///             argument; a negative one counts as none. Widths and precisions beyond 65535 count as 65535.
/// size        h or hh: short integer, narrow text; l or w: long integer, wide text; ll, I64, j, z, t, I: 64 bits; I32: 32 bits;
///             L: none. A long is read as the build's own, and printed as the 32 bits that it has on Windows.
/// conversion  d i u o x X    integers
///             f F e E g G    doubles, as NumberWriter.h writes them: 0.125 by %.2f gives 0.12; exponents of two digits or more
///             a A            doubles in hexadecimal, thirteen digits unless the precision says otherwise: 0x1.8000000000000p+0
///             c C s S        c and s are wide, C and S narrow (%hs as well, %lS is wide); a null text reads (null). Narrow text is
///                            in the system's narrow encoding, and its precision counts bytes
///             p              a pointer as 16 digits: 00000000004015A0
///             n              takes its argument and writes nothing, neither here nor there
///             %              a per cent sign
/// Any other conversion character stands for itself and takes no argument; a conversion that the end of the format cuts off
/// writes nothing.

/// An argument whose kind is known: an integer, a double, a wide or a narrow text, a pointer.
using FormatArgument = std::variant<std::int64_t, double, const wchar_t*, const char*, const void*>;

/// Appends what `format` makes of the arguments. Safe with a format from anywhere: a conversion that asks for an argument that
/// is not there, or is of another kind, writes nothing (it passes over the argument of another kind).
/// Neither the format nor a text argument may point into `out`.
void AppendFormatted(CString& out, const wchar_t* format, std::span<const FormatArgument> arguments);

/// The same with the arguments of a function that takes any number of them; these must be what the format asks for.
/// `arguments` is left as it was.
void AppendFormattedV(CString& out, const wchar_t* format, va_list arguments);

/// The text that `format` makes of the arguments: FormatWide(L"%.*f", 2, 0.5) gives 0.50, and FormatWide(L"%s", 2) gives an
/// empty text.
template <typename... Arguments>
CString FormatWide(const wchar_t* format, Arguments... arguments)
{
    CString text;
    AppendFormatted(text, format, std::array<FormatArgument, sizeof...(Arguments)>{FormatArgument(arguments)...});
    return text;
}
