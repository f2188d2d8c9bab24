#pragma once

#include <string_view>

#include "vetools/platform/Platform.h"

/// Appends bytes to a file that was opened with FILE_APPEND_DATA, by one call of WriteFile, so that they stand there in one
/// piece whoever else appends (internal). False when WriteFile fails.
///
/// Windows and Linux append whole by themselves. Wine first asks for the end of the file and then writes there: on the
/// Windows build the appending processes therefore wait for each other. Windows itself refuses the lock that this takes to a
/// handle that may only append, and the write goes ahead without it.
bool AppendWhole(HANDLE file, std::string_view bytes);
