// The display units of a document: chosen, made into others, switched between length systems, recognised in text.
#include <cstdio>

#include "vetools/vetools.h"

namespace
{

/// Force per length, in whatever units forces and lengths are shown.
class LineLoad : public CVeCompositeUnit
{
public:
    ~LineLoad() override { delete m_pUnit; }

    bool Update(CVeUnitManager* manager, unsigned int) override
    {
        const CVeUnitBase& force = manager->GetVisUnit(Unit::UNIT_ID_FORCE);
        const CVeUnitBase& length = manager->GetVisUnit(Unit::UNIT_ID_LENGTH);
        delete m_pUnit;
        m_pUnit = new CVeUnit(force / length);
        return true;
    }
};

constexpr unsigned int c_lineLoad = 27;

void Show(CVeUnitManager& units, unsigned int idUnit, double value)
{
    wchar_t text[64];
    units.GetVisUnit(idUnit).Double2String(text, value, {.withUnit = true});
    std::printf("%ls\n", text);
}

}  // namespace

int main()
{
    CVeUnitManager units;
    units.AddCompositeUnit(new LineLoad, c_lineLoad);
    Show(units, Unit::UNIT_ID_FORCE, 12500.0);
    Show(units, c_lineLoad, 12500.0);

    // The user chooses kips and feet: composites follow.
    units.SetVisUnit(Unit::UNIT_ID_FORCE, 7, 3);
    units.SetVisUnit(Unit::UNIT_ID_LENGTH, 6, 2);
    Show(units, Unit::UNIT_ID_FORCE, 12500.0);
    Show(units, c_lineLoad, 12500.0);

    // The length system is carried by the metrics factor.
    units.SetUnitType(1);
    std::printf("lengths in %ls, %g per metre\n", CVeUnitManager::GetStringUnits(units.GetUnitType()).GetString(),
                units.GetMetricsFactor());

    // Units in imported text.
    CVeUnit unit;
    if (CVeUnitManager::UnitFromString(L"cm3", unit) == CVeUnitManager::STATUS_OK)
        std::printf("%ls: %g\n", unit.GetName().GetString(), unit.GetCoef());
    if (CVeUnitManager::UnitFromString(L"furlong", unit) == CVeUnitManager::STATUS_UNKNOWN)
        std::printf("unknown\n");
}
