#include "vetools/framework/NumberText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace
{

constexpr unsigned int c_seed = 20210118;
constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double c_largest = std::numeric_limits<double>::max();
constexpr double c_smallest = std::numeric_limits<double>::denorm_min();

std::string Narrow(std::wstring_view text)
{
    std::string narrow;
    for (const wchar_t character : text)
        narrow += static_cast<char>(character);
    return narrow;
}

std::wstring Widen(std::string_view text)
{
    return std::wstring(text.begin(), text.end());
}

std::wstring Fixed(double value, int precision)
{
    std::wstring text(FixedTextCapacity(precision), L'?');
    text.resize(static_cast<std::size_t>(WriteFixed(text.data(), value, precision) - text.data()));
    return text;
}

std::wstring Exponent(double value, int precision)
{
    std::wstring text(ExponentTextCapacity(precision), L'?');
    text.resize(static_cast<std::size_t>(WriteExponent(text.data(), value, precision) - text.data()));
    return text;
}

std::wstring Integer(int value)
{
    wchar_t text[11];
    return std::wstring(text, WriteInteger(text, value));
}

/// A decimal fraction of any length, slow and plain: digits from the first to the last, and how many of them are decimals.
class PlainDecimal
{
public:
    /// mantissa * 2^exponent, exactly.
    PlainDecimal(std::uint64_t mantissa, int exponent)
    {
        for (; mantissa != 0; mantissa /= 10)
            m_digits.push_back(static_cast<int>(mantissa % 10));
        for (; exponent > 0; --exponent)
            Multiply(2);
        for (; exponent < 0; ++exponent, ++m_decimals)
            Multiply(5);
    }

    /// As "%.*f" of a number that is not negative.
    std::string Rounded(int precision) const
    {
        PlainDecimal result = *this;
        const int dropped = std::max(m_decimals - precision, 0);
        const bool up = result.RoundsUp(static_cast<std::size_t>(dropped));
        result.m_digits.resize(std::max(m_digits.size(), static_cast<std::size_t>(dropped) + 1));
        result.m_digits.erase(result.m_digits.begin(), result.m_digits.begin() + dropped);
        if (up)
            result.AddOne();
        std::string text = result.Text(std::min(precision, m_decimals));
        if (m_decimals == 0 && precision > 0)
            text += '.';
        return text + std::string(static_cast<std::size_t>(std::max(precision - m_decimals, 0)), '0');
    }

    /// All its digits, as a text that a reader understands.
    std::string Text() const { return Text(m_decimals); }

private:
    void Multiply(int factor)
    {
        int carry = 0;
        for (int& digit : m_digits)
        {
            carry += digit * factor;
            digit = carry % 10;
            carry /= 10;
        }
        if (carry != 0)
            m_digits.push_back(carry);
    }

    void AddOne()
    {
        for (int& digit : m_digits)
        {
            digit = (digit + 1) % 10;
            if (digit != 0)
                return;
        }
        m_digits.push_back(1);
    }

    int Digit(std::size_t index) const { return index < m_digits.size() ? m_digits[index] : 0; }

    bool RoundsUp(std::size_t dropped) const
    {
        if (dropped == 0 || Digit(dropped - 1) < 5)
            return false;
        if (Digit(dropped - 1) > 5)
            return true;
        for (std::size_t i = 0; i + 1 < dropped; ++i)
        {
            if (Digit(i) != 0)
                return true;
        }
        return Digit(dropped) % 2 != 0;
    }

    std::string Text(int decimals) const
    {
        std::string text;
        const std::size_t count = std::max(m_digits.size(), static_cast<std::size_t>(decimals) + 1);
        for (std::size_t i = count; i-- > 0;)
        {
            text += static_cast<char>('0' + Digit(i));
            if (i == static_cast<std::size_t>(decimals) && i != 0)
                text += '.';
        }
        return text;
    }

    std::vector<int> m_digits;  ///< the last one first
    int m_decimals = 0;
};

PlainDecimal ExactDecimal(double value)
{
    int exponent = 0;
    const double fraction = std::frexp(value, &exponent);
    return PlainDecimal(static_cast<std::uint64_t>(std::ldexp(fraction, 53)), exponent - 53);
}

/// The point half-way between a positive double and the next larger one.
PlainDecimal MiddleAbove(double value)
{
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const auto field = static_cast<int>(bits >> 52);
    const std::uint64_t mantissa = (bits & ((std::uint64_t{1} << 52) - 1)) | (field != 0 ? std::uint64_t{1} << 52 : 0);
    return PlainDecimal(2 * mantissa + 1, std::max(field, 1) - 1076);
}

/// Doubles of every exponent, whole numbers, short decimals and ties.
double RandomMagnitude(std::mt19937_64& random)
{
    switch (random() % 4)
    {
    case 0:
    {
        const double value = std::bit_cast<double>(random() & ~(std::uint64_t{1} << 63));
        return std::isfinite(value) ? value : c_largest;
    }
    case 1:
        return static_cast<double>(random() >> (random() % 64));
    case 2:
        return static_cast<double>(random() % 100'000'000) / 10'000.0;
    default:
        return static_cast<double>(random() >> (11 + random() % 50)) /
               static_cast<double>(std::uint64_t{1} << (random() % 60));
    }
}

struct WriteRow
{
    const wchar_t* expected;
    double value;
    int precision;
};

struct ReadRow
{
    double expected;
    std::size_t consumed;
    const wchar_t* text;
};

void ExpectRead(double expected, std::size_t consumed, const std::wstring& text)
{
    constexpr std::size_t c_shown = 100;
    const std::string shown = Narrow(text.substr(0, c_shown));
    std::size_t taken = 12345;
    const double value = ReadDouble(text, &taken);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(expected), std::bit_cast<std::uint64_t>(value))
        << expected << " expected, " << value << " read from " << shown;
    EXPECT_EQ(consumed, taken) << shown;
    const double terminated = ReadDouble(text.c_str());
    EXPECT_EQ(std::bit_cast<std::uint64_t>(expected), std::bit_cast<std::uint64_t>(terminated)) << shown;
}

}  // namespace

