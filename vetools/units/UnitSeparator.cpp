#include "vetools/units/UnitSeparator.h"

wchar_t CVeUnitSeparator::m_cSep = L'.';
