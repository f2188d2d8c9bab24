#include <gtest/gtest.h>

#include "tests/support/UnitTestSupport.h"

namespace
{

// The alternative titles are for the manager of units only; an explicit instantiation may name a private member.
void Refresh(CVeUnitBase& unit, bool alternativeTitles);

template <void (CVeUnitBase::*update)(bool)>
struct PrivateRefresh
{
    friend void Refresh(CVeUnitBase& unit, bool alternativeTitles) { (unit.*update)(alternativeTitles); }
};
template struct PrivateRefresh<&CVeUnitBase::UpdateDataUnit>;

}  // namespace

TEST(UnitAlternativeTitles, AreTitleAndSymbolOfTheFirstFourStresses)
{
    const wchar_t* const titles[] = {L"N/m²", L"KN/m²", L"N/mm²", L"DaN/mm²"};
    for (unsigned int range = 0; range < 4; ++range)
    {
        CVeUnitBase unit = MakeCatalogueUnit(7, range);
        const double coef = unit.GetCoef();
        Refresh(unit, true);
        EXPECT_EQ(titles[range], NameOf(unit));
        EXPECT_STREQ(titles[range], unit.GetTitle());
        EXPECT_EQ(coef, unit.GetCoef());
        Refresh(unit, false);
        EXPECT_NE(titles[range], NameOf(unit));
    }
}

TEST(UnitAlternativeTitles, AreThoseOfNoOtherUnit)
{
    for (unsigned int id = 1; id <= 26; ++id)
    {
        for (unsigned int range = id == 7 ? 4 : 0; range < 13; ++range)
        {
            CVeUnitBase unit = MakeCatalogueUnit(id, range);
            const std::wstring name = NameOf(unit);
            const std::wstring title = unit.GetTitle();
            Refresh(unit, true);
            EXPECT_EQ(name, NameOf(unit)) << id << ' ' << range;
            EXPECT_EQ(title, unit.GetTitle()) << id << ' ' << range;
        }
    }
}
