#include <string>

#include <gtest/gtest.h>

#include "tests/support/FileTestSupport.h"
#include "tests/support/TextPrinting.h"
#include "tests/support/UnitTestSupport.h"
#include "vetools/framework/CFile.h"
#include "vetools/resources/VePrompts.h"
#include "vetools/unitmanager/VeUnitManager.h"

namespace
{

struct SpellingRow
{
    const wchar_t* text;
    unsigned int idUnit;
    unsigned int range;
    int exponent = 1;
};

// clang-format off
constexpr SpellingRow c_spellings[] = {
//   text      id  range  exponent
    {L"µm",     1,  0},
    {L"mm",     1,  1},
    {L"cm",     1,  2},
    {L"dm",     1,  3},
    {L"m",      1,  4},
    {L"\"",     1,  5},
    {L"''",     1,  5},
    {L"\"2",    1,  5,  2},
    {L"''2",    1,  5,  2},
    {L"'",      1,  6},
    {L"yd",     1,  7},
    {L"m2",     1,  4,  2},
    {L"m3",     1,  4,  3},
    {L"cm2",    1,  2,  2},
    {L"cm3",    1,  2,  3},
    {L"cm4",    1,  2,  4},
    {L"cm6",    1,  2,  6},
    {L"mm2",    1,  1,  2},
    {L"n",      4,  0},
    {L"dan",    4,  1},
    {L"kn",     4,  2},
    {L"mn",     4,  3},
    {L"kg",     4,  4},
    {L"t",      4,  5},
    {L"lb",     4,  6},
    {L"kip",    4,  7},
    {L"pa",     7,  0},
    {L"kpa",    7,  1},
    {L"mpa",    7,  2},
    {L"bar",    7,  7},
    {L"psi",    7,  8},
};
// clang-format on

/// What recognition makes of a unit, step by step.
CVeUnitBase Recognised(const SpellingRow& row, CVeUnitBase unit = {})
{
    unit.SetIdUnit(row.idUnit);
    unit.SetRange(row.range);
    unit.SetExponent(row.exponent);
    return unit;
}

void ExpectSame(const CVeUnitBase& expected, const CVeUnitBase& actual, const std::wstring& text)
{
    EXPECT_EQ(expected.GetIDUnit(), actual.GetIDUnit()) << testing::PrintToString(text);
    EXPECT_EQ(expected.GetRange(), actual.GetRange()) << testing::PrintToString(text);
    EXPECT_EQ(expected.GetExponent(), actual.GetExponent()) << testing::PrintToString(text);
    EXPECT_EQ(expected.GetCoef(), actual.GetCoef()) << testing::PrintToString(text);
    EXPECT_EQ(NameOf(expected), NameOf(actual)) << testing::PrintToString(text);
    EXPECT_EQ(TitleOf(expected), TitleOf(actual)) << testing::PrintToString(text);
    EXPECT_EQ(expected.GetType(), actual.GetType()) << testing::PrintToString(text);
    EXPECT_EQ(expected.GetUnitFormat(), actual.GetUnitFormat()) << testing::PrintToString(text);
    EXPECT_TRUE(expected == actual) << testing::PrintToString(text);
}

std::wstring Upper(std::wstring text)
{
    for (wchar_t& character : text)
    {
        if (character >= L'a' && character <= L'z')
            character = static_cast<wchar_t>(character - L'a' + L'A');
    }
    return text;
}

/// The record of a unit: its texts as they are stored.
Bytes RecordOf(const CVeUnitBase& unit)
{
    CMemFile file;
    unit.Save(file);
    return Bytes(file.GetBytes(), file.GetBytes() + file.GetLength());
}

/// Titles with marks, which are shown in words.
bool GiveMarks(CString& text, unsigned, const wchar_t*, unsigned)
{
    text = L"1\" \u00b2\u00b2";
    return true;
}

CVeUnitManager::statusCode Recognise(const std::wstring& text, CVeUnit& unit)
{
    return CVeUnitManager::UnitFromString(CString(std::wstring_view(text)), unit);
}

}  // namespace

