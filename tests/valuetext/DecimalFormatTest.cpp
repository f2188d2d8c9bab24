#include "ValueTextCalls.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "vetools/units/UnitSeparator.h"
#include "vetools/units/UnitTypes.h"

using namespace valuetext;

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_notANumber = std::numeric_limits<double>::quiet_NaN();

/// A value in the unit of a quantity.
struct UnitRow
{
    const wchar_t* expected;
    unsigned int idUnit;
    unsigned int range;
    unsigned int precision;
    double value;
};

void ExpectTexts(std::span<const UnitRow> rows, const Settings& settings = {})
{
    for (const UnitRow& row : rows)
        EXPECT_EQ(row.expected, Ten(MakeUnit(row.idUnit, row.range, row.precision), row.value, settings))
            << "unit " << row.idUnit << ':' << row.range << " precision " << row.precision << " value " << row.value;
}

/// A value in one unit that the test makes.
struct ValueRow
{
    const wchar_t* expected;
    double value;
};

void ExpectTexts(const CVeUnitBase& unit, std::span<const ValueRow> rows, const Settings& settings = {})
{
    for (const ValueRow& row : rows)
        EXPECT_EQ(row.expected, Ten(unit, row.value, settings)) << "value " << row.value;
}

CVeUnitBase Newton(unsigned int precision)
{
    return MakeUnit(Unit::UNIT_ID_FORCE, 0, precision);
}
CVeUnitBase Metre(unsigned int precision)
{
    return MakeUnit(Unit::UNIT_ID_LENGTH, 4, precision);
}

}  // namespace

TEST(DecimalText, ShowsTheSiValueTimesTheCoefficientWithTheUnitsPrecision)
{
    const UnitRow rows[] = {
        //   expected            id  range  precision  value
        {L"0", 2, 0, 0, 0.0},
        {L"0.000", 2, 0, 3, 0.0},
        {L"-0.000", 2, 0, 3, -0.0},
        {L"12.50", 2, 2, 2, 12500.0},
        {L"-12.50", 2, 2, 2, -12500.0},
        {L"2", 2, 0, 0, 2.5},  // an exact half to the even digit: a force is no length
        {L"0.12", 2, 0, 2, 0.125},
        {L"1250.000", 1, 1, 3, 1.25},
        {L"57.2958", 5, 0, 4, 1.0},
        {L"141732.28", 16, 7, 2, 1.0},
        {L"0.33333333333333331483", 2, 0, 20, 1.0 / 3},
        {L"10000000000000000159028911097599180468360808563945281389781327557747838772170381060813469985856815104.0", 2,
         0, 1, 1e100},
        {L"0.0", 2, 0, 1, 4.9406564584124654e-324},
        {L"42", 27, 3, 0, 42.0},  // an unknown quantity has the coefficient 1
    };
    ExpectTexts(rows);
}

TEST(DecimalText, AppendsABlankAndTheDisplayName)
{
    const UnitRow rows[] = {
        {L"12.50 kN", 2, 2, 2, 12500.0}, {L"1250.0 mm", 1, 1, 1, 1.25}, {L"1000000.0 \u00B5m", 1, 0, 1, 1.0},
        {L"39.4 \"", 1, 5, 1, 1.0},      {L"3.3 '", 1, 6, 1, 1.0},      {L"5.0 m/s\u00B2", 17, 2, 1, 5.0},
        {L"7.0 %", 18, 1, 1, 7.0},       {L"7.0", 18, 0, 1, 7.0},  // no name: no blank either
        {L"7.0", 11, 0, 1, 7.0},
    };
    ExpectTexts(rows, {.withUnit = 1});
}

