#include <gtest/gtest.h>

#include "vetools/units/UnitSeparator.h"

TEST(UnitSeparator, IsAPointUntilTheHostSetsAnother)
{
    EXPECT_EQ(L'.', CVeUnitSeparator::m_cSep);
}

TEST(UnitSeparator, IsOneCharacterForTheWholeProcess)
{
    CVeUnitSeparator::m_cSep = L',';
    const wchar_t seen = CVeUnitSeparator::m_cSep;
    CVeUnitSeparator::m_cSep = L'.';
    EXPECT_EQ(L',', seen);
}
