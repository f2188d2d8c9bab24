#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vetools/vetools.h"

/// A unit that a text may mean: a row of the library's catalogue, raised to a power.
struct UnitChoice
{
    unsigned int id = 0;
    unsigned int range = 0;
    int exponent = 1;

    bool operator==(const UnitChoice&) const = default;
};

/// Whether values convert from one to the other: the same family of quantities and the same power.
bool MeasuresTheSame(const UnitChoice& left, const UnitChoice& right);

/// The unit of the same measure whose values are SI values: m² for cm², °C for °F.
UnitChoice SiUnitOf(const UnitChoice& unit);

/// The library's unit object; its symbol and coefficient are those of the power.
CVeUnitBase MakeUnitOf(const UnitChoice& unit);

/// What the library knows about the unit as "2:4  kg  KgForce (force)".
std::string DescribeUnit(const UnitChoice& unit);

/// How a unit writes its values: "decimal", "imperial decimal", "feet-inches", "fraction".
const char* DescribeFormat(Unit::enumUNITFORMAT format);

/// Finds units by what people write:
///
///   kN  kN·m  kNm  µm  ''  klb  mm2  m²  cm^4  "sq in"   a symbol, first in its exact case, then in any
///   KiloNewton  Pied                                     a title
///   2:4  4:kg  mass:kg                                   id:range, or a quantity's id or name with a symbol
///
/// Without a quantity in front, length ids are one quantity (id 1 stands for them), as are the two angles, and the
/// titles of id 26, which look like areas but are lengths, are not searched.
class UnitLookup
{
public:
    UnitLookup();

    /// Every unit that the text may mean, at most one per family and power; empty when there is none.
    std::vector<UnitChoice> Find(std::string_view text) const;

    /// The one unit that the text means. Throws UsageError for an unknown or shared symbol, naming the candidates.
    UnitChoice Resolve(std::string_view text) const;

    /// The same for two units that convert into each other: one decides what the other means.
    std::pair<UnitChoice, UnitChoice> ResolvePair(std::string_view from, std::string_view to) const;

private:
    struct Name
    {
        std::string key;     ///< the spelling without what people write in more than one way
        std::string folded;  ///< the same in lower case
        UnitChoice unit;
    };

    void AddCatalogue();
    void AddOtherSpellings();
    void AddSymbol(std::string_view symbol, const UnitChoice& unit);
    std::vector<UnitChoice> FindRequired(std::string_view text) const;

    std::vector<Name> m_symbols;
    std::vector<Name> m_titles;
};

/// Ranges that the catalogue knows for a quantity, ascending.
std::vector<unsigned int> RangesOf(unsigned int id);
