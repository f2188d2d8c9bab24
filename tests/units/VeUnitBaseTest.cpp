#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>

#include "tests/support/UnitTestSupport.h"

TEST(UnitObject, IsTheMetreAtFirst)
{
    CVeUnitBase unit;
    EXPECT_EQ(1u, unit.GetIDUnit());
    EXPECT_EQ(4u, unit.GetRange());
    EXPECT_EQ(3u, unit.GetPrecision());
    EXPECT_EQ(1, unit.GetExponent());
    EXPECT_EQ(L'.', unit.GetSep());
    EXPECT_EQ(L"m", NameOf(unit));
    EXPECT_STREQ(L"Mètre", unit.GetTitle());
    EXPECT_EQ(1.0, unit.GetCoef());
    EXPECT_EQ(Unit::UNIT_TYPE_METRIC, unit.GetType());
    EXPECT_EQ(1.0, unit.GetMetricsFactor());
    EXPECT_EQ(0, unit.GetRemoveTrailingZeroes());
    EXPECT_EQ(Unit::UNITFORMAT_DECIMAL, unit.GetUnitFormat());
}

TEST(UnitObject, KeptMetricsFactorOfTheConstructorIsNotFiltered)
{
    const CVeUnitBase force(2, 2, 5, L'.', 12.5, 7);
    EXPECT_EQ(12.5, force.GetMetricsFactor());
    EXPECT_EQ(7, force.GetRemoveTrailingZeroes());
    EXPECT_EQ(5u, force.GetPrecision());
}

TEST(UnitObject, KeepsAMetricsFactorForLengthsOnly)
{
    for (unsigned int id = 0; id <= 27; ++id)
    {
        CVeUnitBase unit(id, 0, 3, L'.', 5.0, 0);
        unit.SetMetricsFactor(2.0);
        EXPECT_EQ(std::ranges::count(c_lengthIds, id) != 0 ? 2.0 : 1.0, unit.GetMetricsFactor()) << "id " << id;
    }
}

TEST(UnitObject, FormatFollowsFromTypeAndRange)
{
    const struct
    {
        unsigned int range;
        unsigned int format;
    } rows[] = {{0, 3}, {4, 3}, {5, 3}, {6, 3}, {7, 3}, {8, 2}, {9, 4}, {10, 4}, {11, 3}, {12, 3}, {4000000000u, 3}};
    for (const auto& row : rows)
    {
        for (const unsigned int id : {1u, 2u, 7u, 99u})
        {
            CVeUnitBase unit = MakeCatalogueUnit(id, row.range);
            unit.SetUnitType(Unit::UNIT_TYPE_IMPERIAL);
            EXPECT_EQ(Unit::UNIT_TYPE_IMPERIAL, unit.GetType());
            EXPECT_EQ(row.format, static_cast<unsigned int>(unit.GetUnitFormat())) << id << ' ' << row.range;
            unit.SetUnitType(static_cast<Unit::UNIT_TYPE>(7));
            EXPECT_EQ(7u, static_cast<unsigned int>(unit.GetType()));
            EXPECT_EQ(row.format, static_cast<unsigned int>(unit.GetUnitFormat())) << "another type leaves the format";
            unit.SetUnitType(Unit::UNIT_TYPE_METRIC);
            EXPECT_EQ(Unit::UNITFORMAT_DECIMAL, unit.GetUnitFormat());
        }
    }
}

TEST(UnitObject, StoresAnyFormat)
{
    CVeUnitBase unit;
    EXPECT_TRUE(unit.SetUnitFormat(static_cast<Unit::enumUNITFORMAT>(1)));
    EXPECT_EQ(1u, static_cast<unsigned int>(unit.GetUnitFormat()));
    EXPECT_EQ(Unit::UNIT_TYPE_METRIC, unit.GetType());
}

