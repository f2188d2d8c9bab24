#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <ostream>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/UnitTestSupport.h"
#include "vetools/unitmanager/VeUnitManager.h"

namespace
{

bool FollowsTheMetricsFactor(unsigned int idUnit)
{
    return std::find(std::begin(c_lengthIds), std::end(c_lengthIds), idUnit) != std::end(c_lengthIds);
}

struct DisplayRow
{
    unsigned int idUnit;
    unsigned int range;
    unsigned int precision;
};

void ExpectShown(const DisplayRow& row, const CVeUnit& unit, double metricsFactor)
{
    const CVeUnitBase expected(row.idUnit, row.range, row.precision, L'.', metricsFactor, 1);
    EXPECT_TRUE(unit == CVeUnit(expected)) << "id " << row.idUnit;
    EXPECT_EQ(row.idUnit, unit.GetIDUnit());
    EXPECT_EQ(row.range, unit.GetRange()) << "id " << row.idUnit;
    EXPECT_EQ(row.precision, unit.GetPrecision()) << "id " << row.idUnit;
    EXPECT_EQ(NameOf(expected), NameOf(unit)) << "id " << row.idUnit;
    EXPECT_EQ(TitleOf(expected), TitleOf(unit)) << "id " << row.idUnit;
    EXPECT_EQ(expected.GetCoef(), unit.GetCoef()) << "id " << row.idUnit;
    EXPECT_EQ(metricsFactor, unit.GetMetricsFactor()) << "id " << row.idUnit;
    EXPECT_EQ(1, unit.GetRemoveTrailingZeroes()) << "id " << row.idUnit;
    EXPECT_EQ(1, unit.GetExponent()) << "id " << row.idUnit;
}

/// A composite that writes down what happens to it.
class Composite : public CVeCompositeUnit
{
public:
    struct Call
    {
        int composite;
        CVeUnitManager* manager;
        unsigned int idUnit;
        bool operator==(const Call&) const = default;
    };

    explicit Composite(int number, bool succeeds = true)
        : m_number(number)
        , m_succeeds(succeeds)
    {
        m_pUnit = &m_unit;
        m_unit.SetName(L"composite");
    }
    ~Composite() override { s_deleted.push_back(m_number); }

    bool Update(CVeUnitManager* manager, unsigned int idUnit) override
    {
        s_calls.push_back({m_number, manager, idUnit});
        return m_succeeds;
    }

    static void Forget()
    {
        s_calls.clear();
        s_deleted.clear();
    }

    static inline std::vector<Call> s_calls;
    static inline std::vector<int> s_deleted;

private:
    int m_number;
    bool m_succeeds;
    CVeUnit m_unit;
};

void PrintTo(const Composite::Call& call, std::ostream* out)
{
    *out << "composite " << call.composite << " for id " << call.idUnit;
}

/// A manager that shows something of its own everywhere.
void Personalise(CVeUnitManager& manager)
{
    manager.SetNameStyleUnit(L"personal");
    manager.SetUnitType(2);
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        manager.SetVisUnit(idUnit, idUnit % 2, idUnit);
}

std::vector<CVeUnit> UnitsOf(CVeUnitManager& manager)
{
    std::vector<CVeUnit> units(26);
    manager.GetTabUnit(units.data());
    return units;
}

void ExpectSameUnits(CVeUnitManager& expected, CVeUnitManager& actual)
{
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
    {
        EXPECT_TRUE(expected.GetVisUnit(idUnit) == actual.GetVisUnit(idUnit)) << idUnit;
        EXPECT_NE(&expected.GetVisUnit(idUnit), &actual.GetVisUnit(idUnit)) << idUnit;
    }
    EXPECT_EQ(expected.GetMetricsFactor(), actual.GetMetricsFactor());
    EXPECT_EQ(expected.GetNameStyleUnit(), actual.GetNameStyleUnit());
}

}  // namespace

