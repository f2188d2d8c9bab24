#pragma once

#include "vetools/platform/Export.h"

/// Owner of the current decimal separator, one character for the whole process. The unit manager derives from it, so
/// hosts read and write it as CVeUnitManager::m_cSep; units, which know no manager, read it here.
class VETOOLS_API CVeUnitSeparator
{
public:
    /// Initially '.'. A '.' given to a unit as its separator is replaced by this character. No lock guards it.
    static wchar_t m_cSep;
};
