#include "ValueTextCalls.h"

#include <algorithm>
#include <limits>

#include "vetools/units/UnitTypes.h"

using namespace valuetext;

namespace
{

constexpr double c_metresPerInch = 0.0254;

CVeUnitBase Length(unsigned int range, unsigned int precision)
{
    return MakeUnit(Unit::UNIT_ID_LENGTH, range, precision);
}

/// A foot that is written in a format of its own.
CVeUnitBase Foot(Unit::enumUNITFORMAT format, const wchar_t* name = L"'")
{
    CVeUnitBase unit = Length(6, 2);
    unit.SetUnitFormat(format);
    unit.SetName(name);
    return unit;
}

}  // namespace

TEST(ImperialUnitText, WritesMetresAsFeetInchesAndFractions)
{
    const struct
    {
        const wchar_t* expected;
        unsigned int range;
        unsigned int precision;
        double inches;
    } rows[] = {
        {L"0\"", 9, 4, 0.0},          {L"0\"", 10, 4, 0.0},       {L"5'-11 3/8\"", 9, 4, 71.375},
        {L"71 3/8\"", 10, 4, 71.375}, {L"-3/8\"", 10, 4, -0.375}, {L"3/8\"", 9, 4, 6.0 / 16},
        {L"1'", 9, 4, 11.999},        {L"12\"", 10, 4, 11.999},   {L"5'-11.38\"", 8, 2, 71.376},
        {L"3'", 8, 2, 36.0},          {L"1.5\"", 8, 2, 1.5},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, Ten(Length(row.range, row.precision), row.inches * c_metresPerInch))
            << "range " << row.range << " precision " << row.precision << " inches " << row.inches;
}

TEST(ImperialUnitText, InchFootAndYardAreDecimalNumbers)
{
    EXPECT_EQ(L"39.37 \"", Ten(Length(5, 2), 1.0, {.withUnit = 1}));
    EXPECT_EQ(L"3.28 '", Ten(Length(6, 2), 1.0, {.withUnit = 1}));
    EXPECT_EQ(L"1.09 Yd", Ten(Length(7, 2), 1.0, {.withUnit = 1}));
}

TEST(ImperialUnitText, KeptTheValueCountsAsMetresWhateverTheCoefficient)
{
    for (const double coef : {7.0, 0.0, -1.0, std::numeric_limits<double>::quiet_NaN()})
    {
        CVeUnitBase unit = Length(9, 4);
        unit.SetCoef(coef);
        EXPECT_EQ(L"5'-11 3/8\"", Ten(unit, 71.375 * c_metresPerInch)) << coef;
    }
}

TEST(ImperialUnitText, IgnoresTheUnitArgumentAndTheFormat)
{
    const CVeUnitBase unit = Length(9, 4);
    for (const int withUnit : {0, 1})
        EXPECT_EQ(L"5'-11 3/8\"",
                  Ten(unit, 71.375 * c_metresPerInch,
                      {.withUnit = withUnit, .format = L"%s", .removeTrailingZeros = 1, .smallValuesAsExponent = 1}));
}

TEST(ImperialUnitText, WritesWhatIsNoLengthAsNumbersGo)
{
    constexpr double c_infinity = std::numeric_limits<double>::infinity();
    constexpr double c_notANumber = std::numeric_limits<double>::quiet_NaN();
    const struct
    {
        const wchar_t* expected;
        unsigned int range;
        double metres;
    } rows[] = {
        {L"2147483647'", 8, c_infinity},
        {L"-2147483647'", 8, -c_infinity},
        {L"1.#QNAN\"", 8, c_notANumber},
        {L"1.#QNAN\"", 8, -c_notANumber},
        {L"2147483647'", 9, c_infinity},
        {L"0\"", 9, c_notANumber},
        {L"-2147483647\"", 10, -1e308},
        {L"0\"", 10, -c_notANumber},
        {L"0\"", 9, -1e-11},  // this near to zero there is no sign
        {L"0\"", 9, -0.0},
        {L"-0\"", 9, -1e-9},
        {L"0\"", 9, 5e-324},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, Ten(Length(row.range, 6), row.metres)) << "range " << row.range << ' ' << row.metres;
}

