#pragma once

#include "vetools/platform/posix/WinTypes.h"

/// The system error number that stands for an errno value (internal). A value that is not in the table is reported on
/// the debugger output and becomes ERROR_GEN_FAILURE.
DWORD ErrorFromErrno(int number);
