#pragma once

#include <functional>
#include <string>

#include "cli/UnitLookup.h"

namespace CLI
{
class App;
class Option;
}  // namespace CLI

/// How a value is written: the library's settings, as the options of the command give them.
struct TextSettings
{
    unsigned int precision = 3;
    char separator = '.';
    int smallValueThreshold = -1;  ///< 0 to 5; -1 never writes exponents
    bool removeTrailingZeros = false;
    bool superscript = false;
    bool dropZeroSuperscript = false;
    bool withUnit = true;
    double metricsFactor = 1.0;
};

/// --precision, --trailing-zeros, --exponent-notation, --superscript, --drop-zero-superscript, --no-unit.
void AddTextOptions(CLI::App& command, TextSettings& settings);

/// --precision alone, and what it may be in a unit: throws UsageError for a fraction finer than the library writes.
CLI::Option* AddPrecisionOption(CLI::App& command, std::function<void(unsigned int)> set);
void CheckPrecision(unsigned int precision, const CVeUnitBase& unit);

/// --separator and --metrics-factor, which reading and writing share.
void AddSeparatorOption(CLI::App& command, char& separator);
void AddMetricsFactorOption(CLI::App& command, double& factor);

/// A metrics factor belongs to lengths: throws UsageError for any other unit.
void CheckMetricsFactor(double factor, const UnitChoice& unit);

/// Writes values in one unit as the library does, with two differences. The separator asked for stands in the text, where
/// the library always writes a point. Areas and volumes in feet and yards carry their own name, where the library
/// writes "sq in" and "cu in" after all imperial ones.
class ValueWriter
{
public:
    /// Throws UsageError for settings that the unit cannot follow.
    ValueWriter(const UnitChoice& unit, const TextSettings& settings);

    /// Appends the text of an SI value.
    void Append(std::string& out, double si);

    /// The value in the unit: what the text shows, unrounded.
    double Convert(double si) const;

    /// The unit's symbol.
    const std::string& Symbol() const { return m_symbol; }

private:
    static constexpr unsigned int c_bufferSize = 512;  // 309 digits, a point, 15 decimals, the mark-up of a superscript

    CVeUnitBase m_unit;
    TextSettings m_settings;
    std::string m_symbol;
    bool m_appendsSymbol;
    wchar_t m_buffer[c_bufferSize];
};
