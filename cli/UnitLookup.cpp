#include "cli/UnitLookup.h"

#include <algorithm>
#include <span>

#include "cli/Failure.h"
#include "cli/Quantities.h"
#include "cli/Utf8.h"

namespace
{

constexpr unsigned int c_defaultPrecision = 3;
constexpr unsigned int c_mostRanges = 13;
constexpr int c_greatestExponent = 9;

// Feet and inches as text are a way of writing, which no power makes sense of.
constexpr unsigned int c_lastRangeWithPowers = 7;

struct Replacement
{
    std::string_view written;
    std::string_view key;
};

// clang-format off
/// What a key does not distinguish.
constexpr Replacement c_replacements[] = {
    {"²", "2"}, {"³", "3"}, {"^", ""},
    {"μ", "µ"},                                     // Greek mu, micro sign
    {"*", ""}, {"·", ""}, {"⋅", ""}, {" ", ""},
    {"′", "'"}, {"″", "\""},
};

struct Spelling
{
    std::string_view text;
    unsigned int id, range;
    int exponent;
};

/// Spellings besides the catalogue's symbols: what the library itself writes or reads elsewhere, and what a keyboard or
/// a shell makes easier.
constexpr Spelling c_otherSpellings[] = {
//   text      id range power
    {"um",      1,  0, 1},
    {"''",      1,  5, 1},
    {"in",      1,  5, 1},
    {"ft",      1,  6, 1},
    {"sq in",   1,  5, 2},
    {"cu in",   1,  5, 3},
    {"sq ft",   1,  6, 2},
    {"cu ft",   1,  6, 3},
    {"kgf",     2,  4, 1},
    {"tf",      2,  5, 1},
    {"lbf",     2,  6, 1},
    {"kipf",    2,  7, 1},
    {"klb",     4,  3, 1},
    {"deg",     5,  0, 1},
    {"N/m²",    7,  0, 1},
    {"kN/m²",   7,  1, 1},
    {"N/mm²",   7,  2, 1},
    {"degC",   10,  0, 1},
    {"degF",   10,  1, 1},
};
// clang-format on

std::string KeyOf(std::string_view text)
{
    std::string key;
    while (!text.empty())
    {
        const auto row = std::find_if(std::begin(c_replacements), std::end(c_replacements),
                                      [&](const Replacement& each) { return text.starts_with(each.written); });
        if (row == std::end(c_replacements))
        {
            key.push_back(text.front());
            text.remove_prefix(1);
            continue;
        }
        key.append(row->key);
        text.remove_prefix(row->written.size());
    }
    return key;
}

unsigned int FamilyOf(unsigned int id)
{
    const Quantity* quantity = QuantityById(id);
    return quantity ? quantity->family : id;
}

bool HasRange(unsigned int id, unsigned int range)
{
    const std::vector<unsigned int> ranges = RangesOf(id);
    return std::find(ranges.begin(), ranges.end(), range) != ranges.end();
}

// A quantity in front of the text, and what stands behind it.
struct Qualified
{
    const Quantity* quantity;
    std::string_view unit;
};

std::optional<Qualified> SplitQuantity(std::string_view text)
{
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    const Quantity* const quantity = FindQuantity(text.substr(0, colon));
    if (!quantity)
        return std::nullopt;
    return Qualified{quantity, text.substr(colon + 1)};
}

bool IsPower(const UnitChoice& base, int exponent)
{
    return FamilyOf(base.id) == Unit::UNIT_ID_LENGTH && base.range <= c_lastRangeWithPowers && base.exponent == 1 &&
           exponent >= 2 && exponent <= c_greatestExponent;
}

// The range of "4", and the power of "4^2" and "4²".
std::optional<UnitChoice> ReadRange(const Quantity& quantity, std::string_view text)
{
    UnitChoice unit{quantity.id, 0, 1};
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    const std::optional<unsigned int> range = ReadWholeNumber(text.substr(0, digits));
    if (!range || !HasRange(quantity.id, *range))
        return std::nullopt;
    unit.range = *range;
    if (digits == text.size())
        return unit;
    const std::optional<unsigned int> exponent = ReadWholeNumber(KeyOf(text.substr(digits)));
    if (!exponent || !IsPower(unit, static_cast<int>(std::min(*exponent, 99u))))
        return std::nullopt;
    unit.exponent = static_cast<int>(*exponent);
    return unit;
}

// The first of each family and power: ids ascend, so that the lowest stands for the others.
void KeepOnePerMeaning(std::vector<UnitChoice>& units)
{
    std::vector<UnitChoice> kept;
    for (const UnitChoice& unit : units)
    {
        const auto isSame = [&](const UnitChoice& other)
        {
            return MeasuresTheSame(unit, other) && unit.range == other.range;
        };
        if (std::none_of(kept.begin(), kept.end(), isSame))
            kept.push_back(unit);
    }
    units = std::move(kept);
}

std::string Quote(std::string_view text)
{
    return "“" + RepairUtf8(text) + "”";
}

std::string ListUnits(std::span<const UnitChoice> units)
{
    std::string list;
    for (const UnitChoice& unit : units)
        list += "\n  " + DescribeUnit(unit);
    return list;
}

std::string NameExample(const UnitChoice& unit)
{
    return std::to_string(unit.id) + ":" + std::to_string(unit.range);
}

[[noreturn]] void RefuseShared(const std::string& texts, std::span<const UnitChoice> units)
{
    throw UsageError(texts + " may mean several units; name the one you mean by its id:range, such as " +
                     NameExample(units.front()) + ":" + ListUnits(units));
}

}  // namespace

