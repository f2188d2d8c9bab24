#include "vetools/unitmanager/VeUnitManager.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>

#include "vetools/unitmanager/UnitDefaults.h"
#include "vetools/unitmanager/UnitSystems.h"

namespace
{

constexpr unsigned int c_keepPrecision = 0xFFFFFFFF;

bool IsUnitId(unsigned int idUnit)
{
    return idUnit >= 1 && idUnit <= c_unitIdCount;
}

template <typename Matches>
const UnitSystemRow* FindSystem(Matches matches)
{
    const auto* found = std::find_if(std::begin(c_unitSystems), std::end(c_unitSystems), matches);
    return found == std::end(c_unitSystems) ? nullptr : found;
}

const UnitSystemRow* SystemOfFactor(double f)
{
    return FindSystem([f](const UnitSystemRow& row) { return IsSameFactor(f, row.metricsFactor); });
}

const UnitSystemRow* SystemOfCode(int code)
{
    return FindSystem([code](const UnitSystemRow& row) { return row.code == code; });
}

/// A new unit of a row, null when there is no memory.
CVeUnit* MakeUnit(const DisplayUnitRow& row)
{
    return new (std::nothrow) CVeUnit(row.idUnit, row.range, row.precision, CVeUnitSeparator::m_cSep, 1.0, 1);
}

/// Copies a text, cut to the buffer; null stands for an empty text. The text may be the buffer's own.
template <std::size_t size>
void CopyText(wchar_t (&target)[size], const wchar_t* text)
{
    std::size_t length = 0;
    for (; text && text[length] && length < size - 1; ++length)
        target[length] = text[length];
    target[length] = L'\0';
}

}  // namespace

CVeCompositeUnit::~CVeCompositeUnit() = default;

CVeUnitManager::CVeUnitManager()
{
    SetDefaultValues();
    UpdateUnitsMetricsFactor(m_metricsFactor);
}

// By way of the default constructor: the units are then deleted when reading the style throws.
CVeUnitManager::CVeUnitManager(const wchar_t* folder, const wchar_t* name, const wchar_t* extension, wchar_t separator,
                               double metricsFactor, int load)
    : CVeUnitManager()
{
    CopyText(m_folder, folder);
    CopyText(m_styleName, name);
    CopyText(m_extension, extension);
    m_cSep = separator;
    m_metricsFactor = metricsFactor;
    if (load)
        LoadStyleUnit(name);
    UpdateUnitsMetricsFactor(metricsFactor);
}

CVeUnitManager::CVeUnitManager(CVeUnitManager* other)
{
    if (other)
        *this = *other;
    else
        SetDefaultValues();
}

CVeUnitManager::CVeUnitManager(const CVeUnitManager& other)
    : CVeUnitSeparator(other)
{
    *this = other;
}

CVeUnitManager& CVeUnitManager::operator=(const CVeUnitManager& other)
{
    CopyText(m_folder, other.m_folder);
    CopyText(m_styleName, other.m_styleName);
    CopyText(m_extension, other.m_extension);
    m_metricsFactor = other.m_metricsFactor;
    for (std::size_t i = 0; i < std::size(m_units); ++i)
    {
        // Copied before the old one is deleted: the other manager may be this one.
        CVeUnit* const copy = other.m_units[i] ? other.m_units[i]->GetClone() : nullptr;
        delete m_units[i];
        m_units[i] = copy;
    }
    return *this;
}

CVeUnitManager::~CVeUnitManager()
{
    for (const CVeUnit* unit : m_units)
        delete unit;
    for (const auto& [id, composite] : m_composites)
        delete composite;
}

void CVeUnitManager::UpdateFromOtherUnitManager(CVeUnitManager* other)
{
    if (other)
        *this = *other;
}

CVeUnit& CVeUnitManager::GetVisUnit(unsigned int idUnit)
{
    if (IsUnitId(idUnit))
        return *m_units[idUnit - 1];
    const auto found = m_composites.find(idUnit);
    if (found != m_composites.end() && found->second->m_pUnit)
        return *found->second->m_pUnit;
    return *m_units[0];
}

void CVeUnitManager::SetVisUnit(unsigned int idUnit, CVeUnit& unit)
{
    if (!IsUnitId(idUnit))
        return;
    *m_units[idUnit - 1] = static_cast<const CVeUnitBase&>(unit);
    UpdateCompositeUnits(idUnit);
}

