#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <random>

#include "vetools/valuetext/VeImperialLength.h"

using Record = CVeImperialLength::tagIMPERIAL_LENGTH_UNIT;
using Type = CVeImperialLength::enumIMPERIAL_LENGTH_TYPE;

namespace
{

constexpr double c_feet = 3.2808398950131235;
constexpr double c_inches = 39.37007874015748;
constexpr int c_maximum = std::numeric_limits<int>::max();
constexpr int c_minimum = std::numeric_limits<int>::min();
constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr Type c_feetInches = CVeImperialLength::IMPERIAL_FEET_INCHES;
constexpr Type c_inchesOnly = CVeImperialLength::IMPERIAL_INCHES;
constexpr Type c_otherTypes[] = {Type(0), Type(4), Type(7), Type(10), Type(4294967295u)};

void ExpectRecord(const Record& expected, const Record& actual, double m, Type type)
{
    EXPECT_EQ(expected.positive, actual.positive) << m << ", type " << type;
    EXPECT_EQ(expected.feet, actual.feet) << m << ", type " << type;
    EXPECT_EQ(expected.inches, actual.inches) << m << ", type " << type;
    EXPECT_EQ(expected.fractionNumerator, actual.fractionNumerator) << m << ", type " << type;
    EXPECT_DOUBLE_EQ(expected.remainderInches, actual.remainderInches) << m << ", type " << type;
}

TEST(ImperialConversion, WholeFeetAndInchesAreCutTowardsZeroAndTheRestIsInMetres)
{
    for (const double m : {0.0, 0.1, 1.0, -1.0, 2.54, 12345.678, -0.3047, 1e-300})
    {
        double rest = 99.0;
        const double feet = m * c_feet;
        EXPECT_EQ(static_cast<int>(feet), CVeImperialLength::Meter2Feet(m, rest)) << m;
        EXPECT_EQ((feet - std::trunc(feet)) / c_feet, rest) << m;
        const double inches = m * c_inches;
        EXPECT_EQ(static_cast<int>(inches), CVeImperialLength::Meter2Inches(m, rest)) << m;
        EXPECT_EQ((inches - std::trunc(inches)) / c_inches, rest) << m;
    }
}

TEST(ImperialConversion, TheFormsWithAReferenceGiveTheSame)
{
    for (const double m : {0.0, 1.0, -7.77, 1e20})
    {
        double rest = 0.0;
        double sameRest = 0.0;
        int count = 0;
        CVeImperialLength::Meter2Feet(m, sameRest, count);
        EXPECT_EQ(CVeImperialLength::Meter2Feet(m, rest), count) << m;
        EXPECT_EQ(rest, sameRest) << m;
        CVeImperialLength::Meter2Inches(m, sameRest, count);
        EXPECT_EQ(CVeImperialLength::Meter2Inches(m, rest), count) << m;
        EXPECT_EQ(rest, sameRest) << m;
        CVeImperialLength::Meter2Fractions(m, 4, sameRest, count);
        EXPECT_EQ(CVeImperialLength::Meter2Fractions(m, 4, rest), count) << m;
        EXPECT_EQ(rest, sameRest) << m;
    }
}

TEST(ImperialConversion, FractionsAreRoundedHalfAwayFromZeroAndTheRestIsNot)
{
    struct Row
    {
        int expected;
        double sixteenths;
    };
    const Row rows[] = {{0, 0.0}, {0, 0.25}, {1, 0.75}, {1, 1.25}, {2, 1.75}, {-1, -1.25}, {-2, -1.75}, {160, 160.25}};
    for (const Row& row : rows)
    {
        const double perMetre = 16.0 * c_inches;
        const double m = row.sixteenths / perMetre;
        double rest = 0.0;
        EXPECT_EQ(row.expected, CVeImperialLength::Meter2Fractions(m, 4, rest)) << row.sixteenths;
        const double fractions = perMetre * m;
        EXPECT_EQ((fractions - std::trunc(fractions)) / perMetre, rest) << row.sixteenths;
    }
    double rest = 0.0;
    const double half = 0.5 / c_inches;
    EXPECT_EQ(c_inches * half >= 0.5 ? 1 : 0, CVeImperialLength::Meter2Fractions(half, 0, rest));
}

TEST(ImperialConversion, TheFormWithoutAPrecisionGivesWhatIsLostOnTheWay)
{
    for (const double m : {0.0, 0.1, 1.0 / 3, -123.456})
    {
        double rest = 1.0;
        EXPECT_EQ(m - (m * c_inches) / c_inches, CVeImperialLength::Meter2Fractions(m, rest)) << m;
        EXPECT_EQ(m - (m * c_inches) / c_inches, rest) << m;
    }
}

TEST(ImperialConversion, ALengthBecomesFeetInchesAndARemainder)
{
    const double restOfOneMetre = c_inches - 39;
    ExpectRecord({true, 0, 0, 0, 0.0}, CVeImperialLength::Meter2Imperial(0.0, 4, c_feetInches), 0.0, c_feetInches);
    ExpectRecord({true, 0, 39, 0, restOfOneMetre}, CVeImperialLength::Meter2Imperial(1.0, 4, c_inchesOnly), 1.0,
                 c_inchesOnly);
    ExpectRecord({false, 0, 39, 0, restOfOneMetre}, CVeImperialLength::Meter2Imperial(-1.0, 4, c_inchesOnly), -1.0,
                 c_inchesOnly);
    const double feet = c_feet;
    const double inches = (feet - 3) / c_feet * c_inches;
    ExpectRecord({true, 3, 3, 0, inches - 3}, CVeImperialLength::Meter2Imperial(1.0, 4, c_feetInches), 1.0,
                 c_feetInches);
    ExpectRecord({false, 3, 3, 0, inches - 3}, CVeImperialLength::Meter2Imperial(-1.0, 4, c_feetInches), -1.0,
                 c_feetInches);
}

TEST(ImperialConversion, OtherTypesKeepTheWholeLengthAsInches)
{
    for (const Type type : c_otherTypes)
        for (const double m : {0.0, 1.0, -2.5})
        {
            ExpectRecord({m >= 0, 0, 0, 0, std::fabs(m * c_inches)}, CVeImperialLength::Meter2Imperial(m, 2, type), m,
                         type);
            int feet = 9;
            int inches = 9;
            int fraction = 9;
            CVeImperialLength::Meter2Imperial(m, 2, type, feet, inches, fraction);
            EXPECT_EQ(0, feet + inches + fraction) << m << ", type " << type;
        }
}

TEST(ImperialConversion, KeptThePrecisionIsNotReadAndThereIsNoNumerator)
{
    for (const int precision : {c_minimum, -1, 0, 4, 8, c_maximum})
    {
        Record unit{false, 9, 9, 9, 9.0};
        CVeImperialLength::Meter2Imperial(1.03, precision, c_feetInches, unit);
        ExpectRecord(CVeImperialLength::Meter2Imperial(1.03, 0, c_feetInches), unit, 1.03, c_feetInches);
        int feet = 9;
        int inches = 9;
        int fraction = 9;
        CVeImperialLength::Meter2Imperial(1.03, precision, c_feetInches, feet, inches, fraction);
        EXPECT_EQ(unit.feet, feet);
        EXPECT_EQ(unit.inches, inches);
        EXPECT_EQ(0, fraction);
    }
}

TEST(ImperialConversion, FeetInchesAndFractionsBecomeMetres)
{
    EXPECT_EQ(3 / c_feet, CVeImperialLength::Feet2Meter(3));
    EXPECT_EQ(-4 / c_inches, CVeImperialLength::Inches2Meter(-4));
    EXPECT_EQ(3 / c_inches / 4, CVeImperialLength::Fractions2Meter(3, 2));
    EXPECT_EQ(3 / c_inches * 4, CVeImperialLength::Fractions2Meter(3, -2));
    EXPECT_EQ(1 / c_inches / 2 + (3 / c_feet + 4 / c_inches), CVeImperialLength::Imperial2Meter(3, 4, 1, 1));
    double m = 0.0;
    CVeImperialLength::Feet2Meter(3, m);
    EXPECT_EQ(CVeImperialLength::Feet2Meter(3), m);
    CVeImperialLength::Inches2Meter(3, m);
    EXPECT_EQ(CVeImperialLength::Inches2Meter(3), m);
    CVeImperialLength::Fractions2Meter(3, 2, m);
    EXPECT_EQ(CVeImperialLength::Fractions2Meter(3, 2), m);
    CVeImperialLength::Imperial2Meter(3, 4, 1, 1, m);
    EXPECT_EQ(CVeImperialLength::Imperial2Meter(3, 4, 1, 1), m);
}

TEST(ImperialConversion, KeptARecordInMetresHasItsSignButNotItsRemainder)
{
    const Record length{true, 3, 4, 1, 0.75};
    const Record negative{false, 3, 4, 1, 0.75};
    const double expected = CVeImperialLength::Imperial2Meter(3, 4, 1, 1);
    EXPECT_EQ(expected, CVeImperialLength::Imperial2Meter(length, 1));
    EXPECT_EQ(-expected, CVeImperialLength::Imperial2Meter(negative, 1));
    double m = 0.0;
    CVeImperialLength::Imperial2Meter(negative, 1, m);
    EXPECT_EQ(-expected, m);
}

TEST(ImperialConversion, NumbersBeyondAnIntBecomeTheNearestIntAndNoNumberBecomesZero)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    double rest = 0.0;
    EXPECT_EQ(c_maximum, CVeImperialLength::Meter2Feet(1e300, rest));
    EXPECT_EQ(c_minimum, CVeImperialLength::Meter2Feet(-1e300, rest));
    EXPECT_EQ(c_maximum, CVeImperialLength::Meter2Inches(c_infinity, rest));
    EXPECT_EQ(0, CVeImperialLength::Meter2Inches(nan, rest));
    EXPECT_TRUE(std::isnan(rest));
    EXPECT_EQ(c_maximum, CVeImperialLength::Meter2Fractions(1.0, 1000, rest));
    EXPECT_EQ(c_maximum, CVeImperialLength::Meter2Fractions(1.0, c_maximum, rest));
    EXPECT_EQ(0, CVeImperialLength::Meter2Fractions(1.0, c_minimum, rest));

