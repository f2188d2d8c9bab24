#pragma once

#include "vetools/platform/posix/WinTypes.h"

// Files, under the system's names and with the system's documented results. Every function sets the last error when it
// fails; those that set it on success as well say so. Paths are Windows paths or native ones: see NativePath.h.

using HANDLE = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPDWORD = DWORD*;

union LARGE_INTEGER
{
    struct
    {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1));

// Access: any combination; FILE_APPEND_DATA without GENERIC_WRITE makes every write go to the end of the file.
constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_APPEND_DATA = 0x0004;

// What others may do with the file while it is open.
constexpr DWORD FILE_SHARE_READ = 0x0001;
constexpr DWORD FILE_SHARE_WRITE = 0x0002;
constexpr DWORD FILE_SHARE_DELETE = 0x0004;

// Disposition.
constexpr DWORD CREATE_NEW = 1;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD OPEN_ALWAYS = 4;
constexpr DWORD TRUNCATE_EXISTING = 5;

constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x0001;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x0010;
constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 0x0020;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x0080;
constexpr DWORD FILE_ATTRIBUTE_TEMPORARY = 0x0100;
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

constexpr DWORD FILE_BEGIN = 0;
constexpr DWORD FILE_CURRENT = 1;
constexpr DWORD FILE_END = 2;
constexpr DWORD INVALID_SET_FILE_POINTER = 0xFFFFFFFF;

constexpr DWORD MOVEFILE_REPLACE_EXISTING = 0x0001;
constexpr DWORD MOVEFILE_WRITE_THROUGH = 0x0008;

/// Opens or creates a file; INVALID_HANDLE_VALUE when that fails. On success the last error is ERROR_ALREADY_EXISTS when
/// CREATE_ALWAYS or OPEN_ALWAYS met an existing file, else 0. `security` and `templateFile` are not read, and of
/// `flagsAndAttributes` only FILE_ATTRIBUTE_READONLY is. Sharing is enforced between the handles of this process.
HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD share, void* security, DWORD disposition, DWORD flagsAndAttributes,
                   HANDLE templateFile);
BOOL CloseHandle(HANDLE file);

/// Reads up to `size` bytes; fewer only at the end of the file. `*read` is set in every case. `overlapped` must be null.
BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read, void* overlapped);
/// Writes `size` bytes in one system call wherever the system takes them all. `*written` is set in every case.
BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD written, void* overlapped);
BOOL FlushFileBuffers(HANDLE file);

/// Moves the file pointer by a signed 32-bit distance, or a 64-bit one whose high part is `*distanceHigh`, which then receives
/// the new high part. Returns the new low part, INVALID_SET_FILE_POINTER with the last error set when that fails.
DWORD SetFilePointer(HANDLE file, LONG distance, LONG* distanceHigh, DWORD from);
BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD from);
/// Cuts or extends the file to the file pointer.
BOOL SetEndOfFile(HANDLE file);
BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);

BOOL DeleteFileW(LPCWSTR path);
BOOL MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags);
DWORD GetFileAttributesW(LPCWSTR path);
/// Only FILE_ATTRIBUTE_READONLY is kept: it takes away the right to write, or gives it to the owner.
BOOL SetFileAttributesW(LPCWSTR path, DWORD attributes);

constexpr DWORD FILE_TYPE_UNKNOWN = 0x0000;
constexpr DWORD FILE_TYPE_DISK = 0x0001;
constexpr DWORD FILE_TYPE_CHAR = 0x0002;
constexpr DWORD FILE_TYPE_PIPE = 0x0003;

/// FILE_TYPE_DISK for a plain file.
DWORD GetFileType(HANDLE file);

/// The path of an open file without links, as a native path. Returns its length; when `capacity`, in characters with the
/// terminator, is too small, nothing is written and the capacity that is needed is returned. 0 when the system does not
/// tell. `flags` is not read.
DWORD GetFinalPathNameByHandleW(HANDLE file, LPWSTR path, DWORD capacity, DWORD flags);

/// Puts `replacement` in the place of `replaced`, which must exist, and gives it that file's access rights. `backup` must
/// be null; the other arguments are not read.
BOOL ReplaceFileW(LPCWSTR replaced, LPCWSTR replacement, LPCWSTR backup, DWORD flags, LPVOID exclude, LPVOID reserved);

DWORD GetCurrentProcessId();
