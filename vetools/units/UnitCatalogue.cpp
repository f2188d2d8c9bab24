#include "vetools/units/UnitCatalogue.h"

#include <algorithm>

#include "vetools/resources/StringTable.h"
#include "vetools/units/UnitText.h"

namespace
{

constexpr bool IdsAscendFromOne()
{
    for (std::size_t i = 0; i < std::size(c_quantities); ++i)
    {
        if (c_quantities[i].id != i + 1)
            return false;
    }
    return true;
}

/// By the first titles, which no two tables share: addresses are no constants when the sanitizers compile this.
constexpr bool IsSameTable(std::span<const UnitRow> a, std::span<const UnitRow> b)
{
    return a.front().title == b.front().title;
}

constexpr bool EveryTableBelongsToAQuantity()
{
    return std::ranges::all_of(c_unitTables,
                               [](std::span<const UnitRow> table)
                               {
                                   return std::ranges::any_of(c_quantities, [&](const QuantityRow& quantity)
                                                              { return IsSameTable(quantity.units, table); });
                               });
}

constexpr bool RowsFitTheUnit()
{
    for (const std::span<const UnitRow> table : c_unitTables)
    {
        for (const UnitRow& unit : table)
        {
            const bool agrees = (unit.type == Unit::UNIT_TYPE_METRIC) == (unit.format == Unit::UNITFORMAT_DECIMAL);
            if (unit.symbol.size() >= c_nameCapacity || unit.title == 0 || !(unit.coef > 0.0) || !agrees)
                return false;
        }
    }
    return true;
}

constexpr bool OnlyLengthsAreImperial()
{
    return std::ranges::all_of(c_quantities,
                               [](const QuantityRow& quantity)
                               {
                                   return IsSameTable(quantity.units, CatalogueRows::c_length) ||
                                          std::ranges::all_of(quantity.units, [](const UnitRow& unit)
                                                              { return unit.type == Unit::UNIT_TYPE_METRIC; });
                               });
}

constexpr bool LengthsAreWhatFollowsTheMetricsFactor()
{
    return std::ranges::all_of(
        c_quantities, [](const QuantityRow& quantity)
        { return IsSameTable(quantity.units, CatalogueRows::c_length) == (quantity.metricsUse != MetricsUse::None); });
}

constexpr bool IsFoundBySymbol(const UnitRow& unit)
{
    return unit.found == Found::BySymbolAndTitle || unit.found == Found::BySymbol;
}

constexpr bool IsFoundByTitle(const UnitRow& unit)
{
    return unit.found == Found::BySymbolAndTitle || unit.found == Found::ByTitle;
}

constexpr int CountFoundBySymbol(std::wstring_view symbol)
{
    std::ptrdiff_t count = 0;
    for (const std::span<const UnitRow> table : c_unitTables)
    {
        count += std::ranges::count_if(table, [&](const UnitRow& unit)
                                       { return IsFoundBySymbol(unit) && unit.symbol == symbol; });
    }
    return static_cast<int>(count);
}

constexpr bool FoundSymbolsAreUnique()
{
    return std::ranges::all_of(c_unitTables,
                               [](std::span<const UnitRow> table)
                               {
                                   return std::ranges::all_of(
                                       table, [](const UnitRow& unit)
                                       { return !IsFoundBySymbol(unit) || CountFoundBySymbol(unit.symbol) == 1; });
                               });
}

static_assert(IdsAscendFromOne(), "a quantity's row is found by its id");
static_assert(EveryTableBelongsToAQuantity());
static_assert(RowsFitTheUnit(), "a symbol has 19 characters; only imperial units have a format of their own");
static_assert(OnlyLengthsAreImperial(), "the format of an imperial unit follows from its range alone");
static_assert(LengthsAreWhatFollowsTheMetricsFactor());
static_assert(FoundSymbolsAreUnique(), "the order of the look-up makes no difference");

template <class Predicate>
std::optional<unsigned int> FindRange(Predicate isWanted)
{
    for (const std::span<const UnitRow> table : c_unitTables)
    {
        const auto unit = std::ranges::find_if(table, isWanted);
        if (unit != table.end())
            return static_cast<unsigned int>(unit - table.begin());
    }
    return std::nullopt;
}

}  // namespace

std::optional<unsigned int> FindRangeBySymbol(std::wstring_view symbol)
{
    return FindRange([&](const UnitRow& unit) { return IsFoundBySymbol(unit) && unit.symbol == symbol; });
}

std::optional<unsigned int> FindRangeByTitle(std::wstring_view title)
{
    return FindRange([&](const UnitRow& unit) { return IsFoundByTitle(unit) && StringTableText(unit.title) == title; });
}
