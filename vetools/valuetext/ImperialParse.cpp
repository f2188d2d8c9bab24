#include "vetools/valuetext/ImperialParse.h"

#include <cstddef>
#include <cstdint>
#include <optional>

#include "vetools/framework/NumberText.h"
#include "vetools/util/TextCursor.h"

namespace
{

constexpr std::size_t c_maximumNumbers = 4;

/// What stands before, between and behind the numbers.
enum class Mark
{
    None,
    Foot,      // '
    FootDash,  // '-
    Dash,      // -
    Inch,      // "
    Slash,     // /
    Other,
};

/// marks[0] stands before the first number, marks[i] behind the i-th. What lies behind the count is not set.
struct NumbersAndMarks
{
    std::size_t count;
    double numbers[c_maximumNumbers];
    Mark marks[c_maximumNumbers + 1];
};

/// Whole numbers with so many digits fit 64 bits and are doubles exactly.
constexpr std::size_t c_exactDigits = 15;

bool IsOfNumber(wchar_t character, wchar_t separator)
{
    return TextCursor::IsDigit(character) || character == separator;
}

/// Takes a number from the front of the text. Most are short and whole, and need no reader of decimals.
double TakeNumber(std::wstring_view& text, wchar_t separator)
{
    std::uint64_t whole = 0;
    std::size_t length = 0;
    for (; length < text.size() && TextCursor::IsDigit(text[length]); ++length)
        whole = whole * 10 + static_cast<std::uint64_t>(text[length] - L'0');
    const bool isWhole = length == text.size() || text[length] != separator;
    while (length < text.size() && IsOfNumber(text[length], separator))
        ++length;

    const std::wstring_view number = text.substr(0, length);
    text.remove_prefix(length);
    if (isWhole && length <= c_exactDigits)
        return static_cast<double>(static_cast<std::int64_t>(whole));
    return ReadDouble(number);
}

Mark MarkOf(wchar_t character)
{
    switch (character)
    {
    case L'\'':
        return Mark::Foot;
    case L'-':
        return Mark::Dash;
    case L'"':
        return Mark::Inch;
    case L'/':
        return Mark::Slash;
    default:
        return Mark::Other;
    }
}

/// Takes everything before the next number. A mark ends at its first blank or tab.
Mark TakeMark(std::wstring_view& text, wchar_t separator)
{
    Mark mark = Mark::None;
    bool ended = false;
    std::size_t length = 0;
    for (; length < text.size() && !IsOfNumber(text[length], separator); ++length)
    {
        const wchar_t character = text[length];
        ended |= character == L' ' || character == L'\t';
        if (ended)
            continue;
        if (length == 0)
            mark = MarkOf(character);
        else if (length == 1 && mark == Mark::Foot && character == L'-')
            mark = Mark::FootDash;
        else
            mark = Mark::Other;
    }
    text.remove_prefix(length);
    return mark;
}

/// A '-' that is the whole leading mark is the sign.
Mark TakeLeadingMark(std::wstring_view& text, wchar_t separator)
{
    const std::size_t before = text.size();
    const Mark mark = TakeMark(text, separator);
    const bool isSign = mark == Mark::Dash && before - text.size() == 1;
    return isSign ? Mark::None : mark;
}

/// False for a text with no number or a fifth one.
bool Split(std::wstring_view text, wchar_t separator, NumbersAndMarks& parts)
{
    parts.count = 0;
    parts.marks[0] = TakeLeadingMark(text, separator);
    while (!text.empty())
    {
        if (parts.count == c_maximumNumbers)
            return false;
        parts.numbers[parts.count++] = TakeNumber(text, separator);
        parts.marks[parts.count] = TakeMark(text, separator);
    }
    return parts.count != 0;
}

bool StandsBehindFeet(Mark mark)
{
    return mark == Mark::FootDash || mark == Mark::Foot || mark == Mark::Dash;
}

bool StandsAtTheEnd(Mark mark)
{
    return mark == Mark::None || mark == Mark::Inch;
}

// The four shapes. Each yields inches, or nothing when the marks do not fit.

/// 3'   4"   4
std::optional<double> OneNumber(const NumbersAndMarks& parts)
{
    if (parts.marks[1] == Mark::Foot)
        return parts.numbers[0] * c_inchesPerFoot;
    if (StandsAtTheEnd(parts.marks[1]))
        return parts.numbers[0];
    return std::nullopt;
}

/// 1/2"   3'-4"
std::optional<double> TwoNumbers(const NumbersAndMarks& parts)
{
    if (!StandsAtTheEnd(parts.marks[2]))
        return std::nullopt;
    if (parts.marks[1] == Mark::Slash)
        return parts.numbers[0] / parts.numbers[1];
    if (StandsBehindFeet(parts.marks[1]))
        return parts.numbers[0] * c_inchesPerFoot + parts.numbers[1];
    return std::nullopt;
}

/// 4 1/2"   3'-1/2"
std::optional<double> ThreeNumbers(const NumbersAndMarks& parts)
{
    if (parts.marks[2] != Mark::Slash || !StandsAtTheEnd(parts.marks[3]))
        return std::nullopt;
    if (parts.marks[1] == Mark::None)
        return parts.numbers[1] / parts.numbers[2] + parts.numbers[0];
    if (StandsBehindFeet(parts.marks[1]))
        return parts.numbers[1] / parts.numbers[2] + parts.numbers[0] * c_inchesPerFoot;
    return std::nullopt;
}

/// 3'-4 1/2"
std::optional<double> FourNumbers(const NumbersAndMarks& parts)
{
    if (!StandsBehindFeet(parts.marks[1]) || parts.marks[2] != Mark::None || parts.marks[3] != Mark::Slash ||
        !StandsAtTheEnd(parts.marks[4]))
        return std::nullopt;
    return parts.numbers[0] * c_inchesPerFoot + parts.numbers[1] + parts.numbers[2] / parts.numbers[3];
}

std::optional<double> ReadInches(std::wstring_view text, wchar_t separator)
{
    NumbersAndMarks parts;
    if (!Split(text, separator, parts) || parts.marks[0] != Mark::None)
        return std::nullopt;
    switch (parts.count)
    {
    case 1:
        return OneNumber(parts);
    case 2:
        return TwoNumbers(parts);
    case 3:
        return ThreeNumbers(parts);
    default:
        return FourNumbers(parts);
    }
}

/// A decimal number is inches, or feet when a foot mark stands anywhere in the text.
double ReadDecimal(std::wstring_view text, LengthIn in, bool negative)
{
    const bool feet = text.find(L'\'') != std::wstring_view::npos;
    double value = ReadDouble(text);
    if (in == LengthIn::Inches && feet)
        value *= c_inchesPerFoot;
    if (in == LengthIn::Feet && !feet)
        value /= c_inchesPerFoot;
    // Kept: the number has its sign already, so a negative text becomes positive.
    return negative ? value * -1.0 : value;
}

bool IsImperialFormat(Unit::enumUNITFORMAT format)
{
    return format == Unit::UNITFORMAT_FEET_INCHES || format == Unit::UNITFORMAT_FRACTION;
}

}  // namespace

bool ReadImperialText(std::wstring_view text, double& value, LengthIn in, wchar_t separator,
                      Unit::enumUNITFORMAT format)
{
    // Kept: only a '-' at the very start is seen.
    const bool negative = text.starts_with(L'-');
    if (!IsImperialFormat(format) && text.find(L'.') != std::wstring_view::npos)
    {
        value = ReadDecimal(text, in, negative);
        return true;
    }

    value = 0.0;
    const std::optional<double> inches = ReadInches(text, separator);
    if (!inches)
        return false;
    value = in == LengthIn::Feet ? *inches / c_inchesPerFoot : *inches;
    if (negative)
        value = -value;
    return true;
}
