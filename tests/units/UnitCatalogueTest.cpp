#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <iterator>
#include <string>

#include "tests/support/UnitTestSupport.h"

namespace
{

struct CatalogueRow
{
    unsigned int idUnit;
    unsigned int range;
    const wchar_t* symbol;
    unsigned int titleId;
    const wchar_t* title;
    double coef;
    unsigned int type = 0;
    unsigned int format = 0;
};

// clang-format off
const CatalogueRow c_rows[] = {
//   id  range symbol  title id and title                   coefficient        type format
    {1,  0,  L"µm",      20921, L"Micromètre",                1000000.0},
    {1,  1,  L"mm",      20922, L"Millimètre",                1000.0},
    {1,  2,  L"cm",      20923, L"Centimètre",                100.0},
    {1,  3,  L"dm",      20924, L"Décimètre",                 10.0},
    {1,  4,  L"m",       20925, L"Mètre",                     1.0},
    {1,  5,  L"\"",      20926, L"Pouce",                     39.37007874015748,      1,   3},
    {1,  6,  L"'",       20927, L"Pied",                      3.2808398950131235,     1,   3},
    {1,  7,  L"Yd",      20962, L"Yard",                      1.093613298,            1,   3},
    {1,  8,  L"'-\"",    21038, L"Foot-Inch",                 3.2808398950131235,     1,   2},
    {1,  9,  L"' / \"",  21039, L"Foot-Inch-Fraction",        3.2808398950131235,     1,   4},
    {1,  10, L"/\"",     21040, L"Inch-Fraction",             39.37007874015748,      1,   4},
    {2,  0,  L"N",       20928, L"Newton",                    1.0},
    {2,  1,  L"daN",     20929, L"DecaNewton",                0.1},
    {2,  2,  L"kN",      20930, L"KiloNewton",                0.001},
    {2,  3,  L"MN",      20931, L"MegaNewton",                1e-06},
    {2,  4,  L"kg",      20932, L"KgForce",                   0.10197162129779283},
    {2,  5,  L"T",       20933, L"TonneForce",                0.00010197162129779284},
    {2,  6,  L"lb",      20964, L"LivreForce",                0.2248090836320252},
    {2,  7,  L"kip",     20965, L"KiloLivreForce",            0.00022480908363202524},
    {3,  0,  L"N*m",     20935, L"Newton*m",                  1.0},
    {3,  1,  L"daN*m",   20936, L"DecaNewton*m",              0.1},
    {3,  2,  L"kN*m",    20937, L"KiloNewton*m",              0.001},
    {3,  3,  L"MN*m",    20938, L"MegaNewton*m",              1e-06},
    {3,  4,  L"kg*m",    20939, L"KgForce*m",                 0.10197162129779283},
    {3,  5,  L"T*m",     20940, L"TonneForce*m",              0.00010197162129779284},
    {3,  6,  L"lb*in",   20941, L"Livre*Pouce",               8.850751275919913},
    {3,  7,  L"lb*ft",   20989, L"Livre*Pied",                0.737562610330745},
    {3,  8,  L"kip*in",  20898, L"KiloLivre*Pouce",           0.008850751275919912},
    {3,  9,  L"kip*ft",  20899, L"KiloLivre*Pied",            0.000737562610330745},
    {4,  0,  L"kg",      20942, L"Kilogramme",                1.0},
    {4,  1,  L"T",       20943, L"Tonne",                     0.001},
    {4,  2,  L"lb",      20934, L"Livre",                     2.204624},
    {4,  3,  L"kip",     20963, L"KiloLivre",                 0.024},
    {5,  0,  L"°",       20945, L"Degré",                     57.29577951308232},
    {5,  1,  L"Rad",     20946, L"Radian",                    1.0},
    {5,  2,  L"Grad",    20947, L"Grade",                     63.66197723675813},
    {7,  0,  L"Pa",      20948, L"Pascal (N/m²)",             1.0},
    {7,  1,  L"kPa",     20949, L"KiloPascal",                0.001},
    {7,  2,  L"MPa",     20950, L"MPa (N/mm²)",               1e-06},
    {7,  3,  L"daN/mm²", 20951, L"DecaNewton/mm²",            1e-07},
    {7,  4,  L"kg/mm²",  20952, L"Kilogramme/mm²",            1.0197162129779283e-07},
    {7,  5,  L"kg/cm²",  20953, L"Kilogramme/cm²",            1.0197162129779284e-05},
    {7,  6,  L"t/m²",    20954, L"Tonne/m²",                  0.00010197162129779284},
    {7,  7,  L"bar",     20955, L"Bar (daN/cm²)",             1e-05},
    {7,  8,  L"psi",     20966, L"LivreForce par pouce²",     0.000145},
    {7,  9,  L"kg/m²",   20995, L"Kilogramme/m²",             0.0010197162129779284},
    {7,  10, L"lb/in²",  20996, L"Livre/Pouces²",             0.000145},
    {7,  11, L"lb/ft²",  20997, L"Livre/Pieds²",              0.020885},
    {7,  12, L"ksi",     20900, L"KiloLivreForce par pouce²", 1.45e-07},
    {8,  0,  L"s",       20956, L"Seconde",                   1.0},
    {8,  1,  L"min",     20957, L"Minute",                    0.016666666666666666},
    {8,  2,  L"h",       20958, L"Heure",                     0.0002777777777777778},
    {10, 0,  L"°C",      20959, L"Degrés Celsius",            1.0},
    {10, 1,  L"°F",      20960, L"Degrés Fahrenheit",         1.8},
    {10, 2,  L"K",       21034, L"Degrés Kelvin",             1.0},
    {11, 0,  L"",        20961, L"Adim.",                     1.0},
    {15, 0,  L"J",       20967, L"Joule",                     1.0},
    {15, 1,  L"kJ",      20968, L"KiloJoule",                 0.001},
    {15, 2,  L"ft-lb",   21033, L"Foot-Pound",                0.737562},
    {16, 0,  L"mm/s",    20969, L"Millimètre/Seconde",        1000.0},
    {16, 1,  L"cm/s",    20970, L"Centimètre/Seconde",        100.0},
    {16, 2,  L"m/s",     20971, L"Mètre/Seconde",             1.0},
    {16, 3,  L"m/min",   20972, L"Mètre/Minute",              60.0},
    {16, 4,  L"km/h",    20973, L"Kilomètre/Heure",           3.6},
    {16, 5,  L"in/s",    20974, L"Pouce/Seconde",             39.37007874015748},
    {16, 6,  L"in/min",  20975, L"Pouce/Minute",              2362.2047244094488},
    {16, 7,  L"in/h",    20976, L"Pouce/Heure",               141732.28346456692},
    {16, 8,  L"ft/s",    20977, L"Pied/Seconde",              3.280839895013123},
    {16, 9,  L"ft/min",  20978, L"Pied/Minute",               196.85039370078738},
    {16, 10, L"ft/h",    20979, L"Pied/Heure",                11811.023622047243},
    {17, 0,  L"mm/s²",   20980, L"Millimètre/Seconde²",       1000.0},
    {17, 1,  L"cm/s²",   20981, L"Centimètre/Seconde²",       100.0},
    {17, 2,  L"m/s²",    20982, L"Mètre/Seconde²",            1.0},
    {17, 3,  L"in/s²",   20983, L"Pouce/Seconde²",            39.37007874015748},
    {17, 4,  L"ft/s²",   20984, L"Pied/Seconde²",             3.280839895013123},
    {18, 0,  L"",        20985, L"Coefficient",               1.0},
    {18, 1,  L"%",       20986, L"Pourcentage",               1.0},
    {20, 0,  L"Hz",      20987, L"Hertz",                     1.0},
    {26, 0,  L"µm",      21046, L"Micrometer²",               1000000.0},
    {26, 1,  L"mm",      21044, L"Millimeter²",               1000.0},
    {26, 2,  L"cm",      21048, L"Centimenter²",              100.0},
    {26, 3,  L"dm",      21054, L"Decimeter²",                10.0},
    {26, 4,  L"m",       21047, L"Meter²",                    1.0},
    {26, 5,  L"\"",      21049, L"Inch²",                     39.37007874015748,      1,   3},
    {26, 6,  L"'",       21055, L"Foot²",                     3.2808398950131235,     1,   3},
    {26, 7,  L"Yd",      21051, L"Yard²",                     1.093613298,            1,   3},
    {26, 8,  L"'-\"",    21052, L"Foot-Inch²",                3.2808398950131235,     1,   2},
    {26, 9,  L"' / \"",  21053, L"Foot-Inch-Fraction²",       3.2808398950131235,     1,   4},
    {26, 10, L"/\"",     21056, L"Inch-Fraction²",            39.37007874015748,      1,   4},
};
// clang-format on

void ExpectUnit(const CatalogueRow& row, unsigned int idUnit)
{
    SCOPED_TRACE(testing::Message() << "id " << idUnit << " range " << row.range);
    CVeUnitBase unit = MakeCatalogueUnit(idUnit, row.range);
    EXPECT_EQ(idUnit, unit.GetIDUnit());
    EXPECT_EQ(row.range, unit.GetRange());
    EXPECT_EQ(row.symbol, NameOf(unit));
    EXPECT_STREQ(row.title, unit.GetTitle());
    EXPECT_EQ(row.coef, unit.GetCoef());
    EXPECT_EQ(row.type, static_cast<unsigned int>(unit.GetType()));
    EXPECT_EQ(row.format, static_cast<unsigned int>(unit.GetUnitFormat()));
}

void ExpectSymbols(const wchar_t* expected, unsigned int idUnit, int range)
{
    EXPECT_STREQ(expected, CVeUnitBase::GetStringUnits(idUnit, range)) << "id " << idUnit << " range " << range;
}

}  // namespace

