#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text between the command, which is UTF-8 throughout, and the library's wide text: UTF-16 where wchar_t has two bytes,
/// UTF-32 where it has four.

/// Index of the first byte that is not part of well-formed UTF-8 (overlong forms and surrogates are not), or npos.
std::size_t FindInvalidUtf8(std::string_view text);

/// Wide text; every ill-formed sequence becomes one U+FFFD.
std::wstring ToWideLossy(std::string_view text);

/// UTF-8; an unpaired surrogate becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);
void AppendUtf8(std::string& out, std::wstring_view text);

/// The same text with every ill-formed sequence replaced by U+FFFD.
std::string RepairUtf8(std::string_view text);

/// Number of code points of well-formed text: the columns it takes, for the letters and marks that units are written in.
std::size_t CountCodePoints(std::string_view text);

/// Whether a byte is a control character, which terminals obey.
constexpr bool IsControl(char character)
{
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

/// A text as messages and tables show it: well-formed, cut when it is long, without control characters.
std::string ShowText(std::string_view text);
