#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// Copies as much of a text as the buffer holds before a terminator (internal). The buffer holds one character at least;
/// the text may lie in it.
inline void CopyTruncated(std::wstring_view text, std::span<wchar_t> buffer)
{
    const std::size_t length = std::min(text.size(), buffer.size() - 1);
    std::char_traits<wchar_t>::move(buffer.data(), text.data(), length);
    buffer[length] = L'\0';
}