TEST(DecimalText, KeptImperialAreasAndVolumesReadSqInAndCuInWhateverTheirName)
{
    CVeUnitBase inch = MakeUnit(Unit::UNIT_ID_LENGTH, 5, 1);
    inch.SetExponent(2);
    EXPECT_EQ(L"1550.0 sq in", Ten(inch, 1.0, {.withUnit = 1}));
    inch.SetExponent(3);
    EXPECT_EQ(L"61023.7 cu in", Ten(inch, 1.0, {.withUnit = 1}));

    CVeUnitBase foot = MakeUnit(Unit::UNIT_ID_LENGTH, 6, 2);
    foot.SetExponent(2);
    EXPECT_EQ(L"10.76 sq in", Ten(foot, 1.0, {.withUnit = 1}));
    foot.SetName(L"acre");
    EXPECT_EQ(L"10.76 sq in", Ten(foot, 1.0, {.withUnit = 1}));
    foot.SetName(L"");
    EXPECT_EQ(L"10.76", Ten(foot, 1.0, {.withUnit = 1}));
}

TEST(DecimalText, RoundsLengthsUpFromOnePercentOfAStepBelowTheMidpoint)
{
    const UnitRow rows[] = {
        {L"1.01", 1, 4, 2, 1.0049}, {L"1.00", 1, 4, 2, 1.0048}, {L"2.35", 1, 4, 2, 2.345},   {L"2.34", 1, 4, 2, 2.3448},
        {L"3", 1, 4, 0, 2.5},       {L"2", 1, 4, 0, 2.48},      {L"1.000", 1, 4, 3, 0.9995},
    };
    const UnitRow others[] = {
        {L"1.00", 2, 0, 2, 1.0049},  // only lengths are rounded so
        {L"2", 2, 0, 0, 2.5},
    };
    ExpectTexts(rows);
    ExpectTexts(others);
}

TEST(DecimalText, KeptLengthsRoundTowardsPlusInfinity)
{
    const UnitRow rows[] = {
        {L"0.00", 1, 4, 2, -0.005}, {L"-0.01", 1, 4, 2, -0.0052}, {L"-2.34", 1, 4, 2, -2.345},
        {L"-1", 1, 4, 0, -1.5},     {L"0", 1, 4, 0, -0.3},
    };
    ExpectTexts(rows);
}

TEST(DecimalText, KeptANameCountsAsALengthWhenALengthSymbolStandsAnywhereInIt)
{
    const UnitRow rows[] = {
        {L"2.35", 3, 0, 2, 2.345},  // N*m
        {L"3", 8, 1, 0, 150.0},     // min: 2.5
        {L"3", 16, 2, 0, 2.5},      // m/s
        {L"2", 8, 0, 0, 2.5},       // s
        {L"2", 15, 0, 0, 2.5},      // J
    };
    ExpectTexts(rows);

    CVeUnitBase unit = Newton(0);
    for (const wchar_t* name : {L"\u00B5m", L"mm", L"cm", L"dm", L"m", L"\"", L"'", L"x'y", L"N/m"})
    {
        unit.SetName(name);
        EXPECT_EQ(L"3", Ten(unit, 2.5)) << testing::PrintToString(std::wstring(name));
    }
    for (const wchar_t* name : {L"", L"M", L"\u00B5", L"d", L"Yd", L"kN"})
    {
        unit.SetName(name);
        EXPECT_EQ(L"2", Ten(unit, 2.5)) << testing::PrintToString(std::wstring(name));
    }
}

TEST(DecimalText, ShowsLengthsBelowAMillimetreAsZeroWhenThePrecisionIsTooSmall)
{
    const UnitRow rows[] = {
        {L"0.00", 1, 4, 2, 0.0005}, {L"0.00", 21, 4, 2, 0.0005}, {L"0", 1, 1, 0, 0.0005},  // mm
        {L"0.00", 1, 4, 2, -0.0},   {L"0.001", 1, 4, 3, 0.001},  {L"0.00", 1, 4, 2, 0.00099},
    };
    ExpectTexts(rows);
}

