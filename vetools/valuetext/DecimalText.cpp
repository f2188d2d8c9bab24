#include "vetools/valuetext/DecimalText.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <string_view>

#include "vetools/framework/NumberText.h"
#include "vetools/framework/WideFormat.h"
#include "vetools/platform/Power.h"
#include "vetools/units/UnitCatalogue.h"
#include "vetools/util/VeString.h"

namespace
{

/// A name that holds one of these symbols counts as a length, and the marks are all that must be looked for.
constexpr auto c_lengthSymbols = std::span(CatalogueRows::c_length).first<7>();
constexpr wchar_t c_lengthMarks[] = L"m\"'";

/// Each symbol holds one of the marks, and each mark is itself a symbol.
constexpr bool MarksDecide()
{
    const auto holdsMark = [](const UnitRow& unit)
    {
        return unit.symbol.find_first_of(c_lengthMarks) != unit.symbol.npos;
    };
    const auto isSymbol = [](const wchar_t& mark)
    {
        return std::ranges::find(c_lengthSymbols, std::wstring_view(&mark, 1), &UnitRow::symbol) !=
               c_lengthSymbols.end();
    };
    return std::ranges::all_of(c_lengthSymbols, holdsMark) &&
           std::ranges::all_of(std::wstring_view(c_lengthMarks), isSymbol);
}
static_assert(MarksDecide());

/// The rounding step of each precision whose power of ten is exact; 1/100 is the one of precision 2. The last power lies
/// half way between two doubles, and is the upper one on both builds.
constexpr double c_roundingSteps[] = {
    1 / 1e0,  1 / 1e1,  1 / 1e2,  1 / 1e3,  1 / 1e4,  1 / 1e5,  1 / 1e6,  1 / 1e7,
    1 / 1e8,  1 / 1e9,  1 / 1e10, 1 / 1e11, 1 / 1e12, 1 / 1e13, 1 / 1e14, 1 / 1e15,
    1 / 1e16, 1 / 1e17, 1 / 1e18, 1 / 1e19, 1 / 1e20, 1 / 1e21, 1 / 1e22, 1 / 1.0000000000000001e23,
};

/// 0 from precision 309 on: the quotient by it is then infinite or no number, and so is the rounded value.
double RoundingStep(unsigned int precision)
{
    return precision < std::size(c_roundingSteps) ? c_roundingSteps[precision] : 1 / Power(10.0, precision);
}

/// Where the digits of a rounded value are those of its number of steps. The step is the power of ten but for half of its
/// last bit, and so are the product and the sum that make the value of it: together they are less than a quarter of a step
/// from the exact decimal, and printing that many decimals finds it. The sign is the number's; zero steps are +0.0.
constexpr unsigned int c_countedPrecision = 22;
constexpr double c_countedSteps = 281474976710656.0;  // 2^48

/// Metres: a shorter length is shown as zero at a precision that is too small for it.
constexpr double c_shortestShownLength = 0.001;
constexpr double c_smallValueThresholds[] = {0.1, 0.01, 0.001, 0.0001, 0.00001, 0.000001};
constexpr double c_squareOfZero = 1e-20;  // squares up to here are those of zero
constexpr double c_millimetresPerMetre = 1000.0;

double Tolerance(double x)
{
    return std::abs(x) * 1e-10 + 1e-10;
}

/// Whether a value is written with an exponent: nearer to zero than the threshold, but not zero.
bool IsSmall(double value, int thresholdIndex)
{
    if (thresholdIndex < 0 || thresholdIndex >= std::ssize(c_smallValueThresholds))
        return false;
    const double threshold = c_smallValueThresholds[thresholdIndex];
    return value < threshold - Tolerance(threshold) && value * value > c_squareOfZero &&
           value - Tolerance(value) > -threshold;
}

/// What the formatter takes a larger precision for.
constexpr int c_largestPrecision = 65535;

/// A precision as "%.*f" receives it: beyond the int range it is negative, which counts as 6.
int PrintedPrecision(unsigned int precision)
{
    return std::min(static_cast<int>(precision), c_largestPrecision);
}

/// L"%.*f" and L"%.*lf", which need no interpretation.
bool IsPlainFixed(const wchar_t* format)
{
    if (format[0] != L'%' || format[1] != L'.' || format[2] != L'*')
        return false;
    const wchar_t* conversion = format[3] == L'l' ? format + 4 : format + 3;
    return conversion[0] == L'f' && conversion[1] == L'\0';
}

void WriteSmallNumber(TextBuffer& text, double value, unsigned int precision)
{
    const int printed = PrintedPrecision(precision);
    text.SetEnd(WriteExponent(text.Overwrite(ExponentTextCapacity(printed)), value, printed));
}

/// 12.500 -> 12.5, 12.000 -> 12. Kept: nothing goes unless the text holds the unit's own separator, and numbers are
/// printed with a full stop.
void StripTrailingZeros(TextBuffer& text, wchar_t separator)
{
    std::wstring_view kept = text.View();
    if (kept.find(separator) == std::wstring_view::npos)
        return;
    while (!kept.empty() && kept.back() == L'0')
        kept.remove_suffix(1);
    if (!kept.empty() && kept.back() == separator)
        kept.remove_suffix(1);
    text.Truncate(kept.size());
}

/// Infinities read INF and -INF, and the indefinite result of arithmetic (0/0) as well; other NaNs stay as printed.
void NameInfinity(TextBuffer& text, double value)
{
    wchar_t printed[FixedTextCapacity(6)];
    const std::wstring_view number(printed, WriteFixed(printed, value, 6));
    if (number == L"1.#INF00" || number == L"1.#IND00")
        text.Assign(L"INF");
    else if (number == L"-1.#INF00" || number == L"-1.#IND00")  // Kept: the sign of the indefinite makes it -INF
        text.Assign(L"-INF");
}

}  // namespace

