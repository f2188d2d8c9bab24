#include "vetools/framework/WideFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdarg>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_notANumber = std::numeric_limits<double>::quiet_NaN();

std::wstring Printed(const wchar_t* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    CString text;
    AppendFormattedV(text, format, arguments);
    va_end(arguments);
    return std::wstring(text.View());
}

template <typename... Arguments>
std::wstring PrintedKnown(const wchar_t* format, Arguments... arguments)
{
    return std::wstring(FormatWide(format, arguments...).View());
}

std::string Narrow(std::wstring_view text)
{
    std::string narrow;
    for (const wchar_t character : text)
        narrow += static_cast<char>(character);
    return narrow;
}

template <typename Argument>
struct Row
{
    const wchar_t* expected;
    const wchar_t* format;
    Argument argument;
};

/// Every row must come out the same whether the argument's kind is known or not.
template <typename Argument, std::size_t Count>
void ExpectAll(const Row<Argument> (&rows)[Count])
{
    for (const Row<Argument>& row : rows)
    {
        EXPECT_EQ(row.expected, Printed(row.format, row.argument)) << Narrow(row.format) << " of " << row.argument;
        EXPECT_EQ(row.expected, PrintedKnown(row.format, row.argument)) << Narrow(row.format) << " of " << row.argument;
    }
}

}  // namespace

TEST(WideFormat, CopiesWhatIsNoConversion)
{
    EXPECT_EQ(L"", Printed(L""));
    EXPECT_EQ(L"12 m\u00B2", Printed(L"12 m\u00B2"));
    EXPECT_EQ(L"100 %", Printed(L"100 %%"));
    EXPECT_EQ(L"a%b", Printed(L"a%%b"));
}

TEST(WideFormat, AnUnknownConversionStandsForItselfAndTakesNoArgument)
{
    EXPECT_EQ(L"ayb", Printed(L"a%yb"));
    EXPECT_EQ(L"ay7", Printed(L"a%5y%d", 7));
    EXPECT_EQ(L"$d7", Printed(L"%1$d%d", 7));
    EXPECT_EQ(L"'d", Printed(L"%'d"));
    EXPECT_EQ(L"!", Printed(L"%!"));
    EXPECT_EQ(L"%", Printed(L"%5%"));
}

TEST(WideFormat, AConversionThatTheEndCutsOffWritesNothing)
{
    for (const wchar_t* format : {L"a%", L"a%5", L"a%-", L"a%.", L"a%.3", L"a%l", L"a%I6", L"a%I64"})
        EXPECT_EQ(L"a", Printed(format).substr(0, 1)) << Narrow(format);
    EXPECT_EQ(L"a", Printed(L"a%"));
    EXPECT_EQ(L"a", Printed(L"a%#5.3ll"));
}

TEST(WideFormat, PrintsSignedIntegers)
{
    const Row<int> rows[] = {
        {L"0", L"%d", 0},
        {L"65", L"%i", 65},
        {L"-70000", L"%d", -70000},
        {L"-2147483648", L"%d", std::numeric_limits<int>::min()},
        {L"   65", L"%5d", 65},
        {L"65   |", L"%-5d|", 65},
        {L"00065", L"%05d", 65},
        {L"-0005", L"%05d", -5},
        {L"65   |", L"%-05d|", 65},
        {L"+65", L"%+d", 65},
        {L" 65", L"% d", 65},
        {L"+65", L"%+ d", 65},
        {L"-5", L"%+d", -5},
        {L"", L"%.0d", 0},
        {L"+", L"%+.0d", 0},
        {L"00065", L"%.5d", 65},
        {L"   00065", L"%8.5d", 65},
        {L"   00065", L"%08.5d", 65},
        {L"  -00065", L"%8.5d", -65},
    };
    ExpectAll(rows);
}