TEST(DecimalText, KeptQuantity12ShowsLessThanAMillimetre)
{
    EXPECT_EQ(L"0.0005", Ten(MakeUnit(Unit::UNIT_ID_LENGTH_12, 4, 2), 0.0005));
    EXPECT_EQ(L"0.00", Ten(MakeUnit(Unit::UNIT_ID_LENGTH_13, 4, 2), 0.0005));
}

TEST(DecimalText, WidensThePrecisionToTheFirstSignificantDecimalOfOtherSmallLengths)
{
    const UnitRow rows[] = {
        {L"0.0005", 12, 4, 2, 0.0005},    {L"0.0005", 12, 4, 0, 0.00052},
        {L"0.005", 1, 4, 2, 0.0051},      {L"0.001", 1, 4, 2, 0.0012},
        {L"0.5", 1, 2, 0, 0.005},  // cm
        {L"0.9", 1, 4, 0, 0.9},           {L"0.000000000001", 12, 4, 2, 1e-12},
        {L"0.00", 12, 4, 2, 1e-13},  // all twelve decimals are zero
        {L"1", 1, 4, 0, 0.9999999999999},
    };
    ExpectTexts(rows);
}

TEST(DecimalText, KeptThePrecisionIsNotWidenedForAnotherSeparatorThanAFullStop)
{
    CVeUnitBase unit = MakeUnit(Unit::UNIT_ID_LENGTH_12, 4, 2);
    unit.SetSep(L',');
    EXPECT_EQ(L"0.00", Ten(unit, 0.0005));
    unit.SetSep(L'0');  // found in front of the point, which then is the first significant character
    EXPECT_EQ(L"0.0", Ten(unit, 0.0005));
}

TEST(DecimalText, RemovesTrailingZerosAndThenTheSeparator)
{
    const ValueRow rows[] = {
        {L"12.5", 12.5}, {L"12", 12.0}, {L"100", 100.0}, {L"0", 0.0}, {L"-0", -0.0}, {L"0.001", 0.001}, {L"0.1", 0.1},
    };
    ExpectTexts(Newton(3), rows, {.removeTrailingZeros = 1});
    EXPECT_EQ(L"100", Ten(Newton(0), 100.0, {.removeTrailingZeros = 1}));  // without a separator there are no decimals
    EXPECT_EQ(L"12.5 N", Ten(Newton(3), 12.5, {.withUnit = 1, .removeTrailingZeros = 1}));
}

TEST(DecimalText, KeptTheUnitsOwnFlagForTrailingZerosIsNotRead)
{
    CVeUnitBase unit = Newton(2);
    for (const int flag : {0, 1})
    {
        unit.SetRemoveTrailingZeroes(flag);
        EXPECT_EQ(L"12.50", Ten(unit, 12.5)) << flag;
        EXPECT_EQ(L"12.5", Ten(unit, 12.5, {.removeTrailingZeros = 1})) << flag;
    }
}

TEST(DecimalText, KeptNothingIsStrippedForAnotherSeparatorThanAFullStop)
{
    CVeUnitBase unit = Newton(2);
    unit.SetSep(L',');
    EXPECT_EQ(L"12.50", Ten(unit, 12.5, {.removeTrailingZeros = 1}));
    unit.SetSep(L'5');  // a digit is a separator like any other
    EXPECT_EQ(L"12.", Ten(unit, 12.5, {.removeTrailingZeros = 1}));
}