TEST(UnitCatalogue, FillsEveryUnit)
{
    for (const CatalogueRow& row : c_rows)
        ExpectUnit(row, row.idUnit);
}

TEST(UnitCatalogue, SharesTheLengthsAndTheAngles)
{
    for (const CatalogueRow& row : c_rows)
    {
        if (row.idUnit == 5)
            ExpectUnit(row, 6);
        for (const unsigned int id : c_lengthIds)
        {
            if (row.idUnit == 1 && id != 26)
                ExpectUnit(row, id);
        }
    }
}

TEST(UnitCatalogue, KnowsNoOtherRanges)
{
    for (unsigned int id = 1; id <= 26; ++id)
    {
        const unsigned int like = std::ranges::count(c_lengthIds, id) != 0 ? 1 : id == 6 ? 5 : id;
        for (unsigned int range = 0; range < 20; ++range)
        {
            const bool known = std::ranges::any_of(c_rows, [&](const CatalogueRow& row)
                                                   { return row.idUnit == like && row.range == range; });
            CVeUnitBase unit = MakeCatalogueUnit(id, range);
            EXPECT_EQ(known || id == 11, *unit.GetTitle() != L'\0') << "id " << id << " range " << range;
        }
    }
}

TEST(UnitCatalogue, LeavesAnUnknownUnitAsItIs)
{
    for (const auto& [id, range] : {std::pair(27u, 0u), {0u, 4u}, {UINT_MAX, 0u}, {1u, 11u}, {20u, 1u}, {2u, UINT_MAX}})
    {
        CVeUnitBase fresh = MakeCatalogueUnit(id, range);
        EXPECT_EQ(L"", NameOf(fresh)) << id << ' ' << range;
        EXPECT_STREQ(L"", fresh.GetTitle());
        EXPECT_EQ(1.0, fresh.GetCoef());

        CVeUnitBase inch = MakeCatalogueUnit(1, 5);
        inch.SetIdUnitAndRange(id, range);
        EXPECT_EQ(L"\"", NameOf(inch)) << id << ' ' << range;
        EXPECT_EQ(39.37007874015748, inch.GetCoef());
        EXPECT_EQ(Unit::UNIT_TYPE_IMPERIAL, inch.GetType());
        EXPECT_EQ(Unit::UNITFORMAT_IMPERIAL_DECIMAL, inch.GetUnitFormat());
    }
}