// clang-format off
TEST(UnitManager, StartsWithTheInitialUnits)
{
    const DisplayRow rows[] = {
    //   id  range  precision
        { 1,  4,  2}, { 2,  2,  2}, { 3,  2,  2}, { 4,  1,  2}, { 5,  0,  2}, { 6,  1,  2}, { 7,  2,  2},
        { 8,  0,  2}, { 9,  2,  2}, {10,  0,  2}, {11,  0,  2}, {12,  2,  2}, {13,  2,  2}, {14,  1,  0},
        {15,  0,  2}, {16,  2,  2}, {17,  2,  2}, {18,  1,  0}, {19,  1,  1}, {20,  0,  2}, {21,  4,  3},
        {22,  4,  2}, {23,  2,  2}, {24,  2,  2}, {25,  1,  2}, {26,  1,  2},
    };
    CVeUnitManager manager;
    for (const DisplayRow& row : rows)
        ExpectShown(row, manager.GetVisUnit(row.idUnit), 1.0);
    EXPECT_EQ(1.0, manager.GetMetricsFactor());
    EXPECT_EQ(4, manager.GetUnitType());
    EXPECT_TRUE(manager.GetNameStyleUnit().IsEmpty());
}

TEST(UnitManager, KeptDefaultUnitsAreNotTheInitialOnes)
{
    const DisplayRow rows[] = {
    //   id  range  precision
        { 1,  4,  2}, { 2,  5,  2}, { 3,  0,  2}, { 4,  1,  2}, { 5,  0,  1}, { 6,  1,  1}, { 7,  2,  0},
        { 8,  0,  3}, { 9,  4,  3}, {10,  0,  3}, {11,  0,  3}, {12,  2,  0}, {13,  4,  3}, {14,  4,  1},
        {15,  0,  3}, {16,  2,  3}, {17,  2,  3}, {18,  0,  3}, {19,  4,  1}, {20,  4,  3}, {21,  2,  0},
        {22,  4,  2}, {23,  2,  2}, {24,  2,  2}, {25,  1,  2}, {26,  2,  2},
    };
    CVeUnitManager manager;
    for (const DisplayRow& row : rows)
        ExpectShown(row, manager.GetDefaultUnit(row.idUnit), 1.0);

    manager.SetUnitType(5);
    manager.LoadDefaultUnits();
    for (const DisplayRow& row : rows)
    {
        // A known unit takes its texts with it; the frequency without a range 4 has none.
        ExpectShown(row, manager.GetVisUnit(row.idUnit), 1.0);
    }
    EXPECT_EQ(39.37007874015748, manager.GetMetricsFactor());
}
// clang-format on

TEST(UnitManager, GivesTheMetreAsDefaultUnitOfAnUnknownId)
{
    const CVeUnitManager manager;
    for (const unsigned int idUnit : {0u, 27u, 0xFFFFFFFFu})
    {
        const CVeUnit unit = manager.GetDefaultUnit(idUnit);
        EXPECT_TRUE(unit == CVeUnit()) << idUnit;
        EXPECT_EQ(0, unit.GetRemoveTrailingZeroes()) << idUnit;
    }
}

TEST(UnitManager, LoadsDefaultsWithoutUpdatingCompositesOrMovingUnits)
{
    Composite::Forget();
    CVeUnitManager manager;
    ASSERT_TRUE(manager.AddCompositeUnit(new Composite(1), 27));
    Composite::Forget();
    const CVeUnit* const before = &manager.GetVisUnit(3);
    manager.LoadDefaultUnits();
    EXPECT_TRUE(Composite::s_calls.empty());
    EXPECT_EQ(before, &manager.GetVisUnit(3));
    manager.UpdateUnitsMetricsFactor(manager.GetMetricsFactor());
}

TEST(UnitManager, KeptSetDefaultValuesLeavesTheOldUnitsToTheirHolder)
{
    CVeUnitManager manager;
    manager.SetVisUnit(2, 1, 7);
    std::vector<std::unique_ptr<CVeUnit>> old;
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        old.emplace_back(&manager.GetVisUnit(idUnit));
    manager.SetDefaultValues();
    EXPECT_EQ(7u, old[1]->GetPrecision());
    EXPECT_EQ(2u, manager.GetVisUnit(2).GetPrecision());
}

TEST(UnitManager, ShowsTheLengthForIdsThatNothingIsRegisteredUnder)
{
    CVeUnitManager manager;
    for (const unsigned int idUnit : {0u, 1u, 27u, 28u, 0xFFFFFFFFu})
        EXPECT_EQ(1u, manager.GetVisUnit(idUnit).GetIDUnit()) << idUnit;
    EXPECT_EQ(&manager.GetVisUnit(1), &manager.GetVisUnit(0));
    EXPECT_EQ(&manager.GetVisUnit(1), &manager.GetVisUnit(27));
}

