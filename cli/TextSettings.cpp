#include "cli/TextSettings.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <map>

#include "cli/Failure.h"
#include "cli/Quantities.h"
#include "cli/Utf8.h"

namespace
{

constexpr unsigned int c_finestFraction = 8;  // 1/256 of an inch
constexpr int c_lastThreshold = 5;

// The text is feet, inches and fractions, which carry their own marks.
bool WritesMarks(const CVeUnitBase& unit)
{
    return unit.GetExponent() == 1 && unit.GetType() == Unit::UNIT_TYPE_IMPERIAL &&
           unit.GetUnitFormat() != Unit::UNITFORMAT_IMPERIAL_DECIMAL;
}

bool IsSeparator(const std::string& text)
{
    return text.size() == 1 && std::string("0123456789+-eE'\"/ \t").find(text.front()) == std::string::npos &&
           text.front() > ' ' && text.front() < 0x7F;
}

// Only in front of the mark-up of a superscript, whose own points stay.
void ReplacePoint(std::wstring_view text, wchar_t* out, wchar_t separator)
{
    const std::size_t end = std::min(text.find(L'{'), text.size());
    const std::size_t point = text.substr(0, end).find(L'.');
    if (point != std::wstring_view::npos)
        out[point] = separator;
}

}  // namespace

CLI::Option* AddPrecisionOption(CLI::App& command, std::function<void(unsigned int)> set)
{
    constexpr unsigned int c_mostDecimals = 15;
    return command
        .add_option_function<unsigned int>("-p,--precision", std::move(set),
                                           "Decimals, 0 to 15; fineness of fractions, 0 to 8: 4 gives 1/16\"")
        ->check(CLI::Range(0u, c_mostDecimals));
}

void CheckPrecision(unsigned int precision, const CVeUnitBase& unit)
{
    if (unit.GetUnitFormat() == Unit::UNITFORMAT_FRACTION && precision > c_finestFraction)
        throw UsageError("--precision: expected 0 to 8 for fractions of an inch");
}

void AddTextOptions(CLI::App& command, TextSettings& settings)
{
    AddPrecisionOption(command, [&settings](unsigned int precision) { settings.precision = precision; })
        ->option_text("N (3)");
    const std::map<std::string, bool> choices = {{"keep", false}, {"remove", true}};
    command.add_option("--trailing-zeros", settings.removeTrailingZeros, "What happens to the zeros of 12.500")
        ->transform(CLI::CheckedTransformer(choices))
        ->option_text("keep|remove (keep)");
    command
        .add_option("--exponent-notation", settings.smallValueThreshold,
                    "Write values as 1.250e-05 that are below 0.1 (0), 0.01 (1), ... 0.000001 (5)")
        ->check(CLI::Range(0, c_lastThreshold))
        ->option_text("0...5");
    command.add_flag("--superscript", settings.superscript,
                     "Raise the finest digits of metric lengths, as mark-up of drawing texts");
    command.add_flag("--drop-zero-superscript", settings.dropZeroSuperscript, "Leave out a superscript of zeros only");
    command.add_flag_callback(
        "--no-unit", [&settings] { settings.withUnit = false; }, "Write the number alone");
}

void AddSeparatorOption(CLI::App& command, char& separator)
{
    command
        .add_option_function<std::string>(
            "-s,--separator",
            [&separator](const std::string& text)
            {
                if (!IsSeparator(text))
                    throw CLI::ValidationError("--separator", "expected one character such as a comma");
                separator = text.front();
            },
            "Decimal separator of the values, read and written")
        ->option_text("CHARACTER (.)");
}

void AddMetricsFactorOption(CLI::App& command, double& factor)
{
    command
        .add_option("--metrics-factor", factor,
                    "Scale of lengths: written ones are divided by it, read ones multiplied")
        ->option_text("F (1)");
}

void CheckMetricsFactor(double factor, const UnitChoice& unit)
{
    if (factor == 1.0)
        return;
    if (!std::isfinite(factor) || factor <= 0.0)
        throw UsageError("--metrics-factor: expected a number above zero");
    if (QuantityById(unit.id)->family != Unit::UNIT_ID_LENGTH)
        throw UsageError("--metrics-factor: expected a unit of length, area or volume, not of " +
                         DescribeMeasure(unit.id, unit.exponent));
}

ValueWriter::ValueWriter(const UnitChoice& unit, const TextSettings& settings)
    : m_unit(MakeUnitOf(unit))
    , m_settings(settings)
    , m_symbol(ToUtf8(m_unit.GetName().GetString()))
    , m_appendsSymbol(settings.withUnit && !m_symbol.empty() && !WritesMarks(m_unit))
    , m_buffer{}
{
    CheckMetricsFactor(settings.metricsFactor, unit);
    CheckPrecision(settings.precision, m_unit);
    m_unit.SetPrecision(settings.precision);
    m_unit.SetMetricsFactor(settings.metricsFactor);
}

void ValueWriter::Append(std::string& out, double si)
{
    const int applyFactor = m_settings.metricsFactor != 1.0;
    const int small = m_settings.smallValueThreshold >= 0;
    // Only the form without superscripts adds the offsets of temperatures, which have no superscripts anyway.
    if (m_settings.superscript && m_unit.GetIDUnit() != Unit::UNIT_ID_TEMPERATURE)
        m_unit.Double2String(m_buffer, 1, si, 0, L"%.*f", applyFactor, m_settings.removeTrailingZeros, c_bufferSize,
                             m_settings.dropZeroSuperscript, 0, small, m_settings.smallValueThreshold);
    else
        m_unit.Double2String(m_buffer, si, 0, L"%.*f", applyFactor, m_settings.removeTrailingZeros, c_bufferSize, 0,
                             small, m_settings.smallValueThreshold);
    const std::wstring_view text = m_buffer;
    if (m_settings.separator != '.')
        ReplacePoint(text, m_buffer, static_cast<wchar_t>(m_settings.separator));
    AppendUtf8(out, text);
    if (m_appendsSymbol)
        out.append(" ").append(m_symbol);
}

double ValueWriter::Convert(double si) const
{
    if (m_settings.metricsFactor != 1.0)
        si /= std::pow(m_settings.metricsFactor, m_unit.GetExponent());
    m_unit.SI2Double(si, 0);
    return si;
}