TEST(DecimalText, WritesSmallValuesWithAnExponent)
{
    struct Row
    {
        const wchar_t* expected;
        double value;
        int threshold;
    };
    const Row rows[] = {
        {L"0.100", 0.1, 0},
        {L"9.900e-02", 0.099, 0},
        {L"0.010", 0.01, 1},
        {L"9.900e-03", 0.0099, 1},
        {L"0.001", 0.001, 2},
        {L"5.000e-04", 0.0005, 2},
        {L"-5.000e-04", -0.0005, 2},
        {L"-0.001", -0.001, 2},
        {L"-5.000", -5.0, 2},
        {L"0.001", 0.0005, 3},
        {L"5.000e-05", 0.00005, 3},
        {L"5.000e-06", 0.000005, 4},
        {L"5.000e-07", 0.0000005, 5},
        {L"0.000", 0.000001, 5},
        {L"0.000", 0.0, 0},  // zero never is
        {L"-0.000", -0.0, 0},
        {L"0.000", 0.99e-10, 0},  // its square is that of zero
        {L"1.100e-10", 1.1e-10, 0},
        {L"0.001", 0.0005, -1},  // no such threshold; 0.0005 lies above the midpoint
        {L"0.001", 0.0005, 6},
        {L"0.001", 0.0005, std::numeric_limits<int>::min()},
        {L"0.001", 0.0005, std::numeric_limits<int>::max()},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.expected,
                  Ten(Newton(3), row.value, {.smallValuesAsExponent = 1, .smallValueThreshold = row.threshold}))
            << row.value << " threshold " << row.threshold;
    EXPECT_EQ(L"0.001", Ten(Newton(3), 0.0005, {.smallValueThreshold = 2}));
}

TEST(DecimalText, WritesExponentsWithTheUnitsPrecisionAndAllTheirZeros)
{
    const Settings settings{.removeTrailingZeros = 1, .smallValuesAsExponent = 1, .smallValueThreshold = 2};
    EXPECT_EQ(L"5.00e-04", Ten(MakeUnit(Unit::UNIT_ID_LENGTH_12, 4, 2), 0.0005, settings));
    EXPECT_EQ(L"5e-04", Ten(Newton(0), 0.0005, settings));
    EXPECT_EQ(L"0", Ten(Metre(3), 0.0004, settings));  // a length that is rounded to zero is zero
}

TEST(DecimalText, AddsTheOffsetsOfFahrenheitAndKelvin)
{
    const UnitRow rows[] = {
        {L"100.0", 10, 0, 1, 100.0}, {L"212.0", 10, 1, 1, 100.0}, {L"32.0", 10, 1, 1, 0.0},
        {L"273.15", 10, 2, 2, 0.0},  {L"-0.0", 10, 0, 1, -0.0},
    };
    ExpectTexts(rows);
}

TEST(DecimalText, KeptTheTwelveArgumentFormAddsNoOffset)
{
    EXPECT_EQ(L"180.0", Twelve(MakeUnit(10, 1, 1), 100.0));
    EXPECT_EQ(L"0.00", Twelve(MakeUnit(10, 2, 2), 0.0));
}

TEST(DecimalText, DividesByTheMetricsFactorToTheUnitsPower)
{
    CVeUnitBase unit(Unit::UNIT_ID_LENGTH, 1, 1, L'.', 4.0, 1);
    EXPECT_EQ(L"1000.0", Ten(unit, 1.0));
    EXPECT_EQ(L"250.0", Ten(unit, 1.0, {.applyMetricsFactor = 1}));
    unit.SetExponent(2);
    EXPECT_EQ(L"62500.0", Ten(unit, 1.0, {.applyMetricsFactor = 1}));
    unit.SetExponent(3);
    EXPECT_EQ(L"15625000.0", Ten(unit, 1.0, {.applyMetricsFactor = 1}));
    unit.SetExponent(-1);
    EXPECT_EQ(L"0.004", Ten(unit, 1.0, {.applyMetricsFactor = 1, .removeTrailingZeros = 1}));
}

