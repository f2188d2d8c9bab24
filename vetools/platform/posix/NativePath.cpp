#include "vetools/platform/posix/NativePath.h"

#include <algorithm>
#include <cstdint>

namespace
{

constexpr std::wstring_view c_extendedPrefix = L"\\\\?\\";
constexpr std::wstring_view c_extendedUncPrefix = L"\\\\?\\UNC\\";
constexpr std::uint32_t c_replacementCharacter = 0xFFFD;

bool IsEncodable(std::uint32_t character)
{
    return character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
}

void AppendUtf8(std::string& out, std::uint32_t character)
{
    const auto continuation = [character](int shift)
    {
        return static_cast<char>(0x80 | ((character >> shift) & 0x3F));
    };
    if (character < 0x80)
    {
        out += static_cast<char>(character);
        return;
    }
    if (character < 0x800)
    {
        out += static_cast<char>(0xC0 | (character >> 6));
        out += continuation(0);
        return;
    }
    if (character < 0x10000)
    {
        out += static_cast<char>(0xE0 | (character >> 12));
        out += continuation(6);
        out += continuation(0);
        return;
    }
    out += static_cast<char>(0xF0 | (character >> 18));
    out += continuation(12);
    out += continuation(6);
    out += continuation(0);
}

/// Takes one character from the front of the text; the replacement character for a byte that begins none.
std::uint32_t ConsumeUtf8(std::string_view& text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (lead < 0x80)
        return lead;
    const std::size_t continuations = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    constexpr std::uint32_t c_smallest[] = {0, 0x80, 0x800, 0x10000};
    if (lead < 0xC2 || lead > 0xF4 || text.size() < continuations)
        return c_replacementCharacter;
    std::uint32_t character = lead & (0x3F >> continuations);
    for (std::size_t i = 0; i < continuations; ++i)
    {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80)
            return c_replacementCharacter;
        character = character << 6 | (byte & 0x3F);
    }
    if (character < c_smallest[continuations] || !IsEncodable(character))
        return c_replacementCharacter;
    text.remove_prefix(continuations);
    return character;
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
    native += Utf8Text(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

std::string Utf8Text(std::wstring_view text)
{
    std::string narrow;
    narrow.reserve(text.size());
    for (const wchar_t unit : text)
    {
        const auto character = static_cast<std::uint32_t>(unit);
        AppendUtf8(narrow, IsEncodable(character) ? character : c_replacementCharacter);
    }
    return narrow;
}

std::wstring WidePath(std::string_view path)
{
    std::wstring wide;
    wide.reserve(path.size());
    while (!path.empty())
        wide += static_cast<wchar_t>(ConsumeUtf8(path));
    return wide;
}