TEST(ImperialUnitText, DividesByTheMetricsFactorOfEveryLength)
{
    for (const unsigned int idUnit : {1u, 9u, 13u, 26u})
    {
        const CVeUnitBase unit(idUnit, 10, 4, L'.', 2.0, 1);
        EXPECT_EQ(L"3\"", Ten(unit, 6 * c_metresPerInch, {.applyMetricsFactor = 1})) << idUnit;
        EXPECT_EQ(L"6\"", Ten(unit, 6 * c_metresPerInch)) << idUnit;
    }
}

TEST(ImperialUnitText, KeptTheTextIsCopiedWholeWhateverTheBufferSize)
{
    for (const unsigned int bufferSize : {0u, 1u, 2u, 5u, 100u})
    {
        std::vector<wchar_t> buffer = GuardedBuffer();
        EXPECT_EQ(L"5'-11 3/8\"",
                  Ten(Length(9, 4), buffer.data(), 71.375 * c_metresPerInch, {.bufferSize = bufferSize}));
        EXPECT_STREQ(L"5'-11 3/8\"", buffer.data()) << bufferSize;
        EXPECT_EQ(c_guard, buffer[11]) << bufferSize;
    }
}

TEST(ImperialUnitText, AFractionFormatOutsideTheRanges9And10GivesNoText)
{
    EXPECT_EQ(L"", Ten(Foot(Unit::UNITFORMAT_FRACTION), 1.0, {.withUnit = 1}));
}

TEST(ImperialUnitText, KeptAFormatOfOtherUnitsLeavesTheCallersText)
{
    struct Row
    {
        const wchar_t* expected;  // what is returned
        const wchar_t* contents;  // what stands in the buffer up to the first terminator
        int withUnit;
        unsigned int bufferSize;
    };
    const Row rows[] = {
        {L"12 MM 3'", L"12 MM 3'", 1, 20}, {L"12  3", L"12  3", 0, 20},  // without the length symbols and their upper-case forms
        {L"12 MM 3'", L"12 MM 3'", 1, 8},                                // the terminator stands one past the size
        {L"12 MM 3'", L"12 ", 1, 3},       {L"12  3", L"12", 0, 2},     {L"12 MM 3'", L"", 1, 0},
    };
    for (const Row& row : rows)
    {
        std::vector<wchar_t> buffer(20, c_guard);
        std::copy_n(L"12 MM 3'", 9, buffer.begin());
        EXPECT_EQ(row.expected, Ten(Foot(Unit::UNITFORMAT_DECIMAL), buffer.data(), 1.0,
                                    {.withUnit = row.withUnit, .bufferSize = row.bufferSize}))
            << row.withUnit << ' ' << row.bufferSize;
        EXPECT_STREQ(row.contents, buffer.data()) << row.withUnit << ' ' << row.bufferSize;
        EXPECT_EQ(c_guard, buffer[9]) << row.bufferSize;
    }
    EXPECT_EQ(L"", Ten(Foot(Unit::UNITFORMAT_DECIMAL), nullptr, 1.0));
}

TEST(ImperialUnitText, ANameWithoutALengthMarkIsWrittenAsFeetAndDecimalInches)
{
    const CVeUnitBase feet = Foot(Unit::UNITFORMAT_FEET_INCHES, L"x");
    CVeUnitBase inches = Length(5, 1);
    inches.SetUnitFormat(Unit::UNITFORMAT_FRACTION);
    inches.SetName(L"x");
    EXPECT_EQ(L"3'-3.37\"", Ten(feet, 1.0, {.withUnit = 1}));
    EXPECT_EQ(L"3-3.37", Ten(feet, 1.0));
    EXPECT_EQ(L"-39.4\"", Ten(inches, -1.0, {.withUnit = 1}));

    std::vector<wchar_t> buffer(20, c_guard);
    EXPECT_EQ(L"3'-3.37\"", Ten(feet, buffer.data(), 1.0, {.withUnit = 1, .bufferSize = 4}));
    EXPECT_STREQ(L"3'-3", buffer.data());  // Kept: the terminator stands one past the size
    EXPECT_EQ(L'.', L"3'-3.37"[4]);
    EXPECT_EQ(c_guard, buffer[9]);
}

TEST(ImperialUnitText, AnotherRangeWithoutALengthMarkLeavesTheCallersText)
{
    CVeUnitBase yard = Length(7, 2);
    yard.SetUnitFormat(Unit::UNITFORMAT_FEET_INCHES);
    wchar_t buffer[20] = L"as it was";
    EXPECT_EQ(L"as it was", Ten(yard, buffer, 1.0, {.withUnit = 1, .bufferSize = 20}));
}