TEST(UnitManager, ShowsTheUnitOfARegisteredComposite)
{
    CVeUnitManager manager;
    auto* const composite = new Composite(1);
    ASSERT_TRUE(manager.AddCompositeUnit(composite, 40));
    EXPECT_EQ(composite->m_pUnit, &manager.GetVisUnit(40));
    EXPECT_EQ(&manager.GetVisUnit(1), &manager.GetVisUnit(39));
    composite->m_pUnit = nullptr;
    EXPECT_EQ(&manager.GetVisUnit(1), &manager.GetVisUnit(40));
}

TEST(UnitManager, TakesAUnitAsItIsComposedOrNot)
{
    CVeUnitManager manager;
    CVeUnit unit(2, 2, 5, L'.', 7.0, 0);
    unit.SetUnitValues(L"Force per area", L"kN/m²", 0.25);
    manager.SetVisUnit(7, unit);
    const CVeUnit& shown = manager.GetVisUnit(7);
    EXPECT_TRUE(shown == unit);
    EXPECT_EQ(2u, shown.GetIDUnit());
    EXPECT_EQ(L"kN/m²", NameOf(shown));
    EXPECT_EQ(0.25, shown.GetCoef());
    EXPECT_EQ(7.0, shown.GetMetricsFactor());

    CVeUnit& itself = manager.GetVisUnit(7);
    manager.SetVisUnit(7, itself);
    EXPECT_TRUE(manager.GetVisUnit(7) == unit);
}

TEST(UnitManager, SetsRangeAndPrecisionFromTheCatalogue)
{
    CVeUnitManager manager;
    manager.SetUnitType(1);
    manager.SetVisUnit(1, 8, 4);
    ExpectShown({1, 8, 4}, manager.GetVisUnit(1), 1000.0);
    EXPECT_EQ(Unit::UNITFORMAT_FEET_INCHES, manager.GetVisUnit(1).GetUnitFormat());
}

TEST(UnitManager, KeepsThePrecisionForTheLargestNumberOnly)
{
    CVeUnitManager manager;
    manager.SetVisUnit(2, 1, 0xFFFFFFFF);
    EXPECT_EQ(1u, manager.GetVisUnit(2).GetRange());
    EXPECT_EQ(2u, manager.GetVisUnit(2).GetPrecision());
    manager.SetVisUnit(2, 1, 0xFFFFFFFE);
    EXPECT_EQ(0xFFFFFFFEu, manager.GetVisUnit(2).GetPrecision());
    manager.SetVisUnit(2, 1, 0);
    EXPECT_EQ(0u, manager.GetVisUnit(2).GetPrecision());
}

TEST(UnitManager, LeavesTheTextsOfAUnitWhoseRangeIsUnknown)
{
    CVeUnitManager manager;
    manager.SetVisUnit(2, 99, 1);
    EXPECT_EQ(99u, manager.GetVisUnit(2).GetRange());
    EXPECT_EQ(L"kN", NameOf(manager.GetVisUnit(2)));
}

TEST(UnitManager, SetsNoUnitOfAnIdOutsideTheTable)
{
    Composite::Forget();
    CVeUnitManager manager;
    ASSERT_TRUE(manager.AddCompositeUnit(new Composite(1), 27));
    const std::vector<CVeUnit> before = UnitsOf(manager);
    CVeUnit unit(2, 1, 1, L'.', 1.0, 0);
    for (const unsigned int idUnit : {0u, 27u, 28u, 0xFFFFFFFFu})
    {
        manager.SetVisUnit(idUnit, unit);
        manager.SetVisUnit(idUnit, 1, 1);
    }
    const std::vector<CVeUnit> after = UnitsOf(manager);
    for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_TRUE(before[i] == after[i]) << i;
}

