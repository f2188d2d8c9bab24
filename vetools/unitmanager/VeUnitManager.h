#pragma once

#include "vetools/platform/Export.h"
#include "vetools/units/UnitSeparator.h"

/// The set of current display units. It owns the name under which hosts know the current decimal separator:
///
///     CVeUnitManager::m_cSep = L',';
class VETOOLS_API CVeUnitManager : public CVeUnitSeparator
{
};