TEST(DecimalText, KeptFourLengthsAndEveryOtherQuantityIgnoreTheMetricsFactor)
{
    for (unsigned int idUnit = 0; idUnit <= 60; ++idUnit)
    {
        const bool divided = idUnit == 1 || idUnit == 12 || (idUnit >= 21 && idUnit <= 26);
        CVeUnitBase unit(idUnit, 4, 1, L'.', 4.0, 1);
        unit.SetCoef(1.0);
        unit.SetName(L"u");
        EXPECT_EQ(divided ? L"2.0" : L"8.0", Ten(unit, 8.0, {.applyMetricsFactor = 1})) << idUnit;
    }
}

TEST(DecimalText, NamesInfinities)
{
    for (const unsigned int precision : {0u, 1u, 6u, 20u})
    {
        EXPECT_EQ(L"INF", Ten(Newton(precision), c_infinity)) << precision;
        EXPECT_EQ(L"-INF", Ten(Newton(precision), -c_infinity)) << precision;
        EXPECT_EQ(L"INF m", Ten(Metre(precision), c_infinity, {.withUnit = 1})) << precision;
        EXPECT_EQ(L"-INF m", Ten(Metre(precision), -c_infinity, {.withUnit = 1})) << precision;
    }
    EXPECT_EQ(L"INF", Ten(Newton(2), 1e308 * 10, {.removeTrailingZeros = 1, .smallValuesAsExponent = 1}));
    EXPECT_EQ(L"INF m", Twelve(Metre(3), c_infinity, {.withUnit = 1, .superscriptSubUnits = 1}));
}

TEST(DecimalText, KeptTheIndefiniteIsMinusInfinityAndOtherNotANumbersStayAsPrinted)
{
    EXPECT_EQ(L"-INF", Ten(Newton(3), -c_notANumber));
    EXPECT_EQ(L"1.#QNAN0", Ten(Newton(6), c_notANumber));
    EXPECT_EQ(L"1.#QNAN0 N", Ten(Newton(6), c_notANumber, {.withUnit = 1}));
    EXPECT_EQ(L"-INF", Ten(Metre(3), -c_notANumber));
    EXPECT_EQ(L"1.#QNAN0", Ten(Metre(6), c_notANumber));
}

TEST(DecimalText, TakesAnyPrecision)
{
    EXPECT_EQ(L"1.000000", Ten(Newton(0xFFFFFFFFu), 1.0));  // -1 as "%.*f" takes it
    EXPECT_EQ(L"1.000000", Ten(Newton(0x80000000u), 1.0));
    EXPECT_EQ(L"1." + std::wstring(300, L'0'), Ten(Newton(300), 1.0));
    EXPECT_EQ(L"1." + std::wstring(1500, L'0'), Ten(Newton(1500), 1.0));
    EXPECT_EQ(L"1.0000000000000000000000000", Ten(Metre(25), 1.0));
}

TEST(DecimalText, KeptALengthWithAPrecisionBeyondTheDoublesIsMinusInfinity)
{
    // The step is zero: what is divided by it and multiplied with it again is indefinite.
    for (const unsigned int precision : {324u, 400u, 65536u, 0x7FFFFFFFu, 0xFFFFFFFFu})
    {
        std::vector<wchar_t> buffer(70000);
        EXPECT_EQ(L"-INF", Ten(Metre(precision), buffer.data(), 1.0)) << precision;
        EXPECT_EQ(L"-INF", Ten(Metre(precision), buffer.data(), 0.0)) << precision;
        EXPECT_EQ(L"-INF", Ten(Metre(precision), buffer.data(), -2.5)) << precision;
    }
}

TEST(DecimalText, TakesAnyCoefficient)
{
    CVeUnitBase unit = Metre(2);
    unit.SetCoef(0.0);
    EXPECT_EQ(L"0.00", Ten(unit, 5.0));  // 0/0 metres are not below a millimetre, and no decimal is significant
    unit.SetCoef(-2.0);
    EXPECT_EQ(L"-10.00", Ten(unit, 5.0));
    unit.SetCoef(c_infinity);
    EXPECT_EQ(L"INF", Ten(unit, 5.0));
    unit.SetCoef(c_notANumber);
    EXPECT_EQ(L"1.#R", Ten(unit, 5.0));  // as printed with two decimals
    unit = MakeUnit(Unit::UNIT_ID_LENGTH_12, 4, 2);
    unit.SetCoef(-2.0);
    EXPECT_EQ(L"0.006", Ten(unit, -0.003));  // the small value in the unit is what counts
}

