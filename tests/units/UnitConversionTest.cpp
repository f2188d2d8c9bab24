#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "tests/support/UnitTestSupport.h"

namespace
{

double FromSI(const CVeUnitBase& unit, double value, int useMetricsFactor = 0)
{
    unit.SI2Double(value, useMetricsFactor);
    return value;
}

double ToSI(const CVeUnitBase& unit, double value, int useMetricsFactor = 0)
{
    unit.Double2SI(value, useMetricsFactor);
    return value;
}

template <class Check>
void ForEachUnit(Check check)
{
    for (unsigned int id = 1; id <= 26; ++id)
    {
        for (unsigned int range = 0; range < 13; ++range)
        {
            CVeUnitBase unit = MakeCatalogueUnit(id, range);
            unit.SetMetricsFactor(39.37007874015748);
            check(unit);
        }
    }
}

}  // namespace

TEST(UnitConversion, ScalesThenAddsTheOffsetOfTemperatures)
{
    const CVeUnitBase fahrenheit = MakeCatalogueUnit(10, 1);
    const CVeUnitBase kelvin = MakeCatalogueUnit(10, 2);
    EXPECT_EQ(212.0, FromSI(fahrenheit, 100.0));
    EXPECT_EQ(100.0, ToSI(fahrenheit, 212.0));
    EXPECT_EQ(273.15, FromSI(kelvin, 0.0));
    EXPECT_EQ(0.0, ToSI(kelvin, 273.15));
    EXPECT_EQ(-40.0, FromSI(fahrenheit, -40.0));
    EXPECT_EQ(21.5, FromSI(MakeCatalogueUnit(10, 0), 21.5));
    EXPECT_EQ(21.5, FromSI(MakeCatalogueUnit(10, 3), 21.5)) << "a range that is none has no offset";
}

TEST(UnitConversion, DividesByTheMetricsFactorOnRequest)
{
    CVeUnitBase unit = MakeCatalogueUnit(1, 1);
    unit.SetMetricsFactor(2.0);
    EXPECT_EQ(500.0, FromSI(unit, 1.0, 1));
    EXPECT_EQ(500.0, FromSI(unit, 1.0, -5)) << "any number but 0";
    EXPECT_EQ(1000.0, FromSI(unit, 1.0, 0));
    EXPECT_EQ(1.0, ToSI(unit, 500.0, 1));
    EXPECT_EQ(0.5, ToSI(unit, 500.0, 0));
}

TEST(UnitConversion, AppliesTheOffsetLastOnTheWayOutAndFirstOnTheWayIn)
{
    const CVeUnitBase unit(10, 1, 3, L'.', 2.0, 0);
    EXPECT_EQ(1.8 * 100.0 / 2.0 + 32.0, FromSI(unit, 100.0, 1));
    EXPECT_EQ((122.0 - 32.0) / 1.8 * 2.0, ToSI(unit, 122.0, 1));
}

TEST(UnitConversion, KeepsTheSignOfZero)
{
    EXPECT_TRUE(std::signbit(FromSI(MakeCatalogueUnit(10, 0), -0.0)));
    EXPECT_TRUE(std::signbit(ToSI(MakeCatalogueUnit(1, 1), -0.0)));
}

TEST(UnitConversion, DividesByACoefficientOfZero)
{
    CVeUnitBase unit;
    unit.SetCoef(0.0);
    EXPECT_EQ(std::numeric_limits<double>::infinity(), ToSI(unit, 1.0));
    EXPECT_TRUE(std::isnan(ToSI(unit, 0.0)));
}

TEST(UnitConversion, KeptPercentageIsNotScaled)
{
    EXPECT_EQ(0.25, FromSI(MakeCatalogueUnit(18, 1), 0.25));
}

TEST(UnitConversion, LeadsThereAndBackForEveryUnit)
{
    std::mt19937_64 random(20260101);
    std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
    std::uniform_int_distribution<int> exponent(-30, 30);
    ForEachUnit(
        [&](const CVeUnitBase& unit)
        {
            for (int i = 0; i < 200; ++i)
            {
                const double value = std::ldexp(mantissa(random), exponent(random));
                for (const int useMetricsFactor : {0, 1})
                {
                    const double back = ToSI(unit, FromSI(unit, value, useMetricsFactor), useMetricsFactor);
                    const double offset = unit.GetIDUnit() == 10 ? 300.0 : 0.0;
                    ASSERT_NEAR(value, back, (std::fabs(value) + offset) * 1e-15)
                        << "id " << unit.GetIDUnit() << " range " << unit.GetRange() << " factor " << useMetricsFactor;
                }
            }
        });
}

TEST(UnitConversion, ConvertsManyValuesToTheSameBitsAsOne)
{
    std::mt19937_64 random(20260102);
    std::vector<double> values(1003);
    for (double& value : values)
        value = std::bit_cast<double>(random());
    values[0] = -0.0;
    values[1] = std::numeric_limits<double>::infinity();
    ForEachUnit(
        [&](const CVeUnitBase& unit)
        {
            for (const int useMetricsFactor : {0, 1})
            {
                std::vector<double> shown = values;
                std::vector<double> stored = values;
                unit.SI2Double(shown, useMetricsFactor);
                unit.Double2SI(stored, useMetricsFactor);
                for (std::size_t i = 0; i < values.size(); ++i)
                {
                    const auto expectBits = [&](double expected, double actual)
                    {
                        if (std::isnan(expected) && std::isnan(actual))
                            return;
                        ASSERT_EQ(std::bit_cast<std::uint64_t>(expected), std::bit_cast<std::uint64_t>(actual))
                            << values[i] << " id " << unit.GetIDUnit() << " range " << unit.GetRange();
                    };
                    expectBits(FromSI(unit, values[i], useMetricsFactor), shown[i]);
                    expectBits(ToSI(unit, values[i], useMetricsFactor), stored[i]);
                }
            }
        });
}

TEST(UnitConversion, TakesNoValuesAtAll)
{
    CVeUnitBase().SI2Double(std::span<double>(), 1);
    CVeUnitBase().Double2SI(std::span<double>(), 1);
}
