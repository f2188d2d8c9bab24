#include "vetools/framework/CString.h"

#include <map>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/TextPrinting.h"
#include "vetools/framework/ModuleState.h"

namespace
{

struct Row
{
    UINT id;
    const wchar_t* text;
};

const Row c_rows[] = {
    {20898, L"KiloLivre*Pouce"},
    {20899, L"KiloLivre*Pied"},
    {20900, L"KiloLivreForce par pouce²"},
    {20921, L"Micromètre"},
    {20922, L"Millimètre"},
    {20923, L"Centimètre"},
    {20924, L"Décimètre"},
    {20925, L"Mètre"},
    {20926, L"Pouce"},
    {20927, L"Pied"},
    {20928, L"Newton"},
    {20929, L"DecaNewton"},
    {20930, L"KiloNewton"},
    {20931, L"MegaNewton"},
    {20932, L"KgForce"},
    {20933, L"TonneForce"},
    {20934, L"Livre"},
    {20935, L"Newton*m"},
    {20936, L"DecaNewton*m"},
    {20937, L"KiloNewton*m"},
    {20938, L"MegaNewton*m"},
    {20939, L"KgForce*m"},
    {20940, L"TonneForce*m"},
    {20941, L"Livre*Pouce"},
    {20942, L"Kilogramme"},
    {20943, L"Tonne"},
    {20945, L"Degré"},
    {20946, L"Radian"},
    {20947, L"Grade"},
    {20948, L"Pascal (N/m²)"},
    {20949, L"KiloPascal"},
    {20950, L"MPa (N/mm²)"},
    {20951, L"DecaNewton/mm²"},
    {20952, L"Kilogramme/mm²"},
    {20953, L"Kilogramme/cm²"},
    {20954, L"Tonne/m²"},
    {20955, L"Bar (daN/cm²)"},
    {20956, L"Seconde"},
    {20957, L"Minute"},
    {20958, L"Heure"},
    {20959, L"Degrés Celsius"},
    {20960, L"Degrés Fahrenheit"},
    {20961, L"Adim."},
    {20962, L"Yard"},
    {20963, L"KiloLivre"},
    {20964, L"LivreForce"},
    {20965, L"KiloLivreForce"},
    {20966, L"LivreForce par pouce²"},
    {20967, L"Joule"},
    {20968, L"KiloJoule"},
    {20969, L"Millimètre/Seconde"},
    {20970, L"Centimètre/Seconde"},
    {20971, L"Mètre/Seconde"},
    {20972, L"Mètre/Minute"},
    {20973, L"Kilomètre/Heure"},
    {20974, L"Pouce/Seconde"},
    {20975, L"Pouce/Minute"},
    {20976, L"Pouce/Heure"},
    {20977, L"Pied/Seconde"},
    {20978, L"Pied/Minute"},
    {20979, L"Pied/Heure"},
    {20980, L"Millimètre/Seconde²"},
    {20981, L"Centimètre/Seconde²"},
    {20982, L"Mètre/Seconde²"},
    {20983, L"Pouce/Seconde²"},
    {20984, L"Pied/Seconde²"},
    {20985, L"Coefficient"},
    {20986, L"Pourcentage"},
    {20987, L"Hertz"},
    {20989, L"Livre*Pied"},
    {20993, L"'"},
    {20994, L"Yd"},
    {20995, L"Kilogramme/m²"},
    {20996, L"Livre/Pouces²"},
    {20997, L"Livre/Pieds²"},
    {21000, L"millimètres"},
    {21001, L"centimètres"},
    {21002, L"decimètres"},
    {21003, L"mètres"},
    {21004, L"pouces"},
    {21005, L"pied"},
    {21006, L"µm"},
    {21007, L"mm"},
    {21008, L"cm"},
    {21009, L"dm"},
    {21010, L"m"},
    {21011, L"\""},
    {21020, L"sq in"},
    {21021, L"sq ft"},
    {21022, L"cu in"},
    {21023, L"cu ft"},
    {21028, L"N/m²"},
    {21029, L"KN/m²"},
    {21030, L"N/mm²"},
    {21031, L"DaN/mm²"},
    {21033, L"Foot-Pound"},
    {21034, L"Degrés Kelvin"},
    {21038, L"Foot-Inch"},
    {21039, L"Foot-Inch-Fraction"},
    {21040, L"Inch-Fraction"},
    {21041, L"Feet-Inches"},
    {21042, L"Feet-Inches-Fractions"},
    {21043, L"Inches-Fractions"},
    {21044, L"Millimeter²"},
    {21046, L"Micrometer²"},
    {21047, L"Meter²"},
    {21048, L"Centimenter²"},
    {21049, L"Inch²"},
    {21051, L"Yard²"},
    {21052, L"Foot-Inch²"},
    {21053, L"Foot-Inch-Fraction²"},
    {21054, L"Decimeter²"},
    {21055, L"Foot²"},
    {21056, L"Inch-Fraction²"},
};

}  // namespace

TEST(Strings, AreThoseThatHostsKnowById)
{
    for (const Row& row : c_rows)
    {
        CString text;
        EXPECT_TRUE(text.LoadString(GetVeToolsModule(), row.id)) << row.id;
        EXPECT_EQ(row.text, text) << row.id;
    }
}

TEST(Strings, AreNoOthers)
{
    std::map<UINT, const wchar_t*> known;
    for (const Row& row : c_rows)
        known[row.id] = row.text;
    for (UINT id = 0; id < 0x10000; ++id)
    {
        CString text(L"before");
        ASSERT_EQ(known.contains(id), text.LoadString(GetVeToolsModule(), id)) << id;
        ASSERT_EQ(known.contains(id) ? known[id] : L"before", text) << id;
    }
}

TEST(Strings, AreLoadedFromTheCurrentResourceModuleUnderEverySpelling)
{
    CString text;
    EXPECT_TRUE(text.LoadString(20925));
    EXPECT_EQ(L"Mètre", text);
    EXPECT_TRUE(text.LoadStringW(20926));
    EXPECT_EQ(L"Pouce", text);
    EXPECT_TRUE(text.LoadStringA(20927));
    EXPECT_EQ(L"Pied", text);
    EXPECT_TRUE(text.LoadStringW(GetVeToolsModule(), 20962));
    EXPECT_EQ(L"Yard", text);
    EXPECT_TRUE(text.LoadStringA(GetVeToolsModule(), 20900));
    EXPECT_EQ(L"KiloLivreForce par pouce²", text);
}