    const Record huge = CVeImperialLength::Meter2Imperial(-1e300, 0, c_feetInches);
    EXPECT_EQ(c_maximum, huge.feet);
    EXPECT_EQ(0, huge.inches) << "what is left of whole feet is less than a foot, however many feet there are";
    const Record none = CVeImperialLength::Meter2Imperial(nan, 0, c_feetInches);
    EXPECT_FALSE(none.positive);
    EXPECT_EQ(0, none.feet);
    EXPECT_EQ(0, none.inches);
    EXPECT_TRUE(std::isnan(none.remainderInches));
}

TEST(ImperialConversion, ThereAndBackLosesNoMoreThanTheRemainder)
{
    constexpr unsigned int c_seed = 17;
    std::mt19937 random(c_seed);
    std::uniform_real_distribution<double> metres(-1000.0, 1000.0);
    for (int i = 0; i < 20'000; ++i)
    {
        const double m = metres(random);
        for (const Type type : {c_feetInches, c_inchesOnly})
        {
            const Record unit = CVeImperialLength::Meter2Imperial(m, 0, type);
            const double remainder = unit.remainderInches / c_inches;
            ASSERT_NEAR(std::fabs(m), std::fabs(CVeImperialLength::Imperial2Meter(unit, 0)) + remainder, 1e-9)
                << m << ", type " << type << ", seed " << c_seed;
            ASSERT_LT(unit.remainderInches, 1.0) << m;
        }
    }
}

}  // namespace
