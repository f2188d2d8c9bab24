#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "vetools/framework/CString.h"
#include "vetools/units/UnitSeparator.h"
#include "vetools/units/VeUnitBase.h"

/// The ids of lengths.
inline constexpr unsigned int c_lengthIds[] = {1, 9, 12, 13, 14, 19, 21, 22, 23, 24, 25, 26};

inline CVeUnitBase MakeCatalogueUnit(unsigned int idUnit, unsigned int range)
{
    return CVeUnitBase(idUnit, range, 3, L'.', 1.0, 0);
}

inline std::wstring NameOf(const CVeUnitBase& unit)
{
    return std::wstring(unit.GetName().View());
}

inline std::wstring TitleOf(CVeUnitBase unit)
{
    return unit.GetTitle();
}

/// Makes a character the current decimal separator while it lives.
class ScopedSeparator
{
public:
    explicit ScopedSeparator(wchar_t separator) { CVeUnitSeparator::m_cSep = separator; }
    ~ScopedSeparator() { CVeUnitSeparator::m_cSep = L'.'; }
    ScopedSeparator(const ScopedSeparator&) = delete;
    ScopedSeparator& operator=(const ScopedSeparator&) = delete;
};
