#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <vector>

#include "tests/support/UnitTestSupport.h"

namespace
{

struct TextRow
{
    const wchar_t* expected;
    const wchar_t* stored;
};

struct FoundRow
{
    unsigned int range;
    std::vector<const wchar_t*> texts;
};

constexpr unsigned int c_untouched = 4711;

using LookUp = bool (*)(const wchar_t*, unsigned int*);

void ExpectFound(LookUp lookUp, const std::vector<FoundRow>& rows)
{
    for (const FoundRow& row : rows)
    {
        for (const wchar_t* text : row.texts)
        {
            unsigned int range = c_untouched;
            EXPECT_TRUE(lookUp(text, &range)) << testing::PrintToString(std::wstring(text));
            EXPECT_EQ(row.range, range) << testing::PrintToString(std::wstring(text));
        }
    }
}

void ExpectNotFound(LookUp lookUp, const std::vector<const wchar_t*>& texts)
{
    for (const wchar_t* text : texts)
    {
        unsigned int range = c_untouched;
        EXPECT_FALSE(lookUp(text, &range)) << testing::PrintToString(std::wstring(text));
        EXPECT_EQ(c_untouched, range) << testing::PrintToString(std::wstring(text));
    }
}

std::wstring Eliminated(unsigned int idUnit, const wchar_t* text)
{
    CString result(text);
    CVeUnitBase::EliminateUnitsSymbol(idUnit, result);
    return std::wstring(result.View());
}

}  // namespace

TEST(UnitName, WritesSquaredAndCubedMarksInWords)
{
    const TextRow rows[] = {
        {L"", L""},
        {L"mm²", L"mm²"},
        {L"'", L"'"},
        {L"\"", L"\""},
        {L"' / \"", L"' / \""},
        {L"sq in", L"\"²"},
        {L"sq in", L"\"2"},
        {L"cu in", L"\"3"},
        {L"sq ft", L"'²"},
        {L"sq ft", L"'2"},
        {L"cu ft", L"'3"},
        {L"\"4", L"\"4"},
        {L"²\"", L"²\""},
        {L"sq in/cu ft", L"\"²/'3"},
        {L"sq insq in", L"\"²\"2"},
        {L"'sq in", L"'\"²"},
        {L"sq in²", L"\"²²"},
        {L"lb/sq in*sq in", L"lb/\"2*\"2"},
    };
    for (const TextRow& row : rows)
    {
        CVeUnitBase unit;
        unit.SetName(row.stored);
        EXPECT_EQ(row.expected, NameOf(unit));
        EXPECT_EQ(row.expected, NameOf(unit)) << "the stored name stays";
    }
}

TEST(UnitName, IsNotCutWhenItGrows)
{
    CVeUnitBase unit;
    unit.SetName(L"\"2\"2\"2\"2\"2\"2\"2\"2\"2");
    EXPECT_EQ(L"sq insq insq insq insq insq insq insq insq in", NameOf(unit));
}

TEST(UnitTitle, WritesMarksInWordsAndBackIntoTheUnit)
{
    const TextRow rows[] = {
        {L"", L""},         {L"Mètre", L"Mètre"}, {L"sq in", L"\"²"},       {L"sq in", L"\"2"},
        {L"cu in", L"\"3"}, {L"Pouce", L"\""},    {L"sq ft", L"'²"},        {L"sq ft", L"'2"},
        {L"cu ft", L"'3"},  {L"Pied", L"'"},      {L"Pied-Pouce", L"'-\""}, {L"Pouce4", L"\"4"},
        {L"a²", L"a²²"},    {L"a²²", L"a²²²"},    {L"a² b²²", L"a²² b²²"},  {L"sq in²", L"\"²²²"},
    };
    for (const TextRow& row : rows)
    {
        CVeUnitBase unit;
        unit.SetUnitValues(row.stored, L"name", 1.0);
        const wchar_t* title = unit.GetTitle();
        EXPECT_STREQ(row.expected, title);
        CVeUnitBase copy(unit);
        EXPECT_EQ(title, unit.GetTitle()) << "the buffer is the unit's own";
    }
}

TEST(UnitTitle, IsCutToItsBuffer)
{
    CVeUnitBase unit;
    unit.SetUnitValues(std::wstring(49, L'"').c_str(), L"", 1.0);
    EXPECT_STREQ(L"PoucePoucePoucePoucePoucePoucePoucePoucePoucePouc", unit.GetTitle());
}