TEST(UnitCatalogue, GivesTheDimensionlessUnitForAnyRange)
{
    for (const unsigned int range : {0u, 1u, 77u, UINT_MAX})
    {
        CVeUnitBase unit = MakeCatalogueUnit(11, range);
        EXPECT_STREQ(L"Adim.", unit.GetTitle());
        EXPECT_EQ(L"", NameOf(unit));
        EXPECT_EQ(1.0, unit.GetCoef());
    }
}

TEST(UnitCatalogue, ResetsTheSeparatorAlsoForAnUnknownUnit)
{
    CVeUnitBase unit;
    unit.SetSep(L';');
    const ScopedSeparator comma(L',');
    unit.SetIdUnit(99);
    EXPECT_EQ(L',', unit.GetSep());
    unit.SetSep(L';');
    unit.SetRange(1);
    EXPECT_EQ(L',', unit.GetSep());
    EXPECT_EQ(L',', MakeCatalogueUnit(99, 99).GetSep());
}

TEST(UnitCatalogue, LeavesPrecisionExponentFactorAndTrailingZeros)
{
    CVeUnitBase unit;
    unit.SetPrecision(7);
    unit.SetMetricsFactor(1000.0);
    unit.SetRemoveTrailingZeroes(5);
    unit.SetExponent(2);
    unit.SetRange(1);
    EXPECT_EQ(7u, unit.GetPrecision());
    EXPECT_EQ(1000.0, unit.GetMetricsFactor());
    EXPECT_EQ(5, unit.GetRemoveTrailingZeroes());
}

