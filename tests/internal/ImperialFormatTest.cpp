#include "vetools/valuetext/ImperialFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace
{

constexpr Unit::enumUNITFORMAT c_decimals = Unit::UNITFORMAT_FEET_INCHES;
constexpr Unit::enumUNITFORMAT c_fraction = Unit::UNITFORMAT_FRACTION;
constexpr double c_infinity = std::numeric_limits<double>::infinity();

struct Row
{
    const wchar_t* expected;
    double value;
    unsigned int precision;
    wchar_t separator = L'.';
};

std::wstring Write(double value, LengthIn in, unsigned int precision, wchar_t separator, Unit::enumUNITFORMAT format)
{
    std::vector<wchar_t> buffer(c_imperialTextCapacity, L'#');
    const std::size_t length = WriteImperialText(buffer.data(), value, in, precision, separator, format);
    EXPECT_LT(length, c_imperialTextCapacity);
    EXPECT_EQ(L'\0', buffer[length]);
    return {buffer.data(), length};
}

template <std::size_t Count>
void ExpectTexts(const Row (&rows)[Count], LengthIn in, Unit::enumUNITFORMAT format)
{
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, Write(row.value, in, row.precision, row.separator, format))
            << "value " << row.value << ", precision " << row.precision;
}

TEST(ImperialFormat, WritesFeetWithTheNearestFractionAndCarriesIntoTheNextFoot)
{
    const Row rows[] = {
        //   expected          feet               precision
        {L"0\"", 0.0, 4},
        {L"0\"", 0.0, 0},
        {L"1'", 1.0, 4},
        {L"4\"", 4.0 / 12, 4},
        {L"3'-4\"", 3 + 4.0 / 12, 4},
        {L"1/2\"", 0.5 / 12, 4},
        {L"4 1/2\"", 4.5 / 12, 4},
        {L"3'-1/2\"", 3 + 0.5 / 12, 4},
        {L"3'-4 1/2\"", 3 + 4.5 / 12, 4},
        {L"5'-11 3/8\"", 5.9479166, 4},
        {L"3/8\"", 0.03125, 4},
        {L"10\"", 10.0 / 12, 0},  // fractions keep the zeros of whole numbers
        {L"1'", 11.999 / 12, 4},
        {L"2'", 1 + 11.999 / 12, 0},
        {L"-3'-4 1/2\"", -(3 + 4.5 / 12), 4},
        {L"-1'", -11.999 / 12, 4},
    };
    ExpectTexts(rows, LengthIn::Feet, c_fraction);
}

TEST(ImperialFormat, WritesInchesWithTheNearestFractionAndNeverCarriesIntoFeet)
{
    const Row rows[] = {
        {L"0\"", 0.0, 4},
        {L"12\"", 11.999, 4},
        {L"12\"", 12.0, 4},
        {L"40 1/2\"", 40.5, 1},
        {L"255/256\"", 255.0 / 256, 8},
        {L"-1/4\"", -0.25, 3},
        {L"100\"", 99.9999, 8},
        {L"10\"", 10.0, 0},
    };
    ExpectTexts(rows, LengthIn::Inches, c_fraction);
}

TEST(ImperialFormat, RoundsAnExactHalfStepDown)
{
    const Row rows[] = {
        {L"1/4\"", 0.375, 2},
        {L"3/8\"", 0.375, 3},
        {L"0\"", 0.5, 0},
        {L"1\"", 0.51, 0},
        {L"0\"", 1.0 / 512, 8},
        {L"1/256\"", 1.01 / 512, 8},
        // A half that is exceeded by less than the tolerance is still a half.
        {L"0\"", 0.5 + 1e-10, 0},
        {L"1\"", 0.5 + 2e-10, 0},
    };
    ExpectTexts(rows, LengthIn::Inches, c_fraction);
}

TEST(ImperialFormat, ReducesFractionsByHalving)
{
    const Row rows[] = {
        {L"3/8\"", 6.0 / 16, 4},  {L"1/2\"", 0.5, 8},         {L"3/4\"", 0.75, 8},
        {L"1/16\"", 1.0 / 16, 8}, {L"15/16\"", 15.0 / 16, 4},
    };
    ExpectTexts(rows, LengthIn::Inches, c_fraction);
}

TEST(ImperialFormat, WritesFeetAndDecimalInchesWithoutTrailingZeros)
{
    const Row rows[] = {
        {L"0\"", 0.0, 2},
        {L"3'", 3.0, 2},
        {L"3'-4\"", 3 + 4.0 / 12, 3},
        {L"3'-4.5\"", 3 + 4.5 / 12, 3},
        {L"5'-11.37\"", 5.9479166, 2},
        {L"0.25\"", 0.25 / 12, 8},
        {L"10\"", 10.0 / 12, 2},
        {L"-6\"", -0.5, 1},
        {L"3'", 3 + 1e-12, 2},   // the inches are no more than the tolerance
        {L"3'-0\"", 3.0001, 2},  // they are more, and shown as nothing
    };
    ExpectTexts(rows, LengthIn::Feet, c_decimals);
}