double MetricsFactorToThe(int exponent, double metricsFactor)
{
    if (exponent == 1)
        return metricsFactor;
    return exponent == 2 ? metricsFactor * metricsFactor : Power(metricsFactor, exponent);
}

DecimalText::DecimalText(const CVeUnitBase& unit, const ValueTextOptions& options)
    : m_unit(unit)
    , m_options(options)
{
    for (; unit.Name[m_nameLength] != L'\0'; ++m_nameLength)
    {
        const wchar_t character = unit.Name[m_nameLength];
        m_markedName |= character == L'"' || character == L'\'';
        m_lengthName |= m_markedName || character == L'm';
    }
}

void DecimalText::WriteNumber(TextBuffer& text, const wchar_t* format, const Number& number)
{
    const int precision = PrintedPrecision(number.precision);
    if (format != nullptr && !IsPlainFixed(format))
    {
        const CString formatted = FormatWide(format, static_cast<int>(number.precision), number.value);
        text.Assign(formatted.GetString());  // up to a NUL that the format may print, as far as any copy of it goes
        return;
    }
    if (number.steps)
        text.SetEnd(WriteUnits(text.Overwrite(UnitsTextCapacity(precision)), *number.steps, precision));
    else
        text.SetEnd(WriteFixed(text.Overwrite(FixedTextCapacity(number.value, precision)), number.value, precision));
}

void DecimalText::Write(TextBuffer& text, double value, const wchar_t* format, const CallerBuffer& buffer,
                        std::span<wchar_t> room) const
{
    const Number number = ShownNumber(value);
    const bool isRewritten = IsRewritten(number.value);
    if (!isRewritten)
        text.BeginIn(room);
    WriteNumber(text, format, number);
    if (isRewritten)
        buffer.CopyOut(text.View());

    if (m_options.removeTrailingZeros)
        StripTrailingZeros(text, m_unit.Sep);
    if (m_options.smallValuesAsExponent)
    {
        if (IsSmall(number.value, m_options.smallValueThreshold))
            WriteSmallNumber(text, number.value, m_unit.Precision);
        buffer.CopyOut(text.View());
    }
    if (m_options.superscriptSubUnits && m_lengthName && m_unit.UnitType == Unit::UNIT_TYPE_METRIC)
        RaiseSubUnits(text);
    if (!std::isfinite(number.value))
        NameInfinity(text, number.value);

    const std::size_t numberLength = text.View().size();
    if (m_options.withUnit && buffer.TakesCopies())
        AppendName(text);
    buffer.CopyCertainly(text.View(), numberLength);  // Kept: the number is written whole, whatever the size
}

