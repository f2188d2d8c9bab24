#include "vetools/valuetext/ImperialParse.h"

#include <cstddef>
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

/// marks[0] stands before the first number, marks[i] behind the i-th.
struct NumbersAndMarks
{
    std::size_t count = 0;
    std::wstring_view numbers[c_maximumNumbers];
    std::wstring_view marks[c_maximumNumbers + 1];
};

/// Takes characters from the front of the text for as long as they are of a number, or for as long as they are not.
std::wstring_view TakeRun(std::wstring_view& text, wchar_t separator, bool ofNumber)
{
    std::size_t length = 0;
    while (length < text.size() && (TextCursor::IsDigit(text[length]) || text[length] == separator) == ofNumber)
        ++length;
    const std::wstring_view run = text.substr(0, length);
    text.remove_prefix(length);
    return run;
}

/// Nothing for a text with no number or a fifth one.
std::optional<NumbersAndMarks> Split(std::wstring_view text, wchar_t separator)
{
    NumbersAndMarks parts;
    parts.marks[0] = TakeRun(text, separator, false);
    while (!text.empty())
    {
        if (parts.count == c_maximumNumbers)
            return std::nullopt;
        parts.numbers[parts.count++] = TakeRun(text, separator, true);
        parts.marks[parts.count] = TakeRun(text, separator, false);
    }
    if (parts.count == 0)
        return std::nullopt;
    return parts;
}

/// A mark ends at its first blank or tab.
Mark ReadMark(std::wstring_view text)
{
    text = text.substr(0, text.find_first_of(L" \t"));
    if (text.empty())
        return Mark::None;
    if (text.size() == 2 && text[0] == L'\'' && text[1] == L'-')
        return Mark::FootDash;
    if (text.size() != 1)
        return Mark::Other;
    switch (text[0])
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

bool StandsBehindFeet(Mark mark)
{
    return mark == Mark::FootDash || mark == Mark::Foot || mark == Mark::Dash;
}

bool StandsAtTheEnd(Mark mark)
{
    return mark == Mark::None || mark == Mark::Inch;
}

/// The four shapes, by the count of numbers; nothing for marks that fit none. All yield inches.
class Shape
{
public:
    explicit Shape(const NumbersAndMarks& parts)
        : m_parts(parts)
    {
        // A '-' that is the whole leading mark is the sign.
        if (parts.marks[0] != L"-")
            m_marks[0] = ReadMark(parts.marks[0]);
        for (std::size_t i = 1; i <= parts.count; ++i)
            m_marks[i] = ReadMark(parts.marks[i]);
    }

    std::optional<double> Inches() const
    {
        if (m_marks[0] != Mark::None)
            return std::nullopt;
        switch (m_parts.count)
        {
        case 1:
            return OneNumber();
        case 2:
            return TwoNumbers();
        case 3:
            return ThreeNumbers();
        default:
            return FourNumbers();
        }
    }

private:
    double Number(std::size_t index) const { return ReadDouble(m_parts.numbers[index]); }

    /// 3'   4"   4
    std::optional<double> OneNumber() const
    {
        if (m_marks[1] == Mark::Foot)
            return Number(0) * c_inchesPerFoot;
        if (StandsAtTheEnd(m_marks[1]))
            return Number(0);
        return std::nullopt;
    }

    /// 1/2"   3'-4"
    std::optional<double> TwoNumbers() const
    {
        if (!StandsAtTheEnd(m_marks[2]))
            return std::nullopt;
        if (m_marks[1] == Mark::Slash)
            return Number(0) / Number(1);
        if (StandsBehindFeet(m_marks[1]))
            return Number(0) * c_inchesPerFoot + Number(1);
        return std::nullopt;
    }

    /// 4 1/2"   3'-1/2"
    std::optional<double> ThreeNumbers() const
    {
        if (m_marks[2] != Mark::Slash || !StandsAtTheEnd(m_marks[3]))
            return std::nullopt;
        if (m_marks[1] == Mark::None)
            return Number(1) / Number(2) + Number(0);
        if (StandsBehindFeet(m_marks[1]))
            return Number(1) / Number(2) + Number(0) * c_inchesPerFoot;
        return std::nullopt;
    }

    /// 3'-4 1/2"
    std::optional<double> FourNumbers() const
    {
        if (!StandsBehindFeet(m_marks[1]) || m_marks[2] != Mark::None || m_marks[3] != Mark::Slash ||
            !StandsAtTheEnd(m_marks[4]))
            return std::nullopt;
        return Number(0) * c_inchesPerFoot + Number(1) + Number(2) / Number(3);
    }

    const NumbersAndMarks& m_parts;
    Mark m_marks[c_maximumNumbers + 1] = {};
};

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
    const std::optional<NumbersAndMarks> parts = Split(text, separator);
    if (!parts)
        return false;
    const std::optional<double> inches = Shape(*parts).Inches();
    if (!inches)
        return false;
    value = in == LengthIn::Feet ? *inches / c_inchesPerFoot : *inches;
    if (negative)
        value = -value;
    return true;
}