TEST(ImperialFormat, KeptTrailingZerosOfAWholeNumberOfInchesAreRemovedBehindFeet)
{
    const Row rows[] = {
        {L"1\"", 10.0 / 12, 0}, {L"3'-1\"", 3 + 10.0 / 12, 0}, {L"\"", 0.0, 0},
        {L"3'-\"", 3.01, 0},    {L"11\"", 11.0 / 12, 0},
    };
    ExpectTexts(rows, LengthIn::Feet, c_decimals);
}

TEST(ImperialFormat, KeptOnlyTheGivenSeparatorIsRemovedBehindTheZeros)
{
    const Row rows[] = {
        {L"3.\"", 0.25, 2, L','},  {L"3\"", 0.25, 2, L'.'},      {L"4.5\"", 4.5 / 12, 2, L','},
        {L"3.\"", 0.25, 2, L'\0'}, {L"4.\"", 4.5 / 12, 1, L'5'},
    };
    ExpectTexts(rows, LengthIn::Feet, c_decimals);
}

TEST(ImperialFormat, KeptTrailingZerosStayInDecimalInches)
{
    const Row rows[] = {
        {L"1.50\"", 1.5, 2},
        {L"0.00\"", 0.0, 2},
        {L"10\"", 10.0, 0},
        {L"-40.500\"", -40.5, 3},
    };
    ExpectTexts(rows, LengthIn::Inches, c_decimals);
}

TEST(ImperialFormat, KeptDecimalInchesRoundedUpToTwelveDoNotCarry)
{
    const Row rows[] = {{L"3'-12\"", 3 + 11.999 / 12, 2}, {L"12\"", 11.999 / 12, 2}};
    ExpectTexts(rows, LengthIn::Feet, c_decimals);
}

TEST(ImperialFormat, KeptANegativeValueShownAsZeroHasItsSign)
{
    const Row rows[] = {
        {L"-0\"", -0.001, 2}, {L"0\"", -1e-10, 2}, {L"0\"", -1e-11, 2}, {L"0\"", -0.0, 2}, {L"-0\"", -1.1e-10, 2},
    };
    ExpectTexts(rows, LengthIn::Inches, c_fraction);
}

TEST(ImperialFormat, WritesNothingForOtherFormats)
{
    for (unsigned int format : {0u, 1u, 3u, 5u, 4294967295u})
        for (double value : {0.0, 1.5, -1.5})
            for (LengthIn in : {LengthIn::Feet, LengthIn::Inches})
                EXPECT_EQ(L"", Write(value, in, 4, L'.', static_cast<Unit::enumUNITFORMAT>(format))) << format;
}

TEST(ImperialFormat, ValuesBeyondAnIntAreBoundedTexts)
{
    EXPECT_EQ(L"2147483647\"", Write(2147483647.0, LengthIn::Inches, 4, L'.', c_fraction));
    EXPECT_EQ(L"-2147483647\"", Write(-1e300, LengthIn::Inches, 4, L'.', c_fraction));
    EXPECT_EQ(L"2147483647'", Write(c_infinity, LengthIn::Feet, 3, L'.', c_fraction));
    EXPECT_EQ(L"2147483647'-6\"", Write(2147483648.5, LengthIn::Feet, 3, L'.', c_fraction));  // the rest stays right
    EXPECT_EQ(L"2147483647'-6\"", Write(2147483648.5, LengthIn::Feet, 3, L'.', c_decimals));
    EXPECT_EQ(L"2147483647 1/2\"", Write(2147483648.5, LengthIn::Inches, 3, L'.', c_fraction));
    EXPECT_EQ(L"2147483647'", Write(c_infinity, LengthIn::Feet, 3, L'.', c_decimals));
    EXPECT_EQ(L"0\"", Write(std::nan(""), LengthIn::Feet, 3, L'.', c_fraction));
    EXPECT_EQ(L"1.#QNAN\"", Write(std::nan(""), LengthIn::Feet, 6, L'.', c_decimals));
    EXPECT_EQ(L"1.#INF00\"", Write(c_infinity, LengthIn::Inches, 6, L'.', c_decimals));
    EXPECT_EQ(310u, Write(std::numeric_limits<double>::max(), LengthIn::Inches, 0, L'.', c_decimals).size());
}

TEST(ImperialFormat, AnyPrecisionIsAllowed)
{
    const double denormal = std::numeric_limits<double>::denorm_min();
    EXPECT_EQ(L"1/512\"", Write(1.0 / 512, LengthIn::Inches, 9, L'.', c_fraction));
    EXPECT_EQ(L"1/2\"", Write(0.5, LengthIn::Inches, 1000, L'.', c_fraction));
    EXPECT_EQ(L"53687091/536870912\"", Write(0.1, LengthIn::Inches, 4294967295u, L'.', c_fraction));
    EXPECT_EQ(1074u + 3u, Write(denormal, LengthIn::Inches, 1074, L'.', c_decimals).size());
    EXPECT_EQ(1074u + 3u, Write(denormal, LengthIn::Inches, 2147483647u, L'.', c_decimals).size());
    EXPECT_EQ(L"0.500000\"", Write(0.5, LengthIn::Inches, 4294967295u, L'.', c_decimals));  // -1 as an int
}

}  // namespace
