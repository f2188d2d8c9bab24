#pragma once

#include "vetools/platform/Export.h"
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
constexpr DWORD FILE_ATTRIBUTE_REPARSE_POINT = 0x0400;  // a symbolic link
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
/// Other processes are kept from one thing, by a lock of the file: DeleteFileW leaves a file that is open to be written,
/// unless FILE_SHARE_DELETE lets others delete it. The other end of a pipe is not waited for: without one, it reads as
/// empty and is not opened for writing.
VETOOLS_API HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD share, void* security, DWORD disposition,
                               DWORD flagsAndAttributes, HANDLE templateFile);
VETOOLS_API BOOL CloseHandle(HANDLE file);

/// Reads up to `size` bytes; fewer only at the end of the file. `*read` is set in every case. `overlapped` must be null.
VETOOLS_API BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read, void* overlapped);
/// Writes `size` bytes in one system call wherever the system takes them all. `*written` is set in every case.
VETOOLS_API BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD size, LPDWORD written, void* overlapped);
VETOOLS_API BOOL FlushFileBuffers(HANDLE file);

/// Moves the file pointer by a signed 32-bit distance, or a 64-bit one whose high part is `*distanceHigh`, which then receives
/// the new high part. Returns the new low part, INVALID_SET_FILE_POINTER with the last error set when that fails.
VETOOLS_API DWORD SetFilePointer(HANDLE file, LONG distance, LONG* distanceHigh, DWORD from);
VETOOLS_API BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD from);
/// Cuts or extends the file to the file pointer; ERROR_ACCESS_DENIED for a handle that may not write.
VETOOLS_API BOOL SetEndOfFile(HANDLE file);
VETOOLS_API BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);

/// ERROR_ACCESS_DENIED for a folder, a device and a read-only file; ERROR_SHARING_VIOLATION for one that is open, see above.
VETOOLS_API BOOL DeleteFileW(LPCWSTR path);
VETOOLS_API BOOL MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags);
/// Copies the contents, FILE_ATTRIBUTE_READONLY, the right to execute and the time of the last write. `failIfExists` tells
/// whether a file at `to` is an error (ERROR_FILE_EXISTS) or is overwritten. A link at `from` is followed. What is no plain
/// file is refused with ERROR_ACCESS_DENIED. When copying fails, no half of it is left.
VETOOLS_API BOOL CopyFileW(LPCWSTR from, LPCWSTR to, BOOL failIfExists);
/// Of a symbolic link: FILE_ATTRIBUTE_REPARSE_POINT, and what its target has, if there is one.
VETOOLS_API DWORD GetFileAttributesW(LPCWSTR path);
/// Only FILE_ATTRIBUTE_READONLY is kept: it takes away the right to write, or gives it to the owner.
VETOOLS_API BOOL SetFileAttributesW(LPCWSTR path, DWORD attributes);

/// Hundreds of nanoseconds since the beginning of 1601, in UTC.
typedef struct _FILETIME
{
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
} FILETIME, *LPFILETIME;

/// Attributes as GetFileAttributesW gives them; size and times are those of a link's target, if there is one. No time of
/// creation is kept here, which then reads 0, as on a file system of the system's own that keeps none.
typedef struct _WIN32_FILE_ATTRIBUTE_DATA
{
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
} WIN32_FILE_ATTRIBUTE_DATA, *LPWIN32_FILE_ATTRIBUTE_DATA;

typedef enum _GET_FILEEX_INFO_LEVELS
{
    GetFileExInfoStandard,
    GetFileExMaxInfoLevel
} GET_FILEEX_INFO_LEVELS;

/// `data` is a WIN32_FILE_ATTRIBUTE_DATA*, and `level` GetFileExInfoStandard: ERROR_INVALID_PARAMETER for any other.
VETOOLS_API BOOL GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data);

// Folders

/// Makes one folder, whose parent must exist. `security` is not read.
VETOOLS_API BOOL CreateDirectoryW(LPCWSTR path, void* security);
/// Removes an empty folder, or a symbolic link to a folder, whose target stays. ERROR_DIRECTORY for anything else.
VETOOLS_API BOOL RemoveDirectoryW(LPCWSTR path);

constexpr DWORD MAX_PATH = 260;

/// An entry of a folder, with the values of WIN32_FILE_ATTRIBUTE_DATA. There are no alternate names.
typedef struct _WIN32_FIND_DATAW
{
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    WCHAR cFileName[MAX_PATH];
    WCHAR cAlternateFileName[14];
} WIN32_FIND_DATAW, *LPWIN32_FIND_DATAW;

/// Begins a search: `pattern` is a path whose last component may hold `*`, any characters or none, and `?`, one character.
/// Such names are matched without regard to case, and points and stars at the end of the pattern are met by the end of a
/// name: `*.*` finds every name, `calc.*` finds `calc`. Without `*` and `?` the pattern is a path as for any other function.
///
/// What is found: "." and "..", except in the root; then the names that the folder holds when they are first asked
/// for, in the order of their upper case. A folder may be changed while it is searched. Names that are no UTF-8 are found
/// too: see NativePath.h. Returns INVALID_HANDLE_VALUE when nothing is found, with ERROR_FILE_NOT_FOUND, or
/// ERROR_PATH_NOT_FOUND when the folder is missing.
VETOOLS_API HANDLE FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW found);
/// The next entry; 0 with ERROR_NO_MORE_FILES when there is none.
VETOOLS_API BOOL FindNextFileW(HANDLE search, LPWIN32_FIND_DATAW found);
VETOOLS_API BOOL FindClose(HANDLE search);

constexpr DWORD FILE_TYPE_UNKNOWN = 0x0000;
constexpr DWORD FILE_TYPE_DISK = 0x0001;
constexpr DWORD FILE_TYPE_CHAR = 0x0002;
constexpr DWORD FILE_TYPE_PIPE = 0x0003;

/// FILE_TYPE_DISK for a plain file.
VETOOLS_API DWORD GetFileType(HANDLE file);

/// The path of an open file without links, as a native path. Returns its length; when `capacity`, in characters with the
/// terminator, is too small, nothing is written and the capacity that is needed is returned. 0 when the system does not
/// tell. `flags` is not read.
VETOOLS_API DWORD GetFinalPathNameByHandleW(HANDLE file, LPWSTR path, DWORD capacity, DWORD flags);

/// Puts `replacement` in the place of `replaced`, which must exist, and gives it that file's access rights. `backup` must
/// be null; the other arguments are not read.
VETOOLS_API BOOL ReplaceFileW(LPCWSTR replaced, LPCWSTR replacement, LPCWSTR backup, DWORD flags, LPVOID exclude,
                              LPVOID reserved);

VETOOLS_API DWORD GetCurrentProcessId();