bool MeasuresTheSame(const UnitChoice& left, const UnitChoice& right)
{
    return left.exponent == right.exponent && FamilyOf(left.id) == FamilyOf(right.id);
}

UnitChoice SiUnitOf(const UnitChoice& unit)
{
    for (const unsigned int range : RangesOf(unit.id))
        if (CVeUnitBase(unit.id, range, c_defaultPrecision, L'.', 1.0, 0).GetCoef() == 1.0)
            return {unit.id, range, unit.exponent};
    return unit;
}

CVeUnitBase MakeUnitOf(const UnitChoice& unit)
{
    CVeUnitBase made(unit.id, unit.range, c_defaultPrecision, L'.', 1.0, 0);
    if (unit.exponent != 1)
        made.SetExponent(unit.exponent);
    return made;
}

std::string DescribeUnit(const UnitChoice& unit)
{
    CVeUnitBase made = MakeUnitOf(unit);
    const std::string symbol = ToUtf8(made.GetName().GetString());
    return std::to_string(unit.id) + ":" + std::to_string(unit.range) + "  " + symbol + "  " + ToUtf8(made.GetTitle()) +
           " (" + DescribeMeasure(unit.id, unit.exponent) + ")";
}

const char* DescribeFormat(Unit::enumUNITFORMAT format)
{
    switch (format)
    {
    case Unit::UNITFORMAT_FEET_INCHES:
        return "feet-inches";
    case Unit::UNITFORMAT_IMPERIAL_DECIMAL:
        return "imperial decimal";
    case Unit::UNITFORMAT_FRACTION:
        return "fraction";
    default:
        return "decimal";
    }
}

std::vector<unsigned int> RangesOf(unsigned int id)
{
    constexpr std::wstring_view c_unknownRange = L"---";
    // The one unit without a dimension answers to every range.
    if (id == Unit::UNIT_ID_DIMENSIONLESS)
        return {0};
    std::vector<unsigned int> ranges;
    for (unsigned int range = 0; range < c_mostRanges; ++range)
        if (CVeUnitBase::GetStringUnits(id, static_cast<int>(range)).GetString() != c_unknownRange)
            ranges.push_back(range);
    return ranges;
}

UnitLookup::UnitLookup()
{
    AddCatalogue();
    AddOtherSpellings();
}

void UnitLookup::AddCatalogue()
{
    for (const Quantity& quantity : Quantities())
        for (const unsigned int range : RangesOf(quantity.id))
        {
            const UnitChoice choice{quantity.id, range, 1};
            CVeUnitBase unit = MakeUnitOf(choice);
            AddSymbol(ToUtf8(unit.GetName().GetString()), choice);
            const std::string title = ToUtf8(unit.GetTitle());
            m_titles.push_back({title, FoldCase(title), choice});
        }
}

