#include "vetools/platform/posix/VariantText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

#include <unicode/uchar.h>

namespace
{

constexpr wchar_t c_currency = L'$';
constexpr wchar_t c_groupSeparator = L',';
constexpr wchar_t c_decimalPoint = L'.';

bool IsSpace(wchar_t character)
{
    return u_isUWhiteSpace(static_cast<UChar32>(character)) != 0;
}

bool IsDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

/// The value of a digit of any base up to 16; more than that for other characters.
unsigned DigitValue(wchar_t character)
{
    if (IsDigit(character))
        return static_cast<unsigned>(character - L'0');
    const wchar_t lower = character | 0x20;
    return lower >= L'a' && lower <= L'f' ? static_cast<unsigned>(lower - L'a' + 10) : 99;
}

/// Reads a number from its first mark to its last.
class NumberTextReader
{
public:
    explicit NumberTextReader(std::wstring_view text)
        : m_rest(text)
    {
    }

    NumberTextError Read(Number& number)
    {
        ConsumeLeadingMarks();
        if (m_rest.size() > 1 && m_rest[0] == L'&' && !m_hasCurrency)
            return ReadBits(number);

        DigitNumber& digits = number.emplace<DigitNumber>();
        if (!ConsumeDigits(digits) || !ConsumeExponent(digits) || !ConsumeTrailingMarks(Marks::OfDecimals))
            return NumberTextError::NoNumber;
        digits.negative = m_isNegative;
        return NumberTextError::None;
    }

private:
    /// Hexadecimal and octal digits have neither commas nor currency behind them.
    enum class Marks
    {
        OfDecimals,
        OfBits
    };