TEST(WideFormat, PrintsUnsignedIntegersInThreeBases)
{
    const Row<int> rows[] = {
        {L"4294897296", L"%u", -70000},
        {L"65", L"%+u", 65},
        {L"41", L"%x", 65},
        {L"fffeee90", L"%x", -70000},
        {L"FFFEEE90", L"%X", -70000},
        {L"0x41", L"%#x", 65},
        {L"0X41", L"%#X", 65},
        {L"0", L"%#x", 0},
        {L"    0x41", L"%#8x", 65},
        {L"0x000041", L"%#08x", 65},
        {L"0x41    |", L"%#-8x|", 65},
        {L"0x041", L"%#.3x", 65},
        {L"101", L"%o", 65},
        {L"0101", L"%#o", 65},
        {L"0", L"%#o", 0},
        {L"00101", L"%#.5o", 65},
        {L"37777567220", L"%o", -70000},
    };
    ExpectAll(rows);
}

TEST(WideFormat, ASizeChoosesTheBitsThatArePrinted)
{
    const Row<int> narrowRows[] = {
        {L"-4464", L"%hd", -70000},  {L"61072", L"%hu", -70000},    {L"ee90", L"%hx", -70000},
        {L"-4464", L"%hhd", -70000}, {L"-70000", L"%I32d", -70000}, {L"4294897296", L"%I32u", -70000},
    };
    ExpectAll(narrowRows);
    const Row<long long> wideRows[] = {
        {L"20015998343868", L"%I64d", 0x123456789ABCLL},
        {L"20015998343868", L"%lld", 0x123456789ABCLL},
        {L"-5", L"%jd", -5},
        {L"-5", L"%td", -5},
        {L"-5", L"%Id", -5},
        {L"18446744073709551611", L"%zu", -5},
        {L"18446744073709551611", L"%I64u", -5},
        {L"123456789abc", L"%I64x", 0x123456789ABCLL},
        {L"-9223372036854775808", L"%lld", std::numeric_limits<long long>::min()},
        {L"1777777777777777777777", L"%llo", -1},
    };
    ExpectAll(wideRows);
}

TEST(WideFormat, ALongIsPrintedByThe32BitsThatItHasOnWindows)
{
    EXPECT_EQ(L"-70000 7", Printed(L"%ld %d", -70000L, 7));
    EXPECT_EQ(L"4294967295 7", Printed(L"%lu %d", 0xFFFFFFFFul, 7));
    EXPECT_EQ(L"fffeee90 7", Printed(L"%lx %d", -70000L, 7));
}

TEST(WideFormat, WidthAndPrecisionMayBeArguments)
{
    EXPECT_EQ(L"    7", Printed(L"%*d", 5, 7));
    EXPECT_EQ(L"7    |", Printed(L"%*d|", -5, 7));
    EXPECT_EQ(L"7    |", Printed(L"%0*d|", -5, 7));
    EXPECT_EQ(L"7|", Printed(L"%.*d|", -5, 7));
    EXPECT_EQ(L"1.500000", Printed(L"%.*f", -1, 1.5));
    EXPECT_EQ(L"    1.50", Printed(L"%*.*f", 8, 2, 1.5));
    EXPECT_EQ(L"ab", Printed(L"%.*s", 2, L"abc"));
    EXPECT_EQ(L"abc", Printed(L"%.*s", -1, L"abc"));
    EXPECT_EQ(L"*d", Printed(L"%5*d"));
}

TEST(WideFormat, WidthsAndPrecisionsAreLimited)
{
    EXPECT_EQ(65535u, Printed(L"%99999999999999999999d", 7).size());
    EXPECT_EQ(65535u, Printed(L"%*d", std::numeric_limits<int>::min(), 7).size());
    EXPECT_EQ(65535u, Printed(L"%.2000000000d", 7).size());
    EXPECT_EQ(65537u, Printed(L"%.2000000000f", 7.5).size());
    EXPECT_EQ(65541u, Printed(L"%.2000000000e", 7.5).size());
    EXPECT_EQ(L"7.5" + std::wstring(65534, L'0') + L"e+00", Printed(L"%.70000e", 7.5));
    EXPECT_EQ(L"0x1.8" + std::wstring(65534, L'0') + L"p+0", Printed(L"%.70000a", 1.5));
}