TEST(UnitPlural, ExistsForMostLengths)
{
    const wchar_t* const plurals[] = {
        L"", L"millimètres", L"centimètres",           L"decimètres",       L"mètres", L"pouces", L"pied",
        L"", L"Feet-Inches", L"Feet-Inches-Fractions", L"Inches-Fractions", L"",       L""};
    for (unsigned int range = 0; range < 13; ++range)
    {
        for (const unsigned int id : c_lengthIds)
            EXPECT_STREQ(plurals[range], MakeCatalogueUnit(id, range).GetTitlePlural()) << id << ' ' << range;
        for (const unsigned int id : {0u, 2u, 11u, 16u, 27u})
            EXPECT_STREQ(L"", MakeCatalogueUnit(id, range).GetTitlePlural()) << id << ' ' << range;
    }
}

TEST(UnitPlural, KeptMicrometreAndYardHaveNoneAndTheFootHasItsSingular)
{
    EXPECT_STREQ(L"", MakeCatalogueUnit(1, 0).GetTitlePlural());
    EXPECT_STREQ(L"", MakeCatalogueUnit(1, 7).GetTitlePlural());
    EXPECT_STREQ(L"pied", MakeCatalogueUnit(1, 6).GetTitlePlural());
    EXPECT_STREQ(L"decimètres", MakeCatalogueUnit(1, 3).GetTitlePlural());
}

TEST(UnitLookUp, FindsTheRangeOfASymbol)
{
    ExpectFound(CVeUnitBase::GetRangeFromUnitName,
                {
                    {0, {L"µm", L"N", L"N*m", L"°", L"Pa", L"s", L"°C", L"J", L"mm/s", L"mm/s²", L"Hz"}},
                    {1, {L"mm", L"daN", L"daN*m", L"Rad", L"kPa", L"min", L"kJ", L"cm/s", L"cm/s²", L"%"}},
                    {2, {L"cm", L"kN", L"kN*m", L"Grad", L"MPa", L"h", L"m/s", L"m/s²"}},
                    {3, {L"dm", L"MN", L"MN*m", L"daN/mm²", L"m/min", L"in/s²"}},
                    {4, {L"m", L"kg", L"kg*m", L"kg/mm²", L"km/h", L"ft/s²"}},
                    {5, {L"\"", L"T", L"T*m", L"kg/cm²", L"in/s"}},
                    {6, {L"'", L"lb", L"lb*in", L"t/m²", L"in/min"}},
                    {7, {L"Yd", L"kip", L"bar", L"in/h"}},
                    {8, {L"psi", L"ft/s"}},
                    {9, {L"ft/min"}},
                    {10, {L"ft/h"}},
                });
}

TEST(UnitLookUp, KeptSomeSymbolsAreNotFound)
{
    ExpectNotFound(CVeUnitBase::GetRangeFromUnitName,
                   {L"lb*ft", L"kip*in", L"kip*ft", L"klb", L"°F", L"K", L"ft-lb", L"kg/m²", L"lb/in²", L"lb/ft²",
                    L"ksi", L"'-\"", L"' / \"", L"/\"", L""});
}

TEST(UnitLookUp, ComparesSymbolsWholeAndWithCase)
{
    ExpectNotFound(CVeUnitBase::GetRangeFromUnitName, {L"MM", L"mm ", L" mm", L"m²", L"Mpa", L"n", L"mmm"});
}

TEST(UnitLookUp, FindsTheRangeOfATitle)
{
    ExpectFound(
        CVeUnitBase::GetRangeFromUnitTitle,
        {
            {0,
             {L"Micromètre", L"Newton", L"Newton*m", L"Degré", L"Pascal (N/m²)", L"Seconde", L"Degrés Celsius",
              L"Joule", L"Millimètre/Seconde", L"Millimètre/Seconde²"}},
            {1,
             {L"Millimètre", L"DecaNewton", L"DecaNewton*m", L"Radian", L"KiloPascal", L"Minute", L"KiloJoule",
              L"Centimètre/Seconde", L"Centimètre/Seconde²", L"Pourcentage"}},
            {2,
             {L"Centimètre", L"KiloNewton", L"KiloNewton*m", L"Grade", L"MPa (N/mm²)", L"Heure", L"Mètre/Seconde",
              L"Mètre/Seconde²"}},
            {3, {L"Décimètre", L"MegaNewton", L"MegaNewton*m", L"DecaNewton/mm²", L"Mètre/Minute", L"Pouce/Seconde²"}},
            {4, {L"Mètre", L"KgForce", L"KgForce*m", L"Kilogramme/mm²", L"Kilomètre/Heure", L"Pied/Seconde²"}},
            {5, {L"Pouce", L"TonneForce", L"TonneForce*m", L"Kilogramme/cm²", L"Pouce/Seconde"}},
            {6, {L"Pied", L"LivreForce", L"Livre*Pouce", L"Tonne/m²", L"Pouce/Minute"}},
            {7, {L"Yard", L"KiloLivreForce", L"Bar (daN/cm²)", L"Pouce/Heure"}},
            {8, {L"LivreForce par pouce²", L"Pied/Seconde", L"Foot-Inch"}},
            {9, {L"Pied/Minute", L"Foot-Inch-Fraction"}},
            {10, {L"Pied/Heure", L"Inch-Fraction"}},
        });
}

