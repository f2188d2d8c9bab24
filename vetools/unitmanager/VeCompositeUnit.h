#pragma once

#include "vetools/platform/Export.h"

class CVeUnit;
class CVeUnitManager;

/// What the unit manager asks of a composite unit: a unit that the host makes up from the current units, such as a unit of
/// inertia or of distributed load, and registers under an id of its own. The host derives from this class.
class VETOOLS_API CVeCompositeUnit
{
public:
    /// What Update is given when the composite is registered: everything may have changed.
    static constexpr unsigned int c_allUnits = 0xFFFFFFFF;

    /// A manager deletes its composites after its own units: a destructor does not use the manager.
    virtual ~CVeCompositeUnit();

    /// Brings m_pUnit up to date after the current unit of `idUnit` (1 to 26, or c_allUnits) changed. `manager` is the
    /// manager that holds both. Returns whether that succeeded; at registration false refuses the composite.
    virtual bool Update(CVeUnitManager* manager, unsigned int idUnit) = 0;

    /// The unit that the manager shows for this composite's id. Owned by the composite.
    CVeUnit* m_pUnit = nullptr;
};