TEST(WideFormat, PrintsDoubles)
{
    const Row<double> rows[] = {
        {L"0.000000", L"%f", 0.0},
        {L"-0.000000", L"%f", -0.0},
        {L"1.500000", L"%lf", 1.5},
        {L"1.500000", L"%Lf", 1.5},
        {L"1.500000", L"%F", 1.5},
        {L"0", L"%.0f", 0.5},
        {L"2", L"%.0f", 2.5},
        {L"3.", L"%#.0f", 3.0},
        {L"0.12", L"%.2f", 0.125},
        {L"+1.5", L"%+.1f", 1.5},
        {L" 1.5", L"% .1f", 1.5},
        {L"      1.50", L"%10.2f", 1.5},
        {L"1.50      |", L"%-10.2f|", 1.5},
        {L"-000001.50", L"%010.2f", -1.5},
        {L"1.234568e+08", L"%e", 123456789.125},
        {L"1E-05", L"%.0E", 1e-5},
        {L"5.e+100", L"%#.0e", 5e100},
        {L"123457", L"%g", 123456.7},
        {L"1.23457e+06", L"%g", 1234567.0},
        {L"0.0001", L"%g", 1e-4},
        {L"1e-05", L"%g", 1e-5},
        {L"1E-05", L"%G", 1e-5},
        {L"0", L"%g", 0.0},
        {L"-0", L"%g", -0.0},
        {L"3", L"%.0g", 3.25},
        {L"100000", L"%g", 99999.96},
        {L"1e+06", L"%g", 999999.5},
        {L"123.", L"%#.3g", 123.0},
        {L"0.00000", L"%#g", 0.0},
        {L"0.10000000000000001", L"%.17g", 0.1},
        {L"0x1.8000000000000p+0", L"%a", 1.5},
        {L"-0X1.999999999999AP-4", L"%A", -0.1},
        {L"0x0.0000000000001p-1022", L"%a", 4.9406564584124654e-324},
        {L"0x0.0000000000000p+0", L"%a", 0.0},
        {L"0x1.99ap-4", L"%.3a", 0.1},
        {L"0x2.000p+0", L"%.3a", 1.9999999999999998},
        {L"0x2p+0", L"%.0a", 1.5},
        {L"0x1.p+1", L"%#.0a", 2.0},
        {L"0x0001.8p+0", L"%011.1a", 1.5},
    };
    ExpectAll(rows);
}

TEST(WideFormat, PrintsNonFiniteDoublesAsTheWindowsRunTimeLibrary)
{
    const Row<double> rows[] = {
        {L"1.#INF00", L"%f", c_infinity},
        {L"-1.#INF00", L"%f", -c_infinity},
        {L"1.#QNAN0", L"%f", c_notANumber},
        {L"-1.#IND00", L"%f", -c_notANumber},
        {L"1", L"%#.0f", c_infinity},
        {L"      1.#J", L"%10.2f", c_infinity},
        {L"-000001.#J", L"%010.2f", -c_notANumber},
        {L"+1.#INF00", L"%+f", c_infinity},
        {L"1.#INF00e+00", L"%e", c_infinity},
        {L"1.#INF00E+00", L"%E", c_infinity},
        {L"1.#INF", L"%g", c_infinity},
        {L"1.#QNAN", L"%G", c_notANumber},
        {L"1.#INF", L"%.0g", c_infinity},
        {L"1", L"%.1g", c_infinity},
        {L"-1.#IO", L"%.4g", -c_notANumber},
        {L"1.#INF", L"%#.10g", c_infinity},
        {L"0x1.#INF000000000p+0", L"%a", c_infinity},
        {L"-0x1.#IND000000000p+0", L"%a", -c_notANumber},
    };
    ExpectAll(rows);
}

TEST(WideFormat, PrintsWideTexts)
{
    EXPECT_EQ(L"abcde", Printed(L"%s", L"abcde"));
    EXPECT_EQ(L"abcde abcde abcde", Printed(L"%ls %ws %lS", L"abcde", L"abcde", L"abcde"));
    EXPECT_EQ(L"     abcde", Printed(L"%10s", L"abcde"));
    EXPECT_EQ(L"abcde     |", Printed(L"%-10s|", L"abcde"));
    EXPECT_EQ(L"00000abcde", Printed(L"%010s", L"abcde"));
    EXPECT_EQ(L"        ab", Printed(L"%10.2s", L"abcde"));
    EXPECT_EQ(L"", Printed(L"%.0s", L"abcde"));
    EXPECT_EQ(L"(null)", Printed(L"%s", static_cast<const wchar_t*>(nullptr)));
    EXPECT_EQ(L"(n", Printed(L"%.2s", static_cast<const wchar_t*>(nullptr)));
}