TEST(UnitRecognition, KnowsEveryRowInAnyCase)
{
    for (const SpellingRow& row : c_spellings)
    {
        const std::wstring text = row.text;
        std::wstring mixed = Upper(text);
        mixed[0] = text[0];
        for (const std::wstring& spelling : {text, Upper(text), mixed})
        {
            CVeUnit unit;
            EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(spelling, unit)) << testing::PrintToString(spelling);
            ExpectSame(Recognised(row), unit, spelling);
        }
    }
}

TEST(UnitRecognition, StoresWhatIdRangeAndExponentSetOneAfterTheOther)
{
    CVeUnitBase area;
    area.SetExponent(2);
    for (const CVeUnitBase& before : {CVeUnitBase(), area, MakeCatalogueUnit(2, 3), MakeCatalogueUnit(1, 9)})
    {
        for (const VePrompts::Provider provider : {static_cast<VePrompts::Provider>(nullptr), &GiveMarks})
        {
            VePrompts::SetProvider(provider);
            for (const SpellingRow& row : c_spellings)
            {
                CVeUnit unit(before);
                Recognise(row.text, unit);
                EXPECT_EQ(RecordOf(Recognised(row, before)), RecordOf(unit)) << testing::PrintToString(row.text);
            }
            VePrompts::SetProvider(nullptr);
        }
    }
}

TEST(UnitRecognition, KnowsNothingElse)
{
    const std::wstring texts[] = {
        L" ",
        L" m",
        L"m ",
        L"mm ",
        L"x",
        L"mmm",
        L"m1",
        L"m4",
        L"m²",
        L"cm²",
        L"cm5",
        L"km",
        L"inch",
        L"'''",
        L"\"\"",
        L"'2",
        L"µ",
        L"\x03BCm",
        L"°",
        L"rad",
        L"s",
        L"min",
        L"h",
        L"°C",
        L"N*m",
        L"kn*m",
        L"J",
        L"Hz",
        L"%",
        L"klb",
        L"ksi",
        L"T2",
        L"m/",
        L"/m",
        L"/",
        L"//",
        L"///",
        L"m//m",
        L"/m/m",
        L"m/m/",
        L"m/x",
        L"x/m",
        L"m/ m",
        L"m /m",
        L"kn/m²",
        L"daN/mm²",
        L"dan/mm²",
        L"kg/mm²",
        L"kg/cm²",
        L"t/m²",
        L"kg/m²",
        L"lb/in²",
        L"lb/ft²",
        L"lb/in2",
        std::wstring(L"m\0", 2),
        std::wstring(L"\0m", 2),
        std::wstring(100000, L'm'),
        std::wstring(100000, L'/'),
        std::wstring(L"\xD83D"),
        std::wstring(L"k\xD83D"),
    };
    for (const std::wstring& text : texts)
    {
        CVeUnit unit(2, 2, 7, L'.', 3.0, 1);
        unit.SetUnitValues(L"before", L"b", 12.5);
        unit.SetSep(L';');
        const CVeUnit before(unit);
        EXPECT_EQ(CVeUnitManager::STATUS_UNKNOWN, Recognise(text, unit)) << testing::PrintToString(text.substr(0, 20));
        ExpectSame(before, unit, text.substr(0, 20));
    }
}

TEST(UnitRecognition, KeptListedSpellingsWithASlashOrCapitalsNeverMatch)
{
    for (const wchar_t* text : {L"daN/mm²", L"kg/mm²", L"kg/cm²", L"t/m²", L"kg/m²", L"lb/in²", L"lb/ft²"})
    {
        CVeUnit unit;
        EXPECT_EQ(CVeUnitManager::STATUS_UNKNOWN, Recognise(text, unit)) << testing::PrintToString(std::wstring(text));
    }
    CVeUnit quotient;
    EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(L"dan/mm2", quotient));
    EXPECT_EQ(4u, quotient.GetIDUnit());  // a quotient of its own making, not the row of the stresses
    // The rows in capitals say the same as those in lower case, which decide.
    CVeUnit capitals;
    EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(L"MN", capitals));
    EXPECT_EQ(3u, capitals.GetRange());
}

