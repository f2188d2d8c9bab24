#pragma once

#include <string>

#include "vetools/platform/posix/WinTypes.h"

/// Whether a file may be given to the system's loader (internal): ERROR_SUCCESS for a shared object with everything that it
/// says it has, else the error of loading it. The loader itself does not survive a file that was cut off: it maps what is
/// missing, and the process ends when that is touched.
DWORD CheckSharedObject(const std::string& path);