TEST(WideFormat, APrecisionKeepsATextFromBeingReadBeyondIt)
{
    const wchar_t unterminated[] = {L'a', L'b'};
    EXPECT_EQ(L"ab", Printed(L"%.2s", unterminated));
    const char narrow[] = {'a', 'b'};
    EXPECT_EQ(L"ab", Printed(L"%.2S", narrow));
}

TEST(WideFormat, PrintsNarrowTexts)
{
    EXPECT_EQ(L"abc abc abc", Printed(L"%S %hs %hS", "abc", "abc", "abc"));
    EXPECT_EQ(L"       abc", Printed(L"%10S", "abc"));
    EXPECT_EQ(L"ab", Printed(L"%.2hs", "abc"));
    EXPECT_EQ(L"", Printed(L"%S", ""));
    EXPECT_EQ(L"(null)", Printed(L"%S", static_cast<const char*>(nullptr)));
}

TEST(WideFormat, PrintsCharacters)
{
    EXPECT_EQ(L"A\u00B2", Printed(L"%c%lc", L'A', 0xB2));
    EXPECT_EQ(L"AB", Printed(L"%C%hc", 'A', 'B'));
    EXPECT_EQ(L"    A", Printed(L"%5c", L'A'));
    EXPECT_EQ(L"A    |", Printed(L"%-5c|", L'A'));
    EXPECT_EQ(std::wstring(1, L'\0'), Printed(L"%c", 0));
}

TEST(WideFormat, PrintsPointersAs16Digits)
{
    const auto pointer = reinterpret_cast<const void*>(std::uintptr_t{0x123456789ABC});
    EXPECT_EQ(L"0000123456789ABC", Printed(L"%p", pointer));
    EXPECT_EQ(L"    0000123456789ABC", Printed(L"%020p", pointer));
    EXPECT_EQ(L"0000123456789ABC    |", Printed(L"%-20p|", pointer));
    EXPECT_EQ(L"0000000000000000", PrintedKnown(L"%p", static_cast<const void*>(nullptr)));
}

TEST(WideFormat, TheCountConversionWritesNothingAnywhere)
{
    int count = 42;
    EXPECT_EQ(L"ab7", Printed(L"a%nb%d", &count, 7));
    EXPECT_EQ(42, count);
}

TEST(WideFormat, AConversionWithoutAnArgumentOfItsKindWritesNothing)
{
    EXPECT_EQ(L"<>", PrintedKnown(L"<%d>"));
    EXPECT_EQ(L"<>", PrintedKnown(L"<%s>", 2, 0.5));
    EXPECT_EQ(L"<>", PrintedKnown(L"<%n>", 2, 0.5));
    EXPECT_EQ(L"<>", PrintedKnown(L"<%f>", 2, 0.5));
    EXPECT_EQ(L"<2><0.500000>", PrintedKnown(L"<%d><%f>", 2, 0.5));
    EXPECT_EQ(L"<0.50><><>", PrintedKnown(L"<%.*f><%d><%s>", 2, 0.5));
    EXPECT_EQ(L"<>", PrintedKnown(L"<%*.*f>", 2, 0.5));
    EXPECT_EQ(L"<>", PrintedKnown(L"<%*d>", 0.5, 2));
    EXPECT_EQ(L"<>", PrintedKnown(L"<%S>", L"wide"));
    EXPECT_EQ(L"<>", PrintedKnown(L"<%p>", 7));
}

TEST(WideFormat, AppendsToWhatTheTextHolds)
{
    CString text(L"x = ");
    const FormatArgument arguments[] = {2, 0.5, L"m"};
    AppendFormatted(text, L"%.*f %s", arguments);
    EXPECT_EQ(L"x = 0.50 m", std::wstring(text.View()));
}