TEST(UnitManager, CopiesTheTableInTheOrderOfTheIds)
{
    CVeUnitManager manager;
    Personalise(manager);
    const std::vector<CVeUnit> units = UnitsOf(manager);
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
    {
        EXPECT_EQ(idUnit, units[idUnit - 1].GetIDUnit());
        EXPECT_TRUE(manager.GetVisUnit(idUnit) == units[idUnit - 1]) << idUnit;
    }
}

TEST(UnitManager, CutsTheNameOfAStyleToItsBuffer)
{
    CVeUnitManager manager;
    manager.SetNameStyleUnit(std::wstring(400, L'n').c_str());
    EXPECT_EQ(std::wstring(259, L'n'), std::wstring(manager.GetNameStyleUnit().View()));
    manager.SetNameStyleUnit(L"short");
    EXPECT_EQ(CString(L"short"), manager.GetNameStyleUnit());
    manager.SetNameStyleUnit(nullptr);
    EXPECT_TRUE(manager.GetNameStyleUnit().IsEmpty());
}

TEST(UnitManager, IsMadeWithTheSeparatorThatWasCurrentBefore)
{
    const ScopedSeparator restored(L';');
    wchar_t folder[] = L"";
    wchar_t name[] = L"style";
    wchar_t extension[] = L".units";
    CVeUnitManager manager(folder, name, extension, L',', 100.0, 0);
    EXPECT_EQ(L',', CVeUnitManager::m_cSep);
    EXPECT_EQ(CString(L"style"), manager.GetNameStyleUnit());
    EXPECT_EQ(100.0, manager.GetMetricsFactor());
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
    {
        EXPECT_EQ(L';', manager.GetVisUnit(idUnit).GetSep()) << idUnit;
        EXPECT_EQ(FollowsTheMetricsFactor(idUnit) ? 100.0 : 1.0, manager.GetVisUnit(idUnit).GetMetricsFactor())
            << idUnit;
    }
}

TEST(UnitManager, IsMadeWithoutTextsToo)
{
    const ScopedSeparator restored(L'.');
    CVeUnitManager manager(nullptr, nullptr, nullptr, L'.', 1.0, 1);
    EXPECT_TRUE(manager.GetNameStyleUnit().IsEmpty());
    EXPECT_EQ(26u, manager.GetVisUnit(26).GetIDUnit());
    CVeUnitManager* const nobody = nullptr;
    EXPECT_EQ(26u, CVeUnitManager(nobody).GetVisUnit(26).GetIDUnit());
    manager.UpdateFromOtherUnitManager(nullptr);
}

TEST(UnitManagerCopy, IsDeepInEveryForm)
{
    Composite::Forget();
    {
        CVeUnitManager source;
        Personalise(source);
        ASSERT_TRUE(source.AddCompositeUnit(new Composite(1), 30));

        CVeUnitManager fromPointer(&source);
        CVeUnitManager fromReference(source);
        CVeUnitManager assigned;
        ASSERT_TRUE(assigned.AddCompositeUnit(new Composite(2), 31));
        assigned = source;
        CVeUnitManager updated;
        ASSERT_TRUE(updated.AddCompositeUnit(new Composite(3), 32));
        Composite::s_calls.clear();
        updated.UpdateFromOtherUnitManager(&source);
        EXPECT_TRUE(Composite::s_calls.empty());

        for (CVeUnitManager* copy : {&fromPointer, &fromReference, &assigned, &updated})
        {
            ExpectSameUnits(source, *copy);
            EXPECT_EQ(&copy->GetVisUnit(1), &copy->GetVisUnit(30));
        }
        EXPECT_NE(&assigned.GetVisUnit(1), &assigned.GetVisUnit(31));
        EXPECT_NE(&updated.GetVisUnit(1), &updated.GetVisUnit(32));

        fromPointer.SetVisUnit(2, 7, 9);
        EXPECT_NE(7u, source.GetVisUnit(2).GetRange());
        EXPECT_TRUE(Composite::s_deleted.empty());
    }
    std::sort(Composite::s_deleted.begin(), Composite::s_deleted.end());
    EXPECT_EQ((std::vector<int>{1, 2, 3}), Composite::s_deleted);
}

