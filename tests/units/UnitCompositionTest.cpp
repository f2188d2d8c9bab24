#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "tests/support/UnitTestSupport.h"

namespace
{

CVeUnitBase NamedUnit(const wchar_t* name, double coef, const wchar_t* title = L"title")
{
    CVeUnitBase unit;
    unit.SetUnitValues(title, name, coef);
    return unit;
}

}  // namespace

TEST(UnitExponent, ReplacesThePowerOfAUnit)
{
    CVeUnitBase unit = MakeCatalogueUnit(1, 1);
    unit.SetExponent(2);
    EXPECT_EQ(L"mm²", NameOf(unit));
    EXPECT_STREQ(L"Millimètre²", unit.GetTitle());
    EXPECT_EQ(1000000.0, unit.GetCoef());
    EXPECT_EQ(2, unit.GetExponent());

    unit.SetExponent(3);
    EXPECT_EQ(L"mm3", NameOf(unit));
    EXPECT_STREQ(L"Millimètre3", unit.GetTitle());
    EXPECT_EQ(1.0e9, unit.GetCoef());

    unit.SetExponent(1);
    EXPECT_EQ(L"mm", NameOf(unit));
    EXPECT_STREQ(L"Millimètre", unit.GetTitle());
    EXPECT_NEAR(1000.0, unit.GetCoef(), 1e-9);
    EXPECT_EQ(1, unit.GetExponent());
}

TEST(UnitExponent, RaisesByAQuotientOfDoubles)
{
    const struct
    {
        double expected;
        double coef;
        int oldPower;
        int newPower;
    } rows[] = {
        {999.9999999999997, 1000000000.0, 3, 1},
        {1550.0031000062002, 39.37007874015748, 1, 2},
        {61023.74409473229, 39.37007874015748, 1, 3},
        {10.763910416709724, 3.2808398950131235, 1, 2},
        {35.31466672148859, 3.2808398950131235, 1, 3},
        {0.001, 1000.0, 1, -1},
        {1.0, 1000.0, 1, 0},
        {1e9, 1000000.0, 2, 3},
    };
    for (const auto& row : rows)
    {
        CVeUnitBase unit;
        unit.SetExponent(row.oldPower);
        unit.SetCoef(row.coef);
        unit.SetExponent(row.newPower);
        EXPECT_EQ(row.expected, unit.GetCoef()) << row.coef << ' ' << row.oldPower << ' ' << row.newPower;
    }
}

TEST(UnitExponent, ShowsSquaresAndCubesOfInchAndFootInWords)
{
    const struct
    {
        unsigned int range;
        int power;
        const wchar_t* name;
        const wchar_t* title;
    } rows[] = {
        {5, 2, L"sq in", L"Pouce²"},       {5, 3, L"cu in", L"Pouce3"},
        {6, 2, L"sq ft", L"Pied²"},        {6, 3, L"cu ft", L"Pied3"},
        {5, 4, L"\"4", L"Pouce4"},         {7, 2, L"Yd²", L"Yard²"},
        {8, 2, L"'-sq in", L"Foot-Inch²"}, {10, 3, L"/cu in", L"Inch-Fraction3"},
    };
    for (const auto& row : rows)
    {
        CVeUnitBase unit = MakeCatalogueUnit(1, row.range);
        unit.SetExponent(row.power);
        EXPECT_EQ(row.name, NameOf(unit));
        EXPECT_STREQ(row.title, unit.GetTitle());
    }
}

TEST(UnitExponent, KeptWhatIsShownInWordsStaysInWords)
{
    CVeUnitBase inch = MakeCatalogueUnit(1, 5);
    const struct
    {
        int power;
        const wchar_t* name;
        const wchar_t* title;
    } steps[] = {
        {2, L"sq in", L"Pouce²"}, {3, L"sq in3", L"Pouce3"}, {2, L"sq in²", L"Pouce²"}, {1, L"sq in", L"Pouce"},
        {-1, L"sq in", L"Pouce"}, {2, L"sq in²", L"Pouce²"}, {0, L"sq in", L"Pouce"},   {3, L"sq in3", L"Pouce3"},
    };
    for (const auto& step : steps)
    {
        inch.SetExponent(step.power);
        EXPECT_EQ(step.name, NameOf(inch)) << step.power;
        EXPECT_STREQ(step.title, inch.GetTitle()) << step.power;
    }
}