TEST(DecimalText, TakesAnyMetricsFactor)
{
    const struct
    {
        const wchar_t* expected;
        double metricsFactor;
        int exponent;
    } rows[] = {
        {L"INF", 0.0, 1},           {L"-INF", -0.0, 1},       {L"INF", -0.0, 2},
        {L"-2.00", -4.0, 1},        {L"0.50", -4.0, 2},       {L"-0.12", -4.0, 3},  // -0.125, and half way is up
        {L"-32.00", -4.0, -1},      {L"8.00", 0.0, 0},                              // any factor to the power of 0 is 1
        {L"8.00", c_notANumber, 0}, {L"0.00", c_infinity, 1}, {L"1.#R", c_notANumber, 1},
    };
    for (const auto& row : rows)
    {
        CVeUnitBase unit = Metre(2);
        unit.SetExponent(row.exponent);
        unit.SetCoef(1.0);
        unit.SetMetricsFactor(row.metricsFactor);
        EXPECT_EQ(row.expected, Ten(unit, 8.0, {.applyMetricsFactor = 1}))
            << "factor " << row.metricsFactor << " exponent " << row.exponent;
    }
}

TEST(DecimalText, AppliesTheCallersFormatToThePrecisionAndTheValue)
{
    const struct
    {
        const wchar_t* expected;
        const wchar_t* format;
    } rows[] = {
        {L"1234.50", L"%.*f"},        {L"1234.50", L"%.*lf"},
        {L"1234.50", nullptr},        {L"+1234.50", L"%+.*f"},
        {L"[1234.50]", L"[%.*f]"},    {L"1.23e+03", L"%.*e"},
        {L"1.23E+03", L"%.*E"},       {L"1.2e+03", L"%.*g"},
        {L"2 1234.500000", L"%d %f"}, {L"%1234.50", L"%%%.*f"},
        {L"1234.50%", L"%.*f%%"},     {L"1234.50f", L"%.*ff"},
        {L"plain", L"plain"},         {L"", L""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, Ten(Newton(2), 1234.5, {.format = row.format}))
            << testing::PrintToString(std::wstring(row.format ? row.format : L"(null)"));
}

TEST(DecimalText, SurvivesFormatsThatAskForOtherArguments)
{
    for (const wchar_t* format : {L"%s",
                                  L"%n",
                                  L"%s%n%d%d%d",
                                  L"%",
                                  L"%.",
                                  L"%.*",
                                  L"%*.*f",
                                  L"%*.*f%s",
                                  L"%p",
                                  L"%S",
                                  L"%c",
                                  L"%hs",
                                  L"%I64d",
                                  L"%l",
                                  L"%.*f%.*f%.*f",
                                  L"%2147483647d",
                                  L"%99999999999f",
                                  L"%.99999999999f",
                                  L"%-*.*f",
                                  L"%y",
                                  L"%f%f%f%f%f%s",
                                  L"%.*f%n"})
    {
        std::vector<wchar_t> buffer(200000, c_guard);
        const std::wstring text = Ten(Newton(2), buffer.data(), 1234.5, {.withUnit = 1, .format = format});
        EXPECT_LT(text.size(), buffer.size()) << testing::PrintToString(std::wstring(format));
    }
}

TEST(DecimalText, RaisesMillimetresAndWhatIsFiner)
{
    const struct
    {
        const wchar_t* expected;
        unsigned int range;
        unsigned int precision;
        double value;
        int dropZeros;
    } rows[] = {
        {L"\\A1;1.23{\\H0.6x;\\S4^;}", 4, 3, 1.234, 0},
        {L"\\A1;1.23{\\H0.6x;\\S0^;}", 4, 3, 1.23, 0},
        {L"\\A1;1.23", 4, 3, 1.23, 1},
        {L"\\A1;1.23{\\H0.6x;\\S04^;}", 4, 4, 1.2304, 1},
        {L"\\A1;1.2", 4, 1, 1.2, 0},
        {L"\\A1;12.3{\\H0.6x;\\S45^;}", 3, 3, 1.2345, 0},  // dm: one decimal stands for the millimetres
        {L"\\A1;123{\\H0.6x;\\S4^;}", 2, 1, 1.234, 0},     // cm: none
        {L"\\A1;1234.5", 1, 1, 1.2345, 0},                 // mm: nothing is raised
        {L"\\A1;1234500.0", 0, 1, 1.2345, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, Twelve(MakeUnit(Unit::UNIT_ID_LENGTH, row.range, row.precision), row.value,
                                       {.superscriptSubUnits = 1, .dropZeroSuperscript = row.dropZeros}))
            << "range " << row.range << " precision " << row.precision << " value " << row.value;

    EXPECT_EQ(L"\\A1;1.23{\\H0.6x;\\S4^;} m", Twelve(Metre(3), 1.234, {.withUnit = 1, .superscriptSubUnits = 1}));
    EXPECT_EQ(L"1.234", Twelve(Metre(3), 1.234));
}

TEST(DecimalText, RaisesNothingThatIsNoMetricLength)
{
    EXPECT_EQ(L"1.234", Twelve(Newton(3), 1.234, {.superscriptSubUnits = 1}));
    EXPECT_EQ(L"39.370", Twelve(MakeUnit(Unit::UNIT_ID_LENGTH, 5, 3), 1.0, {.superscriptSubUnits = 1}));
}

TEST(DecimalText, TheTwelveArgumentFormIsOtherwiseTheTenArgumentForm)
{
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        for (unsigned int range = 0; range <= 12; ++range)
            for (const double value : {0.0, 1.0, -1.0, 0.0005, 2.345, 1e10, -1e-3})
                for (const int flag : {0, 1})
                {
                    if (idUnit == Unit::UNIT_ID_TEMPERATURE && range > 0)
                        continue;
                    const CVeUnitBase unit = MakeUnit(idUnit, range, 3);
                    const Settings settings{.withUnit = flag,
                                            .applyMetricsFactor = 1,
                                            .removeTrailingZeros = flag,
                                            .smallValuesAsExponent = flag,
                                            .smallValueThreshold = 2};
                    EXPECT_EQ(Ten(unit, value, settings), Twelve(unit, value, settings))
                        << idUnit << ':' << range << ' ' << value << ' ' << flag;
                }
}

TEST(DecimalText, WritesTheDigitsOfARoundedLengthAsPrintingItDoes)
{
    // "%0.*f" prints the rounded value itself.
    const Settings printed{.format = L"%0.*f"};
    std::mt19937_64 random(20210118);
    for (int i = 0; i < 20000; ++i)
    {
        CVeUnitBase unit = Metre(static_cast<unsigned int>(random() % 24));
        const double value =
            std::ldexp(static_cast<double>(static_cast<std::int64_t>(random())), -static_cast<int>(random() % 80));
        EXPECT_EQ(Ten(unit, value, printed), Ten(unit, value)) << unit.GetPrecision() << ' ' << value;
    }
    for (int i = -2000; i <= 2000; ++i)
        for (const unsigned int precision : {0u, 1u, 2u, 3u, 15u, 22u, 23u})
        {
            const double value = i / 2.0 * std::pow(10.0, -static_cast<int>(precision));
            EXPECT_EQ(Ten(Metre(precision), value, printed), Ten(Metre(precision), value)) << precision << ' ' << value;
        }
}
