#include <algorithm>
#include <string_view>

#include "vetools/units/ImperialFactors.h"
#include "vetools/units/UnitCatalogue.h"
#include "vetools/units/VeUnitBase.h"
#include "vetools/valuetext/CallerBuffer.h"
#include "vetools/valuetext/DecimalText.h"
#include "vetools/valuetext/ImperialFormat.h"
#include "vetools/valuetext/TextBuffer.h"
#include "vetools/valuetext/VeImperialLength.h"

namespace
{

/// A length that is shown as feet and inches; every other value is a decimal number.
bool IsShownAsFeetAndInches(const CVeUnitBase& unit)
{
    return unit.GetType() == Unit::UNIT_TYPE_IMPERIAL && unit.GetExponent() == 1 &&
           unit.GetUnitFormat() != Unit::UNITFORMAT_IMPERIAL_DECIMAL;
}

/// Writes the text and a terminator into `out` as WriteImperialText does, and returns its length.
std::size_t WriteFeetInches(wchar_t* out, const CVeUnitBase& unit, double metres)
{
    const Unit::enumUNITFORMAT format = unit.GetUnitFormat();
    const unsigned int range = unit.GetRange();
    if (format == Unit::UNITFORMAT_FEET_INCHES || range == c_feetAndFractions)
        return WriteImperialText(out, metres * c_feetPerMetre, LengthIn::Feet, unit.GetPrecision(), unit.GetSep(),
                                 format);
    if (range == c_inchesAndFractions)
        return WriteImperialText(out, metres * c_inchesPerMetre, LengthIn::Inches, unit.GetPrecision(), unit.GetSep(),
                                 format);
    *out = L'\0';
    return 0;
}

/// The text of a length in a unit of format 2 or 4, which the buffer receives as well.
/// Kept: whole, whatever the size of the buffer, and always with its marks.
CString FeetInchesText(const CVeUnitBase& unit, double metres, const CallerBuffer& buffer)
{
    // A fraction can be made in the buffer itself.
    if (buffer.Data() != nullptr && unit.GetUnitFormat() == Unit::UNITFORMAT_FRACTION)
        return CString(std::wstring_view(buffer.Data(), WriteFeetInches(buffer.Data(), unit, metres)));

    wchar_t text[c_imperialTextCapacity];
    const std::wstring_view written(text, WriteFeetInches(text, unit, metres));
    buffer.CopyWhole(written);
    return CString(written);
}

/// A text that the unit's format does not make: CVeImperialLength's own for a name without a length mark, otherwise what
/// the caller's buffer holds (Kept: it is the text then, and must be terminated).
CString TextInBuffer(const CVeUnitBase& unit, double metres, bool lengthName, const CallerBuffer& buffer)
{
    wchar_t standIn[c_imperialTextCapacity];
    standIn[0] = L'\0';
    wchar_t* text = buffer.Data() != nullptr ? buffer.Data() : standIn;
    if (!lengthName)
    {
        const auto type = static_cast<CVeImperialLength::enumIMPERIAL_LENGTH_TYPE>(unit.GetRange());
        CVeImperialLength::Meter2ImperialStr(metres, static_cast<int>(unit.GetPrecision()), type, &text);
    }
    return text;
}

/// The text of a length in feet and inches, which the buffer receives as well. Kept: the value counts as metres, whatever
/// the unit's coefficient.
CString ImperialLengthText(const CVeUnitBase& unit, double value, const ValueTextOptions& options, bool lengthName,
                           const CallerBuffer& buffer)
{
    const double metres = options.applyMetricsFactor ? value / unit.GetMetricsFactor() : value;
    const Unit::enumUNITFORMAT format = unit.GetUnitFormat();
    if (lengthName && (format == Unit::UNITFORMAT_FEET_INCHES || format == Unit::UNITFORMAT_FRACTION))
        return FeetInchesText(unit, metres, buffer);

    CString text = TextInBuffer(unit, metres, lengthName, buffer);
    if (!options.withUnit)
        CVeUnitBase::EliminateUnitsSymbol(unit.GetIDUnit(), text);
    buffer.CopyBack(text.View());
    return text;
}

/// The classic forms: the text in the caller's buffer is the text that is returned, cut as the buffer cuts it.
CString ClassicText(const CVeUnitBase& unit, double value, const wchar_t* format, const ValueTextOptions& options,
                    const CallerBuffer& buffer)
{
    const DecimalText decimal(unit, options);
    if (IsShownAsFeetAndInches(unit))
        return ImperialLengthText(unit, value, options, decimal.HasLengthName(), buffer);

    TextBuffer text;
    decimal.Write(text, value, format, buffer, buffer.Room());
    return CString(buffer.TakesCopies() ? buffer.Cut(text.View()) : text.View());
}

}  // namespace

CString CVeUnitBase::Double2String(wchar_t* buffer, double value, int withUnit, const wchar_t* format,
                                   int applyMetricsFactor, int removeTrailingZeros, unsigned int bufferSize,
                                   int /*reserved*/, int smallValuesAsExponent, int smallValueThreshold) const
{
    const ValueTextOptions options{
        .withUnit = withUnit != 0,
        .applyMetricsFactor = applyMetricsFactor != 0,
        .removeTrailingZeros = removeTrailingZeros != 0,
        .smallValuesAsExponent = smallValuesAsExponent != 0,
        .smallValueThreshold = smallValueThreshold,
    };
    return ClassicText(*this, value, format, options, CallerBuffer(buffer, bufferSize));
}

CString CVeUnitBase::Double2String(wchar_t* buffer, int superscriptSubUnits, double value, int withUnit,
                                   const wchar_t* format, int applyMetricsFactor, int removeTrailingZeros,
                                   unsigned int bufferSize, int dropZeroSuperscript, int /*reserved*/,
                                   int smallValuesAsExponent, int smallValueThreshold) const
{
    const ValueTextOptions options{
        .withUnit = withUnit != 0,
        .applyMetricsFactor = applyMetricsFactor != 0,
        .removeTrailingZeros = removeTrailingZeros != 0,
        .smallValuesAsExponent = smallValuesAsExponent != 0,
        .smallValueThreshold = smallValueThreshold,
        .temperatureOffset = false,  // Kept: only the ten-argument form adds it
        .superscriptSubUnits = superscriptSubUnits != 0,
        .dropZeroSuperscript = dropZeroSuperscript != 0,
    };
    return ClassicText(*this, value, format, options, CallerBuffer(buffer, bufferSize));
}

std::size_t CVeUnitBase::Double2String(std::span<wchar_t> buffer, double value, const ValueTextOptions& options) const
{
    const DecimalText decimal(*this, options);
    TextBuffer text;
    if (IsShownAsFeetAndInches(*this))
        text.Assign(ImperialLengthText(*this, value, options, decimal.HasLengthName(), CallerBuffer::None()).View());
    else
        decimal.Write(text, value, nullptr, CallerBuffer::None(),
                      buffer.first(std::max<std::size_t>(buffer.size(), 1) - 1));

    const std::wstring_view whole = text.View();
    if (buffer.empty())
        return whole.size();
    const std::size_t length = std::min(whole.size(), buffer.size() - 1);
    if (whole.data() != buffer.data())
        std::copy_n(whole.data(), length, buffer.data());
    buffer[length] = L'\0';
    return whole.size();
}
