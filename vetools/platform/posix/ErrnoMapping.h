#pragma once

#include <string>

#include "vetools/platform/posix/WinTypes.h"

/// The system error number that stands for an errno value (internal). A value that is not in the table is reported on
/// the debugger output and becomes ERROR_GEN_FAILURE.
DWORD ErrorFromErrno(int number);

/// The same for an error that came of a path. A missing file and a missing folder are one error here and two there: the
/// folder decides.
DWORD ErrorOfPath(int number, const std::string& path);

/// Each sets the last error, from errno where no error is given, and returns 0 (internal).
BOOL Fail(DWORD error);
BOOL FailWithErrno();
BOOL FailOfPath(const std::string& path);
