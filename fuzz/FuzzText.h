#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// The wide text that a file of the fuzzer stands for: one character per byte, so that seeds are plain text. Bytes from 0x80
/// spread over the characters beyond ASCII, so that marks such as U+2032 or U+00B2 are within reach: each is followed by the
/// byte that completes it.
inline std::wstring TextOf(const std::uint8_t* data, std::size_t size)
{
    std::wstring text;
    text.reserve(size);
    for (std::size_t i = 0; i < size; ++i)
    {
        const unsigned high = data[i];
        if (high >= 0x80 && i + 1 < size)
            text += static_cast<wchar_t>((high & 0x7F) << 8 | data[++i]);
        else
            text += static_cast<wchar_t>(high);
    }
    return text;
}
