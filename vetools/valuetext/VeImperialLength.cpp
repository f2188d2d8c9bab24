#include "vetools/valuetext/VeImperialLength.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

#include "vetools/framework/NumberText.h"
#include "vetools/framework/SaturatingInt.h"
#include "vetools/units/ImperialFactors.h"
#include "vetools/units/VeUnitBase.h"
#include "vetools/valuetext/ImperialFormat.h"
#include "vetools/valuetext/ImperialParse.h"
#include "vetools/valuetext/ImperialParts.h"

namespace
{

using ImperialRecord = CVeImperialLength::tagIMPERIAL_LENGTH_UNIT;
using ImperialType = CVeImperialLength::enumIMPERIAL_LENGTH_TYPE;

/// A new array of text has at least this many characters.
constexpr std::size_t c_newTextSize = 25;

double PowerOfTwo(int exponent)
{
    return std::ldexp(1.0, exponent);
}

/// Whole units of a length in metres, and the metres that are left.
int TakeWhole(double m, double unitsPerMetre, double& rest)
{
    const double units = m * unitsPerMetre;
    const int whole = TruncateToInt(units);
    rest = (units - whole) / unitsPerMetre;
    return whole;
}

/// The absolute value; the smallest int, which has none, gives the largest.
int Magnitude(int value)
{
    return value == std::numeric_limits<int>::min() ? std::numeric_limits<int>::max() : std::abs(value);
}

bool HasBreakdown(ImperialType type)
{
    return type == CVeImperialLength::IMPERIAL_INCHES || type == CVeImperialLength::IMPERIAL_FEET_INCHES;
}

FirstNumber FirstNumberOf(ImperialType type)
{
    if (type == CVeImperialLength::IMPERIAL_FEET_INCHES)
        return FirstNumber::Feet;
    return type == CVeImperialLength::IMPERIAL_INCHES ? FirstNumber::Inches : FirstNumber::Nothing;
}

std::wstring_view ViewOf(const wchar_t* text)
{
    return text ? std::wstring_view(text) : std::wstring_view();
}

/// Writes the length with its terminator into a buffer of c_imperialTextCapacity characters and returns the number of
/// characters before the terminator; type is one that has a breakdown.
std::size_t WriteDecimalText(wchar_t* out, double m, int precision, ImperialType type)
{
    const ImperialRecord unit = CVeImperialLength::Meter2Imperial(m, precision, type);
    wchar_t* end = out;
    if (m < 0)
        *end++ = L'-';
    if (type == CVeImperialLength::IMPERIAL_FEET_INCHES)
    {
        end = WriteInteger(end, unit.feet);
        *end++ = L'\'';
        *end++ = L'-';
    }
    end =
        WriteFixed(end, unit.inches + unit.remainderInches, std::min(precision, static_cast<int>(c_imperialDecimals)));
    *end++ = L'"';
    *end = L'\0';
    return static_cast<std::size_t>(end - out);
}

}  // namespace

CVeImperialLength::~CVeImperialLength() = default;

int CVeImperialLength::Meter2Feet(double m, double& rest)
{
    return TakeWhole(m, c_feetPerMetre, rest);
}

void CVeImperialLength::Meter2Feet(double m, double& rest, int& feet)
{
    feet = Meter2Feet(m, rest);
}

int CVeImperialLength::Meter2Inches(double m, double& rest)
{
    return TakeWhole(m, c_inchesPerMetre, rest);
}

void CVeImperialLength::Meter2Inches(double m, double& rest, int& inches)
{
    inches = Meter2Inches(m, rest);
}

int CVeImperialLength::Meter2Fractions(double m, int precision, double& rest)
{
    const double fractionsPerMetre = PowerOfTwo(precision) * c_inchesPerMetre;
    const double fractions = fractionsPerMetre * m;
    rest = (fractions - std::trunc(fractions)) / fractionsPerMetre;
    return TruncateToInt(fractions > 0 ? fractions + 0.5 : fractions - 0.5);
}

void CVeImperialLength::Meter2Fractions(double m, int precision, double& rest, int& fractions)
{
    fractions = Meter2Fractions(m, precision, rest);
}

double CVeImperialLength::Meter2Fractions(double m, double& rest)
{
    rest = m - (m * c_inchesPerMetre) / c_inchesPerMetre;
    return rest;
}

ImperialRecord CVeImperialLength::Meter2Imperial(double m, int, enumIMPERIAL_LENGTH_TYPE type)
{
    ImperialRecord unit{};
    unit.positive = m >= 0;
    if (!HasBreakdown(type))
    {
        unit.remainderInches = std::fabs(m * c_inchesPerMetre);
        return unit;
    }
    double rest = m;
    if (type == IMPERIAL_FEET_INCHES)
    {
        const double feet = m * c_feetPerMetre;
        unit.feet = Magnitude(TruncateToInt(feet));
        rest = (feet - std::trunc(feet)) / c_feetPerMetre;
    }
    const double inches = rest * c_inchesPerMetre;
    unit.inches = Magnitude(TruncateToInt(inches));
    unit.remainderInches = std::fabs(inches - std::trunc(inches));
    return unit;
}

void CVeImperialLength::Meter2Imperial(double m, int precision, enumIMPERIAL_LENGTH_TYPE type,
                                       tagIMPERIAL_LENGTH_UNIT& unit)
{
    unit = Meter2Imperial(m, precision, type);
}

void CVeImperialLength::Meter2Imperial(double m, int precision, enumIMPERIAL_LENGTH_TYPE type, int& feet, int& inches,
                                       int& fraction)
{
    const ImperialRecord unit = Meter2Imperial(m, precision, type);
    feet = unit.feet;
    inches = unit.inches;
    fraction = unit.fractionNumerator;
}