TEST(WriteFixed, RoundsTheExactValueHalfToEven)
{
    // clang-format off
    const WriteRow rows[] = {
    //   expected      value                 precision
        {L"0",         0.0,                  0},
        {L"0.00",      0.0,                  2},
        {L"-0.00",    -0.0,                  2},
        {L"-0.00",    -0.001,                2},
        {L"0",         0.5,                  0},
        {L"2",         1.5,                  0},
        {L"2",         2.5,                  0},
        {L"-4",       -3.5,                  0},
        {L"0.12",      0.125,                2},
        {L"0.38",      0.375,                2},
        {L"1.00",      1.005,                2},  // the double is a little less than it looks
        {L"9.99",      9.995,                2},
        {L"10.00",     9.996,                2},
        {L"1.0",       0.99,                 1},
        {L"100",       99.5,                 0},
        {L"9.5",       9.5,                  1},
        {L"1.500000",  1.5,                 -1},
        {L"0.1000000000000000056",  0.1,    19},
        {L"0.10000000000000000555", 0.1,    20},
        {L"9007199254740992.0",     9007199254740992.0,  1},
        {L"2251799813685249.5000",  2251799813685249.5,  4},
        {L"2251799813685250",       2251799813685249.5,  0},
        {L"18446744073709551616",   18446744073709551616.0, 0},
        {L"18446744073709549568.00", 18446744073709549568.0, 2},
        {L"0.000000000000000000",   1e-300, 18},
    };
    // clang-format on
    for (const WriteRow& row : rows)
        EXPECT_EQ(row.expected, Fixed(row.value, row.precision)) << row.value << " with precision " << row.precision;
}

TEST(WriteFixed, WritesZerosBehindTheLastExactDigit)
{
    EXPECT_EQ(L"0.5" + std::wstring(1999, L'0'), Fixed(0.5, 2000));
    EXPECT_EQ(L"-7." + std::wstring(65535, L'0'), Fixed(-7.0, 65535));
    EXPECT_EQ(Widen(ExactDecimal(c_smallest).Rounded(1074)), Fixed(c_smallest, 1074));
    EXPECT_EQ(Widen(ExactDecimal(c_largest).Text()), Fixed(c_largest, 0));
}

