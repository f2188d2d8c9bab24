#pragma once

#include "vetools/platform/Export.h"
#include "vetools/platform/posix/WinTypes.h"

// Modules with string tables, under the system's names and with the system's documented results. A module is a shared object
// with the record of StringModule.h; its handle is a number that is never given twice, so that the handle of a module that was
// freed stays invalid. The library itself is a module, too, whose handle stays.

/// Loads a module, or counts one more use of a module that is loaded; the handle is the same then.
///
/// name  a path, in the Windows or the native form, or a name without a folder: that is looked for in the folder of the
///       program, then where the system looks for shared objects. A name without a full stop gets ".so"; one that ends in a
///       full stop loses it and gets nothing
/// Null with the last error set when that fails: ERROR_INVALID_PARAMETER for null, ERROR_MOD_NOT_FOUND where there is no such
/// file, ERROR_BAD_EXE_FORMAT for a file that is no module, or not a whole one, ERROR_ACCESS_DENIED for a folder or a file
/// that may not be read.
VETOOLS_API HINSTANCE LoadLibraryW(LPCWSTR name);

/// Gives up one use of a module; after the last one it is unloaded. 1, or 0 with the last error set: ERROR_INVALID_HANDLE for
/// null, ERROR_MOD_NOT_FOUND for what is no handle of a module, or no longer. The library's own module is never unloaded.
VETOOLS_API BOOL FreeLibrary(HINSTANCE module);

/// The text of an entry of a module's string table. Copies up to bufferSize - 1 characters with a terminator and
/// returns how many characters it copied. With bufferSize 0, `buffer` is a `LPCWSTR*` that receives a pointer to the
/// read-only entry itself, which has no terminator, and the length of the entry is returned. 0 when there is no such
/// entry, the last error then being ERROR_RESOURCE_NAME_NOT_FOUND, or ERROR_RESOURCE_DATA_NOT_FOUND where `module` is not
/// loaded; the buffer holds an empty text then, unless its size is 0, where a null pointer is stored. Null stands for the
/// program, which has no string table here.
VETOOLS_API int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int bufferSize);