TEST(UnitObject, CopiesComposedNamesAndCoefficientsAsTheyAre)
{
    CVeUnitBase unit = MakeCatalogueUnit(2, 2);
    unit.SetUnitValues(L"title", L"name", 42.0);
    unit.SetPrecision(9);
    unit.SetUnitFormat(Unit::UNITFORMAT_FRACTION);
    unit.SetRemoveTrailingZeroes(3);
    CVeUnitBase copy(unit);
    EXPECT_EQ(L"name", NameOf(copy));
    EXPECT_STREQ(L"title", copy.GetTitle());
    EXPECT_EQ(42.0, copy.GetCoef());
    EXPECT_EQ(9u, copy.GetPrecision());
    EXPECT_EQ(Unit::UNITFORMAT_FRACTION, copy.GetUnitFormat());
    EXPECT_EQ(3, copy.GetRemoveTrailingZeroes());

    const std::unique_ptr<CVeUnitBase> clone(unit.GetClone());
    EXPECT_EQ(L"name", NameOf(*clone));
    CVeUnitBase assigned;
    EXPECT_EQ(&assigned, &(assigned = unit));
    EXPECT_EQ(L"name", NameOf(assigned));
}

TEST(UnitObject, MayBeAssignedToItself)
{
    CVeUnitBase unit = MakeCatalogueUnit(7, 4);
    CVeUnitBase& self = unit;
    unit = self;
    EXPECT_EQ(L"kg/mm²", NameOf(unit));
    EXPECT_STREQ(L"Kilogramme/mm²", unit.GetTitle());
}

TEST(UnitObject, KeptComparisonRegardsSevenFieldsOnly)
{
    const CVeUnitBase unit;
    CVeUnitBase other;
    other.SetExponent(2);
    other.SetUnitValues(L"another title", L"another name", 17.0);
    EXPECT_EQ(1, unit == other);
    EXPECT_EQ(0, unit != other);

    const auto expectDifferent = [&](auto change)
    {
        CVeUnitBase changed;
        change(changed);
        EXPECT_EQ(0, unit == changed);
        EXPECT_EQ(1, unit != changed);
    };
    expectDifferent([](CVeUnitBase& u) { u.SetIdUnit(9); });
    expectDifferent([](CVeUnitBase& u) { u.SetRange(3); });
    expectDifferent([](CVeUnitBase& u) { u.SetPrecision(4); });
    expectDifferent([](CVeUnitBase& u) { u.SetUnitFormat(Unit::UNITFORMAT_FRACTION); });
    expectDifferent([](CVeUnitBase& u) { u.SetSep(L';'); });
    expectDifferent([](CVeUnitBase& u) { u.SetMetricsFactor(1.0000000000000002); });
    expectDifferent([](CVeUnitBase& u) { u.SetRemoveTrailingZeroes(1); });
    expectDifferent([](CVeUnitBase& u) { u.SetMetricsFactor(std::numeric_limits<double>::quiet_NaN()); });
}

TEST(UnitObject, TakesItsOwnTextsAndNoTexts)
{
    CVeUnitBase unit;
    unit.SetName(unit.GetTitle());
    EXPECT_EQ(L"Mètre", NameOf(unit));
    unit.SetName(nullptr);
    EXPECT_EQ(L"Mètre", NameOf(unit));
    unit.SetUnitValues(nullptr, nullptr, 3.0);
    EXPECT_EQ(L"Mètre", NameOf(unit));
    EXPECT_STREQ(L"Mètre", unit.GetTitle());
    EXPECT_EQ(3.0, unit.GetCoef());
    unit.SetUnitValues(unit.GetTitle() + 1, unit.GetTitle(), 4.0);
    EXPECT_STREQ(L"ètre", unit.GetTitle());
    EXPECT_EQ(L"ètre", NameOf(unit)) << "the title is stored first";
}

TEST(UnitObject, CutsTextsToItsBuffers)
{
    CVeUnitBase unit;
    const std::wstring text(1000, L'x');
    unit.SetUnitValues(text.c_str(), text.c_str(), 1.0);
    EXPECT_EQ(std::wstring(19, L'x'), NameOf(unit));
    EXPECT_EQ(std::wstring(49, L'x'), unit.GetTitle());
    unit.SetName(text.c_str() + 1000 - 20);
    EXPECT_EQ(std::wstring(19, L'x'), NameOf(unit));
    unit.SetName(text.c_str() + 1000 - 19);
    EXPECT_EQ(std::wstring(19, L'x'), NameOf(unit));
}

TEST(UnitObject, IsDeletedThroughItsBase)
{
    struct Derived : CVeUnitBase
    {
        explicit Derived(bool& deleted)
            : m_deleted(deleted)
        {
        }
        ~Derived() override { m_deleted = true; }
        bool& m_deleted;
    };
    bool deleted = false;
    std::unique_ptr<CVeUnitBase>(new Derived(deleted)).reset();
    EXPECT_TRUE(deleted);
}
