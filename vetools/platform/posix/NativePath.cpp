#include "vetools/platform/posix/NativePath.h"

#include <algorithm>
#include <cstdint>

#include <unicode/utf8.h>

#include "vetools/platform/WindowsPath.h"
#include "vetools/platform/posix/WinBase.h"

namespace
{

/// Added to a byte that is no character of a name on both systems, to make a lone surrogate of it.
constexpr wchar_t c_escape = 0xDC00;

bool IsEscaped(wchar_t character)
{
    return character == c_escape + L'\\' || (character >= c_escape + 0x80 && character <= c_escape + 0xFF);
}

/// The text up to the first escaped byte, taken off.
std::string TakeText(std::wstring_view& path)
{
    const auto length = static_cast<std::size_t>(std::find_if(path.begin(), path.end(), IsEscaped) - path.begin());
    std::string native = Utf8Text(path.substr(0, length));
    std::replace(native.begin(), native.end(), '\\', '/');
    path.remove_prefix(length);
    return native;
}

}  // namespace

std::string NativePath(std::wstring_view path)
{
    std::string native;
    if (HasExtendedUncPrefix(path))
    {
        path.remove_prefix(c_extendedUncPrefix.size());
        native = "//";
    }
    else if (HasExtendedPrefix(path))
        path.remove_prefix(c_extendedPrefix.size());

    native += TakeText(path);
    while (!path.empty())
    {
        native += static_cast<char>(path.front() - c_escape);
        path.remove_prefix(1);
        native += TakeText(path);
    }
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
        if (character >= 0 && character != '\\')
        {
            wide += static_cast<wchar_t>(character);
            continue;
        }
        for (const char byte : path.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(i - begin)))
            wide += static_cast<wchar_t>(c_escape + static_cast<std::uint8_t>(byte));
    }
    return wide;
}
