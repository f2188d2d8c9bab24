#include "ValueTextCalls.h"

#include <cmath>
#include <limits>
#include <random>

#include "vetools/units/UnitSeparator.h"
#include "vetools/units/UnitTypes.h"

using namespace valuetext;

namespace
{

constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_inchesPerMetre = 39.37007874015748;
constexpr double c_feetPerMetre = 3.2808398950131235;

CVeUnitBase Newton()
{
    return MakeUnit(Unit::UNIT_ID_FORCE, 0, 3);
}

/// A length unit with a metrics factor.
CVeUnitBase Length(unsigned int range, double metricsFactor)
{
    return CVeUnitBase(Unit::UNIT_ID_LENGTH, range, 3, L'.', metricsFactor, 1);
}

/// Restores the current decimal separator.
class SeparatorGuard
{
public:
    ~SeparatorGuard() { CVeUnitSeparator::m_cSep = m_before; }

private:
    wchar_t m_before = CVeUnitSeparator::m_cSep;
};

std::wstring WithoutPrecision(const wchar_t* text)
{
    CString result(text);
    CVeUnitBase::EliminatePrecision(result);
    return result.GetString();
}

/// The removal step by step: a run from the first separator on is taken out of the whole text, then the next one.
std::wstring WithoutPrecisionStepByStep(std::wstring text)
{
    for (const wchar_t separator : {L'.', L','})
    {
        for (std::size_t begin; (begin = text.find(separator)) != std::wstring::npos;)
        {
            const std::size_t end = text.find_first_not_of(L"Ee0123456789+-.,", begin);
            const std::wstring run = text.substr(begin, end - begin);
            std::wstring rest;
            std::size_t done = 0;
            for (std::size_t found; (found = text.find(run, done)) != std::wstring::npos; done = found + run.size())
                rest += text.substr(done, found - done);
            text = rest + text.substr(done);
        }
    }
    return text;
}

}  // namespace

TEST(ValueParse, AnEmptyTextGivesZeroAndLeavesTheFlag)
{
    for (const wchar_t* text : {static_cast<const wchar_t*>(nullptr), L""})
        for (const unsigned int range : {4u, 9u})
        {
            int ok = 42;
            EXPECT_EQ(0.0, Length(range, 1.0).String2Double(text, &ok, 1));
            EXPECT_EQ(42, ok);
            EXPECT_EQ(0.0, Length(range, 1.0).String2Double(text, nullptr, 0));
        }
}

TEST(ValueParse, ReadsTheNumberInFrontAndIgnoresWhatFollows)
{
    const struct
    {
        double expected;
        const wchar_t* text;
    } rows[] = {
        {12.5, L"12.5"},
        {12.5, L"12.5 kN"},
        {-12.5, L"  \t-12.5;"},
        {7.0, L"\n\v\f\r 7"},
        {0.0, L"- 7"},
        {0.0, L"--7"},
        {12.5, L"+12.5x"},
        {1000.0, L"1e3"},
        {1.0, L"1e"},
        {0.5, L".5"},
        {5.0, L"5."},
        {1.0, L"1,5"},  // Kept: only the full stop separates decimals
        {0.0, L"abc"},
        {0.0, L"-"},
        {0.0, L" "},
        {0.0, L"inf"},
        {0.0, L"nan"},
        {0.0, L"INF"},
        {0.0, L"0x10"},
        {c_infinity, L"1e400"},
        {0.0, L"1e-400"},
        {4.9406564584124654e-324, L"4.9406564584124654e-324"},
        {0.1, L"0.1000000000000000055511151231257827021181583404541015625"},
    };
    for (const auto& row : rows)
    {
        int ok = 42;
        EXPECT_EQ(row.expected, Newton().String2Double(row.text, &ok, 0))
            << testing::PrintToString(std::wstring(row.text));
        EXPECT_EQ(1, ok) << testing::PrintToString(std::wstring(row.text));
        EXPECT_EQ(row.expected, Newton().String2Double(row.text, nullptr, 0));
    }
}

TEST(ValueParse, KeptTheUnitsSeparatorIsNotConsulted)
{
    CVeUnitBase unit = Newton();
    unit.SetSep(L',');
    EXPECT_EQ(1.0, unit.String2Double(L"1,5", nullptr, 0));
    EXPECT_EQ(1.5, unit.String2Double(L"1.5", nullptr, 0));
}

TEST(ValueParse, DividesByTheCoefficientAndMultipliesWithTheMetricsFactorToTheUnitsPower)
{
    CVeUnitBase unit = Length(1, 4.0);
    EXPECT_EQ(0.25, unit.String2Double(L"250", nullptr, 0));
    EXPECT_EQ(1.0, unit.String2Double(L"250", nullptr, 1));
    unit.SetExponent(2);
    EXPECT_EQ(0.25, unit.String2Double(L"250000", nullptr, 0));
    EXPECT_EQ(4.0, unit.String2Double(L"250000", nullptr, 1));
    unit.SetExponent(3);
    EXPECT_DOUBLE_EQ(16.0, unit.String2Double(L"250000000", nullptr, 1));
}

