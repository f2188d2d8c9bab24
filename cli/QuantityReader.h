#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/UnitLookup.h"

/// A number at the start of a text, as "12.5" in "12.5 kN".
struct NumberText
{
    double value;
    std::string_view rest;  ///< what follows it, without blanks around
};

/// Reads a decimal number: digits with one decimal separator, a sign, a power of ten. Too large gives an infinity. The
/// digits are read by the library, so that both see the same number; unlike it, this insists on there being one.
std::optional<NumberText> ReadNumber(std::string_view text, char separator);

/// Whether a text can only be meant as a value: it starts as a number does and is no id:range.
bool LooksLikeValue(std::string_view text);

/// Reads values as people write them, and says what was expected when a text is none:
///
///   12.5   -3   .5   1e3                      in the unit given
///   12.5 kN   12.5kN   -40 °C                 with that unit's symbol, or with any that measures the same when no unit is given
///   3'-4 1/2"   5'   6 3/8"   7/16"           feet, inches and fractions, for lengths in imperial units or when no unit is given
///
/// The SI value is that of physics: temperatures keep their offsets, a number without marks in feet or yards counts feet
/// or yards. In the units that write feet, inches and fractions a number without marks counts inches, as the library reads it.
class QuantityReader
{
public:
    struct Settings
    {
        char separator = '.';
        double metricsFactor = 1.0;  ///< lengths are multiplied by it, areas by its square
    };

    /// A reader of values in one unit.
    QuantityReader(const UnitLookup& lookup, const UnitChoice& unit, const Settings& settings);

    /// A reader of values that each say their unit, which measures the same as `measure`.
    static QuantityReader ForAnyUnit(const UnitLookup& lookup, const UnitChoice& measure, const Settings& settings);

    /// The SI value, or nothing; then Expected() says what was expected. The text is well-formed UTF-8.
    std::optional<double> Read(std::string_view text);

    const std::string& Expected() const { return m_expected; }

private:
    struct Suffix
    {
        std::string text;
        std::optional<CVeUnitBase> unit;  ///< nothing when it is no unit of ours
    };

    std::optional<double> ReadText(std::string_view text);
    std::optional<double> ReadFeetAndInches(std::string_view text);
    const CVeUnitBase* UnitOf(std::string_view suffix);
    double ToSi(const CVeUnitBase& unit, double value) const;
    std::string DescribeExpectation() const;

    const UnitLookup& m_lookup;
    Settings m_settings;
    UnitChoice m_measure;
    std::optional<CVeUnitBase> m_unit;
    CVeUnitBase m_feetAndInches;
    bool m_readsFeetAndInches = false;
    bool m_readsMarksOnly = false;  ///< numbers alone count inches, as feet-inches text
    Suffix m_lastSuffix;            ///< values of one input mostly have the same one
    std::string m_expected;
    std::wstring m_wide;
};
