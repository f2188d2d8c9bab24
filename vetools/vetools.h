#pragma once

/// Everything that VeTools offers, for hosts that do not choose among the headers.

#include "vetools/framework/CException.h"
#include "vetools/framework/CString.h"
#include "vetools/framework/CStringArray.h"
#include "vetools/framework/ModuleState.h"
#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"
#include "vetools/resources/VePrompts.h"
#include "vetools/unitmanager/VeUnitManager.h"
#include "vetools/units/UnitSeparator.h"
#include "vetools/units/UnitTypes.h"
#include "vetools/units/ValueTextOptions.h"
#include "vetools/units/VeUnitBase.h"
#include "vetools/util/NumberList.h"
#include "vetools/util/StringTokenizer.h"
#include "vetools/util/VeString.h"
#include "vetools/valuetext/VeImperialLength.h"
