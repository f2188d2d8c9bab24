#pragma once

#include <list>

#include "vetools/framework/CString.h"
#include "vetools/platform/Export.h"

VETOOLS_API void ParseStringToLong(const CString& text, std::list<long>& values, int allowZero);