TEST(ValueParse, KeptTheMetricsFactorCountsForEveryQuantity)
{
    EXPECT_EQ(10.0, CVeUnitBase(Unit::UNIT_ID_FORCE, 0, 3, L'.', 2.0, 1).String2Double(L"5", nullptr, 1));
    EXPECT_EQ(10.0, CVeUnitBase(Unit::UNIT_ID_LENGTH_9, 4, 3, L'.', 2.0, 1).String2Double(L"5", nullptr, 1));
}

TEST(ValueParse, KeptTemperatureOffsetsAreNotUndone)
{
    EXPECT_EQ(212.0 / 1.8, MakeUnit(Unit::UNIT_ID_TEMPERATURE, 1, 3).String2Double(L"212", nullptr, 0));
    EXPECT_EQ(273.15, MakeUnit(Unit::UNIT_ID_TEMPERATURE, 2, 3).String2Double(L"273.15", nullptr, 0));
}

TEST(ValueParse, ReadsImperialLengthsAsFeetInchesAndFractions)
{
    const struct
    {
        double inches;
        unsigned int range;
        const wchar_t* text;
    } rows[] = {
        {40.5, 10, L"3'-4 1/2\""},   {4.5, 10, L"4 1/2"}, {36.0, 10, L"3'"},  {7.0, 10, L"7"},
        {-40.5, 10, L"-3'-4 1/2\""}, {18.0, 5, L"18\""},  {18.5, 5, L"18.5"}, {18.0, 5, L"1.5'"},
    };
    for (const auto& row : rows)
        for (const int flag : {0, 1})
        {
            int ok = 42;
            EXPECT_EQ(row.inches / c_inchesPerMetre, Length(row.range, 1.0).String2Double(row.text, &ok, flag))
                << testing::PrintToString(std::wstring(row.text));
            EXPECT_EQ(1, ok);
        }
}

