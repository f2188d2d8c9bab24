#pragma once

#include "vetools/platform/Export.h"
#include "vetools/platform/Platform.h"

// Files by the system's own calls, which open paths of any length, can wait for room on a full disk, and write their
// failures to the log of the process (LogFileBase), as errors of "veutilitiescommon" and a line number:
//
//     HANDLE file = gCreateFile(path, GENERIC_WRITE, 0, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
//     if (file == INVALID_HANDLE_VALUE)
//         return false;                                                   // the log says why
//     const bool done = gWriteFile(file, bytes, size, nullptr) != 0;
//     CloseHandle(file);
//
// GetLastError after a failure is that of the system's call, whatever was logged since.

/// Opens or makes a file; the arguments are those of CreateFileW. A path that fails is tried once more in its extended form,
/// `\\?\C:\...` or `\\?\UNC\server\...`, in which Windows takes up to 32767 characters; on another system it is the same
/// file. A path that has the form already is tried twice as it is.
///
/// Returns the handle, which CloseHandle closes. INVALID_HANDLE_VALUE when the second attempt fails too: logged
/// with the path and the system's text for the second error:
///
///     error opening file C:\missing\a.txt
///     The system cannot find the path specified.
///
/// INVALID_HANDLE_VALUE at once, and no entry, for a null path.
VETOOLS_API HANDLE gCreateFile(const wchar_t* path, DWORD access, DWORD share, DWORD disposition,
                               DWORD flagsAndAttributes);

/// Writes `bytesToWrite` bytes. `bytesWritten`, which may be null, receives how many were written.
///
/// Returns what WriteFile returns: not 0 on success. When the disk is full, or the user's part of it (errors 112 and 1295),
/// the hook of gSetDiskFullRetryHook is asked first, if there is one. Else a failure is logged: "error (112) writing in file".
///
/// Kept: after the first full disk without a hook no failure is logged any more, whatever it is, and no hook is asked: for
/// the life of the process.
/// Kept: when the hook wants another attempt, all bytes are written again, behind those that there was room for.
VETOOLS_API int gWriteFile(HANDLE file, const void* buffer, DWORD bytesToWrite, DWORD* bytesWritten);

/// Reads up to `bytesToRead` bytes. `bytesRead`, which may be null, receives how many were read.
///
/// Returns 0 when nothing was read: at the end of the file, or after a failure, which is logged:
/// "error (6) reading from file". Kept: so does reading 0 bytes.
VETOOLS_API int gReadFile(HANDLE file, void* buffer, DWORD bytesToRead, DWORD* bytesRead);

/// Asked by gWriteFile when a disk is full: IDRETRY (4), after the user has made room, to write once more; any other answer
/// to fail, without an entry in the log. It is asked again each time that the disk is still full.
typedef int (*DiskFullRetryHook)();

/// Sets the hook of the process; null, as at the start, for none. Returns the previous one.
VETOOLS_API DiskFullRetryHook gSetDiskFullRetryHook(DiskFullRetryHook hook);