void UnitLookup::AddOtherSpellings()
{
    for (const Spelling& spelling : c_otherSpellings)
        for (const Quantity& quantity : Quantities())
            if (quantity.family == spelling.id)
                AddSymbol(spelling.text, {quantity.id, spelling.range, spelling.exponent});
}

void UnitLookup::AddSymbol(std::string_view symbol, const UnitChoice& unit)
{
    const std::string key = KeyOf(symbol);
    if (!key.empty())
        m_symbols.push_back({key, FoldCase(key), unit});
}

std::vector<UnitChoice> UnitLookup::Find(std::string_view text) const
{
    const std::optional<Qualified> qualified = SplitQuantity(text);
    if (qualified)
        text = qualified->unit;
    if (qualified)
        if (const std::optional<UnitChoice> unit = ReadRange(*qualified->quantity, text))
            return {*unit};

    const auto isSearched = [&](const UnitChoice& unit)
    {
        return qualified ? unit.id == qualified->quantity->id : unit.id == FamilyOf(unit.id);
    };
    const auto collect =
        [&](const std::vector<Name>& names, std::string Name::*form, std::string_view wanted, int exponent)
    {
        std::vector<UnitChoice> found;
        for (const Name& name : names)
            if (isSearched(name.unit) && name.*form == wanted && (exponent == 1 || IsPower(name.unit, exponent)))
                found.push_back({name.unit.id, name.unit.range, exponent == 1 ? name.unit.exponent : exponent});
        KeepOnePerMeaning(found);
        return found;
    };

    const std::string key = KeyOf(text);
    if (key.empty())
        return {};
    const int power = key.back() >= '2' && key.back() <= '9' ? key.back() - '0' : 1;
    const std::string base = power == 1 ? key : key.substr(0, key.size() - 1);
    std::vector<UnitChoice> found = collect(m_symbols, &Name::key, key, 1);
    if (found.empty() && power != 1)
        found = collect(m_symbols, &Name::key, base, power);
    if (found.empty())
        found = collect(m_symbols, &Name::folded, FoldCase(key), 1);
    if (found.empty() && power != 1)
        found = collect(m_symbols, &Name::folded, FoldCase(base), power);
    if (found.empty())
        found = collect(m_titles, &Name::key, text, 1);
    if (found.empty())
        found = collect(m_titles, &Name::folded, FoldCase(text), 1);
    return found;
}

std::vector<UnitChoice> UnitLookup::FindRequired(std::string_view text) const
{
    std::vector<UnitChoice> found = Find(text);
    if (found.empty())
        throw UsageError(Quote(text) + " is no unit: expected a symbol such as kN, a title such as KiloNewton, or "
                                       "id:range such as 2:2 (“vetools units” lists them all)");
    return found;
}

UnitChoice UnitLookup::Resolve(std::string_view text) const
{
    const std::vector<UnitChoice> found = FindRequired(text);
    if (found.size() > 1)
        RefuseShared(Quote(text), found);
    return found.front();
}

std::pair<UnitChoice, UnitChoice> UnitLookup::ResolvePair(std::string_view from, std::string_view to) const
{
    const std::vector<UnitChoice> sources = FindRequired(from);
    const std::vector<UnitChoice> targets = FindRequired(to);
    std::vector<std::pair<UnitChoice, UnitChoice>> pairs;
    for (const UnitChoice& source : sources)
        for (const UnitChoice& target : targets)
            if (MeasuresTheSame(source, target))
                pairs.emplace_back(source, target);
    if (pairs.size() == 1)
        return pairs.front();

    std::vector<UnitChoice> candidates = sources;
    candidates.insert(candidates.end(), targets.begin(), targets.end());
    if (pairs.empty())
        throw UsageError(Quote(from) + " does not convert to " + Quote(to) +
                         ", which measures something else:" + ListUnits(candidates));
    candidates.clear();
    for (const auto& [source, target] : pairs)
        candidates.insert(candidates.end(), {source, target});
    RefuseShared(Quote(from) + " and " + Quote(to), candidates);
}