TEST(UnitManagerCopy, OfAManagerOntoItselfChangesNothing)
{
    Composite::Forget();
    CVeUnitManager manager;
    Personalise(manager);
    ASSERT_TRUE(manager.AddCompositeUnit(new Composite(1), 30));
    CVeUnitManager expected(manager);
    CVeUnitManager& same = manager;
    manager = same;
    ExpectSameUnits(expected, manager);
    manager.UpdateFromOtherUnitManager(&manager);
    ExpectSameUnits(expected, manager);
    EXPECT_NE(&manager.GetVisUnit(1), &manager.GetVisUnit(30));
    EXPECT_TRUE(Composite::s_deleted.empty());
}

TEST(UnitManagerCopy, KeepsComposedUnits)
{
    CVeUnitManager source;
    CVeUnit unit;
    unit.SetUnitValues(L"Inertia", L"m4", 0.125);
    source.SetVisUnit(26, unit);
    CVeUnitManager copy(&source);
    EXPECT_EQ(L"m4", NameOf(copy.GetVisUnit(26)));
    EXPECT_EQ(0.125, copy.GetVisUnit(26).GetCoef());
}

TEST(UnitSystem, IsTheMetricsFactor)
{
    const struct
    {
        int code;
        double factor;
        const wchar_t* symbol;
        bool isMetric;
    } rows[] = {
        {1, 1000.0, L"mm", true},
        {2, 100.0, L"cm", true},
        {3, 10.0, L"dm", true},
        {4, 1.0, L"m", true},
        {5, 39.37007874015748, L"\"", false},
        {6, 3.2808398950131235, L"'", false},
    };
    CVeUnitManager manager;
    for (const auto& row : rows)
    {
        manager.SetUnitType(row.code);
        EXPECT_EQ(row.code, manager.GetUnitType());
        EXPECT_EQ(row.factor, manager.GetMetricsFactor()) << row.code;
        EXPECT_EQ(row.isMetric, manager.IsMetric()) << row.code;
        EXPECT_EQ(row.code, CVeUnitManager::FactorToType(row.factor));
        EXPECT_EQ(row.isMetric, CVeUnitManager::IsMetric(row.factor)) << row.code;
        EXPECT_EQ(CString(row.symbol), CVeUnitManager::GetStringUnits(row.code));
        for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        {
            EXPECT_EQ(FollowsTheMetricsFactor(idUnit) ? row.factor : 1.0, manager.GetVisUnit(idUnit).GetMetricsFactor())
                << row.code << " id " << idUnit;
        }
    }
}

TEST(UnitSystem, IsUnchangedByACodeThatIsNone)
{
    CVeUnitManager manager;
    manager.SetUnitType(1);
    for (const int code : {0, 7, -1, 2147483647, -2147483647 - 1})
    {
        manager.SetUnitType(code);
        EXPECT_EQ(1000.0, manager.GetMetricsFactor()) << code;
        EXPECT_EQ(1000.0, manager.GetVisUnit(1).GetMetricsFactor()) << code;
        EXPECT_TRUE(CVeUnitManager::GetStringUnits(code).IsEmpty()) << code;
    }
}

TEST(UnitSystem, IsFoundWithinATolerance)
{
    const struct
    {
        int expected;
        double factor;
    } rows[] = {
        {4, 1.0 + 1e-11},
        {4, 1.0 - 9e-11},
        {-1, 1.0 + 1e-9},
        {-1, 1.0 - 1.1e-10},
        {1, 1000.0 + 5e-11},
        {6, 3.2808398950131235},
        {6, 3.2808398950131235 + 5e-11},
        {5, 39.37007874015748 - 5e-11},
        {-1, 0.0},
        {-1, -1.0},
        {-1, 1e300},
        {-1, std::numeric_limits<double>::infinity()},
        {-1, std::numeric_limits<double>::quiet_NaN()},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.expected, CVeUnitManager::FactorToType(row.factor)) << row.factor;
        EXPECT_EQ(row.expected >= 1 && row.expected <= 4, CVeUnitManager::IsMetric(row.factor)) << row.factor;
    }
}

TEST(UnitSystem, IsGivenToTheUnitsAloneByUpdateUnitsMetricsFactor)
{
    CVeUnitManager manager;
    manager.UpdateUnitsMetricsFactor(12.5);
    EXPECT_EQ(1.0, manager.GetMetricsFactor());
    for (unsigned int idUnit = 1; idUnit <= 26; ++idUnit)
        EXPECT_EQ(FollowsTheMetricsFactor(idUnit) ? 12.5 : 1.0, manager.GetVisUnit(idUnit).GetMetricsFactor())
            << idUnit;
}