/// Whether the number as it was printed first may be longer than what replaces it: the buffer then shows a rest of it.
bool DecimalText::IsRewritten(double shown) const
{
    return m_options.removeTrailingZeros || m_options.smallValuesAsExponent || m_options.superscriptSubUnits ||
           !std::isfinite(shown);
}

DecimalText::Number DecimalText::ShownNumber(double value) const
{
    double shown = Scaled(value);
    if (m_options.temperatureOffset)
    {
        const double offset = OffsetAfterScaling(m_unit.IdUnit, m_unit.Range);
        if (offset != 0.0)  // adding 0.0 would lose the sign of a negative zero
            shown = shown + offset;
    }
    return m_lengthName ? Rounded(shown) : Number{shown, m_unit.Precision};
}

double DecimalText::Scaled(double value) const
{
    const double scaled = value * m_unit.Coef;
    if (!m_options.applyMetricsFactor || !WritesWithMetricsFactor(m_unit.IdUnit))
        return scaled;
    return scaled / MetricsFactorToThe(m_unit.Exponent, m_unit.MetricsFactor);
}

/// Rounds a length to a multiple of the step of its precision. Kept: up from about 1 % of a step below the midpoint,
/// and towards +infinity for negative values: -0.005 becomes 0.00 at precision 2.
DecimalText::Number DecimalText::Rounded(double shown) const
{
    const double step = RoundingStep(m_unit.Precision);
    const double steps = std::floor(shown / step);
    const double base = steps * step;
    const double remainder = shown - base;
    if (steps == 0.0)
    {
        if (remainder / m_unit.Coef < c_shortestShownLength && m_unit.IdUnit != Unit::UNIT_ID_LENGTH_12)
            return {0.0, m_unit.Precision};
        return {shown, PrecisionOfSmallLength(shown)};
    }
    const double half = step * 0.5;
    const double tolerance = std::abs(half) * (step * 0.01) + step * 0.01;
    // Up or down is chance: no branch. The base is not zero, so adding 0.0 leaves it as it is.
    const bool up = remainder >= half - tolerance;
    Number rounded{base + (up ? step : 0.0), m_unit.Precision};
    if (m_unit.Precision <= c_countedPrecision && std::abs(steps) <= c_countedSteps)
        rounded.steps = static_cast<std::int64_t>(steps) + (up ? 1 : 0);
    return rounded;
}

/// The decimals up to the first significant one, for a length smaller than the step: 4 for 0.00052. Kept: the unit's own
/// precision when the separator is not the full stop of the printed number, or all twelve decimals are zero.
unsigned int DecimalText::PrecisionOfSmallLength(double shown) const
{
    wchar_t printed[FixedTextCapacity(12)];
    const std::wstring_view number(printed, WriteFixed(printed, shown, 12));
    const std::size_t separator = number.find(m_unit.Sep);
    if (separator == std::wstring_view::npos)
        return m_unit.Precision;
    const std::size_t significant = number.find_first_not_of(L'0', separator + 1);
    return significant == std::wstring_view::npos ? m_unit.Precision
                                                  : static_cast<unsigned int>(significant - separator);
}

void DecimalText::RaiseSubUnits(TextBuffer& text) const
{
    CString markup(text.View());
    CVeString::FormatStringWithExponent(markup, m_unit.Coef, m_unit.Sep, L"", L"<>", L"", c_millimetresPerMetre,
                                        m_options.dropZeroSuperscript);
    text.Assign(markup.View());
}

/// Kept: imperial areas and volumes read "sq in" and "cu in" whatever the unit's own name.
void DecimalText::AppendName(TextBuffer& text) const
{
    if (m_nameLength == 0)
        return;
    text.AppendShort(L" ", 1);
    if (m_unit.UnitType == Unit::UNIT_TYPE_IMPERIAL && m_unit.Exponent == 2)
        text.Append(L"sq in");
    else if (m_unit.UnitType == Unit::UNIT_TYPE_IMPERIAL && m_unit.Exponent == 3)
        text.Append(L"cu in");
    else if (m_markedName)
        text.Append(m_unit.GetName().View());
    else
        text.AppendShort(m_unit.Name, m_nameLength);  // the display name differs only where it holds marks
}