TEST(UnitRecognition, SaysWhenTheTextIsEmpty)
{
    CVeUnit unit(2, 2, 7, L'.', 3.0, 1);
    const CVeUnit before(unit);
    EXPECT_EQ(CVeUnitManager::STATUS_EMPTY, CVeUnitManager::UnitFromString(CString(), unit));
    EXPECT_TRUE(before == unit);
}

TEST(UnitRecognition, LeavesTheCallersText)
{
    const CString text(L"KN/M2");
    CVeUnit unit;
    EXPECT_EQ(CVeUnitManager::STATUS_OK, CVeUnitManager::UnitFromString(text, unit));
    EXPECT_EQ(CString(L"KN/M2"), text);
}

TEST(UnitRecognition, LeavesPrecisionMetricsFactorAndFlagOfASingleUnit)
{
    const ScopedSeparator comma(L',');
    CVeUnit unit(1, 1, 7, L'.', 3.0, 1);
    unit.SetSep(L';');
    EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(L"psi", unit));
    EXPECT_EQ(7u, unit.GetPrecision());
    EXPECT_EQ(3.0, unit.GetMetricsFactor());
    EXPECT_EQ(1, unit.GetRemoveTrailingZeroes());
    EXPECT_EQ(L',', unit.GetSep());  // the catalogue sets the current one
}

TEST(UnitRecognition, KeptForcesHaveTheIdOfTheMasses)
{
    // The masses have the ranges 0 to 3; beyond, the texts are those of the step before, which set the id alone.
    const struct
    {
        const wchar_t* text;
        unsigned int range;
        unsigned int rangeBefore;
    } rows[] = {{L"n", 0, 0}, {L"kN", 2, 3}, {L"kg", 4, 2}, {L"t", 5, 1}, {L"lb", 6, 0}, {L"kip", 7, 3}};
    for (const auto& row : rows)
    {
        CVeUnit unit(2, row.rangeBefore, 2, L'.', 1.0, 0);
        EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(row.text, unit));
        EXPECT_EQ(4u, unit.GetIDUnit());
        EXPECT_EQ(row.range, unit.GetRange());
        CVeUnitBase expected = MakeCatalogueUnit(4, row.range <= 3 ? row.range : row.rangeBefore);
        EXPECT_EQ(NameOf(expected), NameOf(unit)) << testing::PrintToString(row.text);
        EXPECT_EQ(expected.GetCoef(), unit.GetCoef()) << testing::PrintToString(row.text);
    }
}

TEST(UnitRecognition, KeptForcesBeyondTheMassesKeepTheTextsOfAnEarlierUnit)
{
    // The metre's range 4 is none of the masses', so neither step finds anything.
    CVeUnit metre;
    EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(L"kip", metre));
    EXPECT_EQ(4u, metre.GetIDUnit());
    EXPECT_EQ(7u, metre.GetRange());
    EXPECT_EQ(L"m", NameOf(metre));
    EXPECT_EQ(1.0, metre.GetCoef());

    CVeUnit stress(7, 8, 2, L'.', 1.0, 0);
    const double coefficient = stress.GetCoef();
    EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(L"lb", stress));
    EXPECT_EQ(L"psi", NameOf(stress));
    EXPECT_EQ(coefficient, stress.GetCoef());
}

TEST(UnitRecognition, KeptAPowerThatTheUnitHadGoesIntoTheCoefficient)
{
    // The catalogue gives 1000 for mm; then the unit is taken from the power 2 to the power 1.
    CVeUnit unit;
    unit.SetExponent(2);
    EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(L"mm", unit));
    EXPECT_EQ(1, unit.GetExponent());
    CVeUnitBase expected;
    expected.SetExponent(2);
    ExpectSame(Recognised({L"mm", 1, 1}, expected), unit, L"mm");
    EXPECT_NEAR(31.6227766, unit.GetCoef(), 1e-6);

    CVeUnit cube;
    cube.SetExponent(3);
    EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(L"cm6", cube));
    EXPECT_NEAR(10000.0, cube.GetCoef(), 1e-6);
    EXPECT_EQ(L"cm6", NameOf(cube));
}

