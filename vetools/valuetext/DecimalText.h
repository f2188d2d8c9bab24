#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "vetools/units/VeUnitBase.h"
#include "vetools/valuetext/CallerBuffer.h"
#include "vetools/valuetext/TextBuffer.h"

/// The metrics factor that applies to a unit raised to a power: its square for 2, else the factor to that power.
double MetricsFactorToThe(int exponent, double metricsFactor);

/// The decimal text of a value in one unit (internal): a number by the rules of the unit, then its name.
///
/// The number is settled first (ShownNumber), then its digits (WriteNumber), then what stands around them.
class DecimalText
{
public:
    DecimalText(const CVeUnitBase& unit, const ValueTextOptions& options);

    /// Whether the symbol holds one of the first seven length symbols: µm, mm, cm, dm, m, the inch or the foot mark.
    /// Kept: anywhere in it, so min, N*m and ft-lb/m count as lengths.
    bool HasLengthName() const { return m_lengthName; }

    /// Writes the text of an SI value. `format` takes an int and a double, as "%.*f"; null counts as that.
    /// The buffer receives the stages of the text, as the classic forms of Double2String promise. A text that has only one
    /// is made in `room`, as far as it fits.
    void Write(TextBuffer& text, double value, const wchar_t* format, const CallerBuffer& buffer,
               std::span<wchar_t> room) const;

private:
    /// A value in the unit and the number of decimals that it is written with. What was rounded knows its digits: they
    /// are those of `steps`.
    struct Number
    {
        double value;
        unsigned int precision;
        std::optional<std::int64_t> steps = std::nullopt;
    };

    static void WriteNumber(TextBuffer& text, const wchar_t* format, const Number& number);

    Number ShownNumber(double value) const;
    bool IsRewritten(double shown) const;
    double Scaled(double value) const;
    Number Rounded(double shown) const;
    unsigned int PrecisionOfSmallLength(double shown) const;
    void RaiseSubUnits(TextBuffer& text) const;
    void AppendName(TextBuffer& text) const;

    const CVeUnitBase& m_unit;
    const ValueTextOptions& m_options;
    std::size_t m_nameLength = 0;
    bool m_lengthName = false;
    bool m_markedName = false;  // holds an inch or a foot mark, which the display name may replace
};