TEST(UnitExponent, ASquareOfATitleThatIsSquaredAlreadyHasOneMark)
{
    CVeUnitBase unit = MakeCatalogueUnit(26, 4);
    unit.SetExponent(2);
    EXPECT_STREQ(L"Meter²", unit.GetTitle());
    unit.SetExponent(1);
    EXPECT_STREQ(L"Meter", unit.GetTitle());
}

TEST(UnitExponent, AppendsNothingToPowersBelowTwo)
{
    for (const int power : {1, 0, -1, -2, std::numeric_limits<int>::min()})
    {
        CVeUnitBase unit = MakeCatalogueUnit(1, 1);
        unit.SetExponent(power);
        EXPECT_EQ(L"mm", NameOf(unit)) << power;
        EXPECT_EQ(power, unit.GetExponent());
    }
}

TEST(UnitExponent, TakesOffAFinalSquareMarkOnly)
{
    CVeUnitBase unit;
    unit.SetExponent(2);
    unit.SetUnitValues(L"m²/s", L"²", 1.0);
    unit.SetExponent(1);
    EXPECT_EQ(L"²", NameOf(unit)) << "a text of one character stays";
    EXPECT_STREQ(L"m²/s", unit.GetTitle());
}

TEST(UnitExponent, KeptTextIsCutWhereTheNumberFirstAppears)
{
    CVeUnitBase unit;
    unit.SetExponent(3);
    unit.SetUnitValues(L"cubic 13 times 3", L"m3/s3", 1.0);
    unit.SetExponent(1);
    EXPECT_EQ(L"m", NameOf(unit));
    EXPECT_STREQ(L"cubic 1", unit.GetTitle());
}

TEST(UnitExponent, KeepsATextThatWouldBecomeEmpty)
{
    CVeUnitBase unit;
    unit.SetExponent(3);
    unit.SetUnitValues(L"3", L"3 m", 1.0);
    unit.SetExponent(1);
    EXPECT_EQ(L"3 m", NameOf(unit));
    EXPECT_STREQ(L"3", unit.GetTitle());
}

TEST(UnitExponent, TakesOffTheNumberOfANegativePower)
{
    CVeUnitBase unit;
    unit.SetExponent(-2);
    unit.SetUnitValues(L"per m-2 or m2", L"m-2", 4.0);
    unit.SetExponent(2);
    EXPECT_EQ(L"m²", NameOf(unit));
    EXPECT_STREQ(L"per m²", unit.GetTitle());
    EXPECT_EQ(0.25, unit.GetCoef());
}

TEST(UnitExponent, DividesByAPowerOfZeroInDoubles)
{
    CVeUnitBase unit = MakeCatalogueUnit(1, 1);
    unit.SetExponent(0);
    unit.SetCoef(1000.0);
    unit.SetUnitValues(L"title 0 end", L"m0", 1000.0);
    unit.SetExponent(2);
    EXPECT_EQ(std::numeric_limits<double>::infinity(), unit.GetCoef());
    EXPECT_EQ(L"m²", NameOf(unit));
    EXPECT_STREQ(L"title ²", unit.GetTitle());
    unit.SetExponent(0);
    unit.SetCoef(1000.0);
    unit.SetExponent(0);
    EXPECT_TRUE(std::isnan(unit.GetCoef()));
}

TEST(UnitExponent, CutsTextsToTheBuffers)
{
    CVeUnitBase unit = NamedUnit(L"1234567890123456789", 1.0);
    unit.SetExponent(2);
    EXPECT_EQ(L"1234567890123456789", NameOf(unit));
    unit = NamedUnit(L"aaaaaaaaaaaaaaaaa\"", 1.0);
    unit.SetExponent(2);
    EXPECT_EQ(L"aaaaaaaaaaaaaaaaasq", NameOf(unit));
}

