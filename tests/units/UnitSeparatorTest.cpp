#include <gtest/gtest.h>

#include "tests/support/UnitTestSupport.h"
#include "vetools/unitmanager/VeUnitManager.h"

TEST(UnitSeparator, IsAPointUntilTheHostSetsAnother)
{
    EXPECT_EQ(L'.', CVeUnitManager::m_cSep);
}

TEST(UnitSeparator, IsOneCharacterForTheWholeProcess)
{
    CVeUnitManager::m_cSep = L',';
    const wchar_t seen = CVeUnitSeparator::m_cSep;
    const wchar_t takenByAUnit = CVeUnitBase().GetSep();
    CVeUnitManager::m_cSep = L'.';
    EXPECT_EQ(L',', seen);
    EXPECT_EQ(L',', takenByAUnit);
}

TEST(UnitSeparator, ReplacesAPointGivenToAUnit)
{
    const ScopedSeparator comma(L',');
    CVeUnitBase unit;
    unit.SetSep(L';');
    EXPECT_EQ(L';', unit.GetSep());
    unit.SetSep(L'.');
    EXPECT_EQ(L',', unit.GetSep());
}

TEST(UnitSeparator, ReplacesAPointWhenAUnitIsCopied)
{
    const CVeUnitBase point;
    CVeUnitBase semicolon;
    semicolon.SetSep(L';');
    const ScopedSeparator comma(L',');
    EXPECT_EQ(L'.', point.GetSep());
    EXPECT_EQ(L',', CVeUnitBase(point).GetSep());
    EXPECT_EQ(L';', CVeUnitBase(semicolon).GetSep());
}

TEST(UnitSeparator, KeptSeparatorOfTheConstructorIsResetByTheCatalogue)
{
    EXPECT_EQ(L'.', CVeUnitBase(1, 4, 3, L';', 1.0, 0).GetSep());
}
