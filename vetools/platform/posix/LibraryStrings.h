#pragma once

#include "vetools/platform/posix/StringModule.h"

/// The library's own string table (internal), compiled in from resources/strings.def.
extern const VeStringModule c_libraryStrings;
