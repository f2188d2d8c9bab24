#include "vetools/framework/NumberReader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

namespace
{

/// So many digits fit 64 bits, whatever they are.
constexpr std::ptrdiff_t c_mantissaDigits = 19;
/// The point half-way between two doubles has at most 768 significant digits: behind these many, only whether another
/// digit is not zero can still decide.
constexpr std::ptrdiff_t c_decidingDigits = 800;
/// Whole numbers stop growing here: neither one digit more nor the sum with a number of digits overflows 64 bits.
constexpr std::int64_t c_wholeNumberLimit = 100'000'000'000'000'000;

/// Whole numbers up to 2^53, and powers of ten up to 10^22, are doubles; one operation on two doubles rounds correctly.
constexpr std::uint64_t c_exactMantissa = std::uint64_t{1} << 53;
constexpr double c_exactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                    1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::int64_t c_exactPower = 22;

__extension__ using UInt128 = unsigned __int128;

/// The powers of five that fit 64 bits.
constexpr std::array<std::uint64_t, 28> c_powersOfFive = []
{
    std::array<std::uint64_t, 28> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 5;
    return powers;
}();

bool IsSpace(wchar_t c)
{
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

/// The value of a digit, more than 9 for any other character.
std::uint32_t DigitValue(wchar_t c)
{
    return static_cast<std::uint32_t>(c) - static_cast<std::uint32_t>(L'0');
}

bool IsDigit(wchar_t c)
{
    return DigitValue(c) <= 9;
}

/// Stands for the end of a text with a terminator, which need not be looked for: it is no character of a number.
struct AtTerminator
{
    friend bool operator==(const wchar_t*, AtTerminator) { return false; }
};

/// A position in a text that moves forward over what is taken. The end is a position, or AtTerminator.
template <typename End>
class NumberCursor
{
public:
    NumberCursor(const wchar_t* begin, End end)
        : m_position(begin)
        , m_end(end)
    {
    }

    const wchar_t* Position() const { return m_position; }

    void SkipSpace()
    {
        while (m_position != m_end && IsSpace(*m_position))
            ++m_position;
    }

    /// Takes a sign; returns whether it was a minus.
    bool ConsumeSign()
    {
        if (m_position == m_end || (*m_position != L'-' && *m_position != L'+'))
            return false;
        return *m_position++ == L'-';
    }

    bool ConsumePoint()
    {
        if (m_position == m_end || *m_position != L'.')
            return false;
        ++m_position;
        return true;
    }

    /// Takes digits and appends them to `mantissa`, which wraps round when they are too many for it. Returns their number.
    std::ptrdiff_t ConsumeDigits(std::uint64_t& mantissa)
    {
        const wchar_t* const start = m_position;
        for (; m_position != m_end; ++m_position)
        {
            const std::uint32_t digit = DigitValue(*m_position);
            if (digit > 9)
                break;
            mantissa = mantissa * 10 + digit;
        }
        return m_position - start;
    }

    /// Takes digits; returns them as a number, which stays beyond c_wholeNumberLimit once it is there. 0 when there are none.
    std::int64_t ConsumeWholeNumber()
    {
        std::int64_t number = 0;
        for (; m_position != m_end && IsDigit(*m_position); ++m_position)
        {
            if (number < c_wholeNumberLimit)
                number = number * 10 + DigitValue(*m_position);
        }
        return number;
    }

    /// Takes an exponent, the letter and a sign only together with a digit. Returns 0 when there is none.
    std::int64_t ConsumeExponent()
    {
        if (m_position == m_end || (*m_position != L'e' && *m_position != L'E'))
            return 0;
        const wchar_t* const start = m_position++;
        const bool negative = ConsumeSign();
        if (m_position == m_end || !IsDigit(*m_position))
        {
            m_position = start;
            return 0;
        }
        const std::int64_t exponent = ConsumeWholeNumber();
        return negative ? -exponent : exponent;
    }

private:
    const wchar_t* m_position;
    [[no_unique_address]] End m_end;
};

/// A number as it stands in the text: its digits, read without the point, times ten to the power of `exponent`.
struct DecimalNumber
{
    const wchar_t* digits;   ///< the first digit, or the point before it
    std::ptrdiff_t count;    ///< of digits, leading zeros included
    std::uint64_t mantissa;  ///< the digits as a number, modulo 2^64
    std::int64_t exponent;
};

/// Moves past leading zeros, so that `count` is the number of significant digits.
void DropLeadingZeros(DecimalNumber& number)
{
    for (; number.count > 0 && (*number.digits == L'0' || *number.digits == L'.'); ++number.digits)
    {
        if (*number.digits == L'0')
            --number.count;
    }
}

/// Writes the digits narrow, those that cannot decide replaced by one that says whether they are all zero. Returns the end;
/// the exponent grows by the number of digits left out.
char* CondenseDigits(char* out, DecimalNumber& number)
{
    const wchar_t* digit = number.digits;
    std::ptrdiff_t left = number.count;
    for (; left > 0 && left > number.count - c_decidingDigits; ++digit)
    {
        if (*digit == L'.')
            continue;
        *out++ = static_cast<char>(*digit);
        --left;
    }
    if (left == 0)
        return out;

    number.exponent += left - 1;
    char sticky = '0';
    for (; left > 0; ++digit)
    {
        if (*digit == L'.')
            continue;
        if (*digit != L'0')
            sticky = '1';
        --left;
    }
    *out++ = sticky;
    return out;
}

/// The nearest double to any number, the way that is always right.
double RoundCorrectly(DecimalNumber number)
{
    constexpr double c_infinity = std::numeric_limits<double>::infinity();
    constexpr std::ptrdiff_t c_exponentText = 8;

    DropLeadingZeros(number);
    if (number.count == 0)
        return 0.0;

    // Far out, the place of the first digit decides alone; what remains has an exponent of four digits at most.
    const std::int64_t magnitude = number.count + number.exponent;
    if (magnitude > std::numeric_limits<double>::max_exponent10 + 1)
        return c_infinity;
    if (magnitude < std::numeric_limits<double>::min_exponent10 - 2 * std::numeric_limits<double>::digits10)
        return 0.0;

    char text[c_decidingDigits + 1 + c_exponentText];
    char* end = CondenseDigits(text, number);
    *end++ = 'e';
    end = std::to_chars(end, text + sizeof text, number.exponent).ptr;

    double value = 0.0;
    if (std::from_chars(text, end, value).ec == std::errc::result_out_of_range)
        return magnitude > 0 ? c_infinity : 0.0;
    return value;
}

/// mantissa / 10^power by one division of whole numbers, for a mantissa other than zero and a power of five from the table.
double DivideExactly(std::uint64_t mantissa, std::size_t power)
{
    // Both are shifted up to 64 bits, so that the quotient has 63 or 64, ten more than a double keeps. What is left of the
    // division can decide only whether those behind are more than a half: it sets the last of them.
    const int mantissaShift = std::countl_zero(mantissa);
    const int divisorShift = std::countl_zero(c_powersOfFive[power]);
    const UInt128 dividend = static_cast<UInt128>(mantissa << mantissaShift) << 63;
    const std::uint64_t divisor = c_powersOfFive[power] << divisorShift;
    const auto quotient = static_cast<std::uint64_t>(dividend / divisor);
    const bool isExact = static_cast<UInt128>(quotient) * divisor == dividend;
    const double rounded = static_cast<double>(quotient | (isExact ? 0 : 1));
    return std::ldexp(rounded, divisorShift - mantissaShift - 63 - static_cast<int>(power));
}

/// Numbers that take more than one operation on doubles: many digits, or a point far from them.
double MagnitudeOfLong(DecimalNumber number)
{
    if (number.count > c_mantissaDigits)
        DropLeadingZeros(number);
    const bool divides = number.count <= c_mantissaDigits && number.mantissa != 0 && number.exponent <= 0 &&
                         -number.exponent < static_cast<std::int64_t>(c_powersOfFive.size());
    return divides ? DivideExactly(number.mantissa, static_cast<std::size_t>(-number.exponent))
                   : RoundCorrectly(number);
}

inline double MagnitudeOf(const DecimalNumber& number)
{
    if (number.count > c_mantissaDigits || number.mantissa > c_exactMantissa || number.exponent > c_exactPower ||
        number.exponent < -c_exactPower)
        return MagnitudeOfLong(number);

    const double mantissa = static_cast<double>(static_cast<std::int64_t>(number.mantissa));
    return number.exponent < 0 ? mantissa / c_exactPowers[-number.exponent] : mantissa * c_exactPowers[number.exponent];
}

struct ReadNumber
{
    double value;
    const wchar_t* end;  ///< null when there is no number
};

template <typename End>
ReadNumber Read(NumberCursor<End> cursor)
{
    cursor.SkipSpace();
    const bool negative = cursor.ConsumeSign();

    DecimalNumber number{cursor.Position(), 0, 0, 0};
    number.count = cursor.ConsumeDigits(number.mantissa);
    if (cursor.ConsumePoint())
    {
        const std::ptrdiff_t decimals = cursor.ConsumeDigits(number.mantissa);
        number.count += decimals;
        number.exponent = -decimals;
    }
    if (number.count == 0)
        return {0.0, nullptr};
    number.exponent += cursor.ConsumeExponent();

    const double magnitude = MagnitudeOf(number);
    return {negative ? -magnitude : magnitude, cursor.Position()};
}

void ReportConsumed(std::size_t* consumed, std::ptrdiff_t count)
{
    if (consumed != nullptr)
        *consumed = static_cast<std::size_t>(count);
}

}  // namespace

double ReadDouble(std::wstring_view text, std::size_t* consumed)
{
    const ReadNumber number = Read(NumberCursor(text.data(), text.data() + text.size()));
    ReportConsumed(consumed, number.end != nullptr ? number.end - text.data() : 0);
    return number.value;
}

double ReadDouble(const wchar_t* text)
{
    return Read(NumberCursor(text, AtTerminator())).value;
}

int ReadInteger(std::wstring_view text, std::size_t* consumed)
{
    constexpr std::int64_t c_smallest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t c_largest = std::numeric_limits<std::int32_t>::max();

    NumberCursor cursor(text.data(), text.data() + text.size());
    cursor.SkipSpace();
    const bool negative = cursor.ConsumeSign();
    const wchar_t* const digits = cursor.Position();
    const std::int64_t magnitude = cursor.ConsumeWholeNumber();

    ReportConsumed(consumed, cursor.Position() == digits ? 0 : cursor.Position() - text.data());
    return static_cast<int>(std::clamp(negative ? -magnitude : magnitude, c_smallest, c_largest));
}
