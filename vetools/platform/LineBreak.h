#pragma once

#include <string_view>

/// What a text file of this system has at the end of its lines (internal).
#if defined(_WIN32)
inline constexpr std::wstring_view c_lineBreak = L"\r\n";
#else
inline constexpr std::wstring_view c_lineBreak = L"\n";
#endif
