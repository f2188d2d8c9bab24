#include "vetools/units/UnitRecord.h"

#include <algorithm>

#include "vetools/framework/NumberText.h"

namespace
{

constexpr std::uint32_t c_firstSurrogate = 0xD800;
constexpr std::uint32_t c_firstLowSurrogate = 0xDC00;
constexpr std::uint32_t c_lastSurrogate = 0xDFFF;
constexpr std::uint32_t c_firstSupplementary = 0x10000;

/// Whether wchar_t holds whole characters here, or UTF-16 as the files do.
constexpr bool c_wideHoldsCharacters = sizeof(wchar_t) > sizeof(char16_t);

void WriteUnit(std::span<std::byte> field, std::size_t index, std::uint32_t unit)
{
    field[2 * index] = static_cast<std::byte>(unit & 0xFF);
    field[2 * index + 1] = static_cast<std::byte>((unit >> 8) & 0xFF);
}

std::uint32_t ReadUnit(std::span<const std::byte> field, std::size_t index)
{
    return std::to_integer<std::uint32_t>(field[2 * index]) | std::to_integer<std::uint32_t>(field[2 * index + 1]) << 8;
}

bool IsPair(std::uint32_t high, std::uint32_t low)
{
    return high >= c_firstSurrogate && high < c_firstLowSurrogate && low >= c_firstLowSurrogate &&
           low <= c_lastSurrogate;
}

/// A number with '.' or `separator` as decimal mark; `isWhole` says whether the number was all of the text.
double ReadNumber(UnitRecord::FieldText text, wchar_t separator, bool& isWhole)
{
    std::size_t consumed = 0;
    double value = ReadDouble(text.View(), &consumed);
    const std::size_t length = text.View().size();
    if (consumed < length && text.View()[consumed] == separator)
    {
        text.SetAt(consumed, L'.');
        value = ReadDouble(text.View(), &consumed);
    }
    isWhole = consumed == length;
    return value;
}

}  // namespace

void UnitRecord::WriteText(std::span<std::byte> field, std::wstring_view text)
{
    std::fill(field.begin(), field.end(), std::byte{0});
    const std::size_t places = field.size() / c_placeSize - 1;
    std::size_t index = 0;
    for (std::size_t i = 0; i < text.size() && index < places; ++i)
    {
        const auto character = static_cast<std::uint32_t>(text[i]);
        const bool needsPair = c_wideHoldsCharacters && character >= c_firstSupplementary;
        const bool startsPair =
            !c_wideHoldsCharacters && i + 1 < text.size() && IsPair(character, static_cast<std::uint32_t>(text[i + 1]));
        if ((needsPair || startsPair) && index + 1 == places)
            break;
        if (!needsPair)
        {
            WriteUnit(field, index++, character);
            continue;
        }
        const std::uint32_t offset = character - c_firstSupplementary;
        WriteUnit(field, index++, c_firstSurrogate + ((offset >> 10) & 0x3FF));
        WriteUnit(field, index++, c_firstLowSurrogate + (offset & 0x3FF));
    }
}

UnitRecord::FieldText::FieldText(std::span<const std::byte> field)
{
    const std::size_t places = std::min(field.size(), c_largestField) / c_placeSize;
    for (std::size_t index = 0; index < places; ++index)
    {
        const std::uint32_t unit = ReadUnit(field, index);
        if (unit == 0)
            break;
        const std::uint32_t next = index + 1 < places ? ReadUnit(field, index + 1) : 0;
        if (c_wideHoldsCharacters && IsPair(unit, next))
        {
            m_characters[m_length++] = static_cast<wchar_t>(c_firstSupplementary + ((unit - c_firstSurrogate) << 10) +
                                                            (next - c_firstLowSurrogate));
            ++index;
            continue;
        }
        m_characters[m_length++] = static_cast<wchar_t>(unit);
    }
    m_characters[m_length] = L'\0';
}

bool UnitRecord::FieldText::Replace(wchar_t from, wchar_t to)
{
    const auto end = m_characters.begin() + static_cast<std::ptrdiff_t>(m_length);
    const auto first = std::find(m_characters.begin(), end, from);
    std::replace(first, end, from, to);
    return first != end;
}

double UnitRecord::ReadCoefficient(FieldText text, wchar_t savedSeparator, wchar_t currentSeparator)
{
    bool isWhole = false;
    const double value = ReadNumber(text, currentSeparator, isWhole);
    if (isWhole || savedSeparator == currentSeparator || !text.Replace(savedSeparator, currentSeparator))
        return value;
    return ReadNumber(text, currentSeparator, isWhole);
}
