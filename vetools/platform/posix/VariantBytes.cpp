#include "vetools/platform/posix/VariantBytes.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

#include <unicode/utf16.h>

namespace
{

constexpr std::size_t c_unitSize = sizeof(char16_t);

UChar32 UnitAt(const BYTE* bytes, std::size_t index)
{
    return bytes[c_unitSize * index] | bytes[c_unitSize * index + 1] << 8;
}

/// The character that begins with the unit at `index`, which moves behind it.
UChar32 NextCharacter(const BYTE* bytes, std::size_t units, std::size_t& index)
{
    const UChar32 first = UnitAt(bytes, index++);
    if (!U16_IS_LEAD(first) || index == units || !U16_IS_TRAIL(UnitAt(bytes, index)))
        return first;
    return U16_GET_SUPPLEMENTARY(first, UnitAt(bytes, index++));
}

std::size_t CountCharacters(const BYTE* bytes, std::size_t units)
{
    std::size_t count = 0;
    for (std::size_t index = 0; index < units; ++count)
        NextCharacter(bytes, units, index);
    return count;
}

/// An element of a text as UTF-16 can hold it.
UChar32 CharacterOf(wchar_t element)
{
    constexpr std::uint32_t last = 0x10FFFF;
    constexpr UChar32 replacement = 0xFFFD;
    const auto value = static_cast<std::uint32_t>(element);
    return value <= last ? static_cast<UChar32>(value) : replacement;
}

BYTE* WriteUnit(BYTE* bytes, UChar32 unit)
{
    *bytes++ = static_cast<BYTE>(unit & 0xFF);
    *bytes++ = static_cast<BYTE>(unit >> 8);
    return bytes;
}

BYTE* WriteCharacter(BYTE* bytes, UChar32 character)
{
    if (U16_LENGTH(character) == 1)
        return WriteUnit(bytes, character);
    return WriteUnit(WriteUnit(bytes, U16_LEAD(character)), U16_TRAIL(character));
}

std::size_t SizeInBytes(std::wstring_view text)
{
    std::size_t size = 0;
    for (const wchar_t element : text)
        size += c_unitSize * U16_LENGTH(CharacterOf(element));
    return size;
}

}  // namespace

BSTR TextOfBytes(const BYTE* bytes, std::size_t size)
{
    const std::size_t units = size / c_unitSize;
    const std::size_t rest = size % c_unitSize;
    const std::size_t byteLength = CountCharacters(bytes, units) * sizeof(OLECHAR) + rest;
    if (byteLength > std::numeric_limits<UINT>::max())
        return nullptr;
    BSTR const text = ::SysAllocStringByteLen(nullptr, static_cast<UINT>(byteLength));
    if (text == nullptr)
        return nullptr;
    OLECHAR* end = text;
    for (std::size_t index = 0; index < units;)
        *end++ = static_cast<OLECHAR>(NextCharacter(bytes, units, index));
    if (rest > 0)
        std::memcpy(end, bytes + size - rest, rest);
    return text;
}

SAFEARRAY* BytesOfText(BSTR text)
{
    const std::wstring_view characters(text, ::SysStringLen(text));
    const std::size_t rest = ::SysStringByteLen(text) % sizeof(OLECHAR);
    const std::size_t size = SizeInBytes(characters) + rest;
    if (size > std::numeric_limits<ULONG>::max())
        return nullptr;
    SAFEARRAY* const array = ::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(size));
    if (array == nullptr)
        return nullptr;
    auto* end = static_cast<BYTE*>(array->pvData);
    for (const wchar_t element : characters)
        end = WriteCharacter(end, CharacterOf(element));
    if (rest > 0)
        std::memcpy(end, text + characters.size(), rest);
    return array;
}
