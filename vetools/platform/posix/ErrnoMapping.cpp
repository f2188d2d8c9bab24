#include "vetools/platform/posix/ErrnoMapping.h"

#include <cerrno>
#include <sys/stat.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "vetools/platform/posix/WinBase.h"

namespace
{

struct ErrnoRow
{
    int number;
    DWORD error;
};

// clang-format off
constexpr ErrnoRow c_errnoRows[] = {
    {EACCES,       ERROR_ACCESS_DENIED},
    {EAGAIN,       ERROR_LOCK_VIOLATION},
    {EBADF,        ERROR_INVALID_HANDLE},
    {EBUSY,        ERROR_BUSY},
    {EDQUOT,       ERROR_DISK_QUOTA_EXCEEDED},
    {EEXIST,       ERROR_ALREADY_EXISTS},
    {EFAULT,       ERROR_NOACCESS},
    {EFBIG,        ERROR_FILE_TOO_LARGE},
    {EINVAL,       ERROR_INVALID_PARAMETER},
    {EIO,          ERROR_IO_DEVICE},
    {EISDIR,       ERROR_ACCESS_DENIED},
    {ELOOP,        ERROR_CANT_RESOLVE_FILENAME},
    {EMFILE,       ERROR_TOO_MANY_OPEN_FILES},
    {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
    {ENFILE,       ERROR_TOO_MANY_OPEN_FILES},
    {ENOENT,       ERROR_FILE_NOT_FOUND},
    {ENOMEM,       ERROR_NOT_ENOUGH_MEMORY},
    {ENOSPC,       ERROR_DISK_FULL},
    {ENOTDIR,      ERROR_PATH_NOT_FOUND},
    {ENOTEMPTY,    ERROR_DIR_NOT_EMPTY},
    {ENXIO,        ERROR_FILE_NOT_FOUND},
    {EPERM,        ERROR_ACCESS_DENIED},
    {EPIPE,        ERROR_BROKEN_PIPE},
    {EROFS,        ERROR_WRITE_PROTECT},
    {ESPIPE,       ERROR_SEEK},
    {ETXTBSY,      ERROR_SHARING_VIOLATION},
    {EXDEV,        ERROR_NOT_SAME_DEVICE},
};
// clang-format on

}  // namespace

DWORD ErrorFromErrno(int number)
{
    const auto* found = std::find_if(std::begin(c_errnoRows), std::end(c_errnoRows),
                                     [number](const ErrnoRow& row) { return row.number == number; });
    if (found != std::end(c_errnoRows))
        return found->error;
    ::OutputDebugStringA(("errno " + std::to_string(number) + " has no error number of the system's\n").c_str());
    return ERROR_GEN_FAILURE;
}

DWORD ErrorOfPath(int number, const std::string& path)
{
    if (number != ENOENT)
        return ErrorFromErrno(number);
    const std::size_t name = path.find_last_not_of('/');
    const std::size_t slash = name == std::string::npos ? name : path.find_last_of('/', name);
    if (slash == std::string::npos)
        return ERROR_FILE_NOT_FOUND;
    struct stat status
    {
    };
    const std::string folder = slash == 0 ? "/" : path.substr(0, slash);
    return ::stat(folder.c_str(), &status) == 0 ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

BOOL Fail(DWORD error)
{
    ::SetLastError(error);
    return 0;
}

BOOL FailWithErrno()
{
    return Fail(ErrorFromErrno(errno));
}

BOOL FailOfPath(const std::string& path)
{
    return Fail(ErrorOfPath(errno, path));
}