TEST(UnitCatalogue, KeptCoefficientIsPlainAfterARefreshWhileTheExponentStays)
{
    CVeUnitBase unit = MakeCatalogueUnit(1, 2);
    unit.SetExponent(2);
    unit.SetRange(1);
    EXPECT_EQ(2, unit.GetExponent());
    EXPECT_EQ(1000.0, unit.GetCoef());
    EXPECT_EQ(L"mm", NameOf(unit));
}

TEST(UnitCatalogue, KeptCoefficientsAreRoundedWhereTheyAlwaysWere)
{
    EXPECT_EQ(1.093613298, MakeCatalogueUnit(1, 7).GetCoef());
    EXPECT_EQ(0.024, MakeCatalogueUnit(4, 3).GetCoef()) << "a thousand pounds";
    EXPECT_EQ(0.000145, MakeCatalogueUnit(7, 8).GetCoef());
    EXPECT_EQ(0.000145, MakeCatalogueUnit(7, 10).GetCoef());
    EXPECT_EQ(0.020885, MakeCatalogueUnit(7, 11).GetCoef());
    EXPECT_EQ(1.45e-07, MakeCatalogueUnit(7, 12).GetCoef());
    EXPECT_EQ(0.737562, MakeCatalogueUnit(15, 2).GetCoef());
}

TEST(UnitCatalogue, KeptTheSquaresOfQuantity26ArePlainLengthsButForTheirTitles)
{
    CVeUnitBase unit = MakeCatalogueUnit(26, 2);
    EXPECT_EQ(L"cm", NameOf(unit));
    EXPECT_EQ(100.0, unit.GetCoef());
    EXPECT_STREQ(L"Centimenter²", unit.GetTitle());
}

TEST(UnitCatalogue, KeptFootPerSecondIsOneLastDigitBelowTheFoot)
{
    EXPECT_LT(MakeCatalogueUnit(16, 8).GetCoef(), MakeCatalogueUnit(1, 6).GetCoef());
}

