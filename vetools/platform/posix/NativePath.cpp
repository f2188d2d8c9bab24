#include "vetools/platform/posix/NativePath.h"

#include <algorithm>
#include <cstdint>

#include <unicode/utf8.h>

#include "vetools/platform/posix/WinBase.h"

namespace
{

constexpr std::wstring_view c_extendedPrefix = L"\\\\?\\";
constexpr std::wstring_view c_extendedUncPrefix = L"\\\\?\\UNC\\";

/// Added to a byte from 0x80 that is no part of a character, to make a lone surrogate of it.
constexpr wchar_t c_escape = 0xDC00;

bool IsEscapedByte(wchar_t character)
{
    return character >= c_escape + 0x80 && character <= c_escape + 0xFF;
}

std::string EncodedPath(std::wstring_view path)
{
    std::string native;
    while (!path.empty())
    {
        const auto* const textEnd = std::find_if(path.begin(), path.end(), IsEscapedByte);
        const auto textLength = static_cast<std::size_t>(textEnd - path.begin());
        native += Utf8Text(path.substr(0, textLength));
        path.remove_prefix(textLength);
        for (; !path.empty() && IsEscapedByte(path.front()); path.remove_prefix(1))
            native += static_cast<char>(path.front() - c_escape);
    }
    return native;
}

}  // namespace

std::string NativePath(std::wstring_view path)
{
    std::string native;
    if (path.starts_with(c_extendedUncPrefix))
    {
        path.remove_prefix(c_extendedUncPrefix.size());
        native = "//";
    }
    else if (path.starts_with(c_extendedPrefix))
    {
        path.remove_prefix(c_extendedPrefix.size());
    }
    native += EncodedPath(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

std::string Utf8Text(std::wstring_view text)
{
    constexpr std::size_t c_mostBytes = 4;  // of one character
    const int capacity = static_cast<int>(text.size() * c_mostBytes);
    std::string narrow(text.size() * c_mostBytes, '\0');
    const int size = text.empty() ? 0
                                  : ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                          narrow.data(), capacity, nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(size));
    return narrow;
}

std::wstring WidePath(std::string_view path)
{
    std::wstring wide;
    wide.reserve(path.size());
    const auto size = static_cast<std::int64_t>(path.size());
    for (std::int64_t i = 0; i < size;)
    {
        const std::int64_t begin = i;
        UChar32 character;
        U8_NEXT(path.data(), i, size, character);
        if (character >= 0)
        {
            wide += static_cast<wchar_t>(character);
            continue;
        }
        for (const char byte : path.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(i - begin)))
            wide += static_cast<wchar_t>(c_escape + static_cast<std::uint8_t>(byte));
    }
    return wide;
}