TEST(UnitSystem, FollowsTheIdThatAUnitHasNotItsPlace)
{
    CVeUnitManager manager;
    CVeUnit length;
    CVeUnit force(2, 2, 2, L'.', 1.0, 1);
    manager.SetVisUnit(2, length);
    manager.SetVisUnit(1, force);
    manager.UpdateUnitsMetricsFactor(12.5);
    EXPECT_EQ(1.0, manager.GetVisUnit(1).GetMetricsFactor());
    EXPECT_EQ(12.5, manager.GetVisUnit(2).GetMetricsFactor());
}

TEST(UnitSystem, KeptSetMetricsFactorWritesAConstManager)
{
    CVeUnitManager manager;
    const CVeUnitManager& constant = manager;
    EXPECT_EQ(12.5, constant.SetMetricsFactor(12.5));
    EXPECT_EQ(12.5, constant.GetMetricsFactor());
    EXPECT_EQ(12.5, manager.GetVisUnit(26).GetMetricsFactor());
    EXPECT_EQ(1.0, manager.GetVisUnit(25 - 5).GetMetricsFactor());
    EXPECT_EQ(-1, constant.GetUnitType());
    EXPECT_FALSE(manager.IsMetric());
}

TEST(ValueUnitRef, ConvertsAShownValueToTheReferenceUnit)
{
    const struct
    {
        double expected;
        double value;
        unsigned int idUnit;
        unsigned int range;
        double metricsFactor;
    } rows[] = {
        {(212.0 - 32.0) / 1.8, 212.0, 10, 1, 1.0},
        {(300.0 - 273.15) / 1.0, 300.0, 10, 2, 1.0},
        {300.0, 300.0, 10, 0, 1.0},
        {212.0, 212.0, 10, 7, 1.0},
        {2500.0 / 1000.0 * 1000.0, 2500.0, 1, 1, 1000.0},
        {1.0 / 39.37007874015748 * 3.2808398950131235, 1.0, 1, 5, 3.2808398950131235},
        {2.0 / 0.001, 2.0, 2, 2, 1.0},
        {2.0 / 0.001 * 5.0, 2.0, 2, 2, 5.0},  // as the unit holds it, whatever the quantity
    };
    CVeUnitManager manager;
    manager.SetMetricsFactor(77.0);
    for (const auto& row : rows)
    {
        const CVeUnit unit(row.idUnit, row.range, 2, L'.', row.metricsFactor, 0);
        EXPECT_EQ(row.expected, manager.GetValueUnitRef(row.value, unit))
            << row.value << " in " << row.idUnit << ':' << row.range;
    }
}

TEST(CompositeUnits, AreRefusedBelow27TwiceOrWhenTheirUpdateFails)
{
    Composite::Forget();
    CVeUnitManager manager;
    Composite first(1);
    Composite second(2);
    Composite failing(3, false);
    for (const unsigned int id : {0u, 1u, 26u})
        EXPECT_FALSE(manager.AddCompositeUnit(&first, id)) << id;
    EXPECT_TRUE(Composite::s_calls.empty());
    EXPECT_FALSE(manager.AddCompositeUnit(nullptr, 30));
    EXPECT_FALSE(manager.AddCompositeUnit(&failing, 30));
    EXPECT_EQ((std::vector<Composite::Call>{{3, &manager, 0xFFFFFFFF}}), Composite::s_calls);
    EXPECT_TRUE(manager.AddCompositeUnit(new Composite(4), 30));
    Composite::Forget();
    EXPECT_FALSE(manager.AddCompositeUnit(&second, 30));
    EXPECT_TRUE(Composite::s_calls.empty());
    EXPECT_TRUE(manager.AddCompositeUnit(new Composite(5), 27));
    EXPECT_TRUE(manager.AddCompositeUnit(new Composite(6), 0xFFFFFFFF));
    EXPECT_TRUE(Composite::s_deleted.empty());
}

