#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "vetools/framework/CString.h"

namespace
{

std::wstring TextOf(const CString& text)
{
    return std::wstring(text.View());
}

}  // namespace

TEST(CStringFormat, FollowsTheWindowsConventionsForWideFormats)
{
    CString text;
    text.Format(L"%s %S %hs %ls %c", L"wide", "narrow", "narrow", L"wide", L'\u00B2');
    EXPECT_EQ(L"wide narrow narrow wide \u00B2", TextOf(text));
    text.Format(L"%I64d %lld %I64u", -5LL, 5000000000LL, 18446744073709551615ULL);
    EXPECT_EQ(L"-5 5000000000 18446744073709551615", TextOf(text));
    text.Format(L"%ld %lu %lx", -7L, 7UL, 255L);
    EXPECT_EQ(L"-7 7 ff", TextOf(text));
}

TEST(CStringFormat, PrintsDoublesByTheirExactExpansionOnBothBuilds)
{
    constexpr double c_infinity = std::numeric_limits<double>::infinity();
    CString text;
    text.Format(L"%.0f %.0f %.2f %e %g", 0.5, 1.5, 0.125, 0.00001, 1e100);
    EXPECT_EQ(L"0 2 0.12 1.000000e-05 1e+100", TextOf(text));
    text.Format(L"%lf %lf %.2f", c_infinity, -c_infinity, c_infinity);
    EXPECT_EQ(L"1.#INF00 -1.#INF00 1.#J", TextOf(text));
}

TEST(CStringFormat, TakesAnyMixOfMoreArgumentsThanRegistersHold)
{
    CString text;
    text.Format(L"%d %f %d %f %d %f %d %f %d %f %s %f %f %f %f %f", 1, 0.5, 2, 1.5, 3, 2.5, 4, 3.5, 5, 4.5, L"six", 5.5,
                6.5, 7.5, 8.5, 9.5);
    EXPECT_EQ(
        L"1 0.500000 2 1.500000 3 2.500000 4 3.500000 5 4.500000 six 5.500000 6.500000 7.500000 8.500000 9.500000",
        TextOf(text));
}

TEST(CStringFormat, AWidthBeyondTheLimitStaysInProportion)
{
    CString text;
    text.Format(L"%2000000000d", 7);
    EXPECT_EQ(65535, text.GetLength());
}
