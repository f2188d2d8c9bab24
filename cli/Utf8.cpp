#include "cli/Utf8.h"

#include <algorithm>
#include <cstdint>

namespace
{

constexpr char32_t c_replacement = 0xFFFD;

struct LeadRow
{
    unsigned char first, last;  // lead bytes
    int length;
    unsigned char secondFirst, secondLast;  // what the second byte may be: excludes overlong forms and surrogates
};

// clang-format off
constexpr LeadRow c_leadRows[] = {
//   lead        length  second byte
    {0xC2, 0xDF, 2,      0x80, 0xBF},
    {0xE0, 0xE0, 3,      0xA0, 0xBF},
    {0xE1, 0xEC, 3,      0x80, 0xBF},
    {0xED, 0xED, 3,      0x80, 0x9F},
    {0xEE, 0xEF, 3,      0x80, 0xBF},
    {0xF0, 0xF0, 4,      0x90, 0xBF},
    {0xF1, 0xF3, 4,      0x80, 0xBF},
    {0xF4, 0xF4, 4,      0x80, 0x8F},
};
// clang-format on

// One code point or one ill-formed sequence, and the bytes it takes.
struct Decoded
{
    char32_t codePoint;
    std::size_t length;
    bool valid;
};

Decoded DecodeMultiByte(std::string_view text)
{
    const auto byteAt = [&](std::size_t index)
    {
        return static_cast<unsigned char>(text[index]);
    };
    const unsigned char lead = byteAt(0);
    for (const LeadRow& row : c_leadRows)
    {
        if (lead < row.first || lead > row.last)
            continue;
        const std::size_t length = static_cast<std::size_t>(row.length);
        if (text.size() < 2 || byteAt(1) < row.secondFirst || byteAt(1) > row.secondLast)
            return {c_replacement, 1, false};
        char32_t codePoint = lead & (0x7Fu >> row.length);
        codePoint = codePoint << 6 | (byteAt(1) & 0x3Fu);
        for (std::size_t index = 2; index < length; ++index)
        {
            if (index >= text.size() || (byteAt(index) & 0xC0u) != 0x80u)
                return {c_replacement, index, false};
            codePoint = codePoint << 6 | (byteAt(index) & 0x3Fu);
        }
        return {codePoint, length, true};
    }
    return {c_replacement, 1, false};
}

Decoded DecodeFirst(std::string_view text)
{
    const unsigned char lead = static_cast<unsigned char>(text.front());
    if (lead < 0x80)
        return {lead, 1, true};
    return DecodeMultiByte(text);
}

void AppendWide(std::wstring& out, char32_t codePoint)
{
    if (sizeof(wchar_t) == 4 || codePoint < 0x10000)
    {
        out.push_back(static_cast<wchar_t>(codePoint));
        return;
    }
    out.push_back(static_cast<wchar_t>(0xD800 + ((codePoint - 0x10000) >> 10)));
    out.push_back(static_cast<wchar_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF)));
}

void AppendCodePoint(std::string& out, char32_t codePoint)
{
    const auto put = [&](char32_t byte)
    {
        out.push_back(static_cast<char>(byte));
    };
    if (codePoint < 0x80)
        return put(codePoint);
    if (codePoint < 0x800)
    {
        put(0xC0 | codePoint >> 6);
        return put(0x80 | (codePoint & 0x3F));
    }
    if (codePoint < 0x10000)
    {
        put(0xE0 | codePoint >> 12);
        put(0x80 | (codePoint >> 6 & 0x3F));
        return put(0x80 | (codePoint & 0x3F));
    }
    put(0xF0 | codePoint >> 18);
    put(0x80 | (codePoint >> 12 & 0x3F));
    put(0x80 | (codePoint >> 6 & 0x3F));
    put(0x80 | (codePoint & 0x3F));
}

bool IsHighSurrogate(std::uint32_t unit)
{
    return (unit & 0xFFFFFC00u) == 0xD800u;
}

bool IsLowSurrogate(std::uint32_t unit)
{
    return (unit & 0xFFFFFC00u) == 0xDC00u;
}

}  // namespace

std::size_t FindInvalidUtf8(std::string_view text)
{
    for (std::size_t index = 0; index < text.size();)
    {
        if (static_cast<unsigned char>(text[index]) < 0x80)
        {
            ++index;
            continue;
        }
        const Decoded decoded = DecodeMultiByte(text.substr(index));
        if (!decoded.valid)
            return index;
        index += decoded.length;
    }
    return std::string_view::npos;
}

std::wstring ToWideLossy(std::string_view text)
{
    std::wstring wide;
    wide.reserve(text.size());
    while (!text.empty())
    {
        const Decoded decoded = DecodeFirst(text);
        AppendWide(wide, decoded.codePoint);
        text.remove_prefix(decoded.length);
    }
    return wide;
}

std::string ToUtf8(std::wstring_view text)
{
    std::string out;
    AppendUtf8(out, text);
    return out;
}

void AppendUtf8(std::string& out, std::wstring_view text)
{
    for (std::size_t index = 0; index < text.size(); ++index)
    {
        const auto unitAt = [&](std::size_t at)
        {
            return static_cast<std::uint32_t>(text[at]);
        };
        const std::uint32_t unit = unitAt(index);
        if (IsHighSurrogate(unit) && index + 1 < text.size() && IsLowSurrogate(unitAt(index + 1)))
        {
            AppendCodePoint(out, 0x10000 + ((unit - 0xD800) << 10) + (unitAt(index + 1) - 0xDC00));
            ++index;
            continue;
        }
        const bool isCharacter = !IsHighSurrogate(unit) && !IsLowSurrogate(unit) && unit <= 0x10FFFF;
        AppendCodePoint(out, isCharacter ? unit : c_replacement);
    }
}

std::string RepairUtf8(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    const std::size_t valid = std::min(FindInvalidUtf8(text), text.size());
    out.append(text.substr(0, valid));
    text.remove_prefix(valid);
    while (!text.empty())
    {
        const Decoded decoded = DecodeFirst(text);
        AppendCodePoint(out, decoded.codePoint);
        text.remove_prefix(decoded.length);
    }
    return out;
}

std::size_t CountCodePoints(std::string_view text)
{
    std::size_t count = 0;
    for (const char byte : text)
        count += (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u;
    return count;
}

std::string ShowText(std::string_view text)
{
    constexpr std::size_t c_longest = 60;
    constexpr std::size_t c_mostBytes = 4 * c_longest;
    std::string shown = RepairUtf8(text.substr(0, c_mostBytes));
    std::size_t end = 0;
    for (std::size_t count = 0; end < shown.size() && count < c_longest; ++count)
        do
            ++end;
        while (end < shown.size() && (static_cast<unsigned char>(shown[end]) & 0xC0u) == 0x80u);
    const bool isCut = end < shown.size() || text.size() > c_mostBytes;
    shown.resize(end);
    std::replace_if(shown.begin(), shown.end(), IsControl, '?');
    return isCut ? shown + "…" : shown;
}
