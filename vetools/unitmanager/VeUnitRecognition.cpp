#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <optional>

#include "vetools/resources/VePrompts.h"
#include "vetools/unitmanager/UnitSpellings.h"
#include "vetools/unitmanager/VeUnitManager.h"
#include "vetools/units/UnitCatalogue.h"

namespace
{

constexpr bool CanMatch(std::wstring_view text)
{
    return std::none_of(text.begin(), text.end(),
                        [](wchar_t character)
                        { return character == L'/' || (character >= L'A' && character <= L'Z'); });
}

/// The lower case of a letter of ASCII; every other character stays.
constexpr wchar_t ToLower(wchar_t character)
{
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

constexpr bool IsAscii(wchar_t character)
{
    return character < 0x80;
}

/// A hash table without collisions, made from the rows at compile time: the multiplier is searched that sends every
/// spelling that can match to a slot of its own.
class SpellingIndex
{
public:
    constexpr SpellingIndex()
    {
        while (!Fill())
            ++m_multiplier;
    }

    /// The row of a text, letters of ASCII being read as their lower case; null when there is none.
    constexpr const UnitSpellingRow* Find(std::wstring_view text) const
    {
        const std::uint8_t slot = m_slots[SlotOf(text)];
        if (slot == c_empty || !std::ranges::equal(text, c_unitSpellings[slot].text, {}, ToLower))
            return nullptr;
        return &c_unitSpellings[slot];
    }

private:
    static constexpr std::size_t c_slotCount = 128;
    static constexpr std::uint8_t c_empty = 0xFF;
    static_assert(std::size(c_unitSpellings) < c_empty);

    constexpr std::size_t SlotOf(std::wstring_view text) const
    {
        std::uint32_t hash = 0;
        for (const wchar_t character : text)
            hash = (hash + static_cast<std::uint32_t>(ToLower(character))) * m_multiplier;
        return (hash >> 16) % c_slotCount;
    }

    constexpr bool Fill()
    {
        m_slots.fill(c_empty);
        for (std::size_t i = 0; i < std::size(c_unitSpellings); ++i)
        {
            if (!CanMatch(c_unitSpellings[i].text))
                continue;
            std::uint8_t& slot = m_slots[SlotOf(c_unitSpellings[i].text)];
            if (slot != c_empty)
                return false;
            slot = static_cast<std::uint8_t>(i);
        }
        return true;
    }

    std::uint32_t m_multiplier = 0x9E3779B1;
    std::array<std::uint8_t, c_slotCount> m_slots{};
};

constexpr SpellingIndex c_spellingIndex;

constexpr std::size_t LongestSpelling()
{
    std::size_t longest = 0;
    for (const UnitSpellingRow& row : c_unitSpellings)
        longest = std::max(longest, CanMatch(row.text) ? row.text.size() : 0);
    return longest;
}

constexpr std::size_t c_longestSpelling = LongestSpelling();

/// The row of a text in any case; null when there is none.
const UnitSpellingRow* FindSpelling(std::wstring_view text)
{
    if (text.size() > c_longestSpelling)
        return nullptr;
    if (std::ranges::all_of(text, IsAscii))
        return c_spellingIndex.Find(text);
    CString lower(text);
    return c_spellingIndex.Find(lower.MakeLower().View());
}

/// What setting id, range and exponent one after the other gives, in no more steps than it takes.
/// Kept: a unit whose new id has no such range keeps the texts of the step before.
void SetUnit(CVeUnitBase& unit, const UnitSpellingRow& row)
{
    const bool isInCatalogue = FindUnit(row.idUnit, row.range) != nullptr;
    if (!isInCatalogue)
        unit.SetIdUnit(row.idUnit);
    unit.SetIdUnitAndRange(row.idUnit, row.range);
    // An exponent also rewrites the texts as they are shown: those of the library's own plain units are so already.
    const bool isShown = isInCatalogue && row.exponent == 1 && unit.GetExponent() == 1 && !VePrompts::HasProvider();
    if (!isShown)
        unit.SetExponent(row.exponent);
}

/// A unit made afresh from a spelling; nothing when it is unknown.
std::optional<CVeUnitBase> MakeUnit(std::wstring_view spelling)
{
    const UnitSpellingRow* const row = FindSpelling(spelling);
    if (!row)
        return std::nullopt;
    std::optional<CVeUnitBase> unit(std::in_place);
    SetUnit(*unit, *row);
    return unit;
}

/// a / (b / (c ...)): taken from the last part to the first, however many there are. Nothing when one of them is unknown.
std::optional<CVeUnitBase> MakeQuotient(std::wstring_view text)
{
    std::size_t slash = text.rfind(L'/');
    std::optional<CVeUnitBase> quotient = MakeUnit(text.substr(slash + 1));
    while (quotient && slash != std::wstring_view::npos)
    {
        text = text.substr(0, slash);
        slash = text.rfind(L'/');
        std::optional<CVeUnitBase> numerator = MakeUnit(text.substr(slash + 1));
        if (!numerator)
            return std::nullopt;
        quotient = CVeUnitBase::MakeUnit(&*numerator, 1, &*quotient, -1, static_cast<CVeUnitBase*>(nullptr));
    }
    return quotient;
}

}  // namespace

CVeUnitManager::statusCode CVeUnitManager::UnitFromString(CString text, CVeUnit& out)
{
    if (text.IsEmpty())
        return STATUS_EMPTY;
    // No spelling that can match holds a "/", so a text that is one is no quotient.
    if (const UnitSpellingRow* row = FindSpelling(text.View()))
    {
        SetUnit(out, *row);
        return STATUS_OK;
    }
    if (text.Find(L'/') < 0)
        return STATUS_UNKNOWN;
    const std::optional<CVeUnitBase> quotient = MakeQuotient(text.View());
    if (!quotient)
        return STATUS_UNKNOWN;
    out = *quotient;
    return STATUS_OK;
}
