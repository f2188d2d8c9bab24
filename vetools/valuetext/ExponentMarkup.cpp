#include "vetools/util/VeString.h"

#include <cmath>
#include <string_view>

namespace
{

/// Drawing-text mark-up: the line is centred vertically.
constexpr const wchar_t* c_alignment = L"\\A1;";

/// A number of which the last digits are raised: 12.34 and 5 for 12.345 in metres.
struct RaisedNumber
{
    std::wstring_view number;
    std::wstring_view superscript;
};

/// The decimal logarithm, equal on both builds: their own functions for doubles differ in the last digit.
double DecimalLogarithm(double x)
{
    return static_cast<double>(std::log10(static_cast<long double>(x)));
}

/// Splits a number before the digit of the sub-unit: behind two decimals for a metre with 1000 of them, before the
/// decimals for a centimetre with ten (the separator then goes too). Nothing is raised when the sub-units of a unit are no
/// power of ten or less than ten, or when the text has no separator or no digit to raise.
RaisedNumber SplitSubUnits(std::wstring_view text, double coef, wchar_t separator, double subUnitsPerUnit)
{
    const RaisedNumber whole{text, {}};
    if (coef == 0.0 || !(subUnitsPerUnit / coef > 0.0))
        return whole;
    const double decimals = DecimalLogarithm(subUnitsPerUnit / coef) - 1;
    if (!(decimals >= 0.0) || decimals != std::floor(decimals) || std::isinf(decimals))
        return whole;
    const std::size_t position = text.find(separator);
    if (position == std::wstring_view::npos)
        return whole;

    const std::size_t kept = static_cast<std::size_t>(decimals);  // at most 307
    const std::size_t left = kept > 0 ? position + 1 + kept : position;
    const std::size_t cut = position + 1 + kept;
    if (cut >= text.size() || left == 0)
        return whole;
    return {text.substr(0, left), text.substr(cut)};
}

}  // namespace

bool CVeString::FormatStringWithExponent(CString& text, double coef, wchar_t separator, CString prefix, CString pattern,
                                         CString suffix, double subUnitsPerUnit, bool dropZeroSuperscript)
{
    RaisedNumber parts = SplitSubUnits(text.View(), coef, separator, subUnitsPerUnit);
    if (dropZeroSuperscript && parts.superscript.find_first_not_of(L'0') == std::wstring_view::npos)
        parts.superscript = {};

    CString body(parts.number);
    if (!parts.superscript.empty())
    {
        body += L"{\\H0.6x;\\S";
        body += CString(parts.superscript);
        body += L"^;}";
    }
    body += suffix;

    if (pattern.View().find_first_not_of(L' ') == std::wstring_view::npos)
        pattern.Insert(0, L"<>");
    pattern.Replace(L"<>", body);

    text = prefix;
    text += pattern;
    if (text.Find(c_alignment) < 0)
        text.Insert(0, c_alignment);
    return true;
}