TEST(CompositeUnits, AreUpdatedInTheOrderOfTheirIds)
{
    Composite::Forget();
    CVeUnitManager manager;
    ASSERT_TRUE(manager.AddCompositeUnit(new Composite(3), 1000));
    ASSERT_TRUE(manager.AddCompositeUnit(new Composite(1), 27));
    ASSERT_TRUE(manager.AddCompositeUnit(new Composite(2), 28));

    CVeUnit unit;
    const struct
    {
        std::function<void()> action;
        std::vector<unsigned int> ids;
    } rows[] = {
        {[&] { manager.SetVisUnit(5, 1, 1); }, {5}},
        {[&] { manager.SetVisUnit(7, unit); }, {7}},
        {[&] { EXPECT_TRUE(manager.UpdateCompositeUnits(0)); }, {0}},
        {[&] { EXPECT_TRUE(manager.UpdateCompositeUnits(0xFFFFFFFF)); }, {0xFFFFFFFF}},
        {[&] { manager.SetUnitType(1); }, {}},
        {[&] { manager.LoadStyleUnit(L"missing"); }, {}},
    };
    for (const auto& row : rows)
    {
        Composite::Forget();
        row.action();
        std::vector<Composite::Call> expected;
        for (const unsigned int id : row.ids)
            expected.insert(expected.end(), {{1, &manager, id}, {2, &manager, id}, {3, &manager, id}});
        EXPECT_EQ(expected, Composite::s_calls);
    }
}

TEST(CompositeUnits, AreUpdatedAfterTheUnitHasChanged)
{
    struct Watcher : CVeCompositeUnit
    {
        bool Update(CVeUnitManager* manager, unsigned int) override
        {
            m_precision = manager->GetVisUnit(5).GetPrecision();
            return m_precision != 1;  // a failure while it is registered changes nothing
        }
        unsigned int m_precision = 0;
    };
    CVeUnitManager manager;
    auto* const watcher = new Watcher;
    ASSERT_TRUE(manager.AddCompositeUnit(watcher, 27));
    manager.SetVisUnit(5, 1, 1);
    EXPECT_EQ(1u, watcher->m_precision);
    EXPECT_TRUE(manager.UpdateCompositeUnits(5));
}

TEST(CompositeUnits, MayUseTheManagerWhileTheyAreUpdated)
{
    struct Busy : CVeCompositeUnit
    {
        explicit Busy(unsigned int id)
            : m_id(id)
        {
            m_pUnit = &m_unit;
        }
        bool Update(CVeUnitManager* manager, unsigned int idUnit) override
        {
            m_unit = manager->GetVisUnit(5);
            if (idUnit == 5)
                manager->SetVisUnit(6, 0, m_unit.GetPrecision() + 1);
            if (idUnit == 6 && m_id < 32)
                AddNext(*manager);
            return true;
        }
        void AddNext(CVeUnitManager& manager) const
        {
            auto next = std::make_unique<Busy>(m_id + 1);
            if (manager.AddCompositeUnit(next.get(), m_id + 1))
                next.release();
        }
        unsigned int m_id;
        CVeUnit m_unit;
    };
    CVeUnitManager manager;
    auto first = std::make_unique<Busy>(27);
    ASSERT_TRUE(manager.AddCompositeUnit(first.get(), 27));
    first.release();
    manager.SetVisUnit(5, 1, 7);
    EXPECT_EQ(8u, manager.GetVisUnit(6).GetPrecision());
    // A composite that is added behind the one that adds it is reached by the same walk.
    for (unsigned int id = 27; id <= 32; ++id)
        EXPECT_EQ(7u, manager.GetVisUnit(id).GetPrecision()) << id;
    EXPECT_EQ(&manager.GetVisUnit(1), &manager.GetVisUnit(33));
}

TEST(CompositeUnits, AreDeletedWithTheManagerInTheOrderOfTheirIds)
{
    Composite::Forget();
    {
        CVeUnitManager manager;
        ASSERT_TRUE(manager.AddCompositeUnit(new Composite(2), 28));
        ASSERT_TRUE(manager.AddCompositeUnit(new Composite(3), 0xFFFFFFFF));
        ASSERT_TRUE(manager.AddCompositeUnit(new Composite(1), 27));
    }
    EXPECT_EQ((std::vector<int>{1, 2, 3}), Composite::s_deleted);
}