TEST(WriteFixed, AgreesWithAPlainExactExpansion)
{
    std::mt19937_64 random(c_seed);
    for (int i = 0; i < 4000; ++i)
    {
        const double value = RandomMagnitude(random);
        const PlainDecimal exact = ExactDecimal(value);
        for (const int precision : {0, static_cast<int>(random() % 10), static_cast<int>(10 + random() % 12)})
            ASSERT_EQ(exact.Rounded(precision), Narrow(Fixed(value, precision))) << value << ", seed " << c_seed;
    }
}

TEST(WriteFixed, AgreesWithTheStandardLibraryAtEveryPrecision)
{
    std::mt19937_64 random(c_seed);
    char expected[2000];
    for (int i = 0; i < 100'000; ++i)
    {
        const double magnitude = RandomMagnitude(random);
        const double value = i % 2 == 0 ? magnitude : -magnitude;
        const int precision = i % 24;
        const auto end =
            std::to_chars(expected, expected + sizeof expected, value, std::chars_format::fixed, precision).ptr;
        ASSERT_EQ(std::string(expected, end), Narrow(Fixed(value, precision))) << value << ", seed " << c_seed;
    }
}

TEST(WriteFixed, CutsTheNamesOfNonFiniteValuesAsTheWindowsRunTimeLibrary)
{
    const WriteRow rows[] = {
        {L"1", c_infinity, 0},
        {L"1.$", c_infinity, 1},
        {L"1.#J", c_infinity, 2},
        {L"1.#IO", c_infinity, 3},
        {L"1.#INF", c_infinity, 4},
        {L"1.#INF0", c_infinity, 5},
        {L"1.#INF00", c_infinity, 6},
        {L"1.#INF00", c_infinity, -1},
        {L"1.#INF00000000", c_infinity, 12},
        {L"-1", -c_infinity, 0},
        {L"-1.#INF00", -c_infinity, 6},
        {L"1.$", c_notANumber, 1},
        {L"1.#R", c_notANumber, 2},
        {L"1.#QO", c_notANumber, 3},
        {L"1.#QNB", c_notANumber, 4},
        {L"1.#QNAN", c_notANumber, 5},
        {L"1.#QNAN0", c_notANumber, 6},
        {L"-1.$", -c_notANumber, 1},
        {L"-1.#J", -c_notANumber, 2},
        {L"-1.#IO", -c_notANumber, 3},
        {L"-1.#IND", -c_notANumber, 4},
        {L"-1.#IND00", -c_notANumber, 6},
        {L"-1.#IND000", -c_notANumber, 7},
    };
    for (const WriteRow& row : rows)
        EXPECT_EQ(row.expected, Fixed(row.value, row.precision)) << row.value << " with precision " << row.precision;
}

TEST(WriteUnits, PutsThePointBeforeTheDecimals)
{
    struct Row
    {
        const wchar_t* expected;
        std::int64_t units;
        int precision;
    };
    // clang-format off
    const Row rows[] = {
    //   expected                     units                 precision
        {L"0",                        0,                    0},
        {L"0.00",                     0,                    2},
        {L"0.05",                     5,                    2},
        {L"-0.05",                   -5,                    2},
        {L"12.34",                    1234,                 2},
        {L"1.000",                    1000,                 3},
        {L"-4294967.295",            -4294967295,           3},
        {L"4294967.296",              4294967296,           3},
        {L"9223372036854775807",      9223372036854775807,  0},
        {L"-922337203685477580.7",   -9223372036854775807,  1},
        {L"0.0000000000000000000007", 7,                   22},
    };
    // clang-format on
    for (const Row& row : rows)
    {
        std::wstring text(UnitsTextCapacity(row.precision), L'?');
        text.resize(static_cast<std::size_t>(WriteUnits(text.data(), row.units, row.precision) - text.data()));
        EXPECT_EQ(row.expected, text) << row.units << " at precision " << row.precision;
    }
}

TEST(WriteExponent, WritesAtLeastTwoDigitsOfExponent)
{
    const WriteRow rows[] = {
        {L"0e+00", 0.0, 0},
        {L"-0.00e+00", -0.0, 2},
        {L"1.0e-05", 0.00001, 1},
        {L"1e+100", 1e100, 0},
        {L"1.500000e+00", 1.5, -1},
        {L"2e+00", 2.5, 0},
        {L"4e+00", 3.5, 0},
        {L"1.0e+01", 9.96, 1},
        {L"5e-324", c_smallest, 0},
        {L"1.80e+308", c_largest, 2},
        {L"1.#INF00e+00", c_infinity, 6},
        {L"-1.#Je+00", -c_notANumber, 2},
    };
    for (const WriteRow& row : rows)
        EXPECT_EQ(row.expected, Exponent(row.value, row.precision)) << row.value << " with precision " << row.precision;
    EXPECT_EQ(L"5." + std::wstring(2000, L'0') + L"e-01", Exponent(0.5, 2000));
}

TEST(WriteInteger, WritesTheWholeRange)
{
    EXPECT_EQ(L"0", Integer(0));
    EXPECT_EQ(L"-7", Integer(-7));
    EXPECT_EQ(L"100", Integer(100));
    EXPECT_EQ(L"2147483647", Integer(std::numeric_limits<int>::max()));
    EXPECT_EQ(L"-2147483648", Integer(std::numeric_limits<int>::min()));
}

TEST(ReadDouble, TakesWhatIsANumberAndLeavesTheRest)
{
    // clang-format off
    const ReadRow rows[] = {
    //   expected  consumed  text
        {0.0, 0, L""},
        {0.0, 0, L"  "},
        {0.0, 0, L"."},
        {0.0, 0, L"-"},
        {0.0, 0, L"+-1"},
        {0.0, 0, L"- 1"},
        {0.0, 0, L"-."},
        {0.0, 0, L"e5"},
        {0.0, 0, L".e5"},
        {0.0, 0, L"..5"},
        {0.0, 0, L"inf"},
        {0.0, 0, L"nan"},
        {0.0, 0, L"kN"},
        {0.0, 0, L"\u00A01"},  // a no-break space is no white space here
        {0.0, 0, L"\u0661"},   // nor is any other script's digit a digit
        {0.0, 1, L"0x1A"},
        {0.0, 1, L"0"},
        {-0.0, 2, L"-0"},
        {-0.0, 4, L"-0e5"},
        {1.0, 1, L"1"},
        {1.0, 2, L"+1"},
        {1.0, 2, L"1."},
        {0.5, 2, L".5"},
        {-0.5, 3, L"-.5"},
        {1.0, 1, L"1e"},
        {1.0, 1, L"1e+"},
        {1.0, 1, L"1e+x"},
        {1.0, 1, L"1d5"},
        {1.0, 1, L"1,5"},
        {5.0, 2, L"5.."},
        {1.5, 3, L"1.5.5"},
        {1e5, 3, L"1e5"},
        {1e5, 4, L"1E+5"},
        {1e-5, 6, L"1.e-05"},
        {-12.5, 9, L" \t\n\v-12.5kN"},
        {12.0, 4, L"\r\f12 "},
        {0.1, 26, L"0000000000000000000000.100"},
    };
    // clang-format on
    for (const ReadRow& row : rows)
        ExpectRead(row.expected, row.consumed, row.text);
}

TEST(ReadDouble, GoesToInfinityAndToZeroAtTheEndsOfTheRange)
{
    const ReadRow rows[] = {
        {c_infinity, 22, L"1e99999999999999999999"},
        {-c_infinity, 6, L"-1e309"},
        {-0.0, 27, L"-1e-99999999999999999999999"},
        {0.0, 14, L"0e999999999999"},
        {c_largest, 22, L"1.7976931348623157e308"},
        {c_infinity, 22, L"1.7976931348623159e308"},
        {1e304, 32, L"0000000000000000000000000001e304"},
        {1e308, 12, L"00000001e308"},
        {c_smallest, 8, L"4.9e-324"},
        {c_smallest, 8, L"2.5e-324"},
        {0.0, 8, L"2.4e-324"},
        {2.2250738585072011e-308, 23, L"2.2250738585072011e-308"},
    };
    for (const ReadRow& row : rows)
        ExpectRead(row.expected, row.consumed, row.text);
    ExpectRead(1.0, 1'000'010, L"0." + std::wstring(999'999, L'0') + L"1e1000000");
    ExpectRead(1e10, 1'000'009, L"1" + std::wstring(1'000'000, L'0') + L"e-999990");
    ExpectRead(c_infinity, 1'000'000, std::wstring(1'000'000, L'9'));
}

TEST(ReadDouble, RoundsEveryNumberOfDigitsToTheNearestHalfToEven)
{
    std::mt19937_64 random(c_seed);
    for (int i = 0; i < 2000; ++i)
    {
        const double value = std::min(RandomMagnitude(random), c_largest / 2);
        const double above = std::nextafter(value, c_infinity);
        const bool even = (std::bit_cast<std::uint64_t>(value) & 1) == 0;
        std::wstring middle = Widen(MiddleAbove(value).Text());
        if (middle.find(L'.') == std::wstring::npos)
            middle += L'.';

        ExpectRead(even ? value : above, middle.size(), middle);
        const std::wstring more = middle + std::wstring(random() % 3000, L'0') + L'1';
        ExpectRead(above, more.size(), more);
        const std::size_t last = middle.find_last_not_of(L"0.");
        --middle[last];
        const std::wstring less = middle + std::wstring(random() % 3000, L'9');
        if (middle.find(L'.') > last)
            continue;
        ExpectRead(value, less.size(), less);
    }
}

TEST(ReadDouble, ReadsBackWhatTheWritersWrite)
{
    std::mt19937_64 random(c_seed);
    for (int i = 0; i < 50'000; ++i)
    {
        const double magnitude = RandomMagnitude(random);
        const double value = i % 2 == 0 ? magnitude : -magnitude;
        const std::wstring text = Exponent(value, 16);
        ExpectRead(value, text.size(), text);
        if (i % 50 == 0)
        {
            const std::wstring exact = Fixed(value, 1074);
            ExpectRead(value, exact.size(), exact);
        }
    }
}

TEST(ReadDouble, AgreesWithTheStandardLibraryOnNumbersOfUpToTwentyDigits)
{
    std::mt19937_64 random(c_seed);
    for (int i = 0; i < 200'000; ++i)
    {
        std::string text = std::to_string(random() >> (random() % 64));
        text.insert(random() % (text.size() + 1), 1, '.');
        if (random() % 3 == 0)
            text += 'e' + std::to_string(static_cast<int>(random() % 80) - 40);
        double expected = 0.0;
        std::from_chars(text.data(), text.data() + text.size(), expected);
        ExpectRead(expected, text.size(), Widen(text));
    }
}

TEST(ReadInteger, ClampsToTheRangeOfA32BitInteger)
{
    struct Row
    {
        int expected;
        std::size_t consumed;
        const wchar_t* text;
    };
    const Row rows[] = {
        {0, 0, L""},
        {0, 0, L"-"},
        {0, 0, L" x1"},
        {0, 1, L"0x10"},
        {42, 4, L"\t+42 mm"},
        {-42, 5, L"\r\n-42.9"},
        {1, 1, L"1e5"},
        {2147483647, 10, L"2147483647"},
        {2147483647, 10, L"2147483648"},
        {-2147483647 - 1, 11, L"-2147483649"},
        {2147483647, 40, L"9999999999999999999999999999999999999999"},
        {-2147483647 - 1, 41, L"-9999999999999999999999999999999999999999"},
    };
    for (const Row& row : rows)
    {
        std::size_t taken = 12345;
        EXPECT_EQ(row.expected, ReadInteger(row.text, &taken)) << Narrow(row.text);
        EXPECT_EQ(row.consumed, taken) << Narrow(row.text);
    }
}