TEST(UnitCatalogue, ListsTheSymbolsOfAQuantity)
{
    const wchar_t* lengths = L"µm\nmm\ncm\ndm\nm\n\"\n'\nYd\n'-\"\n' / \"\n/\"";
    for (const unsigned int id : c_lengthIds)
        ExpectSymbols(lengths, id, -1);
    ExpectSymbols(L"N\ndaN\nkN\nMN\nkg\nT\nlb\nkip", 2, -1);
    ExpectSymbols(L"N*m\ndaN*m\nkN*m\nMN*m\nkg*m\nT*m\nlb*in\nlb*ft\nkip*in\nkip*ft", 3, -1);
    ExpectSymbols(L"°\nRad\nGrad", 5, -1);
    ExpectSymbols(L"°\nRad\nGrad", 6, -1);
    ExpectSymbols(L"s\nmin\nh", 8, -1);
    ExpectSymbols(L"°C\n°F\nK", 10, -1);
    ExpectSymbols(L"", 11, -1);
    ExpectSymbols(L"J\nkJ\nft-lb", 15, -1);
    ExpectSymbols(L"mm/s\ncm/s\nm/s\nm/min\nkm/h\nin/s\nin/min\nin/h\nft/s\nft/min\nft/h", 16, -1);
    ExpectSymbols(L"mm/s²\ncm/s²\nm/s²\nin/s²\nft/s²", 17, -1);
    ExpectSymbols(L"Hz", 20, -1);
}

TEST(UnitCatalogue, KeptListsDifferFromTheUnits)
{
    ExpectSymbols(L"kg\nT\nlb\nklb", 4, -1);
    ExpectSymbols(L"Pa\nkPa\nMpa\ndaN/mm²\nkg/mm²\nkg/cm²\nt/m²\npsi\nlb/in²\nksi", 7, -1);
    ExpectSymbols(L"%", 18, -1);
}

TEST(UnitCatalogue, GivesTheSymbolOfOneUnit)
{
    for (const CatalogueRow& row : c_rows)
    {
        const bool isKilopoundOfMass = row.idUnit == 4 && row.range == 3;
        ExpectSymbols(isKilopoundOfMass ? L"klb" : row.symbol, row.idUnit, static_cast<int>(row.range));
    }
    ExpectSymbols(L"Rad", 6, 1);
    ExpectSymbols(L"cm", 25, 2);
    ExpectSymbols(L"", 11, 5);
    ExpectSymbols(L"", 11, -2);
}

TEST(UnitCatalogue, AnswersUnknownRangesWithDashesAndUnknownIdsWithNothing)
{
    ExpectSymbols(L"---", 1, 11);
    ExpectSymbols(L"---", 1, -2);
    ExpectSymbols(L"---", 1, INT_MIN);
    ExpectSymbols(L"---", 18, 2);
    ExpectSymbols(L"---", 20, 1);
    ExpectSymbols(L"---", 7, 13);
    for (const unsigned int id : {0u, 27u, UINT_MAX})
    {
        ExpectSymbols(L"", id, 0);
        ExpectSymbols(L"", id, -1);
    }
}

TEST(UnitTables, KeptCountsSayHowManyUnitsAreOffered)
{
    const int offered[26] = {7, 8, 10, 4, 3, 3, 13, 3, 7, 3, 1, 7, 7, 7, 3, 11, 5, 2, 7, 1, 8, 7, 7, 7, 7, 7};
    for (int i = 0; i < 26; ++i)
    {
        EXPECT_EQ(i + 1, CVeUnitBase::c_arrayTypeNumber[i][0]);
        EXPECT_EQ(offered[i], CVeUnitBase::c_arrayTypeNumber[i][1]) << "id " << i + 1;
    }
    static_assert(sizeof(CVeUnitBase::c_arrayTypeNumber) == 26 * 2 * 4);
}

TEST(UnitTables, SamplesOfPrecisionGrowByOneDecimal)
{
    const wchar_t* const fractions[9] = {L"0", L"1/2", L"1/4", L"1/8", L"1/16", L"1/32", L"1/64", L"1/128", L"1/256"};
    std::wstring decimals = L"0";
    for (int precision = 0; precision < 9; ++precision)
    {
        EXPECT_EQ(decimals, CVeUnitBase::c_arrayPrecision[precision]);
        EXPECT_STREQ(fractions[precision], CVeUnitBase::c_arrayImperialPrecision[precision][0]);
        EXPECT_EQ(L"0'-" + decimals + L"\"", CVeUnitBase::c_arrayImperialPrecision[precision][1]);
        decimals += precision == 0 ? L".0" : L"0";
    }
}