TEST(UnitLookUp, KeptSomeTitlesAreNotFound)
{
    ExpectNotFound(CVeUnitBase::GetRangeFromUnitTitle, {L"Kilogramme",
                                                        L"Tonne",
                                                        L"Livre",
                                                        L"KiloLivre",
                                                        L"Degrés Fahrenheit",
                                                        L"Degrés Kelvin",
                                                        L"Coefficient",
                                                        L"Hertz",
                                                        L"Adim.",
                                                        L"Livre*Pied",
                                                        L"KiloLivre*Pouce",
                                                        L"KiloLivre*Pied",
                                                        L"Kilogramme/m²",
                                                        L"Livre/Pouces²",
                                                        L"Livre/Pieds²",
                                                        L"KiloLivreForce par pouce²",
                                                        L"Foot-Pound",
                                                        L"Micrometer²",
                                                        L"Meter²",
                                                        L"Inch-Fraction²",
                                                        L"mètre",
                                                        L"Mètre ",
                                                        L""});
}

TEST(UnitLookUp, KeptTheQuantityIsNoInput)
{
    ExpectFound(CVeUnitBase::GetRangeFromUnitName, {{4, {L"kg"}}, {5, {L"T"}}, {6, {L"lb"}}, {7, {L"kip"}}});
}

TEST(UnitLookUp, RefusesNullPointers)
{
    unsigned int range = c_untouched;
    EXPECT_FALSE(CVeUnitBase::GetRangeFromUnitName(nullptr, &range));
    EXPECT_FALSE(CVeUnitBase::GetRangeFromUnitName(L"m", nullptr));
    EXPECT_FALSE(CVeUnitBase::GetRangeFromUnitTitle(nullptr, &range));
    EXPECT_FALSE(CVeUnitBase::GetRangeFromUnitTitle(L"Mètre", nullptr));
    EXPECT_EQ(c_untouched, range);
}

TEST(UnitSymbols, AreElevenForLengths)
{
    const std::vector<CString> expected = {L"µm", L"mm", L"cm",   L"dm",     L"m",  L"\"",
                                           L"'",  L"Yd", L"'-\"", L"' / \"", L"/\""};
    for (unsigned int id = 0; id <= 27; ++id)
    {
        const bool isLength = std::ranges::count(c_lengthIds, id) != 0;
        EXPECT_EQ(isLength ? expected.size() : 0, CVeUnitBase::GetAllUnitsSymbols(id).size()) << "id " << id;
    }
    const std::vector<CString> symbols = CVeUnitBase::GetAllUnitsSymbols(22);
    ASSERT_EQ(expected.size(), symbols.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_STREQ(expected[i], symbols[i]);
}

TEST(UnitSymbols, AreRemovedFromATextTogetherWithTheirUpperCase)
{
    const TextRow rows[] = {
        {L"", L""},         {L"12 ", L"12 MM"},         {L"12 ", L"12 mm"},    {L"12 ", L"12 µm"},
        {L"12 ", L"12 µM"}, {L"1 2 3 ", L"1m 2M 3 dm"}, {L"12 ", L"12 mmm"},   {L"3 ", L"3 Yd"},
        {L"3 ", L"3 YD"},   {L"3 yd", L"3 yd"},         {L"aount", L"amount"}, {L"12 kN", L"12 kN"},
    };
    for (const TextRow& row : rows)
        EXPECT_EQ(row.expected, Eliminated(1, row.stored));
    EXPECT_EQ(L"12 ", Eliminated(26, L"12 MM"));
}

TEST(UnitSymbols, KeptHyphenOfFeetAndInchesStays)
{
    EXPECT_EQ(L"5-11 3/8", Eliminated(1, L"5'-11 3/8\""));
    EXPECT_EQ(L"5 / 11/", Eliminated(1, L"5' / 11/\""));
}

TEST(UnitSymbols, StayInTheTextsOfOtherQuantities)
{
    for (const unsigned int id : {0u, 2u, 10u, 27u, UINT_MAX})
        EXPECT_EQ(L"12 MM", Eliminated(id, L"12 MM"));
}