TEST(UnitProduct, MultipliesCoefficientsAndJoinsNames)
{
    const CVeUnitBase kiloNewton = MakeCatalogueUnit(2, 2);
    const CVeUnitBase millimetre = MakeCatalogueUnit(1, 1);
    CVeUnitBase product = kiloNewton * millimetre;
    EXPECT_EQ(L"kNmm", NameOf(product));
    EXPECT_EQ(0.001 * 1000.0, product.GetCoef());
    EXPECT_EQ(2u, product.GetIDUnit());
    EXPECT_EQ(2u, product.GetRange());
    EXPECT_STREQ(L"KiloNewton", product.GetTitle());

    const CVeUnitBase quotient = kiloNewton / millimetre;
    EXPECT_EQ(L"kN/mm", NameOf(quotient));
    EXPECT_EQ(0.001 / 1000.0, quotient.GetCoef());
    EXPECT_EQ(L"kN", NameOf(kiloNewton));
}

TEST(UnitProduct, InPlaceGivesTheUnitItself)
{
    CVeUnitBase unit = MakeCatalogueUnit(2, 2);
    CVeUnitBase metre;
    EXPECT_EQ(&unit, &(unit *= metre));
    EXPECT_EQ(L"kNm", NameOf(unit));
    EXPECT_EQ(&unit, &(unit /= metre));
    EXPECT_EQ(L"kNm/m", NameOf(unit));
    EXPECT_EQ(0.001, unit.GetCoef());
}

TEST(UnitProduct, MayBeOfAUnitWithItself)
{
    CVeUnitBase unit = MakeCatalogueUnit(1, 1);
    const CVeUnitBase& itself = unit;
    EXPECT_EQ(L"mmmm", NameOf(unit * itself));
    unit *= itself;
    EXPECT_EQ(L"mmmm", NameOf(unit));
    EXPECT_EQ(1000000.0, unit.GetCoef());
    unit /= itself;
    EXPECT_EQ(L"mmmm/mmmm", NameOf(unit));
    EXPECT_EQ(1.0, unit.GetCoef());
}

TEST(UnitProduct, CutsTheNameToItsBuffer)
{
    CVeUnitBase unit = NamedUnit(L"1234567890", 1.0);
    EXPECT_EQ(L"1234567890123456789", NameOf(unit * unit));
    EXPECT_EQ(L"1234567890/12345678", NameOf(unit / unit));
}

TEST(UnitComposition, AppendsFactorsByTheirPowers)
{
    const struct
    {
        const wchar_t* name;
        double coef;
        int power;
    } rows[] = {
        {L"kN", 5.0, 0},        {L"kN*mm", 50.0, 1},       {L"kN*mm²", 500.0, 2},       {L"kN*mm3", 5000.0, 3},
        {L"kN*mm12", 5e12, 12}, {L"kN/mm", 5.0 * 0.1, -1}, {L"kN/mm²", 5.0 * 0.01, -2},
    };
    for (const auto& row : rows)
    {
        CVeUnitBase first = NamedUnit(L"kN", 5.0, L"Force");
        CVeUnitBase factor = NamedUnit(L"mm", 10.0);
        CVeUnitBase result = CVeUnitBase::MakeUnit(&first, 1, &factor, row.power, nullptr);
        EXPECT_EQ(row.name, NameOf(result));
        EXPECT_EQ(std::wstring(L"Force") + (row.name + 2), result.GetTitle()) << "the title gets the symbol, too";
        EXPECT_EQ(row.coef, result.GetCoef()) << row.power;
        EXPECT_EQ(row.name, NameOf(first)) << "the first unit is changed itself";
    }
}

TEST(UnitComposition, KeptPowersOfMinusThreeAndBelowShowTheirSign)
{
    CVeUnitBase first = MakeCatalogueUnit(2, 2);
    CVeUnitBase metre;
    EXPECT_EQ(L"kN/m-3", NameOf(CVeUnitBase::MakeUnit(&first, 1, &metre, -3, nullptr)));
}

TEST(UnitComposition, SquaresTheFirstUnit)
{
    CVeUnitBase millimetre = MakeCatalogueUnit(1, 1);
    CVeUnitBase result = CVeUnitBase::MakeUnit(&millimetre, 2, nullptr);
    EXPECT_EQ(L"mm²", NameOf(result));
    EXPECT_STREQ(L"Millimètre²", result.GetTitle());
    EXPECT_EQ(1000000.0, result.GetCoef());
    EXPECT_EQ(1, result.GetExponent());
}

