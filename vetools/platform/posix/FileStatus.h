#pragma once

#include <optional>

#include "vetools/platform/posix/WinFiles.h"

/// What the system's calls report of a file (internal): `path` as seen from the folder with the descriptor `folder`, or
/// AT_FDCWD. Nothing, with errno set, when it cannot be asked.
std::optional<WIN32_FILE_ATTRIBUTE_DATA> StatusOf(int folder, const char* path);