double CVeImperialLength::Feet2Meter(int feet)
{
    return feet / c_feetPerMetre;
}

void CVeImperialLength::Feet2Meter(int feet, double& m)
{
    m = Feet2Meter(feet);
}

double CVeImperialLength::Inches2Meter(int inches)
{
    return inches / c_inchesPerMetre;
}

void CVeImperialLength::Inches2Meter(int inches, double& m)
{
    m = Inches2Meter(inches);
}

double CVeImperialLength::Fractions2Meter(int numerator, int precision)
{
    return numerator / c_inchesPerMetre / PowerOfTwo(precision);
}

void CVeImperialLength::Fractions2Meter(int numerator, int precision, double& m)
{
    m = Fractions2Meter(numerator, precision);
}

double CVeImperialLength::Imperial2Meter(const tagIMPERIAL_LENGTH_UNIT& unit, int precision)
{
    const double m = Imperial2Meter(unit.feet, unit.inches, unit.fractionNumerator, precision);
    return unit.positive ? m : -m;
}

void CVeImperialLength::Imperial2Meter(const tagIMPERIAL_LENGTH_UNIT& unit, int precision, double& m)
{
    m = Imperial2Meter(unit, precision);
}

double CVeImperialLength::Imperial2Meter(int feet, int inches, int numerator, int precision)
{
    return Fractions2Meter(numerator, precision) + (Feet2Meter(feet) + Inches2Meter(inches));
}

void CVeImperialLength::Imperial2Meter(int feet, int inches, int numerator, int precision, double& m)
{
    m = Imperial2Meter(feet, inches, numerator, precision);
}

bool CVeImperialLength::ImperialStr2Imperial(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, bool& positive,
                                             int& feet, int& inches, int& numerator, int& denominatorPower)
{
    ImperialParts parts;
    const bool understood = ReadImperialParts(ViewOf(text), FirstNumberOf(type), parts);
    positive = parts.positive;
    feet = parts.feet;
    inches = parts.inches;
    numerator = parts.numerator;
    denominatorPower = parts.denominatorPower;
    return understood;
}

bool CVeImperialLength::ImperialStr2Imperial(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type,
                                             tagIMPERIAL_LENGTH_UNIT& unit, int& denominatorPower)
{
    return ImperialStr2Imperial(text, type, unit.positive, unit.feet, unit.inches, unit.fractionNumerator,
                                denominatorPower);
}

bool CVeImperialLength::ImperialStr2Meter(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, double& m)
{
    ImperialRecord unit{};
    int denominatorPower = 0;
    const bool understood = ImperialStr2Imperial(text, type, unit, denominatorPower);
    m = Imperial2Meter(unit, denominatorPower);
    return understood;
}

bool CVeImperialLength::ImperialStr2Feet(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, double& feet)
{
    const bool understood = ImperialStr2Meter(text, type, feet);
    feet *= c_feetPerMetre;
    return understood;
}

bool CVeImperialLength::ImperialStr2Inches(const wchar_t* text, enumIMPERIAL_LENGTH_TYPE type, double& inches)
{
    const bool understood = ImperialStr2Meter(text, type, inches);
    inches *= c_inchesPerMetre;
    return understood;
}

bool CVeImperialLength::ImperialStr2Value(const wchar_t* text, const CVeUnitBase& unit, double& value)
{
    if (unit.GetType() != Unit::UNIT_TYPE_IMPERIAL)
        return false;
    // Kept: a fraction is always dropped.
    const std::wstring_view whole = ViewOf(text);
    const std::wstring_view shortened = whole.substr(0, whole.find_first_of(L"*+/"));
    const LengthIn in = unit.GetRange() == IMPERIAL_INCHES ? LengthIn::Inches : LengthIn::Feet;
    // Kept: whether the text was understood is not told.
    ReadImperialText(shortened, value, in, unit.GetSep(), unit.GetUnitFormat());
    return true;
}

void CVeImperialLength::Meter2ImperialStr(double m, int precision, enumIMPERIAL_LENGTH_TYPE type, wchar_t** text)
{
    if (!text || !*text || !HasBreakdown(type))
        return;
    wchar_t buffer[c_imperialTextCapacity];
    const std::size_t length = WriteDecimalText(buffer, m, precision, type);
    // The caller has promised a buffer that is large enough.
    std::copy_n(buffer, length + 1, *text);
}

std::size_t CVeImperialLength::Meter2ImperialStr(double m, int precision, enumIMPERIAL_LENGTH_TYPE type,
                                                 std::span<wchar_t> text)
{
    if (!HasBreakdown(type))
        return 0;
    wchar_t buffer[c_imperialTextCapacity];
    const std::size_t length = WriteDecimalText(buffer, m, precision, type);
    if (text.empty())
        return length;
    const std::size_t copied = std::min(length, text.size() - 1);
    std::copy_n(buffer, copied, text.begin());
    text[copied] = L'\0';
    return length;
}

wchar_t* CVeImperialLength::Meter2ImperialStr(double m, int precision, enumIMPERIAL_LENGTH_TYPE type)
{
    wchar_t buffer[c_imperialTextCapacity];
    buffer[0] = L'\0';
    const std::size_t length = HasBreakdown(type) ? WriteDecimalText(buffer, m, precision, type) : 0;
    auto* const text = new wchar_t[std::max(length + 1, c_newTextSize)];
    std::copy_n(buffer, length + 1, text);
    return text;
}
