#pragma once

#include "vetools/platform/posix/WinTypes.h"

/// Text of a string-table entry, as the system documents it: with bufferSize 0, `buffer` is a `LPWSTR*` that receives a
/// pointer to the read-only resource itself, which is not terminated, and its length is returned. 0 when there is none.
int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int bufferSize);