void CVeUnitManager::SetVisUnit(unsigned int idUnit, unsigned int range, unsigned int precision)
{
    if (!IsUnitId(idUnit))
        return;
    CVeUnit& unit = *m_units[idUnit - 1];
    unit.SetRange(range);
    if (precision != c_keepPrecision)
        unit.SetPrecision(precision);
    UpdateCompositeUnits(idUnit);
}

void CVeUnitManager::GetTabUnit(CVeUnit* out)
{
    for (std::size_t i = 0; i < std::size(m_units); ++i)
    {
        if (m_units[i])
            out[i] = static_cast<const CVeUnitBase&>(*m_units[i]);
    }
}

void CVeUnitManager::SetNameStyleUnit(const wchar_t* name)
{
    CopyText(m_styleName, name);
}

CString CVeUnitManager::GetNameStyleUnit()
{
    return m_styleName;
}

void CVeUnitManager::SetDefaultValues()
{
    // Kept: units that stand there already are not deleted.
    for (std::size_t i = 0; i < std::size(m_units); ++i)
        m_units[i] = MakeUnit(c_initialUnits[i]);
}

CVeUnit* CVeUnitManager::GetDefaultUnitPtr(unsigned int idUnit)
{
    return IsUnitId(idUnit) ? MakeUnit(c_defaultUnits[idUnit - 1]) : nullptr;
}

CVeUnit CVeUnitManager::GetDefaultUnit(unsigned int idUnit) const
{
    CVeUnit unit;
    const std::unique_ptr<CVeUnit> defaultUnit(GetDefaultUnitPtr(idUnit));
    if (defaultUnit)
        unit = static_cast<const CVeUnitBase&>(*defaultUnit);
    return unit;
}

void CVeUnitManager::LoadDefaultUnits()
{
    for (CVeUnit*& unit : m_units)
    {
        if (!unit)
            unit = new CVeUnit;
    }
    for (unsigned int idUnit = 1; idUnit <= c_unitIdCount; ++idUnit)
        *m_units[idUnit - 1] = GetDefaultUnit(idUnit);
}

int CVeUnitManager::GetUnitType() const
{
    return FactorToType(m_metricsFactor);
}

void CVeUnitManager::SetUnitType(int code)
{
    if (const UnitSystemRow* system = SystemOfCode(code))
        SetMetricsFactor(system->metricsFactor);
}

int CVeUnitManager::FactorToType(double f)
{
    const UnitSystemRow* system = SystemOfFactor(f);
    return system ? system->code : c_noUnitSystem;
}

bool CVeUnitManager::IsMetric(double f)
{
    const UnitSystemRow* system = SystemOfFactor(f);
    return system && system->isMetric;
}

bool CVeUnitManager::IsMetric()
{
    return IsMetric(m_metricsFactor);
}

CString CVeUnitManager::GetStringUnits(int code)
{
    const UnitSystemRow* system = SystemOfCode(code);
    return system ? system->symbol : L"";
}

void CVeUnitManager::UpdateUnitsMetricsFactor(double f)
{
    for (CVeUnit* unit : m_units)
    {
        // The unit itself knows whether it follows the factor or keeps 1.0.
        if (unit)
            unit->SetMetricsFactor(f);
    }
}

double CVeUnitManager::SetMetricsFactor(double f) const
{
    m_metricsFactor = f;
    const_cast<CVeUnitManager*>(this)->UpdateUnitsMetricsFactor(f);
    return f;
}

double CVeUnitManager::GetMetricsFactor() const
{
    return m_metricsFactor;
}

double CVeUnitManager::GetValueUnitRef(double value, const CVeUnit& unit)
{
    unit.Double2SI(value, 1);
    return value;
}

bool CVeUnitManager::AddCompositeUnit(CVeCompositeUnit* unit, unsigned int id)
{
    if (!unit || id <= c_unitIdCount || m_composites.contains(id))
        return false;
    if (!unit->Update(this, CVeCompositeUnit::c_allUnits))
        return false;
    return m_composites.emplace(id, unit).second;
}

bool CVeUnitManager::UpdateCompositeUnits(unsigned int idUnit)
{
    for (const auto& [id, composite] : m_composites)
        composite->Update(this, idUnit);
    return true;
}