TEST(UnitRecognition, MakesAQuotientThatReplacesTheWholeUnit)
{
    const struct
    {
        const wchar_t* text;
        const wchar_t* name;
        unsigned int idUnit;
        unsigned int range;
        double coefficient;
    } rows[] = {
        {L"m/m", L"m/m", 1, 4, 1.0},
        {L"mm/cm", L"mm/cm", 1, 1, 1000.0 * (1.0 / 100.0)},
        {L"bar/m2", L"bar/m²", 7, 7, 1e-5},
        {L"MPa/MM", L"MPa/mm", 7, 2, 1e-6 * (1.0 / 1000.0)},
        {L"m/mm/cm", L"m/mm/cm", 1, 4, 1.0 / (1000.0 / 100.0)},
        {L"m/m/m/m/m/m/m", L"m/m/m/m/m/m/m", 1, 4, 1.0},
    };
    for (const auto& row : rows)
    {
        CVeUnit unit(2, 2, 7, L'.', 3.0, 1);
        unit.SetExponent(4);
        EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(row.text, unit)) << testing::PrintToString(row.text);
        EXPECT_EQ(row.name, NameOf(unit));
        EXPECT_EQ(row.idUnit, unit.GetIDUnit()) << testing::PrintToString(row.text);
        EXPECT_EQ(row.range, unit.GetRange()) << testing::PrintToString(row.text);
        EXPECT_DOUBLE_EQ(row.coefficient, unit.GetCoef()) << testing::PrintToString(row.text);
        EXPECT_EQ(3u, unit.GetPrecision());
        EXPECT_EQ(1, unit.GetExponent());
        EXPECT_EQ(1.0, unit.GetMetricsFactor());
        EXPECT_EQ(0, unit.GetRemoveTrailingZeroes());
    }
}

TEST(UnitRecognition, MakesEveryQuotientAsMakeUnitDoes)
{
    for (const SpellingRow& over : c_spellings)
    {
        for (const SpellingRow& under : c_spellings)
        {
            CVeUnitBase numerator = Recognised(over);
            CVeUnitBase denominator = Recognised(under);
            const CVeUnitBase expected =
                CVeUnitBase::MakeUnit(&numerator, 1, &denominator, -1, static_cast<CVeUnitBase*>(nullptr));
            const std::wstring text = std::wstring(over.text) + L'/' + under.text;
            CVeUnit unit;
            EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(text, unit)) << testing::PrintToString(text);
            ExpectSame(expected, unit, text);
        }
    }
}

TEST(UnitRecognition, ReadsABOverCAsADividedByBDividedByC)
{
    CVeUnit unit;
    EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(L"mm/cm/dm", unit));
    EXPECT_DOUBLE_EQ(1000.0 / (100.0 / 10.0), unit.GetCoef());
    EXPECT_EQ(L"mm/cm/dm", NameOf(unit));
}

TEST(UnitRecognition, TakesThousandsOfDivisions)
{
    std::wstring text = L"mm";
    for (int i = 0; i < 20000; ++i)
        text += i % 2 ? L"/mm" : L"/cm";
    CVeUnit unit;
    EXPECT_EQ(CVeUnitManager::STATUS_OK, Recognise(text, unit));
    EXPECT_EQ(19u, NameOf(unit).size());
    const CVeUnit before(unit);
    EXPECT_EQ(CVeUnitManager::STATUS_UNKNOWN, Recognise(L"x/" + text, unit));
    EXPECT_EQ(CVeUnitManager::STATUS_UNKNOWN, Recognise(text + L"/", unit));
    EXPECT_TRUE(before == unit);
}