    bool Consume(wchar_t character)
    {
        if (m_rest.empty() || m_rest.front() != character)
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    bool ConsumeOnce(wchar_t character, bool& flag)
    {
        if (flag || !Consume(character))
            return false;
        flag = true;
        return true;
    }

    void ConsumeCommas()
    {
        while (Consume(c_groupSeparator))
        {
        }
    }

    bool ConsumeSpace()
    {
        if (m_rest.empty() || !IsSpace(m_rest.front()))
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    /// " $ (" and the like: each mark once, in any order.
    void ConsumeLeadingMarks()
    {
        while (ConsumeSpace() || ConsumeOnce(L'-', m_hasMinus) || ConsumeOnce(L'+', m_hasPlus) ||
               ConsumeOnce(c_currency, m_hasCurrency) || ConsumeOnce(L'(', m_hasParenthesis))
        {
        }
        m_isNegative = m_hasMinus;
    }

    /// A minus sign where there is none in front, or the end of a parenthesis.
    bool ConsumeTrailingNegation()
    {
        if ((m_hasMinus || !Consume(L'-')) && (!m_hasParenthesis || !Consume(L')')))
            return false;
        m_isNegative = true;
        return true;
    }

    /// Each mark as often as it likes, but a sign stands on one side only. Takes the rest of the text. Whatever negates the
    /// number closes its parenthesis: "(12-", as Windows reads it.
    bool ConsumeTrailingMarks(Marks marks)
    {
        const bool isDecimal = marks == Marks::OfDecimals;
        while (ConsumeSpace() || (!m_hasPlus && Consume(L'+')) || ConsumeTrailingNegation() ||
               (isDecimal && (Consume(c_groupSeparator) || Consume(c_currency))))
        {
        }
        return m_rest.empty() && (m_isNegative || !m_hasParenthesis);
    }

    /// Whether there is a digit: "1,234.5", ".5", "5.".
    bool ConsumeDigits(DigitNumber& number)
    {
        bool hasDigit = false;
        bool hasPoint = false;
        for (;; m_rest.remove_prefix(1))
        {
            const wchar_t character = m_rest.empty() ? L'\0' : m_rest.front();
            if (IsDigit(character))
            {
                Append(number, static_cast<char>(character), hasPoint);
                hasDigit = true;
            }
            else if (character == c_decimalPoint && !hasPoint)
                hasPoint = true;
            else if (character != c_groupSeparator || !(hasDigit || hasPoint))
                return hasDigit;
        }
    }

    /// Counts a digit that is not kept, or a zero in front of all digits, in the exponent.
    static void Append(DigitNumber& number, char digit, bool isDecimal)
    {
        if (isDecimal)
            --number.exponent;
        if (number.count == 0 && digit == '0')
            return;
        if (number.count < DigitNumber::c_capacity)
        {
            number.digits[number.count++] = digit;
            return;
        }
        ++number.exponent;
        number.hasMore = number.hasMore || digit != '0';
    }

    /// Nothing at all, or e, a sign and at least one digit; commas may stand in front of sign and digits. An exponent beyond
    /// every double is as good as any other.
    bool ConsumeExponent(DigitNumber& number)
    {
        constexpr std::int64_t c_largest = std::numeric_limits<std::int32_t>::max();
        if (!Consume(L'e') && !Consume(L'E'))
            return true;
        ConsumeCommas();
        const bool isNegative = Consume(L'-');
        if (!isNegative)
            Consume(L'+');
        ConsumeCommas();
        if (m_hasCurrency || m_rest.empty() || !IsDigit(m_rest.front()))
            return false;
        std::int64_t exponent = 0;
        for (; !m_rest.empty() && IsDigit(m_rest.front()); m_rest.remove_prefix(1))
            exponent = std::min(exponent * 10 + (m_rest.front() - L'0'), c_largest);
        number.exponent += isNegative ? -exponent : exponent;
        return true;
    }

    /// "&HFF", "&O17". A sign has no say.
    NumberTextError ReadBits(Number& number)
    {
        const wchar_t letter = m_rest[1] | 0x20;
        if (letter != L'h' && letter != L'o')
            return NumberTextError::NoNumber;
        m_rest.remove_prefix(2);
        const unsigned bitsPerDigit = letter == L'h' ? 4 : 3;

        std::uint64_t bits = 0;
        bool isTooLarge = false;
        bool hasDigit = false;
        for (; !m_rest.empty() && DigitValue(m_rest.front()) < (1u << bitsPerDigit); m_rest.remove_prefix(1))
        {
            isTooLarge = isTooLarge || (bits >> (64 - bitsPerDigit)) != 0;
            bits = (bits << bitsPerDigit) | DigitValue(m_rest.front());
            hasDigit = true;
        }
        if (!hasDigit || !ConsumeTrailingMarks(Marks::OfBits))
            return NumberTextError::NoNumber;
        number = BitNumber{bits};
        return isTooLarge ? NumberTextError::TooLarge : NumberTextError::None;
    }

    std::wstring_view m_rest;
    bool m_isNegative = false;
    bool m_hasMinus = false;
    bool m_hasPlus = false;
    bool m_hasCurrency = false;
    bool m_hasParenthesis = false;
};

wchar_t* WriteAscii(wchar_t* text, std::string_view ascii)
{
    return std::copy(ascii.begin(), ascii.end(), text);
}

bool EqualsIgnoringCase(std::wstring_view text, std::string_view lowerCase)
{
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                      [](wchar_t left, char right)
                      { return (left >= L'A' && left <= L'Z' ? left | 0x20 : left) == right; });
}

/// The number itself, or, when it lies just between two numbers of that many digits, the next double away from zero: what
/// is rounded to even here goes away from zero on Windows.
double WithTieAwayFromZero(double value, int digits)
{
    // Longer than any tie, whose digits end with the 5 behind the last one: d.ddddde+ddd
    constexpr int c_moreDigits = 24;
    char ascii[c_maxNumberText];
    const auto end = std::to_chars(ascii, ascii + sizeof ascii, std::fabs(value), std::chars_format::scientific,
                                   digits + c_moreDigits)
                         .ptr;
    const std::string_view rest = std::string_view(ascii, end).substr(digits + 1);
    const bool isTie = rest.front() == '5' && rest.find_first_not_of('0', 1) == rest.find('e');
    return isTie ? std::nextafter(value, std::copysign(std::numeric_limits<double>::infinity(), value)) : value;
}

}  // namespace

wchar_t* WriteNumberText(wchar_t* text, const ScaledNumber& number)
{
    Magnitude magnitude = number.magnitude;
    int scale = number.scale;
    for (; scale > 0 && magnitude % 10 == 0; --scale)
        magnitude /= 10;

    // Backwards: decimals, point, at least one digit, sign.
    char digits[c_maxNumberText];
    char* first = digits + sizeof digits;
    for (int written = 0; magnitude != 0 || written <= scale; ++written)
    {
        if (written == scale && scale > 0)
            *--first = '.';
        *--first = static_cast<char>('0' + static_cast<int>(magnitude % 10));
        magnitude /= 10;
    }
    if (number.negative && number.magnitude != 0)
        *--first = '-';
    return WriteAscii(text, {first, digits + sizeof digits});
}

wchar_t* WriteNumberText(wchar_t* text, double value, int digits)
{
    if (std::isnan(value))
        return WriteAscii(text, "NAN");
    if (std::isinf(value))
        return WriteAscii(text, value < 0 ? "-INF" : "INF");
    if (value == 0.0)
        return WriteAscii(text, "0");

    char ascii[c_maxNumberText];
    const double number = WithTieAwayFromZero(value, digits);
    const auto end = std::to_chars(ascii, ascii + sizeof ascii, number, std::chars_format::general, digits).ptr;
    std::replace(ascii, end, 'e', 'E');
    return WriteAscii(text, {ascii, end});
}

NumberTextError ReadNumberText(std::wstring_view text, Number& number)
{
    return NumberTextReader(text).Read(number);
}

std::optional<bool> ReadBooleanText(std::wstring_view text)
{
    if (EqualsIgnoringCase(text, "true") || text == L"#TRUE#")
        return true;
    if (EqualsIgnoringCase(text, "false") || text == L"#FALSE#")
        return false;
    return std::nullopt;
}