TEST(UnitComposition, KeptFirstPowerFromThreeOnShowsTheExponentThatTheUnitHad)
{
    CVeUnitBase millimetre = MakeCatalogueUnit(1, 1);
    CVeUnitBase result = CVeUnitBase::MakeUnit(&millimetre, 3, nullptr);
    EXPECT_EQ(L"mm1", NameOf(result));
    EXPECT_STREQ(L"Millimètre1", result.GetTitle());
    EXPECT_EQ(1e9, result.GetCoef());

    CVeUnitBase square = MakeCatalogueUnit(1, 1);
    square.SetExponent(2);
    EXPECT_EQ(L"mm²2", NameOf(CVeUnitBase::MakeUnit(&square, 3, nullptr)));
}

TEST(UnitComposition, LeavesTheFirstUnitForPowersBelowTwo)
{
    for (const int power : {1, 0, -1, -5})
    {
        CVeUnitBase millimetre = MakeCatalogueUnit(1, 1);
        const CVeUnitBase result = CVeUnitBase::MakeUnit(&millimetre, power, nullptr);
        EXPECT_EQ(L"mm", NameOf(result)) << power;
        EXPECT_EQ(1000.0, result.GetCoef()) << power;
    }
}

TEST(UnitComposition, ShowsTheNameInWordsAtTheEnd)
{
    CVeUnitBase inch = MakeCatalogueUnit(1, 5);
    CVeUnitBase force = MakeCatalogueUnit(2, 6);
    EXPECT_EQ(L"sq in*lb", NameOf(CVeUnitBase::MakeUnit(&inch, 2, &force, 1, nullptr)));
    CVeUnitBase foot = MakeCatalogueUnit(1, 6);
    EXPECT_EQ(L"lb/sq ft", NameOf(CVeUnitBase::MakeUnit(&force, 1, &foot, -2, nullptr)));
}

TEST(UnitComposition, IntoAResultLeavesTheFirstUnit)
{
    CVeUnitBase first = MakeCatalogueUnit(2, 2);
    CVeUnitBase metre;
    CVeUnitBase result;
    CVeUnitBase::MakeUnit(&result, &first, 2, &metre, 2, &metre, -1, nullptr);
    EXPECT_EQ(L"kN²*m²/m", NameOf(result));
    EXPECT_EQ(2u, result.GetIDUnit());
    EXPECT_EQ(L"kN", NameOf(first));
    EXPECT_EQ(0.001, first.GetCoef());
}

TEST(UnitComposition, CountsARepeatedUnitAsItIsWhenItsTurnComes)
{
    CVeUnitBase unit = NamedUnit(L"a", 3.0);
    const CVeUnitBase result = CVeUnitBase::MakeUnit(&unit, 2, &unit, 1, nullptr);
    EXPECT_EQ(L"a²*a²", NameOf(result));
    EXPECT_EQ(81.0, result.GetCoef());

    CVeUnitBase self = NamedUnit(L"b", 2.0);
    CVeUnitBase::MakeUnit(&self, &self, 1, &self, 1, nullptr);
    EXPECT_EQ(L"b*b", NameOf(self));
    EXPECT_EQ(4.0, self.GetCoef());
}

TEST(UnitComposition, DoesNothingWithoutUnits)
{
    CVeUnitBase metre;
    EXPECT_EQ(L"m", NameOf(CVeUnitBase::MakeUnit(static_cast<CVeUnitBase*>(nullptr), 2, nullptr)));
    CVeUnitBase::MakeUnit(nullptr, &metre, 2, nullptr);
    CVeUnitBase::MakeUnit(&metre, nullptr, 2, nullptr);
    EXPECT_EQ(L"m", NameOf(metre));
}

TEST(UnitComposition, CutsTextsToTheBuffers)
{
    CVeUnitBase unit = NamedUnit(L"1234567890", 1.0, L"1234567890123456789012345678901234567890");
    CVeUnitBase result = CVeUnitBase::MakeUnit(&unit, 1, &unit, 2, &unit, -3, nullptr);
    EXPECT_EQ(L"1234567890*12345678", NameOf(result));
    EXPECT_EQ(std::wstring(L"1234567890123456789012345678901234567890*12345678"), result.GetTitle());
}