TEST(ValueParse, ConvertsInchesAsTheMetricsFactorAndTheCoefficientSay)
{
    // 3'-6" is 42 inches.
    const struct
    {
        double expected;
        unsigned int range;
        double metricsFactor;
        int flag;
    } rows[] = {
        {42.0, 10, c_inchesPerMetre, 1},
        {42.0 / c_inchesPerMetre, 10, c_inchesPerMetre, 0},
        {42.0, 9, c_inchesPerMetre + 1e-11, 1},  // equal as far as units go
        {3.5, 10, c_feetPerMetre, 1},
        {42.0 / c_inchesPerMetre, 10, c_feetPerMetre, 0},
        {3.5, 6, c_feetPerMetre - 1e-11, 1},
        {2.0 * (42.0 / 12.0 / c_feetPerMetre), 9, 2.0, 1},
        {2.0 * (42.0 / c_feetPerMetre), 9, 2.0, 0},  // Kept: the inches count as feet
        {2.0 * (42.0 / c_feetPerMetre), 6, 2.0, 0},
        {2.0 * (42.0 / c_feetPerMetre), 8, 2.0, 0},
        {2.0 * (42.0 / c_inchesPerMetre), 10, 2.0, 1},
        {2.0 * (42.0 / c_inchesPerMetre), 10, 2.0, 0},  // Kept: whatever the flag
        {2.0 * (42.0 / c_inchesPerMetre), 5, 2.0, 0},
        {2.0 * (42.0 / c_inchesPerMetre), 7, 2.0, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, Length(row.range, row.metricsFactor).String2Double(L"3'-6\"", nullptr, row.flag))
            << "range " << row.range << " factor " << row.metricsFactor << " flag " << row.flag;
}

TEST(ValueParse, KeptFeetTakeInchesForFeetUnlessTheMetricsFactorIsAskedForAndOtherLengthsAlwaysHaveIt)
{
    EXPECT_EQ(36.0 / c_feetPerMetre, Length(6, 1.0).String2Double(L"3'", nullptr, 0));
    EXPECT_EQ(3.0 / c_feetPerMetre, Length(6, 1.0).String2Double(L"3'", nullptr, 1));
    EXPECT_EQ(2.0 * (36.0 / c_inchesPerMetre), Length(5, 2.0).String2Double(L"3'", nullptr, 0));
    EXPECT_EQ(2.0 * (36.0 / c_inchesPerMetre), Length(5, 2.0).String2Double(L"3'", nullptr, 1));
}

TEST(ValueParse, TakesAnyCoefficientAndMetricsFactor)
{
    CVeUnitBase unit = Length(4, 0.0);
    EXPECT_EQ(0.0, unit.String2Double(L"5", nullptr, 1));
    unit.SetMetricsFactor(-2.0);
    EXPECT_EQ(-10.0, unit.String2Double(L"5", nullptr, 1));
    unit.SetCoef(0.0);
    EXPECT_EQ(c_infinity, unit.String2Double(L"5", nullptr, 0));
    EXPECT_EQ(-c_infinity, unit.String2Double(L"5", nullptr, 1));
    EXPECT_TRUE(std::isnan(unit.String2Double(L"0", nullptr, 0)));
    unit.SetMetricsFactor(std::nan(""));
    EXPECT_TRUE(std::isnan(unit.String2Double(L"5", nullptr, 1)));
    EXPECT_TRUE(std::isnan(Length(10, std::nan("")).String2Double(L"5", nullptr, 0)));
    EXPECT_EQ(-5.0 / c_inchesPerMetre, Length(10, -1.0).String2Double(L"5", nullptr, 0));
}

TEST(ValueParse, ReportsAnImperialTextThatIsNoLength)
{
    for (const wchar_t* text : {L"abc", L"3'-4-5-6-7", L"1 2 3 4 5", L"*", L"3''", L"\n3'", L" ", L"-"})
    {
        int ok = 42;
        EXPECT_EQ(0.0, Length(9, 1.0).String2Double(text, &ok, 1)) << testing::PrintToString(std::wstring(text));
        EXPECT_EQ(0, ok) << testing::PrintToString(std::wstring(text));
        EXPECT_EQ(0.0, Length(9, 1.0).String2Double(text, nullptr, 1));
    }
}

TEST(ValueParse, AnImperialUnitOutsideTheImperialRangesReadsNothingAsZero)
{
    for (const unsigned int range : {0u, 4u})
    {
        CVeUnitBase unit = Length(range, 1.0);
        unit.SetUnitType(Unit::UNIT_TYPE_IMPERIAL);
        int ok = 42;
        EXPECT_EQ(0.0, unit.String2Double(L"12", &ok, 1)) << range;
        EXPECT_EQ(1, ok) << range;
    }
}

TEST(ValueParse, AnImperialAreaIsADecimalNumber)
{
    CVeUnitBase unit = Length(5, 1.0);
    unit.SetExponent(2);
    EXPECT_EQ(1550.0 / unit.GetCoef(), unit.String2Double(L"1550 sq in", nullptr, 0));
}

TEST(ValueRoundTrip, EveryDecimalTextReadsAsTheValueThatItShows)
{
    constexpr unsigned int c_seed = 20240611;
    std::mt19937_64 random(c_seed);
    std::uniform_real_distribution<double> magnitudes(-3.0, 8.0);
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        for (unsigned int range = 0; range <= 12; ++range)
            for (int i = 0; i < 40; ++i)
            {
                const CVeUnitBase unit = MakeUnit(idUnit, range, 8);
                if (unit.GetType() == Unit::UNIT_TYPE_IMPERIAL)
                    continue;  // below
                const double value = std::pow(10.0, magnitudes(random)) * (i % 2 ? 1 : -1);
                wchar_t buffer[400];
                // Offsets are added on the way out only, and are no part of this.
                const std::wstring text = Twelve(unit, buffer, value, {.withUnit = i % 3, .bufferSize = 400});
                const double shown = unit.String2Double(text.c_str(), nullptr, 0);
                EXPECT_NEAR(value, shown, 1.1e-8 / unit.GetCoef() + std::abs(value) * 1e-14)
                    << idUnit << ':' << range << ' ' << testing::PrintToString(text) << " seed " << c_seed;
            }
}

TEST(ValueRoundTrip, EveryImperialTextReadsAsTheValueThatItShows)
{
    constexpr unsigned int c_seed = 20240612;
    std::mt19937_64 random(c_seed);
    std::uniform_real_distribution<double> metres(0.0, 1000.0);
    for (const unsigned int range : {5u, 6u, 8u, 9u, 10u})
        for (int i = 0; i < 2000; ++i)
        {
            const CVeUnitBase unit = MakeUnit(Unit::UNIT_ID_LENGTH, range, 8);
            const bool fractions = range >= 9;
            const double value = metres(random) * (i % 2 && range != 5 && range != 6 ? -1 : 1);
            const std::wstring text = Ten(unit, value, {.withUnit = 1});
            int ok = 0;
            const double shown = unit.String2Double(text.c_str(), &ok, 1);
            EXPECT_EQ(1, ok) << testing::PrintToString(text);
            EXPECT_NEAR(value, shown, fractions ? 0.0254 / 500 : 2e-9)
                << range << ' ' << testing::PrintToString(text) << " seed " << c_seed;
        }
}

TEST(ValueParse, KeptANegativeDecimalLengthReadsAsAPositiveOne)
{
    EXPECT_EQ(18.5 / c_inchesPerMetre, Length(5, 1.0).String2Double(L"-18.5", nullptr, 1));
}

TEST(EliminatePrecision, RemovesTheDecimalPartOfEveryNumber)
{
    const struct
    {
        const wchar_t* expected;
        const wchar_t* text;
    } rows[] = {
        {L"", L""},
        {L"12 m", L"12 m"},
        {L"12 m", L"12.50 m"},
        {L"1 x 2", L"1.5 x 2.5"},
        {L"3 kN", L"3,25 kN"},
        {L"1 x 2", L"1.5 x 2,75"},
        {L"1 m", L"1.5e-3 m"},
        {L"1 m", L"1,234.5 m"},  // the comma belongs to what follows the first full stop's number
        {L"", L"."},
        {L"", L".,.,"},
        {L"a b", L"a.1 b"},
        {L"no numb", L"no numb.e"},  // Kept: an E counts as a digit
        {L"1 m", L"1.5-2.5 m"},      // so do signs
        {L"1 1 m", L"1.5 1.5 m"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, WithoutPrecision(row.text)) << testing::PrintToString(std::wstring(row.text));
}

TEST(EliminatePrecision, KeptAPartIsRemovedWhereverItOccurs)
{
    EXPECT_EQ(L"1 x 25", WithoutPrecision(L"1.5 x 2.55"));
    EXPECT_EQ(L"1 1 1", WithoutPrecision(L"1.5 1..55 1.5"));  // what closes up behind it is a part again
}

TEST(EliminatePrecision, AgreesWithTheRemovalStepByStep)
{
    constexpr unsigned int c_seed = 4711;
    std::mt19937 random(c_seed);
    const std::wstring_view alphabets[] = {L".,12 ", L".5 ", L"..,,1 x", L"0123456789.,Ee+- m"};
    for (int i = 0; i < 20000; ++i)
    {
        const std::wstring_view alphabet = alphabets[static_cast<std::size_t>(i) % std::size(alphabets)];
        std::wstring text(random() % 40, L' ');
        for (wchar_t& character : text)
            character = alphabet[random() % alphabet.size()];
        ASSERT_EQ(WithoutPrecisionStepByStep(text), WithoutPrecision(text.c_str()))
            << testing::PrintToString(text) << " seed " << c_seed;
    }
}

TEST(EliminatePrecision, TakesLongTextsInProportionToTheirLength)
{
    constexpr std::size_t c_length = 1000000;
    std::wstring numbers;
    for (int i = 0; numbers.size() < c_length; ++i)
        numbers += L"1." + std::to_wstring(i * 7919LL % 1000003) + L' ';
    std::wstring repeated;
    while (repeated.size() < c_length)
        repeated += L"1.5 ";
    EXPECT_EQ(L'1', WithoutPrecision(numbers.c_str()).front());
    EXPECT_EQ(c_length / 2, WithoutPrecision(repeated.c_str()).size());
    EXPECT_EQ(L"", WithoutPrecision(std::wstring(c_length, L'.').c_str()));
    EXPECT_EQ(L" ", WithoutPrecision((std::wstring(c_length, L'.') + L' ' + std::wstring(c_length + 9, L'.')).c_str()));
    EXPECT_EQ(L"1", WithoutPrecision((L"1." + std::wstring(c_length, L'7')).c_str()));
}

TEST(ReplaceNumberSeparator, ReplacesASeparatorByTheCurrentOne)
{
    const SeparatorGuard guard;
    const struct
    {
        bool expected;
        const wchar_t* replaced;
        wchar_t current;
        wchar_t separator;
        const wchar_t* text;
    } rows[] = {
        {true, L"1.5", L'.', L',', L"1,5"},   {true, L"1.5.2", L'.', L',', L"1,5,2"},
        {false, L"1,5", L',', L',', L"1,5"},  {false, L"1.5", L'.', L',', L"1.5"},
        {true, L"1,5", L',', L'.', L"1.5"},   {false, L"", L'.', L',', L""},
        {false, L"1.5", L'.', L'\0', L"1.5"}, {true, L"1;5", L';', L'.', L"1.5"},
    };
    for (const auto& row : rows)
    {
        CVeUnitSeparator::m_cSep = row.current;
        CString text(row.text);
        EXPECT_EQ(row.expected, CVeUnitBase::ReplaceNumberSeparator(row.separator, text))
            << testing::PrintToString(std::wstring(row.text));
        EXPECT_STREQ(row.replaced, text.GetString());
    }
}
